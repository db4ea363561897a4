// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The calls on a control's numbers, states, bounds, titles and identity, as the platform's headers describe
// them.

#include "ManagerTestSupport.h"

namespace {

using ControlManager = ManagerTest;

class EveryControlsKind : public EveryControl
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, EveryControlsKind, testing::ValuesIn(EveryKind()),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

// --- Every kind --------------------------------------------------------------------------------------

TEST_P(EveryControlsKind, TellsItsKind)
{
    ControlRef theControl = Make();
    ControlKind theKind = {0, 0};
    EXPECT_EQ(GetControlKind(theControl, &theKind), noErr);
    EXPECT_EQ(OSType{theKind.signature}, OSType{kControlKindSignatureApple});
    EXPECT_EQ(OSType{theKind.kind}, GetParam().theKind);
    theKind = {0, 0};
    EXPECT_EQ(GetControlData(theControl, 0, kControlKindTag, sizeof theKind, &theKind, nullptr), noErr);
    EXPECT_EQ(OSType{theKind.kind}, GetParam().theKind);
    EXPECT_EQ(SetControlData(theControl, 0, kControlKindTag, sizeof theKind, &theKind), errDataNotSupported);
}

// --- Values ------------------------------------------------------------------------------------------

TEST_F(ControlManager, SixteenBitCallsReadTheLowerHalf)
{
    ControlRef theSlider = NewSlider(0x12345, 0x12345 - 1, 0x54321);
    EXPECT_EQ(GetControlValue(theSlider), 0x2345);
    EXPECT_EQ(GetControlMinimum(theSlider), 0x2344);
    EXPECT_EQ(GetControlMaximum(theSlider), 0x4321);
    SetControlMinimum(theSlider, -5);
    SetControlMaximum(theSlider, 500);
    SetControlValue(theSlider, -3);
    EXPECT_EQ(GetControl32BitMinimum(theSlider), -5);
    EXPECT_EQ(GetControl32BitMaximum(theSlider), 500);
    EXPECT_EQ(GetControl32BitValue(theSlider), -3);
    EXPECT_EQ(GetControlValue(theSlider), -3);
}

// --- States ------------------------------------------------------------------------------------------

TEST_F(ControlManager, ShowAndHideAreTheOtherNamesOfVisibility)
{
    ControlRef theSlider = NewSlider();
    HideControl(theSlider);
    EXPECT_FALSE(IsControlVisible(theSlider));
    ShowControl(theSlider);
    EXPECT_TRUE(IsControlVisible(theSlider));
}

TEST_F(ControlManager, HiliteDisablesAndDeactivatesToo)
{
    ControlRef theButton = NewPushButton();
    HiliteControl(theButton, kControlDisabledPart);
    EXPECT_FALSE(IsControlEnabled(theButton));
    EXPECT_EQ(GetControlHilite(theButton), kControlDisabledPart);
    HiliteControl(theButton, 0);
    EXPECT_TRUE(IsControlEnabled(theButton));
    HiliteControl(theButton, kControlInactivePart);
    EXPECT_FALSE(IsControlActive(theButton));
    EXPECT_EQ(GetControlHilite(theButton), kControlInactivePart);
    HiliteControl(theButton, 0);
    EXPECT_TRUE(IsControlActive(theButton));
    HiliteControl(theButton, -1);
    HiliteControl(theButton, 256);
    HiliteControl(nullptr, 1);
    EXPECT_EQ(GetControlHilite(theButton), 0);
    EXPECT_EQ(GetControlHilite(nullptr), 0);
}

// --- Bounds ------------------------------------------------------------------------------------------

TEST_F(ControlManager, MovingAndSizingKeepTheRest)
{
    ControlRef theSlider = NewSlider();
    Rect theBounds;
    MoveControl(theSlider, -5, 7);
    EXPECT_EQ(Describe(*GetControlBounds(theSlider, &theBounds)), "-5, 7, 111, 27");
    SizeControl(theSlider, 50, 60);
    EXPECT_EQ(Describe(*GetControlBounds(theSlider, &theBounds)), "-5, 7, 45, 67");
    MoveControl(theSlider, 32767, 0);
    EXPECT_EQ(Describe(*GetControlBounds(theSlider, &theBounds)), "32767, 0, 32767, 60");
}

TEST_F(ControlManager, BoundsOfBadReferencesAreEmpty)
{
    Rect theBounds = MakeRect(1, 2, 3, 4);
    EXPECT_EQ(Describe(*GetControlBounds(nullptr, &theBounds)), "0, 0, 0, 0");
    EXPECT_EQ(GetControlBounds(nullptr, nullptr), nullptr);
    ControlRef theSlider = NewSlider();
    Watch(theSlider, "slider");
    SetControlBounds(nullptr, &theBounds);
    SetControlBounds(theSlider, nullptr);
    MoveControl(nullptr, 1, 1);
    SizeControl(nullptr, 1, 1);
    EXPECT_EQ(Describe(*GetControlBounds(theSlider, &theBounds)), "10, 10, 126, 30");
    EXPECT_EQ(TakeLog(), Log{});
}

// --- Titles ------------------------------------------------------------------------------------------

TEST_F(ControlManager, TitlesComeAndGoAsStrings)
{
    ControlRef theButton = NewPushButton("Caf\xC3\xA9");
    CFStringRef theTitle = nullptr;
    EXPECT_EQ(CopyControlTitleAsCFString(theButton, &theTitle), noErr);
    EXPECT_EQ(TextOf(theTitle), "Caf\xC3\xA9");
    CFRelease(theTitle);
    EXPECT_EQ(SetControlTitleWithCFString(theButton, nullptr), paramErr);
    EXPECT_EQ(SetControlTitleWithCFString(nullptr, CFSTR("x")), errUnknownControl);
    EXPECT_EQ(CopyControlTitleAsCFString(nullptr, &theTitle), errUnknownControl);
    EXPECT_EQ(theTitle, nullptr);
    EXPECT_EQ(CopyControlTitleAsCFString(theButton, nullptr), paramErr);
}

TEST_F(ControlManager, ATitleIsACopy)
{
    ControlRef theButton = NewPushButton();
    CFMutableStringRef theTitle = CFStringCreateMutableCopy(nullptr, 0, CFSTR("First"));
    SetControlTitleWithCFString(theButton, theTitle);
    CFStringAppend(theTitle, CFSTR(" and more"));
    CFRelease(theTitle);
    CFStringRef theRead = nullptr;
    CopyControlTitleAsCFString(theButton, &theRead);
    EXPECT_EQ(TextOf(theRead), "First");
    EXPECT_EQ(CFGetRetainCount(theRead), 1);
    CFRelease(theRead);
}

// --- Identity ----------------------------------------------------------------------------------------

TEST_F(ControlManager, KeepsCommandReferenceAndAction)
{
    ControlRef theButton = NewPushButton();
    EXPECT_EQ(SetControlCommandID(theButton, 'doit'), noErr);
    UInt32 theCommand = 0;
    EXPECT_EQ(GetControlCommandID(theButton, &theCommand), noErr);
    EXPECT_EQ(theCommand, UInt32{'doit'});
    SRefCon theReference = {};
    static_assert(sizeof theReference >= 4, "the platform gives it 32 bits at least");
    SetControlReference(theButton, theReference);
    EXPECT_EQ(GetControlReference(theButton), theReference);
    static ControlPartCode sPart = 0;
    ControlActionUPP theAction =
        NewControlActionUPP([](ControlRef, ControlPartCode thePart) { sPart = thePart; });
    SetControlAction(theButton, theAction);
    EXPECT_EQ(GetControlAction(theButton), theAction);
    InvokeControlActionUPP(theButton, 7, theAction);
    InvokeControlActionUPP(theButton, 8, nullptr);
    EXPECT_EQ(sPart, 7);
    DisposeControlActionUPP(theAction);
}

TEST_F(ControlManager, TellsItsFeatures)
{
    UInt32 theFeatures = 0;
    EXPECT_EQ(GetControlFeatures(NewGroupBox(), &theFeatures), noErr);
    EXPECT_EQ(theFeatures, UInt32{kControlSupportsEmbedding});
    EXPECT_EQ(GetControlFeatures(NewCheckBox(0, true), &theFeatures), noErr);
    EXPECT_EQ(theFeatures & kControlAutoToggles, UInt32{kControlAutoToggles});
    EXPECT_EQ(GetControlFeatures(NewCheckBox(0, false), &theFeatures), noErr);
    EXPECT_EQ(theFeatures & kControlAutoToggles, 0u);
    EXPECT_EQ(GetControlFeatures(nullptr, &theFeatures), errUnknownControl);
    EXPECT_EQ(theFeatures, 0u);
}

// --- Bad references ----------------------------------------------------------------------------------

TEST_F(ControlManager, BadReferencesGiveAStatusAndNothingElse)
{
    ControlRef theDisposed = NewSlider();
    DisposeControl(theDisposed);
    // A window's reference is a reference to something, but not to a control.
    ControlRef theForeign = reinterpret_cast<ControlRef>(mWindow);
    for (ControlRef theBad :
         {ControlRef{nullptr}, theDisposed, theForeign, InventedReference<ControlRef>()}) {
        ControlKind theKind;
        ControlID theID = {1, 2};
        UInt32 theCommand = 3;
        EXPECT_EQ(GetControlKind(theBad, &theKind), errUnknownControl);
        EXPECT_EQ(SetControlID(theBad, &theID), errUnknownControl);
        EXPECT_EQ(GetControlID(theBad, &theID), errUnknownControl);
        EXPECT_EQ(OSType{theID.signature}, OSType{0});
        EXPECT_EQ(SetControlCommandID(theBad, 1), errUnknownControl);
        EXPECT_EQ(GetControlCommandID(theBad, &theCommand), errUnknownControl);
        EXPECT_EQ(SetControlData(theBad, 0, kControlKindTag, 0, nullptr), errUnknownControl);
        EXPECT_EQ(GetControlData(theBad, 0, kControlKindTag, 0, nullptr, nullptr), errUnknownControl);
        EXPECT_EQ(SetControlFontStyle(theBad, nullptr), errUnknownControl);
        EXPECT_EQ(GetControl32BitValue(theBad), 0);
        EXPECT_EQ(GetControlViewSize(theBad), 0);
        EXPECT_EQ(GetControlOwner(theBad), nullptr);
        EXPECT_EQ(GetControlReference(theBad), SRefCon{});
        EXPECT_EQ(GetControlAction(theBad), nullptr);
        EXPECT_EQ(GetControlEventTarget(theBad), nullptr);
        EXPECT_FALSE(IsValidControlHandle(theBad));
        SetControl32BitValue(theBad, 1);
        SetControlReference(theBad, SRefCon{});
        SetControlAction(theBad, nullptr);
        DisposeControl(theBad);
    }
}

TEST_F(ControlManager, NullResultsAreRefused)
{
    ControlRef theSlider = NewSlider();
    EXPECT_EQ(GetControlKind(theSlider, nullptr), paramErr);
    EXPECT_EQ(SetControlID(theSlider, nullptr), paramErr);
    EXPECT_EQ(GetControlID(theSlider, nullptr), paramErr);
    EXPECT_EQ(GetControlCommandID(theSlider, nullptr), paramErr);
    EXPECT_EQ(GetControlFeatures(theSlider, nullptr), paramErr);
    EXPECT_EQ(SetControlFontStyle(theSlider, nullptr), paramErr);
    EXPECT_EQ(SetControlData(theSlider, 0, kControlFontStyleTag, sizeof(ControlFontStyleRec), nullptr),
              paramErr);
    EXPECT_EQ(GetControlDataSize(theSlider, 0, kControlFontStyleTag, nullptr), paramErr);
}

// --- Structures and codes ----------------------------------------------------------------------------

static_assert(sizeof(ControlID) == 8 && sizeof(ControlKind) == 8, "the platform's own sizes");
static_assert(sizeof(ControlFontStyleRec) == 24, "the platform's own size");
static_assert(sizeof(ControlEditTextSelectionRec) == 4, "the platform's own size");
static_assert(sizeof(ControlPartCode) == 2 && sizeof(ControlFocusPart) == 2, "parts have 16 bits");
#if !defined(__LP64__)
static_assert(sizeof(Size) == 4 && sizeof(ByteCount) == 4 && sizeof(SRefCon) == 4, "as on the platform");
#endif
