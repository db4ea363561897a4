// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Controls in controls and windows: embedding, order, owners, identifiers and disposal.

#include "ManagerTestSupport.h"

namespace {

class ControlHierarchy : public ManagerTest
{
protected:
    static ControlRef Root(WindowRef theWindow)
    {
        ControlRef theRoot = nullptr;
        EXPECT_EQ(GetRootControl(theWindow, &theRoot), noErr);
        return theRoot;
    }

    static ControlRef Parent(ControlRef theControl)
    {
        ControlRef theParent = nullptr;
        EXPECT_EQ(GetSuperControl(theControl, &theParent), noErr);
        return theParent;
    }

    static std::vector<ControlRef> SubControls(ControlRef theControl)
    {
        UInt16 theCount = 0;
        EXPECT_EQ(CountSubControls(theControl, &theCount), noErr);
        std::vector<ControlRef> theControls(theCount);
        for (UInt16 theIndex = 1; theIndex <= theCount; ++theIndex) {
            EXPECT_EQ(GetIndexedSubControl(theControl, theIndex, &theControls[theIndex - size_t{1}]), noErr);
        }
        return theControls;
    }
};

using Controls = std::vector<ControlRef>;

} // namespace

// --- The root ----------------------------------------------------------------------------------------

TEST_F(ControlHierarchy, AWindowGetsItsRootWithItsFirstControl)
{
    ControlRef theRoot = InventedReference<ControlRef>();
    EXPECT_EQ(GetRootControl(mWindow, &theRoot), errNoRootControl);
    EXPECT_EQ(theRoot, nullptr);
    ControlRef theSlider = NewSlider();
    EXPECT_EQ(GetRootControl(mWindow, &theRoot), noErr);
    EXPECT_EQ(Parent(theSlider), theRoot);
    EXPECT_EQ(Parent(theRoot), nullptr);
    EXPECT_EQ(GetControlOwner(theRoot), mWindow);
    EXPECT_EQ(CreateRootControl(mWindow, &theRoot), errRootAlreadyExists);
}

TEST_F(ControlHierarchy, ARootCanBeMadeBeforeTheFirstControl)
{
    ControlRef theRoot = nullptr;
    EXPECT_EQ(CreateRootControl(mWindow, &theRoot), noErr);
    EXPECT_EQ(theRoot, Root(mWindow));
    EXPECT_EQ(Parent(NewSlider()), theRoot);
    EXPECT_EQ(CreateRootControl(NewWindow(), nullptr), noErr);
    EXPECT_EQ(CreateRootControl(nullptr, &theRoot), errInvalidWindowRef);
    EXPECT_EQ(GetRootControl(nullptr, &theRoot), errInvalidWindowRef);
    EXPECT_EQ(GetRootControl(mWindow, nullptr), paramErr);
}

TEST_F(ControlHierarchy, ACompositingWindowHasItsRootFromTheStart)
{
    WindowRef theWindow = NewWindow(kDocumentWindowClass, kWindowCompositingAttribute);
    ControlRef theRoot = Root(theWindow);
    EXPECT_NE(theRoot, nullptr);
    EXPECT_EQ(CreateRootControl(theWindow, &theRoot), errRootAlreadyExists);
}

TEST_F(ControlHierarchy, TheRootIsAUserPaneAsLargeAsTheContent)
{
    NewSlider();
    ControlKind theKind = {0, 0};
    GetControlKind(Root(mWindow), &theKind);
    EXPECT_EQ(OSType{theKind.kind}, OSType{kControlKindUserPane});
    Rect theBounds;
    EXPECT_EQ(Describe(*GetControlBounds(Root(mWindow), &theBounds)), "0, 0, 400, 300");
    SizeWindow(mWindow, 500, 200, true);
    EXPECT_EQ(Describe(*GetControlBounds(Root(mWindow), &theBounds)), "0, 0, 500, 200");
}

TEST_F(ControlHierarchy, TheRootGoesWithItsWindowOnlyOnPurpose)
{
    ControlRef theSlider = NewSlider();
    DisposeControl(Root(mWindow));
    EXPECT_TRUE(IsValidControlHandle(theSlider));
    EXPECT_TRUE(IsValidControlHandle(Root(mWindow)));
}

