"""The page of the documentation: its session, its programs and what they print."""

from __future__ import annotations

import doctest
import os
import re
import subprocess
import sys
from pathlib import Path

import pytest

from conftest import PATIENCE, Simulator

PAGE = Path(os.environ["PAGE"]).read_text(encoding="utf-8")


def blocks(language: str) -> list[str]:
    """The blocks of code in this language."""
    return re.findall(rf"^```{language}\n(.*?)^```$", PAGE, re.MULTILINE | re.DOTALL)


def with_port(text: str, port: int) -> str:
    """The text for a simulated device on another port."""
    return text.replace('Device("127.0.0.1")', f'Device("127.0.0.1", {port})').replace(":6630:", f":{port}:")


def test_the_session_prints_what_the_page_shows(simulator: Simulator, capsys: pytest.CaptureFixture[str]) -> None:
    session = with_port("\n".join(blocks("pycon")), simulator.port)
    test = doctest.DocTestParser().get_doctest(session, {}, "python.md", "python.md", 0)
    assert len(test.examples) > 30
    result = doctest.DocTestRunner().run(test)
    assert result.failed == 0, capsys.readouterr().out


def test_the_program_prints_what_the_page_shows(simulator: Simulator) -> None:
    program = with_port(blocks("python")[1], simulator.port)
    done = subprocess.run(
        [sys.executable, "-c", program], stdout=subprocess.PIPE, text=True, timeout=PATIENCE, check=False
    )
    assert (done.returncode, done.stdout) == (0, blocks("text")[0])


def test_the_first_program_takes_a_screen(simulator: Simulator) -> None:
    simulator.console("fault add twice,code=0x130E,count=1")  # counts the take
    program = blocks("python")[0].replace('"192.0.2.10"', f'"127.0.0.1", {simulator.port}')
    done = subprocess.run([sys.executable, "-c", program], timeout=PATIENCE, check=False)
    assert done.returncode == 0
    assert simulator.console("fault list") == ""
