// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFPropertyListTestSupport.h"

#include <limits>

namespace {

void ExpectError(CFErrorRef theError, CFIndex theCode, const std::string& theReason)
{
    ASSERT_NE(theError, nullptr) << theReason;
    EXPECT_TRUE(CFEqual(CFErrorGetDomain(theError), kCFErrorDomainCocoa));
    EXPECT_EQ(CFErrorGetCode(theError), theCode);
    const Owned<CFDictionaryRef> theInfo(CFErrorCopyUserInfo(theError));
    EXPECT_EQ(TextOf(static_cast<CFStringRef>(CFDictionaryGetValue(theInfo, kCFErrorDescriptionKey))),
              theReason);
}

} // namespace

TEST(CFPropertyList, ConstantsHaveTheirPublishedValues)
{
    EXPECT_EQ(kCFPropertyListOpenStepFormat, 1);
    EXPECT_EQ(kCFPropertyListXMLFormat_v1_0, 100);
    EXPECT_EQ(kCFPropertyListBinaryFormat_v1_0, 200);
    EXPECT_EQ(kCFPropertyListImmutable, 0U);
    EXPECT_EQ(kCFPropertyListMutableContainers, 1U);
    EXPECT_EQ(kCFPropertyListMutableContainersAndLeaves, 2U);
}

