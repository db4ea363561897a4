#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# Soak.sh [<windows> [<build folder>]]: one application lives through as many windows, 100,000 unless told otherwise,
# with a hundred changes in each: by controls, menus, windows and preferences. Memory, open files and what is printed
# must not grow, and a window must not come to cost more instructions than the ones before it. Needs valgrind.
set -eu
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

soak "$theBuild/Tests/Soak/soak" --windows "$theWindows"

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
