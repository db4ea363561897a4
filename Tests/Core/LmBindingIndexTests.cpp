// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"
#include "LmKeyValueBinding.h"
#include "LmValueTransform.h"
#include "StandardErrorCapture.h"

#include <algorithm>
#include <Carbon/Carbon.h>
#include <cstddef>
#include <gtest/gtest.h>
#include <list>
#include <map>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <vector>

// Binding objects with many bindings, which are not searched by walking through them, serve the same record
// and remove the same record as those with few.

namespace {

constexpr int kNobody = -1;

// Says who was served last.
class Signing : public LmValueTransform
{
public:
    Signing(int theNumber, int& theLast)
        : mNumber(theNumber),
          mLast(theLast)
    {
    }
    LmValue Apply(const LmValue& theValue) override
    {
        mLast = mNumber;
        return theValue;
    }

private:
    int mNumber;
    int& mLast;
};

// What a binding object promises, in its plainest form.
class Model
{
public:
    void Bind(const std::string& theKey, std::size_t theSource, const std::string& theSourceKey,
              int theNumber)
    {
        mRecords[theKey].push_back({theSource, theSourceKey, theNumber});
        ++mSize;
    }

    // The oldest of theKey with that source.
    void Unbind(const std::string& theKey, std::size_t theSource)
    {
        std::list<Record>& theRecords = mRecords[theKey];
        const auto theRecord = std::find_if(theRecords.begin(), theRecords.end(), [&](const Record& theOne) {
            return theOne.theSource == theSource;
        });
        if (theRecord != theRecords.end()) {
            theRecords.erase(theRecord);
            --mSize;
        }
    }

    void UnbindAll(const std::string& theKey)
    {
        mSize -= mRecords[theKey].size();
        mRecords.erase(theKey);
    }

    int Served(std::size_t theSource, const std::string& theSourceKey) const
    {
        for (const auto& theEntry : mRecords) {
            for (const Record& theRecord : theEntry.second) {
                if (theRecord.theSource == theSource && theRecord.theSourceKey == theSourceKey) {
                    return theRecord.theNumber;
                }
            }
        }
        return kNobody;
    }

    std::size_t GetSize() const { return mSize; }

private:
    struct Record
    {
        std::size_t theSource;
        std::string theSourceKey;
        int theNumber;
    };

    std::map<std::string, std::list<Record>> mRecords;
    std::size_t mSize = 0;
};

// Steps made by dice. Few keys and many bindings, and the other way round.
struct Shape
{
    const char* theName;
    unsigned theKeys;
    unsigned theSources;
    unsigned theSourceKeys;
    std::size_t theMost; // bindings at a time
};

const Shape kShapes[] = {
    {"OneKeyOfManyObjects", 1, 40, 1, 60},    {"ManyKeysOfOneObject", 40, 1, 40, 60},
    {"ManyTimesTheSame", 2, 2, 2, 60},        {"AroundTheNumberThatIsMany", 4, 4, 3, 14},
    {"ManyKeysWithFewBindings", 30, 3, 3, 6}, {"OfEverything", 6, 6, 4, 80},
};

class ManyBindings : public testing::TestWithParam<Shape>
{
};

std::string Name(const char* theLetter, std::size_t theNumber)
{
    return theLetter + std::to_string(theNumber);
}

} // namespace

