#!/usr/bin/python3
"""usage: main_flow.py HOST
Goes through the main flow of the reference host as a screen reader and its user do: what is read comes from the
accessibility bus, and so does every press. Needs a session bus and a display of its own. Fails with the step that
did not do what it should.
"""

import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

WAIT = 30  # seconds for what takes milliseconds on a machine that does nothing else

heard = []


def role_of(found):
    """The name of its role; newer versions of the bus say "button" for "push button"."""
    name = found.getRoleName()
    return "push button" if name == "button" else name


def on_event(event):
    """Notes what a screen reader would say of its own accord: new names and descriptions."""
    heard.append((role_of(event.source), str(event.source.name), str(event.source.description)))


def turn():
    while GLib.MainContext.default().iteration(False):
        pass
    time.sleep(0.02)


def wait(what, look):
    """Returns what look() finds, as soon as it finds something."""
    end = time.monotonic() + WAIT
    while time.monotonic() < end:
        turn()
        try:
            found = look()
        except (GLib.GError, LookupError, NotImplementedError):
            found = None  # an object that has gone meanwhile
        if found:
            return found
    raise AssertionError(f"waited in vain: {what}")


def tree(root):
    """All that is shown below root, in the order in which it is read; of a table only the table."""
    if root is None or not root.getState().contains(pyatspi.STATE_SHOWING):
        return
    yield root
    if root.getRole() != pyatspi.ROLE_TABLE:
        for index in range(root.childCount):
            yield from tree(root.getChildAtIndex(index))


def find(root, role, name):
    """The first object of that role whose name begins like that."""
    for found in tree(root):
        if role_of(found) == role and found.name.startswith(name):
            return found
    raise LookupError(f"{role} {name}")


def get(root, role, name):
    return wait(f'{role} "{name}"', lambda: find(root, role, name))


def window(host, role, name):
    shown = lambda: [w for w in host if w.name.startswith(name) and role_of(w) == role
                     and w.getState().contains(pyatspi.STATE_SHOWING)]
    return wait(f'window "{name}"', shown)[0]


def press(root, name):
    action = get(root, "push button", name).queryAction()
    names = [action.getName(index) for index in range(action.nActions)]
    action.doAction(names.index("Press"))


def text(root, name):
    content = get(root, "text", name).queryText()
    return content.getText(0, content.characterCount)


def require(is_so, what):
    if not is_so:
        raise AssertionError(what)


def rows(dialog):
    return get(dialog, "table", "Venues").queryTable().nRows


def require_names(root):
    for found in tree(root):
        if found.getState().contains(pyatspi.STATE_FOCUSABLE) and role_of(found) != "filler":
            require(found.name, f"a {role_of(found)} below {root.name} has no name")


def search(dialog):
    wait("all venues", lambda: rows(dialog) > 100)
    get(dialog, "text", "City:").queryEditableText().setTextContents("paris")
    press(dialog, "Search")
    wait("fewer venues", lambda: 0 < rows(dialog) < 30)


def select(dialog, name):
    table = get(dialog, "table", "Venues").queryTable()
    names = [table.getAccessibleAt(row, 1).name for row in range(table.nRows)]
    row = names.index(name)
    date = table.getAccessibleAt(row, 5).name
    require(date and "T" not in date, f"a date is read as {date}")
    table.addRowSelection(row)


def hear_details(dialog):
    details = get(dialog, "panel", "Venue details")
    require(text(details, "Complex name:") == "Palais Garnier", "the details are those of the selected venue")
    require("Paris" in text(details, "Address:"), "the address is read")
    for field in ("Loading dock, Address:", "Loading dock, Comment:", "Rigging, Comment:"):
        text(details, field)
    get(get(details, "panel", "Venue pictures"), "label", "1/")
    order = [found.name for found in tree(dialog)]
    require(order.index("Venues") < order.index("Venue details"), "the table is read before the details")
    get(dialog, "separator", "Height of the venue table").queryValue()


def look_at_pictures(host, dialog):
    press(dialog, "Show pictures full screen")
    viewer = window(host, "dialog", "Venue database pictures")
    picture = get(viewer, "image", "1/")
    get(picture, "label", "1/")
    require_names(viewer)
    heard.clear()
    press(picture, "Next picture")
    get(viewer, "image", "2/")
    wait("the step is told", lambda: any(role == "image" and name.startswith("2/") for role, name, _ in heard))
    wait("and by the button",
         lambda: any(name == "Next picture" and told.startswith("2/") for _, name, told in heard))
    press(viewer, "Close")
    wait("the viewer closes", lambda: not viewer.getState().contains(pyatspi.STATE_SHOWING))


def main_flow(host):
    press(window(host, "frame", "Tessra"), "Venue database")
    dialog = window(host, "dialog", "Venue database")
    search(dialog)
    select(dialog, "Palais Garnier")
    hear_details(dialog)
    require_names(dialog)
    look_at_pictures(host, dialog)
    press(dialog, "Import to Tessra")
    window(host, "frame", "Tessra – Palais Garnier")
    press(dialog, "Close")
    wait("the dialog closes", lambda: not dialog.getState().contains(pyatspi.STATE_SHOWING))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    pyatspi.Registry.registerEventListener(on_event, "object:property-change")
    with subprocess.Popen([sys.argv[1], "--language", "en"]) as process:
        try:
            hosts = lambda: [host for host in pyatspi.Registry.getDesktop(0) if host and host.name == "vdbdemo"]
            main_flow(wait("the host", hosts)[0])
        finally:
            process.terminate()
    print("The main flow was heard.")


main()
