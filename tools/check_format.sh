#!/usr/bin/env bash
# Fails, with the places, when a C++ file is not formatted as .clang-format says.
set -eu
cd "$(dirname "$0")/.."
git ls-files -z --cached --others --exclude-standard -- '*.cpp' '*.h' \
    | while IFS= read -r -d '' file; do
        case $file in common/pinyintable.*) ;; *) [ -f "$file" ] && printf '%s\0' "$file" ;; esac
    done \
    | xargs -0 -r clang-format --dry-run -Werror
