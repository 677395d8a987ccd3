#!/usr/bin/python3
"""A stand-in file manager on a private session bus: it owns
org.freedesktop.FileManager1 and notes every call, one line each."""
import ctypes
import signal
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

INTERFACE = 'org.freedesktop.FileManager1'


class FileManager(dbus.service.Object):
    def __init__(self, bus, log):
        super().__init__(bus, '/org/freedesktop/FileManager1')
        self.log = log

    def note(self, method, uris):
        self.log.write(method + ' ' + ' '.join(str(u) for u in uris) + '\n')
        self.log.flush()

    @dbus.service.method(INTERFACE, in_signature='ass', out_signature='')
    def ShowItemProperties(self, uris, startup_id):
        self.note('ShowItemProperties', uris)

    @dbus.service.method(INTERFACE, in_signature='ass', out_signature='')
    def ShowItems(self, uris, startup_id):
        self.note('ShowItems', uris)

    @dbus.service.method(INTERFACE, in_signature='ass', out_signature='')
    def ShowFolders(self, uris, startup_id):
        self.note('ShowFolders', uris)


def main():
    # Dies with the test that started it.
    ctypes.CDLL('libc.so.6').prctl(1, signal.SIGKILL)
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.bus.BusConnection(sys.argv[1])
    log = open(sys.argv[2], 'a', encoding='utf-8')
    FileManager(bus, log)
    name = dbus.service.BusName(INTERFACE, bus)  # noqa: F841 (held while running)
    print('ready', flush=True)
    GLib.MainLoop().run()


if __name__ == '__main__':
    main()
