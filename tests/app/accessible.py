#!/usr/bin/python3
"""accessible.py PROGRAM: whether a screen reader finds the program's window. Run it in a session and
on a display of its own."""

import os
import subprocess
import sys
import tempfile
import time

import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PATIENCE = 60  # seconds, of a busy machine


def windows():
    desktop = Atspi.get_desktop(0)
    for place in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(place)
        if program is not None and program.get_name() == "zolva":
            yield from (program.get_child_at_index(i) for i in range(program.get_child_count()))


def found():
    try:
        return [w.get_name() for w in windows()
                if w is not None and w.get_state_set().contains(Atspi.StateType.SHOWING)]
    except gi.repository.GLib.Error:  # it came or went meanwhile
        return []


def main() -> int:
    with tempfile.TemporaryDirectory() as home:
        places = {f"XDG_{name}_HOME": f"{home}/{name}"
                  for name in ("DATA", "CONFIG", "STATE", "CACHE")}
        program = subprocess.Popen([sys.argv[1]], env={
            **os.environ, **places, "HOME": home, "XDG_RUNTIME_DIR": home,
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "ASAN_OPTIONS": "detect_leaks=0"})
        try:
            end = time.monotonic() + PATIENCE
            while not found() and time.monotonic() < end and program.poll() is None:
                time.sleep(0.1)
            names = found()
        finally:
            program.terminate()
            status = program.wait(PATIENCE)
    print("windows:", names, "status:", status)
    return 0 if names and status == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
