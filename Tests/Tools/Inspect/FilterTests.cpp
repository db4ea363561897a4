// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Filter.h"

#include <gtest/gtest.h>

using namespace Inspect;

TEST(Filter, FindsObjectsByNameClassAndNumber)
{
    const Object theObject = {12, "LmControlBinding", "[ControlRef 'room', 2]"};
    EXPECT_TRUE(IsCalled(theObject, "[ControlRef 'room', 2]")) << "brackets stand for themselves";
    EXPECT_TRUE(IsCalled(theObject, "LmControlBinding"));
    EXPECT_TRUE(IsCalled(theObject, "#12"));
    EXPECT_TRUE(IsCalled(theObject, "Lm*Binding"));
    EXPECT_TRUE(IsCalled(theObject, "*'room'*"));
    EXPECT_TRUE(IsCalled(theObject, "LmControlBindin?"));
    EXPECT_TRUE(IsCalled(theObject, "*"));
    EXPECT_FALSE(IsCalled(theObject, "#1"));
    EXPECT_FALSE(IsCalled(theObject, "Lm*Bind"));
    EXPECT_FALSE(IsCalled(theObject, "LmControlBinding?"));
    EXPECT_FALSE(IsCalled({}, "*")) << "there is no object";
}

TEST(Filter, WantsAllThatItNames)
{
    Callers theCallers;
    Entry theEntry;
    theEntry.theWhat = What::Update;
    theEntry.theTime = 5;
    theEntry.theObject = {1, "C", "slider"};
    theEntry.theKey = "value";
    theEntry.theOther = {2, "M", "model"};
    theEntry.theOtherKey = "level";
    EXPECT_TRUE(Filter().Matches(theEntry, theCallers));

    Filter theFilter;
    theFilter.theObject = "model";
    EXPECT_TRUE(theFilter.Matches(theEntry, theCallers)) << "both ends of a binding count";
    theFilter.theKey = "level";
    EXPECT_TRUE(theFilter.Matches(theEntry, theCallers));
    theFilter.theKey = "title";
    EXPECT_FALSE(theFilter.Matches(theEntry, theCallers));
    theFilter.theKey = "*";
    EXPECT_TRUE(theFilter.Matches(theEntry, theCallers));
    theFilter.theKinds = {What::Changed};
    EXPECT_FALSE(theFilter.Matches(theEntry, theCallers));
    theFilter.theKinds = {What::Changed, What::Update};
    EXPECT_TRUE(theFilter.Matches(theEntry, theCallers));
    theFilter.theEarliest = 6;
    EXPECT_FALSE(theFilter.Matches(theEntry, theCallers));
    theFilter.theEarliest = 5;
    theFilter.theLatest = 5;
    EXPECT_TRUE(theFilter.Matches(theEntry, theCallers));
    theFilter.theLatest = 4;
    EXPECT_FALSE(theFilter.Matches(theEntry, theCallers));
}

TEST(Filter, WantsNoEntryWithoutAKeyWhenAKeyIsNamed)
{
    Callers theCallers;
    Entry theEntry;
    theEntry.theWhat = What::Action;
    Filter theFilter;
    theFilter.theKey = "*";
    EXPECT_FALSE(theFilter.Matches(theEntry, theCallers));
}

TEST(Filter, FindsCallersByAPartOfTheirName)
{
    Callers theCallers;
    Entry theEntry;
    theEntry.theCallers = {0x1234, 0xabcd};
    Filter theFilter;
    theFilter.theCaller = "abc";
    EXPECT_TRUE(theFilter.Matches(theEntry, theCallers));
    theFilter.theCaller = "main";
    EXPECT_FALSE(theFilter.Matches(theEntry, theCallers));
}
