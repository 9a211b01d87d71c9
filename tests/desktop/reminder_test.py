#!/usr/bin/env python3
# Reminders of to-dos by a notification service, with a window and without one, and what the user answers to them.
# SPDX-License-Identifier: MIT
import datetime
import subprocess

from case import DesktopCase, main
from gi.repository import Gio, GLib
from screen import LONGEST, running, until

NAME = PATH = "org.freedesktop.Notifications"
INTERFACE = """<node><interface name="org.freedesktop.Notifications">
  <method name="Notify"><arg type="s"/><arg type="u"/><arg type="s"/><arg type="s"/><arg type="s"/><arg type="as"/>
    <arg type="a{sv}"/><arg type="i"/><arg type="u" direction="out"/></method>
  <method name="CloseNotification"><arg type="u"/></method>
</interface></node>"""
SERVICE = "org.orvoshare.OrvoDesktop"


class Notifications:
    """A notification service on that session bus, as long as the block lasts."""

    def __init__(self, address):
        self.address = address
        self.shown = {}  # by id: title, body, and answers by their labels
        self.closed = []

    def __enter__(self):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.bus = Gio.DBusConnection.new_for_address_sync(self.address, flags, None, None)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self.bus.register_object("/org/freedesktop/Notifications", interface, self.take, None, None)
        self.name = Gio.bus_own_name_on_connection(self.bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
        return self

    def __exit__(self, *error):
        Gio.bus_unown_name(self.name)
        self.bus.close_sync(None)

    def take(self, bus, sender, path, interface, method, arguments, call):
        if method == "Notify":
            _, _, _, title, body, actions, _, _ = arguments.unpack()
            number = len(self.shown) + len(self.closed) + 1
            self.shown[number] = (title, body, dict(zip(actions[1::2], actions[::2])))
            call.return_value(GLib.Variant("(u)", (number,)))
        else:
            self.closed.append(arguments.unpack()[0])
            call.return_value(None)

    def wait(self, what, is_so):
        def look():
            while GLib.MainContext.default().iteration(False):
                pass
            return is_so()
        return until(what, look)

    def note(self, count=1):
        """The id of the note of that number, and what it says."""
        self.wait(f"note {count}", lambda: len(self.shown) >= count)
        number = sorted(self.shown)[count - 1]
        return number, *self.shown[number]

    def tell(self, signal, kinds, *values):
        self.bus.emit_signal(None, "/org/freedesktop/Notifications", NAME, signal, GLib.Variant(f"({kinds})", values))
        self.bus.flush_sync(None)

    def answer(self, number, label):
        self.tell("ActionInvoked", "us", number, self.shown[number][2][label])

    def dismiss(self, number):
        self.tell("NotificationClosed", "uu", number, 2)


class ReminderTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.notes = self.enterContext(Notifications(self.home.environment["DBUS_SESSION_BUS_ADDRESS"]))

    def import_to_do(self, summary, minutes, more=""):
        """One that is due in so many minutes from now and reminds of it then; more lines go into it."""
        due = datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(minutes=minutes)
        self.home.orvo("import", self.file(f"{summary}.ics", (
            f"BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nUID:{summary}\nSUMMARY:{summary}\nDUE:{due:%Y%m%dT%H%M%SZ}\n{more}"
            "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER;RELATED=END:PT0S\nEND:VALARM\nEND:VTODO\nEND:VCALENDAR\n")))

    def service(self, **environment):
        command = [self.home.programs["orvo-desktop"], "--store", self.home.store, "--reminders"]
        return self.enterContext(running(command, {**self.home.environment, **environment}, stderr=None))

    def source(self):
        """All to-dos, as an export writes them."""
        path = self.home.folder / "out.ics"
        path.unlink(missing_ok=True)
        self.home.orvo("export", path)
        return path.read_text()

    def test_the_service_reminds_and_takes_answers(self):
        self.import_to_do("Call", -5)
        self.import_to_do("Daily", -5, "RRULE:FREQ=DAILY\n")
        service = self.service()
        number, title, body, _ = self.notes.note()
        self.assertEqual((title, body.count("(due")), ("Reminder of 2 to-dos", 2))
        self.notes.answer(number, "In 10 minutes")
        self.notes.wait("both are put off", lambda: self.source().count("RELTYPE=SNOOZE") == 2)
        self.assertEqual(self.source().count("ACKNOWLEDGED"), 2)
        self.notes.wait("the answered one is closed", lambda: self.notes.closed == [number])
        self.import_to_do("Now", 0.05)  # seen while the service waits
        number, title, body, _ = self.notes.note(2)
        self.assertIn("Now", body)
        self.notes.answer(number, "Complete")
        self.notes.wait("it is completed", lambda: "STATUS:COMPLETED" in self.source())
        self.end(service)
        self.service()
        self.import_to_do("Last", 0)
        number, _, body, _ = self.notes.note(3)
        self.assertNotIn("Call", body)
        self.notes.dismiss(number)
        self.notes.wait("it is seen", lambda: self.source().count("ACKNOWLEDGED") == 4)

    def test_a_repeating_one_is_completed_for_this_time(self):
        self.import_to_do("Daily", -5, "RRULE:FREQ=DAILY\n")
        self.service()
        number = self.notes.note()[0]
        self.notes.answer(number, "In 1 hour")
        self.notes.wait("it is put off", lambda: "RELTYPE=SNOOZE" in self.source())
        self.notes.answer(number, "Complete")  # as if it were of a program that has ended
        self.notes.wait("a completed one", lambda: "STATUS:COMPLETED" in self.source())
        self.assertEqual(len(self.home.rows("todos")), 2)
        self.assertIn("RRULE", self.source())
        self.assertNotIn("RELTYPE=SNOOZE", self.source())

    def test_the_service_gives_way_to_a_window_and_takes_over_from_it(self):
        self.import_to_do("Later", 60)
        self.service(**self.screen.environment)
        with self.window("--view", "list") as program:
            self.import_to_do("Call", 0)
            number, _, body, _ = self.notes.note()
            self.assertIn("Call", body)
            self.notes.answer(number, "Open")
            self.screen.focus("Edit to-do")
            self.screen.keys("Escape")
            self.until_alone("the form")
            self.quit(program)
        self.import_to_do("Write", 0)
        number, _, body, _ = self.notes.note(2)
        self.assertIn("Write", body)
        self.assertEqual(len(self.notes.shown), 2)
        self.notes.answer(number, "Open")
        self.screen.focus("Edit to-do")
        self.screen.keys("Escape")
        self.until_alone("the form")
        self.screen.keys("ctrl+q")

    def test_the_form_edits_reminders(self):
        self.home.orvo("todo", "add", "Call", "--due", "2026-12-24")
        with self.window("--view", "todos"):
            self.screen.keys("Home", "Return")
            self.screen.focus("Edit to-do")
            self.screen.keys("alt+m")
            self.screen.after("the menu", lambda: self.screen.keys("space"))
            self.screen.keys("Down", "Down", "Return", "alt+s")
            self.until_alone("the form")
            until("the reminder", lambda: "TRIGGER;RELATED=END:-PT5M" in self.source())
            self.screen.keys("ctrl+z")
            until("it is taken back", lambda: "VALARM" not in self.source())

    def test_the_option_starts_and_ends_the_service(self):
        file = self.home.folder / "config" / "autostart"

        def names():
            called = subprocess.run(["gdbus", "call", "--session", "--dest=org.freedesktop.DBus",
                                     "--object-path=/org/freedesktop/DBus", "--method=org.freedesktop.DBus.ListNames"],
                                    env=self.home.environment, capture_output=True, text=True)
            return called.stdout

        with self.window():
            for is_on in (True, False):
                self.dialog("Options", "ctrl+comma")
                self.screen.keys("ctrl+shift+Tab", "ctrl+shift+Tab")
                self.screen.after("the box is pressed", lambda: self.screen.keys("alt+o"))
                self.screen.at_rest()  # it is checked once it is released
                self.screen.keys("Return")
                self.until_alone("the dialog")
                until("the service", lambda: (".Reminders" in names()) == is_on)
                files = list(file.glob("*.desktop"))
                self.assertEqual(len(files), is_on)
                if is_on:
                    self.assertIn(f'--reminders "--store" "{self.home.store}"', files[0].read_text())


if __name__ == "__main__":
    main()
