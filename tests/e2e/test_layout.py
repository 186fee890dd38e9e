"""Both layouts, the pane under the pointer that expands, and the end by the menu."""

from harness import EndToEndTest, mouse, wait_for

START = (b'"ProgramPosition",900,1500,15000,10500,0\r\n'
         b'"Layout",1,0,0,0,0\r\n'
         b'"PercentHeightH",.5,.5,0,0,0\r\n')


class LayoutTest(EndToEndTest):
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
        mouse("mousemove", path.x + 5, path.y + path.height // 2)
        wait_for("pane 2 to expand",
                 lambda: program.files(2).place().width > 3 * program.files(1).place().width)
        program.control("Arrange panes horizontally.").click()
        wait_for("rows", lambda: program.files(2).place().y > program.files(1).place().y and
                 program.files(2).place().height > program.files(1).place().height)
        program.menu("File", "Exit")
        self.assertEqual(program.wait_end(), 0)
        self.check_clean_end()
        saved = self.settings.read_bytes()
        for line in (b'"Layout",1,0,0,0,0\r\n', b'"LayoutAutoExpand",#TRUE#,0,0,0,0\r\n',
                     b'"PercentHeightH",.3,.7,0,0,0\r\n'):
            self.assertIn(line, saved)
