#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckPackage.sh <build folder> <work folder>: installs the build, moves the installed tree elsewhere, and
# builds and runs a foreign project with it by find_package and by pkg-config, and with the sources by
# add_subdirectory. Each way must refuse every private header. Every installed header must compile alone, every
# installed document link to what is there, and the installed examples be a project that builds and does what it should.
set -eu
cd "$(dirname "$0")/../.."
theBuild=$1
theWork=$PWD/$2
kForeign=Tests/Package/Foreign
kWarnings="-Wall -Wextra -Werror"

# expect_run <how> <program>
expect_run()
{
    local theOutput
    theOutput=$("$2")
    if [ "$theOutput" != "$(cat "$kForeign/expected.txt")" ]; then
        echo "$1: the program printed: $theOutput"
        exit 1
    fi
    echo "$1: built and run"
}

# expect_controllers <how> <program>
expect_controllers()
{
    local theOutput
    theOutput=$("$2")
    if [ "$theOutput" != "volume 11, was 7" ]; then
        echo "$1: the program with controllers printed: $theOutput"
        exit 1
    fi
    echo "$1: built and run with controllers"
}

# cmake_project <name> <option>...: configures and builds the foreign project.
cmake_project()
{
    local theName=$1
    shift
    cmake -S "$kForeign" -B "$theWork/$theName" -G Ninja -DLM_COPIES="$theCopies" \
        -DCMAKE_C_FLAGS="$kWarnings" -DCMAKE_CXX_FLAGS="$kWarnings" \
        -DCMAKE_EXE_LINKER_FLAGS=-Wl,--as-needed -DCMAKE_CXX_STANDARD_LIBRARIES=-Wl,--as-needed "$@"
    cmake --build "$theWork/$theName"
    expect_run "$theName" "$theWork/$theName/Foreign"
    expect_controllers "$theName" "$theWork/$theName/ForeignControllers"
    # What the project wrote is a list of words.
    # shellcheck disable=SC2046
    expect_private "$theName" $(cat "$theWork/$theName/IncludeFlags.txt")
}

# compiles <header> <flag>...: whether a file that includes the header compiles with these flags. When it does
# not, the reason must be that there is no such header.
compiles()
{
    local theHeader=$1 theErrors
    shift
    if theErrors=$(g++ -std=c++17 -fsyntax-only -w "$@" -x c++ - 2>&1 <<<"#include \"$theHeader\""); then
        return 0
    fi
    if ! grep -qF "$theHeader: No such file" <<<"$theErrors"; then
        echo "$theErrors"
        exit 1
    fi
    return 1
}

# expect_private <how> <flag>...: with these flags an application finds the interface, and nothing that is the
# library's own, whatever it takes its place to be.
expect_private()
{
    local theHow=$1 theHeader theName theCount=0
    shift
    if ! compiles LmBindings.h "$@"; then
        echo "$theHow: the interface is not found"
        exit 1
    fi
    for theHeader in Source/*/Internal/*.h; do
        for theName in "${theHeader##*/}" "Internal/${theHeader##*/}" "${theHeader#Source/}" "../$theHeader"; do
            if compiles "$theName" "$@"; then
                echo "$theHow: an application can include $theName"
                exit 1
            fi
        done
        theCount=$((theCount + 1))
    done
    [ "$theCount" -gt 0 ]
    echo "$theHow: $theCount private headers are refused"
}

rm -rf "$theWork"
mkdir -p "$theWork"
cmake --install "$theBuild" --prefix "$theWork/first"
mv "$theWork/first" "$theWork/installed"
# What the foreign project has copied: the pattern of a binding, under another name.
theCopies=$theWork/copies
mkdir "$theCopies"
for theSuffix in h cpp; do
    sed 's/LmExampleBinding/CopiedBinding/g' "Source/Bindings/LmExampleBinding.$theSuffix" \
        >"$theCopies/CopiedBinding.$theSuffix"
done
theLibraries=$(dirname "$(find "$theWork/installed" -name 'libLmBindings.so')")

cmake_project find_package -DCMAKE_PREFIX_PATH="$theWork/installed"
cmake_project add_subdirectory -DLM_SOURCE_DIR="$PWD"

