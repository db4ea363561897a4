#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""WriteQuality.py [--tests | --check]: writes Documentation/Quality.md from the figures in Documentation/Quality.

  --tests   takes the counts of the last `./check --all` over first, which Build/check/counts holds
  --check   writes nothing; the status is 1 when the page is not what the figures say

Each file of figures is left there by the script that measured it, with date, commit and command. What nobody has
measured is said to be so.
"""

import datetime
import json
import pathlib
import subprocess
import sys

kRoot = pathlib.Path(__file__).resolve().parent.parent
kFigures = kRoot / "Documentation/Quality"
kPage = kRoot / "Documentation/Quality.md"
kCounts = kRoot / "Build/check/counts"
kMachines = {
    "sanitize": "x86-64, AddressSanitizer and UndefinedBehaviorSanitizer, with real windows",
    "release": "x86-64, optimised, with real windows",
    "i686": "32-bit Intel",
    "powerpc": "32-bit big-endian PowerPC, emulated",
}
kIntroduction = """# Quality

What has been measured of this project, by which command, and when. `Scripts/WriteQuality.py` writes this page from the
figures in `Documentation/Quality`, which the commands leave there. What the checks are for is in
[Testing.md](Testing.md).
"""


def Read(name):
    path = kFigures / f"{name}.json"
    return json.loads(path.read_text()) if path.exists() else None


def Source(figures):
    note = f" {figures['note']}" if "note" in figures else ""
    return f"`{figures['command']}`, {figures['date']}, commit {figures['commit']}.{note}"


def Table(heads, rows):
    line = "| " + " | ".join(heads) + " |"
    under = "|---|" + "---:|" * (len(heads) - 1)
    return "\n".join([line, under] + ["| " + " | ".join(row) + " |" for row in rows])


def Number(number):
    return f"{number:,}"


def Tests(figures):
    rows = [[kMachines.get(build, build)] + [Number(counts[key]) for key in ("passed", "failed", "skipped")]
            for build, counts in figures["builds"].items()]
    return Table(["tests on", "passed", "failed", "skipped"], rows)


def Mutants(figures):
    rows = [[f"`{row['room']}`" if row["room"] != "all" else "all", Number(row["mutants"]), Number(row["killed"]),
             Number(row["survived"]), Number(row["same"]), Number(row["judged"]), f"{row['percent']} %", row["commit"]]
            for row in figures["rooms"]]
    return ("Survivors that are the same do what the source does: nobody can tell them apart, and they are left out of how\n"
            "much of a hundred was killed. Each has its reason in [Judged.txt](../Tests/Mutants/Judged.txt), and so have those\n"
            "that were judged otherwise.\n\n" +
            Table(["room", "mutants", "killed", "survivors", "of these the same", "judged otherwise", "killed, %",
                   "commit"], rows))


def Coverage(figures):
    rows = [[f"`{row['room']}`", Number(row["lines"]), f"{row['linesPercent']} %", Number(row["branches"]),
             f"{row['branchesPercent']} %"] for row in figures["rooms"]]
    return (Table(["room", "lines", "executed", "branches", "taken"], rows) +
            f"\n\n{Number(figures['hostPlaces'])} lines of the host are not executed whole; "
            f"{Number(figures['hostPlacesJudged'])} of them were looked at, with the reason in "
            "[Judged.txt](../Tests/Coverage/Judged.txt).")


def Soak(figures):
    rows = [[what] + [Number(number) for number in figures[key]] for what, key in (
        ("bytes of the heap", "heap"), ("bytes resident", "resident"), ("open files", "files"),
        ("instructions of a window: of the 51st to 450th, of those up to the 850th", "instructions"))]
    return (f"One application, {Number(figures['windows'])} windows opened and closed, {Number(figures['changes'])} changes "
            "through controls, menus, windows and\npreferences; no line was printed that was not expected.\n\n" +
            Table(["", "after the first tenth", "at the end"], rows))


def Fuzzing(figures):
    rows = [[f"`{name}`", f"{target['processorSeconds'] / 60:.1f}", Number(target["executions"]),
             f"{Number(target['edgesReached'])} of {Number(target['edges'])}", Number(target["inputsKept"])]
            for name, target in sorted(figures["targets"].items())]
    return ("The edges are those of the whole program, most of which a target has nothing to do with. Every target that "
            "broke\nended its campaign, so none here did.\n\n" +
            Table(["target", "processor minutes", "executions", "edges reached", "inputs kept"], rows))


def Findings(figures):
    return f"{Number(figures['tests'])} tests of {Number(figures['programs'])} programs: " \
           f"{Number(figures['findings'])} findings."


def Instructions(figures):
    rows = [[row["name"], Number(row["start"]) if "start" in row else "", Number(row["now"])] for row in figures["rows"]]
    return Table(["instructions of one step", f"at {figures['startCommit']}", f"at {figures['commit']}"], rows)


def Windows(figures):
    names = [figures["base"]] + sorted({name for row in figures["rows"] for name in row["ratios"]} - {figures["base"]})
    rows = [[row["what"]] + [f"{row['ratios'][name]:.2f}" if name in row["ratios"] else "" for name in names]
            for row in figures["rows"] if row["ratios"]]
    return f"Multiples of {figures['base']}; how they were taken is in [Comparison.md](Comparison.md).\n\n" + \
        Table(["a window of 1,000 bound controls"] + names, rows)


def Chapter(title, figures, show):
    if figures is None:
        return f"\n## {title}\n\nNot measured yet in a way that is kept.\n"
    return f"\n## {title}\n\n{show(figures)}\n\n{Source(figures)}\n"


def Page():
    chapters = [
        ("Tests", Read("Tests"), Tests),
        ("Mutation testing", Read("Mutants"), Mutants),
        ("Coverage", Read("Coverage"), Coverage),
        ("Fuzzing", Read("Fuzzing"), Fuzzing),
        ("Under load", Read("Soak"), Soak),
        ("Faults between threads", Read("ThreadSanitizer"), Findings),
        ("Leaks and memory errors", Read("Valgrind"), Findings),
        ("Instructions", Read("Instructions"), Instructions),
        ("Windows beside other toolkits", (Read("Peers") or {}).get("windows"), Windows),
    ]
    return kIntroduction + "".join(Chapter(*chapter) for chapter in chapters)


def TakeTests():
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], cwd=kRoot, check=True, capture_output=True,
                            text=True).stdout.strip()
    builds = {}
    for line in kCounts.read_text().splitlines():
        build, passed, failed, skipped = line.split()
        builds[build] = {"passed": int(passed), "failed": int(failed), "skipped": int(skipped)}
    figures = {"command": "./check --all", "commit": commit, "date": datetime.date.today().isoformat(), "builds": builds}
    (kFigures / "Tests.json").write_text(json.dumps(figures, indent=4) + "\n")


def Main():
    arguments = sys.argv[1:]
    if arguments not in ([], ["--tests"], ["--check"]):
        sys.exit(__doc__.splitlines()[0])
    if arguments == ["--check"]:
        if not kPage.exists() or kPage.read_text() != Page():
            sys.exit("Documentation/Quality.md is not what the figures say; Scripts/WriteQuality.py writes it.")
        return
    if arguments == ["--tests"]:
        TakeTests()
    kPage.write_text(Page())


Main()
