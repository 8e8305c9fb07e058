#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""One complete, private, headless desktop session in which a test drives a real program
from the outside, as a person would: mouse, keyboard, screen reader tree, tray, notifications.

    from session import Session
    with Session(lang="de_DE.UTF-8", tz="Europe/Berlin", clock="2025-03-03 09:59:30") as s:
        app = s.start(["/path/to/program"])
        app.find("push button", "New task").click()
        s.type("Buy milk"); s.key("Return")
        app.find("label", "Buy milk")
        s.clock.set("2025-03-03 10:00:00")
        s.notifications.wait(summary="Buy milk")

Nothing in here is known to the program under test: it only sees an X display, a session bus with
a notification service and a tray, a system bus with nobody on it, and the accessibility bus.
Use /usr/bin/python3 (it has gi). tools/packages/test.txt lists the packages.
`session.py --tree PROGRAM…` prints what a screen reader sees of a program after 2 s.
"""
import os, re, shutil, signal, subprocess, sys, tempfile, threading, time
import gi
from gi.repository import Gio, GLib

FAKETIME_LIB = f"/usr/lib/{os.uname().machine}-linux-gnu/faketime/libfaketimeMT.so.1"
MARK = "DESKTOP_TEST_SESSION"          # environment mark by which every process of a session is known
# Two clicks as many seconds or pixels apart are never a double click; toolkits take 0.4 and 5.
DOUBLE_CLICK, DOUBLE_CLICK_DISTANCE = 0.5, 10

# The window manager's configuration. Going to another desktop shows no sign of it, which would be in the way of a click in
# the middle of the screen; all else is as it comes.
OPENBOX = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc"><desktops><popupTime>0</popupTime></desktops></openbox_config>
"""


class Failure(AssertionError):
    """Something was not there in time, or cannot be done. wait_for() goes on trying on it."""


class Ended(AssertionError):
    """The program under test is not running any more; nothing is waited for then."""


def wait_for(what, fn, timeout=5.0, every=0.05):
    """Call fn until it returns something true; its exceptions count as 'not yet'."""
    end, last = time.monotonic() + timeout, None
    while True:
        try:
            v = fn()
            if v:
                return v
        except (GLib.Error, Failure, subprocess.CalledProcessError, LookupError) as e:
            last = e
        if time.monotonic() > end:
            try:
                what = what() if callable(what) else what
            except GLib.Error as e:      # describing it needs the program, and that does not answer
                what = f"something; and the program does not answer: {e}"
            raise Failure(f"waited {timeout} s for {what}" + (f" (last: {last})" if last else ""))
        time.sleep(every)


# ------------------------------------------------------------------------------------------ D-Bus

class Bus:
    """A connection to one bus, with short spellings and a time limit on every call."""

    def __init__(self, address):
        self.address = address
        self.c = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self.c.set_exit_on_close(False)

    def call(self, dest, path, iface, method, sig=None, *args, timeout=5.0, starting=False):
        """starting: the bus may start who is called."""
        flags = Gio.DBusCallFlags.NONE if starting else Gio.DBusCallFlags.NO_AUTO_START
        r = self.c.call_sync(dest, path, iface, method, GLib.Variant(sig, args) if sig else None, None,
                             flags, int(timeout * 1000), None)
        r = r.unpack() if r is not None else ()
        return r[0] if len(r) == 1 else r

    def call_all(self, objects, iface, method, sig=None, *args):
        """The same call to many objects (dest, path), all under way at once: the answers in their order, and for an object
        that has none (it went away meanwhile) None. Far faster than one after another, above all on a busy machine."""
        answers, left = [None] * len(objects), len(objects)

        def answered(connection, result, i):
            nonlocal left
            left -= 1
            try:
                r = connection.call_finish(result).unpack()
                answers[i] = r[0] if len(r) == 1 else r
            except GLib.Error:
                pass
        context = GLib.MainContext.new()         # the answers come to this thread, not to the loop of the services
        context.push_thread_default()
        try:
            for i, (dest, path) in enumerate(objects):
                self.c.call(dest, path, iface, method, GLib.Variant(sig, args) if sig else None, None,
                            Gio.DBusCallFlags.NO_AUTO_START, 5000, None, answered, i)
            while left:
                context.iteration(True)
        finally:
            context.pop_thread_default()
        return answers

    def get(self, dest, path, iface, prop):
        return self.call(dest, path, "org.freedesktop.DBus.Properties", "Get", "(ss)", iface, prop)

    def get_all(self, dest, path, iface):
        return self.call(dest, path, "org.freedesktop.DBus.Properties", "GetAll", "(s)", iface)

    def dbus(self, method, sig=None, *args):
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method, sig, *args)

    def own(self, name):
        if self.dbus("RequestName", "(su)", name, 4) != 1:
            raise Failure(f"{name} is already owned on this bus")

    def has_owner(self, name):
        return self.dbus("NameHasOwner", "(s)", name)

    def pid_of(self, name):
        return self.dbus("GetConnectionUnixProcessID", "(s)", name)

    def emit(self, path, iface, name, sig, *args):
        self.c.emit_signal(None, path, iface, name, GLib.Variant(sig, args))

    def export(self, path, xml, methods, props=lambda name: None):
        """methods: object with one Python method per D-Bus method: (sender, *args) -> GLib.Variant or None."""
        for info in Gio.DBusNodeInfo.new_for_xml(xml).interfaces:
            def on_call(conn, sender, p, i, method, params, inv):
                try:
                    inv.return_value(getattr(methods, method)(sender, *params.unpack()))
                except Exception as e:           # a bug in here must not hang the program under test
                    inv.return_dbus_error("org.freedesktop.DBus.Error.Failed", repr(e))
            self.c.register_object(path, info, on_call, lambda c, s, p, i, name: props(name), None)

    def close(self):
        try:
            self.c.close_sync(None)
        except GLib.Error:
            pass


