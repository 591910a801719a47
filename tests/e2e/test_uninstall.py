"""From the list of the applications to a disk without the ticked ones."""

import os
import shutil
import signal

from driver import disk
from driver.applications import applications
from driver.case import WindowCase
from driver.disk import size_text

HINT = "Include this app in the next uninstall"
NOTE = "Checked apps go to the Trash, along with their leftover files."


class UninstallCase(WindowCase):
    """A home whose applications are known."""

    def setUp(self):
        super().setUp()
        self.learn()

    def learn(self):
        self.apps = applications(self.world.home)

    def app(self, name):
        return next(app for app in self.apps if app.name == name)

    def scan(self):
        self.go("Uninstall")
        self.button("Scan").press()
        self.button("Rescan")

    def in_order(self, apps):
        return sorted(apps, key=lambda app: (-app.size, app.path))

    def row_line(self, app, is_ticked=False):
        value = "Selected for removal" if is_ticked else "Not selected"
        return "push button: %s | %s. %s%s" % (app.name, value, HINT,
                                               " [checked]" if is_ticked else "")

    def row(self, name, is_ticked=False):
        value = "Selected for removal" if is_ticked else "Not selected"
        return self.button(name, "%s. %s" % (value, HINT))

    def pane(self, app):
        rows = app.leftovers(self.apps)
        total = app.size + sum(row.size for row in rows if row.path != app.path)
        return ["panel: " + app.name, "heading: " + app.name, "label: " + app.meta(),
                "label: %d files in %d locations · %s including leftovers"
                % (sum(row.files for row in rows), len(rows), size_text(total))] + [
                    row.line() for row in rows]

    def page(self, focus, ticked=(), shown=None, query=""):
        """Every line of the window on a loaded Uninstall screen."""
        rows = self.in_order(self.apps if shown is None else shown)
        count = len(ticked)
        lines = self.sidebar("Uninstall")
        lines += ["heading: Uninstall",
                  "push button: Rescan | Runs the scan again and refreshes the list",
                  "text: Search", "push button: Largest first",
                  "label: %d application%s" % (len(rows), "" if len(rows) == 1 else "s")]
        if count:
            lines.append("label: %d selected" % count)
        every = rows and all(app.name in ticked for app in rows)
        lines.append("push button: " + ("Deselect all" if every else "Select all"))
        lines += [self.row_line(app, app.name in ticked) for app in rows]
        lines += self.pane(focus)
        title = "Uninstall" if count == 1 else "Uninstall %d apps" % count
        return lines + ["label: " + NOTE,
                        "push button: " + title + ("" if count else " [disabled]")]

    def sheet_lines(self, apps):
        one = len(apps) == 1
        title = "Uninstall this app?" if one else "Uninstall %d apps?" % len(apps)
        return ["heading: " + title,
                "label: Each app's bundle and its leftover files are removed. They go to the Trash,"
                " so you can put them back. Leftovers shared with another installed app are left"
                " alone.",
                "list: What will be removed"] + [
                    "list item: " + app.path for app in apps] + [
                    "push button: Cancel | Closes this without removing anything",
                    "push button: Confirm: Uninstall%s | This cannot be undone"
                    % ("" if one else " %d" % len(apps))]

    def uninstall(self, names):
        """From the button to the confirmation."""
        apps = [app for app in self.apps if app.name in names]
        one = len(apps) == 1
        self.trigger("Uninstall" if one else "Uninstall %d apps" % len(apps)).press()
        sheet = self.dialog("Uninstall this app?" if one else "Uninstall %d apps?" % len(apps))
        self.assert_said(self.sheet_lines(apps), inside=sheet)
        self.button("Confirm: Uninstall" + ("" if one else " %d" % len(apps)),
                    inside=sheet).press()

    def trigger(self, title):
        """The button of that title; the sidebar may have one of that name."""
        def look():
            row = self.row_of("Uninstall")
            return next((button for button in self.window().find_all("push button", title)
                         if button != row), None)

        return self.wait(look, "the button “%s”" % title)

    def own(self, app):
        """What goes with it, as paths from the home."""
        return [os.path.relpath(row.path, self.world.home)
                for row in app.leftovers(self.apps) if not row.owner]

    def assert_gone(self, before, gone):
        """These are nowhere, not even in the Trash, and nothing else has changed."""
        after = self.everything()
        after.pop(".local/share/Trash/expunged", None)
        self.assert_same(after, disk.without(before, gone))


