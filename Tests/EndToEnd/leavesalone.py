#!/usr/bin/python3
"""What the program must not touch: the person's own files while it shows the sample, and a named file
that is no data file.

Usage: dbus-run-session -- leavesalone.py PROGRAM"""

import os
import sys

import accessibility as screen
from desktop import Desktop, PATIENCE, stop

OWN_FOLDERS = ("data", "config", "state")


def own_files(desktop):
    return [os.path.join(folder, name) for own in OWN_FOLDERS
            for folder, _, names in os.walk(os.path.join(desktop.home, own)) for name in names]


def the_sample_touches_nothing(desktop, program):
    process = desktop.start(program, "--sample")
    screen.watch(process)
    screen.find("tree", "Screens and accounts")
    desktop.activate(process)
    desktop.key("F9")  # hides the sidebar, which the window would remember
    assert stop(process) == 0
    assert not own_files(desktop), own_files(desktop)


def a_named_file_stays(desktop, program, name, contents, button):
    folder = os.path.join(desktop.home, "documents")
    os.makedirs(folder, exist_ok=True)
    path = os.path.join(folder, name)
    with open(path, "wb") as file:
        file.write(contents)
    process = desktop.start(program, path)
    screen.watch(process)
    screen.find("label", f"“{name}” isn’t an Oakfen data file")
    screen.press(button)
    assert process.wait(timeout=PATIENCE) == 1
    with open(path, "rb") as file:
        assert file.read() == contents
    assert os.listdir(folder) == [name], os.listdir(folder)
    assert not own_files(desktop), own_files(desktop)
    os.remove(path)


def a_named_data_file_has_no_lock_left(desktop, program):
    folder = os.path.join(desktop.home, "documents")
    process = desktop.start(program, os.path.join(folder, "Money.tarnwick"))
    screen.watch(process)
    screen.press("Start Fresh")
    screen.press("Don’t Use a Password")
    screen.find("label", "Keep your data unencrypted?")
    screen.press("Don’t Use a Password")
    screen.find("tree", "Screens and accounts")
    assert stop(process) == 0
    assert os.listdir(folder) == ["Money.tarnwick"], os.listdir(folder)


def a_name_that_is_no_text_is_opened(desktop, program):
    folder = os.path.join(desktop.home, "documents")
    path = os.path.join(os.fsencode(folder), b"\xff\xe9.tarnwick")
    os.rename(os.path.join(folder, "Money.tarnwick"), path)
    process = desktop.start(program, path)
    screen.watch(process)
    # The document is found: the welcome of an empty program would offer to start afresh instead.
    screen.find("label", "Protect Your Data with a Password")
    assert stop(process) == 0
    assert os.listdir(os.fsencode(folder)) == [b"\xff\xe9.tarnwick"]


def main():
    program = sys.argv[1]
    with Desktop() as desktop:
        the_sample_touches_nothing(desktop, program)
        a_named_file_stays(desktop, program, "notes.txt~", b"not money", "OK")
        a_named_file_stays(desktop, program, "photo.jpg", b"\xff\xd8\xff", "OK")
        a_named_file_stays(desktop, program, "bank.csv", b"Date,Amount\n2026-01-02,5\n", "Quit")
        a_named_data_file_has_no_lock_left(desktop, program)
        a_name_that_is_no_text_is_opened(desktop, program)
    print("All was left alone.")


if __name__ == "__main__":
    main()
