// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Tabs, and the panes of a program that stand in them.

#include "ManagerTestSupport.h"

#include <Presentation/PresenterRegistry.h>
#include <Simulation/UserSimulator.h>
#include <vector>
#include <Windows/Controls.h>

namespace {

class TabsTest : public ControlKindTest
{
protected:
    ControlRef NewTabs(ControlTabDirection theDirection = kControlTabDirectionNorth,
                       ControlTabSize theSize = kControlTabSizeLarge)
    {
        const ControlTabEntry theEntries[] = {{nullptr, CFSTR("Sound"), true},
                                              {nullptr, CFSTR("Picture"), true},
                                              {nullptr, CFSTR("Disc"), true}};
        const Rect theBounds = MakeRect(20, 10, 380, 210);
        ControlRef theTabs = nullptr;
        EXPECT_EQ(CreateTabsControl(mWindow, &theBounds, theSize, theDirection, 3, theEntries, &theTabs),
                  noErr);
        return theTabs;
    }

    static Rect ContentOf(ControlRef theTabs)
    {
        Rect theContent = MakeRect(0, 0, 0, 0);
        EXPECT_EQ(
            GetControlData(theTabs, 0, kControlTabContentRectTag, sizeof theContent, &theContent, nullptr),
            noErr);
        return theContent;
    }

    static std::string NameOfTab(ControlRef theTabs, ControlPartCode theTab)
    {
        ControlTabInfoRecV1 theRecord = {kControlTabInfoVersionOne, 0, nullptr};
        const OSErr theStatus =
            GetControlData(theTabs, theTab, kControlTabInfoTag, sizeof theRecord, &theRecord, nullptr);
        if (theStatus != noErr) {
            return std::to_string(theStatus);
        }
        const CFStringRef theName = theRecord.name;
        std::string theText = TextOf(theName);
        CFRelease(theName);
        return theText;
    }

    static OSErr SetName(ControlRef theTabs, ControlPartCode theTab, CFStringRef theName,
                         SInt16 theVersion = kControlTabInfoVersionOne)
    {
        const ControlTabInfoRecV1 theRecord = {theVersion, 0, theName};
        return SetControlData(theTabs, theTab, kControlTabInfoTag, sizeof theRecord, &theRecord);
    }

    // A pane in the content of the tabs.
    ControlRef NewPane(ControlRef theTabs)
    {
        const Rect theBounds = ContentOf(theTabs);
        ControlRef thePane = nullptr;
        EXPECT_EQ(CreateUserPaneControl(mWindow, &theBounds, kControlSupportsEmbedding, &thePane), noErr);
        EXPECT_EQ(EmbedControl(thePane, theTabs), noErr);
        return thePane;
    }

    Host::UserSimulator mUser;
};

} // namespace

// Values and parts ---------------------------------------------------------------------------------------

TEST_F(TabsTest, StartWithTheFirstOneInFront)
{
    ControlRef theTabs = NewTabs();
    EXPECT_EQ(GetControl32BitValue(theTabs), 1);
    EXPECT_EQ(GetControl32BitMinimum(theTabs), 1);
    EXPECT_EQ(GetControl32BitMaximum(theTabs), 3);
    ControlKind theKind = {0, 0};
    EXPECT_EQ(GetControlKind(theTabs, &theKind), noErr);
    EXPECT_EQ(OSType{theKind.kind}, OSType{'tabs'});
    UInt32 theFeatures = 0;
    GetControlFeatures(theTabs, &theFeatures);
    EXPECT_NE(theFeatures & kControlSupportsEmbedding, 0u);
    EXPECT_NE(theFeatures & kControlAutoToggles, 0u);
}

TEST_F(TabsTest, MayBeNone)
{
    const Rect theBounds = MakeRect(0, 0, 100, 100);
    ControlRef theTabs = nullptr;
    EXPECT_EQ(CreateTabsControl(mWindow, &theBounds, kControlTabSizeLarge, kControlTabDirectionNorth, 0,
                                nullptr, &theTabs),
              noErr);
    EXPECT_EQ(GetControl32BitMaximum(theTabs), 0);
    EXPECT_EQ(SetKeyboardFocus(mWindow, theTabs, kControlFocusNextPart), errCouldntSetFocus);
}

