#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# EndSignalsPosixTests.sh <program and what runs it>...: ends real processes from outside with signals, and compares
# what they say, how they end and what they have written.
set -u
# With job control, processes in the background do not ignore SIGINT.
set -m
gFolder=$(mktemp -d)
trap 'rm -rf "$gFolder"' EXIT
gFailures=0
export XDG_CONFIG_HOME=$gFolder
unset LM_PREFERENCES
kPreferences=$gFolder/org.example.Ending.plist

fail()
{
    echo "$gCase: $*"
    gFailures=$((gFailures + 1))
}

# start <way>: starts the program, and returns when its loop runs.
start()
{
    rm -f "$kPreferences"
    coproc PROGRAM { exec "${kProgram[@]}" "$1" 2>&1; }
    gProcess=$PROGRAM_PID
    exec {gOutput}<&"${PROGRAM[0]}"
    expect running
}

# expect <line>: the next line that it says.
expect()
{
    local theLine=
    read -r -t 20 -u "$gOutput" theLine
    [ "$theLine" = "$1" ] || fail "said \"$theLine\" instead of \"$1\""
}

# expect_end <status>: it says nothing more and ends.
expect_end()
{
    local theRest theStatus
    wait "$gProcess" 2>/dev/null
    theStatus=$?
    theRest=$(cat <&"$gOutput")
    exec {gOutput}<&-
    [ -z "$theRest" ] || fail "said \"$theRest\" at its end"
    [ "$theStatus" -eq "$1" ] || fail "ended with $theStatus instead of $1"
}

kProgram=("$@")

for theSignal in TERM INT HUP; do
    gCase="SIG$theSignal is the quit command"
    start quits
    kill -s "$theSignal" "$gProcess"
    expect 'quit command'
    expect 'loop over'
    expect written
    expect_end 0
    grep -q '<string>well</string>' "$kPreferences" || fail "no preferences"
done

gCase="A second signal ends at once"
start stays
kill -s TERM "$gProcess"
expect 'quit command'
kill -s INT "$gProcess"
expect_end 130
[ ! -e "$kPreferences" ] || fail "wrote preferences"

gCase="A signal that is ignored stays ignored"
trap '' HUP
start quits
trap - HUP
kill -s HUP "$gProcess"
kill -s TERM "$gProcess"
expect 'quit command'
expect 'loop over'
expect written
expect_end 0

gCase="A signal that the program handles stays its own"
start handles
kill -s TERM "$gProcess"
expect_end 7

gCase="After the loop signals are as before"
start returns
expect 'loop over'
kill -s TERM "$gProcess"
expect_end 143

[ "$gFailures" -eq 0 ]
