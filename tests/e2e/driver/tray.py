"""A desktop's panel with a tray in it, as people have them, and what is clicked there."""

import os

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
SETTINGS = "/usr/lib/x86_64-linux-gnu/xfce4/xfconf/xfconfd"
# Each plug-in of the panel has a process of its own, which is who holds the items.
HOLDER = "wrapper-2.0"


class Tray:
    """Begins in a world that has none, and can end before it."""

    def __init__(self, world, bus):
        self.world = world
        self.bus = bus
        folder = os.path.join(world.root, "outside/.config/xfce4/xfconf/xfce-perchannel-xml")
        os.makedirs(folder, exist_ok=True)
        with open(os.path.join(folder, "xfce4-panel.xml"), "w", encoding="utf-8") as out:
            out.write(CONFIG)
        self.settings = world.spawn([self._settings_program()])
        world.wait_for_name("org.xfce.Xfconf")
        self.panel = world.spawn(["xfce4-panel", "--disable-wm-check"])
        world.wait_for_name("org.kde.StatusNotifierWatcher")

    @staticmethod
    def _settings_program():
        """Where this architecture's libraries are."""
        for triplet in os.listdir("/usr/lib"):
            path = "/usr/lib/%s/xfce4/xfconf/xfconfd" % triplet
            if os.path.exists(path):
                return path
        raise RuntimeError("xfconfd is not installed")

    def end(self):
        for process in (self.panel, self.settings):
            process.terminate()
            process.wait()
        self.world.wait_for_name("org.kde.StatusNotifierWatcher", owned=False)
