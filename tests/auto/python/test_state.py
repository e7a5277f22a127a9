"""The device as a view, and its changes."""

from __future__ import annotations

import copy
import pickle
import queue
from collections.abc import Callable
from typing import Any

import pytest
import tavoro
from tavoro.changes import differences

from conftest import PATIENCE, Script, Simulator, wait_until


def freeze(wall: tavoro.Device, value: int) -> None:
    wall.screen.write_freeze([{"screenId": 1, "screenType": 1, "freeze": value}])


def test_the_state_has_all_objects_after_opening(wall: tavoro.Device) -> None:
    state = wall.state
    assert state.session.state == "ready"
    assert state.session.text == "Main hall is ready."
    assert state.device.general.name == "Main hall"
    assert len(state.interfaces) == 4
    assert [(screen.screenType, screen.screenId) for screen in state.screens] == [(1, 1), (2, 2)]
    assert len(state.layers) == 8
    assert list(state.files) == []
    assert wall.is_ready
    assert wall.name == "Main hall"


def test_a_closed_device_is_not_ready(wall: tavoro.Device) -> None:
    assert repr(wall).endswith(": Main hall is ready.>")
    wall.close()
    assert not wall.is_ready
    assert repr(wall).endswith(": closed>")


def test_a_screen_has_its_layers(wall: tavoro.Device) -> None:
    screen = wall.state.screens.find(screenId=2, screenType=2)
    assert [layer.layerIdenti.screenId for layer in screen.layers] == [2, 2, 2, 2]
    assert [layer.layerIdenti.sceneType for layer in screen.preview] == [2, 2]
    assert [layer.layerIdenti.sceneType for layer in screen.programme] == [4, 4]


def test_a_view_equals_the_record_that_a_read_returns(wall: tavoro.Device) -> None:
    assert list(wall.state.screens) == wall.screen.read_details()
    assert list(wall.state.interfaces) == wall.interface.read_details()


def test_a_view_can_only_be_read(wall: tavoro.Device) -> None:
    general = wall.state.screens[0].general
    with pytest.raises(AttributeError, match="a view can only be read"):
        general.name = "other"
    with pytest.raises(TypeError):
        general["name"] = "other"
    with pytest.raises(AttributeError, match=r'^the record does not have the key "nmae"; did you mean "name"\?$'):
        general.nmae
    changed = general.copy()
    changed["name"] = "other"
    assert general.name == "Main"


@pytest.mark.parametrize("copied", [copy.copy, copy.deepcopy, lambda value: pickle.loads(pickle.dumps(value))])
def test_a_state_may_be_copied(wall: tavoro.Device, copied: Callable[[Any], Any]) -> None:
    state = copied(wall.state)
    assert state.records() == wall.state.records()
    screen = copied(wall.state.screens[0])
    assert screen == wall.state.screens[0]
    assert list(screen.programme) == list(wall.state.screens[0].programme)


def test_an_object_that_does_not_exist_is_a_lookup_error(wall: tavoro.Device) -> None:
    with pytest.raises(LookupError, match="the device does not have an object with {'screenId': 9} among its screens"):
        wall.state.screens.find(screenId=9)
    assert list(wall.state.screens.where(screenId=9)) == []


def test_an_unknown_key_of_a_search_is_a_lookup_error(wall: tavoro.Device) -> None:
    text = 'a record of the screens does not have the key "screen_id"; did you mean "screenId"?'
    for search in (wall.state.screens.find, wall.state.screens.where):
        with pytest.raises(LookupError) as raised:
            search(screenType=1, screen_id=1)
        assert raised.value.args == (text,)
    with pytest.raises(LookupError, match='^a record of the layers does not have the key "x"$'):
        wall.state.layers.find(x=1)


def test_the_updated_state_has_what_a_call_has_changed(wall: tavoro.Device) -> None:
    before = wall.state
    freeze(wall, 1)
    assert wall.updated_state().screens[0].freeze == 1
    assert before.screens[0].freeze == 0
    assert wall.state is wall.state


def test_reports_of_the_device_change_the_state(simulator: Simulator, wall: tavoro.Device) -> None:
    assert wall.state.device.genlockSignal.status == 1
    simulator.console("genlock 0")
    wait_until(lambda: wall.state.device.genlockSignal.status == 0)


def test_a_callback_gets_what_has_changed(wall: tavoro.Device) -> None:
    changes: queue.Queue[tavoro.Change] = queue.Queue()
    with wall.subscribe(changes.put):
        freeze(wall, 1)
        change = changes.get(timeout=PATIENCE)
    assert (change.kind, change.action, change.identity) == ("screens", "changed", {"screenType": 1, "screenId": 1})
    assert change.keys == ["freeze"]
    assert change.before is not None and change.before.freeze == 0
    assert change.after is not None and change.after.freeze == 1


