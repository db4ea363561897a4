// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Events and their parameters, as the platform's headers describe them.

#include "EventTestSupport.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <Simulation/VirtualClock.h>

namespace {

static_assert(sizeof(Point) == 4, "two shorts");
static_assert(sizeof(Rect) == 8, "four shorts");
static_assert(sizeof(RGBColor) == 6, "three shorts");
static_assert(sizeof(EventTypeSpec) == 8, "packed");
static_assert(sizeof(HICommand) == 10 + sizeof(void*), "packed: 14 bytes on 32-bit hosts");
static_assert(sizeof(HICommandExtended) == sizeof(HICommand), "one may be read where the other is stored");
static_assert(offsetof(HICommand, menu) == 8, "as the platform has it");
static_assert(offsetof(HICommandExtended, source) == 8, "as the platform has it");
static_assert(sizeof(ProcessSerialNumber) == 8, "two words");
static_assert(sizeof(EventRecord) == 16, "packed");
static_assert(offsetof(EventRecord, message) == 2, "packed");
static_assert(kEventDurationForever == -1.0, "the platform's number");

const EventParamName kName = 'name';

template <class Type>
OSStatus Read(EventRef theEvent, EventParamType theType, Type* theValue)
{
    return GetEventParameter(theEvent, kName, theType, nullptr, sizeof *theValue, nullptr, theValue);
}

CFMutableStringRef NewString(const char* theText)
{
    CFMutableStringRef theString = CFStringCreateMutable(nullptr, 0);
    CFStringAppendCString(theString, theText, kCFStringEncodingUTF8);
    return theString;
}

} // namespace

// --- Life -------------------------------------------------------------------------------------------

TEST(EventManager, ANewEventHasWhatItWasMadeWithAndOneReference)
{
    EventRef theEvent = nullptr;
    ASSERT_EQ(CreateEvent(nullptr, 'abcd', 7, 12.5, kEventAttributeUserEvent, &theEvent), noErr);
    EXPECT_EQ(GetEventClass(theEvent), OSType('abcd'));
    EXPECT_EQ(GetEventKind(theEvent), 7u);
    EXPECT_EQ(GetEventTime(theEvent), 12.5);
    EXPECT_EQ(GetEventRetainCount(theEvent), 1u);
    ReleaseEvent(theEvent);
}

TEST(EventManager, ATimeOfZeroMeansNow)
{
    Host::VirtualClock theClock(500);
    const TestEvent theEvent;
    EXPECT_EQ(GetEventTime(theEvent.Get()), 500);
    theClock.Advance(3);
    EXPECT_EQ(GetCurrentEventTime(), 503);
    EXPECT_EQ(GetEventTime(theEvent.Get()), 500);
}

TEST(EventManager, TheMachinesClockDoesNotGoBack)
{
    const EventTime theFirst = GetCurrentEventTime();
    EXPECT_GE(GetCurrentEventTime(), theFirst);
}

TEST(EventManager, SettingTheTimeReplacesIt)
{
    const TestEvent theEvent;
    EXPECT_EQ(SetEventTime(theEvent.Get(), 42), noErr);
    EXPECT_EQ(GetEventTime(theEvent.Get()), 42);
}

TEST(EventManager, RetainingReturnsTheEventAndCounts)
{
    const TestEvent theEvent;
    EXPECT_EQ(RetainEvent(theEvent.Get()), theEvent.Get());
    EXPECT_EQ(GetEventRetainCount(theEvent.Get()), 2u);
    ReleaseEvent(theEvent.Get());
    EXPECT_EQ(GetEventRetainCount(theEvent.Get()), 1u);
}

TEST(EventManager, CreatingWithoutAPlaceForTheEventFails)
{
    EXPECT_EQ(CreateEvent(nullptr, 'abcd', 1, 0, 0, nullptr), paramErr);
}

