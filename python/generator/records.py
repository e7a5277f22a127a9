"""Writes the types of the records: one TypedDict for each definition."""

from __future__ import annotations

import keyword

from names import Schema, record_name, type_of

HEAD = '''"""The records that a device exchanges, as types of dictionaries. Generated from the table of operations.

A dictionary that a program passes may lack keys: these are sent with their defaults, which the comments show. A
dictionary that a device returns has all keys.
"""

from typing import TypedDict
'''


def comment_of(schema: Schema) -> str:
    """Range and default of a number, default of a text."""
    if schema.get("enum") == [0, 1]:
        words = ["0 or 1"]
    elif "minimum" in schema:
        words = [f"{schema['minimum']} to {schema['maximum']}"]
    else:
        words = []
    if schema.get("default") not in (None, [], {}):
        words.append(f"default {schema['default']!r}" if not isinstance(schema["default"], dict) else "")
    text = ", ".join(word for word in words if word)
    return f"  # {text}" if text else ""


def class_of(definition: str, schema: Schema) -> str:
    """The class of one record."""
    lines = [f"class {record_name(definition)}(TypedDict, total=False):"]
    for key in schema["required"]:
        field = schema["properties"][key]
        if keyword.iskeyword(key) or not key.isidentifier():
            raise ValueError(f'the key "{key}" of {definition} cannot be a member of a class')
        lines.append(f"    {key}: {type_of(field)}{comment_of(field)}")
    return "\n".join(lines)


def in_order(definitions: dict[str, Schema]) -> list[str]:
    """The definitions, each after those that it refers to."""
    ordered: list[str] = []

    def add(name: str) -> None:
        if name in ordered:
            return
        for field in definitions[name]["properties"].values():
            while "items" in field:
                field = field["items"]
            if "$ref" in field:
                add(field["$ref"].removeprefix("#/$defs/"))
        ordered.append(name)

    for name in sorted(definitions):
        add(name)
    return ordered


def text_of(definitions: dict[str, Schema]) -> str:
    """The module."""
    names = [record_name(name) for name in definitions]
    repeated = {name for name in names if names.count(name) > 1}
    if repeated:
        raise ValueError(f"several records have the name {', '.join(sorted(repeated))}")
    classes = [class_of(name, definitions[name]) for name in in_order(definitions)]
    return "\n\n".join([HEAD] + [text + "\n" for text in classes])
