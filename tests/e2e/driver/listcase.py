"""What the tests of the screens share that list paths, tick them and remove them."""

from driver.case import WindowCase
from driver.disk import size_text


class ListCase(WindowCase):
    """A home whose rows on one screen are known."""

    screen = ""    # in the sidebar, and at the head of the page
    subtitle = ""
    hint = ""
    verb = ""      # on the button
    excluded = ()  # paths below the home

    def find(self):
        """The rows that the screen has to show, in its order."""
        raise NotImplementedError

    def setUp(self):
        super().setUp()
        for short in self.excluded:
            self.world.ask_control("exclusions", "add", "~/" + short)
        self.rows = self.find()

    def scan(self):
        """Scans by the screen's own button."""
        self.go(self.screen)
        self.button("Scan").press()
        self.button("Rescan")

    def row_named(self, name):
        return next(row for row in self.rows if row.name == name)

    def spoken(self, row, is_ticked):
        return row.value(is_ticked) + ". " + self.hint

    def row_button(self, row):
        """Two rows may have one name: counted among those, as the screen orders them."""
        alike = [other for other in self.rows if other.name == row.name]

        def look():
            found = [node for node in self.window().find_all("push button", row.name)
                     if node.description.endswith(self.hint)]
            return found[alike.index(row)] if len(found) == len(alike) else None

        return self.wait(look, "the row " + row.name)

    def tick(self, *rows):
        for row in rows:
            self.row_button(row).press()
            self.wait(lambda: "checked" in self.row_button(row).states, "a tick at " + row.name)

    def focus_row(self, row):
        self.row_button(row).focus()
        self.wait_focus(row.name)

    def row_lines(self, row, is_ticked):
        mark = " [checked]" if is_ticked and not row.is_kept else ""
        return ["push button: %s | %s%s" % (row.name, self.spoken(row, is_ticked), mark)]

    def bar_lines(self, ticked):
        """What stands left of the link."""
        raise NotImplementedError

    def page(self, ticked=()):
        """Every line of the window on the loaded screen."""
        total = sum(row.size for row in self.rows if not row.is_kept)
        size = size_text(sum(row.size for row in ticked))
        lines = self.sidebar(self.screen, {self.screen: size_text(total)})
        lines += ["heading: " + self.screen, "label: " + self.subtitle,
                  "push button: Rescan | Runs the scan again and refreshes the list",
                  "push button: Largest first"]
        for row in self.rows:
            lines += self.row_lines(row, row in ticked)
        every = ticked and len(ticked) == sum(1 for row in self.rows if not row.is_kept)
        return lines + self.bar_lines(ticked) + [
            "push button: " + ("Deselect all" if every else "Select all"),
            "push button: %s %s%s" % (self.verb, size, "" if ticked else " [disabled]")]

    def ask_to_remove(self, rows, title):
        """The sheet, with these rows in it."""
        self.button("%s %s" % (self.verb, size_text(sum(row.size for row in rows)))).press()
        sheet = self.dialog(title)
        listed = [line for line in sheet.said() if line.startswith("list item: ")]
        self.assertEqual(len(listed), len(rows))
        for line, row in zip(listed, rows):
            self.assertTrue(line.endswith(", " + size_text(row.size)), line)
        return sheet

    def wait_moved(self, rows):
        """The report of the run."""
        size = size_text(sum(row.size for row in rows))
        self.node("alert message", "Moved %s to the Trash" % size)
        self.button("Dismiss notification").press()
        self.wait(lambda: not any(self.window().find_all("alert message")), "no report")