# ------------------------------------------------------------------------------ notification daemon

class Notifications:
    """The notification service, and what the program posted to it."""
    XML = """<node><interface name='org.freedesktop.Notifications'>
      <method name='GetCapabilities'><arg direction='out' type='as'/></method>
      <method name='Notify'><arg direction='in' type='s'/><arg direction='in' type='u'/><arg direction='in' type='s'/><arg direction='in' type='s'/>
        <arg direction='in' type='s'/><arg direction='in' type='as'/><arg direction='in' type='a{sv}'/><arg direction='in' type='i'/><arg direction='out' type='u'/></method>
      <method name='CloseNotification'><arg direction='in' type='u'/></method>
      <method name='GetServerInformation'><arg direction='out' type='s'/><arg direction='out' type='s'/><arg direction='out' type='s'/><arg direction='out' type='s'/></method>
      <signal name='NotificationClosed'><arg type='u'/><arg type='u'/></signal>
      <signal name='ActionInvoked'><arg type='u'/><arg type='s'/></signal>
      <signal name='ActivationToken'><arg type='u'/><arg type='s'/></signal>
    </interface></node>"""
    NAME, PATH = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"

    def __init__(self, session):
        self.s, self.bus = session, None
        self.all = []            # every Notify ever received, oldest first: dicts
        self.next_id = 1

    def start(self):
        self.bus = Bus(self.s.bus_address)
        self.bus.export(self.PATH, self.XML, self)
        self.bus.own(self.NAME)

    def stop(self):
        if self.bus:
            self.bus.close(); self.bus = None

    # methods called over D-Bus
    def GetCapabilities(self, sender):
        return GLib.Variant("(as)", (["actions", "body", "body-markup", "persistence", "icon-static"],))

    def GetServerInformation(self, sender):
        return GLib.Variant("(ssss)", ("recorder", "test", "1", "1.2"))

    def Notify(self, sender, app, replaces, icon, summary, body, actions, hints, timeout):
        nid = replaces or self.next_id
        self.next_id = max(self.next_id, nid + 1)
        self.all.append(dict(app=app, replaces=replaces, icon=icon, summary=summary, body=body,
                             actions=dict(zip(actions[::2], actions[1::2])), hints=hints, timeout=timeout,
                             at=self.s.clock.now(), mono=time.monotonic(), id=nid))
        return GLib.Variant("(u)", (nid,))

    def CloseNotification(self, sender, nid):
        self.bus.emit(self.PATH, self.NAME, "NotificationClosed", "(uu)", nid, 3)

    # for tests
    def wait(self, count=1, timeout=5, **match):
        """Wait until `count` notifications have these values."""
        return wait_for(lambda: f"{count} notification(s) {match}; had {[n['summary'] for n in self.all]}",
                        lambda: (lambda m: m if len(m) >= count else None)([n for n in self.all if match.items() <= n.items()]), timeout)

    def invoke(self, nid):
        """The user clicks the notification."""
        self.bus.emit(self.PATH, self.NAME, "ActivationToken", "(us)", nid, "test-token")
        self.bus.emit(self.PATH, self.NAME, "ActionInvoked", "(us)", nid, "default")

    def dismiss(self, nid):
        """The user takes the notification away."""
        self.bus.emit(self.PATH, self.NAME, "NotificationClosed", "(uu)", nid, 2)


# ------------------------------------------------------------------------------------------- tray

class Tray:
    """StatusNotifierWatcher and host, without a visible panel. `where` is the point on the screen at
    which the icon is taken to be: the pointer is moved there before each click."""
    XML = """<node><interface name='org.kde.StatusNotifierWatcher'>
      <method name='RegisterStatusNotifierItem'><arg direction='in' type='s'/></method>
      <method name='RegisterStatusNotifierHost'><arg direction='in' type='s'/></method>
      <property name='RegisteredStatusNotifierItems' type='as' access='read'/>
      <property name='IsStatusNotifierHostRegistered' type='b' access='read'/>
      <property name='ProtocolVersion' type='i' access='read'/>
      <signal name='StatusNotifierItemRegistered'><arg type='s'/></signal>
      <signal name='StatusNotifierItemUnregistered'><arg type='s'/></signal>
      <signal name='StatusNotifierHostRegistered'/></interface></node>"""
    NAME, PATH, ITEM = "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.kde.StatusNotifierItem"

    def __init__(self, session):
        self.s, self._items, self.bus = session, [], None
        self.where = (session.size[0] - 24, session.size[1] - 12)
        self.start()

    def start(self):
        self._items = []
        self.bus = Bus(self.s.bus_address)
        self.bus.export(self.PATH, self.XML, self, self._prop)
        self.bus.c.signal_subscribe("org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged", None, None, 0, self._owner)
        self.bus.own(self.NAME)
        self.bus.emit(self.PATH, self.NAME, "StatusNotifierHostRegistered", "()")

    def stop(self):
        """The panel goes away (as when it crashes or is restarted)."""
        if self.bus:
            self.bus.close(); self.bus = None

    def _prop(self, name):
        return {"RegisteredStatusNotifierItems": lambda: GLib.Variant("as", [a + b for a, b, c in self._items]),
                "IsStatusNotifierHostRegistered": lambda: GLib.Variant("b", True),
                "ProtocolVersion": lambda: GLib.Variant("i", 0)}[name]()

    def RegisterStatusNotifierItem(self, sender, service):
        item = (sender, service, sender) if service.startswith("/") else (service, "/StatusNotifierItem", sender)
        if item not in self._items:
            self._items.append(item)
        self.bus.emit(self.PATH, self.NAME, "StatusNotifierItemRegistered", "(s)", item[0] + item[1])

    def RegisterStatusNotifierHost(self, sender, service):
        pass

    def _owner(self, c, sender, path, iface, sig, params):
        name, old, new = params.unpack()
        if not new:
            self._items = [i for i in self._items if name not in (i[0], i[2])]

    # for tests
    def items(self):
        return [TrayItem(self, a, b) for a, b, c in list(self._items)]

    def wait(self, timeout=5):
        return wait_for("a tray icon", self.items, timeout)[0]


