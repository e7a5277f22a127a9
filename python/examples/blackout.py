"""Fades the screens of several devices to black at the same time: blackout.py HOST:PORT ..."""

import asyncio
import sys

import tavoro
import tavoro.aio


async def blackout(address: str) -> str:
    """Fades all screens of a device, and returns what became of it."""
    host, _, port = address.rpartition(":")
    try:
        async with tavoro.aio.Device(host, int(port)) as wall:
            screens = wall.state.screens
            await wall.screen.write_ftb(
                [{"screenId": s.screenId, "screenType": s.screenType, "FTB": {"enable": 1}} for s in screens]
            )
            return f"{wall.name}: {len(screens)} screens are black."
    except tavoro.Failure as failure:
        return failure.text


async def main(addresses: list[str]) -> None:
    """Prints one line for each device."""
    for line in await asyncio.gather(*map(blackout, addresses)):
        print(line)


asyncio.run(main(sys.argv[1:]))
