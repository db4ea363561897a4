#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# FormatterSentencesTests.sh [<emulator>...] <program>: what formatters refuse is explained in the language of the
# person, as the table of the application says, and in English where it says nothing. The program is
# FormatterSentences.cpp.
set -u
kProgram=${!#}
kEmulator=("${@:1:$#-1}")
unset LANGUAGE LC_MESSAGES LC_ALL
LM_BUNDLE=$(cd "$(mktemp -d)" && pwd -P)
export LM_BUNDLE
trap 'rm -rf "$LM_BUNDLE"' EXIT
gFailures=0

# says <language> <line>...: what the program prints for a person who reads this language.
says()
{
    local theFound theExpected
    theFound=$(LANG=$1 "${kEmulator[@]}" "$kProgram" 2>&1)
    theExpected=$(printf '%s\n' "${@:2}")
    if [ "$theFound" != "$theExpected" ]; then
        printf 'For %s it says:\n%s\nand not:\n%s\n' "$1" "$theFound" "$theExpected"
        gFailures=$((gFailures + 1))
    fi
}

kEnglish=(
    'This is not a number.'
    'The number must be between 0 and 100.'
    'This is not a date.'
    'Only these are possible: Small, Large.')
says en_US.UTF-8 "${kEnglish[@]}"
says sv_SE.UTF-8 "${kEnglish[@]}"

mkdir -p "$LM_BUNDLE/Contents/Resources/sv.lproj" "$LM_BUNDLE/Contents/Resources/en.lproj"
cat >"$LM_BUNDLE/Contents/Resources/sv.lproj/LmFormatters.strings" <<'END'
"This is not a number." = "Det är inget tal.";
"The number must be between %@ and %@." = "Högst %2$@ och minst %1$@.";
"Only these are possible: %@." = "Möjliga är: %@.";
END
says en_US.UTF-8 "${kEnglish[@]}"
says sv_SE.UTF-8 'Det är inget tal.' 'Högst 100 och minst 0.' "${kEnglish[2]}" \
    'Möjliga är: Small, Large.'

[ "$gFailures" -eq 0 ]