TEST(EventManager, ACopyHasTheSameParametersAndALifeOfItsOwn)
{
    EventRef theCopy = nullptr;
    {
        TestEvent theEvent(3);
        theEvent.Set(kName, typeUInt32, UInt32(11));
        SetEventTime(theEvent.Get(), 9);
        theCopy = CopyEvent(theEvent.Get());
        theEvent.Set(kName, typeUInt32, UInt32(12));
    }
    UInt32 theValue = 0;
    EXPECT_EQ(Read(theCopy, typeUInt32, &theValue), noErr);
    EXPECT_EQ(theValue, 11u);
    EXPECT_EQ(GetEventClass(theCopy), kTestClass);
    EXPECT_EQ(GetEventKind(theCopy), 3u);
    EXPECT_EQ(GetEventTime(theCopy), 9);
    EXPECT_EQ(GetEventRetainCount(theCopy), 1u);
    ReleaseEvent(theCopy);
}

TEST(EventManager, ACopyUnderAnotherNameKeepsEverythingElse)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeUInt32, UInt32(11));
    EventRef theCopy = CopyEventAs(nullptr, theEvent.Get(), 'wxyz', 99);
    UInt32 theValue = 0;
    EXPECT_EQ(GetEventClass(theCopy), OSType('wxyz'));
    EXPECT_EQ(GetEventKind(theCopy), 99u);
    EXPECT_EQ(Read(theCopy, typeUInt32, &theValue), noErr);
    EXPECT_EQ(theValue, 11u);
    ReleaseEvent(theCopy);
}

// --- References that are none -----------------------------------------------------------------------

class BadEventReference : public testing::TestWithParam<int>
{
protected:
    static EventRef Reference()
    {
        switch (GetParam()) {
        case 0:
            return nullptr;
        case 1: {
            EventRef theEvent = nullptr;
            CreateEvent(nullptr, 'abcd', 7, 1, 0, &theEvent);
            ReleaseEvent(theEvent);
            return theEvent;
        }
        case 2:
            return InventedReference<EventRef>();
        default:
            return reinterpret_cast<EventRef>(GetApplicationEventTarget());
        }
    }
};

TEST_P(BadEventReference, GetsAStatusFromEveryCall)
{
    const EventRef theEvent = Reference();
    UInt32 theValue = 5;
    EXPECT_EQ(GetEventClass(theEvent), 0u);
    EXPECT_EQ(GetEventKind(theEvent), 0u);
    EXPECT_EQ(GetEventTime(theEvent), 0);
    EXPECT_EQ(SetEventTime(theEvent, 1), paramErr);
    EXPECT_EQ(GetEventRetainCount(theEvent), 0u);
    EXPECT_EQ(RetainEvent(theEvent), nullptr);
    ReleaseEvent(theEvent);
    EXPECT_EQ(CopyEvent(theEvent), nullptr);
    EXPECT_EQ(CopyEventAs(nullptr, theEvent, 'abcd', 1), nullptr);
    EXPECT_EQ(SetEventParameter(theEvent, kName, typeUInt32, sizeof theValue, &theValue), paramErr);
    EXPECT_EQ(Read(theEvent, typeUInt32, &theValue), paramErr);
    EXPECT_EQ(theValue, 5u);
    EXPECT_EQ(RemoveEventParameter(theEvent, kName), paramErr);
    EXPECT_EQ(SendEventToEventTarget(theEvent, GetApplicationEventTarget()), paramErr);
    EXPECT_EQ(PostEventToQueue(GetMainEventQueue(), theEvent, kEventPriorityStandard), paramErr);
    EXPECT_FALSE(IsEventInQueue(GetMainEventQueue(), theEvent));
    EXPECT_EQ(RemoveEventFromQueue(GetMainEventQueue(), theEvent), paramErr);
}

INSTANTIATE_TEST_SUITE_P(NullReleasedInventedAndOfAnotherKind, BadEventReference, testing::Range(0, 4));

TEST(EventManager, AReleasedReferenceDoesNotComeToNameANewEvent)
{
    EventRef theOld = nullptr;
    CreateEvent(nullptr, 'abcd', 1, 0, 0, &theOld);
    ReleaseEvent(theOld);
    for (int theRound = 0; theRound < 1000; ++theRound) {
        const TestEvent theNew;
        ASSERT_NE(theNew.Get(), theOld);
    }
}

