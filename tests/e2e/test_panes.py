"""Panes open and close by toolbar, menu and title."""

import unittest

from harness import EndToEndTest, wait_for


class PanesTest(EndToEndTest):
    def wait_open(self, program, *open_panes):
        for pane in range(1, 6):
            wanted = pane in open_panes
            wait_for(f"pane {pane} to be {'open' if wanted else 'closed'}, and its button so",
                     lambda: program.is_open(pane) == program.button(pane).has("CHECKED") == wanted)

    def test_panes_open_and_close(self):
        program = self.start()
        for act, *open_panes in (
                (program.button(4).click, 1, 2, 4),
                (lambda: program.menu("Panes", "Show Pane 5"), 1, 2, 4, 5),
                (program.button(3).click, 1, 2, 3, 4, 5),
                (lambda: program.menu("Panes", "Show Pane 4"), 1, 2, 3, 5),
                (lambda: program.control("Close pane 3").click(), 1, 2, 5),
                (program.button(1).click, 2, 5),
                (lambda: program.menu("Panes", "Show Pane 2"), 5),
                (program.button(1).click, 1, 5)):
            act()
            self.wait_open(program, *open_panes)
            self.wait_path(program, self.home, open_panes[-1])

        # The panes are as high as each other.
        heights = [program.files(pane).place().height for pane in (1, 5)]
        self.assertLessEqual(abs(heights[0] - heights[1]), 2)

        program.menu("File", "Exit")
        self.assertEqual(program.wait_end(), 0)
        self.check_clean_end()
        self.assertIn(b'"Status",0,1,1,1,0\r\n', self.settings.read_bytes())

if __name__ == "__main__":
    unittest.main()
