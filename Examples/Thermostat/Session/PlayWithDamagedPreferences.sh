#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# PlayWithDamagedPreferences.sh <session program>...: plays the second run where the preference file is damaged. The
# application must say so in one line, keep the file aside, and work as it does without one.
set -u
theHome=$(mktemp -d)
trap 'rm -rf "$theHome"' EXIT
export XDG_CONFIG_HOME=$theHome
unset LM_PREFERENCES
theFile=$theHome/org.lmbindings.Thermostat.plist
echo '<?xml version="1.0"?><plist><dict><key>target</ke' >"$theFile"
"$@" --second >"$theHome/out" 2>"$theHome/errors" || { cat "$theHome/out" "$theHome/errors"; exit 1; }
grep -v 'Error -50' "$theHome/errors" >"$theHome/complaints"
if [ "$(wc -l <"$theHome/complaints")" -ne 1 ]; then
    echo "One line should tell of the damaged file; these were there:"
    cat "$theHome/complaints"
    exit 1
fi
if ! grep -q 'target 21, power 64, in Celsius' "$theHome/out"; then
    echo "The application does not begin with its own defaults:"
    cat "$theHome/out"
    exit 1
fi
if ! grep -qrs --include='org.lmbindings.Thermostat*' '</ke$' "$theHome"; then
    echo "The damaged file is gone:"
    ls -la "$theHome"
    exit 1
fi