// --- Parameters -------------------------------------------------------------------------------------

TEST(EventManager, AParameterIsACopyOfTheBytes)
{
    TestEvent theEvent;
    UInt32 theValue = 17;
    theEvent.Set(kName, typeUInt32, theValue);
    theValue = 18;
    EXPECT_EQ(Read(theEvent.Get(), typeUInt32, &theValue), noErr);
    EXPECT_EQ(theValue, 17u);
}

TEST(EventManager, SettingAParameterAgainReplacesValueAndType)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeUInt32, UInt32(17));
    theEvent.Set(kName, typeBoolean, Boolean(1));
    EventParamType theType = 0;
    Boolean theValue = 0;
    EXPECT_EQ(
        GetEventParameter(theEvent.Get(), kName, typeWildCard, &theType, sizeof theValue, nullptr, &theValue),
        noErr);
    EXPECT_EQ(theType, EventParamType(typeBoolean));
    EXPECT_EQ(theValue, 1);
    UInt32 theOld = 0;
    EXPECT_EQ(Read(theEvent.Get(), typeUInt32, &theOld), eventParameterNotFoundErr);
}

TEST(EventManager, AMissingParameterIsNotFound)
{
    const TestEvent theEvent;
    UInt32 theValue = 5;
    EXPECT_EQ(Read(theEvent.Get(), typeUInt32, &theValue), eventParameterNotFoundErr);
    EXPECT_EQ(theValue, 5u);
    EXPECT_EQ(RemoveEventParameter(theEvent.Get(), kName), eventParameterNotFoundErr);
}

TEST(EventManager, ARemovedParameterIsGoneAndTheOthersStay)
{
    TestEvent theEvent;
    theEvent.Set('frst', typeUInt32, UInt32(1));
    theEvent.Set(kName, typeUInt32, UInt32(2));
    theEvent.Set('last', typeUInt32, UInt32(3));
    UInt32 theValue = 0;
    EXPECT_EQ(RemoveEventParameter(theEvent.Get(), kName), noErr);
    EXPECT_EQ(Read(theEvent.Get(), typeUInt32, &theValue), eventParameterNotFoundErr);
    GetEventParameter(theEvent.Get(), 'frst', typeUInt32, nullptr, sizeof theValue, nullptr, &theValue);
    EXPECT_EQ(theValue, 1u);
    GetEventParameter(theEvent.Get(), 'last', typeUInt32, nullptr, sizeof theValue, nullptr, &theValue);
    EXPECT_EQ(theValue, 3u);
}

TEST(EventManager, TheSizeOfAParameterCanBeAskedFor)
{
    const TestEvent theEvent;
    SetEventParameter(theEvent.Get(), kName, typeUTF8Text, 5, "hello");
    EventParamType theType = 0;
    ByteCount theSize = 0;
    EXPECT_EQ(GetEventParameter(theEvent.Get(), kName, typeWildCard, &theType, 0, &theSize, nullptr), noErr);
    EXPECT_EQ(theSize, 5u);
    EXPECT_EQ(theType, EventParamType(typeUTF8Text));
}

TEST(EventManager, ABufferThatIsTooSmallIsLeftAlone)
{
    const TestEvent theEvent;
    SetEventParameter(theEvent.Get(), kName, typeUTF8Text, 5, "hello");
    char theBuffer[5] = {'.', '.', '.', '.', '.'};
    ByteCount theSize = 0;
    EXPECT_EQ(GetEventParameter(theEvent.Get(), kName, typeUTF8Text, nullptr, 4, &theSize, theBuffer),
              paramErr);
    EXPECT_EQ(theSize, 5u);
    EXPECT_EQ(std::string(theBuffer, 5), ".....");
}

