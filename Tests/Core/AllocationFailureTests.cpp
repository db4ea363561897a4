// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"
#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"
#include "LmValueTransform.h"
#include "NamedObserver.h"

#include <Carbon/Carbon.h>

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <vector>

// What stores, observers and binding objects do when memory runs out: the first, the second, the third...
// allocation of a call fails, until the call needs no more. A call that throws has changed nothing.

namespace {

// Too long to fit into a string itself, so that each copy of a name needs memory.
const LmString kLongName("a name of more than fifteen bytes");
const LmString kOtherLongName("another name of more than fifteen bytes");

// Counts what it is told without needing memory.
class CountingObserver : public LmKeyValueObserver
{
public:
    void ValueChanging(const LmKeyValueStore*, const LmString&) override { mCalls += 1; }
    void ValueChanged(const LmKeyValueStore*, const LmString&) override { mCalls += 1; }

    int mCalls = 0;
};

class Passing : public LmValueTransform
{
public:
    explicit Passing(int& theDeaths)
        : mDeaths(theDeaths)
    {
    }
    ~Passing() override { mDeaths += 1; }
    LmValue Apply(const LmValue& theValue) override { return theValue; }

private:
    int& mDeaths;
};

// Does theWork; true when memory ran out in it.
template <typename Work>
bool RunsOutOfMemory(const Work& theWork)
{
    try {
        theWork();
    } catch (const std::bad_alloc&) {
        return true;
    }
    return false;
}

// Does theWork on a new Scene again and again, each time with the next allocation failing; then calls
// theCheck(scene, whether it threw). Returns how often an allocation failed.
template <typename Scene, typename Work, typename Check>
size_t FailEach(const Work& theWork, const Check& theCheck)
{
    for (size_t theNumber = 1;; ++theNumber) {
        Scene theScene;
        AllocationFailures theFailures(theNumber);
        const bool hasThrown = RunsOutOfMemory([&] { theWork(theScene); });
        theFailures.Stop();
        SCOPED_TRACE("allocation " + std::to_string(theNumber));
        EXPECT_TRUE(theFailures.HasFailed() || !hasThrown);
        theCheck(theScene, hasThrown);
        if (!theFailures.HasFailed()) {
            return theNumber - 1;
        }
    }
}

// Tests that pass in silence pass with the trace on too: a line that cannot be built is lost, nothing else.
class AllocationFailure : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override { LmDebugObject::SetLogging(GetParam()); }

    void TearDown() override
    {
        LmDebugObject::SetLogging(true);
        StandardErrorCapture::TakeText();
        LmDebugObject theObject;
        theObject.AddIndent();
        theObject.AddIndent();
        theObject.LogString("depth");
        theObject.RemoveIndent();
        theObject.RemoveIndent();
        LmDebugObject::SetLogging(false);
        EXPECT_EQ(StandardErrorCapture::TakeText(), "Lm:     depth\n") << "the depth is not restored";
    }

    // The reports in what has been written, without the trace.
    static Lines TakeReports()
    {
        Lines theReports;
        for (const std::string& theLine : StandardErrorCapture::TakeDiagnostics()) {
            if (theLine.compare(0, 4, "Lm: ") != 0) {
                theReports.push_back(theLine);
            }
        }
        return theReports;
    }
};

struct StoreScene
{
    StoreScene() { theStore.ObserveKeyPathValue("*", &theAny); }

    // Whether the key has a key state: then the observer of "*" hears of it.
    bool HasKeyState(const LmString& theKey)
    {
        const int theCalls = theAny.mCalls;
        theStore.NotifyObservers(theKey, true);
        return theAny.mCalls != theCalls;
    }

    LmKeyValueStore theStore;
    CountingObserver theAny;
    CountingObserver theObserver;
};

} // namespace

