"""Names of Python for the names of the table."""

from __future__ import annotations

import re
from typing import Any

Schema = dict[str, Any]

# fmt: off
ARGUMENT_NAMES = {
    # Names of the table that only count the filters of a read.
    ("Interface.readDetails", "first"):   "interface_type",
    ("Interface.readDetails", "second"):  "device_filter",
    ("Screen.readDetails",    "third"):   "device_filter",
    ("Layer.readDetails",     "third"):   "scene_type",
    ("Layer.readDetails",     "fourth"):  "layer_type",
}
# fmt: on


def snake_case(name: str) -> str:
    """writeFTB -> write_ftb, writeZOrder -> write_z_order."""
    words = re.sub(r"(.)([A-Z][a-z]+)", r"\1_\2", name)
    return re.sub(r"([a-z0-9])([A-Z])", r"\1_\2", words).lower()


def argument_name(operation: str, name: str) -> str:
    """The name of an argument of an operation: screenId -> screen_id."""
    return ARGUMENT_NAMES.get((operation, name), snake_case(name))


def record_name(definition: str) -> str:
    """Screen::s_SwitchEffect -> ScreenSwitchEffect, Screen::s_ScreenFullDetail -> ScreenFullDetail."""
    *domain, name = definition.split("::")
    name = name.removeprefix("s_")
    name = name[0].upper() + name[1:]
    prefix = "".join(domain)
    return name if name.startswith(prefix) else prefix + name


def type_of(schema: Schema, *, sequence: str = "list", module: str = "") -> str:
    """The annotation of a value with this JSON Schema."""
    if "$ref" in schema:
        return module + record_name(schema["$ref"].removeprefix("#/$defs/"))
    match schema.get("type"):
        case "integer":
            return "int"
        case "string":
            return "str"
        case "array":
            return f"{sequence}[{type_of(schema['items'], sequence=sequence, module=module)}]"
        case None:
            return "Any"
    raise ValueError(f"unknown schema: {schema}")
