"""The Trash in the sidebar."""

import os

from driver import disk
from driver.case import WindowCase
from driver.disk import size_text


class Trash(WindowCase):

    def test_emptying_deletes_what_lies_in_it_and_nothing_else(self):
        before = self.everything()
        count, size = self.trash()
        self.start()
        row = self.button("Empty Trash", size_text(size))
        row.press()
        sheet = self.dialog("Empty the Trash?")
        self.assert_said(
            ["heading: Empty the Trash?",
             "label: %d items (%s) will be permanently deleted. This cannot be undone."
             % (count, size_text(size)),
             "push button: Cancel | Closes this without removing anything",
             "push button: Confirm: Empty Trash | This cannot be undone"], inside=sheet)
        self.button("Confirm: Empty Trash", inside=sheet).press()
        toast = self.node("alert", "Trash emptied.")
        self.assert_said(["push button: Dismiss notification"], inside=toast)
        self.wait_without("push button", "Empty Trash")
        self.assertEqual(os.listdir(self.trash_files()), [])
        gone = [".local/share/Trash/files/" + name for name in ("old notes.txt", "build-2022",
                                                                "screen recording.mov")]
        gone += [".local/share/Trash/info/%s.trashinfo" % os.path.basename(path) for path in gone]
        self.assert_same(self.everything(), disk.without(before, gone))

    def test_a_cancelled_emptying_keeps_everything(self):
        before = self.everything()
        self.start()
        self.button("Empty Trash").press()
        self.button("Cancel", inside=self.dialog("Empty the Trash?")).press()
        self.wait_without("dialog", "Empty the Trash?")
        self.assert_same(self.everything(), before)

    def test_what_others_throw_away_is_noticed_and_can_be_emptied(self):
        self.start()
        self.button("Empty Trash")
        with open(os.path.join(self.trash_files(), "from elsewhere"), "wb") as out:
            out.write(b"x" * 9000)
        toast = self.node("alert", "New items in the Trash, empty it to reclaim the space.")
        count, size = self.trash()
        self.button("Empty Trash", size_text(size), inside=self.window())
        self.assert_said(["push button: Empty Trash", "push button: Dismiss notification"],
                         inside=toast)
        self.button("Empty Trash", "", inside=toast).press()
        sheet = self.dialog("Empty the Trash?")
        self.node("label", "%d items (%s) will be permanently deleted. This cannot be undone."
                  % (count, size_text(size)), inside=sheet)
