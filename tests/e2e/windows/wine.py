"""The Windows program under Wine: its C: drive as this machine sees it, keys, mouse, pictures.

Wine tells no screen reader of its windows: they are found by title, and what came of a step is looked
for on the disk, in the program's settings and in its log of messages.
"""

import os
import pathlib
import shutil
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parents[3]
PICTURES = ROOT / "build/windows-pictures"
DRIVE = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"
HOME = DRIVE / "Tarnwell"  # the folder that the program runs from
LOG, MARKER = HOME / "_MsgLog.txt", HOME / "run.txt"
PROGRAM = "C:\\Tarnwell\\tarnwell.exe"
FONTS = ("Segoe UI", "MS Shell Dlg", "MS Shell Dlg 2", "Tahoma")  # Wine has none of them
LIMIT = 20.0  # seconds for anything that the program is to do


def run(*words, binary=False):
    """The command's output, whether it succeeds or not."""
    output = subprocess.run([*map(str, words)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                            check=False, timeout=120).stdout
    return output if binary else output.decode(errors="replace").strip()


def windows(title="."):
    """The windows on the screen that have a title, or this one."""
    return run("xdotool", "search", "--onlyvisible", "--name", title).split()


def wait_for(what, condition):
    """The condition's first true value."""
    end = time.monotonic() + LIMIT
    while not (value := condition()):
        if time.monotonic() > end:
            shown = {run("xdotool", "getwindowname", each) for each in windows()}
            raise AssertionError(f"waited {LIMIT:.0f} s for: {what}; windows: {shown}")
        time.sleep(0.05)
    return value


def wait_logged(words):
    """Waits until the program has written this to its log since the last step, or message, began."""
    wait_for(f"{words!r} in the log", lambda: words.encode() in LOG.read_bytes()[seen:])


def leave_log():
    global seen
    seen = LOG.stat().st_size if LOG.exists() else 0


def still():
    """Waits until the picture on the screen has been the same for a while."""
    before, since = None, time.monotonic()
    end = since + LIMIT
    while time.monotonic() < end and (before is None or time.monotonic() - since < 0.6):
        now = run("import", "-window", "root", "rgb:-", binary=True)
        if now != before:
            before, since = now, time.monotonic()
        time.sleep(0.1)


def picture(name):
    """What is on the screen now, as build/windows-pictures/NN-name.png."""
    PICTURES.mkdir(parents=True, exist_ok=True)
    run("import", "-window", "root", PICTURES / f"{len(list(PICTURES.iterdir())) + 1:02}-{name}.png")


def colour(x, y):
    return run("import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-", binary=True)


def do(*acts):
    """One after the other: ">1" goes into the files of pane 1, "=abc" types, "@Title" waits for that
    window and brings it to the front, "-Title" waits until it is gone, "400,150,3" clicks there with button
    3, "." waits until the screen is still, "#name" takes a picture of that; all else are keys."""
    for act in acts:
        first, rest = act[0], act[1:]
        if act == ".":
            still()
        elif first == "#":
            still()
            picture(rest)
        elif first == "=":
            run("xdotool", "type", "--delay", 30, rest)
        elif first == ">":
            do("@Tarnwell", f"alt+{rest}", "Escape")
        elif first == "@":
            found = wait_for(f"window {rest!r}", lambda: windows(f"^{rest}$"))
            run("xdotool", "windowactivate", "--sync", found[-1])
        elif first == "-":
            wait_for(f"window {rest!r} to go", lambda: not windows(f"^{rest}$"))
        elif "," in act:
            x, y, button = act.split(",")
            run("xdotool", "mousemove", x, y, "click", button)
        else:
            run("xdotool", "key", "--clearmodifiers", "--delay", 60, act)


def prepare():
    """An empty Windows with the program in C:\\Tarnwell."""
    shutil.rmtree(PICTURES, ignore_errors=True)
    run("wineboot", "--init")
    for font in FONTS:
        run("wine", "reg", "add", "HKCU\\Software\\Wine\\Fonts\\Replacements", "/v", font, "/d",
            "DejaVu Sans", "/f")
    run("wine", "reg", "add", "HKCU\\Software\\Tarnwell\\Options", "/v", "Show Tips at Startup",
        "/t", "REG_DWORD", "/d", "0", "/f")
    shutil.copytree(ROOT / "build/windows/tarnwell", HOME)


def start(*folders):
    leave_log()
    subprocess.Popen(["wine", PROGRAM, *folders], env=dict(os.environ, TARNWELL_MSGLOG="1"),
                     stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for("the program's marker", MARKER.exists)
    wait_logged("Master\t\tWindowActivate")  # the splash has the same title
    do("@Tarnwell", ".")


seen = 0  # bytes of the log that earlier steps have left
