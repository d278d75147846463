#!/usr/bin/env python3
"""layers.py: checks the includes between folders against the table of rooms in docs/architecture.md.

A room may include what its row names, and every row names only rooms further down. A name that no include
needs is an error too, so that the table stays true.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLE = ROOT / "docs/architecture.md"
ROW = re.compile(r"^\| `([\w/]+)/` \| ([^|]*) \|", re.MULTILINE)
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def files_of(room):
    return [file for file in (ROOT / room).iterdir() if file.suffix in (".h", ".cpp", ".inc", ".idl", ".rc")]


def main():
    allowed = {room: re.findall(r"`([\w/]+)`", uses) for room, uses in ROW.findall(TABLE.read_text())}
    order = list(allowed)
    errors = [f"{TABLE.name}: {room} uses {use}, which does not stand below it" for room in order
              for use in allowed[room] if use not in order[order.index(room) + 1:]]
    if not order:
        errors.append(f"{TABLE.name}: there is no table of rooms")

    for folder in {file.parent for top in {room.split("/")[0] for room in order} for file in (ROOT / top).rglob("*.cpp")}:
        if str(folder.relative_to(ROOT)) not in allowed:
            errors.append(f"{folder.relative_to(ROOT)} is not a room of {TABLE.name}")

    for room in order:
        unused = set(allowed[room])
        for file in files_of(room):
            for included in INCLUDE.findall(file.read_text()):
                other = str(pathlib.PurePosixPath(included).parent)
                if other not in allowed or other == room:
                    continue
                unused.discard(other)
                if other not in allowed[room]:
                    errors.append(f"{file.relative_to(ROOT)} includes {included}: {room} does not use {other}")
        errors += [f"{TABLE.name}: {room} does not need {use}" for use in sorted(unused)]
    print("\n".join(errors) or f"{len(order)} rooms, every include points down")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
