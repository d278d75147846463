#!/usr/bin/env python3
"""callbacks.py: checks that no exception leaves a function that the system calls: on 32 bits it could not pass
the system's frames and would end the program.

A callback is a function declared CALLBACK, or one that is given to a function of the system which calls it. It is
noexcept, and either catches everything (`catch (...)`, `walled(`) or calls nothing but the system.
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
# Nothing of these runs in a host program.
OTHERS = ("tests/", "tools/", "bench/", "clients/")
CALLBACK = re.compile(r"\bCALLBACK\s+(?:\w+::)*(\w+)\s*\(")
# Functions of the system that call what they are given, and members of its structures that hold a function.
GIVEN = re.compile(r"\b(?:SetWindowSubclass|Enum\w+|SetWindowsHookEx\w*|SetWinEventHook|SetTimer|DialogBox\w*|"
                   r"CreateDialog\w*|CreateThread|ListView_SortItems\w*)\s*\(")
HELD = re.compile(r"\blpfn\w*\s*=\s*&?((?:\w+::)*\w+)")
CAST = re.compile(r"\w+_cast<[^>]*>\([^()]*\)")
COMMENT = re.compile(r"//[^\n]*")
NO_CALL = {"if", "while", "for", "switch", "return"}


def closing(text, start, opened, closed):
    """The position after the bracket that closes the one at `start`."""
    depth = 0
    for at in range(start, len(text)):
        depth += (text[at] == opened) - (text[at] == closed)
        if depth == 0:
            return at + 1
    return len(text)


def is_of_system(name):
    return name[0].isupper()


def unwalled(body):
    """The first thing that a body without a wall calls beside the system; None for none."""
    if "catch (...)" in body or "walled(" in body:
        return None
    called = re.findall(r"(\w+)\s*\(", CAST.sub("", body))
    return next((name for name in called if name not in NO_CALL and not is_of_system(name)), None)


def errors_in(text, known):
    for found in CALLBACK.finditer(text):
        end = closing(text, found.end() - 1, "(", ")")
        attributes = re.compile(r"[^;{]*").match(text, end)
        if "noexcept" not in attributes[0]:
            yield f"{found[1]} is not noexcept"
        if text[attributes.end():attributes.end() + 1] == "{":
            name = unwalled(text[attributes.end():closing(text, attributes.end(), "{", "}")])
            if name:
                yield f"{found[1]} calls {name} without a wall"
    handed = HELD.findall(text)
    for found in GIVEN.finditer(text):
        arguments = CAST.sub("", text[found.end():closing(text, found.end() - 1, "(", ")") - 1])
        handed += re.findall(r"&((?:\w+::)*\w+)\b(?!\.)", arguments)
    for name in {name.split("::")[-1] for name in handed}:
        if name not in known and not is_of_system(name):
            yield f"{name} is given to the system and not declared CALLBACK"


def main():
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.cpp", "*.h"],
                            cwd=ROOT, text=True, stdout=subprocess.PIPE, check=True).stdout.split()
    texts = {file: COMMENT.sub("", (ROOT / file).read_text()) for file in listed if not file.startswith(OTHERS)}
    known = {name for text in texts.values() for name in CALLBACK.findall(text)}
    errors = [f"{file}: {error}" for file, text in texts.items() for error in errors_in(text, known)]
    print("\n".join(errors) or f"{len(known)} names of callbacks: no exception leaves one")
    return 1 if errors or not known else 0


if __name__ == "__main__":
    sys.exit(main())
