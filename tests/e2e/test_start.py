"""The first page, the whole scan from it, and how the program starts and ends."""

import json
import os

from driver.case import WindowCase
from driver.catalog import categories
from driver.disk import size_text

HERO = ("Scanned live with mo across your caches, project folders and downloads. Nothing is deleted, "
        "every command previews first.")
LIST = "Downloads, Desktop, Documents, iCloud Drive and Trash"
INTRO = "Zolva cannot see everything yet. macOS is withholding %s." % LIST


class Start(WindowCase):

    def welcome(self):
        return self.sidebar("Home") + [
            "heading: Home", "heading: Scan your Mac",
            "label: Zolva finds caches, build artifacts, leftover installers and unused apps you "
            "can safely reclaim, all in one pass.",
            "push button: Scan"]

    def test_the_first_page_offers_a_scan(self):
        self.start()
        self.assert_said(self.welcome())

    def test_a_scan_tells_what_can_be_reclaimed_and_where(self):
        self.start()
        self.button("Scan").press()
        rows = categories(self.world.home)
        clean = sum(row.removable for row in rows)
        projects, purge = self.told("purge")
        files, installers = self.told("installers")
        apps = len(self.told_apps())
        chips = {"Clean": size_text(clean), "Purge": size_text(purge),
                 "Installers": size_text(installers)}
        self.assert_said(self.sidebar("Home", chips) + [
            "heading: Home",
            "push button: Rescan | Runs the scan again and refreshes the list",
            "heading: You can reclaim\n%s today" % size_text(clean + purge + installers),
            "label: " + HERO,
            "push button: Rescan",
            "push button: Review Clean",
            "push button: Clean | %d categories of rebuildable files, %s"
            % (len(rows), size_text(clean)),
            "push button: Purge | %d project build folders, %s" % (projects, size_text(purge)),
            "push button: Installers | %d disk image or packages, %s"
            % (files, size_text(installers)),
            "push button: Uninstall | %d apps installed, —" % apps])
        self.button("Review Clean").press()
        self.wait_for_screen("Clean")

    def test_the_tab_key_goes_round_the_window_after_a_scan(self):
        self.start()
        self.tab_to("Scan")
        self.bus.type_key("Return")
        self.wait(lambda: any(line.startswith("heading: You can reclaim")
                              for line in self.window().said()), "the sum")
        self.wait_focus("Rescan")
        trash = ["Empty Trash"] if self.trash()[0] else []
        self.assert_tabs(["Rescan", "Review Clean", "Clean", "Purge", "Installers", "Uninstall",
                          "Home"] + trash + ["Rescan"])

    def told(self, command):
        """How many a scan by the command line finds, and their sum."""
        (items,) = json.loads(self.world.ask_control(command, "--json")).values()
        return len(items), sum(item["b"] for item in items)

    def told_apps(self):
        (apps,) = json.loads(self.world.ask_control("apps", "--json")).values()
        return apps

    def test_every_screen_is_a_key_away(self):
        self.start()
        for number, name in enumerate(("Home", "Clean", "Purge", "Installers", "Uninstall",
                                       "Analyze", "Status", "Settings"), 1):
            self.bus.type_key("Control", str(number))
            self.wait_for_screen(name)

    def test_nothing_is_written_but_its_own_files(self):
        before = self.everything()
        self.start()
        self.button("Scan").press()
        self.button("Review Clean")
        self.bus.type_key("Control", "q")
        self.assert_ends()
        self.assert_same(self.everything(), before)

    def test_control_and_q_end_it_where_nothing_is_going(self):
        self.start()
        self.bus.type_key("Control", "q")
        self.assert_ends()

    def test_quitting_in_the_middle_of_a_scan_leaves_in_order(self):
        self.start()
        self.button("Scan").press()
        self.bus.type_key("Control", "q")
        self.assert_ends()

    def test_a_second_start_brings_the_window_back_and_ends(self):
        window = self.start()
        self.wait(lambda: "active" in window.states, "an active window")
        self.bus.type_key("Alt", "F9")
        self.wait(lambda: "active" not in window.states, "a minimised window")
        second = self.world.start_program()
        self.assert_ends(second)
        self.assert_goes_on()
        self.wait(lambda: "active" in window.states, "the window in front again")

    def test_control_and_w_close_the_window(self):
        self.start()
        self.bus.type_key("Control", "w")
        self.assert_ends()

    def test_a_closed_window_ends_it_where_nothing_would_be_left_of_it(self):
        self.start()
        self.bus.type_key("Alt", "F4")
        self.assert_ends()


class Blocked(WindowCase):
    """Places that cannot be looked into, from the first start on."""

    blocked = True

    def intro_lines(self):
        return ["heading: Zolva can't see everything yet",
                "label: macOS is withholding %s. Zolva will still work, but anything in them is "
                "missing from every total it shows you." % LIST,
                "label: Open Privacy & Security → Full Disk Access",
                "label: Turn on Zolva in the list",
                "label: Come back and scan again",
                "push button: Continue without full access | Zolva will report only what it can "
                "see",
                "push button: Open System Settings | Opens Privacy and Security so you can turn on "
                "Full Disk Access"]

    def test_it_is_told_once_and_the_notice_stands(self):
        self.start(bound=True)
        intro = self.dialog(INTRO)
        self.assert_said(self.intro_lines(), inside=intro)
        self.wait_focus("Continue without full access")
        self.button("Continue without full access", inside=intro).press()
        self.wait_without("dialog", INTRO)
        self.assert_notice()
        self.bus.type_key("Control", "q")
        self.assert_ends()

        self.start(bound=True)
        self.assert_notice()
        self.assertEqual(list(self.window().find_all("dialog")), [])

    def assert_notice(self):
        """It stands on the Home screen as soon as there is a total it is missing from."""
        self.button("Scan").press()
        notice = self.node("label", LIST + " could not be searched. macOS is blocking access, so "
                           "anything there is missing from these totals.")
        self.assertEqual(notice.said(), ["push button: Open Settings"])

    def test_escape_means_not_now(self):
        self.start(bound=True)
        self.dialog(INTRO)
        self.wait_focus("Continue without full access")
        self.bus.type_key("Escape")
        self.wait_without("dialog", INTRO)
        told = self.world.ask_control("prefs", "--json")
        self.assertIn('"seenAccessIntro":true', told.replace(" ", ""))

    def test_with_every_place_readable_nothing_is_told(self):
        for place in ("Downloads", "Desktop", "Documents",
                      "Library/Mobile Documents/com~apple~CloudDocs", ".Trash"):
            os.chmod(self.home(place), 0o700)
        self.start(bound=True)
        self.button("Scan").press()
        self.button("Review Clean")
        self.wait(lambda: any(line.startswith("heading: You can reclaim")
                              for line in self.window().said()), "the sum")
        said = self.window().said()
        self.assertEqual([line for line in said if "could not be searched" in line], [])
        self.assertEqual([line for line in said if line.startswith("dialog")], [])
