"""A file manager on the session bus of a test, that notes what it is to show."""

from gi.repository import Gio, GLib

NAME = "org.freedesktop.FileManager1"
METHODS = "".join(
    '<method name="%s"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>' % name
    for name in ("ShowFolders", "ShowItems"))


class FileManager:
    """It answers while the test waits for something of its bus."""

    def __init__(self, session_address):
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                 | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.connection = Gio.DBusConnection.new_for_address_sync(session_address, flags, None, None)
        self.shown = []
        described = Gio.DBusNodeInfo.new_for_xml(
            '<node><interface name="%s">%s</interface></node>' % (NAME, METHODS))
        self.connection.register_object("/org/freedesktop/FileManager1", described.interfaces[0],
                                        self._called, None, None)
        self.connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                  "org.freedesktop.DBus", "RequestName",
                                  GLib.Variant("(su)", (NAME, 0)), None, Gio.DBusCallFlags.NONE,
                                  20000, None)

    def _called(self, _connection, _sender, _path, _interface, method, arguments, invocation):
        self.shown.append((method, arguments.unpack()[0]))
        invocation.return_value(None)

    def close(self):
        self.connection.close_sync()
