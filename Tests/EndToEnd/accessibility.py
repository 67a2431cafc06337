"""The accessible tree of the program: find a control by its role and name, use it, read it."""

import pyatspi

from desktop import eventually


watched = None


def watch(process):
    """From now on looks at this one of several programs only."""
    global watched
    watched = process.pid


def application():
    def look():
        for candidate in pyatspi.Registry.getDesktop(0):
            if candidate is not None and candidate.name.lower().startswith("oakfen") and (
                    watched is None or candidate.get_process_id() == watched):
                return candidate
        return None
    return eventually("the program on the accessibility bus", look)


MOST_CHILDREN = 100  # of a long table, its headings and a few rows


def everything(root):
    """Every node below the root, in reading order; of long tables only the beginning."""
    for index in range(min(root.childCount, MOST_CHILDREN)):
        child = root.getChildAtIndex(index)
        if child is None:
            continue
        yield child
        yield from everything(child)


def is_usable(node):
    states = node.getState()
    return states.contains(pyatspi.STATE_SHOWING) and states.contains(pyatspi.STATE_ENABLED)


def find(role, name, within=None):
    """The last control of that role and name that can be used now: a question comes after the window
    that it covers. `within` names the window or the sheet to look in."""
    def look():
        root = application() if within is None else place(within)
        found = [node for node in everything(root)
                 if node.getRoleName() == role and node.name == name and is_usable(node)]
        return found[-1] if found else None
    return eventually(f"the {role} “{name}”", look)


def place(name):
    """The last window or sheet of that name."""
    windows = [window for window in application() if window.name == name]
    sheets = [node for node in everything(application())
              if node.getRoleName() == "dialog" and node.name == name and is_usable(node)]
    return (windows + sheets)[-1]


def exists(role, name):
    return any(node.getRoleName() == role and node.name == name and is_usable(node)
               for node in everything(application()))


def press(name, role="push button", within=None):
    actions = find(role, name, within).queryAction()
    for index in range(actions.nActions):
        if actions.getName(index).lower() in ("press", "click", "toggle"):
            actions.doAction(index)
            return
    actions.doAction(0)


def focused_below(root):
    """The node with the focus; a list or a table has it in one of its cells."""
    for node in everything(root):
        if node.getState().contains(pyatspi.STATE_FOCUSED):
            return node
    return None


def open_account(desktop, name):
    """Goes to the account in the sidebar by typing its name there."""
    sidebar = find("tree", "Screens and accounts")
    sidebar.queryComponent().grabFocus()
    desktop.await_keyboard()
    eventually("the focus in the sidebar", lambda: focused_below(sidebar))
    desktop.type(name)
    find("label", name)


def write(desktop, name, text):
    """Types the text into the field of that name."""
    field = find("text", name)
    field.queryComponent().grabFocus()
    eventually(f"the focus in {name}",
               lambda: field.getState().contains(pyatspi.STATE_FOCUSED))
    desktop.key("ctrl+a")
    desktop.type(text)
    eventually(f"“{text}” in {name}", lambda: field.queryText().getText(0, -1) == text)


def table_rows(name):
    """The texts of the table's cells, row by row."""
    table = find("table", name).queryTable()
    return [[table.getAccessibleAt(row, column).name for column in range(table.nColumns)]
            for row in range(table.nRows)]


def describe(root=None, depth=0):
    """The tree as text, for finding out why something was not found."""
    lines = []
    node = root or application()
    lines.append(f"{'  ' * depth}{node.getRoleName()} “{node.name}”"
                 f"{'' if is_usable(node) else ' (not usable)'}")
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        if child is not None:
            lines.append(describe(child, depth + 1))
    return "\n".join(lines)
