"""However the program ends, it saves what can be saved and leaves the next start the truth."""

import os
import signal
import subprocess
import unittest

from harness import LIMIT, EndToEndTest, wait_for

MARKER_QUESTION = "It appears as though Tarnwell did not shut down properly"
LAST_PANE = " You must always have at least one pane open."
THREE_PANES = b'"Status",0,0,0,1,1\r\n'


class EndingsTest(EndToEndTest):
    def check_saved(self, record):
        self.check_clean_end()
        self.assertIn(record, self.settings.read_bytes())

    def end_by(self, program, number=signal.SIGTERM):
        program.signal(number)
        self.assertEqual(program.wait_end(), 0)

    def test_polite_signals(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(signal=number.name):
                self.settings.unlink(missing_ok=True)
                program = self.start()
                program.signal(signal.SIGPIPE)  # as from an output that nobody reads
                program.button(3).click()
                wait_for("pane 3 to open", lambda: program.is_open(3))
                self.end_by(program, number)
                self.check_saved(THREE_PANES)

    def test_kill_leaves_the_marker_and_a_signal_answers_no_question(self):
        self.settings.write_bytes(THREE_PANES)
        program = self.start()
        program.kill()
        self.assertTrue(self.marker.exists())
        self.assertEqual(self.settings.read_bytes(), THREE_PANES)

        program = self.launch()
        program.message(MARKER_QUESTION)
        self.end_by(program)
        self.check_saved(THREE_PANES)

    def test_signal_during_the_start(self):
        self.settings.write_bytes(THREE_PANES)
        program = self.launch()
        wait_for("the splash", lambda: program.look("Tarnwell"))
        self.end_by(program)
        self.assertIn(THREE_PANES, self.settings.read_bytes())
        self.assertFalse(self.marker.exists())

    def test_signal_while_a_message_is_open(self):
        program = self.start()
        for pane in (2, 1):
            program.control(f"Close pane {pane}").click()
        self.assertEqual(program.message(LAST_PANE).name, "Tarnwell")
        self.end_by(program)
        self.check_saved(b'"Status",0,1,1,1,1\r\n')

    def test_display_goes(self):
        ours, theirs = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(theirs), "-screen", "0", "1024x768x24", "-nolisten", "tcp"],
            pass_fds=[theirs], stderr=subprocess.DEVNULL)
        self.addCleanup(server.wait)
        self.addCleanup(server.kill)
        os.close(theirs)
        with os.fdopen(ours) as answer:
            number = answer.readline().strip()
        self.assertTrue(number, "the display did not start")
        self.settings.write_bytes(THREE_PANES)
        program = self.launch(environment={"DISPLAY": f":{number}"})
        wait_for("the file list to be read", lambda: " item" in program.status("files"))
        server.kill()
        server.wait(LIMIT)
        self.assertGreaterEqual(program.wait_end(), 0, "ended by a signal")
        self.check_saved(THREE_PANES)


if __name__ == "__main__":
    unittest.main()
