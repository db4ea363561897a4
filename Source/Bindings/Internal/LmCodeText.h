// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmCodeText_h
#define LmCodeText_h

#include <Carbon/Carbon.h>

// A four-character code as text, read in the order of the code: 'vol ' gives "vol " on big-endian and on
// little-endian hosts. A zero byte ends the text early. Not part of the interface.
class LmCodeText
{
public:
    explicit LmCodeText(OSType theCode)
        : mText{static_cast<char>(theCode >> 24), static_cast<char>(theCode >> 16),
                static_cast<char>(theCode >> 8), static_cast<char>(theCode), '\0'}
    {
    }

    // Lives as long as this object.
    const char* GetText() const { return mText; }

private:
    char mText[5];
};

#endif
