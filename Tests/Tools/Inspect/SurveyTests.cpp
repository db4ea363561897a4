// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Survey.h"

#include <gtest/gtest.h>

using namespace Inspect;

namespace {

Entry Change(std::uint64_t theID, const std::string& theClass, const std::string& theName,
             const std::string& theKey)
{
    Entry theEntry;
    theEntry.theWhat = What::Changed;
    theEntry.theObject = {theID, theClass, theName};
    theEntry.theKey = theKey;
    return theEntry;
}

} // namespace

TEST(Survey, FindsKeysByNumberNameAndClass)
{
    Survey theSurvey;
    theSurvey.Take(Change(4, "LmControlBinding", "[ControlRef 'a.b', 1]", "value"));
    theSurvey.Take(Change(5, "LmWindowBinding", "Main", "a.b"));
    EXPECT_EQ(theSurvey.Find("#4.value").theObject.theID, 4U);
    EXPECT_EQ(theSurvey.Find("[ControlRef 'a.b', 1].value").theObject.theID, 4U) << "dots may be in a name";
    EXPECT_EQ(theSurvey.Find("Main.a.b").theKey, "a.b") << "and in a key";
    EXPECT_EQ(theSurvey.Find("LmWindowBinding.a.b").theObject.theID, 5U);
    EXPECT_NE(theSurvey.Find("Main.a").theProblem, "");
    EXPECT_NE(theSurvey.Find("").theProblem, "");
}

TEST(Survey, KnowsAnObjectByAllOfItsNames)
{
    Survey theSurvey;
    theSurvey.Take(Change(4, "LmKeyValueBinding", "LmKeyValueBinding 4", "volume"));
    theSurvey.Take(Change(4, "LmKeyValueBinding", "radio", "volume"));
    EXPECT_EQ(theSurvey.Find("LmKeyValueBinding 4.volume").theObject.theName, "radio");
    EXPECT_EQ(theSurvey.CountMoves(theSurvey.Find("radio.volume")), 2U);
}

TEST(Survey, AsksWhichOfSeveral)
{
    Survey theSurvey;
    theSurvey.Take(Change(4, "C", "radio", "volume"));
    theSurvey.Take(Change(6, "C", "radio", "volume"));
    EXPECT_EQ(theSurvey.Find("radio.volume").theProblem,
              "2 objects are called so; say which: #4.volume or #6.volume");
}

TEST(Survey, TakesANameForANameBeforeAClass)
{
    Survey theSurvey;
    theSurvey.Take(Change(4, "radio", "first", "volume"));
    theSurvey.Take(Change(6, "C", "radio", "volume"));
    EXPECT_EQ(theSurvey.Find("radio.volume").theObject.theID, 6U);
}
