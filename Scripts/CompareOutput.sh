#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CompareOutput.sh <file> <command>...: fails unless the command succeeds and prints exactly what the file
# holds, and nothing on the standard error stream.
set -u
theExpected=$1
shift
theErrors=$(mktemp)
trap 'rm -f "$theErrors"' EXIT
if ! diff -u --label expected "$theExpected" --label printed <("$@" 2>"$theErrors" || echo "status $?"); then
    cat "$theErrors"
    exit 1
fi
if [ -s "$theErrors" ]; then
    echo "It left this on the standard error stream:"
    cat "$theErrors"
    exit 1
fi
