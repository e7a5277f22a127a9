"""Arguments that are not valid: each raises an exception that names it, and nothing is sent."""

from __future__ import annotations

import asyncio
import inspect
from collections.abc import Callable
from pathlib import Path
from typing import Any

import pytest
import tavoro
import tavoro.aio

from conftest import Simulator

NAN = float("nan")

# fmt: off
DEVICE_ARGUMENTS: list[tuple[dict[str, Any], type[Exception], str]] = [
    ({"host": 5},                    TypeError,  "host must be a text, not int"),
    ({"host": ""},                   ValueError, "host must not be empty"),
    ({"host": "192.0.2.10:6630"},    ValueError, 'host must not contain the port: pass "192.0.2.10", 6630'),
    ({"port": 70000},                ValueError, "port must be 1 to 65535, not 70000"),
    ({"port": 0},                    ValueError, "port must be 1 to 65535, not 0"),
    ({"port": "6630"},               TypeError,  "port must be a whole number, not str"),
    ({"port": True},                 TypeError,  "port must be a whole number, not bool"),
    ({"timeout": -1},                ValueError, "timeout must be 0 to 86400 seconds, not -1"),
    ({"timeout": NAN},               ValueError, "timeout must be 0 to 86400 seconds, not nan"),
    ({"timeout": 86401},             ValueError, "timeout must be 0 to 86400 seconds, not 86401"),
    ({"timeout": None},              TypeError,  "timeout must be a number of seconds, not NoneType"),
    ({"sets_clock": "no"},           TypeError,  "sets_clock must be True or False, not str"),
    ({"sets_clock": None},           TypeError,  "sets_clock must be True or False, not NoneType"),
    ({"control_idle_time": -0.5},    ValueError, "control_idle_time must be 0 to 86400 seconds, not -0.5"),
    ({"control_idle_time": "1"},     TypeError,  "control_idle_time must be a number of seconds, not str"),
    ({"poll_interval": -1},          ValueError, "poll_interval must be 0 to 86400 seconds, not -1"),
]

SEARCH_ARGUMENTS: list[tuple[dict[str, Any], type[Exception], str]] = [
    ({"timeout": -1},                        ValueError, "timeout must be 0 to 86400 seconds, not -1"),
    ({"timeout": "1"},                       TypeError,  "timeout must be a number of seconds, not str"),
    ({"targets": "10.0.0.1"},                TypeError,  "targets must be a list of addresses, not '10.0.0.1'; write ['10.0.0.1']"),
    ({"targets": 5},                         TypeError,  "targets must be a list of addresses, not 5; write [5]"),
    ({"targets": ["localhost"]},             ValueError, 'a target must be an IPv4 address, not "localhost"'),
    ({"targets": [("10.0.0.1", 65536)]},     ValueError, "port must be 1 to 65535, not 65536"),
    ({"targets": [("10.0.0.1", "6631")]},    TypeError,  "port must be a whole number, not str"),
    ({"targets": [("10.0.0.1",)]},           TypeError,  "a target must be an address, or a tuple of address and port, not ('10.0.0.1',)"),
]

FILE_ARGUMENTS: list[tuple[dict[str, Any], type[Exception], str]] = [
    ({"type": 255},                  ValueError, "type must be 0 to 254, not 255"),
    ({"type": "2"},                  TypeError,  "type must be a whole number, not str"),
    ({"id": -1},                     ValueError, "id must be 0 to 254, not -1"),
    ({"id": 1.0},                    TypeError,  "id must be a whole number, not float"),
    ({"progress": 5},                TypeError,  "progress must be a function, not int"),
]

CONTENT_ARGUMENTS: list[tuple[dict[str, Any], type[Exception], str]] = [
    ({"name": 5},                    TypeError,  "name must be a text, not int"),
    ({"name": ""},                   ValueError, "name must not be empty"),
    ({"width": -5},                  ValueError, "width must be 0 to 2147483647 pixels, not -5"),
    ({"height": 2**31},              ValueError, "height must be 0 to 2147483647 pixels, not 2147483648"),
    ({"height": 1.5},                TypeError,  "height must be a whole number, not float"),
    ({"content": 5},                 TypeError,  "content must be bytes or a path, not int"),
]
# fmt: on