TEST(EventManager, ALargerBufferIsFilledAsFarAsTheDataGoes)
{
    const TestEvent theEvent;
    SetEventParameter(theEvent.Get(), kName, typeUTF8Text, 2, "hi");
    char theBuffer[4] = {'.', '.', '.', '.'};
    EXPECT_EQ(GetEventParameter(theEvent.Get(), kName, typeUTF8Text, nullptr, 4, nullptr, theBuffer), noErr);
    EXPECT_EQ(std::string(theBuffer, 4), "hi..");
}

TEST(EventManager, AParameterMayBeEmpty)
{
    const TestEvent theEvent;
    char theBuffer = '.';
    ByteCount theSize = 9;
    EXPECT_EQ(SetEventParameter(theEvent.Get(), kName, typeUTF8Text, 0, nullptr), noErr);
    EXPECT_EQ(GetEventParameter(theEvent.Get(), kName, typeUTF8Text, nullptr, 0, &theSize, &theBuffer),
              noErr);
    EXPECT_EQ(theSize, 0u);
    EXPECT_EQ(theBuffer, '.');
}

struct BadParameter
{
    const char* theCase;
    EventParamType theType;
    ByteCount theSize;
    bool theHasData;
};

class BadParameters : public testing::TestWithParam<BadParameter>
{
};

TEST_P(BadParameters, AreRefused)
{
    const TestEvent theEvent;
    const UInt64 theBytes = 0;
    const BadParameter& theCase = GetParam();
    EXPECT_EQ(SetEventParameter(theEvent.Get(), kName, theCase.theType, theCase.theSize,
                                theCase.theHasData ? &theBytes : nullptr),
              paramErr)
        << theCase.theCase;
    ByteCount theSize = 0;
    EXPECT_EQ(GetEventParameter(theEvent.Get(), kName, typeWildCard, nullptr, 0, &theSize, nullptr),
              eventParameterNotFoundErr);
}

INSTANTIATE_TEST_SUITE_P(
    EachKind, BadParameters,
    testing::Values(BadParameter{"bytes without data", typeUInt32, 4, false},
                    BadParameter{"no type", typeWildCard, 4, true},
                    BadParameter{"a string of the wrong size", typeCFStringRef, sizeof(void*) - 1, true},
                    BadParameter{"no string", typeCFTypeRef, 0, false},
                    BadParameter{"an event of the wrong size", typeEventRef, 1, true},
                    BadParameter{"more than there is memory", typeUTF8Text, ~ByteCount(0), true}));

TEST(EventManager, ACommandReadsAsItWasStored)
{
    TestEvent theEvent;
    HICommandExtended theStored{};
    theStored.attributes = kHICommandFromMenu;
    theStored.commandID = kHICommandSave;
    theStored.source.menu.menuItemIndex = 4;
    theEvent.Set(kEventParamDirectObject, typeHICommand, theStored);
    HICommand theCommand{};
    EXPECT_EQ(GetEventParameter(theEvent.Get(), kEventParamDirectObject, typeHICommand, nullptr,
                                sizeof theCommand, nullptr, &theCommand),
              noErr);
    const UInt32 theID = theCommand.commandID;
    const MenuItemIndex theItem = theCommand.menu.menuItemIndex;
    EXPECT_EQ(theID, UInt32(kHICommandSave));
    EXPECT_EQ(theItem, 4);
}

// --- What an event retains --------------------------------------------------------------------------

class RetainedTypes : public testing::TestWithParam<EventParamType>
{
};

TEST_P(RetainedTypes, LiveAsLongAsTheEventHoldsThem)
{
    CFMutableStringRef theString = NewString("text");
    {
        TestEvent theEvent;
        theEvent.Set(kName, GetParam(), theString);
        EXPECT_EQ(CFGetRetainCount(theString), 2);
        theEvent.Set(kName, GetParam(), theString);
        EXPECT_EQ(CFGetRetainCount(theString), 2);
        EventRef theCopy = CopyEvent(theEvent.Get());
        EXPECT_EQ(CFGetRetainCount(theString), 3);
        ReleaseEvent(theCopy);
        EXPECT_EQ(CFGetRetainCount(theString), 2);
        CFTypeRef theRead = nullptr;
        EXPECT_EQ(Read(theEvent.Get(), GetParam(), &theRead), noErr);
        EXPECT_EQ(theRead, CFTypeRef(theString));
        EXPECT_EQ(CFGetRetainCount(theString), 2);
        RemoveEventParameter(theEvent.Get(), kName);
        EXPECT_EQ(CFGetRetainCount(theString), 1);
        theEvent.Set(kName, GetParam(), theString);
    }
    EXPECT_EQ(CFGetRetainCount(theString), 1);
    CFRelease(theString);
}

