#!/usr/bin/python3
"""Drives the running diary as a screen reader would, over AT-SPI: reads and operates the strip, the menus, the table,
the calendar and the charts. Ends with 0 when everything was found, read and done; says what was not."""
import sys
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 60  # seconds until something that is awaited counts as missing, on a machine that is busy


def fail(what):
    print("not found: " + what)
    sys.exit(1)


def awaited(what, look):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = look()
        except Exception:  # an element may go away while it is being looked at
            found = None
        if found:
            return found
        time.sleep(0.1)
    fail(what)


def application():
    desktop = pyatspi.Registry.getDesktop(0)
    return next((child for child in desktop if child is not None and child.name.lower() == "sanovia"), None)


def element(root, name, test=lambda found: True):
    return awaited(name, lambda: pyatspi.findDescendant(root, lambda found: found.name == name and test(found)))


def has(found, state):
    found.clearCache()  # what the program says now, not what it said when it was last asked
    return found.getState().contains(state)


def press(found):
    found.queryAction().doAction(0)


def check(what, truth):
    awaited(what, truth)
    print("ok: " + what)


told = []  # the names of what was said to have the focus now
pyatspi.Registry.registerEventListener(lambda event: told.append(event.source.name), "object:state-changed:focused")


def is_told(name):
    while GLib.MainContext.default().iteration(False):
        pass
    return name in told


app = awaited("the application", application)

# The strip: names, states and actions.
def strip(name):
    return element(app, name, lambda found: found.getRole() != pyatspi.ROLE_MENU_ITEM)


for word in ("General", "Pressure", "Blood", "Table", "Charts", "Report"):
    strip(word)
check("General is on", lambda: has(strip("General"), pyatspi.STATE_CHECKED))
press(strip("Blood"))
check("Blood is on", lambda: has(strip("Blood"), pyatspi.STATE_CHECKED))
press(strip("General"))
check("General is on again", lambda: has(strip("General"), pyatspi.STATE_CHECKED))

# The menus: an item is found without opening its menu, is disabled by its rule and does what it says.
def item(name):
    return element(app, name, lambda found: found.getRole() == pyatspi.ROLE_MENU_ITEM)


def is_there(title):  # among the windows alone, since not all of them stay for long
    return any(window.name == title and has(window, pyatspi.STATE_SHOWING) for window in app)


check("there is nothing to save", lambda: not has(item("Save Report…"), pyatspi.STATE_ENABLED))
press(item("Pressure"))
check("the menu shows Pressure", lambda: has(strip("Pressure"), pyatspi.STATE_CHECKED))
check("the item of the kind that shows is disabled", lambda: not has(item("Pressure"), pyatspi.STATE_ENABLED))
press(item("General"))
press(item("Preferences…"))
check("the sheet shows", lambda: is_there("Preferences"))
press(element(app, "Cancel"))
check("the sheet is gone", lambda: not is_there("Preferences"))
press(item("About Sanovia"))
check("the about panel shows", lambda: is_there("About Sanovia"))
check("the about panel goes away by itself", lambda: not is_there("About Sanovia"))

# The table: its size, its titles, its cells, its selection.
table = awaited("the table", lambda: pyatspi.findDescendant(app, lambda found: found.getRole() == pyatspi.ROLE_TABLE))
check("15 days", lambda: table.queryTable().nRows == 15)
check("the date's title", lambda: table.queryTable().getColumnDescription(1) == "Date")
check("the interval's label", lambda: element(app, "15 days").getRole() == pyatspi.ROLE_LABEL)
newest = table.queryTable().getAccessibleAt(0, 1).name
check("a name for the edit button", lambda: table.queryTable().getAccessibleAt(0, 0).name != "")
check("a date in the first row: " + newest, lambda: len(newest) == 10 and newest.count("/") == 2)
table.queryTable().addRowSelection(2)
check("the third row is selected", lambda: table.queryTable().isRowSelected(2))
cell = table.queryTable().getAccessibleAt(1, 1)
press(cell)
slider = element(app, "Temperature, °F", lambda found: found.getRole() == pyatspi.ROLE_SLIDER and has(found, pyatspi.STATE_SHOWING))
check("its day opens, and nothing is entered", lambda: slider.description == "not entered")
press(element(app, "Temperature plus"))
check("the press announces the new value", lambda: element(app, "Temperature plus").description == "97.9")
check("the slider says it in the shown unit", lambda: slider.queryValue().currentValue == 97.9)
press(element(app, "Close", lambda found: has(found, pyatspi.STATE_SHOWING)))
check("the table shows it", lambda: table.queryTable().getAccessibleAt(1, 2).name == "97.9")
# Until then the panel is on its way, and takes the keyboard from whatever opens when it arrives.
check("the table is back", lambda: has(table, pyatspi.STATE_SHOWING))

# The calendar: it is in the tree while it is open, a day is picked, and the interval follows.
press(element(app, "Start date"))
first = awaited("the picked day",
                lambda: pyatspi.findDescendant(app, lambda found: has(found, pyatspi.STATE_CHECKED)
                                               and found.name.count(",") == 2))
print("ok: the calendar shows " + first.name)
press(element(app, "Previous month"))
other = awaited("a day of the month before",
                lambda: pyatspi.findDescendant(app, lambda found: found.name.count(",") == 2
                                               and " 1, " in found.name and found.name != first.name))
press(other)
check("the table has grown", lambda: table.queryTable().nRows > 15)
check("the calendar is gone", lambda: not has(other, pyatspi.STATE_SHOWING))

# The charts: buttons that say whether they are open, days that say their values, a day that is edited.
days = table.queryTable().nRows
press(element(app, "Charts"))
chart = element(app, "Appetite", lambda found: found.getRole() == pyatspi.ROLE_CHART)
button = element(app, "Appetite", lambda found: found.getRole() == pyatspi.ROLE_PUSH_BUTTON and has(found, pyatspi.STATE_CHECKED))
check("the chart has the days of the table", lambda: chart.childCount == days)
check("a day says that it is empty", lambda: chart[days - 1].name.endswith(": not entered"))
# Where nobody manages windows, a click gives this one the keyboard, without which no focus moves.
first = chart[0].queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
pyatspi.Registry.generateMouseEvent(first.x + first.width // 2, first.y + first.height // 2, pyatspi.MOUSE_B1C)
check("the window is active", lambda: has(app[0], pyatspi.STATE_ACTIVE))
check("the day that was clicked is selected", lambda: has(chart[0], pyatspi.STATE_SELECTED))


def focus(day):
    action = day.queryAction()
    action.doAction([action.getName(i) for i in range(action.nActions)].index("SetFocus"))


focus(chart[days - 1])
check("the day is selected", lambda: has(chart[days - 1], pyatspi.STATE_SELECTED))
# A busy desk may drop a word of it: then the focus moves away and back again.
check("the day's focus is told",
      lambda: is_told(chart[days - 1].name) or focus(chart[0]) or focus(chart[days - 1]))
check("the day is selected again", lambda: has(chart[days - 1], pyatspi.STATE_SELECTED))
press(chart[days - 1])
element(app, "Appetite minus", lambda found: has(found, pyatspi.STATE_SHOWING))
press(element(app, "Appetite plus", lambda found: has(found, pyatspi.STATE_SHOWING)))
press(element(app, "Close", lambda found: has(found, pyatspi.STATE_SHOWING)))
check("the day says its value", lambda: chart[days - 1].name.endswith(": Good"))
press(button)
check("the chart is gone", lambda: pyatspi.findDescendant(
    app, lambda found: found.getRole() == pyatspi.ROLE_CHART and found.name == "Appetite") is None)
