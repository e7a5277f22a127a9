"""Writes the Python sources that follow from the table of operations: generate.py TABLE FOLDER"""

from __future__ import annotations

import json
import sys
from pathlib import Path

import methods
import records


def main(table_path: str, folder: str) -> None:
    """Writes all files of the folder."""
    table = json.loads(Path(table_path).read_text(encoding="utf-8"))
    operations, definitions = table["operations"], table["records"]["$defs"]
    package = Path(folder)
    texts = {
        package / "records.py": records.text_of(definitions),
        package / "operations.py": methods.text_of(operations, definitions, "blocking"),
        package / "aio" / "operations.py": methods.text_of(operations, definitions, "asyncio"),
    }
    for path, text in texts.items():
        path.parent.mkdir(exist_ok=True)
        path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
