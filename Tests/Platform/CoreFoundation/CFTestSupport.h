// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFTestSupport_h
#define CFTestSupport_h

#include <CoreFoundation/CoreFoundation.h>

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

// Owns one reference, and releases it at the end of the scope.
template <class Reference>
class Owned
{
public:
    explicit Owned(Reference theReference)
        : mReference(theReference)
    {
    }
    Owned(Owned&& theOther) noexcept
        : mReference(std::exchange(theOther.mReference, nullptr))
    {
    }
    ~Owned()
    {
        if (mReference != nullptr) {
            CFRelease(mReference);
        }
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    Owned& operator=(Owned&&) = delete;
    void Swap(Owned& theOther) { std::swap(mReference, theOther.mReference); }

    operator Reference() const { return mReference; }

private:
    Reference mReference; // owned; may be null
};

template <class Reference>
Owned(Reference) -> Owned<Reference>;

using Units = std::vector<UniChar>;

// A string from UTF-8, zero characters included.
inline Owned<CFStringRef> String(const std::string& theText)
{
    return Owned(CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(theText.data()),
                                         static_cast<CFIndex>(theText.size()), kCFStringEncodingUTF8, false));
}

inline Owned<CFStringRef> String(const Units& theUnits)
{
    return Owned(
        CFStringCreateWithCharacters(nullptr, theUnits.data(), static_cast<CFIndex>(theUnits.size())));
}

inline Owned<CFMutableStringRef> MutableString(const std::string& theText)
{
    return Owned(CFStringCreateMutableCopy(nullptr, 0, String(theText)));
}

inline CFRange WholeOf(CFStringRef theString)
{
    return CFRangeMake(0, CFStringGetLength(theString));
}

// A string's text in UTF-8; "(NULL)" for NULL.
inline std::string TextOf(CFStringRef theString)
{
    if (theString == nullptr) {
        return "(NULL)";
    }
    CFIndex theSize = 0;
    CFStringGetBytes(theString, WholeOf(theString), kCFStringEncodingUTF8, '?', false, nullptr, 0, &theSize);
    std::string theText(static_cast<size_t>(theSize), '\0');
    CFStringGetBytes(theString, WholeOf(theString), kCFStringEncodingUTF8, '?', false,
                     reinterpret_cast<UInt8*>(theText.data()), theSize, nullptr);
    return theText;
}

inline Units UnitsOf(CFStringRef theString)
{
    Units theUnits(static_cast<size_t>(CFStringGetLength(theString)));
    CFStringGetCharacters(theString, WholeOf(theString), theUnits.data());
    return theUnits;
}

// CFStringCompare as arrays use it to sort.
inline CFComparisonResult CompareStrings(const void* theFirst, const void* theSecond, void*)
{
    return CFStringCompare(static_cast<CFStringRef>(theFirst), static_cast<CFStringRef>(theSecond), 0);
}

// An object's description, from the brace on: what comes before are addresses.
inline std::string DescriptionOf(CFTypeRef theObject)
{
    const std::string theText = TextOf(Owned(CFCopyDescription(theObject)));
    const size_t theBrace = theText.find('{');
    return theBrace == std::string::npos ? theText : theText.substr(theBrace);
}

template <class Value>
Owned<CFNumberRef> Number(CFNumberType theType, Value theValue)
{
    return Owned(CFNumberCreate(nullptr, theType, &theValue));
}

inline Owned<CFNumberRef> Integer(SInt64 theValue)
{
    return Number(kCFNumberSInt64Type, theValue);
}

inline Owned<CFNumberRef> Float(Float64 theValue)
{
    return Number(kCFNumberFloat64Type, theValue);
}

inline Owned<CFDataRef> Data(const std::vector<UInt8>& theBytes)
{
    return Owned(CFDataCreate(nullptr, theBytes.data(), static_cast<CFIndex>(theBytes.size())));
}

inline std::vector<UInt8> BytesOf(CFDataRef theData)
{
    const UInt8* const theBytes = CFDataGetBytePtr(theData);
    return std::vector<UInt8>(theBytes, theBytes + CFDataGetLength(theData));
}

inline Owned<CFMutableArrayRef> ObjectArray(const std::vector<CFTypeRef>& theObjects)
{
    Owned<CFMutableArrayRef> theArray(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
    for (CFTypeRef theObject : theObjects) {
        CFArrayAppendValue(theArray, theObject);
    }
    return theArray;
}

inline Owned<CFMutableDictionaryRef>
ObjectDictionary(const std::vector<std::pair<CFStringRef, CFTypeRef>>& theEntries)
{
    Owned<CFMutableDictionaryRef> theDictionary(CFDictionaryCreateMutable(
        nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    for (const auto& theEntry : theEntries) {
        CFDictionarySetValue(theDictionary, theEntry.first, theEntry.second);
    }
    return theDictionary;
}

// A new object that nothing else has a reference to.
inline Owned<CFMutableStringRef> CountedObject()
{
    return MutableString("counted");
}

#endif
