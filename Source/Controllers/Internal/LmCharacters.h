// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmCharacters_h
#define LmCharacters_h

// Text as formatters work on it.

#include "LmFormatter.h"
#include "LmScopedReference.h"

#include <new>
#include <string>

using LmCharacters = std::u16string;

LmCharacters LmCharactersOf(CFStringRef theString);

// A string value; invalid when there is no memory.
LmValue LmTextValue(const LmCharacters& theCharacters);

// Without blanks at its ends and without the invisible signs for directions; blanks of each kind are plain
// ones, the different minus signs and apostrophes one of them.
LmCharacters LmPlainCharacters(const LmCharacters& theText);

// What only want of memory can have made null or false, where CoreFoundation says no more: that passes on as
// std::bad_alloc.
template <class Result>
Result LmRequireMemory(Result theResult)
{
    return theResult ? theResult : throw std::bad_alloc();
}

// A refusal with a sentence, translated where the application's "LmFormatters.strings" does. The sentence may
// hold %@ for each of the two texts, which may be left out.
LmReading LmRefusal(CFStringRef theSentence, const LmCharacters& theFirst = LmCharacters(),
                    const LmCharacters& theSecond = LmCharacters());

#endif
