"""The accessibility bus: a tree of things with roles, names, descriptions and states, and keys.

Everything is asked anew each time. Waiting goes from event to event of the bus; as the toolkit does
not tell of every change, it looks again now and then without one.
"""

import string
import time

from gi.repository import Gio, GLib

REGISTRY = "org.a11y.atspi.Registry"
ROOT = "/org/a11y/atspi/accessible/root"
ACCESSIBLE = "org.a11y.atspi.Accessible"
LOOK_AGAIN_MS = 100

# Numbers of the accessibility protocol.
STATES = {1: "active", 4: "checked", 8: "enabled", 9: "expandable", 10: "expanded", 11: "focusable",
          12: "focused", 23: "selected", 24: "sensitive", 25: "showing", 30: "visible",
          41: "checkable", 16: "modal"}
KEYS = {"Tab": 0xff09, "Return": 0xff0d, "Escape": 0xff1b, "space": 0x20, "Up": 0xff52,
        "Down": 0xff54, "Menu": 0xff67, "F4": 0xffc1, "F9": 0xffc6, "comma": 0x2c,
        "Left": 0xff51, "Right": 0xff53}
KEYS.update({sign: ord(sign) for sign in "12345678" + string.ascii_lowercase})
# Hardware codes of the modifiers on the display's keyboard.
MODIFIERS = {"Shift": 50, "Control": 37, "Alt": 64}
KEY_DOWN, KEY_UP, KEY_TYPED, TEXT_TYPED = 0, 1, 3, 4


class Gone(Exception):
    """What was asked is no longer there."""


