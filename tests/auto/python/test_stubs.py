"""The names in the stub of the module in C++, and the members that both kinds of devices share."""

from __future__ import annotations

import ast
import inspect
import os
import re
from pathlib import Path

import pytest
import tavoro
import tavoro.aio
import tavoro.aio.files
import tavoro.files
from tavoro import _core

STUB = ast.parse((Path(os.environ["PACKAGE"]) / "_core.pyi").read_text(encoding="utf-8"))
PAGE = Path(os.environ["PAGE"]).read_text(encoding="utf-8")
CLASSES = {"Pending": _core.Pending, "Device": _core.Device}


def functions_of_stub(body: list[ast.stmt]) -> dict[str, list[str] | None]:
    """The names of the parameters by function; None for a property."""
    return {
        node.name: None if node.decorator_list else [argument.arg for argument in node.args.args]
        for node in body
        if isinstance(node, ast.FunctionDef)
    }


def parameters_of(function: object) -> list[str] | None:
    """The names in the signature that pybind11 writes into the documentation; None for a property."""
    if isinstance(function, property):
        return None
    signature = (inspect.getdoc(function) or "").splitlines()[0].rpartition(" -> ")[0]
    return re.findall(r"(\w+): ", signature)


def functions_of(owner: object) -> dict[str, list[str] | None]:
    """What functions_of_stub() returns, of the module."""
    return {
        name: parameters_of(value)
        for name, value in vars(owner).items()
        if (callable(value) or isinstance(value, property))
        and not isinstance(value, type)
        and (name == "__init__" or not name.startswith("_"))
    }


def test_the_stub_has_the_functions_of_the_module() -> None:
    assert functions_of_stub(STUB.body) == functions_of(_core)


def test_the_stub_has_the_classes_of_the_module() -> None:
    names = {node.name for node in STUB.body if isinstance(node, ast.ClassDef)}
    assert names == set(CLASSES) == {name for name, value in vars(_core).items() if isinstance(value, type)}


@pytest.mark.parametrize("name", CLASSES)
def test_the_stub_has_the_members_of_a_class(name: str) -> None:
    (node,) = [node for node in STUB.body if isinstance(node, ast.ClassDef) and node.name == name]
    stub = functions_of_stub(node.body)
    module = functions_of(CLASSES[name])
    if "__init__" not in stub:  # Python cannot create it
        del module["__init__"]
    assert stub == module


def public_functions(owner: type) -> dict[str, list[str]]:
    """The names of the parameters of each public function of a class."""
    return {
        name: list(inspect.signature(function).parameters)
        for name, function in inspect.getmembers(owner, inspect.isfunction)
        if name == "__init__" or not name.startswith("_")
    }


@pytest.mark.parametrize(
    ("blocking", "asynchronous", "only_blocking", "only_asynchronous"),
    [
        (tavoro.Device, tavoro.aio.Device, {"subscribe", "start_upgrade"}, {"changes", "connect", "upgrade"}),
        (tavoro.files.Files, tavoro.aio.files.Files, {"start_send", "start_fetch", "start_fetch_to"}, set()),
    ],
)
def test_the_twins_have_the_same_parameters(
    blocking: type, asynchronous: type, only_blocking: set[str], only_asynchronous: set[str]
) -> None:
    first, second = public_functions(blocking), public_functions(asynchronous)
    assert set(first) - set(second) == only_blocking
    assert set(second) - set(first) == only_asynchronous
    assert {name: first[name] for name in first if name in second} == {
        name: second[name] for name in second if name in first
    }


def test_the_searches_have_the_same_parameters() -> None:
    assert inspect.signature(tavoro.discover) == inspect.signature(tavoro.aio.discover)


def test_the_page_lists_the_arguments_of_a_device() -> None:
    table = PAGE.partition("| argument | meaning |")[2].partition("\n\n")[0]
    names = re.findall(r"`(\w+)`", "".join(line.split("|")[1] for line in table.splitlines() if line.startswith("| `")))
    assert names == public_functions(tavoro.Device)["__init__"][1:]
