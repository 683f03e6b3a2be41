# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader finds in the running mixer: walks the windows over AT-SPI, from another process.

Usage: test_accessibility.py HOST [--dump]

Everything that can be operated or read has a name; what is set gradually has a text with its unit, and
so has every handle of the curve. Opens the editor's panels and the help, too. Runs on an X server, a
session bus and an accessibility bus of its own. With --dump it prints what it finds.
"""

import os
import re
import signal
import subprocess
import sys
import tempfile
import time

INSIDE = "ZOLTA_ACCESSIBILITY_BUS"
LAUNCHERS = ["/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher"]
PATIENCE = 120.0

OPERABLE = {"push button", "toggle button", "check box", "radio button", "combo box", "dial", "slider",
            "spin button", "progress bar", "text", "menu item", "table", "table column header", "tree",
            "list", "tool bar", "dialog"}
GRADUAL = {"dial", "slider", "spin button", "progress bar"}
# What the menus open, in this order.
OPENED = ["Parameters", "Measured Response", "Analyzer", "Guide", "Keys and Mouse"]

NUMBER = r"[+-]?\d+(\.\d+)?"
LEVEL = rf"{NUMBER} dB"
FREQUENCY = rf"{NUMBER} k?Hz"
# What the text of an element looks like, by its name.
TEXTS = {r".* frequency": FREQUENCY, r".* (gain|level)": LEVEL, r".* quality": NUMBER, r".* type": r"\w+ \d+",
         r".* band": rf"{FREQUENCY}(, {LEVEL})?(, Q {NUMBER})?", r"(Fader|Level|Meter|Peak) of .*": LEVEL,
         r"Balance of .*": r"C|[LR]\d+", r".* meter, .*": LEVEL, r"Source of .*": r"Off|File|Input \d|Test signal"}
TABLE_COLUMNS = 5


def own_session(host, arguments):
    """Starts this script again with servers of its own, and returns its exit code."""
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(os.environ, HOME=folder, XDG_RUNTIME_DIR=folder, **{INSIDE: "1"})
        for name in ("DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS", "XDG_CONFIG_HOME", "XDG_DATA_HOME"):
            environment.pop(name, None)
        os.chmod(folder, 0o700)
        return subprocess.run(
            ["xvfb-run", "-a", "-s", "-screen 0 1600x1000x24", "dbus-run-session", "--",
             sys.executable, __file__, host, *arguments], env=environment, timeout=2 * PATIENCE).returncode


def elements(element, depth=0):
    """The element and all below it that show, with their depths."""
    import pyatspi
    if element is None:
        return
    yield depth, element
    for index in range(element.childCount):
        child = element.getChildAtIndex(index)
        if child and (child.getState().contains(pyatspi.STATE_SHOWING) or child.getRoleName() == "slider"):
            yield from elements(child, depth + 1)


def text_of(element):
    """Its description, or the label beside it, or what it shows where it shows text by itself."""
    import pyatspi
    for relation in element.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY and not element.description:
            return relation.getTarget(0).name
    try:
        return element.description or element.queryText().getText(0, -1)
    except NotImplementedError:
        return ""


def find_application(process):
    import pyatspi
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end and process.poll() is None:
        for application in pyatspi.Registry.getDesktop(0):
            if application and application.get_process_id() == process.pid and application.childCount >= 2:
                return application
        time.sleep(0.1)
    return None


def menu_item(element, name):
    """The item of that name in the menus below the element, whether they are open or not."""
    for index in range(element.childCount):
        child = element.getChildAtIndex(index)
        if not child or child.getRoleName() not in {"frame", "menu bar", "menu item", "popup menu"}:
            continue
        if child.name == name and child.getRoleName() == "menu item":
            return child
        found = menu_item(child, name)
        if found:
            return found
    return None


def open_by_menu(application, name):
    """Whether a panel or dialog of that name shows afterwards."""
    item = menu_item(application, name)
    if not item:
        return False
    item.queryAction().doAction(0)
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if any(element.getRoleName() in {"frame", "dialog"} and element.name.lower() == name.lower()
               for _, element in elements(application)):
            return True
        time.sleep(0.1)
    return False


def walk(application, dump):
    """A list of (role, name, text)."""
    found = []
    for depth, element in elements(application):
        found.append((element.getRoleName(), element.name, text_of(element)))
        if dump:
            print("  " * depth + "  ".join(part for part in found[-1] if part))
    return found


def suits(name, text):
    """Whether the text is one for an element of that name."""
    return all(re.fullmatch(expected, text) for known, expected in TEXTS.items() if re.fullmatch(known, name))


def complaints(found):
    """What is wrong with the list of (role, name, text)."""
    for role, name, text in found:
        if role in OPERABLE and not name:
            yield f"a {role} has no name"
        if role in GRADUAL | {"combo box"} and not text:
            yield f"the {role} {name!r} has no text"
        elif role in GRADUAL | {"combo box"} and not suits(name, text):
            yield f"the {role} {name!r} reads {text!r}"
    cells = [name for role, name, text in found if role == "table cell"]
    for title, value in zip(cells[::TABLE_COLUMNS], cells[1::TABLE_COLUMNS]):
        if not suits(title, value):
            yield f"in the table, {title} reads {value!r}"
    bands = {name for role, name, text in found if role == "slider" and name.endswith("band")}
    if len(bands) != 6:
        yield f"the curve has {len(bands)} handles: {sorted(bands)}"
    if sum(role == "dial" for role, name, text in found) != 20:
        yield "the editor does not have its 20 knobs"


def main():
    host, arguments = sys.argv[1], sys.argv[2:]
    if INSIDE not in os.environ:
        return own_session(host, arguments)
    launcher = subprocess.Popen([next(filter(os.path.exists, LAUNCHERS)), "--launch-immediately"],
                                stderr=subprocess.DEVNULL)
    environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    process = subprocess.Popen(
        [host, "--language", "en", "--session", os.path.join(os.environ["HOME"], "accessibility.session"),
         "--set", "fx_rackfx_prm_2=120"], env=environment, stderr=subprocess.DEVNULL)
    try:
        application = find_application(process)
        if application is None:
            print("The mixer does not appear on the accessibility bus.")
            return 1
        dump = "--dump" in arguments
        found = walk(application, dump)
        problems = list(complaints(found))
        for name in OPENED:
            if not open_by_menu(application, name):
                problems.append(f"{name} does not open")
            found = walk(application, dump)
            problems += complaints(found)
        print("\n".join(problems + [f"{len(found)} elements, {len(problems)} problems"]))
        return 1 if problems else 0
    finally:
        process.send_signal(signal.SIGTERM)
        process.wait()
        launcher.terminate()
        launcher.wait()


if __name__ == "__main__":
    sys.exit(main())
