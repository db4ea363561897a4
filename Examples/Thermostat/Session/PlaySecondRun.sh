#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# PlaySecondRun.sh <session program>...: plays the first run in an empty home, without a word, and then the second
# in what that one has left.
set -u
theHome=$(mktemp -d)
trap 'rm -rf "$theHome"' EXIT
export XDG_CONFIG_HOME=$theHome
unset LM_PREFERENCES
"$@" >"$theHome/first.log" 2>&1 && "$@" --second
