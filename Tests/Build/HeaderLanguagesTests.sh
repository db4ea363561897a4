#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# HeaderLanguagesTests.sh <root of the project>: a program reads the host's headers in each language that programs are
# written in, with each compiler that is there, for 64 and for 32 bits, and no compiler has a word to say about them.
# Nothing is linked. The headers are a system's, as they are where they are installed (-isystem).
set -u
kRoot=$1
kProgram=$kRoot/Tests/Build/Headers/Program.c
kWarnings=(-fsyntax-only -Wall -Wextra -Wno-multichar -Werror)
kFolders=()
for theRoom in CoreFoundation CoreGraphics CoreServices Drawing Carbon; do
    kFolders+=(-isystem "$kRoot/Platform/$theRoom/Include")
done
gFailures=0
gRuns=0

# reads <language> <compiler and flags>...
reads()
{
    local theLanguage=$1
    shift
    gRuns=$((gRuns + 1))
    if ! "$@" "${kWarnings[@]}" "${kFolders[@]}" -x "$theLanguage" "$kProgram" >"$gOutput" 2>&1; then
        echo "$* -x $theLanguage:"
        head -n 20 "$gOutput"
        gFailures=$((gFailures + 1))
    fi
}

# in_each_language <compiler of C> <compiler of C++> <flag>...
in_each_language()
{
    local theC=$1 theCxx=$2 theStandard
    shift 2
    for theStandard in c89 gnu89 c99 gnu99 c11 c17; do
        reads c "$theC" "$@" "-std=$theStandard" -pedantic
    done
    for theStandard in c++98 gnu++98 c++03 c++11 c++14 c++17 c++20; do
        reads c++ "$theCxx" "$@" "-std=$theStandard" -pedantic
    done
}

gOutput=$(mktemp)
trap 'rm -f "$gOutput"' EXIT
while read -r theC theCxx theFlags; do
    if command -v "$theC" "$theCxx" >/dev/null; then
        read -ra theList <<<"$theFlags"
        in_each_language "$theC" "$theCxx" ${theList[@]+"${theList[@]}"}
    fi
done <<'END'
gcc g++
clang-14 clang++-14
i686-linux-gnu-gcc i686-linux-gnu-g++
powerpc-linux-gnu-gcc powerpc-linux-gnu-g++
END

# Whatever of the four a program begins with, in the debugging build as well, and where the project itself compiles it.
kWarnings+=(-Wno-unused)
reads c gcc -std=gnu99 '-DTHE_HEADER=<Carbon.h>' -DDEBUG=1
reads c++ g++ -std=c++17 -DDEBUG -DTARGET_API_MAC_CARBON=1
for theHeader in ApplicationServices CoreServices CoreFoundation; do
    gRuns=$((gRuns + 1))
    if ! echo "#include <$theHeader/$theHeader.h>
        pascal OSStatus Root(double inNumber, char* outText);
        pascal OSStatus Root(double inNumber, char* outText)
        { sprintf(outText, \"%g\", sqrt(inNumber)); return isdigit(*outText) ? noErr : (OSStatus)-errno; }" |
        gcc -std=c89 "${kWarnings[@]}" "${kFolders[@]}" -x c - >"$gOutput" 2>&1; then
        echo "$theHeader:"
        head -n 20 "$gOutput"
        gFailures=$((gFailures + 1))
    fi
done

# What the page about such programs says of Pascal strings.
kPascal='#include <Carbon/Carbon.h>
    ConstStr255Param TheName(void); ConstStr255Param TheName(void) { return (ConstStr255Param)"\pLamp"; }'
gRuns=$((gRuns + 2))
if command -v clang-14 >/dev/null && ! clang-14 -fpascal-strings -fsyntax-only "${kFolders[@]}" -x c - <<<"$kPascal"; then
    echo "clang does not read Pascal strings."
    gFailures=$((gFailures + 1))
fi
if gcc -pedantic-errors -fsyntax-only "${kFolders[@]}" -x c - <<<"$kPascal" >"$gOutput" 2>&1 ||
    ! grep -q 'unknown escape sequence' "$gOutput"; then
    echo "GCC reads Pascal strings, or complains of something else."
    gFailures=$((gFailures + 1))
fi

echo "$gRuns readings, $gFailures with complaints"
[ "$gRuns" -ge 18 ] && [ "$gFailures" -eq 0 ]
