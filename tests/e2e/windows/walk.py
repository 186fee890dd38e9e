"""The road of the Windows program: what a user does with it, by keys and mouse, and what goes wrong on the way.

Each step looks at what came of it, leaves a picture and says so; the first that fails ends the walk.
"""

import os
import subprocess
import sys

import wine
from wine import DRIVE, HOME, MARKER, colour, do, run, wait_for, wait_logged

WORK, OTHER, DEEP = DRIVE / "work", DRIVE / "other", DRIVE / "work/deep"
LONG = DRIVE / "long" / "/".join(letter * 50 for letter in "abcdef")  # more than 300 characters
NEW_FOLDER, RENAME, OPERATION, SKINS, FIND, OPTIONS, PROBLEM = (f"{name} - Tarnwell" for name in (
    "New Folder...", "Rename...", "File Operation...", "Skin Chooser...", "Find Files", "Options",
    "File Operation Problem"))
DELETION, EXPORT = "Confirm file deletion", "Export File Listing..."  # the shell's own
TITLE = (600, 80)  # a place in the title of the upper pane
# Keeps a file open that nobody else may open, move or delete, until a line is typed.
HOLDER = """#include <stdio.h>
#include <windows.h>
int main(void) {
  CreateFileA("C:\\\\work\\\\held.txt", GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, 0, NULL);
  return getchar() == EOF;
}"""


def wait_there(path):
    wait_for(f"{path}", path.exists)


def wait_written(path):
    wait_for(f"{path} to be written", lambda: path.exists() and path.stat().st_size)


def wait_gone(path):
    wait_for(f"{path} to go", lambda: not path.exists())


def enter(path, pane=1):
    """Goes up to the root of the drive, and down by names."""
    do(f">{pane}", *["BackSpace"] * 8, ".")
    for name in path.split("/"):
        do(f"={name}", "Return", ".")


def is_in(folder, pane=1):
    """A folder that F7 makes shows where the pane is."""
    made = folder / f"made {len(list(folder.iterdir()))}"
    do(f">{pane}", "F7", f"@{NEW_FOLDER}", f"={made.name}", "Return")
    wait_there(made)


def message(name):
    """Takes a picture of the message box and closes it."""
    wait_logged("popMsgBox\t\tShow")
    do(f"#{name}")
    wine.leave_log()
    do("Return")
    wait_logged("popMsgBox\tOK\tclicked")


def close():
    do("@Tarnwell", "ctrl+q", "-Tarnwell")
    wait_gone(MARKER)


def starts_with_two_panes():
    for folder in (DEEP / "deeper", WORK / "same", OTHER / "same", LONG):
        folder.mkdir(parents=True)
    for path, size in ((WORK / "alpha.txt", 10), (WORK / "beta.log", 300), (WORK / "big.txt", 5000),
                       (WORK / "gamma.txt", 70), (DEEP / "deeper/leaf.txt", 4),
                       (OTHER / "alpha.txt", 10), (LONG / "inside.txt", 4)):
        path.write_text("x" * size)
    os.utime(OTHER / "alpha.txt", (1.6e9, 1.6e9))
    wine.start("C:\\", "C:\\")


def goes_down_folders():
    enter("work")
    enter("other", pane=2)
    is_in(OTHER, pane=2)


def sorts_filters_and_exports():
    do(">1", "ctrl+Right", "ctrl+Right", "ctrl+shift+s", "ctrl+f", "=txt", "Return", "#sorted")
    do("alt+t", "x", f"@{EXPORT}", "ctrl+a", "=C:\\listing.csv", "Return", f"-{EXPORT}")
    wait_written(DRIVE / "listing.csv")
    rows = (DRIVE / "listing.csv").read_text().splitlines()
    assert [row.split(",")[0] for row in rows] == ["Name", "alpha.txt", "gamma.txt", "big.txt"], rows
    do(">1", "ctrl+f", "Escape")


def compares_and_copies_what_is_only_here():
    do(">1", "alt+t", "p")
    wait_logged("only here of pane 1\tShow")
    do("#compared", "ctrl+e", "Down", "space", "F5", f"@{OPERATION}", "Return", f"-{OPERATION}")
    for name in ("beta.log", "big.txt", "gamma.txt", "deep/deeper/leaf.txt"):
        wait_there(OTHER / name)
    assert (OTHER / "alpha.txt").stat().st_mtime == 1.6e9


def makes_and_renames_a_folder():
    do(">1", "F7", f"@{NEW_FOLDER}", "=fresh", "Return")
    wait_there(WORK / "fresh")
    do(">1", "=fresh", "F2", f"@{RENAME}", "ctrl+a", "=renamed", "Return")
    wait_there(WORK / "renamed")
    assert not (WORK / "fresh").exists()


def refuses_names_that_windows_does_not_take():
    before = sorted(WORK.iterdir())
    for name in ("CON", "tail.", "a:b"):
        do(">1", "F7", f"@{NEW_FOLDER}", f"={name}", "Return")
        message("refused")
        do(f"@{NEW_FOLDER}", "Escape", f"-{NEW_FOLDER}")
        wine.leave_log()
    assert sorted(WORK.iterdir()) == before


def duplicates_by_the_context_menu():
    do(">1", "=beta", "shift+F10", "#context-menu", "Down", "Down", "Down", "Return")
    wait_for("the duplicate", lambda: len(list(WORK.glob("beta*.log"))) == 2)


def moves_and_undoes():
    (OTHER / "gamma.txt").unlink()
    do(">1", "=gamma", "F6", f"@{OPERATION}", "Return", f"-{OPERATION}")
    wait_gone(WORK / "gamma.txt")
    do("#moved", ">1", "ctrl+z")
    wait_gone(OTHER / "gamma.txt")
    assert (WORK / "gamma.txt").stat().st_size == 70