class TrayItem:
    def __init__(self, tray, service, path):
        self.tray, self.s, self.service, self.path = tray, tray.s, service, path

    def props(self):
        return self.s.bus.get_all(self.service, self.path, Tray.ITEM)

    @property
    def tooltip(self):
        t = self.s.bus.get(self.service, self.path, Tray.ITEM, "ToolTip")
        return (t[2] + ("\n" + t[3] if t[3] else ""))

    def _click(self, method):
        x, y = self.tray.where
        self.s.move(x, y)
        self.s.bus.call(self.service, self.path, Tray.ITEM, method, "(ii)", x, y)

    def click(self):
        self._click("Activate")

    def middle_click(self):
        self._click("SecondaryActivate")

    def right_click(self):
        """What a host does if the item has no menu of its own."""
        self._click("ContextMenu")


# ------------------------------------------------------------------------------------------- clock

class Clock:
    """The wall clock that programs started in the session see: real time plus an offset kept in a file, by libfaketime;
    only in a session that was given clock=. CLOCK_MONOTONIC (QTimer, animations) stays real, as on a machine whose clock
    is set or which was suspended. A program that sleeps on timerfd(CLOCK_REALTIME) is started with the right duration,
    but unlike under a real kernel a later jump does not wake it (nor give ECANCELED)."""

    def __init__(self, root, start, tz):
        self.file, self.tz, self.offset, self.used = root + "/clock", tz, 0, start is not None
        self._write()
        if start is not None:
            self.set(start)

    def _write(self):
        if self.offset and not self.used:
            raise Failure("give the session clock=... to be able to move its clock")
        with open(self.file + ".new", "w") as f:
            f.write(f"{self.offset:+d}\n")
        os.rename(self.file + ".new", self.file)

    def now(self):
        return time.time() + self.offset

    def set(self, when):
        """when: "YYYY-MM-DD HH:MM:SS" in the session's time zone."""
        then = float(subprocess.check_output(["date", "-d", when, "+%s.%N"], env={**os.environ, "TZ": self.tz}))
        self.offset = round(then - time.time())     # whole seconds: a decimal point would be read by the locale's rules
        self._write()

    def env(self):
        if not self.used:
            return {}
        return {"LD_PRELOAD": FAKETIME_LIB, "FAKETIME_TIMESTAMP_FILE": self.file, "FAKETIME_NO_CACHE": "1",
                "FAKETIME_DONT_FAKE_MONOTONIC": "1", "NO_FAKE_STAT": "1"}


# ------------------------------------------------------------------------------------ accessibility

STATES = """invalid active armed busy checked collapsed defunct editable enabled expandable expanded focusable focused
has-tooltip horizontal iconified modal multi-line multiselectable opaque pressed resizable selectable selected sensitive
showing single-line stale transient vertical visible manages-descendants indeterminate required truncated animated
invalid-entry supports-autocompletion selectable-text is-default visited checkable has-popup read-only""".split()
A = "org.a11y.atspi."
TEXT_ROLES = ("text", "password text", "spin box", "entry")


def state_names(words):
    bits = words[0] | words[1] << 32
    return {n for i, n in enumerate(STATES) if bits >> i & 1}


