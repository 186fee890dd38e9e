"""Finding files: the window, its list, and the way back to the panes."""

import os

from gi.repository import Atspi
from harness import EndToEndTest, List, keys, wait_for


class FindTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        for name, text in (("a/one.txt", "apple"), ("b/one.txt", "pear"), ("b/two.txt", "Apple pie")):
            path = self.home / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(text)
        os.mkfifo(self.home / "b/pipe.txt")
        self.program = self.start()

    def open(self):
        keys("ctrl+shift+f")
        wait_for("the window", lambda: self.program.active_window() and not self.program.window())
        self.list = List(wait_for("the list", lambda: self.program.look("Files of the search")))

    def field(self, name):
        node = self.program.look(name)
        wait_for(name, lambda: Atspi.Component.grab_focus(node))
        keys("ctrl+a")

    def wait_rows(self, *names):
        wait_for(f"the results {names}", lambda: sorted(self.list.names()) == sorted(names))

    def test_finds_by_mouse_and_keys(self):
        self.open()
        keys("o", "n", "e", "Return")
        self.wait_rows("one.txt", "one.txt")
        # Of two of the same name the one that was chosen goes.
        self.list.row("one.txt").click()
        keys("End", "Delete")
        self.answer("Delete", "Return")
        self.wait_rows("one.txt")
        self.assertEqual([(self.home / each / "one.txt").exists() for each in "ab"], [True, False])

        self.field("Name")
        keys("asterisk", "period", "t", "x", "t", "Return")
        self.wait_rows("one.txt", "two.txt", "pipe.txt")
        self.field("Text")
        keys("a", "p", "p", "l", "e")
        self.program.press("Find")
        self.wait_rows("one.txt", "two.txt")
        self.program.control("Match case", Atspi.Role.CHECK_BOX).click()
        keys("alt+f")
        self.wait_rows("one.txt")

        # What is no expression is told, and cannot be begun.
        self.field("Name")
        keys("parenleft", "alt+x")
        self.program.control(
            "This is no regular expression: missing closing parenthesis, behind \"(\".")
        self.assertFalse(self.program.control("Find", Atspi.Role.PUSH_BUTTON).has("ENABLED"))
        self.field("Name")
        keys("o", "period", "e", "Return")
        self.wait_rows("one.txt")

        self.list.row("one.txt").click()
        keys("ctrl+Return")
        self.program.wait_active()
        self.wait_path(self.program, f"{self.home}/a/")
        self.wait_names(self.program, ["one.txt"])
        self.close_clean(self.program)

    def test_lists_in_the_pane_and_ends_in_the_middle(self):
        everything = "a", "b", "one.txt", "one.txt", "pipe.txt", "two.txt"
        self.open()
        keys("Return")
        self.wait_rows(*everything)
        keys("Escape")
        self.program.wait_active()
        self.open()
        keys("Return")
        self.wait_rows(*everything)
        self.program.press("As a List in the Pane")
        self.program.wait_active()
        self.wait_names(self.program, sorted(everything))
        self.open()
        self.field("Look in")
        keys("slash", "Return")
        self.end_by(self.program)
