"""Minimised, the program goes to the notification area, and is lost neither there nor without."""

import pathlib
import subprocess
import sys

from gi.repository import Gio
from harness import EndToEndTest, GLib, click_close, run, wait_for

WATCHER = ("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher")
ITEM, MENU = "org.kde.StatusNotifierItem", "com.canonical.dbusmenu"


def call(place, interface, method, form, *words):
    return Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        *place, interface, method, GLib.Variant(form, words), None, 0, -1, None).unpack()


def read(place, interface, name):
    return call(place, "org.freedesktop.DBus.Properties", "Get", "(ss)", interface, name)[0]


def icons():
    return read(WATCHER, WATCHER[0], "RegisteredStatusNotifierItems")


def click(icon):
    call(icon, ITEM, "Activate", "(ii)", 0, 0)


def choose(icon, caption):
    menu = icon[0], read(icon, ITEM, "Menu")
    entries = call(menu, MENU, "GetLayout", "(iias)", 0, -1, ["label"])[1][2]
    number = next(entry[0] for entry in entries if entry[1]["label"] == caption)
    call(menu, MENU, "Event", "(isvu)", number, "clicked", GLib.Variant("s", ""), 0)


class TrayTest(EndToEndTest):
    def begin(self):
        self.settings.write_bytes(b'"MinimizeToTaskBar",#FALSE#,0,0,0,0\r\n"End",0,0,0,0,0\r\n')
        self.area = subprocess.Popen([sys.executable,
                                      pathlib.Path(__file__).with_name("tray_host.py")])
        self.addCleanup(self.area.wait)
        self.addCleanup(self.area.kill)
        wait_for("the notification area", lambda: icons() == [])
        return self.start()

    def minimise(self, program):
        def clicked():  # a window that has just come back may lose the keyboard once more
            program.folders().row(self.home.name).click()
            return program.window()

        wait_for("the main window to be active", clicked)
        run("xdotool", "windowminimize", program.window())
        wait_for("all windows to go", lambda: not program.windows())

    def to_tray(self, program):
        self.minimise(program)
        return wait_for("one icon", lambda: len(icons()) == 1 and icons())[0], "/StatusNotifierItem"

    def test_there_and_back(self):
        program = self.begin()
        place, number = program.place(), program.window()
        icon = self.to_tray(program)
        self.assertEqual(read(icon, ITEM, "ToolTip")[2], "Tarnwell")
        click(icon)
        program.wait_active()
        self.assertEqual(program.place(), place)  # maximised
        program.menu("File", "Options")
        options = program.control("Options")
        choose(self.to_tray(program), "_Restore")
        wait_for("both windows", lambda: len(program.windows()) == 2)
        click_close(options)
        program.wait_active()

        # Without a notification area it is on the task bar.
        def is_minimised():
            return "_HIDDEN" in run("xprop", "-id", number, "_NET_WM_STATE")

        self.to_tray(program)
        self.area.kill()
        wait_for("the window on the task bar", is_minimised)
        run("xdotool", "windowactivate", number)
        program.wait_active()
        self.assertEqual(program.place(), place)
        self.minimise(program)
        self.assertTrue(is_minimised())
        self.end_by(program)
        self.check_clean_end()

    def test_ends_there(self):
        program = self.begin()
        self.to_tray(program)
        self.end_by(program)
        self.assertTrue(self.settings.read_bytes().startswith(b'"ProgramPosition","max",'))
        program = self.start()
        program.menu("Layout", "Choose Skin")
        for colour in ("Active Title", "List Background"):
            program.control(colour).click()
        choose(self.to_tray(program), "_Exit")
        program.message("You have made changes to the skin")
        program.press("Cancel")
        choose(self.to_tray(program), "_Exit")
        program.message("You have made changes to the skin")
        program.press("No")
        self.assertEqual(program.wait_end(), 0)
        self.check_clean_end()
