"""The message log tells what happened, never what was typed or shown; unset there is none."""

import os
import re

from harness import Atspi, EndToEndTest, keys, run, wait_for


class MessageLogTest(EndToEndTest):
    def test_it_names_what_happened_and_nothing_of_the_users(self):
        (self.home / "harvest").mkdir()
        (self.home / "harvest/apple.txt").write_text("pear")
        log = self.own / "_MsgLog.txt"
        self.assertEqual(self.start().close(), 0)
        self.assertFalse(log.exists())

        os.environ["TARNWELL_MSGLOG"] = "1"
        self.addCleanup(os.environ.pop, "TARNWELL_MSGLOG")
        program = self.start()
        program.files().enter("harvest")
        self.wait_names(program, ["apple.txt"])
        program.select("apple.txt")
        keys("F2")
        wait_for("the dialog", lambda: program.look("Rename...", Atspi.Role.DIALOG))
        wait_for("it to be active", lambda: program.active_window() and not program.window())
        run("xdotool", "type", "quince")
        keys("Return")
        self.wait_names(program, ["applequince.txt"])
        self.assertEqual(program.close(), 0)

        text = log.read_text()
        told = iter(line.split("\t", 1)[1] for line in text.splitlines()[1:])
        for line in ["Tarnwell\t\tstart, Qt", "Master\tFiles of pane 1\tOpenChildFolder",
                     "Master\tFolders of pane 1\tFolderSelected", "Master\t\tShortcutOverride F2",
                     "popRename\tNew Name:\tKeyPress key", "popRename\tNew Name:\ttextChanged",
                     "popRename\t\tHide", "Master\t\tClose", "Tarnwell\t\tend"]:
            self.assertTrue(any(each.startswith(line) for each in told), f"{line!r} in its turn")
        self.assertIsNone(re.search("harvest|apple|pear|quince", text))