TEST(CFPropertyList, ValidityDependsOnEveryPart)
{
    const CFPropertyListFormat kXML = kCFPropertyListXMLFormat_v1_0;
    EXPECT_TRUE(CFPropertyListIsValid(CFSTR("a"), kXML));
    EXPECT_TRUE(CFPropertyListIsValid(CFSTR("a"), kCFPropertyListBinaryFormat_v1_0));
    EXPECT_FALSE(CFPropertyListIsValid(CFSTR("a"), kCFPropertyListOpenStepFormat));
    EXPECT_FALSE(CFPropertyListIsValid(nullptr, kXML));
    EXPECT_FALSE(CFPropertyListIsValid(kCFNull, kXML));
    EXPECT_FALSE(CFPropertyListIsValid(String(Units{0xD800}), kXML));
    EXPECT_TRUE(CFPropertyListIsValid(String(Units{'a', 0}), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(Date(1e300), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(Date(-1e12), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(Date(std::numeric_limits<double>::quiet_NaN()), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(NestedArray(513), kXML));
    EXPECT_TRUE(CFPropertyListIsValid(NestedArray(512), kXML));
    EXPECT_FALSE(CFPropertyListIsValid(Owned(CFArrayCreateMutable(nullptr, 0, nullptr)), kXML));
    const Owned<CFMutableDictionaryRef> theDictionary(CFDictionaryCreateMutable(
        nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    CFDictionarySetValue(theDictionary, Integer(100), CFSTR("a"));
    EXPECT_FALSE(CFPropertyListIsValid(theDictionary, kXML));
}

TEST(CFPropertyList, WhatCannotBeWrittenIsReportedAsAnError)
{
    const CFPropertyListFormat kXML = kCFPropertyListXMLFormat_v1_0;
    const Owned<CFMutableDictionaryRef> theNumberedDictionary = ObjectDictionary({});
    CFDictionarySetValue(theNumberedDictionary, Integer(100), CFSTR("a"));
    const struct Row
    {
        Owned<CFPropertyListRef> theList;
        CFPropertyListFormat theFormat;
        const char* theReason;
    } kRows[] = {
        {Owned<CFPropertyListRef>(nullptr), kXML, "there is no object"},
        {Owned<CFPropertyListRef>(CFRetain(kCFNull)), kXML, "there is an object that no file can hold"},
        {Owned<CFPropertyListRef>(CFRetain(ObjectArray({kCFNull}))), kCFPropertyListBinaryFormat_v1_0,
         "there is an object that no file can hold"},
        {Owned<CFPropertyListRef>(CFRetain(theNumberedDictionary)), kXML, "a key is no string"},
        {Owned<CFPropertyListRef>(CFRetain(String(Units{0xD800}))), kXML,
         "a string has half of a surrogate pair"},
        {Owned<CFPropertyListRef>(CFRetain(Date(1e300))), kXML, "a date is not in the years 0 to 9999"},
        {Owned<CFPropertyListRef>(CFRetain(NestedArray(513))), kXML, "the nesting is too deep"},
        {Owned<CFPropertyListRef>(CFArrayCreateMutable(nullptr, 0, nullptr)), kXML,
         "a container holds something else than objects"},
        {Owned<CFPropertyListRef>(CFRetain(CFSTR("a"))), kCFPropertyListOpenStepFormat,
         "nothing is written in this format"},
    };
    for (const Row& theRow : kRows) {
        CFErrorRef theError = nullptr;
        EXPECT_EQ(CFPropertyListCreateData(nullptr, theRow.theList, theRow.theFormat, 0, &theError), nullptr);
        ExpectError(Owned(theError), kCFPropertyListWriteStreamError, theRow.theReason);
        EXPECT_EQ(CFPropertyListCreateData(nullptr, theRow.theList, theRow.theFormat, 0, nullptr), nullptr);
    }
}

TEST(CFPropertyList, SuccessLeavesNoErrorAndTellsTheFormat)
{
    for (const CFPropertyListFormat theFormat :
         {kCFPropertyListXMLFormat_v1_0, kCFPropertyListBinaryFormat_v1_0}) {
        CFErrorRef theError = reinterpret_cast<CFErrorRef>(kCFBooleanTrue);
        const Owned<CFDataRef> theData(
            CFPropertyListCreateData(nullptr, CFSTR("text"), theFormat, 0, &theError));
        EXPECT_EQ(theError, nullptr);
        theError = reinterpret_cast<CFErrorRef>(kCFBooleanTrue);
        CFPropertyListFormat theFoundFormat = 0;
        const Owned<CFPropertyListRef> theList(
            CFPropertyListCreateWithData(nullptr, theData, 0, &theFoundFormat, &theError));
        EXPECT_TRUE(CFEqual(theList, CFSTR("text")));
        EXPECT_EQ(theFoundFormat, theFormat);
        EXPECT_EQ(theError, nullptr);
        EXPECT_TRUE(CFEqual(Owned(CFPropertyListCreateWithData(nullptr, theData, 0, nullptr, nullptr)),
                            CFSTR("text")));
    }
}

TEST(CFPropertyList, WhatCannotBeReadIsReportedAsAnError)
{
    CFErrorRef theError = nullptr;
    CFPropertyListFormat theFormat = 77;
    EXPECT_EQ(CFPropertyListCreateWithData(nullptr, DataOf("bplist00"), 0, &theFormat, &theError), nullptr);
    ExpectError(Owned(theError), kCFPropertyListReadCorruptError, "the binary form is damaged");
    EXPECT_EQ(theFormat, 77);
    EXPECT_EQ(CFPropertyListCreateWithData(nullptr, DataOf("<foo/>"), 0, nullptr, nullptr), nullptr);
}

TEST(CFPropertyList, MutabilityIsWhatWasAskedFor)
{
    const std::string theText = "<array><string>a</string></array>";
    const auto theMutable = ReadContent(theText, kCFPropertyListMutableContainers);
    const auto theArray =
        static_cast<CFMutableArrayRef>(const_cast<void*>(static_cast<CFTypeRef>(theMutable)));
    CFArrayAppendValue(theArray, kCFBooleanTrue);
    EXPECT_EQ(CFArrayGetCount(theArray), 2);
    const auto theAllMutable = ReadContent(theText, kCFPropertyListMutableContainersAndLeaves);
    const auto theLeaf = const_cast<void*>(
        CFArrayGetValueAtIndex(static_cast<CFArrayRef>(static_cast<CFTypeRef>(theAllMutable)), 0));
    CFStringAppend(static_cast<CFMutableStringRef>(theLeaf), CFSTR("b"));
    EXPECT_TRUE(CFEqual(theAllMutable, ObjectArray({CFSTR("ab")})));
}

TEST(CFPropertyList, DeepCopiesShareNothingThatChanges)
{
    const auto theInner = MutableString("text");
    const auto theBytes = Data({1});
    const auto theList =
        ObjectArray({theInner, ObjectDictionary({{CFSTR("k"), theInner}}), theBytes, Integer(100)});
    const Owned<CFPropertyListRef> theCopy(
        CFPropertyListCreateDeepCopy(nullptr, theList, kCFPropertyListImmutable));
    EXPECT_TRUE(CFEqual(theCopy, theList));
    CFStringAppend(theInner, CFSTR(" changed"));
    EXPECT_TRUE(CFEqual(theCopy, ObjectArray({CFSTR("text"), ObjectDictionary({{CFSTR("k"), CFSTR("text")}}),
                                              theBytes, Integer(100)})));
    EXPECT_EQ(CFPropertyListCreateDeepCopy(nullptr, kCFNull, 0), nullptr);
    const Owned<CFPropertyListRef> theMutableData(
        CFPropertyListCreateDeepCopy(nullptr, theBytes, kCFPropertyListMutableContainersAndLeaves));
    CFDataSetLength(static_cast<CFMutableDataRef>(const_cast<void*>(static_cast<CFTypeRef>(theMutableData))),
                    5);
    EXPECT_EQ(CFDataGetLength(theBytes), 1);
}
