// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PropertyListSupport_h
#define PropertyListSupport_h

#include "FuzzTarget.h"

#include <initializer_list>

// Reads a property list in whatever form it is in. What can be read is valid, and what is written of it, in
// each form that can be written, reads as the same.
inline void ReadPropertyList(const std::uint8_t* theBytes, std::size_t theSize)
{
    const Held<CFDataRef> theData(CFDataCreate(nullptr, theBytes, static_cast<CFIndex>(theSize)));
    const Held<CFPropertyListRef> theList(
        CFPropertyListCreateWithData(nullptr, theData, kCFPropertyListMutableContainers, nullptr, nullptr));
    if (theList == nullptr) {
        return;
    }
    for (const CFPropertyListFormat theForm :
         {kCFPropertyListXMLFormat_v1_0, kCFPropertyListBinaryFormat_v1_0}) {
        FUZZ_EXPECT(CFPropertyListIsValid(theList, theForm));
        const Held<CFDataRef> theWritten(CFPropertyListCreateData(nullptr, theList, theForm, 0, nullptr));
        FUZZ_EXPECT(theWritten != nullptr);
        CFPropertyListFormat theFormRead = kCFPropertyListOpenStepFormat;
        const Held<CFPropertyListRef> theAgain(CFPropertyListCreateWithData(
            nullptr, theWritten, kCFPropertyListImmutable, &theFormRead, nullptr));
        FUZZ_EXPECT(theAgain != nullptr);
        FUZZ_EXPECT(theFormRead == theForm);
        const Held<CFDataRef> theWrittenAgain(
            CFPropertyListCreateData(nullptr, theAgain, theForm, 0, nullptr));
        FUZZ_EXPECT(theWrittenAgain != nullptr);
        FUZZ_EXPECT(CFDataGetLength(theWrittenAgain) == CFDataGetLength(theWritten));
    }
    const Held<CFPropertyListRef> theCopy(
        CFPropertyListCreateDeepCopy(nullptr, theList, kCFPropertyListMutableContainersAndLeaves));
    FUZZ_EXPECT(theCopy != nullptr);
    FUZZ_EXPECT(CFEqual(theCopy, theList));
    const Held<CFStringRef> theDescription(CFCopyDescription(theList));
    FUZZ_EXPECT(theDescription != nullptr);
}

#endif
