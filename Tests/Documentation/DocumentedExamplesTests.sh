#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# DocumentedExamplesTests.sh <Python> <DocumentedExamples.py>: an example that nothing checks is found, whatever
# kind it is of, and the lines of an example come out where its fixture wants them.
set -u
kPython=$("$1" -c 'import sys; print(sys.executable)') # past whatever chooses it anew each time
kScript=$2
gFailures=0
theRoot=$(mktemp -d)
trap 'rm -rf "$theRoot"' EXIT
mkdir -p "$theRoot/Source" "$theRoot/Fixtures" "$theRoot/Tests"

complain()
{
    echo "$1"
    gFailures=$((gFailures + 1))
}

# check_says <what it says somewhere>
check_says()
{
    local theText
    theText=$("$kPython" "$kScript" check "$theRoot" "$theRoot/Fixtures")
    if ! grep -qF "$1" <<<"$theText"; then
        complain "It does not say: $1"
        echo "$theText"
    fi
}

passes()
{
    "$kPython" "$kScript" check "$theRoot" "$theRoot/Fixtures" >/dev/null || complain "$1"
}

header()
{
    cat >"$theRoot/Source/Thing.h" <<'END'
// A thing.
//
//     Thing theThing;
//
//     theThing.Use();
//
// Its colours:
//
//     red       warm,
//               and so on
//     blue      cold
END
}

fixture()
{
    printf '%s\n' "$@" >"$theRoot/Fixtures/Thing.h.cpp"
}

header
check_says 'Source/Thing.h:3: example 1 is checked by nothing; it belongs into Thing.h.cpp'
fixture '// @code 1'
check_says 'Source/Thing.h:9: example 2 is checked by nothing'
fixture '// @code 1' '// @rows 2'
passes "Two examples with a fixture are refused."

printf 'add_test(NAME thing.Works\n' >"$theRoot/Tests/CMakeLists.txt"
fixture '// @code 1' '// @run 2 thing.Works'
passes "A test that is there is not found."
fixture '// @code 1' '// @run 2 thing.Fails'
check_says 'is said to be run by thing.Fails, which is no test'
fixture '// @code 1' '// @prose 2'
check_says 'is left out without a reason'
fixture '// @code 1' '// @file 2 Source/Colours.txt'
printf 'red       warm,\n          and so on\n' >"$theRoot/Source/Colours.txt"
check_says 'does not stand in Source/Colours.txt'
printf 'blue      cold\n' >>"$theRoot/Source/Colours.txt"
passes "Lines that stand in a file are not found there."
printf '// A thing.\n' >"$theRoot/Source/Thing.h"
check_says 'Thing.h.cpp is the fixture of no file with examples'

header
mkdir -p "$theRoot/Documentation"
printf 'Commands:\n\n    ./run --fast && cmake --preset debug -DLM_THING=ON   # --slow\n' >"$theRoot/README.md"
printf '// @shell 1 takes long\n' >"$theRoot/Fixtures/README.md.cpp"
fixture '// @code 1' '// @rows 2'
echo '{ "name": "debug" }' >"$theRoot/CMakePresets.json"
echo 'option(LM_THING)' >"$theRoot/CMakeLists.txt"
check_says 'README.md:3: example 1 names what is not there: ./run'
echo '--slow' >"$theRoot/run"
check_says 'names what is not there: --fast'
echo '--fast' >"$theRoot/run"
passes "Commands that could be run are refused."
echo '{ "name": "release" }' >"$theRoot/CMakePresets.json"
check_says 'names what is not there: preset debug'
echo '{ "name": "debug" }' >"$theRoot/CMakePresets.json"
echo 'option(LM_OTHER_THING)' >"$theRoot/CMakeLists.txt"
check_says 'names what is not there: LM_THING'
printf '// @shell 1\n' >"$theRoot/Fixtures/README.md.cpp"
echo 'option(LM_THING)' >"$theRoot/CMakeLists.txt"
check_says 'README.md:3: example 1 is left out without a reason'

printf 'Text.\n\n    Thing theThing;\n\n- A list\n\n    goes on.\n\n```cpp\nint i;\n```\n' >"$theRoot/Documentation/Page.md"
fixture '// @code 1' '// @rows 2'
check_says 'Documentation/Page.md:3: example 1 is checked by nothing; it belongs into Documentation-Page.md.cpp'
check_says 'Documentation/Page.md:10: example 2 is checked by nothing'

fixture '#include "Thing.h"' 'void Use()' '{' '// @code 1' '}' 'Row kRows[] = {' '// @rows 2' '};'
"$kPython" "$kScript" generate "$theRoot" "$theRoot/Generated.cpp" "$theRoot/Fixtures/Thing.h.cpp"
if ! diff - "$theRoot/Generated.cpp" <<'END'; then
#include "Thing.h"
namespace In_Thing_h {
#line 1 "Fixtures/Thing.h.cpp"

void Use()
{
#line 3 "Source/Thing.h"
Thing theThing;

theThing.Use();
#line 5 "Fixtures/Thing.h.cpp"
}
Row kRows[] = {
{"red", "warm, and so on"},
{"blue", "cold"},
#line 8 "Fixtures/Thing.h.cpp"
};
}
END
    complain "This is generated instead."
fi
fixture '// @code 3'
if "$kPython" "$kScript" generate "$theRoot" "$theRoot/Generated.cpp" "$theRoot/Fixtures/Thing.h.cpp" 2>/dev/null; then
    complain "An example that is not there is generated."
fi

printf '# A page\n\n    int i;\n\n| other |\n|---|\n| no |\n\n## Colours\n\nText.\n\n| a | b |\n|---|---|\n| red | "warm" |\n| blue | |\n\n| c |\n|---|\n| no |\n' \
    >"$theRoot/Documentation/Page.md"
thePage=$theRoot/Fixtures/Documentation-Page.md.cpp
printf '// @table Colours\n' >"$thePage"
"$kPython" "$kScript" generate "$theRoot" "$theRoot/Generated.cpp" "$thePage"
if ! diff - <(grep '^{' "$theRoot/Generated.cpp") <<'END'; then
{"red", "\"warm\""},
{"blue", ""},
END
    complain "This is generated of a table instead."
fi
printf '// @table Sounds\n' >"$thePage"
if "$kPython" "$kScript" generate "$theRoot" "$theRoot/Generated.cpp" "$thePage" 2>/dev/null; then
    complain "A table that is not there is generated."
fi
rm "$thePage"
[ "$gFailures" -eq 0 ]
