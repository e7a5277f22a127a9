"""Prints what changes on several devices, also after a device was away, until Ctrl-C: watchall.py HOST:PORT ..."""

import asyncio
import sys

import tavoro
import tavoro.aio

PAUSE = 5
"""Seconds between two attempts to reach a device for the first time."""


def line_of(change: tavoro.Change) -> str:
    """The state of the connection, or what has changed."""
    if change.kind == "session" and change.after is not None:
        return str(change.after.text)
    return f"{change.kind} {change.action} {change.identity}: {', '.join(change.keys)}"


async def watch(wall: tavoro.aio.Device) -> None:
    """Prints the changes of a device. A lost connection comes back by itself."""
    with wall.changes() as changes:  # before the state is printed, so that no change is missed
        print(wall.state.session.text, flush=True)
        async for change in changes:
            print(f"{wall.name}: {line_of(change)}", flush=True)


async def reach(address: str) -> None:
    """Tries to connect to a device until it can be reached, and watches it."""
    host, _, port = address.rpartition(":")
    while True:
        try:
            async with tavoro.aio.Device(host, int(port), poll_interval=5) as wall:
                await watch(wall)
        except tavoro.NotSent as failure:
            print(failure.text, flush=True)
            await asyncio.sleep(PAUSE)


async def main(addresses: list[str]) -> None:
    """Watches all devices at the same time."""
    await asyncio.gather(*map(reach, addresses))


try:
    asyncio.run(main(sys.argv[1:]))
except KeyboardInterrupt:
    pass
