// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Rows of buttons that belong together.

#include "ManagerTestSupport.h"

#include <limits>
#include <Simulation/UserSimulator.h>

namespace {

class Segments : public ControlKindTest
{
protected:
    // In the window, shown, from 20, 200 to 320, 220, with theCount segments of 30 pixels and their edges.
    HIViewRef NewView(UInt32 theCount = 3, HISegmentBehavior theBehavior = kHISegmentBehaviorRadio)
    {
        const HIRect theBounds = CGRectMake(20, 200, 300, 20);
        HIViewRef theView = nullptr;
        EXPECT_EQ(HISegmentedViewCreate(&theBounds, &theView), noErr);
        EXPECT_EQ(HISegmentedViewSetSegmentCount(theView, theCount), noErr);
        for (UInt32 theNumber = 1; theNumber <= theCount; ++theNumber) {
            EXPECT_EQ(HISegmentedViewSetSegmentBehavior(theView, theNumber, theBehavior), noErr);
            EXPECT_EQ(HISegmentedViewSetSegmentContentWidth(theView, theNumber, false, 30), noErr);
        }
        EmbedControl(theView, HIViewGetRoot(mWindow));
        HIViewSetVisible(theView, true);
        return theView;
    }

    static std::string ValuesOf(HIViewRef theView)
    {
        std::string theValues;
        for (UInt32 theNumber = 1; theNumber <= HISegmentedViewGetSegmentCount(theView); ++theNumber) {
            theValues += std::to_string(HISegmentedViewGetSegmentValue(theView, theNumber));
        }
        return theValues + " " + std::to_string(GetControl32BitValue(theView));
    }

    static std::string LabelOf(HIViewRef theView, UInt32 theNumber)
    {
        CFStringRef theLabel = CFSTR("left alone");
        EXPECT_EQ(HISegmentedViewCopySegmentLabel(theView, theNumber, &theLabel), noErr);
        if (theLabel == nullptr) {
            return "none";
        }
        std::string theText = TextOf(theLabel);
        CFRelease(theLabel);
        return theText;
    }

    void WatchHits(HIViewRef theView)
    {
        Watch(theView, "view", kWithoutHilite, [this](EventRef theEvent) {
            ControlPartCode thePart = 0;
            if (GetEventKind(theEvent) == kEventControlHit) {
                GetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, nullptr,
                                  sizeof thePart, nullptr, &thePart);
                mLog.back() = "hit " + std::to_string(thePart);
            }
            return OSStatus{eventNotHandledErr};
        });
    }

    OSErr GiveKeys(ControlRef theControl)
    {
        return SetKeyboardFocus(mWindow, theControl, kControlFocusNextPart);
    }

    // Notes the commands that arrive at the window.
    void WatchCommands()
    {
        Watch(mWindow, "window", {{kEventClassCommand, kEventCommandProcess}}, [this](EventRef theEvent) {
            HICommand theCommand = {};
            GetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, nullptr, sizeof theCommand,
                              nullptr, &theCommand);
            mLog.back() = "command " + std::to_string(theCommand.commandID);
            return OSStatus{noErr};
        });
    }

    static Host::SegmentLook LookOfSegment(HIViewRef theView, size_t theNumber)
    {
        return LookOf(theView).Rare().theSegments.at(theNumber - 1);
    }

    Host::UserSimulator mUser;
};

} // namespace

// Segments -----------------------------------------------------------------------------------------------

