#!/usr/bin/env python3
"""Checks the translations: every key that the product gives to QObject::tr has a
finished text in every language, and the languages agree in keys and placeholders, the
reference host's texts included. Prints one line per finding; exits with 1 when there is any.

    tools/check_translations.py [ROOT]
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

LANGUAGES = ["zh_CN", "en"]
# What of the tree is not the product.
NOT_PRODUCT = {"tests", "host", "bench", "build", "backend", "sample", "tools"}
KEY = re.compile(r'(?:QObject::tr\(|\baddKey\(|\baddSubMenu\(|QT_TRANSLATE_NOOP\(\s*"QObject",)'
                 r'\s*"([^"\\]+)"')
PLACEHOLDER = re.compile(r"%(?:n|L?\d+)")


def product_keys(root):
    """Each key that the product's code names, with the first file that does."""
    keys = {}
    for path in sorted(root.rglob("*")):
        relative = path.relative_to(root)
        if path.suffix in {".h", ".cpp"} and relative.parts[0] not in NOT_PRODUCT:
            for key in KEY.findall(path.read_text(encoding="utf-8", errors="replace")):
                keys.setdefault(key, relative.as_posix())
    return keys


def read_catalogue(path):
    """The finished texts by (context, key), and what is wrong with the file itself."""
    texts, findings = {}, []
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            key = (context.findtext("name"), message.findtext("source"))
            translation = message.find("translation")
            if key in texts:
                findings.append(f"{path.name}: {key[1]} stands twice")
            if translation.get("type") or not (translation.text or "").strip():
                findings.append(f"{path.name}: {key[1]} has no finished text")
            else:
                texts[key] = translation.text
    return texts, findings


def compare(catalogues):
    findings = []
    for key in sorted(set().union(*catalogues.values())):
        missing = [name for name, texts in catalogues.items() if key not in texts]
        if missing:
            findings.append(f"{', '.join(missing)}: no text for {key[1]}")
        elif len({tuple(sorted(PLACEHOLDER.findall(texts[key])))
                  for texts in catalogues.values()}) > 1:
            findings.append(f"{key[1]}: the placeholders differ between the languages")
    return findings


def check(root):
    texts, findings = {}, []
    for language in LANGUAGES:
        path = root / "translations" / f"friendui_{language}.ts"
        if path.exists():
            texts[path.name], wrong = read_catalogue(path)
            findings += wrong
        else:
            findings.append(f"{path.name}: missing")
            texts[path.name] = {}
    findings += [f"{name}: no text for {key}, used in {where}"
                 for key, where in sorted(product_keys(root).items())
                 for name in texts if ("QObject", key) not in texts[name]]
    return findings + compare(texts)


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    findings = check(root)
    print("\n".join(findings) if findings else
          f"{len(product_keys(root))} keys in the code, each in {len(LANGUAGES)} languages")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