def deletes_to_the_bin_after_the_question_of_the_shell():
    twin = next(WORK.glob("beta2*"))
    do(">1", "=beta2", ".", "Delete", f"@{DELETION}", "#asked", "Escape", f"-{DELETION}")
    assert twin.exists()
    do(">1", ".", "Delete", f"@{DELETION}", ".", "Return")
    wait_gone(twin)
    do(">1", ".", "ctrl+z")
    wait_there(twin)
    do(".", "ctrl+shift+z")  # nobody is asked again
    wait_gone(twin)


def sets_a_bookmark_by_mouse_and_goes_there():
    do(">1", "400,150,3", ".", "b", "#bookmarks", "Return", "Return", ".")  # the first row: "deep"
    do(">1", "BackSpace", "ctrl+1", ".")
    is_in(DEEP)


def tells_where_no_colours_are_kept():
    enter("work")
    do("alt+l", "c", "o", ">1", "=big", "shift+F10", ".", "e", "Down", "Down", "Return")
    message("no-colours")  # Wine has no streams
    message("told-once")
    assert (WORK / "big.txt").stat().st_size == 5000


def shows_the_properties_of_the_shell():
    do(">1", "=alpha", "alt+Return", "@Properties for alpha.txt", "#properties", "Escape")
    do("-Properties for alpha.txt")


def finds_files():
    do(">1", "ctrl+shift+f", f"@{FIND}", "=leaf", "Return", "#found")
    do("240,343,1", "ctrl+Return", ".", f"@{FIND}", "Escape", f"-{FIND}")  # the first result
    is_in(DEEP / "deeper")


def changes_options_and_skin():
    before = colour(*TITLE)
    do(">1", "alt+f", "o", f"@{OPTIONS}", "alt+w", "#options", "Return", f"-{OPTIONS}")
    do(">1", "alt+l", "s", f"@{SKINS}", "r", "Return", "#skins", "930,634,1", f"-{SKINS}")  # OK
    assert colour(*TITLE) != before


def starts_programs_by_the_command_line():
    enter("work")
    do("alt+l", "l", "o", ".", "960,788,1", "=cmd /c echo told> told.txt", "Return")
    wait_written(WORK / "told.txt")
    assert (WORK / "told.txt").read_text().strip() == "told"
    do(".", "600,420,1", ".")  # out of the text field, which keeps keys to itself


def leaves_what_another_program_holds():
    run("sh", "-c", f"printf %s '{HOLDER}' | x86_64-w64-mingw32-gcc -x c - -o '{DRIVE}/hold.exe'")
    with subprocess.Popen(["wine", "C:\\hold.exe"], stdin=subprocess.PIPE) as holder:
        wait_there(WORK / "held.txt")
        for key, answer in (("F6", "Return"), ("shift+Delete", "alt+d")):
            do(">1", "=held", ".", key, f"@{OPERATION}", answer, f"-{OPERATION}")
            do(f"@{PROBLEM}", "#held", f"@{PROBLEM}", "alt+s", f"-{PROBLEM}")
            assert (WORK / "held.txt").exists() and not (OTHER / "held.txt").exists()
        holder.communicate(b"\n")


def hands_a_long_folder_to_the_running_copy():
    run("wine", wine.PROGRAM, "C:\\" + str(LONG.relative_to(DRIVE)).replace("/", "\\"))
    do("#long")
    for key, answer in (("F5", "Return"), ("shift+Delete", "alt+d")):
        do(">1", "=inside", ".", key, f"@{OPERATION}", answer, f"-{OPERATION}")
        do(f"@{PROBLEM}", "#too-long", f"@{PROBLEM}", "alt+s", f"-{PROBLEM}")
    assert (LONG / "inside.txt").read_text() == "xxxx"


def keeps_its_settings():
    enter("work")
    do("ctrl+1", ".")
    title = colour(*TITLE)
    close()
    settings = (HOME / "user.usr").read_text(errors="replace").lower()
    assert '"roxy"' in settings and '"c:\\work\\deep' in settings, settings
    wine.start()
    assert colour(*TITLE) == title
    is_in(DEEP)
    is_in(OTHER, pane=2)
    enter("work")
    do("ctrl+1", ".")
    is_in(DEEP)


def tells_its_version():
    close()
    assert run("wine", wine.PROGRAM, "--version").startswith("tarnwell ")


STEPS = (starts_with_two_panes, goes_down_folders, sorts_filters_and_exports,
         compares_and_copies_what_is_only_here, makes_and_renames_a_folder,
         refuses_names_that_windows_does_not_take, duplicates_by_the_context_menu, moves_and_undoes,
         deletes_to_the_bin_after_the_question_of_the_shell, sets_a_bookmark_by_mouse_and_goes_there,
         tells_where_no_colours_are_kept, shows_the_properties_of_the_shell, finds_files,
         changes_options_and_skin, starts_programs_by_the_command_line,
         leaves_what_another_program_holds, hands_a_long_folder_to_the_running_copy,
         keeps_its_settings, tells_its_version)

wine.prepare()
for step in STEPS:
    name = step.__name__
    wine.leave_log()
    try:
        step()
    except (AssertionError, OSError, subprocess.SubprocessError) as failure:
        wine.picture("failed")
        sys.exit(f"FAILED: {name.replace('_', ' ')}: {failure!r}")
    do("#" + name.replace("_", "-"))
    print("passed:", name.replace("_", " "), flush=True)