// --- Embedding ---------------------------------------------------------------------------------------

TEST_F(ControlHierarchy, NewControlsStandInFrontOfTheOthers)
{
    ControlRef theFirst = NewSlider();
    ControlRef theSecond = NewCheckBox();
    ControlRef theThird = NewPushButton();
    EXPECT_EQ(SubControls(Root(mWindow)), (Controls{theFirst, theSecond, theThird}));
}

TEST_F(ControlHierarchy, EmbeddingTellsTheOldAndTheNewContainer)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    ControlRef theRoot = Root(mWindow);
    Controls theNamed;
    const auto theNote = [&](EventRef theEvent) {
        theNamed.push_back(Parameter<ControlRef>(theEvent, kEventParamDirectObject, typeControlRef));
        theNamed.push_back(Parameter<ControlRef>(theEvent, kEventParamControlSubControl, typeControlRef));
        return OSStatus{noErr};
    };
    Watch(theRoot, "root", EventWatch::ControlNotifications(), theNote);
    Watch(theBox, "box", EventWatch::ControlNotifications(), theNote);
    Watch(theSlider, "slider");
    EXPECT_EQ(EmbedControl(theSlider, theBox), noErr);
    EXPECT_EQ(TakeLog(), (Log{"root: RemovingSubControl", "box: AddedSubControl"}));
    EXPECT_EQ(theNamed, (Controls{theRoot, theSlider, theBox, theSlider}));
    EXPECT_EQ(Parent(theSlider), theBox);
    EXPECT_EQ(SubControls(theBox), Controls{theSlider});
    EXPECT_EQ(SubControls(theRoot), Controls{theBox});
}

TEST_F(ControlHierarchy, ACreatedControlIsToldToItsContainer)
{
    CreateRootControl(mWindow, nullptr);
    Watch(Root(mWindow), "root");
    NewSlider();
    EXPECT_EQ(TakeLog(), Log{"root: AddedSubControl"});
}

TEST_F(ControlHierarchy, EmbeddingWhereItIsBringsToFrontInSilence)
{
    ControlRef theFirst = NewSlider();
    ControlRef theSecond = NewCheckBox();
    Watch(Root(mWindow), "root");
    EXPECT_EQ(EmbedControl(theFirst, Root(mWindow)), noErr);
    EXPECT_EQ(SubControls(Root(mWindow)), (Controls{theSecond, theFirst}));
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ControlHierarchy, EmbeddingInAnotherWindowMovesAllThatIsInside)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    EmbedControl(theSlider, theBox);
    WindowRef theOther = NewWindow();
    CreateRootControl(theOther, nullptr);
    std::vector<WindowRef> theWindows;
    const auto theNote = [&](EventRef theEvent) {
        theWindows.push_back(
            Parameter<WindowRef>(theEvent, kEventParamControlOriginalOwningWindow, typeWindowRef));
        theWindows.push_back(
            Parameter<WindowRef>(theEvent, kEventParamControlCurrentOwningWindow, typeWindowRef));
        return OSStatus{noErr};
    };
    const std::vector<EventTypeSpec> theTypes = {{kEventClassControl, kEventControlOwningWindowChanged}};
    Watch(theBox, "box", theTypes, theNote);
    Watch(theSlider, "slider", theTypes, theNote);
    EXPECT_EQ(EmbedControl(theBox, Root(theOther)), noErr);
    EXPECT_EQ(TakeLog(), (Log{"box: OwningWindowChanged", "slider: OwningWindowChanged"}));
    EXPECT_EQ(theWindows, (std::vector<WindowRef>{mWindow, theOther, mWindow, theOther}));
    EXPECT_EQ(GetControlOwner(theSlider), theOther);
    DisposeWindow(mWindow);
    EXPECT_TRUE(IsValidControlHandle(theSlider));
}

