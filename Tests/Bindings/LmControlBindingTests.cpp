// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindingTestSupport.h"
#include "CarbonSpy.h"
#include "LmControlBinding.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

const OSType kSignature = 'Test';
const char kAssertNoControl[] = "Source/Bindings/LmControlBinding.cpp, line #: mControl != NULL";
const Rect kBounds = {10, 10, 30, 210};

std::string StatusLine(OSStatus theStatus)
{
    return "Source/Bindings/LmControlBinding.cpp, line #: Error " + std::to_string(theStatus);
}

std::string TitleOf(ControlRef theControl)
{
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(theControl, &theTitle);
    return TextOfAdopted(theTitle);
}

std::string DataTextOf(ControlRef theControl)
{
    CFStringRef theString = nullptr;
    GetControlData(theControl, 0, kControlStaticTextCFStringTag, sizeof theString, &theString, nullptr);
    return TextOfAdopted(theString);
}

using MortalBinding = Mortal<LmControlBinding>;

class LmControlBindingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const Rect theBounds = {50, 50, 450, 450};
        ASSERT_EQ(
            CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theBounds, &mWindow),
            noErr);
        ControlRef theRoot = nullptr;
        CreateRootControl(mWindow, &theRoot);
        ShowWindow(mWindow);
        CarbonSpy::Reset();
    }

    void TearDown() override
    {
        CarbonSpy::Reset();
        DisposeWindow(mWindow);
    }

    ControlRef MakeSlider(SInt32 theValue, SInt32 theMinimum, SInt32 theMaximum)
    {
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateSliderControl(mWindow, &kBounds, theValue, theMinimum, theMaximum,
                                      kControlSliderDoesNotPoint, 0, true, nullptr, &theControl),
                  noErr);
        return theControl;
    }

    ControlRef MakeStaticText(CFStringRef theText)
    {
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateStaticTextControl(mWindow, &kBounds, theText, nullptr, &theControl), noErr);
        return theControl;
    }

    ControlRef MakeEditText(CFStringRef theText)
    {
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateEditUnicodeTextControl(mWindow, &kBounds, theText, false, nullptr, &theControl),
                  noErr);
        return theControl;
    }

    ControlRef MakeOldEditText(CFStringRef theText)
    {
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateEditTextControl(mWindow, &kBounds, theText, false, false, nullptr, &theControl),
                  noErr);
        return theControl;
    }

    ControlRef MakeCheckBox()
    {
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateCheckBoxControl(mWindow, &kBounds, CFSTR("Heating on"), 0, true, &theControl), noErr);
        return theControl;
    }

    // Sends a key to a control, the way the Event Manager does, and tells what its handlers said.
    static OSStatus PressKey(ControlRef theControl, UInt32 theKeyCode)
    {
        const TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown);
        SetEventParameter(theEvent.GetEvent(), kEventParamKeyCode, typeUInt32, sizeof theKeyCode,
                          &theKeyCode);
        return SendEventToEventTarget(theEvent.GetEvent(), GetControlEventTarget(theControl));
    }

    WindowRef mWindow = nullptr;
};

// Without a control ------------------------------------------------------------------------------------

TEST_F(LmControlBindingTest, ABindingWithoutAControlStoresEveryKeyAndTouchesNoControl)
{
    LmControlBinding theBinding;
    EXPECT_EQ(theBinding.GetControl(), nullptr);
    for (const char* theKey : {"value", "minimum", "maximum", "enabled", "visible", "title", "colour"}) {
        theBinding.SetKeyPathValue(theKey, LmValue(7UL));
        EXPECT_EQ(theBinding.GetKeyPathValue(theKey).GetUInt32(), 7UL) << theKey;
    }
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
}

TEST_F(LmControlBindingTest, ABindingWithoutAControlDescribesANullReference)
{
    LmControlBinding theBinding;
    EXPECT_STREQ(theBinding.GetDebugInfo().GetUTF8(), "[ControlRef 0x00000000, '', 0]");
}

TEST_F(LmControlBindingTest, SyncingWithoutAControlPrintsTheAssertionAndGoesOn)
{
    LmControlBinding theBinding;
    theBinding.SyncValue("colour");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kAssertNoControl});
    EXPECT_FALSE(theBinding.GetKeyPathValue("colour").IsValid());
}

TEST_F(LmControlBindingTest, ATitleThatNoControlGivesLeavesTheKeyAsItIs)
{
    LmControlBinding theBinding;
    theBinding.SetKeyPathValue("title", TextValue("kept"));
    theBinding.SyncValue("title");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{kAssertNoControl, StatusLine(errUnknownControl)}));
    EXPECT_EQ(TextOf(theBinding.GetKeyPathValue("title")), "kept");
}

// Attaching --------------------------------------------------------------------------------------------

