#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# LayeringTests.sh <root of the project>: the layering check finds each kind of forbidden line, and nothing
# in a tree that keeps the rules.
set -u
kCheck=$1/Scripts/CheckLayering.sh
gTree=$(mktemp -d)
trap 'rm -rf "$gTree"' EXIT
gFailures=0

# fresh_tree: a small project that keeps every rule.
fresh_tree()
{
    rm -rf "${gTree:?}"/*
    mkdir -p "$gTree/Source/Core" "$gTree/Platform/CoreFoundation" "$gTree/Platform/Carbon" \
        "$gTree/Platform/Presentation/Include/Presentation" "$gTree/Platform/Presentation/Qt" "$gTree/Examples"
    printf '%s\n' '#ifndef LmThing_h' '#include <Carbon/Carbon.h>' '#include <vector>' '#endif' \
        >"$gTree/Source/Core/LmThing.h"
    printf '%s\n' '#include "LmThing.h"' '// throw #include <Nothing.h>' >"$gTree/Source/Core/LmThing.cpp"
    printf '%s\n' '#include <CoreFoundation/CoreFoundation.h>' '#include <unistd.h>' >"$gTree/Platform/Carbon/Queue.cpp"
    printf '%s\n' '#include <string>' '#include <Presentation/PresenterTypes.h>' \
        >"$gTree/Platform/Presentation/Include/Presentation/Presenter.h"
    printf '%s\n' '#include <QWidget>' >"$gTree/Platform/Presentation/Qt/QtWindow.cpp"
    printf '%s\n' '#include "LmThing.h"' '#include "Main.h"' '#include <Carbon/Carbon.h>' >"$gTree/Examples/Main.cpp"
    : >"$gTree/Examples/Main.h"
}

# finds <file> <line>: the check names that line when it is added to the file.
finds()
{
    local theOutput theStatus
    fresh_tree
    echo "$2" >>"$gTree/$1"
    theOutput=$("$kCheck" "$gTree")
    theStatus=$?
    if [ "$theStatus" -eq 0 ] || ! grep -q "^$1:[0-9]*:.*  -- " <<<"$theOutput"; then
        echo "Not found: $2 in $1"
        gFailures=$((gFailures + 1))
    fi
}

fresh_tree
if ! "$kCheck" "$gTree"; then
    echo "A tree that keeps the rules was not accepted."
    gFailures=$((gFailures + 1))
fi

finds Source/Core/LmThing.cpp '#include <Carbon/CarbonEvents.h>'
finds Source/Core/LmThing.cpp '#include <unistd.h>'
finds Source/Core/LmThing.cpp '  #  include "Core/LmThing.h"'
finds Source/Core/LmThing.cpp '#include "LmElsewhere.h"'
finds Source/Core/LmThing.cpp '#include <Presentation/Presenter.h>'
finds Source/Core/LmThing.cpp '#ifdef __APPLE__'
finds Source/Core/LmThing.cpp '#if defined(__linux__)'
finds Source/Core/LmThing.cpp '#include <filesystem>'
finds Source/Core/LmThing.cpp '    return theOptional.value();'
finds Source/Core/LmThing.cpp '    return std::get<int>(theVariant);'
finds Source/Core/LmThing.cpp '    throw 1;'
finds Platform/Carbon/Queue.cpp '#include "LmThing.h"'
finds Platform/Carbon/Queue.cpp '#include <LmBindings/LmThing.h>'
finds Platform/Carbon/Queue.cpp '#include <QWidget>'
finds Platform/CoreFoundation/String.cpp '#include <Carbon/Carbon.h>'
finds Platform/Presentation/Include/Presentation/Presenter.h '#include <Carbon/Carbon.h>'
finds Platform/Presentation/Include/Presentation/Presenter.h '#include <QString>'
finds Examples/Main.cpp '#include "EventQueue.h"'
finds Examples/Main.cpp '#include <Internal/Windows.h>'

[ "$gFailures" -eq 0 ]
