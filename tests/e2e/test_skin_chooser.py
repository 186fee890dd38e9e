"""The skin chooser, with the main window in use behind it."""

import subprocess

from harness import Atspi, EndToEndTest, keys, wait_for


class SkinChooserTest(EndToEndTest):
    def choose(self):
        self.program = self.start()
        self.program.menu("Layout", "Choose Skin")
        wait_for("the keyboard", lambda: self.program.control(
            "Skins", Atspi.Role.LIST).has("FOCUSED"))

    def button(self, name):
        return self.program.control(name, Atspi.Role.PUSH_BUTTON)

    def shown(self):
        """The colour of the file list in the main window, where it is empty."""
        place = self.program.files().place()
        dot = f"1x1+{place.x + place.width - 30}+{place.y + place.height - 30}"
        picture = subprocess.run(
            ["import", "-window", "root", "-depth", "8", "-crop", dot, "rgb:-"],
            stdout=subprocess.PIPE, check=True)
        return "#" + picture.stdout.hex()

    def test_changes_show_at_once_and_go_again(self):
        self.choose()
        old = self.button("List Background").description
        wait_for("the list to be in its colour", lambda: self.shown() == old)
        self.button("Active Title").click()
        wait_for("the colour to be held", lambda: self.program.look("Held color"))
        self.button("List Background").click()
        dropped = self.button("Active Title").description
        wait_for("the list to have it", lambda: self.shown() == dropped != old)
        keys("space", "Escape")  # picks it up again, and lets it go
        self.button("Choose List Background...").click()
        wait_for("the dialog", lambda: self.program.look("HTML:"))
        keys("alt+h", "ctrl+a", "numbersign", *"abcdef")
        wait_for("the list to follow", lambda: self.shown() == "#abcdef")
        self.answer("Select Color", "Escape")
        wait_for("that to be taken back", lambda: self.shown() == dropped)

        keys("Escape")
        self.program.message("You have made changes to the skin")
        self.program.press("No")
        wait_for("the old colours", lambda: self.shown() == old)
        self.assertIsNone(self.program.look("Held color"))
        self.program.wait_active()
        self.close_clean(self.program)

    def test_told_to_end_while_a_dialog_asks(self):
        for button, title in (("Choose Main Menu...", "Select Color"),
                              ("Save", "Save Current Skin"), ("Export", "Export Tarnwell Skin")):
            with self.subTest(dialog=title):
                self.choose()
                self.button(button).click()
                wait_for("the dialog", lambda title=title: self.program.look(title))
                self.end_by(self.program)
                self.check_clean_end()
