#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# BundleFoldersTests.sh [<emulator>...] <program>: the main bundle is found from where the program is, and the parts of
# bundles of each form. The program is BundleProgram.cpp.
set -u
kProgram=${!#}
kEmulator=("${@:1:$#-1}")
unset LM_BUNDLE LANGUAGE
gFolder=$(cd "$(mktemp -d)" && pwd -P)
trap 'rm -rf "$gFolder"' EXIT
gFailures=0

# place <path>: the program stands there as well.
place()
{
    mkdir -p "$(dirname "$gFolder/$1")"
    cp "$kProgram" "$gFolder/$1"
}

# word <path of the table> <word>
word()
{
    mkdir -p "$(dirname "$gFolder/$1")"
    echo "word = \"$2\";" >"$gFolder/$1"
}

# says <bundle> <word> <path of the program>: what the program that stands there prints.
says()
{
    local theFound
    theFound=$("${kEmulator[@]}" "$gFolder/$3" 2>&1)
    if [ "$theFound" != "file://localhost$gFolder/$1"$'\n'one$'\n'"$2"$'\n'code ]; then
        printf '%s in %s says:\n%s\n' "$3" "$1" "$theFound"
        gFailures=$((gFailures + 1))
    fi
}

place Tool/Tool
says Tool/ word Tool/Tool
word Tool/en.lproj/Localizable.strings 'of the oldest form'
says Tool/ 'of the oldest form' Tool/Tool

place Apps/Lamp.app/Contents/MacOS/Lamp
word Apps/Lamp.app/Contents/Resources/English.lproj/Localizable.strings 'of an application'
says Apps/Lamp.app/ 'of an application' Apps/Lamp.app/Contents/MacOS/Lamp

# The bundle beside a program that is no part of it.
place Beside/Lamp
word Beside/Lamp.app/Contents/Resources/en.lproj/Localizable.strings 'beside'
says Beside/Lamp.app/ beside Beside/Lamp

word Frame/Versions/A/Resources/Localizable.strings 'of a framework'
LM_BUNDLE=$gFolder/Frame says Frame/ 'of a framework' Tool/Tool
LM_BUNDLE=$gFolder/Apps/Lamp.app/ says Apps/Lamp.app/ 'of an application' Tool/Tool
LM_BUNDLE='' says Tool/ 'of the oldest form' Tool/Tool
word "Old/Support Files/Resources/Localizable.strings" 'of old'
cd "$gFolder" || exit 1
LM_BUNDLE=Old says Old/ 'of old' Tool/Tool
# What is not there is a bundle with nothing in it.
LM_BUNDLE=$gFolder/Absent says Absent/ word Tool/Tool

[ "$gFailures" -eq 0 ]
