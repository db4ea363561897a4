// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ICU_Buffers_h
#define ICU_Buffers_h

#include "Formats/Characters.h"

#include <algorithm>
#include <new>
#include <unicode/utypes.h>

namespace Host {

// Ends what cannot go on: the only failure that is nobody's fault is that of memory.
inline void RequireICUMemory(UErrorCode theStatus)
{
    if (theStatus == U_MEMORY_ALLOCATION_ERROR) {
        throw std::bad_alloc();
    }
}

inline int32_t LengthOf(CharactersView theText)
{
    constexpr size_t kMost = 0x7FFFFFFF;
    return static_cast<int32_t>(std::min(theText.size(), kMost));
}

// The text that a call of ICU writes into a buffer, (buffer, size, status) -> length. Empty when it fails.
template <class Call>
Characters TextFromICU(Call theCall)
{
    constexpr size_t kUsual = 64;
    Characters theText(kUsual, u'\0');
    for (;;) {
        UErrorCode theStatus = U_ZERO_ERROR;
        const int32_t theLength = theCall(theText.data(), LengthOf(theText), &theStatus);
        RequireICUMemory(theStatus);
        if (theStatus != U_BUFFER_OVERFLOW_ERROR) {
            theText.resize(U_SUCCESS(theStatus) ? static_cast<size_t>(std::max(theLength, 0)) : 0);
            return theText;
        }
        theText.resize(static_cast<size_t>(theLength) + 1);
    }
}

} // namespace Host

#endif
