"""The window of the trash, and emptying it."""

from harness import EndToEndTest, List, keys, wait_for


class RecycleBinTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        self.data = self.folder / "data"
        self.trash = self.data / "Trash"
        for folder in ("files", "info"):
            (self.trash / folder).mkdir(parents=True)
        self.put("old.txt", self.home / "old.txt", 20)
        self.put("new.txt", self.home / "Gone/new.txt", 21)

    def put(self, name, path, day):
        (self.trash / "files" / name).write_text(name)
        (self.trash / "info" / f"{name}.trashinfo").write_text(
            f"[Trash Info]\nPath={path}\nDeletionDate=2026-11-{day}T10:00:00\n")

    def open(self, *names):
        self.program = self.start(environment={"XDG_DATA_HOME": str(self.data)})
        self.program.menu("Tools", "Recycle Bin")
        self.list = self.program.control("Recycle bin", kind=List)
        self.wait_rows(*names)

    def wait_rows(self, *names):
        """The trash of other volumes may hold something as well."""
        wait_for(f"rows {names}", lambda: [
            name for name in self.list.names() if name.endswith(".txt")] == list(names))

    def test_restores_and_deletes_by_mouse_and_keys(self):
        self.open("new.txt", "old.txt")
        (self.home / "old.txt").write_text("another")
        self.list.row("old.txt").click()
        keys("alt+r")
        self.program.press("Keep Both")
        wait_for("the copy", lambda: (self.home / "old (2).txt").exists())
        self.wait_rows("new.txt")
        self.assertEqual((self.home / "old.txt").read_text(), "another")
        self.assertEqual((self.home / "old (2).txt").read_text(), "old.txt")
        self.assertEqual([path.name for path in (self.trash / "info").iterdir()],
                         ["new.txt.trashinfo"])

        # Its folder is missing, which is asked about.
        self.list.row("new.txt").click()
        self.program.press("Restore")
        self.program.press("Make Folder")
        wait_for("the file", lambda: (self.home / "Gone/new.txt").exists())
        self.wait_rows()

        # What others put there shows at once.
        self.put("late.txt", self.home / "late.txt", 22)
        self.put("more.txt", self.home / "more.txt", 23)
        self.wait_rows("more.txt", "late.txt")
        self.list.row("late.txt").click()
        keys("m")  # into the filter
        self.wait_rows("more.txt")
        keys("Down", "ctrl+a", "Delete")
        self.program.control("Permanently Delete?")
        self.program.press("Delete")
        wait_for("the file to go", lambda: not (self.trash / "files/more.txt").exists())
        keys("Escape")
        self.program.wait_active()
        self.close_clean(self.program)
        self.assertTrue((self.trash / "files/late.txt").exists())

    def test_empties_after_a_question(self):
        (self.trash / "files/Folder/deep").mkdir(parents=True)
        self.program = self.start(environment={"XDG_DATA_HOME": str(self.data)})
        self.program.menu("Tools", "Empty Recycle Bin")
        self.program.message("for good?")
        is_own = self.program.find_message("3 items")
        keys("Return")  # the careful answer
        self.program.wait_active()
        self.assertTrue((self.trash / "files/old.txt").exists())
        if not is_own:
            self.skipTest("other volumes have a trash, which is not to be emptied")
        self.program.menu("Tools", "Empty Recycle Bin")
        self.program.message("3 items")
        self.program.press("Yes")
        wait_for("the trash to be empty", lambda: not any((self.trash / "files").iterdir()))
        self.assertEqual(list((self.trash / "info").iterdir()), [])
        # With nothing in it nothing is said.
        self.program.wait_active()
        self.program.menu("Tools", "Empty Recycle Bin")
        self.close_clean(self.program)

    def test_told_to_end_while_it_asks(self):
        for name, button in (("old.txt", "Delete..."), ("old.txt", "Empty..."),
                             ("new.txt", "Restore")):
            with self.subTest(button=button):
                self.open("new.txt", "old.txt")
                self.list.row(name).click()
                self.program.press(button)
                wait_for("a question", lambda: len(self.program.windows()) > 2)
                self.end_by(self.program)
                self.check_clean_end()
                self.assertTrue((self.trash / "files" / name).exists())
