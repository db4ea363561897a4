#!/usr/bin/python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""Mutants.py [--survivors] [--only <beginning of a path>] [--jobs N] [--build <folder>] [--write]

Puts small faults into a copy of the sources, one at a time, and looks whether a test fails: one that no test notices
names a promise that nobody tests. It covers Source, and of the host the delivery of events, preferences and property
lists. Mutants/MutantSources.py says which faults there are.

All faults are compiled in at once, each behind a switch, so there is one build. The tests run once to see which of
their cases reach which fault. Then each fault is switched on, and the cases that reach it run, the most particular
ones first, until one fails. A case that takes far longer than it did, or takes far more memory, has failed. The build
has the sanitizers, so a leak and a wrong access count as well.

  --survivors  tries only what survived the last time, and what is new; but not again what cannot be told apart, which
               takes longest, for nothing notices it
  --only PATH  tries only what is in these files; can be said several times
  --jobs N     so many at the same time (2)
  --build DIR  works there (Build/mutants)
  --write      writes the figures of the rooms that were tried whole to Documentation/Quality/Mutants.json, and the
               table of Documentation/Testing.md

Survivors that were looked at stand in Tests/Mutants/Judged.txt with the reason why they may stay: because nothing can be
told apart, or because what can be is not worth a test. What cannot be told apart is no fault, and is left out of how
much of a hundred was killed. The result is 1 when there is another survivor, or when something there is no survivor any
more. Results.json in the build folder has each mutant
with what became of it. Needs the packages of ./check and python3-clang-14.
"""

import argparse
import concurrent.futures
import datetime
import hashlib
import json
import math
import os
import pickle
import re
import resource
import select
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from collections import Counter, defaultdict
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent / "Mutants"))
ROOT = Path(__file__).resolve().parent.parent
JUDGED = "Tests/Mutants/Judged.txt"
FIGURES = "Documentation/Quality/Mutants.json"
PAGE = "Documentation/Testing.md"
SUPPORT = ROOT / "Scripts/Mutants"

# What a fault is put into: the name of a room, and the files that it has.
ROOMS = (
    ("Events", r"Platform/Carbon/Source/Events/.*"),
    ("Preferences", r"Platform/CoreFoundation/Source/(System/.*|CFPreferences\.\w+|\w*PreferenceStore\.\w+)"),
    ("Property lists", r"Platform/CoreFoundation/Source/CFPropertyList\w*\.\w+"),
    ("Source/Core/Internal", r"Source/Core/Internal/.*"),
    ("Source/Bindings", r"Source/Bindings/.*"),
)
# Whatever else is in Source is a room under its folder's name.
OTHER_ROOM = r"(Source/\w+)/.*\.(h|cpp)"

# The library proper, without what has a library of its own.
LIBRARY = "Source/(?!Inspection/|Inspector/|Controllers/)"
# The test programs, and what is tried on them: what they are linked with.
PROGRAMS = {
    "coreTests": LIBRARY,
    "transformsTests": LIBRARY,
    "bindingsTests": LIBRARY,
    "scenariosTests": f"{LIBRARY}|Platform/Carbon/",
    "inspectionTests": f"{LIBRARY}|Source/Inspection/",
    "inspectorTests": f"{LIBRARY}|Source/Inspect",
    "controllersTests": f"{LIBRARY}|Source/Controllers/",
    "platform.corefoundationTests": "Platform/CoreFoundation/",
    "platform.carbonTests": "Platform/Carbon/",
    "platform.carbonMemoryTests": "Platform/Carbon/",
    "platform.simulationTests": "Platform/Carbon/",
    "fuzz.PreferenceFile": "Platform/CoreFoundation/",
    "fuzz.PropertyListBinary": "Platform/CoreFoundation/",
    "fuzz.PropertyListOpenStep": "Platform/CoreFoundation/",
    "fuzz.PropertyListXML": "Platform/CoreFoundation/",
    "randomScripts": LIBRARY,
}
# Built first: what does not compile is in them, or in headers that they include.
LIBRARIES = {"LmCoreFoundation": "Platform/CoreFoundation/", "LmCarbon": "Platform/Carbon/", "LmBindings": "Source/"}
ARGUMENTS = {"randomScripts": ["--scripts", "60"]}
ARGUMENTS |= {p: [f"{{root}}/Tests/Fuzz/Corpus/{p[5:]}"] for p in PROGRAMS if p.startswith("fuzz.")}

# What is counted of a room.
COUNTS = ("mutants", "killed", "survived", "same", "judged")
# What is different in the copy: a difference need not be shrunk and shown.
CHANGES = {"Tests/Model/RandomScripts.cpp": ("    PrintDifference(theProgress.theSeed);\n", "    (void)&PrintDifference;\n")}
# What has faults is no pleasure to a compiler. Where ccache is used, files are called by their way from the build.
ADDITIONS = {
    "Platform/CoreFoundation/CMakeLists.txt": """
