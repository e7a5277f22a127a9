"""Types, as mypy checks them."""

from __future__ import annotations

import os
import subprocess
import sys
from pathlib import Path

import pytest

PACKAGE = Path(os.environ["PACKAGE"])


@pytest.fixture(scope="module")
def cache(tmp_path_factory: pytest.TempPathFactory) -> Path:
    return tmp_path_factory.mktemp("mypy")


def check(cache: Path, *files: Path) -> tuple[int, str]:
    """The exit status and the findings of mypy."""
    command = [sys.executable, "-m", "mypy", "--strict", "--no-error-summary", "--cache-dir", str(cache)]
    environment = {**os.environ, "MYPYPATH": str(PACKAGE.parent)}
    done = subprocess.run(
        [*command, *map(str, files)], stdout=subprocess.PIPE, text=True, env=environment, check=False
    )
    return done.returncode, done.stdout


def test_the_package_has_no_finding(cache: Path) -> None:
    assert check(cache, PACKAGE) == (0, "")


def test_the_examples_have_no_finding(cache: Path) -> None:
    assert check(cache, *sorted(Path(os.environ["EXAMPLES"]).glob("*.py"))) == (0, "")


MISTAKES = {
    'wall.screen.write_take([{"screenI": 1}])': 'Extra key "screenI" for TypedDict "ScreenSwitchEffect"',
    'wall.screen.write_freeze([{"freeze": "on"}])': 'has type "str", TypedDict item "freeze" has type "int"',
    "wall.screen.write_magic()": '"ScreenOperations" has no attribute "write_magic"',
    'wall.screen.read_details(screen_id="1")': 'has incompatible type "str"; expected "int"',
    'wall.screen.read_details()[0]["mosaik"]': 'has no key "mosaik"',
}


def test_mistakes_are_findings(cache: Path, tmp_path: Path) -> None:
    program = tmp_path / "program.py"
    head = 'import tavoro\n\nwall = tavoro.Device("192.0.2.10")\n'
    program.write_text(head + "\n".join(MISTAKES) + "\n", encoding="utf-8")
    code, output = check(cache, program)
    assert code == 1
    for number, finding in enumerate(MISTAKES.values(), start=4):
        errors = [line for line in output.splitlines() if f"program.py:{number}: error: " in line]
        assert len(errors) == 1 and finding in errors[0], output
