"""A desktop's portal that tells programs what the desktop wishes for.

    portal.py FILE    each line of the file is a wish, GROUP/NAME=VALUE; once the file changes, its lines are told
"""

import os
import sys

from gi.repository import Gio, GLib

INTERFACE = "org.freedesktop.portal.Settings"
PATH = "/org/freedesktop/portal/desktop"
XML = f"""<node><interface name='{INTERFACE}'>
<method name='ReadAll'><arg type='as' direction='in'/><arg type='a{{sa{{sv}}}}' direction='out'/></method>
<signal name='SettingChanged'><arg type='s'/><arg type='s'/><arg type='v'/></signal>
</interface></node>"""
NAP = 20  # milliseconds


def wishes():
    with open(sys.argv[1], encoding="utf-8") as file:
        for line in file:
            way, value = line.strip().split("=", 1)
            yield (*way.split("/"), GLib.Variant.parse(None, value, None, None))


def answer(bus, sender, path, interface, method, arguments, invocation):
    told = {}
    for group, name, value in wishes():
        told.setdefault(group, {})[name] = value
    invocation.return_value(GLib.Variant("(a{sa{sv}})", (told,)))


def tell_changes(known=[None]):
    now = os.stat(sys.argv[1]).st_mtime_ns
    if known[0] not in (None, now):
        for wish in wishes():
            bus.emit_signal(None, PATH, INTERFACE, "SettingChanged", GLib.Variant("(ssv)", wish))
    known[0] = now
    return True


bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0], answer, None, None)
Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop", 0, None, None)
tell_changes()
GLib.timeout_add(NAP, tell_changes)
GLib.MainLoop().run()