target_sources(LmCoreFoundation PRIVATE "{support}/LmMutant.cpp")
file(GLOB theMutated Source/CFPref* Source/CFProp* Source/*Store.cpp Source/System/*)
set_source_files_properties(${{theMutated}} PROPERTIES COMPILE_OPTIONS -w)
""",
    "Platform/Carbon/Source/Events/CMakeLists.txt": """
file(GLOB theMutated *.cpp)
set_source_files_properties(${{theMutated}} TARGET_DIRECTORY LmCarbon PROPERTIES COMPILE_OPTIONS -w)
""",
    "Source/CMakeLists.txt": """
target_compile_options(LmBindings PUBLIC -w -fmacro-prefix-map=../../=)
""",
    "Tests/Support/CMakeLists.txt": """
target_sources(LmTestSupport INTERFACE "{support}/MutantRecorder.cpp")
""",
}
# The first cases to be tried are few: one of them notices most faults.
FIRST_CASES = 12
# So many mutants a file has at most.
MOST_IN_FILE = 1000
# A process that was seen so often in a row waiting, each time after so many seconds, waits for ever. Seconds alone would
# say nothing where other programs compute as well.
MOST_WAITS, BETWEEN_LOOKS = 5, 4


def room_of(path):
    for name, pattern in ROOMS:
        if re.fullmatch(pattern, path):
            return name
    match = re.fullmatch(OTHER_ROOM, path)
    return match[1] if match else None


def say(text):
    print(text, flush=True)


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options)


def write_if_different(path, content):
    if not path.exists() or path.read_bytes() != content:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)


class Judgements:
    """The survivors that were looked at, from a file like this, in which several may have one reason:

    Source/Core/LmString.cpp LmString::Append
    - theLength > 0
    + theLength >= 0
    = Appending nothing changes nothing.

    That is a reason why nobody can tell the two apart: whatever is called, what comes of it and what is printed is the
    same, however fast it is. `~ ` instead of `= ` begins a reason why it may stay although somebody could.

    Where the same line stands in a function more than once, `- @2 theLength > 0` is the second.
    """

    def __init__(self, path):
        self.reasons, self.same = {}, set()
        place, before, open_keys, reason, mark = None, None, [], [], ""
        for number, line in enumerate([*path.read_text(encoding="utf-8").splitlines(), ""] if path.exists() else [], 1):
            kind, text = line[:2], line[2:].strip()
            if reason and kind != mark:
                self.reasons |= {key: " ".join(reason) for key in open_keys}
                self.same.update(open_keys if mark == "= " else [])
                open_keys, reason = [], []
            if not line.strip() or line.startswith("#"):
                continue
            if kind == "- ":
                before = text
            elif kind == "+ ":
                match = re.fullmatch(r"(?:@(\d+) )?(.*)", before)
                open_keys.append((*place, match[2], text, int(match[1] or 1)))
            elif kind in ("= ", "~ "):
                mark = kind
                reason.append(text)
            else:
                match = re.fullmatch(r"(\S+)(?: (.*))?", line)
                place = (match[1], match[2] or "")
                if open_keys:
                    sys.exit(f"{path}:{number}: what stands before has no reason")


class Copy:
    """The copy of the project, with all faults in it."""

    def __init__(self, build, jobs, only):
        self.build, self.jobs, self.only = build, jobs, only
        self.tree, self.objects = build / "Tree", build / "Tree/Build/sanitize"
        self.dropped_file = build / "Dropped.json"
        self.dropped = set()
        if self.dropped_file.exists():
            self.dropped = {tuple(key) for key in json.loads(self.dropped_file.read_text())}

    def make(self):
        """Copies, finds, writes and compiles. What does not compile is left out."""
        self.copy_files()
        self.configure()
        self.find()
        while True:
            self.write_sources()
            failures = self.compile()
            if failures is None:
                break
            before = len(self.dropped)
            self.drop(failures)
            if len(self.dropped) == before:
                sys.exit("\n".join(failures[:40]) + "\nThe copy cannot be compiled.")
            self.dropped_file.write_text(json.dumps(sorted(self.dropped)))
        self.mutants = [m for m in self.mutants if m.key() not in self.dropped]

    def copy_files(self):
        listed = run(["git", "-C", str(ROOT), "ls-files", "--cached", "--others", "--exclude-standard"]).stdout
        wanted = {Path(name) for name in listed.splitlines() if (ROOT / name).is_file()}
        for path in wanted:
            name = path.as_posix()
            if room_of(name) is not None:
                continue
            content = (ROOT / path).read_bytes()
            if name in CHANGES:
                old, new = (text.encode() for text in CHANGES[name])
                if content.count(old) != 1:
                    sys.exit(f"{name} does not hold what is left out of it: {old.decode()}")
                content = content.replace(old, new)
            if name in ADDITIONS:
                content += ADDITIONS[name].format(support=SUPPORT).encode()
            write_if_different(self.tree / path, content)
            shutil.copymode(ROOT / path, self.tree / path)
        self.sources = sorted(p.as_posix() for p in wanted if room_of(p.as_posix()) is not None)
        for path in self.sources:
            if not (self.tree / path).exists():
                write_if_different(self.tree / path, (ROOT / path).read_bytes())
        for path in self.tree.rglob("*"):
            if path.relative_to(self.tree).parts[0] != "Build" and path.is_file() and path.relative_to(self.tree) not in wanted:
                path.unlink()

    def configure(self):
        options = ["-DLM_BUILD_BENCHMARKS=OFF"]
        if "CMAKE_CXX_COMPILER_LAUNCHER" in os.environ:
            options.append("-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON")
        result = run(["cmake", "--preset", "sanitize", *options], cwd=self.tree)
        if result.returncode != 0:
            sys.exit(result.stdout)
        self.targets = set(re.findall(r"^([\w.]+): phony", self.ninja("-t", "targets", "all").stdout, re.M))

    def ninja(self, *arguments):
        return run(["ninja", "-C", str(self.objects), *arguments])

    def find(self):
        """All mutants, numbered by file, so that a change in one leaves the objects of the others as they are."""
        state = hashlib.sha256((SUPPORT / "MutantSources.py").read_bytes())
        for path in self.sources:
            state.update(path.encode() + b"\0" + (ROOT / path).read_bytes())
        kept = self.build / f"Found-{state.hexdigest()[:16]}"
        if kept.exists():
            self.files = pickle.loads(kept.read_bytes())
        else:
            self.files = self.read_sources()
            for old in self.build.glob("Found-*"):
                old.unlink()
            kept.write_bytes(pickle.dumps(self.files))
        self.number()

    def number(self):
        """Numbers the mutants. Those of a file begin where they began the last time, so that new files elsewhere leave
        its object as it is."""
        kept = self.build / "Numbers.json"
        firsts = json.loads(kept.read_text()) if kept.exists() else {}
        self.mutants = []
        for path in self.sources:
            found = self.files[path].mutants() if path in self.files else []
            if found:
                firsts.setdefault(path, max(firsts.values(), default=-MOST_IN_FILE) + MOST_IN_FILE)
            for number, mutant in enumerate(found, firsts.get(path, 0) + 1):
                mutant.number = number
            self.mutants += found
        kept.write_text(json.dumps(firsts))

    def read_sources(self):
        from MutantSources import Finder

        finder = Finder(str(ROOT), lambda path: room_of(path) is not None)
        commands = json.loads((self.objects / "compile_commands.json").read_text())
        arguments = {}
        for entry in commands:
            path = Path(entry["file"])
            if path.is_relative_to(self.tree):
                # What the build makes is there alone.
                command = entry["command"].replace(str(self.tree), str(ROOT))
                command = command.replace(f"{ROOT}/Build/sanitize", str(self.objects))
                words = shlex.split(command)
                arguments[path.relative_to(self.tree).as_posix()] = [
                    word for word in words if re.match(r"-(I|D|isystem|std)", word)
                ]
        for path in self.sources:
            if path.endswith(".cpp"):
                if path not in arguments:
                    say(f"not built, so left out: {path}")
                    continue
                self.report(path, finder.read(str(ROOT / path), arguments[path]))
        # Headers that no source of the library includes.
        for path in self.sources:
            if path.endswith(".h") and path not in finder.files:
                beside = [a for p, a in arguments.items() if p.rsplit("/", 2)[0] == path.rsplit("/", 2)[0]]
                everywhere = sorted({w for a in beside for w in a}) or next(iter(arguments.values()))
                name = str(self.build / "Header.cpp")
                self.report(path, finder.read(name, everywhere, [(name, f'#include "{ROOT / path}"\n')]))
        return finder.files

    def report(self, path, errors):
        if errors:
            sys.exit(f"{path} cannot be read:\n" + "\n".join(errors))

    def write_sources(self):
        for path in self.sources:
            content = (ROOT / path).read_bytes()
            source = self.files.get(path)
            if source is not None and source.places:
                mutants = [m for m in self.mutants if m.path == path]
                text = source.rewritten(mutants, self.dropped)
                # The first line is a comment; no line moves.
                text = f'#include "{SUPPORT}/LmMutant.h"' + text[text.index("\n") :]
                content = text.encode("latin-1")
            write_if_different(self.tree / path, content)

    def compile(self):
        """None, or the lines of the compiler that name errors."""
        chosen = {m.path for m in self.mutants if m.path.startswith(self.only)}
        self.programs = [p for p, paths in PROGRAMS.items() if p in self.targets and any(re.match(paths, c) for c in chosen)]
        self.numbers = {m.number: m for m in self.mutants}
        libraries = [n for n, path in LIBRARIES.items() if any(c.startswith(path) for c in chosen)]
        for targets in (libraries, self.programs):
            result = self.ninja("-k", "0", "-j", str(self.jobs), *targets)
            if result.returncode != 0:
                break
        else:
            return None
        (self.build / "compile.log").write_text(result.stdout)
        return [line for line in result.stdout.splitlines() if re.search(r"error:|required from|note:|undefined", line)]

    def drop(self, failures):
        for line in failures:
            match = re.match(r"(\S+?):(\d+):(\d+): +(error|required)", line)
            if not match:
                continue
            path = (self.objects / match[1]).resolve()
            if not path.is_relative_to(self.tree):
                continue
            text = path.read_bytes().decode("latin-1").splitlines()[int(match[2]) - 1]
            switches = list(re.finditer(r"LmMutant\((\d+)\)", text))
            before = [s for s in switches if s.start() < int(match[3])]
            if match[4] == "required" and not before:
                continue
            for switch in before[-1:] or switches:
                self.dropped.add(self.numbers[int(switch[1])].key())


def end_group(process):
    """What a process started and left behind ends with it."""
    try:
        os.killpg(process, signal.SIGKILL)
    except ProcessLookupError:
        pass


def is_computing(group):
    """Whether any process of a group does something."""
    for path in Path("/proc").glob("[0-9]*/stat"):
        try:
            state, _, its_group = path.read_text().rpartition(")")[2].split()[:3]
        except OSError:
            continue
        if int(its_group) == group and state not in "SZ":
            return True
    return False


def ends(group, wait):
    """Whether what wait looks for comes before the group of processes waits for ever."""
    waiting = 0
    while waiting < MOST_WAITS:
        if wait(BETWEEN_LOOKS):
            return True
        waiting = 0 if is_computing(group) else waiting + 1
    return False


class Runner:
    """Runs test programs in the environment of tests, in folders of their own."""

    def __init__(self, copy, work):
        self.copy, self.work = copy, work
        self.paths, self.all_servers = {}, []
        for path in copy.objects.rglob("*"):
            if path.name in copy.programs and path.is_file() and os.access(path, os.X_OK):
                self.paths[path.name] = path
        self.local = threading.local()

    def folder(self):
        if not hasattr(self.local, "folder"):
            self.local.folder = Path(tempfile.mkdtemp(dir=self.work))
        return self.local.folder

    def command(self, program, arguments=()):
        fixed = [a.format(root=ROOT) for a in ARGUMENTS.get(program, [])]
        return [str(self.paths[program]), *fixed, *arguments]

    def is_suite(self, program):
        return program not in ARGUMENTS

    def state(self, program):
        """What is another one when a program, one that it starts, or a library of theirs has changed."""
        state = hashlib.sha256()
        files = {p for p in self.paths[program].parent.iterdir() if p.is_file() and os.access(p, os.X_OK)}
        for path in list(files):
            used = re.findall(rf"=> ({re.escape(str(self.copy.objects))}/\S+)", run(["ldd", str(path)]).stdout)
            files.update(Path(library).resolve() for library in used)
        for path in sorted(files):
            state.update(path.read_bytes())
        return state.hexdigest()

    def surroundings(self, **more):
        folder = str(self.folder())
        return {
            "PATH": os.environ["PATH"], "HOME": folder, "TMPDIR": folder, "XDG_CONFIG_HOME": folder,
            "LM_PRESENTER": "headless", "LM_PREFERENCES": "memory", "LC_ALL": "C.UTF-8",
            "ASAN_OPTIONS": "detect_leaks=1:allocator_may_return_null=1", **more,
        }  # fmt: skip

    def start(self, command, limit, **environment):
        """How a command ended: "" for well, else "test", "died" or "time"."""
        folder = self.folder()

        def prepare():
            os.setsid()
            seconds = int(limit) + 1
            resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 28, 1 << 28))

        with open(folder / "output", "wb") as output:
            process = subprocess.Popen(
                command, stdin=subprocess.DEVNULL, stdout=output, stderr=output, cwd=folder,
                env=self.surroundings(**environment), preexec_fn=prepare,
            )  # fmt: skip
            in_time = ends(process.pid, lambda seconds: self.waits(process, seconds))
            end_group(process.pid)
            status = process.wait()
        return self.meaning(status if in_time else None)

    def waits(self, process, seconds):
        """Whether a process ends within seconds."""
        try:
            process.wait(timeout=seconds)
        except subprocess.TimeoutExpired:
            return False
        return True

    def meaning(self, status):
        if status in (None, -signal.SIGXCPU, -signal.SIGKILL):
            return "time"
        return "died" if status not in (0, 1) else "test" if status else ""

    def start_cases(self, program, number, names, limit):
        """The same for some cases of a test program with one mutant, each time in a process that is loaded already."""
        if program not in self.servers():
            server = subprocess.Popen(
                [str(self.paths[program])], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                cwd=self.folder(), env=self.surroundings(LM_MUTANTS_SERVED=str(self.folder() / "output")), text=True,
            )  # fmt: skip
            self.servers()[program] = server
        server = self.servers()[program]
        server.stdin.write(f"{number} {int(limit) + 1} {':'.join(names)}\n")
        server.stdin.flush()
        process = int(server.stdout.readline())
        in_time = ends(process, lambda seconds: bool(select.select([server.stdout], [], [], seconds)[0]))
        if not in_time:
            end_group(process)
        status = os.waitstatus_to_exitcode(int(server.stdout.readline()))
        end_group(process)
        return self.meaning(status if in_time else None)

    def servers(self):
        if not hasattr(self.local, "servers"):
            self.local.servers = {}
            self.all_servers.append(self.local.servers)
        return self.local.servers

    def end(self):
        for servers in self.all_servers:
            for server in servers.values():
                server.stdin.close()
                server.wait()

    def output(self):
        return (self.folder() / "output").read_text(errors="replace")


