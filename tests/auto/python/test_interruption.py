"""Ctrl-C during calls that block."""

from __future__ import annotations

import signal
from collections.abc import Callable

from conftest import Script, Simulator

HEAD = """
    import signal, sys, threading, time, tavoro
    wall = tavoro.Device("127.0.0.1", int(sys.argv[1]), timeout=60)
    print("ready", flush=True)
"""


def test_a_call_is_interrupted_and_the_next_one_works(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery")
    simulator.console("fault add hold,code=0x130E,count=1")
    script = Script(
        HEAD
        + """
    try:
        wall.screen.write_take([{"screenId": 1, "screenType": 1}])
    except KeyboardInterrupt:
        print("interrupted", flush=True)
    print(len(wall.screen.read_details()))
    """,
        simulator.port,
    )
    assert script.read_line() == "ready"
    simulator.wait_until_faults_are_used()  # the device has the take, and does not answer
    script.process.send_signal(signal.SIGINT)
    assert script.read_line() == "interrupted"
    simulator.console("fault release")
    assert script.finish() == (0, "2\n", "")


def test_connecting_is_interrupted(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery")
    simulator.console("fault add hold,code=0x1100,count=1")  # the reading of the device
    script = Script(
        """
        import sys, tavoro
        try:
            tavoro.Device("127.0.0.1", int(sys.argv[1]), timeout=60)
        except KeyboardInterrupt:
            print("interrupted")
        """,
        simulator.port,
    )
    simulator.wait_until_faults_are_used()
    script.process.send_signal(signal.SIGINT)
    assert script.finish() == (0, "interrupted\n", "")


def test_an_exception_of_another_signal_ends_the_wait(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery")
    simulator.console("fault add hold,code=0x130E,count=1")
    script = Script(
        HEAD
        + """
    def expire(number, frame):
        raise TimeoutError("too long")
    signal.signal(signal.SIGUSR1, expire)
    print("set", flush=True)
    try:
        wall.screen.write_take([{"screenId": 1, "screenType": 1}])
    except TimeoutError as error:
        print(error)
    """,
        simulator.port,
    )
    assert (script.read_line(), script.read_line()) == ("ready", "set")
    simulator.wait_until_faults_are_used()
    script.process.send_signal(signal.SIGUSR1)
    assert script.finish() == (0, "too long\n", "")


def test_an_interrupted_transfer_is_cancelled(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery")
    simulator.console("fault add hold,code=0xFA03,skip=2,count=1")
    script = Script(
        HEAD
        + """
    transfer = wall.file.start_send(bytes(300000), type=2, id=1, name="logo")
    try:
        transfer.wait(lambda progress: print("waiting", flush=True))
    except KeyboardInterrupt:
        wall.screen.read_details()  # handled after the cancellation
        print("interrupted", flush=True)
    try:
        transfer.wait()
    except tavoro.NotSent as failure:
        print(failure.is_cancelled, len(wall.file.read_details(file_type=2, file_id=1)))
    """,
        simulator.port,
    )
    assert script.read_line() == "ready"
    assert script.read_line() == "waiting"  # within wait(): start_send() is not interrupted
    simulator.wait_until_faults_are_used()
    script.process.send_signal(signal.SIGINT)
    while (line := script.read_line()) == "waiting":
        pass
    assert line == "interrupted"
    simulator.console("fault release")
    assert script.finish() == (0, "True 0\n", "")


def test_other_threads_run_while_a_call_blocks(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery")
    simulator.console("fault add hold,code=0x130E,count=1")
    script = Script(
        HEAD
        + """
    def count():
        print("other thread", flush=True)
        for number in range(100000):
            pass
        print(sys.stdin.readline().strip(), flush=True)
    other = threading.Thread(target=count)
    other.start()
    wall.screen.write_take([{"screenId": 1, "screenType": 1}])
    other.join()
    print("taken")
    """,
        simulator.port,
    )
    assert script.read_line() == "ready"
    assert script.read_line() == "other thread"
    simulator.wait_until_faults_are_used()
    script.write_line("it runs")
    assert script.read_line() == "it runs"
    simulator.console("fault release")
    assert script.finish() == (0, "taken\n", "")
