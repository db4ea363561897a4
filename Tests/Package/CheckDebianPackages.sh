#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckDebianPackages.sh <build folder> <work folder>: makes the Debian packages of a build of the preset `debian`,
# reads them with lintian, and installs and uses them on a bare Debian 12 of its own, which is made in the work folder:
# a foreign project is built with pkg-config and with CMake and shows a window, and somebody who is not root builds the
# installed examples, with the tutorial's last program among them. In the end they are removed and nothing may be left.
# What each step printed is kept in the work folder; so is the bare system when something fails. No part of ./check,
# because it fetches that system and takes minutes. Needs root, and the packages debootstrap, lintian and dpkg-dev.
set -eu
cd "$(dirname "$0")/../.."
kNames=(liblmbindings1 liblmbindings-dev liblmbindings-desktop1 liblmbindings-desktop-dev liblmbindings-doc)
kForeign=Tests/Package/Foreign
kDocuments=/usr/share/doc/liblmbindings-doc
kWarnings="-Wall -Wextra -Werror"
gPassed=0

fail()
{
    echo "FAILED: $*" >&2
    exit 1
}

if [ $# -ne 2 ]; then
    echo "usage: Tests/Package/CheckDebianPackages.sh <build folder> <work folder>" >&2
    exit 2
fi
[ "$(id -u)" -eq 0 ] || fail "only root can make a bare system"
for theProgram in cpack debootstrap lintian dpkg-gensymbols; do
    command -v "$theProgram" >/dev/null || fail "$theProgram is not installed"
done
[ -e "$1/Debian/liblmbindings-desktop1/symbols" ] ||
    fail "$1 is no finished build: cmake --preset debian && cmake --build --preset debian"
theBuild=$(cd "$1" && pwd)
mkdir -p "$2"
theWork=$(cd "$2" && pwd)
theRoot=$theWork/root
thePackages=$theWork/packages

ok()
{
    gPassed=$((gPassed + 1))
    echo "ok: $*"
}

# expect <what> <expected> <found>
expect()
{
    [ "$2" = "$3" ] || fail "$1: expected '$2', found '$3'"
    ok "$1"
}

# quietly <log> <command>...: its output goes into the log, the end of which is shown when it fails.
quietly()
{
    local theLog=$theWork/$1.log
    shift
    if ! "$@" >>"$theLog" 2>&1 </dev/null; then
        tail -n 40 "$theLog" >&2
        fail "$* (the whole log: $theLog)"
    fi
}

# enter <option of unshare, or nothing> <command>...: on the bare system. Whatever the command mounts and starts is gone
# when it ends.
enter()
{
    local theOption=$1
    shift
    unshare ${theOption:+"$theOption"} --mount --pid --fork --kill-child --root="$theRoot" --mount-proc \
        env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root DEBIAN_FRONTEND=noninteractive "$@"
}

# inside <command>...: without a network, on which it would meet the X servers of this machine, too.
inside()
{
    enter --net "$@"
}

# online <command>...
online()
{
    enter "" "$@"
}

# as_person <shell command>: the same for somebody who is not root.
as_person()
{
    inside su person -c "set -e; cd; $1"
}

make_packages()
{
    local theName
    echo "== The packages"
    rm -rf "$thePackages" "$theWork"/*.log
    quietly cpack env -C "$theBuild" cpack -G DEB -B "$thePackages"
    rm -rf "$thePackages/_CPack_Packages"
    expect "there are these packages, and no others" "$(printf '%s\n' "${kNames[@]}" | sort)" \
        "$(find "$thePackages" -name '*.deb' -printf '%f\n' | sed 's/_.*//' | sort)"
    quietly lintian lintian --allow-root --fail-on error,warning --info "$thePackages"/*.deb
    ok "lintian is content"
    expect "the symbols of the libraries are listed" "libLmBindings.so.1 libLmCarbon.so.1 libLmControllers.so.1 libLmCoreFoundation.so.1 libLmInspection.so.1 libLmInspector.so.1" \
        "$(listed_libraries liblmbindings1)"
    expect "those of the desktop's library too" "libLmCarbonDesktop.so.1 libLmInspectorWindow.so.1" \
        "$(listed_libraries liblmbindings-desktop1)"
    for theName in "${kNames[@]}"; do
        case $(dpkg-deb -f "$thePackages/${theName}"_*.deb Depends) in
        *libqt6*) [ "$theName" = liblmbindings-desktop1 ] || fail "$theName depends on Qt" ;;
        *) [ "$theName" != liblmbindings-desktop1 ] || fail "$theName does not depend on Qt" ;;
        esac
    done
    ok "the desktop's library alone depends on Qt"
}

# listed_libraries <package>
listed_libraries()
{
    dpkg-deb -I "$thePackages/$1"_*.deb symbols | sed -n 's/^\(lib[^ ]*\) .*/\1/p' | sort | xargs
}

make_system()
{
    local theSources theMirror
    echo "== A bare Debian 12, fetched from where this machine has its packages"
    # What is in single quotes is apt's to expand.
    # shellcheck disable=SC2016
    theSources=$(apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian')
    theMirror=$(sed -n 's/^deb \([^ ]*\) bookworm main$/\1/p' <<<"$theSources")
    rm -rf "$theRoot"
    quietly debootstrap debootstrap --variant=minbase bookworm "$theRoot" ${theMirror:+"$theMirror"}
    if [ -n "$theMirror" ]; then
        echo "$theSources" >"$theRoot/etc/apt/sources.list"
    fi
    apt-config dump | grep -E '^Acquire::(http|https|Check-Date|Check-Valid-Until)\b' \
        >"$theRoot/etc/apt/apt.conf.d/90as-outside" || true
    cp -L /etc/resolv.conf "$theRoot/etc/resolv.conf"
    quietly apt online apt-get -q update
    inside useradd --create-home person
    mkdir "$theRoot/packages"
    cp "$thePackages"/*.deb "$theRoot/packages"
    ok "there is a bare system"
}

# install_inside <package, or pattern of files there>...: with nothing that they do not ask for themselves.
install_inside()
{
    quietly apt online sh -c "apt-get -q -o Dpkg::Use-Pty=0 install -y --no-install-recommends $*"
}

# expect_run <what> <program>
expect_run()
{
    expect "$1" "$(cat "$kForeign/expected.txt")" "$(as_person "$2")"
}

# bring_project: the foreign project, with what it has copied: the pattern of a binding, under another name.
bring_project()
{
    local theSuffix
    cp -r "$kForeign" "$theRoot/Foreign"
    mkdir "$theRoot/copies"
    for theSuffix in h cpp; do
        sed 's/LmExampleBinding/CopiedBinding/g' "Source/Bindings/LmExampleBinding.$theSuffix" \
            >"$theRoot/copies/CopiedBinding.$theSuffix"
    done
}

# build_with_cmake <folder>
build_with_cmake()
{
    quietly cmake as_person "cmake -S /Foreign -B $1 -G Ninja -DLM_COPIES=/copies \
        -DCMAKE_C_FLAGS='$kWarnings' -DCMAKE_CXX_FLAGS='$kWarnings'"
    quietly cmake as_person "cmake --build $1"
}

# public_headers: where they are to be.
public_headers()
{
    local theFolder
    find Source -maxdepth 2 -name '*.h' -printf 'LmBindings/%f\n'
    for theFolder in Platform/*/Include; do
        find "$theFolder" -name '*.h' -printf 'LmPlatform/%P\n'
    done
}

use_libraries()
{
    local theVersion
    echo "== The libraries, without the desktop"
    bring_project
    install_inside '/packages/liblmbindings1_*.deb' '/packages/liblmbindings-dev_*.deb' g++ pkg-config
    expect "no part of Qt comes along" "" "$(find "$theRoot/usr/lib" -name 'libQt*')"
    theVersion=$(sed -n 's/^#define LM_VERSION_STRING "\(.*\)"$/\1/p' Source/Core/LmVersion.h)
    expect "pkg-config knows the version" "$theVersion" "$(inside pkg-config --modversion lmbindings)"
    expect "the public headers are installed, and no others" "$(public_headers | sort)" \
        "$(cd "$theRoot/usr/include" && find LmBindings LmPlatform -type f | sort)"
    quietly pkg-config as_person "
        gcc $kWarnings -c /Foreign/PlainC.c -o PlainC.o \$(pkg-config --cflags lmbindings)
        g++ -std=c++17 $kWarnings /Foreign/Main.cpp /Foreign/CopiedBinding.cpp -I/copies /copies/CopiedBinding.cpp \
            PlainC.o -o Main \$(pkg-config --cflags --libs lmbindings)"
    expect_run "a program is built with pkg-config and runs" ./Main
    install_inside cmake ninja-build
    build_with_cmake headless
    expect_run "one is built with CMake and runs" headless/Foreign
    expect "it is not given a desktop" "" "$(find "$theRoot/home/person/headless" -name ForeignOnDesktop)"
}

# expect_picture <what> <shell command>: a program that shows its window, of which it takes a picture.
expect_picture()
{
    rm -f "$theRoot/tmp/window.png"
    quietly windows inside env XDG_RUNTIME_DIR=/tmp LM_SCREENSHOT=/tmp/window.png sh -ec "cd /home/person; $2"
    expect "$1" "PNG" "$(head -c 4 "$theRoot/tmp/window.png" | tail -c 3)"
}

use_desktop()
{
    echo "== The desktop"
    install_inside '/packages/*.deb'
    quietly pkg-config as_person "
        g++ -std=c++17 $kWarnings /Foreign/Window.cpp -o Window \$(pkg-config --cflags --libs lmbindings-desktop)"
    expect_picture "a program that is built with pkg-config draws its window" "QT_QPA_PLATFORM=offscreen ./Window"
    build_with_cmake desktop
    expect_picture "one that is built with CMake does" "QT_QPA_PLATFORM=offscreen desktop/ForeignOnDesktop"
    expect "without a display it says so in one line" 1 "$(as_person desktop/ForeignOnDesktop 2>&1 |
        grep -c '^No windows can be shown')"
    install_inside xvfb xauth
    expect_picture "both show it on a screen of X11" "xvfb-run -a ./Window && rm /tmp/window.png &&
        xvfb-run -a desktop/ForeignOnDesktop"
}

use_examples()
{
    local theDocuments theTotal
    echo "== The documents and the examples"
    mapfile -t theDocuments < <(find "$theRoot$kDocuments" -name '*.md')
    quietly links Scripts/CheckLinks.sh "${theDocuments[@]}"
    ok "no installed document has a dead link ($(cat "$theWork/links.log"))"
    quietly examples as_person "cmake -S $kDocuments/Examples -B examples -G Ninja -DCMAKE_CXX_FLAGS='$kWarnings'"
    quietly examples as_person "cmake --build examples"
    quietly examples as_person "ctest --test-dir examples --output-on-failure --no-tests=error"
    theTotal=$(sed -n 's/^100% tests passed, 0 tests failed out of //p' "$theWork/examples.log")
    ok "the installed examples can be built, and do what they should ($theTotal tests)"
    quietly tutorial as_person "LM_PRESENTER=headless LM_PREFERENCES=memory $kDocuments/Examples/CompareOutput.sh \
        --errors $kDocuments/Examples/Tutorial/10-FindingOut/expected.txt examples/Tutorial/TutorialFindingOut"
    ok "the tutorial's last program prints what it should"
    expect_picture "the tutorial's application shows its window" "xvfb-run -a examples/Tutorial/Radio"
    expect_picture "the thermostat shows its window" "xvfb-run -a examples/Thermostat/Thermostat"
}

remove_packages()
{
    echo "== Afterwards"
    quietly apt online apt-get -q -o Dpkg::Use-Pty=0 purge -y "${kNames[@]}"
    expect "nothing is left behind" "" \
        "$(find "$theRoot/usr" "$theRoot/etc" "$theRoot/var" -iname '*lmbindings*' -o -name 'libLm*' -o -name LmPlatform)"
    expect "the loader has forgotten the libraries" "" "$(inside ldconfig -p | grep libLm || true)"
}

make_packages
make_system
use_libraries
use_desktop
use_examples
remove_packages
rm -rf "$theRoot"
echo "$gPassed passed, 0 failed"
