#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# StoryTests.sh <lminspect> <StoryProgram> <page>: what the page shows below each "$ lminspect ..." is what that prints,
# but for times. It asks about the journals that StoryProgram writes.
set -u
kInspect=$1 kProgram=$2 kPage=$3
gFolder=$(mktemp -d)
trap 'rm -rf "$gFolder"' EXIT
export LM_PRESENTER=headless LM_PREFERENCES=memory

for theStory in slider settled area; do
    LM_JOURNAL_CALLERS=8 LM_JOURNAL=$gFolder/$theStory.journal "$kProgram" $theStory || exit 1
done

# What stands in the blocks of the page that begin with such a line, one after the other.
shown()
{
    awk '/^```/ { isBlock = !isBlock; isFirst = isBlock; isShown = 0; next }
        isBlock && isFirst { isShown = /^\$ lminspect / ; isFirst = 0 }
        isShown' "$kPage"
}

# The commands of the page, each with what it prints.
answered()
{
    local theLine
    cd "$gFolder" || exit 1
    sed -nE 's/^\$ (lminspect .*)/\1/p' "$kPage" | while IFS= read -r theLine; do
        echo "\$ $theLine"
        eval "\"$kInspect\" ${theLine#lminspect}"
    done
}

without_times()
{
    sed -E 's/ +[0-9]+\.[0-9]{6} s/ some time/'
}

theCount=$(shown | grep -c '^\$ lminspect ')
[ "$theCount" -ge 6 ] || { echo "the page shows $theCount answers"; exit 1; }
diff -u --label shown <(shown | without_times) --label answered <(answered | without_times)
