"""Items of a list are sorted, measured and compared with the real mouse."""

import os

from harness import Atspi, Control, EndToEndTest, keys, run, wait_for

NAME, SIZE, DATE = 0, 2, 3  # numbers of headings


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

    def test_columns(self):
        (self.home / ("long " * 12)).write_text("x")
        os.symlink("nowhere", self.home / "lost")
        self.settings.write_bytes(b'"ProgramPosition",900,1500,9000,9000,0\r\n')
        program = self.start()
        self.assertEqual(program.files().row("lost").description, "broken link")

        def places():
            return [Control(Atspi.Table.get_column_header(program.files().node, number)).place()
                    for number in (NAME, SIZE, DATE)]

        def widths():
            return [place.width for place in places()]

        right = program.files().place().x + program.files().place().width
        self.assertLessEqual(places()[-1].x + places()[-1].width, right)
        before = widths()
        edge = places()[1].x + before[1] - 1
        row = places()[1].y + 8
        run("xdotool", "mousemove", edge, row, "mousedown", 1)
        run("xdotool", "mousemove", edge - 20, row, "mousemove", edge - 30, row, "mouseup", 1)
        wait_for("the heading to be sized", lambda: widths()[1] == before[1] - 30)
        self.assertEqual([widths()[0], widths()[2]], [before[0], before[2]])
        run("xdotool", "mousemove", places()[0].x + before[0] - 1, row,
            "click", "--repeat", 2, "--delay", 40, 1)
        wait_for("the name to fit", lambda: widths()[0] > right - program.files().place().x)
        sized = widths()
        self.close_clean(program)
        program = self.start()
        self.assertEqual(widths(), sized)

    def test_a_filter_that_hides_all(self):
        (self.home / "one").write_text("1")
        program = self.start()
        clear = "Clear filter of pane 1"
        for by_key in (True, False):
            keys("ctrl+f")
            run("xdotool", "type", "zz")
            wait_for("no row", lambda: program.files().names() == [])
            wait_for("the reason", lambda: program.look("The filter hides the only item here"))
            if by_key:
                keys("Return", "Tab")
                wait_for("the button", lambda: program.control(clear).has("FOCUSED"))
                keys("space")
            else:
                program.control(clear).click()
            program.files().wait_has("one")
            wait_for("the list to have the keyboard", lambda: program.files().has("FOCUSED"))
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

    def test_marks_and_the_menu_of_a_title(self):
        for name in ("one/a", "one/b", "two/b"):
            (self.home / name).parent.mkdir(exist_ok=True)
            (self.home / name).write_text(name)
        program = self.start()
        program.files(2).enter("two")
        self.wait_names(program, ["b"], 2)
        program.files().enter("one")
        program.select("b")
        program.menu("Tools", "Compare")
        program.wait_status("1 only here")
        keys("ctrl+e", "space", "F5")
        self.answer("File Operation", "Return")
        self.wait_names(program, ["a", "b"], 2)
        for choice in (("h", "Down", "Return"), ("c", "o")):  # the folder before, an accent
            windows = program.windows()
            keys("alt+Down")
            menu = wait_for("the menu", lambda: program.windows() - windows)
            keys(*choice)
            wait_for("the menu to go", lambda: not menu & program.windows())
        self.wait_path(program, self.home)
        self.close_clean(program)
        self.assertIn(b'"PaneAccent",2,0,0,0,0\r\n', self.settings.read_bytes())
        title = self.start().control("Path of pane 1")
        self.assertEqual(title.description, "Accent: Orange")
