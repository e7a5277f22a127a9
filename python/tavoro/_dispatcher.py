"""Calls the handlers of what the runtime reports, on one thread of Python."""

from __future__ import annotations

import atexit
import itertools
import logging
import threading
from collections.abc import Callable

from . import _core

_log = logging.getLogger("tavoro")
_lock = threading.Lock()
_keys = itertools.count(1)
_handlers: dict[int, Callable[[], None]] = {}
_thread: threading.Thread | None = None


def register(handler: Callable[[], None]) -> int:
    """Returns the key of the events that call this handler."""
    global _thread
    with _lock:
        key = next(_keys)
        _handlers[key] = handler
        if _thread is None:
            _thread = threading.Thread(target=_run, name="tavoro-callbacks", daemon=True)
            _thread.start()
    return key


def unregister(key: int) -> None:
    """Drops a handler. Its call that is under way continues."""
    with _lock:
        _handlers.pop(key, None)


def _run() -> None:
    while (key := _core.next_event()) is not None:
        with _lock:
            handler = _handlers.get(key)
        if handler is None:
            continue
        try:
            handler()
        except Exception:
            _log.exception("a callback raised an exception")


def _stop() -> None:
    """Ends the threads while they can still use the interpreter. A callback that does not return is left alone."""
    _core.stop()
    if _thread is not None and _thread is not threading.current_thread():
        _thread.join(timeout=2)


atexit.register(_stop)
