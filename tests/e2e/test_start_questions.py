"""The two questions at the start that offer to reset all settings."""

import subprocess

from harness import (START_LIMIT, THREE_PANES, EndToEndTest, click_close, keys, mouse,
                     wait_for)

MARKER_QUESTION = "It appears as though Tarnwell did not shut down properly"
RESET_QUESTION = "Do you want to reset Tarnwell?"


class StartQuestionsTest(EndToEndTest):
    def ask(self, question):
        """A start that asks: of the marker of another run, or as R is pressed on the splash."""
        self.settings.write_bytes(THREE_PANES)
        if question == MARKER_QUESTION:
            self.marker.write_bytes(b"left by another run")
        presses = subprocess.Popen(["xdotool", "key", "--repeat", "2000", "--delay", "10", "r"]
                                   if question == RESET_QUESTION else ["true"])
        program = self.launch()

        def asks():
            program.check_alive()
            return program.find_message(question)

        try:  # all the time: the splash is up for a third of a second only
            wait_for(f"the question {question}", asks, START_LIMIT)
        finally:
            presses.kill()
            presses.wait()
            mouse("keyup", "r")
        return program, program.message(question)

    def test_the_start_goes_on_with_the_settings_or_without(self):
        for question, answers in ((MARKER_QUESTION, ("Return", "frame", "Yes")),
                                  (RESET_QUESTION, ("No", "Escape", "Yes"))):
            for answer in answers:
                with self.subTest(question=question, answer=answer):
                    program, box = self.ask(question)
                    self.assertTrue(self.settings.exists())
                    if answer == "frame":
                        click_close(box)
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
        self.assertFalse(self.start().is_open(3))

    def test_told_to_end_while_the_splash_asks(self):
        self.end_by(self.ask(RESET_QUESTION)[0])
        self.assertEqual(self.settings.read_bytes(), THREE_PANES)
        self.assertFalse(self.marker.exists())
