"""Devices on the network."""

from __future__ import annotations

import json
from collections.abc import Iterable
from dataclasses import dataclass
from typing import Any

from . import _checks, _core
from ._calls import wait

DISCOVERY_PORT = 6631
"""UDP port on which devices listen for requests."""

Target = str | tuple[str, int]
"""An IPv4 address of a device or of a network, or such an address with a UDP port."""


@dataclass(frozen=True)
class FoundDevice:
    """A device that has answered."""

    name: str
    host: str
    port: int
    serial_number: str
    """16 hexadecimal digits; zeros if the device has none."""
    mac: str
    """12 hexadecimal digits; zeros if the device has none."""
    is_controlled: bool
    """Whether a client held control when the device answered."""


def _found(identity: dict[str, Any]) -> FoundDevice:
    return FoundDevice(
        name=identity["name"],
        host=identity["ip"],
        port=identity["tcpPort"],
        serial_number=identity["sn"],
        mac=identity["mac"],
        is_controlled=bool(identity["controlState"]),
    )


def _place_of(target: object) -> tuple[str, int]:
    """Address and port of a target."""
    match target:
        case str():
            return _checks.ipv4_address("a target", target), DISCOVERY_PORT
        case (address, port):
            return _checks.ipv4_address("a target", address), _checks.integer("port", port)
    raise TypeError(f"a target must be an address, or a tuple of address and port, not {target!r}")


def start_discovery(timeout: float, targets: Iterable[Target]) -> _core.Pending:
    """Begins a search."""
    if isinstance(targets, str) or not isinstance(targets, Iterable):
        raise TypeError(f"targets must be a list of addresses, not {targets!r}; write [{targets!r}]")
    return _core.discover(_checks.milliseconds("timeout", timeout), [_place_of(target) for target in targets])


def found_devices(answer: bytes) -> list[FoundDevice]:
    """The devices that a search has found, by name."""
    return sorted(map(_found, json.loads(answer)), key=lambda device: (device.name, device.serial_number))


def discover(timeout: float = 1.0, targets: Iterable[Target] = ()) -> list[FoundDevice]:
    """Returns the devices that answer within timeout seconds, by name.

    Requests are sent to all networks of this machine, or only to the targets. Blocks for the whole time.
    """
    return found_devices(wait(start_discovery(timeout, targets)))
