"""The examples, as programs."""

from __future__ import annotations

import os
import signal
import subprocess
import sys
from pathlib import Path

from conftest import PATIENCE, Simulator

EXAMPLES = Path(os.environ["EXAMPLES"])


def run(name: str, *arguments: object) -> tuple[int, str]:
    """The exit status and the output of an example."""
    command = [sys.executable, str(EXAMPLES / name), *map(str, arguments)]
    done = subprocess.run(command, stdout=subprocess.PIPE, text=True, timeout=PATIENCE, check=False)
    return done.returncode, done.stdout


def test_take(simulator: Simulator) -> None:
    assert run("take.py", "127.0.0.1", simulator.port, 1) == (0, "Main hall: screen 1 was taken.\n")


def test_take_has_ten_lines() -> None:
    lines = (EXAMPLES / "take.py").read_text(encoding="utf-8").splitlines()
    assert len([line for line in lines[1:] if line]) <= 10


def test_blackout(simulator: Simulator) -> None:
    code, output = run("blackout.py", f"127.0.0.1:{simulator.port}")
    assert (code, output) == (0, "Main hall: 2 screens are black.\n")
    with simulator.open() as wall:
        assert [screen["FTB"]["enable"] for screen in wall.screen.read_details()] == [1, 1]


def test_blackout_of_a_device_that_refuses(simulator: Simulator) -> None:
    simulator.console("fault add status=8,code=0x130A")
    assert run("blackout.py", f"127.0.0.1:{simulator.port}") == (
        0,
        "Main hall: screen FTB information was refused: the device is busy, or the object is in use.\n",
    )


def test_sendlogo(simulator: Simulator, tmp_path: Path) -> None:
    (tmp_path / "night.bin").write_bytes(bytes(1000))
    arguments = ("127.0.0.1", simulator.port, tmp_path / "night.bin")
    assert run("sendlogo.py", *arguments) == (0, "logo 1: night.bin, 1000 bytes\n")
    simulator.console("fault add status=10,code=0xFA03")
    code, output = run("sendlogo.py", *arguments)
    assert code == 1
    assert output.startswith("Main hall: ")


def test_sources(simulator: Simulator) -> None:
    assert run("sources.py", "127.0.0.1", simulator.port) == (
        0,
        "Main (screen 1, type 1)\n"
        "  Input 2: 3840 x 1080 at 0, 0\n"
        "  Input 1: 3840 x 1080 at 0, 0\n"
        "Blend (screen 2, type 2)\n"
        "  Input 2: 3712 x 2032 at 0, 0\n"
        "  Input 1: 3712 x 2032 at 0, 0\n",
    )


def test_watch(simulator: Simulator) -> None:
    command = [sys.executable, str(EXAMPLES / "watch.py"), "127.0.0.1", str(simulator.port)]
    program = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
    try:
        assert program.stdout is not None
        assert program.stdout.readline() == "Main hall is ready.\n"
        simulator.console("genlock 0")
        assert program.stdout.readline() == "device changed: genlockSignal\n"
        program.send_signal(signal.SIGINT)
        assert program.communicate(timeout=PATIENCE) == ("", None)
        assert program.returncode == 0
    finally:
        program.kill()
        program.communicate()


def read_until(program: subprocess.Popen[str], start: str) -> None:
    """Reads lines of a program until one begins with this text."""
    assert program.stdout is not None
    lines = iter(program.stdout.readline, "")
    assert any(line.startswith(start) for line in lines), f'the program ended before "{start}"'


def test_watchall(simulator: Simulator) -> None:
    command = [sys.executable, str(EXAMPLES / "watchall.py"), f"127.0.0.1:{simulator.port}"]
    program = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
    try:
        read_until(program, "Main hall is ready.")
        simulator.console("switch 0")
        read_until(program, "Main hall: The connection to Main hall is lost: ")
        simulator.console("switch 1")
        read_until(program, "Main hall: Main hall is ready.")
        simulator.console("genlock 0")
        read_until(program, "Main hall: device changed {}: genlockSignal")
        program.send_signal(signal.SIGINT)
        program.communicate(timeout=PATIENCE)
        assert program.returncode == 0
    finally:
        program.kill()
        program.communicate()
