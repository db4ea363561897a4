#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# ProgramTests.sh <lminspect> <root of the project>: the program as a person or a script uses it.
set -u
kProgram=$1
kRoot=$2
gFolder=$(mktemp -d)
trap 'rm -rf "$gFolder"' EXIT
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
    "$kProgram" "$@" >"$gFolder/out" 2>"$gFolder/err" </dev/null
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

is_silent()
{
    [ ! -s "$gFolder/$1" ] || { fail "something was printed:"; cat "$gFolder/$1"; }
}

python3 "$kRoot/Tools/Inspect/MakeJournal.py" 30 2 >"$gFolder/journal"

expect 0 --help
says out "usage: lminspect"
is_silent err
expect 0 --version
says out "lminspect $(sed -nE 's/^#define LM_VERSION_STRING "(.*)"$/\1/p' "$kRoot/Source/Core/LmVersion.h")"
expect 2 --bogus
says err "Try 'lminspect --help'."
is_silent out
expect 2 log "$gFolder/none"
says err "cannot be opened"
expect 2 log
says err "standard input holds no entry of a journal"
expect 0 log "$gFolder/journal"
is_silent err
cp "$gFolder/out" "$gFolder/whole"
grep -c 'model .*\.level: ' "$gFolder/whole" | grep -qx 10 || fail "ten changes of the models are shown"

# A pipe gives the same as the file, and so does a journal that was cut off in its last line.
"$kProgram" log - <"$gFolder/journal" | cmp -s - "$gFolder/whole" || fail "a file as standard input"
cat "$gFolder/journal" | "$kProgram" log | cmp -s - "$gFolder/whole" || fail "a pipe"
{ cat "$gFolder/journal"; printf '{"n":99999,"t":'; } | "$kProgram" log | cmp -s - "$gFolder/whole" || fail "a last line without an end"

# What is damaged is named and passed over.
sed '5s/.*/damaged/' "$gFolder/journal" >"$gFolder/damaged"
expect 0 log "$gFolder/damaged"
says err "line 5 is skipped: "
says err "1 entry is missing"

# Two questions read a pipe twice.
cat "$gFolder/journal" | "$kProgram" why 'model 1.level' | grep -q '^model 1.level became 5 (it was 4)' || fail "why, from a pipe"
cat "$gFolder/journal" | "$kProgram" why not 'model 1.level' | grep -q '^It follows slider 1.value' || fail "why not, from a pipe"
expect 2 why 'model 9.level' "$gFolder/journal"
says err "did you mean model"

expect 0 lint "$gFolder/journal"
says out "0 findings"
sed '/"what":"bind"/s/"fromKey":"level"/"fromKey":"levle"/' "$gFolder/journal" >"$gFolder/misspelt"
expect 1 lint "$gFolder/misspelt"
says out "did you mean level?"
expect 2 lint "$gFolder/none"
for thePage in $(grep -ohE 'Documentation/[A-Za-z0-9/-]+\.md' "$kRoot/Tools/Inspect/Lint.cpp" | sort -u); do
    [ -f "$kRoot/$thePage" ] || fail "there is no page $thePage"
done
for theRule in $(sed -nE 's/.*\{"([a-z]+-[a-z]+)".*/\1/p' "$kRoot/Tools/Inspect/Lint.cpp"); do
    grep -qF ".B ${theRule/-/\\-}" "$kRoot/Tools/Inspect/lminspect.1" || fail "$theRule is not in the page of the manual"
done

expect 0 graph --dot "$gFolder/journal"
says out "digraph Bindings"
if command -v dot >/dev/null; then
    expect 0 graph --at=5 "$gFolder/journal"
    says out "</svg>"
fi
expect 2 graph --at=0 "$gFolder/journal"
says err "no number from 1 on"

# The page in a file and on the standard output is the same, and a pipe is as good as a file.
expect 0 page -o "$gFolder/page" "$gFolder/journal"
is_silent out
is_silent err
expect 0 page "$gFolder/journal"
cmp -s "$gFolder/out" "$gFolder/page" || fail "a page on the standard output"
cat "$gFolder/journal" | "$kProgram" page | grep -q '^</html>' || fail "a page, from a pipe"
PATH=/nowhere "$kProgram" page "$gFolder/journal" | /usr/bin/grep -q 'dot is not installed' || fail "a page without Graphviz"
expect 2 page -o "$gFolder/no/page" "$gFolder/journal"
says err "cannot be written: No such file or directory"

expect 0 diff "$gFolder/journal" "$gFolder/journal"
is_silent out
expect 1 diff "$gFolder/journal" "$gFolder/misspelt"

# A disk that is full.
if [ -w /dev/full ]; then
    "$kProgram" log "$gFolder/journal" >/dev/full 2>"$gFolder/err"
    [ $? -eq 2 ] || fail "what cannot be written is trouble"
    says err "the output could not be written"
fi

# The page of the manual and the completion know every option and every command.
for theOption in $("$kProgram" --help | grep -oE -- '--[a-z]+' | sort -u); do
    grep -qF -- "\\-\\-${theOption#--}" "$kRoot/Tools/Inspect/lminspect.1" || fail "$theOption is not in the page of the manual"
    grep -qwF -- "$theOption" "$kRoot/Tools/Inspect/lminspect.bash" || fail "$theOption is not in the completion"
done
for theCommand in $("$kProgram" --help | sed -nE '/^usage/d; s/^([a-z]+)( not)?: .*/\1/p'); do
    grep -qF ".B $theCommand" "$kRoot/Tools/Inspect/lminspect.1" || fail "$theCommand is not in the page of the manual"
    grep -qw -- "$theCommand" "$kRoot/Tools/Inspect/lminspect.bash" || fail "$theCommand is not in the completion"
done

# The completion completes.
. "$kRoot/Tools/Inspect/lminspect.bash"
# completes <expected> <word>...: completing the last word.
completes()
{
    local theExpected=$1
    shift
    COMP_WORDS=(lminspect "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _lminspect
    [ "${COMPREPLY[*]}" = "$theExpected" ] || fail "completing $*: ${COMPREPLY[*]}"
}
completes "log lint" l
completes "--object=" log --ob
completes changing log --kind = changi
completes "$gFolder/journal" log "$gFolder/jour"
completes page pa
completes "$gFolder/page" page -o "$gFolder/pag"

[ "$gFailures" -eq 0 ]