TEST_P(AllocationFailure, OfAnObservationLeavesNothingBehind)
{
    const size_t theFailures = FailEach<StoreScene>(
        [](StoreScene& the) { the.theStore.ObserveKeyPathValue(kLongName, &the.theObserver); },
        [](StoreScene& the, bool hasThrown) {
            EXPECT_EQ(the.theStore.IsObserving(kLongName, &the.theObserver), !hasThrown);
            EXPECT_EQ(the.theObserver.AmObserving(&the.theStore, kLongName), !hasThrown);
            EXPECT_EQ(the.HasKeyState(kLongName), !hasThrown);
        });
    EXPECT_GE(theFailures, 5u);
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfASecondObservationKeepsTheFirst)
{
    struct Scene : StoreScene
    {
        Scene() { theStore.ObserveKeyPathValue(kLongName, &theFirst); }
        CountingObserver theFirst;
    };
    FailEach<Scene>([](Scene& the) { the.theStore.ObserveKeyPathValue(kLongName, &the.theObserver); },
                    [](Scene& the, bool hasThrown) {
                        EXPECT_EQ(the.theStore.IsObserving(kLongName, &the.theObserver), !hasThrown);
                        EXPECT_TRUE(the.theStore.IsObserving(kLongName, &the.theFirst));
                        EXPECT_TRUE(the.HasKeyState(kLongName));
                    });
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfIgnoringWhatIsNotObservedMakesNoKeyState)
{
    FailEach<StoreScene>(
        [](StoreScene& the) { the.theStore.IgnoreKeyPathValue(kLongName, &the.theObserver); },
        [](StoreScene& the, bool hasThrown) { EXPECT_EQ(the.HasKeyState(kLongName), !hasThrown); });
    TakeReports();
}

TEST_P(AllocationFailure, OfADependencyLeavesNothingBehind)
{
    struct Scene : StoreScene
    {
        Scene()
        {
            theStore.SetKeyValue(kLongName, LmValue(1UL));
            theStore.SetKeyValue(kOtherLongName, LmValue(1UL));
        }
    };
    const size_t theFailures =
        FailEach<Scene>([](Scene& the) { the.theStore.MakeDependency(kLongName, kOtherLongName); },
                        [](Scene& the, bool hasThrown) {
                            EXPECT_EQ(the.theStore.IsDependent(kLongName, kOtherLongName), !hasThrown);
                            EXPECT_EQ(the.HasKeyState(kLongName), !hasThrown);
                        });
    EXPECT_EQ(theFailures, 4u) << "two nodes, two names";
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfBreakingADependencyThatIsNotThereMakesNoKeyState)
{
    FailEach<StoreScene>(
        [](StoreScene& the) { the.theStore.BreakDependency(kLongName, kOtherLongName); },
        [](StoreScene& the, bool hasThrown) { EXPECT_EQ(the.HasKeyState(kLongName), !hasThrown); });
    TakeReports();
}

TEST_P(AllocationFailure, OfTheFirstSetterMakesNoKey)
{
    FailEach<StoreScene>(
        [](StoreScene& the) { the.theStore.SetKeyValue(kLongName, LmValue(7UL)); },
        [](StoreScene& the, bool hasThrown) { EXPECT_EQ(the.theStore.HasKey(kLongName), !hasThrown); });
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfTheFirstChangeOfAKeyMakesNoKey)
{
    struct Scene : StoreScene
    {
        Scene() { theStore.ObserveKeyPathValue(kLongName, &theObserver); }
    };
    bool wasToldOfAChangeNotMade = false;
    FailEach<Scene>([](Scene& the) { the.theStore.SetKeyPathValue(kLongName, LmValue(7UL)); },
                    [&](Scene& the, bool hasThrown) {
                        EXPECT_EQ(the.theStore.HasKey(kLongName), !hasThrown);
                        EXPECT_EQ(the.theObserver.mCalls == 2, !hasThrown);
                        wasToldOfAChangeNotMade |= hasThrown && the.theObserver.mCalls == 1;
                    });
    EXPECT_TRUE(wasToldOfAChangeNotMade);
    EXPECT_EQ(TakeReports(), Lines{});
}

namespace {

// A key with twenty observers, one of them twice as a dependent: each pass needs memory for its snapshot.
struct BusyScene
{
    BusyScene()
    {
        theStore.SetKeyValue(kLongName, LmValue(1UL));
        theStore.SetKeyValue(kOtherLongName, LmValue(1UL));
        for (CountingObserver& theObserver : theObservers) {
            theStore.ObserveKeyPathValue(kLongName, &theObserver);
            theStore.ObserveKeyPathValue(kOtherLongName, &theObserver);
        }
        theStore.MakeDependency(kLongName, kOtherLongName);
    }

    LmKeyValueStore theStore;
    CountingObserver theObservers[20];
};

} // namespace

