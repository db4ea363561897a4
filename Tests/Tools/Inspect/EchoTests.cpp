// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Echo.h"

#include <gtest/gtest.h>

using namespace Inspect;

namespace {

// The entries of one control, its key "value" being a number.
class Course
{
public:
    std::uint64_t Add(What theWhat, std::uint64_t theCause, unsigned theOld = 0, unsigned theNew = 0)
    {
        Entry theEntry;
        theEntry.theNumber = ++mNumber;
        theEntry.theCause = theCause;
        theEntry.theWhat = theWhat;
        theEntry.theObject = {9, "LmControlBinding", "slider"};
        theEntry.theKey = "value";
        theEntry.theOld.theKind = theEntry.theNew.theKind = Value::Kind::UInt32;
        theEntry.theOld.theInteger = theOld;
        theEntry.theNew.theInteger = theNew;
        if (theWhat == What::Event) {
            theEntry.theDetail = "cntl";
            theEntry.theCode = theOld;
        }
        mCauses.Take(theEntry);
        mEcho.Take(mCauses);
        return mNumber;
    }
    // The first value of a key.
    void AddFirst(std::uint64_t theCause, const char* theKey)
    {
        Entry theEntry;
        theEntry.theNumber = ++mNumber;
        theEntry.theCause = theCause;
        theEntry.theWhat = What::Changed;
        theEntry.theObject = {9, "LmControlBinding", "slider"};
        theEntry.theKey = theKey;
        theEntry.theOld.theKind = Value::Kind::Invalid;
        theEntry.theNew.theKind = Value::Kind::UInt32;
        mCauses.Take(theEntry);
        mEcho.Take(mCauses);
    }
    const Echo::Difference* Find() { return mEcho.Find(9, "value"); }
    Echo& GetEcho() { return mEcho; }

private:
    Causes mCauses;
    Echo mEcho;
    std::uint64_t mNumber = 0;
};

} // namespace

TEST(Echo, IsWhatIsSetWhileTheControlsChangeIsCopied)
{
    Course theCourse;
    const std::uint64_t theEvent = theCourse.Add(What::Event, 0);
    const std::uint64_t theCopy = theCourse.Add(What::Changed, theEvent, 1, 30);
    EXPECT_EQ(theCourse.Find(), nullptr) << "the copy itself is what the control shows";
    theCourse.Add(What::Changed, theCourse.Add(What::Update, theCopy), 30, 25);
    ASSERT_NE(theCourse.Find(), nullptr);
    EXPECT_EQ(Show(theCourse.Find()->theShown), "30");
    EXPECT_EQ(theCourse.Find()->theChange.theNumber, 4U);
    theCourse.Add(What::Changed, 0, 25, 26);
    EXPECT_EQ(theCourse.Find(), nullptr) << "it is written again";
}

TEST(Echo, IsNothingWhenTheKeyComesBackToWhatIsShown)
{
    Course theCourse;
    const std::uint64_t theEvent = theCourse.Add(What::Event, 0);
    const std::uint64_t theCopy = theCourse.Add(What::Changed, theEvent, 1, 30);
    theCourse.Add(What::Changed, theCourse.Add(What::Update, theCopy), 30, 25);
    theCourse.Add(What::Changed, theCourse.Add(What::Update, theCopy), 25, 30);
    EXPECT_EQ(theCourse.Find(), nullptr);
}

TEST(Echo, EndsWhenTheControlChangesOnceMoreInTheSameWay)
{
    constexpr unsigned kValueEvent = 151;
    constexpr unsigned kTitleEvent = 159;
    Course theCourse;
    const std::uint64_t theAction = theCourse.Add(What::Action, 0);
    const std::uint64_t theEvent = theCourse.Add(What::Event, theAction, kValueEvent);
    const std::uint64_t theCopy = theCourse.Add(What::Changed, theEvent, 1, 30);
    theCourse.Add(What::Changed, theCourse.Add(What::Update, theCopy), 30, 25);
    theCourse.Add(What::Event, theAction, kTitleEvent);
    EXPECT_NE(theCourse.Find(), nullptr) << "its title says nothing of its value";
    // A binding that settles its control writes the key into it when the change has been copied.
    theCourse.Add(What::Event, theAction, kValueEvent);
    EXPECT_EQ(theCourse.Find(), nullptr);
}

TEST(Echo, IsNotThereForAKeyThatIsNoneOfTheControls)
{
    Course theCourse;
    const std::uint64_t theCopy = theCourse.Add(What::Changed, theCourse.Add(What::Event, 0), 1, 30);
    theCourse.AddFirst(theCopy, "noticed");
    EXPECT_EQ(theCourse.GetEcho().Find(9, "noticed"), nullptr);
    // The control's own keys have values from the beginning.
    EXPECT_EQ(theCourse.Find(), nullptr);
}

TEST(Echo, EndsWithAnInnerEvent)
{
    Course theCourse;
    const std::uint64_t theOuter = theCourse.Add(What::Event, 0);
    const std::uint64_t theCopy = theCourse.Add(What::Changed, theOuter, 1, 30);
    theCourse.Add(What::Event, theCopy);
    theCourse.Add(What::Changed, theCourse.Add(What::Update, theCopy), 30, 25);
    EXPECT_EQ(theCourse.Find(), nullptr) << "the inner event has switched writing on again";
}

TEST(Echo, IsNothingThatCodeSets)
{
    Course theCourse;
    theCourse.Add(What::Changed, 0, 1, 2);
    EXPECT_TRUE(theCourse.GetEcho().GetAll().empty());
}

TEST(Echo, IsForgottenWithTheObject)
{
    Course theCourse;
    const std::uint64_t theCopy = theCourse.Add(What::Changed, theCourse.Add(What::Event, 0), 1, 30);
    theCourse.Add(What::Changed, theCourse.Add(What::Update, theCopy), 30, 25);
    theCourse.GetEcho().Forget(8);
    EXPECT_NE(theCourse.Find(), nullptr);
    theCourse.GetEcho().Forget(9);
    EXPECT_EQ(theCourse.Find(), nullptr);
}

TEST(Echo, KnowsWhatAnObjectStandsFor)
{
    EXPECT_EQ(WhatItStandsFor({1, "LmWindowBinding", ""}), "window");
    EXPECT_EQ(WhatItStandsFor({1, "LmMenuBinding", ""}), "menu command");
    EXPECT_EQ(WhatItStandsFor({1, "LmControlBinding", ""}), "control");
}
