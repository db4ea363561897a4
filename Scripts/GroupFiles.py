#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""GroupFiles.py <most> <file>...

Tells which C++ files can be compiled as one: prints a number for each file, its group, in the order of the files. A
group has <most> files at most, and no two of them define one name, in themselves or in headers of the project that they
include, in two places. The first group that a file fits into is its own, so that a new file moves few others.
"""

import functools
import re
import sys
from pathlib import Path

kRoot = Path(__file__).resolve().parent.parent
# Lines that begin with a word, at the outermost level, and name nothing that another file could name too.
kDefinesNothing = r"(namespace|using [^=]*$|extern|static_assert|TEST|TYPED_TEST|INSTANTIATE_|LM_EXPORT$)"


@functools.lru_cache(None)
def DefinedNames(thePath):
    """What the file defines outside of functions, roughly."""
    theText = thePath.read_text()
    theNames = set()
    for theBody in re.findall(r"^enum\b[^{;]*\{([^}]*)\}", theText, re.M):
        theNames.update(re.findall(r"(?:^|,)\s*(\w+)", theBody))
    for theLine in theText.splitlines():
        if re.match(r"(class|struct|enum|union)\b[^;]*$", theLine):
            theHead = re.split(r"[:{]", theLine)[0]
        elif re.match(kDefinesNothing, theLine):
            continue
        elif re.match(r"[A-Za-z_].*[^:]$|[A-Za-z_].*;$", theLine):
            theHead = re.split(r"[(={\[;]", theLine)[0]
        elif theLine.startswith("#define "):
            theHead = re.split(r"[ (]", theLine[8:])[0]
        else:
            continue
        theName = re.search(r"[\w:~]+$", theHead.strip())
        if theName and not re.match(r"(class|struct) \w+;", theLine):
            theNames.add(theName.group())
    return theNames


def RoomOf(thePath):
    """The folder of the first floor that the file is in; its own, where that is elsewhere."""
    return kRoot / thePath.relative_to(kRoot).parts[0] if thePath.is_relative_to(kRoot) else thePath.parent


@functools.lru_cache(None)
def Headers(theRoom):
    """The headers in a folder, by their names."""
    theHeaders = {}
    for theHeader in sorted(theRoom.glob("**/*.h")):
        theHeaders.setdefault(theHeader.name, theHeader)
    return theHeaders


def Included(thePath):
    """The file, and the headers of its room that it includes, itself or through others."""
    theFiles = [thePath]
    for theFile in theFiles:
        for theName in re.findall(r'^#include "([^"]+)"', theFile.read_text(), re.M):
            theBeside = theFile.parent / theName
            theHeader = theBeside.resolve() if theBeside.is_file() else Headers(RoomOf(thePath)).get(Path(theName).name)
            if theHeader and theHeader not in theFiles:
                theFiles.append(theHeader)
    return theFiles


def Places(thePath):
    """Where the file, or a header that it includes, defines each of its names."""
    return {theName: theFile for theFile in Included(thePath) for theName in DefinedNames(theFile)}


def Agree(theOne, theOther):
    theShorter, theLonger = sorted((theOne, theOther), key=len)
    return all(theLonger.get(theName, thePlace) == thePlace for theName, thePlace in theShorter.items())


def Groups(theFiles, theMost):
    theGroups = []
    for theFile in theFiles:
        thePlaces = Places(Path(theFile).resolve())
        for theNumber, (theCount, theKnown) in enumerate(theGroups):
            if theCount < theMost and Agree(theKnown, thePlaces):
                theGroups[theNumber] = (theCount + 1, {**theKnown, **thePlaces})
                break
        else:
            theNumber = len(theGroups)
            theGroups.append((1, thePlaces))
        yield theNumber


if __name__ == "__main__":
    if len(sys.argv) < 3 or not sys.argv[1].isdigit():
        sys.exit(__doc__)
    print(";".join(str(theNumber) for theNumber in Groups(sys.argv[2:], int(sys.argv[1]))))
