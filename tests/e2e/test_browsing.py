"""Folders and files of any name are shown, chosen and entered by mouse and keyboard."""

import os
import shutil
import unittest

from harness import EndToEndTest, keys, wait_for

ODD_FILES = [b"line\nbreak", b'a "quote"', b"bad \xff\xfe bytes", b"-rf", b"100%s%n", b"<b>bold",
             b"amp&ersand", "größe.TXT".encode()]
ODD_SHOWN = ["line\u240abreak", 'a "quote"', "bad \ufffd\ufffd bytes", "-rf", "100%s%n",
             "<b>bold", "amp&ersand", "größe.TXT"]


class BrowsingTest(EndToEndTest):
    def make_odd_home(self):
        home = os.fsencode(self.home)
        for name in ODD_FILES:
            with open(os.path.join(home, name), "wb") as file:
                file.write(b"content of " + name)
        os.makedirs(os.path.join(home, b"-new\nline \xff %d", b'in "side"'))
        (self.home / "plain" / "deeper").mkdir(parents=True)
        (self.home / "plain" / "one.txt").write_text("1")

    def test_first_start_shows_home_and_ends_clean(self):
        self.make_odd_home()
        odd_folder = "-new\u240aline \ufffd %d"
        program = self.start()
        for pane in (1, 2):
            self.wait_path(program, self.home, pane)
            self.wait_names(program, [*ODD_SHOWN, odd_folder, "plain"], pane)
            program.folders(pane).wait_has(self.home.name)
        self.assertFalse(program.is_open(3))
        self.assertEqual(program.status("files"), "10 items (2 folders)")
        self.assertTrue(self.marker.exists())
        self.assertEqual(self.marker.read_bytes(), b"")
        self.assertFalse(self.settings.exists())

        program.folders().expand(self.home.name)
        program.folders().wait_has("plain")
        program.folders().row(odd_folder).click(x=30)
        self.wait_path(program, f"{self.home}/{odd_folder}")
        self.wait_names(program, ['in "side"'])
        self.wait_path(program, self.home, 2)
        program.files().row('in "side"').click(times=2, x=20)
        self.wait_path(program, f'{self.home}/{odd_folder}/in "side"')
        self.wait_names(program, [])

        self.assertEqual(program.close(), 0)
        self.check_clean_end()
        for name in ODD_FILES:
            with open(os.path.join(os.fsencode(self.home), name), "rb") as file:
                self.assertEqual(file.read(), b"content of " + name)

    def test_mouse_and_keyboard_open_folders(self):
        for name in ("alpha/first", "beta/second", "gamma"):
            (self.home / name).mkdir(parents=True)
        program = self.start()
        self.wait_path(program, self.home)

        tree = program.folders()
        tree.expand(self.home.name)
        tree.row("alpha").click(x=30)
        self.wait_path(program, self.home / "alpha")
        self.wait_names(program, ["first"])
        keys("Down")
        self.wait_path(program, self.home / "beta")
        self.wait_names(program, ["second"])
        keys("Right")  # expands the branch
        tree.wait_has("second")
        keys("Down")
        self.wait_path(program, self.home / "beta/second")
        self.wait_names(program, [])
        keys("BackSpace")
        self.wait_path(program, self.home / "beta")
        keys("Left")
        wait_for("the branch to be folded", lambda: "second" not in tree.names())

        program.files().row("second").click(times=2, x=20)
        self.wait_path(program, self.home / "beta/second")
        tree.wait_has("second")
        self.assertFalse(self.settings.exists(), "settings are saved at the end only")
        keys("BackSpace")
        self.wait_path(program, self.home / "beta")
        keys("BackSpace")
        self.wait_path(program, self.home)
        self.wait_names(program, ["alpha", "beta", "gamma"])

        program.files().row("gamma").click(x=20)
        wait_for("the keyboard to be in the file list", program.files().has_focus)
        keys("Return")
        self.wait_path(program, self.home / "gamma")

    def test_list_follows_the_disk(self):
        shown = self.home / "shown" / "deep"
        shown.mkdir(parents=True)
        (shown / "old").write_text("")
        program = self.start()
        program.files().row("shown").click(times=2, x=20)
        program.files().row("deep").click(times=2, x=20)
        self.wait_path(program, shown)
        (shown / "new").write_text("")
        self.wait_names(program, ["old", "new"])
        (shown / "old").unlink()
        self.wait_names(program, ["new"])
        shutil.rmtree(self.home / "shown")
        self.wait_path(program, self.home)
        self.wait_names(program, [])
        self.assertEqual(program.close(), 0)
        self.check_clean_end()


if __name__ == "__main__":
    unittest.main()
