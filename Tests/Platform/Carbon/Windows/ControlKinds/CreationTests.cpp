// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What every call that creates a control does with its arguments, and what a new control starts with.

#include "ManagerTestSupport.h"

#include <algorithm>

namespace {

class Creation : public EveryControl
{
};

std::vector<KindRow> KindsMadeInAWindow()
{
    std::vector<KindRow> theKinds = EveryKind();
    theKinds.erase(std::remove_if(theKinds.begin(), theKinds.end(),
                                  [](const KindRow& theRow) { return theRow.theIsView; }),
                   theKinds.end());
    return theKinds;
}

INSTANTIATE_TEST_SUITE_P(Kinds, Creation, testing::ValuesIn(KindsMadeInAWindow()),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(Creation, StartsVisibleEnabledAndActiveInItsWindow)
{
    ControlRef theControl = Make();
    EXPECT_TRUE(IsControlVisible(theControl));
    EXPECT_TRUE(IsControlEnabled(theControl));
    EXPECT_TRUE(IsControlActive(theControl));
    EXPECT_TRUE(IsValidControlHandle(theControl));
    EXPECT_EQ(GetControlOwner(theControl), mWindow);
    EXPECT_EQ(GetControlHilite(theControl), 0);
}

TEST_P(Creation, StartsWithItsRange)
{
    ControlRef theControl = Make();
    EXPECT_EQ(GetControl32BitValue(theControl), GetParam().theMinimum);
    EXPECT_EQ(GetControl32BitMinimum(theControl), GetParam().theMinimum);
    EXPECT_EQ(GetControl32BitMaximum(theControl), GetParam().theMaximum);
}

TEST_P(Creation, StartsWithoutIdentifierCommandOrReference)
{
    ControlRef theControl = Make();
    ControlID theID = {1, 1};
    UInt32 theCommand = 1;
    EXPECT_EQ(GetControlID(theControl, &theID), noErr);
    EXPECT_EQ(OSType{theID.signature}, OSType{0});
    EXPECT_EQ(SInt32{theID.id}, 0);
    EXPECT_EQ(GetControlCommandID(theControl, &theCommand), noErr);
    EXPECT_EQ(theCommand, 0u);
    EXPECT_EQ(GetControlReference(theControl), SRefCon{});
}

TEST_P(Creation, HasTheBoundsOfItsCreation)
{
    Rect theBounds;
    EXPECT_EQ(GetControlBounds(Make(), &theBounds), &theBounds);
    EXPECT_EQ(Describe(theBounds), Describe(kBounds));
}

TEST_P(Creation, IsRefusedWithoutBoundsOrResult)
{
    ControlRef theControl = InventedReference<ControlRef>();
    EXPECT_EQ(GetParam().theMaker(mWindow, nullptr, &theControl), paramErr);
    EXPECT_EQ(theControl, nullptr);
    EXPECT_EQ(GetParam().theMaker(mWindow, &kBounds, nullptr), paramErr);
}

TEST_P(Creation, IsRefusedInAWindowThatIsGone)
{
    WindowRef theWindow = NewWindow();
    DisposeWindow(theWindow);
    ControlRef theControl = InventedReference<ControlRef>();
    EXPECT_EQ(GetParam().theMaker(theWindow, &kBounds, &theControl), paramErr);
    EXPECT_EQ(theControl, nullptr);
    EXPECT_EQ(GetParam().theMaker(InventedReference<WindowRef>(), &kBounds, &theControl), paramErr);
}

TEST_P(Creation, StandsAloneWithoutAWindowWhereItsKindMay)
{
    ControlRef theControl = InventedReference<ControlRef>();
    const OSStatus theStatus = GetParam().theMaker(nullptr, &kBounds, &theControl);
    if (!GetParam().theWindowMayBeNull) {
        EXPECT_EQ(theStatus, paramErr);
        EXPECT_EQ(theControl, nullptr);
        return;
    }
    EXPECT_EQ(theStatus, noErr);
    EXPECT_EQ(GetControlOwner(theControl), nullptr);
    EXPECT_TRUE(IsControlVisible(theControl));
    DisposeControl(theControl);
    EXPECT_FALSE(IsValidControlHandle(theControl));
}

// Views --------------------------------------------------------------------------------------------------

TEST(ViewCreation, StartsHiddenAndInNoWindow)
{
    const HIRect theBounds = CGRectMake(10.4F, 20.6F, 100, 20);
    HIViewRef theView = nullptr;
    ASSERT_EQ(HISearchFieldCreate(&theBounds, 0, nullptr, nullptr, &theView), noErr);
    EXPECT_EQ(GetControlOwner(theView), nullptr);
    EXPECT_FALSE(IsControlVisible(theView));
    EXPECT_TRUE(IsControlEnabled(theView));
    Rect theRect = {};
    GetControlBounds(theView, &theRect);
    EXPECT_EQ(Describe(theRect), "10, 21, 110, 41") << "the nearest whole pixels";
    DisposeControl(theView);
}

TEST(ViewCreation, NeedsAPlaceForTheResult)
{
    const HIRect theBounds = CGRectMake(0, 0, 100, 20);
    EXPECT_EQ(HIComboBoxCreate(&theBounds, nullptr, nullptr, nullptr, 0, nullptr), paramErr);
    EXPECT_EQ(HISearchFieldCreate(&theBounds, 0, nullptr, nullptr, nullptr), paramErr);
    EXPECT_EQ(HIImageViewCreate(nullptr, nullptr), paramErr);
}