TEST_P(ManyBindings, AreServedAndRemovedInTheirOrder)
{
    const Shape& theShape = GetParam();
    std::mt19937 theDice(11);
    const auto Throw = [&](std::size_t theSides) { return theDice() % theSides; };
    std::vector<LmKeyValueBinding> theSources(theShape.theSources);
    LmKeyValueBinding theObject;
    Model theModel;
    int theLast = kNobody;
    for (int theStep = 0; theStep < 3000; ++theStep) {
        const std::string theKey = Name("k", Throw(theShape.theKeys));
        const std::size_t theSource = Throw(theShape.theSources);
        // Half of the time the number of bindings grows, half of the time it shrinks.
        const std::size_t theGoal = theStep % 600 < 300 ? theShape.theMost : 0;
        if (theModel.GetSize() < theGoal || Throw(4) == 0) {
            const std::string theSourceKey = Name("s", Throw(theShape.theSourceKeys));
            theObject.BindTo(theKey.c_str(), &theSources[theSource], theSourceKey.c_str(),
                             new Signing(theStep, theLast));
            theModel.Bind(theKey, theSource, theSourceKey, theStep);
        } else if (Throw(20) == 0) {
            theObject.Unbind(theKey.c_str(), nullptr);
            theModel.UnbindAll(theKey);
        } else {
            theObject.Unbind(theKey.c_str(), &theSources[theSource]);
            theModel.Unbind(theKey, theSource);
        }
        for (std::size_t theOne = 0; theOne < theShape.theSources; ++theOne) {
            for (std::size_t theNumber = 0; theNumber < theShape.theSourceKeys; ++theNumber) {
                theLast = kNobody;
                theObject.ValueChanged(&theSources[theOne], Name("s", theNumber).c_str());
                ASSERT_EQ(theLast, theModel.Served(theOne, Name("s", theNumber)))
                    << Name("s", theNumber) << " of object " << theOne << " in step " << theStep;
            }
        }
    }
    theObject.UnbindAll();
    StandardErrorCapture::TakeText();
}

INSTANTIATE_TEST_SUITE_P(, ManyBindings, testing::ValuesIn(kShapes),
                         [](const auto& theInfo) { return theInfo.param.theName; });

namespace {

// A model with one key that many follow both ways, each with a key of its own name.
struct Followed
{
    explicit Followed(std::size_t theCount)
    {
        for (std::size_t theNumber = 0; theNumber < theCount; ++theNumber) {
            theFollowers.push_back(std::make_unique<LmKeyValueBinding>());
            theFollowers.back()->Bind("value", &theModel, "value", nullptr, nullptr);
        }
    }

    // Whether all that are left follow the model, and the model follows each of them.
    bool IsInStep()
    {
        theModel.SetKeyPathValue("value", LmValue(++theLast));
        for (const auto& theFollower : theFollowers) {
            if (theFollower && theFollower->GetKeyValue("value").GetSInt32() != theLast) {
                return false;
            }
        }
        for (const auto& theFollower : theFollowers) {
            if (theFollower) {
                theFollower->SetKeyPathValue("value", LmValue(++theLast));
                if (theModel.GetKeyValue("value").GetSInt32() != theLast) {
                    return false;
                }
            }
        }
        return true;
    }

    LmKeyValueBinding theModel;
    std::vector<std::unique_ptr<LmKeyValueBinding>> theFollowers;
    long theLast = 0;
};

} // namespace

TEST(ManyFollowers, MayGoInAnyOrder)
{
    for (const std::size_t theCount : {15u, 16u, 17u, 18u, 100u}) {
        Followed the(theCount);
        std::vector<std::size_t> theOrder(theCount);
        for (std::size_t theNumber = 0; theNumber < theCount; ++theNumber) {
            theOrder[theNumber] = theNumber;
        }
        std::shuffle(theOrder.begin(), theOrder.end(), std::mt19937(3));
        for (const std::size_t theNumber : theOrder) {
            EXPECT_TRUE(the.IsInStep());
            LmKeyValueBinding* const theGone = the.theFollowers[theNumber].get();
            EXPECT_TRUE(the.theModel.IsObserving("value", theGone));
            EXPECT_TRUE(the.theModel.AmObserving(theGone, "value"));
            EXPECT_EQ(theGone->Unbind("value", &the.theModel), noErr);
            EXPECT_FALSE(the.theModel.IsObserving("value", theGone));
            EXPECT_FALSE(the.theModel.AmObserving(theGone, "value"));
            the.theFollowers[theNumber].reset();
        }
        EXPECT_EQ(the.theModel.Unbind("value", nullptr), noErr);
        EXPECT_EQ(the.theModel.Unbind("value", nullptr), paramErr);
    }
}

