// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Entry.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Inspect {

namespace {

constexpr std::array<std::string_view, 28> kNames = {
    "unknown",   "begin",   "end",       "lost",    "module",   "made",   "named",
    "destroyed", "observe", "unobserve", "depend",  "undepend", "bind",   "unbind",
    "changing",  "changed", "equal",     "refused", "told",     "notify", "transform",
    "update",    "action",  "event",     "read",    "write",    "flush",  "diagnostic"};

void ClearObject(Object& theObject)
{
    theObject.theID = 0;
    theObject.theClass.clear();
    theObject.theName.clear();
}

} // namespace

What WhatOf(std::string_view theName)
{
    const auto* const theFound = std::find(kNames.begin() + 1, kNames.end(), theName);
    return theFound == kNames.end() ? What::Unknown : static_cast<What>(theFound - kNames.begin());
}

std::string_view NameOf(What theWhat)
{
    return kNames[static_cast<std::size_t>(theWhat)];
}

std::vector<std::string_view> AllNames()
{
    return {kNames.begin() + 1, kNames.end()};
}

void Entry::Clear()
{
    theNumber = theCause = theTime = theRecord = theChanging = theCode = theFile = 0;
    theThread = 1;
    theWhat = What::Unknown;
    ClearObject(theObject);
    ClearObject(theOther);
    theKey.clear();
    theOtherKey.clear();
    theOld.Clear();
    theNew.Clear();
    theGoal.Clear();
    theTransform.theID = 0;
    theTransform.theClass.clear();
    theCallers.clear();
    theText.clear();
    theDetail.clear();
    thePlace.reset();
    theKeyCode.reset();
    theTitle.clear();
    isDone = false;
    theModule.thePath.clear();
    theModule.theBuild.clear();
    theModule.theBase = theModule.theEnd = 0;
    theModule.isFixed = false;
}

} // namespace Inspect