TEST_F(ControlHierarchy, AControlWithoutAWindowCanBeEmbedded)
{
    const Rect theBounds = MakeRect(0, 0, 50, 20);
    ControlRef theButton = nullptr;
    CreatePushButtonControl(nullptr, &theBounds, nullptr, &theButton);
    ControlRef theBox = NewGroupBox();
    Watch(theBox, "box");
    Watch(theButton, "button");
    EXPECT_EQ(EmbedControl(theButton, theBox), noErr);
    EXPECT_EQ(GetControlOwner(theButton), mWindow);
    // The button's event climbs to the box.
    EXPECT_EQ(TakeLog(),
              (Log{"button: OwningWindowChanged", "box: OwningWindowChanged", "box: AddedSubControl"}));
}

TEST_F(ControlHierarchy, RefusesImpossiblePlaces)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theInner = NewGroupBox();
    ControlRef theSlider = NewSlider();
    EmbedControl(theInner, theBox);
    EXPECT_EQ(EmbedControl(theBox, theBox), errCantEmbedIntoSelf);
    EXPECT_EQ(EmbedControl(theBox, theInner), errCantEmbedIntoSelf);
    EXPECT_EQ(EmbedControl(Root(mWindow), theBox), errCantEmbedRoot);
    EXPECT_EQ(EmbedControl(theInner, theSlider), errControlIsNotEmbedder);
    EXPECT_EQ(EmbedControl(nullptr, theBox), errUnknownControl);
    EXPECT_EQ(EmbedControl(theBox, nullptr), errUnknownControl);
    EXPECT_EQ(Parent(theInner), theBox);
}

TEST_F(ControlHierarchy, AutoEmbeddingFindsTheDeepestBoxAround)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theInner = nullptr;
    const Rect theInnerBounds = MakeRect(8, 8, 200, 100);
    CreateGroupBoxControl(mWindow, &theInnerBounds, CFSTR("Inner"), false, &theInner);
    ControlRef theSlider = NewSlider();
    EmbedControl(theInner, theBox);
    EXPECT_EQ(AutoEmbedControl(theSlider, mWindow), noErr);
    EXPECT_EQ(Parent(theSlider), theInner);
    MoveControl(theSlider, 250, 10);
    EXPECT_EQ(AutoEmbedControl(theSlider, mWindow), noErr);
    EXPECT_EQ(Parent(theSlider), theBox);
    MoveControl(theSlider, 250, 250);
    EXPECT_EQ(AutoEmbedControl(theSlider, mWindow), noErr);
    EXPECT_EQ(Parent(theSlider), Root(mWindow));
}

TEST_F(ControlHierarchy, AutoEmbeddingRefusesWhatItCannotDo)
{
    ControlRef theSlider = NewSlider();
    EXPECT_EQ(AutoEmbedControl(nullptr, mWindow), errUnknownControl);
    EXPECT_EQ(AutoEmbedControl(theSlider, nullptr), errInvalidWindowRef);
    EXPECT_EQ(AutoEmbedControl(theSlider, NewWindow()), errNoRootControl);
    EXPECT_EQ(AutoEmbedControl(theSlider, NewWindow(kDocumentWindowClass, kWindowCompositingAttribute)),
              paramErr);
}

TEST_F(ControlHierarchy, IndexesOutOfRangeGiveNullAndAStatus)
{
    NewSlider();
    for (const UInt16 theIndex : {UInt16{0}, UInt16{2}, UInt16{0xFFFF}}) {
        ControlRef theFound = InventedReference<ControlRef>();
        EXPECT_EQ(GetIndexedSubControl(Root(mWindow), theIndex, &theFound), paramErr);
        EXPECT_EQ(theFound, nullptr);
    }
    ControlRef theFound = nullptr;
    UInt16 theCount = 5;
    EXPECT_EQ(GetIndexedSubControl(nullptr, 1, &theFound), errUnknownControl);
    EXPECT_EQ(GetIndexedSubControl(Root(mWindow), 1, nullptr), paramErr);
    EXPECT_EQ(CountSubControls(nullptr, &theCount), errUnknownControl);
    EXPECT_EQ(theCount, 0);
    EXPECT_EQ(CountSubControls(Root(mWindow), nullptr), paramErr);
    EXPECT_EQ(GetSuperControl(nullptr, &theFound), errUnknownControl);
    EXPECT_EQ(GetSuperControl(Root(mWindow), nullptr), paramErr);
}