TEST_P(AllocationFailure, OfAChangeLeavesTheOldOrTheNewValue)
{
    const size_t theFailures =
        FailEach<BusyScene>([](BusyScene& the) { the.theStore.SetKeyPathValue(kLongName, LmValue(7UL)); },
                            [](BusyScene& the, bool hasThrown) {
                                const unsigned long theValue =
                                    the.theStore.GetKeyValue(kLongName).GetUInt32();
                                EXPECT_TRUE(theValue == 7 || (hasThrown && theValue == 1)) << theValue;
                                for (CountingObserver& theObserver : the.theObservers) {
                                    EXPECT_TRUE(the.theStore.IsObserving(kLongName, &theObserver));
                                    // Before, after, and as a dependent: each pass reaches all or none.
                                    EXPECT_EQ(theObserver.mCalls, the.theObservers[0].mCalls);
                                    EXPECT_EQ(theObserver.mCalls == 3, !hasThrown);
                                    EXPECT_EQ(theValue == 7, theObserver.mCalls >= 1);
                                }
                            });
    EXPECT_GE(theFailures, 5u);
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfAValuesBlockLeavesTheKeyInvalidOrNotified)
{
    struct Scene
    {
        Scene()
        {
            theStore.SetKeyValue("k", LmValue(1.5));
            theStore.ObserveKeyPathValue("k", &theObserver);
        }
        LmKeyValueStore theStore;
        CountingObserver theObserver;
        LmValue theValue{7.5};
    };
    LmDebugObject::SetLogging(false);
    FailEach<Scene>([](Scene& the) { the.theStore.SetKeyPathValue("k", the.theValue); },
                    [](Scene& the, bool hasThrown) {
                        EXPECT_FALSE(hasThrown) << "a block that is not to be had makes no call fail";
                        EXPECT_EQ(the.theObserver.mCalls, 2);
                        const LmValue theValue = the.theStore.GetKeyValue("k");
                        EXPECT_TRUE(!theValue.IsValid() || theValue.GetDouble() == 7.5);
                    });
    TakeReports();
}

namespace {

struct BindingScene
{
    BindingScene() { theB.SetKeyValue(kOtherLongName, LmValue(40UL)); }

    ~BindingScene()
    {
        theA.UnbindAll();
        // What was not adopted is still the scene's.
        if (theDeaths == 0) {
            theTransform->Release();
            theReverse->Release();
        }
        EXPECT_EQ(theDeaths, 2);
    }

    BindingScene(const BindingScene&) = delete;
    BindingScene& operator=(const BindingScene&) = delete;

    bool AHasAnEntry() { return theA.Unbind(kLongName, &theStranger) == noErr; }
    bool BHasAnEntry() { return theB.Unbind(kOtherLongName, &theStranger) == noErr; }

    int theDeaths = 0;
    LmKeyValueBinding theA;
    LmKeyValueBinding theB;
    LmKeyValueBinding theStranger;
    LmValueTransform* theTransform = new Passing(theDeaths);
    LmValueTransform* theReverse = new Passing(theDeaths);
};

} // namespace

TEST_P(AllocationFailure, OfATwoWayBindingLeavesAllOfItOrNothing)
{
    bool wasUnbound = false;
    bool stoodWithoutValue = false;
    const size_t theFailures = FailEach<BindingScene>(
        [](BindingScene& the) {
            the.theA.Bind(kLongName, &the.theB, kOtherLongName, the.theTransform, the.theReverse);
        },
        [&](BindingScene& the, bool hasThrown) {
            const bool isBound = the.theA.AmObserving(&the.theB, kOtherLongName);
            EXPECT_TRUE(isBound || hasThrown);
            EXPECT_EQ(the.theB.AmObserving(&the.theA, kLongName), isBound);
            EXPECT_EQ(the.theA.IsObserving(kLongName, &the.theB), isBound);
            EXPECT_EQ(the.theB.IsObserving(kOtherLongName, &the.theA), isBound);
            EXPECT_EQ(the.AHasAnEntry(), isBound);
            EXPECT_EQ(the.BHasAnEntry(), isBound);
            EXPECT_EQ(the.theDeaths, 0);
            EXPECT_TRUE(hasThrown || the.theA.GetKeyValue(kLongName).GetUInt32() == 40);
            wasUnbound = wasUnbound || !isBound;
            stoodWithoutValue = stoodWithoutValue || (isBound && hasThrown);
        });
    EXPECT_GE(theFailures, 10u);
    EXPECT_TRUE(wasUnbound);
    EXPECT_TRUE(stoodWithoutValue);
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfASecondBindingKeepsTheFirst)
{
    struct Scene : BindingScene
    {
        Scene() { theA.Bind(kLongName, &theB, kOtherLongName, nullptr, nullptr); }
    };
    FailEach<Scene>(
        [](Scene& the) {
            the.theA.Bind(kLongName, &the.theB, kOtherLongName, the.theTransform, the.theReverse);
        },
        [](Scene& the, bool) {
            EXPECT_TRUE(the.theA.AmObserving(&the.theB, kOtherLongName));
            EXPECT_TRUE(the.theB.AmObserving(&the.theA, kLongName));
            the.theB.SetKeyPathValue(kOtherLongName, LmValue(50UL));
            EXPECT_EQ(the.theA.GetKeyValue(kLongName).GetUInt32(), 50u);
        });
    TakeReports();
}

