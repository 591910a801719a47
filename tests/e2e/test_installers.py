"""Installers from the scan to the Trash, many at once and one alone."""

from driver.catalog import installers
from driver.disk import size_text
from driver.listcase import ListCase


class InstallersCase(ListCase):

    screen = "Installers"
    subtitle = ("Disk images and packages you already installed from. You can download them again "
                "if you ever need to.")
    hint = "Include this installer in the next removal"
    verb = "Remove"

    def find(self):
        return installers(self.world.home)

    def row_lines(self, row, is_ticked):
        return super().row_lines(row, is_ticked) + ["push button: Show in Finder"]

    def bar_lines(self, ticked):
        size = size_text(sum(row.size for row in ticked))
        return ["label: %d file%s selected · %s" % (len(ticked), "" if len(ticked) == 1 else "s",
                                                    size)]

    def range_of_different_names(self):
        """The first three rows that follow one another and have three names."""
        for first in range(len(self.rows) - 2):
            rows = self.rows[first:first + 3]
            if len({row.name for row in rows}) == 3:
                return rows
        return self.fail("no such rows")


class Installers(InstallersCase):

    def test_a_scan_lists_every_installer_word_for_word(self):
        self.start()
        self.go("Installers")
        self.assert_said(self.sidebar("Installers") + [
            "heading: Installers", "label: " + self.subtitle, "heading: Scan for installers",
            "label: Zolva finds the disk images and packages left in your Downloads and other "
            "folders after you installed from them.",
            "push button: Scan"])
        self.button("Scan").press()
        self.assertGreater(len(self.rows), 5)
        self.assert_said(self.page())

    def test_a_range_of_installers_goes_to_the_Trash_and_the_others_stay(self):
        before = self.everything()
        self.start()
        self.scan()
        going = self.range_of_different_names()
        self.tick(going[0])
        self.focus_row(going[2])
        self.bus.type_key("Shift", "space")
        self.assert_said(self.page(going))
        sheet = self.ask_to_remove(going, "Move 3 installers to the Trash?")
        self.button("Confirm: Move to Trash", "This cannot be undone", inside=sheet).press()
        self.wait_moved(going)
        self.assert_moved(before, going)
        self.rows = [row for row in self.rows if row not in going]
        self.assert_said(self.page())

    def test_the_menu_of_a_row_removes_that_one_at_once(self):
        before = self.everything()
        self.start()
        self.scan()
        ticked, _, gone = self.range_of_different_names()
        self.tick(ticked)
        self.focus_row(gone)
        self.bus.type_key("Menu")
        self.node("menu item", "Remove").press()
        self.wait_moved([gone])
        self.assertEqual(list(self.window().find_all("dialog")), [])
        self.assert_moved(before, [gone])
        self.rows.remove(gone)
        self.assert_said(self.page([ticked]))

    def test_escape_leaves_the_menu_and_nothing_is_removed(self):
        before = self.everything()
        self.start()
        self.scan()
        row = self.rows[0]
        self.focus_row(row)
        self.bus.type_key("Menu")
        self.node("menu item", "Remove")
        self.bus.type_key("Escape")
        self.wait_focus(row.name)
        self.assert_said(self.page())
        self.assert_same(self.everything(), before)
