"""The tip of the day at the start and on demand, and the help, by mouse and by keyboard."""

import shutil

from harness import PROGRAM, ROOT, Atspi, Control, EndToEndTest, START_LIMIT, keys, mouse, wait_for


class TipsHelpTest(EndToEndTest):
    def wait_dialog(self, program, title):
        """The dialog of that title, once it has the keyboard."""
        def find():
            found = program.look(title, Atspi.Role.DIALOG)
            return Control(found) if found and Control(found).has("ACTIVE") else None

        return wait_for(f"{title} to be active", find, START_LIMIT)

    def test_tips(self):
        (self.own / "TIPOFDAY.TXT").write_text("One\r\nTwo\n")
        program = self.launch(tips=True)
        tip = self.wait_dialog(program, "Tip of the Day")
        self.assertEqual(tip.description, "One")
        place, (left, _, width, _) = tip.place(), program.place()
        self.assertAlmostEqual(place.x + place.width / 2, left + width / 2, delta=5)
        program.press("Next Tip")
        wait_for("the next tip", lambda: tip.description == "Two")
        program.control("Show Tips at Startup").click()
        wait_for("the switch", lambda: program.tips.exists() and
                 "Startup=0" in program.tips.read_text())
        keys("F1")
        self.wait_dialog(program, "Help")
        keys("Escape")
        program.press("OK")
        program.wait_shown()
        self.close_clean(program)

        program = self.launch(tips=True).wait_shown()
        self.assertIsNone(program.look("Tip of the Day"))
        program.menu("Tools", "Show Tips")
        tip = self.wait_dialog(program, "Tip of the Day")
        first = tip.description
        keys("alt+s")
        wait_for("the switch", lambda: "Startup=1" in program.tips.read_text())
        keys("alt+n")
        wait_for("the other tip", lambda: {first, tip.description} == {"One", "Two"})
        program.control("Path of pane 1").click(x=20)  # the main window can be used meanwhile
        program.wait_active()
        self.end_by(program)
        self.check_clean_end()

    def test_help(self):
        opened, browser = self.folder / "opened", self.folder / "browser"
        browser.write_text(f'#!/bin/sh\necho "$1" >> {opened}\n')
        browser.chmod(0o755)
        applications = self.home / "applications"
        applications.mkdir()
        (applications / "browser.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Browser\nExec={browser} %f\n")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\ntext/html=browser.desktop\n")
        guide = self.folder / "share/doc/tarnwell/guide/index.html"
        guide.parent.mkdir(parents=True)
        guide.write_text("<!DOCTYPE html>\n")
        (self.folder / "share/tarnwell").symlink_to(ROOT / "data")
        (self.folder / "bin").mkdir()
        shutil.copy(PROGRAM, self.folder / "bin/tarnwell")
        program = self.start(wrapper=["sh", "-c", f"exec {self.folder}/bin/tarnwell"],
                             environment={"XDG_DATA_HOME": str(self.home)})
        program.menu("Software", "Help")
        dialog = self.wait_dialog(program, "Help")
        title = program.control("Additional Support")
        top = title.place().y
        place = dialog.place()
        mouse("mousemove", place.x + 100, place.y + 100, "click", 5)
        wait_for("the wheel", lambda: title.place().y < top)
        keys("Up", "Up", "Up")
        wait_for("arrows", lambda: title.place().y == top)
        keys("space")
        wait_for("a page", lambda: title.place().y == top - place.height)
        keys("Page_Up", "End")
        wait_for("the end", lambda: title.place().y < top - place.height)
        keys("Home")
        wait_for("the start", lambda: title.place().y == top)
        keys("End", "Tab")  # to the button, which comes into sight
        wait_for("the start again", lambda: title.place().y == top)
        for open_guide in (lambda: keys("space"), lambda: keys("alt+g"),
                           program.control("User Guide").click):
            opened.unlink(missing_ok=True)
            open_guide()
            wait_for("the guide", lambda: opened.exists() and opened.read_text() == f"{guide}\n")
        guide.unlink()
        keys("Return")
        program.dismiss(f"The user guide {guide} cannot be opened.\n\nNo such file")

        program.control("Path of pane 1").click(x=20)
        program.wait_active()
        mouse("key", "ctrl+f")
        keys("F1")  # from a field too; it is the same window that comes to the front
        wait_for("the help again", lambda: dialog.has("ACTIVE"))
        keys("Escape")
        program.wait_active()
        self.close_clean(program)
