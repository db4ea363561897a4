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
    mkdir -p "$gTree"/Source/{Core,Core/Internal,Controllers/Internal,Inspection/Internal,Inspector/Internal} \
        "$gTree"/Platform/{CoreFoundation,CoreServices,Simulation} \
        "$gTree"/Platform/Carbon/Source/{Base,System,Events,Menus,Windows/ControlKinds,AppleEvents,Alerts,Objects,Views,Toolbox,Nibs/{Xml,Plain},Input} \
        "$gTree/Platform/Common" "$gTree"/Platform/Presentation/{Include/Presentation,Headless,Qt} "$gTree/Examples" \
        "$gTree"/Tools/{Inspect,Inspector}
    printf '%s\n' '#ifndef LmThing_h' '#include <Carbon/Carbon.h>' '#include <vector>' '#endif' \
        >"$gTree/Source/Core/LmThing.h"
    printf '%s\n' '#include "LmThing.h"' '// throw #include <Nothing.h>' >"$gTree/Source/Core/LmThing.cpp"
    : >"$gTree/Source/Core/Internal/LmHidden.h"
    : >"$gTree/Source/Controllers/Internal/LmInside.h"
    printf '%s\n' '#include "LmThing.h"' '#include "LmInside.h"' '#include <Carbon/Carbon.h>' '#include <map>' \
        >"$gTree/Source/Controllers/LmController.h"
    printf '%s\n' '#include "LmThing.h"' >"$gTree/Source/Inspection/LmJournalFile.h"
    printf '%s\n' '#include <unwind.h>' >"$gTree/Source/Inspection/Internal/LmCallers.cpp"
    printf '%s\n' '#include <CoreFoundation/CoreFoundation.h>' '#include <unistd.h>' >"$gTree/Platform/Carbon/Source/Events/Loop.cpp"
    printf '%s\n' '#include "Loop.h"' '#include "Base/Table.h"' >>"$gTree/Platform/Carbon/Source/Events/Loop.cpp"
    printf '%s\n' '#include <vector>' >"$gTree/Platform/Carbon/Source/Events/Loop.h"
    printf '%s\n' '#include <new>' >"$gTree/Platform/Common/Kept.h"
    printf '%s\n' '#include <map>' '#include "Common/Kept.h"' >"$gTree/Platform/Carbon/Source/Base/Table.h"
    printf '%s\n' '#include "Events/Loop.h"' '#include <Presentation/Presenter.h>' \
        >"$gTree/Platform/Carbon/Source/Menus/Menu.cpp"
    printf '%s\n' '#include "Windows/ControlKinds/Kind.h"' >"$gTree/Platform/Carbon/Source/Windows/Window.cpp"
    printf '%s\n' '#include "Events/Loop.h"' >"$gTree/Platform/Carbon/Source/Windows/ControlKinds/Kind.h"
    printf '%s\n' '#include "Menus/Menu.h"' '#include "Windows/Window.h"' \
        >"$gTree/Platform/Carbon/Source/Input/Gate.cpp"
    printf '%s\n' '#include "Headless.h"' '#include <Presentation/Presenter.h>' \
        >"$gTree/Platform/Presentation/Headless/Headless.cpp"
    printf '%s\n' '#include "Base/Table.h"' >"$gTree/Platform/Carbon/Source/System/Clock.h"
    : >"$gTree/Platform/Presentation/Headless/Headless.h"
    printf '%s\n' '#include "Events/Loop.h"' '#include <Simulation/Person.h>' >"$gTree/Platform/Simulation/Person.cpp"
    printf '%s\n' '#include <string>' '#include <Presentation/PresenterTypes.h>' \
        >"$gTree/Platform/Presentation/Include/Presentation/Presenter.h"
    printf '%s\n' '#include <QWidget>' >"$gTree/Platform/Presentation/Qt/QtWindow.cpp"
    printf '%s\n' '#include "LmThing.h"' '#include "Main.h"' '#include <Carbon/Carbon.h>' >"$gTree/Examples/Main.cpp"
    : >"$gTree/Examples/Main.h"
    printf '%s\n' '#include "LmThing.h"' >"$gTree/Source/Inspector/LmInspector.h"
    printf '%s\n' '#include "LmInspector.h"' '#include <Carbon/Carbon.h>' '#include <QWidget>' \
        >"$gTree/Tools/Inspector/Window.cpp"
    printf '%s\n' '#include <map>' >"$gTree/Tools/Inspect/Main.cpp"
}

# breaks <file> <line>: adds the line, which is to be found, to the file.
gBroken=()
breaks()
{
    echo "$2" >>"$gTree/$1"
    gBroken+=("$1:$(wc -l <"$gTree/$1"): $2")
}

# find_what_breaks: the check names each line that was added and no other.
find_what_breaks()
{
    local theOutput theStatus theLine theNamed
    theOutput=$("$kCheck" "$gTree")
    theStatus=$?
    if [ "$theStatus" -eq 0 ]; then
        echo "A tree that breaks the rules was accepted."
        gFailures=$((gFailures + 1))
    fi
    for theLine in "${gBroken[@]}"; do
        if ! grep -qF "${theLine%%: *}:" <<<"$theOutput"; then
            echo "Not found: $theLine"
            gFailures=$((gFailures + 1))
        fi
    done
    while read -r theNamed; do
        if ! printf '%s\n' "${gBroken[@]%%: *}" | grep -qxF "$theNamed"; then
            echo "Found, and keeps the rules: $theNamed"
            gFailures=$((gFailures + 1))
        fi
    done < <(sed -nE 's/^([^:]+:[0-9]*):.*  -- .*/\1/p' <<<"$theOutput")
    gBroken=()
}