TEST_F(ControlHierarchy, BoundsInACompositingWindowAreThoseInTheParent)
{
    mWindow = NewWindow(kDocumentWindowClass, kWindowCompositingAttribute | kWindowStandardHandlerAttribute);
    ShowWindow(mWindow);
    ControlRef theBox = NewGroupBox();
    MoveControl(theBox, 100, 50);
    ControlRef theSlider = NewSlider();
    EmbedControl(theSlider, theBox);
    ControlRef theFound = nullptr;
    Point thePoint = {60, 110}; // 10, 10 in the box
    EXPECT_EQ(FindControl(thePoint, mWindow, &theFound), kControlIndicatorPart);
    EXPECT_EQ(theFound, theSlider);
    thePoint = {12, 12};
    FindControl(thePoint, mWindow, &theFound);
    EXPECT_EQ(theFound, nullptr);
}

// --- Disposal ----------------------------------------------------------------------------------------

TEST_F(ControlHierarchy, DisposalTellsTheControlThenItsSubControlsThenTheParent)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theFirst = NewSlider();
    ControlRef theSecond = NewCheckBox();
    EmbedControl(theFirst, theBox);
    EmbedControl(theSecond, theBox);
    Watch(Root(mWindow), "root");
    Watch(theBox, "box");
    Watch(theFirst, "back");
    Watch(theSecond, "front");
    DisposeControl(theBox);
    EXPECT_EQ(TakeLog(),
              (Log{"box: Dispose", "front: Dispose", "back: Dispose", "root: RemovingSubControl"}));
    EXPECT_FALSE(IsValidControlHandle(theBox));
    EXPECT_FALSE(IsValidControlHandle(theFirst));
    EXPECT_FALSE(IsValidControlHandle(theSecond));
    EXPECT_EQ(SubControls(Root(mWindow)), Controls{});
}

TEST_F(ControlHierarchy, AControlIsStillWholeWhenItHearsOfItsDisposal)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider(7);
    EmbedControl(theSlider, theBox);
    bool theIsSeen = false;
    Watch(theBox, "box", {{kEventClassControl, kEventControlDispose}}, [&](EventRef) {
        theIsSeen = IsValidControlHandle(theBox) && GetControl32BitValue(theSlider) == 7 &&
                    GetControlOwner(theBox) == mWindow;
        DisposeControl(theBox); // once more, which does nothing
        return OSStatus{eventNotHandledErr};
    });
    DisposeControl(theBox);
    EXPECT_TRUE(theIsSeen);
    EXPECT_EQ(TakeLog(), Log{"box: Dispose"});
    EXPECT_FALSE(IsValidControlHandle(theBox));
}

TEST_F(ControlHierarchy, NothingCanBeEmbeddedInAControlThatIsGoing)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    OSErr theStatus = noErr;
    Watch(theBox, "box", {{kEventClassControl, kEventControlDispose}}, [&](EventRef) {
        theStatus = EmbedControl(theSlider, theBox);
        return OSStatus{eventNotHandledErr};
    });
    DisposeControl(theBox);
    EXPECT_EQ(theStatus, errControlIsNotEmbedder);
    EXPECT_TRUE(IsValidControlHandle(theSlider));
}

TEST_F(ControlHierarchy, ASubControlMayDisposeItsContainerFromItsOwnDisposal)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theFirst = NewSlider();
    ControlRef theSecond = NewCheckBox();
    EmbedControl(theFirst, theBox);
    EmbedControl(theSecond, theBox);
    Watch(theSecond, "front", {{kEventClassControl, kEventControlDispose}}, [&](EventRef) {
        DisposeControl(theBox);
        return OSStatus{eventNotHandledErr};
    });
    DisposeControl(theSecond);
    for (ControlRef theControl : {theBox, theFirst, theSecond}) {
        EXPECT_FALSE(IsValidControlHandle(theControl));
    }
    EXPECT_EQ(SubControls(Root(mWindow)), Controls{});
}

