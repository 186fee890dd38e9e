"""Splitters follow the mouse, both layouts, and the pane under the pointer expands."""

import unittest

from harness import EndToEndTest, run, wait_for

START = (b'"ProgramPosition",900,1500,15000,10500,0\r\n'
         b'"Layout",1,0,0,0,0\r\n'
         b'"PercentHeightH",.5,.5,0,0,0\r\n')


class LayoutTest(EndToEndTest):
    def press(self, x, y):
        run("xdotool", "mousemove", x, y, "mousedown", 1)

    def move(self, x, y):
        run("xdotool", "mousemove", "--sync", x, y)

    def release(self):
        run("xdotool", "mouseup", 1)

    def gap(self, program):
        """The middle of the gap between the lists of pane 1."""
        folders, files = program.folders().place(), program.files().place()
        return (folders.x + folders.width + files.x) // 2, files.y + files.height // 2

    def test_splitters_by_mouse(self):
        self.settings.write_bytes(START)
        program = self.start()
        start = program.folders().place()
        x, y = self.gap(program)
        self.press(x, y)
        self.move(x + 60, y)
        run("xdotool", "key", "Escape")  # not by keys(), which would let the button go as well
        self.move(x + 90, y)
        self.release()
        self.assertEqual(program.folders().place().width, start.width)
        self.press(x, y)
        self.move(x + 40, y)
        self.move(x + 80, y)
        self.assertEqual(program.folders().place().width, start.width)  # the bar alone follows
        self.release()
        wait_for("the folder list to be wider",
                 lambda: abs(program.folders().place().width - start.width - 80) <= 7)
        # Between the panes, up as far as it goes.
        first, second = program.files(1).place(), program.control("Path of pane 2").place()
        self.press(x, second.y - 2)
        self.move(x, second.y - 82)
        self.release()
        wait_for("pane 1 to be lower",
                 lambda: abs(first.height - program.files(1).place().height - 80) <= 7)
        self.close_clean(program)
        program = self.start()
        self.assertLessEqual(abs(program.folders().place().width - start.width - 80), 7)

    def test_layouts_and_auto_expand(self):
        self.settings.write_bytes(START)
        program = self.start()
        program.control("Arrange panes vertically.").click()
        wait_for("columns", lambda: program.files(2).place().x > program.files(1).place().x and
                 program.files(1).place().y > program.folders(1).place().y)
        program.control("When active, automatically increases pane size.").click()
        wait_for("pane 1 to expand",
                 lambda: program.files(1).place().width > 3 * program.files(2).place().width)
        path = program.control("Path of pane 2").place()
        self.move(path.x + 5, path.y + path.height // 2)
        wait_for("pane 2 to expand",
                 lambda: program.files(2).place().width > 3 * program.files(1).place().width)
        program.control("Arrange panes horizontally.").click()
        wait_for("rows", lambda: program.files(2).place().y > program.files(1).place().y and
                 program.files(2).place().height > program.files(1).place().height)
        self.close_clean(program)
        saved = self.settings.read_bytes()
        for line in (b'"Layout",1,0,0,0,0\r\n', b'"LayoutAutoExpand",#TRUE#,0,0,0,0\r\n',
                     b'"PercentHeightH",.3,.7,0,0,0\r\n'):
            self.assertIn(line, saved)


if __name__ == "__main__":
    unittest.main()
