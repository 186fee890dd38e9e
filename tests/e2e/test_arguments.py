"""The program's own command line: folders for its panes, and what it refuses."""

import os
import subprocess
import unittest

from harness import EndToEndTest, PROGRAM, wait_for


class ArgumentsTest(EndToEndTest):
    def made(self, name, file):
        folder = self.home / name
        folder.mkdir()
        (folder / file).touch()
        return folder

    def ask(self, *arguments, **options):
        """A copy that is not to come to a window: its code, output and errors."""
        done = subprocess.run([PROGRAM, *arguments], capture_output=True, check=False, timeout=20,
                              env=dict(os.environ, TARNWELL_HOME=str(self.own), HOME=str(self.home)),
                              **options)
        return done.returncode, done.stdout, done.stderr

    def wait_shows(self, program, pane, file):
        wait_for(f"{file!r} in pane {pane}", lambda: program.is_open(pane) and
                 file in program.files(pane).names())

    def test_folders_open_in_the_panes_of_a_new_copy_and_then_of_that(self):
        first = self.made("first & only", "one")
        second = self.made(os.fsdecode(b"second \xff"), "two")
        program = self.launch(arguments=[first, second])
        self.wait_shows(program, 1, "one")
        self.wait_shows(program, 2, "two")
        self.assertFalse(program.is_open(3))

        third = self.made("third", "three")
        code, _, _ = self.ask(os.fsencode(second), "third", third, cwd=self.home)
        self.assertEqual(code, 0)
        self.wait_shows(program, 1, "two")
        self.wait_shows(program, 2, "three")
        self.wait_shows(program, 3, "three")
        self.assertEqual(program.close(), 0)
        self.assertIn(b"third", self.settings.read_bytes())

    def test_anything_else_is_an_error(self):
        file = self.home / "file"
        file.touch()
        for arguments, reason in (
                (["--folder"], b"--folder"), (["-x"], b"-x"), ([file], b"Not a directory"),
                ([self.home / "gone"], b"No such file"), ([""], b"Invalid"),
                (["/"] * 6, b"five")):
            code, output, errors = self.ask(*arguments)
            self.assertEqual((code, output), (2, b""), arguments)
            self.assertIn(reason, errors)
        code, output, errors = self.ask("--help")
        self.assertEqual((code, errors), (0, b""))
        self.assertIn(b"FOLDER", output)
        self.assertRegex(self.ask("--version")[1], rb"^tarnwell [0-9]+[.][0-9]+[.][0-9]+\n$")
        self.assertEqual(list(self.own.iterdir()), [])


if __name__ == "__main__":
    unittest.main()
