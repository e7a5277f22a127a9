"""A simulated device as a process for each test, and the package connected to it."""

from __future__ import annotations

import os
import subprocess
import sys
import textwrap
import time
from collections.abc import Callable, Iterator

import pytest
import tavoro

PATIENCE = 60.0
"""Seconds after which a test has failed. Nothing is expected to take this long."""


def wait_until(condition: Callable[[], object]) -> None:
    """Waits until the condition is true."""
    end = time.monotonic() + PATIENCE
    while not condition():
        assert time.monotonic() < end, "the condition did not become true"
        time.sleep(0.005)


class Script:
    """A Python program as a process, which prints lines."""

    def __init__(self, text: str, *arguments: object) -> None:
        command = [sys.executable, "-c", textwrap.dedent(text), *map(str, arguments)]
        self.process = subprocess.Popen(
            command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True
        )

    def write_line(self, line: str) -> None:
        assert self.process.stdin is not None
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()

    def read_line(self) -> str:
        assert self.process.stdout is not None
        return self.process.stdout.readline().rstrip("\n")

    def finish(self) -> tuple[int, str, str]:
        """Waits for the end. Returns the exit status and what it has printed, also on the standard error."""
        try:
            output, errors = self.process.communicate(timeout=PATIENCE)
        finally:
            self.process.kill()
        return self.process.returncode, output, errors


class Simulator:
    """A simulated device with two screens of two layers each, and its console."""

    ARGUMENTS = ("--name", "Main hall", "--inputs", "2", "--outputs", "2", "--screens", "2", "--layers-per-screen", "2")

    def __init__(self, *options: str) -> None:
        command = [os.environ["TAVOROSIM"], "--port", "0", *self.ARGUMENTS, *(options or ("--no-discovery",))]
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.port = int(self.read_line().rpartition(":")[2])

    def read_line(self) -> str:
        assert self.process.stdout is not None
        line = self.process.stdout.readline()
        assert line, "the simulated device has ended"
        return line.rstrip("\n")

    def console(self, line: str) -> str:
        """Carries out a line of the console, and returns its text."""
        assert self.process.stdin is not None
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        result, _, text = self.read_line().partition(" ")
        assert result == "ok", text
        return text

    def wait_until_faults_are_used(self) -> None:
        """Waits until the device has received the requests of all rules with a count."""
        wait_until(lambda: not self.console("fault list"))

    def open(self, **options: float) -> tavoro.Device:
        return tavoro.Device("127.0.0.1", self.port, timeout=PATIENCE, **options)  # type: ignore[arg-type]

    def stop(self) -> None:
        self.process.kill()
        self.process.communicate()


@pytest.fixture
def start_simulator() -> Iterator[Callable[..., Simulator]]:
    """Starts simulated devices with options."""
    running: list[Simulator] = []

    def start(*options: str) -> Simulator:
        running.append(Simulator(*options))
        return running[-1]

    yield start
    for simulator in running:
        simulator.stop()


@pytest.fixture
def simulator(start_simulator: Callable[..., Simulator]) -> Simulator:
    """A simulated device."""
    return start_simulator()


@pytest.fixture
def wall(simulator: Simulator) -> Iterator[tavoro.Device]:
    """The simulated device, connected and read."""
    with simulator.open() as device:
        yield device
