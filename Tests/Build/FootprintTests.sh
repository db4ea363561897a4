#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# FootprintTests.sh constructors <readelf> <library> <bytes of a pointer>: nothing of the library runs when it is
# loaded. The one constructor that there may be is the compiler's own, which every library has.
#
# FootprintTests.sh size <strip> <library> <limit>: the stripped library has less than that many bytes.
set -u
kWhat=$1 kTool=$2 kLibrary=$3 kLimit=$4

case $kWhat in
constructors)
    theSize=$("$kTool" --wide --section-headers "$kLibrary" | sed -nE 's/.* \.init_array +[A-Z_]+ +[0-9a-f]+ +[0-9a-f]+ +([0-9a-f]+) .*/\1/p')
    theSize=$((16#${theSize:-0}))
    if [ "$theSize" -gt "$kLimit" ]; then
        echo "$((theSize / kLimit - 1)) static constructors run when the library is loaded:"
        "$kTool" --wide --symbols "$kLibrary" | grep -o '_GLOBAL__sub_I_.*'
        exit 1
    fi
    ;;
size)
    theCopy=$(mktemp)
    trap 'rm -f "$theCopy"' EXIT
    "$kTool" -o "$theCopy" "$kLibrary" || exit 1
    theSize=$(stat -c %s "$theCopy")
    echo "$theSize bytes"
    [ "$theSize" -lt "$kLimit" ]
    ;;
esac