TEST_F(TabsTest, AreRefusedWithASizeDirectionOrNumberThatIsNone)
{
    const Rect theBounds = MakeRect(0, 0, 100, 100);
    const std::vector<ControlTabEntry> theEntries(129, ControlTabEntry{nullptr, CFSTR("Tab"), true});
    const struct
    {
        ControlTabSize theSize;
        ControlTabDirection theDirection;
        UInt16 theCount;
        const ControlTabEntry* theEntries;
        OSStatus theStatus;
    } kRows[] = {
        {2, 0, 1, theEntries.data(), paramErr}, {4, 0, 1, theEntries.data(), paramErr},
        {3, 0, 1, theEntries.data(), noErr},    {0, 4, 1, theEntries.data(), paramErr},
        {0, 3, 128, theEntries.data(), noErr},  {0, 0, 129, theEntries.data(), paramErr},
        {0, 0, 1, nullptr, paramErr},
    };
    for (const auto& theRow : kRows) {
        ControlRef theTabs = InventedReference<ControlRef>();
        EXPECT_EQ(CreateTabsControl(mWindow, &theBounds, theRow.theSize, theRow.theDirection, theRow.theCount,
                                    theRow.theEntries, &theTabs),
                  theRow.theStatus);
        EXPECT_EQ(theTabs == nullptr, theRow.theStatus != noErr);
    }
    EXPECT_EQ(CreateTabsControl(mWindow, &theBounds, 2, 0, 0, nullptr, nullptr), paramErr);
}

