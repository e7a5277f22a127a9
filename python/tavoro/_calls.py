"""Calls that block, and what all kinds of calls share."""

from __future__ import annotations

import json
from collections.abc import Mapping
from typing import Any

from . import _core
from .failures import failure_of


def encoded(value: object) -> str:
    """The JSON text of an argument of a call. A text is passed as it is."""

    def plain(view: object) -> object:
        if isinstance(view, Mapping):
            return dict(view)
        raise TypeError(f"{type(view).__name__} is not a record")

    return value if isinstance(value, str) else json.dumps(value, ensure_ascii=False, default=plain)


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