TEST(ManyFollowers, OutliveTheirModel)
{
    auto the = std::make_unique<Followed>(50);
    std::vector<std::unique_ptr<LmKeyValueBinding>> theFollowers;
    theFollowers.swap(the->theFollowers);
    the.reset();
    for (const auto& theFollower : theFollowers) {
        theFollower->SetKeyPathValue("value", LmValue(1UL));
        EXPECT_EQ(theFollower->GetKeyValue("value").GetUInt32(), 1u);
        EXPECT_EQ(theFollower->Unbind("value", nullptr), noErr) << "without a report: no binding is left";
    }
}

TEST(ManyFollowers, AreUnboundWithoutMemory)
{
    Followed the(50);
    AllocationFailures theCount;
    the.theModel.UnbindAll();
    theCount.Stop();
    EXPECT_EQ(theCount.GetCount(), 0u);
}

TEST(ManyFollowers, AChangeOfOneNeedsNoMoreMemoryThanItsNumberOfObservers)
{
    Followed the(50);
    EXPECT_TRUE(the.IsInStep()) << "from now on, every key is there";
    AllocationFailures theCount;
    the.theFollowers[20]->SetKeyPathValue("value", LmValue(7L));
    theCount.Stop();
    EXPECT_EQ(theCount.GetCount(), 2u) << "who is told before, and who is told after";
}

TEST(ManyFollowers, OneMoreIsBoundWhollyOrNotAtAllWhenMemoryRunsOut)
{
    for (const std::size_t theCount : {15u, 16u, 17u, 40u}) {
        SCOPED_TRACE(std::to_string(theCount) + " followers before");
        bool wasRefused = false;
        for (std::size_t theNumber = 1;; ++theNumber) {
            Followed the(theCount);
            LmKeyValueBinding theNext;
            bool hasThrown = false;
            AllocationFailures theFailures(theNumber);
            try {
                theNext.Bind("value", &the.theModel, "value", nullptr, nullptr);
            } catch (const std::bad_alloc&) {
                hasThrown = true;
            }
            theFailures.Stop();
            EXPECT_EQ(hasThrown, theFailures.HasFailed());
            const bool isBound = theNext.AmObserving(&the.theModel, "value");
            EXPECT_EQ(the.theModel.IsObserving("value", &theNext), isBound);
            EXPECT_EQ(the.theModel.AmObserving(&theNext, "value"), isBound);
            EXPECT_EQ(theNext.Unbind("value", nullptr), isBound ? OSStatus{noErr} : OSStatus{paramErr});
            EXPECT_TRUE(the.IsInStep());
            wasRefused = wasRefused || !isBound;
            if (!hasThrown) {
                break;
            }
        }
        EXPECT_TRUE(wasRefused);
    }
}

TEST(ManyFollowers, APairIsBoundOnceMoreWhollyOrNotAtAllWhenMemoryRunsOut)
{
    for (std::size_t theNumber = 1;; ++theNumber) {
        Followed the(40);
        LmKeyValueBinding& theFollower = *the.theFollowers[20];
        AllocationFailures theFailures(theNumber);
        try {
            the.theModel.Bind("value", &theFollower, "value", nullptr, nullptr);
        } catch (const std::bad_alloc&) {
        }
        theFailures.Stop();
        EXPECT_TRUE(the.IsInStep()) << "the first binding of the pair is as it was";
        the.theFollowers.clear();
        StandardErrorCapture::TakeText(); // a pair that is bound twice is observed once
        if (!theFailures.HasFailed()) {
            break;
        }
    }
}

namespace {

// How many blocks of memory one more follower takes.
std::size_t CountBlocksOfOneMoreThan(Followed& the)
{
    LmKeyValueBinding theNext;
    AllocationFailures theCount;
    theNext.Bind("value", &the.theModel, "value", nullptr, nullptr);
    theCount.Stop();
    return theCount.GetCount();
}

} // namespace

