"""Drives the real program through the accessibility bus, as a screen reader would.

Run inside `dbus-run-session`; brings up its own X server and window manager."""

import os
import shutil
import signal
import struct
import subprocess
import tempfile
import time

PATIENCE = 60  # seconds to wait for what must appear


class Desktop:
    """An X server, a window manager and empty home folders, gone at the end."""

    def __init__(self, network_log=None):
        self.network_log = network_log

    def __enter__(self):
        self.home = tempfile.mkdtemp(prefix="oakfen-walk-")
        read_end, write_end = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1400x900x24",
             "-nolisten", "tcp", "-fbdir", self.home],
            pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as display:
            number = display.readline().strip()
        self.environment = {
            key: value for key, value in os.environ.items()
            if not key.startswith(("XDG_", "QT_", "OAKFEN_"))}
        self.environment.update(
            DISPLAY=f":{number}", HOME=self.home, LANG="en_CA.UTF-8",
            XDG_RUNTIME_DIR=self._folder("run"), XDG_DATA_HOME=self._folder("data"),
            XDG_CONFIG_HOME=self._folder("config"), XDG_STATE_HOME=self._folder("state"),
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1", QT_QPA_PLATFORM="xcb")
        os.environ["DISPLAY"] = self.environment["DISPLAY"]
        self.manager = subprocess.Popen(
            ["openbox", "--sm-disable"], env=self.environment, stderr=subprocess.DEVNULL)
        # A window that is there before its manager would never get the keyboard.
        eventually("the window manager", lambda: self._ask("get_num_desktops").returncode == 0)
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        shutil.rmtree(self.home, ignore_errors=True)

    def _folder(self, name):
        path = os.path.join(self.home, name)
        os.mkdir(path, 0o700)
        return path

    def data_file(self):
        return os.path.join(self.home, "data", "Tarnwick", "Library.tarnwick")

    def start(self, program, *arguments, **changes):
        """Starts the program; with `network_log` set, notes every call on sockets there. `changes`
        of the environment: a value, or None to leave a variable out."""
        command = [program, *arguments]
        if self.network_log:
            # -D: the program keeps the process id that signals are sent to.
            command = ["strace", "-D", "-f", "-A", "-o", self.network_log, "-e", "trace=network",
                       *command]
        environment = {key: value for key, value in (self.environment | changes).items()
                       if value is not None}
        return subprocess.Popen(command, env=environment)

    def await_keyboard(self):
        """Waits until the window manager sends the keys to the program's window."""
        eventually("the keyboard",
                   lambda: "Oakfen" in self._ask("getwindowfocus", "getwindowname").stdout)

    def activate(self, process):
        """Brings the window of this one of several programs to the front."""
        eventually("the window in front", lambda: self._ask(
            "search", "--all", "--onlyvisible", "--pid", str(process.pid), "--name", "Oakfen$",
            "windowactivate", "--sync").returncode == 0)
        self.await_keyboard()

    def _ask(self, *questions):
        return subprocess.run(["xdotool", *questions], env=self.environment, capture_output=True,
                              text=True, check=False)

    def key(self, *keys):
        """Presses keys in the window that has the focus."""
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], env=self.environment,
                       check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "5", text], env=self.environment, check=True)

    def brightness(self):
        """How bright the middle of the screen is, from 0 (black) to 1 (white)."""
        with open(os.path.join(self.home, "Xvfb_screen0"), "rb") as file:
            dump = file.read()
        # The header of an X window dump, then its colours of twelve bytes, then the pixels.
        fields = struct.unpack(">25I", dump[:100])
        header, width, height, line, colours = (fields[index] for index in (0, 4, 5, 12, 19))
        first = header + colours * 12
        values = []
        for row in range(height // 3, height * 2 // 3, 10):
            start = first + row * line
            values += dump[start + width // 3 * 4:start + width * 2 // 3 * 4]
        del values[3::4]  # of each pixel's four bytes the last says nothing
        return sum(values) / len(values) / 255

    def picture(self, path):
        """Takes a picture of the whole screen, for looking at a failure."""
        subprocess.run(["import", "-window", "root", path], env=self.environment, check=False)


def eventually(what, question):
    """The first true answer to the question; fails when there is none in time."""
    deadline = time.monotonic() + PATIENCE
    while True:
        try:
            answer = question()
        except Exception:  # the tree changes while it is read; look again
            answer = None
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {PATIENCE} s in vain for {what}")
        time.sleep(0.1)


def stop(process, how=signal.SIGTERM):
    process.send_signal(how)
    return process.wait(timeout=PATIENCE)
