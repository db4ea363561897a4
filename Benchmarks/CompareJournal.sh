#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CompareJournal.sh <build folder>: what one change through a two-way binding costs without a trace and a journal,
# with the trace log in a file, and with a journal in a file, without and with callers: instructions of the program
# (callgrind), processor time with the system's part, and bytes in the file. Needs the library LmInspection built.
set -eu
cd "$1"
theLibrary=$(find "$PWD" -name 'libLmInspection.so.1' | head -n 1)
cd Benchmarks
gFolder=$(mktemp -d)
trap 'rm -rf "$gFolder"' EXIT

# probe <steps>: runs the variant that gPrefix, gVariables and gWrapper say. What it writes is in the folder.
probe()
{
    env -i PATH="/usr/bin:/bin" "${gVariables[@]}" "${gWrapper[@]}" ./InstructionProbe "${gPrefix}two-way" "$1" \
        2>"$gFolder/errors"
}

# instructions <steps>
instructions()
{
    gWrapper=(valgrind --tool=callgrind --callgrind-out-file=/dev/null --log-file="$gFolder/valgrind")
    probe "$1"
    gWrapper=()
    sed -nE 's/.*Collected : ([0-9]+).*/\1/p' "$gFolder/valgrind"
}

# nanoseconds <steps>: of the processor, the best of five.
nanoseconds()
{
    local theBest='' theTime TIMEFORMAT='%U %S'
    for _ in 1 2 3 4 5; do
        theTime=$({ time probe "$1"; } 2>&1 | awk '{ printf "%d", ($1 + $2) * 1e9 }')
        if [ -z "$theBest" ] || [ "$theTime" -lt "$theBest" ]; then
            theBest=$theTime
        fi
    done
    echo "$theBest"
}

# bytes <steps>
bytes()
{
    probe "$1"
    cat "$gFolder/errors" "$gFolder/journal" 2>/dev/null | wc -c
}

# each <function> <steps>: what one step takes.
each()
{
    local theFew theMany
    theFew=$("$1" "$2")
    theMany=$("$1" $((2 * $2)))
    echo $(((theMany - theFew) / $2))
}

# row <steps to measure the time of> <title> <prefix of the scenario> [<variable>]...
row()
{
    local theSteps=$1 theTitle=$2
    gPrefix=$3
    gWrapper=()
    shift 3
    gVariables=("$@")
    printf '| %s | %d | %d | %d |\n' "$theTitle" "$(each instructions 200)" "$(each nanoseconds "$theSteps")" \
        "$(each bytes 200)"
}

echo '| one change through a two-way binding | instructions | ns | bytes |'
echo '|---|---:|---:|---:|'
row 2000000 'no journal, no trace' ''
row 20000 'the trace into a file' traced-
row 20000 'a journal' '' "LM_JOURNAL=$gFolder/journal" "LD_PRELOAD=$theLibrary"
row 20000 'a journal with 8 callers' '' "LM_JOURNAL=$gFolder/journal" "LD_PRELOAD=$theLibrary" LM_JOURNAL_CALLERS=8
row 2000000 'none, and it can be attached to' '' LM_JOURNAL_SOCKET=1 "XDG_RUNTIME_DIR=$gFolder" "LD_PRELOAD=$theLibrary"