TEST_P(AllocationFailure, OfABindingKeepsTheObservationThatWasThereBefore)
{
    struct Scene : BindingScene
    {
        Scene() { theA.ObserveKeyPathValue(kLongName, &theB); }
    };
    FailEach<Scene>(
        [](Scene& the) {
            the.theA.Bind(kLongName, &the.theB, kOtherLongName, the.theTransform, the.theReverse);
        },
        [](Scene& the, bool) {
            EXPECT_TRUE(the.theA.IsObserving(kLongName, &the.theB));
            EXPECT_TRUE(the.theB.AmObserving(&the.theA, kLongName));
        });
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfAOneWayBindingLeavesAllOfItOrNothing)
{
    FailEach<BindingScene>(
        [](BindingScene& the) { the.theA.BindTo(kLongName, &the.theB, kOtherLongName, the.theTransform); },
        [&](BindingScene& the, bool hasThrown) {
            const bool isBound = the.theA.AmObserving(&the.theB, kOtherLongName);
            EXPECT_TRUE(isBound || hasThrown);
            EXPECT_EQ(the.theB.IsObserving(kOtherLongName, &the.theA), isBound);
            EXPECT_EQ(the.AHasAnEntry(), isBound);
            EXPECT_FALSE(the.BHasAnEntry());
            if (isBound) {
                // The scene expects both transforms to be adopted.
                the.theReverse->Release();
            }
        });
    TakeReports();
}

TEST_P(AllocationFailure, OfAChangeThroughABindingLeavesTheBinding)
{
    struct Scene : BindingScene
    {
        Scene() { theA.Bind(kLongName, &theB, kOtherLongName, theTransform, theReverse); }
    };
    const size_t theFailures =
        FailEach<Scene>([](Scene& the) { the.theB.SetKeyPathValue(kOtherLongName, LmValue(50UL)); },
                        [](Scene& the, bool hasThrown) {
                            EXPECT_TRUE(hasThrown || the.theA.GetKeyValue(kLongName).GetUInt32() == 50);
                            the.theB.SetKeyPathValue(kOtherLongName, LmValue(60UL));
                            EXPECT_EQ(the.theA.GetKeyValue(kLongName).GetUInt32(), 60u);
                        });
    EXPECT_GE(theFailures, 2u);
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfUnbindingMakesNothingFail)
{
    struct Scene : BindingScene
    {
        Scene() { theA.Bind(kLongName, &theB, kOtherLongName, theTransform, theReverse); }
    };
    FailEach<Scene>([](Scene& the) { the.theA.Unbind(kLongName, &the.theB); },
                    [](Scene& the, bool hasThrown) {
                        EXPECT_FALSE(hasThrown);
                        EXPECT_EQ(the.theDeaths, 2);
                        EXPECT_FALSE(the.theB.IsObserving(kOtherLongName, &the.theA));
                    });
    EXPECT_EQ(TakeReports(), Lines{});
}

TEST_P(AllocationFailure, OfDestructionMakesNothingFail)
{
    struct Scene
    {
        Scene()
        {
            theA->Bind(kLongName, &theB, kOtherLongName, nullptr, nullptr);
            theB.ObserveKeyPathValue(kLongName, theObserver.get());
            theA->ObserveKeyPathValue(kOtherLongName, theObserver.get());
        }
        LmKeyValueBinding theB;
        std::unique_ptr<LmKeyValueBinding> theA = std::make_unique<LmKeyValueBinding>();
        std::unique_ptr<LmKeyValueObserver> theObserver = std::make_unique<LmKeyValueObserver>();
    };
    FailEach<Scene>(
        [](Scene& the) {
            the.theA.reset();
            the.theObserver.reset();
        },
        [](Scene& the, bool hasThrown) {
            EXPECT_FALSE(hasThrown);
            EXPECT_EQ(the.theB.Unbind(kOtherLongName, nullptr), noErr);
        });
    EXPECT_EQ(TakeReports(), Lines{});
}

