#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# HouseTests.sh <root of the project>: the check of the page about the rooms finds each thing that page, picture and
# sources can disagree about, and nothing where they agree.
set -u
kCheck=$1/Scripts/House.py
gTree=$(mktemp -d)
trap 'rm -rf "$gTree"' EXIT
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

fresh_tree
: >"$gTree/Documentation/House.md"
finds "Documentation/House.md lists no room"

[ "$gFailures" -eq 0 ]