TEST_F(Segments, StartWithoutAnything)
{
    HIViewRef theView = nullptr;
    EXPECT_EQ(HISegmentedViewCreate(nullptr, &theView), noErr);
    EXPECT_EQ(HISegmentedViewGetSegmentCount(theView), 0u);
    EXPECT_EQ(HISegmentedViewSetSegmentCount(theView, 2), noErr);
    EXPECT_EQ(HISegmentedViewGetSegmentBehavior(theView, 2), UInt32{kHISegmentBehaviorMomentary});
    EXPECT_EQ(HISegmentedViewGetSegmentValue(theView, 2), 0);
    EXPECT_TRUE(HISegmentedViewIsSegmentEnabled(theView, 2));
    EXPECT_EQ(LabelOf(theView, 2), "none");
    EXPECT_EQ(HISegmentedViewGetSegmentCommand(theView, 2), 0u);
    EXPECT_EQ(HISegmentedViewGetSegmentAttributes(theView, 2), OptionBits{kHISegmentNoAttributes});
    Boolean theIsAutomatic = false;
    EXPECT_EQ(HISegmentedViewGetSegmentContentWidth(theView, 2, &theIsAutomatic), 0);
    EXPECT_TRUE(theIsAutomatic);
    EXPECT_EQ(HISegmentedViewGetSegmentImageContentType(theView, 2), kControlContentTextOnly);
    EXPECT_EQ(GetControl32BitMaximum(theView), 2);
    DisposeControl(theView);
}

TEST_F(Segments, KeepWhatTheyAreGiven)
{
    HIViewRef theView = NewView();
    EXPECT_EQ(HISegmentedViewSetSegmentLabel(theView, 2, CFSTR("Icons")), noErr);
    EXPECT_EQ(LabelOf(theView, 2), "Icons");
    EXPECT_EQ(LabelOf(theView, 1), "none");
    EXPECT_EQ(HISegmentedViewSetSegmentLabel(theView, 2, nullptr), noErr);
    EXPECT_EQ(LabelOf(theView, 2), "none");
    EXPECT_EQ(HISegmentedViewSetSegmentCommand(theView, 2, 'icon'), noErr);
    EXPECT_EQ(HISegmentedViewGetSegmentCommand(theView, 2), UInt32{'icon'});
    EXPECT_EQ(HISegmentedViewSetSegmentEnabled(theView, 2, false), noErr);
    EXPECT_FALSE(HISegmentedViewIsSegmentEnabled(theView, 2));
    EXPECT_EQ(HISegmentedViewChangeSegmentAttributes(theView, 2, kHISegmentSendCmdToUserFocus, 0), noErr);
    EXPECT_EQ(HISegmentedViewGetSegmentAttributes(theView, 2), OptionBits{kHISegmentSendCmdToUserFocus});
    EXPECT_EQ(HISegmentedViewChangeSegmentAttributes(theView, 2, 0, kHISegmentSendCmdToUserFocus), noErr);
    EXPECT_EQ(HISegmentedViewGetSegmentAttributes(theView, 2), 0u);
    Boolean theIsAutomatic = true;
    EXPECT_EQ(HISegmentedViewGetSegmentContentWidth(theView, 2, &theIsAutomatic), 30);
    EXPECT_FALSE(theIsAutomatic);
}

TEST_F(Segments, AreAsWideAsTheirLabelsUnlessTheProgramSaysOtherwise)
{
    HIViewRef theView = NewView();
    const auto theBounds = [&](size_t theNumber) {
        const Host::PixelRect thePlace = LookOfSegment(theView, theNumber).theBounds;
        return Describe(MakeRect(thePlace.theLeft, thePlace.theTop, thePlace.theRight, thePlace.theBottom));
    };
    EXPECT_EQ(theBounds(1), "20, 200, 70, 220");
    EXPECT_EQ(theBounds(2), "70, 200, 120, 220");
    HISegmentedViewSetSegmentLabel(theView, 1, CFSTR("A rather long label"));
    EXPECT_EQ(theBounds(1), "20, 200, 70, 220");
    HISegmentedViewSetSegmentContentWidth(theView, 1, true, 30);
    const CGFloat theWidth = HISegmentedViewGetSegmentContentWidth(theView, 1, nullptr);
    EXPECT_GT(theWidth, 30);
    EXPECT_EQ(LookOfSegment(theView, 1).theBounds.theRight, 20 + static_cast<int>(theWidth) + 20);
    HISegmentedViewSetSegmentContentWidth(theView, 1, false, 100000);
    EXPECT_EQ(theBounds(1), "20, 200, 320, 220") << "up to the end of the view";
    EXPECT_EQ(theBounds(2), "320, 200, 320, 220");
    EXPECT_EQ(TestControl(theView, Point{210, 319}), 1);
}

