"""From the first scan to what lies in the Trash afterwards."""

import os

from driver import disk
from driver.case import WindowCase
from driver.catalog import categories
from driver.disk import size_text

HINT = "Include this category in the next clean"
TRASHED = "They go to the Trash, so you can put them back."
NOTE = "Your Mac rebuilds these caches on its own. Anything already in your Trash is left alone."
SUBTITLE = ("Caches and build artifacts your Mac rebuilds on its own. These go to the Trash, so you "
            "can put them back.")


def counted(number, noun, plural=None):
    return "%d %s" % (number, noun if number == 1 else plural or noun + "s")


class CleanCase(WindowCase):
    """A home whose categories are known."""

    excluded = ()

    def setUp(self):
        super().setUp()
        self.rows = categories(self.world.home, self.excluded)
        self.total = sum(row.removable for row in self.rows)

    def scan(self):
        """Scans by the Clean screen's own button."""
        self.go("Clean")
        self.button("Scan").press()
        self.button("Rescan")

    def row(self, name):
        return self.node("push button", name, self.spoken(name, self.ticked(name)))

    def category(self, name):
        return next(row for row in self.rows if row.name == name)

    def spoken(self, name, is_ticked):
        return "%s. %s" % (self.category(name).value(is_ticked), HINT)

    def ticked(self, name):
        """Whether the screen shows it ticked; what it says of it must fit."""
        for is_ticked in (True, False) if self.category(name).removable else (False,):
            found = list(self.window().find_all("push button", name, self.spoken(name, is_ticked)))
            if found:
                self.assertEqual("checked" in found[0].states, is_ticked)
                return is_ticked
        return self.fail("no row “%s” is shown" % name)

    def tick(self, *names):
        for name in names:
            self.row(name).press()
            self.node("push button", name, self.spoken(name, True))

    def picked(self, names):
        """The paths that go with these categories, in the order of the rows."""
        return [path for row in self.rows if row.name in names for path in row.going]

    def row_lines(self, row, is_ticked=False, is_open=False):
        marks = (" [checked]" if is_ticked and row.removable else "") + (
            "" if row.removable else " [disabled]")
        opener = "Hides the list of paths" if is_open else "Shows the list of paths"
        if not row.removable:
            # The only one of the two that the keyboard comes to.
            opener = row.value(False) + ". " + opener
        lines = ["push button: %s | %s. %s%s" % (row.name, row.value(is_ticked), HINT, marks),
                 "push button: %s | %s" % (row.name, opener)]
        if is_open:
            lines.append("label: " + row.detail())
            for path in row.paths[:15]:
                trailing = "Protected" if path.is_kept else size_text(path.size)
                lines.append("label: %s | %s" % (path.shown, trailing))
            if len(row.paths) > 15:
                left = len(row.paths) - 15
                lines.append("label: + %s, also included"
                             % counted(left, "smaller path", "smaller paths"))
        return lines

    def page(self, ticked=(), opened=None, counted_in=()):
        """Every line of the window on a loaded Clean screen. What can no longer be ticked may
        still be counted as it was."""
        size = size_text(sum(path.size for path in self.picked(ticked)))
        kept = sum(1 for row in self.rows for path in row.paths if path.is_kept)
        lines = self.sidebar("Clean", {"Clean": size_text(self.total)})
        lines += ["heading: Clean", "label: " + SUBTITLE,
                  "push button: Rescan | Runs the scan again and refreshes the list",
                  "push button: Largest first",
                  "label: " + size,
                  "label: %d of %s selected" % (len(ticked) + len(counted_in),
                                                counted(len(self.rows), "category",
                                                        "categories"))]
        for row in self.rows:
            lines += self.row_lines(row, row.name in ticked, row.name == opened)
        note = "%s protected and skipped." % counted(kept, "path") if kept else (
            "Everything selected goes to the Trash. Your Mac rebuilds these on its own.")
        every = len(ticked) == len(self.rows)
        lines += ["label: " + note,
                  "push button: " + ("Deselect all" if every else "Select all"),
                  "push button: Clean " + size + ("" if ticked else " [disabled]")]
        return lines

    def sheet_lines(self, names):
        paths = self.picked(names)
        size = size_text(sum(path.size for path in paths))
        body = "Removing %s across %s. %s %s" % (
            counted(len(paths), "path"), counted(len(names), "category", "categories"), TRASHED,
            NOTE)
        lines = ["heading: Move %s to the Trash?" % size, "label: " + body]
        lines.append("list: What will be removed")
        lines += ["list item: %s, %s" % (path.shown, size_text(path.size))
                  for path in paths[:14]]
        if len(paths) > 14:
            lines.append("label: and %d more" % (len(paths) - 14))
        return lines + ["push button: Cancel | Closes this without removing anything",
                        "push button: Confirm: Clean | This cannot be undone"]

    def sheet(self, names):
        size = sum(path.size for path in self.picked(names))
        return self.dialog("Move %s to the Trash?" % size_text(size))

    def ask_to_clean(self, names):
        size = sum(path.size for path in self.picked(names))
        self.button("Clean " + size_text(size)).press()
        return self.sheet(names)


