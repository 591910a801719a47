"""While a removal is going: how far it has come, stopping it, and leaving the program."""

import os
import re

from driver.catalog import categories
from driver.disk import short_path, size_text
from test_clean import CleanCase

STOP_HINT = "Items already removed are not restored"
QUIT_TITLE = "Zolva is still removing files"
QUIT_TEXT = ("Quitting now would stop partway through, leaving some items removed and others not. "
             "Stop the run first, or wait for it to finish.")
PROGRESS = re.compile(r"(\d+) of (\d+)(?:, currently (.+))?")


class RunCase(CleanCase):
    """Every move of a file takes a while, so that there is time to look and to press."""

    delay_ms = 500

    def setUp(self):
        super().setUp()
        self.before = self.everything()
        self.start(delay_ms=self.delay_ms)
        self.scan()
        # Go's cache would be listed twice.
        self.names = [row.name for row in self.rows if row.name != "Go build cache"]
        self.tick(*self.names)
        self.going = self.picked(self.names)

    def confirm(self):
        sheet = self.ask_to_clean(self.names)
        self.button("Confirm: Clean", inside=sheet).press()
        return self.node("progress bar", "Removing caches")

    def step(self):
        """How many are done, of how many, and which is being moved; None when the run is over."""
        for bar in self.window().find_all("progress bar"):
            told = PROGRESS.fullmatch(bar.description)
            self.assertIsNotNone(told, bar.description)
            return int(told[1]), int(told[2]), told[3]
        return None

    def wait_for_steps(self, number):
        self.wait(lambda: (self.step() or (0,))[0] >= number, "%d items removed" % number)

    def assert_first_were_moved(self):
        """As many as the Trash has gained lie in it, the first of the list; all others stay."""
        entries = self.trash_files()
        count = sum(1 for path in self.going
                    if os.path.lexists(os.path.join(entries, os.path.basename(path.short))))
        self.assert_moved(self.before, self.going[:count])
        return count


class Runs(RunCase):

    def test_progress_tells_how_far_it_has_come_and_what_is_next(self):
        self.confirm()
        self.button("Stop removing", STOP_HINT)
        seen = []

        def look():
            step = self.step()
            if step and step not in seen:
                seen.append(step)
            return step is None

        self.wait(look, "the end of the run")
        counts = [done for done, _, _ in seen]
        self.assertEqual(counts, sorted(counts))
        self.assertGreater(len(set(counts)), 2, seen)
        self.assertEqual({total for _, total, _ in seen}, {len(self.going)})
        shown = {self.shortened(path) for path in self.going}
        self.assertEqual({current for _, _, current in seen if current} - shown, set())
        self.node("alert message", "Moved %s to the Trash"
                  % size_text(sum(path.size for path in self.going)))
        self.assert_moved(self.before, self.going)

    @staticmethod
    def shortened(path):
        return short_path(path.shown)

    def test_the_list_is_out_of_reach_while_a_run_is_going(self):
        self.confirm()
        row = next(iter(self.window().find_all("push button", "npm cache")))
        self.assertIn("[disabled]", row.describe())
        self.assertEqual(list(self.window().find_all("push button", "Select all")), [])
        self.wait(lambda: self.step() is None, "the end of the run")


class Stopping(RunCase):
    """Slower still, so that the item in hand is seen to be finished."""

    delay_ms = 2000

    def test_a_stopped_run_leaves_the_rest_where_it_was_and_ticked(self):
        self.confirm()
        self.wait_for_steps(1)
        self.button("Stop removing", STOP_HINT).press()
        self.node("progress bar", "Stopping…")
        stopped = self.wait(lambda: next(
            (toast for toast in self.window().find_all("alert message")
             if toast.name.startswith("Stopped.")), None), "the report of a stopped run")
        self.wait(lambda: self.step() is None, "the end of the run")
        done = self.assert_first_were_moved()
        self.assertGreater(done, 0)
        self.assertLess(done, len(self.going))
        left = len(self.going) - done
        self.assertEqual(stopped.name, "Stopped. %d item%s already removed, %d left alone."
                         % (done, "" if done == 1 else "s", left))
        self.node("alert message", "Moved %s to the Trash"
                  % size_text(sum(path.size for path in self.going[:done])))
        self.rows = categories(self.world.home)
        self.total = sum(row.removable for row in self.rows)
        still = [row.name for row in self.rows if row.name in self.names]
        for name in still:
            self.node("push button", name, self.spoken(name, True))


class Quitting(RunCase):

    def quit_by_key(self):
        self.bus.type_key("Control", "q")
        alert = self.dialog(QUIT_TITLE)
        self.assert_said(["heading: " + QUIT_TITLE, "label: " + QUIT_TEXT, "push button: Keep Going",
                          "push button: Stop and Quit"], inside=alert)
        return alert

    def test_keep_going_lets_the_run_come_to_its_end(self):
        self.confirm()
        alert = self.quit_by_key()
        self.wait_focus("Keep Going")
        self.button("Keep Going", inside=alert).press()
        self.wait_without("dialog", QUIT_TITLE)
        self.node("alert message", "Moved %s to the Trash"
                  % size_text(sum(path.size for path in self.going)))
        self.assert_goes_on()
        self.assert_moved(self.before, self.going)

    def test_escape_keeps_going(self):
        self.confirm()
        self.quit_by_key()
        self.wait_focus("Keep Going")
        self.bus.type_key("Escape")
        self.wait_without("dialog", QUIT_TITLE)
        self.assertIsNotNone(self.step())
        self.assert_goes_on()

    def test_stop_and_quit_leaves_between_two_items_and_tells_nothing_afterwards(self):
        self.confirm()
        self.wait_for_steps(1)
        alert = self.quit_by_key()
        self.button("Stop and Quit", inside=alert).press()
        self.assert_ends()
        done = self.assert_first_were_moved()
        self.assertGreater(done, 0)
        self.assertLess(done, len(self.going))
        # A run that was ended in order is no run that did not finish.
        self.start()
        self.button("Scan")
        self.assertEqual(list(self.window().find_all("alert message")), [])

    def test_a_killed_run_is_told_of_at_the_next_start_once(self):
        self.confirm()
        self.wait_for_steps(1)
        self.process.kill()
        self.process.wait()
        self.start()
        toast = self.node("alert message", "A previous clean run didn't finish. Some items may have been "
                          "removed and others not.")
        self.assert_said(["push button: Show log", "push button: Dismiss notification"],
                         inside=toast)
        self.bus.type_key("Control", "q")
        self.assert_ends()
        self.start()
        self.button("Scan")
        self.assertEqual(list(self.window().find_all("alert message")), [])
