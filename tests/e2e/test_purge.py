"""Build folders from the scan to the Trash."""

from driver.catalog import artifacts
from driver.disk import size_text
from driver.listcase import ListCase

NOTE = "Moved to the Trash, your next build will recreate them."


class PurgeCase(ListCase):

    screen = "Purge"
    subtitle = ("Build artifacts in your project folders. Anything touched in the last week is "
                "found but left unselected.")
    hint = "Include this build folder in the next purge"
    verb = "Purge"

    def find(self):
        return artifacts(self.world.home, self.excluded)

    def bar_lines(self, ticked):
        count = "%d project%s selected" % (len(ticked), "" if len(ticked) == 1 else "s")
        return ["label: " + NOTE] + (["label: " + count] if ticked else [])

    def two(self):
        """Of different names, in the screen's order."""
        return [row for row in self.rows if row.short.endswith(("/target", "/.venv"))]


class Purge(PurgeCase):

    def test_a_scan_lists_every_build_folder_word_for_word_and_ticks_none(self):
        self.start()
        self.go("Purge")
        self.assert_said(self.sidebar("Purge") + [
            "heading: Purge", "label: " + self.subtitle, "heading: Scan for build artifacts",
            "label: Zolva looks through your project folders for node_modules, build output and "
            "other rebuildable artifacts.",
            "push button: Scan"])
        self.button("Scan").press()
        self.assertGreater(len(self.rows), 4)
        self.assert_said(self.page())

    def test_two_of_the_folders_go_to_the_Trash_and_the_others_stay(self):
        before = self.everything()
        self.start()
        self.scan()
        going = self.two()
        self.assertEqual(len(going), 2)
        self.tick(*going)
        self.assert_said(self.page(going))
        size = size_text(sum(row.size for row in going))
        sheet = self.ask_to_remove(going, "Move %s of build artifacts to the Trash?" % size)
        self.button("Confirm: Purge", "This cannot be undone", inside=sheet).press()
        self.wait_moved(going)
        self.assert_moved(before, going)
        self.rows = self.find()
        self.assert_said(self.page())

    def test_the_keys_alone_tick_a_range_and_never_untick(self):
        before = self.everything()
        self.start()
        self.scan()
        target, other = self.two()
        first, last = sorted((self.rows.index(target), self.rows.index(other)))
        self.focus_row(self.rows[first])
        self.bus.type_key("space")
        for row in self.rows[first + 1:last + 1]:
            self.bus.type_key("Down")
            self.wait_focus(row.name)
        self.bus.type_key("Shift", "space")
        self.assert_said(self.page(self.rows[first:last + 1]))
        # A range never unticks.
        self.bus.type_key("Shift", "space")
        self.assert_said(self.page(self.rows[first:last + 1]))
        self.assert_same(self.everything(), before)


class PurgeExclusions(PurgeCase):

    excluded = ("Projects/harbour/target",)

    def test_an_excluded_folder_is_protected_and_stays_when_all_others_go(self):
        before = self.everything()
        self.start()
        self.scan()
        self.assert_said(self.page())
        kept = next(row for row in self.rows if row.is_kept)
        going = [row for row in self.rows if not row.is_kept]
        self.assertEqual(len(going), len(self.rows) - 1)
        self.button("Select all").press()
        self.assert_said(self.page(going))
        self.focus_row(kept)
        self.bus.type_key("space")
        self.assert_said(self.page(going))
        size = size_text(sum(row.size for row in going))
        sheet = self.ask_to_remove(going, "Move %s of build artifacts to the Trash?" % size)
        self.button("Confirm: Purge", inside=sheet).press()
        self.wait_moved(going)
        self.rows = self.find()
        self.assertEqual([row.short for row in self.rows], [kept.short])
        self.assert_said(self.page())
        after = self.everything()
        self.assertEqual({path: told for path, told in before.items()
                          if path == kept.short or path.startswith(kept.short + "/")},
                         {path: told for path, told in after.items()
                          if path == kept.short or path.startswith(kept.short + "/")})