TEST(ManyFollowers, TheFirstIndexTakesMemoryForAllThatGoesWithTheLast)
{
    Followed theMost(15);
    const std::size_t theFirst = CountBlocksOfOneMoreThan(theMost);
    {
        const Followed theOthers(40);
        EXPECT_LT(CountBlocksOfOneMoreThan(theMost), theFirst);
    }
    EXPECT_EQ(CountBlocksOfOneMoreThan(theMost), theFirst);
    // Neither is anything left by an index that was not made, for want of memory.
    for (std::size_t theNumber = 1; theNumber <= theFirst; ++theNumber) {
        LmKeyValueBinding theNext;
        AllocationFailures theFailures(theNumber);
        try {
            theNext.Bind("value", &theMost.theModel, "value", nullptr, nullptr);
        } catch (const std::bad_alloc&) {
        }
        theFailures.Stop();
        theNext.UnbindAll();
        EXPECT_EQ(CountBlocksOfOneMoreThan(theMost), theFirst) << theNumber;
    }
}

TEST(ManyFollowers, OnlyMoreThanAFewTakeMemoryForAnIndexAndNoneIsLeft)
{
    Followed theFew(3);
    Followed theOthers(14);
    EXPECT_EQ(CountBlocksOfOneMoreThan(theFew), CountBlocksOfOneMoreThan(theOthers));
    Followed theMost(15);
    const std::size_t theCount = CountBlocksOfOneMoreThan(theMost);
    EXPECT_GT(theCount, CountBlocksOfOneMoreThan(theOthers) + 16);
    // The same once more: what was there is gone.
    EXPECT_EQ(CountBlocksOfOneMoreThan(theMost), theCount);
}

TEST(ManyKeys, OneMoreIsBoundWhollyOrNotAtAllWhenMemoryRunsOut)
{
    for (const std::size_t theKeys : {6u, 7u, 8u, 9u, 20u}) {
        SCOPED_TRACE(std::to_string(theKeys) + " keys before");
        std::vector<LmKeyValueBinding> theSources(theKeys + 1);
        LmKeyValueBinding theObject;
        const LmString theNewKey("one more key, which needs memory for its name");
        // The key states stay from here on.
        theObject.Bind(theNewKey, &theSources[theKeys], "value", nullptr, nullptr);
        theObject.Unbind(theNewKey, nullptr);
        for (std::size_t theKey = 0; theKey < theKeys; ++theKey) {
            theObject.Bind(Name("k", theKey).c_str(), &theSources[theKey], "value", nullptr, nullptr);
        }
        const auto BindAndUnbind = [&](AllocationFailures& theFailures) {
            try {
                theObject.Bind(theNewKey, &theSources[theKeys], "value", nullptr, nullptr);
            } catch (const std::bad_alloc&) {
            }
            theFailures.Stop();
            EXPECT_EQ(theObject.Unbind(theNewKey, nullptr),
                      theFailures.HasFailed() ? OSStatus{paramErr} : OSStatus{noErr});
        };
        AllocationFailures theFirstCount;
        BindAndUnbind(theFirstCount);
        AllocationFailures theSecondCount;
        BindAndUnbind(theSecondCount);
        EXPECT_EQ(theSecondCount.GetCount(), theFirstCount.GetCount()) << "what was there is gone";
        EXPECT_EQ(FailEachAllocation(BindAndUnbind), theSecondCount.GetCount());
        for (std::size_t theKey = 0; theKey < theKeys; ++theKey) {
            theSources[theKey].SetKeyPathValue("value", LmValue(1UL));
            EXPECT_EQ(theObject.GetKeyValue(Name("k", theKey).c_str()).GetUInt32(), 1u);
        }
    }
}

// ---- Records that come by the inner steps

namespace {

// Opens the inner steps, and has so many one-way bindings of one key.
class OpenBinding : public LmKeyValueBinding
{
public:
    explicit OpenBinding(std::size_t theCount)
        : mSources(theCount)
    {
        for (LmKeyValueBinding& theSource : mSources) {
            BindTo("value", &theSource, "value", nullptr);
        }
    }
    ~OpenBinding() override
    {
        UnbindAll();
        StandardErrorCapture::TakeText(); // the other halves that one-way bindings do not have
    }

