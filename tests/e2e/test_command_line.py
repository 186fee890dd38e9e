"""Commands that are typed, and the listing of a folder that goes to a file."""

import csv
import os
import pathlib
import re
import shutil
import tempfile

from harness import EndToEndTest, keys, run, wait_for

# Runs a command that has no more rights on files than their permissions give, also under root.
PLAIN_USER = [] if os.geteuid() else ["setpriv", "--bounding-set=-dac_override,-dac_read_search"]

LONG = "longer-than-the-command-line-shows-as-a-whole"


def type_text(text):
    run("xdotool", "type", "--clearmodifiers", "--delay", 5, text)


def name_of(field):
    """The bytes of a name, from a field of a listing."""
    return re.sub(rb"\\(?:x(..)|(.))", lambda mark: mark[2] or bytes.fromhex(mark[1].decode()),
                  field.removeprefix("'").encode())


class CommandLineTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        self.log = self.folder / "log"
        self.environment = {"TERMINAL": self.script("terminal", 'shift; "$@"; echo closed'),
                            "SHELL": self.script("shell", 'echo shell in "$PWD"')}
        # Short, and where no other test has its folders.
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="t", dir="/var/tmp"))
        self.addCleanup(shutil.rmtree, self.home)
        (self.home / "sub" / LONG).mkdir(parents=True)
        self.script(self.home / "tool", 'echo "$*" in "$PWD"')

    def script(self, name, command):
        path = self.folder / name
        path.write_text(f"#!/bin/sh\n{{ {command}; }} >>{self.log}\n")
        path.chmod(0o755)
        return str(path)

    def wait_log(self, *lines):
        text = "".join(f"{line}\n" for line in lines)
        wait_for(f"the log to say {text!r}",
                 lambda: self.log.exists() and self.log.read_text() == text)
        self.log.unlink()

    def test_runs_what_is_typed(self):
        program = self.start(environment=self.environment)
        program.control("Show/hide the command line.").click()
        program.control("Command line").click()
        type_text(" ./tool  -l 'a b'\"$HOME\" ")
        keys("Return")
        self.wait_log(f"-l a b$HOME in {self.home}", "closed")
        keys("shift+Return")
        self.wait_log(f"-l a b$HOME in {self.home}", f"shell in {self.home}", "closed")

        keys("ctrl+a")
        type_text("./tool 'open")
        keys("Return", "ctrl+a")
        type_text("sub")
        keys("Return")
        self.wait_path(program, self.home / "sub")
        type_text("..")  # the folder has emptied the box
        keys("Return")
        self.wait_path(program, self.home)
        # A path that is shown in part leads nowhere.
        type_text(f"sub/{LONG}")
        keys("Return")
        self.wait_path(program, self.home / "sub" / LONG)
        type_text(f"{self.home}/tool x")
        keys("Return")
        program.files().click()
        keys("BackSpace")
        self.wait_path(program, self.home / "sub")
        program.control("Command line").click()
        type_text("../tool y")
        keys("Return")
        self.wait_log(f"y in {self.home}/sub", "closed")
        program.files().click()
        keys("BackSpace")
        self.wait_path(program, self.home)

        # In the folder that is clicked, and in the list's own for a file.
        for name, folder in (("sub", self.home / "sub"), ("tool", self.home)):
            windows = program.windows()
            program.files().row(name).click(x=24, button=3)
            wait_for("the menu", lambda windows=windows: program.windows() - windows)
            keys("l")
            self.wait_log(f"shell in {folder}", "closed")
        children = run("ps", "--ppid", program.process.pid, "-o", "stat=").split()
        self.assertFalse([state for state in children if "Z" in state], "zombies are left")
        self.close_clean(program)

    def ask_for_listing(self, program, name, *names):
        """By the keys of the menu; then types the name, and presses the keys."""
        keys("alt+t", "x")
        wait_for("the dialog", lambda: program.look("Export File Listing..."))
        if name:
            keys("ctrl+a")
            type_text(str(name))
        self.answer("Export File Listing", *names)

    def test_listing_leads_back_to_every_name(self):
        names = [b"=1+1", b"'q", b"a,b", b'c"d', b"e\nf", b"\\x41", b"\xff\xe4", "ä".encode()]
        for name in names:
            (self.home / os.fsdecode(name)).touch()
        kept = self.folder / "kept"
        kept.mkdir(mode=0o555)
        program = self.start(wrapper=PLAIN_USER)
        program.files().click()
        target = self.folder / "out"
        self.ask_for_listing(program, target, "Return")
        listing = self.folder / "out.csv"
        wait_for("the listing", listing.exists)
        with open(listing, newline="", encoding="utf-8") as file:
            rows = list(csv.reader(file))
        self.assertEqual(rows[0], ["Name", "Extension", "Size", "Date Modified"])
        found = [name_of(row[0]) for row in rows[1:]]
        self.assertEqual(sorted(found), sorted([*names, b"sub", b"tool"]))
        self.assertEqual(os.readlink(f"/proc/{program.process.pid}/cwd"), "/")

        # The last folder is offered, and no failure touches what is there.
        before = listing.read_bytes()
        listing.chmod(0o444)
        self.ask_for_listing(program, "out.csv", "Return", "alt+y")
        program.dismiss("There was a problem writing the folder / file listing")
        self.ask_for_listing(program, kept / "new", "Return")
        program.dismiss("There was a problem writing the folder / file listing")
        self.assertEqual((listing.read_bytes(), os.listdir(kept)), (before, []))
        program.menu("Tools", "Export File Listing")
        self.answer("Export File Listing", "Escape")
        self.close_clean(program)