TEST_F(ControlHierarchy, AHandlerMayDisposeTheWindowOfItsControl)
{
    ControlRef theSlider = NewSlider();
    Watch(theSlider, "slider", EventWatch::ControlNotifications(), [&](EventRef theEvent) {
        if (GetEventKind(theEvent) == kEventControlValueFieldChanged) {
            DisposeWindow(mWindow);
        }
        return OSStatus{eventNotHandledErr};
    });
    SetControl32BitValue(theSlider, 6);
    EXPECT_EQ(TakeLog(), (Log{"slider: ValueFieldChanged", "slider: Dispose"}));
    EXPECT_FALSE(IsValidControlHandle(theSlider));
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
}

TEST_F(ControlHierarchy, AHandlerMayDisposeAControlWhileItIsMoved)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    Watch(Root(mWindow), "root", {{kEventClassControl, kEventControlRemovingSubControl}}, [&](EventRef) {
        DisposeControl(theSlider);
        return OSStatus{eventNotHandledErr};
    });
    EmbedControl(theSlider, theBox);
    EXPECT_FALSE(IsValidControlHandle(theSlider));
    EXPECT_EQ(SubControls(theBox), Controls{});
    EXPECT_EQ(SubControls(Root(mWindow)), Controls{theBox});
}

TEST_F(ControlHierarchy, AHandlerMayMakeAMoveImpossible)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    Watch(Root(mWindow), "root", {{kEventClassControl, kEventControlRemovingSubControl}},
          [&](EventRef theEvent) {
              if (Parameter<ControlRef>(theEvent, kEventParamControlSubControl, typeControlRef) ==
                  theSlider) {
                  DisposeControl(theBox);
              }
              return OSStatus{eventNotHandledErr};
          });
    EmbedControl(theSlider, theBox);
    EXPECT_EQ(SubControls(Root(mWindow)), Controls{theSlider});
    EXPECT_EQ(Parent(theSlider), Root(mWindow));
}

TEST_F(ControlHierarchy, KillingControlsLeavesTheRoot)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    KillControls(mWindow);
    EXPECT_FALSE(IsValidControlHandle(theBox));
    EXPECT_FALSE(IsValidControlHandle(theSlider));
    EXPECT_EQ(SubControls(Root(mWindow)), Controls{});
    ControlRef theNext = NewSlider();
    KillControls(nullptr);
    KillControls(NewWindow());
    EXPECT_TRUE(IsValidControlHandle(theNext));
}

TEST_F(ControlHierarchy, HandlersOfADisposedControlAreNotCalledAgain)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    EmbedControl(theSlider, theBox);
    // The one below is not reached: the handler above it takes the control away.
    Watch(theSlider, "below", {{kEventClassControl, kEventControlValueFieldChanged}});
    Watch(theSlider, "above", {{kEventClassControl, kEventControlValueFieldChanged}}, [&](EventRef) {
        DisposeControl(theSlider);
        return OSStatus{eventNotHandledErr};
    });
    SetControl32BitValue(theSlider, 6);
    EXPECT_EQ(TakeLog(), Log{"above: ValueFieldChanged"});
}

TEST_F(ControlHierarchy, AThousandDeepIsNoTrouble)
{
    ControlRef theOuter = NewGroupBox();
    ControlRef theFirst = theOuter;
    for (int theDepth = 0; theDepth < 1000; ++theDepth) {
        ControlRef theInner = NewGroupBox();
        EXPECT_EQ(EmbedControl(theInner, theOuter), noErr);
        theOuter = theInner;
    }
    DisableControl(theFirst);
    EXPECT_FALSE(IsControlEnabled(theOuter));
    DisposeControl(theFirst);
    EXPECT_FALSE(IsValidControlHandle(theOuter));
}

// --- Identity ----------------------------------------------------------------------------------------

TEST_F(ControlHierarchy, IsFoundByTheIdentifierThatWasSet)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    EmbedControl(theSlider, theBox);
    const ControlID theID = {'Lmte', 7};
    EXPECT_EQ(SetControlID(theSlider, &theID), noErr);
    ControlRef theFound = nullptr;
    EXPECT_EQ(GetControlByID(mWindow, &theID, &theFound), noErr);
    EXPECT_EQ(theFound, theSlider);
    ControlID theRead = {0, 0};
    EXPECT_EQ(GetControlID(theSlider, &theRead), noErr);
    EXPECT_EQ(OSType{theRead.signature}, OSType{'Lmte'});
    EXPECT_EQ(SInt32{theRead.id}, 7);
}

