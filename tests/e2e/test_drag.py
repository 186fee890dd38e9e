"""Items are dragged between lists and to and from another program with the real mouse."""

import os
import pathlib
import subprocess
import sys
import time
import unittest

from harness import EndToEndTest, keys, run, wait_for

OTHER = pathlib.Path(__file__).with_name("other_program.py")
QUESTION = "^File Operation"


def mouse(*words):
    run("xdotool", *words)


def middle(control, x=60):
    place = control.place()
    return place.x + min(x, place.width // 2), place.y + place.height // 2


def empty_space(files):
    """The lower edge of a list with few rows, clear of where it scrolls."""
    place = files.place()
    return place.x + place.width // 2, place.y + place.height - 60


def glide(start, end):
    """Programs take a drag for one by the way of the mouse: it moves in steps, as a hand does."""
    for step in range(1, 9):
        x, y = (a + (b - a) * step // 8 for a, b in zip(start, end))
        mouse("mousemove", x, y)
        time.sleep(0.02)
    mouse("mousemove", end[0] + 1, end[1])
    mouse("mousemove", *end)


def keys_held(*names):
    """Keys for a drag: the button of the mouse stays down."""
    mouse("key", *names)


def question():
    return run("xdotool", "search", "--onlyvisible", "--name", QUESTION)


class DragTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        for folder in ("from/box/deep", "to/inner/below"):
            (self.home / folder).mkdir(parents=True)
        for name in ("one.txt", "two.txt", "a b%41\n.txt"):
            (self.home / "from" / name).write_text(name)
        self.addCleanup(mouse, "keyup", "ctrl", "keyup", "shift", "mouseup", 1)

    def begin(self):
        """The source in pane 1, the target in pane 2."""
        program = self.start()
        program.files().enter("from")
        self.wait_path(program, self.home / "from")
        program.files(2).enter("to")
        self.wait_path(program, self.home / "to", 2)
        self.wait_names(program, ["inner"], 2)
        program.files().row("one.txt")
        return program

    def pull(self, start, *places):
        """Presses the button and moves over the places, the last of which it stays on."""
        mouse("mousemove", *start, "mousedown", 1)
        for place in places:
            glide(start, place)
            start = place

    def drop(self, start, place, key=None):
        self.pull(start, place)
        self.drop_on(place, key)

    def drop_on(self, place, key=None):
        if key:
            mouse("keydown", key)
        glide(place, place)
        time.sleep(0.2)  # what is under the mouse answers in its own time
        mouse("mouseup", 1)
        if key:
            mouse("keyup", key)

    def answer(self, *names):
        number = wait_for("the question", question)
        wait_for("it to be active", lambda: run("xdotool", "getactivewindow") in number.split())
        keys(*names)
        wait_for("it to close", lambda: not question())

    def wait_copied(self, name, folder, moved=False):
        wait_for(f"{name!r} in {folder}", (self.home / folder / name).exists)
        self.assertEqual((self.home / folder / name).read_text(), name)
        source = self.home / "from" / name
        if moved:
            wait_for(f"{name!r} to be gone", lambda: not source.exists())
        else:
            self.assertTrue(source.exists())

    def test_between_lists(self):
        program = self.begin()
        files, target = program.files(), program.files(2)
        self.drop(middle(files.row("one.txt")), empty_space(target))
        self.answer("Escape")
        self.drop(middle(files.row("one.txt")), empty_space(target))
        self.answer("alt+c")
        self.wait_copied("one.txt", "to")
        self.wait_names(program, ["inner", "one.txt"], 2)
        self.drop(middle(files.row("two.txt")), middle(target.row("inner")), key="ctrl")
        self.wait_copied("two.txt", "to/inner")
        self.drop(middle(files.row("two.txt")), empty_space(target), key="shift")
        self.wait_copied("two.txt", "to", moved=True)
        wait_for("two.txt to leave the list", lambda: "two.txt" not in files.names())
        self.close_clean(program)

    def test_folders_open_under_a_drag(self):
        program = self.begin()
        files, tree = program.files(), program.folders()
        start = middle(files.row("one.txt"))
        self.pull(start, middle(tree.row("to")))

        def opened():  # rows move when something else makes folders beside those of this test
            mouse("mousemove", *middle(tree.row("to")))
            return "inner" in tree.names()

        wait_for("the folder to open", opened)
        self.drop_on(middle(tree.row("inner")), "ctrl")
        self.wait_copied("one.txt", "to/inner")

        self.pull(start, middle(program.files(2).row("inner")))
        self.wait_path(program, self.home / "to/inner", 2)
        up = program.control("Up one folder of pane 2")
        glide(middle(program.files(2)), middle(up, 10))
        self.wait_path(program, self.home / "to", 2)
        self.drop_on(empty_space(program.files(2)), "ctrl")
        self.wait_copied("one.txt", "to")
        self.close_clean(program)

    def test_what_is_refused_or_given_up(self):
        program = self.begin()
        files = program.files()
        before = sorted(self.home.rglob("*"))
        self.pull(middle(files.row("one.txt")), empty_space(program.files(2)))
        keys_held("Escape")
        mouse("mouseup", 1)
        box = middle(files.row("box"))
        self.pull(middle(files.row("one.txt")), box)
        self.wait_path(program, self.home / "from/box")  # the folder opens
        keys_held("Escape")
        mouse("mouseup", 1)
        program.control("Up one folder of pane 1").click()
        self.wait_path(program, self.home / "from")
        tree = program.folders()
        for place in (middle(files.row("one.txt")), middle(tree.row("box")), box,
                      empty_space(files)):
            self.drop(middle(files.row("box"), 40), place, key="shift")
            self.drop(middle(files.row("box"), 40), place)
        self.assertEqual((question(), sorted(self.home.rglob("*"))), ("", before))
        # Ctrl makes a twin, which shows that all this has left the lists at work.
        self.drop(middle(files.row("one.txt")), empty_space(files), key="ctrl")
        wait_for("a twin", lambda: len(sorted(self.home.rglob("*"))) == len(before) + 1)
        self.close_clean(program)

    def test_another_program(self):
        (self.home / "other").mkdir()
        offered = self.home / "other/größe 1%.txt"
        offered.write_text("offered")
        notes = self.folder / "notes"
        program = self.begin()
        place = program.files().place()
        x, y = place.x + place.width - 120, place.y + 160
        other = subprocess.Popen([sys.executable, OTHER, str(x), str(y), offered, notes],
                                 # Screen readers, and this test, would wait for it as well.
                                 env=dict(os.environ, NO_AT_BRIDGE="1"))
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        written = lambda: notes.read_text() if notes.exists() else ""  # noqa: E731
        wait_for("the other program", lambda: "shown" in written())
        window = (x + 40, y + 60)

        name = "a b%41\n.txt"
        self.drop(middle(program.files().rows()[1]), window)
        wait_for("the drop", lambda: "dropped" in written())
        self.assertIn((self.home / "from" / name).as_uri(), written())
        self.assertTrue((self.home / "from" / name).exists())

        target = empty_space(program.files(2))
        self.drop(window, target)
        self.answer("alt+c")
        wait_for("the copy", (self.home / "to" / offered.name).exists)
        self.drop(window, middle(program.files(2).row("inner")), key="shift")
        wait_for("the move", lambda: not offered.exists())
        self.assertEqual((self.home / "to/inner" / offered.name).read_text(), "offered")
        wait_for("the end of both drags", lambda: written().count("drag ended") == 2)
        self.assertNotIn("asked to delete", written())
        self.close_clean(program)


if __name__ == "__main__":
    unittest.main()
