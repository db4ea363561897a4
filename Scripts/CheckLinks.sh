#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckLinks.sh <document>...: fails when one of these documents, in Markdown, links to a file that is not there, or
# when none of them links to any. What stands in a fenced block is code, in which lambdas look like links.
set -u
gCount=0
gFailures=0
for theDocument in "$@"; do
    [ -e "$theDocument" ] || continue
    while IFS= read -r theTarget; do
        gCount=$((gCount + 1))
        if [ ! -e "$(dirname "$theDocument")/$theTarget" ]; then
            echo "$theDocument links to $theTarget, which is not there"
            gFailures=$((gFailures + 1))
        fi
    done < <(sed '/^```/,/^```/d' "$theDocument" | grep -oE '\]\([^)#]+' | sed 's/^](//' | grep -v ':')
done
echo "$gCount links, $gFailures dead"
[ "$gFailures" -eq 0 ] && [ "$gCount" -gt 0 ]
