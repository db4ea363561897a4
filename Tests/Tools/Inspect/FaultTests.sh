#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# FaultTests.sh faults <lminspect> <FaultProgram> <its source> <what is expected>
# FaultTests.sh none <lminspect> <libLmInspection> <what is expected> <program>...: what lint finds in the journal of
# a program. The first runs it once for each fault; for the number of a line its text is shown. The others are
# programs that have none, but for what they make to be looked at.
# FaultTests.sh scenarios <lminspect> <libLmInspection> <what is expected> <test program>: the same for each case of a
# test program, of which those are listed in which something is found. What is expected says why it is meant, in a line
# that begins with # before each finding.
set -u
export LM_PRESENTER=headless LM_PREFERENCES=memory
gFolder=$(mktemp -d)
trap 'rm -rf "$gFolder"' EXIT

# lint <file>: what it finds, without the numbers of entries, and its status when that is no finding or one.
lint()
{
    "$kInspect" lint "$1" | sed -E 's/ \(entry [0-9]+(, and .* more)?\)$//; s/: entries [0-9]+ and [0-9]+$//'
    local theStatus=${PIPESTATUS[0]}
    [ "$theStatus" -le 1 ] || echo "status $theStatus"
}

# with_lines: for "FaultProgram.cpp:12" what stands in that line.
with_lines()
{
    awk -v theSource="$kSource" '
        BEGIN { while ((getline theText < theSource) > 0) { sub(/^ +/, "", theText); theLines[++theCount] = theText } }
        match($0, /FaultProgram\.cpp:[0-9]+$/) {
            theLine = substr($0, RSTART + 17)
            $0 = substr($0, 1, RSTART + 15) ": " theLines[theLine]
        }
        { print }'
}

plant_faults()
{
    local theFault
    for theFault in $(sed -nE 's/^=== //p' "$kExpected"); do
        echo "=== $theFault"
        LM_JOURNAL_CALLERS=8 LM_JOURNAL=$gFolder/journal "$kProgram" "$theFault" 2>/dev/null || echo "status $?"
        lint "$gFolder/journal" | with_lines
    done
}

look_at_programs()
{
    local theProgram
    for theProgram in "$@"; do
        echo "=== $(basename "$theProgram")"
        # The sanitizers' own library wants to be the first, and is there all the same.
        ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0" \
            LM_JOURNAL=$gFolder/journal LD_PRELOAD=$kLibrary "$theProgram" >/dev/null 2>&1 || echo "status $?"
        lint "$gFolder/journal" | grep -v '^  see '
    done
}

look_at_cases()
{
    local theCase theCount=0
    while read -r theCase; do
        ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0" \
            LM_JOURNAL=$gFolder/journal LD_PRELOAD=$kLibrary "$1" --gtest_filter="$theCase" >/dev/null 2>&1
        lint "$gFolder/journal" | grep -v '^  see ' >"$gFolder/found"
        [ "$(cat "$gFolder/found")" = "0 findings" ] || { echo "=== $theCase"; cat "$gFolder/found"; }
        rm -f "$gFolder/journal"
        theCount=$((theCount + 1))
    done < <("$1" --gtest_list_tests | awk '/^[^ ]/ { theSuite = $1 } /^ / { print theSuite $1 }')
    [ $theCount -ge 20 ] || echo "$theCount cases"
}

# without_reasons <file>: a finding without one is marked.
without_reasons()
{
    awk '/^#/ { hasReason = 1; next }
        /^[a-z-]+: / && !hasReason { print "no reason is given for:" }
        { hasReason = 0; print }' "$1"
}

kInspect=$2
if [ "$1" = faults ]; then
    kProgram=$3 kSource=$4 kExpected=$5
    diff -u --label expected "$kExpected" --label found <(plant_faults)
elif [ "$1" = scenarios ]; then
    kLibrary=$3 kExpected=$4
    diff -u --label expected <(without_reasons "$kExpected") --label found <(look_at_cases "$5")
else
    kLibrary=$3 kExpected=$4
    shift 4
    diff -u --label expected "$kExpected" --label found <(look_at_programs "$@")
fi
