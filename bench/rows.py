# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
"""The rows of the table that run.py prints: what is measured, against what, and the goal."""

import math
from dataclasses import dataclass
from typing import Optional


@dataclass(frozen=True)
class Measure:
    """One number of one benchmark: `clock` names the field or the counter of its result."""

    program: str
    benchmark: str
    clock: str
    # Whether the process has a second thread, as applications do. Without one the C and C++
    # libraries skip their atomic operations, which Qt does not.
    threads: bool = False
    # Whether it runs on a virtual X server with a window manager.
    desktop: bool = False


@dataclass(frozen=True)
class Row:
    """One line of the table.

    `goal` is the largest ratio of ours to the peer that is good enough. A row with `goal_value`
    asks for an absolute number of ours instead; a row with neither only reports. With `growth`,
    ours is the peer with so many times as much to do, and the ratio is the exponent of its growth.
    """

    name: str
    against: str
    peer: Measure
    ours: Measure
    limit: Optional[Measure] = None
    goal: Optional[float] = None
    goal_value: Optional[float] = None
    growth: Optional[float] = None
    unit: str = "ns"

    def ratio(self, peer, ours):
        if peer == 0:
            return math.inf if ours else 1
        return math.log(ours / peer, self.growth) if self.growth else ours / peer

    def measures(self):
        return [m for m in (self.peer, self.ours, self.limit) if m]


def compare(program, clock, name, against, peer, ours, limit=None, threads=False, desktop=False,
            **more):
    """A row whose numbers come out of one program by one clock."""
    def measure(benchmark):
        return Measure(program, benchmark, clock, threads, desktop) if benchmark else None
    return Row(name, against, measure(peer), measure(ours), measure(limit), **more)


# The thread that broadcasts, triggers or draws does all the work: its processor time is the cost,
# and other programs on the machine disturb it little.
ONE_THREAD = "cpu_time"
# Several threads take part, or a thread sleeps: only the time on the wall tells.
WALL = "real_time"


def plural(count, noun):
    return f"{count} {noun}{'' if count == 1 else 's'}"


def dispatch_rows():
    for threads, goal in ((1, 0.05), (4, 0.10)):
        yield compare("bench_dispatch", WALL,
                      f"post a closure to the main thread, {plural(threads, 'thread')}",
                      "queued invokeMethod", f"postQt/{threads}", f"postTessel/{threads}",
                      f"postBare/{threads}", goal=goal)
    yield compare("bench_dispatch", "median_ns", "latency from post to run, loop asleep",
                  "queued invokeMethod", "latencyQt", "latencyTessel", "latencyBare", goal=1.05)


def broadcast_row(name, against, channel, peer, count, goal, threads=False):
    return compare("bench_broadcaster", ONE_THREAD, name, against, f"{channel}{peer}/{count}",
                   f"{channel}Tessel/{count}", f"{channel}Bare/{count}", threads, goal=goal)


def broadcast_rows():
    counts = (1, 10, 1000)
    for n, qt, boost in zip(counts, (1.5, 0.8, 0.7), (0.5, 0.2, 0.16)):
        name = f"broadcast to {plural(n, 'direct observer')}"
        yield broadcast_row(name, "Qt direct signal", "direct", "Qt", n, qt)
        yield broadcast_row(name, "Boost.Signals2 tracked", "direct", "Boost", n, boost)
    for n, queued in zip(counts, (0.12, 0.03, 0.02)):
        name = f"broadcast to {plural(n, 'main-queue observer')}"
        yield broadcast_row(name, "Qt queued signal", "queued", "Qt", n, queued)
    for n in counts:
        name = f"broadcast to {plural(n, 'direct observer')}, process with threads"
        yield broadcast_row(name, "Qt direct signal", "direct", "Qt", n, None, threads=True)
    for n in counts:
        name = f"broadcast to {plural(n, 'main-queue observer')}, process with threads"
        yield broadcast_row(name, "Qt queued signal", "queued", "Qt", n, None, threads=True)
    for n in (1, 1000):
        yield compare("bench_memory", "bytes",
                      f"memory of a waiting broadcast, {plural(n, 'main-queue observer')}",
                      "copied list", f"waitingCopy/{n}", f"waitingTessel/{n}",
                      goal_value=128, unit="B")


def command_rows():
    for verb, what, goal in (("trigger", "trigger of a command, 1 direct observer", 3.5),
                             ("toggle", "toggle of a checkable command, 1 direct observer", 3)):
        yield compare("bench_commandbase", ONE_THREAD, what, f"QAction::{verb}", f"{verb}Qt",
                      f"{verb}Command", f"{verb}Bare", goal=goal)


