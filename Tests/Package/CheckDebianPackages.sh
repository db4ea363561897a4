#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckDebianPackages.sh <build folder> <work folder>: makes the Debian packages of a build of the preset `debian`,
# reads them with lintian, and installs and uses them on a bare Debian 12 of its own. No part of ./check, because it
# fetches that system and takes minutes. Needs root, and the packages debootstrap, lintian and dpkg-dev.
set -eu
cd "$(dirname "$0")/../.."
theBuild=$1
mkdir -p "$2"
theWork=$(cd "$2" && pwd)
theRoot=$theWork/root
thePackages=$theWork/packages
kNames="liblmbindings1 liblmbindings-dev liblmbindings-desktop1 liblmbindings-desktop-dev liblmbindings-doc"

for theProgram in debootstrap lintian dpkg-gensymbols; do
    command -v "$theProgram" >/dev/null || { echo "$theProgram is not installed" >&2; exit 1; }
done

# inside <command>...: on the bare system.
inside()
{
    chroot "$theRoot" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root \
        DEBIAN_FRONTEND=noninteractive "$@"
}

# expect <what> <expected> <found>
expect()
{
    if [ "$2" != "$3" ]; then
        echo "$1: expected '$2', found '$3'"
        exit 1
    fi
    echo "ok: $1"
}

make_packages()
{
    local theName
    rm -rf "$thePackages"
    (cd "$theBuild" && cpack -G DEB -B "$thePackages")
    rm -rf "$thePackages/_CPack_Packages"
    for theName in $kNames; do
        expect "there is a package $theName" 1 "$(find "$thePackages" -name "${theName}_*.deb" | wc -l)"
    done
    lintian --allow-root --fail-on error,warning --info "$thePackages"/*.deb
    echo "ok: lintian is content"
    expect "symbols of each library are listed" "libLmBindings.so.1 libLmCarbon.so.1 libLmCoreFoundation.so.1" \
        "$(dpkg-deb -I "$thePackages"/liblmbindings1_*.deb symbols | sed -n 's/^\(lib[^ ]*\) .*/\1/p' | sort | xargs)"
}

make_system()
{
    local theMirror
    theMirror=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE)' | sed -n 's/ bookworm$//p' | head -n 1)
    rm -rf "$theRoot"
    debootstrap --variant=minbase bookworm "$theRoot" "$theMirror" >"$theWork/debootstrap.log"
    # It gets its packages where this machine does.
    rm -f "$theRoot/etc/apt/sources.list"
    cp -a /etc/apt/. "$theRoot/etc/apt/"
    cp -L /etc/resolv.conf "$theRoot/etc/resolv.conf"
    inside apt-get -qq update
}

# install_inside <package>...: with nothing that they do not ask for themselves.
install_inside()
{
    inside apt-get -qq install -y --no-install-recommends "$@" >>"$theWork/apt.log" 2>&1
}

# expect_run <what> <program>
expect_run()
{
    local theOutput
    theOutput=$(inside "$2")
    expect "$1" "volume 11" "${theOutput%%$'\n'*}"
}

# build_with_cmake <folder>
build_with_cmake()
{
    inside cmake -S /Foreign -B "$1" -G Ninja -DLM_COPIES=/copies >>"$theWork/cmake.log"
    inside cmake --build "$1" >>"$theWork/cmake.log"
}

use_packages()
{
    local theFiles theSuffix theName
    mkdir "$theRoot/packages"
    cp "$thePackages"/*.deb "$theRoot/packages"
    cp -r Tests/Package/Foreign "$theRoot/Foreign"
    mkdir "$theRoot/copies"
    for theSuffix in h cpp; do
        sed 's/LmExampleBinding/CopiedBinding/g' "Source/Bindings/LmExampleBinding.$theSuffix" \
            >"$theRoot/copies/CopiedBinding.$theSuffix"
    done
    # In the order of their names above.
    mapfile -t theFiles < <(cd "$theRoot" && for theName in $kNames; do ls "packages/${theName}"_*.deb; done)
    theFiles=("${theFiles[@]/#//}")
    install_inside "${theFiles[0]}" "${theFiles[1]}" g++ pkg-config
    inside sh -ec 'cd /Foreign
        gcc -Wall -Wextra -Werror -c PlainC.c -o /tmp/PlainC.o $(pkg-config --cflags lmbindings)
        g++ -std=c++17 -Wall -Wextra -Werror Main.cpp CopiedBinding.cpp -I/copies /copies/CopiedBinding.cpp \
            /tmp/PlainC.o -o /tmp/Main $(pkg-config --cflags --libs lmbindings)'
    expect_run "a program is built with pkg-config and runs" /tmp/Main
    install_inside cmake ninja-build
    build_with_cmake /tmp/b
    expect_run "one is built with CMake and runs, without the desktop" /tmp/b/Foreign

    install_inside "${theFiles[@]}" fonts-dejavu-core
    inside sh -ec 'g++ -std=c++17 /Foreign/Window.cpp -o /tmp/Window $(pkg-config --cflags --libs lmbindings-desktop)'
    inside env QT_QPA_PLATFORM=offscreen LM_SCREENSHOT=/tmp/window.png XDG_RUNTIME_DIR=/tmp /tmp/Window >/dev/null
    expect "one shows its window" "yes" "$([ -s "$theRoot/tmp/window.png" ] && echo yes)"
    build_with_cmake /tmp/d
    expect "CMake finds the desktop as well" "yes" "$([ -x "$theRoot/tmp/d/ForeignOnDesktop" ] && echo yes)"
    expect "the examples are there" "FirstStore.cpp" \
        "$(basename "$theRoot"/usr/share/doc/liblmbindings-doc/Examples/FirstStore/*.cpp)"
}

remove_packages()
{
    # The names are words.
    # shellcheck disable=SC2086
    inside dpkg --purge $kNames >>"$theWork/apt.log" 2>&1
    expect "nothing is left behind" "" "$(find "$theRoot/usr" -iname '*lmbindings*' -o -name 'libLm*')"
}

make_packages
make_system
use_packages
remove_packages
rm -rf "$theRoot"