TEST_F(LmControlBindingTest, AttachingReadsTheSixKeysInOrderAndWritesNothingBack)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    SetControlTitleWithCFString(theSlider, CFSTR("Loudness"));
    LmControlBinding* theBinding = new LmControlBinding;
    NotificationRecorder theRecorder;
    for (const char* theKey : {"value", "minimum", "maximum", "enabled", "visible", "title"}) {
        theBinding->ObserveKeyPathValue(theKey, &theRecorder);
    }
    CarbonSpy::TakeWrites();
    theBinding->SetControl(theSlider);

    EXPECT_EQ(theRecorder.Take(),
              (Lines{"changing value", "changed value", "changing minimum", "changed minimum",
                     "changing maximum", "changed maximum", "changing enabled", "changed enabled",
                     "changing visible", "changed visible", "changing title", "changed title"}));
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetType(), kTypeUInt32);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 5UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("minimum").GetType(), kTypeUInt32);
    EXPECT_EQ(theBinding->GetKeyPathValue("minimum").GetUInt32(), 0UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("maximum").GetType(), kTypeUInt32);
    EXPECT_EQ(theBinding->GetKeyPathValue("maximum").GetUInt32(), 10UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("enabled").GetType(), kTypeBoolean);
    EXPECT_TRUE(theBinding->GetKeyPathValue("enabled").GetBoolean());
    EXPECT_EQ(theBinding->GetKeyPathValue("visible").GetType(), kTypeBoolean);
    EXPECT_TRUE(theBinding->GetKeyPathValue("visible").GetBoolean());
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Loudness");
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
}

TEST_F(LmControlBindingTest, AttachingAgainTellsOnlyOfTheKeysThatChanged)
{
    LmControlBinding* theBinding = new LmControlBinding(MakeSlider(5, 0, 10));
    NotificationRecorder theRecorder;
    for (const char* theKey : {"value", "minimum", "maximum", "enabled", "visible"}) {
        theBinding->ObserveKeyPathValue(theKey, &theRecorder);
    }
    theBinding->SetControl(MakeSlider(5, 0, 11));
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing maximum", "changed maximum"}));
}

TEST_F(LmControlBindingTest, NegativeValuesAreKeptUnsignedOnPurpose)
{
    LmControlBinding* theBinding = new LmControlBinding(MakeSlider(-5, -10, 10));
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 4294967291UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetSInt32(), -5L);
    EXPECT_EQ(theBinding->GetKeyPathValue("minimum").GetUInt32(), 4294967286UL);
}

TEST_F(LmControlBindingTest, AControlIsFoundByItsIdentifier)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    const ControlID theID = {kSignature, 3};
    SetControlID(theSlider, &theID);
    LmControlBinding* theBinding = new LmControlBinding(mWindow, theID);
    EXPECT_EQ(theBinding->GetControl(), theSlider);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 5UL);
}

TEST_F(LmControlBindingTest, ASignatureAloneMeansTheControlWithNumberZero)
{
    ControlRef theOther = MakeSlider(1, 0, 10);
    const ControlID theOtherID = {kSignature, 1};
    SetControlID(theOther, &theOtherID);
    ControlRef theSlider = MakeSlider(5, 0, 10);
    const ControlID theID = {kSignature, 0};
    SetControlID(theSlider, &theID);
    LmControlBinding* theBinding = new LmControlBinding(mWindow, kSignature);
    EXPECT_EQ(theBinding->GetControl(), theSlider);
}

TEST_F(LmControlBindingTest, AnUnknownIdentifierPrintsTheStatusAndLeavesTheBindingWithoutAControl)
{
    const ControlID theID = {kSignature, 99};
    LmControlBinding theBinding(mWindow, theID);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(errUnknownControl)});
    EXPECT_EQ(theBinding.GetControl(), nullptr);

    LmControlBinding theOther(mWindow, 'none');
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(errUnknownControl)});
    EXPECT_EQ(theOther.GetControl(), nullptr);
}

TEST_F(LmControlBindingTest, AControlThatIsFoundWithAnErrorIsUsedAllTheSame)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    const ControlID theID = {kSignature, 0};
    SetControlID(theSlider, &theID);
    CarbonSpy::Fail("GetControlByID", paramErr);
    LmControlBinding* theBinding = new LmControlBinding(mWindow, theID);
    EXPECT_EQ(theBinding->GetControl(), theSlider);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)});
    theBinding = new LmControlBinding(mWindow, kSignature);
    EXPECT_EQ(theBinding->GetControl(), theSlider);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)});
}

TEST_F(LmControlBindingTest, AttachingInstallsOneHandlerForSixKindsOfEvents)
{
    new LmControlBinding(MakeSlider(5, 0, 10));
    EXPECT_EQ(CarbonSpy::LastEvents(),
              (Lines{"keyb 1", "cntl 1001", "cntl 151", "cntl 161", "cntl 157", "cntl 158"}));
}

