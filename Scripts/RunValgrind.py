#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""RunValgrind.py [<build folder> [<tests>]]: runs the programs once under valgrind's memcheck, with its leak check.

The programs are those that the build's tests run: each example, each scripted session, each test program; only tests
whose names match the regular expression <tests>, when there is one. The build has no sanitizers (Build/release). What
takes too long under valgrind, or is about processes that are killed, is named below. A leak that was planted is looked
for first. The figures are kept in Documentation/Quality/Valgrind.json.

Ends with status 1 when valgrind finds anything, or a test fails. Needs valgrind.
"""

import datetime
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

kRoot = pathlib.Path(__file__).resolve().parent.parent
kFigures = kRoot / "Documentation/Quality/Valgrind.json"
kPrograms = re.compile(r"^(examples|core|transforms|bindings|controllers|scenarios|platform|presentation|threads)\.")
# Processes are killed or race each other in these, or memory runs out; or they measure how long something takes.
kLeftOut = re.compile(r"Preference(Files|Faults|sAmid)|HomesThatGoAway|FullDisks|AllocationFailure|WithoutMemory|"
                      r"FilesPosix|FilePreferenceStore|RandomSessions")
kMemcheck = ["valgrind", "-q", "--tool=memcheck", "--leak-check=full", "--show-leak-kinds=definite,indirect",
             "--errors-for-leak-kinds=definite,indirect", "--trace-children=yes", "--vgdb=no", "--xml=yes"]
kLongest = 1800  # seconds for one test


def Check(command, environment):
    """The status of a command under valgrind, what it has printed, the programs of the project, and what was found."""
    with tempfile.TemporaryDirectory() as folder:
        try:
            program = subprocess.run([*kMemcheck, f"--xml-file={folder}/%p.xml", *command], timeout=kLongest,
                                     env={**os.environ, **environment}, stdout=subprocess.PIPE,
                                     stderr=subprocess.STDOUT, text=True, errors="replace", check=False)
            status, output = program.returncode, program.stdout
        except subprocess.TimeoutExpired:
            status, output = 124, f"more than {kLongest} seconds"
        texts = [log.read_text(errors="replace") for log in pathlib.Path(folder).iterdir()]
    # The shells that play sessions are not the project's.
    programs = set()
    errors = []
    for text in texts:
        own = re.search(f"<exe>({kRoot}/Build[^<]*)</exe>", text)
        if own:
            programs.add(own.group(1))
            errors += re.findall(r"<error>.*?</error>", text, re.DOTALL)
    return status, output, programs, errors


def Tests(build, pattern):
    listing = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], capture_output=True, text=True,
                             check=True)
    for test in json.loads(listing.stdout)["tests"]:
        name = test["name"]
        if kPrograms.match(name) and not kLeftOut.search(name) and pattern.search(name) and "command" in test:
            settings = {entry["name"]: entry["value"] for entry in test.get("properties", [])}
            yield name, test["command"], dict(line.split("=", 1) for line in settings.get("ENVIRONMENT", []))


def Describe(error):
    return re.sub(r"\s*<[^>]*>\s*", " ", error).strip()[:600]


def Keep(programs, tests, findings):
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], cwd=kRoot, check=True, capture_output=True,
                            text=True).stdout.strip()
    figures = {"command": " ".join(["Scripts/RunValgrind.py", *sys.argv[1:]]), "commit": commit,
               "date": datetime.date.today().isoformat(), "findings": findings, "programs": programs, "tests": tests}
    kFigures.parent.mkdir(parents=True, exist_ok=True)
    kFigures.write_text(json.dumps(figures, indent=4, sort_keys=True) + "\n")


def ExpectPlantedLeak(build):
    subprocess.run(["cmake", "--build", build, "--target", "PlantedFaults"], check=True, stdout=subprocess.DEVNULL)
    _, output, _, errors = Check([kRoot / build / "Tests/Threads/PlantedFaults", "leak"], {})
    if not errors:
        sys.exit(f"The planted leak was not found:\n{output}")


def Main():
    build = sys.argv[1] if len(sys.argv) > 1 else "Build/release"
    pattern = re.compile(sys.argv[2] if len(sys.argv) > 2 else "")
    if shutil.which("valgrind") is None:
        sys.exit("valgrind is not installed")
    os.chdir(kRoot)
    ExpectPlantedLeak(build)
    programs = set()
    tests = findings = failures = 0
    for name, command, environment in Tests(build, pattern):
        status, output, checked, errors = Check(command, environment)
        tests += 1
        programs |= checked
        findings += len(errors)
        failures += status != 0
        if status != 0 or errors:
            print(f"{name}: status {status}\n{output[-2000:]}", *map(Describe, errors), sep="\n")
    Keep(len(programs), tests, findings)
    print(f"{len(programs)} programs, {tests} tests, {findings} findings, {failures} failed")
    sys.exit(0 if tests > 0 and findings == 0 and failures == 0 else 1)


Main()
