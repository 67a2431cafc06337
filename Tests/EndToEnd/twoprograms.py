#!/usr/bin/python3
"""Two programs on one data file: a second start raises the first from whatever environment it comes;
and where there are no locks, neither overwrites what the other wrote.

Usage: dbus-run-session -- twoprograms.py PROGRAM"""

import glob
import json
import os
import signal
import sys

import accessibility as screen
from desktop import Desktop, PATIENCE, eventually, stop


def accounts_in(path):
    with open(path, encoding="utf-8") as file:
        return {account["name"] for account in json.load(file)["accounts"]}


def set_aside(desktop, kind):
    folder = os.path.dirname(desktop.data_file())
    return sorted(glob.glob(os.path.join(folder, f"Library.{kind}-*.tarnwick")))


def begin(desktop, program):
    first = desktop.start(program)
    screen.watch(first)
    screen.press("Start Fresh")
    screen.press("Don’t Use a Password")
    screen.find("label", "Keep your data unencrypted?")
    screen.press("Don’t Use a Password")
    screen.find("tree", "Screens and accounts")
    eventually("the data file", lambda: os.path.exists(desktop.data_file()))
    return first


def add_account(desktop, process, name):
    screen.watch(process)
    desktop.activate(process)
    desktop.key("ctrl+shift+n")
    screen.write(desktop, "Name", name)
    screen.press("Add Account", within="New Account")
    screen.find("label", name)


def second_starts_raise_the_first(desktop, program, first):
    open_folder = os.path.join(desktop.home, "open-run")
    os.mkdir(open_folder, 0o755)
    # What remains of the environment in a start by cron, su or a container.
    bare = {name: None for name in desktop.environment
            if name not in ("DISPLAY", "HOME", "XDG_DATA_HOME")}
    for changes in ({}, bare, {"XDG_RUNTIME_DIR": None}, {"XDG_RUNTIME_DIR": open_folder},
                    {"XDG_RUNTIME_DIR": None, "XDG_CONFIG_HOME": None, "LANG": None}):
        second = desktop.start(program, **changes)
        assert second.wait(timeout=PATIENCE) == 0, f"a start with {changes} opened the file too"
    assert first.poll() is None


def without_locks(desktop):
    """As on a file system that knows none: the lock's file can't be made."""
    lock = os.path.join(os.path.dirname(desktop.data_file()), ".Library.tarnwick.lock")
    if os.path.isfile(lock):
        os.remove(lock)
        os.mkdir(lock)


def neither_overwrites_the_other(desktop, program):
    first = desktop.start(program)
    screen.watch(first)
    screen.find("tree", "Screens and accounts")
    second = desktop.start(program)
    add_account(desktop, second, "From the second")
    eventually("the second's save",
               lambda: "From the second" in accounts_in(desktop.data_file()))
    add_account(desktop, first, "From the first")
    screen.press("Keep This Version")
    eventually("the first's save", lambda: "From the first" in accounts_in(desktop.data_file()))
    kept, = set_aside(desktop, "other")
    assert "From the second" in accounts_in(kept)

    # The second one is told in its turn, and ends before it decides.
    add_account(desktop, second, "Once more from the second")
    screen.find("push button", "Open the Other Version")
    assert stop(second, signal.SIGTERM) == 0
    assert "From the first" in accounts_in(desktop.data_file())
    unsaved, = set_aside(desktop, "unsaved")
    assert "Once more from the second" in accounts_in(unsaved)
    assert stop(first, signal.SIGTERM) == 0

    third = desktop.start(program)
    screen.watch(third)
    eventually("the word on the changes kept beside", lambda: any(
        "kept beside it" in (node.name or "") for node in screen.everything(screen.application())))
    assert not set_aside(desktop, "unsaved")
    assert len(set_aside(desktop, "other")) == 2
    assert stop(third, signal.SIGTERM) == 0


def main():
    program = sys.argv[1]
    with Desktop() as desktop:
        first = begin(desktop, program)
        second_starts_raise_the_first(desktop, program, first)
        assert stop(first, signal.SIGTERM) == 0
        without_locks(desktop)
        neither_overwrites_the_other(desktop, program)
    print("Nothing was overwritten.")


if __name__ == "__main__":
    main()
