#!/usr/bin/env python3
"""Prints base/letter_case_ranges.inc from the Unicode data of this Python."""
import unicodedata

# The full mapping of this one letter is two characters; the simple one is the first of them.
CAPITAL_I_WITH_DOT = 0x0130


def lower(code):
    if 0xD800 <= code <= 0xDFFF:
        return code
    mapped = chr(code).lower()
    if code == CAPITAL_I_WITH_DOT:
        mapped = mapped[0]
    return ord(mapped) if len(mapped) == 1 and ord(mapped) <= 0xFFFF else code


def ranges():
    found = []
    for code in range(0x10000):
        to = lower(code)
        if to == code:
            continue
        if found:
            first, last, target, step = found[-1]
            gap = code - last
            goes_on = gap <= 2 if first == last else gap == step
            if goes_on and to - target == code - first:
                found[-1] = (first, code, target, gap)
                continue
        found.append((code, code, to, 1))
    return found


print(f"// Simple lower-case forms of one UTF-16 unit, Unicode {unicodedata.unidata_version}.")
print("// Made by tools/letter_case_ranges.py: first, last, lower-case form of the first, step.")
rows = ["{0x%04X, 0x%04X, 0x%04X, %d}," % row for row in ranges()]
for start in range(0, len(rows), 3):
    print(" ".join(rows[start : start + 3]))
