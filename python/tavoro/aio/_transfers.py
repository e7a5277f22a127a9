"""Transfers that are awaited."""

from __future__ import annotations

import asyncio

from .. import _core
from .._calls import answer_of
from ..transfers import ProgressCallback, ProgressReporter, Transfer
from ._calls import ended


async def transferred(pending: _core.Pending, progress: ProgressCallback | None) -> bytes:
    """Waits for the answer, and reports the progress. Cancels the transfer if the task is cancelled or the callback fails."""
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
