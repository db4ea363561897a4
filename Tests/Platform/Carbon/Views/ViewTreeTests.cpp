// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ViewTestSupport.h"

namespace {

class ViewTree : public ViewTest
{
protected:
    // From front to back, by the calls that go from one to the next.
    static std::vector<HIViewRef> FrontToBack(HIViewRef theView)
    {
        std::vector<HIViewRef> theViews;
        for (HIViewRef theOne = HIViewGetFirstSubview(theView); theOne != nullptr;
             theOne = HIViewGetNextView(theOne)) {
            theViews.push_back(theOne);
        }
        return theViews;
    }

    HIViewRef mBack = NewBox(Root(), MakeRect(0, 0, 100, 100));
    HIViewRef mMiddle = NewBox(Root(), MakeRect(0, 0, 100, 100));
    HIViewRef mFront = NewBox(Root(), MakeRect(0, 0, 100, 100));
};

using Views = std::vector<HIViewRef>;

} // namespace

TEST_F(ViewTree, TheRootHoldsTheViewsOfTheWindow)
{
    ControlRef theRoot = nullptr;
    ASSERT_EQ(GetRootControl(mWindow, &theRoot), noErr);
    EXPECT_EQ(Root(), theRoot);
    EXPECT_EQ(HIViewGetSuperview(mFront), theRoot);
    EXPECT_EQ(HIViewGetSuperview(theRoot), nullptr);
    EXPECT_EQ(HIViewGetWindow(mFront), mWindow);
}

TEST_F(ViewTree, TheRootOfAWindowWithoutControlsIsMade)
{
    WindowRef theWindow = NewWindow();
    ControlRef theRoot = nullptr;
    EXPECT_EQ(GetRootControl(theWindow, &theRoot), errNoRootControl);
    EXPECT_NE(HIViewGetRoot(theWindow), nullptr);
    EXPECT_EQ(GetRootControl(theWindow, &theRoot), noErr);
    DisposeWindow(theWindow);
    EXPECT_EQ(HIViewGetRoot(theWindow), nullptr);
    EXPECT_EQ(HIViewGetRoot(nullptr), nullptr);
}

TEST_F(ViewTree, TheContentIsFoundInACompositingWindowOnly)
{
    HIViewRef theContent = nullptr;
    EXPECT_EQ(HIViewFindByID(Root(), kHIViewWindowContentID, &theContent), noErr);
    EXPECT_EQ(theContent, Root());
    EXPECT_EQ(HIViewFindByID(mFront, kHIViewWindowContentID, &theContent), errUnknownControl);
    WindowRef theOther = NewWindow();
    EXPECT_EQ(HIViewFindByID(HIViewGetRoot(theOther), kHIViewWindowContentID, &theContent),
              errUnknownControl);
    EXPECT_EQ(theContent, nullptr);
    DisposeWindow(theOther);
}

TEST_F(ViewTree, AViewIsFoundByItsIdentifierAtTheStartAndBelow)
{
    const HIViewID theID = {'test', 7};
    const HIViewRef theInner = NewBox(mMiddle, MakeRect(0, 0, 10, 10));
    EXPECT_EQ(HIViewSetID(theInner, theID), noErr);
    HIViewRef theFound = nullptr;
    EXPECT_EQ(HIViewFindByID(Root(), theID, &theFound), noErr);
    EXPECT_EQ(theFound, theInner);
    EXPECT_EQ(HIViewFindByID(theInner, theID, &theFound), noErr);
    EXPECT_EQ(theFound, theInner);
    EXPECT_EQ(HIViewFindByID(mFront, theID, &theFound), errUnknownControl);
    EXPECT_EQ(theFound, nullptr);
    EXPECT_EQ(HIViewFindByID(nullptr, theID, &theFound), errUnknownControl);
    EXPECT_EQ(HIViewFindByID(Root(), theID, nullptr), paramErr);
}

TEST_F(ViewTree, AnAddedViewComesToTheFrontAndItsParentIsTold)
{
    Watch(mMiddle, "middle");
    Watch(mBack, "back");
    EXPECT_EQ(HIViewAddSubview(mMiddle, mBack), noErr);
    EXPECT_EQ(HIViewGetSuperview(mBack), mMiddle);
    EXPECT_EQ(FrontToBack(Root()), (Views{mFront, mMiddle}));
    EXPECT_EQ(TakeLog(), (Log{"middle: AddedSubControl"}));
}

TEST_F(ViewTree, ViewsAreAddedInCompositingWindowsOnly)
{
    WindowRef theOther = NewWindow();
    const HIViewRef theRoot = HIViewGetRoot(theOther);
    EXPECT_EQ(HIViewAddSubview(theRoot, mFront), errNeedsCompositedWindow);
    EXPECT_EQ(HIViewAddSubview(mFront, mFront), errCantEmbedIntoSelf);
    EXPECT_EQ(HIViewAddSubview(mFront, Root()), errCantEmbedRoot);
    EXPECT_EQ(HIViewAddSubview(NewSlider(), mFront), errControlIsNotEmbedder);
    EXPECT_EQ(HIViewAddSubview(nullptr, mFront), errUnknownControl);
    EXPECT_EQ(HIViewAddSubview(mFront, nullptr), errUnknownControl);
    DisposeWindow(theOther);
}

