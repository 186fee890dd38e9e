"""The two questions at the start that offer to reset all settings."""

import unittest

from harness import EndToEndTest, click_close, keys, wait_for

MARKER_QUESTION = "It appears as though Tarnwell did not shut down properly"
RESET_QUESTION = "Do you want to reset Tarnwell?"
THREE_PANES = b'"Status",0,0,0,1,1\r\n"End",0,0,0,0,0\r\n'


class StartQuestionsTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        self.settings.write_bytes(THREE_PANES)

    def check_answer(self, program, reset):
        """The start has gone on, with the settings as they were or without them."""
        program.wait_shown()
        self.assertEqual(program.is_open(3), not reset)
        self.assertEqual(self.settings.exists(), not reset)
        self.assertEqual(self.marker.read_bytes(), b"")
        if not reset:
            self.assertEqual(self.settings.read_bytes(), THREE_PANES)

    def test_run_marker_asks(self):
        answers = {"the first button by Enter": (lambda program: keys("Return"), False),
                   "No": (lambda program: program.press("No"), False),
                   "no answer, by Escape": (lambda program: keys("Escape"), False),
                   "no answer, by the frame": (lambda program: click_close(
                       program.find_message(MARKER_QUESTION)), False),
                   "Yes": (lambda program: program.press("Yes"), True)}
        for answer, (give, reset) in answers.items():
            with self.subTest(answer=answer):
                self.settings.write_bytes(THREE_PANES)
                self.marker.write_bytes(b"left by another run")
                program = self.launch()
                program.message(MARKER_QUESTION)
                self.assertTrue(self.settings.exists())
                give(program)
                self.check_answer(program, reset)
                self.assertEqual(program.close(), 0)
                self.check_clean_end()
        program = self.start()
        self.assertFalse(program.is_open(3))

    def hold_reset_key(self, program):
        """Presses R until the splash has asked: it is up for a third of a second only."""
        def pressed():
            program.check_alive()
            keys("r")
            return program.find_message(RESET_QUESTION)

        wait_for("the reset question of the splash", pressed)
        program.message(RESET_QUESTION)

    def test_reset_key_on_the_splash(self):
        answers = {"No": (lambda program: program.press("No"), False),
                   "Escape": (lambda program: keys("Escape"), False),
                   "Yes": (lambda program: program.press("Yes"), True)}
        for answer, (give, reset) in answers.items():
            with self.subTest(answer=answer):
                self.settings.write_bytes(THREE_PANES)
                program = self.launch()
                self.hold_reset_key(program)
                give(program)
                self.check_answer(program, reset)
                keys("r")  # after the start the key does nothing of the kind
                self.assertEqual(program.close(), 0)
                self.check_clean_end()

    def test_told_to_end_while_the_splash_asks(self):
        program = self.launch()
        self.hold_reset_key(program)
        program.signal(15)
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(self.settings.read_bytes(), THREE_PANES)
        self.assertFalse(self.marker.exists())


if __name__ == "__main__":
    unittest.main()
