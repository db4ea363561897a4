#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# HouseTests.sh <root of the project>: the check of the page about the rooms finds each thing that page, picture and
# sources can disagree about, and nothing where they agree.
set -u
kCheck=$1/Scripts/House.py
gTree=$(mktemp -d)
trap 'rm -rf "$gTree" "$gTree.named"' EXIT
gFailures=0

# fresh_tree: a small project whose page says what its sources do.
fresh_tree()
{
    rm -rf "${gTree:?}"/*
    mkdir -p "$gTree/Source/Core/Internal" "$gTree/Platform/Carbon/Include/Carbon" "$gTree/Documentation/Pictures"
    printf '%s\n' '#include <vector>' '#include <Carbon/Carbon.h>' >"$gTree/Source/Core/LmThing.h"
    printf '%s\n' '#include "LmThing.h"' '#include "LmIndex.h"' >"$gTree/Source/Core/LmThing.cpp"
    printf '%s\n' '#include "LmThing.h"' >"$gTree/Source/Core/Internal/LmIndex.h"
    : >"$gTree/Platform/Carbon/Include/Carbon/Carbon.h"
    printf '%s\n' '| folder | what is in it | includes |' '|---|---|---|' \
        '| `Source/Core` | things | `Source/Core/Internal`, `Platform/Carbon` |' \
        '| `Source/Core/Internal` | an index | `Source/Core` |' \
        '| `Platform/Carbon` | the host | |' >"$gTree/Documentation/House.md"
    printf '<title>%s&#45;&gt;%s</title>\n' Source/Core Source/Core/Internal Source/Core Platform/Carbon \
        Source/Core/Internal Source/Core >"$gTree/Documentation/Pictures/House.svg"
}

# finds <text>: the check fails and names that.
finds()
{
    local theOutput theStatus
    theOutput=$(python3 "$kCheck" check "$gTree")
    theStatus=$?
    if [ "$theStatus" -eq 0 ] || ! grep -qF "$1" <<<"$theOutput"; then
        printf 'Not found: %s\nbut:\n%s\n' "$1" "$theOutput"
        gFailures=$((gFailures + 1))
    fi
}

fresh_tree
if ! python3 "$kCheck" check "$gTree"; then
    echo "A page that says what the sources do was not accepted."
    gFailures=$((gFailures + 1))
fi

fresh_tree
echo '  #  include "LmThing.h"' >>"$gTree/Platform/Carbon/Include/Carbon/Carbon.h"
finds "Platform/Carbon/Include/Carbon/Carbon.h:1: Platform/Carbon includes Source/Core, which Documentation/House.md does not say"
finds "Documentation/Pictures/House.svg does not show that Platform/Carbon includes Source/Core"

fresh_tree
: >"$gTree/Source/Core/Internal/LmIndex.h"
finds "Documentation/House.md says that Source/Core/Internal includes Source/Core, which nothing there does"
finds "Documentation/Pictures/House.svg still shows that Source/Core/Internal includes Source/Core"

fresh_tree
mkdir "$gTree/Platform/Nibs"
: >"$gTree/Platform/Nibs/Reader.cpp"
finds "Platform/Nibs/Reader.cpp lies in no room of Documentation/House.md"

fresh_tree
echo '| `Source/Inspection` | a journal | |' >>"$gTree/Documentation/House.md"
finds "Documentation/House.md lists Source/Inspection, where no source is"

# says <text>: the page says that too, in a line of its own.
says()
{
    printf '%s\n' "$1" >>"$gTree/Documentation/House.md"
}

# What the page names is there, however it names it.
fresh_tree
mkdir -p "$gTree/CMake" "$gTree/Build/Core"
: >"$gTree/Build/Core/LmBuilt.h"
echo 'function(lm_add_room)' >"$gTree/CMake/LmRooms.cmake"
printf '%s\n' 'class LmThing : public LmStore' '{' '    bool operator==(int) const;' '    int Inline() { return 1; }' \
    '};' >>"$gTree/Source/Core/LmThing.h"
printf '%s\n' 'void LmThing::Move()' '{' '    LmLost::Found;' '}' >>"$gTree/Source/Core/LmThing.cpp"
cp -r "$gTree" "$gTree.named"
says '`LmThing.cpp`, `Core/Internal/LmIndex.h`, `Source/Core/Internal`, `Internal`, `Documentation/House.md check`'
says '`LmThing::Move`, `LmThing::Move()`, `LmThing::operator==`, `LmThing::Inline`, `Inline()`'
says '`lm_add_room`, `a->b("c",'
says '1)`, `LM_THING=memory`'
if ! python3 "$kCheck" check "$gTree"; then
    echo "Names that the project has were not accepted."
    gFailures=$((gFailures + 1))
fi

# names <text> <complaint>: the page names that, and the check complains.
names()
{
    rm -rf "${gTree:?}"/*
    cp -r "$gTree.named"/* "$gTree"
    says "\`$1\`"
    finds "Documentation/House.md:6 names $2"
}

names 'Thing.cpp' 'Thing.cpp, which is nowhere in the project'
names 'Internal/LmThing.cpp' 'Internal/LmThing.cpp, which is nowhere in the project'
names 'Source/Transforms' 'Source/Transforms, which is nowhere in the project'
names 'Scripts/Draw.py house' 'Scripts/Draw.py, which is nowhere in the project'
names 'LmBuilt.h' 'LmBuilt.h, which is nowhere in the project'
names 'LmThing::Stay' 'LmThing::Stay, which no source has'
names 'LmThing::Mov' 'LmThing::Mov, which no source has'
names 'LmThing::operator!=' 'LmThing::operator!=, which no source has'
names 'LmStore::Inline' 'LmStore::Inline, which no source has'
names 'LmLost::Found' 'LmLost::Found, which no source has'
names 'LmThin' 'LmThin, which no source has'
names 'Stay()' 'Stay(), which no source has'

fresh_tree
: >"$gTree/Documentation/House.md"
finds "Documentation/House.md lists no room"

[ "$gFailures" -eq 0 ]
