#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckLayering.sh <root of the project>: fails when a folder includes what its layer may not know, and
# names each such line.
#
#   Examples -> Source/Controllers -> Source -> Platform/Carbon -> Platform/CoreFoundation
#   Platform/Simulation -> Platform/Carbon -> Platform/CoreServices, Platform/Presentation
#   Tools/Inspect -> nothing of these: it reads what programs have written
#   Tools/Inspector -> Source, Platform/Carbon, Qt: a window that looks at a program while it runs
#
# Source knows of its host only <CoreFoundation/CoreFoundation.h> and <Carbon/Carbon.h>; the journal also asks the
# run time of C++ itself for the callers on the stack and the names of classes, and in one file for each system for
# the socket by which lminspect reaches a running program. Source asks for no system besides, uses nothing of the
# standard library that Mac OS X 10.7 has no run time for, and no name that the platform's headers have only since
# Mac OS X 10.5. Platform knows nothing of Source. What a presenter is
# told and reports back is said without Carbon and without Qt.
set -u
cd "$1" || exit 1

kStandard='<[a-z_0-9]+>'
# What the platform's headers gained with Mac OS X 10.5 and later.
kNewNames='CGFloat|[PSU]RefCon|typeRefCon|kVK_[A-Za-z_0-9]+|RemoveEventParameter|kEventControlFocusPartChanged|'
kNewNames+='kCFNumber(NSInteger|CGFloat)Type|CFError[A-Za-z]+|kCFError[A-Za-z]+|CFPropertyListCreate(With)?Data|'
kNewNames+='kCFNumberFormatter(IsLenient|CurrencyGroupingSeparator)|CFLocaleCopyPreferredLanguages|'
kNewNames+='CFStringIsSurrogate[A-Za-z]+|CFStringGet[A-Za-z]*Surrogate[A-Za-z]*'
gViolations=0

# files <folder>...: the sources in those folders that are there.
files()
{
    local theFolder
    for theFolder in "$@"; do
        [ -d "$theFolder" ] && find "$theFolder" -name '*.h' -o -name '*.cpp' -o -name '*.c'
    done | sort
}

# lines <pattern> <file>...: prints each line of code that holds the pattern as "file:line:code"; comments
# do not count.
lines()
{
    local thePattern=$1
    shift
    [ "$#" -gt 0 ] || return
    thePattern=$thePattern awk '
        {
            sub("//.*", "")
            if ($0 ~ ENVIRON["thePattern"]) {
                print FILENAME ":" FNR ":" $0
            }
        }' "$@"
}

# includes <folder>...: prints what the files there include, as "file:line:<name>" or 'file:line:"name"'.
includes()
{
    local theFiles
    mapfile -t theFiles < <(files "$@")
    lines '^[[:space:]]*#[[:space:]]*include' "${theFiles[@]}" |
        sed -E 's/#[[:space:]]*include[[:space:]]*//; s/[[:space:]]+//g'
}

# without <pattern>: leaves out what is included under a name that matches the whole pattern.
without()
{
    grep -Ev ":[0-9]+:($1)\$"
}

# without_headers_of <folder>: leaves out the bare names ("Name.h") of headers in that folder.
without_headers_of()
{
    local theNames
    theNames=$(files "$1" | sed -nE 's,.*/([A-Za-z]+)\.h$,\1,p' | sort -u | paste -sd '|')
    without "\"(${theNames:-none})\\.h\""
}

# without_headers_of_interface: leaves out the headers that the library has for applications.
without_headers_of_interface()
{
    local theNames
    theNames=$(find Source -path Source/Controllers -prune -o -name '*.h' -not -path '*/Internal/*' -print |
        sed -nE 's,.*/([A-Za-z]+)\.h$,\1,p' | sort -u | paste -sd '|')
    without "\"(${theNames:-none})\\.h\""
}

# controllers_names: the headers of the controllers, each as it would be included.
controllers_names()
{
    files Source/Controllers | sed -nE 's,.*/([A-Za-z]+\.h)$,"\1",p'
}