namespace {

// Keeps the records of which the journal says that they are bound.
class BoundRecords : public LmJournalHook
{
public:
    BoundRecords()
    {
        // What is kept later needs no memory.
        mRecords.reserve(10);
        LmSetJournalHook(this);
    }
    ~BoundRecords() { LmSetJournalHook(nullptr); }
    BoundRecords(const BoundRecords&) = delete;
    BoundRecords& operator=(const BoundRecords&) = delete;

    std::uint64_t Write(const LmJournalEntry& theEntry, const void*) noexcept override
    {
        if (theEntry.theKind == kJournalBind) {
            mRecords.push_back(theEntry.theRecord);
        } else if (theEntry.theKind == kJournalUnbind && mRecords.back() == theEntry.theRecord) {
            mRecords.pop_back();
        }
        return 0;
    }

    std::vector<const void*> mRecords;
};

} // namespace

TEST_P(AllocationFailure, OfABindingIsInTheJournalAsItsEnd)
{
    struct Scene
    {
        LmKeyValueBinding theA;
        LmKeyValueBinding theB;
        BoundRecords theRecords;
    };
    FailEach<Scene>([](Scene& the) { the.theA.Bind(kLongName, &the.theB, kOtherLongName, nullptr, nullptr); },
                    [](Scene& the, bool) {
                        const bool isBound = the.theA.AmObserving(&the.theB, kOtherLongName);
                        EXPECT_EQ(the.theRecords.mRecords.size(), isBound ? 2U : 0U);
                    });
    EXPECT_EQ(TakeReports(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(, AllocationFailure, testing::Bool(), [](const auto& theInfo) {
    return std::string(theInfo.param ? "WithTheTraceOn" : "WithTheTraceOff");
});

// ---- What needs no memory

TEST(Allocation, SettingANumberUnderAShortNameWithSixteenObserversNeedsNone)
{
    LmKeyValueStore theStore;
    CountingObserver theObservers[16];
    theStore.SetKeyValue("fifteen letters", LmValue(1UL));
    for (size_t theIndex = 0; theIndex < 16; ++theIndex) {
        theStore.ObserveKeyPathValue(theIndex % 2 == 0 ? "fifteen letters" : "*", &theObservers[theIndex]);
    }
    const LmString theKey("fifteen letters");
    const LmValue theValues[] = {LmValue(2UL), LmValue(-3L), LmValue(true),
                                 LmValue(static_cast<const void*>(&theStore))};
    for (const LmValue& theValue : theValues) {
        AllocationFailures theCount;
        theStore.SetKeyPathValue(theKey, theValue);
        theCount.Stop();
        EXPECT_EQ(theCount.GetCount(), 0u) << theValue.GetType();
    }
    EXPECT_EQ(theObservers[15].mCalls, 8);
}

TEST(Allocation, SettingADoubleNeedsTheBlocksOfItsCopiesOnly)
{
    LmKeyValueStore theStore;
    CountingObserver theObserver;
    theStore.SetKeyValue("volume", LmValue(1.0));
    theStore.ObserveKeyPathValue("volume", &theObserver);
    const LmString theKey("volume");
    const LmValue theValue(2.0);
    AllocationFailures theCount;
    theStore.SetKeyPathValue(theKey, theValue);
    theCount.Stop();
    EXPECT_EQ(theCount.GetCount(), 2u) << "the old value, the look whether the key is there";
}

TEST(Allocation, TakingThingsApartNeedsNone)
{
    const LmString theKeys[] = {kLongName, kOtherLongName};
    auto theStore = std::make_unique<LmKeyValueStore>();
    auto theA = std::make_unique<LmKeyValueBinding>();
    LmKeyValueBinding theB;
    auto theObserver = std::make_unique<CountingObserver>();
    for (const LmString& theKey : theKeys) {
        theStore->ObserveKeyPathValue(theKey, theObserver.get());
        theB.ObserveKeyPathValue(theKey, theObserver.get());
        theA->Bind(theKey, &theB, theKey, nullptr, nullptr);
    }
    AllocationFailures theCount;
    theStore.reset();
    theA.reset();
    theObserver.reset();
    theCount.Stop();
    EXPECT_EQ(theCount.GetCount(), 0u);
}
