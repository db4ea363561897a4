// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BundleTestSupport.h"

namespace {

class CFURLAccess : public testing::Test
{
protected:
    std::string Read(CFURLRef theURL)
    {
        CFDataRef theData = nullptr;
        if (!CFURLCreateDataAndPropertiesFromResource(nullptr, theURL, &theData, nullptr, nullptr, &mError)) {
            return "none";
        }
        const Owned theOwned(theData);
        return std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(theData)),
                           static_cast<size_t>(CFDataGetLength(theData)));
    }

    TemporaryFolder mFolder;
    SInt32 mError = 99;
};

} // namespace

TEST_F(CFURLAccess, AFileIsReadWhole)
{
    mFolder.Write("a b", std::string("one\0two", 7));
    EXPECT_EQ(Read(mFolder.URL("a b")), std::string("one\0two", 7));
    EXPECT_EQ(mError, 0);
    mFolder.Write("empty", "");
    EXPECT_EQ(Read(mFolder.URL("empty")), "");
}

TEST_F(CFURLAccess, PropertiesComeWithIt)
{
    mFolder.Write("a", "1234");
    CFDictionaryRef theProperties = nullptr;
    EXPECT_TRUE(CFURLCreateDataAndPropertiesFromResource(nullptr, mFolder.URL("a"), nullptr, &theProperties,
                                                         nullptr, nullptr));
    const Owned theOwned(theProperties);
    EXPECT_EQ(CFDictionaryGetCount(theProperties), 3);
    SInt32 theLength = 0;
    CFNumberGetValue(static_cast<CFNumberRef>(CFDictionaryGetValue(theProperties, kCFURLFileLength)),
                     kCFNumberSInt32Type, &theLength);
    EXPECT_EQ(theLength, 4);
    EXPECT_EQ(CFDictionaryGetValue(theProperties, kCFURLFileExists), kCFBooleanTrue);

    const void* theKeys[] = {kCFURLFileExists};
    const Owned theDesired(CFArrayCreate(nullptr, theKeys, 1, &kCFTypeArrayCallBacks));
    CFDictionaryRef theFew = nullptr;
    EXPECT_TRUE(CFURLCreateDataAndPropertiesFromResource(nullptr, mFolder.URL("a"), nullptr, &theFew,
                                                         theDesired, &mError));
    const Owned theOwnedFew(theFew);
    EXPECT_EQ(CFDictionaryGetCount(theFew), 1);
}

TEST_F(CFURLAccess, WhatCannotBeReadSaysWhy)
{
    EXPECT_EQ(Read(mFolder.URL("absent")), "none");
    EXPECT_EQ(mError, kCFURLResourceNotFoundError);
    EXPECT_EQ(Read(mFolder.URL("")), "none");
    EXPECT_EQ(mError, kCFURLResourceAccessViolationError);
    EXPECT_EQ(Read(Owned(CFURLCreateWithString(nullptr, CFSTR("http://host/a"), nullptr))), "none");
    EXPECT_EQ(mError, kCFURLUnknownSchemeError);

    mFolder.Write("a", "");
    const void* theKeys[] = {CFSTR("unknown")};
    const void* theBadKeys[] = {kCFBooleanTrue};
    CFDataRef theData = nullptr;
    CFDictionaryRef theProperties = nullptr;
    EXPECT_FALSE(CFURLCreateDataAndPropertiesFromResource(
        nullptr, mFolder.URL("a"), &theData, &theProperties,
        Owned(CFArrayCreate(nullptr, theKeys, 1, &kCFTypeArrayCallBacks)), &mError));
    EXPECT_EQ(mError, kCFURLUnknownPropertyKeyError);
    EXPECT_FALSE(CFURLCreateDataAndPropertiesFromResource(
        nullptr, mFolder.URL("a"), &theData, &theProperties,
        Owned(CFArrayCreate(nullptr, theBadKeys, 1, &kCFTypeArrayCallBacks)), &mError));
    EXPECT_EQ(mError, kCFURLImproperArgumentsError);
    EXPECT_EQ(theData, nullptr);
    EXPECT_EQ(theProperties, nullptr);
}