    OpenBinding(const OpenBinding&) = delete;
    OpenBinding& operator=(const OpenBinding&) = delete;

    using LmKeyValueBinding::AddBinding;
    using LmKeyValueBinding::BindingMap;
    using LmKeyValueBinding::RemoveBinding;

    // Whether each of the others drives the key.
    bool IsDriven()
    {
        return std::all_of(mSources.begin(), mSources.end(), [this](LmKeyValueBinding& theSource) {
            theSource.SetKeyPathValue("value", LmValue(++mLast));
            return GetKeyValue("value").GetSInt32() == mLast;
        });
    }

private:
    std::vector<LmKeyValueBinding> mSources;
    long mLast = 0;
};

class InnerSteps : public testing::TestWithParam<std::size_t>
{
};

} // namespace

TEST_P(InnerSteps, RemoveARecordThatADerivedClassKeepsItself)
{
    OpenBinding theObject(GetParam());
    LmKeyValueBinding theOther;
    OpenBinding::BindingMap theEntries;
    theEntries["value"].push_back({&theOther, "value", nullptr});
    theOther.ObserveKeyPathValue("value", &theObject);
    theObject.RemoveBinding(theEntries.begin(), theEntries["value"].begin(), "value", &theOther);
    EXPECT_TRUE(theEntries["value"].empty());
    EXPECT_FALSE(theObject.AmObserving(&theOther, "value"));
    EXPECT_TRUE(theObject.IsDriven());
}

TEST_P(InnerSteps, AddARecordWithoutAnObjectThatDisturbsNobody)
{
    OpenBinding theObject(GetParam());
    theObject.AddBinding("value", {nullptr, "value", nullptr});
    theObject.AddBinding("another", {nullptr, "value", nullptr});
    EXPECT_TRUE(theObject.IsDriven());
    EXPECT_EQ(theObject.Unbind("another", nullptr), noErr);
    EXPECT_EQ(theObject.Unbind("another", nullptr), paramErr);
    EXPECT_TRUE(theObject.IsDriven());
}

INSTANTIATE_TEST_SUITE_P(Around, InnerSteps, testing::Values(2, 13, 14, 15, 16, 17, 18, 30),
                         testing::PrintToStringParamName());

TEST(ManyRecords, OfOneKeyAreNotTakenForThoseOfAnother)
{
    LmKeyValueBinding theObject;
    LmKeyValueBinding theOther;
    std::vector<std::unique_ptr<LmKeyValueBinding>> theModels;
    for (int theCount = 0; theCount < 20; ++theCount) {
        theModels.push_back(std::make_unique<LmKeyValueBinding>());
        theObject.Bind("a", theModels.back().get(), "value", nullptr, nullptr);
    }
    theObject.Bind("b", &theOther, "value", nullptr, nullptr);
    EXPECT_EQ(theObject.Unbind("a", &theOther), noErr);
    theOther.SetKeyPathValue("value", LmValue(7));
    EXPECT_EQ(theObject.GetKeyPathValue("b").GetSInt32(), 7);
}

TEST(ManyRecords, OfOneObjectAreFoundWhenAnotherHasNoneAnyMore)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theObject;
    auto theOther = std::make_unique<LmKeyValueBinding>();
    for (int theCount = 0; theCount < 20; ++theCount) {
        const LmString theKey = ("k" + std::to_string(theCount)).c_str();
        theObject.Bind(theKey, &theModel, theKey, nullptr, nullptr);
        theOther->Bind(theKey, &theModel, theKey, nullptr, nullptr);
    }
    theOther.reset();
    theModel.SetKeyPathValue("k19", LmValue(7));
    EXPECT_EQ(theObject.GetKeyPathValue("k19").GetSInt32(), 7);
}
