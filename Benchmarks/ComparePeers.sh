#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# ComparePeers.sh: builds the comparison with the libraries that are installed, measures time, instructions and
# heap, prints the tables, and writes them to Documentation/Comparison.md and, as a chart, to
# Documentation/Pictures/Comparison.svg. Takes some minutes. Scripts/InstallPeers.sh installs the libraries.
set -eu
cd "$(dirname "$0")/.."
kProgram=Build/peers/Benchmarks/Peers/PeerComparison
kResults=$(mktemp -d)
trap 'rm -rf "$kResults"' EXIT

cmake --preset peers | sed -n 's/^-- Peers: //p'
cmake --build --preset peers >"$kResults/build" || { cat "$kResults/build"; exit 1; }

# GLib takes small blocks from malloc, so that they are counted as everybody's are.
G_SLICE=always-malloc "$kProgram" heap >"$kResults/figures"
"$kProgram" time >>"$kResults/figures"

# Each scenario has a process and a profile of its own. Each part of a profile is one peer: its title ends with the
# number of operations.
for theRun in 1 2 3; do
    valgrind --tool=callgrind --instr-atstart=no --callgrind-out-file="$kResults/profile$theRun.%p" \
        "$kProgram" count 2>"$kResults/log" || { cat "$kResults/log"; exit 1; }
    find "$kResults" -name "profile$theRun.*.*" | sort -V | while read -r thePart; do
        awk -F '\t' '
            sub(/^desc: Trigger: Client Request: /, "") { theTitle = $1 "\t" $2; theOperations = $3 }
            sub(/^totals: /, "") { printf "count\t%s\t%.0f\n", theTitle, $0 / theOperations }
        ' "$thePart"
    done
done >>"$kResults/figures"

python3 Benchmarks/Peers/DrawComparison.py "$kResults/figures" \
    Documentation/Comparison.md Documentation/Pictures/Comparison.svg