TEST_F(Segments, HoldTheirImages)
{
    HIViewRef theView = NewView();
    HIViewImageContentInfo theImage = {kControlContentIconRef, {0}};
    IconRef theIcon = nullptr;
    GetIconRef(kOnSystemDisk, kSystemIconsCreator, kGenericFolderIcon, &theIcon);
    theImage.u.iconRef = theIcon;
    EXPECT_EQ(HISegmentedViewSetSegmentImage(theView, 1, &theImage), noErr);
    ReleaseIconRef(theIcon);
    EXPECT_EQ(LookOfSegment(theView, 1).thePicture, Host::PictureShape::kFolder);
    EXPECT_EQ(HISegmentedViewGetSegmentImageContentType(theView, 1), kControlContentIconRef);
    HIViewImageContentInfo theCopy = {};
    EXPECT_EQ(HISegmentedViewCopySegmentImage(theView, 1, &theCopy), noErr);
    EXPECT_EQ(theCopy.u.iconRef, theIcon);
    ReleaseIconRef(theCopy.u.iconRef);
    theImage.contentType = 99;
    EXPECT_EQ(HISegmentedViewSetSegmentImage(theView, 1, &theImage), paramErr);
    EXPECT_EQ(HISegmentedViewSetSegmentImage(theView, 1, nullptr), paramErr);
    EXPECT_EQ(HISegmentedViewGetSegmentImageContentType(theView, 1), kControlContentIconRef);
    EXPECT_EQ(HISegmentedViewCopySegmentImage(theView, 2, &theCopy), noErr);
    EXPECT_EQ(theCopy.contentType, kControlContentTextOnly);
    HISegmentedViewSetSegmentContentWidth(theView, 1, true, 0);
    HISegmentedViewSetSegmentContentWidth(theView, 2, true, 0);
    EXPECT_GT(HISegmentedViewGetSegmentContentWidth(theView, 1, nullptr),
              HISegmentedViewGetSegmentContentWidth(theView, 2, nullptr));
}

// Values -------------------------------------------------------------------------------------------------

TEST_F(Segments, OneRadioSegmentIsOnAndIsTheValueOfTheView)
{
    HIViewRef theView = NewView();
    Watch(theView, "view", kWithoutHilite);
    EXPECT_EQ(HISegmentedViewSetSegmentValue(theView, 2, 1), noErr);
    EXPECT_EQ(ValuesOf(theView), "010 2");
    EXPECT_EQ(HISegmentedViewSetSegmentValue(theView, 3, 1), noErr);
    EXPECT_EQ(ValuesOf(theView), "001 3");
    EXPECT_EQ(TakeLog(), (Log{"view: ValueFieldChanged", "view: ValueFieldChanged"}));
    EXPECT_EQ(HISegmentedViewSetSegmentValue(theView, 3, 0), noErr);
    EXPECT_EQ(ValuesOf(theView), "000 0");
    SetControl32BitValue(theView, 1);
    EXPECT_EQ(ValuesOf(theView), "100 1");
    EXPECT_EQ(TakeLog(), (Log{"view: ValueFieldChanged", "view: ValueFieldChanged"}));
}

TEST_F(Segments, WhatIsNoRadioSegmentStaysAsItIs)
{
    HIViewRef theView = NewView();
    HISegmentedViewSetSegmentBehavior(theView, 1, kHISegmentBehaviorToggles);
    EXPECT_EQ(HISegmentedViewSetSegmentValue(theView, 1, 1), noErr);
    EXPECT_EQ(ValuesOf(theView), "100 0");
    HISegmentedViewSetSegmentValue(theView, 3, 1);
    EXPECT_EQ(ValuesOf(theView), "101 3");
    HISegmentedViewSetSegmentBehavior(theView, 3, kHISegmentBehaviorMomentary);
    EXPECT_EQ(ValuesOf(theView), "100 0") << "one that never stays on";
    EXPECT_EQ(HISegmentedViewSetSegmentValue(theView, 3, 1), paramErr);
    HISegmentedViewSetSegmentBehavior(theView, 1, kHISegmentBehaviorRadio);
    EXPECT_EQ(ValuesOf(theView), "100 1");
}

