"""The files of a device for asyncio: operations, and transfers of their contents."""

from __future__ import annotations

import os

from ..files import Content, start_fetching, start_fetching_to, start_sending
from ..transfers import ProgressCallback
from ._transfers import transferred
from .operations import FileOperations


class Files(FileOperations):
    """Operations of files, and transfers of their contents. A transfer whose task is cancelled is cancelled."""

    async def send(
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
        """Sends a content or a local file, see tavoro.files.Files.start_send()."""
        await transferred(
            lambda: start_sending(self._device, content, type, id, name, width, height), progress
        )

    async def fetch(self, *, type: int, id: int, progress: ProgressCallback | None = None) -> bytes:
        """Returns the content of a file."""
        return await transferred(lambda: start_fetching(self._device, type, id), progress)

    async def fetch_to(
        self, path: str | os.PathLike[str], *, type: int, id: int, progress: ProgressCallback | None = None
    ) -> None:
        """Fetches a file into a local file, which appears or is replaced when the content is complete."""
        await transferred(lambda: start_fetching_to(self._device, path, type, id), progress)
