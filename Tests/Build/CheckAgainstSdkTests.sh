#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CheckAgainstSdkTests.sh <root of the project> <clang++> <C++ compiler of this machine>: an SDK that is made of the
# host's own headers passes; one that differs from them in a few places is told from it, place by place. The
# standard library is this machine's.
set -u
kRoot=$1 kClang=$2 kCompiler=$3
gSdk=$(mktemp -d)
trap 'rm -rf "$gSdk"' EXIT
gFailures=0
kMatter=.
export LC_ALL=C LM_CLANG=$kClang
kHeaders=$gSdk/System/Library/Frameworks
kMachine=$("$kCompiler" -print-multiarch)
kLibrary=/usr/include/c++/$("$kCompiler" -dumpversion)
LM_SDK_FLAGS="-nostdinc++ -U__nonnull -D_GNU_SOURCE -isystem $kLibrary -isystem /usr/include/$kMachine${kLibrary#/usr/include}"
export LM_SDK_FLAGS="$LM_SDK_FLAGS -isystem /usr/include/$kMachine -isystem /usr/include"

# made_of_our_own: an SDK with the host's headers.
made_of_our_own()
{
    local theFramework
    rm -rf "${gSdk:?}"/*
    mkdir -p "$gSdk/usr/include/gnu"
    for theFramework in CoreFoundation CoreGraphics CoreServices Carbon Carbon/Include/ApplicationServices; do
        mkdir -p "$kHeaders/${theFramework##*/}.framework"
        cp -r "$kRoot/Platform/${theFramework%%/*}/Include/${theFramework##*/}" \
            "$kHeaders/${theFramework##*/}.framework/Headers"
    done
    cp "$kRoot"/Platform/Drawing/Include/CoreGraphics/*.h "$kHeaders/CoreGraphics.framework/Headers"
    cp "$kRoot"/Platform/{CoreFoundation,CoreServices}/Include/*.h "$gSdk/usr/include"
    # What this machine's C library asks for when it is read for 32 bits.
    : >"$gSdk/usr/include/gnu/stubs-32.h"
}

# change <header> <sed script>: makes the SDK differ.
change()
{
    local theHeader=$kHeaders/${1%%/*}.framework/Headers/${1#*/}
    cp "$theHeader" "$gSdk/before"
    sed -i -E "$2" "$theHeader"
    if cmp -s "$theHeader" "$gSdk/before"; then
        echo "Nothing to change in $1: $2"
        gFailures=$((gFailures + 1))
    fi
}

# expect <status> <output> <file>...: what the check of these files prints, as far as it matters
# (kMatter), for each processor; {many} stands for the number of names or files.
expect()
{
    local theStatus=$1 theOutput=$2 theFound theFoundStatus
    shift 2
    theFound=$("$kRoot/Scripts/CheckAgainstSdk.sh" "$gSdk" "$@" 2>&1)
    theFoundStatus=$?
    theFound=$(sed -E 's/: [0-9]{4,} compared/: {many} compared/; s/: [0-9]{2,} files/: {many} files/' <<<"$theFound" |
        grep -E '^(i386|ppc): |error:' | grep -E "$kMatter" | sed -E 's,^.*/([A-Za-z]+\.cpp):[0-9:]+ ,\1: ,')
    if [ "$theFoundStatus" -ne "$theStatus" ]; then
        echo "status $theFoundStatus instead of $theStatus"
        gFailures=$((gFailures + 1))
    fi
    if ! diff -u --label expected --label found <(sed 's/^/i386/' <<<"$theOutput" | sed 's/^i386#//'
        sed 's/^/ppc/' <<<"$theOutput" | sed 's/^ppc#//') - <<<"$theFound"; then
        gFailures=$((gFailures + 1))
    fi
}

# As the headers of Mac OS X 10.4 have it: without CGFloat, and with enumerations where there are integers now.
made_of_our_own
sed -i -e '/^typedef float CGFloat;/d' -e 's/CGFloat\b/float/g' "$kHeaders"/{CoreGraphics,Carbon}.framework/Headers/*.h
for theHeader in CFBase.h CFNumber.h; do
    sed -z -i -E 's/typedef CFIndex (CFNumberType|CFComparisonResult);\nenum CF_OF_TYPE\(CFIndex\)\n(\{[^}]*\});/typedef enum \2 \1;/' \
        "$kHeaders/CoreFoundation.framework/Headers/$theHeader"
done
kMatter='type of (CGFloat|CFNumberGetType|CFDateCompare):|files parsed'
expect 1 ': type of CFDateCompare: long (const __CFDate *, const __CFDate *, void *) here, CFComparisonResult (const __CFDate *, const __CFDate *, void *) in the SDK
: type of CFNumberGetType: long (const __CFNumber *) here, CFNumberType (const __CFNumber *) in the SDK
: type of CGFloat: not in the SDK
: {many} files parsed, 0 with errors' Source Examples
kMatter=.

made_of_our_own
expect 0 ': {many} compared, 0 different, 0 missing, 0 errors in headers
: 1 files parsed, 0 with errors' Source/Core/LmValue.cpp

change CoreFoundation/CFString.h 's/0x0600/0x0601/; s/0xFFFFFFFFU/0xFFFFFFFEU/'
change CoreFoundation/CFBase.h 's/^    CFIndex length;/&\n    CFIndex more;/'
change CoreFoundation/CFArray.h 's/CFIndex (CFArrayGetCount)\(/short \1(/'
change CoreFoundation/CFSet.h 's/CFSetGetCount\(/CFSetCount(/'
change Carbon/CarbonEventsCore.h '/^typedef struct EventTypeSpec/,/^}/ { /OSType eventClass;/d; s/UInt32 eventKind;/&\n    OSType eventClass;/ }'
change Carbon/MacWindows.h 's/\bGetWTitle\(/GetTheTitle(/'
expect 1 ': size of CFRange: 8 here, 12 in the SDK
: type of CFArrayGetCount: long (const __CFArray *) here, short (const __CFArray *) in the SDK
: value of kCFStringEncodingASCII: 1536 here, 1537 in the SDK
: type of CFSetGetCount: not in the SDK
: offset of EventTypeSpec.eventClass: 0 here, 4 in the SDK
: offset of EventTypeSpec.eventKind: 4 here, 0 in the SDK
: type of GetWTitle: not in the SDK
: value of kCFStringEncodingInvalidId: 4294967295 here, 4294967294 in the SDK
: {many} compared, 6 different, 2 missing, 0 errors in headers
#LmWindowBinding.cpp: error: use of undeclared identifier '"'GetWTitle'; did you mean 'SetWTitle'?"'
: Source/Bindings/LmWindowBinding.cpp: cannot be parsed
: 2 files parsed, 1 with errors' Source/Bindings/LmWindowBinding.cpp Source/Core/LmString.cpp

made_of_our_own
echo '#include <Carbon/NotThere.h>' >>"$kHeaders/Carbon.framework/Headers/Menus.h"
theFound=$("$kRoot/Scripts/CheckAgainstSdk.sh" "$gSdk" Source/Core/LmString.cpp)
if ! grep -q "^ppc: error in the SDK's headers: .*'Carbon/NotThere.h' file not found" <<<"$theFound"; then
    echo "A header that is not there was not missed."
    gFailures=$((gFailures + 1))
fi

[ "$gFailures" -eq 0 ]
