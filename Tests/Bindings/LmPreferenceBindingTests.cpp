// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindingTestSupport.h"
#include "LmPreferenceBinding.h"
#include "NotificationRecorder.h"
#include "PreferenceSpy.h"
#include "TestStrings.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>

namespace {

const char* const kSource = "Source/Bindings/LmPreferenceBinding.cpp, line #: ";

CFDataRef MakeData(const void* theBytes, size_t theLength)
{
    return CFDataCreate(nullptr, static_cast<const UInt8*>(theBytes), static_cast<CFIndex>(theLength));
}

// The bytes of a stored geometry: its tag, then four floats.
std::string GeometryBytes(const char* theTag, float the1, float the2, float the3, float the4)
{
    const float theNumbers[] = {the1, the2, the3, the4};
    std::string theBytes(theTag, 4);
    theBytes.append(reinterpret_cast<const char*>(theNumbers), sizeof theNumbers);
    return theBytes;
}

std::string BytesOf(CFTypeRef theData)
{
    const auto theObject = static_cast<CFDataRef>(theData);
    return std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(theObject)),
                       static_cast<size_t>(CFDataGetLength(theObject)));
}

// A binding over preferences in memory.
class LmPreferenceBindingTest : public testing::Test
{
protected:
    LmPreferenceBindingTest()
    {
        PreferenceSpy::Reset();
        theBinding = std::make_unique<LmPreferenceBinding>(CFSTR("com.example.app"));
    }

    ~LmPreferenceBindingTest() override
    {
        theBinding.reset();
        PreferenceSpy::Reset();
    }

    LmValue Read(const char* theKey) const { return theBinding->GetKeyValue(theKey); }
    void Write(const char* theKey, const LmValue& theValue) { theBinding->SetKeyValue(theKey, theValue); }

    static Lines TakeDiagnostics() { return StandardErrorCapture::TakeDiagnostics(); }
    static Lines Diagnostic(const std::string& theText) { return Lines{kSource + theText}; }

    std::unique_ptr<LmPreferenceBinding> theBinding;
};

} // namespace

// ---- Kinds of values

namespace {

struct RoundTrip
{
    const char* mName;
    LmValue (*mMake)();
    CFTypeID (*mStoredType)();
    ValueType mReadType;
    LmValue (*mExpected)();
};

const RoundTrip kRoundTrips[] = {
    {"True", [] { return LmValue(true); }, CFBooleanGetTypeID, kTypeBoolean, [] { return LmValue(true); }},
    {"False", [] { return LmValue(false); }, CFBooleanGetTypeID, kTypeBoolean, [] { return LmValue(false); }},
    {"Unsigned32", [] { return LmValue(7UL); }, CFNumberGetTypeID, kTypeSInt32, [] { return LmValue(7L); }},
    {"TheHighestUnsigned32ComesBackNegative", [] { return LmValue(4294967295UL); }, CFNumberGetTypeID,
     kTypeSInt32, [] { return LmValue(-1L); }},
    {"Signed32", [] { return LmValue(-2147483647L - 1); }, CFNumberGetTypeID, kTypeSInt32,
     [] { return LmValue(-2147483647L - 1); }},
    {"Unsigned64", [] { return LmValue(5000000000ULL); }, CFNumberGetTypeID, kTypeSInt64,
     [] { return LmValue(5000000000LL); }},
    {"AHighUnsigned64ComesBackNegative", [] { return LmValue(18446744073709550616ULL); }, CFNumberGetTypeID,
     kTypeSInt64, [] { return LmValue(-1000LL); }},
    {"Signed64", [] { return LmValue(-5000000000LL); }, CFNumberGetTypeID, kTypeSInt64,
     [] { return LmValue(-5000000000LL); }},
    {"ASmallSigned64ComesBackIn32Bits", [] { return LmValue(7LL); }, CFNumberGetTypeID, kTypeSInt32,
     [] { return LmValue(7L); }},
    {"Double", [] { return LmValue(2.5); }, CFNumberGetTypeID, kTypeDouble, [] { return LmValue(2.5); }},
    {"String", [] { return LmValue(MakeString("Quiet"), true); }, CFStringGetTypeID, kTypeString,
     [] { return LmValue(MakeString("Quiet"), true); }},
    {"Point",
     [] {
         return LmValue(CGPoint{1.5F, 2});
     },
     CFDataGetTypeID, kTypePoint,
     [] {
         return LmValue(CGPoint{1.5F, 2});
     }},
    {"Size",
     [] {
         return LmValue(CGSize{3, -4.25F});
     },
     CFDataGetTypeID, kTypeSize,
     [] {
         return LmValue(CGSize{3, -4.25F});
     }},
    {"Rect",
     [] {
         return LmValue(CGRect{{1, 2}, {3, 4}});
     },
     CFDataGetTypeID, kTypeRect,
     [] {
         return LmValue(CGRect{{1, 2}, {3, 4}});
     }},
};

class LmPreferenceBindingRoundTrip : public LmPreferenceBindingTest,
                                     public testing::WithParamInterface<RoundTrip>
{
};

} // namespace

