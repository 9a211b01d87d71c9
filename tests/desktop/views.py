# Places in the program's window: the rows and columns of its lists, its pop-ups, and what its windows are told.
# SPDX-License-Identifier: MIT
import ctypes

from screen import TITLE, until

# From the first row's top up into the middle of the heading, in pixels.
HEADING_MIDDLE = 11
# How the profile names the headings of the two lists.
ADDRESSES = ("AddressList", "AddressHeading")
TO_DOS = ("ToDoList", "ToDoHeading")


def set_heading(home, which, columns):
    """Gives the list a heading of known widths, (id, pixels) from left to right, before the program starts."""
    section, key = which
    file = home.folder / "config" / "orvo" / "settings.ini"
    file.parent.mkdir(parents=True, exist_ok=True)
    shown = " ".join(f"{column} {width}" for column, width in columns)
    with file.open("a") as settings:
        settings.write(f"[Profile/{section}]\n{key}=({len(columns)}) {shown} (0)\n")


class Rows:
    """The rows of the list that the window shows, which has a heading by set_heading(), and no row selected yet."""

    def __init__(self, screen, columns):
        self.screen = screen
        self.columns = columns
        self.rest()
        empty = screen.at_rest()
        screen.after("the first row is selected", lambda: screen.keys("Down"))
        selected = screen.at_rest()
        self.left, self.top, self.right, bottom = max(
            selected.changed_bands(empty), key=lambda band: band[2] - band[0])  # the widest one
        self.height = bottom - self.top
        self.highlight = self.end_of(selected, 0)

    def rest(self):
        """Takes the mouse where it lights nothing up."""
        self.screen.move(*(int(side) - 1 for side in self.screen.mode.split("x")[:2]))

    def middle(self, row):
        return self.top + self.height * row + self.height // 2

    def column(self, column):
        """(left, right) of a column."""
        left = self.left
        for each, width in self.columns:
            if each == column:
                return left, left + width
            left += width
        raise KeyError(column)

    def cell(self, row, column):
        return sum(self.column(column)) // 2, self.middle(row)

    def heading(self, column):
        return sum(self.column(column)) // 2, self.top - HEADING_MIDDLE

    def end_of(self, picture, row):
        """The colour of a row behind its last column."""
        return picture.pixel(self.right - 2, self.middle(row))

    def is_selected(self, row):
        return self.end_of(self.screen.picture(), row) == self.highlight

    def select(self, row, column):
        """By a click on a cell that opens nothing."""
        self.screen.click(*self.cell(row, column))
        until(f"row {row} is selected", lambda: self.is_selected(row))


def windows(screen):
    """All windows of the program that show, its menus and boxes among them."""
    return set(screen.xdotool("search", "--onlyvisible", "--class", "orvo-desktop").split())


def opened(screen, what, action):
    """Does it, and gives the window that opens at that."""
    before = windows(screen)
    action()
    return until(what, lambda: windows(screen) - before).pop()


def take_keys(screen, window):
    until("the dialog has the keys",
          lambda: screen.xdotool("windowfocus", window, "getwindowfocus").split() == [window])
    until("the dialog is drawn", lambda: not screen.picture(window).is_blank())


def dialog(screen, *keys):
    """Presses keys that open a dialog, and gives its window, which has the keys then."""
    window = opened(screen, "a dialog", lambda: screen.keys(*keys))
    take_keys(screen, window)
    return window


def close(screen, window, *keys, back=TITLE):
    """Presses keys that close a dialog, and gives the keys to the window behind it, where that has a title."""
    screen.keys(*keys)
    until("the dialog is gone", lambda: not is_open(screen, window))
    if back:
        screen.focus(back)


def is_open(screen, window):
    return window in windows(screen)


def area(screen, window):
    """(left, top, right, bottom) on the screen."""
    words = dict(line.split("=") for line in screen.xdotool("getwindowgeometry", "--shell", window).split())
    left, top, width, height = (int(words[word]) for word in ("X", "Y", "WIDTH", "HEIGHT"))
    return left, top, left + width, top + height


def item(screen, menu, position, count):
    """Where the item of a menu lies that is at that position of `count`."""
    left, top, right, bottom = area(screen, menu)
    return (left + right) // 2, top + (bottom - top) * (2 * position + 1) // (2 * count)


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_long * 24)]
    TYPE = 33


def close_window(screen, title=TITLE):
    """Asks a window to close, as a window manager does for the button in its frame."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(screen.environment["DISPLAY"].encode()))
    assert display, "the display can't be reached"
    atoms = [x11.XInternAtom(display, name, 0) for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW")]
    window = int(screen.window(title))
    event = ClientMessage(type=ClientMessage.TYPE, window=window, message_type=atoms[0], format=32)
    event.data[0] = atoms[1]
    x11.XSendEvent(display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(event))
    x11.XCloseDisplay(display)