def raises(kind: type[Exception], text: str, function: Callable[[], object]) -> None:
    """Calls a function, which may be a coroutine."""

    async def awaited() -> object:
        result = function()
        return await result if inspect.isawaitable(result) else result

    with pytest.raises(kind) as raised:
        asyncio.run(awaited())
    assert type(raised.value) is kind
    assert str(raised.value) == text


@pytest.mark.parametrize(("arguments", "kind", "text"), DEVICE_ARGUMENTS)
@pytest.mark.parametrize("device", [tavoro.Device, tavoro.aio.Device])
def test_an_argument_of_a_device(
    device: Callable[..., object], arguments: dict[str, Any], kind: type[Exception], text: str
) -> None:
    raises(kind, text, lambda: device(**{"host": "127.0.0.1", "timeout": 0, **arguments}))


@pytest.mark.parametrize(("arguments", "kind", "text"), SEARCH_ARGUMENTS)
@pytest.mark.parametrize("discover", [tavoro.discover, tavoro.aio.discover])
def test_an_argument_of_a_search(
    discover: Callable[..., object], arguments: dict[str, Any], kind: type[Exception], text: str
) -> None:
    raises(kind, text, lambda: discover(**{"timeout": 0, **arguments}))


@pytest.fixture(params=["blocking", "asyncio"])
def files(request: pytest.FixtureRequest, wall: tavoro.Device) -> Any:
    """The files of the simulated device in both kinds."""
    return wall.file if request.param == "blocking" else tavoro.aio.files.Files(wall._core)


@pytest.mark.parametrize(("arguments", "kind", "text"), FILE_ARGUMENTS)
def test_an_argument_of_a_transfer(
    files: Any, tmp_path: Path, arguments: dict[str, Any], kind: type[Exception], text: str
) -> None:
    valid = {"type": 2, "id": 1, **arguments}
    raises(kind, text, lambda: files.send(b"content", name="logo", **valid))
    raises(kind, text, lambda: files.fetch(**valid))
    raises(kind, text, lambda: files.fetch_to(tmp_path / "copy", **valid))


@pytest.mark.parametrize(("arguments", "kind", "text"), CONTENT_ARGUMENTS)
def test_an_argument_of_a_content(files: Any, arguments: dict[str, Any], kind: type[Exception], text: str) -> None:
    valid = {"content": b"content", "type": 2, "id": 1, "name": "logo", **arguments}
    raises(kind, text, lambda: files.send(valid.pop("content"), **valid))


def test_a_content_that_is_refused_is_not_sent(simulator: Simulator, wall: tavoro.Device) -> None:
    simulator.console("fault add status=8,code=0xFA03,count=1")
    with pytest.raises(TypeError):
        wall.file.send(b"content", type=2, id=1, name="logo", progress=5)  # type: ignore[arg-type]
    assert wall.file.read_details() == []
    assert simulator.console("fault list") != ""


def test_all_kinds_of_bytes_are_contents(wall: tavoro.Device) -> None:
    for content in (b"content", bytearray(b"content"), memoryview(b"content")):
        wall.file.send(content, type=2, id=1, name="logo")
        assert wall.file.fetch(type=2, id=1) == b"content"


def test_other_arguments(wall: tavoro.Device) -> None:
    raises(TypeError, "callback must be a function, not int", lambda: wall.subscribe(5))  # type: ignore[arg-type]
    raises(TypeError, "force must be True or False, not str", lambda: wall.take_control(force="x"))  # type: ignore[arg-type]
    transfer = wall.file.start_send(b"content", type=2, id=1, name="logo")
    raises(TypeError, "progress must be a function, not int", lambda: transfer.wait(5))  # type: ignore[arg-type]
    transfer.wait()


@pytest.mark.parametrize("argument", ["1", 1.5, True, None, b"1", object(), iter([1])])
def test_an_argument_of_an_operation_has_a_type(wall: tavoro.Device, argument: Any) -> None:
    text = f"an argument must be a whole number, a record or a list of records, not {type(argument).__name__}"
    raises(TypeError, text, lambda: wall.screen.read_details(argument))


def test_an_upgrade_is_checked_like_a_write(wall: tavoro.Device) -> None:
    raises(
        ValueError,
        'Auxiliary.setUgradeConfig, argument 1: line 1, column 2: unknown key "percent"; the keys here are:'
        " deleteUpgradeFile, filePath, parts, reboot, upgradeType",
        lambda: wall.start_upgrade({"percent": 1}),  # type: ignore[typeddict-unknown-key]
    )