TEST_F(TabsTest, AClickBringsATabToTheFrontAndTellsWhichOne)
{
    ControlRef theTabs = NewTabs();
    Watch(theTabs, "tabs", kWithoutHilite, [this](EventRef theEvent) {
        if (GetEventKind(theEvent) == kEventControlHit) {
            ControlPartCode thePart = 0;
            GetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, nullptr, sizeof thePart,
                              nullptr, &thePart);
            mLog.push_back("part " + std::to_string(thePart));
        }
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_TRUE(mUser.ClickPart(theTabs, 2));
    EXPECT_EQ(GetControl32BitValue(theTabs), 2);
    EXPECT_EQ(TakeLog(), (Log{"tabs: ValueFieldChanged", "tabs: Hit", "part 2"}));
    EXPECT_TRUE(mUser.ClickPart(theTabs, 2));
    EXPECT_EQ(TakeLog(), (Log{"tabs: Hit", "part 2"}));
    EXPECT_FALSE(mUser.ClickPart(theTabs, 4));
    EXPECT_EQ(HIViewSimulateClick(theTabs, 3, 0, nullptr), noErr);
    EXPECT_EQ(GetControl32BitValue(theTabs), 3);
}

TEST_F(TabsTest, ATabThatIsDisabledIsPassedOver)
{
    ControlRef theTabs = NewTabs();
    EXPECT_EQ(SetTabEnabled(theTabs, 2, false), noErr);
    Boolean theFlag = true;
    EXPECT_EQ(GetControlData(theTabs, 2, kControlTabEnabledFlagTag, sizeof theFlag, &theFlag, nullptr),
              noErr);
    EXPECT_FALSE(theFlag);
    EXPECT_FALSE(mUser.ClickPart(theTabs, 2));
    EXPECT_EQ(HIViewSimulateClick(theTabs, 2, 0, nullptr), errInvalidPartCode);
    EXPECT_EQ(GetControl32BitValue(theTabs), 1);
    EXPECT_EQ(SetKeyboardFocus(mWindow, theTabs, kControlFocusNextPart), noErr);
    Key(kVK_RightArrow);
    EXPECT_EQ(GetControl32BitValue(theTabs), 3);
    Key(kVK_LeftArrow);
    EXPECT_EQ(GetControl32BitValue(theTabs), 1);
    SetControl32BitValue(theTabs, 2);
    EXPECT_EQ(GetControl32BitValue(theTabs), 2) << "the program may bring it to the front";
}

TEST_F(TabsTest, ArrowsGoAlongTheTabsAndEndAtTheLast)
{
    for (const bool theIsBeside : {false, true}) {
        ControlRef theTabs = NewTabs(theIsBeside ? kControlTabDirectionWest : kControlTabDirectionSouth);
        const UInt32 theForth = theIsBeside ? kVK_DownArrow : kVK_RightArrow;
        const UInt32 theBack = theIsBeside ? kVK_UpArrow : kVK_LeftArrow;
        SetKeyboardFocus(mWindow, theTabs, kControlFocusNextPart);
        for (const SInt32 theValue : {2, 3, 3}) {
            Key(theForth);
            EXPECT_EQ(GetControl32BitValue(theTabs), theValue);
        }
        for (const SInt32 theValue : {2, 1, 1}) {
            Key(theBack);
            EXPECT_EQ(GetControl32BitValue(theTabs), theValue);
        }
        Key(kVK_Space);
        Key(theIsBeside ? kVK_RightArrow : kVK_DownArrow);
        EXPECT_EQ(GetControl32BitValue(theTabs), 1);
        DisposeControl(theTabs);
    }
}

// Places -------------------------------------------------------------------------------------------------

TEST_F(TabsTest, LeaveTheContentOnTheOtherSideOfTheirEdge)
{
    const struct
    {
        ControlTabDirection theDirection;
        ControlTabSize theSize;
        const char* theContent;
    } kRows[] = {
        {kControlTabDirectionNorth, kControlTabSizeLarge, "20, 36, 380, 210"},
        {kControlTabDirectionNorth, kControlTabSizeSmall, "20, 32, 380, 210"},
        {kControlTabDirectionSouth, kControlTabSizeLarge, "20, 10, 380, 184"},
        {kControlTabDirectionEast, kControlTabSizeMini, "20, 10, 360, 210"},
        {kControlTabDirectionWest, kControlTabSizeLarge, "46, 10, 380, 210"},
    };
    for (const auto& theRow : kRows) {
        ControlRef theTabs = NewTabs(theRow.theDirection, theRow.theSize);
        EXPECT_EQ(Describe(ContentOf(theTabs)), theRow.theContent);
        for (const ControlPartCode theTab : {ControlPartCode{3}, ControlPartCode{2}}) {
            EXPECT_TRUE(mUser.ClickPart(theTabs, theTab));
            EXPECT_EQ(GetControl32BitValue(theTabs), theTab) << "direction " << theRow.theDirection;
        }
        DisposeControl(theTabs);
    }
}

TEST_F(TabsTest, WithoutRoomEndWithTheirBounds)
{
    ControlRef theTabs = NewTabs();
    SizeControl(theTabs, 30, 10);
    EXPECT_EQ(Describe(ContentOf(theTabs)), "20, 20, 50, 20");
    EXPECT_TRUE(mUser.ClickPart(theTabs, 1));
    EXPECT_FALSE(mUser.ClickPart(theTabs, 3)) << "nothing of it can be seen";
    EXPECT_EQ(GetControl32BitValue(theTabs), 1);
}

// Names and numbers --------------------------------------------------------------------------------------

TEST_F(TabsTest, AreNamedByTwoRecords)
{
    ControlRef theTabs = NewTabs();
    EXPECT_EQ(NameOfTab(theTabs, 2), "Picture");
    EXPECT_EQ(SetName(theTabs, 2, CFSTR("Film")), noErr);
    EXPECT_EQ(NameOfTab(theTabs, 2), "Film");
    ControlTabInfoRec theOld = {kControlTabInfoVersionZero, 0, {}};
    Size theSize = 0;
    EXPECT_EQ(GetControlData(theTabs, 2, kControlTabInfoTag, sizeof theOld, &theOld, &theSize), noErr);
    EXPECT_EQ(theSize, Size{sizeof theOld});
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(theOld.name) + 1, theOld.name[0]), "Film");
    theOld.name[0] = 2;
    EXPECT_EQ(SetControlData(theTabs, 3, kControlTabInfoTag, sizeof theOld, &theOld), noErr);
    EXPECT_EQ(NameOfTab(theTabs, 3), "Fi");
}

