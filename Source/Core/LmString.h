// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmString_h
#define LmString_h

// A text of UTF-8 bytes with the semantics of a value.
//
// Every key name, key path and debug text of the library is an LmString. It holds bytes and knows nothing of
// characters: it is compared and ordered byte by byte, without case folding, locale or normalisation, so that
// "Name" sorts before "name" and the composed and the decomposed form of a letter are two different keys. It
// is not a CFString and holds none; GetUTF8 and the construction from a C string lead from one to the other.
//
//     LmString theName("window");
//     theName += ".title";
//
//     LmString theObject;
//     LmString theKey;
//     if (theName.Split(".", theObject, theKey)) {
//         // theObject is "window", theKey is "title"
//     }
//
// Rules for every operation: a copy is independent of what it was copied from; what has been moved from is
// empty; a text of up to 15 bytes usually needs no heap (where the standard string keeps short texts inside
// itself). When memory runs out, the standard allocation exception leaves the operation, as it leaves the
// operations of the standard string.

#include "LmExport.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <utility>

class LM_EXPORT LmString
{
public:
    // The empty text.
    LmString() = default;

    // The bytes of theText up to its NUL. theText is copied and must not be null: the standard string refuses
    // a null pointer with std::logic_error.
    LmString(const char* theText)
        : mText(theText)
    {
    }

    // A copy; and the text of a string that is empty afterwards.
    LmString(const LmString& theString) = default;
    LmString(LmString&& theString) noexcept
        : mText(std::move(theString.mText))
    {
    }

    // Virtual, so that an application may derive from the class. Nothing else is.
    virtual ~LmString() = default;

    // Replaces the text. Assigning a string to itself changes nothing.
    LmString& operator=(const LmString& theString) = default;

    // The same with the text of a string that is empty afterwards.
    LmString& operator=(LmString&& theString) noexcept
    {
        mText = std::move(theString.mText);
        return *this;
    }

    // Appends the text of theString, which may be this string itself.
    LmString& operator+=(const LmString& theString)
    {
        mText += theString.mText;
        return *this;
    }

    // This text followed by theString's. Neither changes.
    LmString operator+(const LmString& theString) const { return LmString(mText + theString.mText); }

    // The text with a NUL behind it; for an empty string an empty C string, never null. The pointer belongs
    // to this string and is good until the string changes or dies.
    const char* GetUTF8() const { return mText.c_str(); }

    // Whether the text has no bytes.
    bool IsEmpty() const { return mText.empty(); }
    bool IsNotEmpty() const { return !IsEmpty(); }

    // Equal means the same bytes and the same number of them.
    bool operator==(const LmString& theString) const { return mText == theString.mText; }
    bool operator!=(const LmString& theString) const { return !(*this == theString); }

    // The order of the bytes, taken as unsigned numbers; where one text begins with the other, the shorter
    // one comes first. The library's maps are sorted by it.
    bool operator<(const LmString& theString) const
    {
        const std::size_t theSize = mText.size();
        const std::size_t theOtherSize = theString.mText.size();
        const int theOrder =
            std::memcmp(mText.data(), theString.mText.data(), std::min(theSize, theOtherSize));
        return theOrder != 0 ? theOrder < 0 : theSize < theOtherSize;
    }

    // Cuts the text at the first place where separator occurs, and tells whether it occurs at all.
    //
    // resultLeft gets what stands before the separator, resultRight what stands behind it; a later separator
    // stays in the right part. Without a separator in the text both become empty. An empty separator is found
    // at the very start. The text itself does not change, unless it is one of the results, which is not meant
    // to be.
    //
    // On purpose: a separator at the start or the end of the text is still a hit. The empty part is
    // delivered, the result is true, and an assertion line ("resultLeft.IsNotEmpty()",
    // "resultRight.IsNotEmpty()", in this order if both are empty) tells the developer that the text looks
    // wrong.
    bool Split(const LmString& separator, LmString& resultLeft, LmString& resultRight) const;

private:
    explicit LmString(std::string&& theText) noexcept
        : mText(std::move(theText))
    {
    }

    std::string mText; // the bytes, without a NUL at the end
};

#endif