class Cases:
    """Which cases of which program reach which mutants, and how long they take."""

    def __init__(self, runner):
        self.runner = runner
        self.reaching = defaultdict(list)  # number -> (program, case)
        self.times, self.sizes, self.totals, self.at_load = {}, {}, {}, set()

    def record(self, jobs):
        with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
            list(pool.map(self.record_program, self.runner.copy.programs))

    def record_program(self, program):
        """What was recorded of the same program before is good for ever."""
        kept, state = self.runner.copy.build / f"Cases-{program}", self.runner.state(program)
        if kept.exists():
            was, total, notes = pickle.loads(kept.read_bytes())
            if was == state:
                self.take(program, total, notes)
                return
        total, notes = self.run_program(program)
        kept.write_bytes(pickle.dumps((state, total, notes)))
        self.take(program, total, notes)

    def take(self, program, total, notes):
        self.totals[program] = total
        for name, seconds, numbers in notes:
            self.note(program, name, seconds, numbers)

    def run_program(self, program):
        """How long it takes, and its cases with the seconds and the numbers of each."""
        folder = self.runner.folder()
        reached, cases = folder / "reached", folder / "cases"
        with open(reached, "wb") as stream:
            stream.truncate(1 << 20)
        started = time.monotonic()
        how = self.runner.start(
            self.runner.command(program), 600, LM_MUTANTS_REACHED=str(reached), LM_MUTANTS_CASES=str(cases)
        )
        total = time.monotonic() - started
        if how:
            raise SystemExit(f"{self.runner.output()[-3000:]}\n{program} fails without any fault.")
        if not self.runner.is_suite(program):
            notes = reached.read_bytes()
            return total, [("", total, [n for n in range(len(notes)) if notes[n]])]
        lines = [line.split("\t") for line in cases.read_text().splitlines()]
        return total, [(name, int(milliseconds) / 1000, [int(n) for n in numbers.split()])
                       for name, milliseconds, numbers in lines]  # fmt: skip

    def note(self, program, name, seconds, numbers):
        self.times[program, name] = seconds
        self.sizes[program, name] = len(numbers)
        if not name and self.runner.is_suite(program):
            self.at_load.update(numbers)
        paths = re.compile(PROGRAMS[program])
        for number in numbers:
            if number in self.runner.copy.numbers and paths.match(self.runner.copy.numbers[number].path):
                self.reaching[number].append((program, name))

    def steps(self, number):
        """What to run for a mutant, as (program, cases, seconds), the most telling first. All cases of a program are
        None."""
        by_program = defaultdict(list)
        for program, name in self.reaching[number]:
            by_program[program].append(name)
        small, large = [], []
        for program, names in by_program.items():
            if "" in names:
                large.append((self.totals[program], program, None))
                continue
            names.sort(key=lambda n: (self.sizes[program, n] * (1 + 20 * self.times[program, n])))
            first, rest = names[:FIRST_CASES], names[FIRST_CASES:]
            small.append((self.seconds(program, first), program, first))
            if rest:
                large.append((self.seconds(program, rest), program, rest))
        return [(p, n, s) for s, p, n in sorted(small, key=lambda x: x[0]) + sorted(large, key=lambda x: x[0])]

    def seconds(self, program, names):
        return sum(self.times[program, name] for name in names)


