#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# PlaySecondRun.sh <session program>...: plays the first run in an empty home, without a word, and then the second
# in what that one has left. Both end with a window that is shown, so that is what must be remembered.
set -u
theHome=$(mktemp -d)
trap 'rm -rf "$theHome"' EXIT
export XDG_CONFIG_HOME=$theHome
unset LM_PREFERENCES
"$@" >"$theHome/first.log" 2>&1 && "$@" --second || exit 1
if ! cat "$theHome"/*.plist | tr -d '[:space:]' | grep -q '<key>shown</key><true/>'; then
    echo "A window that is shown is remembered as hidden:"
    cat "$theHome"/*.plist
fi
