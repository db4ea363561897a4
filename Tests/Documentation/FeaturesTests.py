#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""FeaturesTests.py <root of the project>: each feature that Documentation/Features.md says there is, is shown by a test
or an example that there is, and each class and function of the project that it names is in a header."""

import pathlib
import re
import sys

kTest = re.compile(r"^TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", re.MULTILINE)
kShownBy = "shown by"


def cases(root):
    """Each case as ctest names it in a build for debugging: core.LmValue.ANumberIsANumber."""
    names = set()
    for file in (root / "Tests").rglob("*Tests.cpp"):
        folder = file.relative_to(root / "Tests").parts[0].lower()
        names.update(f"{folder}.{suite}.{case}" for suite, case in kTest.findall(file.read_text()))
    return names


def rows(page):
    """The cells of each row of a table, with those of its head."""
    head = None
    for number, line in enumerate(page.splitlines(), 1):
        if not line.startswith("|"):
            head = None
            continue
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        if head is None:
            head = cells
        elif set(line) - set("|-"):
            yield number, dict(zip(head, cells))


def main():
    root = pathlib.Path(sys.argv[1])
    page = root / "Documentation/Features.md"
    headers = "".join(file.read_text() for folder in ("Source", "Platform") for file in (root / folder).rglob("*.h"))
    known = cases(root)
    complaints = []
    shown = 0
    for number, row in rows(page.read_text()):
        if kShownBy not in row:
            continue
        shown += 1
        tests = re.findall(r"`([^`]+)`", row[kShownBy])
        examples = re.findall(r"\]\(([^)]+)\)", row[kShownBy])
        if not tests and not examples:
            complaints.append(f"{number}: nothing shows it")
        complaints += [f"{number}: there is no test {name}" for name in tests if name not in known]
        complaints += [f"{number}: there is no example {name}" for name in examples
                       if not (page.parent / name).is_file()]
        for name in re.findall(r"`([^`]+)`", row["LmBindings"]):
            complaints += [f"{number}: no header has {part}" for part in re.findall(r"\b(?:[A-Z]|k[A-Z])\w+", name)
                           if not re.search(rf"\b{part}\b", headers)]
    print(*(f"{page.name}:{text}" for text in complaints), f"{shown} features, {len(complaints)} complaints", sep="\n")
    return 1 if complaints or shown == 0 else 0


sys.exit(main())