class Trial:
    """Switches the mutants on."""

    def __init__(self, runner, cases, path):
        self.runner, self.cases, self.path, self.results = runner, cases, path, {}
        if path.exists():
            self.results = {tuple(r.pop("key")): r for r in json.loads(path.read_text())}

    def save(self):
        entries = [{"key": key, **result} for key, result in sorted(self.results.items())]
        self.path.write_text(json.dumps(entries, indent=0))

    def is_open(self, mutant, judged):
        """Whether it was not killed, and could be."""
        result = self.results.get(mutant.key())
        return result is None or (result["end"] == "survived" and mutant.key() not in judged.same)

    def try_all(self, mutants, jobs):
        started, done = time.monotonic(), 0
        with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
            for mutant, result in pool.map(lambda m: (m, self.try_one(m)), mutants):
                self.results[mutant.key()] = result
                done += 1
                if done % 50 == 0 or done == len(mutants):
                    alive = sum(self.results[m.key()]["end"] == "survived" for m in mutants[:done])
                    say(f"{done} of {len(mutants)} tried, {alive} survived, {time.monotonic() - started:.0f} s")
                    self.save()

    def try_one(self, mutant):
        steps = self.cases.steps(mutant.number)
        if not steps:
            return {"end": "survived", "by": "", "how": "not reached"}
        for program, names, seconds in steps:
            limit = 2 + 4 * seconds
            # What runs while a program is loaded must have its fault from the beginning.
            if names is None or mutant.number in self.cases.at_load:
                how = self.runner.start(self.runner.command(program), limit, LM_MUTANT=str(mutant.number))
            else:
                how = self.runner.start_cases(program, mutant.number, names, limit)
            if how:
                failed = re.findall(r"^\[  FAILED  \] (\S+?\.\S+?)(?:,| |$)", self.runner.output(), re.M)
                return {"end": "killed", "by": f"{program} {failed[0] if failed else ''}".strip(), "how": how}
        return {"end": "survived", "by": "", "how": "reached"}