TEST_F(ControlHierarchy, AnIdentifierThatNobodyHasGivesNullAndAStatus)
{
    NewSlider();
    const ControlID theIDs[] = {{'Lmte', 7}, {0, 0}};
    for (const ControlID& theID : theIDs) {
        ControlRef theFound = InventedReference<ControlRef>();
        EXPECT_EQ(GetControlByID(mWindow, &theID, &theFound), errUnknownControl);
        EXPECT_EQ(theFound, nullptr);
    }
    ControlRef theFound = InventedReference<ControlRef>();
    WindowRef theEmptyWindow = NewWindow();
    EXPECT_EQ(GetControlByID(theEmptyWindow, &theIDs[0], &theFound), errUnknownControl);
    EXPECT_EQ(GetControlByID(nullptr, &theIDs[0], &theFound), errInvalidWindowRef);
    EXPECT_EQ(theFound, nullptr);
    EXPECT_EQ(GetControlByID(mWindow, nullptr, &theFound), paramErr);
    EXPECT_EQ(GetControlByID(mWindow, &theIDs[0], nullptr), paramErr);
}

TEST_F(ControlHierarchy, OfTwoWithOneIdentifierTheOneBehindIsFound)
{
    ControlRef theFirst = NewSlider();
    ControlRef theSecond = NewSlider();
    const ControlID theID = {'Lmte', 0};
    SetControlID(theSecond, &theID);
    SetControlID(theFirst, &theID);
    ControlRef theFound = nullptr;
    GetControlByID(mWindow, &theID, &theFound);
    EXPECT_EQ(theFound, theFirst);
    DisposeControl(theFirst);
    GetControlByID(mWindow, &theID, &theFound);
    EXPECT_EQ(theFound, theSecond);
}

TEST_F(ControlHierarchy, AContainerIsFoundBeforeWhatItHoldsAndThatBeforeWhatIsInFront)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theFront = NewSlider();
    ControlRef theInner = NewSlider();
    EmbedControl(theInner, theBox);
    const ControlID theID = {'Lmte', 7};
    for (ControlRef theControl : {theFront, theInner, theBox}) {
        SetControlID(theControl, &theID);
        ControlRef theFound = nullptr;
        GetControlByID(mWindow, &theID, &theFound);
        EXPECT_EQ(theFound, theControl);
    }
}

TEST_F(ControlHierarchy, IsFoundByItsNewIdentifierAloneAndInItsOwnWindowAlone)
{
    ControlRef theSlider = NewSlider();
    const ControlID theIDs[] = {{'Lmte', 7}, {'Lmte', 8}};
    SetControlID(theSlider, &theIDs[0]);
    SetControlID(theSlider, &theIDs[1]);
    ControlRef theFound = nullptr;
    EXPECT_EQ(GetControlByID(mWindow, &theIDs[0], &theFound), errUnknownControl);
    EXPECT_EQ(GetControlByID(mWindow, &theIDs[1], &theFound), noErr);
    WindowRef theOther = NewWindow();
    CreateRootControl(theOther, nullptr);
    EXPECT_EQ(GetControlByID(theOther, &theIDs[1], &theFound), errUnknownControl);
    DisposeControl(theSlider);
    EXPECT_EQ(GetControlByID(mWindow, &theIDs[1], &theFound), errUnknownControl);
}

// --- Bad references ----------------------------------------------------------------------------------

TEST_F(ControlHierarchy, AReferenceIsNeverGivenOutAgain)
{
    ControlRef theFirst = NewSlider();
    DisposeControl(theFirst);
    for (int theCount = 0; theCount < 100; ++theCount) {
        ControlRef theNext = NewSlider();
        EXPECT_NE(theNext, theFirst);
        DisposeControl(theNext);
    }
    EXPECT_FALSE(IsValidControlHandle(theFirst));
}
