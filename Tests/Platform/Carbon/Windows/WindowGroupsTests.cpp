// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Groups of windows, and the scope of their activation.

#include "ManagerTestSupport.h"

namespace {

class WindowGroups : public WindowTest
{
protected:
    ~WindowGroups() override
    {
        for (const WindowGroupRef theGroup : mGroups) {
            ReleaseWindowGroup(theGroup);
        }
    }

    // A group at a level of its own.
    WindowGroupRef NewGroup(SInt32 theLevel = 0, WindowGroupAttributes theAttributes = 0)
    {
        WindowGroupRef theGroup = nullptr;
        EXPECT_EQ(CreateWindowGroup(theAttributes, &theGroup), noErr);
        EXPECT_EQ(SetWindowGroupLevel(theGroup, theLevel), noErr);
        mGroups.push_back(theGroup);
        return theGroup;
    }

    WindowRef NewWindowIn(WindowGroupRef theGroup)
    {
        WindowRef theWindow = NewWindow();
        EXPECT_EQ(SetWindowGroup(theWindow, theGroup), noErr);
        ShowWindow(theWindow);
        return theWindow;
    }

private:
    std::vector<WindowGroupRef> mGroups;
};

const WindowGroupContentOptions kWindows = kWindowGroupContentsReturnWindows;

} // namespace

TEST_F(WindowGroups, ThePlatformHasAGroupForEachLayer)
{
    const WindowGroupRef theRoot = GetWindowGroupOfClass(kAllWindowClasses);
    const WindowGroupRef theDocuments = GetWindowGroupOfClass(kDocumentWindowClass);
    EXPECT_TRUE(IsValidWindowGroup(theRoot));
    EXPECT_EQ(GetWindowGroupParent(theRoot), nullptr);
    EXPECT_EQ(GetWindowGroupParent(theDocuments), theRoot);
    EXPECT_EQ(GetWindowGroup(mWindow), theDocuments);
    EXPECT_EQ(GetWindowGroupOfClass(kPlainWindowClass), theDocuments);
    EXPECT_NE(GetWindowGroupOfClass(kFloatingWindowClass), theDocuments);
    EXPECT_EQ(GetWindowGroupOfClass(99), nullptr);
    SInt32 theDocumentLevel = -1;
    SInt32 theAlertLevel = -1;
    EXPECT_EQ(GetWindowGroupLevel(theDocuments, &theDocumentLevel), noErr);
    EXPECT_EQ(GetWindowGroupLevel(GetWindowGroupOfClass(kAlertWindowClass), &theAlertLevel), noErr);
    EXPECT_LT(theDocumentLevel, theAlertLevel);
    EXPECT_TRUE(IsWindowContainedInGroup(mWindow, theRoot));
    EXPECT_FALSE(IsWindowContainedInGroup(mWindow, GetWindowGroupOfClass(kFloatingWindowClass)));
}

TEST_F(WindowGroups, AWindowCanBePutIntoTheGroupOfAnotherClass)
{
    WindowRef thePalette = NewWindow(kFloatingWindowClass, kWindowNoAttributes);
    EXPECT_EQ(SetWindowGroup(mWindow, GetWindowGroupOfClass(kFloatingWindowClass)), noErr);
    EXPECT_EQ(Order(), (Windows{thePalette, mWindow})) << "at the back of a layer further in front";
    BringToFront(mWindow);
    EXPECT_EQ(Order(), (Windows{mWindow, thePalette}));
    WindowRef theDocument = NewWindow();
    EXPECT_EQ(SetWindowGroup(mWindow, GetWindowGroupOfClass(kDocumentWindowClass)), noErr);
    EXPECT_EQ(Order(), (Windows{thePalette, mWindow, theDocument})) << "at the front of one further behind";
}

TEST_F(WindowGroups, AGroupIsALayerByItsLevel)
{
    WindowRef theFront = NewWindowIn(NewGroup(5));
    WindowRef theBack = NewWindowIn(NewGroup(-1));
    WindowRef theDocument = NewWindow();
    WindowRef thePalette = NewWindow(kFloatingWindowClass, kWindowNoAttributes);
    EXPECT_EQ(Order(), (Windows{theFront, thePalette, theDocument, mWindow, theBack}));
    SelectWindow(theBack);
    EXPECT_EQ(Order().back(), theBack);
    EXPECT_EQ(SetWindowGroupLevel(GetWindowGroup(theBack), 100), noErr);
    EXPECT_EQ(Order(), (Windows{theBack, theFront, thePalette, theDocument, mWindow}));
    EXPECT_TRUE(IsWindowActive(theBack));
}

