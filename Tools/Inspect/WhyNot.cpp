// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "WhyNot.h"

#include "Callers.h"
#include "Causes.h"
#include "Describe.h"
#include "Echo.h"
#include "Status.h"
#include "Survey.h"
#include "Text.h"

#include <map>
#include <ostream>
#include <set>
#include <utility>
#include <vector>

namespace Inspect {

namespace {

using Key = std::pair<std::uint64_t, std::string>;

// A record of the object that is asked about, also one that was removed.
struct Record
{
    Entry theBinding;
    std::uint64_t theEnd = 0; // the number of the entry that removed it
    std::string theEnder;     // who removed it, when that is known
    Entry theService;         // the last time that it handed a value on; its number is 0 when there was none
    Entry theOutcome;         // what that led to
    Entry theTransform;       // the last time that a value went through its transform
};

struct Move
{
    std::uint64_t theNumber = 0;
    std::uint64_t theTime = 0;
    Value theValue;
};

// A key was told because another one changed that it depends on.
struct Telling
{
    std::uint64_t theNumber = 0;
    std::string theReason; // the other key
};

// What the journal says about the keys of one object, and about what they follow.
class Evidence
{
public:
    explicit Evidence(Target theTarget)
        : mTarget(std::move(theTarget))
    {
    }

    void Take(const Entry& theEntry);
    void Tell(std::ostream& theOutput);

private:
    bool IsTarget(const Object& theObject) const { return theObject.theID == mTarget.theObject.theID; }
    void TakeBinding(const Entry& theEntry);
    void TakeService(const Entry& theEntry);
    void TakeOutcome(const Entry& theEntry);
    void TakeObservation(const Entry& theEntry);
    void TakeMove(const Entry& theEntry);
    Record* FindRecord(const Entry& theEntry);

    void TellState(std::ostream& theOutput);
    void TellRecord(const Record& theRecord, std::ostream& theOutput);
    void TellFollowers(std::ostream& theOutput);
    void TellSilence(std::ostream& theOutput);
    std::string SayMove(const Record& theRecord);
    std::string SayDependency(const Record& theRecord) const;
    std::string SayReason(const Record& theRecord);
    std::string SayNoMove(const Record& theRecord);
    std::string SayOutcome(const Record& theRecord);
    std::string SayNotServed(const Record& theRecord, const Move& theMove);
    const Record* FindServedInstead(const Record& theRecord, std::uint64_t theMove) const;

