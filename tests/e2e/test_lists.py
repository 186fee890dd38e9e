"""Items of a list are selected, found, filtered, measured and compared with real mouse and keys."""

import os
import unittest

from harness import Atspi, Control, EndToEndTest, keys, run, wait_for

NAME, EXTENSION, SIZE = range(3)  # numbers of headings


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

    def test_headings(self):
        for name, size in (("a", 2), ("b", 3), ("c", 2), ("d", 1)):
            (self.home / name).write_bytes(b"x" * size)
        program = self.start()
        files = program.files()

        def heading(number):
            return Control(Atspi.Table.get_column_header(files.node, number))

        def wait_order(names):
            wait_for(f"the order {names}", lambda: "".join(files.names()) == names)

        def wait_headings(*captions):
            def stand():
                shown = [heading(number) for number in range(4)]  # the others are hidden
                return [head.name for head in sorted(shown, key=lambda head: head.place().x)]
            wait_for(f"the headings {captions}", lambda: stand() == list(captions))

        def drag(number, to):
            place, target = heading(number).place(), heading(to).place()
            x, y = place.x + place.width // 2, place.y + place.height // 2
            end, step = (target.x + 5, -5) if target.x < x else (target.x + target.width - 5, 5)
            run("xdotool", "mousemove", x, y, "mousedown", 1)
            for across in range(x, end, step):
                run("xdotool", "mousemove", across, y)
            run("xdotool", "mouseup", 1)

        wait_order("abcd")
        heading(SIZE).click()
        program.press("Sort active heading descending.")
        wait_order("bacd")
        heading(NAME).click()
        program.press("Add to current sort. Descending.")
        wait_order("bcad")
        run("xdotool", "keydown", "shift")
        heading(SIZE).click(times=2)
        run("xdotool", "keyup", "shift")
        wait_order("dcab")
        heading(NAME).click(times=2)
        wait_order("abcd")

        wait_headings("Name", "Extension", "Size", "Date Modified")
        drag(SIZE, NAME)
        wait_headings("Size", "Name", "Extension", "Date Modified")
        drag(NAME, EXTENSION)
        wait_headings("Size", "Extension", "Name", "Date Modified")
        heading(NAME).click()
        program.menu("Headings", "Move Left")
        wait_headings("Size", "Name", "Extension", "Date Modified")
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
