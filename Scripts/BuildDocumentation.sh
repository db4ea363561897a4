#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# BuildDocumentation.sh [<folder>]: writes the tutorial and the reference as pages for a browser, to be opened
# from Build/Documentation/index.html or from the folder that is named. Fails when Doxygen has a warning, such as
# a public name without a comment, or when a link leads nowhere.
set -eu
theOutput=${1:-$PWD/Build/Documentation}
mkdir -p "$theOutput"
theOutput=$(cd "$theOutput" && pwd)
cd "$(dirname "$0")/.."
if ! command -v doxygen >/dev/null; then
    echo "Doxygen is missing; install the package doxygen." >&2
    exit 1
fi
rm -f "$theOutput"/*
LM_VERSION=$(sed -n 's/^#define LM_VERSION_STRING "\(.*\)"$/\1/p' Source/Core/LmVersion.h)
LM_OUTPUT=$theOutput
export LM_VERSION LM_OUTPUT
doxygen Documentation/Reference/Doxyfile
if [ -s "$theOutput/warnings.txt" ]; then
    sed "s|$PWD/||" "$theOutput/warnings.txt" >&2
    exit 1
fi
rm -f "$theOutput/warnings.txt"
python3 Scripts/CheckPages.py "$theOutput"
echo "The pages are in $theOutput/index.html"
