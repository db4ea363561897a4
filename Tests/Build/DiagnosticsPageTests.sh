#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# DiagnosticsPageTests.sh <root of the project>: Documentation/Diagnostics.md lists each text that Source reports, and
# none besides.
set -u
export LC_ALL=C
cd "$1" || exit 1

# reported: the texts in the sources, one to a line. A text that begins on the line after the macro is found too.
reported()
{
    find Source -name '*.cpp' -o -name '*.h' | grep -v '/LmDiagnostics\.h$' | sort | xargs cat |
        tr '\n' ' ' | sed -E 's/(LM_(ASSERT|ERROR)|LmReportDiagnostic)\( */\n&/g' |
        sed -nE 's/^LM_ERROR\( *"([^"]*)".*/\1/p; s/^LmReportDiagnostic\(__FILE__, __LINE__, *"([^"]*)".*/\1/p; s/^LM_ASSERT\( *([^;]*)\);.*/\1/p'
    printf '\nError %%ld\n' # LM_CHECK_STATUS
}

# listed: the first column of the tables that list lines.
listed()
{
    sed -n '/^## Every line/,/^## The trace/p' Documentation/Diagnostics.md | sed -nE 's/^\| `([^`]*)` \|.*/\1/p'
}

if ! diff -u --label reported <(reported | grep . | sort -u) --label listed <(listed | sort); then
    exit 1
fi
[ "$(listed | wc -l)" -gt 50 ]
