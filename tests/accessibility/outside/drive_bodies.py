"""Renames a body, switches it off and changes its filter, through the accessibility bus alone; a
refused name is announced there.

Usage: drive_bodies.py WORKBENCH RECORDING
"""

import json
import pathlib
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

# The longest wait for the other process, which may be slow where the machine is busy.
PATIENCE_S = 60
LOOK_EVERY_S = 0.1
# The longest wait for one answer; for an action it is short, see act().
ANSWER_MS = 15000
ACTION_MS = 1000

REFUSED = "set body desc standard b02* refuse"
WRITES = [
    'body desc standard b02 "Visor"',
    'body desc standard b01 "Left arm"',
    "body active standard b01 no",
    "body filter6d_enabled standard b01 no",
]


class Failure(Exception):
    """An expectation that does not hold."""


def wait_for(what, look, patience_s=PATIENCE_S):
    """The first true result of look(); raises Failure when there is none in time."""
    end = time.monotonic() + patience_s
    while time.monotonic() < end:
        try:
            found = look()
        except GLib.GError:  # an object that vanished while it was looked at
            found = None
        if found:
            return found
        time.sleep(LOOK_EVERY_S)
    raise Failure(what + " never came")


def children(parent):
    # Queried each time, because no main loop runs here that would update a cache.
    parent.clear_cache()
    found = [parent.getChildAtIndex(i) for i in range(parent.childCount)]
    return [child for child in found if child]


def descendants(root):
    """All objects below an object, except the cells of its tables, which are many."""
    for child in children(root):
        yield child
        if child.getRole() not in (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE):
            yield from descendants(child)


def find(root, role, name, must_show=True):
    for candidate in descendants(root):
        if candidate.getRole() != role or candidate.name != name:
            continue
        if not must_show or candidate.getState().contains(pyatspi.STATE_SHOWING):
            return candidate
    return None


def await_one(root, role, name, must_show=True):
    return wait_for(name, lambda: find(root, role, name, must_show))


def act(widget, *names):
    """Carries out the first action of the widget that has one of the names."""
    action = widget.queryAction()
    for i in range(action.nActions):
        if action.getName(i) in names:
            # The action may open a modal dialog, and the answer would then come only after its end.
            pyatspi.setTimeout(ACTION_MS, 0)
            try:
                action.doAction(i)
            except GLib.GError:
                pass
            pyatspi.setTimeout(ANSWER_MS, 0)
            return
    raise Failure(f"an action {names} of {widget.name}")


def press(root, name):
    act(await_one(root, pyatspi.ROLE_PUSH_BUTTON, name), "Press")


