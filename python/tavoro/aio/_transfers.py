"""Transfers that are awaited."""

from __future__ import annotations

import asyncio
from collections.abc import Callable

from .. import _checks, _core
from .._calls import answer_of
from ..transfers import ProgressCallback, ProgressReporter, Transfer
from ._calls import ended


async def transferred(start: Callable[[], _core.Pending], progress: ProgressCallback | None) -> bytes:
    """Starts a transfer, waits for its answer, and reports the progress.

    Cancels the transfer if the task is cancelled or the callback fails.
    """
    _checks.optional_callback("progress", progress)
    pending = start()
    reporter = ProgressReporter(pending, progress)
    end = ended(pending)
    try:
        while not end.done():
            await asyncio.wait({end}, timeout=Transfer.INTERVAL)
            reporter.report()
    except BaseException:
        pending.cancel()
        raise
    return answer_of(pending)
