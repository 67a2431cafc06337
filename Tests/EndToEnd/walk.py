#!/usr/bin/python3
"""The walk of a new user with the real program: an empty home, an account, a bank statement, quit in
the middle of the save delay, start again; the register's rows and the data file say the same.

Usage: dbus-run-session -- walk.py PROGRAM [--watch-network]. With the option, the walk fails when the
program opens any socket but local ones."""

import json
import os
import re
import signal
import sys
import tempfile
from decimal import Decimal

import accessibility as screen
from desktop import Desktop, eventually, stop

STATEMENT = """Date,Description,Amount
2026-03-02,Corner Coffee,-4.50
2026-03-03,"Harbour Books, Ltd.",-31.20
2026-03-05,Aurora Software Inc.,2150.00
2026-03-05,Corner Coffee,-4.75
"""
EXPECTED = {("Corner Coffee", "-4.5"), ("Harbour Books, Ltd.", "-31.2"),
            ("Aurora Software Inc.", "2150"), ("Corner Coffee", "-4.75")}


def choose_to_start_fresh():
    screen.press("Start Fresh")
    screen.press("Don’t Use a Password")
    screen.find("label", "Keep your data unencrypted?")
    screen.press("Don’t Use a Password")


def make_an_account(desktop, name):
    screen.press("Add Account")
    screen.write(desktop, "Name", name)
    screen.press("Add Account", within="New Account")
    screen.find("label", "No Transactions")


def import_statement(desktop, path, name, button):
    screen.press("Import")
    screen.write(desktop, "File name:", path)
    desktop.key("Return")
    screen.find("label", f"Import {name}")
    screen.press(button)


def rows_on_screen():
    def look():
        rows = screen.table_rows("Transactions")
        return rows if len(rows) == len(EXPECTED) else None
    return eventually("the register's rows", look)


def entries_in_file(desktop):
    with open(desktop.data_file(), encoding="utf-8") as file:
        document = json.load(file, parse_float=Decimal)
    return {(entry["payee"], str(entry["amount"])) for entry in document["transactions"]}


def check_sockets(log):
    """Only sockets of this machine: the display, the accessibility bus, a second start."""
    with open(log, encoding="utf-8") as file:
        calls = [line for line in file if re.search(r"\bsocket(pair)?\(", line)]
    assert calls, "the log holds no socket at all; was it written?"
    strangers = [line for line in calls if "AF_UNIX" not in line]
    assert not strangers, "".join(strangers)


def main():
    program = sys.argv[1]
    watches = "--watch-network" in sys.argv[2:]
    with tempfile.TemporaryDirectory() as folder:
        log = os.path.join(folder, "network.log") if watches else None
        walk(program, log)
        if watches:
            check_sockets(log)


def walk(program, network_log):
    with Desktop(network_log) as desktop:
        statement = os.path.join(desktop.home, "statement.csv")
        with open(statement, "w", encoding="utf-8") as file:
            file.write(STATEMENT)

        first = desktop.start(program)
        choose_to_start_fresh()
        make_an_account(desktop, "Everyday")
        import_statement(desktop, statement, "statement.csv", f"Import {len(EXPECTED)}")
        before = rows_on_screen()
        # At once, while the save still waits.
        assert stop(first, signal.SIGTERM) == 0, "the program did not end well"
        assert entries_in_file(desktop) == EXPECTED, entries_in_file(desktop)
        assert os.stat(desktop.data_file()).st_mode & 0o777 == 0o600

        second = desktop.start(program)
        screen.open_account(desktop, "Everyday")
        after = rows_on_screen()
        assert after == before, (before, after)
        # A second time: nothing is added.
        import_statement(desktop, statement, "statement.csv", "Import")
        assert rows_on_screen() == before
        assert stop(second, signal.SIGTERM) == 0
        assert entries_in_file(desktop) == EXPECTED
    print("The register and the file agree.")


if __name__ == "__main__":
    main()
