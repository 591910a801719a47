"""The item in the desktop's tray, and the panel behind it."""

import json
import os

from driver.catalog import categories
from driver.disk import size_text
from driver.tray import Tray
from driver.case import WindowCase
from test_runs import QUIT_TITLE, RunCase
from test_status import StatusCase

PANEL = "Zolva menu"


class TrayCase(WindowCase):
    """A desktop that has a tray."""

    def setUp(self):
        super().setUp()
        self.tray = Tray(self.world, self.bus)

    def panel(self):
        return next((child for child in self.application.shown_children()
                     if child.name == PANEL), None)

    def open_panel(self):
        self.wait(self.tray.place, "the item")
        # Its host draws it only then.
        self.bus.wait(lambda: False, 1)
        self.tray.click()
        return self.wait(self.panel, "the panel")

    def wait_without_panel(self):
        self.wait(lambda: not self.panel(), "a screen without the panel")
        # A click that comes at once is taken for the one that closed it.
        self.bus.wait(lambda: False, 0.4)

    def wait_in_front(self):
        """The window has the keys, and will not take them from a panel any more."""
        self.wait(lambda: self.window() and "active" in self.window().states,
                  "the window in front")

    def close_window(self):
        self.wait(lambda: self.tray.place(), "the item")
        self.bus.type_key("Alt", "F4")
        self.wait(lambda: not self.window(), "a screen without the window")

    def row(self, label, panel):
        """A row of what can be reclaimed; it says more than its label."""
        return self.wait(lambda: next(
            (row for row in panel.find_all("push button") if row.name.startswith(label + ", ")),
            None), "the row “%s”" % label)

    def told(self, command):
        """How many a scan by the command line finds, and their sum."""
        (items,) = json.loads(self.world.ask_control(command, "--json")).values()
        return len(items), sum(item["b"] for item in items)


