"""Panes open and close by toolbar, menu and title, and the last one stays."""

import unittest

from harness import EndToEndTest, keys, wait_for

LAST_PANE = " You must always have at least one pane open."


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

    def test_last_pane_stays(self):
        program = self.start()
        program.control("Close pane 1").click()
        self.wait_open(program, 2)
        for close, key in ((program.button(2).click, "Return"),
                           (program.control("Close pane 2").click, "Escape"),
                           (lambda: program.menu("Panes", "Show Pane 2"), "space")):
            close()
            self.assertEqual(program.message(LAST_PANE).name, "Tarnwell")
            self.assertIsNotNone(program.look("OK"))
            program.dismiss(LAST_PANE, key)
            wait_for("the main window to be active again", program.window)
            self.wait_open(program, 2)
        self.wait_path(program, self.home, 2)

    def test_drive_list_is_named_and_leads_home(self):
        (self.home / "below").mkdir()
        program = self.start()
        program.files().enter("below")
        self.wait_path(program, self.home / "below")
        program.control("Drives of pane 1").click()
        keys("Home", "Return")  # the first entry
        self.wait_path(program, self.home)
        self.assertEqual(program.folders().names()[1], "below")


if __name__ == "__main__":
    unittest.main()
