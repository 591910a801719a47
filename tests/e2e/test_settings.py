"""What is decided on the Settings screen holds everywhere, at once and after the next start."""

import json
import os
import stat

from driver.case import WindowCase
from driver.disk import size_text, without
from test_clean import SUBTITLE, CleanCase
from test_purge import PurgeCase

PROMPT = "Add a folder or file to never touch"
KEEP = "Move to the Trash instead of deleting"
KEPT = ("On, removals are recoverable. Clean, Purge, Installers and Uninstall put things in the "
        "Trash, where you can put them back. The space comes back when you empty it.")
GONE = ("Off, removals are permanent. Clean, Purge, Installers and Uninstall remove things for "
        "good. Nothing goes to the Trash and nothing can be undone.")
DELETES = ("Caches and build artifacts your Mac rebuilds on its own. Cleaning deletes them for "
           "good, so the space comes back straight away.")


class OnSettings:
    """What is done on that screen, whichever others a case looks at."""

    def prefs(self):
        return json.loads(self.world.ask_control("prefs", "--json"))

    def wait_pref(self, key, value):
        self.wait(lambda: self.prefs()[key] == value, "%s as %s" % (key, value))

    def type_path(self, text):
        self.node("text", PROMPT).focus()
        self.wait_focus(PROMPT)
        self.bus.type_text(text)

    def exclude(self, path):
        self.type_path(path)
        self.wait(lambda: "[disabled]" not in self.button("Add").describe(), "a button to add")
        self.button("Add").press()
        self.node("label", path)


class SettingsCase(OnSettings, CleanCase):
    """Settings that hold on Clean."""


class Settings(SettingsCase):

    def test_the_theme_is_chosen_and_kept(self):
        self.start()
        self.go("Settings")
        picker = self.node("panel", "Theme")
        for name in ("Dark", "Light", "System"):
            self.button(name, inside=picker).press()
            self.wait_pref("themeMode", name.lower())
            self.wait(lambda: [one.name for one in picker.find_all("push button")
                               if "checked" in one.states] == [name], "the mark at " + name)
        self.button("Dark", inside=picker).press()
        self.wait_pref("themeMode", "dark")
        self.bus.type_key("Control", "q")
        self.assert_ends()
        self.start()
        self.go("Settings")
        self.assertIn("checked", self.button("Dark").states)
        self.assertIn("checked", self.button(KEEP, KEPT).states)

    def test_the_interval_is_that_of_the_next_readings(self):
        self.start()
        self.go("Settings")
        slider = self.node("slider", "Interval", "1 second")
        slider.focus()
        self.wait_focus("Interval")
        for text in ("2 seconds", "3 seconds"):
            self.bus.type_key("Right")
            self.node("slider", "Interval", text)
        self.wait_pref("pollInterval", 3)
        self.go("Status")
        self.wait(lambda: self.intervals() == ["3s"], "the tool with that interval")

    def intervals(self):
        path = "/proc/%d/task/%d/children" % (self.process.pid, self.process.pid)
        found = []
        with open(path, encoding="ascii") as children:
            for pid in children.read().split():
                with open("/proc/%s/cmdline" % pid, "rb") as line:
                    words = line.read().decode().split("\0")
                if "--interval" in words:
                    found.append(words[words.index("--interval") + 1])
        return found

    def test_a_wrong_path_is_told_and_not_added(self):
        self.start()
        self.go("Settings")
        self.type_path("relative")
        error = "Enter a full path, starting with / or ~."
        self.node("alert message", error)
        self.assertIn("[disabled]", self.button("Add").describe())
        self.bus.type_key("Return")
        self.node("text", PROMPT, error)
        self.assertEqual(self.prefs()["whitelist"], [])

    def test_the_links_open_the_source_and_the_license(self):
        opened = self.opener()
        self.start()
        self.go("Settings")
        # What is scrolled away is not there for a reader before the keyboard comes to it.
        self.button("Ask with Touch ID when a path needs sudo").focus()
        self.wait_focus("Ask with Touch ID when a path needs sudo")
        self.bus.type_key("Tab")
        self.button("View source").press()
        self.wait(lambda: self.read(opened).startswith("https://"), "a page")
        self.button("License").press()
        self.wait(lambda: self.read(opened).startswith("file://"), "a file")
        with open(self.read(opened)[len("file://"):], encoding="utf-8") as license_text:
            self.assertIn("License", license_text.read())

    def opener(self):
        """A desktop that notes what it is to open; the file it notes that in."""
        note = os.path.join(self.world.root, "opened")
        folder = os.path.join(self.world.root, "bin")
        os.mkdir(folder)
        program = os.path.join(folder, "xdg-open")
        with open(program, "w", encoding="ascii") as out:
            out.write("#!/bin/sh\nprintf %%s \"$1\" >%s.part\nmv %s.part %s\n" % (note, note, note))
        os.chmod(program, stat.S_IRWXU)
        self.world.env["PATH"] = folder + ":" + self.world.env["PATH"]
        data = os.path.join(self.world.root, "data")
        os.makedirs(os.path.join(data, "applications"))
        with open(os.path.join(data, "applications/any.desktop"), "w", encoding="ascii") as out:
            out.write("[Desktop Entry]\n")
        with open(os.path.join(data, "applications/mimeinfo.cache"), "w", encoding="ascii") as out:
            out.write("[MIME Cache]\nx-scheme-handler/https=any.desktop;\ntext/plain=any.desktop;\n")
        self.world.env["XDG_DATA_DIRS"] = data + ":/usr/local/share:/usr/share"
        return note

    @staticmethod
    def read(path):
        try:
            with open(path, encoding="utf-8") as content:
                return content.read()
        except FileNotFoundError:
            return ""


