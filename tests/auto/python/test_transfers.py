"""Transfers of files."""

from __future__ import annotations

from collections.abc import Callable
from pathlib import Path

import pytest
import tavoro

from conftest import Simulator

CONTENT = bytes(range(256)) * 1000


def test_a_content_arrives_and_returns(wall: tavoro.Device) -> None:
    wall.file.send(CONTENT, type=2, id=1, name="logo", width=8, height=4)
    assert wall.file.fetch(type=2, id=1) == CONTENT
    (entry,) = wall.file.read_details(file_type=2, file_id=1)
    assert entry["general"]["name"] == "logo"
    assert (entry["size"]["length"], entry["size"]["width"], entry["size"]["height"]) == (len(CONTENT), 8, 4)


def test_local_files_are_sent_and_fetched(wall: tavoro.Device, tmp_path: Path) -> None:
    (tmp_path / "night.bin").write_bytes(CONTENT)
    wall.file.send(tmp_path / "night.bin", type=2, id=1)
    assert wall.file.read_details(file_type=2, file_id=1)[0]["general"]["name"] == "night.bin"
    wall.file.fetch_to(tmp_path / "copy.bin", type=2, id=1)
    assert (tmp_path / "copy.bin").read_bytes() == CONTENT


def test_bytes_need_a_name(wall: tavoro.Device) -> None:
    with pytest.raises(TypeError, match="a content of bytes needs a name"):
        wall.file.send(CONTENT, type=2, id=1)


def test_a_missing_local_file_is_not_sent(wall: tavoro.Device, tmp_path: Path) -> None:
    with pytest.raises(tavoro.NotSent):
        wall.file.send(tmp_path / "missing.bin", type=2, id=1)


def test_the_last_progress_is_the_whole_content(wall: tavoro.Device) -> None:
    progress: list[tavoro.Progress] = []
    wall.file.send(CONTENT, type=2, id=1, name="logo", progress=progress.append)
    assert (progress[-1].done, progress[-1].total, progress[-1].share) == (len(CONTENT), len(CONTENT), 1.0)


def test_an_exception_of_the_callback_cancels_the_transfer(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery", "--packet-size", "4096")
    simulator.console("fault add hold,code=0xFA03,skip=9,count=1")
    with simulator.open() as wall:

        def stop(progress: tavoro.Progress) -> None:
            raise RuntimeError(f"{progress.total} bytes are too many")

        transfer = wall.file.start_send(CONTENT, type=2, id=1, name="logo")
        simulator.wait_until_faults_are_used()
        with pytest.raises(RuntimeError, match="256000 bytes are too many"):
            transfer.wait(stop)
        wall.screen.read_details()  # handled after the cancellation
        simulator.console("fault release")
        with pytest.raises(tavoro.NotSent) as raised:
            transfer.wait()
        assert raised.value.is_cancelled
        assert wall.file.read_details(file_type=2, file_id=1) == []


def test_a_cancelled_transfer_is_not_sent(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery", "--packet-size", "4096")
    simulator.console("fault add hold,code=0xFA03,skip=9,count=1")
    with simulator.open() as wall:
        transfer = wall.file.start_send(CONTENT, type=2, id=1, name="logo")
        simulator.wait_until_faults_are_used()
        assert not transfer.is_done
        transfer.cancel()
        wall.screen.read_details()  # handled after the cancellation
        simulator.console("fault release")
        with pytest.raises(tavoro.NotSent) as raised:
            transfer.wait()
        assert raised.value.is_cancelled
        assert raised.value.text.endswith("was cancelled.")


def test_calls_do_not_wait_for_a_transfer(start_simulator: Callable[..., Simulator]) -> None:
    simulator = start_simulator("--no-discovery", "--packet-size", "4096")
    simulator.console("fault add hold,code=0xFA03,skip=9,count=1")
    with simulator.open() as wall:
        transfer = wall.file.start_send(CONTENT, type=2, id=1, name="logo")
        simulator.wait_until_faults_are_used()
        assert len(wall.screen.read_details()) == 2
        assert not transfer.is_done
        assert repr(transfer).endswith(", under way>")
        simulator.console("fault release")
        transfer.wait()
        assert transfer.progress.share == 1.0
        assert repr(transfer) == "<tavoro transfer: 256000 of 256000, ended>"


def test_the_missing_content_of_a_file_is_a_refusal(wall: tavoro.Device) -> None:
    with pytest.raises(tavoro.Refused):
        wall.file.fetch(type=2, id=99)