TEST_F(LmControlBindingTest, ANullControlLeavesTheBindingWithoutOne)
{
    LmControlBinding theBinding(static_cast<ControlRef>(nullptr));
    EXPECT_EQ(theBinding.GetControl(), nullptr);
    EXPECT_FALSE(theBinding.HasKey("value"));
}

TEST_F(LmControlBindingTest, TheDebugTextShowsReferenceSignatureAndNumber)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    const ControlID theID = {'vol ', -12};
    SetControlID(theSlider, &theID);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    char theText[64];
    std::snprintf(theText, sizeof theText, "[ControlRef 0x%.8lX, 'vol ', -12]",
                  reinterpret_cast<unsigned long>(theSlider));
    EXPECT_STREQ(theBinding->GetDebugInfo().GetUTF8(), theText);
}

TEST_F(LmControlBindingTest, DetachingKeepsTheKeysAndStopsListening)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding theBinding(theSlider);
    theBinding.SetControl(nullptr);
    EXPECT_EQ(theBinding.GetControl(), nullptr);
    SetControl32BitValue(theSlider, 7);
    EXPECT_EQ(theBinding.GetKeyPathValue("value").GetUInt32(), 5UL);
    theBinding.SetKeyPathValue("value", LmValue(9UL));
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
}

TEST_F(LmControlBindingTest, AttachingToAnotherControlRemovesTheHandlerFromTheFirst)
{
    ControlRef theFirst = MakeSlider(5, 0, 10);
    ControlRef theSecond = MakeSlider(6, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theFirst);
    theBinding->SetControl(theSecond);
    SetControl32BitValue(theFirst, 1);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 6UL);
    SetControl32BitValue(theSecond, 2);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 2UL);
}

TEST_F(LmControlBindingTest, DeletingTheBindingRemovesItsHandler)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    delete new LmControlBinding(theSlider);
    SetControl32BitValue(theSlider, 7);
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
}

TEST_F(LmControlBindingTest, InitialisingSelfAttachesTheControl)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding;
    theBinding->InitialiseSelf(nullptr);
    EXPECT_EQ(theBinding->GetControl(), nullptr);
    theBinding->InitialiseSelf(theSlider);
    EXPECT_EQ(theBinding->GetControl(), theSlider);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 5UL);
    SetControl32BitValue(theSlider, 6);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 6UL);
}

TEST_F(LmControlBindingTest, InitialisingSelfForgetsTheHandlerOfAnEarlierControlWithoutRemovingIt)
{
    bool isGone = false;
    ControlRef theFirst = MakeSlider(5, 0, 10);
    ControlRef theSecond = MakeSlider(6, 0, 10);
    MortalBinding* theBinding = new MortalBinding(isGone);
    theBinding->SetControl(theFirst);
    theBinding->InitialiseSelf(theSecond);
    EXPECT_EQ(theBinding->GetControl(), theSecond);
    DisposeControl(theFirst);
    EXPECT_TRUE(isGone);
}

TEST_F(LmControlBindingTest, AControlWhoseKindIsNotToldIsNoTextAlsoAfterOneThatWas)
{
    LmControlBinding* theBinding = new LmControlBinding(MakeEditText(CFSTR("first")));
    ControlRef theNext = MakeEditText(CFSTR("second"));
    CarbonSpy::Fail("GetControlKind", paramErr);
    theBinding->SetControl(theNext);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)});
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetType(), kTypeUInt32);
}

TEST_F(LmControlBindingTest, ATextKindOfAnotherMakerIsNoText)
{
    LmControlBinding* theBinding = new LmControlBinding(MakeEditText(CFSTR("first")));
    for (ControlRef theControl : {MakeEditText(CFSTR("edit")), MakeStaticText(CFSTR("static"))}) {
        CarbonSpy::PretendKindsOf('othr');
        theBinding->SetControl(theControl);
        EXPECT_EQ(theBinding->GetKeyPathValue("value").GetType(), kTypeUInt32);
    }
}

// From the keys to the control -------------------------------------------------------------------------

TEST_F(LmControlBindingTest, SettingTheNumberKeysSetsTheControl)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    theBinding->SetKeyPathValue("value", LmValue(7UL));
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
    theBinding->SetKeyPathValue("minimum", LmValue(2UL));
    EXPECT_EQ(GetControl32BitMinimum(theSlider), 2);
    theBinding->SetKeyPathValue("maximum", LmValue(20UL));
    EXPECT_EQ(GetControl32BitMaximum(theSlider), 20);
    EXPECT_EQ(CarbonSpy::TakeWrites(),
              (Lines{"SetControl32BitValue", "SetControl32BitMinimum", "SetControl32BitMaximum"}));
}

