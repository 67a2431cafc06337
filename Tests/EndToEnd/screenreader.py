#!/usr/bin/python3
"""Listens to the real program the way a screen reader does: a row of the register, the balances under
it and in the sidebar, and what the controls are called.

Usage: dbus-run-session -- screenreader.py PROGRAM"""

import re
import sys
import time

import pyatspi

import accessibility as screen
from desktop import Desktop, eventually, stop

ACCOUNT = "Everyday Chequing"
AMOUNT = re.compile(r"-?\$[\d,]+\.\d\d")


def names_below(root, *roles):
    return [node.name for node in screen.everything(root) if node.getRoleName() in roles]


def window():
    return eventually("the main window", lambda: screen.application()[0])


def read_sidebar():
    """The sidebar tells each account with its balance."""
    tree = screen.find("tree", "Screens and accounts")
    lines = eventually("the lines of the sidebar",
                       lambda: names_below(tree, "tree item", "table cell"))
    account = [line for line in lines if line.startswith(ACCOUNT + ", ")]
    assert len(account) == 1, lines
    balance = account[0].split(", ", 1)[1]
    assert AMOUNT.fullmatch(balance), account
    return balance


def read_first_row():
    """A row tells its date, payee, one amount and the balance, each under its heading."""
    node = screen.find("table", "Transactions")
    table = node.queryTable()
    headings = names_below(node, "table column header")
    for wanted in ("Cleared", "Date", "Payee", "Category", "Payment", "Deposit", "Balance"):
        assert wanted in headings, headings
    cells = [table.getAccessibleAt(0, column).name for column in range(table.nColumns)]
    row = dict(zip(headings, cells))
    assert row["Cleared"] in ("Uncleared", "Cleared", "Reconciled"), row
    assert re.fullmatch(r"[\d/.-]{8,10}", row["Date"]), row
    assert row["Payee"] and row["Category"], row
    amounts = [row[title] for title in ("Payment", "Deposit") if row[title]]
    assert len(amounts) == 1 and AMOUNT.fullmatch(amounts[0]), row
    assert AMOUNT.fullmatch(row["Balance"]), row
    return row


def read_figures():
    """Each figure is one sentence: what it is, and the amount."""
    figures = {}
    for name in names_below(window(), "label"):
        label, comma, amount = name.partition(", ")
        if comma and AMOUNT.fullmatch(amount):
            figures[label] = amount
    return figures


def check_names():
    """Nothing that can be reached is without a name or a label."""
    for node in screen.everything(window()):
        states = node.getState()
        if not (states.contains(pyatspi.STATE_FOCUSABLE) and states.contains(pyatspi.STATE_SHOWING)):
            continue
        if node.getRoleName() in ("table cell", "tree item"):
            continue  # an empty cell says nothing
        labels = [relation for relation in node.getRelationSet()
                  if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]
        assert node.name.strip() or labels, screen.describe(node)


def check_reading_order():
    """The sidebar comes before the screen beside it."""
    order = [(node.getRoleName(), node.name) for node in screen.everything(window())]
    sidebar = order.index(("tree", "Screens and accounts"))
    assert sidebar < order.index(("table", "Transactions")), order


def follow_the_focus(desktop):
    """Moving through the table by keyboard tells the row that one comes to."""
    table = screen.find("table", "Transactions")
    desktop.key("ctrl+f")
    for _ in range(6):
        desktop.key("Tab")
        time.sleep(0.2)
        if screen.focused_below(table):
            break
    desktop.key("Home")
    first = eventually("a cell with the focus", lambda: screen.focused_below(table))
    place = first.getIndexInParent()
    desktop.key("Down")
    eventually("the next row", lambda: screen.focused_below(table).getIndexInParent() > place)


def listen_to_a_sheet(desktop):
    """What stands under the title of a sheet is told with it, and a choice is a group of radio
    buttons."""
    desktop.key("ctrl+n")
    sheet = screen.find("dialog", "New Transaction")
    assert sheet.description.startswith("Ctrl+Return"), screen.describe(sheet)
    words = names_below(sheet, "radio button")
    assert words[:3] == ["Payment", "Deposit", "Transfer"], words
    desktop.key("Escape")
    screen.find("table", "Transactions")


def work_in_a_sheet(desktop):
    """A sheet is a dialog with a name, has the focus, and hides what lies beneath."""
    desktop.key("ctrl+shift+n")
    sheet = screen.find("dialog", "New Account")
    eventually("the focus in the sheet", lambda: screen.focused_below(sheet).name == "Name")
    for role, name in (("table", "Transactions"), ("tree", "Screens and accounts")):
        assert not screen.exists(role, name), screen.describe()
    for _ in range(20):
        desktop.key("Tab")
    eventually("the focus still in the sheet", lambda: screen.focused_below(sheet))
    desktop.key("Escape")
    screen.find("table", "Transactions")
    assert not screen.exists("dialog", "New Account")


def main():
    with Desktop() as desktop:
        program = desktop.start(sys.argv[1], "--sample")
        screen.open_account(desktop, ACCOUNT)
        balance = read_sidebar()
        row = read_first_row()
        figures = read_figures()
        assert figures["Today"] == balance, (figures, balance)
        assert {"Cleared", "Ending", "Net Worth"} <= set(figures), figures
        check_names()
        check_reading_order()
        follow_the_focus(desktop)
        listen_to_a_sheet(desktop)
        work_in_a_sheet(desktop)
        assert stop(program) == 0, "the program did not end well"
    print(f"Heard: {', '.join(text for text in row.values() if text)}; today {balance}.")


main()
