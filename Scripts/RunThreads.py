#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""RunThreads.py [<rounds>]: calls what may be called from any thread from many at once, with ThreadSanitizer.

Builds the preset `thread`, and runs the tests of Tests/Threads, and those of the queue for the main thread, so many
times (10). A fault that was planted is looked for first: who does not find that one, finds none. The figures are kept
in Documentation/Quality/ThreadSanitizer.json.

Ends with status 1 when ThreadSanitizer reports anything, or a test fails.
"""

import datetime
import json
import os
import pathlib
import re
import subprocess
import sys

kRoot = pathlib.Path(__file__).resolve().parent.parent
kFigures = kRoot / "Documentation/Quality/ThreadSanitizer.json"
kPlantedFaults = kRoot / "Build/thread/Tests/Threads/PlantedFaults"
kPrograms = (kRoot / "Build/thread/Tests/Threads/threadsTests", kRoot / "Build/thread/Tests/Controllers/mainQueueTests")
kEnvironment = {"LM_PRESENTER": "headless", "LM_PREFERENCES": "memory", "LC_ALL": "C.UTF-8",
                "TSAN_OPTIONS": "halt_on_error=0 exitcode=66 second_deadlock_stack=1"}


def Build():
    for command in (["cmake", "--preset", "thread"], ["cmake", "--build", "--preset", "thread"]):
        step = subprocess.run(command, cwd=kRoot, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        if step.returncode != 0:
            sys.exit(step.stdout)


def Run(*command):
    """The status of a program and what it has printed."""
    program = subprocess.run(command, env={**os.environ, **kEnvironment}, stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True, errors="replace", check=False)
    return program.returncode, program.stdout


def CountReports(output):
    return output.count("WARNING: ThreadSanitizer")


def RunTests(rounds):
    """The names of the tests that were run, how many findings there are, and what the programs that failed have printed."""
    names = set()
    findings = 0
    complaints = ""
    for program in kPrograms:
        status, output = Run(program, f"--gtest_repeat={rounds}")
        started = set(re.findall(r"^\[ RUN      \] (\S+)", output, re.MULTILINE))
        reports = CountReports(output)
        if status != 0 or reports > 0 or not started:
            complaints += f"{output}\n{program.name}: {len(started)} tests, {reports} findings, status {status}\n"
        names |= started
        findings += reports
    return names, findings, complaints


def Keep(rounds, tests, findings):
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], cwd=kRoot, check=True, capture_output=True,
                            text=True).stdout.strip()
    figures = {"command": f"Scripts/RunThreads.py {rounds}", "commit": commit,
               "date": datetime.date.today().isoformat(), "findings": findings, "programs": len(kPrograms), "rounds": rounds,
               "tests": tests}
    kFigures.parent.mkdir(parents=True, exist_ok=True)
    kFigures.write_text(json.dumps(figures, indent=4, sort_keys=True) + "\n")


def Main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 10
    Build()
    status, output = Run(kPlantedFaults, "race")
    if status == 0 or CountReports(output) == 0:
        sys.exit("The planted race was not found:\n" + output)
    names, findings, complaints = RunTests(rounds)
    Keep(rounds, len(names), findings)
    if complaints:
        sys.exit(complaints)
    print(f"{len(names)} tests, {rounds} rounds, 0 findings")


Main()
