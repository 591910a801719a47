"""What every test of the whole program begins with: a world, the program in it, and a reader."""

import difflib
import json
import os
import unittest

from driver import disk
from driver.bus import Bus, Gone
from driver.disk import blocks, size_text, snapshot
from driver.world import World

# Long enough for a busy machine and a slow build; nothing waits as long where all is well.
PATIENCE = int(os.environ.get("ZOLVA_PATIENCE", "30"))

# What the program and the libraries it draws with keep for themselves in a home.
OWN_FILES = (".config/zolva", ".local/state/zolva", ".cache/zolva", "Library/Logs/Zolva",
             ".cache/mesa_shader_cache", ".cache/fontconfig",
             ".cache/qtshadercache-x86_64-little_endian-lp64")

TRASH = ".local/share/Trash"


class WindowCase(unittest.TestCase):
    """A home with examples, and nothing running yet."""

    blocked = False
    maxDiff = None

    def setUp(self):
        self.world = World(os.environ["ZOLVA_PROGRAM"], os.environ["ZOLVA_CONTROL"], self.blocked)
        self.addCleanup(self.world.close)
        self.bus = Bus(self.world.env["DBUS_SESSION_BUS_ADDRESS"])
        self.process = None
        self.application = None
        self.addCleanup(self._tell_what_is_shown)

    def _tell_what_is_shown(self):
        outcome = self._outcome.result
        failed = any(test is self for test, _ in outcome.failures + outcome.errors)
        if failed and self.application and self.process.poll() is None:
            print("--- what was shown\n" + "\n".join(self.application.dump()))
        if failed and self.world.said():
            print("--- what the program said\n" + self.world.said())

    # The program

    def start(self, **how):
        """Starts the program and waits for its window."""
        self.process = self.world.start_program(**how)
        self.application = self.wait(self._registered, "the program on the accessibility bus")
        window = self.wait(self.window, "the window")
        self.wait(lambda: "active" in window.states, "a window that takes keys")
        return window

    def _registered(self):
        self.assert_goes_on()
        return self.bus.application(self.process.pid)

    def window(self):
        shown = self.application.shown_children()
        return next((child for child in shown if child.name == "Zolva"), None)

    def assert_ends(self, process=None):
        """It leaves by itself, with nothing to complain of and nothing said."""
        process = process or self.process
        self.assertIsNotNone(self.bus.wait(lambda: process.poll() is not None, PATIENCE),
                             "the program did not end")
        self.assertEqual(process.returncode, 0, self.world.said())
        self.assertEqual(self.world.said(), "")

    def assert_goes_on(self):
        if self.process.poll() is not None:
            self.fail("the program ended with %d" % self.process.returncode)

    # Looking

    def wait(self, look, what, seconds=PATIENCE):
        found = self.bus.wait(look, seconds)
        if not found:
            self.fail("%s did not come up in %d s" % (what, seconds))
        return found

    def node(self, role, name, description=None, inside=None):
        """The one thing shown by that role, name and description, as soon as it is there."""
        def look():
            top = inside or self.window()
            found = list(top.find_all(role, name, description)) if top else []
            if len(found) > 1:
                raise AssertionError("%d are shown: %s" % (len(found), found[0].describe()))
            return found and found[0]

        return self.wait(look, "%s “%s” %s" % (role, name, description or ""))

    def button(self, name, description=None, inside=None):
        return self.node("push button", name, description, inside)

    def dialog(self, name):
        return self.node("dialog", name)

    def wait_without(self, role, name):
        def look():
            return not any(self.window().find_all(role, name))

        self.wait(look, "a window without %s “%s”" % (role, name))

    def row_of(self, screen):
        """The row of a screen in the sidebar."""
        return self.button(screen, inside=self.node("page tab list", "Screens"))

    def wait_for_screen(self, screen):
        self.wait(lambda: "selected" in self.row_of(screen).states, "the screen " + screen)

    def go(self, screen):
        self.row_of(screen).press()
        self.wait_for_screen(screen)

    def assert_said(self, expected, inside=None):
        """Everything that is shown, in order, word for word; nothing more and nothing less."""
        last = []

        def look():
            top = inside or self.window()
            last[:] = top.said() if top else []
            return last == expected

        if not self.bus.wait(look, PATIENCE):
            diff = difflib.unified_diff(expected, last, "expected", "shown", lineterm="", n=100)
            self.fail("\n".join(diff))

    def focused(self):
        """What the keys go to; what that stands in is told as focused, too."""
        def below(top):
            return next((node for node in top.walk() if node != top and "focused" in node.states
                         and "active" not in node.states), None)

        try:
            at = below(self.window())
            return at and below(at) or at
        except Gone:
            return None

    def wait_focus(self, name):
        def look():
            at = self.focused()
            return at if at and at.name == name else None

        return self.wait(look, "the focus on “%s”" % name)

    def tab_to(self, name):
        """Presses Tab until the focus is there, at most as often as there are things."""
        for _ in range(40):
            at = self.focused()
            if at and at.name == name:
                return
            self.tab()
        self.fail("Tab does not come to “%s”" % name)

    def tab(self):
        """Presses Tab once; what has the focus then, if anything has it."""
        at = self.focused()
        self.bus.type_key("Tab")

        def look():
            now = self.focused()
            return now if now and now != at else None

        return self.bus.wait(look, 5)

    def assert_tabs(self, names):
        """The Tab key comes to these, one after the other, from where the focus is."""
        came = []
        for _ in names:
            at = self.tab()
            came.append(at.name if at else None)
        self.assertEqual(came, names)

    # What stands on every page

    def sidebar(self, selected, chips=None):
        """The lines of the sidebar, with `chips` by label."""
        version, tool = self.versions()
        lines = ["page tab list: Screens"]
        for label, head in (("Home", "RECLAIM"), ("Clean", None), ("Purge", None),
                            ("Installers", None), ("Uninstall", "INSPECT"), ("Analyze", None),
                            ("Status", "SYSTEM"), ("Settings", None)):
            if head:
                lines.append("heading: " + head)
            chip = (chips or {}).get(label)
            lines.append("push button: " + label + (" | " + chip if chip else "")
                         + (" [selected]" if label == selected else ""))
        count, size = self.trash()
        if count:
            lines.append("push button: Empty Trash | " + size_text(size))
        lines.append("label: Zolva %s\nmo %s · Bundled" % (version, tool))
        return lines

    def versions(self):
        told = json.loads(self.world.ask_control("version", "--json"))
        return told["version"], told["mo"]["version"] or "—"

    # The disk

    def home(self, *parts):
        return os.path.join(self.world.home, *parts)

    def everything(self):
        """All that lies in the home and is not the program's own."""
        return snapshot(self.world.home, OWN_FILES)

    def assert_same(self, found, expected):
        """Two snapshots; only what differs is told."""
        lines = []
        for short in sorted(found.keys() | expected.keys()):
            if found.get(short) != expected.get(short):
                lines.append("%s: %s, expected %s"
                             % (short, found.get(short), expected.get(short)))
        if lines:
            self.fail("the disk differs:\n" + "\n".join(lines[:40]))

    def assert_moved(self, before, paths):
        """These lie whole in the Trash, and nothing else has changed anywhere in the home."""
        after = self.everything()
        gone = [path.short for path in paths]
        expected = disk.without(before, gone)
        for short in gone:
            name = os.path.basename(short)
            for below, told in disk.below(before, short).items():
                expected[TRASH + "/files/" + name + below] = told
        infos = {TRASH + "/info/" + os.path.basename(short) + ".trashinfo" for short in gone}
        self.assert_same({short: told for short, told in after.items() if short not in infos},
                         expected)
        self.assertEqual({short for short in infos if short in after}, infos)

    def trash_files(self):
        return self.home(TRASH, "files")

    def trash(self):
        entries = os.listdir(self.trash_files())
        return len(entries), sum(blocks(os.path.join(self.trash_files(), entry))
                                 for entry in entries)