TEST_F(LmControlBindingTest, NumbersOfOtherKindsAreConverted)
{
    ControlRef theSlider = MakeSlider(5, -10, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    theBinding->SetKeyPathValue("value", LmValue(-3L));
    EXPECT_EQ(GetControl32BitValue(theSlider), -3);
    theBinding->SetKeyPathValue("value", LmValue(8.9));
    EXPECT_EQ(GetControl32BitValue(theSlider), 8);
    theBinding->SetKeyPathValue("value", LmValue(true));
    EXPECT_EQ(GetControl32BitValue(theSlider), 1);
}

TEST_F(LmControlBindingTest, NumbersAboveTheSignedRangeKeepTheirBits)
{
    ControlRef theSlider = MakeSlider(0, std::numeric_limits<SInt32>::min(), 0);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    for (const char* theKey : {"minimum", "value", "maximum"}) {
        theBinding->SetKeyPathValue(theKey, LmValue(3000000000.0));
    }
    // What does not fit into a signed number is the negative one with the same bits.
    EXPECT_EQ(GetControl32BitMinimum(theSlider), SInt32{-1294967296});
    EXPECT_EQ(GetControl32BitValue(theSlider), SInt32{-1294967296});
    EXPECT_EQ(GetControl32BitMaximum(theSlider), SInt32{-1294967296});
}

TEST_F(LmControlBindingTest, SettingTheStateKeysEnablesAndShowsTheControl)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    theBinding->SetKeyPathValue("enabled", LmValue(false));
    EXPECT_FALSE(IsControlEnabled(theSlider));
    theBinding->SetKeyPathValue("enabled", LmValue(true));
    EXPECT_TRUE(IsControlEnabled(theSlider));
    theBinding->SetKeyPathValue("visible", LmValue(false));
    EXPECT_FALSE(IsControlVisible(theSlider));
    theBinding->SetKeyPathValue("visible", LmValue(true));
    EXPECT_TRUE(IsControlVisible(theSlider));
    EXPECT_EQ(CarbonSpy::TakeWrites(),
              (Lines{"DisableControl", "EnableControl", "SetControlVisibility", "SetControlVisibility"}));
}

TEST_F(LmControlBindingTest, SettingTheTitleKeyNamesTheControl)
{
    ControlRef theBox = MakeCheckBox();
    LmControlBinding* theBinding = new LmControlBinding(theBox);
    theBinding->SetKeyPathValue("title", TextValue("Cooling on"));
    EXPECT_EQ(TitleOf(theBox), "Cooling on");
}

TEST_F(LmControlBindingTest, TheValueOfATextControlIsItsText)
{
    struct
    {
        const char* theName;
        ControlRef theControl;
    } const kRows[] = {
        {"static text", MakeStaticText(CFSTR("before"))},
        {"edit text", MakeOldEditText(CFSTR("before"))},
        {"Unicode edit text", MakeEditText(CFSTR("before"))},
    };
    for (const auto& theRow : kRows) {
        LmControlBinding* theBinding = new LmControlBinding(theRow.theControl);
        EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("value")), "before") << theRow.theName;
        CarbonSpy::TakeWrites();
        theBinding->SetKeyPathValue("value", TextValue("after"));
        EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{"SetControlData"}) << theRow.theName;
        EXPECT_EQ(DataTextOf(theRow.theControl), "after") << theRow.theName;
        EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("value")), "after") << theRow.theName;
    }
}

TEST_F(LmControlBindingTest, ATextThatCannotBeWrittenIsReportedAndTheKeyIsStored)
{
    LmControlBinding* theText = new LmControlBinding(MakeStaticText(CFSTR("before")));
    CarbonSpy::Fail("SetControlData", paramErr);
    theText->SetKeyPathValue("value", TextValue("after"));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)});
    EXPECT_EQ(TextOf(theText->GetKeyPathValue("value")), "after");
}

// From the control to the keys -------------------------------------------------------------------------

TEST_F(LmControlBindingTest, AChangeOfTheControlReachesItsKeyAndIsNotWrittenBack)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    NotificationRecorder theRecorder;
    theBinding->ObserveKeyPathValue("value", &theRecorder);
    theBinding->ObserveKeyPathValue("minimum", &theRecorder);
    theBinding->ObserveKeyPathValue("maximum", &theRecorder);
    theBinding->ObserveKeyPathValue("enabled", &theRecorder);
    theBinding->ObserveKeyPathValue("visible", &theRecorder);
    theBinding->ObserveKeyPathValue("title", &theRecorder);

    SetControl32BitValue(theSlider, 7);
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{"SetControl32BitValue"}) << "only the test's own call";
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing value", "changed value"}));
    SetControl32BitMinimum(theSlider, 1);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing minimum", "changed minimum"}));
    SetControl32BitMaximum(theSlider, 9);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing maximum", "changed maximum"}));
    DisableControl(theSlider);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing enabled", "changed enabled"}));
    SetControlVisibility(theSlider, false, true);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing visible", "changed visible"}));
    SetControlTitleWithCFString(theSlider, CFSTR("Loudness"));
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing title", "changed title"}));
    EXPECT_EQ(CarbonSpy::TakeWrites(),
              (Lines{"SetControl32BitMinimum", "SetControl32BitMaximum", "DisableControl",
                     "SetControlVisibility", "SetControlTitleWithCFString"}));

    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 7UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("minimum").GetUInt32(), 1UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("maximum").GetUInt32(), 9UL);
    EXPECT_FALSE(theBinding->GetKeyPathValue("enabled").GetBoolean());
    EXPECT_FALSE(theBinding->GetKeyPathValue("visible").GetBoolean());
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Loudness");
}