TEST_F(Segments, SegmentsThatAreTakenAwayAreNoValueAnyMore)
{
    HIViewRef theView = NewView();
    HISegmentedViewSetSegmentValue(theView, 3, 1);
    EXPECT_EQ(HISegmentedViewSetSegmentCount(theView, 2), noErr);
    EXPECT_EQ(ValuesOf(theView), "00 0");
    EXPECT_EQ(GetControl32BitMaximum(theView), 2);
    HISegmentedViewSetSegmentValue(theView, 2, 1);
    EXPECT_EQ(HISegmentedViewSetSegmentCount(theView, 4), noErr);
    EXPECT_EQ(ValuesOf(theView), "0100 2");
    EXPECT_EQ(HISegmentedViewSetSegmentCount(theView, 128), noErr);
    EXPECT_EQ(HISegmentedViewSetSegmentCount(theView, 129), paramErr);
    EXPECT_EQ(HISegmentedViewGetSegmentCount(theView), 128u);
}

// Mouse and keys -----------------------------------------------------------------------------------------

TEST_F(Segments, AClickDoesWhatTheBehaviourSays)
{
    const struct
    {
        HISegmentBehavior theBehavior;
        const char* theFirst;
        const char* theSecond;
    } kRows[] = {{kHISegmentBehaviorMomentary, "000 0", "000 0"},
                 {kHISegmentBehaviorRadio, "010 2", "010 2"},
                 {kHISegmentBehaviorToggles, "010 0", "000 0"},
                 {kHISegmentBehaviorSticky, "010 0", "010 0"}};
    for (const auto& theRow : kRows) {
        HIViewRef theView = NewView(3, theRow.theBehavior);
        EXPECT_TRUE(mUser.ClickPart(theView, 2));
        EXPECT_EQ(ValuesOf(theView), theRow.theFirst) << theRow.theBehavior;
        EXPECT_TRUE(mUser.ClickPart(theView, 2));
        EXPECT_EQ(ValuesOf(theView), theRow.theSecond) << theRow.theBehavior;
        DisposeControl(theView);
    }
}

TEST_F(Segments, AClickSetsTheValueAndTellsWhichOneWasHit)
{
    HIViewRef theView = NewView();
    WatchHits(theView);
    EXPECT_TRUE(mUser.ClickPart(theView, 3));
    EXPECT_EQ(TakeLog(), (Log{"view: ValueFieldChanged", "hit 3"}));
    Mouse(kEventMouseDown, 80, 210);
    EXPECT_TRUE(LookOfSegment(theView, 2).theIsPressed);
    EXPECT_FALSE(LookOfSegment(theView, 1).theIsPressed);
    Mouse(kEventMouseUp, 30, 210);
    EXPECT_EQ(TakeLog(), Log()) << "let go elsewhere";
    HISegmentedViewSetSegmentEnabled(theView, 1, false);
    EXPECT_FALSE(mUser.ClickPart(theView, 1));
    EXPECT_EQ(TestControl(theView, Point{210, 30}), kControlNoPart);
    EXPECT_EQ(TestControl(theView, Point{210, 300}), kControlNoPart) << "behind the last one";
}

TEST_F(Segments, SendTheirCommandOrThatOfTheView)
{
    HIViewRef theView = NewView();
    WatchCommands();
    mUser.ClickPart(theView, 1);
    EXPECT_EQ(TakeLog(), Log());
    SetControlCommandID(theView, 7);
    HISegmentedViewSetSegmentCommand(theView, 2, 9);
    mUser.ClickPart(theView, 1);
    mUser.ClickPart(theView, 2);
    EXPECT_EQ(TakeLog(), (Log{"command 7", "command 9"}));
    Watch(theView, "view", {{kEventClassControl, kEventControlHit}}, [](EventRef) { return noErr; });
    mUser.ClickPart(theView, 2);
    EXPECT_EQ(TakeLog(), Log{"view: Hit"}) << "a hit that is taken sends none";
}

