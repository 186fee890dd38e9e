"""Commands that are typed, and the listing of a folder that goes to a file."""

import csv
import os
import re

from harness import EndToEndTest, keys, run, wait_for

# Runs a command that has no more rights on files than their permissions give, also under root.
PLAIN_USER = [] if os.geteuid() else ["setpriv", "--bounding-set=-dac_override,-dac_read_search"]


def name_of(field):
    """The bytes of a name, from a field of a listing."""
    return re.sub(rb"\\(?:x(..)|(.))", lambda mark: mark[2] or bytes.fromhex(mark[1].decode()),
                  field.removeprefix("'").encode())


class CommandLineTest(EndToEndTest):
    def script(self, path, command):
        path.write_text(f"#!/bin/sh\n{{ {command}; }} >>{self.folder}/log\n")
        path.chmod(0o755)
        return str(path)

    def type(self, text, *names):
        keys("ctrl+a")
        run("xdotool", "type", "--clearmodifiers", "--delay", 5, text)
        keys(*names)

    def wait_log(self, *lines):
        log = self.folder / "log"
        wait_for(f"the log to say {lines}",
                 lambda: log.exists() and log.read_text().splitlines() == list(lines))
        log.unlink()

    def test_runs_what_is_typed(self):
        (self.home / "sub").mkdir(mode=0o311)  # to be entered, and not read
        self.script(self.home / "tool", 'echo "$*" in "$PWD"')
        program = self.start(wrapper=PLAIN_USER, environment={
            "TERMINAL": self.script(self.folder / "terminal", 'shift; "$@"; echo closed'),
            "SHELL": self.script(self.folder / "shell", 'echo shell in "$PWD"')})
        program.control("Show/hide the command line.").click()
        program.control("Command line").click()
        self.type(" ./tool  -l 'a b'\"$HOME\" ", "Return")
        self.wait_log(f"-l a b$HOME in {self.home}", "closed")
        keys("shift+Return")
        self.wait_log(f"-l a b$HOME in {self.home}", f"shell in {self.home}", "closed")
        # In the folder that is clicked, and in the list's own for a file.
        for name, folder in (("sub", self.home / "sub"), ("tool", self.home)):
            windows = program.windows()
            program.files().row(name).click(x=24, button=3)
            wait_for("the menu", lambda windows=windows: program.windows() - windows)
            keys("l")
            self.wait_log(f"shell in {folder}", "closed")
        (self.home / "sub").chmod(0o755)
        program.control("Command line").click()
        self.type("sub", "Return")
        self.wait_path(program, self.home / "sub")
        self.assertNotIn("Z", run("ps", "--ppid", program.process.pid, "-o", "stat="))
        self.close_clean(program)

    def export(self, name):
        keys("alt+t", "x")
        wait_for("the dialog to be active", lambda: run(
            "xdotool", "getactivewindow", "getwindowname").startswith("Export File Listing"))
        self.type(str(name), "Return")

    def test_listing_leads_back_to_every_name(self):
        names = [b"=1+1", b"'q", b"a,b", b'c"d', b"e\nf", b"\\x41", b"\xff\xe4", "ä".encode()]
        for name in names:
            (self.home / os.fsdecode(name)).touch()
        self.program = self.start(wrapper=PLAIN_USER)
        self.program.files().click()
        self.export(self.folder / "out")
        listing = self.folder / "out.csv"
        wait_for("the listing", listing.exists)
        with open(listing, newline="", encoding="utf-8") as file:
            rows = list(csv.reader(file))
        self.assertEqual(rows[0], ["Name", "Extension", "Size", "Date Modified"])
        self.assertEqual(sorted(name_of(row[0]) for row in rows[1:]), sorted(names))
        # That folder is offered now, and a failure leaves what is there.
        before = listing.read_bytes()
        listing.chmod(0o444)
        self.program.wait_active()
        self.export("out.csv")
        self.program.dismiss("already exists", "alt+y")
        self.program.dismiss("There was a problem writing the folder / file listing")
        self.assertEqual(listing.read_bytes(), before)
        self.program.menu("Tools", "Export File Listing")
        self.answer("Export File Listing", "Escape")
        self.assertEqual(os.readlink(f"/proc/{self.program.process.pid}/cwd"), "/")
        self.close_clean(self.program)
