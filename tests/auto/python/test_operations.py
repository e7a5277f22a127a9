"""The sources that are generated from the table of operations."""

from __future__ import annotations

import inspect
import os
import sys
import textwrap
from collections import Counter

import pytest
import tavoro.aio.operations
import tavoro.operations
from tavoro import records

sys.path.insert(0, os.environ["GENERATOR"])
import names  # noqa: E402

CLASSES = ("Device", "Interface", "Screen", "Layer", "Preset", "File", "Auxiliary")


def methods_of(module: object, name: str) -> dict[str, inspect.Signature]:
    owner = getattr(module, name + "Operations")
    return {
        member: inspect.signature(function)
        for member, function in vars(owner).items()
        if inspect.isfunction(function)
    }


def test_each_operation_is_a_method() -> None:
    counts = Counter({name: len(methods_of(tavoro.operations, name)) for name in CLASSES})
    assert counts == {
        "Device": 17,
        "Interface": 15,
        "Screen": 18,
        "Layer": 18,
        "Preset": 1,
        "File": 10,
        "Auxiliary": 12,
    }


@pytest.mark.parametrize("name", CLASSES)
def test_the_twins_have_the_same_signatures(name: str) -> None:
    assert methods_of(tavoro.operations, name) == methods_of(tavoro.aio.operations, name)
    assert all(
        inspect.iscoroutinefunction(getattr(getattr(tavoro.aio.operations, name + "Operations"), member))
        for member in methods_of(tavoro.operations, name)
    )


def test_a_write_is_documented() -> None:
    take = tavoro.operations.ScreenOperations.write_take
    assert str(inspect.signature(take)) == "(self, screens: 'Sequence[records.ScreenSwitchEffect]') -> 'None'"
    assert inspect.getdoc(take) == (
        "Takes: switches the preview to programme with the given transition.\n\n"
        "Arguments:\n    screens: list of records.ScreenSwitchEffect with the keys screenId, screenType, switchEffect\n\n"
        "Changes: layers, see layer.read_details().\n\n"
        "Command 0x130E. Raises Failure, or ValueError if an argument is not valid."
    )


def test_a_write_without_a_change_says_why() -> None:
    save = tavoro.operations.AuxiliaryOperations.save_device_data
    assert inspect.getdoc(save) == (
        "Makes the device save its state.\n\n"
        "No read shows a change: The device copies its state to its memory, and continues with the same state.\n\n"
        "Command 0xFC03. Raises Failure, or ValueError if an argument is not valid."
    )


@pytest.mark.parametrize(
    ("name", "parameters", "arguments"),
    [
        (
            "Interface",
            "interface_type: 'int' = 0, device_filter: 'int' = -1",
            "interface_type: -1 to 255; 0 for all\n"
            "device_filter: -1 to 255; -1 for all; what it selects depends on the device",
        ),
        (
            "Screen",
            "screen_id: 'int' = -1, screen_type: 'int' = 0, device_filter: 'int' = -1",
            "screen_id: -1 to 255; -1 for all\n"
            "screen_type: -1 to 255; 0 for all\n"
            "device_filter: -1 to 255; -1 for all; what it selects depends on the device",
        ),
        (
            "Layer",
            "screen_id: 'int' = -1, screen_type: 'int' = -1, scene_type: 'int' = -1, layer_type: 'int' = -1",
            "screen_id: -1 to 255; -1 for all\n"
            "screen_type: -1 to 255; -1 for all\n"
            "scene_type: -1 to 255; -1 for all; 2: preview, 4: programme\n"
            "layer_type: -1 to 255; -1 for all",
        ),
        (
            "File",
            "file_type: 'int' = -1, file_id: 'int' = -1",
            "file_type: -1 to 255; -1 for all\nfile_id: -1 to 255; -1 for all",
        ),
    ],
)
def test_the_filters_of_a_read_have_names_and_default_to_all_objects(
    name: str, parameters: str, arguments: str
) -> None:
    read = getattr(tavoro.operations, name + "Operations").read_details
    assert str(inspect.signature(read)).partition(" -> ")[0] == f"(self, {parameters})"
    assert "Arguments:\n" + textwrap.indent(arguments, "    ") + "\n\n" in (inspect.getdoc(read) or "")


@pytest.mark.parametrize("name", CLASSES)
def test_no_argument_only_has_a_number(name: str) -> None:
    names = {name for signature in methods_of(tavoro.operations, name).values() for name in signature.parameters}
    assert not names & {"first", "second", "third", "fourth"}


def test_a_record_has_the_keys_in_their_order() -> None:
    assert records.ScreenSwitchEffect.__annotations__ == {
        "screenId": int,
        "screenType": int,
        "switchEffect": records.ScreenSwitchEffectBody,
    }
    assert records.ScreenSwitchEffect.__required_keys__ == frozenset()


@pytest.mark.parametrize(
    ("name", "expected"),
    [
        ("writeTake", "write_take"),
        ("writeFTB", "write_ftb"),
        ("writePGMEdit", "write_pgm_edit"),
        ("writeZOrder", "write_z_order"),
        ("writeHDCP", "write_hdcp"),
        ("screenId", "screen_id"),
    ],
)
def test_names_are_in_snake_case(name: str, expected: str) -> None:
    assert names.snake_case(name) == expected


@pytest.mark.parametrize(
    ("definition", "expected"),
    [
        ("Screen::s_SwitchEffect", "ScreenSwitchEffect"),
        ("Screen::s_ScreenFullDetail", "ScreenFullDetail"),
        ("Device::s_swap", "DeviceSwap"),
        ("s_ScreenId", "ScreenId"),
    ],
)
def test_records_are_named_after_their_domain(definition: str, expected: str) -> None:
    assert names.record_name(definition) == expected