TEST_F(Segments, ACommandCanGoToWhatHasTheKeys)
{
    HIViewRef theView = NewView();
    ControlRef theField = NewFieldAt(20, 240);
    SetFocus(theField);
    HISegmentedViewSetSegmentCommand(theView, 2, 9);
    Watch(theField, "field", {{kEventClassCommand, kEventCommandProcess}}, [](EventRef) { return noErr; });
    WatchCommands();
    mUser.ClickPart(theView, 2);
    EXPECT_EQ(TakeLog(), Log{"command 9"});
    HISegmentedViewChangeSegmentAttributes(theView, 2, kHISegmentSendCmdToUserFocus, 0);
    mUser.ClickPart(theView, 2);
    EXPECT_EQ(TakeLog(), Log{"field: CommandProcess"});
}

TEST_F(Segments, TheArrowsGoFromOneToTheNextAndTheSpaceBarClicks)
{
    HIViewRef theView = NewView(4, kHISegmentBehaviorToggles);
    HISegmentedViewSetSegmentEnabled(theView, 1, false);
    HISegmentedViewSetSegmentEnabled(theView, 3, false);
    EXPECT_EQ(GiveKeys(theView), noErr);
    EXPECT_EQ(Key(kVK_Space, " "), noErr);
    EXPECT_EQ(ValuesOf(theView), "0100 0") << "the first that can be reached";
    Key(kVK_RightArrow);
    EXPECT_TRUE(LookOfSegment(theView, 4).theHasKeys);
    Key(kVK_RightArrow);
    Key(kVK_Space, " ");
    EXPECT_EQ(ValuesOf(theView), "0101 0") << "the last stays it";
    Key(kVK_LeftArrow);
    Key(kVK_LeftArrow);
    EXPECT_TRUE(LookOfSegment(theView, 2).theHasKeys);
    mUser.ClickPart(theView, 4);
    EXPECT_TRUE(LookOfSegment(theView, 4).theHasKeys) << "a click brings the keys along";
    EXPECT_EQ(Key(kVK_UpArrow), eventNotHandledErr);
}

TEST_F(Segments, TakeNoFocusWhereNothingCanBeReached)
{
    HIViewRef theView = NewView(1);
    EXPECT_EQ(GiveKeys(theView), noErr);
    HISegmentedViewSetSegmentEnabled(theView, 1, false);
    EXPECT_EQ(Key(kVK_Space, " "), eventNotHandledErr);
    ClearKeyboardFocus(mWindow);
    EXPECT_EQ(GiveKeys(theView), errCouldntSetFocus);
}

TEST_F(Segments, TheViewMayGoInItsOwnEvents)
{
    for (const UInt32 theKind : {UInt32{kEventControlValueFieldChanged}, UInt32{kEventControlHit}}) {
        HIViewRef theView = NewView();
        Watch(theView, "view", {{kEventClassControl, theKind}}, [theView](EventRef) {
            DisposeControl(theView);
            return OSStatus{noErr};
        });
        mUser.ClickPart(theView, 2);
        EXPECT_FALSE(IsValidControlHandle(theView));
        EXPECT_EQ(TakeLog().size(), 1u);
    }
}

// What is none -------------------------------------------------------------------------------------------

