#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""CheckTidy.py [--changed] <build folder> [<beginning of a path>...]

Runs clang-tidy over the files of the project that the build compiles and the few that only other builds do
(kInOtherBuilds), or over those of them in the named places; with --changed, over those that differ from the last commit
or include something that does. The build must have been configured with CMAKE_EXPORT_COMPILE_COMMANDS.

A file that was found good is not read again while it, all that it includes, its command, the settings and the
linter stay the same: Tidy/Good in the build folder holds a mark for each. What a file includes is known from its
build; one that was not built as it stands is read every time.

Most of the time goes into the standard headers and the test framework. So files that are compiled alike are read
as one, several at a time. That decides only what is good: where several together give a finding, or cannot be read
together, those at fault are read apart from the others, until each is alone. The static analyzer follows calls, so it
reads every file alone.
"""

import concurrent.futures
import copy
import functools
import hashlib
import itertools
import json
import os
import re
import shlex
import subprocess
import sys
from collections import Counter, defaultdict
from pathlib import Path

sys.dont_write_bytecode = True
from GroupFiles import DefinedNames  # noqa: E402

kRoot = Path(__file__).resolve().parent.parent
kPlaces = ("Source/", "Platform/", "Tools/", "Examples/", "Tests/", "Benchmarks/")
# GCC and clang know different warnings by name; those that clang does not know are no finding.
kTidy = ["clang-tidy-14", "--quiet", "--extra-arg=-Wno-unknown-warning-option"]
kMatching = "--checks=-clang-analyzer-*"
# A name of one file may hide one of another where they are read as one; GCC has warned of what is hidden within one.
kTogether = "--extra-arg=-Wno-shadow"
kMostTogether = 24
# What only builds without ICU compile, and a file that is compiled here as it is there.
kInOtherBuilds = {
    "Platform/CoreFoundation/Source/Formats/Plain/*.cpp": "Platform/CoreFoundation/Source/Formats/Decimal.cpp",
    "Tests/Platform/CoreFoundation/EnglishAloneTests.cpp": "Tests/Platform/CoreFoundation/CFLocaleTests.cpp",
    "Tests/Controllers/EnglishAlone*Tests.cpp": "Tests/Controllers/LmNumberFormattersTests.cpp",
}
# A few functions have more paths than can ever be followed. The analyzer gives up on them after so many steps, a
# fifth or so of its own limit: it takes less than half of the time, and every other function is read to its end.
kDepth = [f"--extra-arg={theWord}" for theWord in ("-Xclang", "-analyzer-config", "-Xclang", "max-nodes=50000")]


class Unit:
    """A file that the build compiles, with the command for it."""

    def __init__(self, theEntry):
        self.mPath = Path(theEntry["file"])
        self.mFile = str(self.mPath.relative_to(kRoot))
        theCommand = theEntry["command"]
        self.mFolder = theEntry["directory"]
        self.mObject = re.search(r" -o (\S+) -c ", theCommand).group(1)
        # The object that the file is compiled into with others.
        self.mWhole = None
        # clang cannot read what GCC has precompiled, so every file is read as it stands.
        theFlags = re.sub(r" -o \S+ -c \S+$", "", theCommand)
        self.mFlags = re.sub(r" -Winvalid-pch -include \S+cmake_pch\.hxx", "", theFlags)
        self.mKey = None
        self.mIncluded = set()

    def For(self, thePath):
        """The same for a file that this build does not compile."""
        theOther = copy.copy(self)
        theOther.mPath = thePath
        theOther.mFile = str(thePath.relative_to(kRoot))
        theOther.mObject = None
        return theOther

    def Parts(self):
        """The same for each file of the project that is compiled here: the build has some compiled as one."""
        if "/Unity/" not in str(self.mPath):
            return [self]
        theFiles = re.findall(r'^#include "([^"]+)"', self.mPath.read_text(), re.M)
        theParts = [self.For(Path(theFile)) for theFile in theFiles]
        for thePart in theParts:
            thePart.mWhole = self.mObject
        return theParts

    def FindIncluded(self, theIncludes):
        """What went into the object, or, of a file that has none of its own, what would."""
        self.mIncluded = theIncludes.get(self.mObject, set()) if self.mObject else self.Includes()

    def Includes(self):
        """What the compiler says that the file includes."""
        theCommand = [*shlex.split(self.mFlags), "-M", str(self.mPath)]
        theRun = subprocess.run(theCommand, capture_output=True, text=True, cwd=self.mFolder)
        theFiles = theRun.stdout.replace("\\\n", " ").split()[1:]
        return {os.path.normpath(os.path.join(self.mFolder, theFile)) for theFile in theFiles}

    def IsAlone(self):
        """Tests are compiled with the test framework precompiled: one that uses it and forgets to include it would
        go unseen beside one that does."""
        return bool(re.search(r"\b(TEST|EXPECT_|ASSERT_|testing::)", self.mPath.read_text())) \
            and not self.NamesFramework(self.mPath, set())

    def NamesFramework(self, thePath, theSeen):
        """Whether the file, or a file of the project that it names, includes the test framework."""
        theSeen.add(thePath)
        theText = thePath.read_text()
        if re.search(r"^#include <g(test|mock)/", theText, re.M):
            return True
        theFiles = [self.Find(theName, thePath.parent) for theName in re.findall(r'^#include "([^"]+)"', theText, re.M)]
        return any(self.NamesFramework(f, theSeen) for f in theFiles if f and f not in theSeen)

    def Find(self, theName, theBeside):
        """The file that is included in quotes by one in that folder, or None."""
        theFolders = [theBeside, *(Path(theFolder) for theFolder in re.findall(r"-I ?(\S+)", self.mFlags))]
        return next((f / theName for f in theFolders if (f / theName).is_file()), None)


def ReadUnits(theBuild, thePlaces):
    theUnits = {}
    for theEntry in json.loads((theBuild / "compile_commands.json").read_text()):
        # Only the project's own files: the build also compiles the test framework.
        if not theEntry["file"].startswith(str(kRoot)):
            continue
        for theUnit in Unit(theEntry).Parts():
            if theUnit.mFile.endswith(".cpp") and theUnit.mFile.startswith(tuple(kPlaces)):
                theUnits.setdefault(theUnit.mFile, theUnit)
    theUnits.update(OtherUnits(theUnits))
    return [theUnit for theFile, theUnit in theUnits.items() if theFile.startswith(thePlaces)]


def OtherUnits(theUnits):
    """The files that only other builds compile, as this build would."""
    theOthers = {}
    for thePattern, theModel in kInOtherBuilds.items():
        if theModel in theUnits:
            for thePath in sorted(kRoot.glob(thePattern)):
                theFile = str(thePath.relative_to(kRoot))
                if theFile not in theUnits:
                    theOthers[theFile] = theUnits[theModel].For(thePath)
    return theOthers


def ReadIncludes(theBuild):
    """What went into each object, as the build has noted it."""
    theIncludes = defaultdict(set)
    theRun = subprocess.run(["ninja", "-C", theBuild, "-t", "deps"], capture_output=True, text=True)
    for theLine in theRun.stdout.splitlines():
        if theLine.startswith(" "):
            theIncludes[theObject].add(os.path.normpath(os.path.join(theBuild, theLine.strip())))
        elif theLine:
            theObject = theLine.split(": ")[0]
    return theIncludes


def Digest(thePath, theKnown={}):
    if thePath not in theKnown:
        try:
            theKnown[thePath] = hashlib.sha256(Path(thePath).read_bytes()).hexdigest()
        except OSError:
            theKnown[thePath] = "missing"
    return theKnown[thePath]


def FindKeys(theUnits, theBuild, theIncludes):
    theCommon = [subprocess.run(["clang-tidy-14", "--version"], capture_output=True, text=True).stdout]
    theCommon += [Digest(theFile) for theFile in [kRoot / ".clang-tidy", *sorted(kRoot.glob("*/.clang-tidy")), Path(__file__)]]
    # What is precompiled is in no other list.
    thePrecompiled = [theFiles for theObject, theFiles in theIncludes.items() if theObject.endswith(".gch")]
    theCommon += [Digest(theFile) for theFile in sorted(set().union(*thePrecompiled))]
    # A new header may come before another of its name.
    theCommon += sorted(str(theFile) for thePlace in kPlaces for theFile in (kRoot / thePlace).glob("**/*.h"))
    for theUnit in theUnits:
        if str(theUnit.mPath) in theUnit.mIncluded and IsBuilt(theBuild, theUnit):
            theParts = theCommon + [theUnit.mFlags] + [f + Digest(f) for f in sorted(theUnit.mIncluded)]
            theUnit.mKey = hashlib.sha256("\n".join(theParts).encode()).hexdigest()


def IsBuilt(theBuild, theUnit):
    """Whether the object is newer than all that went into it: what it includes is known only then. What this build
    does not compile was asked for just now."""
    if theUnit.mObject is None:
        return True
    try:
        theTime = os.stat(theBuild / theUnit.mObject).st_mtime_ns
        return all(os.stat(theFile).st_mtime_ns <= theTime for theFile in theUnit.mIncluded)
    except OSError:
        return False


def ChangedFiles():
    theCommands = (["git", "diff", "--name-only", "--relative", "HEAD"], ["git", "ls-files", "-o", "--exclude-standard"])
    theFiles = set()
    for theCommand in theCommands:
        theRun = subprocess.run(theCommand, capture_output=True, text=True, cwd=kRoot)
        if theRun.returncode != 0:
            sys.exit("There is no commit to compare with: " + theRun.stderr)
        theFiles |= {str(kRoot / theFile) for theFile in theRun.stdout.splitlines()}
    return theFiles


def MakeGroups(theUnits):
    """Files with one command and the same settings, up to kMostTogether of them, none of which define the same name."""
    theGroups = []
    for theUnit in theUnits:
        # Headers of one name lie in several rooms, so files of two are not mixed. Examples are small, each in a folder
        # of its own, and tests have few headers.
        isMixed = theUnit.mFile.startswith(("Examples/", "Tests/"))
        theKind = (theUnit.mFlags, theUnit.mFile.split("/")[0] if isMixed else theUnit.mPath.parent)
        theNames = DefinedNames(theUnit.mPath)
        for theGroup in theGroups:
            if theGroup["kind"] == theKind and len(theGroup["units"]) < kMostTogether \
                    and not theNames & theGroup["names"] and not theUnit.IsAlone():
                break
        else:
            theGroup = {"kind": None if theUnit.IsAlone() else theKind, "names": set(), "units": []}
            theGroups.append(theGroup)
        theGroup["names"] |= theNames
        theGroup["units"].append(theUnit)
    return [theGroup["units"] for theGroup in theGroups]


def WriteTogether(thePath, theUnits):
    """One file with the text of all; gives the file that each of its lines is from. What an earlier one has included is
    not included again, so that only what one file includes twice is a finding."""
    theFirst = {}
    theOrigins = []
    thePath.parent.mkdir(parents=True, exist_ok=True)
    with thePath.open("w") as theOutput:
        for theUnit in theUnits:
            for theLine in theUnit.mPath.read_text().splitlines():
                theOrigins.append(theUnit)
                theQuoted = re.match(r'#include "([^"]+)"', theLine)
                theFile = theQuoted and theUnit.Find(theQuoted.group(1), theUnit.mPath.parent)
                if theFile:
                    theLine = f'#include "{theFile.resolve()}"'
                if theLine.startswith("#include ") and theFirst.setdefault(theLine, theUnit) is not theUnit:
                    theLine = ""
                theOutput.write(theLine + "\n")
    return theOrigins


def HasAnalyzer(theFile):
    """Whether the settings of that file's folder leave the analyzer on."""
    theSettings = kRoot / theFile.split("/")[0] / ".clang-tidy"
    return not (theSettings.exists() and "-clang-analyzer-*" in theSettings.read_text())


