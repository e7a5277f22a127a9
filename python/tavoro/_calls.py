"""Calls that block, and what all kinds of calls share."""

from __future__ import annotations

import json
from collections.abc import Mapping, Sequence
from numbers import Integral
from typing import Any

from . import _core
from .failures import failure_of


def _plain(value: object) -> object:
    """What JSON has for a view, or for a type of a library."""
    match value:
        case Mapping():
            return dict(value)
        case Sequence() if not isinstance(value, bytes | bytearray | memoryview):
            return list(value)
        case Integral():
            return int(value)
    raise TypeError(f"{type(value).__name__} is not a value of a record")


def encoded(argument: object) -> str:
    """The JSON text of an argument of a call."""
    if isinstance(argument, bool | str | bytes) or not isinstance(argument, Integral | Mapping | Sequence):
        raise TypeError(
            f"an argument must be a whole number, a record or a list of records, not {type(argument).__name__}"
        )
    return json.dumps(argument, ensure_ascii=False, default=_plain)


def answer_of(pending: _core.Pending) -> bytes:
    """The answer of something that has ended; raises a Failure if it was not successful."""
    if pending.outcome != "done":
        raise failure_of(pending)
    return pending.answer


def decoded(answer: bytes) -> Any:
    """The value of a JSON answer; None for the empty answer of a write."""
    return json.loads(answer) if answer else None


def wait(pending: _core.Pending) -> bytes:
    """Waits for the answer. Ctrl-C ends the wait, but not the call."""
    pending.wait(-1)
    return answer_of(pending)


class Operations:
    """Calls operations by their names."""

    def __init__(self, device: _core.Device) -> None:
        self._device = device

    def _call(self, name: str, *arguments: object) -> Any:
        return decoded(wait(self._device.call(name, [encoded(argument) for argument in arguments])))