    Target mTarget;
    Causes mCauses;
    Callers mCallers;
    Echo mEcho;
    std::vector<Record> mRecords;                       // of all keys of the object
    std::vector<Entry> mFollowers;                      // bindings of other objects to the key
    std::map<Key, Move> mMoves;                         // the last one of each key
    std::map<Key, Telling> mTellings;                   // the last one of each key
    std::map<Key, std::set<std::string>> mDependencies; // of each key: those of its object that it depends on
    std::set<Key> mValues;                              // keys that had a valid value
    std::set<std::uint64_t> mDestroyed;
    std::map<Key, std::uint64_t> mObservationEnds; // by store and key: when the object ceased to observe it
    std::set<std::string> mKeyStates; // keys of the object that someone observes or that others depend on
    std::set<std::string> mStarObservers;
    std::set<std::string> mSilentMoves; // keys that moved without a key state
    Entry mKept;                        // the last set of the key that changed nothing
};

Record* Evidence::FindRecord(const Entry& theEntry)
{
    for (auto theRecord = mRecords.rbegin(); theRecord != mRecords.rend(); ++theRecord) {
        const Entry& theBinding = theRecord->theBinding;
        const bool isSameNumber = theEntry.theRecord != 0 && theBinding.theRecord == theEntry.theRecord;
        const bool isSamePlace = theEntry.theRecord == 0 && theRecord->theEnd == 0 &&
                                 theBinding.theKey == theEntry.theKey &&
                                 theBinding.theOther.theID == theEntry.theOther.theID &&
                                 theBinding.theOtherKey == theEntry.theOtherKey;
        if (isSameNumber || isSamePlace) {
            return &*theRecord;
        }
    }
    return nullptr;
}

void Evidence::TakeBinding(const Entry& theEntry)
{
    if (IsTarget(theEntry.theObject)) {
        if (theEntry.theWhat == What::Bind) {
            mRecords.emplace_back().theBinding = theEntry;
        } else if (Record* const theRecord = FindRecord(theEntry)) {
            theRecord->theEnd = theEntry.theNumber;
            theRecord->theEnder = mCallers.ShowInnermost(theEntry);
        }
    } else if (IsTarget(theEntry.theOther) && theEntry.theOtherKey == mTarget.theKey &&
               theEntry.theWhat == What::Bind) {
        mFollowers.push_back(theEntry);
    }
}

void Evidence::TakeService(const Entry& theEntry)
{
    Record* const theRecord = IsTarget(theEntry.theObject) ? FindRecord(theEntry) : nullptr;
    if (theRecord == nullptr) {
        return;
    }
    if (theEntry.theWhat == What::Transform) {
        theRecord->theTransform = theEntry;
    } else {
        theRecord->theService = theEntry;
        theRecord->theOutcome.Clear();
    }
}

// What a set of the object's key came to.
void Evidence::TakeOutcome(const Entry& theEntry)
{
    for (Record& theRecord : mRecords) {
        if (theRecord.theService.theNumber != 0 && theRecord.theService.theNumber == theEntry.theCause &&
            theRecord.theBinding.theKey == theEntry.theKey) {
            theRecord.theOutcome = theEntry;
        }
    }
    if (theEntry.theKey == mTarget.theKey && theEntry.theWhat != What::Changed) {
        mKept = theEntry;
    }
}

void Evidence::TakeObservation(const Entry& theEntry)
{
    if (IsTarget(theEntry.theOther)) {
        mObservationEnds[{theEntry.theObject.theID, theEntry.theKey}] =
            theEntry.theWhat == What::Unobserve ? theEntry.theNumber : 0;
    }
    if (!IsTarget(theEntry.theObject)) {
        return;
    }
    if (theEntry.theKey != "*") {
        mKeyStates.insert(theEntry.theKey);
    } else if (theEntry.theWhat == What::Observe) {
        mStarObservers.insert(ShowObject(theEntry.theOther));
    } else {
        mStarObservers.erase(ShowObject(theEntry.theOther));
    }
}

void Evidence::TakeMove(const Entry& theEntry)
{
    Move& theMove = mMoves[{theEntry.theObject.theID, theEntry.theKey}];
    theMove = {theEntry.theNumber, theEntry.theTime, theEntry.theNew};
    if (IsTarget(theEntry.theObject) && mKeyStates.count(theEntry.theKey) == 0 && !mStarObservers.empty()) {
        mSilentMoves.insert(theEntry.theKey);
    }
}

void Evidence::Take(const Entry& theEntry)
{
    mCallers.Take(theEntry);
    mCauses.Take(theEntry);
    mEcho.Take(mCauses);
    const bool isFromSource = (theEntry.theWhat == What::Transform && theEntry.theOld.IsValid()) ||
                              (theEntry.theWhat == What::Update && theEntry.theGoal.IsValid());
    if (isFromSource) {
        // A store that makes its values of others has them without a change.
        mValues.insert({theEntry.theOther.theID, theEntry.theOtherKey});
    } else if (theEntry.theNew.IsValid() && !theEntry.theKey.empty() && theEntry.theWhat != What::Transform) {
        mValues.insert({theEntry.theObject.theID, theEntry.theKey});
    }
    switch (theEntry.theWhat) {
    case What::Bind:
    case What::Unbind:
        TakeBinding(theEntry);
        break;
    case What::Update:
    case What::Transform:
        TakeService(theEntry);
        break;
    case What::Observe:
    case What::Unobserve:
        TakeObservation(theEntry);
        break;
    case What::Depend:
        mDependencies[{theEntry.theObject.theID, theEntry.theOtherKey}].insert(theEntry.theKey);
        if (IsTarget(theEntry.theObject)) {
            mKeyStates.insert(theEntry.theKey);
        }
        break;
    case What::Undepend:
        mDependencies[{theEntry.theObject.theID, theEntry.theOtherKey}].erase(theEntry.theKey);
        break;
    case What::Told:
        mTellings[{theEntry.theObject.theID, theEntry.theKey}] = {theEntry.theNumber, theEntry.theOtherKey};
        break;
    case What::Destroyed:
        mDestroyed.insert(theEntry.theObject.theID);
        break;
    case What::Changed:
    case What::Equal:
    case What::Refused:
        if (IsTarget(theEntry.theObject)) {
            TakeOutcome(theEntry);
        }
        break;
    default:
        break;
    }
    if (IsMove(theEntry)) {
        TakeMove(theEntry);
    }
}

std::string Evidence::SayMove(const Record& theRecord)
{
    const Entry& theBinding = theRecord.theBinding;
    const auto theMove = mMoves.find({theBinding.theOther.theID, theBinding.theOtherKey});
    const std::string theName = ShowKey(theBinding.theOther, theBinding.theOtherKey);
    if (theMove == mMoves.end()) {
        return theName + " has not moved.";
    }
    return theName + " moved last at " + ShowTime(theMove->second.theTime) + " (entry " +
           std::to_string(theMove->second.theNumber) + "), and became " + Show(theMove->second.theValue) +
           ".";
}

// The source depends on a key that was told after it; only those that depend on what changed are told.
std::string Evidence::SayDependency(const Record& theRecord) const
{
    const Key theSource = {theRecord.theBinding.theOther.theID, theRecord.theBinding.theOtherKey};
    const auto theWatched = mDependencies.find(theSource);
    if (theWatched == mDependencies.end()) {
        return {};
    }
    const auto theMove = mMoves.find(theSource);
    const std::uint64_t theLast = theMove == mMoves.end() ? 0 : theMove->second.theNumber;
    for (const std::string& theKey : theWatched->second) {
        const auto theTelling = mTellings.find({theSource.first, theKey});
        if (theTelling != mTellings.end() && theTelling->second.theNumber > theLast) {
            return "It depends on \"" + Escape(theKey) + "\", which only depends on \"" +
                   Escape(theTelling->second.theReason) + "\" itself, and was told (entry " +
                   std::to_string(theTelling->second.theNumber) + "): dependents of dependents are not told.";
        }
    }
    return {};
}

// The record that took the value of the same source, since only the first one is served.
const Record* Evidence::FindServedInstead(const Record& theRecord, std::uint64_t theMove) const
{
    for (const Record& theOther : mRecords) {
        if (&theOther != &theRecord &&
            theOther.theBinding.theOther.theID == theRecord.theBinding.theOther.theID &&
            theOther.theBinding.theOtherKey == theRecord.theBinding.theOtherKey &&
            theOther.theService.theNumber > theMove) {
            return &theOther;
        }
    }
    return nullptr;
}

// Nothing came since the source was bound.
std::string Evidence::SayNoMove(const Record& theRecord)
{
    const Entry& theBinding = theRecord.theBinding;
    if (mValues.count({theBinding.theOther.theID, theBinding.theOtherKey}) == 0) {
        std::vector<std::string> theKeys;
        for (const auto& [theObject, theKey] : mValues) {
            if (theObject == theBinding.theOther.theID) {
                theKeys.push_back(theKey);
            }
        }
        const std::vector<std::string> theNearest = NearestNames(theBinding.theOtherKey, theKeys);
        return "There is no such key yet: " + ShowObject(theBinding.theOther) + " never had a value for \"" +
               Escape(theBinding.theOtherKey) + "\"" +
               (theNearest.empty() ? "." : "; it has " + Escape(JoinWithOr(theNearest)) + ".");
    }
    return theRecord.theService.theNumber != 0
               ? "Its value was copied when the two were bound. " + SayOutcome(theRecord)
               : "Its value when the two were bound was not valid, so "
                 "nothing was copied, and nothing has come since.";
}

std::string Evidence::SayOutcome(const Record& theRecord)
{
    const Entry& theOutcome = theRecord.theOutcome;
    const std::string theEntry = " (entry " + std::to_string(theOutcome.theNumber) + ")";
    switch (theOutcome.theWhat) {
    case What::Changed:
        return "That reached the key, which became " + Show(theOutcome.theNew) + theEntry + ".";
    case What::Equal:
        return AreDifferentNumbers(theOutcome.theNew, theOutcome.theGoal)
                   ? "The key stayed: " + DescribeEquality(theOutcome) + theEntry + "."
                   : "The key has that value already: " + Show(theOutcome.theNew) + theEntry + ".";
    case What::Refused:
        return "The key stayed " + Show(theOutcome.theNew) + ": the set was nested in itself too deep" +
               theEntry + ".";
    default:
        return "The value " + Show(theRecord.theService.theGoal) + " was handed on (entry " +
               std::to_string(theRecord.theService.theNumber) +
               "), and the journal does not say what came of it.";
    }
}

// The source moved, and the record was not served.
std::string Evidence::SayNotServed(const Record& theRecord, const Move& theMove)
{
    const Entry& theBinding = theRecord.theBinding;
    const Key theSource = {theBinding.theOther.theID, theBinding.theOtherKey};
    if (const Record* const theOther = FindServedInstead(theRecord, theMove.theNumber)) {
        return "Of two keys of one object that follow the same source, only the one that sorts first is "
               "served: \"" +
               Escape(theOther->theBinding.theKey) + "\" got the value (entry " +
               std::to_string(theOther->theService.theNumber) + ").";
    }
    const auto theObservation = mObservationEnds.find(theSource);
    if (theObservation != mObservationEnds.end() && theObservation->second != 0 &&
        theObservation->second < theMove.theNumber) {
        return ShowObject(mTarget.theObject) + " has not observed it since entry " +
               std::to_string(theObservation->second) +
               ": removing one of two bindings to the same key ends the observation for both.";
    }
    return "No binding handed that on, and the journal does not say why.";
}

std::string Evidence::SayReason(const Record& theRecord)
{
    const Entry& theBinding = theRecord.theBinding;
    const auto theMove = mMoves.find({theBinding.theOther.theID, theBinding.theOtherKey});
    const bool hasMoved = theMove != mMoves.end() && theMove->second.theNumber > theBinding.theNumber;
    if (theRecord.theEnd != 0 && (!hasMoved || theMove->second.theNumber > theRecord.theEnd)) {
        return "The two are no longer bound since entry " + std::to_string(theRecord.theEnd) +
               (theRecord.theEnder.empty() ? "." : " (" + theRecord.theEnder + ").");
    }
    std::string theReason;
    if (!hasMoved) {
        theReason = SayNoMove(theRecord);
    } else if (theRecord.theService.theNumber > theMove->second.theNumber) {
        theReason = SayOutcome(theRecord);
    } else {
        theReason = SayNotServed(theRecord, theMove->second);
    }
    const Entry& theTransform = theRecord.theTransform;
    if (theTransform.theNumber != 0 && theTransform.theOld.IsValid() && !theTransform.theNew.IsValid()) {
        theReason += " The transform made no valid value of " + Show(theTransform.theOld) + ".";
    }
    if (mDestroyed.count(theBinding.theOther.theID) > 0) {
        theReason += " " + ShowObject(theBinding.theOther) + " has been destroyed.";
    }
    return theReason;
}

void Evidence::TellRecord(const Record& theRecord, std::ostream& theOutput)
{
    const Entry& theBinding = theRecord.theBinding;
    theOutput << "\nIt " << (theRecord.theEnd == 0 ? "follows " : "followed ")
              << ShowKey(theBinding.theOther, theBinding.theOtherKey);
    if (theBinding.theTransform.theID != 0) {
        theOutput << ", through " << Escape(theBinding.theTransform.theClass);
    }
    const std::string theDependency = SayDependency(theRecord);
    theOutput << " (entry " << theBinding.theNumber << ").\n  " << SayMove(theRecord) << "\n  "
              << (theDependency.empty() ? "" : theDependency + "\n  ") << SayReason(theRecord) << "\n";
}

void Evidence::TellState(std::ostream& theOutput)
{
    const std::string theName = ShowKey(mTarget.theObject, mTarget.theKey);
    const auto theMove = mMoves.find({mTarget.theObject.theID, mTarget.theKey});
    if (theMove == mMoves.end()) {
        theOutput << theName << " has not changed in this journal.\n";
    } else {
        theOutput << theName << " is " << Show(theMove->second.theValue) << " since "
                  << ShowTime(theMove->second.theTime) << " (entry " << theMove->second.theNumber << ").\n";
    }
    if (mDestroyed.count(mTarget.theObject.theID) > 0) {
        theOutput << ShowObject(mTarget.theObject) << " has been destroyed.\n";
    }
    if (const Echo::Difference* const theDifference = mEcho.Find(mTarget.theObject.theID, mTarget.theKey)) {
        const std::string theThing = WhatItStandsFor(mTarget.theObject);
        theOutput << "The " << theThing << " still shows " << Show(theDifference->theShown)
                  << ": the key changed (entry " << theDifference->theChange.theNumber << ") while the "
                  << theThing << "'s own change was copied, and nothing is written back then.\n";
    }
}

// Those who follow the key have no way back to it.
void Evidence::TellFollowers(std::ostream& theOutput)
{
    for (const Entry& theFollower : mFollowers) {
        const auto isBack = [&](const Record& theRecord) {
            return theRecord.theBinding.theOther.theID == theFollower.theObject.theID &&
                   theRecord.theBinding.theOtherKey == theFollower.theKey;
        };
        bool hasBack = false;
        for (const Record& theRecord : mRecords) {
            hasBack = hasBack || (theRecord.theBinding.theKey == mTarget.theKey && isBack(theRecord));
        }
        if (!hasBack) {
            theOutput << "\n"
                      << ShowKey(theFollower.theObject, theFollower.theKey) << " follows it one way (entry "
                      << theFollower.theNumber << "): what happens there does not come here.\n";
        }
    }
}

void Evidence::TellSilence(std::ostream& theOutput)
{
    if (mStarObservers.empty() || mSilentMoves.empty()) {
        return;
    }
    std::vector<std::string> theKeys;
    for (const std::string& theKey : mSilentMoves) {
        theKeys.push_back("\"" + Escape(theKey) + "\"");
    }
    theOutput << "\n"
              << ShowObject(mTarget.theObject)
              << " has observers of \"*\" that did not hear of each change of " << JoinWithOr(theKeys)
              << ": a key has no key state before someone observes it by its name, and nobody is told of it "
                 "then.\n";
}

void Evidence::Tell(std::ostream& theOutput)
{
    TellState(theOutput);
    bool isBound = false;
    for (const Record& theRecord : mRecords) {
        if (theRecord.theBinding.theKey == mTarget.theKey) {
            isBound = true;
            TellRecord(theRecord, theOutput);
        }
    }
    if (!isBound) {
        theOutput << "\nIt is bound to nothing: it moves when code sets it"
                  << (mEcho.GetAll().empty() ? "" : " or what it stands for changes") << ".\n";
    }
    if (mKept.theNumber != 0 && !isBound) {
        theOutput << "Entry " << mKept.theNumber << " set it and changed nothing: "
                  << (mKept.theWhat == What::Equal ? DescribeEquality(mKept)
                                                   : "it was nested in itself too deep")
                  << ".\n";
    }
    TellFollowers(theOutput);
    TellSilence(theOutput);
}

} // namespace

int RunWhyNot(Journal& theJournal, const std::string& theName, std::ostream& theOutput,
              std::ostream& theErrors)
{
    const Survey theSurvey = MakeSurvey(theJournal);
    if (Finish(theJournal, theErrors) != kFine) {
        return kTrouble;
    }
    const Target theTarget = theSurvey.Find(theName);
    if (!theTarget.theProblem.empty()) {
        theErrors << "lminspect: " << theTarget.theProblem << "\n";
        return kTrouble;
    }
    Evidence theEvidence(theTarget);
    Entry theEntry;
    while (theJournal.Next(theEntry)) {
        theEvidence.Take(theEntry);
    }
    theEvidence.Tell(theOutput);
    return kFine;
}

} // namespace Inspect