TEST_F(LmControlBindingTest, OneEventUpdatesOnlyTheFirstKeyThatDiffersOnPurpose)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    // A handler that was installed later runs first, and keeps the binding from hearing of the minimum.
    const EventTypeSpec theType = {kEventClassControl, kEventControlValueFieldChanged};
    EventHandlerRef theScreen = nullptr;
    InstallControlEventHandler(theSlider, NewEventHandlerUPP(ConsumeEvent), 1, &theType, nullptr, &theScreen);
    SetControl32BitMinimum(theSlider, 2);
    SetControl32BitMaximum(theSlider, 20);
    RemoveEventHandler(theScreen);

    SetControl32BitValue(theSlider, 7);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 7UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("minimum").GetUInt32(), 0UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("maximum").GetUInt32(), 10UL);

    const TestEvent theEvent(kEventClassControl, kEventControlValueFieldChanged);
    theBinding->DoEventControl(theEvent.GetEvent(), kEventControlValueFieldChanged);
    EXPECT_EQ(theBinding->GetKeyPathValue("minimum").GetUInt32(), 2UL);
    EXPECT_EQ(theBinding->GetKeyPathValue("maximum").GetUInt32(), 10UL);
    theBinding->DoEventControl(theEvent.GetEvent(), kEventControlValueFieldChanged);
    EXPECT_EQ(theBinding->GetKeyPathValue("maximum").GetUInt32(), 20UL);
    theBinding->DoEventControl(theEvent.GetEvent(), kEventControlValueFieldChanged);
}

TEST_F(LmControlBindingTest, ControlEventsOfOtherKindsChangeNothing)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    NotificationRecorder theRecorder;
    theBinding->ObserveKeyPathValue("value", &theRecorder);
    const TestEvent theEvent(kEventClassControl, kEventControlHit);
    EXPECT_EQ(theBinding->DoEventControl(theEvent.GetEvent(), kEventControlHit), eventNotHandledErr);
    EXPECT_EQ(theRecorder.Take(), Lines{});
    theBinding->SetKeyPathValue("value", LmValue(6UL));
    EXPECT_EQ(GetControl32BitValue(theSlider), 6) << "the update flag is set again";
}

TEST_F(LmControlBindingTest, TheJournalIsToldOfAnEventAndOfItsEnd)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    const LmControlBinding* const theBinding = new LmControlBinding(theSlider);
    const KeptEntries theEvents(kJournalEvent);
    SetControl32BitValue(theSlider, 6);
    ASSERT_EQ(theEvents.mEntries.size(), 1U);
    EXPECT_EQ(theEvents.mEntries[0].theObject, static_cast<const LmKeyValueStore*>(theBinding));
    EXPECT_EQ(theEvents.mEntries[0].theCode, UInt32{kEventClassControl});
    EXPECT_EQ(theEvents.mEntries[0].theDetail, UInt32{kEventControlValueFieldChanged});
    EXPECT_EQ(theEvents.mClosed, 1U);
}

TEST_F(LmControlBindingTest, SyncingByHandWritesTheControlAgainAsAnySetKey)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    theBinding->SetControl(nullptr);
    theBinding->SetKeyPathValue("value", LmValue(3UL));
    theBinding->SetControl(theSlider);
    EXPECT_EQ(theBinding->GetKeyPathValue("value").GetUInt32(), 5UL);
    theBinding->SyncValue("value");
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{}) << "an equal value is not set";
}

TEST_F(LmControlBindingTest, TwoBindingsOnOneControlBothFollowIt)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theFirst = new LmControlBinding(theSlider);
    LmControlBinding* theSecond = new LmControlBinding(theSlider);
    theFirst->SetKeyPathValue("value", LmValue(8UL));
    EXPECT_EQ(theSecond->GetKeyPathValue("value").GetUInt32(), 8UL);
    SetControl32BitValue(theSlider, 2);
    EXPECT_EQ(theFirst->GetKeyPathValue("value").GetUInt32(), 2UL);
    EXPECT_EQ(theSecond->GetKeyPathValue("value").GetUInt32(), 2UL);
}

