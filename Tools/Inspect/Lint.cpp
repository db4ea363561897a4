// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Lint.h"

#include "Describe.h"
#include "Status.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>

namespace Inspect {

namespace {

struct RuleText
{
    std::string_view theName;
    std::string_view thePage;
};

// In the order of the rules.
constexpr std::array<RuleText, 11> kRules = {{{"never-set", "Documentation/Tutorial/10-FindingOut.md"},
                                              {"unknown-key", "Documentation/Tutorial/10-FindingOut.md"},
                                              {"never-follows", "Documentation/Tutorial/10-FindingOut.md"},
                                              {"fraction-dropped", "Documentation/Tutorial/10-FindingOut.md"},
                                              {"shown-otherwise", "Documentation/Tutorial/10-FindingOut.md"},
                                              {"dead-source", "Documentation/Tutorial/10-FindingOut.md"},
                                              {"shared-transform", "Documentation/Tutorial/10-FindingOut.md"},
                                              {"long-round", "Documentation/NotificationOrder.md"},
                                              {"set-twice", "Documentation/NotificationOrder.md"},
                                              {"observer-left", "Documentation/Ownership.md"},
                                              {"not-flushed", "Documentation/Tutorial/10-FindingOut.md"}}};

// A round that settles comes back once, and a model that corrects what it is given needs one hop more.
constexpr std::size_t kMostHops = 3;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// The keys of the library's own classes that stand for something on the screen.
const std::vector<std::string>* KeysOfClass(const std::string& theClass)
{
    static const std::map<std::string, std::vector<std::string>> kKeys = {
        {"LmControlBinding", {"value", "minimum", "maximum", "enabled", "visible", "title"}},
        {"LmMenuBinding", {"mark", "enabled", "title"}},
        {"LmWindowBinding", {"visible", "collapsed", "bounds", "title"}}};
    const auto theFound = kKeys.find(theClass);
    return theFound == kKeys.end() ? nullptr : &theFound->second;
}

std::string DidYouMean(const std::string& theKey, const std::vector<std::string>& theKeys)
{
    const std::vector<std::string> theNearest = NearestNames(theKey, theKeys);
    return theNearest.empty() ? std::string() : "; did you mean " + Escape(JoinWithOr(theNearest)) + "?";
}

bool IsPreference(const Object& theObject)
{
    return theObject.theClass.find("Preference") != std::string::npos;
}

bool IsSameEnd(const Entry& theLeft, const Entry& theRight)
{
    return theLeft.theOther.theID == theRight.theOther.theID && theLeft.theOtherKey == theRight.theOtherKey;
}

// Whether each is the other's way back.
bool AreTwoWays(const Entry& theLeft, const Entry& theRight)
{
    return theLeft.theObject.theID == theRight.theOther.theID && theLeft.theKey == theRight.theOtherKey &&
           theLeft.theOther.theID == theRight.theObject.theID && theLeft.theOtherKey == theRight.theKey;
}

bool IsChangeOf(const Entry& theEntry, const Entry& theOther)
{
    return theEntry.theWhat == What::Changed && theEntry.theObject.theID == theOther.theObject.theID &&
           theEntry.theKey == theOther.theKey;
}

} // namespace

std::string_view NameOf(Rule theRule)
{
    return kRules[static_cast<std::size_t>(theRule)].theName;
}

std::string_view PageOf(Rule theRule)
{
    return kRules[static_cast<std::size_t>(theRule)].thePage;
}

void Lint::Add(Rule theRule, const Entry& theEntry, const Object& theObject, const std::string& theKey,
               const std::string& theSentence)
{
    const auto [theFound, isNew] = mFindings.try_emplace({theRule, {theObject.theID, theKey}});
    Finding& theFinding = theFound->second;
    if (!isNew) {
        ++theFinding.theCount;
        return;
    }
    theFinding = {
        theRule, theEntry.theNumber, theObject, theKey, theSentence, mCallers.ShowInnermost(theEntry), 1};
}

// Whether what happens belongs to the end of that object.
bool Lint::IsWithinDestruction(std::uint64_t theObject) const
{
    for (std::size_t theIndex = 0; theIndex < mCauses.Count(); ++theIndex) {
        const Entry& theEntry = mCauses.At(theIndex).theEntry;
        if (theEntry.theWhat == What::Destroyed && theEntry.theObject.theID == theObject) {
            return true;
        }
    }
    return false;
}

std::vector<std::string> Lint::KeysOf(std::uint64_t theObject) const
{
    std::vector<std::string> theKeys;
    for (auto theKey = mValues.lower_bound({theObject, {}});
         theKey != mValues.end() && theKey->first == theObject; ++theKey) {
        theKeys.push_back(theKey->second);
    }
    return theKeys;
}

void Lint::NoteValues(const Entry& theEntry)
{
    const bool isFromSource = (theEntry.theWhat == What::Transform && theEntry.theOld.IsValid()) ||
                              (theEntry.theWhat == What::Update && theEntry.theGoal.IsValid());
    if (isFromSource) {
        // A store that keeps its values elsewhere has them without a change.
        mValues.insert({theEntry.theOther.theID, theEntry.theOtherKey});
    } else if (theEntry.theNew.IsValid() && !theEntry.theKey.empty() && theEntry.theWhat != What::Transform) {
        mValues.insert({theEntry.theObject.theID, theEntry.theKey});
    }
}

// A control keeps a key that it does not have, and shows nothing of it.
void Lint::CheckKey(const Entry& theEntry)
{
    const std::vector<std::string>* const theKeys = KeysOfClass(theEntry.theObject.theClass);
    if (theKeys != nullptr &&
        std::find(theKeys->begin(), theKeys->end(), theEntry.theKey) == theKeys->end()) {
        Add(Rule::UnknownKey, theEntry, theEntry.theObject, theEntry.theKey,
            "a " + WhatItStandsFor(theEntry.theObject) + " has no such key" +
                DidYouMean(theEntry.theKey, *theKeys));
    }
}

// Only the record that sorts first is served.
void Lint::CheckNeighbours(const Entry& theEntry)
{
    for (auto& [theNumber, theRecord] : mRecords) {
        const Entry& theOther = theRecord.theBinding;
        if (theEntry.theTransform.theID != 0 && theEntry.theTransform.theID == theOther.theTransform.theID) {
            Add(Rule::SharedTransform, theEntry, theEntry.theObject, theEntry.theKey,
                "its " + Escape(theEntry.theTransform.theClass) + " was given to " +
                    ShowKey(theOther.theObject, theOther.theKey) +
                    " as well: each gives a reference back, so that Retain must have been called once more");
        }
        if (theOther.theObject.theID == theEntry.theObject.theID && IsSameEnd(theOther, theEntry)) {
            const bool isFirst = theEntry.theKey < theOther.theKey;
            const Entry& theLater = isFirst ? theOther : theEntry;
            const Entry& theServed = isFirst ? theEntry : theOther;
            Add(Rule::NeverFollows, theEntry, theLater.theObject, theLater.theKey,
                "it never follows " + ShowKey(theEntry.theOther, theEntry.theOtherKey) + ", since \"" +
                    Escape(theServed.theKey) + "\" of the same object does");
        }
    }
}

void Lint::TakeBinding(const Entry& theEntry)
{
    CheckKey(theEntry);
    CheckNeighbours(theEntry);
    Record theNew;
    theNew.theBinding = theEntry;
    for (auto& [theNumber, theRecord] : mRecords) {
        if (theRecord.isOneWay && AreTwoWays(theRecord.theBinding, theEntry)) {
            theRecord.isOneWay = theNew.isOneWay = false;
            break;
        }
    }
    mRecords[theEntry.theRecord] = theNew;
}

void Lint::TakeUnbinding(const Entry& theEntry)
{
    const auto theFound = mRecords.find(theEntry.theRecord);
    if (theFound == mRecords.end()) {
        return;
    }
    const Record& theRecord = theFound->second;
    const Entry& theBinding = theRecord.theBinding;
    if (theRecord.hasDeadSource && !IsWithinDestruction(theBinding.theOther.theID)) {
        Add(Rule::DeadSource, theEntry, theBinding.theObject, theBinding.theKey,
            "it was bound to " + ShowKey(theBinding.theOther, theBinding.theOtherKey) +
                " when that was destroyed");
    }
    CheckSource(theBinding);
    mRecords.erase(theFound);
}

// Whether what theBinding follows has a value by now; otherwise it is asked again at the end.
void Lint::CheckSource(const Entry& theBinding)
{
    if (mValues.count({theBinding.theOther.theID, theBinding.theOtherKey}) == 0 &&
        !IsPreference(theBinding.theOther)) {
        mNeverSet.push_back(theBinding);
    }
}

void Lint::CheckShown(std::uint64_t theObject)
{
    for (const auto& [theKey, theDifference] : mEcho.GetAll()) {
        const Entry& theChange = theDifference.theChange;
        if (theDifference.isIt && (theObject == 0 || theKey.first == theObject)) {
            Add(Rule::ShownOtherwise, theChange, theChange.theObject, theChange.theKey,
                "it is " + Show(theChange.theNew) + ", and the " + WhatItStandsFor(theChange.theObject) +
                    " shows " + Show(theDifference.theShown) + ": it was set while the " +
                    WhatItStandsFor(theChange.theObject) + "'s own change was copied");
        }
    }
}

void Lint::TakeDestruction(const Entry& theEntry)
{
    const std::uint64_t theObject = theEntry.theObject.theID;
    CheckShown(theObject);
    mEcho.Forget(theObject);
    mObservers.erase(theObject);
    mStores.erase(theObject);
    mUnwritten.erase(mUnwritten.lower_bound({theObject, {}}), mUnwritten.lower_bound({theObject + 1, {}}));
    for (auto& [theNumber, theRecord] : mRecords) {
        if (theRecord.isOneWay && theRecord.theBinding.theOther.theID == theObject) {
            theRecord.hasDeadSource = true;
        }
    }
}

// The outermost step that set the key of the last one. What is inside of a round that is known belongs to it.
std::size_t Lint::FindRound() const
{
    bool isInside = false;
    for (std::size_t theFirst = 0; theFirst + 1 < mCauses.Count(); ++theFirst) {
        const Causes::Step& theStep = mCauses.At(theFirst);
        const bool isKnown = theStep.theEntry.theWhat == What::Changed && theStep.isMarked;
        if (IsChangeOf(theStep.theEntry, mCauses.Last().theEntry)) {
            return isInside && !isKnown ? kNone : theFirst;
        }
        isInside = isInside || isKnown;
    }
    return kNone;
}

// Whether the change has come back to where it began, and how many bindings it went through on the way.
void Lint::CheckRound()
{
    const std::size_t theFirst = FindRound();
    if (theFirst == kNone) {
        return;
    }
    std::size_t theHops = 0;
    for (std::size_t theIndex = theFirst; theIndex < mCauses.Count(); ++theIndex) {
        theHops += mCauses.At(theIndex).theEntry.theWhat == What::Update ? 1 : 0;
    }
    if (theHops > kMostHops) {
        Causes::Step& theBegin = mCauses.At(theFirst);
        theBegin.isMarked = true;
        Add(Rule::LongRound, theBegin.theEntry, theBegin.theEntry.theObject, theBegin.theEntry.theKey,
            "a change went through " + std::to_string(theHops) +
                " bindings and changed it again: what is made of a value on the way there and back is "
                "another value");
    }
}

void Lint::CheckTwice(const Entry& theEntry)
{
    bool isOutermost = true;
    for (std::size_t theIndex = 0; theIndex + 1 < mCauses.Count(); ++theIndex) {
        isOutermost = isOutermost && mCauses.At(theIndex).theEntry.theWhat != What::Changed;
    }
    // A set that others were made in before it was through belongs to them.
    if (isOutermost && (theEntry.theChanging == 0 || theEntry.theChanging > mLastChange)) {
        mRound.clear();
    }
    mLastChange = theEntry.theNumber;
    Setting& theLast = mRound[{theEntry.theObject.theID, theEntry.theKey}];
    if (theLast.theNumber > theEntry.theChanging && theEntry.theChanging != 0) {
        CheckNested(theEntry, theLast);
    } else if (theLast.theNumber != 0 && !IsAmongCauses(theLast.theNumber)) {
        Add(Rule::SetTwice, theEntry, theEntry.theObject, theEntry.theKey,
            "one change set it twice, on two ways: entries " + std::to_string(theLast.theNumber) + " and " +
                std::to_string(theEntry.theNumber));
    }
    theLast = {theEntry.theNumber, theEntry.theNew};
}

// The last set was made while this one was going on. That is how an object answers that tells of what it
// shows: a control sends its event before the set that it comes from has ended. It says the same value then.
void Lint::CheckNested(const Entry& theEntry, const Setting& theInner)
{
    const bool isAnswer = theInner.theValue.IsNumber() && theEntry.theNew.IsNumber()
                              ? !AreDifferentNumbers(theInner.theValue, theEntry.theNew)
                              : IsSame(theInner.theValue, theEntry.theNew);
    if (!isAnswer) {
        Add(Rule::SetTwice, theEntry, theEntry.theObject, theEntry.theKey,
            "it was set to " + Show(theInner.theValue) + " while it was being set to " +
                Show(theEntry.theNew) + ": entries " + std::to_string(theInner.theNumber) + " and " +
                std::to_string(theEntry.theNumber));
    }
}

bool Lint::IsAmongCauses(std::uint64_t theNumber) const
{
    for (std::size_t theIndex = 0; theIndex < mCauses.Count(); ++theIndex) {
        if (mCauses.At(theIndex).theEntry.theNumber == theNumber) {
            return true;
        }
    }
    return false;
}

void Lint::TakeChange(const Entry& theEntry)
{
    CheckRound();
    CheckTwice(theEntry);
}

void Lint::TakeEqual(const Entry& theEntry)
{
    const bool hasDouble =
        theEntry.theNew.theKind == Value::Kind::Double || theEntry.theGoal.theKind == Value::Kind::Double;
    if (hasDouble && AreDifferentNumbers(theEntry.theNew, theEntry.theGoal)) {
        Add(Rule::FractionDropped, theEntry, theEntry.theObject, theEntry.theKey,
            "it stayed " + Show(theEntry.theNew) + " when it was set to " + Show(theEntry.theGoal) +
                ", since numbers are compared as integers");
    }
}

void Lint::TakeObservation(const Entry& theEntry)
{
    const std::uint64_t theWatcher = theEntry.theOther.theID;
    if (mStores.count(theWatcher) > 0) {
        return;
    }
    // One that is new here was made before the journal began, which it does with the first store.
    Observer& theObserver = mObservers[theWatcher];
    if (theEntry.theWhat == What::Observe) {
        ++theObserver.theObservations;
        return;
    }
    theObserver.theObservations -= theObserver.theObservations > 0 ? 1 : 0;
    if (IsWithinDestruction(theEntry.theObject.theID)) {
        theObserver.hasLost = true;
        theObserver.theLast = theEntry;
    }
}

void Lint::Take(const Entry& theEntry)
{
    mCallers.Take(theEntry);
    mCauses.Take(theEntry);
    mEcho.Take(mCauses);
    NoteValues(theEntry);
    switch (theEntry.theWhat) {
    case What::Made:
        if (theEntry.theText != "observer") {
            mStores.insert(theEntry.theObject.theID);
        }
        break;
    case What::Bind:
        mStores.insert(theEntry.theObject.theID);
        TakeBinding(theEntry);
        break;
    case What::Unbind:
        TakeUnbinding(theEntry);
        break;
    case What::Observe:
    case What::Unobserve:
        TakeObservation(theEntry);
        break;
    case What::Changed:
        TakeChange(theEntry);
        break;
    case What::Equal:
        TakeEqual(theEntry);
        break;
    case What::Write:
        mUnwritten[{theEntry.theObject.theID, theEntry.theKey}] = theEntry;
        break;
    case What::Flush:
        if (theEntry.isDone) {
            mUnwritten.erase(mUnwritten.lower_bound({theEntry.theObject.theID, {}}),
                             mUnwritten.lower_bound({theEntry.theObject.theID + 1, {}}));
        }
        break;
    case What::Destroyed:
        TakeDestruction(theEntry);
        break;
    default:
        break;
    }
}

void Lint::Finish(bool isWhole, bool isEnded)
{
    for (const auto& [theNumber, theRecord] : mRecords) {
        const Entry& theBinding = theRecord.theBinding;
        CheckSource(theBinding);
        if (theRecord.hasDeadSource) {
            Add(Rule::DeadSource, theBinding, theBinding.theObject, theBinding.theKey,
                "it is bound to " + ShowKey(theBinding.theOther, theBinding.theOtherKey) +
                    ", which was destroyed");
        }
    }
    for (const Entry& theBinding : mNeverSet) {
        if (isWhole && mValues.count({theBinding.theOther.theID, theBinding.theOtherKey}) == 0) {
            Add(Rule::NeverSet, theBinding, theBinding.theObject, theBinding.theKey,
                "it is bound to " + ShowKey(theBinding.theOther, theBinding.theOtherKey) +
                    ", which never had a value" +
                    DidYouMean(theBinding.theOtherKey, KeysOf(theBinding.theOther.theID)));
        }
    }
    CheckShown(0);
    for (const auto& [theObject, theObserver] : mObservers) {
        if (isEnded && theObserver.hasLost && theObserver.theObservations == 0) {
            const Entry& theLast = theObserver.theLast;
            Add(Rule::ObserverLeft, theLast, theLast.theOther, theLast.theKey,
                "it observed that key of " + ShowObject(theLast.theObject) +
                    ", which was destroyed, and was never destroyed itself");
        }
    }
    for (const auto& [theKey, theWrite] : mUnwritten) {
        Add(Rule::NotFlushed, theWrite, theWrite.theObject, theWrite.theKey,
            "this preference was set to " + Show(theWrite.theGoal) + " and never written to its file");
    }
}

std::vector<Finding> Lint::GetFindings() const
{
    std::vector<Finding> theFindings;
    theFindings.reserve(mFindings.size());
    for (const auto& [theKey, theFinding] : mFindings) {
        theFindings.push_back(theFinding);
    }
    std::stable_sort(
        theFindings.begin(), theFindings.end(),
        [](const Finding& theLeft, const Finding& theRight) { return theLeft.theEntry < theRight.theEntry; });
    return theFindings;
}

namespace {

void Write(const Finding& theFinding, std::ostream& theOutput)
{
    theOutput << NameOf(theFinding.theRule) << ": " << ShowKey(theFinding.theObject, theFinding.theKey)
              << ": " << theFinding.theSentence << " (entry " << theFinding.theEntry;
    if (theFinding.theCount > 1) {
        theOutput << ", and " << Count(theFinding.theCount - 1, "time", "times") << " more";
    }
    theOutput << ")\n";
    if (!theFinding.theCaller.empty()) {
        theOutput << "  called by " << theFinding.theCaller << "\n";
    }
    theOutput << "  see " << PageOf(theFinding.theRule) << "\n";
}

} // namespace

int RunLint(Journal& theJournal, std::ostream& theOutput, std::ostream& theErrors)
{
    Lint theLint;
    Entry theEntry;
    while (theJournal.Next(theEntry)) {
        theLint.Take(theEntry);
    }
    if (Finish(theJournal, theErrors) != kFine) {
        return kTrouble;
    }
    theLint.Finish(theJournal.IsWhole(), theJournal.IsEnded());
    const std::vector<Finding> theFindings = theLint.GetFindings();
    for (const Finding& theFinding : theFindings) {
        Write(theFinding, theOutput);
    }
    theOutput << Count(theFindings.size(), "finding", "findings") << "\n";
    return theFindings.empty() ? kFine : kFindings;
}

} // namespace Inspect
