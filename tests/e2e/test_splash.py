"""What hangs on the splash: its animation, folders of earlier releases, and the About box."""

import shutil

from harness import PROGRAM, ROOT, Atspi, EndToEndTest, click_close, keys, run, wait_for

ACKNOWLEDGEMENTS = "Acknowledgements & Disclaimer"
SITE = "https://site.example/x"


class SplashTest(EndToEndTest):
    def test_stays_without_its_animation_until_closed(self):
        ring = self.own / "ring6full.gif"
        ring.mkdir()
        for message, way in ((f"File {ring} not found", "Escape"),
                             ("This file is not a *.gif file", "Close"),
                             ("This file is not a *.gif file", "alt+F4"),
                             ("This file is not a *.gif file", "signal"),
                             ("This file is not a *.gif file", "signal at the message")):
            with self.subTest(way=way):
                program = self.launch()
                program.message(message)
                if way != "signal at the message":
                    program.dismiss(message)
                    program.control("Status")
                    wait_for("the splash to be active", program.active_window)
                if way.startswith("signal"):
                    self.end_by(program)
                elif way == "Close":
                    program.press(way)
                else:
                    keys(way)
                self.assertEqual(program.wait_end(), 0)
                self.assertFalse(self.marker.exists() or self.settings.exists())
            if ring.is_dir():
                ring.rmdir()
                ring.write_bytes(b"PNG")

    def test_upgrades_the_folder_of_an_earlier_release(self):
        installed = self.folder / "installed"
        data = installed / "share/tarnwell"
        shutil.copytree(ROOT / "data", data)
        released = (data / "skins/Roxy.twk").read_bytes()
        for name in ("Roxy", "Grasshopper", "Traditional"):
            (data / f"skins/{name}.twk").write_bytes(b"later")
        (data / "TIPOFDAY.TXT").write_text("a tip")
        (installed / "bin").mkdir()
        shutil.copy(PROGRAM, installed / "bin/tarnwell")
        elsewhere = self.folder / "elsewhere"
        elsewhere.write_bytes(released)
        for own, unset in ((self.own, "X"), (installed / "bin", "TARNWELL_HOME")):
            with self.subTest(own=own):
                shutil.copytree(ROOT / "data/skins", own / "skins")
                (own / "skins/Grasshopper.twk").write_bytes(b"mine")
                (own / "skins/Traditional.twk").unlink()
                (own / "skins/Traditional.twk").symlink_to(elsewhere)
                # Beside a program that has its folder with it lies this too.
                (own / "tarnwell.conf").write_text("[Options]\nShow Tips at Startup=0\n")
                command = ["env", "-u", unset, "sh", "-c", f"exec {installed}/bin/tarnwell"]
                self.assertEqual(self.start(wrapper=command).close(), 0)
                self.assertTrue((own / "user.usr").exists())
                for name, content in (("ring6full.gif", (data / "ring6full.gif").read_bytes()),
                                      ("TIPOFDAY.TXT", b"a tip"), ("skins/Roxy.twk", b"later"),
                                      ("skins/Grasshopper.twk", b"mine"),
                                      ("skins/Traditional.twk", released)):
                    self.assertEqual((own / name).read_bytes(), content, name)

    def wait_box(self, program, title="About Tarnwell"):
        wait_for(f"{title} to be active", lambda: title in run(
            "xdotool", "getactivewindow", "getwindowname"))
        return program.control(title, Atspi.Role.DIALOG)

    def wait_closed(self, program, title="About Tarnwell"):
        wait_for(f"{title} to go", lambda: program.look(title, Atspi.Role.DIALOG) is None)

    def picture_of(self, control):
        place = control.place()
        return run("import", "-window", "root", "-depth", "8", "-crop",
                   f"{place.width}x{place.height}+{place.x}+{place.y}", "txt:-")

    def test_about(self):
        opened, browser = self.folder / "opened", self.folder / "browser"
        browser.write_text(f'#!/bin/sh\necho "$1" >> {opened}\n')
        browser.chmod(0o755)
        applications = self.home / "applications"
        applications.mkdir()
        (applications / "browser.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Browser\nExec={browser} %u\n")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/https=browser.desktop\n")
        program = self.start(environment={"TARNWELL_SITE": SITE, "XDG_DATA_HOME": str(self.home)})
        program.menu("Software", "About Tarnwell")
        about = self.wait_box(program)
        first = self.picture_of(about)
        wait_for("it to turn", lambda: self.picture_of(about) != first)
        for ask in (program.control("Acknowledgements and Disclaimer...").click,
                    lambda: keys("Return")):  # the click has given it the keyboard
            ask()
            self.wait_box(program, ACKNOWLEDGEMENTS)
            keys("Escape")
            self.wait_closed(program, ACKNOWLEDGEMENTS)
            self.wait_box(program)
        keys("shift+Tab", "space")
        program.control(SITE).click()
        wait_for("the site to be opened twice",
                 lambda: opened.exists() and opened.read_text() == f"{SITE}\n" * 2)
        for caption, key, part in (("License...", "alt+l", "Permission is hereby granted"),
                                   ("Libraries...", "alt+b", "LGPL")):
            program.press(caption)
            program.dismiss(part)
            keys(key)
            program.dismiss(part, "Escape")
        program.press("Play Again")
        keys("Escape")
        self.wait_closed(program)
        program.menu("Software", "About Tarnwell")
        self.wait_box(program)
        click_close(program.control("Tarnwell", Atspi.Role.FRAME))
        self.assertEqual(program.wait_end(), 0)
        self.check_clean_end()
