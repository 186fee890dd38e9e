"""Damaged, missing and forbidden files: the program comes up, tells what it must, loses nothing."""

import os
import pathlib
import random
import subprocess

from harness import EndToEndTest, keys

# Runs a command that has no more rights on files than their permissions give, also under root.
PLAIN_USER = [] if os.geteuid() else ["setpriv", "--bounding-set=-dac_override,-dac_read_search"]

SKIN_MESSAGE = "The last used 'skin' could not be found."

WILD_NUMBERS = pathlib.Path(__file__).with_name("wild.usr")


class BadFilesTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        (self.home / "kept").write_text("kept")

    def test_settings_that_are_no_settings(self):
        self.assertEqual(self.start().close(), 0)
        whole = self.settings.read_bytes()
        contents = {"much noise": random.Random(20).randbytes(50 << 20),
                    "cut within a record": whole[:len(whole) * 2 // 3 + 1],
                    "zeros": bytes(100000)}
        for kind, content in contents.items():
            with self.subTest(kind=kind):
                self.settings.write_bytes(content)
                program = self.start()
                self.wait_path(program, self.home)
                self.wait_names(program, ["kept"])
                self.close_clean(program)
                self.assertLess(self.settings.stat().st_size, 1 << 20)

    def test_settings_with_wild_numbers(self):
        self.settings.write_bytes(WILD_NUMBERS.read_bytes())
        program = self.launch()
        program.dismiss(SKIN_MESSAGE)
        program.button(1)
        program.wait_active()
        left, top, width, height = program.place()
        self.assertTrue(0 <= left < 640 and 0 <= top < 750 and width >= 320 and height >= 240,
                        f"the window is out of reach: {program.place()}")
        for pane in (1, 2):
            self.assertTrue(program.button(pane).has("CHECKED"))
        self.wait_path(program, "/")  # in place of the drive that is not there
        self.wait_path(program, self.home, 2)
        self.close_clean(program)

    def test_settings_file_is_a_folder(self):
        self.settings.mkdir()
        (self.settings / "inside").write_text("kept")
        self.close_clean(self.start())
        self.assertEqual((self.own / "user.usr.unread/inside").read_text(), "kept")

    def test_own_folder_takes_no_files(self):
        self.settings.write_bytes(b'"Status",0,0,0,1,1\r\n')
        before = self.settings.read_bytes()
        self.own.chmod(0o555)
        program = self.launch(wrapper=PLAIN_USER)
        # The only message: the skin is the one that came with the program.
        program.dismiss(f"cannot write to its own folder, {self.own}:\nPermission denied")
        program.wait_shown()
        self.wait_names(program, ["kept"])
        self.assertTrue(program.is_open(3))
        self.assertEqual(program.close(), 0)
        self.assertEqual(self.settings.read_bytes(), before)
        self.assertEqual([path.name for path in self.own.iterdir()], ["user.usr"])

    def contrast(self, place):
        """Distance between the lightest and the darkest grey on that part of the screen."""
        greys = subprocess.run(
            ["import", "-window", "root", "-colorspace", "gray", "-depth", "8", "-crop",
             f"{place.width}x{place.height}+{place.x}+{place.y}", "gray:-"],
            stdout=subprocess.PIPE, check=True).stdout
        return max(greys) - min(greys)

    def test_skin_is_missing(self):
        (self.own / "skins").mkdir()
        program = self.launch()
        program.dismiss(SKIN_MESSAGE)
        program.wait_shown()
        self.assertIsNone(program.find_message(SKIN_MESSAGE))
        for control in (program.files().row("kept"), program.control("Path of pane 1"),
                        program.control("Path of pane 2"), program.control("File"),
                        program.control("Status of files of pane 1")):
            self.assertGreater(self.contrast(control.place()), 100,
                               f"{control.name} cannot be read")
        self.close_clean(program)

    def test_folder_that_cannot_be_read(self):
        locked = self.home / "locked"
        locked.mkdir()
        (locked / "inside").write_text("kept")
        locked.chmod(0)
        program = self.launch(wrapper=PLAIN_USER).wait_shown()
        program.folders().expand(self.home.name)
        program.folders().row("locked").click(x=30)
        self.wait_path(program, locked)
        reason = f"Cannot read {locked}: Permission denied"
        program.wait_status(reason)
        self.assertEqual(program.files().names(), [])
        keys("Right")  # to expand what cannot be read
        program.wait_status(reason, "folders")
        keys("BackSpace")
        self.wait_path(program, self.home)
        self.wait_names(program, ["kept", "locked"])
        self.close_clean(program)
