#!/usr/bin/env python3
"""The checks of the tree find what they are there to find, each in a small tree."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
sys.dont_write_bytecode = True
import check_translations  # noqa: E402
import check_tree  # noqa: E402


def catalogue(messages):
    body = "".join(f"<message><source>{key}</source><translation{state}>{text}</translation></message>"
                   for key, state, text in messages)
    return f"<TS><context><name>QObject</name>{body}</context></TS>"


class ChecksTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def assert_finds(self, check, *words):
        findings = check(self.root)
        self.assertEqual(len(findings), 1, findings)
        for word in words:
            self.assertIn(word, findings[0])

    def test_downward_includes_are_clean(self):
        self.write("common/a.h", '#include "hostapi/b.h"\n')
        self.write("hostapi/b.h", "")
        self.write("contacts/friendwidget.cpp", '#include "detail/c.h"\n#include "common/a.h"\n')
        self.write("detail/c.h", "")
        self.assertEqual(check_tree.check(self.root), [])

    def test_layers(self):
        for name, included in (("hostapi/a.h", "common/b.h"), ("plugin/a.cpp", "controls/b.h"),
                               ("contacts/a.cpp", "detail/b.h"),
                               ("contacts/a.cpp", "contacts/friendwidget.h")):
            with self.subTest(name=name, included=included):
                self.write(name, f'#include "{included}"\n')
                self.assert_finds(check_tree.check, name, included)
                (self.root / name).unlink()

    def test_include_loop_over_source_files(self):
        self.write("common/a.h", "")
        self.write("common/a.cpp", '#include "common/a.h"\n#include "common/b.h"\n')
        self.write("common/b.h", '#include "common/c.h"\n')
        self.write("common/c.h", '#include "common/a.h"\n')
        self.assert_finds(check_tree.check, "common/a -> common/b -> common/c -> common/a")

    def test_long_file_and_forbidden_call(self):
        self.write("common/long.cpp", "\n" * 501)
        self.assert_finds(check_tree.check, "501 lines")
        self.write("common/long.cpp", "reply->ignoreSslErrors();\n")
        self.assert_finds(check_tree.check, "TLS")

    def test_pictures_named_in_the_code(self):
        self.write("contacts/a.cpp", 'f("Resources/images/a.png", "Resources/images/b%1.png");\n')
        self.assert_finds(check_tree.check, "Resources/images/a.png")
        self.write("Resources/images/a.png", "")
        self.assertEqual(check_tree.check(self.root), [])

    def test_translations(self):
        good = [("tip", "", "Notice"), ("ask", "", "Delete %1?")]
        cases = {
            "complete": (good, None),
            "missing": (good[:1], "ask"),
            "unfinished": (good[:1] + [("ask", ' type="unfinished"', "Delete %1?")], "ask"),
            "placeholder": (good[:1] + [("ask", "", "Delete?")], "placeholders"),
            "twice": (good + good[:1], "twice"),
        }
        for name, (english, finding) in cases.items():
            with self.subTest(name):
                self.write("translations/friendui_zh_CN.ts", catalogue(good))
                self.write("translations/friendui_en.ts", catalogue(english))
                findings = check_translations.check(self.root)
                self.assertEqual(any(finding in line for line in findings) if finding
                                 else not findings, True, findings)

    def test_key_of_the_code_without_text(self):
        for language in check_translations.LANGUAGES:
            self.write(f"translations/friendui_{language}.ts", catalogue([("tip", "", "x")]))
        self.write("contacts/a.cpp", 'f(QObject::tr("tip"), QObject::tr(\n"newgroup"));\nmenu->addKey("delMuc");\n')
        self.write("host/b.cpp", 'QObject::tr("hostOnly");\n')
        findings = check_translations.check(self.root)
        for key in ("newgroup", "delMuc"):
            self.assertEqual(sum(key in line for line in findings), 2, findings)
        self.assertEqual(len(findings), 4, findings)


if __name__ == "__main__":
    unittest.main()
