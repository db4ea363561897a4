#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# ReadmeTests.sh <root of the project>: the README shows the first example from its first class on, with the
# output that it has, and every file that the documents link to exists.
set -u
cd "$1" || exit 1
gFailures=0

# fenced <language>: the lines of the README's first block of that language.
fenced()
{
    sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" README.md | sed '1d;/^```$/,$d'
}

# same <what> <expected> <found>
same()
{
    if [ -z "$2" ] || [ "$2" != "$3" ]; then
        echo "$1 in the README differs:"
        diff <(echo "$2") <(echo "$3")
        gFailures=$((gFailures + 1))
    fi
}

same "The first example" "$(sed -n '/^class /,$p' Examples/FirstStore/FirstStore.cpp)" "$(fenced cpp)"
same "Its output" "$(cat Examples/FirstStore/expected.txt)" "$(fenced text)"

Scripts/CheckLinks.sh README.md CONTRIBUTING.md Documentation/*.md Documentation/Tutorial/*.md Benchmarks/*.md \
    Platform/*.md Platform/*/*.md || gFailures=$((gFailures + 1))
[ "$gFailures" -eq 0 ]
