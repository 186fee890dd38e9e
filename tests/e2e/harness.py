"""Starts the real program, finds its controls by their accessible names, presses keys and mouse.

Run the tests on a display of their own, with the release build in place:
  scripts/with-display --private /usr/bin/python3 tests/e2e/test_lists.py
A failed test leaves a picture of the screen in build/e2e-failures/.
"""

import functools
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAM = pathlib.Path(os.environ.get("TARNWELL_PROGRAM", ROOT / "build/release/tarnwell"))
PICTURES = ROOT / "build/e2e-failures"

LIMIT = 10.0  # seconds for anything that the program is to do
START_LIMIT = 30.0  # a busy machine starts slowly

THREE_PANES = b'"Status",0,0,0,1,1\r\n"End",0,0,0,0,0\r\n'  # settings that open one more

# Controls that hold rows or entries of their own, none of them with a name to look for.
ROLES_WITH_ROWS = {Atspi.Role.TREE, Atspi.Role.TREE_TABLE, Atspi.Role.TABLE, Atspi.Role.COMBO_BOX}


def wait_for(what, condition, limit=LIMIT):
    """The condition's first true value. A control that is just going away counts as not there."""
    end = time.monotonic() + limit
    while True:
        try:
            value = condition()
            if value:
                return value
        except GLib.Error:
            pass
        if time.monotonic() > end:
            raise AssertionError(f"waited {limit:.0f} s for: {what}")
        time.sleep(0.01)


