#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# DiagnosticEnvironmentTests.sh <command>...: what LM_QUIET and LM_FATAL do to a program that gives cause for two
# diagnostics, with and without a handler. The command runs that program, by an emulator if need be.
set -u
unset LM_QUIET LM_FATAL
gFailures=0
gErrors=$(mktemp)
trap 'rm -f "$gErrors"' EXIT

# expect <ends|aborts> <lines on the error stream> <lines on the output> <environment> [handled]
expect()
{
    local theOutput theStatus theEnd=ends theArguments=("${@:5}")
    # A core file is of no use to anybody here.
    theOutput=$(ulimit -c 0; env $4 "${kCommand[@]}" ${theArguments[@]+"${theArguments[@]}"} 2>"$gErrors")
    theStatus=$?
    [ "$theStatus" -eq 0 ] || theEnd=aborts
    theOutput=$(tr '\n' ';' <<<"$theOutput")
    theErrors=$(grep -a '^Source/' "$gErrors" | sed -E 's/.*: //' | tr '\n' ';')
    if [ "$theEnd|$theErrors|$theOutput" != "$1|$2|$3" ]; then
        printf '%s: expected %s, found %s (%d)\n' "$4 $*" "$1|$2|$3" "$theEnd|$theErrors|$theOutput" "$theStatus"
        gFailures=$((gFailures + 1))
    fi
}

kCommand=("$@")
kBoth='IsString();IsPointer();'
expect ends "$kBoth" 'the end;' LM_OTHER=1
expect ends '' 'the end;' LM_QUIET=1
expect ends "$kBoth" 'the end;' LM_QUIET=0
expect ends "$kBoth" 'the end;' LM_QUIET=
expect aborts 'IsString();' ';' LM_FATAL=1
expect ends "$kBoth" 'the end;' LM_FATAL=0
expect aborts '' ';' 'LM_FATAL=1 LM_QUIET=1'
expect ends '' 'handled IsString();handled IsPointer();the end;' LM_OTHER=1 handled
expect ends '' 'handled IsString();handled IsPointer();the end;' LM_QUIET=1 handled
expect aborts '' 'handled IsString();' LM_FATAL=1 handled
[ "$gFailures" -eq 0 ]