TEST_F(ViewTree, ARemovedViewIsNowhereAndCanComeBack)
{
    const HIViewRef theInner = NewBox(mFront, MakeRect(0, 0, 10, 10));
    Watch(theInner, "inner", {{kEventClassControl, kEventControlOwningWindowChanged}});
    Watch(mFront, "front", {{kEventClassControl, kEventControlOwningWindowChanged}});
    Watch(Root(), "root", {{kEventClassControl, kEventControlRemovingSubControl}});
    EXPECT_EQ(HIViewRemoveFromSuperview(mFront), noErr);
    EXPECT_EQ(TakeLog(), (Log{"root: RemovingSubControl", "front: OwningWindowChanged",
                              "inner: OwningWindowChanged", "front: OwningWindowChanged"}));
    EXPECT_EQ(HIViewGetSuperview(mFront), nullptr);
    EXPECT_EQ(HIViewGetWindow(mFront), nullptr);
    EXPECT_EQ(HIViewGetWindow(theInner), nullptr);
    EXPECT_EQ(HIViewGetSuperview(theInner), mFront);
    EXPECT_EQ(FrontToBack(Root()), (Views{mMiddle, mBack}));
    EXPECT_EQ(HIViewRemoveFromSuperview(mFront), noErr);
    EXPECT_EQ(HIViewAddSubview(mMiddle, mFront), noErr);
    EXPECT_EQ(HIViewGetWindow(theInner), mWindow);
    EXPECT_EQ(HIViewRemoveFromSuperview(Root()), errCantEmbedRoot);
    EXPECT_EQ(HIViewRemoveFromSuperview(nullptr), errUnknownControl);
}

TEST_F(ViewTree, AViewThatIsPutIntoOneThatIsNowhereLeavesItsWindow)
{
    ASSERT_EQ(HIViewRemoveFromSuperview(mFront), noErr);
    EXPECT_EQ(HIViewAddSubview(mFront, mMiddle), noErr);
    EXPECT_EQ(HIViewGetWindow(mMiddle), nullptr);
    EXPECT_EQ(HIViewGetSuperview(mMiddle), mFront);
    EXPECT_EQ(FrontToBack(Root()), Views{mBack});
    DisposeControl(mFront);
}

TEST_F(ViewTree, ARemovedViewGivesUpTheFocusAndIsNoDefaultButton)
{
    const HIViewRef theField = NewEditText("text");
    const HIViewRef theButton = NewPushButton();
    ASSERT_EQ(SetKeyboardFocus(mWindow, theField, kControlEditTextPart), noErr);
    ASSERT_EQ(SetWindowDefaultButton(mWindow, theButton), noErr);
    EXPECT_EQ(HIViewRemoveFromSuperview(theField), noErr);
    EXPECT_EQ(HIViewRemoveFromSuperview(theButton), noErr);
    ControlRef theFound = theButton;
    EXPECT_EQ(GetWindowDefaultButton(mWindow, &theFound), noErr);
    EXPECT_EQ(theFound, nullptr);
    EXPECT_EQ(GetKeyboardFocus(mWindow, &theFound), noErr);
    EXPECT_EQ(theFound, nullptr);
    DisposeControl(theField);
    DisposeControl(theButton);
}

TEST_F(ViewTree, AViewThatAHandlerDisposesOnItsWayOutIsGone)
{
    Watch(Root(), "root", {{kEventClassControl, kEventControlRemovingSubControl}}, [this](EventRef) {
        DisposeControl(mFront);
        return OSStatus{noErr};
    });
    EXPECT_EQ(HIViewRemoveFromSuperview(mFront), noErr);
    EXPECT_FALSE(HIViewIsValid(mFront));
    EXPECT_EQ(FrontToBack(Root()), (Views{mMiddle, mBack}));
}

