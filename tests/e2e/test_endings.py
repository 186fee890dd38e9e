"""However the program ends, it saves what can be saved and leaves the next start the truth."""

import os
import signal
import subprocess

from harness import LIMIT, THREE_PANES, EndToEndTest, wait_for


class EndingsTest(EndToEndTest):
    def check_saved(self):
        self.check_clean_end()
        self.assertIn(b'"Status",0,0,0,1,1\r\n', self.settings.read_bytes())

    def test_polite_signals(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(signal=number.name):
                self.settings.unlink(missing_ok=True)
                program = self.start()
                program.process.send_signal(signal.SIGPIPE)  # as from an output that nobody reads
                program.button(3).click()
                wait_for("pane 3 to open", lambda: program.is_open(3))
                self.end_by(program, number)
                self.check_saved()

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
        program.wait_status(" item")
        server.kill()
        server.wait(LIMIT)
        self.assertGreaterEqual(program.wait_end(), 0, "ended by a signal")
        self.check_saved()
