#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# RunRandomScripts.sh [<number of scripts>] [<build folder>]: builds the program that plays random scripts on the
# library and on the model of it, and plays so many (100000) that nobody has played before. The build is that of the
# release (Build/release), unless a folder that is configured already is named.
#
# A difference is printed with the seed that plays it again.
set -eu
cd "$(dirname "$0")/.."
theBuild=${2:-Build/release}

build()
{
    [ -e "$theBuild/CMakeCache.txt" ] || cmake --preset release -B "$theBuild"
    cmake --build "$theBuild" --target randomScripts
}

theOutput=$(build 2>&1) || {
    echo "$theOutput"
    exit 1
}
"$theBuild/Tests/Model/randomScripts" --scripts "${1:-100000}" --fresh
