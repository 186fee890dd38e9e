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
BUILT = ROOT / "build/windows/tarnwell"
PICTURES = ROOT / "build/windows-pictures"
PREFIX = pathlib.Path(os.environ["WINEPREFIX"])
DRIVE = PREFIX / "drive_c"
HOME = DRIVE / "Tarnwell"  # the folder that the program runs from

LIMIT = 20.0  # seconds for anything that the program is to do


def run(*words):
    """The command's output, whether it succeeds or not."""
    return subprocess.run([*map(str, words)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True, check=False, timeout=120).stdout.strip()


def wait_for(what, condition, limit=LIMIT):
    end = time.monotonic() + limit
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            picture("failed")
            raise AssertionError(f"waited {limit:.0f} s for: {what}; windows: {windows()}")
        time.sleep(0.05)


def windows():
    """The titles of all windows on the screen."""
    ids = run("xdotool", "search", "--onlyvisible", "--name", ".").split()
    return {name for name in (run("xdotool", "getwindowname", each) for each in ids) if name}


def wait_window(title):
    return wait_for(f"window {title!r}", lambda: run(
        "xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split())[-1]


def wait_no_window(title):
    wait_for(f"window {title!r} to go", lambda: title not in windows())


def keys(*names):
    run("xdotool", "key", "--clearmodifiers", "--delay", 60, *names)


def text(words):
    run("xdotool", "type", "--delay", 30, words)


def click(x, y, button=1, times=1):
    run("xdotool", "mousemove", x, y, "click", "--repeat", times, "--delay", 60, button)


def still():
    """Waits until the picture on the screen has been the same for a while."""
    before, since = None, time.monotonic()
    end = since + LIMIT
    while time.monotonic() < end:
        now = subprocess.run(["import", "-window", "root", "rgb:-"], stdout=subprocess.PIPE,
                             check=False).stdout
        if now != before:
            before, since = now, time.monotonic()
        elif time.monotonic() - since > 0.6:
            return
        time.sleep(0.1)


count = 0


def picture(name):
    """What is on the screen now, as build/windows-pictures/NN-name.png."""
    global count
    count += 1
    PICTURES.mkdir(parents=True, exist_ok=True)
    run("import", "-window", "root", PICTURES / f"{count:02}-{name}.png")


def prepare():
    """An empty Windows with the program in C:\\Tarnwell."""
    shutil.rmtree(PICTURES, ignore_errors=True)
    run("wineboot", "--init")
    shutil.copytree(BUILT, HOME)


def start(*folders):
    environment = dict(os.environ, TARNWELL_MSGLOG="1")
    return subprocess.Popen(["wine", str(HOME / "tarnwell.exe"), *folders], env=environment,
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
