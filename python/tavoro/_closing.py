"""What a with statement closes."""

from __future__ import annotations

from types import TracebackType
from typing import Self


class Closing:
    """Closes itself at the end of a with statement."""

    def close(self) -> None:
        """Ends what it is for."""
        raise NotImplementedError

    def __enter__(self) -> Self:
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()
