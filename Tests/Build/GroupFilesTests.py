#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""GroupFilesTests.py <root of the project>: Scripts/GroupFiles.py puts files together that define nothing twice, and no
others."""

import subprocess
import sys
import tempfile
from pathlib import Path

kRoot = Path(sys.argv[1]).resolve()
kShared = "#pragma once\n\nstruct Shared\n{\n    int theNumber;\n};\n\ninline int Twice(int theNumber)\n{\n}\n"

# What is tried, the most that a group may have, the files, and their groups.
kTries = (
    ("files without a common name are one group", 9, ("int One()\n{\n}\n", "int Two()\n{\n}\n"), "0;0"),
    ("a group has the most that it may", 2, ("int gA;\n", "int gB;\n", "int gC;\n"), "0;0;1"),
    ("a function of two files parts them", 9, ("int One()\n{\n}\n", "long One(int the)\n{\n}\n"), "0;1"),
    ("a constant of two files parts them", 9, ("const int kA = 1;\n", "const char kA[] = {\n    1,\n};\n"), "0;1"),
    ("a class of two files parts them", 9, ("class A\n{\n};\n", "struct A : B\n{\n};\n"), "0;1"),
    ("a macro of two files parts them", 9, ("#define A 1\n", "#define A(the) 2\n"), "0;1"),
    ("a type's other name parts them", 9, ("using A = int;\n", "using A = long;\n"), "0;1"),
    ("an enumerator parts them from a constant", 9, ("enum A\n{\n    kZ = 1,\n    kA\n};\n", "const int kA = 1;\n"), "0;1"),
    ("an enumerator on one line does", 9, ("enum A { kZ, kA };\n", "const int kA = 1;\n"), "0;1"),
    ("what is in functions parts nothing", 9, ("int One()\n{\n    int a;\n}\n", "int Two()\n{\n    int a;\n}\n"), "0;0"),
    ("tests and namespaces part nothing", 9, ("namespace {\n}\nTEST(A, B)\n", "namespace {\n}\nTEST(A, C)\n"), "0;0"),
    ("what is only declared parts nothing", 9, ("class A;\nusing B::C;\n", "class A;\nusing B::C;\n"), "0;0"),
    ("a header that both include parts nothing", 9, ('#include "Shared.h"\n', '#include "Shared.h"\nint gA;\n'), "0;0"),
    ("a name of another's header parts", 9, ('#include "Shared.h"\n', "int Twice()\n{\n}\n"), "0;1"),
    ("a name of a header's header parts", 9, ('#include "Through.h"\n', "struct Shared\n{\n};\n"), "0;1"),
    ("a file goes where it fits first", 9, ("int gA;\n", "int gA;\n", "int gB;\n", "int gA;\n", "int gC;\n"), "0;1;0;2;0"),
)


def GroupsOf(theMost, theTexts):
    with tempfile.TemporaryDirectory() as theFolder:
        theFolder = Path(theFolder)
        (theFolder / "Shared.h").write_text(kShared)
        (theFolder / "Through.h").write_text('#include "Shared.h"\n')
        theFiles = [theFolder / f"{theNumber}.cpp" for theNumber in range(len(theTexts))]
        for theFile, theText in zip(theFiles, theTexts):
            theFile.write_text(theText)
        theRun = subprocess.run([kRoot / "Scripts/GroupFiles.py", str(theMost), *theFiles], capture_output=True, text=True)
        return theRun.stdout.strip() + theRun.stderr


def Main():
    theFaults = [(theName, GroupsOf(theMost, theTexts), theGroups) for theName, theMost, theTexts, theGroups in kTries]
    theFaults = [theFault for theFault in theFaults if theFault[1] != theFault[2]]
    for theName, theGiven, theWanted in theFaults:
        print(f"{theName}: {theGiven} instead of {theWanted}")
    return 1 if theFaults else 0


if __name__ == "__main__":
    sys.exit(Main())