TEST_F(ViewTree, ViewsAreCountedAndNumberedFromTheFront)
{
    EXPECT_EQ(HIViewCountSubviews(Root()), 3);
    EXPECT_EQ(HIViewGetFirstSubview(Root()), mFront);
    EXPECT_EQ(HIViewGetLastSubview(Root()), mBack);
    EXPECT_EQ(FrontToBack(Root()), (Views{mFront, mMiddle, mBack}));
    EXPECT_EQ(HIViewGetPreviousView(mBack), mMiddle);
    EXPECT_EQ(HIViewGetPreviousView(mFront), nullptr);
    EXPECT_EQ(HIViewGetNextView(mBack), nullptr);
    HIViewRef theView = nullptr;
    EXPECT_EQ(HIViewGetIndexedSubview(Root(), 1, &theView), noErr);
    EXPECT_EQ(theView, mFront);
    EXPECT_EQ(HIViewGetIndexedSubview(Root(), 3, &theView), noErr);
    EXPECT_EQ(theView, mBack);
    for (const CFIndex theBad : {CFIndex{0}, CFIndex{4}, CFIndex{-1}}) {
        EXPECT_EQ(HIViewGetIndexedSubview(Root(), theBad, &theView), paramErr) << theBad;
        EXPECT_EQ(theView, nullptr);
    }
    EXPECT_EQ(HIViewGetIndexedSubview(nullptr, 1, &theView), errUnknownControl);
    EXPECT_EQ(HIViewGetIndexedSubview(Root(), 1, nullptr), paramErr);
}

TEST_F(ViewTree, WhatIsNoViewHasNothingAround)
{
    EXPECT_EQ(HIViewCountSubviews(nullptr), 0);
    EXPECT_EQ(HIViewGetFirstSubview(nullptr), nullptr);
    EXPECT_EQ(HIViewGetLastSubview(nullptr), nullptr);
    EXPECT_EQ(HIViewGetNextView(nullptr), nullptr);
    EXPECT_EQ(HIViewGetPreviousView(nullptr), nullptr);
    EXPECT_EQ(HIViewGetSuperview(nullptr), nullptr);
    EXPECT_EQ(HIViewGetWindow(nullptr), nullptr);
    EXPECT_FALSE(HIViewIsValid(nullptr));
    EXPECT_TRUE(HIViewIsValid(mFront));
    EXPECT_EQ(HIViewGetFirstSubview(mFront), nullptr);
    EXPECT_EQ(HIViewGetLastSubview(mFront), nullptr);
    EXPECT_EQ(HIViewGetNextView(Root()), nullptr);
}

TEST_F(ViewTree, TheOrderCanBeChanged)
{
    EXPECT_EQ(HIViewSetZOrder(mBack, kHIViewZOrderAbove, nullptr), noErr);
    EXPECT_EQ(FrontToBack(Root()), (Views{mBack, mFront, mMiddle}));
    EXPECT_EQ(HIViewSetZOrder(mFront, kHIViewZOrderBelow, nullptr), noErr);
    EXPECT_EQ(FrontToBack(Root()), (Views{mBack, mMiddle, mFront}));
    EXPECT_EQ(HIViewSetZOrder(mFront, kHIViewZOrderAbove, mMiddle), noErr);
    EXPECT_EQ(FrontToBack(Root()), (Views{mBack, mFront, mMiddle}));
    EXPECT_EQ(HIViewSetZOrder(mBack, kHIViewZOrderAbove, mMiddle), noErr);
    EXPECT_EQ(FrontToBack(Root()), (Views{mFront, mBack, mMiddle}));
    EXPECT_EQ(HIViewSetZOrder(mFront, kHIViewZOrderBelow, mBack), noErr);
    EXPECT_EQ(FrontToBack(Root()), (Views{mBack, mFront, mMiddle}));
    EXPECT_EQ(HIViewSetZOrder(mMiddle, kHIViewZOrderBelow, mBack), noErr);
    EXPECT_EQ(FrontToBack(Root()), (Views{mBack, mMiddle, mFront}));
}

TEST_F(ViewTree, AClickReachesTheViewThatWasPutInFront)
{
    Watch(mBack, "back", {{kEventClassControl, kEventControlHit}});
    EXPECT_EQ(HIViewSetZOrder(mBack, kHIViewZOrderAbove, nullptr), noErr);
    ControlRef theHit = nullptr;
    FindControl(Point{50, 50}, mWindow, &theHit);
    EXPECT_EQ(theHit, mBack);
}

TEST_F(ViewTree, TheOrderStaysForWhatIsNoOrder)
{
    const HIViewRef theInner = NewBox(mFront, MakeRect(0, 0, 10, 10));
    EXPECT_EQ(HIViewSetZOrder(mBack, 3, nullptr), paramErr);
    EXPECT_EQ(HIViewSetZOrder(mBack, kHIViewZOrderAbove, mBack), paramErr);
    EXPECT_EQ(HIViewSetZOrder(mBack, kHIViewZOrderAbove, theInner), paramErr);
    EXPECT_EQ(HIViewSetZOrder(mBack, kHIViewZOrderAbove, InventedReference<ControlRef>()), paramErr);
    EXPECT_EQ(HIViewSetZOrder(Root(), kHIViewZOrderAbove, nullptr), paramErr);
    EXPECT_EQ(HIViewSetZOrder(nullptr, kHIViewZOrderAbove, nullptr), errUnknownControl);
    EXPECT_EQ(FrontToBack(Root()), (Views{mFront, mMiddle, mBack}));
}
