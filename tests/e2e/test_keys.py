"""Keys reach the form, its lists, its menus and its toolbar, each what is meant for it."""

from harness import Atspi, Control, EndToEndTest, click_close, keys, run, wait_for


class KeysTest(EndToEndTest):
    def test_keys_go_where_they_are_meant_for(self):
        (self.home / "box/deep").mkdir(parents=True)
        (self.home / "box/deep/file").write_bytes(b"x" * 4321)
        (self.home / "box/one.txt").write_text("1")
        program = self.start()
        files = program.files()
        files.enter("box")
        self.wait_names(program, ["deep", "one.txt"])
        keys("ctrl+a")
        program.wait_status("2 selected")

        # What is typed in a field stays there.
        field = program.control("Filter of pane 1")
        field.click()
        run("xdotool", "type", "one")
        self.wait_names(program, ["one.txt"])
        keys("ctrl+a", "Delete")
        self.wait_names(program, ["deep", "one.txt"])
        keys("Escape")
        wait_for("the keyboard to be in the file list", lambda: files.has("FOCUSED"))

        # The filter and the drives of the active pane have keys of their own.
        keys("ctrl+f")
        wait_for("the keyboard to be in the filter", lambda: field.has("FOCUSED"))
        keys("Down", "F4", "Escape")
        wait_for("the keyboard to be at the drives",
                 lambda: program.control("Drives of pane 1").has("FOCUSED"))
        files.row("one.txt").click(x=60)

        # F3 measures what the pointer rests on, whatever has the cursor.
        folder = files.row("deep").place()
        run("xdotool", "mousemove", folder.x + 60, folder.y + folder.height // 2)
        keys("F3")
        wait_for("the size of the folder", lambda: "4,321" in [
            Atspi.Table.get_accessible_at(files.node, 0, column).get_name()
            for column in range(Atspi.Table.get_n_columns(files.node))])

        # Commands go by the places of the keys where a layout has no Latin letters (A, then F).
        run("setxkbmap", "ru")
        self.addCleanup(run, "setxkbmap", "us")
        keys("ctrl+38")
        program.wait_status("2 selected")
        keys("ctrl+41")
        wait_for("the keyboard to be in the filter", lambda: field.has("FOCUSED"))
        keys("Escape")
        run("setxkbmap", "us")

        # What comes up elsewhere is not held any more: Space by the arrows, Shift by the commands.
        def visit(title, *down):
            run("xdotool", *down)
            dialog = wait_for(title, lambda: program.look(title, Atspi.Role.DIALOG))
            wait_for("it to be active", lambda: not program.window())
            run("xdotool", "keyup", "space", "keyup", "shift")
            click_close(Control(dialog))
            program.wait_active()

        files.row("deep").click(x=60)
        visit("Rename...", "keydown", "space", "key", "F2")
        keys("Home", "Down")
        program.wait_status("1 selected, 1 byte.")
        visit("File Operation...", "keydown", "shift", "key", "Delete")
        visit("Rename...", "key", "F2")

        # The menu by its access keys; the toolbar is one stop, with arrows from there.
        keys("alt+p", "5")
        wait_for("pane 5 to open", lambda: program.is_open(5))
        button = program.button(1)
        for _ in range(40):
            if button.has("FOCUSED"):
                break
            keys("Tab")
        keys("Right", "Right", "space")
        wait_for("pane 3 to open", lambda: program.is_open(3))
        self.assertTrue(program.button(3).has("CHECKED"))
        self.close_clean(program)

    def test_the_window_has_keys_of_its_own(self):
        for name in ("one/deep/file", "one/444", "one/45", "two/other"):
            (self.home / name).parent.mkdir(parents=True, exist_ok=True)
            (self.home / name).write_text(name)
        program = self.start()

        def wait_keyboard(pane):
            wait_for(f"the keyboard in pane {pane}", lambda: program.files(pane).has("FOCUSED"))

        # A pane opens by its key, and never closes by it.
        for pane in (3, 2, 2):
            keys(f"alt+{pane}")
            wait_keyboard(pane)
        program.files(2).enter("two")
        self.wait_names(program, ["other"], 2)
        program.files(1).enter("one")
        self.wait_names(program, ["deep", "444", "45"])

        # A menu that is up and a field have the keys for themselves.
        keys("ctrl+f", "alt+Left", "F7", "ctrl+Tab", "Escape")
        wait_keyboard(1)
        windows = program.windows()
        keys("shift+F10")
        wait_for("the menu", lambda: program.windows() - windows)
        keys("F7", "ctrl+Tab", "Escape")
        wait_for("the menu to go", lambda: program.windows() == windows)
        self.assertEqual(program.path(), f"{self.home}/one/")

        run("xdotool", "type", "444")
        program.wait_status("Find: 444")
        keys("F6")
        self.answer("File Operation", "Return")
        self.wait_names(program, ["other", "444"], 2)
        self.wait_names(program, ["deep", "45"])
        keys("F7")
        self.answer("New Folder", *"made", "Return")
        self.wait_names(program, ["deep", "45", "made"])
        windows = program.windows()
        keys("ctrl+Right", "ctrl+shift+s", "F10", "Escape")
        program.wait_active()
        keys("F1")  # from the menu bar
        wait_for("the help", lambda: program.windows() - windows)
        keys("Escape")
        program.wait_active()
        self.close_clean(program)