def manager_rows():
    def row(name, against, peer, ours, **more):
        return compare("bench_cmdmgr", ONE_THREAD, name, against, peer, ours, **more)
    kinds = (("Same", "a context that changes nothing"), ("", "a context that changes all"))
    for kind, what in kinds:
        yield row(f"apply {what} to 1000 commands", "look-up and setEnabled",
                  f"apply{kind}Qt/1000", f"apply{kind}Manager/1000", goal=2)
    yield row("growth of that, as exponent", "250 commands", "applyManager/250",
              "applyManager/1000", goal=1.1, growth=4)
    yield row("snapshot of 1000 commands", "look-up and setEnabled", "applySameQt/1000",
              "snapshot/1000", goal=2)
    yield row("snapshot of 1000 commands, one changed", "look-up and setEnabled",
              "applySameQt/1000", "snapshotChanged/1000", goal=2)


def group_rows():
    """The peer follows nothing, and actions of a QActionGroup alone cost a hundred times as much:
    it looks for the sender of each change among all of them."""
    yield compare("bench_commandgroup", ONE_THREAD, "disable and enable 1000 children of a group",
                  "plain actions", "turnOverPlain/1000", "turnOverCommandGroup/1000", goal=1.8)


def view_rows():
    def row(name, against, peer, ours, goal):
        return compare("bench_baseview", ONE_THREAD, name, against, peer, ours, threads=True,
                       goal=goal)
    yield row("mouse move through a view to a tool", "bare event filter", "moveFilter", "moveView",
              2)
    yield row("mouse move past a running command to a tool", "bare event filter", "moveFilter",
              "moveViewRunning", 2.2)
    yield row("event in an application of 100 views", "none", "eventBeside/0", "eventBeside/100",
              1.15)
    yield row("event in an application of 100 views", "one", "eventBeside/1", "eventBeside/100",
              1.05)


def notification_rows():
    """A bar has a box, an effect and a layer of its own, which a label has not; what counts is
    that its first frame comes as soon."""
    def row(name, clock, kind, goal):
        return compare("bench_notificationbar", clock, name, "label shown by a queued functor",
                       f"{kind}Label", f"{kind}Bar", goal=goal)
    yield row("notification by a worker to its first frame", "latency_ns", "shown", 1.1)
    yield row("first notification of a window to its first frame", "latency_ns", "first", 1.1)
    yield row("work of the main thread for a notification", "cost_ns", "shown", 3)
    yield row("work of the main thread for the first of a window", "cost_ns", "first", 6)


def tool_bar_rows():
    """Qt's bar hides what has no room; all buttons of ours are widgets that are shown and have a
    style sheet. After each change of the visible bar ours paints what is seen of all buttons anew,
    Qt's only what is new until there is no more room. What leaves has all behind it move up."""
    def row(name, against, peer, ours, **more):
        return compare("bench_toolbar", ONE_THREAD, name, against, peer, ours, **more)
    for way, what, goal in (("Hidden", "hidden, with the first show", 4),
                            ("Shown", "while it is shown", 0.15)):
        yield row(f"tool bar of 2000 filled {what}", "QToolBar", f"fill{way}Qt/2000",
                  f"fill{way}Lumo/2000", goal=goal)
        yield row("growth of that, as exponent", "300 buttons", f"fill{way}Lumo/300",
                  f"fill{way}Lumo/2000", goal=1.15, growth=2000 / 300)
    yield row("tool bar of 300 filled while it is shown, painted after each", "QToolBar",
              "fillPaintingQt/300", "fillPaintingLumo/300")
    yield row("growth of removing 100 buttons, as exponent", "500 buttons", "removeSome/500",
              "removeSome/2000", goal=1.5, growth=4)
    yield row("repaint of a tool bar, per button", "QToolBar", "repaintAllQt/200",
              "repaintAllLumo/200", goal=1.1)
    yield row("repaint of one button in 2000", "QToolBar", "repaintOneQt/2000",
              "repaintOneLumo/2000", goal=2)
    yield compare("bench_toolbar", "bytes", "heap per button of a tool bar", "QToolBar",
                  "heapQt/2000", "heapLumo/2000", goal_value=7000, unit="B")


def start_rows():
    """Of what 30 commands add to a window of Qt alone, loading the library and what it needs is three
    tenths, the style sheet of the application, which Qt reads with the first widget, two, and the first
    button one and a half. Of what each further command adds, a fifth is that Qt asks the style for the
    margins of a new button, and so gathers the rules of the sheet for it."""
    def row(name, commands, clock, goal, peer=0, against="window of Qt alone", unit="ns"):
        return compare("bench_start", clock, name, against, f"startQt/{peer}/manual_time",
                       f"startLumo/{commands}/manual_time", goal=goal, unit=unit)
    for commands, time, memory in ((30, 1.15, 1.09), (300, 1.8, 1.2)):
        name = f"with {plural(commands, 'command')} on a bar"
        yield row(f"process start to first frame, {name}", commands, WALL, time)
        yield row(f"process start to first frame, {name}", commands, WALL, None, commands,
                  f"{commands} actions on a QToolBar")
        yield row(f"peak memory of a process {name}", commands, "peak", memory, unit="B")


