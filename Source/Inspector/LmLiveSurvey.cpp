// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLiveSurvey.h"

#include "LmControlBinding.h"
#include "LmConveniences.h"
#include "LmKeyValueBinding.h"
#include "LmLiveRecord.h"
#include "LmLiveTexts.h"
#include "LmMenuBinding.h"
#include "LmPreferenceBinding.h"
#include "LmWindowBinding.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {

// How each line begins that says what a person did.
constexpr char kPerson[] = "a person ";

// In the order in which groups are shown.
enum class Room : std::uint8_t
{
    kWindow,
    kMenus,
    kPreferences,
    kModels,
    kObservers
};

struct Place
{
    Room theRoom = Room::kObservers;
    std::uintptr_t theWindow = 0;

    bool operator<(const Place& theOther) const
    {
        return theRoom != theOther.theRoom ? theRoom < theOther.theRoom : theWindow < theOther.theWindow;
    }
};

WindowRef WindowOf(const LmDebugObject& theObject)
{
    if (const auto* const theWindow = dynamic_cast<const LmWindowBinding*>(&theObject)) {
        return theWindow->GetWindow();
    }
    const auto* const theControl = dynamic_cast<const LmControlBinding*>(&theObject);
    return theControl != nullptr ? GetControlOwner(theControl->GetControl()) : nullptr;
}

Place PlaceOf(const LmDebugObject& theObject)
{
    const WindowRef theWindow = WindowOf(theObject);
    if (theWindow != nullptr) {
        return {Room::kWindow, reinterpret_cast<std::uintptr_t>(theWindow)};
    }
    if (dynamic_cast<const LmMenuBinding*>(&theObject) != nullptr) {
        return {Room::kMenus, 0};
    }
    if (dynamic_cast<const LmPreferenceBinding*>(&theObject) != nullptr) {
        return {Room::kPreferences, 0};
    }
    return {dynamic_cast<const LmKeyValueStore*>(&theObject) != nullptr ? Room::kModels : Room::kObservers,
            0};
}

std::string TitleOf(const Place& thePlace)
{
    static const char* const kTitles[] = {"Window ", "Menus", "Preferences", "Models", "Observers"};
    std::string theTitle = kTitles[static_cast<std::size_t>(thePlace.theRoom)];
    CFStringRef theText = nullptr;
    if (thePlace.theRoom == Room::kWindow &&
        CopyWindowTitleAsCFString(reinterpret_cast<WindowRef>(thePlace.theWindow), &theText) == noErr) {
        theTitle += LmGetStdString(LmValue(theText, true));
    }
    return theTitle;
}

// The keys that a binding of Carbon's objects has whether or not anybody used them.
std::vector<const char*> UsualKeys(const LmDebugObject& theObject)
{
    if (dynamic_cast<const LmControlBinding*>(&theObject) != nullptr) {
        return {"value", "minimum", "maximum", "enabled", "visible", "title"};
    }
    if (dynamic_cast<const LmWindowBinding*>(&theObject) != nullptr) {
        return {"visible", "collapsed", "bounds", "title"};
    }
    if (dynamic_cast<const LmMenuBinding*>(&theObject) != nullptr) {
        return {"mark", "enabled", "title"};
    }
    return {};
}

LmSurveyedObject Show(const LmJournalObject& theKnown)
{
    return {theKnown.theNumber, theKnown.theName, theKnown.theClass};
}

std::string Through(const LmSurveyedLink& theLink)
{
    return theLink.theTransform.empty() ? std::string() : " through " + theLink.theTransform;
}

LmSurveyedKey ShowKey(const LmKeyValueStore& theStore, const std::string& theName)
{
    const LmValue theValue = theStore.GetKeyValue(LmMakeString(theName));
    LmSurveyedKey theKey;
    theKey.theKey = theName;
    theKey.theValue = LmShowValue(theValue);
    theKey.theEditText = LmEditedValue(theValue);
    theKey.theType = LmTypeName(theValue.GetType());
    theKey.isEditable = LmIsEditable(theValue.GetType());
    return theKey;
}

// Of all that led to a change only what is a change itself.
void AddCauses(const LmLiveRecord::Line& theLine, LmSurveyedChange& theChange)
{
    for (const LmLiveRecord::Line* theCause = theLine.theCause.get(); theCause != nullptr;
         theCause = theCause->theCause.get()) {
        if (theCause->isListed) {
            theChange.theCause = theChange.theCause != 0 ? theChange.theCause : theCause->theChange.theNumber;
            theChange.theDepth += 1;
        }
    }
}

// Whether an observation is nothing but a binding's way to hear of its key.
bool IsOfBinding(const LmSurveyedLink& theLink, const std::vector<LmSurveyedLink>& theLinks)
{
    return theLink.theKind == LmLinkKind::kObserver &&
           std::any_of(theLinks.begin(), theLinks.end(), [&](const LmSurveyedLink& theOther) {
               return theOther.theKind == LmLinkKind::kBinding && theOther.theObject == theLink.theObject &&
                      theOther.theOther == theLink.theOther && theOther.theOtherKey == theLink.theOtherKey;
           });
}

} // namespace

