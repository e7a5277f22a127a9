"""Writes the operations as methods, for programs that block and for asyncio."""

from __future__ import annotations

import textwrap
from typing import Any

from names import Schema, argument_name, record_name, snake_case, type_of

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


NOTES = {
    "device_filter": "; what it selects depends on the device",
    "scene_type": "; 2: preview, 4: programme",
}


def describe_number(argument: Schema) -> str:
    """The range of a number, the value that reads all objects, and what is special."""
    schema = argument["schema"]
    every = f"; {argument['default']} for all" if "default" in argument else ""
    return f"{argument['name']}: {schema['minimum']} to {schema['maximum']}{every}{NOTES.get(argument['name'], '')}"


def describe_record(argument: Schema, definitions: dict[str, Schema]) -> str:
    """The type of a record, or of a list of records, and its keys."""
    schema = argument["schema"]
    every = schema.get("items", schema)
    definition = every["$ref"].removeprefix("#/$defs/")
    head = "list of " if "items" in schema else ""
    keys = ", ".join(definitions[definition]["required"])
    return f"{argument['name']}: {head}records.{record_name(definition)} with the keys {keys}"


def describe_argument(argument: Schema, definitions: dict[str, Schema]) -> str:
    """What the documentation of a method says about an argument."""
    return describe_number(argument) if "minimum" in argument["schema"] else describe_record(argument, definitions)


def effect_of(operation: dict[str, Any]) -> list[str]:
    """What a write changes."""
    if "whyNothingChanges" in operation:
        return [f"No read shows a change: {operation['whyNothingChanges']}"]
    lines = []
    for change in operation.get("changes", []):
        owner, read = change["read"].split(".")
        lines.append(f"Changes: {change['kind']}, see {owner.lower()}.{snake_case(read)}().")
    return lines


def documentation(operation: dict[str, Any], definitions: dict[str, Schema]) -> str:
    """The lines of the documentation of a method."""
    paragraphs = [operation["summary"]]
    arguments = [describe_argument(argument, definitions) for argument in operation["arguments"]]
    if arguments:
        paragraphs.append("Arguments:\n" + "\n".join("    " + line for line in arguments))
    paragraphs.extend(["\n".join(effect_of(operation))] if effect_of(operation) else [])
    paragraphs.append(f"Command {operation['code']}. Raises Failure, or ValueError if an argument is not valid.")
    text = "\n\n".join(paragraphs)
    return textwrap.indent(f'"""{text}\n"""', "        ")


def parameter(argument: Schema) -> str:
    """An argument in the signature."""
    kind = type_of(argument["schema"], sequence="Sequence", module="records.")
    default = f" = {argument['default']}" if "default" in argument else ""
    return f"{argument['name']}: {kind}{default}"


def method(operation: dict[str, Any], definitions: dict[str, Schema], style: str) -> str:
    """A method with its documentation."""
    member = operation["name"].split(".")[1]
    parameters = ", ".join(["self"] + [parameter(argument) for argument in operation["arguments"]])
    answer = type_of(operation["answer"], module="records.") if "answer" in operation else "None"
    is_async = style == "asyncio"
    names = [f'"{operation["name"]}"'] + [argument["name"] for argument in operation["arguments"]]
    call = ("await " if is_async else "") + f"self._call({', '.join(names)})"
    if answer == "Any":
        body = f"return {call}"
    elif answer == "None":
        body = call
    else:
        body = f'return cast("{answer}", {call})'
    head = f"    {'async ' if is_async else ''}def {snake_case(member)}({parameters}) -> {answer}:"
    return "\n".join([head, documentation(operation, definitions), "        " + body])


def with_names(operation: dict[str, Any]) -> dict[str, Any]:
    """The operation, with the arguments as Python names them."""
    arguments = [
        {**argument, "name": argument_name(operation["name"], argument["name"])} for argument in operation["arguments"]
    ]
    return {**operation, "arguments": arguments}


def text_of(table: list[dict[str, Any]], definitions: dict[str, Schema], style: str) -> str:
    """The module."""
    operations = [with_names(operation) for operation in table]
    parts = [HEADS[style]]
    owners = dict.fromkeys(operation["name"].split(".")[0] for operation in operations)
    for owner in owners:
        members = [operation for operation in operations if operation["name"].startswith(owner + ".")]
        methods = [method(operation, definitions, style) for operation in members]
        head = f'class {owner}Operations(Operations):\n    """Operations of the class {owner}."""\n'
        parts.append("\n\n".join([head.rstrip("\n")] + methods) + "\n")
    return "\n\n".join(parts)
