// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "StringsTable.h"

#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"

#include <CoreFoundation/CoreFoundation.h>
#include <string>

namespace {

using Host::Holder;

Holder<CFPropertyListRef> ReadList(std::string_view theData)
{
    CFPropertyListFormat theFormat = 0;
    return Host::ReadPropertyList(theData, theFormat);
}

CFStringRef MakeText(std::string_view theData, CFStringEncoding theEncoding)
{
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(theData.data()),
                                   static_cast<CFIndex>(theData.size()), theEncoding, 1);
}

// Whether the bytes are those of a time before Unicode.
bool IsMacRoman(std::string_view theData)
{
    const bool theHasMark = theData.substr(0, 2) == "\xFF\xFE" || theData.substr(0, 2) == "\xFE\xFF";
    const bool theHasZeros = theData.find('\0') != std::string_view::npos;
    const Holder<CFStringRef> theText(MakeText(theData, kCFStringEncodingUTF8));
    return !theHasMark && !theHasZeros && theText.Get() == nullptr;
}

std::string ToUTF8(std::string_view theData)
{
    const Holder<CFStringRef> theText = Host::RequireMemory(MakeText(theData, kCFStringEncodingMacRoman));
    return Host::UTF8Text(theText.Get()).value_or("");
}

void KeepText(const void* theKey, const void* theValue, void* theTable)
{
    if (CFGetTypeID(theValue) == CFStringGetTypeID()) {
        Host::SetInList(static_cast<CFMutableDictionaryRef>(theTable), static_cast<CFStringRef>(theKey),
                        theValue);
    }
}

} // namespace

Host::Holder<CFDictionaryRef> Host::ReadStringsTable(std::string_view theData)
{
    try {
        const Holder<CFPropertyListRef> theList = ReadList(IsMacRoman(theData) ? ToUTF8(theData) : theData);
        if (CFGetTypeID(theList.Get()) != CFDictionaryGetTypeID()) {
            return Holder<CFDictionaryRef>(nullptr);
        }
        auto theTable = RequireMemory(CFDictionaryCreateMutable(nullptr, 0, &kCFTypeDictionaryKeyCallBacks,
                                                                &kCFTypeDictionaryValueCallBacks));
        CFDictionaryApplyFunction(static_cast<CFDictionaryRef>(theList.Get()), KeepText, theTable.Get());
        return Holder<CFDictionaryRef>(theTable.Release());
    } catch (const MalformedPropertyList&) {
        return Holder<CFDictionaryRef>(nullptr);
    }
}