TEST_F(LmControlBindingTest, TheControlAndAModelFollowEachOther)
{
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("volume", LmValue(4UL));
    ControlRef theSlider = MakeSlider(0, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    EXPECT_EQ(theBinding->Bind("value", &theModel, "volume", nullptr, nullptr), noErr);
    EXPECT_EQ(GetControl32BitValue(theSlider), 4);
    SetControl32BitValue(theSlider, 9);
    EXPECT_EQ(theModel.GetKeyPathValue("volume").GetUInt32(), 9UL);
    theModel.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(GetControl32BitValue(theSlider), 1);
    DisposeControl(theSlider);
    theModel.SetKeyPathValue("volume", LmValue(2UL));
}

TEST_F(LmControlBindingTest, AFailingReadPrintsItsStatusAndLeavesTheKey)
{
    LmControlBinding* theBinding = new LmControlBinding(MakeStaticText(CFSTR("before")));
    const struct
    {
        const char* theCall;
        const char* theKey;
    } kRows[] = {{"GetControlData", "value"}, {"CopyControlTitleAsCFString", "title"}};
    for (const auto& theRow : kRows) {
        const LmValue theOldValue = theBinding->GetKeyPathValue(theRow.theKey);
        CarbonSpy::Fail(theRow.theCall, paramErr);
        theBinding->SyncValue(theRow.theKey);
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)}) << theRow.theCall;
        EXPECT_TRUE(theBinding->GetKeyPathValue(theRow.theKey) == theOldValue) << theRow.theCall;
        CarbonSpy::Reset();
    }
}

TEST_F(LmControlBindingTest, AttachingPrintsTheStatusOfEachCallThatFailsAndGoesOn)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    CarbonSpy::Fail("GetControlKind", paramErr);
    CarbonSpy::Fail("InstallEventHandler", memFullErr);
    LmControlBinding theBinding(theSlider);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), (Lines{StatusLine(paramErr), StatusLine(memFullErr)}));
    EXPECT_EQ(theBinding.GetKeyPathValue("value").GetUInt32(), 5UL);
}

// Keys -------------------------------------------------------------------------------------------------

const UInt32 kReturnKey = 36;
const UInt32 kTabKey = 48;
const UInt32 kEnterKey = 52;
const UInt32 kLetterKey = 0;

void TypeInto(ControlRef theControl, CFStringRef theText)
{
    SetControlData(theControl, 0, kControlEditTextCFStringTag, sizeof theText, &theText);
}

// The result of a key as the binding's own handler gives it.
OSStatus HandleKey(LmControlBinding* theBinding, UInt32 theKind, UInt32 theKeyCode)
{
    const TestEvent theEvent(kEventClassKeyboard, theKind);
    SetEventParameter(theEvent.GetEvent(), kEventParamKeyCode, typeUInt32, sizeof theKeyCode, &theKeyCode);
    return LmControlBinding::EventHandler(nullptr, theEvent.GetEvent(), theBinding);
}

struct KeyRow
{
    const char* theName;
    UInt32 theKind;
    UInt32 theKeyCode;
    bool theTextIsStored;
    OSStatus theStatus;
};

class LmControlBindingKeyTest : public LmControlBindingTest, public testing::WithParamInterface<KeyRow>
{
};

TEST_P(LmControlBindingKeyTest, OnlyTheKeysThatEndTypingStoreTheText)
{
    for (const bool isFieldUnicode : {true, false}) {
        ControlRef theField =
            isFieldUnicode ? MakeEditText(CFSTR("before")) : MakeOldEditText(CFSTR("before"));
        LmControlBinding* theBinding = new LmControlBinding(theField);
        TypeInto(theField, CFSTR("after"));
        CarbonSpy::TakeWrites();
        const KeyRow& theRow = GetParam();
        EXPECT_EQ(HandleKey(theBinding, theRow.theKind, theRow.theKeyCode), theRow.theStatus);
        EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("value")), theRow.theTextIsStored ? "after" : "before");
        EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{}) << "the text is not written back";
        theBinding->SetKeyPathValue("value", TextValue("later"));
        EXPECT_EQ(DataTextOf(theField), "later") << "the update flag is set again";
    }
}

INSTANTIATE_TEST_SUITE_P(
    Keys, LmControlBindingKeyTest,
    testing::Values(KeyRow{"Return", kEventRawKeyDown, kReturnKey, true, noErr},
                    KeyRow{"Enter", kEventRawKeyDown, kEnterKey, true, noErr},
                    KeyRow{"Tab", kEventRawKeyDown, kTabKey, true, eventNotHandledErr},
                    KeyRow{"Letter", kEventRawKeyDown, kLetterKey, false, eventNotHandledErr},
                    KeyRow{"ReturnRepeated", kEventRawKeyRepeat, kReturnKey, false, eventNotHandledErr},
                    KeyRow{"ReturnReleased", kEventRawKeyUp, kReturnKey, false, eventNotHandledErr}),
    [](const testing::TestParamInfo<KeyRow>& theInfo) { return theInfo.param.theName; });

