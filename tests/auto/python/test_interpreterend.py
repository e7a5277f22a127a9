"""The interpreter ends while devices are open and work is under way."""

from __future__ import annotations

from collections.abc import Callable

import pytest

from conftest import Script, Simulator

SCRIPTS = {
    "an open device": """
    """,
    "an open subscription": """
        wall.subscribe(print)
    """,
    "a callback that never returns": """
        entered = threading.Event()
        wall.subscribe(lambda change: (entered.set(), time.sleep(3600)))
        wall.screen.write_freeze([{"screenId": 1, "screenType": 1, "freeze": 1}])
        entered.wait()
    """,
    "callbacks that were not delivered": """
        entered = threading.Event()
        wall.subscribe(lambda change: (entered.set(), time.sleep(0.2)))
        for value in (1, 0, 1):
            wall.screen.write_freeze([{"screenId": 1, "screenType": 1, "freeze": value}])
        entered.wait()
    """,
    "a call of a daemon thread": """
        def take():
            try:
                wall.screen.write_take([{"screenId": 1, "screenType": 1}])
            except tavoro.Unknown as failure:
                pass
        threading.Thread(target=take, daemon=True).start()
        print("calling", flush=True)
        sys.stdin.readline()
    """,
    "a transfer": """
        transfer = wall.file.start_send(bytes(1000000), type=2, id=1, name="logo")
    """,
    "an event loop that was not closed": """
        async def follow():
            device = await tavoro.aio.Device("127.0.0.1", int(sys.argv[1]), timeout=60).connect()
            changes = device.changes()
            asyncio.ensure_future(device.screen.write_take([{"screenId": 1, "screenType": 1}]))
            await device.screen.read_details()
        loop = asyncio.new_event_loop()
        loop.run_until_complete(follow())
        loop.close()
    """,
    "a search": """
        tavoro.discovery.start_discovery(60, ["127.0.0.1"])
    """,
}


@pytest.mark.parametrize("rest", SCRIPTS.values(), ids=SCRIPTS.keys())
def test_the_interpreter_ends_with(start_simulator: Callable[..., Simulator], rest: str) -> None:
    simulator = start_simulator("--no-discovery", "--fault", "ignore,code=0x130E,count=1")
    head = """
        import asyncio, sys, threading, time, tavoro, tavoro.aio, tavoro.discovery
        wall = tavoro.Device("127.0.0.1", int(sys.argv[1]), timeout=60)
    """
    script = Script(head + rest, simulator.port)
    if "calling" in rest:
        assert script.read_line() == "calling"
        simulator.wait_until_faults_are_used()
        script.write_line("end")
    code, _, errors = script.finish()
    assert (code, "Fatal" in errors, "Traceback" in errors) == (0, False, False), errors
