"""The entries of the context menu act on what was clicked, by the mouse."""

import os

from harness import EndToEndTest, keys, wait_for

# How often Down leads to an entry. Menus that pop up are not in the accessibility tree.
NEW_FOLDER, RENAME, DUPLICATE, BOOKMARKS, COLOUR_CODE = 1, 2, 3, 5, 6
RED = 10


class MenuTest(EndToEndTest):
    def choose(self, program, control, *names):
        """Right click on the control, then the keys in the menu."""
        windows = program.windows()
        control.click(x=24, button=3)
        menu = wait_for("the menu", lambda: program.windows() - windows)
        keys(*names)
        # What was chosen may open a window of its own at once.
        wait_for("the menu to go", lambda: not menu & program.windows())

    def test_entries(self):
        (self.home / "inner").mkdir()
        (self.home / "one.txt").write_text("one")
        (self.home / "two.txt").write_text("two")
        program = self.start()
        row = program.files().row

        self.choose(program, row("one.txt"), *["Down"] * DUPLICATE, "Return")
        wait_for("the twin", lambda: len(program.files().names()) == 4)
        twin = next(name for name in program.files().names() if name.startswith("one2"))
        self.assertEqual((self.home / twin).read_text(), "one")

        self.choose(program, row("two.txt"), *["Down"] * COLOUR_CODE, "Right",
                    *["Down"] * (RED - 1), "Return")
        program.dismiss("This is the first time you are color coding a file.")
        self.assertEqual(os.getxattr(self.home / "two.txt", "user.tarnwell.color"), b"red")

        self.choose(program, row("inner"), *["Down"] * BOOKMARKS, "Right", "Down", "Down",
                    "Right", "Return")  # Add to Slot 3
        keys("ctrl+3")
        self.wait_path(program, self.home / "inner")
        # Empty space stands for the folder itself.
        self.choose(program, program.files(), *["Down"] * NEW_FOLDER, "Return")
        self.answer("New Folder", "m", "Return")
        self.wait_names(program, ["m"])
        keys("BackSpace")
        self.wait_path(program, self.home)

        self.choose(program, row(twin), "d")
        program.dismiss("to the trash?", "alt+y")
        wait_for("it to go", lambda: not (self.home / twin).exists())
        self.close_clean(program)
        self.assertIn(b'"BookMark",2,"%s' % bytes(self.home / "inner"), self.settings.read_bytes())