TEST_F(LmControlBindingTest, ReturnKeepsTheFocusInTheField)
{
    ControlRef theField = MakeEditText(CFSTR("before"));
    LmControlBinding* theBinding = new LmControlBinding(theField);
    ClearKeyboardFocus(mWindow);
    EXPECT_EQ(HandleKey(theBinding, kEventRawKeyDown, kReturnKey), noErr);
    ControlRef theFocus = nullptr;
    GetKeyboardFocus(mWindow, &theFocus);
    EXPECT_EQ(theFocus, theField);
}

TEST_F(LmControlBindingTest, AFocusThatCannotBeSetIsReportedAndTheKeyNotConsumed)
{
    LmControlBinding* theBinding = new LmControlBinding(MakeEditText(CFSTR("before")));
    CarbonSpy::Fail("SetKeyboardFocus", errCouldntSetFocus);
    EXPECT_EQ(HandleKey(theBinding, kEventRawKeyDown, kReturnKey), errCouldntSetFocus);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(errCouldntSetFocus)});
}

TEST_F(LmControlBindingTest, AKeyWithoutACodeIsReportedAndPassed)
{
    LmControlBinding* theBinding = new LmControlBinding(MakeEditText(CFSTR("before")));
    const TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown);
    EXPECT_EQ(theBinding->DoEventKeyboard(theEvent.GetEvent(), kEventRawKeyDown), eventNotHandledErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(eventParameterNotFoundErr)});
}

TEST_F(LmControlBindingTest, KeysInOtherControlsAreNotTheBindingsBusiness)
{
    for (ControlRef theControl : {MakeSlider(5, 0, 10), MakeStaticText(CFSTR("before"))}) {
        LmControlBinding* theBinding = new LmControlBinding(theControl);
        EXPECT_EQ(HandleKey(theBinding, kEventRawKeyDown, kReturnKey), eventNotHandledErr);
    }
}

TEST_F(LmControlBindingTest, ReturnIsConsumedBeforeEarlierHandlersWhileTabAndLettersReachThem)
{
    ControlRef theField = MakeEditText(CFSTR("before"));
    int theCount = 0;
    const EventTypeSpec theType = {kEventClassKeyboard, kEventRawKeyDown};
    InstallControlEventHandler(theField, NewEventHandlerUPP(CountEvent), 1, &theType, &theCount, nullptr);
    new LmControlBinding(theField);
    PressKey(theField, kReturnKey);
    PressKey(theField, kEnterKey);
    EXPECT_EQ(theCount, 0);
    PressKey(theField, kTabKey);
    EXPECT_EQ(theCount, 1);
    PressKey(theField, kLetterKey);
    EXPECT_EQ(theCount, 2);
}

TEST_F(LmControlBindingTest, ControlEventsReachEarlierHandlersToo)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    int theCount = 0;
    const EventTypeSpec theType = {kEventClassControl, kEventControlValueFieldChanged};
    InstallControlEventHandler(theSlider, NewEventHandlerUPP(CountEvent), 1, &theType, &theCount, nullptr);
    new LmControlBinding(theSlider);
    SetControl32BitValue(theSlider, 7);
    EXPECT_EQ(theCount, 1);
}

// The handler itself -----------------------------------------------------------------------------------

TEST_F(LmControlBindingTest, TheBranchesAssertTheClassOfTheirEvents)
{
    LmControlBinding theBinding;
    const TestEvent theEvent(kEventClassMouse, kEventMouseDown);
    EXPECT_EQ(theBinding.DoEventKeyboard(theEvent.GetEvent(), kEventMouseDown), eventNotHandledErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Bindings/LmControlBinding.cpp, line #: "
                    "GetEventClass(theEvent) == kEventClassKeyboard"});
    EXPECT_EQ(theBinding.DoEventControl(theEvent.GetEvent(), kEventMouseDown), eventNotHandledErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Bindings/LmControlBinding.cpp, line #: "
                    "GetEventClass(theEvent) == kEventClassControl"});
}

TEST_F(LmControlBindingTest, AfterAnEventOfTheWrongClassKeysAreWrittenToTheControlAsBefore)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    LmControlBinding* theBinding = new LmControlBinding(theSlider);
    const TestEvent theEvent(kEventClassMouse, kEventMouseDown);
    theBinding->DoEventKeyboard(theEvent.GetEvent(), kEventMouseDown);
    theBinding->DoEventControl(theEvent.GetEvent(), kEventMouseDown);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 2u);
    theBinding->SetKeyPathValue("value", LmValue(7UL));
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{"SetControl32BitValue"});
}