class Uninstall(UninstallCase):

    def test_the_list_and_the_application_in_focus_are_told_word_for_word(self):
        self.start()
        self.go("Uninstall")
        self.assert_said(self.sidebar("Uninstall") + [
            "heading: Uninstall", "text: Search", "push button: Largest first",
            "heading: Scan installed apps",
            "label: Zolva lists the apps you've installed and the leftover files each one leaves "
            "behind.",
            "push button: Scan"])
        self.button("Scan").press()
        self.assert_said(self.page(self.apps[0]))

    def test_what_is_searched_for_and_picked_goes_whole_and_for_good(self):
        before = self.everything()
        self.start()
        self.scan()
        tern = self.app("Tern Player")
        self.node("text", "Search").focus()
        self.wait_focus("Search")
        for letter in "player":
            self.bus.type_key(letter)
        self.assert_said(self.page(self.apps[0], shown=[tern]))
        self.button("Select all").press()
        self.assert_said(self.page(self.apps[0], ["Tern Player"], [tern]))
        self.bus.type_key("Escape")
        self.node("label", "%d applications" % len(self.apps))
        self.row("Tern Player", True)
        gone = self.own(tern)
        self.assertGreater(len(gone), 5)
        self.uninstall(["Tern Player"])
        self.node("alert message", "Uninstalled 1 app")
        self.assert_gone(before, gone)
        self.button("Dismiss notification").press()
        self.learn()
        self.assert_said(self.page(self.apps[0]))

    def test_one_that_runs_is_asked_to_quit_and_what_another_shares_stays(self):
        lumen = self.app("Lumen Editor")
        binary = os.path.join(lumen.path, "Contents/MacOS/Lumen Editor")
        shutil.copyfile("/bin/sleep", binary)
        os.chmod(binary, 0o755)
        # With one fewer all of its leftovers are in sight, and so told.
        os.remove(self.home("Library/Cookies/%s.binarycookies" % lumen.bundle_id))
        running = self.world.spawn([binary, "600"])
        self.learn()
        lumen = self.app("Lumen Editor")
        before = self.everything()
        self.start()
        self.scan()
        self.row("Lumen Editor").press()
        self.assert_said(self.page(lumen, ["Lumen Editor"]))
        gone = self.own(lumen)
        kept = [row.path for row in lumen.leftovers(self.apps) if row.owner]
        self.assertGreater(len(gone), 1)
        self.assertGreater(len(kept), 3)
        self.uninstall(["Lumen Editor"])
        self.node("alert message", "Uninstalled 1 app")
        self.assertEqual(running.wait(5), -signal.SIGTERM)
        self.assert_gone(before, gone)
        for path in kept:
            self.assertTrue(os.path.lexists(path), path)

    def test_two_that_go_together_do_not_protect_each_others_leftovers(self):
        before = self.everything()
        self.start()
        self.scan()
        pair = ["Lumen Editor", "Lumen Editor Beta"]
        for name in pair:
            self.row(name).press()
        gone = {os.path.relpath(row.path, self.world.home)
                for name in pair for row in self.app(name).leftovers(self.apps)}
        self.uninstall(pair)
        self.node("alert message", "Uninstalled 2 apps")
        self.assert_gone(before, gone)

    def test_a_cancelled_sheet_removes_nothing(self):
        before = self.everything()
        self.start()
        self.scan()
        self.row("Skylark Chat").press()
        self.trigger("Uninstall").press()
        sheet = self.dialog("Uninstall this app?")
        self.button("Cancel", inside=sheet).press()
        self.wait_without("dialog", "Uninstall this app?")
        self.assert_said(self.page(self.app("Skylark Chat"), ["Skylark Chat"]))
        self.assert_same(self.everything(), before)

    def test_the_keys_alone_are_enough(self):
        before = self.everything()
        self.start()
        self.bus.type_key("Control", "5")
        self.wait_for_screen("Uninstall")
        self.tab_to("Scan")
        self.bus.type_key("Return")
        self.button("Rescan")
        rows = self.in_order(self.apps)
        first = rows.index(self.apps[0])
        self.tab_to(rows[first].name)
        step = "Down" if first + 1 < len(rows) else "Up"
        other = rows[first + 1] if step == "Down" else rows[first - 1]
        self.bus.type_key(step)
        self.wait_focus(other.name)
        # Where the keys stay the application is shown.
        self.node("heading", other.name)
        self.bus.type_key("space")
        self.row(other.name, True)
        gone = self.own(other)
        self.tab_to("Uninstall")
        self.bus.type_key("Return")
        self.wait_focus("Cancel")
        self.bus.type_key("Tab")
        self.tab_to("Confirm: Uninstall")
        self.bus.type_key("Return")
        self.node("alert message", "Uninstalled 1 app")
        self.assert_gone(before, gone)


class StuckBundle(UninstallCase):

    def test_it_comes_back_into_the_list_and_is_offered_to_authenticate(self):
        # From a folder that takes no changes nothing can be moved away.
        folder = self.home("Applications")
        os.chmod(folder, 0o555)
        self.addCleanup(os.chmod, folder, 0o755)
        before = self.everything()
        self.start(bound=True)
        self.scan()
        chat = self.app("Skylark Chat")
        self.row("Skylark Chat").press()
        gone = [path for path in self.own(chat) if not path.startswith("Applications/")]
        self.assertGreater(len(gone), 1)
        self.uninstall(["Skylark Chat"])
        toast = self.node("alert message", "Couldn't uninstall 1 app. It may need an administrator "
                          "password.")
        self.assert_said(["push button: Authenticate…", "push button: Dismiss notification"],
                         inside=toast)
        self.row("Skylark Chat")
        self.assert_gone(before, gone)
        # Nobody is there to ask for a password.
        self.button("Authenticate…", inside=toast).press()
        self.node("alert message", "Still couldn't uninstall 1 app. The authentication may have "
                  "been canceled.")
        self.row("Skylark Chat")
        self.assert_gone(before, gone)
