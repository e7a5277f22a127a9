"""The files of a device: operations, and transfers of their contents."""

from __future__ import annotations

import os
from pathlib import Path
from typing import Any

from . import _checks, _core
from ._calls import encoded
from .operations import FileOperations
from .transfers import ProgressCallback, Transfer

Content = bytes | bytearray | memoryview | str | os.PathLike[str]
"""A content, or the path of a local file."""


def _name_of(content: Content) -> str:
    """The name of a local file."""
    if isinstance(content, str | os.PathLike):
        return Path(content).name
    raise TypeError("a content of bytes needs a name")


def start_sending(
    device: _core.Device, content: Content, type: int, id: int, name: str | None, width: int, height: int
) -> _core.Pending:
    """Begins to send a content."""
    _checks.content(content)
    record: dict[str, Any] = {
        "fileType": _checks.integer("type", type),
        "fileId": _checks.integer("id", id),
        "general": {"name": _checks.text("name", _name_of(content) if name is None else name)},
        "size": {"width": _checks.integer("width", width), "height": _checks.integer("height", height)},
    }
    if isinstance(content, str | os.PathLike):
        return device.send_from(encoded(record), os.fspath(content))
    return device.send(encoded(record), bytes(content))


def start_fetching(device: _core.Device, type: int, id: int) -> _core.Pending:
    """Begins to fetch a content."""
    return device.fetch(_checks.integer("type", type), _checks.integer("id", id))


def start_fetching_to(device: _core.Device, path: str | os.PathLike[str], type: int, id: int) -> _core.Pending:
    """Begins to fetch a content into a local file."""
    return device.fetch_to(_checks.integer("type", type), _checks.integer("id", id), os.fspath(path))


class Files(FileOperations):
    """Operations of files, and transfers of their contents. Transfers do not delay other calls."""

    def start_send(
        self, content: Content, *, type: int, id: int, name: str | None = None, width: int = 0, height: int = 0
    ) -> Transfer[None]:
        """Begins to send a content or a local file, and returns the transfer.

        It becomes the file with this type and ID, and replaces one that exists. The name is that of the local file
        if none is given. Images have a width and a height in pixels.
        """
        pending = start_sending(self._device, content, type, id, name, width, height)
        return Transfer(pending, lambda _: None)

    def send(
        self,
        content: Content,
        *,
        type: int,
        id: int,
        name: str | None = None,
        width: int = 0,
        height: int = 0,
        progress: ProgressCallback | None = None,
    ) -> None:
        """Sends a content or a local file, see start_send(). Blocks until the device has it."""
        _checks.optional_callback("progress", progress)
        self.start_send(content, type=type, id=id, name=name, width=width, height=height).wait(progress)

    def start_fetch(self, *, type: int, id: int) -> Transfer[bytes]:
        """Begins to fetch the content of a file, and returns the transfer."""
        return Transfer(start_fetching(self._device, type, id), bytes)

    def fetch(self, *, type: int, id: int, progress: ProgressCallback | None = None) -> bytes:
        """Returns the content of a file."""
        _checks.optional_callback("progress", progress)
        return self.start_fetch(type=type, id=id).wait(progress)

    def start_fetch_to(self, path: str | os.PathLike[str], *, type: int, id: int) -> Transfer[None]:
        """Begins to fetch a file into a local file, which appears or is replaced when the content is complete."""
        return Transfer(start_fetching_to(self._device, path, type, id), lambda _: None)

    def fetch_to(
        self, path: str | os.PathLike[str], *, type: int, id: int, progress: ProgressCallback | None = None
    ) -> None:
        """Fetches a file into a local file, see start_fetch_to(). Blocks until the local file is complete."""
        _checks.optional_callback("progress", progress)
        self.start_fetch_to(path, type=type, id=id).wait(progress)
