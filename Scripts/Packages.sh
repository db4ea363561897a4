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

# install_packages <package>...
install_packages()
{
    echo "Installing $* ..."
    apt_quietly update && apt_quietly install -y --no-install-recommends "$@"
}

# can_install: whether this is root on a system with apt.
can_install()
{
    [ "$(id -u)" -eq 0 ] && command -v apt-get >/dev/null
}

# need_packages <package>...: installs what is missing when this is root; otherwise names it and ends the
# program with status 1.
need_packages()
{
    local theMissing
    mapfile -t theMissing < <(missing_packages "$@")
    if [ "${#theMissing[@]}" -eq 0 ]; then
        return
    fi
    if ! can_install; then
        echo "These packages are needed and not installed: ${theMissing[*]}" >&2
        echo "Install them, as root, with: apt-get update && apt-get install ${theMissing[*]}" >&2
        exit 1
    fi
    if ! install_packages "${theMissing[@]}"; then
        echo "The packages could not be installed: ${theMissing[*]}" >&2
        exit 1
    fi
}

# want_packages <package>...: the same for what can be done without. Its status says whether all are there.
want_packages()
{
    local theMissing
    mapfile -t theMissing < <(missing_packages "$@")
    if [ "${#theMissing[@]}" -eq 0 ]; then
        return 0
    fi
    if ! can_install; then
        echo "Not installed: ${theMissing[*]}" >&2
        return 1
    fi
    install_packages "${theMissing[@]}"
}
