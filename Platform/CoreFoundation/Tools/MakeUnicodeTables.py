#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""Writes Source/CFUnicodeTables.cpp from the Unicode data that Python has.

The tables cover the characters up to U+FFFF: strings are compared and mapped unit by unit.

    python3 Tools/MakeUnicodeTables.py >Source/CFUnicodeTables.cpp && clang-format -i Source/CFUnicodeTables.cpp
"""

import unicodedata

HEADER = """// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Made by Tools/MakeUnicodeTables.py from Unicode {version}; change that instead of this file.

#include "CFUnicode.h"
"""


def characters():
    """Every character of one unit that is not half of a surrogate pair."""
    return (chr(code) for code in range(0x10000) if not 0xD800 <= code <= 0xDFFF)


def runs(singles):
    """Joins (code, delta) pairs that follow each other at a distance of 1 or 2 into ranges."""
    ranges = []
    for code, delta in singles:
        if ranges:
            first, last, stride, last_delta = ranges[-1]
            step = code - last
            if delta == last_delta and step in (1, 2) and (stride == step or first == last):
                ranges[-1] = (first, code, step, delta)
                continue
        ranges.append((code, code, 1, delta))
    return ranges


def print_mapping(name, function):
    singles, expansions = [], []
    for character in characters():
        mapped = function(character)
        if mapped == character or any(ord(part) > 0xFFFF for part in mapped):
            continue
        if len(mapped) == 1:
            singles.append((ord(character), ord(mapped) - ord(character)))
        else:
            expansions.append((ord(character), mapped))
    print(f"\nstatic const Host::CaseRange k{name}Ranges[] = {{")
    print(", ".join(f"{{0x{a:04X}, 0x{b:04X}, {stride}, {delta}}}" for a, b, stride, delta in runs(singles)) + "};")
    print(f"\nstatic const Host::CaseExpansion k{name}Expansions[] = {{")
    rows = []
    for code, mapped in expansions:
        units = [f"0x{ord(part):04X}" for part in mapped] + ["0"] * (3 - len(mapped))
        rows.append(f"{{0x{code:04X}, {{{', '.join(units)}}}}}")
    print(", ".join(rows) + "};")
    print(f"\nconst Host::CaseMapping Host::k{name}Mapping = {{")
    print(f"std::begin(k{name}Ranges), std::end(k{name}Ranges),")
    print(f"std::begin(k{name}Expansions), std::end(k{name}Expansions)}};")


def print_decompositions():
    rows = []
    for character in characters():
        parts = unicodedata.decomposition(character).split()
        is_ideograph = 0xF900 <= ord(character) <= 0xFAFF
        if not parts or parts[0].startswith("<") or is_ideograph or any(len(part) > 4 for part in parts):
            continue
        second = parts[1] if len(parts) == 2 else "0000"
        rows.append(f"{{0x{ord(character):04X}, 0x{parts[0]}, 0x{second}}}")
    print("\nstatic const Host::Decomposition kDecompositions[] = {")
    print(", ".join(rows) + "};")
    print("\nconst Host::Decomposition* const Host::kFirstDecomposition = std::begin(kDecompositions);")
    print("const Host::Decomposition* const Host::kLastDecomposition = std::end(kDecompositions);")


def print_letters_with_case():
    ranges = []
    for character in characters():
        if unicodedata.category(character) in ("Lu", "Ll", "Lt"):
            code = ord(character)
            if ranges and ranges[-1][1] == code - 1:
                ranges[-1][1] = code
            else:
                ranges.append([code, code])
    print("\nstatic const Host::LetterRange kLetters[] = {")
    print(", ".join(f"{{0x{first:04X}, 0x{last:04X}}}" for first, last in ranges) + "};")
    print("\nconst Host::LetterRange* const Host::kFirstLetterWithCase = std::begin(kLetters);")
    print("const Host::LetterRange* const Host::kLastLetterWithCase = std::end(kLetters);")


def main():
    print(HEADER.format(version=unicodedata.unidata_version))
    print("#include <iterator>")
    print_mapping("Fold", str.casefold)
    print_mapping("Lower", str.lower)
    print_mapping("Upper", str.upper)
    print_mapping("Title", str.title)
    print_letters_with_case()
    print_decompositions()


main()
