#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""CheckTidy.py [--changed] <build folder> [<beginning of a path>...]

Runs clang-tidy over the files of the project that the build compiles, or over those of them in the named places;
with --changed, over those that differ from the last commit or include something that does. The build must have
been configured with CMAKE_EXPORT_COMPILE_COMMANDS.

A file that was found good is not read again while it, all that it includes, its command, the settings and the
linter stay the same: Tidy/Good in the build folder holds a mark for each. What a file includes is known from its
build; one that was not built as it stands is read every time.

Most of the time goes into the standard headers and the test framework. So files that lie side by side and are
compiled alike are read as one, several at a time. That decides only what is good: where several together give a
finding, or cannot be read together, each of them is read alone. The static analyzer follows calls, so it reads
every file alone.
"""

import concurrent.futures
import hashlib
import json
import os
import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

kRoot = Path(__file__).resolve().parent.parent
kPlaces = ("Source/", "Platform/", "Tools/", "Examples/", "Tests/", "Benchmarks/")
# GCC and clang know different warnings by name; those that clang does not know are no finding.
kTidy = ["clang-tidy-14", "--quiet", "--extra-arg=-Wno-unknown-warning-option"]
kMostTogether = 8


class Unit:
    """A file that the build compiles, with the command for it."""

    def __init__(self, theEntry):
        self.mPath = Path(theEntry["file"])
        self.mFile = str(self.mPath.relative_to(kRoot))
        theCommand = theEntry["command"]
        self.mFolder = theEntry["directory"]
        self.mObject = re.search(r" -o (\S+) -c ", theCommand).group(1)
        # clang cannot read what GCC has precompiled, so every file is read as it stands.
        theFlags = re.sub(r" -o \S+ -c \S+$", "", theCommand)
        self.mFlags = re.sub(r" -Winvalid-pch -include \S+cmake_pch\.hxx", "", theFlags)
        self.mKey = None
        self.mIncluded = set()

    def Names(self):
        """What the file defines outside of functions, roughly: files that share such a name are not read as one."""
        theNames = set()
        for theLine in self.mPath.read_text().splitlines():
            if re.match(r"(class|struct|enum|union)\b[^;]*$", theLine):
                theHead = re.split(r"[:{]", theLine)[0]
            elif re.match(r"[A-Za-z_].*[^:]$|[A-Za-z_].*;$", theLine) and not re.match(r"(using|extern|TEST)", theLine):
                theHead = re.split(r"[(={\[;]", theLine)[0]
            elif theLine.startswith("#define "):
                theHead = re.split(r"[ (]", theLine[8:])[0]
            else:
                continue
            theName = re.search(r"[\w:~]+$", theHead.strip())
            if theName and not re.match(r"(class|struct) \w+;", theLine):
                theNames.add(theName.group())
        return theNames

    def IsAlone(self):
        """Tests are compiled with the test framework precompiled: that each includes it itself is seen only here."""
        return self.mFile.startswith("Tests/") and "#include <gtest/gtest.h>" not in self.mPath.read_text()


def ReadUnits(theBuild, thePlaces):
    theUnits = {}
    for theEntry in json.loads((theBuild / "compile_commands.json").read_text()):
        theFile = os.path.relpath(theEntry["file"], kRoot)
        # Only the project's own files: the build also compiles the test framework.
        if theFile.endswith(".cpp") and theFile.startswith(tuple(kPlaces)) and theFile.startswith(thePlaces):
            theUnits.setdefault(theFile, Unit(theEntry))
    return list(theUnits.values())


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


def FindKeys(theUnits, theBuild):
    theIncludes = ReadIncludes(theBuild)
    theCommon = [subprocess.run(["clang-tidy-14", "--version"], capture_output=True, text=True).stdout]
    theCommon += [Digest(theFile) for theFile in [kRoot / ".clang-tidy", *sorted(kRoot.glob("*/.clang-tidy")), Path(__file__)]]
    # What is precompiled is in no other list.
    thePrecompiled = [theFiles for theObject, theFiles in theIncludes.items() if theObject.endswith(".gch")]
    theCommon += [Digest(theFile) for theFile in sorted(set().union(*thePrecompiled))]
    # A new header may come before another of its name.
    theCommon += sorted(str(theFile) for thePlace in kPlaces for theFile in (kRoot / thePlace).glob("**/*.h"))
    for theUnit in theUnits:
        theUnit.mIncluded = theIncludes.get(theUnit.mObject, set())
        if str(theUnit.mPath) in theUnit.mIncluded and IsBuilt(theBuild, theUnit):
            theParts = theCommon + [theUnit.mFlags] + [f + Digest(f) for f in sorted(theUnit.mIncluded)]
            theUnit.mKey = hashlib.sha256("\n".join(theParts).encode()).hexdigest()


def IsBuilt(theBuild, theUnit):
    """Whether the object is newer than all that went into it: what it includes is known only then."""
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
    """Files of one folder with one command, up to kMostTogether of them, none of which define the same name."""
    theGroups = []
    for theUnit in theUnits:
        theKind = (theUnit.mFlags, theUnit.mPath.parent)
        theNames = theUnit.Names()
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
    """One file with the text of all. What an earlier one has included is not included again, so that only what one
    file includes twice is a finding."""
    theFirst = {}
    thePath.parent.mkdir(parents=True, exist_ok=True)
    with thePath.open("w") as theOutput:
        for theUnit in theUnits:
            for theLine in theUnit.mPath.read_text().splitlines():
                if theLine.startswith("#include ") and theFirst.setdefault(theLine, theUnit) is not theUnit:
                    theLine = ""
                theOutput.write(theLine + "\n")


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
        self.mDatabase = []
        for theNumber, theGroup in enumerate(self.mGroups):
            for theUnit in theGroup:
                self.Enter(theUnit, theUnit.mPath)
            if len(theGroup) > 1:
                thePath = self.Together(theNumber)
                WriteTogether(thePath, theGroup)
                self.Enter(theGroup[0], thePath)
        (theWork / "compile_commands.json").write_text(json.dumps(self.mDatabase))
        for theSettings in [kRoot / ".clang-tidy"] + list(kRoot.glob("*/.clang-tidy")):
            theCopy = theWork / theSettings.relative_to(kRoot)
            theCopy.parent.mkdir(exist_ok=True)
            theCopy.write_bytes(theSettings.read_bytes())

    def Together(self, theNumber):
        theFolder = self.mGroups[theNumber][0].mFile.split("/")[0]
        return self.mWork / theFolder / f"Together{theNumber}.cpp"

    def Enter(self, theUnit, thePath):
        theCommand = f"{theUnit.mFlags} -iquote {theUnit.mPath.parent} -c {thePath}"
        self.mDatabase.append({"directory": theUnit.mFolder, "command": theCommand, "file": str(thePath)})

    def Run(self, thePath, *theOptions):
        theRun = subprocess.run(kTidy + ["-p", str(self.mWork), *theOptions, str(thePath)],
                                capture_output=True, text=True, cwd=kRoot)
        return theRun.returncode == 0, theRun.stdout + theRun.stderr

    def Read(self, theNumber):
        """Whether the matching checks find nothing in a group, and the file of the group that they do in."""
        theGroup = self.mGroups[theNumber]
        if len(theGroup) > 1 and self.Run(self.Together(theNumber), "--checks=-clang-analyzer-*")[0]:
            return {}
        return {theUnit: theText for theUnit in theGroup
                for isGood, theText in [self.Run(theUnit.mPath, "--checks=-clang-analyzer-*")] if not isGood}

    def Analyze(self, theUnit):
        isGood, theText = self.Run(theUnit.mPath, "--checks=" + AnalyzerChecks())
        return {} if isGood else {theUnit: theText}

    def Findings(self):
        """The files with findings, and those."""
        theFindings = defaultdict(str)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as thePool:
            theUnits = [theUnit for theGroup in self.mGroups for theUnit in theGroup if HasAnalyzer(theUnit.mFile)]
            # What takes longest comes first, so that no processor has nothing left to do in the end.
            theUnits.sort(key=lambda theUnit: -theUnit.mPath.stat().st_size)
            theWork = [thePool.submit(self.Read, theNumber) for theNumber in range(len(self.mGroups))]
            theWork += [thePool.submit(self.Analyze, theUnit) for theUnit in theUnits]
            for thePart in theWork:
                for theUnit, theText in thePart.result().items():
                    theFindings[theUnit] += theText
                    print(theText, flush=True)
        return theFindings


def Main(theArguments):
    isChangedOnly = "--changed" in theArguments[:1]
    theBuild, *thePlaces = theArguments[1:] if isChangedOnly else theArguments
    theBuild = Path(theBuild).resolve()
    theUnits = ReadUnits(theBuild, tuple(thePlaces) or kPlaces)
    if not theUnits:
        sys.exit(f"{theBuild} names no file of the project")
    FindKeys(theUnits, theBuild)
    if isChangedOnly:
        theChanged = ChangedFiles()
        theUnits = [u for u in theUnits if (u.mIncluded | {str(u.mPath)}) & theChanged]
    theMarks = theBuild / "Tidy" / "Good"
    theMarks.mkdir(parents=True, exist_ok=True)
    theUnread = [u for u in theUnits if u.mKey is None or not (theMarks / u.mKey).exists()]
    theFindings = Linter(theBuild / "Tidy", theUnread).Findings()
    for theUnit in theUnread:
        if theUnit.mKey and theUnit not in theFindings:
            (theMarks / theUnit.mKey).touch()
    print(f"{len(theUnits)} files, {len(theUnread)} of them read, {len(theFindings)} with findings")
    return 1 if theFindings else 0


if __name__ == "__main__":
    sys.exit(Main(sys.argv[1:]))
