"""Calls that block."""

from __future__ import annotations

import pytest
import tavoro

from conftest import Simulator


def test_a_write_changes_the_device(wall: tavoro.Device) -> None:
    wall.screen.write_freeze([{"screenId": 1, "screenType": 1, "freeze": 1}])
    assert [screen["freeze"] for screen in wall.screen.read_details()] == [1, 0]


def test_a_write_returns_nothing(wall: tavoro.Device) -> None:
    assert wall.screen.write_take([{"screenId": 1, "screenType": 1}]) is None  # type: ignore[func-returns-value]


def test_a_read_takes_filters(wall: tavoro.Device) -> None:
    screens = wall.screen.read_details(screen_id=2, screen_type=2)
    assert [(screen["screenType"], screen["screenId"]) for screen in screens] == [(2, 2)]


def test_filters_are_passed_by_name(wall: tavoro.Device) -> None:
    layers = wall.layer.read_details(screen_id=1, screen_type=1, scene_type=4, layer_type=-1)
    assert {layer["layerIdenti"]["sceneType"] for layer in layers} == {4}
    assert len(wall.interface.read_details(interface_type=2, device_filter=-1)) == 2


def test_missing_keys_are_sent_as_defaults(wall: tavoro.Device) -> None:
    wall.screen.write_switch_effect([{"screenId": 1, "screenType": 1, "switchEffect": {"time": 30}}])
    assert wall.screen.read_details()[0]["switchEffect"] == {"time": 30, "direction": 0, "type": 1}


def test_texts_of_all_languages_arrive_as_they_were_sent(wall: tavoro.Device) -> None:
    wall.device.write_device_general({"general": {"name": "Großer Saal 大厅", "status": 1}})
    assert wall.device.read_details()["general"]["name"] == "Großer Saal 大厅"


def test_a_view_may_be_written_again(wall: tavoro.Device) -> None:
    effect = wall.state.screens[0].switchEffect
    wall.screen.write_switch_effect([{"screenId": 1, "screenType": 1, "switchEffect": effect}])
    assert wall.screen.read_details()[0]["switchEffect"] == effect


@pytest.mark.parametrize(
    ("record", "fault"),
    [
        (
            {"screenI": 1},
            'Screen.writeFreeze, argument 1: line 1, column 3: unknown key "screenI"; did you mean "screenId"; the keys here'
            " are: freeze, screenId, screenType",
        ),
        (
            {"screenId": 300},
            "Screen.writeFreeze, argument 1: line 1, column 15: 300 would be sent as 44; the range is 0 to 255",
        ),
    ],
)
def test_an_argument_that_is_not_valid_is_a_value_error(wall: tavoro.Device, record: dict, fault: str) -> None:
    with pytest.raises(ValueError) as raised:
        wall.screen.write_freeze([record])  # type: ignore[list-item]
    assert str(raised.value) == fault


def test_a_value_that_json_does_not_have_is_a_type_error(wall: tavoro.Device) -> None:
    with pytest.raises(TypeError, match="object is not a value of a record"):
        wall.screen.write_freeze([object()])  # type: ignore[list-item]


def test_two_objects_for_one_device_are_closed_one_by_one(simulator: Simulator) -> None:
    with simulator.open() as first:
        with simulator.open() as second:
            second.screen.write_take([{"screenId": 1, "screenType": 1}])
        with pytest.raises(tavoro.NotSent, match="the device is closed"):
            second.screen.read_details()
        assert len(first.screen.read_details()) == 2


def test_control_is_taken_given_up_and_named(simulator: Simulator) -> None:
    with simulator.open() as wall:
        wall.take_control()
        holder = wall.read_control_holder()
        assert holder.startswith("127.0.0.1:")
        wall.release_control()
        assert wall.read_control_holder() == ""
