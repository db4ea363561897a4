// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ControllersTestSupport.h"
#include "LmChangeGroup.h"
#include "LmKeyValueStore.h"
#include "LmObservation.h"
#include "StandardErrorCapture.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

// Random programs with groups, inside and outside of one another, played with LmChangeGroup and with a model
// of it that knows nothing but the rules; the courses of events must be the same. A program that shows a
// difference is shrunk, step by step, as long as it still shows one.

namespace {

constexpr int kStores = 2;
constexpr int kKeys = 3;

enum Kind
{
    kOpen,  // a group begins
    kClose, // the innermost group goes
    kEnd,   // the innermost group is ended, and stays
    kSet,   // a key is set through the innermost group; without one, as below
    kSetDirectly,
    kDestroy, // a store goes, and a new one takes its place
    kReact    // from now on, a change of a key lets an observer set another one, by theMode
};

struct Step
{
    Kind theKind;
    int theStore;
    int theKey;
    int theNumber;
    int theMode; // of a reaction: 0 sets directly, 1 through a group of its own, 2 through the open group
    int theOtherKey;
};
using Program = std::vector<Step>;

const char* const kKeyNames[kKeys] = {"a", "b", "c"};

std::string DescribeStep(const Step& theStep)
{
    static const char* const kNames[] = {"open", "close", "end", "set", "set directly", "destroy", "react"};
    std::ostringstream theText;
    theText << kNames[theStep.theKind] << ' ' << theStep.theStore << '.' << kKeyNames[theStep.theKey] << " = "
            << theStep.theNumber << ", mode " << theStep.theMode << ", other key "
            << kKeyNames[theStep.theOtherKey];
    return theText.str();
}

std::string DescribeChange(int theStore, int theKey, int theNumber)
{
    return std::to_string(theStore) + "." + kKeyNames[theKey] + " = " + std::to_string(theNumber);
}

// Each reaction is used once, so that every program comes to an end.
struct Reaction
{
    bool isArmed = false;
    Step theStep = {};
};

// ---- The program played with the library

class RealRun
{
public:
    Lines Play(const Program& theProgram)
    {
        for (int theStore = 0; theStore < kStores; ++theStore) {
            MakeStore(theStore);
        }
        std::size_t theNext = 0;
        while (theNext < theProgram.size()) {
            PlayBlock(theProgram, theNext, nullptr);
        }
        return mLog;
    }

private:
    void MakeStore(int theStore)
    {
        mObservations[theStore].clear();
        mStores[theStore] = std::make_unique<LmKeyValueStore>();
        for (int theKey = 0; theKey < kKeys; ++theKey) {
            mReactions[theStore][theKey] = Reaction();
            mObservations[theStore].push_back(
                LmObservation(mStores[theStore].get(), kKeyNames[theKey], [=](const LmChange& theChange) {
                    mLog.push_back(DescribeChange(theStore, theKey, int(theChange.theNewValue.GetSInt32())));
                    React(theStore, theKey);
                }));
        }
    }

    void React(int theStore, int theKey)
    {
        Reaction& theReaction = mReactions[theStore][theKey];
        if (!std::exchange(theReaction.isArmed, false)) {
            return;
        }
        const Step theStep = theReaction.theStep;
        LmKeyValueStore* const theTarget = mStores[theStore].get();
        if (theStep.theMode == 1) {
            LmChangeGroup theGroup;
            theGroup.Set(theTarget, kKeyNames[theStep.theOtherKey], LmValue(theStep.theNumber));
        } else if (theStep.theMode == 2 && mInnermost != nullptr) {
            mInnermost->Set(theTarget, kKeyNames[theStep.theOtherKey], LmValue(theStep.theNumber));
        } else {
            theTarget->SetKeyPathValue(kKeyNames[theStep.theOtherKey], LmValue(theStep.theNumber));
        }
    }

    // A group lives on the stack, so each block of a program has a call of its own.
    void PlayBlock(const Program& theProgram, std::size_t& theNext, LmChangeGroup* theGroup)
    {
        while (theNext < theProgram.size()) {
            const Step& theStep = theProgram[theNext++];
            switch (theStep.theKind) {
            case kOpen: {
                LmChangeGroup theInner;
                mInnermost = &theInner;
                PlayBlock(theProgram, theNext, &theInner);
                break;
            }
            case kClose:
                if (theGroup != nullptr) {
                    return;
                }
                break;
            case kEnd:
                if (theGroup != nullptr) {
                    theGroup->End();
                }
                break;
            case kDestroy:
                MakeStore(theStep.theStore);
                break;
            case kReact:
                mReactions[theStep.theStore][theStep.theKey] = {true, theStep};
                break;
            case kSet:
            case kSetDirectly:
                SetKey(theStep, theStep.theKind == kSet ? theGroup : nullptr);
                break;
            }
            mInnermost = theGroup;
        }
    }

    void SetKey(const Step& theStep, LmChangeGroup* theGroup)
    {
        LmKeyValueStore* const theStore = mStores[theStep.theStore].get();
        if (theGroup != nullptr) {
            theGroup->Set(theStore, kKeyNames[theStep.theKey], LmValue(theStep.theNumber));
        } else {
            theStore->SetKeyPathValue(kKeyNames[theStep.theKey], LmValue(theStep.theNumber));
        }
    }

    std::unique_ptr<LmKeyValueStore> mStores[kStores];
    std::vector<LmObservation> mObservations[kStores];
    Reaction mReactions[kStores][kKeys];
    LmChangeGroup* mInnermost = nullptr; // of the program; those of reactions are gone when it goes on
    Lines mLog;
};

// ---- The same by the rules alone

class ModelRun
{
public:
    Lines Play(const Program& theProgram)
    {
        for (const Step& theStep : theProgram) {
            PlayStep(theStep);
        }
        while (mDepth > 0) {
            Close();
        }
        return mLog;
    }

private:
    struct Pending
    {
        int theStore;
        int theKey;
        int theNumber;
    };

