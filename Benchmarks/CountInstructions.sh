#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CountInstructions.sh <build folder>: prints how many instructions one step of each scenario takes. Counted
# by callgrind, so the figures do not depend on what else the machine does. Environment and path of the probe lie on
# its stack and shift what comes after them, which alone makes some percent; so they are always the same.
set -eu
cd "$1/Benchmarks"

# instructions <argument>...: what one run of the probe takes, all in all.
instructions()
{
    env -i PATH="/usr/bin:/bin" valgrind --tool=callgrind --callgrind-out-file=/dev/null ./InstructionProbe "$@" 2>&1 |
        sed -nE 's/.*Collected : ([0-9]+).*/\1/p'
}

# row <title> <scenario> <steps> [<size> [<observers>]]
row()
{
    local theTitle=$1 theScenario=$2 theSteps=$3 theFew theMany
    shift 3
    theFew=$(instructions "$theScenario" "$theSteps" "$@")
    theMany=$(instructions "$theScenario" $((2 * theSteps)) "$@")
    printf '| %s | %d |\n' "$theTitle" $(((theMany - theFew) / theSteps))
}

echo '| one step | instructions |'
echo '|---|---:|'
for theObservers in 0 1 10; do
    for theKeys in 10 1000 100000; do
        row "set a key, $theKeys keys, $theObservers observers" set 1000 "$theKeys" "$theObservers"
    done
done
row 'one hop, one way' one-way 1000
row 'one hop, two ways' two-way 1000
row 'a chain of 10' chain 100 10
row 'a chain of 100' chain 100 100
row 'a fan-out of 100, one way' fan-out-one-way 20 100
row 'a fan-out of 1000, one way' fan-out-one-way 20 1000
row 'a fan-out of 100, two ways' fan-out-two-way 20 100
row 'a fan-out of 1000, two ways' fan-out-two-way 20 1000
for theKeys in 10 100 1000 10000; do
    row "a change among $theKeys bound keys, two ways" bound-keys 100 "$theKeys"
done
row 'bind and unbind 1000 pairs' pairs 2 1000
row 'bind and unbind 10000 pairs' pairs 2 10000
row 'bind and unbind 1000 followers of one key' followers 2 1000
row 'bind and unbind 10000 followers of one key' followers 2 10000
row 'an event through the binding of a control' control 500
row 'an event through the binding of a window' window 500
row 'an event through the binding of a menu command' menu 500
row 'an event through the binding of a model' model 500
row 'read a preference' preference-read 500
row 'write a preference' preference-write 500
row 'a change told to a function' observation 1000
row 'one hop through a scoped binding, one way' scoped-one-way 1000
row 'one hop through a scoped binding, two ways' scoped-two-way 1000
row 'make and undo a scoped binding' scoped-pair 1000
row 'ten sets of five keys in a change group' group 500
row 'a set posted to the main loop' post 500
# The transforms that work hardest, each on the kind that it is for.
row 'scale a double' transform 1000 8 5
row 'add to a signed 32-bit integer' transform 1000 7 2
row 'a double to a string' transform 500 10 5
row 'a string to a number' transform 500 11 6
