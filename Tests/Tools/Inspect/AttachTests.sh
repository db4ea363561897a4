#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# AttachTests.sh <lminspect> <FaultProgram> <libLmInspector>: programs that lminspect starts, and one that runs already.
set -u
kInspect=$1
kProgram=$2
kInspector=$3
export LM_PRESENTER=headless LM_PREFERENCES=memory
gFolder=$(mktemp -d)
export XDG_RUNTIME_DIR=$gFolder
gProcess=
finish()
{
    [ -z "$gProcess" ] || kill -9 "$gProcess" 2>/dev/null
    rm -rf "$gFolder"
}
trap finish EXIT
# The sanitizers' own library wants to be the first, and is there all the same.
export ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0"
gFailures=0

fail()
{
    echo "FAILED: $1"
    gFailures=$((gFailures + 1))
}

# expect <status> <argument>...: runs it; what it prints is in out and err.
expect()
{
    local theStatus=$1 theActual
    shift
    "$kInspect" "$@" >"$gFolder/out" 2>"$gFolder/err" </dev/null
    theActual=$?
    if [ "$theActual" -ne "$theStatus" ]; then
        fail "lminspect $*: status $theActual instead of $theStatus"
        cat "$gFolder/out" "$gFolder/err"
    fi
}

# says <out or err> <text>
says()
{
    grep -qF -- "$2" "$gFolder/$1" || { fail "\"$2\" is not in:"; cat "$gFolder/$1"; }
}

# ---- run
expect 0 run --key=target "$kProgram" fraction-dropped
says out "model.target stays: 20.5 equals 20"
expect 1 run --command=lint "$kProgram" never-set
says out "called by (anonymous namespace)::NeverSet"
expect 0 run --command="why model.target" "$kProgram" fraction-dropped
says out "model.target became 20"
expect 0 run --output="$gFolder/kept" "$kProgram" fraction-dropped
[ ! -s "$gFolder/out" ] || fail "a journal that is kept is shown"
expect 0 log --callers "$gFolder/kept"
says out "FractionDropped"
# The status is that of the program, when there is nothing else to say; its arguments are its own.
expect 7 run "$kProgram" fraction-dropped 7 --all
expect 127 run "$gFolder/nothing"
says err "cannot be started"
expect 2 run "$kProgram"
says err "the journal of $kProgram holds no entry of a journal"

# ---- attach
expect 2 attach
says err "LM_JOURNAL_SOCKET=1 in its environment allows it"
LM_JOURNAL_SOCKET=1 "$kProgram" none 2>"$gFolder/program" &
gProcess=$!
for _ in $(seq 100); do
    [ -S "$gFolder/lminspect/FaultProgram.$gProcess" ] && break
    sleep 0.05
done
expect 0 attach
says out "$gProcess  FaultProgram"
"$kInspect" attach --key=level FaultProgram 2>"$gFolder/err" | head -n 3 >"$gFolder/out"
says out "model.level: "
# The one before has gone, which the program finds out.
for _ in $(seq 100); do
    "$kInspect" attach --output="$gFolder/attached" "$gProcess" 2>"$gFolder/err" && break
    sleep 0.05
done
expect 2 attach "$gProcess"
says err "FaultProgram ($gProcess): somebody has attached to it already"
for _ in $(seq 100); do
    [ "$(wc -l <"$gFolder/attached")" -gt 10 ] && break
    sleep 0.05
done
expect 0 detach FaultProgram
expect 2 detach FaultProgram
says err "nobody has attached to it"
expect 0 lint "$gFolder/attached"
expect 0 why model.level "$gFolder/attached"
tail -n 1 "$gFolder/attached" | grep -q '"what":"end"' || fail "the journal has no end"
expect 2 attach FaultProgrm
says err "did you mean FaultProgram?"
expect 2 attach --output="$gFolder/no such folder/journal" FaultProgram
says err "cannot be written"

# One that is killed leaves its socket, which is found to be nobody's.
kill -9 "$gProcess"
wait "$gProcess" 2>/dev/null
gProcess=
expect 2 attach
[ -z "$(ls "$gFolder/lminspect")" ] || fail "a socket is left"

# ---- ask
expect 2 ask
says err "no program can be asked; LM_INSPECTOR=1 in the environment"
LM_INSPECTOR=1 LD_PRELOAD=$kInspector "$kProgram" none 2>"$gFolder/program" &
gProcess=$!
for _ in $(seq 100); do
    [ -S "$gFolder/lminspect/FaultProgram.$gProcess.inspector" ] && break
    sleep 0.05
done
expect 0 ask
says out "$gProcess  FaultProgram"
expect 0 ask FaultProgram objects
says out "#1 model (LmKeyValueBinding)"
expect 0 ask "$gProcess" keys model
says out "level = "
expect 0 ask FaultProgram set model.level -5
says out "model.level is set."
expect 0 ask FaultProgram why model.level
expect 0 ask FaultProgram "keys "$'\e'"[1m"
says out '\u001b[1m'
expect 2 ask FaultProgrm objects
says err "no program that can be asked is called FaultProgrm; did you mean FaultProgram?"
expect 2 attach FaultProgram
says err "no program can be attached to"
kill -9 "$gProcess"
wait "$gProcess" 2>/dev/null
gProcess=
expect 2 ask
[ -z "$(ls "$gFolder/lminspect")" ] || fail "a socket is left of who was asked"

# Without being allowed, nobody is met.
LD_PRELOAD=$kInspector "$kProgram" fraction-dropped
LM_JOURNAL=$gFolder/journal "$kProgram" fraction-dropped
[ -z "$(ls "$gFolder/lminspect")" ] || fail "there is a socket that nobody asked for"

[ "$gFailures" -eq 0 ]
