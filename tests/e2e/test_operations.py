"""Items are renamed and deleted by keys, and nothing else on the disk changes."""

from harness import EndToEndTest, keys, wait_for


class OperationsTest(EndToEndTest):
    def test_rename_and_delete(self):
        for name in ("keep.txt", "old.tar.gz", "waste"):
            (self.home / name).write_text(name)
        (self.home / "full/deep").mkdir(parents=True)
        (self.home / "full/link").symlink_to(self.home / "keep.txt")
        program = self.start()
        program.select("old.tar.gz")
        keys("F2")
        self.answer("Rename", "x", "Escape")
        self.assertTrue((self.home / "old.tar.gz").exists())
        # The caret stands before the last dot, and the rest stays.
        keys("F2")
        self.answer("Rename", "x", "Return")
        self.wait_names(program, ["keep.txt", "old.tarx.gz", "waste", "full"])
        self.assertEqual((self.home / "old.tarx.gz").read_text(), "old.tar.gz")
        program.select("waste")
        keys("F2")
        self.answer("Rename", "ctrl+a", "k", "e", "e", "p", "period", "t", "x", "t", "Return")
        program.dismiss("an item of this name already")
        self.answer("Rename", "Escape")  # it comes again with what was typed
        self.assertEqual((self.home / "keep.txt").read_text(), "keep.txt")

        for name in ("waste", "full"):
            program.select(name)
            keys("shift+Delete")
            self.answer("File Operation", "Return")
            self.assertTrue((self.home / name).exists())
            keys("shift+Delete")
            self.answer("File Operation", "alt+d")
            wait_for(f"{name} to go", lambda: not (self.home / name).exists())
        self.wait_names(program, ["keep.txt", "old.tarx.gz"])
        program.select("old.tarx.gz")
        keys("Delete")
        program.dismiss("to the trash?", "Escape")
        self.assertTrue((self.home / "old.tarx.gz").exists())
        self.close_clean(program)
        self.assertEqual((self.home / "keep.txt").read_text(), "keep.txt")
