"""validate.py FOLDER: checks documents against the definitions of FOLDER/tavoroctl.json.

Each line of the input is the name of a definition, a tab and a document. Prints each fault.
"""

import json
import pathlib
import sys
import warnings

warnings.simplefilter("ignore", DeprecationWarning)
import jsonschema


def main():
    folder = pathlib.Path(sys.argv[1])
    schemas = {name: json.loads((folder / name).read_text()) for name in ("tavoroctl.json", "records.json")}
    resolver = jsonschema.RefResolver("tavoroctl.json", schemas["tavoroctl.json"], store=schemas)
    count = 0
    for line in sys.stdin:
        name, document = line.rstrip("\n").split("\t", 1)
        schema = {"$ref": "tavoroctl.json#/$defs/" + name}
        validator = jsonschema.Draft202012Validator(schema, resolver=resolver)
        for fault in validator.iter_errors(json.loads(document)):
            print(f"{name}: {fault.json_path}: {fault.message[:300]}")
        count += 1
    print(f"{count} documents")


main()
