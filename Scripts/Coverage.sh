#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# Coverage.sh <build folder>: runs the tests of a build made with LM_COVERAGE and prints how much of Source/
# they execute, file by file: lines, then branches. Those that only an exception takes do not count, nor do
# those in lines with constant strings, each of which is a hidden static with a guard that nobody wrote. Fails
# below all lines or 95 % of the branches.
set -eu
cd "$(dirname "$0")/.."
theBuild=$(cd "$1" && pwd)

find "$theBuild" -name '*.gcda' -delete
ctest --test-dir "$theBuild" -j "$(nproc)" --no-tests=error --output-on-failure -LE benchmark \
    >"$theBuild/coverage-tests.log" || {
    grep -v ' Passed ' "$theBuild/coverage-tests.log" | tail -n 80
    echo "Not all tests passed." >&2
    exit 1
}
report()
{
    gcovr --root . --object-directory "$theBuild" --filter 'Source/' --exclude-throw-branches \
        --exclude-branches-by-pattern '.*CFSTR\(.*' -j "$(nproc)" "$@" "$theBuild"
}
report --branches
report --print-summary --fail-under-line 100 --fail-under-branch 95
