"""Goes through the editor as a screen reader does, and presses what it finds there; with the name of another program
as the last word, through that one.

    accessible.py list                prints each command below the menu bar: its way there, role, states, keys
    accessible.py names               prints the role and the name of everything that has one
    accessible.py nameless            prints the role of every control in sight that has none
    accessible.py weigh FILE          listens to all that the text and its surroundings tell, until it is ended, and keeps
                                      what comes over the bus meanwhile, the answers included
    accessible.py follow FILE         asks for the text once, and keeps what comes of it by all that is told, and behind
                                      it where the caret is, until it is ended
    accessible.py heed FILE           keeps the names of what gets the keyboard or is selected, until it is ended
    accessible.py press FILE          presses the commands of the file's lines, and waits for what each does

A window that opens has to have a name at each of its fields. A line of the file: the way to a command, what comes of
it (a window, a text of the document, a change of its tick, or nothing), and that window's title and the button, or
Escape, that closes it, or that text; parted by tabs.
Ends with 1, and tells why, at what is not there or does not come.
"""

import os
import subprocess
import sys
import time

import gi
import pyatspi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio

PATIENCE = 20
NAP = 0.02
CONTROLS = (pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_COMBO_BOX,
            pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE, pyatspi.ROLE_TREE_TABLE, pyatspi.ROLE_LIST, pyatspi.ROLE_TEXT,
            pyatspi.ROLE_PROGRESS_BAR)
MENUS = (pyatspi.ROLE_MENU, pyatspi.ROLE_POPUP_MENU)
FIELDS = (pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_PASSWORD_TEXT, pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_LIST,
          pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_SLIDER, pyatspi.ROLE_CHECK_BOX,
          pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_LINK, pyatspi.ROLE_PAGE_TAB)


def wait(what, look):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = look()
        except Exception:  # an object that has just gone answers by one of many errors
            found = None
        if found:
            return found
        time.sleep(NAP)
    sys.exit("waited in vain for " + what)


def below(thing):
    return [child for child in thing if child is not None]


def find(thing, isWanted):
    if isWanted(thing):
        return thing
    for child in below(thing):
        found = find(child, isWanted)
        if found:
            return found
    return None


def has_label(thing):
    return any(relation.getRelationType() == pyatspi.RELATION_LABELLED_BY for relation in thing.getRelationSet())


# The name of a combo box is what is chosen in it, and its parts are part of it.
def nameless(thing):
    role = thing.getRole()
    if role in FIELDS and not has_label(thing):
        if not (thing.description if role == pyatspi.ROLE_COMBO_BOX else thing.name):
            yield thing
    if role != pyatspi.ROLE_COMBO_BOX:
        for child in below(thing):
            yield from nameless(child)


def has(thing, state):
    return thing.getState().contains(state)


class Program:
    def __init__(self, name):
        desktop = pyatspi.Registry.getDesktop(0)
        isIt = lambda application: application.name == name and len(below(application)) > 0
        self.application = wait(name, lambda: next(filter(isIt, below(desktop)), None))
        self.application.set_cache_mask(Atspi.Cache.NONE)  # nobody here listens to what changes
        self.known = {}

    def first(self, role):
        if role not in self.known:
            isWanted = lambda thing: thing.getRole() == role
            self.known[role] = wait("a " + str(role), lambda: find(self.application, isWanted))
        return self.known[role]

    def commands(self, thing=None, way=()):
        for item in below(thing or self.first(pyatspi.ROLE_MENU_BAR)):
            if item.getRole() in MENUS:
                yield from self.commands(item, way)
            else:
                yield way + (item.name,), item
                yield from self.commands(item, way + (item.name,))

    def command(self, way):
        thing = self.first(pyatspi.ROLE_MENU_BAR)
        for name in way.split(" > "):
            menus = [menu for menu in below(thing) if menu.getRole() in MENUS]
            thing = next((item for item in below(menus[0] if menus else thing) if item.name == name), None)
            if thing is None:
                sys.exit("there is no " + way)
        return thing

    def contents(self):
        return self.first(pyatspi.ROLE_TEXT).queryText().getText(0, -1).rstrip("\r\n")

    def window(self, title):
        others = below(self.application)[1:]  # the first is the main window
        return next((window for window in others if window.name == title), None)


def press(thing):
    action = thing.queryAction()
    for index in range(action.nActions):
        if action.getName(index) == "Press":
            action.doAction(index)
            return
    sys.exit("nothing can be pressed at " + thing.name)