INSTANTIATE_TEST_SUITE_P(EachType, RetainedTypes,
                         testing::Values(EventParamType(typeCFStringRef),
                                         EventParamType(typeCFMutableStringRef),
                                         EventParamType(typeCFArrayRef),
                                         EventParamType(typeCFMutableArrayRef),
                                         EventParamType(typeCFDictionaryRef), EventParamType(typeCFTypeRef)));

TEST(EventManager, AnEventInAnEventLivesAsLongAsTheOuterOne)
{
    EventRef theInner = nullptr;
    CreateEvent(nullptr, 'innr', 1, 0, 0, &theInner);
    {
        TestEvent theEvent;
        theEvent.Set(kName, typeEventRef, theInner);
        EXPECT_EQ(GetEventRetainCount(theInner), 2u);
        ReleaseEvent(theInner);
        EXPECT_EQ(GetEventClass(theInner), OSType('innr'));
    }
    EXPECT_EQ(GetEventClass(theInner), 0u);
}

TEST(EventManager, ANullReferenceIsKeptAsItIs)
{
    TestEvent theEvent;
    CFStringRef theString = nullptr;
    EventRef theInner = nullptr;
    theEvent.Set(kName, typeCFStringRef, theString);
    theEvent.Set('evnt', typeEventRef, theInner);
    CFStringRef theRead = CFSTR("other");
    EXPECT_EQ(Read(theEvent.Get(), typeCFStringRef, &theRead), noErr);
    EXPECT_EQ(theRead, nullptr);
}

// --- Conversions ------------------------------------------------------------------------------------

TEST(EventManager, PointsConvertBothWays)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeHIPoint, CGPointMake(10.75F, -0.5F));
    Point thePixels = {0, 0};
    EXPECT_EQ(Read(theEvent.Get(), typeQDPoint, &thePixels), noErr);
    EXPECT_EQ(thePixels.h, 10);
    EXPECT_EQ(thePixels.v, -1);
    theEvent.Set(kName, typeQDPoint, Point{7, -3});
    HIPoint thePoint = CGPointZero;
    EXPECT_EQ(Read(theEvent.Get(), typeHIPoint, &thePoint), noErr);
    EXPECT_EQ(thePoint.x, -3);
    EXPECT_EQ(thePoint.y, 7);
}

TEST(EventManager, PointsBeyondTheRangeOfPixelsEndAtItsEdge)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeHIPoint, CGPointMake(1e30F, -std::numeric_limits<CGFloat>::infinity()));
    Point thePixels = {0, 0};
    EXPECT_EQ(Read(theEvent.Get(), typeQDPoint, &thePixels), noErr);
    EXPECT_EQ(thePixels.h, 32767);
    EXPECT_EQ(thePixels.v, -32768);
    theEvent.Set(kName, typeHIPoint, CGPointMake(std::numeric_limits<CGFloat>::quiet_NaN(), 1));
    EXPECT_EQ(Read(theEvent.Get(), typeQDPoint, &thePixels), noErr);
    EXPECT_EQ(thePixels.h, 0);
    EXPECT_EQ(thePixels.v, 1);
}

TEST(EventManager, RectanglesConvertBothWays)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeQDRectangle, Rect{-10, 20, 30, 25});
    HIRect theRect = CGRectZero;
    EXPECT_EQ(Read(theEvent.Get(), typeHIRect, &theRect), noErr);
    EXPECT_TRUE(CGRectEqualToRect(theRect, CGRectMake(20, -10, 5, 40)));
    theEvent.Set(kName, typeHIRect, CGRectMake(1.5F, 2, 10, 20));
    Rect thePixels = {0, 0, 0, 0};
    EXPECT_EQ(Read(theEvent.Get(), typeQDRectangle, &thePixels), noErr);
    EXPECT_EQ(thePixels.left, 1);
    EXPECT_EQ(thePixels.top, 2);
    EXPECT_EQ(thePixels.right, 11);
    EXPECT_EQ(thePixels.bottom, 22);
}

