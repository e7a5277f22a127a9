"""The twins for asyncio."""

from __future__ import annotations

import asyncio
from collections.abc import Callable, Coroutine
from typing import Any

import pytest
import tavoro
import tavoro.aio

from conftest import PATIENCE, Simulator

TAKE: list[tavoro.records.ScreenSwitchEffect] = [{"screenId": 1, "screenType": 1}]


def run(coroutine: Coroutine[Any, Any, None]) -> None:
    asyncio.run(asyncio.wait_for(coroutine, PATIENCE))


def open_device(simulator: Simulator) -> tavoro.aio.Device:
    return tavoro.aio.Device("127.0.0.1", simulator.port, timeout=PATIENCE)


def test_operations_are_awaited(simulator: Simulator) -> None:
    async def main() -> None:
        async with open_device(simulator) as wall:
            await wall.screen.write_freeze([{"screenId": 1, "screenType": 1, "freeze": 1}])
            assert [screen["freeze"] for screen in await wall.screen.read_details()] == [1, 0]
            assert (await wall.updated_state()).screens[0].freeze == 1

    run(main())


def test_failures_are_raised(simulator: Simulator) -> None:
    simulator.console("fault add status=8,code=0x130E")

    async def main() -> None:
        async with open_device(simulator) as wall:
            with pytest.raises(tavoro.Refused) as raised:
                await wall.screen.write_take(TAKE)
            assert raised.value.status == 8
            with pytest.raises(ValueError):
                await wall.screen.write_take([{"screenI": 1}])  # type: ignore[typeddict-unknown-key]

    run(main())


def test_two_devices_are_called_at_the_same_time(start_simulator: Callable[..., Simulator]) -> None:
    late = start_simulator("--no-discovery", "--sn", "000000000000000A")
    early = start_simulator("--no-discovery", "--sn", "000000000000000B")
    late.console("fault add hold,code=0x130E,count=1")

    async def main() -> None:
        async with open_device(late) as first, open_device(early) as second:
            take = asyncio.create_task(first.screen.write_take(TAKE))
            await second.screen.write_take(TAKE)
            await asyncio.to_thread(late.wait_until_faults_are_used)
            assert not take.done()
            late.console("fault release")
            await take

    run(main())


def test_a_cancelled_task_drops_a_call_that_waits(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery")
    simulator.console("fault add hold,code=0x130E,count=1")

    async def main() -> None:
        async with open_device(simulator) as wall:
            take = asyncio.create_task(wall.screen.write_take(TAKE))
            await asyncio.to_thread(simulator.wait_until_faults_are_used)
            freeze = asyncio.create_task(wall.screen.write_freeze([{"screenId": 1, "screenType": 1, "freeze": 1}]))
            await asyncio.sleep(0)  # the call is made, and waits for the take
            freeze.cancel()
            with pytest.raises(asyncio.CancelledError):
                await freeze
            await wall.updated_state()  # the session has handled the cancellation
            simulator.console("fault release")
            await take
            assert (await wall.screen.read_details())[0]["freeze"] == 0

    run(main())


def test_changes_are_iterated(simulator: Simulator) -> None:
    async def main() -> None:
        async with open_device(simulator) as wall:
            changes = wall.changes()
            await wall.screen.write_freeze([{"screenId": 1, "screenType": 1, "freeze": 1}])
            async for change in changes:
                assert (change.kind, change.identity, change.keys) == (
                    "screens",
                    {"screenType": 1, "screenId": 1},
                    ["freeze"],
                )
                changes.close()

    run(main())


def test_files_are_transferred_with_progress(simulator: Simulator) -> None:
    async def main() -> None:
        progress: list[tavoro.Progress] = []
        async with open_device(simulator) as wall:
            await wall.file.send(bytes(100000), type=2, id=1, name="logo", progress=progress.append)
            assert progress[-1].share == 1.0
            assert await wall.file.fetch(type=2, id=1) == bytes(100000)

    run(main())


def test_a_cancelled_task_cancels_its_transfer(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery", "--packet-size", "4096")
    simulator.console("fault add hold,code=0xFA03,skip=9,count=1")

    async def main() -> None:
        async with open_device(simulator) as wall:
            send = asyncio.create_task(wall.file.send(bytes(100000), type=2, id=1, name="logo"))
            await asyncio.to_thread(simulator.wait_until_faults_are_used)
            send.cancel()
            with pytest.raises(asyncio.CancelledError):
                await send
            await wall.screen.read_details()  # handled after the cancellation
            simulator.console("fault release")
            await wall.file.send(b"content", type=2, id=2, name="next")  # follows the end of the first one
            assert [file["fileId"] for file in await wall.file.read_details(file_type=2)] == [2]

    run(main())


def test_a_device_that_cannot_be_reached_is_not_sent() -> None:
    async def main() -> None:
        with pytest.raises(tavoro.NotSent):
            await tavoro.aio.Device("127.0.0.1", 1, timeout=0.2).connect()

    run(main())


def test_devices_are_found(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--discovery", "0")
    discovery_port = int(simulator.read_line().split()[-1])

    async def main() -> None:
        found: list[tavoro.FoundDevice] = []
        while not found:  # an answer may be late on a loaded machine
            found = await tavoro.aio.discover(0.3, [("127.0.0.1", discovery_port)])
        assert [device.port for device in found] == [simulator.port]

    run(main())
