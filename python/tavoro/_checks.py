"""Checks of arguments that the table of operations does not describe.

A value of a wrong type raises TypeError, a value out of range ValueError; the text names the argument, the range and
the value. Nothing is sent.
"""

from __future__ import annotations

import ipaddress
import os
from numbers import Integral, Real
from typing import Any

DAY = 24 * 60 * 60
LAST_FILE = 254
LARGEST_INTEGER = 2**31 - 1

# fmt: off
RANGES: dict[str, tuple[int, int, str]] = {
    # argument            least  greatest         unit
    "port":               (1,    65535,           ""),
    "timeout":            (0,    DAY,             " seconds"),
    "control_idle_time":  (0,    DAY,             " seconds"),
    "poll_interval":      (0,    DAY,             " seconds"),
    "type":               (0,    LAST_FILE,       ""),
    "id":                 (0,    LAST_FILE,       ""),
    "width":              (0,    LARGEST_INTEGER, " pixels"),
    "height":             (0,    LARGEST_INTEGER, " pixels"),
}
# fmt: on


def _wrong_type(name: str, expected: str, value: object) -> TypeError:
    return TypeError(f"{name} must be {expected}, not {type(value).__name__}")


def _in_range(name: str, value: Any) -> None:
    least, greatest, unit = RANGES[name]
    if not least <= value <= greatest:  # also true for a NaN
        raise ValueError(f"{name} must be {least} to {greatest}{unit}, not {value}")


def integer(name: str, value: object) -> int:
    """A whole number in the range of its argument."""
    if not isinstance(value, Integral) or isinstance(value, bool):
        raise _wrong_type(name, "a whole number", value)
    _in_range(name, value)
    return int(value)


def seconds(name: str, value: object) -> float:
    """A time in the range of its argument."""
    if not isinstance(value, Real) or isinstance(value, bool):
        raise _wrong_type(name, "a number of seconds", value)
    _in_range(name, value)
    return float(value)


def milliseconds(name: str, value: object) -> int:
    """A time in seconds, as milliseconds."""
    return round(1000 * seconds(name, value))


def flag(name: str, value: object) -> bool:
    """True or False."""
    if not isinstance(value, bool):
        raise _wrong_type(name, "True or False", value)
    return value


def text(name: str, value: object) -> str:
    """A text that is not empty."""
    if not isinstance(value, str):
        raise _wrong_type(name, "a text", value)
    if not value:
        raise ValueError(f"{name} must not be empty")
    return value


def content(value: object) -> None:
    """Bytes, or the path of a local file."""
    if not isinstance(value, bytes | bytearray | memoryview | str | os.PathLike):
        raise _wrong_type("content", "bytes or a path", value)


def host(value: object) -> str:
    """An IP address or a host name, without a port."""
    name, colon, port = text("host", value).partition(":")
    if colon and port.isdigit():
        raise ValueError(f'host must not contain the port: pass "{name}", {port}')
    return name + colon + port


def ipv4_address(name: str, value: object) -> str:
    """An IPv4 address as a text."""
    address = text(name, value)
    try:
        return str(ipaddress.IPv4Address(address))
    except ipaddress.AddressValueError:
        raise ValueError(f'{name} must be an IPv4 address, not "{address}"') from None


def callback(name: str, value: object) -> None:
    """A function."""
    if not callable(value):
        raise _wrong_type(name, "a function", value)


def optional_callback(name: str, value: object) -> None:
    """A function or None."""
    if value is not None:
        callback(name, value)
