#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckLinks.sh <readelf> <library of the desktop> <other library or program>...: fails when one of the others needs
# Qt by itself, or the library of the desktop does not.
set -u
theReadElf=$1
theDesktop=$2
shift 2

needs_qt()
{
    "$theReadElf" -d "$1" | grep -q 'NEEDED.*libQt'
}

if ! needs_qt "$theDesktop"; then
    echo "$theDesktop does not need Qt"
    exit 1
fi
for theFile in "$@"; do
    # An example that is not built is an empty word.
    if [ -n "$theFile" ] && needs_qt "$theFile"; then
        echo "$theFile needs Qt"
        exit 1
    fi
done