def list_commands(editor):
    for way, item in editor.commands():
        states = [name for name, state in
                  (("enabled", pyatspi.STATE_ENABLED), ("checkable", pyatspi.STATE_CHECKABLE),
                   ("checked", pyatspi.STATE_CHECKED)) if has(item, state)]
        action = item.queryAction()
        keys = action.getKeyBinding(0) if action.nActions else ""
        print("\t".join([" > ".join(way), item.getRoleName(), " ".join(states), keys]))


def list_names(thing):
    if thing.name:
        print(thing.getRoleName() + "\t" + thing.name)
    for child in below(thing):
        list_names(child)


def list_nameless(thing):
    if thing.getRole() in CONTROLS and not thing.name and has(thing, pyatspi.STATE_SHOWING):
        print(thing.getRoleName())
    for child in below(thing):
        list_nameless(child)


def close(name, window, button):
    isButton = lambda thing: thing.name == button and thing.getRole() == pyatspi.ROLE_PUSH_BUTTON
    press(wait(name + button, lambda: find(window, isButton)))


def press_commands(editor, lines):
    for line in lines:
        way, outcome, wanted, button = (line.rstrip("\n") + "\t\t\t").split("\t")[:4]
        item = editor.command(way)
        was = has(item, pyatspi.STATE_CHECKED)
        press(item)
        name = way + ": "
        if outcome == "window":
            window = wait(name + wanted, lambda: editor.window(wanted))
            unnamed = [field.getRoleName() for field in nameless(window)]
            if unnamed:
                sys.exit(name + "nothing tells what these are: " + ", ".join(unnamed))
            if button == "Escape":
                wait(name + "the keyboard", lambda: has(window, pyatspi.STATE_ACTIVE))
                Atspi.generate_keyboard_event(0xFF1B, "", Atspi.KeySynthType.SYM)
            else:
                close(name, window, button)
            wait(name + "the end of " + wanted, lambda: editor.window(wanted) is None)
        elif outcome == "text":
            wait(name + wanted, lambda: editor.contents() == wanted)
        elif outcome == "tick":
            wait(name + "another tick", lambda: has(item, pyatspi.STATE_CHECKED) != was)


def weigh(file):
    for event in ("object:text-changed", "object:visible-data-changed", "object:property-change", "object:children-changed"):
        pyatspi.Registry.registerEventListener(lambda event: None, event)
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0, -1).unpack()[0]
    subprocess.Popen(["dbus-monitor", "--binary", "--address", address], stdout=file)  # ends with the bus
    pyatspi.Registry.start()


def follow(editor, file):
    area = editor.first(pyatspi.ROLE_TEXT).queryText()
    text, caret = area.getText(0, -1), area.caretOffset

    def keep():
        with open(file + ".new", "w", encoding="utf-8", newline="") as out:
            out.write(text + "|" + str(caret))
        os.rename(file + ".new", file)

    def change(event):
        nonlocal text
        came = event.any_data if "insert" in str(event.type) else ""
        went = 0 if came else event.detail2
        text = text[:event.detail1] + came + text[event.detail1 + went:]
        keep()

    def move(event):
        nonlocal caret
        caret = event.detail1
        keep()

    pyatspi.Registry.registerEventListener(change, "object:text-changed")
    pyatspi.Registry.registerEventListener(move, "object:text-caret-moved")
    keep()
    pyatspi.Registry.start()


def heed(file):
    with open(file, "w", encoding="utf-8") as out:
        def keep(event):
            if event.detail1 == 1:
                print(str(event.type).split(":")[-1] + "\t" + event.source.name, file=out, flush=True)

        for state in ("focused", "selected"):
            pyatspi.Registry.registerEventListener(keep, "object:state-changed:" + state)
        print("ready", file=out, flush=True)
        pyatspi.Registry.start()


task = sys.argv[1]
program = Program(sys.argv[-1] if len(sys.argv) > 2 and task not in ("press", "weigh", "follow", "heed") else "quillshift")
if task == "list":
    list_commands(program)
elif task == "names":
    list_names(program.application)
elif task == "nameless":
    list_nameless(program.application)
elif task == "weigh":
    with open(sys.argv[2], "wb") as file:
        weigh(file)
elif task == "follow":
    follow(program, sys.argv[2])
elif task == "heed":
    heed(sys.argv[2])
else:
    with open(sys.argv[2], encoding="utf-8", newline="\n") as file:
        press_commands(program, file.readlines())
