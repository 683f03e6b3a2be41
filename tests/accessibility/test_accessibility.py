# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader finds in the running mixer: walks the windows over AT-SPI, from another process.

Usage: test_accessibility.py HOST [--dump]

Everything that can be operated or read has a name; what is set gradually has a text with its unit, and
so has every handle of the curve. Runs on an X server, a session bus and an accessibility bus of its own.
With --dump it prints what it finds.
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
            "spin button", "progress bar", "text", "menu item", "table", "tree", "list"}
GRADUAL = {"dial", "slider", "spin button", "progress bar"}

NUMBER = r"[+-]?\d+(\.\d+)?"
LEVEL = rf"{NUMBER} dB"
FREQUENCY = rf"{NUMBER} k?Hz"
# What the text of an element of the editor looks like, by the end of its name.
TEXTS = {"frequency": FREQUENCY, "gain": LEVEL, "level": LEVEL, "quality": NUMBER, "type": r"\w+ \d+",
         "band": rf"{FREQUENCY}(, {LEVEL})?(, Q {NUMBER})?"}


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
    """Its description, or what it shows where it shows text by itself."""
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


def complaints(found):
    """What is wrong with the list of (role, name, text)."""
    for role, name, text in found:
        if role in OPERABLE and not name:
            yield f"a {role} has no name"
        if role in GRADUAL and not text:
            yield f"the {role} {name!r} has no text"
        expected = TEXTS.get(name.rsplit(" ", 1)[-1])
        if role in GRADUAL and expected and not re.fullmatch(expected, text):
            yield f"the {role} {name!r} reads {text!r}"
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
        found = []
        for depth, element in elements(application):
            found.append((element.getRoleName(), element.name, text_of(element)))
            if "--dump" in arguments:
                print("  " * depth + "  ".join(part for part in found[-1] if part))
        problems = list(complaints(found))
        print("\n".join(problems + [f"{len(found)} elements, {len(problems)} problems"]))
        return 1 if problems else 0
    finally:
        process.send_signal(signal.SIGTERM)
        process.wait()
        launcher.terminate()
        launcher.wait()


if __name__ == "__main__":
    sys.exit(main())
