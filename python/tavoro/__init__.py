"""Controls networked multi-layer video processors.

>>> import tavoro
>>> with tavoro.Device("192.0.2.10") as wall:
...     wall.screen.write_take([{"screenId": 1, "screenType": 1}])

Device has the operations of a device as functions that block, tavoro.aio.Device as coroutines. discover() searches the network. A
call that is not carried out, or may not have been, raises a Failure.
"""

from . import records
from .changes import Change, Subscription
from .device import DEFAULT_PORT, Device
from .discovery import FoundDevice, discover
from .failures import Failure, NotSent, Outcome, Refused, Unknown
from .state import Objects, ScreenView, State, View
from .transfers import Progress, Transfer

__all__ = [
    "DEFAULT_PORT",
    "Change",
    "Device",
    "Failure",
    "FoundDevice",
    "NotSent",
    "Objects",
    "Outcome",
    "Progress",
    "Refused",
    "ScreenView",
    "State",
    "Subscription",
    "Transfer",
    "Unknown",
    "View",
    "discover",
    "records",
]