def AnalyzerChecks():
    return ",".join(["-*"] + re.findall(r"^ *(clang-analyzer-[^,\s]+)", (kRoot / ".clang-tidy").read_text(), re.M))


class Linter:
    def __init__(self, theWork, theUnits):
        self.mWork = theWork
        self.mGroups = MakeGroups(theUnits)
        self.mNumbers = itertools.count()
        for theSettings in [kRoot / ".clang-tidy"] + list(kRoot.glob("*/.clang-tidy")):
            theCopy = theWork / theSettings.relative_to(kRoot)
            theCopy.parent.mkdir(exist_ok=True)
            theCopy.write_bytes(theSettings.read_bytes())

    def Run(self, theUnit, thePath, *theOptions):
        """Whether clang-tidy finds nothing in that text, compiled as that file is, and what it says."""
        theCommand = [*kTidy, *kDepth, *theOptions, str(thePath), "--", *shlex.split(theUnit.mFlags)[1:]]
        theRun = subprocess.run(theCommand, capture_output=True, text=True, cwd=theUnit.mFolder)
        return theRun.returncode == 0, theRun.stdout + theRun.stderr

    def ReadAlone(self, theUnit, *theOptions):
        isGood, theText = self.Run(theUnit, theUnit.mPath, *theOptions)
        return {} if isGood else {theUnit: theText}

    def Read(self, theUnits):
        """The findings of the matching checks. Of what is not good together, the files with errors are read apart from
        the others; where that tells nothing, half of them."""
        if len(theUnits) == 1:
            return self.ReadAlone(theUnits[0], kMatching)
        thePath = self.mWork / theUnits[0].mFile.split("/")[0] / f"Together{next(self.mNumbers)}.cpp"
        theOrigins = WriteTogether(thePath, theUnits)
        isGood, theText = self.Run(theUnits[0], thePath, kMatching, kTogether)
        if isGood:
            return {}
        theLines = re.findall(rf"^{re.escape(str(thePath))}:(\d+):\d+: error:", theText, re.M)
        theBlamed = {theOrigins[int(theLine) - 1] for theLine in theLines}
        if len(theBlamed) in (0, len(theUnits)):
            theBlamed = set(theUnits[:len(theUnits) // 2])
        return {**self.Read([u for u in theUnits if u in theBlamed]),
                **self.Read([u for u in theUnits if u not in theBlamed])}

    def Analyze(self, theUnit):
        return self.ReadAlone(theUnit, "--checks=" + AnalyzerChecks())

    def Work(self):
        """What is to be done: a function, and the files that it judges. Each file is in one piece or in two."""
        theTogether = [theGroup for theGroup in self.mGroups if len(theGroup) > 1]
        for theGroup in theTogether:
            yield functools.partial(self.Read, theGroup), theGroup
        # What takes longest comes first, so that no processor has nothing left to do in the end.
        theUnits = [theUnit for theGroup in theTogether for theUnit in theGroup if HasAnalyzer(theUnit.mFile)]
        for theUnit in sorted(theUnits, key=lambda theUnit: -theUnit.mPath.stat().st_size):
            yield functools.partial(self.Analyze, theUnit), [theUnit]
        # A file that is alone anyway is read once for everything.
        for theGroup in self.mGroups:
            if len(theGroup) == 1:
                yield functools.partial(self.ReadAlone, theGroup[0]), theGroup

    def Findings(self, theMark):
        """The files with findings. Each file that has none is given to theMark as soon as that is known."""
        theWork = list(self.Work())
        theOpen = Counter(theUnit for _, theUnits in theWork for theUnit in theUnits)
        theFindings = set()
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as thePool:
            theRuns = {thePool.submit(theRead): theUnits for theRead, theUnits in theWork}
            for theRun in concurrent.futures.as_completed(theRuns):
                theFindings |= set(theRun.result())
                for theText in theRun.result().values():
                    print(theText, flush=True)
                for theUnit in theRuns[theRun]:
                    theOpen[theUnit] -= 1
                    if theOpen[theUnit] == 0 and theUnit not in theFindings:
                        theMark(theUnit)
        return theFindings


def Main(theArguments):
    isChangedOnly = "--changed" in theArguments[:1]
    theBuild, *thePlaces = theArguments[1:] if isChangedOnly else theArguments
    theBuild = Path(theBuild).resolve()
    theUnits = ReadUnits(theBuild, tuple(thePlaces) or kPlaces)
    if not theUnits:
        sys.exit(f"{theBuild} names no file of the project")
    theIncludes = ReadIncludes(theBuild)
    theChanged = ChangedFiles() if isChangedOnly else set()
    if isChangedOnly:
        # To ask the compiler about a file takes its time, so only those are asked about that may differ.
        theUnits = [u for u in theUnits if not u.mWhole or theIncludes[u.mWhole] & theChanged or not theIncludes[u.mWhole]]
    for theUnit in theUnits:
        theUnit.FindIncluded(theIncludes)
    if isChangedOnly:
        theUnits = [u for u in theUnits if (u.mIncluded | {str(u.mPath)}) & theChanged]
    FindKeys(theUnits, theBuild, theIncludes)
    theMarks = theBuild / "Tidy" / "Good"
    theMarks.mkdir(parents=True, exist_ok=True)
    theUnread = [u for u in theUnits if u.mKey is None or not (theMarks / u.mKey).exists()]

    def Mark(theUnit):
        if theUnit.mKey:
            (theMarks / theUnit.mKey).touch()

    theFindings = Linter(theBuild / "Tidy", theUnread).Findings(Mark)
    print(f"{len(theUnits)} files, {len(theUnread)} of them read, {len(theFindings)} with findings")
    return 1 if theFindings else 0


if __name__ == "__main__":
    sys.exit(Main(sys.argv[1:]))
