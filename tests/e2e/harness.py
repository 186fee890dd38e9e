"""Starts the real program, finds its controls by their accessible names, presses keys and mouse.

Run the tests on a display of their own, with the release build in place:
  scripts/with-display --private /usr/bin/python3 tests/e2e/test_panes.py
A failed test leaves a picture of the screen in build/e2e-failures/.
"""

import functools
import os
import pathlib
import shutil
import signal
import subprocess
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

# Controls that hold rows or entries of their own, none of them with a name to look for.
ROLES_WITH_ROWS = {Atspi.Role.TREE, Atspi.Role.TREE_TABLE, Atspi.Role.TABLE, Atspi.Role.COMBO_BOX}


class WaitFailed(AssertionError):
    pass


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
            raise WaitFailed(f"waited {limit:.0f} s for: {what}")
        time.sleep(0.01)


def xdotool(*arguments):
    words = ["xdotool", *map(str, arguments)]
    return subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          check=False, timeout=LIMIT).stdout


def keys(*names):
    xdotool("key", "--clearmodifiers", *names)


def click_close(window):
    """Presses the mark that openbox puts in the upper right corner of a window's frame. The keys
    that close a window will not do: now and then they are lost right after a click."""
    place = window.place()
    xdotool("mousemove", place.x + place.width - 10, place.y - 10, "click", 1)


class Control:
    """A control, or a row of a list, as a screen reader sees it."""

    def __init__(self, node):
        self.node = node

    @property
    def name(self):
        return self.node.get_name() or ""

    @property
    def text(self):
        return Atspi.Text.get_text(self.node, 0, -1)

    @property
    def description(self):
        return self.node.get_description() or ""

    def has(self, *states):
        found = self.node.get_state_set()
        return all(found.contains(state) for state in states)

    def is_showing(self):
        return self.has(Atspi.StateType.SHOWING)

    def is_checked(self):
        return self.has(Atspi.StateType.CHECKED)

    def has_focus(self):
        return self.has(Atspi.StateType.FOCUSED)

    def place(self):
        return self.node.get_extents(Atspi.CoordType.SCREEN)

    def click(self, times=1, x=None):
        """Presses the left button in the middle, or `x` pixels from the left edge."""
        place = self.place()
        across = place.width // 2 if x is None else x
        xdotool("mousemove", place.x + across, place.y + place.height // 2,
                "click", "--repeat", times, "--delay", 40, 1)

    def children(self):
        nodes = (self.node.get_child_at_index(i) for i in range(self.node.get_child_count()))
        return [Control(node) for node in nodes if node is not None]


class List(Control):
    """A folder tree or a file list: its rows as they are shown, from the top."""

    def names(self):
        count = Atspi.Table.get_n_rows(self.node)
        cells = (Atspi.Table.get_accessible_at(self.node, row, 0) for row in range(count))
        return [cell.get_name() for cell in cells if cell is not None]

    def wait_has(self, name):
        """Also a row that is scrolled out of sight."""
        wait_for(f"{name!r} in {self.name}", lambda: name in self.names())

    def row(self, name):
        """The row of that name, ready for the mouse."""
        return wait_for(f"row {name!r} of {self.name}", lambda: self.find(name))

    def expand(self, name):
        self.row(name).click(x=-8)  # the mark left of the name

    def find(self, name):
        """The row of that name that is on the screen, or None."""
        for row in range(Atspi.Table.get_n_rows(self.node)):
            cell = Atspi.Table.get_accessible_at(self.node, row, 0)
            if cell is not None and cell.get_name() == name:
                found = Control(cell)
                if found.is_showing():
                    return found
        return None