def resting_rows():
    yield compare("bench_idle", "per_second", "wake-ups of the idle workbench, per second",
                  "one plain widget", "idlePlain", "idleWorkbench", goal_value=0, unit="/s")
    for name, against, peer, ours, goal in (
            ("heap per command of a manager", "QAction", "heapAction/1000", "heapCommand/1000",
             1700),
            ("heap per command, states set and read", "QAction", "heapAction/1000",
             "heapUsedCommand/1000", 1900),
            ("heap per view with its controller", "QWidget", "heapWidget/100", "heapView/100",
             10000)):
        yield compare("bench_heap", "bytes", name, against, peer, ours, goal_value=goal, unit="B")


def icon_rows():
    """Beside loading, the toolkit looks for files, checks bitmaps and notes on the action what it
    did: that has to fit into what it saves by asking for each file once. Drawings it renders once
    for all actions. What keeps its size is a property read and a probe."""
    def row(name, against, peer, ours, goal):
        return compare("bench_qtuitoolkit", ONE_THREAD, name, against, peer, ours, goal=goal)
    for verb, what in (("create", "icon made by name"), ("resize", "icon brought to another size")):
        yield row(f"{what}, bitmap", "QIcon alone", f"{verb}PngQt", f"{verb}PngToolkit", 1)
        yield row(f"{what}, drawing", "QIcon alone", f"{verb}SvgQt", f"{verb}SvgToolkit", 0.2)
    yield row("icon that keeps its size", "QIcon::actualSize", "keepSizeProbe", "keepSizeToolkit",
              5)


def tool_rows():
    """With one stack there is nothing to share out, so the reset must cost no more than the loop."""
    for stacks, goal in ((1, 1.1), (2, 0.55), (4, 0.55)):
        yield compare("bench_toolstack", WALL,
                      f"reset of {plural(stacks, 'tool stack')}, 20 us each, workers warm",
                      "serial loop", f"resetLoop/{stacks}", f"resetStack/{stacks}",
                      f"resetBare/{stacks}", goal=goal)


def popup_rows():
    """A layout works the outline's numbers out and leaves the outline to the painting, since only
    the last of several layouts is painted."""
    def layout(name, ours, goal):
        return compare("bench_popup", ONE_THREAD, name, "united and simplified", "layoutQt", ours,
                       goal=goal)
    yield layout("one arrow layout", "layOut/Window", 0.06)
    yield layout("one arrow layout and its outline", "layOut/Outline", None)
    yield layout("one arrow layout, repeated", "layoutRepeated", 0.002)
    for kind, what, goal in (("Plain", "plain", 0.04), ("Arrow", "with arrow", 0.2)):
        yield Row(f"popup solve, {what}", "floating-ui on node",
                  Measure("floatingui.mjs", f"solve{kind}FloatingUi", ONE_THREAD),
                  Measure("bench_popup", f"solve{kind}", ONE_THREAD), goal=goal)


def opening_rows():
    """On X11 a menu maps itself, while a flyout, which stays and takes the keyboard, is mapped by the
    window manager; the limit is a bare window that is."""
    def row(name, peer, ours, desktop, **more):
        where = "X11 with openbox" if desktop else "offscreen"
        return compare("bench_toolbuttonwithmenu", "wait_ns" if desktop else "cost_ns",
                       f"click to first frame, {name}, {where}", "QMenu::popup", peer, ours,
                       desktop=desktop, **more)
    for desktop, goal in ((False, 1.0), (True, 1.3)):
        yield row("flyout kept hidden", "openPanelMenu", "openFlyout", desktop,
                  limit="openPanelWindow", goal=goal)
        yield row("menu of buttons kept hidden", "openActionMenu", "openButtonMenu", desktop,
                  goal=goal)
        yield row("flyout never shown before", "firstPanelMenu", "firstFlyout", desktop)


def dialog_rows():
    """Card and buttons have a style sheet and blurred shadows, a message box has neither."""
    yield compare("bench_taskdialog", ONE_THREAD, "question with 3 buttons, made and painted",
                  "QMessageBox", "showQt", "showTaskDialog", goal=2.5)


def menu_rows():
    """From the pointer on an item until its menu is painted, and hidden again."""
    for peer, against in (("openPlain", "QMenuBar"), ("openStyled", "QMenuBar, same style sheet")):
        yield compare("bench_menu", ONE_THREAD, "menu of 20 entries, opened again", against, peer,
                      "openMenuBuilder", goal=1.0)


ROWS = [
    *dispatch_rows(),
    *broadcast_rows(),
    *command_rows(),
    *manager_rows(),
    *group_rows(),
    *icon_rows(),
    *popup_rows(),
    *opening_rows(),
    *tool_rows(),
    *view_rows(),
    *notification_rows(),
    *tool_bar_rows(),
    *start_rows(),
    *resting_rows(),
    *dialog_rows(),
    *menu_rows(),
]
