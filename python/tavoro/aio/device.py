"""A device for asyncio."""

from __future__ import annotations

import asyncio
from collections import deque
from collections.abc import Iterable
from types import TracebackType
from typing import cast

from .. import _checks, _core, records
from .._calls import decoded, encoded
from .._closing import Closing
from ..changes import Change, ChangeFeed
from ..device import DEFAULT_PORT, DeviceBase
from ..discovery import FoundDevice, Target, found_devices, start_discovery
from ..state import State
from ..transfers import ProgressCallback
from ._calls import call_soon, finished
from ._transfers import transferred
from .files import Files
from .operations import (
    AuxiliaryOperations,
    DeviceOperations,
    InterfaceOperations,
    LayerOperations,
    PresetOperations,
    ScreenOperations,
)


async def discover(timeout: float = 1.0, targets: Iterable[Target] = ()) -> list[FoundDevice]:
    """Returns the devices that answer within timeout seconds, see tavoro.discover()."""
    return found_devices(await finished(start_discovery(timeout, targets)))


class Changes(Closing):
    """The changes of a device, for "async for". Changes of one object may be combined.

    The iteration ends when this object or the device is closed. May be used in a with statement.
    """

    def __init__(self, device: _core.Device) -> None:
        self._loop = asyncio.get_running_loop()
        self._awake = asyncio.Event()
        self._waiting: deque[Change] = deque()
        self._is_closed = False
        self._feed = ChangeFeed(device, lambda _: call_soon(self._loop, self._awake.set))

    def __aiter__(self) -> Changes:
        return self

    async def __anext__(self) -> Change:
        while not self._waiting and not self._is_closed:
            await self._awake.wait()
            self._awake.clear()
            self._waiting.extend(self._feed.take())
        if self._is_closed:
            raise StopAsyncIteration
        return self._waiting.popleft()

    def close(self) -> None:
        """Ends the iteration."""
        self._is_closed = True
        self._feed.close()
        call_soon(self._loop, self._awake.set)


class Device(DeviceBase):
    """A device whose operations are coroutines. Connects in "async with", or by connect().

    Its members correspond to those of tavoro.Device. A task that is cancelled drops its call if the call has not been
    sent; otherwise the device may carry it out.
    """

    def __init__(
        self,
        host: str,
        port: int = DEFAULT_PORT,
        *,
        timeout: float = 10.0,
        sets_clock: bool = True,
        control_idle_time: float = 0.0,
        poll_interval: float = 0.0,
    ) -> None:
        """Begins to connect; the arguments are those of tavoro.Device."""
        super().__init__(host, port, timeout, sets_clock, control_idle_time, poll_interval)
        self.device = DeviceOperations(self._core)
        self.interface = InterfaceOperations(self._core)
        self.screen = ScreenOperations(self._core)
        self.layer = LayerOperations(self._core)
        self.preset = PresetOperations(self._core)
        self.file = Files(self._core)
        self.auxiliary = AuxiliaryOperations(self._core)

    async def connect(self) -> Device:
        """Returns when the device has been read; closes it and raises NotSent if that takes longer than the timeout."""
        try:
            await finished(self._core.ready(self._timeout))
        except BaseException:
            self.close()
            raise
        return self

    async def __aenter__(self) -> Device:
        return await self.connect()

    async def __aexit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    async def updated_state(self) -> State:
        """Waits until the state contains what the calls that have ended have changed, and returns it."""
        await finished(self._core.model_update())
        return self.state

    def changes(self) -> Changes:
        """The changes from now on, for "async for", until they or the device are closed."""
        return self._follow(lambda: Changes(self._core))

    async def take_control(self, *, force: bool = False) -> None:
        """Takes control of the device; also from another client if forced. Writes do so by themselves."""
        await finished(self._core.take_control(_checks.flag("force", force)))

    async def release_control(self) -> None:
        """Gives up control, so that another client can take it."""
        await finished(self._core.release_control())

    async def read_control_holder(self) -> str:
        """Address and port of the client that holds control; empty if no client does."""
        return (await finished(self._core.read_control_holder())).decode()

    async def upgrade(
        self, detail: records.AuxiliaryUpgradeDetail, progress: ProgressCallback | None = None
    ) -> records.AuxiliaryUpgradePercent:
        """Upgrades the firmware from a package that the device holds. Cancelling the task only ends the wait."""
        answer = await transferred(lambda: self._core.upgrade(encoded(detail)), progress)
        return cast("records.AuxiliaryUpgradePercent", decoded(answer))