TEST_F(WindowGroups, AGroupInAGroupSharesItsLayer)
{
    const WindowGroupRef theOuter = NewGroup(5);
    const WindowGroupRef theInner = NewGroup(0);
    EXPECT_EQ(SetWindowGroupParent(theInner, theOuter), noErr);
    EXPECT_EQ(GetWindowGroupParent(theInner), theOuter);
    WindowRef theOne = NewWindowIn(theInner);
    WindowRef theTwo = NewWindowIn(theOuter);
    EXPECT_EQ(Order(), (Windows{theOne, theTwo, mWindow}));
    SelectWindow(theTwo);
    EXPECT_EQ(Order(), (Windows{theTwo, theOne, mWindow}));
    SInt32 theLevel = 0;
    EXPECT_EQ(GetWindowGroupLevel(theInner, &theLevel), paramErr);
    EXPECT_EQ(SetWindowGroupLevel(theInner, 9), paramErr);
    EXPECT_TRUE(IsWindowContainedInGroup(theOne, theOuter));
    EXPECT_FALSE(IsWindowContainedInGroup(theTwo, theInner));
    EXPECT_EQ(CountWindowGroupContents(theOuter, kWindows), 1u);
    EXPECT_EQ(CountWindowGroupContents(theOuter, kWindows | kWindowGroupContentsRecurse), 2u);
    EXPECT_EQ(CountWindowGroupContents(theOuter, 0), 1u) << "groups";
}

TEST_F(WindowGroups, MovingAGroupIntoAnotherMovesTheWindowsInItsGroups)
{
    const WindowGroupRef theOuter = NewGroup(5);
    const WindowGroupRef theMiddle = NewGroup(0);
    const WindowGroupRef theInner = NewGroup(0);
    SetWindowGroupParent(theInner, theMiddle);
    WindowRef theOne = NewWindowIn(theInner);
    WindowRef theTwo = NewWindowIn(theInner);
    SelectWindow(mWindow);
    EXPECT_EQ(Order(), (Windows{mWindow, theTwo, theOne}));
    EXPECT_EQ(SetWindowGroupParent(theMiddle, theOuter), noErr);
    EXPECT_EQ(Order(), (Windows{theTwo, theOne, mWindow}));
}

TEST_F(WindowGroups, ListsItsWindowsFrontToBack)
{
    const WindowGroupRef theGroup = NewGroup(1);
    WindowRef theOne = NewWindowIn(theGroup);
    WindowRef theTwo = NewWindowIn(theGroup);
    WindowRef theFound = mWindow;
    SelectWindow(theTwo);
    EXPECT_EQ(GetIndexedWindow(theGroup, 1, kWindows, &theFound), noErr);
    EXPECT_EQ(theFound, theTwo);
    EXPECT_EQ(GetIndexedWindow(theGroup, 2, kWindows, &theFound), noErr);
    EXPECT_EQ(theFound, theOne);
    EXPECT_EQ(GetIndexedWindow(theGroup, 3, kWindows, &theFound), errWindowNotFound);
    EXPECT_EQ(theFound, nullptr);
    EXPECT_EQ(GetIndexedWindow(theGroup, 0, kWindows, &theFound), errWindowNotFound);
    HideWindow(theTwo);
    EXPECT_EQ(CountWindowGroupContents(theGroup, kWindows), 2u);
    EXPECT_EQ(CountWindowGroupContents(theGroup, kWindows | kWindowGroupContentsVisible), 1u);
}

TEST_F(WindowGroups, WindowsCanMoveTogether)
{
    const WindowGroupRef theGroup = NewGroup(0, kWindowGroupAttrMoveTogether);
    WindowRef theOne = NewWindowIn(theGroup);
    WindowRef theTwo = NewWindowIn(theGroup);
    WindowRef theThird = NewWindowIn(theGroup);
    MoveWindow(theTwo, 150, 110, false);
    EXPECT_EQ(Content(theOne), "150, 110, 550, 410");
    EXPECT_EQ(Content(theThird), "150, 110, 550, 410");
    EXPECT_EQ(Content(mWindow), "100, 100, 500, 400");
    SizeWindow(theOne, 300, 200, true);
    EXPECT_EQ(Content(theTwo), "150, 110, 550, 410");
}

TEST_F(WindowGroups, WindowsCanComeToFrontTogether)
{
    const WindowGroupRef theGroup = NewGroup(0, kWindowGroupAttrLayerTogether);
    WindowRef theOne = NewWindowIn(theGroup);
    WindowRef theTwo = NewWindowIn(theGroup);
    WindowRef theThird = NewWindowIn(theGroup);
    SelectWindow(mWindow);
    SelectWindow(theTwo);
    EXPECT_EQ(Order(), (Windows{theTwo, theThird, theOne, mWindow}));
}

