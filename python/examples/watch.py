"""Prints what changes on a device, until Ctrl-C: watch.py HOST PORT"""

import sys
import threading

import tavoro


def show(change: tavoro.Change) -> None:
    """Prints one line for an object."""
    place = " ".join(f"{key}={value}" for key, value in change.identity.items())
    print(f"{change.kind} {place} {change.action}: {', '.join(change.keys)}".replace("  ", " "), flush=True)


try:
    with tavoro.Device(sys.argv[1], int(sys.argv[2])) as wall, wall.subscribe(show):
        print(wall.state.session.text, flush=True)
        while not threading.Event().wait(1):  # wakes for a Ctrl-C that another thread has received
            pass
except KeyboardInterrupt:
    pass
