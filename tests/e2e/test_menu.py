"""The context menu by real clicks and keys: what is chosen in it happens on the disk."""

import unittest

from harness import EndToEndTest, keys, run, wait_for


class MenuTest(EndToEndTest):
    def windows(self, program):
        return len(run("xdotool", "search", "--onlyvisible", "--pid", program.process.pid).split())

    def choose(self, program, click, *names):
        """Clicks, waits for the menu, and presses the keys in it."""
        before = self.windows(program)
        click()
        wait_for("the menu", lambda: self.windows(program) > before)
        keys(*names)

    def right_click(self, place, down):
        run("xdotool", "mousemove", place.x + 60, place.y + down, "click", 3)

    def test_entries_and_keys(self):
        for name in ("plain.txt", "b & c.txt"):
            (self.home / name).write_text(name)
        (self.home / "sub").mkdir()
        program = self.start()
        files = program.files()
        place = files.row("plain.txt").place()
        self.choose(program, lambda: self.right_click(place, 8), *["Down"] * 3, "Return")
        wait_for("a twin", lambda: len(list(self.home.glob("plain*.txt"))) == 2)
        place = files.row("sub").place()
        self.choose(program, lambda: self.right_click(place, 8), *["Down"] * 5, "Right", "Down",
                    "Down", "Right", "Return")  # Add to Slot 3

        # One press of a key pastes once; the menu has left the mouse in order.
        files.row("b & c.txt").click(x=60)
        wait_for("one item to be selected", lambda: "1 selected" in program.status("files"))
        keys("ctrl+c")
        self.choose(program, program.control("Bookmarks of pane 1").click, "3")
        self.wait_path(program, self.home / "sub")
        keys("ctrl+v")
        self.wait_names(program, ["b & c.txt"])
        keys("ctrl+v")  # into the folder that the first copy is in: there is one of the name now
        program.message("There is a file of this name already")
        keys("Escape")

        # The empty space below the items means the folder.
        place = files.place()
        self.choose(program, lambda: self.right_click(place, place.height - 20), "Down", "Return")
        number = wait_for("the dialog", lambda: run(
            "xdotool", "search", "--onlyvisible", "--name", "^New Folder"))
        wait_for("it to be active", lambda: run("xdotool", "getactivewindow") in number.split())
        keys("n", "e", "w", "Return")
        wait_for("the folder", (self.home / "sub/new").is_dir)
        self.assertEqual((self.home / "sub/b & c.txt").read_text(), "b & c.txt")
        self.wait_names(program, ["b & c.txt", "new"])
        self.close_clean(program)
        self.assertIn(str(self.home / "sub").encode(), self.settings.read_bytes())


if __name__ == "__main__":
    unittest.main()