theExamples=$(find "$theWork/installed" -type d -name Examples)
# The document's names are words.
# shellcheck disable=SC2046
echo "The documents: $(Scripts/CheckLinks.sh $(find "${theExamples%/*}" -name "*.md"))"
cmake -S "$theExamples" -B "$theWork/examples" -G Ninja -DCMAKE_PREFIX_PATH="$theWork/installed" \
    -DCMAKE_CXX_FLAGS="$kWarnings"
cmake --build "$theWork/examples"
ctest --test-dir "$theWork/examples" --output-on-failure --no-tests=error

# needs <pattern> <program or library>: whether the loader brings such a library along with it.
needs()
{
    readelf -d "$2" | grep -q "NEEDED.*$1"
}

# expect_window <how> <program>: it shows its window, of which the desktop takes a picture before it quits; and says
# in one line that there is no display.
expect_window()
{
    local theLines
    needs libLmCarbonDesktop "$2"
    rm -f "$theWork/window.png"
    env -u LM_PRESENTER QT_QPA_PLATFORM=offscreen LM_SCREENSHOT="$theWork/window.png" "$2"
    [ -s "$theWork/window.png" ]
    if theLines=$(env -u LM_PRESENTER -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$2" 2>&1); then
        echo "$1: the program runs without a display"
        exit 1
    fi
    case $theLines in
    *$'\n'*)
        echo "$1: more than one line says that there is no display: $theLines"
        exit 1
        ;;
    "No windows can be shown"*) echo "$1: shows its window" ;;
    *)
        echo "$1: instead of the display the program laments: $theLines"
        exit 1
        ;;
    esac
}

if [ -x "$theWork/find_package/ForeignOnDesktop" ]; then
    expect_window find_package "$theWork/find_package/ForeignOnDesktop"
fi
for theFile in "$theWork/find_package/Foreign" "$theLibraries"/libLm*.so; do
    case $theFile in
    */libLmCarbonDesktop.so) ;;
    *)
        if needs libQt "$theFile"; then
            echo "$theFile needs Qt"
            exit 1
        fi
        ;;
    esac
done

export PKG_CONFIG_PATH=$theLibraries/pkgconfig
# What pkg-config prints is a list of words.
# shellcheck disable=SC2046,SC2086
{
    mkdir "$theWork/pkg-config"
    # Nothing but the flags of pkg-config makes the line work, and it says not a word.
    gcc $kWarnings -c "$kForeign/PlainC.c" -o "$theWork/pkg-config/PlainC.o" $(pkg-config --cflags lmbindings)
    # The program watches over its memory: a binding that does not know that it is gone is found out.
    g++ -std=c++17 -fsanitize=address $kWarnings "$kForeign/Main.cpp" "$kForeign/CopiedBinding.cpp" -I"$theCopies" \
        "$theCopies/CopiedBinding.cpp" "$theWork/pkg-config/PlainC.o" -o "$theWork/pkg-config/Foreign" \
        $(pkg-config --cflags --libs lmbindings) -Wl,-rpath,"$theLibraries"
    expect_run pkg-config "$theWork/pkg-config/Foreign"
    expect_private pkg-config $(pkg-config --cflags lmbindings)
    g++ -std=c++17 $kWarnings "$kForeign/Controllers.cpp" -o "$theWork/pkg-config/ForeignControllers" \
        $(pkg-config --cflags --libs lmbindings-controllers) -Wl,-rpath,"$theLibraries"
    expect_controllers pkg-config "$theWork/pkg-config/ForeignControllers"
    if pkg-config --exists lmbindings-desktop; then
        # The linker leaves out what no program calls; the library stays, wherever the order to do so stands.
        g++ -std=c++17 $kWarnings -Wl,--as-needed "$kForeign/Window.cpp" -o "$theWork/pkg-config/ForeignOnDesktop" \
            $(pkg-config --cflags --libs lmbindings-desktop) -Wl,--as-needed -Wl,-rpath,"$theLibraries"
        expect_window pkg-config "$theWork/pkg-config/ForeignOnDesktop"
    fi

    # The compiler says nothing of headers of the system, so here they are none.
    theFlags=$(pkg-config --cflags lmbindings | sed 's/-isystem */-I/g')
    theCount=0
    while IFS= read -r theHeader; do
        g++ -std=c++17 -fsyntax-only $kWarnings $theFlags -include "$theHeader" -x c++ /dev/null
        theCount=$((theCount + 1))
    done < <(find "$theWork/installed/include" -name "*.h")
    [ "$theCount" -gt 0 ]
    echo "$theCount headers compile alone"
}