# room <folder> <rooms below, as a pattern>: a room of the managers includes its own headers by bare name, and
# those of the rooms below it by the room's name.
room()
{
    local theFolder=Platform/Carbon/Source/$1
    local theOwn
    theOwn=$(find "$theFolder" -maxdepth 1 -name '*.h' -printf '%f\n' | sed 's/\.h$//' | paste -sd '|')
    report "A room of the managers includes its own headers, and those of the rooms below: $2" < <(
        includes "$theFolder" |
            grep -E "^$theFolder/[A-Za-z]+\.(h|cpp):" |
            without "<.*>|\"($2)/[A-Za-z]+\.h\"|\"(${theOwn:-none})\.h\""
    )
}

# headers_elsewhere <folder>: prints each header there whose source lies in another folder than it.
headers_elsewhere()
{
    local theHeader theSource
    find "$1" -path '*/Include/*' -prune -o -name '*.h' -print | sort | while IFS= read -r theHeader; do
        theSource=$(basename "$theHeader" .h).cpp
        if [ ! -e "$(dirname "$theHeader")/$theSource" ] && find "$1" -name "$theSource" | grep -q .; then
            echo "$theHeader:1:"
        fi
    done
}

# report <rule>: reads the lines that break it.
report()
{
    local theLine
    while IFS= read -r theLine; do
        echo "$theLine  -- $1"
        gViolations=$((gViolations + 1))
    done
}

mapfile -t theSourceFiles < <(files Source)

