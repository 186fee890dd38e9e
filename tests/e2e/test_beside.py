"""Operations go on beside the user, one at a time on a volume, and outlive the window."""

from harness import EndToEndTest, keys, run, wait_for

TWIN = "a (2).txt"  # comes of a question that is answered by keeping both
MANY = 300


class BesideTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        self.source, self.target = self.home / "from", self.home / "to"
        for folder in (self.source / "later", self.target):
            folder.mkdir(parents=True)
        for name in ("a.txt", "b.txt"):
            (self.source / name).write_text(name)
        for number in range(MANY):
            (self.source / f"later/{number}").write_text(str(number))
        (self.target / "a.txt").write_text("old")

    def begin(self):
        """Copies a.txt, which asks, and so goes on for as long as the test wants."""
        program = self.start()
        program.files().enter("from")
        self.wait_path(program, self.source)
        program.files(2).enter("to")
        self.wait_path(program, self.target, 2)
        self.copy(program, "a.txt")
        program.control("Keep Both")
        return program

    def copy(self, program, name):
        program.select(name)
        keys("ctrl+c")
        program.files(2).row("a.txt").click(x=60)
        keys("ctrl+v")

    def put_aside(self, program):
        program.control("Answer Later").click()
        wait_for("the question to go", lambda: program.look("Keep Both") is None)
        wait_for("the title to tell of it", lambda: self.asks(program))

    def asks(self, program):
        return "Question - " in run("xdotool", "getwindowname", program.window())

    def deed(self, program, word, title):
        return program.control(f"{word}: Copying {title} to to")

    def check_copied(self, *names):
        for name in names:
            self.assertEqual((self.target / name).read_text(), (self.source / name).read_text())
        self.assertEqual((self.target / "a.txt").read_text(), "old")

    def test_browsing_waiting_and_answering_later(self):
        program = self.begin()
        self.put_aside(program)
        program.files().enter("later")
        self.wait_path(program, self.source / "later")
        program.wait_status(f"{MANY} items")
        keys("alt+Up")
        self.wait_path(program, self.source)
        self.copy(program, "b.txt")
        self.copy(program, "later")
        self.deed(program, "Move Up", '"later"').click()
        self.deed(program, "Take Away", '"later"')
        self.assertFalse((self.target / "b.txt").exists() or (self.target / "later").exists())
        keys("ctrl+j")
        self.deed(program, "Start Now", '"b.txt"').click()
        wait_for("b.txt", lambda: (self.target / "b.txt").exists())
        program.files(2).wait_has("b.txt")
        wait_for("its row to go", lambda: program.look('Copying "b.txt" to to') is None)
        self.deed(program, "Take Away", '"later"').click()
        self.deed(program, "Answer...", '"a.txt"').click()
        keys("alt+k")
        program.files(2).wait_has(TWIN)
        wait_for("the title to be as ever", lambda: not self.asks(program))
        self.close_clean(program)
        self.check_copied("b.txt")
        self.assertFalse((self.target / "later").exists())

    def test_closing_leaves_them_to_their_end(self):
        program = self.begin()
        self.put_aside(program)
        self.copy(program, "later")
        self.deed(program, "Start Now", '"later"')
        keys("ctrl+q")
        wait_for("the window to go", lambda: program.look("Files of pane 1") is None)
        self.assertTrue(self.marker.exists())
        saved = self.settings.stat().st_ino
        keys("ctrl+q", "Escape")
        self.deed(program, "Answer...", '"a.txt"').click()
        self.answer("Name Already Taken", "alt+k")
        self.assertEqual(program.wait_end(), 0)
        self.check_clean_end()
        self.assertEqual(self.settings.stat().st_ino, saved, "saved twice")
        self.assertTrue((self.target / TWIN).exists())
        self.check_copied(*(f"later/{number}" for number in range(MANY)))

    def test_signals_give_up_all(self):
        (self.target / "b.txt").write_text("old")
        for is_closed in (False, True):
            with self.subTest(is_closed=is_closed):
                self.settings.unlink(missing_ok=True)
                program = self.begin()
                self.put_aside(program)
                self.copy(program, "b.txt")
                self.copy(program, "later")
                self.deed(program, "Move Up", '"later"')  # waits
                self.deed(program, "Start Now", '"b.txt"').click()
                self.deed(program, "Answer...", '"b.txt"')
                if is_closed:
                    keys("ctrl+q")
                    wait_for("the window to go", lambda: program.look("Files of pane 1") is None)
                self.end_by(program)
                self.check_clean_end()
                self.assertEqual({path.read_text() for path in self.target.iterdir()}, {"old"})
