#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# RunRandomSessions.sh [<number of sessions>] [<build folder> [<seed> | <script>]]: builds the tests in which a program
# and a person do anything, and plays so many sessions (1000) that nobody has played before: in memory, where the
# managers must keep their promises, and, where the build has real windows, once more with Qt drawing into memory,
# where everything must go the same way. The build is that of the sanitizers (Build/sanitize), unless a folder that
# is configured already is named. A seed plays that session first; a script, a step a line as failures print it, is
# played alone, and may be cut off anywhere.
#
# A failure prints the seed and the shortest script that fails.
set -eu
cd "$(dirname "$0")/.."
theCount=${1:-1000}
theBuild=${2:-Build/sanitize}
theFirst=${3:-$(od -An -N3 -tu4 /dev/urandom | tr -d ' ')}
theTargets=(platform.simulationTests)
thePrograms=("$theBuild/Tests/Platform/Simulation/platform.simulationTests")
if [ -f "$theFirst" ]; then
    LM_RANDOM_SCRIPT=$(realpath "$theFirst")
    export LM_RANDOM_SCRIPT
    theFirst=1
    theCount=1
fi

build()
{
    [ -e "$theBuild/CMakeCache.txt" ] || cmake --preset sanitize -B "$theBuild"
    cmake --build "$theBuild" --target "${theTargets[@]}"
}

if grep -q '^LM_BUILD_DESKTOP:BOOL=ON' "$theBuild/CMakeCache.txt" 2>/dev/null; then
    theTargets+=(desktop.presentationTests)
    thePrograms+=("$theBuild/Tests/Presentation/Qt/desktop.presentationTests")
fi
theOutput=$(build 2>&1) || {
    echo "$theOutput"
    exit 1
}
theStatus=0
for theProgram in "${thePrograms[@]}"; do
    echo "$(basename "$theProgram"): $theCount sessions from seed $theFirst on"
    LM_PRESENTER=headless LM_PREFERENCES=memory LC_ALL=C.UTF-8 LM_RANDOM_SESSIONS=$theCount LM_RANDOM_SEED=$theFirst \
        "$theProgram" --gtest_brief=1 --gtest_filter='Seed/RandomSessions*' || theStatus=1
done
exit $theStatus
