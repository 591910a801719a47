"""The walk through the storage, and one large file at a time to the Trash and back."""

import os
import urllib.parse

from driver import disk
from driver.case import WindowCase
from driver.disk import blocks, size_text
from driver.file_manager import FileManager

ISO = "debian-12-netinst.ISO"
TRASH = ".local/share/Trash"
UNDO = "Undo"


class AnalyzeCase(WindowCase):

    def open_overview(self):
        self.start()
        self.go("Analyze")
        self.button("Scan").press()
        self.node("label", "Computer")

    def enter(self, name):
        """Into the folder of that name, by its row."""
        self.wait(lambda: self.rows_named(name), "the row of " + name)[0].press()
        self.node("label", name)

    def rows_named(self, name):
        return [node for node in self.window().find_all("push button", name) if node.description]

    def open_downloads(self):
        self.open_overview()
        self.rows_named("Home")[0].press()
        self.node("label", "~")
        self.enter("Downloads")

    def entries(self, *parts):
        """The lines of what lies in a folder of the home, and its totals."""
        folder = self.home(*parts)
        sizes = {name: blocks(os.path.join(folder, name)) for name in os.listdir(folder)}
        whole = sum(sizes.values())
        lines = []
        for name, size in sizes.items():
            is_folder = os.path.isdir(os.path.join(folder, name))
            lines.append("%s: %s | %s, %.1f%%" % ("push button" if is_folder else "list item", name,
                                                  size_text(size), size * 100 / whole))
        count = sum(len(files) for _, _, files in os.walk(folder))
        return lines, "label: %s · %d files" % (size_text(whole), count)

    def assert_place(self, crumbs, *parts):
        """The page shows this folder of the home: the way to it, its totals, its entries."""
        rows, totals = self.entries(*parts)

        def look():
            said = self.window().said()
            if totals not in said:
                return None
            at = said.index(totals)
            shown = [line for line in said if line in rows]
            return said[at - len(crumbs):at] == crumbs and sorted(shown) == sorted(rows)

        self.wait(look, "the place with %s, %s and %s" % (crumbs, totals, rows))

    def iso(self):
        return self.home("Downloads", ISO)

    def size(self):
        return size_text(blocks(self.iso()))

    def mover(self):
        return self.button("Move %s to the Trash, %s" % (ISO, self.iso_size))

    def move(self):
        """Moves the largest file, and gives the toast."""
        self.iso_size = self.size()
        self.mover().press()
        toast = self.node("alert message", "Moved %s to the Trash" % self.iso_size)
        self.assert_said(["push button: Undo", "push button: Dismiss notification"], inside=toast)
        return toast

    def assert_moved(self, before):
        """It lies in the Trash, and nothing else is other than it was."""
        after = self.everything()
        moved = {TRASH + "/files/" + ISO: before["Downloads/" + ISO]}
        info = TRASH + "/info/" + ISO + ".trashinfo"
        self.assertIn(info, after)
        moved[info] = after[info]
        self.assert_same(after, {**disk.without(before, ["Downloads/" + ISO]), **moved})


class Walking(AnalyzeCase):

    def test_the_way_leads_three_levels_down_and_back_by_its_steps(self):
        before = self.everything()
        self.open_downloads()
        self.assert_place(["push button: Computer", "push button: ~", "label: Downloads"],
                          "Downloads")
        self.enter("kept")
        self.assert_place(["push button: Computer", "push button: ~", "push button: Downloads",
                           "label: kept"], "Downloads", "kept")
        self.button("Downloads").press()
        self.assert_place(["push button: Computer", "push button: ~", "label: Downloads"],
                          "Downloads")
        self.button("~").press()
        self.node("label", "~")
        self.button("Computer").press()
        self.node("label", "Computer")
        self.assertTrue(self.rows_named("Home"))
        self.assert_same(self.everything(), before)

    def test_the_place_is_still_shown_after_another_screen(self):
        self.open_downloads()
        self.go("Home")
        self.go("Analyze")
        self.assert_place(["push button: Computer", "push button: ~", "label: Downloads"],
                          "Downloads")

    def test_the_keys_alone_lead_down_and_up(self):
        self.open_overview()
        self.rows_named("Home")[0].focus()
        self.bus.type_key("Return")
        self.node("label", "~")
        self.wait(lambda: self.focused() and self.focused().description.endswith("%"),
                  "the focus among the rows")
        self.bus.type_key("Left")
        self.node("label", "Computer")
        self.wait_focus("Home")


class LargeFiles(AnalyzeCase):

    def test_a_large_file_moves_to_the_Trash_and_nothing_else_changes(self):
        before = self.everything()
        self.open_downloads()
        self.move()
        marked = self.node("label", ISO + " is in the Trash", "You can put it back from the Trash")
        self.assertFalse(list(self.window().find_all("dialog")))
        self.assert_moved(before)
        self.assertTrue(marked)

    def test_undo_brings_it_back(self):
        before = self.everything()
        self.open_downloads()
        self.button(UNDO, inside=self.move()).press()
        self.mover()
        self.assert_same(self.everything(), before)

    def test_undo_leaves_alone_what_has_taken_the_name(self):
        before = self.everything()
        self.open_downloads()
        toast = self.move()
        with open(self.iso(), "wb") as taken:
            taken.write(b"new")
        self.button(UNDO, inside=toast).press()
        self.node("alert message", "Something else is already at %s, so %s stayed in the Trash"
                  % (self.iso(), ISO))
        with open(self.iso(), "rb") as taken:
            self.assertEqual(taken.read(), b"new")
        os.remove(self.iso())
        self.assert_moved(before)

    def test_undo_tells_that_the_Trash_was_emptied(self):
        before = self.everything()
        self.open_downloads()
        toast = self.move()
        os.remove(self.home(TRASH, "files", ISO))
        os.remove(self.home(TRASH, "info", ISO + ".trashinfo"))
        self.button(UNDO, inside=toast).press()
        self.node("alert message", ISO + " is no longer in the Trash, so it can't be put back")
        self.button(UNDO, inside=toast).press()
        self.node("alert message", "That item can no longer be put back")
        self.assert_same(self.everything(), disk.without(before, ["Downloads/" + ISO]))

    def test_a_file_is_shown_in_the_file_manager(self):
        files = FileManager(self.world.env["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(files.close)
        self.open_downloads()
        self.iso_size = self.size()
        self.mover().focus()
        self.wait_focus(self.mover().name)
        self.bus.type_key("Menu")
        self.node("menu item", "Show in Finder", inside=self.application)
        self.bus.type_key("Down")
        self.bus.type_key("Return")
        self.wait(lambda: files.shown, "the call of the file manager")
        self.assertEqual(files.shown, [("ShowItems",
                                        ["file://" + urllib.parse.quote(self.iso())])])
