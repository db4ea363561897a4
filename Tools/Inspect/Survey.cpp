// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Survey.h"

#include "Text.h"

#include <algorithm>

namespace Inspect {

namespace {

// An object is known by so many names at most; one that is called anew all the time would fill the memory.
constexpr std::size_t kMostNames = 16;

bool IsJoined(const std::string& theText, const std::string& theObject, const std::string& theKey)
{
    return theText.size() == theObject.size() + 1 + theKey.size() && theText[theObject.size()] == '.' &&
           theText.compare(0, theObject.size(), theObject) == 0 &&
           theText.compare(theObject.size() + 1, theKey.size(), theKey) == 0;
}

} // namespace

bool IsMove(const Entry& theEntry)
{
    return theEntry.theWhat == What::Changed || theEntry.theWhat == What::Told ||
           (theEntry.theWhat == What::Notify && theEntry.isDone);
}

void Survey::Meet(const Object& theObject, const std::string& theKey, bool hasMoved)
{
    if (theObject.theID == 0) {
        return;
    }
    Known& theKnown = mObjects[theObject.theID];
    theKnown.theObject = theObject;
    if (!theObject.theName.empty() && theKnown.theNames.size() < kMostNames) {
        theKnown.theNames.insert(theObject.theName);
    }
    if (!theKey.empty() && theKey != "*") {
        theKnown.theKeys[theKey] += hasMoved ? 1 : 0;
    }
}

void Survey::Take(const Entry& theEntry)
{
    const bool hasOther = theEntry.theWhat == What::Bind || theEntry.theWhat == What::Update ||
                          theEntry.theWhat == What::Transform || theEntry.theWhat == What::Unbind;
    Meet(theEntry.theObject, theEntry.theKey, IsMove(theEntry));
    Meet(theEntry.theOther, hasOther ? theEntry.theOtherKey : std::string(), false);
    if (theEntry.theWhat == What::Depend) {
        Meet(theEntry.theObject, theEntry.theOtherKey, false);
    }
}

std::vector<Target> Survey::FindAll(const std::string& theName, Way theWay) const
{
    std::vector<Target> theFound;
    for (const auto& [theID, theKnown] : mObjects) {
        for (const auto& [theKey, theMoves] : theKnown.theKeys) {
            const auto isIt = [&, &theAsked = theKey](const std::string& theObject) {
                return IsJoined(theName, theObject, theAsked);
            };
            const bool isFound = theWay == Way::ByNumber ? isIt("#" + std::to_string(theID))
                                 : theWay == Way::ByName
                                     ? std::any_of(theKnown.theNames.begin(), theKnown.theNames.end(), isIt)
                                     : isIt(theKnown.theObject.theClass);
            if (isFound) {
                theFound.push_back({theKnown.theObject, theKey, {}});
            }
        }
    }
    return theFound;
}

std::string Survey::SayNearest(const std::string& theName) const
{
    std::set<std::string> theNames;
    for (const auto& [theID, theKnown] : mObjects) {
        for (const auto& [theKey, theMoves] : theKnown.theKeys) {
            theNames.insert(ShowKey(theKnown.theObject, theKey));
        }
    }
    const std::vector<std::string> theNearest = NearestNames(theName, {theNames.begin(), theNames.end()});
    return "there is no " + Escape(theName) + " in the journal" +
           (theNearest.empty() ? "" : "; did you mean " + JoinWithOr(theNearest) + "?");
}

Target Survey::Find(const std::string& theName) const
{
    for (const Way theWay : {Way::ByNumber, Way::ByName, Way::ByClass}) {
        std::vector<Target> theFound = FindAll(theName, theWay);
        if (theFound.size() == 1) {
            return theFound.front();
        }
        if (theFound.size() > 1) {
            std::vector<std::string> theNames;
            theNames.reserve(theFound.size());
            for (const Target& theTarget : theFound) {
                theNames.push_back("#" + std::to_string(theTarget.theObject.theID) + "." +
                                   Escape(theTarget.theKey));
            }
            theNames.resize(std::min<std::size_t>(theNames.size(), 10));
            return {{},
                    {},
                    Count(theFound.size(), "object is", "objects are") +
                        " called so; say which: " + JoinWithOr(theNames)};
        }
    }
    return {{}, {}, SayNearest(theName)};
}

std::uint64_t Survey::CountMoves(const Target& theTarget) const
{
    const auto theKnown = mObjects.find(theTarget.theObject.theID);
    if (theKnown == mObjects.end()) {
        return 0;
    }
    const auto theKey = theKnown->second.theKeys.find(theTarget.theKey);
    return theKey == theKnown->second.theKeys.end() ? 0 : theKey->second;
}

Survey MakeSurvey(Journal& theJournal)
{
    Survey theSurvey;
    Entry theEntry;
    theJournal.KeepForRewind();
    while (theJournal.Next(theEntry)) {
        theSurvey.Take(theEntry);
    }
    if (theJournal.GetTrouble().empty()) {
        theJournal.Rewind();
    }
    return theSurvey;
}

} // namespace Inspect
