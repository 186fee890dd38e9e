"""Files are copied and cut in lists and pasted there, to and from other programs' clipboards."""

import subprocess

from harness import EndToEndTest, keys, run, wait_for

MARKED = "x-special/gnome-copied-files"


def clipboard(kind):
    return run("xclip", "-selection", "clipboard", "-o", "-t", kind)


def put(kind, text):
    """What another program puts on the clipboard, and holds until the next one does."""
    subprocess.run(["xclip", "-selection", "clipboard", "-t", kind], input=text.encode(),
                   stdout=subprocess.DEVNULL, check=True)


class ClipboardTest(EndToEndTest):
    def test_keys_work_with_other_programs(self):
        for name in ("one.txt", "two.txt"):
            (self.home / name).write_text(name)
        (self.home / "into").mkdir()
        away = self.folder / "away"
        away.mkdir()
        odd = bytes(away) + b"/odd \xff%.txt"
        with open(odd, "wb") as file:
            file.write(b"odd")
        program = self.start()
        program.select("one.txt")
        keys("ctrl+c")
        wait_for("the copy on the clipboard",
                 lambda: clipboard(MARKED) == f"copy\nfile://{self.home}/one.txt")
        keys("ctrl+v")  # in its own folder
        program.files().wait_has("one (2).txt")

        program.select("two.txt")
        keys("ctrl+x")
        wait_for("the cut on the clipboard", lambda: clipboard(MARKED).startswith("cut\n"))
        wait_for("the cut row to be dimmed",
                 lambda: program.files().row("two.txt").description == "cut")
        program.files().enter("into")
        self.wait_path(program, self.home / "into")
        keys("ctrl+v")
        self.wait_names(program, ["two.txt"])
        self.assertFalse((self.home / "two.txt").exists())
        wait_for("the clipboard to be empty", lambda: clipboard(MARKED) == "")
        self.assertEqual(program.files().row("two.txt").description, "")

        put(MARKED, f"cut\nfile://{away}/odd%20%FF%25.txt")
        keys("ctrl+v")
        wait_for("the odd name", lambda: len(program.files().names()) == 2)
        self.assertEqual(list(away.iterdir()), [])
        put("text/uri-list", f"file://{self.home}/one.txt\r\nhttps://example.org/\r\n")
        keys("ctrl+v")
        program.dismiss("no file of this computer")
        program.files().wait_has("one.txt")
        self.assertTrue((self.home / "one.txt").exists())
        self.close_clean(program)

    def test_the_program_ends_over_an_open_menu(self):
        (self.home / "one.txt").write_text("1")
        program = self.start()
        program.select("one.txt")
        windows = program.windows()
        keys("Menu")
        wait_for("the menu", lambda: program.windows() - windows)
        self.end_by(program)
        self.check_clean_end()
