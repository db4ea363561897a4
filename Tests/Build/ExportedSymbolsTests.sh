#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# ExportedSymbolsTests.sh <nm> <library> <kept list> <bytes of a pointer> [--update]: the library exports
# what the list names, nothing more and nothing less. --update writes the list anew instead.
#
# The list is made where a pointer has 8 bytes. Elsewhere the names of the integer types inside the
# parameter lists differ, so there the names are compared without their parameters.
set -u
export LC_ALL=C
kNm=$1 kLibrary=$2 kList=$3 kPointerSize=$4

exported()
{
    "$kNm" --dynamic --defined-only --demangle --format=posix "$kLibrary" |
        sed -E 's/ [A-Za-z] [0-9a-f]+( [0-9a-f]+)?$//' |
        grep -v '^__odr_asan' | sort -u
}

# names: the symbols without what depends on the size of a pointer.
names()
{
    sed -E 's/\(.*//; s/ to (.*)$/ to \1/; s/\[abi:[^]]*\]//g' | sort -u
}

if [ "${5:-}" = --update ]; then
    exported >"$kList"
    exit
fi
if [ "$kPointerSize" -eq 8 ]; then
    diff -u --label expected "$kList" --label exported <(exported)
else
    diff -u --label expected <(names <"$kList") --label exported <(exported | names)
fi