TEST_F(TabsTest, RefuseRecordsThatAreNone)
{
    ControlRef theTabs = NewTabs();
    for (const ControlPartCode theTab : {ControlPartCode{0}, ControlPartCode{4}, ControlPartCode{-1}}) {
        EXPECT_EQ(SetName(theTabs, theTab, CFSTR("Film")), paramErr);
        EXPECT_EQ(NameOfTab(theTabs, theTab), std::to_string(paramErr));
        EXPECT_EQ(SetTabEnabled(theTabs, theTab, true), paramErr);
        Boolean theFlag = true;
        EXPECT_EQ(GetControlData(theTabs, theTab, kControlTabEnabledFlagTag, 1, &theFlag, nullptr), paramErr);
    }
    EXPECT_EQ(SetName(theTabs, 1, nullptr), paramErr);
    EXPECT_EQ(SetName(theTabs, 1, CFSTR("Film"), 2), paramErr);
    ControlTabInfoRec theOld = {kControlTabInfoVersionOne, 0, {}};
    EXPECT_EQ(SetControlData(theTabs, 1, kControlTabInfoTag, sizeof theOld, &theOld), paramErr);
    EXPECT_EQ(SetControlData(theTabs, 1, kControlTabInfoTag, 3, "abc"), errDataSizeMismatch);
    EXPECT_EQ(SetControlData(theTabs, 1, kControlTabEnabledFlagTag, 2, "ab"), errDataSizeMismatch);
    EXPECT_EQ(SetControlData(theTabs, 0, kControlTabContentRectTag, 8, "abcdefgh"), errDataNotSupported);
    char theByte = 0;
    EXPECT_EQ(GetControlData(theTabs, 1, kControlTabInfoTag, 1, &theByte, nullptr), errDataSizeMismatch);
    EXPECT_EQ(GetControlData(theTabs, 1, kControlTabEnabledFlagTag, 0, &theByte, nullptr),
              errDataSizeMismatch);
    Size theSize = 0;
    EXPECT_EQ(GetControlDataSize(theTabs, 1, kControlTabInfoTag, &theSize), noErr);
    EXPECT_EQ(theSize, Size{sizeof(ControlTabInfoRecV1)});
    EXPECT_EQ(GetControlDataSize(theTabs, 1, kControlTabEnabledFlagTag, &theSize), noErr);
    EXPECT_EQ(theSize, Size{1});
    EXPECT_EQ(NameOfTab(theTabs, 1), "Sound");
}

TEST_F(TabsTest, ComeAndGoWithTheMaximum)
{
    ControlRef theTabs = NewTabs();
    SetControl32BitMaximum(theTabs, 4);
    EXPECT_EQ(NameOfTab(theTabs, 4), "");
    EXPECT_EQ(SetName(theTabs, 4, CFSTR("Network")), noErr);
    EXPECT_TRUE(mUser.ClickPart(theTabs, 4));
    EXPECT_EQ(GetControl32BitValue(theTabs), 4);
    SetControl32BitMaximum(theTabs, 2);
    EXPECT_EQ(GetControl32BitValue(theTabs), 2);
    EXPECT_EQ(NameOfTab(theTabs, 3), std::to_string(paramErr));
    SetControl32BitMaximum(theTabs, 2147483647);
    EXPECT_EQ(NameOfTab(theTabs, 128), "");
    EXPECT_EQ(NameOfTab(theTabs, 129), std::to_string(paramErr)) << "there are no more";
}

// Panes --------------------------------------------------------------------------------------------------

TEST_F(TabsTest, PanesShowAndHideWhatIsInThem)
{
    ControlRef theTabs = NewTabs();
    ControlRef thePane = NewPane(theTabs);
    ControlRef theOther = NewPane(theTabs);
    ControlRef theButton = NewPushButton();
    EXPECT_EQ(EmbedControl(theButton, thePane), noErr);
    HideControl(thePane);
    EXPECT_FALSE(IsControlVisible(theButton));
    EXPECT_TRUE(IsControlVisible(theOther));
    EXPECT_TRUE(mUser.ClickPart(theTabs, 2)) << "it does not show and hide them by itself";
    EXPECT_FALSE(IsControlVisible(thePane));
    ShowControl(thePane);
    EXPECT_TRUE(IsControlVisible(theButton));
    EXPECT_EQ(HIViewSimulateClick(thePane, kControlEntireControl, 0, nullptr), errInvalidPartCode);
    DisposeControl(theTabs);
    EXPECT_FALSE(IsValidControlHandle(theButton));
}

TEST_F(TabsTest, APaneHasTheFeaturesOfItsCreation)
{
    const Rect theBounds = MakeRect(0, 0, 100, 100);
    ControlRef thePane = nullptr;
    EXPECT_EQ(CreateUserPaneControl(mWindow, &theBounds, 0, &thePane), noErr);
    UInt32 theFeatures = 1;
    EXPECT_EQ(GetControlFeatures(thePane, &theFeatures), noErr);
    EXPECT_EQ(theFeatures, 0u);
    EXPECT_EQ(EmbedControl(NewPushButton(), thePane), errControlIsNotEmbedder);
}
