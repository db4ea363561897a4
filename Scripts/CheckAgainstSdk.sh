#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckAgainstSdk.sh <folder of a Mac OS X SDK> [<file or folder of the project>...]: holds the project against the
# headers of Mac OS X, for 32-bit Intel and PowerPC.
#
#   names    each constant, size, offset and signature that the host's headers declare is compared with the SDK's
#   sources  the library, the examples and the tests that a Mac build has are parsed with the SDK's headers;
#            with files or folders named, those alone
#
# Needs clang++, CMake, Ninja and Python. LM_CLANG names another clang++ than clang++-14 or clang++. LM_SDK_FLAGS are
# further flags: an SDK has the C++ standard library of its time, which may know no C++17, so that the flags that
# lead to another one are given here.
#
# The status is 0 when nothing differs and everything can be parsed.
set -u
kSdk=${1:?usage: CheckAgainstSdk.sh <folder of a Mac OS X SDK> [<file or folder>...]}
shift
kRoot=$(cd "$(dirname "$0")/.." && pwd)
kClang=${LM_CLANG:-$(command -v clang++-14 || command -v clang++)}
read -ra kMoreFlags <<<"${LM_SDK_FLAGS:-}"
if [ ! -d "$kSdk/System/Library/Frameworks/Carbon.framework" ]; then
    echo "There is no Carbon.framework in $kSdk/System/Library/Frameworks." >&2
    exit 2
fi
kSdkFlags=(-isysroot "$kSdk" -iframework "$kSdk/System/Library/Frameworks" ${kMoreFlags[@]+"${kMoreFlags[@]}"})
gBuild=$(mktemp -d)
trap 'rm -rf "$gBuild"' EXIT
gStatus=0

# The build that is parsed is the one that CMake makes for a Mac.
if ! env -u CMAKE_C_COMPILER_LAUNCHER -u CMAKE_CXX_COMPILER_LAUNCHER cmake -S "$kRoot" -B "$gBuild" -G Ninja \
    "-DCMAKE_TOOLCHAIN_FILE=$kRoot/CMake/Toolchains/mac-stand-in.cmake" \
    "-DLM_STAND_IN_COMPILER=$kClang" -DLM_STAND_IN_ARCH=i386 -DCMAKE_OSX_ARCHITECTURES=i386 \
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >"$gBuild/log" 2>&1; then
    cat "$gBuild/log" >&2
    exit 2
fi

for theArchitecture in i386 ppc; do
    python3 "$kRoot/Scripts/SdkNames.py" "$kRoot" "$kClang" "$theArchitecture" "${kSdkFlags[@]}" || gStatus=1
    python3 "$kRoot/Scripts/SdkSources.py" "$kRoot" "$gBuild" "$kClang" "$theArchitecture" "${kSdkFlags[@]}" \
        -- "$@" || gStatus=1
done
exit "$gStatus"
