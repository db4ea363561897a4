// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A program and a person that do anything, in front of Qt and in memory: what the program hears, what the
// person cannot do, and what everything is like after each step, are the same line by line.
//
// Nothing is left out of the comparison but the size of the screen, which is a fact of the machine: in memory
// there are the screens that Qt has.
//
// A failure prints the seed, the first lines that differ, and the shortest script that makes them differ;
// Scripts/RunRandomSessions.sh plays others, and a script from a file.

#include "RandomSession.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

#include "HeadlessPresenter.h"
#include "QtPresenter.h"

#include <Presentation/PresenterRegistry.h>

namespace {

using Host::PresenterRegistry;

// In memory, on other screens.
class HeadlessOnScreens : public Host::HeadlessPresenter
{
public:
    explicit HeadlessOnScreens(std::vector<Host::ScreenLook>&& theScreens)
        : mScreens(std::move(theScreens))
    {
    }

    std::vector<Host::ScreenLook> Screens() const override { return mScreens; }

private:
    std::vector<Host::ScreenLook> mScreens;
};

struct Courses
{
    Lines theLinesWithQt;
    Lines theLinesInMemory;
};

Courses RecordTwice(const Script& theScript)
{
    Courses theCourses;
    EXPECT_TRUE(PresenterRegistry::Use(Host::QtPresenter::Make()));
    theCourses.theLinesWithQt = RecordScript(theScript);
    PresenterRegistry::Use(std::make_unique<HeadlessOnScreens>(PresenterRegistry::Current().Screens()));
    theCourses.theLinesInMemory = RecordScript(theScript);
    return theCourses;
}

bool Differs(const Script& theScript)
{
    const Courses theCourses = RecordTwice(theScript);
    return theCourses.theLinesWithQt != theCourses.theLinesInMemory;
}

std::string LineAt(const Lines& theLines, size_t theIndex)
{
    return theIndex < theLines.size() ? theLines[theIndex] : "(the end)";
}

// The first lines that differ, and some before them.
std::string FirstDifference(const Courses& theCourses)
{
    const Lines& theOne = theCourses.theLinesWithQt;
    const Lines& theOther = theCourses.theLinesInMemory;
    const auto theFirst = std::mismatch(theOne.begin(), theOne.end(), theOther.begin(), theOther.end()).first;
    const auto theIndex = static_cast<size_t>(theFirst - theOne.begin());
    std::string theText;
    for (size_t theBefore = theIndex > 12 ? theIndex - 12 : 0; theBefore < theIndex; ++theBefore) {
        theText += "          " + theOne[theBefore] + "\n";
    }
    return theText + "with Qt   " + LineAt(theOne, theIndex) + "\nin memory " + LineAt(theOther, theIndex) +
           "\n";
}

class RandomSessionsWithQt : public testing::TestWithParam<unsigned>
{
protected:
    ~RandomSessionsWithQt() override { PresenterRegistry::Use(Host::HeadlessPresenter::Make()); }
};

} // namespace

TEST_P(RandomSessionsWithQt, GoAsTheyDoInMemory)
{
    const Script theScript = ScriptToPlay(GetParam());
    if (Differs(theScript)) {
        const Script theShortest = Shortest(theScript, Differs);
        ADD_FAILURE() << "Seed " << GetParam() << "\n"
                      << FirstDifference(RecordTwice(theShortest)) << "The shortest script:\n"
                      << Describe(theShortest);
    }
}

// A field lost its selection with the focus, and what was typed next did not replace it. And a window that
// was to be active a moment ago, and was only now, counted as one that the person had made active.
TEST(RandomSessionWithQt, GoesAsItDoesInMemoryWhereItOnceDidNot)
{
    for (const char* theText :
         {"NewWindow 289375 129987 302734\nNewWindow 477302 536225 376689\n"
          "NewControl 66981 187009 513176\nPersonZooms 359847 348144 231128\n"
          "SetUserFocusWindow 743897 1004269 285258\nSetWindowTitle 493158 208077 963976\n"
          "SizeWindow 446961 952492 981138\nNewWindow 907602 580749 54283\n"
          "SimulateClick 987709 9874 725686\nPersonTypes 136346 983430 589805\n",
          "NewWindow 635398 338619 8750\nNewWindow 580726 125314 790928\n"
          "MoveWindow 433969 605546 559585\n",
          "NewWindow 581790 666967 714318\nNewWindow 332853 969507 546699\n"
          "NewWindow 319055 322650 327649\nNewControl 623756 567984 49265\n"
          "NewWindow 751484 298671 1007385\nSelectWindow 765163 66521 449971\n"}) {
        std::istringstream theStream(theText);
        const Script theScript = ReadScript(theStream);
        EXPECT_EQ(Describe(theScript), theText);
        const Courses theCourses = RecordTwice(theScript);
        EXPECT_EQ(theCourses.theLinesWithQt, theCourses.theLinesInMemory);
    }
    PresenterRegistry::Use(Host::HeadlessPresenter::Make());
}

INSTANTIATE_TEST_SUITE_P(Seed, RandomSessionsWithQt, testing::ValuesIn(SeedsToPlay(8)));