TEST_F(WindowGroups, AReleasedGroupLeavesItsWindows)
{
    const WindowGroupRef theOuter = NewGroup(5);
    WindowGroupRef theGroup = nullptr;
    CreateWindowGroup(kWindowNoAttributes, &theGroup);
    SetWindowGroupParent(theGroup, theOuter);
    WindowRef theOne = NewWindowIn(theGroup);
    EXPECT_EQ(RetainWindowGroup(theGroup), noErr);
    EXPECT_EQ(GetWindowGroupRetainCount(theGroup), 2u);
    ReleaseWindowGroup(theGroup);
    EXPECT_TRUE(IsValidWindowGroup(theGroup));
    ReleaseWindowGroup(theGroup);
    EXPECT_FALSE(IsValidWindowGroup(theGroup));
    EXPECT_EQ(GetWindowGroup(theOne), theOuter);
    WindowGroupRef theInner = nullptr;
    CreateWindowGroup(0, &theInner);
    SetWindowGroupParent(theInner, theOuter);
    RetainWindowGroup(theOuter);
    ReleaseWindowGroup(theOuter);
    ReleaseWindowGroup(theOuter);
    EXPECT_EQ(GetWindowGroup(theOne), GetWindowGroupOfClass(kDocumentWindowClass));
    EXPECT_EQ(GetWindowGroupParent(theInner), GetWindowGroupOfClass(kAllWindowClasses));
    ReleaseWindowGroup(theInner);
}

TEST_F(WindowGroups, ThePlatformsGroupsStay)
{
    const WindowGroupRef theDocuments = GetWindowGroupOfClass(kDocumentWindowClass);
    for (int theCount = 0; theCount < 3; ++theCount) {
        EXPECT_EQ(ReleaseWindowGroup(theDocuments), noErr);
    }
    EXPECT_TRUE(IsValidWindowGroup(theDocuments));
    EXPECT_EQ(SetWindowGroupParent(theDocuments, NewGroup()), paramErr);
}

TEST_F(WindowGroups, KeepsItsNameAndAttributes)
{
    const WindowGroupRef theGroup = NewGroup(0, kWindowGroupAttrHideOnCollapse);
    EXPECT_EQ(SetWindowGroupName(theGroup, CFSTR("Panels")), noErr);
    CFStringRef theName = nullptr;
    EXPECT_EQ(CopyWindowGroupName(theGroup, &theName), noErr);
    EXPECT_EQ(TextOf(theName), "Panels");
    CFRelease(theName);
    WindowGroupAttributes theAttributes = 0;
    EXPECT_EQ(
        ChangeWindowGroupAttributes(theGroup, kWindowGroupAttrFixedLevel, kWindowGroupAttrHideOnCollapse),
        noErr);
    EXPECT_EQ(GetWindowGroupAttributes(theGroup, &theAttributes), noErr);
    EXPECT_EQ(theAttributes, UInt32{kWindowGroupAttrFixedLevel});
    EXPECT_EQ(SetWindowGroupLevel(theGroup, 3), paramErr);
    EXPECT_EQ(ChangeWindowGroupAttributes(theGroup, 64, 0), paramErr);
    EXPECT_EQ(ChangeWindowGroupAttributes(theGroup, 2, 2), paramErr);
}