class Clean(CleanCase):

    def test_a_scan_lists_every_category_word_for_word(self):
        self.start()
        self.go("Clean")
        self.assert_said(self.sidebar("Clean") + [
            "heading: Clean", "label: " + SUBTITLE, "heading: Scan for cleanable files",
            "label: Zolva looks through your caches, logs and build artifacts, the things macOS "
            "rebuilds on its own.",
            "push button: Scan"])
        self.button("Scan").press()
        self.assert_said(self.page())

    def test_a_tick_is_counted_and_taken_back(self):
        self.start()
        self.scan()
        self.tick("npm cache")
        self.assert_said(self.page(["npm cache"]))
        self.row("npm cache").press()
        self.assert_said(self.page())

    def test_shift_and_space_tick_all_rows_between(self):
        self.start()
        self.scan()
        names = [row.name for row in self.rows]
        self.tick(names[1])
        self.row(names[4]).focus()
        self.wait_focus(names[4])
        self.bus.type_key("Shift", "space")
        self.assert_said(self.page(names[1:5]))
        # Nothing is ever unticked by a range.
        self.row(names[2]).focus()
        self.wait_focus(names[2])
        self.bus.type_key("Shift", "space")
        self.assert_said(self.page(names[1:5]))

    def test_select_all_ticks_every_row_and_takes_all_back(self):
        self.start()
        self.scan()
        self.button("Select all").press()
        self.assert_said(self.page([row.name for row in self.rows]))
        self.button("Deselect all").press()
        self.assert_said(self.page())

    def test_an_open_row_lists_its_paths_and_closes_the_one_before(self):
        self.start()
        self.scan()
        for name in ("Application caches", "npm cache"):
            self.button(name, "Shows the list of paths").press()
            self.assert_said(self.page(opened=name))
        self.button("npm cache", "Hides the list of paths").press()
        self.assert_said(self.page())

    def test_a_cancelled_sheet_removes_nothing(self):
        before = self.everything()
        self.start()
        self.scan()
        self.tick("npm cache", "Application caches")
        names = ["Application caches", "npm cache"]
        sheet = self.ask_to_clean(names)
        self.assert_said(self.sheet_lines(names), inside=sheet)
        self.wait_focus("Cancel")
        self.button("Cancel", inside=sheet).press()
        self.wait_without("dialog", sheet.name)
        self.ask_to_clean(names)
        self.wait_focus("Cancel")
        self.bus.type_key("Escape")
        self.wait_without("dialog", sheet.name)
        self.assert_said(self.page(names))
        self.assert_same(self.everything(), before)

    def test_what_is_ticked_goes_to_the_Trash_and_nothing_else_changes(self):
        before = self.everything()
        self.start()
        self.scan()
        names = ["Application caches", "Xcode DerivedData"]
        self.tick(*names)
        going = self.picked(names)
        freed = size_text(sum(path.size for path in going))
        sheet = self.ask_to_clean(names)
        self.assert_said(self.sheet_lines(names), inside=sheet)
        self.button("Confirm: Clean", "This cannot be undone", inside=sheet).press()
        toast = self.node("alert message", "Moved %s to the Trash" % freed)
        self.assert_said(["push button: Open Trash", "push button: Dismiss notification"],
                         inside=toast)
        self.assert_moved(before, going)
        self.button("Dismiss notification").press()
        self.rows = categories(self.world.home)
        self.total = sum(row.removable for row in self.rows)
        self.assert_said(self.page(counted_in=["Application caches"]))

    def test_the_keys_alone_are_enough(self):
        before = self.everything()
        self.start()
        self.bus.type_key("Control", "2")
        self.wait_for_screen("Clean")
        self.tab_to("Scan")
        self.bus.type_key("Return")
        self.button("Rescan")
        first = self.rows[1].name
        self.tab_to(self.rows[0].name)
        self.bus.type_key("Down")
        self.wait_focus(first)
        self.bus.type_key("space")
        self.node("push button", first, self.spoken(first, True))
        going = self.picked([first])
        size = size_text(sum(path.size for path in going))
        self.tab_to("Clean " + size)
        self.bus.type_key("Return")
        self.wait_focus("Cancel")
        self.bus.type_key("Tab")
        self.tab_to("Confirm: Clean")
        self.bus.type_key("Return")
        self.node("alert message", "Moved %s to the Trash" % size)
        self.assert_moved(before, going)

    def test_the_tab_key_goes_round_the_window_after_a_scan(self):
        self.start()
        self.go("Clean")
        self.tab_to("Scan")
        self.bus.type_key("Return")
        self.wait_focus("Rescan")
        first = self.rows[0].name
        trash = ["Empty Trash"] if self.trash()[0] else []
        self.assert_tabs(["Largest first", first, first, "Select all", "Clean"] + trash
                         + ["Rescan"])