def run(*words):
    """The command's output, whether it succeeds or not."""
    return subprocess.run([*map(str, words)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True, check=False, timeout=LIMIT).stdout.strip()


def mouse(*words):
    """Leaves keys and buttons as they are held, unlike keys()."""
    run("xdotool", *words)


def keys(*names):
    run("xdotool", "key", "--clearmodifiers", *names)


def click_close(window):
    """Presses the mark that openbox puts in the upper right corner of a window's frame. The keys
    that close a window will not do: now and then they are lost right after a click."""
    place = window.place()
    mouse("mousemove", place.x + place.width - 10, place.y - 10, "click", 1)


def children(node):
    nodes = (node.get_child_at_index(i) for i in range(node.get_child_count()))
    return [child for child in nodes if child is not None]


class Control:
    """A control, or a row of a list, as a screen reader sees it."""

    def __init__(self, node):
        self.node = node

    @property
    def name(self):
        return self.node.get_name() or ""

    @property
    def description(self):
        return self.node.get_description() or ""

    def has(self, state):
        """Whether it is SHOWING, CHECKED, FOCUSED and so on."""
        return self.node.get_state_set().contains(getattr(Atspi.StateType, state))

    def place(self):
        return self.node.get_extents(Atspi.CoordType.SCREEN)

    def wait_still(self):
        """Its place, once it has stopped moving: what comes beside it may push it away."""
        place = self.place()
        while True:
            time.sleep(0.02)
            before, place = place, self.place()
            if (before.x, before.y, before.width) == (place.x, place.y, place.width):
                return place

    def click(self, times=1, x=None, button=1):
        """Presses the button in the middle, or `x` pixels from the left edge."""
        place = self.wait_still()
        across = place.width // 2 if x is None else x
        mouse("mousemove", place.x + across, place.y + place.height // 2,
              "click", "--repeat", times, "--delay", 40, button)


class List(Control):
    """A folder tree or a file list: its rows as they are shown, from the top."""

    def rows(self):
        count = Atspi.Table.get_n_rows(self.node)
        cells = (Atspi.Table.get_accessible_at(self.node, row, 0) for row in range(count))
        return [Control(cell) for cell in cells if cell is not None]

    def names(self):
        """Also those of rows that are scrolled out of sight."""
        return [row.name for row in self.rows()]

    def wait_has(self, name):
        wait_for(f"{name!r} in {self.name}", lambda: name in self.names())

    def row(self, name):
        """The row of that name that is on the screen, ready for the mouse."""
        return wait_for(f"row {name!r} of {self.name}", lambda: next(
            (row for row in self.rows() if row.name == name and row.has("SHOWING")), None))

    def expand(self, name):
        self.row(name).click(x=-8)  # the mark left of the name

    def enter(self, name):
        self.row(name).click(times=2, x=20)


class Program:
    """One run of the program. `arguments` are those of its command line, `wrapper` is a command
    that runs it, `environment` adds to ours. The
    tip of the day, which would have the keyboard, is switched off unless `tips` is set; then the
    switch is as the run before left it."""

    def __init__(self, own, home, arguments=(), wrapper=(), environment=None, tips=False):
        config = pathlib.Path(own).parent / "config"
        self.tips = config / "tarnwell/tarnwell.conf"
        if not tips:
            self.tips.parent.mkdir(parents=True, exist_ok=True)
            self.tips.write_text("[Options]\nShow Tips at Startup=0\n")
        variables = dict(os.environ, TARNWELL_HOME=str(own), HOME=str(home),
                         XDG_CONFIG_HOME=str(config), **(environment or {}))
        self.process = subprocess.Popen([*wrapper, str(PROGRAM), *map(str, arguments)],
                                        env=variables, stdin=subprocess.DEVNULL)
        self._application = None
        self._known = {}

    # --- Controls

    def controls(self):
        """All that the program shows on the screen but rows, from the top windows down."""
        if self._application is None:
            desktop = Atspi.get_desktop(0)
            desktop.set_cache_mask(Atspi.Cache.NONE)
            desktop.clear_cache()
            for node in children(desktop):
                if node.get_process_id() == self.process.pid:
                    node.set_cache_mask(Atspi.Cache.NONE)
                    self._application = node
        waiting = [self._application] if self._application else []
        while waiting:
            node = waiting.pop()
            if Control(node).has("SHOWING"):
                yield Control(node)
            if node.get_role() not in ROLES_WITH_ROWS:
                waiting.extend(children(node))

    def look(self, name, role=None):
        """The control of that name that is on the screen, or None."""
        for control in self.controls():
            if role is None or control.node.get_role() == role:
                if name in (control.name, _label(control.node)):
                    return control.node
        return None

    def control(self, name, role=None, limit=LIMIT, kind=Control):
        def find():
            self.check_alive()
            return self.look(name, role)

        key = (name, role)
        if key not in self._known:
            self._known[key] = wait_for(f"control {name!r}", find, limit)
        return kind(self._known[key])

    def folders(self, pane=1):
        return self.control(f"Folders of pane {pane}", kind=List)

    def files(self, pane=1):
        return self.control(f"Files of pane {pane}", kind=List)

    def path(self, pane=1):
        return Atspi.Text.get_text(self.control(f"Path of pane {pane}").node, 0, -1)

    def status(self, of):
        return self.control(f"Status of {of} of pane 1").description

    def wait_status(self, part, of="files"):
        wait_for(f"{part!r} in the status line", lambda: part in self.status(of))

    def select(self, name):
        self.files().row(name).click(x=60)
        self.wait_status("1 selected")

    def button(self, pane):
        return self.control(f"Pane {pane}", Atspi.Role.CHECK_BOX)

    def is_open(self, pane):
        return self.look(f"Files of pane {pane}") is not None

    def menu(self, name, entry):
        """Chooses the menu's entry whose name begins so."""
        self.control(name, Atspi.Role.MENU_ITEM).click()
        # Entries claim to be on the screen while their menu is only being unfolded.
        wait_for(f"entry {entry!r} of menu {name!r}", lambda: next(
            (control for control in self.controls() if control.name.startswith(entry) and
             control.node.get_role() == Atspi.Role.MENU_ITEM and control.place().width > 0),
            None)).click()

    # --- Windows

    def wait_shown(self):
        """Until the main window stands and its first pane is filled, with the keyboard in it."""
        self.control("Files of pane 1", limit=START_LIMIT)
        self.wait_status(" item")
        self.wait_active()
        return self

    def wait_active(self):
        wait_for("the main window to be active", self.window)

    def windows(self):
        """Numbers of all that it shows, menus that pop up among them."""
        return set(run("xdotool", "search", "--onlyvisible", "--pid", self.process.pid).split())

    def active_window(self):
        """Number of the active window if it is the program's, or None."""
        number = run("xdotool", "getactivewindow")
        return number if run("xdotool", "getwindowpid", number) == str(self.process.pid) else None

    def window(self):
        """Number of the main window if it is active."""
        number = self.active_window()
        kind = number and run("xprop", "-id", number, "_NET_WM_WINDOW_TYPE")
        return number if kind and "_DIALOG" not in kind else None

    def place(self):
        """Left, top, width and height of the main window's inside, in pixels."""
        place = self.control("Tarnwell", Atspi.Role.FRAME).place()
        return place.x, place.y, place.width, place.height

    def find_message(self, part):
        """The message box whose text holds the part, or None."""
        for control in self.controls():
            if control.node.get_role() in (Atspi.Role.DIALOG, Atspi.Role.ALERT):
                texts = [child.get_name() for child in children(control.node)]
                if any(part in text for text in [control.description, *texts]):
                    return control
        return None

    def message(self, part):
        """Waits for the message and for the keyboard to be in it."""
        box = wait_for(f"message {part!r}", lambda: self.find_message(part))
        wait_for("the message to be active", lambda: self.active_window() and not self.window())
        return box

    def dismiss(self, part, key="Return"):
        self.message(part)
        keys(key)
        wait_for(f"message {part!r} to go", lambda: self.find_message(part) is None)

    def press(self, caption):
        self.control(caption, Atspi.Role.PUSH_BUTTON).click()

    # --- The end

    def check_alive(self):
        code = self.process.poll()
        if code is not None:
            raise AssertionError(f"the program has ended, with code {code}")

    def wait_end(self):
        """The exit code; below zero the signal that ended the program."""
        return self.process.wait(LIMIT)

    def close(self):
        """Closes the main window by its frame, and gives the exit code."""
        self.wait_active()
        click_close(self.control("Tarnwell", Atspi.Role.FRAME))
        return self.wait_end()

    def kill(self):
        self.process.kill()
        self.process.wait()


class EndToEndTest(unittest.TestCase):
    """Each test gets an empty home, and `own`, the folder for the program's own files."""

    def __init_subclass__(cls):
        super().__init_subclass__()
        for name, test in list(vars(cls).items()):
            if name.startswith("test"):
                setattr(cls, name, _picture_on_failure(test))

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="tarnwell-e2e-"))
        self.addCleanup(self._remove_folder)
        self.home = self.folder / "dwelling"
        self.own = self.folder / "own"
        self.home.mkdir()
        self.own.mkdir()
        self.settings = self.own / "user.usr"
        self.marker = self.own / "run.txt"

    def _remove_folder(self):
        for path, folders, _ in os.walk(self.folder):  # looks into each after this
            for folder in folders:
                if not os.path.islink(os.path.join(path, folder)):
                    os.chmod(os.path.join(path, folder), 0o700)
        shutil.rmtree(self.folder)

    def launch(self, **options):
        """Starts the program and leaves it to the test to wait for what is to come."""
        program = Program(self.own, self.home, **options)
        self.addCleanup(program.kill)
        return program

    def start(self, **options):
        return self.launch(**options).wait_shown()

    def wait_path(self, program, path, pane=1):
        shown = str(path) if str(path).endswith("/") else f"{path}/"
        wait_for(f"pane {pane} to show {shown}", lambda: program.path(pane) == shown)

    def wait_names(self, program, names, pane=1):
        wait_for(f"files {sorted(names)} in pane {pane}",
                 lambda: sorted(program.files(pane).names()) == sorted(names))

    def answer(self, title, *names):
        """Presses the keys in the dialog of that title."""
        number = wait_for(f"the dialog {title}", lambda: run(
            "xdotool", "search", "--onlyvisible", "--name", f"^{title}"))
        wait_for("it to be active", lambda: run("xdotool", "getactivewindow") in number.split())
        keys(*names)
        wait_for("it to close", lambda: not run(
            "xdotool", "search", "--onlyvisible", "--name", f"^{title}"))

    def end_by(self, program, number=signal.SIGTERM):
        program.process.send_signal(number)
        self.assertEqual(program.wait_end(), 0)

    def check_clean_end(self):
        self.assertFalse(self.marker.exists(), "the run marker is still there")
        self.assertTrue(self.settings.read_bytes().endswith(b'"End",0,0,0,0,0\r\n'),
                        "the settings are not whole")

    def close_clean(self, program):
        self.assertEqual(program.close(), 0)
        self.check_clean_end()


def _label(node):
    """The label of a list to choose from: its name is what is chosen."""
    if node.get_role() == Atspi.Role.COMBO_BOX:
        for relation in node.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
    return None


def _picture_on_failure(test):
    @functools.wraps(test)
    def with_picture(self):
        try:
            test(self)
        except BaseException:
            PICTURES.mkdir(parents=True, exist_ok=True)
            run("import", "-window", "root", PICTURES / f"{self.id()}.png")
            log = self.own / "_MsgLog.txt"  # where TARNWELL_MSGLOG is set
            if log.exists():
                shutil.copy(log, PICTURES / f"{self.id()}.txt")
            raise

    return with_picture


# A file of tests that is run as a program: it needs to say no more than what it tests.
if pathlib.Path(sys.argv[0]).name.startswith("test_"):
    unittest.main(pathlib.Path(sys.argv[0]).stem)