LmLiveSurvey::LmLiveSurvey()
    : mRecord(std::make_unique<LmLiveRecord>())
{
}

LmLiveSurvey::~LmLiveSurvey() = default;

std::vector<LmSurveyedGroup> LmLiveSurvey::FindGroups() const
{
    std::vector<LmSurveyedGroup> theResult;
    mRecord->DoQuietly([&] {
        std::map<Place, std::vector<LmSurveyedObject>> theGroups;
        for (const auto& [theNumber, theObject] : mRecord->Objects()) {
            if (!theObject.isOwner) {
                theGroups[PlaceOf(*theObject.theBase)].push_back(Show(mRecord->Describe(*theObject.theBase)));
            }
        }
        for (auto& [thePlace, theObjects] : theGroups) {
            theResult.push_back({TitleOf(thePlace), std::move(theObjects)});
        }
        const auto theEnd =
            std::find_if(theResult.begin(), theResult.end(), [](const LmSurveyedGroup& theGroup) {
                return theGroup.theTitle.compare(0, 7, "Window ") != 0;
            });
        std::stable_sort(
            theResult.begin(), theEnd, [](const LmSurveyedGroup& theOne, const LmSurveyedGroup& theOther) {
                return theOne.theObjects.front().theNumber < theOther.theObjects.front().theNumber;
            });
    });
    return theResult;
}

LmSurveyedObject LmLiveSurvey::FindObject(std::uint64_t theObject) const
{
    LmSurveyedObject theResult;
    mRecord->DoQuietly([&] {
        const auto theKnown = mRecord->Objects().find(theObject);
        if (theKnown != mRecord->Objects().end()) {
            theResult = Show(mRecord->Describe(*theKnown->second.theBase));
        }
    });
    return theResult;
}

std::vector<LmSurveyedKey> LmLiveSurvey::FindKeys(std::uint64_t theObject) const
{
    std::vector<LmSurveyedKey> theResult;
    mRecord->DoQuietly([&] {
        const auto theKnown = mRecord->Objects().find(theObject);
        const auto* const theStore = theKnown != mRecord->Objects().end()
                                         ? dynamic_cast<const LmKeyValueStore*>(theKnown->second.theBase)
                                         : nullptr;
        if (theStore == nullptr) {
            return;
        }
        for (const char* theKey : UsualKeys(*theStore)) {
            if (theStore->GetKeyValue(theKey).IsValid()) {
                theKnown->second.theKeys.emplace(theKey, nullptr);
            }
        }
        for (const auto& theKey : theKnown->second.theKeys) {
            theResult.push_back(ShowKey(*theStore, theKey.first));
        }
    });
    for (const LmSurveyedLink& theLink : FindLinks(theObject)) {
        const bool isHere = theLink.theKind == LmLinkKind::kBinding && theLink.theObject == theObject;
        const auto theKey =
            std::find_if(theResult.begin(), theResult.end(), [&](const LmSurveyedKey& theCandidate) {
                return isHere && theCandidate.theKey == theLink.theKey;
            });
        if (theKey != theResult.end()) {
            theKey->theBindings.push_back("bound to " + FindObject(theLink.theOther).theName + "." +
                                          theLink.theOtherKey + Through(theLink));
        }
    }
    return theResult;
}

std::vector<LmSurveyedLink> LmLiveSurvey::FindLinks(std::uint64_t theObject) const
{
    std::vector<LmSurveyedLink> theResult;
    mRecord->DoQuietly([&] {
        const std::vector<LmSurveyedLink> theLinks = mRecord->Links();
        for (const LmSurveyedLink& theLink : theLinks) {
            const auto& theObjects = mRecord->Objects();
            const auto theEnd = theObjects.find(theLink.theObject);
            const bool isThere = theEnd != theObjects.end() && theObjects.count(theLink.theOther) != 0;
            const bool isOwners =
                isThere && theLink.theKind == LmLinkKind::kObserver && theEnd->second.isOwner;
            const bool isAround =
                theObject == 0 || theLink.theObject == theObject || theLink.theOther == theObject;
            if (isThere && isAround && !isOwners && !IsOfBinding(theLink, theLinks)) {
                theResult.push_back(theLink);
            }
        }
    });
    std::sort(theResult.begin(), theResult.end(),
              [](const LmSurveyedLink& theOne, const LmSurveyedLink& theOther) {
                  return std::tie(theOne.theKind, theOne.theObject, theOne.theKey, theOne.theOther,
                                  theOne.theOtherKey) < std::tie(theOther.theKind, theOther.theObject,
                                                                 theOther.theKey, theOther.theOther,
                                                                 theOther.theOtherKey);
              });
    return theResult;
}

