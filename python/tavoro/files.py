"""The files of a device: operations, and transfers of their contents."""

from __future__ import annotations

import os
from pathlib import Path
from typing import Any

from . import _core
from ._calls import encoded
from .operations import FileOperations
from .transfers import ProgressCallback, Transfer

Content = bytes | str | os.PathLike[str]
"""A content, or the path of a local file."""


def start_sending(
    device: _core.Device, content: Content, type: int, id: int, name: str | None, width: int, height: int
) -> _core.Pending:
    """Begins to send a content."""
    if name is None:
        if isinstance(content, bytes):
            raise TypeError("a content of bytes needs a name")
        name = Path(content).name
    size = {"width": width, "height": height}
    info: dict[str, Any] = {"fileId": id, "fileType": type, "general": {"name": name}, "size": size}
    if isinstance(content, bytes):
        return device.send(encoded(info), content)
    return device.send_from(encoded(info), os.fspath(content))


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
        self.start_send(content, type=type, id=id, name=name, width=width, height=height).wait(progress)

    def start_fetch(self, *, type: int, id: int) -> Transfer[bytes]:
        """Begins to fetch the content of a file, and returns the transfer."""
        return Transfer(self._device.fetch(type, id), bytes)

    def fetch(self, *, type: int, id: int, progress: ProgressCallback | None = None) -> bytes:
        """Returns the content of a file."""
        return self.start_fetch(type=type, id=id).wait(progress)

    def start_fetch_to(self, path: str | os.PathLike[str], *, type: int, id: int) -> Transfer[None]:
        """Begins to fetch a file into a local file, which appears or is replaced when the content is complete."""
        return Transfer(self._device.fetch_to(type, id, os.fspath(path)), lambda _: None)

    def fetch_to(
        self, path: str | os.PathLike[str], *, type: int, id: int, progress: ProgressCallback | None = None
    ) -> None:
        """Fetches a file into a local file, see start_fetch_to(). Blocks until the local file is complete."""
        self.start_fetch_to(path, type=type, id=id).wait(progress)
