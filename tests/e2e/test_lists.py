"""Items of a list are sorted with real mouse and keys."""

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
        self.close_clean(program)