std::vector<LmSurveyedChange> LmLiveSurvey::FindChanges(std::size_t theCount) const
{
    mRecord->Renew();
    const auto& theLines = mRecord->Lines();
    std::vector<LmSurveyedChange> theResult;
    const std::size_t theFirst = theLines.size() - std::min(theLines.size(), theCount);
    for (std::size_t theIndex = theFirst; theIndex < theLines.size(); ++theIndex) {
        theResult.push_back(theLines[theIndex]->theChange);
        AddCauses(*theLines[theIndex], theResult.back());
    }
    return theResult;
}

std::vector<std::string> LmLiveSurvey::FindReasons(std::uint64_t theObject, const std::string& theKey) const
{
    std::vector<std::string> theResult;
    const auto theKnown = mRecord->Objects().find(theObject);
    if (theKnown == mRecord->Objects().end()) {
        return theResult;
    }
    const auto theMove = theKnown->second.theKeys.find(theKey);
    const LmLiveRecord::Line* theLine =
        theMove != theKnown->second.theKeys.end() ? theMove->second.get() : nullptr;
    bool isCut = false;
    for (; theLine != nullptr; theLine = theLine->theCause.get()) {
        theResult.push_back(theLine->theChange.theText);
        isCut = theLine->isCut;
    }
    if (isCut) {
        theResult.emplace_back("what led to this is no longer known");
    } else if (!theResult.empty() && theResult.back().compare(0, sizeof kPerson - 1, kPerson) != 0) {
        theResult.emplace_back("it began in the program's own code");
    }
    return theResult;
}

bool LmLiveSurvey::SetValue(std::uint64_t theObject, const std::string& theKey, const std::string& theText)
{
    const LmString theName = LmMakeString(theKey);
    LmKeyValueStore* theStore = nullptr;
    LmValue theValue;
    mRecord->DoQuietly([&] {
        const auto theKnown = mRecord->Objects().find(theObject);
        const auto* const theFound = theKnown != mRecord->Objects().end()
                                         ? dynamic_cast<const LmKeyValueStore*>(theKnown->second.theBase)
                                         : nullptr;
        if (theFound != nullptr && theName.IsNotEmpty() &&
            LmReadValue(theText, theFound->GetKeyValue(theName).GetType(), theValue)) {
            theStore = const_cast<LmKeyValueStore*>(theFound);
        }
    });
    if (theStore != nullptr) {
        mRecord->DoBecauseOf("a person set " + theKey + " in the inspector",
                             [&] { theStore->SetKeyPathValue(theName, theValue); });
    }
    return theStore != nullptr;
}

std::uint64_t LmLiveSurvey::FindByName(const std::string& theName) const
{
    std::uint64_t theNumbered = 0;
    std::vector<std::uint64_t> theNamed;
    std::vector<std::uint64_t> theClassed;
    mRecord->DoQuietly([&] {
        for (const auto& [theNumber, theObject] : mRecord->Objects()) {
            if (theObject.isOwner) {
                continue;
            }
            const LmJournalObject& theKnown = mRecord->Describe(*theObject.theBase);
            theNumbered = theName == "#" + std::to_string(theNumber) ? theNumber : theNumbered;
            if (theKnown.theName == theName) {
                theNamed.push_back(theNumber);
            }
            if (theKnown.theClass == theName) {
                theClassed.push_back(theNumber);
            }
        }
    });
    if (theNumbered != 0 || theNamed.size() == 1) {
        return theNumbered != 0 ? theNumbered : theNamed.front();
    }
    return theNamed.empty() && theClassed.size() == 1 ? theClassed.front() : 0;
}

std::uint64_t LmLiveSurvey::FindByControl(ControlRef theControl) const
{
    std::uint64_t theResult = 0;
    mRecord->DoQuietly([&] {
        for (const auto& [theNumber, theObject] : mRecord->Objects()) {
            const auto* const theBinding = dynamic_cast<const LmControlBinding*>(theObject.theBase);
            if (theBinding != nullptr && theControl != nullptr && theBinding->GetControl() == theControl) {
                theResult = theNumber;
            }
        }
    });
    return theResult;
}

std::uint64_t LmLiveSurvey::FindByWindow(WindowRef theWindow) const
{
    std::uint64_t theResult = 0;
    mRecord->DoQuietly([&] {
        for (const auto& [theNumber, theObject] : mRecord->Objects()) {
            const auto* const theBinding = dynamic_cast<const LmWindowBinding*>(theObject.theBase);
            if (theBinding != nullptr && theWindow != nullptr && theBinding->GetWindow() == theWindow) {
                theResult = theNumber;
            }
        }
    });
    return theResult;
}

ControlRef LmLiveSurvey::FindControl(std::uint64_t theObject) const
{
    const auto theKnown = mRecord->Objects().find(theObject);
    const auto* const theBinding = theKnown != mRecord->Objects().end()
                                       ? dynamic_cast<const LmControlBinding*>(theKnown->second.theBase)
                                       : nullptr;
    return theBinding != nullptr ? theBinding->GetControl() : nullptr;
}

std::uint64_t LmLiveSurvey::CountEntries() const
{
    mRecord->Renew();
    return mRecord->CountEntries();
}