fresh_tree
if ! "$kCheck" "$gTree"; then
    echo "A tree that keeps the rules was not accepted."
    gFailures=$((gFailures + 1))
fi

fresh_tree
breaks Source/Core/LmThing.cpp '#include <Carbon/CarbonEvents.h>'
breaks Source/Core/LmThing.cpp '#include <unistd.h>'
breaks Source/Core/LmThing.cpp '#include <unwind.h>'
breaks Source/Core/LmThing.cpp '#include "LmJournalFile.h"'
breaks Source/Inspection/LmJournalFile.h '#include <unwind.h>'
breaks Source/Core/LmThing.cpp '  #  include "Core/LmThing.h"'
breaks Source/Core/LmThing.cpp '#include "LmElsewhere.h"'
breaks Source/Core/LmThing.cpp '#include <Presentation/Presenter.h>'
breaks Source/Core/LmThing.cpp '#ifdef __APPLE__'
breaks Source/Core/LmThing.cpp '#if defined(__linux__)'
breaks Source/Core/LmThing.cpp '#include <filesystem>'
breaks Source/Core/LmThing.cpp '    return theOptional.value();'
breaks Source/Core/LmThing.cpp '    return std::get<int>(theVariant);'
breaks Source/Core/LmThing.cpp '    const CGFloat theWidth = 1;'
breaks Source/Core/LmThing.cpp '    CFStringGetLongCharacterForSurrogatePair(theHigh, theLow);'
breaks Source/Core/LmThing.cpp '    throw 1;'
breaks Source/Controllers/LmController.h '#include "LmHidden.h"'
breaks Source/Controllers/LmController.h '#include <CoreFoundation/CFString.h>'
breaks Source/Core/LmThing.h '#include "LmController.h"'
breaks Source/Core/LmThing.cpp '#include "LmInside.h"'
breaks Platform/Carbon/Source/Events/Loop.cpp '#include "LmThing.h"'
breaks Platform/Carbon/Source/Events/Loop.cpp '#include <LmBindings/LmThing.h>'
breaks Platform/Carbon/Source/Events/Loop.cpp '#include <QWidget>'
breaks Platform/CoreFoundation/String.cpp '#include <Carbon/Carbon.h>'
breaks Platform/CoreFoundation/String.cpp '#include <CoreServices/CoreServices.h>'
breaks Platform/CoreServices/Memory.cpp '#include <Carbon/Carbon.h>'
breaks Platform/Carbon/Source/Windows/Window.cpp '#include "Toolbox/Cursors.h"'
breaks Platform/Carbon/Source/Windows/Window.cpp '#include "Views/Views.h"'
breaks Platform/Carbon/Source/Toolbox/Cursors.cpp '#include "Input/Gate.h"'
breaks Platform/Carbon/Source/Alerts/Alert.cpp '#include "Windows/Window.h"'
breaks Platform/Carbon/Source/Nibs/Nib.cpp '#include <libxml/parser.h>'
breaks Platform/Carbon/Source/Nibs/Nib.h '#include "Toolbox/Cursors.h"'
breaks Platform/Carbon/Source/Nibs/Xml/Reader.cpp '#include "Windows/Window.h"'
breaks Platform/Presentation/Include/Presentation/Presenter.h '#include <Carbon/Carbon.h>'
breaks Platform/Presentation/Include/Presentation/Presenter.h '#include <QString>'
breaks Platform/Carbon/Source/Base/Table.h '#include "Events/Loop.h"'
breaks Platform/Carbon/Source/Base/Table.h '#include "Loop.h"'
breaks Platform/Common/Kept.h '#include "Base/Table.h"'
breaks Platform/Carbon/Source/Events/Loop.cpp '#include "Menus/Menu.h"'
breaks Platform/Carbon/Source/Events/Loop.cpp '#include "Table.h"'
breaks Platform/Carbon/Source/Events/Loop.cpp '#include <Simulation/Person.h>'
breaks Platform/Carbon/Source/Menus/Menu.cpp '#include "Windows/Window.h"'
breaks Platform/Carbon/Source/Windows/Window.cpp '#include "Kind.h"'
breaks Platform/Carbon/Source/Windows/Window.cpp '#include "Input/Gate.h"'
breaks Platform/Carbon/Source/Windows/ControlKinds/Kind.h '#include "Toolbox/Cursors.h"'
breaks Platform/Presentation/Headless/Headless.cpp '#include <Carbon/Carbon.h>'
breaks Platform/Presentation/Headless/Headless.cpp '#include "Input/Gate.h"'
breaks Platform/Presentation/Headless/Headless.cpp '#include "Loop.h"'
breaks Platform/Presentation/Qt/QtWindow.cpp '#include <Carbon/Carbon.h>'
breaks Platform/Presentation/Qt/QtWindow.cpp '#include "Windows/Window.h"'
breaks Source/Core/LmThing.cpp '#include "LmInspector.h"'
breaks Source/Inspector/LmInspector.h '#include <QWidget>'
breaks Tools/Inspector/Window.cpp '#include "LmHidden.h"'
breaks Tools/Inspector/Window.cpp '#include <Presentation/Presenter.h>'
breaks Tools/Inspect/Main.cpp '#include "LmThing.h"'
breaks Tools/Inspect/Main.cpp '#include <QWidget>'
breaks Examples/Main.cpp '#include "EventQueue.h"'
breaks Examples/Main.cpp '#include <Windows/Windows.h>'
find_what_breaks

# A name that two rooms give a file makes an include mean either.
fresh_tree
breaks Platform/Carbon/Source/Base/Loop.h ''
find_what_breaks

[ "$gFailures" -eq 0 ]
