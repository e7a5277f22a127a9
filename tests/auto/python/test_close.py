"""A device that was closed."""

from __future__ import annotations

import asyncio
import queue
from collections.abc import Callable
from typing import Any

import pytest
import tavoro
import tavoro.aio

from conftest import PATIENCE, Simulator

SENTENCE = "The request was not sent: the device is closed."

CALLS: dict[str, Callable[[tavoro.Device], object]] = {
    "an operation": lambda wall: wall.screen.read_details(),
    "the updated state": lambda wall: wall.updated_state(),
    "taking control": lambda wall: wall.take_control(),
    "giving up control": lambda wall: wall.release_control(),
    "the holder of control": lambda wall: wall.read_control_holder(),
    "sending": lambda wall: wall.file.send(b"content", type=2, id=1, name="logo"),
    "sending in the background": lambda wall: wall.file.start_send(b"content", type=2, id=1, name="logo").wait(),
    "fetching": lambda wall: wall.file.fetch(type=2, id=1),
    "fetching in the background": lambda wall: wall.file.start_fetch(type=2, id=1).wait(),
    "an upgrade": lambda wall: wall.start_upgrade({"upgradeType": 1}).wait(),
}


@pytest.mark.parametrize("call", CALLS.values(), ids=CALLS.keys())
def test_a_closed_device_refuses(wall: tavoro.Device, call: Callable[[tavoro.Device], object]) -> None:
    wall.close()
    with pytest.raises(tavoro.NotSent) as raised:
        call(wall)
    assert str(raised.value) == SENTENCE
    assert raised.value.meaning == "the device is closed"


def test_a_device_may_be_closed_again(wall: tavoro.Device) -> None:
    wall.close()
    wall.close()
    assert not wall.is_ready
    assert wall.name == "Main hall"
    assert len(wall.state.screens) == 2


def test_a_closed_device_is_not_entered_or_followed(wall: tavoro.Device) -> None:
    wall.close()
    with pytest.raises(tavoro.NotSent, match=r"^The device is closed\.$"), wall:
        pass
    with pytest.raises(tavoro.NotSent, match=r"^The device is closed\.$"):
        wall.subscribe(print)


def test_closing_ends_the_subscriptions(simulator: Simulator) -> None:
    closed: queue.Queue[tavoro.Change] = queue.Queue()
    later: queue.Queue[tavoro.Change] = queue.Queue()
    first = simulator.open()
    first.subscribe(closed.put)
    with simulator.open() as second, second.subscribe(later.put):
        first.close()
        simulator.console("genlock 0")
        later.get(timeout=PATIENCE)
    assert closed.empty()


def test_closing_ends_an_iteration(simulator: Simulator) -> None:
    async def main() -> None:
        wall = await tavoro.aio.Device("127.0.0.1", simulator.port, timeout=PATIENCE).connect()
        changes = wall.changes()
        iteration = asyncio.create_task(collect(changes))
        await asyncio.sleep(0)  # the iteration waits
        wall.close()
        wall.close()
        await asyncio.wait_for(iteration, PATIENCE)
        with pytest.raises(tavoro.NotSent, match=r"^The device is closed\.$"):
            wall.changes()
        with pytest.raises(tavoro.NotSent, match="the device is closed"):
            await wall.connect()
        with pytest.raises(tavoro.NotSent, match="the device is closed"):
            await wall.screen.read_details()

    asyncio.run(main())


async def collect(changes: tavoro.aio.Changes) -> list[Any]:
    """All changes until the end."""
    return [change async for change in changes]


def test_a_device_is_closed_on_another_thread_than_its_loop(simulator: Simulator) -> None:
    async def main() -> None:
        wall = await tavoro.aio.Device("127.0.0.1", simulator.port, timeout=PATIENCE).connect()
        iteration = asyncio.create_task(collect(wall.changes()))
        await asyncio.to_thread(wall.close)
        await asyncio.wait_for(iteration, PATIENCE)

    asyncio.run(main())


def test_the_end_of_a_with_statement_ends_an_iteration(simulator: Simulator) -> None:
    async def main() -> None:
        async with tavoro.aio.Device("127.0.0.1", simulator.port, timeout=PATIENCE) as wall:
            with wall.changes() as changes:
                iteration = asyncio.create_task(collect(changes))
                await asyncio.sleep(0)
            await asyncio.wait_for(iteration, PATIENCE)
            assert wall.is_ready

    asyncio.run(main())
