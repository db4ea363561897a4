#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# RunSuite.sh <file> <filter> <test program, behind its emulator>...: runs the cases that match in one process and
# leaves their results in the file. When the process dies, or ends badly although every case passed, each case is
# run once more in a process of its own, so that none hides another; the results are then in <file>.1, <file>.2 ...
set -u
kResults=$1
kFilter=$2
shift 2

# says <attribute> <file>: what the results say, nothing when there are none.
says()
{
    sed -n "s/^<testsuites .*$1=\"\([0-9]*\)\".*/\1/p" "$2" 2>/dev/null
}

# run <filter> <file> <program>...
run()
{
    local theFilter=$1 theFile=$2
    shift 2
    "$@" --gtest_brief=1 --gtest_filter="$theFilter" --gtest_output="xml:$theFile"
}

# cases <program>...: the full names, one a line.
cases()
{
    "$@" --gtest_list_tests --gtest_filter="$kFilter" |
        awk '/^[^ ]/ { theSuite = $1; next } { print theSuite $1 }'
}

# counts_as <failures> <file>: the results of a single case that left none.
counts_as()
{
    printf '<testsuites tests="1" failures="%d" disabled="0" errors="0">\n' "$1" >"$2"
}

rm -f "$kResults" "$kResults".*
if run "$kFilter" "$kResults" "$@" && [ "$(says failures "$kResults")" = 0 ]; then
    exit 0
fi
if [ "$(says failures "$kResults")" -gt 0 ] 2>/dev/null; then
    exit 1
fi

echo "The suite ended badly; each of its cases in a process of its own:"
rm -f "$kResults"
gNumber=0
gFailed=0
while IFS= read -r theCase; do
    gNumber=$((gNumber + 1))
    theFile=$kResults.$gNumber
    run "$theCase" "$theFile" "$@" </dev/null
    theStatus=$?
    if [ "$theStatus" -ne 0 ] || [ ! -s "$theFile" ]; then
        echo "FAILED: $theCase (status $theStatus)"
        counts_as 1 "$theFile"
        gFailed=$((gFailed + 1))
    fi
done < <(cases "$@")
if [ "$gFailed" -eq 0 ]; then
    echo "FAILED: alone each case passes, together they do not"
    counts_as 1 "$kResults.together"
fi
exit 1
