"""Folders and files of any name are shown, chosen and entered by mouse and keyboard."""

import os
import pathlib
import shutil

from harness import EndToEndTest, keys, wait_for

ODD_FILES = [b"line\nbreak", b'a "quote"', b"bad \xff\xfe bytes", b"-rf", b"100%s%n", b"<b>bold",
             b"amp&ersand", "größe.TXT".encode()]
ODD_SHOWN = ["line\u240abreak", 'a "quote"', "bad \ufffd\ufffd bytes", "-rf", "100%s%n",
             "<b>bold", "amp&ersand", "größe.TXT"]


class BrowsingTest(EndToEndTest):
    def test_first_start_shows_odd_names_and_ends_clean(self):
        home = os.fsencode(self.home)
        for name in ODD_FILES:
            pathlib.Path(os.fsdecode(os.path.join(home, name))).write_bytes(b"content of " + name)
        os.makedirs(os.path.join(home, b"-new\nline \xff %d", b'in "side"'))
        odd_folder = "-new\u240aline \ufffd %d"
        program = self.start()
        for pane in (1, 2):
            self.wait_path(program, self.home, pane)
            self.wait_names(program, [*ODD_SHOWN, odd_folder], pane)
            program.folders(pane).wait_has(self.home.name)
        self.assertFalse(program.is_open(3))
        self.assertIn("9 items (1 folder), 157 bytes. ", program.status("files"))
        self.assertEqual(self.marker.read_bytes(), b"")
        self.assertFalse(self.settings.exists())

        program.folders().expand(self.home.name)
        program.folders().row(odd_folder).click(x=30)
        self.wait_path(program, f"{self.home}/{odd_folder}")
        self.wait_path(program, self.home, 2)
        program.files().enter('in "side"')
        self.wait_path(program, f'{self.home}/{odd_folder}/in "side"')
        self.wait_names(program, [])

        self.close_clean(program)
        for name in ODD_FILES:
            path = pathlib.Path(os.fsdecode(os.path.join(home, name)))
            self.assertEqual(path.read_bytes(), b"content of " + name)

    def test_mouse_and_keyboard_open_folders(self):
        for name in ("alpha/first", "beta/second", "gamma"):
            (self.home / name).mkdir(parents=True)
        program = self.start()
        tree, files = program.folders(), program.files()

        def press(key, path, names):
            keys(key)
            self.wait_path(program, path)
            self.wait_names(program, names)

        tree.expand(self.home.name)
        tree.row("alpha").click(x=30)
        self.wait_names(program, ["first"])
        press("Down", self.home / "beta", ["second"])
        keys("Right")  # expands the branch
        tree.wait_has("second")
        press("Down", self.home / "beta/second", [])
        press("BackSpace", self.home / "beta", ["second"])
        keys("Left")
        wait_for("the branch to be folded", lambda: "second" not in tree.names())

        files.enter("second")
        self.wait_path(program, self.home / "beta/second")
        tree.wait_has("second")
        self.assertFalse(self.settings.exists(), "settings are saved at the end only")
        press("BackSpace", self.home / "beta", ["second"])
        press("BackSpace", self.home, ["alpha", "beta", "gamma"])
        files.row("gamma").click(x=20)
        wait_for("the keyboard to be in the file list", lambda: files.has("FOCUSED"))
        press("Return", self.home / "gamma", [])

        # The list follows what happens on the disk.
        (self.home / "gamma/new").touch()
        self.wait_names(program, ["new"])
        shutil.rmtree(self.home / "gamma")
        self.wait_path(program, self.home)
        self.wait_names(program, ["alpha", "beta"])
        self.close_clean(program)

    def test_a_program_runs_after_a_question_alone(self):
        odd, done = self.home / "a;b $HOME", self.home / "done"
        odd.write_text(f'#!/bin/sh\necho "$0 in $PWD" > {done}\n')
        odd.chmod(0o755)
        terminal = self.folder / "terminal"
        terminal.write_text('#!/bin/sh\nshift\nexec sh -c "$*"\n')
        terminal.chmod(0o755)
        program = self.start(environment={"TERMINAL": str(terminal)})
        program.files().enter(odd.name)
        self.answer("Run", "Return")  # nothing is run by accident
        self.assertFalse(done.exists())
        program.files().enter(odd.name)
        program.press("Run in Terminal")
        wait_for("it to run", lambda: done.exists() and done.read_text())
        self.assertEqual(done.read_text(), f"{odd} in {self.home}\n")
        self.close_clean(program)
