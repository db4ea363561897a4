// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Why.h"

#include "Callers.h"
#include "Causes.h"
#include "Describe.h"
#include "Echo.h"
#include "Status.h"
#include "Survey.h"
#include "Text.h"

#include <iomanip>
#include <ostream>
#include <vector>

namespace Inspect {

namespace {

using Steps = std::vector<Causes::Step>;

// One move of a key and all that led to it.
struct Story
{
    Steps theSteps; // the first cause first
    bool isComplete = true;
};

// Tells a story backwards.
class Teller
{
public:
    Teller(const Story& theStory, Callers& theCallers, bool hasCallers, std::ostream& theOutput)
        : mSteps(theStory.theSteps),
          mIsComplete(theStory.isComplete),
          mHasCallers(hasCallers),
          mCallers(theCallers),
          mOutput(theOutput)
    {
    }

    void Tell();

private:
    void TellHead();
    void TellStep(std::size_t theIndex);
    void TellLine(const Entry& theEntry);
    void TellDetail(const std::string& theText) { mOutput << "           " << theText << "\n"; }
    std::string HowSet(std::size_t theIndex);
    std::string SayBeginning();

    const Steps& mSteps;
    bool mIsComplete;
    bool mHasCallers;
    Callers& mCallers;
    std::ostream& mOutput;
};

// Who set the key of a change.
std::string Teller::HowSet(std::size_t theIndex)
{
    const Entry& theEntry = mSteps[theIndex].theEntry;
    if (theIndex == 0) {
        return mIsComplete ? SayHowSet(theEntry, nullptr, nullptr, mCallers) : std::string();
    }
    return SayHowSet(theEntry, &mSteps[theIndex - 1].theEntry,
                     theIndex > 1 ? &mSteps[theIndex - 2].theEntry : nullptr, mCallers);
}

void Teller::TellLine(const Entry& theEntry)
{
    mOutput << std::setw(9) << theEntry.theNumber << "  " << Describe(theEntry) << "\n";
}

void Teller::TellStep(std::size_t theIndex)
{
    const Causes::Step& theStep = mSteps[theIndex];
    if (theStep.theEntry.theWhat == What::Update) {
        return; // the change that it led to says so
    }
    TellLine(theStep.theEntry);
    if (theStep.theEntry.theWhat == What::Changed) {
        const std::string theWay = HowSet(theIndex);
        if (!theWay.empty()) {
            TellDetail(theWay);
        }
    } else if (theStep.theEntry.theWhat == What::Told && theStep.hasWatched) {
        TellLine(theStep.theWatched);
    }
}

// What stands at the beginning of it all.
std::string Teller::SayBeginning()
{
    const Entry& theFirst = mSteps.front().theEntry;
    if (!mIsComplete) {
        return "What led to entry " + std::to_string(theFirst.theNumber) + " is not in the journal.";
    }
    if (theFirst.theWhat == What::Action) {
        return "It began when " + DescribeAction(theFirst) + ".";
    }
    const std::string theCaller = mCallers.ShowInnermost(theFirst);
    std::string theText = "It began in the program's own code";
    if (theFirst.theWhat == What::Update || theFirst.theWhat == What::Transform) {
        theText += ", when the two were bound";
    } else if (theFirst.theWhat == What::Event) {
        theText += ", which changed the " + WhatItStandsFor(theFirst.theObject);
    }
    if (!theCaller.empty()) {
        return theText + ": " + theCaller + ".";
    }
    return theText + "." + (mHasCallers ? "" : " LM_JOURNAL_CALLERS=8 would say in which line.");
}

void Teller::TellHead()
{
    const Entry& theEntry = mSteps.back().theEntry;
    mOutput << ShowKey(theEntry.theObject, theEntry.theKey) << " became " << Show(theEntry.theNew);
    if (theEntry.theWhat == What::Changed) {
        mOutput << " (it was " << Show(theEntry.theOld) << ")";
    }
    mOutput << " at " << ShowTime(theEntry.theTime) << ".\n" << SayBeginning() << "\n\n";
}

void Teller::Tell()
{
    TellHead();
    for (std::size_t theIndex = mSteps.size(); theIndex > 0; --theIndex) {
        TellStep(theIndex - 1);
    }
}

// The theTime-th move of theTarget, and what led to it.
Story FindStory(Journal& theJournal, const Target& theTarget, std::uint64_t theTime, Callers& theCallers)
{
    Causes theCauses;
    Entry theEntry;
    std::uint64_t theMoves = 0;
    while (theJournal.Next(theEntry)) {
        theCallers.Take(theEntry);
        theCauses.Take(theEntry);
        if (IsMove(theEntry) && theEntry.theObject.theID == theTarget.theObject.theID &&
            theEntry.theKey == theTarget.theKey && ++theMoves == theTime) {
            return {theCauses.Copy(), theCauses.IsComplete()};
        }
    }
    return {};
}

} // namespace

std::string SayHowSet(const Entry& theEntry, const Entry* theCause, const Entry* theFurtherCause,
                      Callers& theCallers)
{
    const std::string theCaller = theCallers.ShowInnermost(theEntry);
    const std::string theByWhom = theCaller.empty() ? theCaller : ": " + theCaller;
    switch (theCause == nullptr ? What::Unknown : theCause->theWhat) {
    case What::Update: {
        const bool isTransformed = theFurtherCause != nullptr && theFurtherCause->theWhat == What::Transform;
        return "bound to " + ShowKey(theCause->theOther, theCause->theOtherKey) +
               (isTransformed ? ", through a transform" : ", as it is");
    }
    case What::Event:
        if (theCause->theObject.theID == theEntry.theObject.theID) {
            return "copied from its " + WhatItStandsFor(theEntry.theObject) + ", which had changed";
        }
        return "set by code that handled the event" + theByWhom;
    case What::Changing:
    case What::Changed:
    case What::Told:
    case What::Notify:
        return "set by an observer of " + ShowKey(theCause->theObject, theCause->theKey) + theByWhom;
    case What::Action:
        return "set by code that handled what the person did" + theByWhom;
    default:
        return "set by the program's own code" + theByWhom;
    }
}

int RunWhy(Journal& theJournal, const std::string& theName, std::uint64_t theTime, std::ostream& theOutput,
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
    const std::uint64_t theMoves = theSurvey.CountMoves(theTarget);
    const std::string theKey = ShowKey(theTarget.theObject, theTarget.theKey);
    if (theMoves == 0) {
        theOutput << theKey << " has not changed. 'lminspect why not' says what could have changed it.\n";
        return kFine;
    }
    if (theTime > theMoves) {
        theErrors << "lminspect: " << theKey << " has changed " << Count(theMoves, "time", "times")
                  << ", not " << theTime << "\n";
        return kTrouble;
    }
    Callers theCallers;
    const Story theStory = FindStory(theJournal, theTarget, theTime == 0 ? theMoves : theTime, theCallers);
    if (theStory.theSteps.empty()) {
        theErrors << "lminspect: the journal is not what it was when it was read first\n";
        return kTrouble;
    }
    Teller(theStory, theCallers, theJournal.HasCallers(), theOutput).Tell();
    return kFine;
}

} // namespace Inspect