// Death ------------------------------------------------------------------------------------------------

TEST_F(LmControlBindingTest, DisposingTheControlDeletesTheBinding)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    bool isGone = false;
    new MortalBinding(isGone, theSlider);
    DisposeControl(theSlider);
    EXPECT_TRUE(isGone);
}

TEST_F(LmControlBindingTest, ClosingTheWindowDeletesTheBindingsOfItsControls)
{
    WindowRef theWindow = nullptr;
    const Rect theBounds = {50, 50, 450, 450};
    CreateNewWindow(kDocumentWindowClass, kWindowNoAttributes, &theBounds, &theWindow);
    ControlRef theSlider = nullptr;
    CreateSliderControl(theWindow, &kBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theSlider);
    bool isGone = false;
    LmKeyValueBinding theModel;
    (new MortalBinding(isGone, theSlider))->Bind("value", &theModel, "volume", nullptr, nullptr);
    CarbonSpy::TakeWrites();
    DisposeWindow(theWindow);
    EXPECT_TRUE(isGone);
    theModel.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
}

// Disposes a control as soon as it hears of a change.
class Disposer : public LmKeyValueObserver
{
public:
    Disposer(ControlRef theControl, bool isEarly)
        : mControl(theControl),
          mIsEarly(isEarly)
    {
    }

    void ValueChanging(const LmKeyValueStore*, const LmString&) override
    {
        if (mIsEarly) {
            DisposeControl(mControl);
        }
    }

    void ValueChanged(const LmKeyValueStore*, const LmString&) override
    {
        if (!mIsEarly) {
            DisposeControl(mControl);
        }
    }

private:
    ControlRef mControl;
    bool mIsEarly;
};

TEST_F(LmControlBindingTest, TheControlMayBeDisposedByAnObserverOfItsOwnChange)
{
    for (const bool isEarly : {true, false}) {
        ControlRef theSlider = MakeSlider(5, 0, 10);
        Disposer theDisposer(theSlider, isEarly);
        bool isGone = false;
        (new MortalBinding(isGone, theSlider))->ObserveKeyPathValue("value", &theDisposer);
        SetControl32BitValue(theSlider, 7);
        EXPECT_TRUE(isGone);
    }
}

TEST_F(LmControlBindingTest, TheControlMayBeDisposedWhileItsKeyIsSet)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    Disposer theDisposer(theSlider, false);
    bool isGone = false;
    LmControlBinding* theBinding = new MortalBinding(isGone, theSlider);
    theBinding->ObserveKeyPathValue("value", &theDisposer);
    theBinding->SetKeyPathValue("value", LmValue(7UL));
    EXPECT_TRUE(isGone);
}

TEST_F(LmControlBindingTest, TheControlMayBeDisposedWhileItIsAttached)
{
    ControlRef theSlider = MakeSlider(5, 0, 10);
    Disposer theDisposer(theSlider, false);
    bool isGone = false;
    LmControlBinding* theBinding = new MortalBinding(isGone);
    theBinding->ObserveKeyPathValue("value", &theDisposer);
    theBinding->SetControl(theSlider);
    EXPECT_TRUE(isGone);
}

TEST_F(LmControlBindingTest, TheFieldMayBeDisposedByAnObserverOfItsReturnKey)
{
    ControlRef theField = MakeEditText(CFSTR("before"));
    Disposer theDisposer(theField, false);
    bool isGone = false;
    (new MortalBinding(isGone, theField))->ObserveKeyPathValue("value", &theDisposer);
    TypeInto(theField, CFSTR("after"));
    PressKey(theField, kReturnKey);
    EXPECT_TRUE(isGone);
}

OSStatus DisposeOwnControl(EventHandlerCallRef, EventRef, void* theControl)
{
    DisposeControl(static_cast<ControlRef>(theControl));
    return eventNotHandledErr;
}

TEST_F(LmControlBindingTest, TheControlMayBeDisposedByAHandlerOfItsOwnEvent)
{
    for (const bool isHandlerFirst : {true, false}) {
        ControlRef theSlider = MakeSlider(5, 0, 10);
        const EventTypeSpec theType = {kEventClassControl, kEventControlValueFieldChanged};
        const EventHandlerUPP theHandler = NewEventHandlerUPP(DisposeOwnControl);
        bool isGone = false;
        if (isHandlerFirst) {
            new MortalBinding(isGone, theSlider);
            InstallControlEventHandler(theSlider, theHandler, 1, &theType, theSlider, nullptr);
        } else {
            InstallControlEventHandler(theSlider, theHandler, 1, &theType, theSlider, nullptr);
            new MortalBinding(isGone, theSlider);
        }
        SetControl32BitValue(theSlider, 7);
        EXPECT_TRUE(isGone);
    }
}

} // namespace
