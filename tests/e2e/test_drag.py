"""Items are dragged between lists and to and from another program with the real mouse."""

import os
import pathlib
import subprocess
import sys

from harness import EndToEndTest, mouse, wait_for

OTHER = pathlib.Path(__file__).with_name("other_program.py")


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
        mouse("mousemove", *(a + (b - a) * step // 8 for a, b in zip(start, end)))
    mouse("mousemove", end[0] + 1, end[1], "mousemove", *end)


def pull(start, place, begun):
    """Presses the button and moves to the place, where the button stays down."""
    mouse("mousemove", *start, "mousedown", 1)
    glide(start, place)
    wait_for("the drag", lambda: glide(place, place) or begun())
    glide(place, place)


class DragTest(EndToEndTest):
    def begin(self):
        """The source in pane 1, the target in pane 2."""
        for folder in ("from/box", "to/inner"):  # empty: nothing more opens under a drag
            (self.home / folder).mkdir(parents=True)
        for name in ("one.txt", "two.txt", "a b%41\n.txt"):
            (self.home / "from" / name).write_text(name)
        self.addCleanup(mouse, "keyup", "ctrl", "keyup", "shift", "mouseup", 1)
        program = self.start()
        program.files().enter("from")
        self.wait_path(program, self.home / "from")
        program.files(2).enter("to")
        self.wait_path(program, self.home / "to", 2)
        self.wait_names(program, ["inner"], 2)
        program.files().row("one.txt")
        self.windows = program.windows()
        return program

    def pull(self, program, start, place):
        """Presses the button and moves to the place, where the button stays down."""
        # What is dragged has a picture, in a window of its own.
        wait_for("the end of the last drag", lambda: program.windows() <= self.windows)
        pull(start, place, lambda: program.windows() - self.windows)

    def drop(self, place, key, ready=None):
        """Lets go with the key held, once the source has heard that it may."""
        mouse("keydown", key)
        glide(place, place)
        if ready:
            wait_for("leave to drop", ready)
        mouse("mouseup", 1)

    def wait_copied(self, name, folder, moved=False):
        copy, source = self.home / folder / name, self.home / "from" / name
        wait_for(f"{name!r} in {folder}", lambda: copy.exists() and copy.read_text() == name)
        wait_for(f"{name!r} to be {'gone' if moved else 'there'} where it was",
                 lambda: source.exists() != moved)
        mouse("keyup", "ctrl", "keyup", "shift")

    def test_between_lists_and_into_folders_that_open(self):
        program = self.begin()
        files, target, tree = program.files(), program.files(2), program.folders()
        start = middle(files.row("one.txt"))
        self.pull(program, start, middle(tree.row("to")))

        def opened():  # rows move when something else makes folders beside those of this test
            mouse("mousemove", *middle(tree.row("to")))
            return "inner" in tree.names()

        wait_for("the folder to open", opened)
        self.drop(middle(tree.row("inner")), "ctrl")
        self.wait_copied("one.txt", "to/inner")

        for keys in ("Escape", "alt+c"):
            self.pull(program, start, empty_space(target))
            mouse("mouseup", 1)
            self.answer("File Operation", keys)
        self.wait_copied("one.txt", "to")
        self.wait_names(program, ["inner", "one.txt"], 2)
        self.pull(program, middle(files.row("two.txt")), empty_space(target))
        self.drop(empty_space(target), "shift")
        self.wait_copied("two.txt", "to", moved=True)
        wait_for("two.txt to leave the list", lambda: "two.txt" not in files.names())
        self.close_clean(program)

    def test_what_is_refused_or_given_up(self):
        program = self.begin()
        files = program.files()
        before = sorted(self.home.rglob("*"))
        one, box = middle(files.row("one.txt")), middle(files.row("box"))
        self.pull(program, one, box)
        self.wait_path(program, self.home / "from/box")  # the folder opens
        mouse("key", "Escape", "mouseup", 1)
        program.control("Up one folder of pane 1").click()
        self.wait_path(program, self.home / "from")
        places = (one, middle(program.folders().row("box")), box, empty_space(files))
        for number, place in enumerate(places):
            # Elsewhere on the name each time, so that it is no double click.
            self.pull(program, middle(files.row("box"), 39 + 6 * number), place)
            self.drop(place, "shift")
            mouse("keyup", "shift")
        self.assertEqual(sorted(self.home.rglob("*")), before)
        # Ctrl makes a twin, which shows that all this has left the lists at work.
        self.pull(program, one, empty_space(files))
        self.drop(empty_space(files), "ctrl")
        wait_for("a twin", lambda: len(sorted(self.home.rglob("*"))) == len(before) + 1)
        mouse("keyup", "ctrl")
        self.close_clean(program)

    def test_another_program(self):
        (self.home / "other").mkdir()
        offered, notes = self.home / "other/größe 1%.txt", self.folder / "notes"
        offered.write_text("offered")
        notes.touch()
        program = self.begin()
        place = program.files().place()
        x, y = place.x + place.width - 120, place.y + 160
        other = subprocess.Popen([sys.executable, OTHER, str(x), str(y), offered, notes],
                                 # Screen readers, and this test, would wait for it as well.
                                 env=dict(os.environ, NO_AT_BRIDGE="1"))
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        wait_for("the other program", lambda: "shown" in notes.read_text())
        self.windows, window = program.windows(), (x + 40, y + 60)
        odd = next(path for path in (self.home / "from").iterdir() if path.name.startswith("a b"))

        def dropped():  # a button that comes up before the other program has answered gives it up
            self.pull(program, middle(program.files().rows()[1]), window)
            mouse("mouseup", 1)
            return "dropped" in notes.read_text()

        wait_for("the drop", dropped)
        self.assertIn(odd.as_uri(), notes.read_text())
        self.assertTrue(odd.exists())

        for folder, pane, key, action in (("to", 2, "ctrl", "copy"), ("from", 1, "shift", "move")):
            place, earlier = empty_space(program.files(pane)), len(notes.read_text())
            told = lambda: notes.read_text()[earlier:]  # noqa: E731
            pull(window, place, lambda: "may" in told())
            self.drop(place, key, lambda: told().endswith(f"may {action}\n"))
            wait_for("the end of the drag", lambda: "drag ended" in told())
            mouse("keyup", key)
            wait_for(f"the {action}", (self.home / folder / offered.name).exists)
            wait_for("the source", lambda: offered.exists() == (action == "copy"))
        self.assertNotIn("asked to delete", notes.read_text())
        self.close_clean(program)
