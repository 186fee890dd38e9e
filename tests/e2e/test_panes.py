"""Panes open and close by toolbar, menu and title, and the last one stays."""

import unittest

from harness import EndToEndTest, keys, wait_for

LAST_PANE = " You must always have at least one pane open."


class PanesTest(EndToEndTest):
    def wait_open(self, program, *open_panes):
        for pane in range(1, 6):
            wanted = pane in open_panes
            wait_for(f"pane {pane} to be {'open' if wanted else 'closed'}, and its button so",
                     lambda: program.is_open(pane) == program.button(pane).is_checked() == wanted)

    def test_panes_open_and_close(self):
        program = self.start()
        self.wait_open(program, 1, 2)
        program.button(4).click()
        self.wait_open(program, 1, 2, 4)
        self.wait_path(program, self.home, 4)
        program.menu("Panes", "Show Pane 5")
        self.wait_open(program, 1, 2, 4, 5)
        program.button(3).click()
        self.wait_open(program, 1, 2, 3, 4, 5)
        program.menu("Panes", "Show Pane 4")
        self.wait_open(program, 1, 2, 3, 5)
        program.control("Close pane 3").click()
        self.wait_open(program, 1, 2, 5)
        program.button(1).click()
        self.wait_open(program, 2, 5)
        program.menu("Panes", "Show Pane 2")
        self.wait_open(program, 5)
        program.button(1).click()
        self.wait_open(program, 1, 5)
        self.wait_path(program, self.home)

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
        by_button = program.button(2).click
        by_title = program.control("Close pane 2").click
        for close, key in ((by_button, "Return"), (by_title, "Escape"),
                           (lambda: program.menu("Panes", "Show Pane 2"), "space")):
            close()
            box = program.message(LAST_PANE)
            self.assertEqual(box.name, "Tarnwell")
            self.assertIsNotNone(program.look("OK"))
            keys(key)
            program.wait_gone(LAST_PANE)
            wait_for("the main window to be active again", program.window)
            self.wait_open(program, 2)
        self.wait_path(program, self.home, 2)

    def test_drive_list_is_named_and_leads_home(self):
        (self.home / "below").mkdir()
        program = self.start()
        program.files().row("below").click(times=2, x=20)
        self.wait_path(program, self.home / "below")
        program.control("Drives of pane 1").click()
        keys("Home", "Return")  # the first entry
        self.wait_path(program, self.home)
        self.assertEqual(program.folders().names()[1], "below")


if __name__ == "__main__":
    unittest.main()
