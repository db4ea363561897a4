#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CommandLinePosixTests.sh <StartedProgram, with its emulator before it>: what a program is started for reaches it
# when its event loop begins.
set -u
gFolder=$(mktemp -d) || exit 1
trap 'rm -rf "$gFolder"' EXIT
gFailures=0

# expect <what> <expected lines> <argument>...: starts the program in the folder.
expect()
{
    local theWhat=$1 theExpected=$2 theLines
    shift 2
    theLines=$(cd "$gFolder" && timeout 60 "${gProgram[@]}" "$@")
    if [ "$theLines" != "$theExpected" ]; then
        printf '%s: expected\n%s\nbut it printed\n%s\n' "$theWhat" "$theExpected" "$theLines"
        gFailures=$((gFailures + 1))
    fi
}

gProgram=("$@")
gFolder=$(cd "$gFolder" && pwd -P)
touch "$gFolder/a b" "$gFolder/other" "$gFolder/-dashed"

expect "Without files, the program opens" "open"
expect "Options and absent files do not count" "open" -x --verbose absent ''
expect "A file by its path" "open $gFolder/a b" "$gFolder/a b"
expect "Files in the current folder, in order" "open $gFolder/other
open $gFolder/a b" other "a b"
expect "A file by its URL" "open $gFolder/a b" "file://$gFolder/a%20b"
expect "What begins with a dash is an option" "open" -dashed
expect "and a file behind two dashes" "open $gFolder/-dashed" -- -dashed
expect "Files among other words" "open $gFolder/other" -x other absent

echo "$gFailures failures"
[ "$gFailures" -eq 0 ]
