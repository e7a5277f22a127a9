"""A device, for programs that block."""

from __future__ import annotations

import threading
from collections.abc import Callable
from typing import Self, TypeVar, cast
from weakref import WeakSet

from . import _checks, _core, records
from ._calls import decoded, encoded, wait
from ._closing import Closing
from .changes import Change, Subscription
from .failures import closed_device
from .files import Files
from .operations import (
    AuxiliaryOperations,
    DeviceOperations,
    InterfaceOperations,
    LayerOperations,
    PresetOperations,
    ScreenOperations,
)
from .state import State
from .transfers import Transfer

DEFAULT_PORT = 6630
"""TCP port on which a device listens."""

Follower = TypeVar("Follower", bound=Closing)


class DeviceBase:
    """What a Device and its asyncio twin share. Nothing here blocks."""

    def __init__(
        self, host: str, port: int, timeout: float, sets_clock: bool, control_idle_time: float, poll_interval: float
    ) -> None:
        self._timeout = _checks.milliseconds("timeout", timeout)
        self._core = _core.Device(
            _checks.host(host),
            _checks.integer("port", port),
            _checks.flag("sets_clock", sets_clock),
            _checks.milliseconds("control_idle_time", control_idle_time),
            _checks.milliseconds("poll_interval", poll_interval),
        )
        self._lock = threading.RLock()
        self._is_closed = False  # guarded by the lock, as the next one
        self._followers: WeakSet[Closing] = WeakSet()
        self._latest: tuple[int, State] | None = None

    @property
    def state(self) -> State:
        """What is known about the device now, without a request.

        It follows the reports of the device and the calls of this program. The records that a call changes are read
        again shortly afterwards: see updated_state().
        """
        version = self._core.version
        latest = self._latest
        if latest is None or latest[0] != version:
            self._latest = latest = (version, State(self._core.state))
        return latest[1]

    @property
    def name(self) -> str:
        """Name of the device, or its address while the name is not known."""
        return str(self.state.session.get("name", ""))

    @property
    def is_ready(self) -> bool:
        """Whether the device is connected and has been read. False after close()."""
        return not self._is_closed and self.state.session.get("state") == "ready"

    def close(self) -> None:
        """Disconnects, and ends all subscriptions. Closing a device again has no effect.

        Calls that wait end as NotSent, those under way as Unknown; later calls raise NotSent. state keeps what it
        showed before.
        """
        with self._lock:
            self._is_closed = True
            followers = list(self._followers)
            self._followers.clear()
        for follower in followers:
            follower.close()
        self._core.close()

    def _check_open(self) -> None:
        if self._is_closed:
            raise closed_device()

    def _follow(self, start: Callable[[], Follower]) -> Follower:
        """Starts something that close() closes."""
        with self._lock:
            self._check_open()
            follower = start()
            self._followers.add(follower)
        return follower

    def __repr__(self) -> str:
        session = self.state.session
        text = "closed" if self._is_closed else session.get("text")
        return f"<tavoro device {session.get('address')}: {text}>"


class Device(DeviceBase, Closing):
    """A device whose operations block until it has answered. Connects, and reads the device.

    >>> with tavoro.Device("192.0.2.10") as wall:
    ...     wall.screen.write_take([{"screenId": 1, "screenType": 1}])

    The operations are grouped by their classes: device, interface, screen, layer, preset, file, auxiliary. A call that is not
    carried out raises a Failure; arguments that are not valid raise ValueError, and nothing is sent.

    Several threads may use one object. If the connection is lost, calls raise NotSent until it is back; the device is
    then read again.
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
        """Blocks until the device has been read, and raises NotSent if that takes longer than the timeout.

        timeout: seconds within which the device must be connected and read.
        sets_clock: whether the clock of the device is set.
        control_idle_time: control is given up after these seconds without a write; 0: when the device is closed.
        poll_interval: seconds between two readings of the device, which find what other clients change; 0: never.

        Objects of one program for the same address share a connection, with the last three settings of the first one.
        """
        super().__init__(host, port, timeout, sets_clock, control_idle_time, poll_interval)
        self.device = DeviceOperations(self._core)
        self.interface = InterfaceOperations(self._core)
        self.screen = ScreenOperations(self._core)
        self.layer = LayerOperations(self._core)
        self.preset = PresetOperations(self._core)
        self.file = Files(self._core)
        self.auxiliary = AuxiliaryOperations(self._core)
        try:
            wait(self._core.ready(self._timeout))
        except BaseException:
            self.close()
            raise

    def __enter__(self) -> Self:
        self._check_open()
        return self

    def updated_state(self) -> State:
        """Waits until the state contains what the calls that have ended have changed, and returns it."""
        wait(self._core.model_update())
        return self.state

    def subscribe(self, callback: Callable[[Change], object]) -> Subscription:
        """Calls callback for each change, on a thread that all callbacks share. Changes of one object may be combined.
        The calls end when the Subscription or the device is closed.

        The callback may call operations. Its exceptions are logged, see the logger "tavoro".
        """
        return self._follow(lambda: Subscription(self._core, callback))

    def take_control(self, *, force: bool = False) -> None:
        """Takes control of the device; also from another client if forced. Writes do so by themselves."""
        wait(self._core.take_control(_checks.flag("force", force)))

    def release_control(self) -> None:
        """Gives up control, so that another client can take it."""
        wait(self._core.release_control())

    def read_control_holder(self) -> str:
        """Address and port of the client that holds control; empty if no client does."""
        return wait(self._core.read_control_holder()).decode()

    def start_upgrade(self, detail: records.AuxiliaryUpgradeDetail) -> Transfer[records.AuxiliaryUpgradePercent]:
        """Starts a firmware upgrade from a package that the device holds, and returns a Transfer that follows it.

        A device cannot stop an upgrade: cancelling it only ends the wait.
        """
        return Transfer(
            self._core.upgrade(encoded(detail)),
            lambda answer: cast("records.AuxiliaryUpgradePercent", decoded(answer)),
        )
