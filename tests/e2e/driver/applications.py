"""What the Uninstall screen has to find, worked out apart from the program."""

import datetime
import os
import plistlib
import subprocess

from driver.disk import blocks, size_text

PLACES = (
    ("Caches", "Library/Caches/%s", True),
    ("Containers", "Library/Containers/%s", True),
    ("Group Containers", "Library/Group Containers/%s", True),
    ("Preferences", "Library/Preferences/%s.plist", True),
    ("Saved application state", "Library/Saved Application State/%s.savedState", True),
    ("WebKit storage", "Library/WebKit/%s", True),
    ("HTTP storage", "Library/HTTPStorages/%s", True),
    ("Cookies", "Library/Cookies/%s.binarycookies", True),
    ("Application Support", "Library/Application Support/%s", False),
    ("Logs", "Library/Logs/%s", False),
)


def count_files(path):
    if not os.path.isdir(path):
        return 1
    return max(1, sum(len(files) for _, _, files in os.walk(path)))


class Leftover:
    def __init__(self, place, path, shown, owner):
        self.place = place
        self.path = path
        self.shown = shown
        self.owner = owner
        self.size = blocks(path)
        self.files = count_files(path)

    def line(self):
        words = "%d files, %s. %s" % (self.files, size_text(self.size), self.shown)
        if self.owner:
            words += ". shared with %s. Kept: %s uses this same path." % (self.owner, self.owner)
        return "list item: %s | %s" % (self.place, words)


class Application:
    def __init__(self, home, path):
        with open(os.path.join(path, "Contents/Info.plist"), "rb") as file:
            info = plistlib.load(file)
        self.home = home
        self.path = path
        self.name = info["CFBundleName"]
        self.bundle_id = info["CFBundleIdentifier"]
        self.version = info["CFBundleShortVersionString"]
        self.size = blocks(path)

    def meta(self):
        born = int(subprocess.run(["stat", "--format=%W", self.path], check=True,
                                  stdout=subprocess.PIPE).stdout)
        day = datetime.date.fromtimestamp(born)
        return "Version %s · Installed %d %s" % (self.version, day.day, day.strftime("%b %Y"))

    def leftovers(self, others):
        """Largest first, the bundle among them."""
        rows = [Leftover("Application bundle", self.path, self.shown(self.path), None)]
        for place, where, is_by_id in PLACES:
            def key(app, by_id=is_by_id):
                return app.bundle_id if by_id else app.name

            path = os.path.join(self.home, where % key(self))
            owner = next((other.name for other in others
                          if other.path != self.path and key(other) == key(self)), None)
            if os.path.lexists(path) and blocks(path):
                rows.append(Leftover(place, path, self.shown(path), owner))
        return sorted(rows, key=lambda row: -row.size)

    def shown(self, path):
        return "~" + path[len(self.home):] if path.startswith(self.home + "/") else path


def applications(home):
    """In the order of the tool, which is not that of the screen."""
    found = []
    for root in ("/Applications", os.path.join(home, "Applications")):
        paths = []
        for folder, folders, _ in os.walk(root):
            bundles = [name for name in folders if name.endswith(".app") and os.path.exists(
                os.path.join(folder, name, "Contents/Info.plist"))]
            paths += [os.path.join(folder, name) for name in bundles]
            folders[:] = [name for name in folders
                          if name not in bundles and not name.startswith(".")]
        found += [Application(home, path) for path in sorted(paths)]
    return found
