"""A desktop's panel with a tray in it, as people have them, and what is clicked there."""

import os

from gi.repository import Gio, GLib

CONFIG = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="26"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
"""
WATCHER = "org.kde.StatusNotifierWatcher"
PATIENCE = int(os.environ.get("ZOLVA_PATIENCE", "30"))


class Tray:
    """The panel along the upper edge of the screen. Its only part is the tray, and the only item in
    that is the program's."""

    def __init__(self, world, bus):
        self.world = world
        self.bus = bus
        self.session = bus.connect(world.env["DBUS_SESSION_BUS_ADDRESS"])
        folder = os.path.join(world.root, "outside/.config/xfce4/xfconf/xfce-perchannel-xml")
        os.makedirs(folder, exist_ok=True)
        with open(os.path.join(folder, "xfce4-panel.xml"), "w", encoding="utf-8") as out:
            out.write(CONFIG)
        self.processes = [world.spawn([self._settings_program()])]
        self._wait(lambda: self._is_owned("org.xfce.Xfconf"), "the panel's settings")
        self.processes.append(world.spawn(["xfce4-panel", "--disable-wm-check"]))
        self._wait(lambda: self._is_owned(WATCHER), "the tray")

    @staticmethod
    def _settings_program():
        """Where it is depends on the machine's kind."""
        for folder in sorted(os.listdir("/usr/lib")):
            path = "/usr/lib/%s/xfce4/xfconf/xfconfd" % folder
            if os.path.exists(path):
                return path
        raise RuntimeError("xfconfd is not installed")

    def _wait(self, look, what):
        found = self.bus.wait(look, PATIENCE)
        if not found:
            raise AssertionError("%s did not come up in %d s" % (what, PATIENCE))
        return found

    def _ask(self, owner, path, interface, method, args):
        return self.session.call_sync(owner, path, interface, method, args, None,
                                      Gio.DBusCallFlags.NO_AUTO_START, 10000, None)[0]

    def _is_owned(self, name):
        return self._ask("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "NameHasOwner", GLib.Variant("(s)", (name,)))

    def items(self):
        """The names that items have on the session bus."""
        try:
            return self._ask(WATCHER, "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties",
                             "Get", GLib.Variant("(ss)", (WATCHER, "RegisteredStatusNotifierItems")))
        except GLib.Error:
            return []

    def item_text(self, which):
        """What the program's item says of itself to whoever draws it."""
        name = self.items()[0].split("/")[0]
        return self._ask(name, "/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", which)))

    def end(self):
        for process in reversed(self.processes):
            process.kill()  # as where a desktop's panel fails; none of them leaves anything behind
            process.wait()
        self._wait(lambda: not self._is_owned(WATCHER), "a desktop without a tray")

    def place(self):
        """The middle of the program's item, which fills the tray, when it is drawn."""
        return self._wait(self._drawn, "the program's item")

    def _drawn(self):
        if len(self.items()) != 1:
            return None
        for panel in self.bus.applications("xfce4-panel"):
            parts = [node.place() for node in panel.walk() if node.role == "panel"]
            left, top, width, height = parts[-1]
            if width > 10:
                return left + width // 2, top + height // 2
        return None

    def click(self, button=1):
        self.bus.click_at(*self.place(), button)

    def entries(self):
        """What the program has in the context menu, from the top; "(off)" where it is disabled."""
        name = self.items()[0].split("/")[0]
        layout = self.session.call_sync(
            name, "/MenuBar", "com.canonical.dbusmenu", "GetLayout",
            GLib.Variant("(iias)", (0, -1, [])), None, Gio.DBusCallFlags.NONE, 10000, None)[1]
        return [entry[1]["label"] + ("" if entry[1].get("enabled", True) else " (off)")
                for entry in layout[2]]

    def choose(self, key, effect, what):
        """Opens the context menu, goes into it by that key and takes what it comes to. A menu is
        not on the accessibility bus, so nothing tells when it is open: it is tried again."""
        for _ in range(5):
            self.click(3)
            self.bus.wait(lambda: False, 1)
            self.bus.type_key(key)
            self.bus.type_key("Return")
            if self.bus.wait(effect, 6):
                return
            self.bus.type_key("Escape")
        raise AssertionError("the context menu did not bring " + what)
