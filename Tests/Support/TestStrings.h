// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef TestStrings_h
#define TestStrings_h

#include <CoreFoundation/CoreFoundation.h>

#include <string>
#include <vector>

// A new CFString, counted from 1, that the caller releases. Unlike CFSTR constants it can be destroyed, so a
// missing release shows as a leak and one too many as a use after free.
inline CFStringRef MakeString(const char* theText)
{
    return CFStringCreateWithCString(NULL, theText, kCFStringEncodingUTF8);
}

// The UTF-8 bytes of a CFString; "(null)" for null.
inline std::string GetText(CFStringRef theString)
{
    if (theString == NULL) {
        return "(null)";
    }
    const CFIndex theSize =
        CFStringGetMaximumSizeForEncoding(CFStringGetLength(theString), kCFStringEncodingUTF8) + 1;
    std::vector<char> theBytes(static_cast<size_t>(theSize));
    if (!CFStringGetCString(theString, theBytes.data(), theSize, kCFStringEncodingUTF8)) {
        return "(no UTF-8)";
    }
    return theBytes.data();
}

// A CFString made from UTF-8 that lives as long as this object does.
class TestString
{
public:
    explicit TestString(const char* theText)
        : mString(MakeString(theText))
    {
    }
    ~TestString() { CFRelease(mString); }
    TestString(const TestString&) = delete;
    TestString& operator=(const TestString&) = delete;

    CFStringRef Get() const { return mString; }
    CFIndex GetRetainCount() const { return CFGetRetainCount(mString); }

private:
    CFStringRef mString;
};

#endif
