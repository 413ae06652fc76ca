"""The source tree keeps the rules of the house; and each rule finds a file that breaks it."""

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


WORD = "sp" + "ec"
PLANTED = (   # each breaks its rule once
    (rules.include_arrows, (
        ("model/a.cpp", '#include "platform/list_view.h"\n'),
        ("controls/picturebox/a.h", ' # include "controls/buttonlist/kvButtonList.h"\n'),
        ("shell/a.cpp", '#include "platform/win32/wide.h"\n'),
        ("elsewhere/a.cpp", "int a;\n"))),
    (rules.windows_seen, (
        ("platform/win32/form.cpp", "#include <windows.h>\n"),
        ("editor/a.cpp", "#include <commctrl.h>\n"),
        ("tests/unit/a_test.cpp", '#include "platform/win32/windows.h"\n'))),
    (rules.controls_without_id, (
        ("editor/a.cpp", 'form_::form_() : btnOK(form, "btnOK", "&OK") {}\n'),
        ("shell/a.h", 'Label lblTop{*this, "lblTop"};\n'))),
    (rules.foreign_words, (
        ("README.md", f"See the {WORD}ification.\n"),
        ("a.sh", "# Par" + "t 3.1\n"),
        ("a.cpp", "// iss" + "ue #2\n"),
        (f"docs/{WORD}.txt", "\n"))),
    (rules.machine_traces, (
        ("a.cpp", '// see "/ro' + 'ot/x"\n'),
        ("a.sh", "curl deb.deb" + "ian.org\n"))),
    (rules.not_plain_text, (
        ("a.cpp", "// gr\xf6\xdfer\n".encode("latin-1")),
        ("a.cpp", b"int a;\r\n"),
        ("a.h", b"\xef\xbb\xbfint a;\n"),
        ("a.h", b"int a;"))),
)


class EachRule(unittest.TestCase):
    def look(self, rule, *files):
        with tempfile.TemporaryDirectory() as folder:
            for name, content in files:
                path = Path(folder) / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_bytes(content if isinstance(content, bytes) else content.encode())
            return list(rule(Path(folder)))

    def test_planted_files_are_found(self):
        for rule, files in PLANTED:
            for file in files:
                with self.subTest(rule=rule.__name__, file=file):
                    self.assertEqual(1, len(self.look(rule, file)))

    def test_an_id_in_the_list_counts_and_a_comment_does_not(self):
        found = self.look(rules.controls_without_id,
                          ("editor/a.cpp", 'A::A() : btnOK(form, "btnOK"), btnNo(form, "btnNo") {}\n'),
                          (rules.CONTROL_IDS, '{"btnOK", 1001},   // not "btnNo"\n'))
        self.assertEqual(["editor/a.cpp: btnNo"], found)


if __name__ == "__main__":
    unittest.main()