TEST_F(WindowGroups, RefusesWhatIsNoGroup)
{
    const WindowGroupRef theGroup = NewGroup();
    const WindowGroupRef theStranger = InventedReference<WindowGroupRef>();
    WindowGroupRef theNew = theGroup;
    SInt32 theLevel = 0;
    WindowGroupAttributes theAttributes = 0;
    WindowRef theWindow = mWindow;
    CFStringRef theName = nullptr;
    EXPECT_EQ(CreateWindowGroup(64, &theNew), paramErr);
    EXPECT_EQ(theNew, nullptr);
    EXPECT_EQ(CreateWindowGroup(0, nullptr), paramErr);
    EXPECT_EQ(RetainWindowGroup(theStranger), windowGroupInvalidErr);
    EXPECT_EQ(ReleaseWindowGroup(nullptr), windowGroupInvalidErr);
    EXPECT_EQ(GetWindowGroupRetainCount(theStranger), 0u);
    EXPECT_FALSE(IsValidWindowGroup(reinterpret_cast<WindowGroupRef>(mWindow)));
    EXPECT_EQ(SetWindowGroup(mWindow, theStranger), windowGroupInvalidErr);
    EXPECT_EQ(SetWindowGroup(mWindow, GetWindowGroupOfClass(kAllWindowClasses)), windowGroupInvalidErr);
    EXPECT_EQ(SetWindowGroup(nullptr, theGroup), errInvalidWindowRef);
    EXPECT_EQ(GetWindowGroup(nullptr), nullptr);
    EXPECT_FALSE(IsWindowContainedInGroup(mWindow, theStranger));
    EXPECT_FALSE(IsWindowContainedInGroup(nullptr, theGroup));
    EXPECT_EQ(SetWindowGroupParent(theGroup, theGroup), paramErr);
    EXPECT_EQ(SetWindowGroupParent(theGroup, theStranger), windowGroupInvalidErr);
    EXPECT_EQ(SetWindowGroupParent(theStranger, theGroup), windowGroupInvalidErr);
    EXPECT_EQ(GetWindowGroupParent(theStranger), nullptr);
    EXPECT_EQ(SetWindowGroupLevel(theStranger, 1), windowGroupInvalidErr);
    EXPECT_EQ(GetWindowGroupLevel(theGroup, nullptr), paramErr);
    EXPECT_EQ(GetWindowGroupLevel(theStranger, &theLevel), windowGroupInvalidErr);
    EXPECT_EQ(GetWindowGroupAttributes(theGroup, nullptr), paramErr);
    EXPECT_EQ(GetWindowGroupAttributes(theStranger, &theAttributes), windowGroupInvalidErr);
    EXPECT_EQ(ChangeWindowGroupAttributes(theStranger, 0, 0), windowGroupInvalidErr);
    EXPECT_EQ(SetWindowGroupName(theStranger, CFSTR("x")), windowGroupInvalidErr);
    EXPECT_EQ(CopyWindowGroupName(theGroup, nullptr), paramErr);
    EXPECT_EQ(CopyWindowGroupName(theStranger, &theName), windowGroupInvalidErr);
    EXPECT_EQ(CountWindowGroupContents(theStranger, kWindows), 0u);
    EXPECT_EQ(GetIndexedWindow(theStranger, 1, kWindows, &theWindow), windowGroupInvalidErr);
    EXPECT_EQ(GetIndexedWindow(theGroup, 1, kWindows, nullptr), paramErr);
}

TEST_F(WindowGroups, AGroupWithWindowsStaysWhereItIs)
{
    const WindowGroupRef theOuter = NewGroup();
    const WindowGroupRef theInner = NewGroup();
    NewWindowIn(theInner);
    EXPECT_EQ(SetWindowGroupParent(theInner, theOuter), paramErr);
    const WindowGroupRef theEmpty = NewGroup();
    EXPECT_EQ(SetWindowGroupParent(theEmpty, theOuter), noErr);
    EXPECT_EQ(SetWindowGroupParent(theOuter, theEmpty), paramErr) << "it would be in itself";
}

// --- Activation --------------------------------------------------------------------------------------

TEST_F(WindowGroups, TheScopeOfActivationCanBeChanged)
{
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    WindowActivationScope theScope = 9;
    EXPECT_EQ(GetWindowActivationScope(theOther, &theScope), noErr);
    EXPECT_EQ(theScope, UInt32{kWindowActivationScopeAll});
    EXPECT_EQ(SetWindowActivationScope(theOther, kWindowActivationScopeNone), noErr);
    EXPECT_FALSE(IsWindowActive(theOther));
    EXPECT_TRUE(IsWindowActive(mWindow));
    SelectWindow(theOther);
    EXPECT_FALSE(IsWindowActive(theOther));
    EXPECT_EQ(SetWindowActivationScope(theOther, kWindowActivationScopeIndependent), noErr);
    EXPECT_TRUE(IsWindowActive(theOther));
    EXPECT_TRUE(IsWindowActive(mWindow));
    EXPECT_EQ(SetWindowActivationScope(theOther, kWindowActivationScopeAll), noErr);
    EXPECT_TRUE(IsWindowActive(theOther));
    EXPECT_FALSE(IsWindowActive(mWindow));
    EXPECT_EQ(SetWindowActivationScope(theOther, 3), paramErr);
    EXPECT_EQ(SetWindowActivationScope(nullptr, 0), errInvalidWindowRef);
    EXPECT_EQ(GetWindowActivationScope(theOther, nullptr), paramErr);
    EXPECT_EQ(GetWindowActivationScope(nullptr, &theScope), errInvalidWindowRef);
}
