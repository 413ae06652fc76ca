"""The scripts refuse what they cannot do before they build or install anything."""

import shutil
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


class Scripts(unittest.TestCase):
    def test_refusals(self):
        for command, expected in ((["run", "missing.kvs"], "missing.kvs"), (["run", "a", "b"], "usage"),
                                  (["tools/setup.sh", "everything"], "usage"), (["tools/setup.sh"], "usage")):
            with self.subTest(command=command):
                run = subprocess.run([ROOT / command[0], *command[1:]], capture_output=True, text=True, check=False)
                self.assertEqual((2, ""), (run.returncode, run.stdout))
                self.assertIn(expected, run.stderr)

    def test_a_set_up_machine_installs_nothing(self):
        run = subprocess.run([ROOT / "tools/setup.sh", "test"], capture_output=True, text=True, check=False)
        self.assertEqual((0, "", ""), (run.returncode, run.stdout, run.stderr))

    def test_every_script_is_executable(self):
        for name in ("run", "test", "bench", "package", ".ci/run", "tools/setup.sh", "tools/wine-run.sh",
                     "tools/wine-prefix.sh"):
            self.assertTrue(shutil.which(str(ROOT / name)), name)


if __name__ == "__main__":
    unittest.main()