TEST(EventManager, DataOfTheWrongSizeIsNotConverted)
{
    const TestEvent theEvent;
    const short theHalf = 3;
    SetEventParameter(theEvent.Get(), kName, typeQDPoint, sizeof theHalf, &theHalf);
    HIPoint thePoint = CGPointZero;
    EXPECT_EQ(Read(theEvent.Get(), typeHIPoint, &thePoint), eventParameterNotFoundErr);
}

TEST(EventManager, ANumberObjectConvertsToEveryNumberType)
{
    const SInt32 theNumber = 70000;
    CFNumberRef theObject = CFNumberCreate(nullptr, kCFNumberSInt32Type, &theNumber);
    TestEvent theEvent;
    theEvent.Set(kName, typeCFTypeRef, theObject);
    SInt16 theShort = 0;
    SInt32 theSigned = 0;
    UInt32 theUnsigned = 0;
    SInt64 theLong = 0;
    Float32 theFloat = 0;
    Float64 theDouble = 0;
    Boolean theBoolean = 0;
    EXPECT_EQ(Read(theEvent.Get(), typeSInt16, &theShort), noErr);
    EXPECT_EQ(Read(theEvent.Get(), typeSInt32, &theSigned), noErr);
    EXPECT_EQ(Read(theEvent.Get(), typeUInt32, &theUnsigned), noErr);
    EXPECT_EQ(Read(theEvent.Get(), typeSInt64, &theLong), noErr);
    EXPECT_EQ(Read(theEvent.Get(), typeIEEE32BitFloatingPoint, &theFloat), noErr);
    EXPECT_EQ(Read(theEvent.Get(), typeIEEE64BitFloatingPoint, &theDouble), noErr);
    EXPECT_EQ(Read(theEvent.Get(), typeBoolean, &theBoolean), noErr);
    EXPECT_EQ(theShort, 4464);
    EXPECT_EQ(theSigned, 70000);
    EXPECT_EQ(theUnsigned, 70000u);
    EXPECT_EQ(theLong, 70000);
    EXPECT_EQ(theFloat, 70000);
    EXPECT_EQ(theDouble, 70000);
    EXPECT_EQ(theBoolean, 1);
    Point thePoint = {0, 0};
    EXPECT_EQ(Read(theEvent.Get(), typeQDPoint, &thePoint), eventParameterNotFoundErr);
    CFRelease(theObject);
}

TEST(EventManager, ABooleanObjectConvertsToABooleanAlone)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeCFTypeRef, kCFBooleanTrue);
    Boolean theBoolean = 0;
    SInt32 theNumber = 0;
    EXPECT_EQ(Read(theEvent.Get(), typeBoolean, &theBoolean), noErr);
    EXPECT_EQ(theBoolean, 1);
    EXPECT_EQ(Read(theEvent.Get(), typeSInt32, &theNumber), eventParameterNotFoundErr);
}

TEST(EventManager, OtherObjectsAreNoNumbers)
{
    TestEvent theEvent;
    CFStringRef theString = CFSTR("5");
    CFTypeRef theNothing = nullptr;
    SInt32 theNumber = 0;
    theEvent.Set(kName, typeCFTypeRef, theString);
    EXPECT_EQ(Read(theEvent.Get(), typeSInt32, &theNumber), eventParameterNotFoundErr);
    theEvent.Set(kName, typeCFTypeRef, theNothing);
    EXPECT_EQ(Read(theEvent.Get(), typeSInt32, &theNumber), eventParameterNotFoundErr);
}