class Element:
    """One object of the accessibility tree."""

    def __init__(self, app, name, path):
        self.app, self.s, self.ref = app, app.s, (name, path)

    def _get(self, iface, prop):
        return self.s.a11y.get(*self.ref, A + iface, prop)

    def _call(self, iface, method, sig=None, *args):
        return self.s.a11y.call(*self.ref, A + iface, method, sig, *args)

    def __eq__(self, o):
        return isinstance(o, Element) and self.ref == o.ref

    def __hash__(self):
        return hash(self.ref)

    def __repr__(self):
        try:
            return f"<{self.role} {self.name!r} {self.rect}>"
        except GLib.Error:
            return f"<gone {self.ref[1]}>"

    name = property(lambda self: self._get("Accessible", "Name"))
    description = property(lambda self: self._get("Accessible", "Description"))
    role = property(lambda self: self._call("Accessible", "GetRoleName"))
    interfaces = property(lambda self: [i[len(A):] for i in self._call("Accessible", "GetInterfaces")])

    @property
    def states(self):
        return state_names(self._call("Accessible", "GetState"))

    @property
    def parent(self):
        p = self._get("Accessible", "Parent")
        return Element(self.app, *p)

    @property
    def children(self):
        self.app.alive()
        return [Element(self.app, *c) for c in self._call("Accessible", "GetChildren")]

    @property
    def rect(self):
        """x, y, width, height on the screen."""
        return tuple(self._call("Component", "GetExtents", "(u)", 0))

    @property
    def text(self):
        """What is written in it: the content of a field, else its name. (Qt 6.4 gives labels a Text interface that
        is always empty, so their name counts.)"""
        if self.role in TEXT_ROLES:
            try:
                return self._call("Text", "GetText", "(ii)", 0, -1)
            except GLib.Error:
                pass
        return self.name

    @property
    def actions(self):
        return [a[0] for a in self._call("Action", "GetActions")]

    def has(self, state):
        return state in self.states

    # -- acting as a person with mouse and keyboard
    def center(self):
        x, y, w, h = self.rect
        sw, sh = self.s.size
        if w <= 0 or h <= 0 or not (0 <= x + w // 2 < sw and 0 <= y + h // 2 < sh):
            raise Failure(f"{self!r} is not on the screen")
        return x + w // 2, y + h // 2

    def click(self):
        """On its centre. Fails if that point is scrolled out of sight or covered by another accessible element. (What
        has no accessible element, like the dimmed area around a modal sheet, covers unnoticed: then the click goes
        there, as a person's would.)"""
        x, y = self.center()
        self._check_hit(x, y)
        self.s.click(x, y)
        return self

    def _up(self):
        """This element, its parent, ... up to the window."""
        e = self
        while e.ref[1] != "/org/a11y/atspi/null" and e.ref != self.app.ref:
            yield e
            e = e.parent

    def _check_hit(self, x, y):
        try:
            mine = list(self._up())
            if len(mine) < 2:             # a window itself: any point of it will do
                return
            hit = Element(self.app, *mine[-1]._call("Component", "GetAccessibleAtPoint", "(iiu)", x, y, 0))
        except GLib.Error:
            return
        if hit.ref[1] == "/org/a11y/atspi/null":
            raise Failure(f"{self!r} cannot be seen at {x},{y} (scrolled out of sight?)")
        if hit not in mine and self not in hit._up():
            raise Failure(f"{self!r} is covered at {x},{y} by {hit!r}")

    def scroll_to(self, role, name):
        """Of a list: turn the wheel over it until the wanted element is fully in sight: down, and from the end up.
        (Lists keep some rows beyond both edges in the tree, so the way is known before the element can be seen.)"""
        for way in (1, -1):              # one notch at a time: Qt Quick speeds up over several and would run past
            last, nudges = None, 0
            while True:
                now = self._still()
                x, y, w, h = self.rect
                r = [(e, e.rect) for e in self.find_all(role, name)][:1]
                if r and (nudges > 30 or y <= r[0][1][1] and r[0][1][1] + r[0][1][3] <= y + h):
                    return r[0][0]
                if now == last:
                    break
                last, nudges = now, nudges + len(r)
                self.scroll((1 if r[0][1][1] > y else -1) if r else way)
        raise Failure(f"{role} {name!r} is nowhere in {self!r}")

    def _still(self):
        """Wait until what is below stops moving; returns where its first and last child are."""
        seen = [1, 2]

        def look():
            c = self.children
            seen.append([(e.ref, e.rect) for e in c[:1] + c[-1:]])
            return seen[-1] == seen[-2] == seen[-3]
        wait_for("an end of the movement", look, 5, 0.06)
        return seen[-1]

    def fill(self, text):
        """Click into the field, select what is there, type over it."""
        self.click()
        wait_for(f"focus in {self!r}", lambda: self.has("focused"))
        self.s.key("ctrl+a")
        self.s.key("Delete")
        self.s.type(text)
        return self

    def scroll(self, clicks):
        """Wheel over it; > 0 is down."""
        self.s.move(*self.center())
        self.s.xdotool("click", "--repeat", str(abs(clicks)), "--delay", "30", "5" if clicks > 0 else "4")
        return self

    # -- acting as a screen reader
    def do(self, action=None):
        """Run an action of the element ("Press", "Toggle", "SetFocus", "ShowMenu", ...), else its first one."""
        names = self.actions
        if not names or (action and action not in names):
            raise Failure(f"{self!r} has no action {action}, only {names}")
        self._call("Action", "DoAction", "(i)", names.index(action) if action else 0)
        return self

    def set_text(self, text):
        if not self._call("EditableText", "SetTextContents", "(s)", text):
            raise Failure(f"{self!r} refused text")
        return self

    # -- looking
    def _ask(self, elements, iface, method, sig=None, *args):
        return self.s.a11y.call_all([e.ref for e in elements], iface, method, sig, *args)

    def _roles(self, elements):
        return self._ask(elements, A + "Accessible", "GetRoleName")

    def _names(self, elements):
        return self._ask(elements, "org.freedesktop.DBus.Properties", "Get", "(ss)", A + "Accessible", "Name")

    def _texts(self, elements):
        """The .text of each, None where the element went away."""
        texts = dict(zip(elements, self._names(elements)))
        fields = [e for e, role in zip(elements, self._roles(elements)) if role in TEXT_ROLES]
        contents = self._ask(fields, A + "Text", "GetText", "(ii)", 0, -1)
        texts.update((e, content) for e, content in zip(fields, contents) if content is not None)
        return [texts[e] for e in elements]

    def snapshot(self, hidden=False):
        """Every element below this one as (depth, element, states), in order; hidden ones (and what is in them) only on
        demand. Asked for level by level, since that costs few waits."""
        below, level = {}, [(self, self.children)]
        while level:
            kids = [kid for _, children in level for kid in children]
            states = {kid: state_names(words) for kid, words in zip(kids, self._ask(kids, A + "Accessible", "GetState")) if words}
            for element, children in level:
                below[element] = [(kid, states[kid]) for kid in children if kid in states and (hidden or {"showing", "visible"} <= states[kid])]
            seen = [kid for element, _ in level for kid, _ in below[element]]
            level = [(kid, [Element(self.app, *c) for c in children])
                     for kid, children in zip(seen, self._ask(seen, A + "Accessible", "GetChildren")) if children]

        out = []

        def put(element, depth):
            for kid, states in below.get(element, ()):
                out.append((depth, kid, states))
                put(kid, depth + 1)
        put(self, 0)
        return out

    def walk(self, hidden=False):
        """The elements of the snapshot with their depths."""
        return [(depth, e) for depth, e, _ in self.snapshot(hidden)]

    def find_all(self, role=None, name=None, hidden=False, where=None):
        """role: as in tree(); name: exact string or compiled pattern."""
        same = lambda want, got: got is not None and (bool(want.search(got)) if hasattr(want, "search") else want == got)
        found = [e for _, e in self.walk(hidden)]
        for want, read in ((role, self._roles), (name, self._names)):
            if want is not None:
                found = [e for e, got in zip(found, read(found)) if same(want, got)]
        out = []
        for e in found:
            try:
                if where is None or where(e):
                    out.append(e)
            except GLib.Error:           # went away while we were looking
                continue
        return out

    def find(self, role=None, name=None, timeout=5, **kw):
        found = []

        def look():
            found[:] = self.find_all(role, name, **kw)
            return found
        return wait_for(lambda: f"{role or 'element'} {name or ''!r} {self.where_to_look()}", look, timeout, 0.1)[0]

    def where_to_look(self):
        """For a message: what was searched, hidden or not, and the windows on the screen."""
        return f"in:\n{self.tree(hidden=True)}\nwith the windows {self.s.windows()}"

    def gone(self, role, name=None, timeout=5):
        wait_for(f"{role} {name!r} to go away", lambda: not self.find_all(role, name), timeout, 0.1)

    def texts(self):
        """Everything that can be read on it, in order."""
        return [t for t in self._texts([e for _, e in self.walk()]) if t]

    def tree(self, hidden=False):
        lines = []
        for d, e, st in self.snapshot(hidden):
            try:
                note = [x for x in ("focused", "checked", "selected", "expanded", "modal", "active", "read-only") if x in st]
                note += [] if "sensitive" in st else ["disabled"]
                note += [] if {"showing", "visible"} <= st else [f"hidden at {e.rect}"]
                note += [f"at {e.rect}"] if e.role in ("frame", "dialog") else []
                t = e.text
                lines.append("  " * d + f"{e.role} {e.name!r}" + (f" text={t!r}" if t != e.name else "") + (" " + ",".join(note) if note else ""))
            except GLib.Error:
                continue
        return "\n".join(lines)


# ------------------------------------------------------------------------------------------ program

class App(Element):
    """A started program; as an Element it is the root of its accessibility tree (its children are its windows)."""

    def __init__(self, session, argv, env):
        self.s, self.argv = session, argv
        self.proc = session.spawn(os.path.basename(argv[0]), argv, env)
        self.pid, self.log_file = self.proc.pid, self.proc.log_file
        self._ref = None

    app = property(lambda self: self)

    @property
    def ref(self):
        if not self._ref:
            self._ref = wait_for(lambda: f"{self.argv[0]} on the accessibility bus; log:\n{self.log()}", self._find_ref, 15)
        return self._ref

    def alive(self):
        if self.proc.poll() is not None:
            raise Ended(f"{self.argv[0]} ended with {self.proc.poll()}; log:\n{self.log()[-2000:]}")

    def _find_ref(self):
        self.alive()
        reg = self.s.a11y.call("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root", A + "Accessible", "GetChildren")
        for name, path in reg:
            try:
                if self.s.a11y.pid_of(name) == self.pid:
                    return name, path
            except GLib.Error:
                continue

    # What Qt says when somebody asks for an element that has just gone away. Whoever looks at the tree again and again, as
    # these tests do while a dialog closes, cannot always know.
    ASKED_TOO_LATE = re.compile(r".*Qt AtSpiAdaptor: Accessible invalid: .*\n")

    def log(self):
        """What it has said on its standard output and error."""
        with open(self.log_file, errors="replace") as f:
            return self.ASKED_TOO_LATE.sub("", f.read())

    def wait_window(self, title, timeout=10):
        """Wait until the window is there, has the keyboard, and has stopped moving (the window manager places it late)."""
        w = self.find(name=title, where=lambda e: e.role in ("frame", "window", "dialog"), timeout=timeout)
        wait_for(lambda: f"window {title!r} to become active, not {self.s.active_window()!r} {self.where_to_look()}",
                 lambda: "active" in w.states, timeout)
        seen = []

        def still():
            seen.append((w.rect, self.windows()))
            return len(seen) > 3 and seen[-1] == seen[-2] == seen[-3] and seen[-1][1]
        wait_for(f"window {title!r} to settle", still, timeout, 0.1)
        return w

    def focused(self):
        """The innermost element that has the keyboard focus, or None."""
        f = [e for _, e, states in self.snapshot() if "focused" in states]
        return f[-1] if f else None

    def windows(self):
        """{X window id: (title, x, y, w, h)} of what the program has on the screen."""
        return self.s.windows(self.pid)

    # -- life and death
    def running(self):
        return self.proc.poll() is None

    def wait(self, timeout=10):
        """Exit code (negative: the signal that ended it)."""
        try:
            return self.proc.wait(timeout)
        except subprocess.TimeoutExpired:
            raise Failure(f"{self.argv[0]} still runs after {timeout} s") from None

    def kill(self):
        self.proc.send_signal(signal.SIGKILL)
        return self.wait()


# ------------------------------------------------------------------------------------------ session

def forget_clock(pid):
    """Takes away what libfaketime leaves behind when a program is killed."""
    for f in (f"/dev/shm/faketime_shm_{pid}", f"/dev/shm/sem.faketime_sem_{pid}"):
        if os.path.exists(f):
            os.unlink(f)


class Session:
    """tray: "sni" (own StatusNotifier host without a visible panel, see Tray), "none".   notifications: "record" (see
    Notifications), "none".   size: of the screen. env: for every program started with start().
    root: directory to work in, which is then kept; it has log/, home/, data/, config/, ...
    prepare: called with the session once its directories exist and nothing runs yet, to put files there; the session bus
    starts what the service files in services/ name.
    lang: LANG (Qt reads it itself, no generated locale is needed)."""

    def __init__(self, lang="C.UTF-8", tz="UTC", clock=None, size=(1280, 900), tray="sni", notifications="record",
                 a11y=True, wm=True, env=None, root=None, prepare=None):
        self.size, self.keep, self.procs = size, root is not None, []
        self.root = root or tempfile.mkdtemp(prefix="session-")
        self.opts = dict(lang=lang, tz=tz, clock=clock, tray=tray, notifications=notifications, a11y=a11y, wm=wm,
                         env=env or {}, prepare=prepare)
        self.home, self._typed, self._spare, self._clicked = self.root + "/home", {}, [], ((0, 0), 0)
        self.tray = self.notifications = self.a11y = self.bus = None

    def __enter__(self):
        try:
            self._up()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *a):
        self.stop()

    def _up(self):
        o, r = self.opts, self.root
        dirs = dict(HOME=self.home, XDG_CONFIG_HOME=r + "/config", XDG_DATA_HOME=r + "/data", XDG_CACHE_HOME=r + "/cache",
                    XDG_STATE_HOME=r + "/state", XDG_RUNTIME_DIR=r + "/run", TMPDIR=r + "/tmp")
        for d in list(dirs.values()) + [r + "/log", r + "/services"]:
            os.makedirs(d, mode=0o700, exist_ok=True)
        self.env = {k: v for k, v in os.environ.items() if k in ("USER", "LOGNAME", "SHELL")}
        self.env.update(dirs, PATH="/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin", LANG=o["lang"], TZ=o["tz"], GSETTINGS_BACKEND="memory",
                        XDG_SESSION_TYPE="x11", LIBGL_ALWAYS_SOFTWARE="1", **{MARK: r})
        self.clock = Clock(r, o["clock"], o["tz"])
        if o["prepare"]:
            o["prepare"](self)
        self._loop()
        # X server: it picks a free number itself
        rd, wr = os.pipe()
        self.spawn("Xvfb", ["Xvfb", "-displayfd", str(wr), "-screen", "0", f"{self.size[0]}x{self.size[1]}x24", "-nolisten", "tcp", "-noreset"], pass_fds=[wr])
        os.close(wr)
        with os.fdopen(rd) as f:
            n = f.readline().strip()
        if not n:
            raise Failure("Xvfb did not start: " + open(r + "/log/Xvfb.log").read())
        self.env["DISPLAY"] = ":" + n
        # session and system bus: own configuration, so that nothing installed on the machine can be activated
        self.bus_address, system_address = f"unix:path={r}/run/bus", f"unix:path={r}/run/system_bus"
        for name, addr in (("session", self.bus_address), ("system", system_address)):
            with open(f"{r}/{name}.conf", "w") as f:
                services = f"<servicedir>{r}/services</servicedir>" if name == "session" else ""
                f.write(f"<busconfig><type>session</type><listen>{addr}</listen>{services}<policy context='default'><allow send_destination='*' eavesdrop='true'/>"
                        "<allow eavesdrop='true'/><allow own='*'/></policy></busconfig>")
            self.spawn("dbus-" + name, ["dbus-daemon", "--nofork", f"--config-file={r}/{name}.conf"])
            wait_for(f"the {name} bus", lambda: os.path.exists(addr[len("unix:path="):]), every=0.01)
        self.env.update(DBUS_SESSION_BUS_ADDRESS=self.bus_address, DBUS_SYSTEM_BUS_ADDRESS=system_address)
        self.bus = wait_for("the session bus", lambda: Bus(self.bus_address))
        # accessibility bus; --a11y=1 sets org.a11y.Status.IsEnabled, the switch that toolkits look at
        if o["a11y"]:
            self.spawn("at-spi", ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately", "--a11y=1"])
            addr = wait_for("the accessibility bus", lambda: self.bus.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"), every=0.01)
            self.a11y = wait_for("the accessibility bus", lambda: Bus(addr))
            self.spawn("at-spi-registry", ["/usr/libexec/at-spi2-registryd"], {"AT_SPI_BUS_ADDRESS": addr, "DBUS_SESSION_BUS_ADDRESS": self.bus_address})
            wait_for("the accessibility registry", lambda: self.a11y.has_owner("org.a11y.atspi.Registry"), every=0.01)
        if o["wm"]:
            with open(f"{r}/openbox.xml", "w") as f:
                f.write(OPENBOX)
            self.spawn("openbox", ["openbox", "--sm-disable", "--config-file", f"{r}/openbox.xml"])
            wait_for("the window manager", lambda: b"window id" in subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.env, capture_output=True).stdout)
            self._wait_for_manager()
        self.notifications = Notifications(self)
        if o["notifications"] == "record":
            self.notifications.start()
        if o["tray"] == "sni":
            self.tray = Tray(self)

    def _wait_for_manager(self):
        """Openbox says that it is there before it reads its configuration. A window that asks to be shown meanwhile may
        wait until something else happens on the display; so may a key."""
        for desktop in ("1", "0"):
            def has_gone_there():
                self.xdotool("set_desktop", desktop)
                return self.xdotool("get_desktop") == desktop
            wait_for(f"the window manager to go to desktop {desktop}", has_gone_there, 10)

    def _loop(self):
        """One GLib loop for the whole process serves what sessions export on D-Bus."""
        if not getattr(Session, "_thread", None):
            Session._thread = threading.Thread(target=GLib.MainLoop().run, daemon=True)
            Session._thread.start()

    # -- processes
    def spawn(self, name, argv, env=None, pass_fds=()):
        n, path = 1, f"{self.root}/log/{name}.log"
        while os.path.exists(path):
            n += 1
            path = f"{self.root}/log/{name}-{n}.log"
        with open(path, "wb") as log:
            # setpriv: if the test itself is killed, the kernel ends what it started (it keeps the process id)
            p = subprocess.Popen(["setpriv", "--pdeathsig", "KILL", "--", *argv], env={**self.env, **(env or {})}, stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT,
                                 pass_fds=pass_fds, start_new_session=True, cwd=self.home)
        p.log_file = path
        self.procs.append(p)
        return p

    def start(self, argv, **env):
        """Start the program under test (any number of times); env: extra environment."""
        argv = [str(a) for a in argv]
        if "/" in argv[0]:
            argv[0] = os.path.abspath(argv[0])
        return App(self, argv, {**self.clock.env(), **self.opts["env"], **env})

    def stop(self):
        for part in (self.tray, self.notifications):
            if part:
                part.stop()
        for p in reversed(self.procs):
            if p.poll() is None:
                p.terminate()
        for p in reversed(self.procs):
            try:
                p.wait(3)
            except subprocess.TimeoutExpired:
                p.kill(); p.wait()
        left = list(self._left_over())       # grandchildren: known by the mark in their environment
        for pid in left:
            try:
                os.kill(pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
        for pid in [p.pid for p in self.procs] + left:
            forget_clock(pid)
        self.procs = []
        if not self.keep:
            shutil.rmtree(self.root, ignore_errors=True)

    def _left_over(self):
        mark = f"{MARK}={self.root}".encode()
        for d in os.listdir("/proc"):
            if d.isdigit():
                try:
                    with open(f"/proc/{d}/environ", "rb") as f:
                        if mark in f.read().split(b"\0"):
                            yield int(d)
                except OSError:
                    pass

    # -- mouse, keyboard, screen
    def xdotool(self, *args):
        # It reads what it is to type by its locale, and that of the session need not exist on the machine.
        env = {**self.env, "LC_ALL": "C.UTF-8"}
        return subprocess.run(["xdotool", *map(str, args)], env=env, check=True, capture_output=True, text=True).stdout.strip()

    def move(self, x, y):
        self.xdotool("mousemove", "--sync" if (x, y) != self.pointer() else "--", x, y)

    def pointer(self):
        return tuple(int(v) for v in re.findall(r"[xy]:(-?\d+)", self.xdotool("getmouselocation"))[:2])

    def click(self, x, y, button=1, times=1):
        """times: 2 is a double click. Two calls never are one: the second at a place waits for that."""
        (last_x, last_y), since = self._clicked
        if max(abs(x - last_x), abs(y - last_y)) < DOUBLE_CLICK_DISTANCE:
            time.sleep(max(0, since + DOUBLE_CLICK - time.monotonic()))
        self.move(x, y)
        self.xdotool("click", "--repeat", times, "--delay", 60, button)
        self._clicked = (x, y), time.monotonic()

    def key(self, *keys):
        """Key names of X, e.g. "Return", "ctrl+q", "shift+Tab"."""
        for k in keys:
            self.xdotool("key", "--clearmodifiers", k)
            time.sleep(0.03)

    def type(self, text):
        self._typable(text)
        self.xdotool("type", "--clearmodifiers", "--delay", 12, "--", text)

    def _typable(self, text):
        """Give every character that the keyboard lacks a spare key first and for good. Left to itself xdotool maps one
        for each stroke and takes it away at once, and programs that read the new map late lose the character."""
        new = sorted({c for c in text if ord(c) > 126} - set(self._typed))
        if not new:
            return
        if not self._spare:
            out = subprocess.run(["xmodmap", "-pke"], env=self.env, capture_output=True, text=True, check=True).stdout
            self._spare = [k for k, syms in re.findall(r"^keycode +(\d+) =(.*)$", out, re.M) if not syms.strip() or syms.strip().startswith("XF86")]
        if len(new) > len(self._spare):
            raise Failure("too many special characters at once for one keyboard; type in parts")
        args = []
        for c in new:                          # the spare key that was given out longest ago, unless this text needs it
            k = next(k for k in self._spare if not any(self._typed.get(o) == k for o in text))
            self._spare.remove(k); self._spare.append(k)
            self._typed = {o: v for o, v in self._typed.items() if v != k} | {c: k}
            args += ["-e", f"keycode {k} = U{ord(c):04X} U{ord(c):04X}"]
        subprocess.run(["xmodmap", *args], env=self.env, check=True)
        time.sleep(0.3)

    def windows(self, pid=None):
        try:
            ids = self.xdotool("search", "--onlyvisible", *(["--pid", pid] if pid else ["--name", ""])).split()
        except subprocess.CalledProcessError:
            return {}
        out = {}
        for i in ids:
            try:
                g = dict(l.split("=") for l in self.xdotool("getwindowgeometry", "--shell", i).split("\n"))
                out[int(i)] = (self.xdotool("getwindowname", i), int(g["X"]), int(g["Y"]), int(g["WIDTH"]), int(g["HEIGHT"]))
            except subprocess.CalledProcessError:
                continue
        return out

    def active_window(self):
        """Title of the window that has the keyboard."""
        try:
            return self.xdotool("getactivewindow", "getwindowname")
        except subprocess.CalledProcessError:
            return None

    def close_window(self):
        """The user's Alt+F4 (openbox asks the active window to close), until that window is gone: soon after its start
        openbox misses a key now and then."""
        window = int(self.xdotool("getactivewindow"))
        for attempt in range(4):
            self.key("alt+F4")
            try:
                return wait_for(f"window {window} to close", lambda: window not in self.windows(), 2)
            except Failure:
                if attempt == 3:
                    raise

    def screenshot(self, path):
        subprocess.run(["import", "-window", "root", path], env=self.env, check=True)

    # -- clipboard
    def clipboard(self, target=None):
        r = subprocess.run(["xclip", "-o", "-selection", "clipboard"] + (["-t", target] if target else []), env=self.env, capture_output=True, timeout=5)
        return r.stdout.decode() if r.returncode == 0 else None

    def set_clipboard(self, text):
        p = subprocess.Popen(["xclip", "-i", "-selection", "clipboard"], env=self.env, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        p.communicate(text.encode())

    # -- drag and drop: a real drag source window, and the mouse
    def drop_files(self, files, to, hold):
        """Drag files or addresses from another program's window, which lets them be copied, moved and linked, and drop
        them at to = (x, y). hold: called before the button is let go (to look at the highlighted drop area). Returns
        whether they were taken, and each action that the source was told on the way."""
        w, h, steps = 60, 60, 12
        at = (0, self.size[1] - h) if to[1] < self.size[1] // 2 else (0, 0)
        src = self.spawn("drag-source", ["/usr/bin/python3", os.path.abspath(__file__), "--drag-source", f"{at[0]},{at[1]}", *files], {"NO_AT_BRIDGE": "1"})

        def said(word):
            """What followed the word each time."""
            with open(src.log_file) as f:
                return re.findall(rf"^{word} (.*)\n", f.read(), re.M)
        try:
            wait_for("the drag source", lambda: said("at"), 10)
            time.sleep(0.2)
            x0, y0 = at[0] + w // 2, at[1] + h // 2
            self.move(x0, y0)
            self.xdotool("mousedown", 1)
            for i in range(1, steps + 1):
                self.xdotool("mousemove", x0 + (to[0] - x0) * i // steps, y0 + (to[1] - y0) * i // steps)
                time.sleep(0.04)
            for d in (1, 0, 1, 0):                # a hand is never quite still, and targets answer to movement
                self.xdotool("mousemove", to[0] + d, to[1])
                time.sleep(0.05)
            time.sleep(0.2)
            hold()
            self.xdotool("mouseup", 1)
            taken, = wait_for("the end of the drag", lambda: said("taken"))
            return taken == "True", said("told")
        finally:
            src.terminate(); src.wait()


def drag_source(pos, files):
    gi.require_version("Gtk", "3.0"); gi.require_version("Gdk", "3.0")
    from gi.repository import Gdk, Gtk
    x, y = (int(v) for v in pos.split(","))
    w = Gtk.Window(type=Gtk.WindowType.POPUP)            # not managed: stays where it is put, takes no focus
    w.set_default_size(60, 60); w.move(x, y)
    box = Gtk.EventBox(); box.add(Gtk.Label(label="FILES")); w.add(box)
    uris = [f if "://" in f else GLib.filename_to_uri(os.path.abspath(f)) for f in files]
    box.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY | Gdk.DragAction.MOVE | Gdk.DragAction.LINK)
    box.drag_source_add_uri_targets()
    say = lambda *a: print(*a, flush=True)
    box.connect("drag-begin", lambda wd, c: c.connect("action-changed", lambda c, action: say("told", *action.value_nicks)))
    box.connect("drag-data-get", lambda wd, c, data, info, t: data.set_uris(uris))
    # Gtk itself counts every drop as a success, and what never came to a drop as one, too.
    failed = []
    box.connect("drag-failed", lambda wd, c, r: failed.append(r))
    box.connect("drag-end", lambda wd, c: say("taken", not failed and Gdk.drag_drop_succeeded(c)))
    w.show_all()
    GLib.timeout_add(100, lambda: say("at", pos))
    Gtk.main()


if __name__ == "__main__":
    if len(sys.argv) > 2 and sys.argv[1] == "--drag-source":
        drag_source(sys.argv[2], sys.argv[3:])
    elif len(sys.argv) > 2 and sys.argv[1] == "--tree":
        with Session() as s:
            app = s.start(sys.argv[2:])
            app.ref; time.sleep(2)
            print(app.tree(hidden=True))
    else:
        print(__doc__)
