"""The program's own command line: folders for its panes, and what it refuses."""

import os
import subprocess
import unittest

from harness import EndToEndTest, PROGRAM, keys, wait_for


class ArgumentsTest(EndToEndTest):
    def made(self, name, file):
        folder = self.home / name
        folder.mkdir()
        (folder / file).touch()
        return folder

    def ask(self, *arguments, **options):
        """A copy that is not to come to a window, and has no display: its code, output and errors."""
        environment = dict(os.environ, TARNWELL_HOME=str(self.own), HOME=str(self.home), DISPLAY="")
        done = subprocess.run([PROGRAM, *arguments], capture_output=True, check=False, timeout=20,
                              env=environment, **options)
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
                (["--folder"], b"--folder"), (["-xy"], b"-xy"), ([file], b"Not a directory"),
                ([self.home / "gone"], b"No such file"), ([""], b"Invalid"),
                (["/"] * 6, b"five")):
            code, output, errors = self.ask(*arguments)
            self.assertEqual((code, output), (2, b""), arguments)
            self.assertIn(reason, errors)
        code, output, errors = self.ask("--help")
        self.assertEqual((code, errors), (0, b""))
        self.assertIn(b"FOLDER", output)
        self.assertRegex(self.ask("--version")[1], rb"^tarnwell [0-9]+[.][0-9]+[.][0-9]+\n$")
        program = self.launch(arguments=["--", "--version"],  # as a desktop starts it
                              wrapper=["sh", "-c", 'exec "$@" 2>/dev/null', "sh"])
        program.message("--version")
        keys("Escape")
        self.assertEqual(program.wait_end(), 2)
        self.assertEqual(list(self.own.iterdir()), [])

    def test_folders_wait_for_the_start_and_for_what_is_asked(self):
        folder = self.made("folder", "one")
        second = self.made("second", "two")
        program = self.launch()
        wait_for("the copy to be found", self.marker.exists)
        self.assertEqual(self.ask(folder)[0], 0)
        self.wait_shows(program, 1, "one")

        program.wait_active()
        program.select("one")
        keys("Delete")
        program.message("to the trash?")
        self.assertEqual(self.ask(second)[0], 0)
        self.assertEqual(program.files().names(), ["one"])
        program.dismiss("to the trash?", "Escape")
        self.wait_shows(program, 1, "two")


if __name__ == "__main__":
    unittest.main()