class Panel(TrayCase):

    def test_it_shows_what_can_be_reclaimed_as_soon_as_it_is_known(self):
        self.start()
        self.assertEqual(self.tray.place() and self.tray.item_text("Title"), "Zolva, %s reclaimable"
                         % size_text(self.trash()[1]))
        panel = self.open_panel()
        rows = categories(self.world.home)
        clean = sum(row.removable for row in rows)
        kept = sum(path.size for row in rows for path in row.paths if path.is_kept)
        projects, purge = self.told("purge")
        files, installers = self.told("installers")
        count, trash = self.trash()
        counted = sum(1 for row in rows if row.removable or not any(p.size for p in row.paths))
        total = size_text(clean + purge + installers + trash)
        expected = ["heading: RECLAIMABLE",
                    "push button: Rescan | Runs the scan again and refreshes the list",
                    "label: " + total]
        if kept:
            expected.append("label: %s protected, not included" % size_text(kept))
        expected += [
            "push button: Caches, %d categor%s, %s | Opens Caches in Zolva"
            % (counted, "y" if counted == 1 else "ys", size_text(clean)),
            "push button: Build artifacts, %d project%s, %s | Opens Build artifacts in Zolva"
            % (projects, "" if projects == 1 else "s", size_text(purge)),
            "push button: Installers, %d file%s, %s | Opens Installers in Zolva"
            % (files, "" if files == 1 else "s", size_text(installers)),
            "push button: Trash, %d item%s, %s | Empties the Trash, after confirming"
            % (count, "" if count == 1 else "s", size_text(trash)),
            "push button: Open Zolva | Ctrl+O", "push button: Status",
            "push button: Settings | Ctrl+,", "push button: Quit Zolva | Ctrl+Q"]
        self.wait(lambda: panel.said()[1:] == expected, "the figures of the panel, not:\n%s\n%s"
                  % ("\n".join(panel.said()), "\n".join(expected)))
        volume = os.statvfs(self.world.home)
        self.assertTrue(panel.said()[0].endswith(
            " free of " + size_text(volume.f_frsize * volume.f_blocks)), panel.said()[0])
        for text in ("XAyatanaLabel", "Title"):
            self.assertIn(total, self.tray.item_text(text))

    def test_rows_and_commands_lead_to_their_screens(self):
        self.start()
        self.close_window()
        for label, screen in (("Caches", "Clean"), ("Build artifacts", "Purge"),
                              ("Installers", "Installers")):
            self.row(label, self.open_panel()).press()
            self.wait_without_panel()
            self.wait_in_front()
            self.wait_for_screen(screen)
        for command in ("Status", "Settings"):
            self.button(command, inside=self.open_panel()).press()
            self.wait_without_panel()
            self.wait_in_front()
            self.wait_for_screen(command)

    def test_its_keys_lead_there_too(self):
        self.start()
        panel = self.open_panel()
        self.wait(lambda: "active" in panel.states, "a panel that takes keys")
        self.bus.type_key("Control", "comma")
        self.wait_without_panel()
        self.wait_in_front()
        self.wait_for_screen("Settings")

    def test_the_arrows_go_through_it(self):
        self.start()
        panel = self.open_panel()
        self.wait(lambda: "active" in panel.states, "a panel that takes keys")
        self.bus.type_key("Down")
        self.wait(lambda: any("focused" in node.states and node.name == "Rescan"
                              for node in panel.walk()), "the focus on Rescan")

    def test_escape_and_a_second_click_close_it(self):
        self.start()
        panel = self.open_panel()
        self.wait(lambda: "active" in panel.states, "a panel that takes keys")
        self.bus.type_key("Escape")
        self.wait_without_panel()
        self.open_panel()
        self.tray.click()
        self.wait_without_panel()

    def test_another_window_closes_it(self):
        window = self.start()
        panel = self.open_panel()
        self.wait(lambda: "active" in panel.states, "a panel that takes keys")
        left, top, width, _ = window.place()
        self.bus.click_at(left + width // 2, top + 5)
        self.wait_without_panel()

    def test_the_trash_is_emptied_from_it_by_the_sheet_in_the_window(self):
        count, size = self.trash()
        self.start()
        self.close_window()
        self.row("Trash", self.open_panel()).press()
        self.wait(self.window, "the window")
        sheet = self.dialog("Empty the Trash?")
        self.node("label", "%d items (%s) will be permanently deleted. This cannot be undone."
                  % (count, size_text(size)), inside=sheet)
        self.button("Confirm: Empty Trash", inside=sheet).press()
        self.node("alert message", "Trash emptied.")
        self.assertEqual(os.listdir(self.trash_files()), [])
        # Nothing is left to ask about.
        self.wait_in_front()
        self.row("Trash, 0 items", self.open_panel()).press()
        self.wait_without_panel()
        self.assertEqual(list(self.window().find_all("dialog")), [])


class Closing(TrayCase):

    def test_a_closed_window_leaves_it_running_and_the_tray_brings_it_back(self):
        self.start()
        self.go("Clean")
        self.close_window()
        self.assert_goes_on()
        self.button("Open Zolva", inside=self.open_panel()).press()
        self.wait(self.window, "the window")
        self.wait_for_screen("Clean")

    def test_a_second_start_brings_the_closed_window_back(self):
        self.start()
        self.close_window()
        self.assert_ends(self.world.start_program())
        self.wait_in_front()

    def test_the_context_menu_opens_the_window_and_ends_the_program(self):
        self.start()
        self.close_window()
        names = self.tray.entries()
        self.assertEqual((names[0], names[-1]), ("Open Zolva", "Quit Zolva"))
        self.tray.choose("Down", self.window, "the window")
        self.wait_for_screen("Home")
        self.tray.choose("Up", lambda: self.process.poll() is not None, "the end")
        self.assert_ends()

    def test_quit_in_the_panel_ends_it_where_nothing_is_going(self):
        self.start()
        self.close_window()
        self.button("Quit Zolva", inside=self.open_panel()).press()
        self.assert_ends()

    def test_without_the_tray_a_closed_window_ends_it(self):
        self.start()
        self.tray.place()
        self.tray.end()
        self.bus.type_key("Alt", "F4")
        self.assert_ends()

    def test_a_tray_that_goes_takes_the_closed_program_with_it(self):
        self.start()
        self.close_window()
        self.tray.end()
        self.assert_ends()


class ClosedStatus(TrayCase, StatusCase):

    def test_a_closed_window_reads_nothing_on(self):
        self.start()
        self.go("Status")
        self.wait_tile("CPU")
        self.assertEqual(self.streams(), ["1s"])
        self.close_window()
        self.wait(lambda: not self.streams(), "the end of the tool")
        self.assert_goes_on()


class LateTray(WindowCase):

    def test_a_tray_that_comes_later_is_taken(self):
        self.start()
        tray = Tray(self.world, self.bus)
        tray.place()
        self.bus.type_key("Alt", "F4")
        self.wait(lambda: not self.window(), "a screen without the window")
        self.assert_goes_on()


class QuittingARun(RunCase):
    """Slow enough to go round by the panel."""

    delay_ms = 2000

    def test_quit_in_the_panel_asks_in_the_window_while_a_run_is_going(self):
        tray = Tray(self.world, self.bus)
        tray.place()
        self.confirm()
        self.bus.type_key("Alt", "F4")
        self.wait(lambda: not self.window(), "a screen without the window")
        tray.click()
        panel = self.wait(lambda: next((child for child in self.application.shown_children()
                                        if child.name == PANEL), None), "the panel")
        self.button("Quit Zolva", inside=panel).press()
        self.wait(self.window, "the window")
        alert = self.dialog(QUIT_TITLE)
        self.wait(self.step, "the run, still going")
        self.button("Stop and Quit", inside=alert).press()
        self.assert_ends()
        self.assertLess(self.assert_first_were_moved(), len(self.going))
