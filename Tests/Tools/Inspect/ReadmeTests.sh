#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# ReadmeTests.sh <lminspect> <libLmInspection> <ThermostatSession> <root of the project>: what the README shows of
# lminspect is what it answers about the session of the thermostat, but for the time that passed.
set -u
kProgram=$1 kLibrary=$2 kSession=$3 kReadme=$4/README.md
export LM_PRESENTER=headless LM_PREFERENCES=memory
gFolder=$(mktemp -d)
trap 'rm -rf "$gFolder"' EXIT

# The lines below the command, up to the first one that is no part of the block.
shown()
{
    sed -nE '/^    \$ lminspect why /,/^[^ ]/{/^    \$/d; /^[^ ]/d; s/^    //; p}' "$kReadme" | sed -e :a -e '/^\n*$/{$d;N;ba' -e '}'
}

without_time()
{
    sed -E 's/ at [0-9.]+ s\.$/ at some time./'
}

# The sanitizers' own library wants to be the first, and is there all the same.
ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0" \
    LM_JOURNAL=$gFolder/Thermostat.journal LD_PRELOAD=$kLibrary "$kSession" >/dev/null 2>&1 || exit 1
theTarget=$(sed -nE 's/^    \$ lminspect why ([^ ]+) .*/\1/p' "$kReadme")
"$kProgram" why "$theTarget" "$gFolder/Thermostat.journal" >"$gFolder/answer" || exit 1
diff -u --label README.md <(shown | without_time) --label answer <(without_time <"$gFolder/answer") || exit 1

# The page of that session holds every object of it.
"$kProgram" page "$gFolder/Thermostat.journal" >"$gFolder/page" || exit 1
for theName in thermostat 'room field' 'target slider' window; do
    grep -qF "\"$theName\"" "$gFolder/page" || { echo "$theName is not on the page"; exit 1; }
done
