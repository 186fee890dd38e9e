"""Items of a list are sorted, measured and compared with the real mouse."""

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

    def test_sizes_and_comparison(self):
        (self.home / "deep").mkdir()
        (self.home / "deep/file").write_bytes(b"x" * 5000)
        (self.home / "other").mkdir()
        program = self.start()
        program.control("Calculate folder sizes of pane 1").click()
        program.wait_status("Sizes: 2 folders, 1 item, 4.9 KiB")
        program.files().enter("deep")
        program.files(2).enter("other")
        self.wait_path(program, self.home / "other", 2)
        program.select("file")
        program.menu("Tools", "Compare")
        program.wait_status("1 only here")
        self.close_clean(program)
