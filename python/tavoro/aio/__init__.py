"""Devices for asyncio: the same operations as coroutines.

>>> async with tavoro.aio.Device("192.0.2.10") as wall:
...     await wall.screen.write_take([{"screenId": 1, "screenType": 1}])
"""

from .device import Changes, Device, discover

__all__ = ["Changes", "Device", "discover"]
