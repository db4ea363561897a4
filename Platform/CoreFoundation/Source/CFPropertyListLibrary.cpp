// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFPropertyListLibrary.h"

#include "CFCalendar.h"
#include "CFPropertyListSupport.h"

#include <CoreFoundation/CFNumber.h>
#include <memory>
#include <plist/plist.h>

namespace {

struct FreeList
{
    void operator()(void* theList) const { plist_free(theList); }
};

// A plist_t is a pointer to void.
using List = std::unique_ptr<void, FreeList>;

List MakeList(CFPropertyListRef theObject);

List MakeNumber(CFNumberRef theNumber)
{
    if (CFNumberIsFloatType(theNumber)) {
        double theValue = 0;
        CFNumberGetValue(theNumber, kCFNumberFloat64Type, &theValue);
        return List(plist_new_real(theValue));
    }
    SInt64 theValue = 0;
    CFNumberGetValue(theNumber, kCFNumberSInt64Type, &theValue);
    return List(plist_new_uint(static_cast<uint64_t>(theValue)));
}

// The library's own dates end in the year 2069, but it reads and writes all of them as text.
List MakeDate(CFDateRef theDate)
{
    const std::string theText =
        "<plist><date>" + Host::DateText(CFDateGetAbsoluteTime(theDate)).value_or("") + "</date></plist>";
    plist_t theNode = nullptr;
    plist_from_xml(theText.data(), static_cast<uint32_t>(theText.size()), &theNode);
    return List(theNode);
}

List MakeArray(CFArrayRef theArray)
{
    List theList(plist_new_array());
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theArray); ++theIndex) {
        plist_array_append_item(theList.get(),
                                MakeList(CFArrayGetValueAtIndex(theArray, theIndex)).release());
    }
    return theList;
}

List MakeDictionary(CFDictionaryRef theDictionary)
{
    List theList(plist_new_dict());
    for (const CFStringRef theKey : Host::SortedKeys(theDictionary)) {
        plist_dict_set_item(theList.get(), Host::UTF8Text(theKey).value_or("").c_str(),
                            MakeList(CFDictionaryGetValue(theDictionary, theKey)).release());
    }
    return theList;
}

List MakeList(CFPropertyListRef theObject)
{
    switch (CFGetTypeID(theObject)) {
    case Host::kStringTypeID:
        return List(
            plist_new_string(Host::UTF8Text(static_cast<CFStringRef>(theObject)).value_or("").c_str()));
    case Host::kNumberTypeID:
        return MakeNumber(static_cast<CFNumberRef>(theObject));
    case Host::kBooleanTypeID:
        return List(plist_new_bool(theObject == kCFBooleanTrue));
    case Host::kDateTypeID:
        return MakeDate(static_cast<CFDateRef>(theObject));
    case Host::kArrayTypeID:
        return MakeArray(static_cast<CFArrayRef>(theObject));
    case Host::kDictionaryTypeID:
        return MakeDictionary(static_cast<CFDictionaryRef>(theObject));
    default: {
        const CFDataRef theData = static_cast<CFDataRef>(theObject);
        return List(plist_new_data(reinterpret_cast<const char*>(CFDataGetBytePtr(theData)),
                                   static_cast<uint64_t>(CFDataGetLength(theData))));
    }
    }
}

std::string XMLOf(const List& theList)
{
    char* theText = nullptr;
    uint32_t theLength = 0;
    if (theList != nullptr) {
        plist_to_xml(theList.get(), &theText, &theLength);
    }
    const std::unique_ptr<char, decltype(&std::free)> theOwner(theText, std::free);
    return theText == nullptr ? std::string() : std::string(theText, theLength);
}

} // namespace

bool Host::HasPropertyListLibrary()
{
    return true;
}

std::string Host::WriteXMLPropertyList(CFPropertyListRef theList)
{
    return XMLOf(MakeList(theList));
}

std::string Host::XMLOfBinaryPropertyList(std::string_view theData)
{
    plist_t theList = nullptr;
    plist_from_bin(theData.data(), static_cast<uint32_t>(theData.size()), &theList);
    return XMLOf(List(theList));
}
