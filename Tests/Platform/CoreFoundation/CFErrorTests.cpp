// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFTestSupport.h"

namespace {

Owned<CFErrorRef> Error(const std::vector<std::pair<CFStringRef, CFTypeRef>>& theInfo)
{
    return Owned(CFErrorCreate(nullptr, CFSTR("domain"), -5, ObjectDictionary(theInfo)));
}

std::string TextFor(CFErrorRef theError)
{
    return TextOf(Owned(CFErrorCopyDescription(theError)));
}

} // namespace

TEST(CFError, TellsItsDomainCodeAndUserInfo)
{
    const auto theError = Error({{CFSTR("key"), CFSTR("value")}});
    EXPECT_EQ(CFGetTypeID(theError), CFErrorGetTypeID());
    EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(CFErrorGetTypeID()))), "CFError");
    EXPECT_EQ(TextOf(CFErrorGetDomain(theError)), "domain");
    EXPECT_EQ(CFErrorGetCode(theError), -5);
    EXPECT_TRUE(
        CFEqual(Owned(CFErrorCopyUserInfo(theError)), ObjectDictionary({{CFSTR("key"), CFSTR("value")}})));
    const Owned<CFErrorRef> theBareOne(CFErrorCreate(nullptr, kCFErrorDomainPOSIX, 2, nullptr));
    EXPECT_TRUE(CFEqual(Owned(CFErrorCopyUserInfo(theBareOne)), ObjectDictionary({})));
}

TEST(CFError, KeepsACopyOfItsUserInfo)
{
    const auto theInfo = ObjectDictionary({{CFSTR("key"), CFSTR("value")}});
    const Owned<CFErrorRef> theError(CFErrorCreate(nullptr, CFSTR("domain"), 1, theInfo));
    CFDictionaryRemoveAllValues(theInfo);
    EXPECT_EQ(CFDictionaryGetCount(Owned(CFErrorCopyUserInfo(theError))), 1);
}

TEST(CFError, UserInfoMayBeGivenAsKeysAndValues)
{
    const void* const theKeys[] = {CFSTR("key")};
    const void* const theValues[] = {CFSTR("value")};
    const Owned<CFErrorRef> theError(
        CFErrorCreateWithUserInfoKeysAndValues(nullptr, CFSTR("domain"), -5, theKeys, theValues, 1));
    EXPECT_TRUE(CFEqual(theError, Error({{CFSTR("key"), CFSTR("value")}})));
}

TEST(CFError, DescribesItselfWithTheBestTextThereIs)
{
    const std::string kStart = u8"The operation couldn\u2019t be completed. ";
    EXPECT_EQ(TextFor(Error({})), kStart + "(domain error -5.)");
    EXPECT_EQ(TextFor(Error({{kCFErrorDescriptionKey, CFSTR("words")}})),
              kStart + "(domain error -5 - words)");
    EXPECT_EQ(TextFor(Error({{kCFErrorDescriptionKey, CFSTR("words")},
                             {kCFErrorLocalizedFailureReasonKey, CFSTR("A reason.")}})),
              kStart + "A reason.");
    EXPECT_EQ(TextFor(Error({{kCFErrorLocalizedFailureReasonKey, CFSTR("A reason.")},
                             {kCFErrorLocalizedDescriptionKey, CFSTR("A text.")}})),
              "A text.");
    EXPECT_EQ(TextFor(Error({{kCFErrorLocalizedDescriptionKey, kCFBooleanTrue}})),
              kStart + "(domain error -5.)");
    EXPECT_EQ(DescriptionOf(Error({{kCFErrorLocalizedDescriptionKey, CFSTR("A text.")}})),
              "{domain = domain, code = -5, description = A text.}");
}

TEST(CFError, OtherTextsAreThereWhenTheyWereGiven)
{
    const auto theError = Error({{kCFErrorLocalizedFailureReasonKey, CFSTR("A reason.")},
                                 {kCFErrorLocalizedRecoverySuggestionKey, CFSTR("An advice.")}});
    EXPECT_EQ(TextOf(Owned(CFErrorCopyFailureReason(theError))), "A reason.");
    EXPECT_EQ(TextOf(Owned(CFErrorCopyRecoverySuggestion(theError))), "An advice.");
    EXPECT_EQ(CFErrorCopyFailureReason(Error({})), nullptr);
    EXPECT_EQ(CFErrorCopyRecoverySuggestion(Error({})), nullptr);
}

TEST(CFError, IsEqualWhenEverythingIs)
{
    const auto theError = Error({{CFSTR("key"), CFSTR("value")}});
    EXPECT_TRUE(CFEqual(theError, Error({{CFSTR("key"), CFSTR("value")}})));
    EXPECT_EQ(CFHash(theError), CFHash(Error({{CFSTR("key"), CFSTR("value")}})));
    EXPECT_FALSE(CFEqual(theError, Error({})));
    EXPECT_FALSE(CFEqual(Error({}), Owned(CFErrorCreate(nullptr, CFSTR("domain"), 5, nullptr))));
    EXPECT_FALSE(CFEqual(Error({}), Owned(CFErrorCreate(nullptr, CFSTR("other"), -5, nullptr))));
}
