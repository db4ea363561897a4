#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""Finds the examples in the comments of headers and in the documents, and makes test programs of them.

An example is a block of lines that stand four columns further in than the text around them, in a comment of a
header; or an indented or fenced block of a Markdown document. The blocks of a file are numbered from 1.

What an example leaves out (the window, the model, an observer) is supplied by its fixture, a C++ file called
Fixtures/<file>.cpp, such as Fixtures/LmValue.h.cpp. These lines in it stand for the blocks:

    // @code 1              the lines of block 1
    // @left 1              what stands in the first column of block 1, a table, as code
    // @rows 1              the rows of block 1, each as {"column", "column"},
    // @text 1              the lines of block 1 as a string literal
    // @file 1 <path>       nothing; the lines of block 1 must stand in this file of the project, in one place
    // @run 1 <test>        nothing; this test runs the commands of block 1
    // @shell 1 <reason>    nothing; the commands of block 1 are not run, for this reason, but the programs,
                            presets and options that they name are there
    // @prose 1 <reason>    nothing; there is nothing to run in block 1, for this reason
    // @table <heading>     the rows of the table under this heading of a document, each as {"column", "column"},

    DocumentedExamples.py generate <root> <output> <fixture>...   writes one C++ file from these fixtures
    DocumentedExamples.py check <root> <fixtures>                 fails when a block is in no fixture