def figures(mutants, results, judged):
    """The counts of each room all of whose mutants were tried."""
    rooms, open_rooms = defaultdict(Counter), set()
    for mutant in mutants:
        if mutant.key() not in results:
            open_rooms.add(room_of(mutant.path))
            continue
        counts = rooms[room_of(mutant.path)]
        counts["mutants"] += 1
        if results[mutant.key()]["end"] == "killed":
            counts["killed"] += 1
        else:
            counts["survived"] += 1
            counts["same"] += mutant.key() in judged.same
            counts["judged"] += mutant.key() in judged.reasons and mutant.key() not in judged.same
    return [{"room": room, **{n: rooms[room][n] for n in COUNTS}} for room in sorted(set(rooms) - open_rooms)]


def with_all(rows):
    """The same with the sum of all, and how much of a hundred of what can be told apart was killed."""
    rows = sorted(rows, key=lambda row: row["room"])
    rows = [*rows, {"room": "all", **{n: sum(row[n] for row in rows) for n in COUNTS}, "commit": ""}]
    for row in rows:
        faults = row["mutants"] - row["same"]
        row["percent"] = math.floor(1000 * row["killed"] / faults) / 10 if faults else 100.0
    return rows


def table(rows):
    lines = [
        "| room | mutants | killed | survivors | of these the same | judged otherwise | killed, % | commit |",
        "|---|---:|---:|---:|---:|---:|---:|---|",
    ]
    for row in rows:
        name = row["room"] if row["room"] == "all" else f"`{row['room']}`" if "/" in row["room"] else row["room"]
        numbers = " | ".join(str(row[n]) for n in (*COUNTS, "percent"))
        lines.append(f"| {name} | {numbers} | {row.get('commit', '')} |")
    return "\n".join(lines)


