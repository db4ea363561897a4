#!/usr/bin/python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""MutantsTests.py <root of the project> <C++ compiler>: Scripts/Mutants.py finds each kind of fault in a small source and
nothing where only the compiler looks; what it writes compiles, says what the source says while no fault is switched on,
and something else with each; and the file of judgements is read as it is written."""

import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(sys.argv[1]).resolve()
SUPPORT = ROOT / "Scripts/Mutants"
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / "Scripts"), str(SUPPORT)]

import Mutants  # noqa: E402
import MutantSources  # noqa: E402

SOURCE = """// The first line is a comment.
#include <cstdio>
#define TWICE(theNumber) ((theNumber) * 2)
constexpr int kSize = 4;
static_assert(kSize == 4);
int gTable[3] = {7, 8, 9};
template <int kNumber> int Constant() { return kNumber; }
void Print(int theNumber) { std::printf("%d ", theNumber); }
int Count(int theNumber) // "+"
{
    int theSum = Constant<4>();
    for (int i = 0; i < theNumber; ++i) {
        theSum += i;
    }
    if (theSum > 6 && theNumber !=
        5) {
        Print(theSum);
    }
    switch (theNumber) {
    case 4:
        return -theSum;
    default:
        return TWICE(theSum + 1);
    }
}
bool IsOdd(int theNumber) { return !(theNumber % 2 == 0); }
int main() { for (int i = 0; i < 7; i += 2) { Print(Count(i) + (IsOdd(i + i / 4) ? 100 : 'a')); } }
"""

# Every fault outside of main: the line, what stands there and what becomes of it.
EXPECTED = [
    (7, "return kNumber;", "return {};"),
    (8, 'std::printf("%d ", theNumber);', "(nothing)"),
    (12, "i < theNumber", "false"),
    (12, "i < theNumber", "i <= theNumber"),
    (12, "0", "1"),
    (13, "theSum += i;", "(nothing)"),
    (13, "theSum += i", "theSum -= i"),
    (15, "theSum > 6 && theNumber != 5", "true"),
    (15, "theSum > 6 && theNumber != 5", "false"),
    (15, "theSum > 6 && theNumber != 5", "theSum > 6"),
    (15, "theSum > 6 && theNumber != 5", "theNumber != 5"),
    (15, "theSum > 6", "theSum >= 6"),
    (15, "6", "7"),
    (16, "5", "6"),
    (17, "Print(theSum);", "(nothing)"),
    (21, "return -theSum;", "return {};"),
    (21, "-theSum", "theSum"),
    (23, "return TWICE(theSum + 1);", "return {};"),
    (26, "return !(theNumber % 2 == 0);", "return true;"),
    (26, "return !(theNumber % 2 == 0);", "return false;"),
    (26, "theNumber % 2 == 0", "theNumber % 2 != 0"),
    (26, "theNumber % 2", "theNumber * 2"),
    (26, "2", "3"),
    (26, "0", "1"),
]

# Those that this program does not show, because of the numbers that it counts with.
UNSEEN = [
    (12, "0", "1"),
    (15, "theSum > 6 && theNumber != 5", "theSum > 6"),
    (15, "theSum > 6", "theSum >= 6"),
    (15, "6", "7"),
]

JUDGEMENTS = """# A comment.

Source/Core/LmThing.cpp LmThing::Add
- theCount > 0
+ theCount >= 0
- @2 theCount > 0
+ true
= Nothing is added
= either way.
Source/Core/LmThing.cpp
- 1
+ 0
~ A reason
~ of another kind.
"""

gFailures = []


def expect(what, expected, found):
    if expected != found:
        gFailures.append(f"{what}: expected\n  {expected}\nand not\n  {found}")


def try_source(folder):
    path = folder / "Sample.cpp"
    path.write_text(SOURCE)
    finder = MutantSources.Finder(str(folder), lambda name: name == "Sample.cpp")
    expect("errors", [], finder.read(str(path), ["-std=c++17"]))
    source = finder.files["Sample.cpp"]
    mutants = source.mutants()
    found = [(m.line, m.before, m.after) for m in mutants]
    expect("faults", sorted(EXPECTED), sorted(fault for fault in found if fault[0] < 27))
    if len(found) == len(EXPECTED):
        gFailures.append("no fault in main")
    for number, mutant in enumerate(mutants, 1):
        mutant.number = number
    text = source.rewritten(mutants, set())
    expect("lines", SOURCE.count("\n"), text.count("\n"))
    written = folder / "Written.cpp"
    written.write_text(f'#include "{SUPPORT}/LmMutant.h"' + text[text.index("\n") :])
    program = folder / "program"
    subprocess.run([sys.argv[2], "-std=c++17", "-w", "-o", program, written, SUPPORT / "LmMutant.cpp"], check=True)

    def printed(number):
        result = subprocess.run(
            [program], env={"LM_MUTANT": str(number)}, stdout=subprocess.PIPE, timeout=60, check=False
        )
        return result.returncode, result.stdout

    usual = printed(0)
    expect("what is printed without a fault", (0, b"107 109 10 90 19 140 "), usual)
    expect(
        "faults that are not seen",
        UNSEEN,
        [(m.line, m.before, m.after) for m in mutants if m.line < 27 and printed(m.number) == usual],
    )


def try_judgements(folder):
    path = folder / "Judged.txt"
    path.write_text(JUDGEMENTS)
    thing, add = "Source/Core/LmThing.cpp", "LmThing::Add"
    expect(
        "judgements",
        {
            (thing, add, "theCount > 0", "theCount >= 0", 1): "Nothing is added either way.",
            (thing, add, "theCount > 0", "true", 2): "Nothing is added either way.",
            (thing, "", "1", "0", 1): "A reason of another kind.",
        },
        Mutants.Judgements(path).reasons,
    )
    expect(
        "judgements that say that nothing can be told apart",
        {(thing, add, "theCount > 0", "theCount >= 0", 1), (thing, add, "theCount > 0", "true", 2)},
        Mutants.Judgements(path).same,
    )
    row = {"room": "Source/Core", "mutants": 10, "killed": 7, "survived": 3, "same": 2, "judged": 1}
    expect("how much was killed", [87.5, 87.5], [r["percent"] for r in Mutants.with_all([row])])


with tempfile.TemporaryDirectory() as theFolder:
    try_source(Path(theFolder))
    try_judgements(Path(theFolder))
print("\n".join(gFailures) or "All as expected.")
sys.exit(1 if gFailures else 0)
