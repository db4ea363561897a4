#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CompareOutput.sh [--errors] <file> <command>...: fails unless the command succeeds and prints exactly what the
# file holds, and nothing on the standard error stream. With --errors, what it writes there belongs to what it
# prints, each line in its place, with # for the line number of a diagnostic.
set -u
theErrorsBelong=false
if [ "$1" = --errors ]; then
    theErrorsBelong=true
    shift
fi
theExpected=$1
shift
theErrors=$(mktemp)
trap 'rm -f "$theErrors"' EXIT

run()
{
    if $theErrorsBelong; then
        { "$@" || echo "status $?"; } 2>&1 | sed -E 's/^([A-Za-z\/.]+, line )[0-9]+: /\1#: /'
    else
        "$@" 2>"$theErrors" || echo "status $?"
    fi
}

if ! diff -u --label expected "$theExpected" --label printed <(run "$@"); then
    cat "$theErrors"
    exit 1
fi
if [ -s "$theErrors" ]; then
    echo "It left this on the standard error stream:"
    cat "$theErrors"
    exit 1
fi