def test_new_and_removed_objects_are_changes(wall: tavoro.Device) -> None:
    changes: queue.Queue[tavoro.Change] = queue.Queue()
    with wall.subscribe(changes.put):
        wall.file.send(b"content", type=2, id=1, name="logo")
        added = changes.get(timeout=PATIENCE)
        wall.file.write_delete_files([{"fileType": 2, "fileId": 1}])
        removed = changes.get(timeout=PATIENCE)
    assert [(change.kind, change.action, change.identity) for change in (added, removed)] == [
        ("files", "added", {"fileType": 2, "fileId": 1}),
        ("files", "removed", {"fileType": 2, "fileId": 1}),
    ]
    assert added.before is None and added.after is not None
    assert removed.before == added.after and removed.after is None


def test_polling_finds_what_another_client_has_changed(simulator: Simulator) -> None:
    changes: queue.Queue[tavoro.Change] = queue.Queue()
    other = """
        import sys, tavoro
        with tavoro.Device("127.0.0.1", int(sys.argv[1]), timeout=60) as wall:
            wall.screen.write_freeze([{"screenId": 1, "screenType": 1, "freeze": 1}])
    """
    with simulator.open(poll_interval=0.05) as wall, wall.subscribe(changes.put):
        assert Script(other, simulator.port).finish() == (0, "", "")
        change = changes.get(timeout=PATIENCE)
        while change.kind != "screens":  # control changes as well
            change = changes.get(timeout=PATIENCE)
    assert (change.identity, change.keys) == ({"screenType": 1, "screenId": 1}, ["freeze"])


def test_the_loss_of_the_connection_is_a_change(simulator: Simulator, wall: tavoro.Device) -> None:
    changes: queue.Queue[tavoro.Change] = queue.Queue()
    with wall.subscribe(changes.put):
        simulator.stop()
        change = changes.get(timeout=PATIENCE)
        while change.after is None or change.after.get("state") != "lost":
            change = changes.get(timeout=PATIENCE)
    assert change.kind == "session"


def test_a_callback_may_call_operations(wall: tavoro.Device) -> None:
    frozen: queue.Queue[int] = queue.Queue()
    with wall.subscribe(lambda change: frozen.put(wall.screen.read_details()[0]["freeze"])):
        freeze(wall, 1)
        assert frozen.get(timeout=PATIENCE) == 1


def test_an_exception_of_a_callback_is_logged(wall: tavoro.Device, caplog: pytest.LogCaptureFixture) -> None:
    later: queue.Queue[tavoro.Change] = queue.Queue()

    def fail(change: tavoro.Change) -> None:
        raise RuntimeError("a mistake")

    with wall.subscribe(fail), wall.subscribe(later.put):
        freeze(wall, 1)
        later.get(timeout=PATIENCE)
    wait_until(lambda: caplog.records)
    assert caplog.records[0].getMessage() == "a callback raised an exception"
    assert caplog.records[0].name == "tavoro"


def test_a_closed_subscription_is_silent(wall: tavoro.Device) -> None:
    closed: queue.Queue[tavoro.Change] = queue.Queue()
    later: queue.Queue[tavoro.Change] = queue.Queue()
    wall.subscribe(closed.put).close()
    with wall.subscribe(later.put):
        freeze(wall, 1)
        later.get(timeout=PATIENCE)
    assert closed.empty()


def test_differences_are_in_the_order_of_the_device() -> None:
    before = tavoro.State(
        b'{"session":{"state":"ready"},"files":[{"fileType":2,"fileId":1,"n":1},{"fileType":2,"fileId":2}]}'
    )
    after = tavoro.State(
        b'{"session":{"state":"lost"},"files":[{"fileType":2,"fileId":3},{"fileType":2,"fileId":1,"n":2}]}'
    )
    assert [(change.kind, change.action, tuple(change.identity.values())) for change in differences(before, after)] == [
        ("session", "changed", ()),
        ("files", "added", (2, 3)),
        ("files", "changed", (2, 1)),
        ("files", "removed", (2, 2)),
    ]


def test_devices_are_found(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--discovery", "0", "--sn", "00000000000000AB")
    discovery_port = int(simulator.read_line().split()[-1])
    answers: list[tavoro.FoundDevice] = []

    def search() -> bool:  # an answer may be late on a loaded machine
        answers[:] = tavoro.discover(timeout=0.3, targets=[("127.0.0.1", discovery_port)])
        return bool(answers)

    wait_until(search)
    (found,) = answers
    assert (found.name, found.host, found.port) == ("Main hall", "127.0.0.1", simulator.port)
    assert (found.serial_number, found.is_controlled) == ("00000000000000AB", False)
