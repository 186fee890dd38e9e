"""What commands have done to files is taken back and done again, by keys and by the menu."""

import os

from harness import EndToEndTest, keys, wait_for
from test_bad_files import PLAIN_USER

# How often Down leads to an entry. Menus that pop up are not in the accessibility tree.
DUPLICATE, COLOUR_CODE, RED = 3, 6, 10
COLOUR = "user.tarnwell.color"


class UndoTest(EndToEndTest):
    def disk(self):
        """All below the home but what is still being made, by path: a text or where a link leads,
        and a colour."""
        found = {}
        for path in self.home.rglob("[!.]*"):
            colours = [os.getxattr(path, COLOUR)] if COLOUR in os.listxattr(
                path, follow_symlinks=False) else []
            content = (os.readlink(path) if path.is_symlink() else
                       path.read_text() if path.is_file() else "")
            found[str(path.relative_to(self.home))] = [content, *colours]
        return found

    def wait_disk(self, what, state):
        wait_for(what, lambda: self.disk() == state)
        names = {path.partition("/")[0] for path in state}
        wait_for("the list to show it", lambda: set(self.program.files().names()) == names)

    def choose(self, control, *names):
        """Right click on the control, then the keys in the menu."""
        windows = self.program.windows()
        control.click(x=24, button=3)
        menu = wait_for("the menu", lambda: self.program.windows() - windows)
        keys(*names)
        wait_for("the menu to go", lambda: not menu & self.program.windows())

    def check_undo(self, what, act):
        with self.subTest(what):
            before = self.disk()
            act()
            wait_for(what, lambda: self.disk() != before)
            after = self.disk()
            self.wait_disk(what, after)
            keys("ctrl+z")
            self.wait_disk(f"{what} to be undone", before)
            keys("ctrl+shift+z")
            self.wait_disk(f"{what} to be done again", after)
            self.program.files().click(x=24)  # on empty space, where nothing is selected then
            self.choose(self.program.files(), "u")
            self.wait_disk(f"{what} to be undone by the menu", before)

    def test_each_kind(self):
        for path in ("box/deep/low.txt", "one.txt", "two & more.txt"):
            (self.home / path).parent.mkdir(parents=True, exist_ok=True)
            (self.home / path).write_text(path)
        program = self.program = self.start(wrapper=PLAIN_USER)
        row = program.files().row

        def press(name, *names):
            program.select(name)
            keys(*names)

        def rename():
            press("two & more.txt", "F2")
            self.answer("Rename", "x", "Return")

        def rename_items():
            program.select("box")
            keys("ctrl+a", "ctrl+m")
            self.answer("Rename Items", "End", "x", "Return")

        def rename_by_menu():
            program.select("box")
            keys("ctrl+a")
            self.choose(row("one.txt"), "i")
            program.control("As a List").click()
            program.control("New names, one line for each item").click()
            keys("ctrl+Home", "n", "e", "w")
            program.press("Rename")

        def make():
            press("one.txt", "F7")
            self.answer("New Folder", "m", "Return")

        def copy():
            press("one.txt", "ctrl+c")
            keys("ctrl+v")

        def delete():
            press("box", "Delete")
            program.dismiss("to the trash?", "alt+y")

        def cut():
            press("one.txt", "ctrl+x")
            self.choose(row("box"), "p")

        def colour():
            self.choose(row("one.txt"), *["Down"] * COLOUR_CODE, "Right", *["Down"] * (RED - 1),
                        "Return")
            if self.disk()["one.txt"][1:] and program.find_message("color coding"):
                program.dismiss("color coding")

        self.check_undo("rename", rename)
        self.check_undo("rename items", rename_items)
        self.check_undo("rename items by the menu", rename_by_menu)
        self.check_undo("new folder", make)
        self.check_undo("copy", copy)
        self.check_undo("trash", delete)
        self.check_undo("move", cut)
        self.check_undo("duplicate",
                        lambda: self.choose(row("one.txt"), *["Down"] * DUPLICATE, "Return"))
        self.check_undo("shortcut", lambda: self.choose(row("box"), "s"))
        self.check_undo("colour", colour)
        self.close_clean(program)

    def test_what_has_changed_is_left(self):
        (self.home / "one.txt").write_text("one")
        (self.home / "box").mkdir()
        program = self.program = self.start(wrapper=PLAIN_USER)
        program.select("one.txt")
        keys("ctrl+c", "ctrl+v")
        copy = self.home / "one (2).txt"
        program.files().wait_has(copy.name)
        copy.write_text("mine")
        keys("ctrl+z")
        self.answer("To Be Noted", "Return")
        self.assertEqual(copy.read_text(), "mine")

        # A taken name asks, and nothing is replaced unasked.
        program.select("one.txt")
        keys("F2")
        self.answer("Rename", "n", "e", "w", "Return")
        program.files().wait_has("onenew.txt")
        (self.home / "one.txt").write_text("another")
        keys("ctrl+z")
        self.answer("Name Already Taken", "Escape")
        self.assertEqual((self.home / "onenew.txt").read_text(), "one")
        keys("ctrl+z")
        self.answer("Name Already Taken", "alt+k")
        program.files().wait_has("one (3).txt")
        self.assertEqual((self.home / "one (3).txt").read_text(), "one")
        self.assertEqual((self.home / "one.txt").read_text(), "another")

        # In a text field the keys are the field's.
        program.select("box")
        keys("ctrl+f", "b", "z", "ctrl+z", "ctrl+z")
        self.wait_names(program, ["box", "one.txt", copy.name, "one (3).txt"])
        self.assertFalse((self.home / "onenew.txt").exists())
        self.close_clean(program)