"""

import pathlib
import re
import sys

HEADER_FOLDERS = ["Source", "Platform", "Tools", "Examples", "Tests", "Benchmarks"]
DIRECTIVE = re.compile(r"^\s*// @(code|left|rows|text|file|run|shell|prose) (\d+)(?: (.+))?$")
TABLE = re.compile(r"^\s*// @table (.+)$")


class Block:
    def __init__(self, line):
        self.line = line  # the number of its first line
        self.lines = []

    def trimmed(self):
        while self.lines and not self.lines[-1].strip():
            self.lines.pop()
        theIndent = min(len(l) - len(l.lstrip()) for l in self.lines if l.strip())
        return [l[theIndent:].rstrip() for l in self.lines]

    def rows(self):
        """The columns of a table. A line that begins further in goes on with the last column."""
        theRows = []
        for theLine in self.trimmed():
            if theLine.startswith(" ") and theRows:
                theRows[-1][-1] += " " + theLine.strip()
            elif theLine:
                theRows.append(re.split(r" {2,}", theLine))
        return theRows


def collect(lines, is_example):
    """Blocks of neighbouring lines; an empty line inside of one belongs to it."""
    theBlocks = []
    theBlock = None
    theGap = 0
    for theNumber, theLine in enumerate(lines, 1):
        theText = is_example(theLine)
        if theText is None:
            theBlock = None
        elif not theText.strip():
            theGap += 1
        else:
            if theBlock is None:
                theBlock = Block(theNumber)
                theBlocks.append(theBlock)
                theGap = 0
            theBlock.lines += [""] * theGap + [theText]
            theGap = 0
    return theBlocks


def header_blocks(text):
    def is_example(line):
        theMatch = re.match(r"\s*//(.*)$", line)
        if not theMatch:
            return None
        theText = theMatch.group(1)
        return theText if not theText.strip() or theText.startswith("     ") else None

    return collect(text.split("\n"), is_example)


def document_blocks(text):
    """Fenced blocks, and indented ones that do not belong to a list."""
    theBlocks = []
    thePlain = []
    theFence = None
    isInList = False
    for theNumber, theLine in enumerate(text.split("\n"), 1):
        if theLine.startswith("```"):
            if theFence is None:
                theFence = Block(theNumber + 1)
                theBlocks.append(theFence)
            else:
                theFence = None
            thePlain.append("-")
            continue
        if theFence is not None:
            theFence.lines.append(theLine)
            thePlain.append("-")
            continue
        if theLine.strip():
            if re.match(r"([-*]|\d+\.) ", theLine):
                isInList = True
            elif not theLine.startswith(" "):
                isInList = False
        thePlain.append("-" if isInList else theLine)

    def is_example(line):
        return line if not line.strip() or line.startswith("    ") else None

    return sorted(theBlocks + collect(thePlain, is_example), key=lambda theBlock: theBlock.line)


def table_rows(text, heading):
    """The columns of the rows of the first table under a heading, without its head. None where there is none."""
    theMatch = re.search(rf"^#+ {re.escape(heading)}$\n(.*?)(?=^#|\Z)", text, re.M | re.S)
    theTable = theMatch and re.search(r"(?:^\|.*\|$\n?)+", theMatch.group(1), re.M)
    if not theTable:
        return None
    theLines = theTable.group(0).rstrip("\n").split("\n")
    return [[column.strip() for column in line.strip("|").split("|")] for line in theLines[2:]]


def documented_files(root):
    for theFolder in HEADER_FOLDERS:
        yield from sorted((root / theFolder).rglob("*.h"))
    yield from sorted(
        thePath
        for thePath in root.rglob("*.md")
        if not any(part == "Build" or part.startswith(".") for part in thePath.relative_to(root).parts)
    )


def blocks_of(path):
    theText = path.read_text(encoding="utf-8")
    return header_blocks(theText) if path.suffix == ".h" else document_blocks(theText)


def fixture_name(root, path):
    """Headers go by their name alone, wherever they stand; documents of one name by their folder too."""
    if path.suffix == ".h":
        return path.name + ".cpp"
    return "-".join(path.relative_to(root).parts) + ".cpp"


def find_document(root, fixture):
    theFound = [
        path for path in documented_files(root) if fixture_name(root, path) == fixture.name and blocks_of(path)
    ]
    if len(theFound) != 1:
        sys.exit(f"{fixture}: there are {len(theFound)} files of that name with examples")
    return theFound[0]


def literal(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def code_of(block, path):
    return [f'#line {block.line} "{path}"'] + block.trimmed()


def left_of(block, path):
    theLines = []
    for theNumber, theRow in enumerate(block.rows()):
        theLines += [f'#line {block.line + theNumber} "{path}"', theRow[0]]
    return theLines


def literal_rows(rows):
    return ["{" + ", ".join(literal(column) for column in row) + "}," for row in rows]


def rows_of(block):
    return literal_rows(block.rows())


def table_of(path, heading, place):
    theRows = table_rows(path.read_text(encoding="utf-8"), heading)
    if not theRows:
        sys.exit(f"{place}: {path.name} has no table under the heading {heading}")
    return literal_rows(theRows)


def text_of(block):
    return [literal(line + "\n").replace("\n", "\\n") for line in block.trimmed()]


def expand(root, fixture):
    """The includes of a fixture, and its other lines with the blocks in their places."""
    thePath = find_document(root, fixture)
    theBlocks = blocks_of(thePath)
    theName = thePath.relative_to(root)
    theFixtureName = fixture.relative_to(root)
    theIncludes = []
    theLines = [f'#line 1 "{theFixtureName}"']
    for theNumber, theLine in enumerate(fixture.read_text(encoding="utf-8").rstrip("\n").split("\n"), 1):
        theMatch = DIRECTIVE.match(theLine)
        if theLine.startswith("#include"):
            theIncludes.append(theLine)
            theLines.append("")
            continue
        if theTable := TABLE.match(theLine):
            theLines += table_of(thePath, theTable.group(1), f"{theFixtureName}:{theNumber}")
            theLines.append(f'#line {theNumber + 1} "{theFixtureName}"')
            continue
        if not theMatch:
            theLines.append(theLine)
            continue
        theKind, theIndex = theMatch.group(1), int(theMatch.group(2))
        if theIndex > len(theBlocks):
            sys.exit(f"{theFixtureName}:{theNumber}: {theName} has {len(theBlocks)} examples")
        theBlock = theBlocks[theIndex - 1]
        if theKind == "code":
            theLines += code_of(theBlock, theName)
        elif theKind == "left":
            theLines += left_of(theBlock, theName)
        elif theKind == "rows":
            theLines += rows_of(theBlock)
        elif theKind == "text":
            theLines += text_of(theBlock)
        theLines.append(f'#line {theNumber + 1} "{theFixtureName}"')
    return theIncludes, theLines


def generate(root, output, fixtures):
    theIncludes = []
    theBody = []
    for theFixture in fixtures:
        theMore, theLines = expand(root, theFixture)
        theIncludes += [line for line in theMore if line not in theIncludes]
        theBody += ["namespace In_" + re.sub(r"\W", "_", theFixture.stem) + " {"] + theLines + ["}"]
    theSystem = sorted(line for line in theIncludes if "<" in line)
    theOwn = sorted(line for line in theIncludes if "<" not in line)
    output.write_text("\n".join(theOwn + theSystem + theBody) + "\n", encoding="utf-8")


def stands_in(block, path):
    theWanted = [line.strip() for line in block.trimmed()]
    theText = [line.strip() for line in path.read_text(encoding="utf-8").split("\n")]
    return any(theText[start : start + len(theWanted)] == theWanted for start in range(len(theText)))


def names_of_tests(root):
    """What the scripts of CMake call their tests, and ./check its steps."""
    theNames = set()
    for thePath in [*root.rglob("CMakeLists.txt"), *root.glob("CMake/*.cmake")]:
        theNames.update(re.findall(r"add_test\(\s*NAME\s+([\w.]+)", thePath.read_text(encoding="utf-8")))
    theCheck = root / "check"
    if theCheck.exists():
        theNames.update(re.findall(r"^\s*(?:step|flavour) (\w+)", theCheck.read_text(encoding="utf-8"), re.M))
    return theNames


def missing_from_command(root, words):
    """What a command names that the project does not have, or None."""
    theProgram = words[0]
    theText = ""
    if theProgram in ("cmake", "ctest"):
        theText = (root / "CMakeLists.txt").read_text(encoding="utf-8")
        thePresets = re.findall(r'"name": "([^"]+)"', (root / "CMakePresets.json").read_text(encoding="utf-8"))
        if "--preset" in words and words[words.index("--preset") + 1] not in thePresets:
            return "preset " + words[words.index("--preset") + 1]
        theOptions = [word[2:].split("=")[0] for word in words if word.startswith("-D")]
    elif "/" in theProgram and not theProgram.startswith("Build/"):
        if not (root / theProgram).is_file():
            return theProgram
        theText = (root / theProgram).read_text(encoding="utf-8")
        theOptions = [word for word in words if word.startswith("--")]
    else:
        theOptions = []
    return next((option for option in theOptions if option not in theText), None)


def missing_from_shell(root, block):
    for theLine in block.trimmed():
        for theCommand in re.split(r"&&|;", re.split(r"(?:^|\s)#", theLine)[0]):
            if theCommand.strip() and (theMissing := missing_from_command(root, theCommand.split())):
                return theMissing
    return None


def complaint_about(root, block, kind, argument, tests):
    if kind == "file" and not ((root / argument).is_file() and stands_in(block, root / argument)):
        return f"does not stand in {argument}"
    if kind == "run" and argument not in tests:
        return f"is said to be run by {argument}, which is no test"
    if kind == "shell" and (theMissing := missing_from_shell(root, block)):
        return f"names what is not there: {theMissing}"
    if kind in ("shell", "prose") and not argument:
        return "is left out without a reason"
    return None


def check(root, fixtures):
    theComplaints = []
    theTests = names_of_tests(root)
    theCount = 0
    theNames = set()
    for thePath in documented_files(root):
        theBlocks = blocks_of(thePath)
        if not theBlocks:
            continue
        theUses = {}
        theFixture = fixtures / fixture_name(root, thePath)
        if theFixture.name in theNames:
            theComplaints.append(f"{thePath.relative_to(root)} is not the only file of that name with examples")
        theNames.add(theFixture.name)
        if theFixture.exists():
            for theLine in theFixture.read_text(encoding="utf-8").split("\n"):
                if theMatch := DIRECTIVE.match(theLine):
                    theUses[int(theMatch.group(2))] = (theMatch.group(1), theMatch.group(3))
        for theIndex, theBlock in enumerate(theBlocks, 1):
            theCount += 1
            thePlace = f"{thePath.relative_to(root)}:{theBlock.line}: example {theIndex}"
            if theIndex not in theUses:
                theComplaints.append(f"{thePlace} is checked by nothing; it belongs into {theFixture.name}")
            elif theText := complaint_about(root, theBlock, *theUses[theIndex], theTests):
                theComplaints.append(f"{thePlace} {theText}")
    for theFixture in sorted(fixtures.glob("*.cpp")):
        if theFixture.name not in theNames:
            theComplaints.append(f"{theFixture.name} is the fixture of no file with examples")
    for theComplaint in theComplaints:
        print(theComplaint)
    print(f"{theCount} examples, {len(theComplaints)} complaints")
    return 1 if theComplaints or theCount == 0 else 0


def main(arguments):
    theRoot = pathlib.Path(arguments[2]).resolve()
    if arguments[1] == "generate":
        generate(theRoot, pathlib.Path(arguments[3]), [pathlib.Path(name).resolve() for name in arguments[4:]])
        return 0
    return check(theRoot, pathlib.Path(arguments[3]).resolve())


if __name__ == "__main__":
    sys.exit(main(sys.argv))