    void PlayStep(const Step& theStep)
    {
        switch (theStep.theKind) {
        case kOpen:
            mDepth += 1;
            break;
        case kClose:
            Close();
            break;
        case kEnd:
            if (mDepth == 1) {
                MakeAll();
            }
            break;
        case kDestroy:
            Destroy(theStep.theStore);
            break;
        case kReact:
            mReactions[theStep.theStore][theStep.theKey] = {true, theStep};
            break;
        case kSet:
            SetInGroup(theStep.theStore, theStep.theKey, theStep.theNumber);
            break;
        case kSetDirectly:
            Change(theStep.theStore, theStep.theKey, theStep.theNumber);
            break;
        }
    }

    void Close()
    {
        if (mDepth == 0) {
            return;
        }
        if (mDepth == 1) {
            MakeAll();
        }
        mDepth -= 1;
    }

    void Destroy(int theStore)
    {
        for (int theKey = 0; theKey < kKeys; ++theKey) {
            mValues[theStore][theKey] = -1;
            mReactions[theStore][theKey] = Reaction();
        }
        mPending.erase(std::remove_if(mPending.begin(), mPending.end(),
                                      [=](const Pending& theSet) { return theSet.theStore == theStore; }),
                       mPending.end());
    }

    void SetInGroup(int theStore, int theKey, int theNumber)
    {
        for (Pending& theSet : mPending) {
            if (theSet.theStore == theStore && theSet.theKey == theKey) {
                theSet.theNumber = theNumber;
                return;
            }
        }
        if (mDepth == 0 || mIsEnding) {
            Change(theStore, theKey, theNumber);
        } else {
            mPending.push_back({theStore, theKey, theNumber});
        }
    }

    void MakeAll()
    {
        mIsEnding = true;
        while (!mPending.empty()) {
            const Pending theSet = mPending.front();
            mPending.erase(mPending.begin());
            Change(theSet.theStore, theSet.theKey, theSet.theNumber);
        }
        mIsEnding = false;
    }

    void Change(int theStore, int theKey, int theNumber)
    {
        if (mValues[theStore][theKey] == theNumber) {
            return;
        }
        mValues[theStore][theKey] = theNumber;
        mLog.push_back(DescribeChange(theStore, theKey, theNumber));
        Reaction& theReaction = mReactions[theStore][theKey];
        if (!std::exchange(theReaction.isArmed, false)) {
            return;
        }
        const Step theStep = theReaction.theStep;
        if (theStep.theMode == 2 || (theStep.theMode == 1 && mDepth > 0 && !mIsEnding)) {
            SetInGroup(theStore, theStep.theOtherKey, theStep.theNumber);
        } else {
            Change(theStore, theStep.theOtherKey, theStep.theNumber);
        }
    }

    int mDepth = 0;
    bool mIsEnding = false;
    int mValues[kStores][kKeys] = {{-1, -1, -1}, {-1, -1, -1}};
    Reaction mReactions[kStores][kKeys];
    std::vector<Pending> mPending;
    Lines mLog;
};

bool IsDifferent(const Program& theProgram)
{
    return RealRun().Play(theProgram) != ModelRun().Play(theProgram);
}

Program MakeProgram(unsigned theSeed)
{
    std::mt19937 theChance(theSeed);
    const auto thePick = [&](int theCount) { return int(theChance() % unsigned(theCount)); };
    Program theProgram(std::size_t(3 + thePick(25)));
    for (Step& theStep : theProgram) {
        // Sets are wanted more than the rest.
        static constexpr Kind kKinds[] = {kOpen, kOpen,        kClose, kEnd,   kSet, kSet,
                                          kSet,  kSetDirectly, kReact, kReact, kSet, kDestroy};
        theStep = {kKinds[thePick(12)], thePick(kStores), thePick(kKeys),
                   thePick(6),          thePick(3),       thePick(kKeys)};
    }
    return theProgram;
}

// Leaves out what is not needed for the difference.
Program Shrink(Program theProgram)
{
    for (std::size_t theIndex = theProgram.size(); theIndex-- > 0;) {
        Program theShorter = theProgram;
        theShorter.erase(theShorter.begin() + static_cast<std::ptrdiff_t>(theIndex));
        if (IsDifferent(theShorter)) {
            theProgram = theShorter;
        }
    }
    return theProgram;
}

std::string Join(const Lines& theLines)
{
    std::string theText;
    for (const std::string& theLine : theLines) {
        theText += "  " + theLine + "\n";
    }
    return theText;
}

std::string Explain(const Program& theProgram)
{
    Lines theSteps;
    for (const Step& theStep : theProgram) {
        theSteps.push_back(DescribeStep(theStep));
    }
    return "program:\n" + Join(theSteps) + "library:\n" + Join(RealRun().Play(theProgram)) + "model:\n" +
           Join(ModelRun().Play(theProgram));
}

} // namespace

TEST(LmChangeGroupModel, RandomProgramsTakeTheCourseThatTheRulesSay)
{
    std::size_t theChanges = 0;
    for (unsigned theSeed = 1; theSeed <= 3000; ++theSeed) {
        const Program theProgram = MakeProgram(theSeed);
        theChanges += ModelRun().Play(theProgram).size();
        if (IsDifferent(theProgram)) {
            FAIL() << "seed " << theSeed << ", " << Explain(Shrink(theProgram));
        }
    }
    EXPECT_GT(theChanges, 9000U) << "the programs do too little";
}
