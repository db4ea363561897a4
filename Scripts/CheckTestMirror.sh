#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckTestMirror.sh <root of the project>: fails when a source file of Source, Platform or Tools has no tests under
# its name, and names each such file.
#
#   Source/Core/LmValue.cpp                       Tests/Core/LmValueTests.cpp
#   Platform/Carbon/Source/Events/EventQueue.cpp  Tests/Platform/Carbon/Events/EventQueueTests.cpp
#   Platform/Presentation/Source/Presenter.cpp    Tests/Presentation/PresenterTests.cpp
#
# A script of the name does as well, where a program must be looked at from outside. What is tested elsewhere is
# named below with the reason.
#
# Folders called Source and Internal say who may see a file, and not what it is: the tests leave them out.
set -u
cd "$1" || exit 1

# Sources that are tested elsewhere, with the reason. A path that ends in / stands for all files of that folder.
exceptions()
{
    cat <<'END'
Platform/Carbon/Source/Input/PresentedManagers.cpp the managers as presenters see them: InputGateTests, LookTests
Platform/Carbon/Source/Nibs/Nib.cpp what stands in a nib: Nib{Menus,Windows,Controls,ControlKinds}Tests
Platform/Carbon/Source/Nibs/NibProperties.cpp what every control can have: NibControlsTests
Platform/Carbon/Source/Nibs/Xml/ how nibs are read: NibsTests
Platform/CoreFoundation/Source/CFContainer.cpp two callbacks of what holds values: CFArrayTests, CFDictionaryTests
Platform/CoreFoundation/Source/Formats/ what formatters stand on: CF{NumberFormatter,DateFormatter,Locale,TimeZone}Tests
Platform/CoreFoundation/Source/CFUnicodeTables.cpp tables alone: CFUnicodeTests, CFStringCompareTests
Platform/Drawing/Source/Bitmap.cpp the pixels of a context: CGBitmapContextTests
Platform/Drawing/Source/Cairo/ how contexts draw: CGContextTests, CGContextStateTests
Platform/Drawing/Source/DrawingTypes.cpp a table alone: CGColorTests
Platform/Drawing/Source/Outline.cpp the path of a context: CGContextPathTests
Platform/Presentation/Headless/HeadlessPresenter.cpp nothing but what every presenter owes: PresenterContractTests
Platform/Presentation/Qt/ Qt's behaviour crosses its files: the contract of presenters, and Tests/Presentation/Qt
Source/Controllers/Internal/LmCharacters.cpp text as formatters work on it: Lm{Number,Word}FormattersTests
Source/Controllers/Internal/LmNumberShape.cpp how numbers look in a locale: LmNumberFormattersTests
Source/Inspection/Internal/LmEventNames.cpp a table alone: LmPersonWatchTests, LmJournalRecorderTests
Source/Inspection/Internal/LmJournalKeeper.cpp which journal there is: LmJournalFileTests, LmJournalDoorTests
Source/Inspection/Internal/LmLocalSocketNone.cpp nothing, for systems without: it is not built here
Source/Inspection/Internal/LmJournalObjects.cpp what entries call objects: LmJournalRecorderTests
Source/Core/Internal/LmKeyMemo.cpp where a store finds its keys again: LmKeyValueStoreTests, LmNestedSetTests
Source/Core/Internal/LmObserverSnapshot.cpp the observers of one pass, seen by those alone: LmKeyValueStoreTests
Source/Inspector/Internal/LmLiveRecord.cpp what LmLiveSurvey asks, and nobody else: LmLiveSurveyTests
Tools/Inspect/Describe.cpp the words for what others show: LogTests
Tools/Inspect/Entry.cpp a record and the names of its kinds: EntryParserTests, OptionsTests
Tools/Inspect/Main.cpp the program: ProgramTests
Tools/Inspect/Status.cpp what is said at the end: ProgramTests
Tools/Inspector/ a window, which a person uses on a screen: Tests/Desktop/UseInspector.sh
END
}

# tests_of: reads sources, and prints the file that the tests of each stand in.
tests_of()
{
    sed -E 's,/(Source|Internal)/,/,g; s,^Source/,,; s,^Platform/Presentation/,Presentation/,
        s,^(.*)\.cpp$,Tests/\1Tests.cpp,'
}

gFailures=0

# report <file> <finding>
report()
{
    echo "$1  -- $2"
    gFailures=$((gFailures + 1))
}

mapfile -t theExceptions < <(exceptions | cut -d ' ' -f 1)
mapfile -t theReasons < <(exceptions | cut -s -d ' ' -f 2-)
mapfile -t theExceptionTests < <(printf '%s\n' "${theExceptions[@]}" | tests_of)
mapfile -t theSources < <(find Source Platform Tools -name '*.cpp' | sort)
mapfile -t theTests < <(printf '%s\n' "${theSources[@]}" | tests_of)

# has_tests <test file>: it is there, or a script of its name.
has_tests()
{
    [ -f "$1" ] || [ -f "${1%.cpp}.sh" ]
}

# is_excepted <source>
is_excepted()
{
    local thePath
    for thePath in "${theExceptions[@]}"; do
        case $1 in
        "$thePath" | "${thePath%/}"/*) return 0 ;;
        esac
    done
    return 1
}

if [ "${#theSources[@]}" -eq 0 ]; then
    echo "There is nothing in Source and Platform." >&2
    exit 1
fi
for theIndex in "${!theSources[@]}"; do
    if ! has_tests "${theTests[theIndex]}" && ! is_excepted "${theSources[theIndex]}"; then
        report "${theSources[theIndex]}" "there is no ${theTests[theIndex]}"
    fi
done
for theIndex in "${!theExceptions[@]}"; do
    if [ ! -e "${theExceptions[theIndex]}" ] || has_tests "${theExceptionTests[theIndex]}"; then
        report "${theExceptions[theIndex]}" "is no exception: it is not there, or has tests of its own"
    fi
done
if [ "${#theReasons[@]}" -ne "${#theExceptions[@]}" ]; then
    report Scripts/CheckTestMirror.sh "there is an exception without a reason"
fi
echo "${#theSources[@]} source files, $gFailures findings"
[ "$gFailures" -eq 0 ]
