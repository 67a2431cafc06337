#!/usr/bin/python3
"""The window follows the desktop's wish for dark windows: at the start and when it changes.

Usage: dbus-run-session -- appearance.py PROGRAM"""

import sys
import threading

from gi.repository import Gio, GLib

import accessibility as screen
from desktop import Desktop, eventually, stop

SERVICE = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
DESCRIPTION = f"""<node><interface name="{INTERFACE}">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
GROUP, KEY = "org.freedesktop.appearance", "color-scheme"
NO_PREFERENCE, DARK, LIGHT = 0, 1, 2


class Portal:
    """The part of a desktop that programs ask for its settings."""

    def __init__(self, scheme):
        self.scheme = scheme
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0]
        self.bus.register_object(PATH, interface, self.answer, None, None)
        Gio.bus_own_name_on_connection(self.bus, SERVICE, Gio.BusNameOwnerFlags.NONE, None, None)
        threading.Thread(target=GLib.MainLoop().run, daemon=True).start()

    def answer(self, _bus, _sender, _path, _interface, _method, parameters, invocation):
        if parameters.unpack() == (GROUP, KEY):
            # As older desktops do, wrapped twice.
            value = GLib.Variant("v", GLib.Variant("u", self.scheme))
            invocation.return_value(GLib.Variant("(v)", (value,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    def change(self, scheme):
        self.scheme = scheme
        self.bus.emit_signal(None, PATH, INTERFACE, "SettingChanged", GLib.Variant(
            "(ssv)", (GROUP, KEY, GLib.Variant("u", scheme))))


def main():
    portal = Portal(DARK)
    with Desktop() as desktop:
        program = desktop.start(sys.argv[1], "--sample")
        screen.find("tree", "Screens and accounts")
        eventually("a dark window", lambda: 0.02 < desktop.brightness() < 0.25)  # 0: no window yet
        portal.change(LIGHT)
        eventually("a light window", lambda: desktop.brightness() > 0.75)
        portal.change(DARK)
        eventually("a dark window again", lambda: desktop.brightness() < 0.25)
        portal.change(NO_PREFERENCE)
        eventually("a light window for a desktop that doesn't mind",
                   lambda: desktop.brightness() > 0.75)
        assert stop(program) == 0, "the program did not end well"
    print("The window followed the desktop.")


main()
