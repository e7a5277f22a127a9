"""Changes of a device, as differences of two states."""

from __future__ import annotations

import threading
from collections.abc import Callable, Mapping
from dataclasses import dataclass
from typing import Any

from . import _checks, _core, _dispatcher
from ._closing import Closing
from .state import Record, State, View, identity_of


@dataclass(frozen=True)
class Change:
    """One object that was added, changed or removed."""

    kind: str
    """"session", "device", "interfaces", "screens", "layers" or "files"."""
    action: str
    """"added", "changed" or "removed"."""
    identity: dict[str, int]
    """The keys that identify the object: {"screenType": 1, "screenId": 0}. Empty for session and device."""
    before: View | None
    """The record before the change; None for an object that was added."""
    after: View | None
    """The record after the change; None for an object that was removed."""

    @property
    def keys(self) -> list[str]:
        """The keys of the record whose values differ."""
        before: Mapping[str, Any] = {} if self.before is None else self.before
        after: Mapping[str, Any] = {} if self.after is None else self.after
        return [key for key in {**before, **after} if before.get(key) != after.get(key)]


def _change(kind: str, before: Record | None, after: Record | None) -> Change:
    action = "added" if before is None else "removed" if after is None else "changed"
    record = after if after is not None else before
    return Change(
        kind,
        action,
        identity_of(kind, record or {}),
        None if before is None else View(before),
        None if after is None else View(after),
    )


def differences(before: State, after: State) -> list[Change]:
    """What has changed between two states, in the order of the later one; removed objects follow."""
    old, new = before.records(), after.records()
    present = [_change(key[0], old.get(key), record) for key, record in new.items() if old.get(key) != record]
    return present + [_change(key[0], record, None) for key, record in old.items() if key not in new]


class ChangeFeed:
    """Follows a device. To be used by one thread at a time."""

    def __init__(self, device: _core.Device, wake: Callable[[ChangeFeed], None]) -> None:
        self._device = device
        self._known = State(device.state)
        self._key = _dispatcher.register(lambda: wake(self))
        device.subscribe(self._key)  # wakes once at once, so that no change is missed

    def take(self) -> list[Change]:
        """The changes since the last call."""
        self._device.acknowledge(self._key)
        now = State(self._device.state)
        known, self._known = self._known, now
        return differences(known, now)

    def close(self) -> None:
        """Ends the wake-ups."""
        self._device.unsubscribe(self._key)
        _dispatcher.unregister(self._key)


class Subscription(Closing):
    """Calls a callback for each change of a device, until it or the device is closed. May be used in a with statement."""

    def __init__(self, device: _core.Device, callback: Callable[[Change], object]) -> None:
        _checks.callback("callback", callback)
        self._callback = callback
        self._is_closed = threading.Event()
        self._feed = ChangeFeed(device, self._deliver)

    def _deliver(self, feed: ChangeFeed) -> None:
        for change in feed.take():
            if not self._is_closed.is_set():
                self._callback(change)

    def close(self) -> None:
        """Ends the calls. A call that is under way on another thread continues to its end."""
        self._is_closed.set()
        self._feed.close()
