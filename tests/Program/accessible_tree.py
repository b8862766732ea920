"""What assistive programs, such as a screen reader, are told of the windows of a program.

They ask over the accessibility bus. `Session` is a session bus of a test's own with that bus
beside it; `Accessible` is one object that the program tells of.
"""

import subprocess

from gi.repository import Gio, GLib

ACCESSIBLE = "org.a11y.atspi.Accessible"
ROOT_PATH = "/org/a11y/atspi/accessible/root"
NULL_PATH = "/org/a11y/atspi/null"
LIMIT_MILLISECONDS = 10_000

# Numbers of the protocol.
STATE_FOCUSABLE = 11
STATE_SHOWING = 25
RELATION_LABELLED_BY = 2

# What a user acts on, by the names that the toolkit gives to the roles.
INTERACTIVE_ROLES = {
    "check box", "check menu item", "combo box", "entry", "link", "list", "list box", "menu", "menu item",
    "page tab", "password text", "push button", "push button menu", "radio button", "radio menu item", "scale",
    "slider", "spin button", "table", "text", "toggle button", "tree", "tree table",
}


class Session:
    """A session bus. Whoever is asked for on it is started, the accessibility bus among them."""

    def __init__(self, environment):
        self._process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "TERM", "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"],
            env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.address = self._process.stdout.readline().strip()
        self._connections = []
        session = self._connect(self.address)
        (address,) = session.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, GLib.VariantType("(s)"),
            Gio.DBusCallFlags.NONE, LIMIT_MILLISECONDS, None).unpack()
        self.bus = self._connect(address)

    def _connect(self, address):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        connection.set_exit_on_close(False)
        self._connections.append(connection)
        return connection

    def close(self):
        """Ends the bus, and with it what it has started."""
        for connection in self._connections:
            if not connection.is_closed():
                connection.close_sync(None)
        self._process.terminate()
        self._process.wait()
        self._process.stdout.close()

    def applications(self):
        return Accessible(self.bus, "org.a11y.atspi.Registry", ROOT_PATH).children()

    def application_of(self, pid):
        """What the process shows; none as long as it hasn't made itself known."""
        for application in self.applications():
            if application.pid() == pid:
                return application
        return None


class Accessible:
    """One object of a program: a window, a control or a part of one."""

    def __init__(self, bus, owner, path):
        self._bus = bus
        self._owner = owner
        self._path = path

    def _call(self, interface, method, arguments, result):
        return self._bus.call_sync(
            self._owner, self._path, interface, method, arguments, GLib.VariantType(result), Gio.DBusCallFlags.NONE,
            LIMIT_MILLISECONDS, None).unpack()

    def _property(self, name, interface=ACCESSIBLE):
        return self._call("org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (interface, name)), "(v)")[0]

    def _others(self, places):
        return [Accessible(self._bus, owner, path) for owner, path in places if path != NULL_PATH]

    def pid(self):
        (pid,) = self._bus.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetConnectionUnixProcessID",
            GLib.Variant("(s)", (self._owner,)), GLib.VariantType("(u)"), Gio.DBusCallFlags.NONE, LIMIT_MILLISECONDS,
            None).unpack()
        return pid

    def role(self):
        return self._call(ACCESSIBLE, "GetRoleName", None, "(s)")[0]

    def own_name(self):
        return self._property("Name")

    def description(self):
        return self._property("Description")

    def name(self):
        """Its own name, or that of what it is labelled by: screen readers say either."""
        return self.own_name() or " ".join(label.own_name() for label in self.labels())

    def labels(self):
        (relations,) = self._call(ACCESSIBLE, "GetRelationSet", None, "(a(ua(so)))")
        return [label for kind, places in relations if kind == RELATION_LABELLED_BY for label in self._others(places)]

    def children(self):
        return self._others(self._call(ACCESSIBLE, "GetChildren", None, "(a(so))")[0])

    def has_state(self, state):
        (words,) = self._call(ACCESSIBLE, "GetState", None, "(au)")
        return bool(words[state // 32] >> (state % 32) & 1)

    def keys(self):
        """The keys that choose an item, one after the other, from the menu bar on."""
        (keys,) = self._call("org.a11y.atspi.Action", "GetKeyBinding", GLib.Variant("(i)", (0,)), "(s)")
        return keys.split(";")[1].split(":")

    def walk(self, depth=0):
        """Itself and all below it, each with its depth."""
        yield depth, self
        for child in self.children():
            yield from child.walk(depth + 1)


def lines_of(accessible):
    """The tree as text, one line for each object."""
    lines = []
    for depth, part in accessible.walk():
        description = part.description()
        lines.append("  " * depth + f"{part.role()} {part.name()!r}" + (f" - {description}" if description else ""))
    return lines


def is_value_list(part, way):
    """True for the part of a combo box that opens: its name is the box's."""
    return part.role() == "menu" and way[-1:] == ["combo box"]


def has_name(part):
    """False also for a combo box that gives its value as its name: nobody hears what is chosen there."""
    name = part.name().strip()
    if part.role() == "combo box" and not part.labels():
        return name and name not in [item.own_name() for _, item in part.walk() if item.role() == "menu item"]
    return bool(name)


def unnamed(window, focusable=False):
    """The ways to what a user acts on and what has no name: the roles from the window on. With
    `focusable` also to what takes the keyboard, whatever it is; a text that can be copied needs no name."""
    found = []
    way = []
    for depth, part in window.walk():
        role = part.role()
        del way[depth:]
        acted_on = role in INTERACTIVE_ROLES or (focusable and role != "label" and part.has_state(STATE_FOCUSABLE))
        if acted_on and not is_value_list(part, way) and not has_name(part):
            found.append(" > ".join([*way, role]))
        way.append(role)
    return found
