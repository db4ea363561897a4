#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# EnvironmentTests.sh <root of the project>: the page about the environment lists what the sources read from it,
# and nothing else.
set -u
cd "$1" || exit 1

# The names in the first column of the table.
listed()
{
    grep '^| `' Documentation/Environment.md | cut -d '|' -f 2 | grep -oE '[A-Z][A-Z0-9_]+' | sort -u
}

# The names that stand as texts where the environment is read, and the project's own wherever they stand.
read_by_sources()
{
    {
        grep -rlE 'getenv|qEnvironmentVariable' --include='*.cpp' --include='*.h' Source Platform |
            xargs grep -ohE '"[A-Z][A-Z0-9_]{3,}"'
        grep -rohE '"LM_[A-Z_]+"' --include='*.cpp' --include='*.h' Source Platform
    } | tr -d '"' | sort -u
}

if [ -z "$(listed)" ] || ! diff <(listed) <(read_by_sources); then
    echo "< stands in Documentation/Environment.md alone, > in the sources alone"
    exit 1
fi
