#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# Soak.sh [<windows> [<build folder> [--write]]]: one application lives through as many windows, 100,000 unless told otherwise,
# with a hundred changes in each: by controls, menus, windows and preferences. Memory, open files and what is printed
# must not grow, and a window must not come to cost more instructions than the ones before it. Needs valgrind. With --write the figures go to
# Documentation/Quality/Soak.json.
set -euo pipefail
cd "$(dirname "$0")/.."
theWindows=${1:-100000}
theBuild=${2:-Build/release}
if [ ! -x "$theBuild/Tests/Soak/soak" ]; then
    cmake -S . -B "$theBuild" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$theBuild" --target soak >/dev/null
fi
theHome=$(mktemp -d)
trap 'rm -rf "$theHome"' EXIT

# soak <argument>...: with preferences of its own, which are written to files.
soak()
{
    env -u LM_PREFERENCES LM_PRESENTER=headless XDG_CONFIG_HOME="$theHome" "$@"
}

# instructions <windows>
instructions()
{
    soak valgrind --tool=callgrind --callgrind-out-file=/dev/null "$theBuild/Tests/Soak/soak" --windows "$1" 2>&1 |
        sed -nE 's/.*Collected : ([0-9]+).*/\1/p'
}

soak "$theBuild/Tests/Soak/soak" --windows "$theWindows" | tee "$theHome/table"

theFew=$(instructions 50)
theMore=$(instructions 450)
theMany=$(instructions 850)
theEarly=$(((theMore - theFew) / 400))
theLate=$(((theMany - theMore) / 400))
echo "$theEarly instructions for each of the windows 51 to 450, $theLate for each of those up to 850"
if [ $((theLate * 100)) -gt $((theEarly * 101)) ]; then
    echo "a window comes to cost more"
    exit 1
fi

if [ "${3:-}" = --write ]; then
    # The first row of numbers and the last one: windows, changes, heap, resident memory, open files.
    read -r _ _ theFirstHeap theFirstMemory theFirstFiles <<<"$(grep -E '^ +[0-9]' "$theHome/table" | head -n 1)"
    read -r _ theChanges theHeap theMemory theFiles <<<"$(grep -E '^ +[0-9]' "$theHome/table" | tail -n 1)"
    cat >Documentation/Quality/Soak.json <<END
{
    "command": "Scripts/Soak.sh $theWindows $theBuild --write",
    "commit": "$(git rev-parse --short HEAD)",
    "date": "$(date +%F)",
    "windows": $theWindows,
    "changes": $theChanges,
    "heap": [$theFirstHeap, $theHeap],
    "resident": [$theFirstMemory, $theMemory],
    "files": [$theFirstFiles, $theFiles],
    "instructions": [$theEarly, $theLate]
}
END
fi
