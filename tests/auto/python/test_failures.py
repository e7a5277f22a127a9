"""What calls raise."""

from __future__ import annotations

import pickle
import re

import pytest
import tavoro

from conftest import Simulator

TAKE: list[tavoro.records.ScreenSwitchEffect] = [{"screenId": 1, "screenType": 1}]


def test_a_refusal_has_status_meaning_outcome_and_text(simulator: Simulator, wall: tavoro.Device) -> None:
    simulator.console("fault add status=8,code=0x130E")
    with pytest.raises(tavoro.Refused) as raised:
        wall.screen.write_take(TAKE)
    failure = raised.value
    assert failure.outcome is tavoro.Outcome.REFUSED
    assert failure.status == 8
    assert failure.meaning == "the device is busy, or the object is in use"
    assert failure.operation == "screen take information"
    assert failure.text == (
        "Main hall: screen take information was refused: the device is busy, or the object is in use."
    )
    assert str(failure) == failure.text
    assert not failure.is_cancelled


def test_a_call_after_close_is_not_sent(wall: tavoro.Device) -> None:
    wall.close()
    with pytest.raises(tavoro.NotSent) as raised:
        wall.screen.write_take(TAKE)
    assert raised.value.outcome is tavoro.Outcome.NOT_SENT
    assert raised.value.text == "The request was not sent: the device is closed."


def test_a_call_without_a_connection_is_not_sent(simulator: Simulator, wall: tavoro.Device) -> None:
    simulator.stop()
    with pytest.raises(tavoro.Failure):  # the one that notices may be Unknown
        wall.screen.read_details()
    with pytest.raises(tavoro.NotSent) as raised:
        wall.screen.write_take(TAKE)
    assert raised.value.operation == "screen take information"


def test_a_write_that_a_restart_has_forgotten_is_unknown(simulator: Simulator, wall: tavoro.Device) -> None:
    simulator.console("fault add reboot,code=0x130E,count=1")
    with pytest.raises(tavoro.Unknown) as raised:
        wall.screen.write_take(TAKE)
    assert raised.value.outcome is tavoro.Outcome.UNKNOWN
    assert raised.value.text.startswith("Main hall: screen take information may or may not have been carried out: ")


def test_a_device_that_cannot_be_reached_is_not_sent() -> None:
    with pytest.raises(tavoro.NotSent) as raised:
        tavoro.Device("127.0.0.1", 1, timeout=0.2)
    assert "127.0.0.1:1" in raised.value.text


def test_a_device_that_is_not_read_in_time_is_not_sent(simulator: Simulator) -> None:
    simulator.console("fault add hold,code=0x1100,count=1")
    with pytest.raises(tavoro.NotSent) as raised:
        tavoro.Device("127.0.0.1", simulator.port, timeout=0.5)
    text = rf"127\.0\.0\.1:{simulator.port} was not ready within 0\.5 s: (Connecting to|Reading) .+"
    assert re.fullmatch(text, raised.value.text)
    assert raised.value.meaning == "the device was not ready in time"


def test_all_are_failures_and_can_be_pickled() -> None:
    for kind in (tavoro.Refused, tavoro.NotSent, tavoro.Unknown):
        failure = kind("text", "meaning", 8, "operation", True)
        copy = pickle.loads(pickle.dumps(failure))
        assert isinstance(copy, tavoro.Failure)
        assert type(copy) is kind
        assert vars(copy) == vars(failure)


def test_a_refusal_because_of_control_names_the_holder(simulator: Simulator, wall: tavoro.Device) -> None:
    script = """
        import sys, tavoro
        with tavoro.Device("127.0.0.1", int(sys.argv[1])) as wall:
            try:
                wall.screen.write_take([{"screenId": 1, "screenType": 1}])
            except tavoro.Refused as failure:
                print(failure.status, failure.text)
    """
    from conftest import Script

    wall.take_control()
    holder = wall.read_control_holder()
    assert Script(script, simulator.port).finish() == (
        0,
        f"67 Main hall: screen take information was refused: the device is controlled by {holder}.\n",
        "",
    )
