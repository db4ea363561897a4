#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# VersionTests.sh <root of the project> <build folder> <objdump> <library>: every place that states the version states
# the one of the header.
set -u
kRoot=$1 kBuild=$2 kObjdump=$3 kLibrary=$4
gFailures=0

# states <place> <what it states> <expected>
states()
{
    if [ "$2" != "$3" ]; then
        echo "$1 states '$2', not '$3'"
        gFailures=$((gFailures + 1))
    fi
}

kVersion=$(sed -nE 's/^#define LM_VERSION_STRING "([0-9]+\.[0-9]+\.[0-9]+)"$/\1/p' "$kRoot/Source/Core/LmVersion.h")
kMajor=${kVersion%%.*}
[ -n "$kVersion" ] || { echo "LmVersion.h states no version"; exit 1; }

states "CHANGELOG.md" "$(sed -nE 's/^## ([0-9.]+).*/\1/p' "$kRoot/CHANGELOG.md" | head -n 1)" "$kVersion"
states "The library's file name" "$(basename "$(readlink -f "$kLibrary")")" "libLmBindings.so.$kVersion"
states "The soname" "$("$kObjdump" -p "$kLibrary" | sed -nE 's/^ *SONAME +//p')" "libLmBindings.so.$kMajor"
# The package files are made only where the install targets are.
if [ -e "$kBuild/lmbindings.pc" ]; then
    states "lmbindings.pc" "$(sed -n 's/^Version: //p' "$kBuild/lmbindings.pc")" "$kVersion"
    states "The CMake package" \
        "$(sed -nE 's/^set\(PACKAGE_VERSION "(.*)"\)$/\1/p' "$kBuild/LmBindingsConfigVersion.cmake")" "$kVersion"
fi
[ "$gFailures" -eq 0 ]
