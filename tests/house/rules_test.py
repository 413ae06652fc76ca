"""The source tree keeps the rules of the house; and each rule finds what breaks it in a tree made for that."""

import tempfile
import unittest
from pathlib import Path

import rules

ROOT = Path(__file__).resolve().parents[2]


class TheTree(unittest.TestCase):
    def keeps(self, rule):
        broken = list(rule(ROOT))
        self.assertFalse(broken, f"{rule.__doc__}\n" + "\n".join(broken))

    def test_has_sources_in_every_room(self):
        # A rule that looks at nothing would hold.
        rooms = {name.split("/")[0] for name, _ in rules.sources(ROOT)}
        self.assertLessEqual({"model", "shell", "controls", "editor", "platform", "tools", "tests"}, rooms)

    def test_includes_follow_the_arrows(self):
        self.keeps(rules.include_arrows)

    def test_windows_is_seen_through_one_header(self):
        self.keeps(rules.windows_seen)

    def test_every_control_has_an_id(self):
        made = sum(len(set(rules.CONTROL_MADE.findall(text))) for name, text in rules.sources(ROOT)
                   if name.startswith(("editor/", "shell/", "controls/")))
        self.assertGreater(made, 50)
        self.keeps(rules.controls_without_id)

    def test_words(self):
        self.keeps(rules.foreign_words)

    def test_no_traces_of_one_machine(self):
        self.keeps(rules.machine_traces)

    def test_texts_are_utf8_with_line_feeds(self):
        self.keeps(rules.not_plain_text)


class EachRule(unittest.TestCase):
    """Finds the planted file, and nothing in the one that is right."""

    def look(self, rule, name, content):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content if isinstance(content, bytes) else content.encode())
            return list(rule(Path(folder)))

    def check(self, rule, wrong, right):
        for expected, rows in ((1, wrong), (0, right)):
            for name, content in rows:
                with self.subTest(name=name, content=content):
                    self.assertEqual(expected, len(self.look(rule, name, content)))

    def test_include_arrows(self):
        self.check(rules.include_arrows, [
            ("model/a.cpp", '#include "platform/list_view.h"\n'),
            ("model/a.cpp", '#include "editor/startup.h"\n'),
            ("controls/picturebox/a.h", '#include "controls/buttonlist/kvButtonList.h"\n'),
            ("controls/buttonlist/a.h", ' # include "model/records.h"\n'),
            ("editor/a.cpp", '#include "shell/mStichMain.h"\n'),
            ("shell/a.cpp", '#include "editor/frmStich.h"\n'),
            ("shell/a.cpp", '#include "platform/win32/wide.h"\n'),
            ("platform/text.cpp", '#include "platform/headless/desk.h"\n'),
            ("platform/win32/form.cpp", '#include "shell/mStichMain.h"\n'),
            ("elsewhere/a.cpp", "int a;\n"),
        ], [
            ("model/a.cpp", '#include "platform/document.h"\n#include <vector>\n'),
            ("editor/a.cpp", '#include "shell/frmError.h"\n#include "controls/picturebox/kvPictureBox.h"\n'),
            ("shell/a.cpp", '#include "editor/startup.h"\n'),
            ("platform/win32/entry.cpp", '#include "shell/mStichMain.h"\n'),
            ("tests/unit/a_test.cpp", '#include "editor/frmStich.h"\n'),
        ])

    def test_windows_seen(self):
        self.check(rules.windows_seen, [
            ("platform/win32/form.cpp", "#include <windows.h>\n"),
            ("tests/window/a_test.cpp", "#include <Windows.h>\n"),
            ("editor/a.cpp", "#include <commctrl.h>\n"),
            ("tests/unit/a_test.cpp", '#include "platform/win32/windows.h"\n'),
        ], [
            (rules.WINDOWS_HEADER, "#include <windows.h>\n"),
            ("platform/win32/form.cpp", '#include "platform/win32/windows.h"\n#include <commctrl.h>\n'),
            ("tests/window/a_test.cpp", '#include "platform/win32/windows.h"\n'),
            ("tests/unit/a_test.cpp", "#include <gtest/gtest.h>\n"),
        ])

    def test_controls_without_id(self):
        self.check(rules.controls_without_id, [
            ("editor/a.cpp", 'form_::form_() : btnOK(form, "btnOK", "&OK") {}\n'),
            ("shell/a.h", 'Label lblTop{*this, "lblTop"};\n'),
            ("shell/a.cpp", 'a::a() : form("form", "Titel") {}\n'),
        ], [
            ("editor/a.cpp", '// btnOK(form, "btnOK") was here\n'),
            ("editor/a.cpp", 'say(text, "btnOK");\n'),
        ])

    def test_an_id_in_the_list_counts_and_a_comment_does_not(self):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            (root / "editor").mkdir()
            (root / "editor" / "a.cpp").write_text('A::A() : btnOK(form, "btnOK"), btnNo(form, "btnNo") {}\n')
            ids = root / rules.CONTROL_IDS
            ids.parent.mkdir(parents=True)
            ids.write_text('{"btnOK", 1001},   // not "btnNo"\n')
            self.assertEqual(["editor/a.cpp: btnNo"], list(rules.controls_without_id(root)))

    def test_foreign_words(self):
        word = "sp" + "ec"
        self.check(rules.foreign_words, [
            ("a.cpp", f"// as the {word} has it\n"),
            ("README.md", f"See the {word}ification.\n"),
            ("a.sh", "# Par" + "t 3.1\n"),
            ("a.cpp", "// iss" + "ue #2\n"),
            (f"docs/{word}.txt", "\n"),
        ], [
            ("a.cpp", "// a special case; specific; inspection; part 3 of 4\n"),
        ])

    def test_machine_traces(self):
        self.check(rules.machine_traces, [
            ("a.cpp", '// see "/ro' + 'ot/x"\n'),
            ("a.sh", "cd /wo" + "rk/main\n"),
            ("a.sh", "curl deb.deb" + "ian.org\n"),
        ], [
            ("a.sh", 'work=$(mktemp -d); ls "$here/work/x" /usr/share\n'),
        ])

    def test_not_plain_text(self):
        self.check(rules.not_plain_text, [
            ("a.cpp", "// gr\xf6\xdfer\n".encode("latin-1")),
            ("a.cpp", b"int a;\r\n"),
            ("a.h", b"\xef\xbb\xbfint a;\n"),
            ("a.h", b"int a;"),
        ], [
            ("a.cpp", "// größer\n"),
            ("demo/pictures/a.BMP", b"BM\x00\xff"),
            ("tests/golden/a.txt", b"\xff\xfea\r\n"),
        ])


if __name__ == "__main__":
    unittest.main()
