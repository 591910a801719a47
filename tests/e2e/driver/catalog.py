"""What the screens have to find in a home, worked out apart from the program."""

import os
import time

from driver.disk import blocks, size_text

FLOOR = 1000000
PLACES = (
    ("Xcode DerivedData", "Build intermediates Xcode recreates",
     "Library/Developer/Xcode/DerivedData", True),
    ("Xcode device support", "Symbols for iOS devices you've connected",
     "Library/Developer/Xcode/iOS DeviceSupport", True),
    ("Application caches", "App caches macOS rebuilds on demand", "Library/Caches", True),
    ("Application logs", "Diagnostic logs apps rewrite", "Library/Logs", True),
    ("Saved application state", "Window state apps recreate",
     "Library/Saved Application State", True),
    ("npm cache", "Downloaded npm packages", ".npm/_cacache", False),
    ("Go build cache", "Compiled Go objects", "Library/Caches/go-build", False),
)
PROTECTED = ("CloudKit", "CloudDocs", "Mail", "Messages", "Keychains")


class Path:
    def __init__(self, home, short, is_kept):
        self.short = short
        self.shown = "~/" + short
        self.size = blocks(os.path.join(home, short))
        self.is_kept = is_kept


class Category:
    def __init__(self, name, description, paths):
        self.name = name
        self.description = description
        self.paths = sorted(paths, key=lambda path: -path.size)
        self.total = sum(path.size for path in paths)

    @property
    def going(self):
        return [path for path in self.paths if not path.is_kept]

    @property
    def removable(self):
        return sum(path.size for path in self.going)

    @property
    def kept(self):
        return self.total - self.removable

    def detail(self):
        line = size_text(self.removable) + " removable"
        return line + (", %s protected" % size_text(self.kept) if self.kept else "")

    def value(self, is_ticked):
        if not self.removable:
            return "Protected, cannot be selected"
        if is_ticked:
            return "Selected, %s will be deleted" % size_text(self.removable)
        return "Not selected"


def categories(home, excluded=()):
    """Largest first, as the screen shows them; `excluded` are paths below the home."""
    found = []
    for name, description, place, each in PLACES:
        top = os.path.join(home, place)
        if not os.path.isdir(top):
            continue
        shorts = [place + "/" + child for child in os.listdir(top)
                  if not child.startswith(".")] if each else [place]
        paths = [Path(home, short, os.path.basename(short) in PROTECTED or short in excluded)
                 for short in shorts]
        paths = [path for path in paths if path.size >= FLOOR]
        if paths:
            found.append(Category(name, description, paths))
    return sorted(found, key=lambda category: -category.total)


ROOTS = ("Development", "Projects", "dev", "GitHub", "Code", "Sites", "src", "repos")
ARTIFACTS = ("node_modules", ".next", "target", ".build", "dist", "build", "venv", ".venv",
             ".gradle", ".tox")
SOURCES = (("Downloads", "Downloads"), ("Desktop", "Desktop"),
           ("Library/Caches/Homebrew/downloads", "Homebrew cache"),
           ("Library/Mobile Documents/com~apple~CloudDocs/Downloads", "iCloud Drive"))
INSTALLERS = (".dmg", ".pkg", ".xip", ".iso")


def age(path):
    return int((time.time() - os.stat(path).st_mtime) // 86400)


class Listed(Path):
    """A row that is one path."""

    def __init__(self, home, short, is_kept=False):
        super().__init__(home, short, is_kept)
        self.age = age(os.path.join(home, short))

    def value(self, is_ticked):
        if self.is_kept:
            return "Protected, cannot be selected"
        return "Selected, %s will be deleted" % size_text(self.size) if is_ticked else "Not selected"


class Artifact(Listed):
    @property
    def name(self):
        folder, artifact = self.shown.rsplit("/", 1)
        return "%s in %s" % (artifact, folder)


class Installer(Listed):
    @property
    def name(self):
        return os.path.basename(self.short)


def artifacts(home, excluded=()):
    """Largest first, as the screen shows them; `excluded` are paths below the home."""
    found = []
    for root in ROOTS:
        for folder, folders, _ in os.walk(os.path.join(home, root)):
            hits = [name for name in folders if name in ARTIFACTS]
            folders[:] = [name for name in folders if name not in hits and name != ".git"]
            shorts = [os.path.relpath(os.path.join(folder, name), home) for name in hits]
            found += [Artifact(home, short, short in excluded) for short in shorts]
    found = [row for row in found if row.size >= FLOOR]
    return sorted(found, key=lambda row: (-row.size, row.shown))


def installers(home):
    """Largest first, as the screen shows them."""
    found = []
    for place, _ in SOURCES:
        if os.path.isdir(os.path.join(home, place)):
            found += [Installer(home, place + "/" + name)
                      for name in os.listdir(os.path.join(home, place))
                      if not name.startswith(".") and name.lower().endswith(INSTALLERS)
                      and os.path.isfile(os.path.join(home, place, name))]
    return sorted(found, key=lambda row: (-row.size, row.shown))