def mouse(cell, how, from_left=None):
    place = cell.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    x = place.x + (place.width // 2 if from_left is None else from_left)
    y = place.y + place.height // 2
    pyatspi.Registry.generateMouseEvent(x, y, "abs")
    pyatspi.Registry.generateMouseEvent(x, y, how)


def cell_of(table, row, title):
    grid = table.queryTable()
    for column in range(grid.nColumns):
        if grid.getColumnDescription(column) == title:
            return wait_for(
                f"the cell {title}", lambda: grid.getAccessibleAt(row, column))
    raise Failure(f"a column {title}")


class Recording:
    """The recording in which the workbench writes each operation."""

    def __init__(self, path):
        self.path = pathlib.Path(path)

    def writes(self):
        lines = self.path.read_text(encoding="utf-8").splitlines(keepends=True)
        entries = [json.loads(line) for line in lines if line.endswith("\n")]
        return [entry["line"] for entry in entries if entry.get("operation") == "set"]

    def wait_for(self, expected):
        """Waits for the writes, and for no others before or among them."""
        try:
            wait_for(expected[-1], lambda: len(self.writes()) >= len(expected))
        finally:
            if self.writes() != expected:
                raise Failure(f"{expected}, but there are {self.writes()}")


class Focus:
    """The object that has the focus; on the bus an editor is not a child of its table."""

    def __init__(self):
        self.source = None
        pyatspi.Registry.registerEventListener(self.changed, "object:state-changed:focused")

    def changed(self, event):
        if event.detail1:
            self.source = event.source

    def editor(self):
        while GLib.MainContext.default().iteration(False):
            pass
        is_editor = self.source and self.source.getRole() == pyatspi.ROLE_TEXT
        return self.source if is_editor else None


class Alerts:
    """The names of the alerts that have been shown."""

    def __init__(self):
        self.names = []
        pyatspi.Registry.registerEventListener(self.changed, "object:state-changed:showing")

    def changed(self, event):
        if event.detail1 and event.source.getRole() == pyatspi.ROLE_ALERT:
            self.names.append(event.source.name)

    def heard(self):
        while GLib.MainContext.default().iteration(False):
            pass
        return self.names


def open_editor(focus, cell):
    for _ in range(3):  # two clicks are none double where the machine was too busy between them
        mouse(cell, "b1d")
        try:
            return wait_for("the editor of the name", focus.editor, PATIENCE_S / 4)
        except Failure:
            continue
    raise Failure("the editor of the name")


def rename(dialog, table, row, name):
    editor = open_editor(Focus(), cell_of(table, row, "Name"))
    editor.queryEditableText().setTextContents(name)
    # Leaving the editor ends the edit.
    await_one(dialog, pyatspi.ROLE_SPIN_BUTTON, "Number of bodies").queryComponent().grabFocus()


def change_filter(host, dialog, recording):
    press(dialog, "Filter")
    filter_dialog = await_one(host, pyatspi.ROLE_DIALOG, "Filter Settings")
    act(await_one(filter_dialog, pyatspi.ROLE_CHECK_BOX, "active"), "Toggle", "Press")
    recording.wait_for(WRITES)
    press(filter_dialog, "Exit")
    wait_for("the end of the filter dialog",
             lambda: not find(host, pyatspi.ROLE_DIALOG, "Filter Settings"))


def check_room(dialog):
    """Checks that the dialog opens with room for its tables, if the screen has that room."""
    around = dialog.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    for name in ("Available standard bodies", "Available targets from target library"):
        table = await_one(dialog, pyatspi.ROLE_TABLE, name)
        place = table.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        if place.x < around.x or place.x + place.width > around.x + around.width:
            raise Failure(f"room for {name}: {place} in {around}")


def drive(host, recording):
    act(await_one(host, pyatspi.ROLE_MENU_ITEM, "Body administration", must_show=False), "Press")
    dialog = await_one(host, pyatspi.ROLE_DIALOG, "Body Administration")
    table = await_one(dialog, pyatspi.ROLE_TABLE, "Available standard bodies")
    check_room(dialog)

    alerts = Alerts()
    rename(dialog, table, 1, "Visor")
    recording.wait_for(WRITES[:1])
    wait_for("the announcement of the refusal", alerts.heard)
    rename(dialog, table, 0, "Left arm")
    recording.wait_for(WRITES[:2])
    wait_for("the new name", lambda: cell_of(table, 0, "Name").name == "Left arm")
    if alerts.heard() != ["Unable to set description of body standard b02"]:
        raise Failure(f"the refusal announced once, but heard {alerts.heard()}")

    mouse(cell_of(table, 0, "Active"), "b1c", from_left=10)
    recording.wait_for(WRITES[:3])

    change_filter(host, dialog, recording)
    press(dialog, "Exit")
    wait_for("the end of the dialog",
             lambda: not find(host, pyatspi.ROLE_DIALOG, "Body Administration"))
    act(await_one(host, pyatspi.ROLE_MENU_ITEM, "Quit", must_show=False), "Press")


def started_host(process):
    if process.poll() is not None:
        raise Failure(f"a running workbench; it ended with {process.returncode}")
    desktop = pyatspi.Registry.getDesktop(0)
    return next((app for app in children(desktop) if app.name == "workbench"), None)


def main():
    workbench, recording = sys.argv[1:]
    pyatspi.setTimeout(ANSWER_MS, 0)
    process = subprocess.Popen(
        [workbench, "--scenario", "studio", "--record", recording, "--fault", REFUSED])
    try:
        drive(wait_for("the workbench", lambda: started_host(process)), Recording(recording))
        status = process.wait(PATIENCE_S)
        if status != 0:
            raise Failure(f"exit status 0; it is {status}")
    except Failure as failure:
        raise SystemExit(f"FAILED, expected {failure}") from failure
    finally:
        process.kill()
        process.wait()
    print("renamed, switched off and filtered from outside")


if __name__ == "__main__":
    main()