TEST_P(LmPreferenceBindingRoundTrip, IsStoredAsItsPropertyTypeAndReadBack)
{
    Write("Key", GetParam().mMake());
    ASSERT_NE(PreferenceSpy::Stored("Key"), nullptr);
    EXPECT_EQ(CFGetTypeID(PreferenceSpy::Stored("Key")), GetParam().mStoredType());
    const LmValue theValue = Read("Key");
    EXPECT_EQ(theValue.GetType(), GetParam().mReadType);
    EXPECT_TRUE(theValue == GetParam().mExpected());
}

INSTANTIATE_TEST_SUITE_P(, LmPreferenceBindingRoundTrip, testing::ValuesIn(kRoundTrips),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

TEST_F(LmPreferenceBindingTest, ABooleanIsStoredAsOneOfTheTwoObjects)
{
    Write("Key", LmValue(true));
    EXPECT_EQ(PreferenceSpy::Stored("Key"), static_cast<CFTypeRef>(kCFBooleanTrue));
    Write("Key", LmValue(false));
    EXPECT_EQ(PreferenceSpy::Stored("Key"), static_cast<CFTypeRef>(kCFBooleanFalse));
}

TEST_F(LmPreferenceBindingTest, ADoubleKeepsItsFraction)
{
    Write("Key", LmValue(0.1));
    EXPECT_EQ(Read("Key").GetDouble(), 0.1);
}

TEST_F(LmPreferenceBindingTest, NumbersAreStoredInTheWidthOfTheirKind)
{
    Write("Key", LmValue(1000UL));
    EXPECT_EQ(CFNumberGetType(static_cast<CFNumberRef>(PreferenceSpy::Stored("Key"))), kCFNumberSInt32Type);
    Write("Key", LmValue(1000ULL));
    EXPECT_EQ(CFNumberGetType(static_cast<CFNumberRef>(PreferenceSpy::Stored("Key"))), kCFNumberSInt64Type);
    Write("Key", LmValue(1000.0));
    EXPECT_EQ(CFNumberGetType(static_cast<CFNumberRef>(PreferenceSpy::Stored("Key"))), kCFNumberFloat64Type);
}

TEST_F(LmPreferenceBindingTest, AStringIsSharedAndCountedByThoseWhoHoldIt)
{
    const CFStringRef theText = MakeString("an ordinary string");
    {
        LmValue theValue(theText, false);
        Write("Key", theValue);
    }
    EXPECT_EQ(PreferenceSpy::Stored("Key"), static_cast<CFTypeRef>(theText));
    EXPECT_EQ(CFGetRetainCount(theText), 2) << "this test and the preferences";
    {
        const LmValue theValue = Read("Key");
        EXPECT_EQ(theValue.GetString(), theText);
        EXPECT_EQ(CFGetRetainCount(theText), 3);
    }
    EXPECT_EQ(CFGetRetainCount(theText), 2);
    CFRelease(theText);
}

// ---- Geometry

TEST_F(LmPreferenceBindingTest, GeometryIsStoredAsItsTagAndFourFloats)
{
    Write("Key", LmValue(CGPoint{1.5F, 2}));
    EXPECT_EQ(BytesOf(PreferenceSpy::Stored("Key")), GeometryBytes("poin", 1.5F, 2, 0, 0));
    Write("Key", LmValue(CGSize{30, 40}));
    EXPECT_EQ(BytesOf(PreferenceSpy::Stored("Key")), GeometryBytes("size", 30, 40, 0, 0));
    Write("Key", LmValue(CGRect{{1, 2}, {30, 40}}));
    EXPECT_EQ(BytesOf(PreferenceSpy::Stored("Key")), GeometryBytes("rect", 1, 2, 30, 40));
}

TEST_F(LmPreferenceBindingTest, WhatFollowsTheTwoNumbersOfAPointOrSizeIsIgnored)
{
    const std::string thePoint = GeometryBytes("poin", 1, 2, 30, 40);
    PreferenceSpy::Store("Point", MakeData(thePoint.data(), thePoint.size()));
    EXPECT_TRUE(Read("Point") == LmValue(CGPoint{1, 2}));
    const std::string theSize = GeometryBytes("size", 1, 2, 30, 40);
    PreferenceSpy::Store("Size", MakeData(theSize.data(), theSize.size()));
    EXPECT_TRUE(Read("Size") == LmValue(CGSize{1, 2}));
}

TEST_F(LmPreferenceBindingTest, WhatFollowsTheTwentyBytesIsIgnored)
{
    const std::string theBytes = GeometryBytes("rect", 1, 2, 30, 40) + "and more";
    PreferenceSpy::Store("Key", MakeData(theBytes.data(), theBytes.size()));
    EXPECT_TRUE(Read("Key") == LmValue(CGRect{{1, 2}, {30, 40}}));
}

namespace {

struct ForeignData
{
    const char* mName;
    std::string mBytes;
    bool mHasTag;
};

const ForeignData kForeignData[] = {
    {"Empty", "", false},
    {"ThreeBytes", "poi", false},
    {"ATagAlone", "poin", true},
    {"APointShortOfOneByte", GeometryBytes("poin", 1, 2, 3, 4).substr(0, 19), true},
    {"ASizeShortOfItsLastNumbers", GeometryBytes("size", 1, 2, 3, 4).substr(0, 12), true},
    {"ARectShortOfOneByte", GeometryBytes("rect", 1, 2, 3, 4).substr(0, 19), true},
    {"AnUnknownTag", GeometryBytes("line", 1, 2, 3, 4), true},
    {"ATagWithAnotherEnd", GeometryBytes("recs", 1, 2, 3, 4), true},
    {"ATagInCapitals", GeometryBytes("RECT", 1, 2, 3, 4), true},
    {"ATagReversed", GeometryBytes("tcer", 1, 2, 3, 4), true},
    {"HighBytes", std::string(20, '\xFF'), true},
};

class LmPreferenceBindingForeignData : public LmPreferenceBindingTest,
                                       public testing::WithParamInterface<ForeignData>
{
};

} // namespace

TEST_P(LmPreferenceBindingForeignData, IsReportedAndInvalid)
{
    const std::string& theBytes = GetParam().mBytes;
    PreferenceSpy::Store("Key", MakeData(theBytes.data(), theBytes.size()));
    EXPECT_FALSE(Read("Key").IsValid());
    SInt32 theTag = 0;
    if (GetParam().mHasTag) {
        std::memcpy(&theTag, theBytes.data(), sizeof theTag);
    }
    EXPECT_EQ(TakeDiagnostics(), Diagnostic("Unknown LmData type: " + std::to_string(theTag)));
}

INSTANTIATE_TEST_SUITE_P(, LmPreferenceBindingForeignData, testing::ValuesIn(kForeignData),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

// ---- Numbers of others

namespace {

struct NumberType
{
    CFNumberType mType;
    ValueType mReadType; // kTypeInvalid: refused
};

// The host never answers some of these.
const NumberType kNumberTypes[] = {
    {0, kTypeInvalid},
    {kCFNumberSInt8Type, kTypeSInt32},
    {kCFNumberSInt16Type, kTypeSInt32},
    {kCFNumberSInt32Type, kTypeSInt32},
    {kCFNumberSInt64Type, kTypeSInt64},
    {kCFNumberFloat32Type, kTypeDouble},
    {kCFNumberFloat64Type, kTypeDouble},
    {kCFNumberCharType, kTypeInvalid},
    {kCFNumberShortType, kTypeInvalid},
    {kCFNumberIntType, kTypeInvalid},
    {kCFNumberLongType, kTypeInvalid},
    {kCFNumberLongLongType, kTypeInvalid},
    {kCFNumberFloatType, kTypeInvalid},
    {kCFNumberDoubleType, kTypeInvalid},
    {kCFNumberCFIndexType, kTypeSInt32},
    {15, kTypeInvalid},
    {16, kTypeInvalid},
    {99, kTypeInvalid},
};

class LmPreferenceBindingNumberType : public LmPreferenceBindingTest,
                                      public testing::WithParamInterface<NumberType>
{
};

} // namespace

TEST_P(LmPreferenceBindingNumberType, IsReadInItsWidthOrRefusedOnPurpose)
{
    const SInt32 theNumber = 42;
    PreferenceSpy::Store("Key", CFNumberCreate(nullptr, kCFNumberSInt32Type, &theNumber));
    PreferenceSpy::SetNumberType(GetParam().mType);
    const LmValue theValue = Read("Key");
    EXPECT_EQ(theValue.GetType(), GetParam().mReadType);
    if (GetParam().mReadType == kTypeInvalid) {
        EXPECT_EQ(TakeDiagnostics(),
                  Diagnostic("Unknown CFNumber type: " + std::to_string(GetParam().mType)));
    } else {
        EXPECT_EQ(theValue.GetSInt32(), 42);
    }
}

INSTANTIATE_TEST_SUITE_P(, LmPreferenceBindingNumberType, testing::ValuesIn(kNumberTypes),
                         [](const auto& theInfo) { return "Type" + std::to_string(theInfo.param.mType); });

namespace {

class LmPreferenceBindingLossyNumber : public LmPreferenceBindingTest,
                                       public testing::WithParamInterface<CFNumberType>
{
};

} // namespace

TEST_P(LmPreferenceBindingLossyNumber, IsInvalidWithoutAWord)
{
    const SInt32 theNumber = 42;
    PreferenceSpy::Store("Key", CFNumberCreate(nullptr, kCFNumberSInt32Type, &theNumber));
    PreferenceSpy::SetNumberType(GetParam());
    PreferenceSpy::LoseNumbers();
    EXPECT_FALSE(Read("Key").IsValid());
    EXPECT_EQ(TakeDiagnostics(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(, LmPreferenceBindingLossyNumber,
                         testing::Values(CFNumberType(kCFNumberSInt32Type), CFNumberType(kCFNumberSInt64Type),
                                         CFNumberType(kCFNumberFloat64Type)),
                         [](const auto& theInfo) { return "Type" + std::to_string(theInfo.param); });

TEST_F(LmPreferenceBindingTest, NumbersOfOtherProgramsAreReadInTheirOwnWidth)
{
    const SInt16 theShort = -300;
    PreferenceSpy::Store("Short", CFNumberCreate(nullptr, kCFNumberSInt16Type, &theShort));
    EXPECT_EQ(Read("Short").GetType(), kTypeSInt32);
    EXPECT_EQ(Read("Short").GetSInt32(), -300);
    const float theFloat = 2.5F;
    PreferenceSpy::Store("Float", CFNumberCreate(nullptr, kCFNumberFloat32Type, &theFloat));
    EXPECT_EQ(Read("Float").GetType(), kTypeDouble);
    EXPECT_EQ(Read("Float").GetDouble(), 2.5);
    const long long theLong = 5000000000LL;
    PreferenceSpy::Store("Long", CFNumberCreate(nullptr, kCFNumberSInt64Type, &theLong));
    EXPECT_EQ(Read("Long").GetSInt64(), 5000000000LL);
}

// ---- What is no value

TEST_F(LmPreferenceBindingTest, AMissingPreferenceIsInvalidWithoutAWord)
{
    EXPECT_FALSE(Read("Key").IsValid());
    EXPECT_FALSE(theBinding->HasKey("Key"));
    EXPECT_EQ(TakeDiagnostics(), Lines{});
}

TEST_F(LmPreferenceBindingTest, DatesAndContainersAreReportedAndInvalid)
{
    PreferenceSpy::Store("Date", CFDateCreate(nullptr, 0));
    PreferenceSpy::Store("Array", CFArrayCreate(nullptr, nullptr, 0, &kCFTypeArrayCallBacks));
    EXPECT_FALSE(Read("Date").IsValid());
    EXPECT_EQ(TakeDiagnostics(),
              Diagnostic("Unsupported value type: " + std::to_string(static_cast<long>(CFDateGetTypeID()))));
    EXPECT_FALSE(Read("Array").IsValid());
    EXPECT_EQ(TakeDiagnostics(),
              Diagnostic("Unsupported value type: " + std::to_string(static_cast<long>(CFArrayGetTypeID()))));
}

TEST_F(LmPreferenceBindingTest, InvalidValuesAndPointersAreReportedAndNotWritten)
{
    Write("Key", LmValue(7UL));
    PreferenceSpy::TakeCalls();
    Write("Key", LmValue());
    EXPECT_EQ(TakeDiagnostics(), Diagnostic("Unsupported value type: 0"));
    Write("Key", LmValue(static_cast<const void*>(this)));
    EXPECT_EQ(TakeDiagnostics(), Diagnostic("Unsupported value type: 7"));
    EXPECT_EQ(PreferenceSpy::TakeCalls(), Lines{});
    EXPECT_EQ(Read("Key").GetSInt32(), 7);
}

TEST_F(LmPreferenceBindingTest, ANullStringIsNotWritten)
{
    Write("Key", LmValue(7UL));
    Write("Key", LmValue(nullptr, false));
    EXPECT_EQ(Read("Key").GetSInt32(), 7);
    EXPECT_EQ(TakeDiagnostics(), Lines{});
}

TEST_F(LmPreferenceBindingTest, WhatCannotBeMadeIsNotWrittenWithoutAWord)
{
    Write("Key", LmValue(7UL));
    PreferenceSpy::FailCreation();
    const LmValue theValues[] = {LmValue(8UL),          LmValue(8ULL),
                                 LmValue(8.0),          LmValue(CGPoint{1, 2}),
                                 LmValue(CGSize{1, 2}), LmValue(CGRect{{1, 2}, {3, 4}})};
    for (const LmValue& theValue : theValues) {
        Write("Key", theValue);
    }
    EXPECT_EQ(Read("Key").GetSInt32(), 7);
    EXPECT_EQ(TakeDiagnostics(), Lines{});
}

// ---- Keys

TEST_F(LmPreferenceBindingTest, AKeyThatIsNoUTF8ReadsAndWritesNothing)
{
    Write("caf\xE9", LmValue(7UL));
    EXPECT_FALSE(Read("caf\xE9").IsValid());
    EXPECT_EQ(PreferenceSpy::TakeCalls(), Lines{});
    EXPECT_EQ(TakeDiagnostics(), Lines{});
}

TEST_F(LmPreferenceBindingTest, AnyOtherTextIsAKey)
{
    for (const char* theKey : {"Key", "a.b/c d", "caf\xC3\xA9", "", "*"}) {
        Write(theKey, LmValue(7UL));
        EXPECT_EQ(Read(theKey).GetSInt32(), 7) << theKey;
        EXPECT_NE(PreferenceSpy::Stored(theKey), nullptr) << theKey;
    }
    EXPECT_EQ(TakeDiagnostics(), Lines{});
}

// ---- As a store

TEST_F(LmPreferenceBindingTest, KeepsNoCopyOfItsOwn)
{
    theBinding->SetKeyPathValue("Key", LmValue(7UL));
    EXPECT_FALSE(theBinding->LmKeyValueStore::GetKeyValue("Key").IsValid());
    PreferenceSpy::Store("Key", MakeString("changed from outside"));
    EXPECT_TRUE(theBinding->GetKeyPathValue("Key").IsString());
}

TEST_F(LmPreferenceBindingTest, SettingAKeyReadsWritesAndReads)
{
    theBinding->SetKeyPathValue("Key", LmValue(7UL));
    EXPECT_EQ(PreferenceSpy::TakeCalls(), (Lines{"copy Key", "set Key", "copy Key"}));
}

TEST_F(LmPreferenceBindingTest, NotifiesWhenTheValueDiffersFromThePreference)
{
    NotificationRecorder theRecorder;
    theBinding->ObserveKeyPathValue("Key", &theRecorder);
    theBinding->SetKeyPathValue("Key", LmValue(7UL));
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing Key", "changed Key"}));
    theBinding->SetKeyPathValue("Key", LmValue(7UL));
    EXPECT_EQ(theRecorder.Take(), Lines{}) << "a signed 7 equals an unsigned one";
    PreferenceSpy::Store("Key", CFRetain(kCFBooleanFalse));
    theBinding->SetKeyPathValue("Key", LmValue(7UL));
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing Key", "changed Key"})) << "changed from outside meanwhile";
}

TEST_F(LmPreferenceBindingTest, AModelKeyBoundToItIsReadAndSaved)
{
    Write("Target", LmValue(20UL));
    LmKeyValueBinding theModel;
    EXPECT_EQ(theModel.Bind("target", theBinding.get(), "Target", nullptr, nullptr), noErr);
    EXPECT_EQ(theModel.GetKeyPathValue("target").GetSInt32(), 20);
    theModel.SetKeyPathValue("target", LmValue(21UL));
    EXPECT_EQ(Read("Target").GetSInt32(), 21);
    theBinding->SetKeyPathValue("Target", LmValue(22UL));
    EXPECT_EQ(theModel.GetKeyPathValue("target").GetSInt32(), 22);
}

TEST_F(LmPreferenceBindingTest, AModelKeyBoundToAMissingPreferenceKeepsItsValue)
{
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("target", LmValue(20UL));
    theModel.Bind("target", theBinding.get(), "Target", nullptr, nullptr);
    EXPECT_EQ(theModel.GetKeyPathValue("target").GetSInt32(), 20);
    EXPECT_EQ(PreferenceSpy::Stored("Target"), nullptr);
}

TEST_F(LmPreferenceBindingTest, TheWildcardIsNotBindableAndOtherKeysAre)
{
    EXPECT_TRUE(theBinding->IsBindable("Target"));
    EXPECT_FALSE(theBinding->IsBindable("*"));
}

// ---- Life

TEST_F(LmPreferenceBindingTest, FlushingSynchronisesAndTellsTheResult)
{
    EXPECT_TRUE(theBinding->Flush());
    PreferenceSpy::SetSynchroniseResult(false);
    EXPECT_FALSE(theBinding->Flush());
    EXPECT_EQ(PreferenceSpy::TakeCalls(),
              (Lines{"synchronise com.example.app", "synchronise com.example.app"}));
    EXPECT_EQ(TakeDiagnostics(), Lines{});
}

TEST_F(LmPreferenceBindingTest, TheJournalIsToldWhetherFlushingSucceeded)
{
    const KeptEntries theFlushes(kJournalFlush);
    theBinding->Flush();
    PreferenceSpy::SetSynchroniseResult(false);
    theBinding->Flush();
    PreferenceSpy::TakeCalls();
    ASSERT_EQ(theFlushes.mEntries.size(), 2U);
    EXPECT_EQ(theFlushes.mEntries[0].theDetail, 1U);
    EXPECT_EQ(theFlushes.mEntries[1].theDetail, 0U);
    for (const LmJournalEntry& theEntry : theFlushes.mEntries) {
        EXPECT_EQ(theEntry.theCode, 0U);
    }
}

TEST_F(LmPreferenceBindingTest, NothingIsSynchronisedUntilTheBindingDies)
{
    theBinding->SetKeyPathValue("Key", LmValue(7UL));
    PreferenceSpy::TakeCalls();
    theBinding.reset();
    EXPECT_EQ(PreferenceSpy::TakeCalls(), Lines{"synchronise com.example.app"});
}

TEST_F(LmPreferenceBindingTest, HoldsOneReferenceToItsIdentifier)
{
    const CFStringRef theIdentifier = MakeString("com.example.other");
    {
        const LmPreferenceBinding theOther(theIdentifier);
        EXPECT_EQ(CFGetRetainCount(theIdentifier), 2);
    }
    EXPECT_EQ(CFGetRetainCount(theIdentifier), 1);
    CFRelease(theIdentifier);
}

namespace {

struct Name
{
    const char* mName;
    std::string mIdentifier;
    std::string mText;
};

const Name kNames[] = {
    {"Plain", "MyApplication", "[Preferences MyApplication]"},
    {"Empty", "", "[Preferences ]"},
    {"InMacRoman", "caf\xC3\xA9", "[Preferences caf\x8E]"},
    {"WithAPercentSign", "100%s", "[Preferences 100%s]"},
    {"AsLongAsItMayBe", std::string(255, 'x'), "[Preferences " + std::string(255, 'x') + "]"},
    {"TooLong", std::string(256, 'x'), "[Preferences ]"},
    {"NotInMacRoman", "app \xE4\xBD\xA0", "[Preferences ]"},
};

class LmPreferenceBindingName : public LmPreferenceBindingTest, public testing::WithParamInterface<Name>
{
};

} // namespace

TEST_P(LmPreferenceBindingName, IsShownInTheDebugInfo)
{
    const CFStringRef theIdentifier = MakeString(GetParam().mIdentifier.c_str());
    {
        const LmPreferenceBinding theNamed(theIdentifier);
        EXPECT_EQ(std::string(theNamed.GetDebugInfo().GetUTF8()), GetParam().mText);
    }
    CFRelease(theIdentifier);
}

INSTANTIATE_TEST_SUITE_P(, LmPreferenceBindingName, testing::ValuesIn(kNames),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

TEST_F(LmPreferenceBindingTest, AddsTheIdentifierToTheLayoutOfItsBase)
{
    EXPECT_EQ(sizeof(LmPreferenceBinding), sizeof(LmKeyValueBinding) + sizeof(CFStringRef));
    CFStringRef theIdentifier = nullptr;
    std::memcpy(static_cast<void*>(&theIdentifier),
                reinterpret_cast<const char*>(theBinding.get()) + sizeof(LmKeyValueBinding),
                sizeof theIdentifier);
    EXPECT_EQ(theIdentifier, CFSTR("com.example.app"));
}

// ---- Over the preferences of the host

namespace {

class LmPreferenceBindingHostTest : public testing::Test
{
protected:
    LmPreferenceBindingHostTest()
    {
        // The person's own preferences are not to be touched.
        setenv("LM_PREFERENCES", "memory", 1);
        PreferenceSpy::UseHost();
        const std::string theName =
            std::string("com.example.") + testing::UnitTest::GetInstance()->current_test_info()->name();
        mIdentifier = MakeString(theName.c_str());
    }

    ~LmPreferenceBindingHostTest() override
    {
        CFRelease(mIdentifier);
        PreferenceSpy::Reset();
    }

    CFStringRef mIdentifier;
};

} // namespace

TEST_F(LmPreferenceBindingHostTest, ValuesOutliveTheBindingThatWroteThem)
{
    {
        LmPreferenceBinding theWriter(mIdentifier);
        theWriter.SetKeyPathValue("on", LmValue(true));
        theWriter.SetKeyPathValue("target", LmValue(2000UL));
        theWriter.SetKeyPathValue("large", LmValue(5000000000LL));
        theWriter.SetKeyPathValue("factor", LmValue(2.5));
        theWriter.SetKeyPathValue("name", LmValue(MakeString("Quiet"), true));
        theWriter.SetKeyPathValue("place", LmValue(CGRect{{1, 2}, {30, 40}}));
    }
    const LmPreferenceBinding theReader(mIdentifier);
    EXPECT_TRUE(theReader.Flush());
    EXPECT_EQ(theReader.GetKeyPathValue("on").GetType(), kTypeBoolean);
    EXPECT_TRUE(theReader.GetKeyPathValue("on").GetBoolean());
    EXPECT_EQ(theReader.GetKeyPathValue("target").GetSInt32(), 2000);
    EXPECT_EQ(theReader.GetKeyPathValue("large").GetSInt64(), 5000000000LL);
    EXPECT_EQ(theReader.GetKeyPathValue("factor").GetDouble(), 2.5);
    EXPECT_EQ(GetText(theReader.GetKeyPathValue("name").GetString()), "Quiet");
    EXPECT_TRUE(theReader.GetKeyPathValue("place") == LmValue(CGRect{{1, 2}, {30, 40}}));
}

// Reads an integer the way that a preference file is read.
static CFTypeRef ReadInteger(long long theNumber)
{
    const std::string theText = "<plist><integer>" + std::to_string(theNumber) + "</integer></plist>";
    const CFDataRef theData = CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(theText.data()),
                                           static_cast<CFIndex>(theText.size()));
    const CFTypeRef theInteger = CFPropertyListCreateFromXMLData(nullptr, theData, 0, nullptr);
    CFRelease(theData);
    return theInteger;
}

TEST_F(LmPreferenceBindingHostTest, AWholeNumberThatWasReadHas32BitsFromMinus1To12And64Otherwise)
{
    const LmPreferenceBinding theBinding(mIdentifier);
    for (const long long theNumber : {-3LL, -2LL, -1LL, 0LL, 12LL, 13LL, 2000LL, 5000000000LL}) {
        const CFTypeRef theInteger = ReadInteger(theNumber);
        CFPreferencesSetAppValue(CFSTR("target"), theInteger, mIdentifier);
        CFRelease(theInteger);
        const LmValue theValue = theBinding.GetKeyPathValue("target");
        EXPECT_EQ(theValue.GetType(), theNumber >= -1 && theNumber <= 12 ? kTypeSInt32 : kTypeSInt64)
            << theNumber;
        EXPECT_EQ(theValue.GetSInt64(), theNumber);
    }
}

TEST_F(LmPreferenceBindingHostTest, AWholeNumberThatWasSetKeepsItsWidthButFromMinus1To12)
{
    LmPreferenceBinding theBinding(mIdentifier);
    for (const long theNumber : {-2L, -1L, 12L, 13L, 2000L}) {
        theBinding.SetKeyPathValue("short", LmValue(theNumber));
        theBinding.SetKeyPathValue("long", LmValue(static_cast<long long>(theNumber)));
        EXPECT_EQ(theBinding.GetKeyPathValue("short").GetType(), kTypeSInt32) << theNumber;
        EXPECT_EQ(theBinding.GetKeyPathValue("long").GetType(),
                  theNumber >= -1 && theNumber <= 12 ? kTypeSInt32 : kTypeSInt64)
            << theNumber;
    }
}

TEST_F(LmPreferenceBindingHostTest, TwoBindingsOfOneIdentifierShareTheirPreferences)
{
    LmPreferenceBinding theFirst(mIdentifier);
    const LmPreferenceBinding theSecond(mIdentifier);
    theFirst.SetKeyPathValue("target", LmValue(20UL));
    EXPECT_EQ(theSecond.GetKeyPathValue("target").GetSInt32(), 20);
}

TEST_F(LmPreferenceBindingHostTest, TwoIdentifiersShareNothing)
{
    LmPreferenceBinding theFirst(mIdentifier);
    const LmPreferenceBinding theOther(CFSTR("com.example.somebody-else"));
    theFirst.SetKeyPathValue("target", LmValue(20UL));
    EXPECT_FALSE(theOther.GetKeyPathValue("target").IsValid());
}

TEST_F(LmPreferenceBindingHostTest, AModelIsRestoredFromWhatItSaved)
{
    {
        LmPreferenceBinding thePreferences(mIdentifier);
        LmKeyValueBinding theModel;
        theModel.Bind("target", &thePreferences, "Target", nullptr, nullptr);
        theModel.SetKeyPathValue("target", LmValue(21UL));
    }
    LmPreferenceBinding thePreferences(mIdentifier);
    LmKeyValueBinding theModel;
    theModel.Bind("target", &thePreferences, "Target", nullptr, nullptr);
    EXPECT_EQ(theModel.GetKeyPathValue("target").GetSInt32(), 21);
}

TEST_F(LmPreferenceBindingHostTest, DatesOfOtherProgramsAreReportedAndLeftAlone)
{
    const CFDateRef theDate = CFDateCreate(nullptr, 0);
    CFPreferencesSetAppValue(CFSTR("since"), theDate, mIdentifier);
    CFRelease(theDate);
    const LmPreferenceBinding theBinding(mIdentifier);
    EXPECT_FALSE(theBinding.GetKeyPathValue("since").IsValid());
    EXPECT_EQ(
        StandardErrorCapture::TakeDiagnostics(),
        Lines{kSource + ("Unsupported value type: " + std::to_string(static_cast<long>(CFDateGetTypeID())))});
    const CFTypeRef theStored = CFPreferencesCopyAppValue(CFSTR("since"), mIdentifier);
    EXPECT_NE(theStored, nullptr);
    CFRelease(theStored);
}
