"""A server that does not answer keeps neither the window nor the end of the program."""

import contextlib
import getpass
import os
import pathlib
import signal
import socket
import subprocess
import time

from harness import START_LIMIT, Atspi, EndToEndTest, click_close, keys, wait_for


class Server:
    """An ssh server of our own on the loopback address, whose folder is mounted at `place`."""

    def __init__(self, folder, shown, place):
        folder.mkdir()
        for name in ("host", "user"):
            subprocess.run(["ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", folder / name],
                           check=True)
        with contextlib.closing(socket.create_server(("127.0.0.1", 0))) as free:
            port = free.getsockname()[1]
        pathlib.Path("/run/sshd").mkdir(exist_ok=True)  # where it locks itself in
        self.process = subprocess.Popen(
            ["/usr/sbin/sshd", "-D", "-e", "-f", "/dev/null", "-h", folder / "host",
             "-p", str(port), "-o", "ListenAddress=127.0.0.1", "-o", "PidFile=none",
             "-o", f"AuthorizedKeysFile={folder}/user.pub", "-o", "StrictModes=no",
             "-o", "PermitRootLogin=yes", "-o", "Subsystem=sftp internal-sftp"],
            stderr=subprocess.DEVNULL)
        options = [f"port={port}", f"IdentityFile={folder}/user", "UserKnownHostsFile=/dev/null",
                   "StrictHostKeyChecking=no", "dir_cache=no", "attr_timeout=0", "entry_timeout=0"]
        self.place = place
        wait_for("the share to be mounted", lambda: subprocess.run(
            ["sshfs", "-o", ",".join(options), f"{getpass.getuser()}@127.0.0.1:{shown}", place],
            stderr=subprocess.DEVNULL, check=False).returncode == 0)

    def signal(self, number):
        """To the server, and to what it has begun for those who are connected."""
        waiting = [self.process.pid]
        while waiting:
            each = waiting.pop()
            for task in pathlib.Path(f"/proc/{each}/task").glob("*/children"):
                waiting += map(int, task.read_text().split())
            os.kill(each, number)

    def end(self):
        self.signal(signal.SIGCONT)
        subprocess.run(["fusermount", "-uz", self.place], check=False)
        self.process.terminate()
        self.process.wait()


class FarPlacesTest(EndToEndTest):
    def test_silent_server_freezes_nothing(self):
        for name in ("near/here", "share"):
            (self.home / name).mkdir(parents=True)
        shown = self.folder / "shown"
        (shown / "sub").mkdir(parents=True)
        (shown / "sub/two").touch()
        server = Server(self.folder / "server", shown, self.home / "share")
        self.addCleanup(server.end)
        program = self.start()
        # First of all: a process has no end while the system waits for the server.
        self.addCleanup(server.signal, signal.SIGCONT)
        program.files().enter("share")
        self.wait_names(program, ["sub"])

        program.select("sub")
        server.signal(signal.SIGSTOP)
        self.ask_in_vain(program)
        program.files(2).enter("near")
        self.wait_path(program, self.home / "near", 2)
        self.wait_names(program, ["here"], 2)
        program.files().row("sub").click(x=60)
        keys("Escape")
        program.wait_status("127.0.0.1 does not answer", of="folders")

        server.signal(signal.SIGCONT)
        program.files().enter("sub")
        self.wait_path(program, self.home / "share/sub")
        self.wait_names(program, ["two"])
        self.close_while_silent(program, server)

        # What was open there is asked for at the start.
        server.signal(signal.SIGSTOP)
        program = self.launch()
        self.addCleanup(server.signal, signal.SIGCONT)
        program.press("Cancel")
        program.wait_shown()
        self.close_while_silent(program, server)

    def ask_in_vain(self, program):
        """Opens the row, and is left waiting for the server."""
        def waits():
            keys("Return")
            end = time.monotonic() + 2
            while time.monotonic() < end and "Waiting for" not in program.status("folders"):
                time.sleep(0.05)
            return "Waiting for 127.0.0.1" in program.status("folders")

        # The server may have stopped while something was looked at in passing; after that it is
        # not asked again for a while.
        wait_for("the list to wait", waits, START_LIMIT)

    def close_while_silent(self, program, server):
        server.signal(signal.SIGSTOP)
        keys("ctrl+r")
        click_close(program.control("Tarnwell", Atspi.Role.FRAME))
        wait_for("the windows to go", lambda: not program.windows())
        wait_for("the settings to be kept", lambda: not self.marker.exists())
        self.check_clean_end()
        server.signal(signal.SIGCONT)
        self.assertEqual(program.wait_end(), 0)
