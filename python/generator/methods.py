"""Writes the operations as methods, for programs that block and for asyncio."""

from __future__ import annotations

import textwrap
from typing import Any

from names import Schema, snake_case, type_of

HEADS = {
    "blocking": '''"""The operations of a device, by class. Generated from the table of operations."""

from __future__ import annotations

from collections.abc import Sequence
from typing import Any, cast

from . import records
from ._calls import Operations
''',
    "asyncio": '''"""The operations of a device for asyncio, by class. Generated from the table of operations."""

from __future__ import annotations

from collections.abc import Sequence
from typing import Any, cast

from .. import records
from ._calls import Operations
''',
}


def describe_argument(argument: Schema) -> str:
    """What the documentation of a method says about an argument."""
    schema = argument["schema"]
    name = snake_case(argument["name"])
    if "minimum" not in schema:
        return f"{name}: {type_of(schema, sequence='Sequence')}"
    every = f"; {argument['default']} for all" if argument.get("default") == -1 else ""
    return f"{name}: {schema['minimum']} to {schema['maximum']}{every}"


def effect_of(operation: dict[str, Any]) -> list[str]:
    """What a write changes."""
    if "whyNothingChanges" in operation:
        return [f"No read shows a change: {operation['whyNothingChanges']}"]
    lines = []
    for change in operation.get("changes", []):
        owner, read = change["read"].split(".")
        lines.append(f"Changes: {change['kind']}, see {owner.lower()}.{snake_case(read)}().")
    return lines


def documentation(operation: dict[str, Any]) -> str:
    """The lines of the documentation of a method."""
    paragraphs = [operation["summary"]]
    arguments = [describe_argument(argument) for argument in operation["arguments"]]
    if arguments:
        paragraphs.append("Arguments:\n" + "\n".join("    " + line for line in arguments))
    paragraphs.extend(["\n".join(effect_of(operation))] if effect_of(operation) else [])
    paragraphs.append(f"Command {operation['code']}. Raises Failure.")
    text = "\n\n".join(paragraphs)
    return textwrap.indent(f'"""{text}\n"""', "        ")


def parameter(argument: Schema) -> str:
    """An argument in the signature."""
    kind = type_of(argument["schema"], sequence="Sequence", module="records.")
    default = f" = {argument['default']}" if "default" in argument else ""
    return f"{snake_case(argument['name'])}: {kind}{default}"


def method(operation: dict[str, Any], style: str) -> str:
    """A method with its documentation."""
    member = operation["name"].split(".")[1]
    parameters = ", ".join(["self"] + [parameter(argument) for argument in operation["arguments"]])
    answer = type_of(operation["answer"], module="records.") if "answer" in operation else "None"
    is_async = style == "asyncio"
    names = [f'"{operation["name"]}"'] + [snake_case(argument["name"]) for argument in operation["arguments"]]
    call = ("await " if is_async else "") + f"self._call({', '.join(names)})"
    if answer == "Any":
        body = f"return {call}"
    elif answer == "None":
        body = call
    else:
        body = f'return cast("{answer}", {call})'
    head = f"    {'async ' if is_async else ''}def {snake_case(member)}({parameters}) -> {answer}:"
    return "\n".join([head, documentation(operation), "        " + body])


def text_of(operations: list[dict[str, Any]], style: str) -> str:
    """The module."""
    parts = [HEADS[style]]
    owners = dict.fromkeys(operation["name"].split(".")[0] for operation in operations)
    for owner in owners:
        methods = [method(operation, style) for operation in operations if operation["name"].startswith(owner + ".")]
        head = f'class {owner}Operations(Operations):\n    """Operations of the class {owner}."""\n'
        parts.append("\n\n".join([head.rstrip("\n")] + methods) + "\n")
    return "\n\n".join(parts)
