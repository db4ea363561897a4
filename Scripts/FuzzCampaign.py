#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""FuzzCampaign.py <processor minutes> [target ...]: fuzzes each target until it has had so much processor time.

The targets take turns, so that a campaign that is stopped has given each its share, and what earlier campaigns gave
them counts: the figures are kept in Documentation/Quality/Fuzzing.json and go on from there. Processor time is what
the kernel charged to the fuzzer, so a busy machine makes a campaign longer and not poorer.

Ends with status 1 as soon as a target broke: the input lies in Build/fuzz/Broken, see Fuzz.sh.

Needs the build of the preset `fuzz`.
"""

import datetime
import json
import pathlib
import re
import resource
import subprocess
import sys

kRoot = pathlib.Path(__file__).resolve().parent.parent
kFigures = kRoot / "Documentation/Quality/Fuzzing.json"
kPrograms = kRoot / "Build/fuzz/Tests/Fuzz"
kTurnSeconds = 300


def ReadFigures():
    if kFigures.exists():
        return json.loads(kFigures.read_text())
    return {"command": "Scripts/FuzzCampaign.py 60", "targets": {}}


def ProcessorSeconds():
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


def LastNumber(pattern, output):
    found = re.findall(pattern, output)
    return int(found[-1]) if found else 0


def Fuzz(target, seconds):
    """One turn of a target: what it did, or None when it broke."""
    before = ProcessorSeconds()
    turn = subprocess.run(["nice", "-n", "19", kRoot / "Scripts/Fuzz.sh", target, str(seconds)],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    output = turn.stdout.decode(errors="replace")
    if turn.returncode != 0:
        print(output[-4000:])
        print(f"{target}: broke, status {turn.returncode}")
        return None
    return {
        "processorSeconds": ProcessorSeconds() - before,
        "executions": LastNumber(r"number_of_executed_units:\s*(\d+)", output),
        "edgesReached": LastNumber(r" cov: (\d+)", output),
        "edges": LastNumber(r"\((\d+) inline 8-bit counters\)", output),
        "inputsKept": LastNumber(r" corp: (\d+)", output),
    }


def Add(figures, target, turn):
    sums = figures["targets"].setdefault(target, {"processorSeconds": 0, "executions": 0, "edgesReached": 0})
    sums["processorSeconds"] = round(sums["processorSeconds"] + turn["processorSeconds"])
    sums["executions"] += turn["executions"]
    for name in ("edgesReached", "edges", "inputsKept"):
        sums[name] = turn[name]
    figures["date"] = datetime.date.today().isoformat()
    figures["commit"] = subprocess.run(["git", "rev-parse", "--short", "HEAD"], cwd=kRoot, check=True,
                                       capture_output=True, text=True).stdout.strip()
    kFigures.parent.mkdir(parents=True, exist_ok=True)
    kFigures.write_text(json.dumps(figures, indent=4, sort_keys=True) + "\n")


def Missing(figures, target, wanted):
    return wanted - figures["targets"].get(target, {}).get("processorSeconds", 0)


def Main():
    if len(sys.argv) < 2:
        sys.exit(__doc__.splitlines()[0])
    wanted = float(sys.argv[1]) * 60
    targets = sys.argv[2:] or sorted(p.name.removeprefix("fuzz.") for p in kPrograms.glob("fuzz.*"))
    if not targets:
        sys.exit("There is nothing to run. Build it: cmake --preset fuzz && cmake --build --preset fuzz")
    figures = ReadFigures()
    while any(Missing(figures, target, wanted) > 0 for target in targets):
        for target in targets:
            missing = Missing(figures, target, wanted)
            if missing <= 0:
                continue
            turn = Fuzz(target, max(1, round(min(kTurnSeconds, missing))))
            if turn is None:
                sys.exit(1)
            Add(figures, target, turn)
            print(target, json.dumps(figures["targets"][target]), flush=True)


Main()