class Program:
    """One run of the program. `wrapper` is a command that runs it, `environment` adds to ours."""

    def __init__(self, own, home, wrapper=(), environment=None):
        variables = dict(os.environ, TARNWELL_HOME=str(own), HOME=str(home), **(environment or {}))
        self.process = subprocess.Popen([*wrapper, str(PROGRAM)], env=variables,
                                        stdin=subprocess.DEVNULL)
        self._application = None
        self._known = {}

    # --- Controls

    def _nodes(self):
        """Everything that the program shows but rows, from the top windows down."""
        if self._application is None:
            desktop = Atspi.get_desktop(0)
            desktop.set_cache_mask(Atspi.Cache.NONE)
            desktop.clear_cache()
            for i in range(desktop.get_child_count()):
                node = desktop.get_child_at_index(i)
                if node is not None and node.get_process_id() == self.process.pid:
                    node.set_cache_mask(Atspi.Cache.NONE)
                    self._application = node
        if self._application is None:
            return
        waiting = [self._application]
        while waiting:
            node = waiting.pop()
            yield node
            if node.get_role() in ROLES_WITH_ROWS:
                continue
            for i in range(node.get_child_count()):
                child = node.get_child_at_index(i)
                if child is not None:
                    waiting.append(child)

    def look(self, name, role=None):
        """The control of that name that is on the screen, or None."""
        for node in self._nodes():
            if role is not None and node.get_role() != role:
                continue
            if node.get_name() == name or _label(node) == name:
                if node.get_state_set().contains(Atspi.StateType.SHOWING):
                    return node
        return None

    def control(self, name, role=None, limit=LIMIT, kind=Control):
        key = (name, role)
        if key not in self._known:
            def find():
                self.check_alive()
                return self.look(name, role)

            self._known[key] = wait_for(f"control {name!r}", find, limit)
        return kind(self._known[key])

    def folders(self, pane=1):
        return self.control(f"Folders of pane {pane}", kind=List)

    def files(self, pane=1):
        return self.control(f"Files of pane {pane}", kind=List)

    def path(self, pane=1):
        return self.control(f"Path of pane {pane}").text

    def status(self, of, pane=1):
        return self.control(f"Status of {of} of pane {pane}").description

    def button(self, pane):
        return self.control(f"Pane {pane}", Atspi.Role.CHECK_BOX)

    def is_open(self, pane):
        return self.look(f"Files of pane {pane}") is not None

    def menu(self, name, entry):
        """Chooses the menu's entry whose name begins so."""
        self.control(name, Atspi.Role.MENU_ITEM).click()

        def find():
            for node in self._nodes():
                control = Control(node)
                if control.name.startswith(entry) and node.get_role() == Atspi.Role.MENU_ITEM:
                    # Entries claim to be on the screen while their menu is only being unfolded.
                    if control.is_showing() and control.place().width > 0:
                        return control
            return None

        wait_for(f"entry {entry!r} of menu {name!r}", find).click()

    # --- Windows

    def wait_shown(self, pane=1, limit=START_LIMIT):
        """Until the main window stands and a pane is filled, with the keyboard in it."""
        self.control(f"Files of pane {pane}", limit=limit)
        wait_for("the file list to be read", lambda: " item" in self.status("files", pane))
        wait_for("the main window to be active", self.window)
        return self

    def active_window(self):
        """Number of the active window if it is the program's, or None."""
        number = xdotool("getactivewindow").strip()
        if number and xdotool("getwindowpid", number).strip() == str(self.process.pid):
            return number
        return None

    def window(self):
        """Number of the main window if it is active."""
        number = self.active_window()
        kind = number and subprocess.run(
            ["xprop", "-id", number, "_NET_WM_WINDOW_TYPE"], stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, text=True, check=False).stdout
        return number if kind and "_DIALOG" not in kind else None

    def place(self):
        """Left, top, width and height of the main window's inside, in pixels."""
        place = self.control("Tarnwell", Atspi.Role.FRAME).place()
        return place.x, place.y, place.width, place.height

    def find_message(self, part):
        """The message box whose text holds the part, or None."""
        for node in self._nodes():
            if node.get_role() in (Atspi.Role.DIALOG, Atspi.Role.ALERT):
                control = Control(node)
                texts = [control.description, *(child.name for child in control.children())]
                if control.is_showing() and any(part in text for text in texts):
                    return control
        return None

    def press(self, caption):
        self.control(caption, Atspi.Role.PUSH_BUTTON).click()

    def message(self, part, limit=LIMIT):
        """Waits for the message and for the keyboard to be in it."""
        box = wait_for(f"message {part!r}", lambda: self.find_message(part), limit)
        wait_for("the message to be active",
                 lambda: self.active_window() and not self.window())
        return box

    def wait_gone(self, part):
        wait_for(f"message {part!r} to go", lambda: self.find_message(part) is None)

    # --- The end

    def check_alive(self):
        code = self.process.poll()
        if code is not None:
            raise AssertionError(f"the program has ended, with code {code}")

    def wait_end(self, limit=LIMIT):
        """The exit code; below zero the signal that ended the program."""
        try:
            return self.process.wait(limit)
        except subprocess.TimeoutExpired:
            raise WaitFailed(f"waited {limit:.0f} s for: the program to end") from None

    def close(self):
        """Closes the main window by its frame, and gives the exit code."""
        wait_for("the main window to be active", self.window)
        click_close(self.control("Tarnwell", Atspi.Role.FRAME))
        return self.wait_end()

    def signal(self, number):
        os.kill(self.process.pid, number)


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
        for path, _, _ in os.walk(self.folder):
            os.chmod(path, 0o700)
        shutil.rmtree(self.folder)

    def launch(self, **options):
        """Starts the program and leaves it to the test to wait for what is to come."""
        program = Program(self.own, self.home, **options)
        self.addCleanup(_kill, program.process)
        return program

    def start(self, **options):
        return self.launch(**options).wait_shown()

    def wait_path(self, program, path, pane=1):
        shown = str(path) if str(path).endswith("/") else f"{path}/"
        wait_for(f"pane {pane} to show {shown}", lambda: program.path(pane) == shown)

    def wait_names(self, program, names, pane=1):
        def shown():
            return sorted(program.files(pane).names()) == sorted(names)

        try:
            wait_for(f"files {sorted(names)} in pane {pane}", shown)
        except WaitFailed as failure:
            raise WaitFailed(f"{failure}, not {program.files(pane).names()}") from None

    def check_clean_end(self):
        self.assertFalse(self.marker.exists(), "the run marker is still there")
        self.assertTrue(self.settings.read_bytes().endswith(b'"End",0,0,0,0,0\r\n'),
                        "the settings are not whole")


def _label(node):
    """The label of a list to choose from: its name is what is chosen."""
    if node.get_role() != Atspi.Role.COMBO_BOX:
        return None
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            return relation.get_target(0).get_name()
    return None


def _kill(process):
    if process.poll() is None:
        process.send_signal(signal.SIGKILL)
    process.wait()


def _picture_on_failure(test):
    @functools.wraps(test)
    def run(self):
        try:
            test(self)
        except unittest.SkipTest:
            raise
        except BaseException:
            PICTURES.mkdir(parents=True, exist_ok=True)
            picture = PICTURES / f"{self.id().removeprefix('__main__.')}.png"
            subprocess.run(["import", "-window", "root", str(picture)], check=False,
                           timeout=LIMIT)
            raise

    return run