def write_figures(rows, command):
    """Rooms that were not tried now keep the figures that they have."""
    commit = run(["git", "-C", str(ROOT), "rev-parse", "--short", "HEAD"]).stdout.strip()
    path = ROOT / FIGURES
    path.parent.mkdir(parents=True, exist_ok=True)
    kept = json.loads(path.read_text()) if path.exists() else {"rooms": [], "commit": ""}
    rooms = {row["room"]: {"commit": kept["commit"], "same": 0, **row} for row in kept["rooms"] if row["room"] != "all"}
    rooms |= {row["room"]: {**row, "commit": commit} for row in rows}
    rows = with_all(rooms.values())
    summary = {
        "what": "mutants", "date": datetime.date.today().isoformat(), "commit": commit, "command": command, "rooms": rows,
    }  # fmt: skip
    path.write_text(json.dumps(summary, indent=2) + "\n")
    page = ROOT / PAGE
    text = page.read_text(encoding="utf-8")
    found = re.search(r"\| room \| mutants .*?\n(?!\|)", text, re.S)
    page.write_text(text[: found.start()] + table(rows) + "\n" + text[found.end() :], encoding="utf-8")


def report(mutants, results, judged):
    """Prints the survivors nobody looked at, and the judgements that are of no use any more."""
    survivors = [m for m in mutants if results[m.key()]["end"] == "survived"]
    new = [m for m in survivors if m.key() not in judged]
    alive = {m.key() for m in survivors}
    tried = {m.path for m in mutants}
    stale = [key for key in judged if key not in alive and key[0] in tried]
    for m in new:
        place = f"@{m.occurrence} " if m.occurrence > 1 else ""
        reached = "" if results[m.key()]["how"] == "reached" else "  (no test reaches it)"
        say(f"{m.path}:{m.line} {m.function}{reached}\n- {place}{m.before}\n+ {m.after}")
    for key in stale:
        say(f"{JUDGED}: no survivor: {key}")
    return new, stale


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--survivors", action="store_true")
    parser.add_argument("--only", action="append")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--build", type=Path, default=ROOT / "Build/mutants")
    parser.add_argument("--write", action="store_true")
    options = parser.parse_args()
    options.only = tuple(options.only or [""])
    return options


