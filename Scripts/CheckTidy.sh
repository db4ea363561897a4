#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckTidy.sh <build folder> [<beginning of a path>...]: runs clang-tidy over the files of the project that
# the build compiles, or over those of them in the named places. The build must have been configured with
# CMAKE_EXPORT_COMPILE_COMMANDS.
set -eu
cd "$(dirname "$0")/.."
theBuild=$1
shift
thePlaces=${*:-Source/ Platform/ Examples/ Tests/ Benchmarks/}
# Only the project's own files: the build also compiles the test framework.
mapfile -t theFiles < <(
    sed -n "s|^ *\"file\": \"$PWD/\(.*\.cpp\)\",\{0,1\}\$|\1|p" "$theBuild/compile_commands.json" |
        grep -E "^(${thePlaces// /|})" | sort -u
)
if [ "${#theFiles[@]}" -eq 0 ]; then
    echo "$theBuild names no file of the project" >&2
    exit 1
fi
# clang cannot read what GCC has precompiled, so every file is read as it stands.
mkdir -p "$theBuild/Tidy"
sed 's| -Winvalid-pch -include [^ ]*/cmake_pch\.hxx||' \
    "$theBuild/compile_commands.json" >"$theBuild/Tidy/compile_commands.json"
# GCC and clang know different warnings by name; those that clang does not know are no finding. The files that
# take longest come first, so that no processor has nothing left to do while another reads the longest.
ls -S "${theFiles[@]}" |
    xargs -P "$(nproc)" -n 1 clang-tidy-14 --quiet -p "$theBuild/Tidy" --extra-arg=-Wno-unknown-warning-option
echo "${#theFiles[@]} files"
