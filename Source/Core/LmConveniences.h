// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmConveniences_h
#define LmConveniences_h

// What every application writes around strings and values: comparing, printing, and going to std::string and
// back. LmBindings.h does not include this header, because it needs <ostream> and <string>.
//
//     theStore.SetKeyPathValue("name", LmMakeStringValue(theOldName));
//     std::string theNewName = LmGetStdString(theStore.GetKeyPathValue("name"));
//     std::cout << theStore.GetKeyPathValue("volume") << '\n';    // SInt32 40
//     EXPECT_EQ(theStore.GetKeyPathValue("volume"), LmValue(40)); // shows both values when they differ
//
// All of it is made of the public calls of the two classes and stands in this header alone.

#include "LmString.h"
#include "LmValue.h"

#include <CoreFoundation/CoreFoundation.h>

#include <cinttypes>
#include <cstddef>
#include <cstdio>
#include <ostream>
#include <string>

// The opposite of LmValue's operator==, with all that it says: two null strings are not equal, so they are
// unequal here, and 1.5 and 1 are not.
inline bool operator!=(const LmValue& theLeft, const LmValue& theRight)
{
    return !(theLeft == theRight);
}

// ---- std::string

// The bytes of theString.
inline std::string LmGetStdString(const LmString& theString)
{
    return theString.GetUTF8();
}

// A string of the bytes of theText, up to a NUL if there is one inside.
inline LmString LmMakeString(const std::string& theText)
{
    return LmString(theText.c_str());
}

// The text of a string value as UTF-8. Empty for a value that holds a null string, and for any other value,
// which prints the assertion "IsString()".
inline std::string LmGetStdString(const LmValue& theValue)
{
    const CFStringRef theString = theValue.GetString();
    if (!theValue.IsString() || theString == nullptr) {
        return std::string();
    }
    const CFRange theWhole = CFRangeMake(0, CFStringGetLength(theString));
    CFIndex theSize = 0;
    CFStringGetBytes(theString, theWhole, kCFStringEncodingUTF8, '?', false, nullptr, 0, &theSize);
    std::string theText(static_cast<std::size_t>(theSize), '\0');
    CFStringGetBytes(theString, theWhole, kCFStringEncodingUTF8, '?', false,
                     reinterpret_cast<UInt8*>(&theText[0]), theSize, nullptr);
    return theText;
}

// A string value of theText, which is UTF-8 and may have a NUL inside. A text that is not valid UTF-8 gives
// an invalid value.
inline LmValue LmMakeStringValue(const std::string& theText)
{
    const CFStringRef theString =
        CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(theText.data()),
                                static_cast<CFIndex>(theText.size()), kCFStringEncodingUTF8, false);
    return theString != nullptr ? LmValue(theString, true) : LmValue();
}

// ---- Printing

// Prints the bytes of theString.
inline std::ostream& operator<<(std::ostream& theStream, const LmString& theString)
{
    return theStream << theString.GetUTF8();
}

// Prints the kind and what is in it, for people to read: "SInt32 40", "Double 0.5", "Boolean true",
// "String \"Quiet\"", "String null", "Point (1, 2)", "Size 3 x 4", "Rect (1, 2) 3 x 4", "Pointer 0x1F40",
// "Invalid". A kind outside the enumeration is "Unknown".
inline std::ostream& operator<<(std::ostream& theStream, const LmValue& theValue)
{
    char theText[96] = "Unknown";
    switch (theValue.GetType()) {
    case kTypeInvalid:
        return theStream << "Invalid";
    case kTypeBoolean:
        return theStream << (theValue.GetBoolean() ? "Boolean true" : "Boolean false");
    case kTypeUInt32:
        std::snprintf(theText, sizeof theText, "UInt32 %lu", theValue.GetUInt32());
        break;
    case kTypeSInt32:
        std::snprintf(theText, sizeof theText, "SInt32 %ld", theValue.GetSInt32());
        break;
    case kTypeUInt64:
        std::snprintf(theText, sizeof theText, "UInt64 %llu", theValue.GetUInt64());
        break;
    case kTypeSInt64:
        std::snprintf(theText, sizeof theText, "SInt64 %lld", theValue.GetSInt64());
        break;
    case kTypeDouble:
        std::snprintf(theText, sizeof theText, "Double %.15g", theValue.GetDouble());
        break;
    case kTypePointer:
        std::snprintf(theText, sizeof theText, "Pointer 0x%" PRIXPTR,
                      reinterpret_cast<std::uintptr_t>(theValue.GetPointer()));
        break;
    case kTypeString:
        if (theValue.GetString() == nullptr) {
            return theStream << "String null";
        }
        return theStream << "String \"" << LmGetStdString(theValue).c_str() << '"';
    case kTypePoint: {
        const CGPoint thePoint = theValue.GetPoint();
        std::snprintf(theText, sizeof theText, "Point (%g, %g)", static_cast<double>(thePoint.x),
                      static_cast<double>(thePoint.y));
        break;
    }
    case kTypeSize: {
        const CGSize theSize = theValue.GetSize();
        std::snprintf(theText, sizeof theText, "Size %g x %g", static_cast<double>(theSize.width),
                      static_cast<double>(theSize.height));
        break;
    }
    case kTypeRect: {
        const CGRect theRect = theValue.GetRect();
        std::snprintf(theText, sizeof theText, "Rect (%g, %g) %g x %g", static_cast<double>(theRect.origin.x),
                      static_cast<double>(theRect.origin.y), static_cast<double>(theRect.size.width),
                      static_cast<double>(theRect.size.height));
        break;
    }
    }
    return theStream << theText;
}

// How googletest shows a value in its messages: as operator<< writes it.
inline void PrintTo(const LmValue& theValue, std::ostream* theStream)
{
    *theStream << theValue;
}

// How googletest shows a string in its messages: between quotation marks.
inline void PrintTo(const LmString& theString, std::ostream* theStream)
{
    *theStream << '"' << theString << '"';
}

#endif
