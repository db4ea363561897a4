// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Filter.h"

#include "Text.h"

#include <algorithm>

namespace Inspect {

namespace {

// * is any text, ? any character but a line feed's beginning; everything else is itself. Brackets are common
// in names and stand for themselves, so this is not what a shell does.
bool MatchesPattern(std::string_view theText, std::string_view thePattern)
{
    std::size_t theStar = std::string_view::npos;
    std::size_t theStarText = 0;
    std::size_t theText1 = 0;
    std::size_t thePattern1 = 0;
    while (theText1 < theText.size()) {
        if (thePattern1 < thePattern.size() && thePattern[thePattern1] == '*') {
            theStar = thePattern1++;
            theStarText = theText1;
        } else if (thePattern1 < thePattern.size() &&
                   (thePattern[thePattern1] == '?' || thePattern[thePattern1] == theText[theText1])) {
            ++theText1;
            ++thePattern1;
        } else if (theStar != std::string_view::npos) {
            thePattern1 = theStar + 1;
            theText1 = ++theStarText;
        } else {
            return false;
        }
    }
    return thePattern.find_first_not_of('*', thePattern1) == std::string_view::npos;
}

} // namespace

bool IsCalled(const Object& theObject, const std::string& thePattern)
{
    if (theObject.theID == 0) {
        return false;
    }
    if (thePattern.size() > 1 && thePattern.front() == '#') {
        return thePattern.substr(1) == std::to_string(theObject.theID);
    }
    return MatchesPattern(theObject.theName, thePattern) || MatchesPattern(theObject.theClass, thePattern);
}

bool Filter::Matches(const Entry& theEntry, Callers& theCallers) const
{
    if (!theKinds.empty() && theKinds.count(theEntry.theWhat) == 0) {
        return false;
    }
    if (theEntry.theTime < theEarliest || theEntry.theTime > theLatest) {
        return false;
    }
    if (!theObject.empty() && !IsCalled(theEntry.theObject, theObject) &&
        !IsCalled(theEntry.theOther, theObject)) {
        return false;
    }
    if (!theKey.empty() && !(!theEntry.theKey.empty() && MatchesPattern(theEntry.theKey, theKey)) &&
        !(!theEntry.theOtherKey.empty() && MatchesPattern(theEntry.theOtherKey, theKey))) {
        return false;
    }
    return theCaller.empty() ||
           std::any_of(theEntry.theCallers.begin(), theEntry.theCallers.end(), [&](std::uint64_t theAddress) {
               return theCallers.Show(theAddress).find(theCaller) != std::string::npos;
           });
}

} // namespace Inspect
