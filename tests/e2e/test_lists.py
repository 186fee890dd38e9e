"""Items of a list are sorted and compared with real mouse and keys."""

import unittest

from harness import Atspi, Control, EndToEndTest, run, wait_for

NAME, SIZE = 0, 2  # numbers of headings


class ListsTest(EndToEndTest):
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
        heading(SIZE).click()
        program.menu("Headings", "Move Left")
        wait_headings("Name", "Size", "Extension", "Date Modified")
        self.close_clean(program)

    def test_comparison(self):
        for folder in ("deep/er", "other/er"):
            (self.home / folder).mkdir(parents=True)
        (self.home / "deep/again").touch()
        program = self.start()
        program.files().enter("deep")
        program.files(2).enter("other")
        self.wait_names(program, ["again", "er"])
        self.wait_names(program, ["er"], 2)
        program.files().row("again").click(x=60)
        program.menu("Tools", "Compare")
        program.wait_status("1 only here")
        self.close_clean(program)


if __name__ == "__main__":
    unittest.main()