def main():
    options = parse_arguments()
    need = f'. "{ROOT}/Scripts/Packages.sh"; need_packages g++ cmake ninja-build googletest python3-clang-14'
    if subprocess.run(["bash", "-c", need], check=False).returncode != 0:
        return 1
    build = options.build.resolve()
    build.mkdir(parents=True, exist_ok=True)
    copy = Copy(build, options.jobs, options.only)
    copy.make()
    say(f"{len(copy.mutants)} mutants in {len(copy.files)} files; {len(copy.dropped)} more do not compile")
    judged = Judgements(ROOT / JUDGED)
    with tempfile.TemporaryDirectory(prefix="mutants-") as work:
        runner = Runner(copy, work)
        cases = Cases(runner)
        cases.record(options.jobs)
        say(f"{len(cases.times)} cases of {len(copy.programs)} programs reach {len(cases.reaching)} of them")
        # In the order in which they were asked for.
        chosen = [m for path in options.only for m in copy.mutants if m.path.startswith(path)]
        trial = Trial(runner, cases, build / "Results.json")
        if options.survivors:
            chosen = [m for m in chosen if trial.is_open(m, judged)]
        try:
            trial.try_all(chosen, options.jobs)
        finally:
            runner.end()
            trial.save()
    results = trial.results
    new, stale = report([m for m in copy.mutants if m.key() in results], results, judged.reasons)
    rows = figures(copy.mutants, results, judged)
    say(table(with_all(rows)))
    if options.write:
        write_figures(rows, " ".join(["Scripts/Mutants.py", *sys.argv[1:]]))
    say(f"{len(new)} survivors that nobody looked at, {len(stale)} judgements that are not needed")
    return 1 if new or stale else 0


if __name__ == "__main__":
    sys.exit(main())
