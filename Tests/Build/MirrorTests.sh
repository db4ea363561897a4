#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# MirrorTests.sh <root of the project>: each source file of the project has tests under its name, and the check
# that says so finds one that has none.
set -u
kRoot=$1
kCheck=$kRoot/Scripts/CheckTestMirror.sh
gTree=$(mktemp -d)
trap 'rm -rf "$gTree"' EXIT
gFailures=0

# mirrored_tree: a copy of the project's sources and tests.
mirrored_tree()
{
    rm -rf "${gTree:?}"/*
    (cd "$kRoot" && find Source Platform Tools Tests \( -name '*.cpp' -o -name '*Tests.sh' \) -print0 | tar --null -cf - -T -) | tar -xf - -C "$gTree"
}

# finds <text> <what was done>: the check fails and prints the text.
finds()
{
    local theOutput
    if theOutput=$("$kCheck" "$gTree") || ! grep -qF -- "$1" <<<"$theOutput"; then
        echo "Not found: $2"
        gFailures=$((gFailures + 1))
    fi
}

if ! "$kCheck" "$kRoot"; then
    gFailures=$((gFailures + 1))
fi

for theSource in Source/Core/LmNew.cpp Source/Core/Internal/LmNew.cpp Platform/Carbon/Source/Events/New.cpp \
    Platform/Carbon/Source/New/New.cpp Platform/Presentation/Headless/New.cpp Platform/New.cpp; do
    mirrored_tree
    mkdir -p "$(dirname "$gTree/$theSource")"
    : >"$gTree/$theSource"
    finds "$theSource  -- there is no Tests/" "$theSource without tests"
done

mirrored_tree
rm "$gTree/Tests/Core/LmValueTests.cpp"
finds 'Source/Core/LmValue.cpp  -- there is no Tests/Core/LmValueTests.cpp' 'tests that were taken away'

mirrored_tree
mkdir -p "$gTree/Tests/Transforms"
mv "$gTree/Tests/Core/LmValueTests.cpp" "$gTree/Tests/Transforms"
finds 'Source/Core/LmValue.cpp  -- there is no Tests/Core/LmValueTests.cpp' 'tests in the folder of others'

mirrored_tree
rm "$gTree/Platform/CoreFoundation/Source/CFContainer.cpp"
finds 'Platform/CoreFoundation/Source/CFContainer.cpp  -- is no exception' 'an exception for what is gone'

mirrored_tree
: >"$gTree/Tests/Platform/CoreFoundation/CFContainerTests.cpp"
finds 'Platform/CoreFoundation/Source/CFContainer.cpp  -- is no exception' 'an exception for what has tests'

[ "$gFailures" -eq 0 ]
