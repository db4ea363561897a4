#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckInstructions.sh <build folder> [--update]: counts the instructions of each scenario and compares them with
# those kept in Instructions.md. Fails, and names them, when one has grown by more than 3 %, is new or is gone.
# --update keeps the new figures instead. The figures are those of GCC 12 on x86-64 in a release build; with
# another compiler, compare with figures that you have kept from it.
set -eu
cd "$(dirname "$0")/.."
kKept=Benchmarks/Instructions.md

theCounts=$(mktemp)
trap 'rm -f "$theCounts"' EXIT
Benchmarks/CountInstructions.sh "$1" >"$theCounts"
if [ "${2:-}" = --update ]; then
    cp "$theCounts" "$kKept"
    exit
fi

# Both files are tables of two columns: | one step | instructions |
awk -F ' *[|] *' '
    !/^[|].*[0-9] [|]$/ { next }
    FNR == NR { theKept[$2] = $3; next }
    {
        isThere[$2] = 1
        if (!($2 in theKept)) {
            print "new: " $2 ": " $3
            theFailures++
        } else if ($3 > theKept[$2] * 1.03) {
            printf "grown: %s: %d, was %d (%+.1f %%)\n", $2, $3, theKept[$2], 100 * ($3 / theKept[$2] - 1)
            theFailures++
        }
    }
    END {
        for (theStep in theKept) {
            if (!(theStep in isThere)) {
                print "gone: " theStep
                theFailures++
            }
        }
        print FNR - 2 " scenarios, " theFailures + 0 " findings"
        exit theFailures > 0
    }' "$kKept" "$theCounts"
