# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# Read by ./demo and ./check: makes sure that the Debian packages which they need are there.

# missing_packages <package>...: prints those that are not installed, one a line.
missing_packages()
{
    local thePackage
    for thePackage in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$thePackage" 2>/dev/null)" != installed ]; then
            echo "$thePackage"
        fi
    done
}

# apt_quietly <arguments>...: runs apt-get without questions; its output is shown only when it fails.
apt_quietly()
{
    local theLog
    theLog=$(mktemp)
    if ! DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 "$@" >"$theLog" 2>&1; then
        cat "$theLog" >&2
        rm -f "$theLog"
        return 1
    fi
    rm -f "$theLog"
}

# need_packages <package>...: installs what is missing when this is root; otherwise names it and ends the
# program with status 1.
need_packages()
{
    local theMissing
    theMissing=$(missing_packages "$@" | tr '\n' ' ')
    if [ -z "$theMissing" ]; then
        return
    fi
    if [ "$(id -u)" -ne 0 ] || ! command -v apt-get >/dev/null; then
        echo "These packages are needed and not installed: $theMissing" >&2
        echo "Install them, as root, with: apt-get install $theMissing" >&2
        exit 1
    fi
    echo "Installing $theMissing"
    # The names hold no blanks; the split is meant.
    # shellcheck disable=SC2086
    if ! apt_quietly update || ! apt_quietly install -y --no-install-recommends $theMissing; then
        echo "The packages could not be installed: $theMissing" >&2
        exit 1
    fi
}