TEST_F(CFURLAccess, AFileIsWrittenAndDeleted)
{
    const UInt8 theBytes[] = {'n', 'e', 'w'};
    const Owned theData(CFDataCreate(nullptr, theBytes, 3));
    const Owned theURL = mFolder.URL("a");
    EXPECT_TRUE(CFURLWriteDataAndPropertiesToResource(theURL, theData, nullptr, &mError));
    EXPECT_EQ(mError, 0);
    EXPECT_EQ(Read(theURL), "new");
    EXPECT_TRUE(CFURLWriteDataAndPropertiesToResource(theURL, nullptr, nullptr, nullptr));
    EXPECT_EQ(Read(theURL), "new");
    EXPECT_TRUE(CFURLDestroyResource(theURL, &mError));
    EXPECT_EQ(mError, 0);
    EXPECT_EQ(Read(theURL), "none");
    EXPECT_FALSE(CFURLDestroyResource(theURL, &mError));
    EXPECT_EQ(mError, kCFURLResourceNotFoundError);
}

TEST_F(CFURLAccess, WhatCannotBeWrittenSaysWhy)
{
    const Owned theData(CFDataCreate(nullptr, nullptr, 0));
    EXPECT_FALSE(CFURLWriteDataAndPropertiesToResource(mFolder.URL("absent/a"), theData, nullptr, &mError));
    EXPECT_EQ(mError, kCFURLResourceAccessViolationError);
    EXPECT_FALSE(CFURLWriteDataAndPropertiesToResource(mFolder.URL(""), theData, nullptr, &mError));
    EXPECT_EQ(mError, kCFURLResourceAccessViolationError);
    const void* theKeys[] = {kCFURLFileLength};
    const void* theValues[] = {kCFBooleanTrue};
    const Owned theProperties(CFDictionaryCreate(
        nullptr, theKeys, theValues, 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    EXPECT_FALSE(CFURLWriteDataAndPropertiesToResource(mFolder.URL("a"), theData, theProperties, &mError));
    EXPECT_EQ(mError, kCFURLPropertyKeyUnavailableError);
    EXPECT_EQ(Read(mFolder.URL("a")), "none");
}

TEST_F(CFURLAccess, AFileHasProperties)
{
    mFolder.Write("a", "12345");
    const Owned theURL = mFolder.URL("a");
    const Owned theLength(CFURLCreatePropertyFromResource(nullptr, theURL, kCFURLFileLength, &mError));
    SInt64 theNumber = 0;
    CFNumberGetValue(static_cast<CFNumberRef>(static_cast<CFTypeRef>(theLength)), kCFNumberSInt64Type,
                     &theNumber);
    EXPECT_EQ(theNumber, 5);
    const Owned theTime(
        CFURLCreatePropertyFromResource(nullptr, theURL, kCFURLFileLastModificationTime, nullptr));
    ASSERT_EQ(CFGetTypeID(theTime), CFDateGetTypeID());
    EXPECT_NEAR(CFDateGetAbsoluteTime(static_cast<CFDateRef>(static_cast<CFTypeRef>(theTime))),
                CFAbsoluteTimeGetCurrent(), 600);
    const Owned theAbsence(
        CFURLCreatePropertyFromResource(nullptr, mFolder.URL("b"), kCFURLFileExists, &mError));
    EXPECT_EQ(static_cast<CFTypeRef>(theAbsence), kCFBooleanFalse);
    EXPECT_EQ(CFURLCreatePropertyFromResource(nullptr, mFolder.URL("b"), kCFURLFileLength, &mError), nullptr);
    EXPECT_EQ(mError, kCFURLResourceNotFoundError);
    EXPECT_EQ(CFURLCreatePropertyFromResource(nullptr, theURL, CFSTR("unknown"), &mError), nullptr);
    EXPECT_EQ(mError, kCFURLUnknownPropertyKeyError);
}
