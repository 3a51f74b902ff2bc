#!/usr/bin/env bash
# Fails, with the places, when a C++ file is not formatted as .clang-format says.
set -eu -o pipefail
cd "$(dirname "$0")/.."
find . \( -path ./build -o -path ./.git -o -name node_modules \) -prune \
    -o -type f \( -name '*.cpp' -o -name '*.h' \) -print0 \
    | xargs -0 clang-format --dry-run -Werror