TEST(EventManager, EveryObjectReadsAsAnObject)
{
    TestEvent theEvent;
    CFStringRef theString = CFSTR("text");
    theEvent.Set(kName, typeCFStringRef, theString);
    CFTypeRef theObject = nullptr;
    EventParamType theType = 0;
    EXPECT_EQ(GetEventParameter(theEvent.Get(), kName, typeCFTypeRef, &theType, sizeof theObject, nullptr,
                                &theObject),
              noErr);
    EXPECT_EQ(theObject, CFTypeRef(theString));
    EXPECT_EQ(theType, EventParamType(typeCFTypeRef));
}

TEST(EventManager, AStringConvertsToItsUnicodeText)
{
    TestEvent theEvent;
    CFMutableStringRef theString = NewString("a\xC3\xA9");
    CFStringRef theStored = theString;
    theEvent.Set(kName, typeCFStringRef, theStored);
    UniChar theText[2] = {0, 0};
    ByteCount theSize = 0;
    EXPECT_EQ(
        GetEventParameter(theEvent.Get(), kName, typeUnicodeText, nullptr, sizeof theText, &theSize, theText),
        noErr);
    EXPECT_EQ(theSize, 4u);
    EXPECT_EQ(theText[0], 'a');
    EXPECT_EQ(theText[1], 0xE9);
    CFRelease(theString);
}

TEST(EventManager, PointersAndIntegersConvertWhereTheyAreOfOneSize)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeVoidPtr, static_cast<void*>(&theEvent));
    UInt32 theNumber = 0;
    const bool theIsSameSize = sizeof(void*) == sizeof(UInt32);
    EXPECT_EQ(Read(theEvent.Get(), typeUInt32, &theNumber),
              theIsSameSize ? OSStatus(noErr) : OSStatus(eventParameterNotFoundErr));
    if (theIsSameSize) {
        EXPECT_EQ(theNumber, static_cast<UInt32>(reinterpret_cast<uintptr_t>(&theEvent)));
    }
    theEvent.Set(kName, typeSInt32, SInt32(5));
    void* thePointer = nullptr;
    EXPECT_EQ(Read(theEvent.Get(), typeVoidPtr, &thePointer),
              theIsSameSize ? OSStatus(noErr) : OSStatus(eventParameterNotFoundErr));
}

TEST(EventManager, TypesWithoutAConversionAreNotFound)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeUInt32, UInt32(5));
    Boolean theBoolean = 0;
    EXPECT_EQ(Read(theEvent.Get(), typeBoolean, &theBoolean), eventParameterNotFoundErr);
}

// --- Small things -----------------------------------------------------------------------------------

TEST(EventManager, AUPPIsTheFunctionItself)
{
    const EventHandlerProcPtr theFunction = [](EventHandlerCallRef, EventRef, void* theData) {
        *static_cast<int*>(theData) += 1;
        return OSStatus(77);
    };
    const EventHandlerUPP theUPP = NewEventHandlerUPP(theFunction);
    EXPECT_EQ(theUPP, theFunction);
    int theCount = 0;
    EXPECT_EQ(InvokeEventHandlerUPP(nullptr, nullptr, &theCount, theUPP), 77);
    EXPECT_EQ(theCount, 1);
    DisposeEventHandlerUPP(theUPP);
}

static OSStatus OneShot(EventHandlerCallRef, EventRef, void*)
{
    return noErr;
}
static DEFINE_ONE_SHOT_HANDLER_GETTER(OneShot)

    TEST(EventManager, AHandlerGetterGivesTheSameUPPEachTime)
{
    EXPECT_EQ(GetOneShotUPP(), EventHandlerUPP(OneShot));
    EXPECT_EQ(GetOneShotUPP(), GetOneShotUPP());
}

TEST(EventManager, TicksAreSixtiethsOfASecond)
{
    EXPECT_EQ(TicksToEventTime(90), 1.5);
    EXPECT_EQ(EventTimeToTicks(1.5), 90u); // NOLINT(bugprone-incorrect-roundings): so the macro rounds
    EXPECT_EQ(kEventDurationDay, 24 * kEventDurationHour);
    EXPECT_EQ(kEventDurationHour, 60 * kEventDurationMinute);
}