report "Source includes only its own headers by bare name, the standard library and the two interfaces" < <(
    includes Source |
        without '<CoreFoundation/CoreFoundation\.h>|<Carbon/Carbon\.h>' |
        without "$kStandard" |
        without_headers_of Source |
        grep -vE '^Source/Inspection/Internal/[A-Za-z]+\.cpp:[0-9]+:<(cxxabi|unwind)\.h>$' |
        grep -vE '^Source/Inspection/Internal/LmLocalSocketLinux\.cpp:[0-9]+:<(sys/(socket|stat|un)|unistd)\.h>$'
)
report "The library does not know who inspects it" < <(
    includes Source/Core Source/Transforms Source/Bindings |
        grep -E "\"($(find Source/Inspection Source/Inspector -name '*.h' -printf '%f\n' 2>/dev/null | sed 's/\.h$//' | paste -sd '|'))\.h\"" 
)
report "Controllers use what every application can use" < <(
    includes Source/Controllers |
        without '<.*>' |
        without_headers_of Source/Controllers |
        without_headers_of_interface
)
report "The library does not know its controllers" < <(
    includes Source | grep -v '^Source/Controllers/' | grep -Ff <(controllers_names)
)
report "Source asks for no system" < <(
    lines '^[[:space:]]*#[[:space:]]*(if|ifdef|ifndef|elif)[^A-Za-z_].*(linux|unix|APPLE|MACH|WIN32|GLIBC|GNU_LIBRARY|TARGET_)' \
        "${theSourceFiles[@]}"
)
report "Mac OS X 10.7 has no run time for it" < <(
    includes Source | grep -E '<(any|filesystem|shared_mutex|charconv)>'
    lines '[.]value[(][)]|std::get<|any_cast' "${theSourceFiles[@]}"
)
report "The headers of Mac OS X 10.4 do not have it" < <(
    lines "(^|[^A-Za-z_])($kNewNames)([^A-Za-z_0-9]|\$)" "${theSourceFiles[@]}"
)
report "Source throws nothing" < <(
    lines '(^|[^A-Za-z_])throw([^A-Za-z_]|$)' "${theSourceFiles[@]}" |
        grep -v '^Source/Controllers/Internal/LmCharacters\.h:.*throw std::bad_alloc();$'
)
report "Platform knows nothing of Source" < <(
    includes Platform | grep -E '[<"/]Lm[A-Za-z]*\.h[>"]|Source/(Core|Transforms|Bindings|Controllers)/'
)
report "A header lies beside its source" < <(
    headers_elsewhere Platform
)
report "CoreFoundation stands below Carbon" < <(
    includes Platform/CoreFoundation Platform/CoreGraphics |
        grep -E '[<"/](Carbon|CoreServices|Presentation|Simulation)/'
)
report "Drawing stands on CoreFoundation and Cairo, and nobody else knows Cairo" < <(
    includes Platform/Drawing | grep -E '[<"/](Carbon|ApplicationServices|CoreServices|Presentation|Simulation)/'
    includes Source Platform Examples Tools | grep -E '<cairo' | grep -v '^Platform/Drawing/Source/Cairo/'
)
report "Nobody but one file of the nibs knows libxml2" < <(
    includes Source Platform Examples Tools | grep -E '<libxml/' | grep -v '^Platform/Carbon/Source/Nibs/Xml/'
)
report "CoreServices stands between CoreFoundation and Carbon" < <(
    includes Platform/CoreServices | grep -E '[<"/](Carbon|ApplicationServices|Presentation|Simulation)/'
)
report "The presenter interface is said in the standard library's types alone" < <(
    includes Platform/Presentation/Include | without "$kStandard" | without '[<"]Presentation/[A-Za-z]+\.h[>"]'
)
report "The headless presenter stands below the managers" < <(
    includes Platform/Presentation/Source Platform/Presentation/Headless |
        without "$kStandard" |
        without '<Presentation/[A-Za-z]+\.h>|"Common/[A-Za-z]+\.h"' |
        without_headers_of Platform/Presentation
)
report "Presenters know nothing of the managers" < <(
    includes Platform/Presentation/Qt |
        grep -E '[<"/](Carbon|CoreFoundation|CoreGraphics|CoreServices|Simulation|Base|System|Events|AppleEvents|Menus|Windows|Alerts|Objects|Views|Toolbox|Nibs|Input)/'
)
report "Nothing but tests and examples knows the simulated person" < <(
    includes Source Platform | grep -E '[<"/]Simulation/' | grep -v '^Platform/Simulation/'
)
report "The lowest room stands on the standard library alone" < <(
    includes Platform/Common | without "$kStandard" | without '"Common/[A-Za-z]+\.h"'
)
room Base Common
room System 'Common|Base'
room Events 'Common|Base|System'
room AppleEvents 'Common|Base|System|Events'
room Menus 'Common|Base|System|Events'
room Windows 'Common|Base|System|Events|Menus|Windows/ControlKinds|Drawing/Source'
room Windows/ControlKinds 'Common|Base|System|Events|Menus|Windows'
room Alerts 'Common|Base|Events'
room Objects 'Common|Base|System|Events|Menus|Windows|Windows/ControlKinds'
room Views 'Common|Base|Events|Windows'
room Nibs 'Common|Base|Windows'
room Nibs/Xml 'Nibs'
room Nibs/Plain 'Nibs'
room Toolbox 'Common|Base|System|Events|Menus|Windows'
room Input 'Common|Base|System|Events|AppleEvents|Menus|Windows|Toolbox'
report "Qt stays in its own presenter and in the inspector's window" < <(
    includes Source Platform Examples Tools | grep -E '[<"]Q[A-Za-z]' |
        grep -vE '^(Platform/Presentation/Qt|Tools/Inspector)/'
)
report "The inspector's window uses what every application can use, and Qt" < <(
    includes Tools/Inspector |
        without "$kStandard" |
        without '<Carbon/Carbon\.h>|<Q[A-Za-z]+>' |
        without_headers_of Tools/Inspector |
        without_headers_of_interface
)
report "Tools know what the library writes, and nothing of the library" < <(
    includes Tools |
        grep -v '^Tools/Inspector/' |
        without "$kStandard" |
        without '<(simdjson|cxxabi|dirent|fcntl|getopt|poll|unistd|spawn|elfutils/libdwfl|sys/[a-z]+)\.h>' |
        without_headers_of Tools
)
report "Examples use public headers alone" < <(
    includes Examples |
        without "$kStandard" |
        without '<(CoreFoundation|CoreGraphics|CoreServices|ApplicationServices|Carbon|Presentation|Simulation)/[A-Za-z]+\.h>' |
        without_headers_of Source |
        without_headers_of Examples
)

if [ "${#theSourceFiles[@]}" -eq 0 ]; then
    echo "There is nothing in Source." >&2
    exit 1
fi
echo "$gViolations lines break a rule"
[ "$gViolations" -eq 0 ]