class Exclusions(CleanCase):

    excluded = ("Library/Caches/com.example.browser",)

    def test_an_excluded_path_is_protected_and_out_of_every_sum(self):
        self.world.ask_control("exclusions", "add", "~/" + self.excluded[0])
        before = self.everything()
        self.start()
        self.scan()
        name = "Application caches"
        self.button(name, "Shows the list of paths").press()
        self.tick(name)
        self.assert_said(self.page([name], opened=name))
        self.assertIn("label: ~/%s | Protected" % self.excluded[0], self.window().said())
        sheet = self.ask_to_clean([name])
        self.assert_said(self.sheet_lines([name]), inside=sheet)
        self.button("Confirm: Clean", inside=sheet).press()
        going = self.picked([name])
        self.node("alert message", "Moved %s to the Trash" % size_text(sum(path.size for path in going)))
        self.assert_moved(before, going)
        self.assertTrue(os.path.isdir(self.home(self.excluded[0])))

    def test_a_category_of_excluded_paths_alone_cannot_be_ticked(self):
        place = "Library/Developer/Xcode/DerivedData"
        self.world.ask_control("exclusions", "add", "~/" + place)
        self.rows = categories(self.world.home,
                               [place + "/" + name for name in os.listdir(self.home(place))])
        self.total = sum(row.removable for row in self.rows)
        self.start()
        self.scan()
        self.assert_said(self.page())
        row = self.row("Xcode DerivedData")
        self.assertIn("[disabled]", row.describe())
        self.button("Select all").press()
        self.wait(lambda: not self.ticked("Xcode DerivedData") and self.ticked("npm cache"),
                  "every other row ticked")
