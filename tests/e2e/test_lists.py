"""Items of a list are selected, found, filtered, measured and compared with real mouse and keys."""

import os
import unittest

from harness import Atspi, Control, EndToEndTest, keys, run, wait_for


class ListsTest(EndToEndTest):
    def selected(self, program):
        return [row.name for row in program.files().rows() if row.has("SELECTED")]

    def wait_selected(self, program, names):
        wait_for(f"{names} to be selected", lambda: self.selected(program) == names)

    def wait_status(self, program, part):
        wait_for(f"{part!r} in the status line", lambda: part in program.status("files"))

    def test_select_find_and_filter(self):
        for name in ("apple.txt", "Banana.txt", "cherry.jpg", "file 2.txt", "file 10.txt"):
            (self.home / name).write_text("12345")
        program = self.start()
        files = program.files()
        wait_for("names in their natural order", lambda: files.names() == [
            "apple.txt", "Banana.txt", "cherry.jpg", "file 2.txt", "file 10.txt"])

        files.row("apple.txt").click(x=60)
        self.wait_selected(program, ["apple.txt"])
        files.row("cherry.jpg").click(x=31)  # the gap between icon and name adds it
        self.wait_selected(program, ["apple.txt", "cherry.jpg"])
        self.wait_status(program, "2 selected, 10 bytes")
        keys("Down")
        self.wait_selected(program, ["file 2.txt"])
        keys("shift+Down")
        self.wait_selected(program, ["file 2.txt", "file 10.txt"])
        keys("ctrl+a")
        self.wait_status(program, "5 selected")
        run("xdotool", "type", "ban")
        self.wait_selected(program, ["Banana.txt"])
        keys("space")
        self.wait_selected(program, [])
        place, last = (files.row(name).place() for name in ("apple.txt", "cherry.jpg"))
        across = place.x + 31
        run("xdotool", "mousemove", across, place.y + 8, "mousedown", 1)
        for y in range(place.y + 12, last.y + 10, 4):
            run("xdotool", "mousemove", across, y)
        run("xdotool", "mouseup", 1)
        self.wait_selected(program, ["apple.txt", "Banana.txt", "cherry.jpg"])

        program.control("Filter of pane 1").click()
        run("xdotool", "type", "file #.*")
        self.wait_names(program, ["file 2.txt"])
        self.wait_status(program, "1 of 5 items")
        keys("Escape")
        self.wait_names(program, [path.name for path in self.home.iterdir()])
        self.close_clean(program)

    def test_sizes_and_comparison(self):
        (self.home / "deep/er").mkdir(parents=True)
        (self.home / "deep/er/file").write_bytes(b"x" * 5000)
        (self.home / "other/er").mkdir(parents=True)
        os.link(self.home / "deep/er/file", self.home / "deep/again")
        program = self.start()
        program.control("Calculate folder sizes of pane 1").click()
        wait_for("the size of the folder", lambda: "5,000" in [
            cell.name for cell in cells(program.files())])
        program.files().enter("deep")
        program.files(2).enter("other")
        self.wait_names(program, ["again", "er"])
        self.wait_names(program, ["er"], 2)
        program.files().row("again").click(x=60)
        program.menu("Tools", "Compare")
        self.wait_status(program, "1 only here")
        self.close_clean(program)


def cells(files):
    """Of a list, row by row."""
    rows, columns = Atspi.Table.get_n_rows(files.node), Atspi.Table.get_n_columns(files.node)
    found = (Atspi.Table.get_accessible_at(files.node, row, column)
             for row in range(rows) for column in range(columns))
    return [Control(cell) for cell in found if cell is not None]


if __name__ == "__main__":
    unittest.main()
