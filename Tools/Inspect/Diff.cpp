// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Diff.h"

#include "Causes.h"
#include "Describe.h"
#include "Status.h"
#include "Text.h"

#include <iomanip>
#include <map>
#include <ostream>

namespace Inspect {

namespace {

// Numbers of the one journal, and those of the other that stand for the same.
class Pairs
{
public:
    // Whether the two can be the same; from then on they are.
    bool Match(std::uint64_t theLeft, std::uint64_t theRight)
    {
        if (theLeft == 0 || theRight == 0) {
            return theLeft == theRight;
        }
        const auto theFound = mRights.try_emplace(theLeft, theRight).first;
        const auto theBack = mLefts.try_emplace(theRight, theLeft).first;
        return theFound->second == theRight && theBack->second == theLeft;
    }

private:
    std::map<std::uint64_t, std::uint64_t> mRights;
    std::map<std::uint64_t, std::uint64_t> mLefts;
};

// What lies at another address in each run, and says nothing of the session.
bool IsOfTheRun(What theWhat)
{
    return theWhat == What::Begin || theWhat == What::Module || theWhat == What::Lost ||
           theWhat == What::Unknown;
}

bool NextOfSession(Journal& theJournal, Entry& theEntry, Causes& theCauses)
{
    while (theJournal.Next(theEntry)) {
        theCauses.Take(theEntry);
        if (!IsOfTheRun(theEntry.theWhat)) {
            return true;
        }
    }
    return false;
}

bool IsSameValue(const Value& theLeft, const Value& theRight)
{
    const bool isPointer =
        theLeft.theKind == Value::Kind::Pointer && theRight.theKind == Value::Kind::Pointer;
    return isPointer ? (theLeft.theInteger == 0) == (theRight.theInteger == 0) : IsSame(theLeft, theRight);
}

class Comparison
{
public:
    bool IsSame(const Entry& theLeft, const Entry& theRight)
    {
        return theLeft.theWhat == theRight.theWhat && theLeft.theThread == theRight.theThread &&
               IsSameObject(theLeft.theObject, theRight.theObject) && theLeft.theKey == theRight.theKey &&
               IsSameObject(theLeft.theOther, theRight.theOther) &&
               theLeft.theOtherKey == theRight.theOtherKey && IsSameValue(theLeft.theOld, theRight.theOld) &&
               IsSameValue(theLeft.theNew, theRight.theNew) &&
               IsSameValue(theLeft.theGoal, theRight.theGoal) &&
               mRecords.Match(theLeft.theRecord, theRight.theRecord) &&
               mTransforms.Match(theLeft.theTransform.theID, theRight.theTransform.theID) &&
               theLeft.theTransform.theClass == theRight.theTransform.theClass &&
               IsSameRest(theLeft, theRight);
    }

private:
    bool IsSameObject(const Object& theLeft, const Object& theRight)
    {
        return mObjects.Match(theLeft.theID, theRight.theID) && theLeft.theClass == theRight.theClass &&
               theLeft.theName == theRight.theName;
    }
    static bool IsSameRest(const Entry& theLeft, const Entry& theRight)
    {
        // What GetDebugInfo says has addresses in it.
        const bool isSameDetail = theLeft.theWhat == What::Named || theLeft.theDetail == theRight.theDetail;
        return isSameDetail && theLeft.theText == theRight.theText && theLeft.theCode == theRight.theCode &&
               theLeft.thePlace == theRight.thePlace && theLeft.theKeyCode == theRight.theKeyCode &&
               theLeft.theTitle == theRight.theTitle && theLeft.isDone == theRight.isDone;
    }

    Pairs mObjects;
    Pairs mRecords;
    Pairs mTransforms;
};

void WriteSide(const char* theSide, const Journal& theJournal, bool isThere, const Causes& theCauses,
               std::ostream& theOutput)
{
    theOutput << theSide << " " << Escape(theJournal.GetName()) << "\n";
    if (!isThere) {
        theOutput << "        it ends here\n";
        return;
    }
    for (std::size_t theIndex = 0; theIndex < theCauses.Count(); ++theIndex) {
        const Entry& theEntry = theCauses.At(theIndex).theEntry;
        theOutput << std::setw(9) << theEntry.theNumber << "  " << std::string(theIndex * 2, ' ')
                  << Describe(theEntry) << "\n";
    }
}

} // namespace

int RunDiff(Journal& theLeft, Journal& theRight, std::ostream& theOutput, std::ostream& theErrors)
{
    Comparison theComparison;
    Entry theLeftEntry;
    Entry theRightEntry;
    Causes theLeftCauses;
    Causes theRightCauses;
    std::uint64_t theShared = 0;
    for (;;) {
        const bool hasLeft = NextOfSession(theLeft, theLeftEntry, theLeftCauses);
        const bool hasRight = NextOfSession(theRight, theRightEntry, theRightCauses);
        if (!theLeft.GetTrouble().empty() || !theRight.GetTrouble().empty()) {
            Finish(theLeft, theErrors);
            Finish(theRight, theErrors);
            return kTrouble;
        }
        if (!hasLeft && !hasRight) {
            return kFine;
        }
        if (hasLeft && hasRight && theLeftCauses.Count() == theRightCauses.Count() &&
            theComparison.IsSame(theLeftEntry, theRightEntry)) {
            ++theShared;
            continue;
        }
        theOutput << "They part behind " << Count(theShared, "entry", "entries") << " that both have.\n";
        WriteSide("<", theLeft, hasLeft, theLeftCauses, theOutput);
        WriteSide(">", theRight, hasRight, theRightCauses, theOutput);
        return kFindings;
    }
}

} // namespace Inspect
