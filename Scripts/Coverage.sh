#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# Coverage.sh <build folder> [--write]: runs the tests of a build made with LM_COVERAGE, and has CoverageRooms.py sum what
# they execute of Source and Platform. Branches that only an exception takes do not count, nor do those in lines with
# constant strings, each of which is a hidden static with a guard that nobody wrote, nor those of a closing brace.
set -eu
cd "$(dirname "$0")/.."
theBuild=$(cd "$1" && pwd)
shift

find "$theBuild" -name '*.gcda' -delete
ctest --test-dir "$theBuild" -j "$(nproc)" --no-tests=error --output-on-failure -LE benchmark \
    >"$theBuild/coverage-tests.log" || {
    grep -v ' Passed ' "$theBuild/coverage-tests.log" | tail -n 80
    echo "Not all tests passed." >&2
    exit 1
}
gcovr --root . --object-directory "$theBuild" --filter 'Source/' --filter 'Platform/' \
    --exclude-unreachable-branches --exclude-branches-by-pattern '.*CFSTR\(.*' -j "$(nproc)" \
    --json "$theBuild/coverage.json" "$theBuild"
Scripts/CoverageRooms.py "$theBuild/coverage.json" "$@"
