"""What one run leaves, the next shows again."""

import os
import pathlib
import subprocess

from harness import EndToEndTest, run, wait_for

START = b'"ProgramPosition",900,1500,12000,9000,0\r\n'


class RestartTest(EndToEndTest):
    def test_folders_panes_and_window_come_back(self):
        (self.home / "alpha" / "first").mkdir(parents=True)
        (self.home / 'in "quotes"').mkdir()
        bad = os.path.join(os.fsencode(self.home), b"bad \xff")
        os.makedirs(os.path.join(bad, b"below"))
        self.settings.write_bytes(START)
        program = self.start()
        self.assertEqual(program.place()[2:], (800, 600))
        program.folders().expand(self.home.name)
        program.folders().expand("alpha")
        program.folders().wait_has("first")
        program.files().enter("bad \ufffd")
        self.wait_names(program, ["below"])
        program.files(2).enter('in "quotes"')
        self.wait_path(program, self.home / 'in "quotes"', 2)
        program.button(3).click()
        program.files(3).enter("alpha")
        self.wait_names(program, ["first"], 3)
        before = program.place()
        run("xdotool", "windowsize", program.window(), 850, 640)
        wait_for("the window to have its size", lambda: program.place()[2:] == (850, 640))
        run("xdotool", "windowmove", program.window(), 240, 90)
        wait_for("the window to have moved", lambda: program.place()[:2] != before[:2])
        place = program.place()
        self.close_clean(program)

        program = self.start()
        self.assertEqual(program.place(), place)
        self.wait_path(program, f"{self.home}/bad \ufffd")
        self.wait_names(program, ["below"])
        program.folders().wait_has("first")
        # A settings record cannot carry a quote: that pane starts anew, and loses nothing else.
        self.wait_path(program, self.home, 2)
        self.wait_path(program, self.home / "alpha", 3)
        self.wait_names(program, ["first"], 3)
        for pane in range(1, 6):
            self.assertEqual(program.button(pane).has("CHECKED"), pane <= 3)

        # A closed pane keeps what it showed.
        program.control("Close pane 3").click()
        wait_for("pane 3 to close", lambda: not program.is_open(3))
        self.assertEqual(program.close(), 0)
        program = self.start()
        program.button(3).click()
        self.wait_path(program, self.home / "alpha", 3)

    def test_maximised_window_comes_back(self):
        program = self.start()  # nothing saved yet
        place = program.place()
        self.assertEqual((place[0], place[2]), (0, 1280))
        self.assertEqual(program.close(), 0)
        self.assertTrue(self.settings.read_bytes().startswith(b'"ProgramPosition","max",'))
        self.assertEqual(self.start().place(), place)

    def test_place_that_the_platform_does_not_tell(self):
        socket = pathlib.Path(os.environ["XDG_RUNTIME_DIR"], "inner")
        server = subprocess.Popen(["weston", "--backend=headless-backend.so", "--socket=inner"],
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(server.wait)
        self.addCleanup(server.kill)
        wait_for("the inner display", socket.exists)
        self.settings.write_bytes(START)
        program = self.launch(
            environment={"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": socket.name})
        program.wait_status(" item")
        self.end_by(program)
        self.assertTrue(self.settings.read_bytes().startswith(START))
