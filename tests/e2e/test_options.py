"""The options by mouse and by keyboard, with the main window in use behind them."""

from harness import Atspi, EndToEndTest, keys, wait_for


class OptionsTest(EndToEndTest):
    def test_options(self):
        program = self.start()

        def box(name):
            return program.control(f"Show Color Coding: {name}", Atspi.Role.CHECK_BOX)

        program.menu("File", "Options")
        program.control("Minimize to System Tray (clock area)").click()
        keys("alt+w")
        own = program.control("Show in a Window of Their Own")
        wait_for("a window of their own", lambda: own.has("CHECKED"))
        program.control("Speed", Atspi.Role.RADIO_BUTTON).click()
        shown = program.control("Show color coding and comments.")
        for control, on in ((box("Yes, Slower"), True), (shown, False), (box("No, Faster"), True)):
            control.click()
            wait_for("button and boxes to agree", lambda: on == shown.has("CHECKED") ==
                     box("Yes, Slower").has("CHECKED") != box("No, Faster").has("CHECKED"))
        program.menu("File", "Options")  # the same dialog comes to the front
        wait_for("the dialog to be active", lambda: program.active_window() and
                 not program.window())
        keys("Escape")
        program.wait_active()

        keys("alt+f", "o")
        general = program.control("General", Atspi.Role.RADIO_BUTTON)
        wait_for("the keyboard", lambda: general.has("FOCUSED"))
        keys("Down", "Tab", "space")
        keys("alt+r")
        for name in ("Get File Icons: No, Faster", "Get Folder Icons: Yes, Slower"):
            wait_for(name, lambda name=name: program.control(name).has("CHECKED"))
        keys("alt+l", "1", "2", "period", "5", "Return")
        program.wait_active()
        self.close_clean(program)
        for key, value in (("ShowFileIcons", "#FALSE#"), ("ShowFolderIcons", "#TRUE#"),
                           ("ShowColor", "#TRUE#"), ("FileCountMax", "12"),
                           ("MinimizeToTaskBar", "#FALSE#"), ("OperationsInWindow", "#TRUE#")):
            self.assertIn(f'"{key}",{value},0,0,0,0'.encode(), self.settings.read_bytes())
