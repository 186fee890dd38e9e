"""The two questions at the start that offer to reset all settings."""

import unittest

from harness import THREE_PANES, EndToEndTest, click_close, keys, wait_for

MARKER_QUESTION = "It appears as though Tarnwell did not shut down properly"
RESET_QUESTION = "Do you want to reset Tarnwell?"


class StartQuestionsTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        self.settings.write_bytes(THREE_PANES)

    def check_answer(self, program, answer, question):
        """Gives the answer: the start goes on, with the settings as they were or without them."""
        if answer == "frame":
            click_close(program.find_message(question))
        elif answer in ("Yes", "No"):
            program.press(answer)
        else:
            keys(answer)
        program.wait_shown()
        reset = answer == "Yes"
        self.assertEqual(program.is_open(3), not reset)
        self.assertEqual(self.settings.exists(), not reset)
        self.assertEqual(self.marker.read_bytes(), b"")
        if not reset:
            self.assertEqual(self.settings.read_bytes(), THREE_PANES)
        keys("r")  # after the start the key does nothing of the kind
        self.close_clean(program)

    def test_run_marker_asks(self):
        for answer in ("Return", "Escape", "frame", "Yes"):
            with self.subTest(answer=answer):
                self.settings.write_bytes(THREE_PANES)
                self.marker.write_bytes(b"left by another run")
                program = self.launch()
                program.message(MARKER_QUESTION)
                self.assertTrue(self.settings.exists())
                self.check_answer(program, answer, MARKER_QUESTION)
        self.assertFalse(self.start().is_open(3))

    def hold_reset_key(self, program):
        """Presses R until the splash has asked: it is up for a third of a second only."""
        def pressed():
            program.check_alive()
            keys("r")
            return program.find_message(RESET_QUESTION)

        wait_for("the reset question of the splash", pressed)
        program.message(RESET_QUESTION)

    def test_reset_key_on_the_splash(self):
        for answer in ("No", "Escape", "Yes"):
            with self.subTest(answer=answer):
                self.settings.write_bytes(THREE_PANES)
                program = self.launch()
                self.hold_reset_key(program)
                self.check_answer(program, answer, RESET_QUESTION)

    def test_told_to_end_while_the_splash_asks(self):
        program = self.launch()
        self.hold_reset_key(program)
        self.end_by(program)
        self.assertEqual(self.settings.read_bytes(), THREE_PANES)
        self.assertFalse(self.marker.exists())


if __name__ == "__main__":
    unittest.main()
