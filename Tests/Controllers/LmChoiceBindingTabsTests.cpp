// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The choices that tabs are.

#include "ChoiceTestSupport.h"
#include "ControllersTestSupport.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>
#include <string>

namespace {

class LmChoiceBindingTabsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        mWindow = MakeChoiceWindow();
        const Rect theBounds = {10, 10, 200, 390};
        const ControlTabEntry theEntries[] = {{nullptr, CFSTR("Sound"), true},
                                              {nullptr, CFSTR("Picture"), true},
                                              {nullptr, CFSTR("Disc"), true}};
        CreateTabsControl(mWindow, &theBounds, kControlTabSizeLarge, kControlTabDirectionNorth, 3, theEntries,
                          &mTabs);
    }
    void TearDown() override { DisposeWindow(mWindow); }

    SInt32 Value() const { return GetControl32BitValue(mTabs); }

    void NameTab(ControlPartCode theTab, CFStringRef theName) const
    {
        const ControlTabInfoRecV1 theInfo = {kControlTabInfoVersionOne, 0, theName};
        SetControlData(mTabs, theTab, kControlTabInfoTag, sizeof theInfo, &theInfo);
    }

    std::string NameOfTab(ControlPartCode theTab) const
    {
        ControlTabInfoRecV1 theInfo = {kControlTabInfoVersionOne, 0, nullptr};
        GetControlData(mTabs, theTab, kControlTabInfoTag, sizeof theInfo, &theInfo, nullptr);
        return LmGetStdString(LmValue(theInfo.name, true));
    }

    WindowRef mWindow = nullptr;
    ControlRef mTabs = nullptr;
    LmKeyValueBinding mModel;
};

} // namespace

TEST_F(LmChoiceBindingTabsTest, TellsTheTabsAndWhichOneIsInFront)
{
    SetControl32BitValue(mTabs, 2);
    const LmChoiceBinding theChoice(mTabs);
    EXPECT_EQ(Titles(theChoice), "Sound, Picture, Disc");
    EXPECT_EQ(Selected(theChoice), "1 -1 Picture");
}

TEST_F(LmChoiceBindingTabsTest, FollowsAClickAndBringsTabsToTheFront)
{
    LmChoiceBinding theChoice(mTabs);
    theChoice.Bind("index", &mModel, "page", nullptr, nullptr);
    HIViewSimulateClick(mTabs, 3, 0, nullptr);
    EXPECT_EQ(Selected(theChoice), "2 -1 Disc");
    EXPECT_EQ(Read(mModel, "page"), "SInt32 2");
    mModel.SetKeyPathValue("page", LmValue(1));
    EXPECT_EQ(Value(), 2);
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Sound"), false));
    EXPECT_EQ(Value(), 1);
    EXPECT_EQ(Read(mModel, "page"), "SInt32 0");
    theChoice.SetKeyPathValue("title", LmValue(CFSTR("Network"), false));
    EXPECT_EQ(Selected(theChoice), "-1 -1 Network");
    EXPECT_EQ(Value(), 0);
}

TEST_F(LmChoiceBindingTabsTest, TellsOncePerSelectionAndInThisOrder)
{
    LmChoiceBinding theChoice(mTabs);
    NotificationRecorder theRecorder;
    for (const char* theKey : {"title", "tag", "index", "count", "choices.0"}) {
        theChoice.ObserveKeyPathValue(theKey, &theRecorder);
    }
    HIViewSimulateClick(mTabs, 2, 0, nullptr);
    EXPECT_EQ(theRecorder.Take(),
              (Lines{"changing index", "changed index", "changing title", "changed title"}));
}

TEST_F(LmChoiceBindingTabsTest, KeepsTheSelectionWhenTabsComeAndGoAndGetOtherNames)
{
    LmChoiceBinding theChoice(mTabs);
    SetControl32BitValue(mTabs, 3);
    SetControl32BitMaximum(mTabs, 2); // which takes the tab away
    EXPECT_EQ(Selected(theChoice), "-1 -1 Disc");
    EXPECT_EQ(Titles(theChoice), "Sound, Picture");
    SetControl32BitMaximum(mTabs, 4);
    EXPECT_EQ(Titles(theChoice), "Sound, Picture, , ");
    NameTab(4, CFSTR("Disc"));
    theChoice.UpdateChoices();
    EXPECT_EQ(Selected(theChoice), "3 -1 Disc");
    EXPECT_EQ(Value(), 4);
    NameTab(1, CFSTR("Disc"));
    NameTab(4, CFSTR("Sound"));
    theChoice.UpdateChoices();
    EXPECT_EQ(Selected(theChoice), "0 -1 Disc");
    EXPECT_EQ(Value(), 1);
}

TEST_F(LmChoiceBindingTabsTest, ChangesTheNameOfATab)
{
    LmChoiceBinding theChoice(mTabs);
    theChoice.SetKeyPathValue("choices.0", LmValue(CFSTR("Music"), false));
    EXPECT_EQ(NameOfTab(1), "Music");
    EXPECT_EQ(Selected(theChoice), "0 -1 Music");
    theChoice.SetKeyPathValue("choices.2", LmValue(CFSTR("Network"), false));
    EXPECT_EQ(NameOfTab(3), "Network");
    EXPECT_EQ(Titles(theChoice), "Music, Picture, Network");
}

TEST_F(LmChoiceBindingTabsTest, CountsTheTabsThatThereAre)
{
    LmChoiceBinding theChoice(mTabs);
    SetControl32BitMaximum(mTabs, 1000000);
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 128");
    DisposeControl(mTabs);
    EXPECT_EQ(Read(theChoice, "count"), "SInt32 0");
    EXPECT_EQ(Selected(theChoice), "-1 -1 Sound");
}
