// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"
#include "StandardErrorCapture.h"

TEST(CFText, DescriptionsNameTypeAndContent)
{
    EXPECT_EQ(DescriptionOf(CFSTR("hello")), "{contents = \"hello\"}");
    EXPECT_EQ(DescriptionOf(kCFBooleanTrue), "{value = true}");
    EXPECT_EQ(DescriptionOf(kCFBooleanFalse), "{value = false}");
    EXPECT_EQ(DescriptionOf(Data({1, 2, 3})), "{length = 3, capacity = 3, bytes = 0x010203}");
    EXPECT_EQ(DescriptionOf(Owned(CFDateCreate(nullptr, 0))), "{time = 0}");
    EXPECT_EQ(DescriptionOf(Owned(CFArrayCreate(nullptr, nullptr, 0, &kCFTypeArrayCallBacks))),
              "{type = immutable, count = 0, values = ()}");
}

TEST(CFText, DescriptionsStartWithTypeAddressAndAllocator)
{
    char theExpected[200];
    const auto theObject = CountedObject();
    std::snprintf(theExpected, sizeof theExpected, "<CFString %p [%p]>{contents = \"counted\"}",
                  static_cast<const void*>(static_cast<CFMutableStringRef>(theObject)),
                  static_cast<const void*>(kCFAllocatorSystemDefault));
    EXPECT_EQ(TextOf(Owned(CFCopyDescription(theObject))), theExpected);
    std::snprintf(theExpected, sizeof theExpected, "<CFNull %p [%p]>", static_cast<const void*>(kCFNull),
                  static_cast<const void*>(kCFAllocatorSystemDefault));
    EXPECT_EQ(TextOf(Owned(CFCopyDescription(kCFNull))), theExpected);
}

TEST(CFText, DescriptionsOfLongDataShowStartAndEnd)
{
    std::vector<UInt8> theBytes(100, 0xAA);
    theBytes[0] = 0x01;
    theBytes[99] = 0x02;
    EXPECT_EQ(
        DescriptionOf(Data(theBytes)),
        "{length = 100, capacity = 100, bytes = 0x01aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa ... aaaaaaaaaaaaaa02}");
}

TEST(CFText, DescriptionsOfContainersListTheirContent)
{
    const void* theValues[] = {kCFBooleanTrue, kCFBooleanFalse};
    const Owned<CFArrayRef> theArray(CFArrayCreate(nullptr, theValues, 2, &kCFTypeArrayCallBacks));
    EXPECT_EQ(DescriptionOf(theArray), "{type = immutable, count = 2, values = (\n\t0 : " +
                                           TextOf(Owned(CFCopyDescription(kCFBooleanTrue))) + "\n\t1 : " +
                                           TextOf(Owned(CFCopyDescription(kCFBooleanFalse))) + "\n)}");
    const auto theDictionary = ObjectDictionary({{CFSTR("k"), kCFBooleanTrue}});
    EXPECT_EQ(DescriptionOf(theDictionary), "{type = mutable, count = 1, entries = (\n\t" +
                                                TextOf(Owned(CFCopyDescription(CFSTR("k")))) + " = " +
                                                TextOf(Owned(CFCopyDescription(kCFBooleanTrue))) + "\n)}");
}

TEST(CFText, DescriptionOfNothingIsNothing)
{
    EXPECT_EQ(CFCopyDescription(nullptr), nullptr);
}

TEST(CFText, ShowWritesToTheStandardErrorStream)
{
    CFShow(CFSTR("plain text"));
    CFShow(String(u8"caf\u00E9 \u20AC"));
    CFShow(nullptr);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "plain text\ncaf\\u00e9 \\u20ac\n(null)\n");
    CFShow(kCFBooleanTrue);
    EXPECT_EQ(StandardErrorCapture::TakeText(), TextOf(Owned(CFCopyDescription(kCFBooleanTrue))) + "\n");
}
