// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the parameters of an event retain, and what they convert to.

#include "EventTestSupport.h"

#include <limits>

// --- Parameters -------------------------------------------------------------------------------------

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

TEST(EventManagerParameters, ACommandReadsAsItWasStored)
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
    CFMutableStringRef theString = NewMutableString("text");
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

TEST(EventManagerParameters, AnEventInAnEventLivesAsLongAsTheOuterOne)
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

TEST(EventManagerParameters, ANullReferenceIsKeptAsItIs)
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

TEST(EventManagerParameters, PointsConvertBothWays)
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

TEST(EventManagerParameters, PointsBeyondTheRangeOfPixelsEndAtItsEdge)
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

TEST(EventManagerParameters, RectanglesConvertBothWays)
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

TEST(EventManagerParameters, DataOfTheWrongSizeIsNotConverted)
{
    const TestEvent theEvent;
    const short theHalf = 3;
    SetEventParameter(theEvent.Get(), kName, typeQDPoint, sizeof theHalf, &theHalf);
    HIPoint thePoint = CGPointZero;
    EXPECT_EQ(Read(theEvent.Get(), typeHIPoint, &thePoint), eventParameterNotFoundErr);
}

TEST(EventManagerParameters, ANumberObjectConvertsToEveryNumberType)
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

TEST(EventManagerParameters, ABooleanObjectConvertsToABooleanAlone)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeCFTypeRef, kCFBooleanTrue);
    Boolean theBoolean = 0;
    SInt32 theNumber = 0;
    EXPECT_EQ(Read(theEvent.Get(), typeBoolean, &theBoolean), noErr);
    EXPECT_EQ(theBoolean, 1);
    EXPECT_EQ(Read(theEvent.Get(), typeSInt32, &theNumber), eventParameterNotFoundErr);
}

TEST(EventManagerParameters, OtherObjectsAreNoNumbers)
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

TEST(EventManagerParameters, EveryObjectReadsAsAnObject)
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

TEST(EventManagerParameters, AStringConvertsToItsUnicodeText)
{
    TestEvent theEvent;
    CFMutableStringRef theString = NewMutableString("a\xC3\xA9");
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

TEST(EventManagerParameters, PointersAndIntegersConvertWhereTheyAreOfOneSize)
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

TEST(EventManagerParameters, TypesWithoutAConversionAreNotFound)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeUInt32, UInt32(5));
    Boolean theBoolean = 0;
    EXPECT_EQ(Read(theEvent.Get(), typeBoolean, &theBoolean), eventParameterNotFoundErr);
}
