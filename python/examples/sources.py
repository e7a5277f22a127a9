"""Prints which inputs the programme of each screen shows: sources.py HOST PORT"""

import sys

import tavoro

INPUT = 1


def source_of(state: tavoro.State, layer: tavoro.View) -> str:
    """The name of the input that a layer shows."""
    source = layer.source.general
    if source.type != INPUT:
        return "no input"
    slot, connector, split = source.id >> 16, source.id >> 8 & 0xFF, source.id & 0xFF
    name = state.interfaces.find(slotId=slot, connectorId=connector, splitId=split).general.name
    return str(name)


with tavoro.Device(sys.argv[1], int(sys.argv[2])) as wall:
    now = wall.state
    for screen in now.screens:
        print(f"{screen.general.name} (screen {screen.screenId}, type {screen.screenType})")
        for layer in screen.programme:
            window = layer.window
            print(f"  {source_of(now, layer)}: {window.width} x {window.height} at {window.x}, {window.y}")
