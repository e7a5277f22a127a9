"""Calls that are awaited."""

from __future__ import annotations

import asyncio
from collections.abc import Callable
from typing import Any

from .. import _core, _dispatcher
from .._calls import answer_of, decoded, encoded


def call_soon(loop: asyncio.AbstractEventLoop, function: Callable[[], object]) -> None:
    """Calls a function on the thread of the loop, unless the loop is closed."""
    try:
        loop.call_soon_threadsafe(function)
    except RuntimeError:
        if not loop.is_closed():
            raise


def ended(pending: _core.Pending) -> asyncio.Future[None]:
    """Is done when something has ended."""
    loop = asyncio.get_running_loop()
    future: asyncio.Future[None] = loop.create_future()

    def finish() -> None:
        if not future.done():
            future.set_result(None)

    def deliver() -> None:
        _dispatcher.unregister(key)
        call_soon(loop, finish)

    key = _dispatcher.register(deliver)
    pending.notify(key)
    return future


async def finished(pending: _core.Pending) -> bytes:
    """Waits for the answer. A task that is cancelled drops the call, if it has not been sent yet."""
    try:
        await ended(pending)
    except asyncio.CancelledError:
        pending.cancel()
        raise
    return answer_of(pending)


class Operations:
    """Calls operations by their names."""

    def __init__(self, device: _core.Device) -> None:
        self._device = device

    async def _call(self, name: str, *arguments: object) -> Any:
        return decoded(await finished(self._device.call(name, [encoded(argument) for argument in arguments])))
