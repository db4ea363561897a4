#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# DeprecatedValuesTests.sh <compiler> <option>...: the compiler warns of values that are made of a lone C string
# or CFString, says what was meant, and warns of nothing else. The options say where the headers are.
set -u
gFailures=0
gErrors=$(mktemp)
trap 'rm -f "$gErrors"' EXIT
kCompile=("$@" -std=c++17 -fsyntax-only -Wall -Wextra -Werror -Wno-multichar -x c++ -)

# compiles <statement>: no word is said.
compiles()
{
    if ! printf '#include "LmBindings.h"\nvoid Use(const LmValue&);\nvoid Test()\n{\n%s\n}\n' "$1" |
        "${kCompile[@]}" 2>"$gErrors"; then
        echo "Should compile: $1"
        cat "$gErrors"
        gFailures=$((gFailures + 1))
    fi
}

# warns <words of the warning> <statement>
warns()
{
    if printf '#include "LmBindings.h"\nvoid Use(const LmValue&);\nvoid Test()\n{\n%s\n}\n' "$2" |
        "${kCompile[@]}" 2>"$gErrors"; then
        echo "Nothing was said of: $2"
        gFailures=$((gFailures + 1))
    elif ! grep -q -- "$1" "$gErrors"; then
        echo "Something else was said of: $2"
        cat "$gErrors"
        gFailures=$((gFailures + 1))
    fi
}

compiles 'Use(LmValue(0)); Use(LmValue(-1)); Use(LmValue(1U)); Use(LmValue(1L)); Use(LmValue(1ULL));'
compiles "Use(LmValue('c')); Use(LmValue(1.0F)); Use(LmValue(true)); Use(LmValue(nullptr));"
compiles 'ControlRef theControl = nullptr; Use(LmValue(GetControl32BitValue(theControl)));'
compiles 'Use(0); Use(true); Use(1.5);'
compiles 'const char* theText = ""; Use(LmValue(static_cast<const void*>(theText)));'
compiles 'CFStringRef theString = nullptr; Use(LmValue(theString, false));'
compiles 'CFTypeRef theObject = nullptr; Use(LmValue(theObject)); int theTarget = 0; Use(LmValue(&theTarget));'
warns 'for a text, make a CFString' 'const char* theText = ""; Use(LmValue(theText));'
warns 'for a text, make a CFString' 'char theText[] = "text"; Use(theText);'
warns 'for a text, make a CFString' 'LmKeyValueStore().SetKeyPathValue("name", "text");'
warns 'LmValue(theString, false)' 'CFStringRef theString = nullptr; Use(LmValue(theString));'
warns 'LmValue(theString, false)' 'LmKeyValueStore().SetKeyPathValue("name", CFSTR("text"));'
warns 'NULL' 'Use(LmValue(NULL));'
[ "$gFailures" -eq 0 ]
