#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# MacConfigureTests.sh <root of the project> <cmake> <python> <clang++>: the project is configured for a Mac, as far
# as that goes without one: which targets there are, with which flags they are compiled, what a bundle says of
# itself, and what is said to who asks for 64 bits.
set -u
kRoot=$1 kCMake=$2 kPython=$3 kClang=$4
gFolder=$(mktemp -d)
trap 'rm -rf "$gFolder"' EXIT
gFailures=0
unset CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER

# configure <build folder> <compiler> <architecture> <architectures for CMake>
configure()
{
    "$kCMake" -S "$kRoot" -B "$gFolder/$1" -G Ninja \
        "-DCMAKE_TOOLCHAIN_FILE=$kRoot/CMake/Toolchains/mac-stand-in.cmake" \
        "-DLM_STAND_IN_COMPILER=$2" "-DLM_STAND_IN_ARCH=$3" "-DCMAKE_OSX_ARCHITECTURES=$4" \
        -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >"$gFolder/$1.log" 2>&1
}

# expect <what> <expected> <found>
expect()
{
    if [ "$2" != "$3" ]; then
        printf '%s:\n' "$1"
        diff --label expected --label found -u <(echo "$2") <(echo "$3")
        gFailures=$((gFailures + 1))
    fi
}

# targets <build folder>: what is built there, by kind; the test framework's own left out.
targets()
{
    "$kPython" - "$gFolder/$1" <<'END'
import glob, json, sys
for path in sorted(glob.glob(sys.argv[1] + "/.cmake/api/v1/reply/target-*.json")):
    target = json.load(open(path))
    if target["type"] != "UTILITY" and "GoogleTest" not in target["paths"]["build"]:
        print(target["type"], target["name"])
END
}

# flags <build folder> <source>: the flags that may not be known to each compiler, or are meant for a Mac.
flags()
{
    "$kPython" - "$gFolder/$1" "$2" <<'END' | sort
import json, shlex, sys
for entry in json.load(open(sys.argv[1] + "/compile_commands.json")):
    if entry["file"].endswith("/" + sys.argv[2]):
        flags = shlex.split(entry["command"])
        print("-arch " + flags[flags.index("-arch") + 1])
        for flag in flags:
            if "prefix-map" in flag or "deprecated" in flag or flag.startswith("-std="):
                print(flag.split("=")[0] if "map" in flag else flag)
END
}

# plist <build folder> <application>: what its bundle says of itself.
plist()
{
    "$kPython" - "$gFolder/$1/Examples/$2/$2.app/Contents/Info.plist" <<'END'
import plistlib, sys
entries = plistlib.load(open(sys.argv[1], "rb"))
for key in ("CFBundleExecutable", "CFBundleIdentifier", "CFBundlePackageType"):
    print(entries[key])
END
}

mkdir -p "$gFolder/i386/.cmake/api/v1/query"
: >"$gFolder/i386/.cmake/api/v1/query/codemodel-v2"
if ! configure i386 "$kClang" i386 i386; then
    cat "$gFolder/i386.log"
    exit 1
fi
expect "What is built" "EXECUTABLE FirstStore
EXECUTABLE Gallery
EXECUTABLE OrderForm
EXECUTABLE OwnModel
EXECUTABLE Settings
EXECUTABLE SettingsWithBindings
EXECUTABLE Thermostat
EXECUTABLE bindingsTests
EXECUTABLE controllersTests
EXECUTABLE coreTests
EXECUTABLE scenariosTests
EXECUTABLE transformsTests
SHARED_LIBRARY LmBindings
SHARED_LIBRARY LmControllers
SHARED_LIBRARY LmInspection
SHARED_LIBRARY LmInspector
STATIC_LIBRARY GalleryParts
STATIC_LIBRARY LmTestSupport
STATIC_LIBRARY SettingsBindings
STATIC_LIBRARY SettingsByHand
STATIC_LIBRARY SettingsParts
STATIC_LIBRARY ThermostatParts" "$(targets i386 | sort)"
expect "The flags of a source" "-Wno-deprecated-declarations
-arch i386
-ffile-prefix-map
-fmacro-prefix-map
-std=c++17" "$(flags i386 Source/Core/LmString.cpp)"
expect "The flags of tests in which memory runs out" "" "$(flags i386 Tests/Core/AllocationFailureTests.cpp)"
for theApplication in Gallery OrderForm Settings Thermostat; do
    expect "The bundle $theApplication" "$theApplication
org.lmbindings.$theApplication
APPL" "$(plist i386 $theApplication)"
done

# A compiler that knows no more than the last ones for 32-bit Macs.
for theName in clang clang++; do
    cat >"$gFolder/old-$theName" <<END
#!/bin/sh
for theFlag; do
    case \$theFlag in
    -fmacro-prefix-map=* | -ffile-prefix-map=*)
        echo "error: unknown argument: '\$theFlag'" >&2
        exit 1 ;;
    esac
done
exec "${kClang/clang++/$theName}" "\$@"
END
    chmod +x "$gFolder/old-$theName"
done
if ! configure old "$gFolder/old-clang++" i386 i386; then
    cat "$gFolder/old.log"
    gFailures=$((gFailures + 1))
fi
expect "The flags of a source with an old compiler" "-Wno-deprecated-declarations
-arch i386
-std=c++17" "$(flags old Source/Core/LmString.cpp)"

# expect_refusal <what> <status> <log>
expect_refusal()
{
    expect "What is said to who asks for $1" "1 line, status 1" \
        "$(grep -c '^ *Carbon has 32 bits: configure with -DCMAKE_OSX_ARCHITECTURES=i386$' "$3") line, status $2"
}

configure asked "$kClang" x86_64 x86_64
expect_refusal "64 bits" $? "$gFolder/asked.log"
configure unsaid "$kClang" x86_64 ""
expect_refusal "nothing" $? "$gFolder/unsaid.log"
# CMake itself cannot stand in for a Mac that compiles for two processors.
"$kCMake" "-DCMAKE_OSX_ARCHITECTURES=i386;x86_64" -P "$kRoot/CMake/LmSystemFrameworks.cmake" >"$gFolder/both.log" 2>&1
expect_refusal "both" $? "$gFolder/both.log"

[ "$gFailures" -eq 0 ]
