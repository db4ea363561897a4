#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# Fuzz.sh <target> <seconds>: lets libFuzzer make input for a target of Tests/Fuzz for so long, from the kept inputs
# on and from what earlier runs have found (Build/fuzz/Found/<target>). An input that breaks something is written to
# Build/fuzz/Broken, and the status is then not 0: mend what it breaks, and keep it in Tests/Fuzz/Corpus/<target>.
#
# Needs the build of the preset `fuzz`.
set -u
kTarget=${1:?usage: Fuzz.sh <target> <seconds>}
kSeconds=${2:?usage: Fuzz.sh <target> <seconds>}
cd "$(dirname "$0")/.." || exit 1
kProgram=Build/fuzz/Tests/Fuzz/fuzz.$kTarget
if [ ! -x "$kProgram" ]; then
    echo "There is no $kProgram. Build it: cmake --preset fuzz && cmake --build --preset fuzz" >&2
    exit 2
fi
mkdir -p "Build/fuzz/Found/$kTarget" Build/fuzz/Broken
kFlags=()
if [ "$kTarget" = PreferenceFile ]; then
    # Each damaged file is reported, and there are thousands. What the sanitizers find is shown all the same.
    kFlags+=(-close_fd_mask=2)
fi
if [ -z "${TMPDIR:-}" ] && [ -w /dev/shm ]; then
    # Its files lie in memory.
    export TMPDIR=/dev/shm
fi

exec env LM_PREFERENCES=memory ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1 UBSAN_OPTIONS=print_stacktrace=1 \
    "$kProgram" -max_total_time="$kSeconds" -timeout=10 -rss_limit_mb=2048 -max_len=4096 -print_final_stats=1 \
    -artifact_prefix="Build/fuzz/Broken/$kTarget-" "${kFlags[@]}" \
    "Build/fuzz/Found/$kTarget" "Tests/Fuzz/Corpus/$kTarget"
