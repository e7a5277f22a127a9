"""What a call raises when it was not carried out, or may not have been."""

from __future__ import annotations

import enum
from typing import ClassVar

from . import _core


class Outcome(enum.Enum):
    """What is known about a call that failed."""

    REFUSED = "refused"
    """The device has refused it. Nothing has changed on the device."""
    NOT_SENT = "not sent"
    """The device has not received it, and will not receive it later."""
    UNKNOWN = "unknown"
    """The device may or may not have carried it out."""


class Failure(Exception):
    """A call that was not carried out, or may not have been. Its text is a sentence for the user."""

    outcome: ClassVar[Outcome]
    """What is known about the call."""

    def __init__(
        self, text: str, meaning: str = "", status: int = 0, operation: str = "", is_cancelled: bool = False
    ) -> None:
        super().__init__(text, meaning, status, operation, is_cancelled)
        self.text = text
        """The sentence for the user. It names the device, the operation and the reason."""
        self.meaning = meaning
        """The reason as words, without a full stop."""
        self.status = status
        """1 to 255: a status of the device. Above 255: a status of the connection. 0: no request was answered."""
        self.operation = operation
        """Name of the command, such as "screen take information"."""
        self.is_cancelled = is_cancelled
        """Whether the program has cancelled the call."""

    def __str__(self) -> str:
        return self.text


class Refused(Failure):
    """The device has refused the call. Nothing has changed on the device."""

    outcome = Outcome.REFUSED


class NotSent(Failure):
    """The device has not received the call, and will not receive it later. Also raised when a device cannot be reached."""

    outcome = Outcome.NOT_SENT


class Unknown(Failure):
    """The request was sent, but the device may or may not have carried it out."""

    outcome = Outcome.UNKNOWN


def closed_device() -> NotSent:
    """The exception for what needs a device that is open."""
    return NotSent("The device is closed.", "the device is closed")


def failure_of(pending: _core.Pending) -> Failure:
    """The exception for something that has ended without success."""
    classes: dict[str, type[Failure]] = {kind.outcome.value: kind for kind in (Refused, NotSent, Unknown)}
    return classes[pending.outcome](
        pending.text, pending.meaning, pending.status, pending.operation, pending.is_cancelled
    )
