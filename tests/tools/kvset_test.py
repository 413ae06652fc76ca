"""The command line tool as a person calls it: the same for Linux and for Windows."""

import json
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PICTURES = {"gut": ["a.bmp", "Öl fleck.jpg"], "Riß": ["b.bmp"], "leer": []}


class Native(unittest.TestCase):
    program = (ROOT / "build/native/kvset",)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.data = Path(folder.name)
        for name, pictures in PICTURES.items():
            (self.data / "Picture" / name).mkdir(parents=True)
            for picture in pictures:
                (self.data / "Picture" / name / picture).write_bytes(b"BM")
        (self.data / "TestSets").mkdir()

    def path(self, name):
        return str(self.data / name)

    def run_tool(self, *arguments, expect=0):
        run = subprocess.run([*self.program, *arguments], capture_output=True, text=True, encoding="utf-8", check=False)
        self.assertEqual(expect, run.returncode, run.stdout + run.stderr)
        return run

    def create(self, expect=0):
        return self.run_tool("create", self.path("Picture"), self.path("TestSets/Prüfung.kvs"), expect=expect)

    def test_a_set_from_a_directory(self):
        self.create()
        shown = json.loads(self.run_tool("info", "--json", self.path("TestSets/Prüfung.kvs")).stdout)
        counts = {entry["name"]: entry["samplesPerRegion"] for entry in shown["classes"]}
        self.assertEqual((3, {"gut": [2], "leer": [0], "Riß": [1]}), (shown["samples"], counts))
        text = (self.data / "TestSets/Prüfung.kvs").read_bytes()
        self.assertIn("\r\n2=Picture\\gut\\Öl fleck.jpg\r\n".encode("cp1252"), text)

    def test_check_finds_a_picture_that_went_away(self):
        self.create()
        self.run_tool("check", self.path("TestSets/Prüfung.kvs"))
        (self.data / "Picture/gut/Öl fleck.jpg").unlink()
        self.assertIn("Öl fleck.jpg", self.run_tool("check", self.path("TestSets/Prüfung.kvs"), expect=1).stdout)

    def test_errors_go_to_stderr_and_nothing_is_overwritten(self):
        file = self.data / "TestSets/Prüfung.kvs"
        file.write_bytes(b"labels of a day")
        self.assertIn("Prüfung.kvs", self.create(expect=2).stderr)
        self.assertEqual(b"labels of a day", file.read_bytes())
        for arguments in ((), ("info",), ("info", self.path("missing.kvs")), ("create", "--what")):
            with self.subTest(arguments=arguments):
                run = self.run_tool(*arguments, expect=2)
                self.assertEqual("", run.stdout)
                self.assertTrue(run.stderr.startswith("kvset: "), run.stderr)


class Windows(Native):
    program = (ROOT / "tools/wine-run.sh", ROOT / "build/windows/kvset.exe")

    def path(self, name):
        return "Z:" + super().path(name).replace("/", "\\")

    def test_both_write_the_same_bytes(self):
        file = self.data / "TestSets/Prüfung.kvs"
        self.create()
        windows = file.read_bytes()
        file.unlink()
        subprocess.run([*Native.program, "create", self.data / "Picture", file], check=True, capture_output=True)
        self.assertEqual(file.read_bytes(), windows)


if __name__ == "__main__":
    unittest.main()
