"""Transfers and other calls that take long."""

from __future__ import annotations

from collections.abc import Callable
from dataclasses import dataclass
from typing import Generic, TypeVar

from . import _checks, _core
from ._calls import answer_of

Answer = TypeVar("Answer")


@dataclass(frozen=True)
class Progress:
    """How far a transfer is."""

    done: int
    """Bytes that were transferred; percent of an upgrade."""
    total: int
    """Bytes of the whole content, or 100 for an upgrade; 0 while it is not known."""
    rate: float
    """Bytes, or percent, per second."""

    @property
    def share(self) -> float:
        """From 0 to 1; 0 while the total is not known."""
        return self.done / self.total if self.total else 0.0


ProgressCallback = Callable[[Progress], object]


class ProgressReporter:
    """Calls a callback when the progress has changed."""

    def __init__(self, pending: _core.Pending, callback: ProgressCallback | None) -> None:
        self._pending = pending
        self._callback = callback
        self._reported: tuple[int, int] | None = None

    def report(self) -> None:
        """To be called at intervals, and when the transfer has ended."""
        progress = Progress(*self._pending.progress)
        now = (progress.done, progress.total)
        if self._callback is not None and progress.total and now != self._reported:
            self._reported = now
            self._callback(progress)


class Transfer(Generic[Answer]):
    """A transfer that is under way. It continues when this object is dropped."""

    INTERVAL = 0.1
    """Seconds between two looks at the progress."""

    def __init__(self, pending: _core.Pending, convert: Callable[[bytes], Answer]) -> None:
        self._pending = pending
        self._convert = convert

    @property
    def progress(self) -> Progress:
        """The progress at this moment."""
        return Progress(*self._pending.progress)

    def __repr__(self) -> str:
        progress = self.progress
        return f"<tavoro transfer: {progress.done} of {progress.total}, {'ended' if self.is_done else 'under way'}>"

    @property
    def is_done(self) -> bool:
        """Whether the transfer has ended."""
        return self._pending.is_done

    def cancel(self) -> None:
        """Ends the transfer: at once if it waits, otherwise after the packet that is under way. wait() then raises NotSent."""
        self._pending.cancel()

    def wait(self, progress: ProgressCallback | None = None) -> Answer:
        """Waits for the end and returns what was transferred. Calls progress on this thread, at most ten times per second.

        An exception of the callback, and Ctrl-C, cancel the transfer.
        """
        _checks.optional_callback("progress", progress)
        try:
            reporter = ProgressReporter(self._pending, progress)
            while not self._pending.wait(self.INTERVAL):
                reporter.report()
            reporter.report()
        except BaseException:
            self._pending.cancel()
            raise
        return self._convert(answer_of(self._pending))
