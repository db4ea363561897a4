// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Events and their parameters, as the platform's headers describe them.

#include "EventTestSupport.h"

#include <cstring>

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

TEST(EventManager, AMenuThatDiesWithAParameterFindsTheEventInOrder)
{
    TestEvent theEvent;
    MenuRef theMenu = nullptr;
    ASSERT_EQ(CreateNewMenu(1, 0, &theMenu), noErr);
    theEvent.Set('one ', typeUInt32, UInt32(1));
    theEvent.Set(kName, typeMenuRef, theMenu);
    theEvent.Set('two ', typeUInt32, UInt32(2));
    Log theLog;
    const TestHandler theHandler(GetMenuEventTarget(theMenu), "dispose", theLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     for (UInt32 theNumber = 0; theNumber < 20; ++theNumber) {
                                         theEvent.Set('more' + theNumber, typeUInt32, theNumber);
                                     }
                                     RemoveEventParameter(theEvent.Get(), 'one ');
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassMenu, kEventMenuDispose}});
    DisposeMenu(theMenu);
    EXPECT_EQ(theLog, Log{});
    EXPECT_EQ(RemoveEventParameter(theEvent.Get(), kName), noErr);
    EXPECT_EQ(theLog, Log{"dispose"});
    EXPECT_EQ(RemoveEventParameter(theEvent.Get(), 'one '), eventParameterNotFoundErr);
    EXPECT_EQ(Parameter<UInt32>(theEvent.Get(), 'two ', typeUInt32), 2u);
    EXPECT_EQ(Parameter<UInt32>(theEvent.Get(), 'more' + 19, typeUInt32), 19u);
}
