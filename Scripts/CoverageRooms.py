#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""CoverageRooms.py <report of gcovr as JSON> [--write]

Sums what the tests execute by the rooms of Source and Platform: lines, and branches. Prints what is not executed whole:
of Source all of it, of the host what Tests/Coverage/Judged.txt does not hold with a reason, and what that file holds
though it is executed. The status is 1 when not every line of Source is executed, or fewer than 95 of 100 branches, or
when the file holds something that it need not. With --write the figures go to Documentation/Quality/Coverage.json.
"""

import datetime
import json
import re
import subprocess
import sys
from collections import Counter, defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
JUDGED = "Tests/Coverage/Judged.txt"
FIGURES = "Documentation/Quality/Coverage.json"
ROOM = re.compile(
    r"(Source/Core/Internal|Source/\w+|Platform/Carbon/Source/\w+|Platform/CoreFoundation|Platform/CoreGraphics"
    r"|Platform/\w+)/"
)
COUNTS = ("lines", "linesExecuted", "branches", "branchesTaken")


def room_of(path):
    match = ROOM.match(path)
    return match[1] if match else None


class Judgements:
    """The places that were looked at, from a file like this, in which several may have one reason:

    Platform/CoreFoundation/Source/CFArray.cpp
    - if (theNext > theEnd) {
    - return false;
    = Why no test comes there.

    Where the same line stands in a file more than once, all of them are meant.
    """

    def __init__(self, path):
        self.reasons = {}
        place, lines, reason = None, [], []
        for line in [*path.read_text(encoding="utf-8").splitlines(), ""] if path.exists() else []:
            text = line[2:].strip()
            if reason and not line.startswith("= "):
                self.reasons |= {key: " ".join(reason) for key in lines}
                lines, reason = [], []
            if line.startswith("- "):
                lines.append((place, text))
            elif line.startswith("= "):
                reason.append(text)
            elif line.strip() and not line.startswith("#"):
                place = line.strip()
        if lines:
            sys.exit(f"{path}: the last lines have no reason")


def figures(report):
    """The counts of each room, and of each file the lines that are not executed whole."""
    rooms, gaps = defaultdict(Counter), []
    for entry in report["files"]:
        room = room_of(entry["file"])
        if room is None:
            continue
        text = (ROOT / entry["file"]).read_text(encoding="utf-8").splitlines()
        for line in entry["lines"]:
            if line.get("gcovr/noncode"):
                continue
            # Known only where a line was executed, so not to gcovr as long as it reads one object after the other: what
            # is compiled for the library and for its tests was executed in one of them alone.
            branches = [branch for branch in line["branches"] if not branch["throw"]]
            taken = sum(branch["count"] > 0 for branch in branches)
            counts = rooms[room]
            counts["lines"] += 1
            counts["linesExecuted"] += line["count"] > 0
            counts["branches"] += len(branches)
            counts["branchesTaken"] += taken
            if line["count"] == 0 or taken < len(branches):
                number = line["line_number"]
                missing = "not executed" if line["count"] == 0 else f"{len(branches) - taken} of {len(branches)} branches"
                gaps.append((entry["file"], number, text[number - 1].strip(), missing))
    return rooms, gaps


def percent(part, whole):
    return round(100 * part / whole, 1) if whole else 100.0


def rows(rooms):
    found = [{"room": room, **{name: rooms[room][name] for name in COUNTS}} for room in sorted(rooms)]
    for floor in ("Source", "Platform"):
        of_floor = [row for row in found if row["room"].startswith(floor + "/")]
        found.append({"room": floor, **{name: sum(row[name] for row in of_floor) for name in COUNTS}})
    for row in found:
        row["linesPercent"] = percent(row["linesExecuted"], row["lines"])
        row["branchesPercent"] = percent(row["branchesTaken"], row["branches"])
    return found


def write_figures(found, places, judged):
    commit = subprocess.run(
        ["git", "-C", ROOT, "rev-parse", "--short", "HEAD"], stdout=subprocess.PIPE, text=True, check=False
    ).stdout.strip()
    summary = {
        "what": "coverage",
        "date": datetime.date.today().isoformat(),
        "commit": commit,
        "command": "Scripts/Coverage.sh Build/coverage --write",
        "hostPlaces": places,
        "hostPlacesJudged": judged,
        "rooms": found,
    }
    path = ROOT / FIGURES
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(json.dumps(summary, indent=2) + "\n")


def main():
    report = json.loads(Path(sys.argv[1]).read_text())
    rooms, gaps = figures(report)
    found = rows(rooms)
    judged = Judgements(ROOT / JUDGED).reasons
    host = [gap for gap in gaps if gap[0].startswith("Platform/")]
    new = [gap for gap in host if (gap[0], gap[2]) not in judged]
    stale = set(judged) - {(gap[0], gap[2]) for gap in host}
    for path, number, text, missing in [gap for gap in gaps if gap not in host] + new:
        print(f"{path}:{number}: {missing}: {text}")
    for path, text in sorted(stale):
        print(f"{JUDGED}: executed, or not there: {path}: {text}")
    print(f"{'room':32} {'lines':>7} {'%':>6} {'branches':>9} {'%':>6}")
    for row in found:
        print(
            f"{row['room']:32} {row['lines']:7} {row['linesPercent']:6} {row['branches']:9} {row['branchesPercent']:6}"
        )
    if "--write" in sys.argv[2:]:
        write_figures(found, len(host), len(host) - len(new))
    print(f"{len(host)} places of the host are not executed whole, {len(new)} of them not judged")
    source = next(row for row in found if row["room"] == "Source")
    is_short = source["linesExecuted"] < source["lines"] or source["branchesTaken"] < 0.95 * source["branches"]
    return 1 if is_short or stale else 0


if __name__ == "__main__":
    sys.exit(main())