class Excluded(SettingsCase):

    excluded = ("Library/Caches/com.example.browser",)

    def test_what_is_added_is_protected_on_Clean_and_back_when_it_is_removed(self):
        self.start()
        self.go("Settings")
        path = "~/" + self.excluded[0]
        self.exclude(path)
        self.wait_pref("whitelist", [path])
        self.scan()
        name = "Application caches"
        self.button(name, "Shows the list of paths").press()
        self.assert_said(self.page(opened=name))
        self.assertIn("label: %s | Protected" % path, self.window().said())

        self.go("Settings")
        self.button("Remove", path).press()
        self.wait_without("label", path)
        self.wait_pref("whitelist", [])
        self.go("Clean")
        self.node("label", path, size_text(self.size_of(path)))

    def size_of(self, shown):
        return next(one.size for row in self.rows for one in row.paths if one.shown == shown)


class ExcludedFromPurge(OnSettings, PurgeCase):

    def test_what_is_added_is_protected_on_Purge_and_back_when_it_is_removed(self):
        self.start()
        self.scan()
        self.assert_said(self.page())
        short = next(row.short for row in self.rows if row.short.endswith("/target"))

        self.go("Settings")
        self.exclude("~/" + short)
        self.wait_pref("whitelist", ["~/" + short])
        self.go("Purge")
        self.excluded = (short,)
        self.rows = self.find()
        self.assertEqual([row.short for row in self.rows if row.is_kept], [short])
        self.assert_said(self.page())
        self.button("Select all").press()
        self.assert_said(self.page([row for row in self.rows if not row.is_kept]))

        self.button("Deselect all").press()
        self.go("Settings")
        self.button("Remove", "~/" + short).press()
        self.wait_pref("whitelist", [])
        self.go("Purge")
        self.excluded = ()
        self.rows = self.find()
        self.assert_said(self.page())


class Permanent(SettingsCase):

    def test_with_the_Trash_switched_off_removals_are_for_good_and_said_so(self):
        before = self.everything()
        trash = self.trash()
        self.start()
        self.go("Settings")
        self.button(KEEP, KEPT).press()
        self.button(KEEP, GONE)
        self.wait_pref("keepInTrash", False)

        self.scan()
        said = self.window().said()
        self.assertIn("label: " + DELETES, said)
        self.assertNotIn("label: " + SUBTITLE, said)
        name = "Xcode DerivedData"
        self.tick(name)
        going = self.picked([name])
        size = size_text(sum(path.size for path in going))
        self.button("Clean " + size).press()
        sheet = self.dialog("Delete %s permanently?" % size)
        body = sheet.said()[1]
        self.assertIn("This cannot be undone.", body)
        self.assertNotIn("put them back", body)
        self.button("Confirm: Clean", inside=sheet).press()
        self.node("alert message", "Deleted %s permanently" % size)
        self.assertEqual(self.trash(), trash)
        after = self.everything()
        # Where things lie between the Trash and nowhere; it stays, with nothing in it.
        after.pop(".local/share/Trash/expunged", None)
        self.assert_same(after, without(before, [path.short for path in going]))


del CleanCase, SettingsCase