class Node:
    """One thing on the bus; two are equal if they are the same thing."""

    def __init__(self, bus, owner, path):
        self.bus = bus
        self.owner = owner
        self.path = path

    def __eq__(self, other):
        return isinstance(other, Node) and (self.owner, self.path) == (other.owner, other.path)

    def __hash__(self):
        return hash((self.owner, self.path))

    def _call(self, interface, method, args=None):
        return self.bus.call(self.owner, self.path, interface, method, args)

    def _property(self, name):
        got = self._call("org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", (ACCESSIBLE, name)))
        return got[0]

    @property
    def role(self):
        return self._call(ACCESSIBLE, "GetRoleName")[0]

    @property
    def name(self):
        return self._property("Name")

    @property
    def description(self):
        return self._property("Description")

    @property
    def states(self):
        low, high = self._call(ACCESSIBLE, "GetState")[0]
        bits = low | high << 32
        return {name for bit, name in STATES.items() if bits >> bit & 1}

    def children(self):
        return [Node(self.bus, owner, path)
                for owner, path in self._call(ACCESSIBLE, "GetChildren")[0]]

    def press(self):
        """The action that a screen reader offers for a button."""
        names = [entry[0] for entry in self._call("org.a11y.atspi.Action", "GetActions")[0]]
        for wanted in ("Press", "Toggle"):
            if wanted in names:
                done = self._call("org.a11y.atspi.Action", "DoAction",
                                  GLib.Variant("(i)", (names.index(wanted),)))
                if not done[0]:
                    raise AssertionError("%s does not let itself be pressed" % self.describe())
                return
        raise AssertionError("%s cannot be pressed: it has %s" % (self.describe(), names))

    def place(self):
        """Where it stands on the screen: left, top, width, height."""
        return self._call("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0]

    def focus(self):
        self._call("org.a11y.atspi.Component", "GrabFocus")

    def shown_children(self):
        """Those to be seen; what a screen scrolls away still counts."""
        return [child for child in self.children() if "visible" in child.states]

    def walk(self):
        """This and all shown below it, in the order in which a screen reader goes."""
        yield self
        for child in self.shown_children():
            yield from child.walk()

    def find_all(self, role=None, name=None, description=None):
        for node in self.walk():
            if (role is None or node.role == role) and (name is None or node.name == name) and (
                    description is None or node.description == description):
                yield node

    def describe(self):
        """One line: role, name, description and what is out of the ordinary about the states."""
        states = self.states
        marks = [mark for mark in ("checked", "selected", "expanded") if mark in states]
        role = self.role
        # The toolkit tells of a button that cannot be pressed only that it takes no focus.
        if "enabled" not in states or role == "push button" and "focusable" not in states:
            marks.append("disabled")
        line = "%s: %s" % (role, self.name)
        if self.description:
            line += " | " + self.description
        return line + ("".join(" [%s]" % mark for mark in marks))

    def said(self, depth=0):
        """Lines of all shown below, without what has neither name nor description."""
        lines = []
        for child in self.shown_children():
            if child.name or child.description:
                lines.append(child.describe())
            lines += child.said(depth + 1)
        return lines

    def dump(self, depth=0):
        try:
            states = ",".join(sorted(self.states))
            lines = ["%s%s (%s)" % ("  " * depth, self.describe(), states)]
            for child in self.children():
                lines += child.dump(depth + 1)
        except Gone:
            return ["  " * depth + "(gone meanwhile)"]
        return lines


class Bus:
    """A connection to the accessibility bus of one session bus."""

    def __init__(self, session_address):
        session = self.connect(session_address)
        address = self._launched(session)
        session.close_sync()
        self.connection = self.connect(address)
        self.events = 0
        self.connection.signal_subscribe(None, None, None, None, None, Gio.DBusSignalFlags.NONE,
                                         self._heard)
        for kind in ("object:", "window:", "focus:"):
            self.call(REGISTRY, "/org/a11y/atspi/registry", REGISTRY, "RegisterEvent",
                      GLib.Variant("(sass)", (kind, [], "")))

    @staticmethod
    def connect(address):
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                 | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)

    @staticmethod
    def _launched(session):
        deadline = time.monotonic() + 20
        while True:
            try:
                return session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                         "GetAddress", None, None, Gio.DBusCallFlags.NONE, 20000,
                                         None)[0]
            except GLib.Error:
                if time.monotonic() > deadline:
                    raise
                time.sleep(0.05)

    def _heard(self, *_):
        self.events += 1

    def call(self, owner, path, interface, method, args=None):
        try:
            return self.connection.call_sync(owner, path, interface, method, args, None,
                                             Gio.DBusCallFlags.NONE, 30000, None)
        except GLib.Error as error:
            raise Gone("%s %s.%s: %s" % (path, interface, method, error.message)) from None

    def application(self, pid):
        """The root of what this process shows, or None."""
        desktop = Node(self, REGISTRY, ROOT)
        for child in desktop.children():
            try:
                owner = self.call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                  "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                                  GLib.Variant("(s)", (child.owner,)))[0]
            except Gone:
                continue
            if owner == pid:
                return child
        return None

    def next_event(self):
        """Returns at the next event, or after a little while without one."""
        context = GLib.MainContext.default()
        seen = self.events
        late = []
        timer = GLib.timeout_add(LOOK_AGAIN_MS, lambda: bool(late.append(1)))
        while self.events == seen and not late:
            context.iteration(True)
        if not late:
            GLib.source_remove(timer)
        while context.pending():
            context.iteration(False)

    def wait(self, look, seconds):
        """What `look` answers as soon as that is anything, or None when the time is over."""
        deadline = time.monotonic() + seconds
        while True:
            try:
                found = look()
            except Gone:
                found = None
            if found:
                return found
            if time.monotonic() > deadline:
                return None
            self.next_event()

    def applications(self, name):
        """The roots of what the programs of that name show."""
        return [child for child in Node(self, REGISTRY, ROOT).children() if child.name == name]

    def click_at(self, x, y, button=1):
        """Moves the pointer there, and presses and releases one of its buttons."""
        self.call(REGISTRY, "/org/a11y/atspi/registry/deviceeventcontroller",
                  "org.a11y.atspi.DeviceEventController", "GenerateMouseEvent",
                  GLib.Variant("(iis)", (x, y, "b%dc" % button)))

    def type_key(self, *keys):
        """The last of the keys while the modifiers before it are held down."""
        *held, key = keys
        for name in held:
            self._key(MODIFIERS[name], KEY_DOWN)
        self._key(KEYS[key], KEY_TYPED)
        for name in reversed(held):
            self._key(MODIFIERS[name], KEY_UP)

    def type_text(self, text):
        """Each character of it, as a person would type it."""
        self._key(0, TEXT_TYPED, text)

    def _key(self, code, kind, text=""):
        self.call(REGISTRY, "/org/a11y/atspi/registry/deviceeventcontroller",
                  "org.a11y.atspi.DeviceEventController", "GenerateKeyboardEvent",
                  GLib.Variant("(isu)", (code, text, kind)))