TEST_F(Segments, AnswerWhatIsNoneWithAStatus)
{
    EXPECT_EQ(HISegmentedViewCreate(nullptr, nullptr), paramErr);
    HIViewImageContentInfo theImage = {kControlContentTextOnly, {0}};
    CFStringRef theLabel = nullptr;
    const auto theExpected = [&](HIViewRef theView, UInt32 theNumber, OSStatus theStatus) {
        EXPECT_EQ(HISegmentedViewSetSegmentBehavior(theView, theNumber, 1), theStatus);
        EXPECT_EQ(HISegmentedViewSetSegmentLabel(theView, theNumber, CFSTR("A")), theStatus);
        EXPECT_EQ(HISegmentedViewCopySegmentLabel(theView, theNumber, &theLabel), theStatus);
        EXPECT_EQ(HISegmentedViewSetSegmentValue(theView, theNumber, 0), theStatus);
        EXPECT_EQ(HISegmentedViewSetSegmentCommand(theView, theNumber, 1), theStatus);
        EXPECT_EQ(HISegmentedViewSetSegmentEnabled(theView, theNumber, true), theStatus);
        EXPECT_EQ(HISegmentedViewSetSegmentContentWidth(theView, theNumber, true, 0), theStatus);
        EXPECT_EQ(HISegmentedViewSetSegmentImage(theView, theNumber, &theImage), theStatus);
        EXPECT_EQ(HISegmentedViewCopySegmentImage(theView, theNumber, &theImage), theStatus);
        EXPECT_EQ(HISegmentedViewChangeSegmentAttributes(theView, theNumber, 0, 0), theStatus);
        Boolean theIsAutomatic = true;
        EXPECT_EQ(HISegmentedViewGetSegmentContentWidth(theView, theNumber, &theIsAutomatic), 0);
        EXPECT_FALSE(theIsAutomatic);
        EXPECT_EQ(HISegmentedViewGetSegmentBehavior(theView, theNumber), 0u);
        EXPECT_EQ(HISegmentedViewGetSegmentValue(theView, theNumber), 0);
        EXPECT_EQ(HISegmentedViewGetSegmentCommand(theView, theNumber), 0u);
        EXPECT_EQ(HISegmentedViewGetSegmentAttributes(theView, theNumber), 0u);
        EXPECT_EQ(HISegmentedViewGetSegmentImageContentType(theView, theNumber), 0);
        EXPECT_FALSE(HISegmentedViewIsSegmentEnabled(theView, theNumber));
    };
    HIViewRef theView = NewView();
    theExpected(theView, 0, paramErr);
    theExpected(theView, 4, paramErr);
    theExpected(theView, 0xFFFFFFFF, paramErr);
    for (HIViewRef theWrong : {HIViewRef{}, NewPushButton()}) {
        theExpected(theWrong, 1, errUnknownControl);
        EXPECT_EQ(HISegmentedViewSetSegmentCount(theWrong, 1), errUnknownControl);
        EXPECT_EQ(HISegmentedViewGetSegmentCount(theWrong), 0u);
    }
}

TEST_F(Segments, RefuseValuesThatDoNotExist)
{
    HIViewRef theView = NewView();
    const CGFloat theNoNumber = std::numeric_limits<CGFloat>::quiet_NaN();
    EXPECT_EQ(HISegmentedViewSetSegmentBehavior(theView, 1, 0), paramErr);
    EXPECT_EQ(HISegmentedViewSetSegmentBehavior(theView, 1, 5), paramErr);
    EXPECT_EQ(HISegmentedViewSetSegmentValue(theView, 1, 2), paramErr);
    EXPECT_EQ(HISegmentedViewSetSegmentValue(theView, 1, -1), paramErr);
    EXPECT_EQ(HISegmentedViewSetSegmentContentWidth(theView, 1, false, -1), paramErr);
    EXPECT_EQ(HISegmentedViewSetSegmentContentWidth(theView, 1, false, theNoNumber), paramErr);
    EXPECT_EQ(HISegmentedViewChangeSegmentAttributes(theView, 1, 2, 0), paramErr);
    EXPECT_EQ(HISegmentedViewChangeSegmentAttributes(theView, 1, 0, 2), paramErr);
    EXPECT_EQ(HISegmentedViewCopySegmentLabel(theView, 1, nullptr), paramErr);
    EXPECT_EQ(HISegmentedViewCopySegmentImage(theView, 1, nullptr), paramErr);
    EXPECT_EQ(HISegmentedViewGetSegmentBehavior(theView, 1), UInt32{kHISegmentBehaviorRadio});
    EXPECT_EQ(HISegmentedViewGetSegmentContentWidth(theView, 1, nullptr), 30);
    EXPECT_EQ(HIViewSimulateClick(theView, 5, 0, nullptr), errInvalidPartCode);
}
