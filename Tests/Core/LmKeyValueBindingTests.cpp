// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueBinding.h"
#include "LmValueTransform.h"
#include "NamedObserver.h"

#include <Carbon/Carbon.h>

#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <tuple>
#include <type_traits>
#include <vector>

namespace {

const char* const kStore = "LmKeyValueStore";
const char* const kObserver = "LmKeyValueObserver";
const char* const kBinding = "LmKeyValueBinding";

const std::string kNotBoundThere = Diagnostic(kBinding, "Error -50");

// Adds a number, and says when it dies.
class Adding : public LmValueTransform
{
public:
    explicit Adding(double theAmount, int* theDeaths = nullptr)
        : mAmount(theAmount),
          mDeaths(theDeaths)
    {
    }

    ~Adding() override
    {
        if (mDeaths != nullptr) {
            *mDeaths += 1;
        }
    }

    LmValue Apply(const LmValue& theValue) override
    {
        mCalls += 1;
        return LmValue(theValue.GetDouble() + mAmount);
    }

    int mCalls = 0;

private:
    double mAmount;
    int* mDeaths; // counts the dead; not owned, may be null
};

// Halves a number downwards: applied again and again, any number settles.
class Halving : public LmValueTransform
{
public:
    LmValue Apply(const LmValue& theValue) override { return LmValue(theValue.GetUInt32() / 2); }
};

// Gives an invalid value for everything.
class Losing : public LmValueTransform
{
public:
    LmValue Apply(const LmValue&) override { return LmValue(); }
};

// Nobody may observe its keys, as with a menu command.
class DrivenOnly : public LmKeyValueBinding
{
public:
    bool IsBindable(const LmString&) override { return false; }
};

// Opens the inner steps.
class OpenBinding : public LmKeyValueBinding
{
public:
    using LmKeyValueBinding::BindingList;
    using LmKeyValueBinding::BindingMap;
    using LmKeyValueBinding::CreateBinding;
    using LmKeyValueBinding::RemoveBinding;
};

// Two binding objects: b of B holds 40 at first, a of A nothing. What they are told is logged.
struct TwoObjects
{
    TwoObjects()
    {
        theB.SetKeyValue("b", LmValue(40UL));
        theA.ObserveKeyPathValue("a", &theHearsA);
        theB.ObserveKeyPathValue("b", &theHearsB);
    }

    std::string A() const { return DescribeValue(theA.GetKeyPathValue("a")); }
    std::string B() const { return DescribeValue(theB.GetKeyPathValue("b")); }

    Lines theLog;
    LmKeyValueBinding theA;
    LmKeyValueBinding theB;
    NamedObserver theHearsA{"A", theLog};
    NamedObserver theHearsB{"B", theLog};
};

bool Observes(LmKeyValueBinding& theObserver, LmKeyValueBinding& theStore, const char* theKey)
{
    EXPECT_EQ(theStore.IsObserving(theKey, &theObserver), theObserver.AmObserving(&theStore, theKey));
    return theStore.IsObserving(theKey, &theObserver);
}

} // namespace

static_assert(std::is_base_of_v<LmKeyValueObserver, LmKeyValueBinding>);
static_assert(std::is_base_of_v<LmKeyValueStore, LmKeyValueBinding>);
static_assert(!std::is_copy_constructible_v<LmKeyValueBinding>);
static_assert(std::is_copy_constructible_v<BindingInfo>);
static_assert(std::has_virtual_destructor_v<LmKeyValueBinding>);

// ---- The object itself

TEST(LmKeyValueBinding, ItsDebugInfoNamesTheStorePart)
{
    const LmKeyValueBinding theBinding;
    const LmKeyValueStore& theStore = theBinding;
    const std::string theAddress = theBinding.LmKeyValueStore::GetDebugInfo().GetUTF8();
    EXPECT_EQ(std::string(theBinding.GetDebugInfo().GetUTF8()), "[LmKeyValueBinding " + theAddress + "]");
    EXPECT_EQ(theStore.GetDebugInfo(), theBinding.GetDebugInfo());
    EXPECT_NE(theBinding.LmKeyValueObserver::GetDebugInfo().GetUTF8(), theAddress);
}

TEST(LmKeyValueBinding, EveryKeyButTheWildcardIsBindable)
{
    LmKeyValueBinding theBinding;
    EXPECT_TRUE(theBinding.IsBindable("volume"));
    EXPECT_TRUE(theBinding.IsBindable(""));
    EXPECT_FALSE(theBinding.IsBindable("*"));
}

TEST(LmKeyValueBinding, AnObserverGetsBackToTheObjectByACheckedCast)
{
    LmKeyValueBinding theBinding;
    const LmKeyValueStore* theStore = &theBinding;
    EXPECT_EQ(dynamic_cast<const LmKeyValueBinding*>(theStore), &theBinding);
}

// ---- Binding one way

TEST(LmKeyValueBinding, OneWayTheOtherKeyDrivesThisOne)
{
    TwoObjects the;
    EXPECT_EQ(the.theA.BindTo("a", &the.theB, "b", nullptr), noErr);
    EXPECT_EQ(the.A(), "40") << "the value is there at once";
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.A(), "55");
    the.theA.SetKeyPathValue("a", LmValue(7UL));
    EXPECT_EQ(the.B(), "55") << "and does not go back";
    EXPECT_TRUE(Observes(the.theA, the.theB, "b"));
    EXPECT_FALSE(Observes(the.theB, the.theA, "a"));
    the.theA.UnbindAll();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kNotBoundThere});
}

TEST(LmKeyValueBinding, BindingTellsTheObserversOfTheFirstValue)
{
    TwoObjects the;
    the.theA.BindTo("a", &the.theB, "b", nullptr);
    EXPECT_EQ(the.theLog, (Lines{"A changing a: -", "A changed a: 40"}));
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, ATransformConvertsTheFirstValueAndEveryChange)
{
    TwoObjects the;
    the.theA.BindTo("a", &the.theB, "b", new Adding(100));
    EXPECT_EQ(the.A(), "140");
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.A(), "155");
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, AnInvalidFirstValueLeavesTheKeyAlone)
{
    TwoObjects the;
    the.theA.SetKeyValue("a", LmValue(1UL));
    the.theB.SetKeyValue("b", LmValue());
    the.theA.BindTo("a", &the.theB, "b", nullptr);
    EXPECT_EQ(the.A(), "1");
    EXPECT_EQ(the.theLog, Lines{});
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.A(), "55") << "the first change sets it";
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, AFirstValueThatTheTransformMakesInvalidLeavesTheKeyAlone)
{
    TwoObjects the;
    the.theA.SetKeyValue("a", LmValue(1UL));
    the.theA.BindTo("a", &the.theB, "b", new Losing);
    EXPECT_EQ(the.A(), "1");
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, AnInvalidChangeIsCopied)
{
    TwoObjects the;
    the.theA.SetKeyValue("a", LmValue(1UL));
    the.theA.BindTo("a", &the.theB, "b", new Losing);
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.A(), "-");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{Diagnostic(kStore, "HasKey(theKeyName)")});
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, OneKeyMayDriveMany)
{
    LmKeyValueBinding theSource;
    theSource.SetKeyValue("b", LmValue(1UL));
    std::vector<std::unique_ptr<LmKeyValueBinding>> theTargets(1000);
    for (auto& theTarget : theTargets) {
        theTarget = std::make_unique<LmKeyValueBinding>();
        theTarget->BindTo("a", &theSource, "b", nullptr);
    }
    theSource.SetKeyPathValue("b", LmValue(2UL));
    for (auto& theTarget : theTargets) {
        EXPECT_EQ(theTarget->GetKeyPathValue("a").GetUInt32(), 2u);
    }
    theTargets.clear();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines(1000, kNotBoundThere));
}

// ---- Binding both ways

TEST(LmKeyValueBinding, BothWaysEachKeyDrivesTheOther)
{
    TwoObjects the;
    EXPECT_EQ(the.theA.Bind("a", &the.theB, "b", nullptr, nullptr), noErr);
    EXPECT_EQ(the.A(), "40");
    EXPECT_EQ(the.B(), "40") << "the first value runs towards the object that binds";
    the.theA.SetKeyPathValue("a", LmValue(1UL));
    EXPECT_EQ(the.B(), "1");
    the.theB.SetKeyPathValue("b", LmValue(2UL));
    EXPECT_EQ(the.A(), "2");
    EXPECT_TRUE(Observes(the.theA, the.theB, "b"));
    EXPECT_TRUE(Observes(the.theB, the.theA, "a"));
}

TEST(LmKeyValueBinding, InverseTransformsSettleAfterOneRound)
{
    TwoObjects the;
    auto* const theForth = new Adding(100);
    auto* const theBack = new Adding(-100);
    the.theA.Bind("a", &the.theB, "b", theForth, theBack);
    the.theLog.clear();
    theForth->mCalls = theBack->mCalls = 0;
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.theLog,
              (Lines{"B changing b: 40", "B changed b: 55", "A changing a: 140", "A changed a: 155"}));
    EXPECT_EQ(theForth->mCalls, 1);
    EXPECT_EQ(theBack->mCalls, 1);
    EXPECT_EQ(the.B(), "55");
}

TEST(LmKeyValueBinding, TheOtherObjectHearsOfTheFirstValueThroughTheReverseTransform)
{
    TwoObjects the;
    auto* const theBack = new Adding(1);
    the.theA.Bind("a", &the.theB, "b", new Halving, theBack);
    // 40 gives 20, 20 + 1 goes back as 21, whose half is 10, and so on until 2 / 2 + 1 = 2.
    EXPECT_EQ(the.A(), "1");
    EXPECT_EQ(the.B(), "2");
    EXPECT_GT(theBack->mCalls, 1);
}

TEST(LmKeyValueBinding, TransformsThatOnlyNearlyUndoEachOtherSettleAsIntegersDo)
{
    TwoObjects the;
    the.theA.Bind("a", &the.theB, "b", new Adding(100.25), new Adding(-100));
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.A(), "155.25");
    EXPECT_EQ(the.B(), "55") << "55.25 equals 55";
}

TEST(LmKeyValueBinding, BindingAnObjectToItselfKeepsTwoOfItsKeysInStep)
{
    LmKeyValueBinding theObject;
    theObject.SetKeyValue("b", LmValue(40UL));
    EXPECT_EQ(theObject.Bind("a", &theObject, "b", nullptr, nullptr), noErr);
    EXPECT_EQ(theObject.GetKeyPathValue("a").GetUInt32(), 40u);
    theObject.SetKeyPathValue("a", LmValue(1UL));
    EXPECT_EQ(theObject.GetKeyPathValue("b").GetUInt32(), 1u);
    theObject.SetKeyPathValue("b", LmValue(2UL));
    EXPECT_EQ(theObject.GetKeyPathValue("a").GetUInt32(), 2u);
    EXPECT_EQ(theObject.Unbind("a", &theObject), noErr);
    EXPECT_FALSE(Observes(theObject, theObject, "a"));
    EXPECT_FALSE(Observes(theObject, theObject, "b"));
}

TEST(LmKeyValueBinding, AKeyMayBeBoundToItself)
{
    LmKeyValueBinding theObject;
    theObject.SetKeyValue("a", LmValue(40UL));
    EXPECT_EQ(theObject.Bind("a", &theObject, "a", new Halving, nullptr), noErr);
    EXPECT_EQ(theObject.GetKeyPathValue("a").GetUInt32(), 0u);
    theObject.UnbindAll();
    // Two records, but one observation.
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic(kStore, "IsObserving(theKeyPath, theObserver)"),
                     Diagnostic(kObserver, "AmObserving(theStore, theKeyPath)")}));
}

TEST(LmKeyValueBinding, AChainOfAThousandFollowsBothWays)
{
    std::vector<std::unique_ptr<LmKeyValueBinding>> theChain(1000);
    for (size_t theIndex = 0; theIndex < theChain.size(); ++theIndex) {
        theChain[theIndex] = std::make_unique<LmKeyValueBinding>();
        if (theIndex > 0) {
            theChain[theIndex]->Bind("k", theChain[theIndex - 1].get(), "k", nullptr, nullptr);
        }
    }
    theChain.front()->SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theChain.back()->GetKeyPathValue("k").GetUInt32(), 1u);
    theChain.back()->SetKeyPathValue("k", LmValue(2UL));
    EXPECT_EQ(theChain.front()->GetKeyPathValue("k").GetUInt32(), 2u);
}

TEST(LmKeyValueBinding, ARingOfBindingsSettles)
{
    LmKeyValueBinding theRing[3];
    for (size_t theIndex = 0; theIndex < 3; ++theIndex) {
        theRing[theIndex].Bind("k", &theRing[(theIndex + 1) % 3], "k", nullptr, nullptr);
    }
    theRing[1].SetKeyPathValue("k", LmValue(9UL));
    for (const LmKeyValueBinding& theObject : theRing) {
        EXPECT_EQ(theObject.GetKeyPathValue("k").GetUInt32(), 9u);
    }
}

// ---- Refusals

TEST(LmKeyValueBinding, TheWildcardIsRefusedOnEitherSide)
{
    TwoObjects the;
    int theDeaths = 0;
    auto* const theTransform = new Adding(1, &theDeaths);
    EXPECT_EQ(the.theA.Bind("*", &the.theB, "b", theTransform, nullptr), paramErr);
    EXPECT_EQ(the.theA.Bind("a", &the.theB, "*", theTransform, nullptr), paramErr);
    EXPECT_EQ(the.theA.BindTo("a", &the.theB, "*", theTransform), paramErr);
    EXPECT_EQ(the.A(), "-");
    EXPECT_EQ(the.theA.Unbind("a", nullptr), paramErr) << "nothing is stored";
    EXPECT_FALSE(Observes(the.theA, the.theB, "b"));
    EXPECT_EQ(theDeaths, 0);
    theTransform->Release();
    EXPECT_EQ(theDeaths, 1) << "the caller's reference is the only one";
}

TEST(LmKeyValueBinding, AKeyThatIsNotBindableCanOnlyBeDriven)
{
    DrivenOnly theDriven;
    LmKeyValueBinding theModel;
    theModel.SetKeyValue("b", LmValue(1UL));
    EXPECT_EQ(theDriven.Bind("a", &theModel, "b", nullptr, nullptr), paramErr);
    EXPECT_EQ(theModel.Bind("b", &theDriven, "a", nullptr, nullptr), paramErr);
    EXPECT_EQ(theModel.BindTo("b", &theDriven, "a", nullptr), paramErr);
    EXPECT_EQ(theDriven.BindTo("a", &theModel, "b", nullptr), noErr);
    EXPECT_EQ(theDriven.GetKeyPathValue("a").GetUInt32(), 1u);
    theDriven.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, OneWayTheOwnKeyIsNotAskedWhetherItIsBindableOnPurpose)
{
    // Even the wildcard: it is then used as a key.
    TwoObjects the;
    EXPECT_EQ(the.theA.BindTo("*", &the.theB, "b", nullptr), noErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines(3, Diagnostic(kStore, "theKeyName != kKeyAnyValue")));
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, BothKeysAreAskedWhetherTheyAreBindableTheOwnOneFirst)
{
    class Asked : public LmKeyValueBinding
    {
    public:
        explicit Asked(Lines& theLog)
            : mLog(theLog)
        {
        }

        bool IsBindable(const LmString& theKeyName) override
        {
            mLog.push_back(theKeyName.GetUTF8());
            return LmKeyValueBinding::IsBindable(theKeyName);
        }

    private:
        Lines& mLog;
    };
    Lines theLog;
    Asked theA(theLog);
    Asked theB(theLog);
    theA.Bind("a", &theB, "b", nullptr, nullptr);
    EXPECT_EQ(theLog, (Lines{"a", "b"}));
    theLog.clear();
    theA.Bind("*", &theB, "b", nullptr, nullptr);
    EXPECT_EQ(theLog, Lines{"*"});
    theLog.clear();
    theA.BindTo("c", &theB, "d", nullptr);
    EXPECT_EQ(theLog, Lines{"d"});
    theA.UnbindAll();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kNotBoundThere});
}

TEST(LmKeyValueBinding, EmptyKeysAreReportedAndBoundAllTheSame)
{
    OpenBinding theA;
    LmKeyValueBinding theB;
    EXPECT_EQ(theA.CreateBinding("", false, &theB, "", nullptr, nullptr), noErr);
    const Lines theTexts = StandardErrorCapture::TakeDiagnostics();
    ASSERT_GE(theTexts.size(), 2u);
    EXPECT_EQ(theTexts[0], Diagnostic(kBinding, "bindKey.IsNotEmpty()"));
    EXPECT_EQ(theTexts[1], Diagnostic(kBinding, "boundKey.IsNotEmpty()"));
    EXPECT_TRUE(Observes(theA, theB, ""));
    StandardErrorCapture::TakeText();
    EXPECT_EQ(theA.Unbind("", nullptr), noErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().front(), Diagnostic(kBinding, "boundKey.IsNotEmpty()"));
}

TEST(LmKeyValueBindingDeathTest, AMissingObjectIsReportedBeforeTheCallFails)
{
    OpenBinding theA;
    EXPECT_DEATH(theA.CreateBinding("a", false, nullptr, "b", nullptr, nullptr),
                 "line [0-9]+: boundTo != NULL\n");
    // The test framework warns where it cannot count threads, as under emulation.
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, ARecordWithoutAnObjectIsReportedAndRemoved)
{
    int theDeaths = 0;
    OpenBinding theA;
    OpenBinding::BindingMap theEntries;
    OpenBinding::BindingList& theRecords = theEntries["a"];
    theRecords.push_back({nullptr, "b", new Adding(1, &theDeaths)});
    theA.RemoveBinding(theEntries.begin(), theRecords.begin(), "a", nullptr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{Diagnostic(kBinding, "boundTo != NULL")});
    EXPECT_TRUE(theRecords.empty());
    EXPECT_EQ(theDeaths, 1);
}

// ---- Following changes

TEST(LmKeyValueBinding, OfTwoKeysBoundToTheSameOnlyTheFirstFollowsOnPurpose)
{
    LmKeyValueBinding theA;
    LmKeyValueBinding theB;
    theB.SetKeyValue("b", LmValue(1UL));
    theA.BindTo("z", &theB, "b", nullptr);
    theA.BindTo("y", &theB, "b", nullptr);
    theB.SetKeyPathValue("b", LmValue(2UL));
    EXPECT_EQ(theA.GetKeyPathValue("y").GetUInt32(), 2u) << "the one that sorts first";
    EXPECT_EQ(theA.GetKeyPathValue("z").GetUInt32(), 1u);
    theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, OfTwoRecordsOfOneKeyTheOlderOneIsServed)
{
    TwoObjects the;
    auto* const theOlder = new Adding(1);
    auto* const theNewer = new Adding(2);
    the.theA.BindTo("a", &the.theB, "b", theOlder);
    the.theA.BindTo("a", &the.theB, "b", theNewer);
    EXPECT_EQ(the.A(), "42") << "each binding copies the first value";
    the.theB.SetKeyPathValue("b", LmValue(50UL));
    EXPECT_EQ(the.A(), "51");
    EXPECT_EQ(theNewer->mCalls, 1);
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, OneKeyMayFollowSeveralObjects)
{
    LmKeyValueBinding theA;
    LmKeyValueBinding theSources[2];
    theA.BindTo("a", &theSources[0], "k", nullptr);
    theA.BindTo("a", &theSources[1], "k", nullptr);
    theSources[0].SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theA.GetKeyPathValue("a").GetUInt32(), 1u);
    theSources[1].SetKeyPathValue("k", LmValue(2UL));
    EXPECT_EQ(theA.GetKeyPathValue("a").GetUInt32(), 2u);
    theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, ChangesOfWhatItIsNotBoundToAreIgnored)
{
    TwoObjects the;
    LmKeyValueStore thePlainStore;
    LmKeyValueBinding theStranger;
    the.theA.BindTo("a", &the.theB, "b", nullptr);
    thePlainStore.ObserveKeyPathValue("b", &the.theA);
    theStranger.ObserveKeyPathValue("b", &the.theA);
    the.theB.ObserveKeyPathValue("other", &the.theA);
    thePlainStore.SetKeyPathValue("b", LmValue(1UL));
    theStranger.SetKeyPathValue("b", LmValue(2UL));
    the.theB.SetKeyPathValue("other", LmValue(3UL));
    the.theA.ValueChanged(nullptr, "b");
    EXPECT_EQ(the.A(), "40");
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, AChangeTravelsThroughDependencies)
{
    TwoObjects the;
    the.theB.SetKeyValue("source", LmValue(1UL));
    the.theA.BindTo("a", &the.theB, "b", nullptr);
    the.theB.MakeDependency("source", "b");
    the.theB.SetKeyValue("b", LmValue(77UL));
    the.theB.SetKeyPathValue("source", LmValue(2UL));
    EXPECT_EQ(the.A(), "77");
    the.theA.UnbindAll();
    StandardErrorCapture::TakeText();
}

TEST(LmKeyValueBinding, AnObserverMayUnbindWhatIsUpdating)
{
    TwoObjects the;
    int theDeaths = 0;
    the.theA.Bind("a", &the.theB, "b", new Adding(1, &theDeaths), new Adding(-1, &theDeaths));
    the.theHearsA.mOnChanged = [&] { the.theA.Unbind("a", nullptr); };
    the.theB.SetKeyPathValue("b", LmValue(50UL));
    EXPECT_EQ(the.A(), "51");
    EXPECT_EQ(theDeaths, 2);
    EXPECT_FALSE(Observes(the.theA, the.theB, "b"));
}

TEST(LmKeyValueBinding, AnObjectInTheMiddleOfAChainMayDieWhileAChangePassesThroughIt)
{
    Lines theLog;
    LmKeyValueBinding theFirst;
    auto theMiddle = std::make_unique<LmKeyValueBinding>();
    LmKeyValueBinding theLast;
    theMiddle->Bind("k", &theFirst, "k", nullptr, nullptr);
    theLast.Bind("k", theMiddle.get(), "k", nullptr, nullptr);
    NamedObserver theHearsFirst("first", theLog);
    NamedObserver theHearsLast("last", theLog);
    theFirst.ObserveKeyPathValue("k", &theHearsFirst);
    theLast.ObserveKeyPathValue("k", &theHearsLast);
    theHearsLast.mOnChanged = [&] { theMiddle.reset(); };
    theFirst.SetKeyPathValue("k", LmValue(1UL));
    EXPECT_EQ(theLog.back(), "first changed k: 1") << "the others are still told";
    EXPECT_EQ(theLast.GetKeyPathValue("k").GetUInt32(), 1u);
    theFirst.SetKeyPathValue("k", LmValue(2UL));
    EXPECT_EQ(theLast.GetKeyPathValue("k").GetUInt32(), 1u);
}

// ---- Meddling while a change is under way

namespace {

// Two bound objects that may die at any moment, and something that is done to them once, at one moment.
struct Meddling
{
    using Action = void (*)(Meddling& the);

    explicit Meddling(Action theAction)
        : mAction(theAction)
    {
        theB->SetKeyValue("b", LmValue(40UL));
    }

    void Act()
    {
        if (mIsArmed) {
            mIsArmed = false;
            mAction(*this);
        }
    }

    int theDeaths = 0;
    LmKeyValueBinding theC;
    std::unique_ptr<LmKeyValueBinding> theA = std::make_unique<LmKeyValueBinding>();
    std::unique_ptr<LmKeyValueBinding> theB = std::make_unique<LmKeyValueBinding>();
    Action mAction;
    bool mIsArmed = false;
};

// Meddles while a value passes through it, and needs itself afterwards.
class MeddlingTransform : public Adding
{
public:
    MeddlingTransform(double theAmount, Meddling& theMeddling)
        : Adding(theAmount, &theMeddling.theDeaths),
          mMeddling(theMeddling)
    {
    }

    LmValue Apply(const LmValue& theValue) override
    {
        mMeddling.Act();
        return Adding::Apply(theValue);
    }

private:
    Meddling& mMeddling;
};

struct MeddlingAction
{
    const char* mName;
    Meddling::Action mAct;
    bool mKeepsBinding; // whether A.a and B.b still follow each other afterwards
};

const MeddlingAction kMeddlingActions[] = {
    {"UnbindsFromTheSideThatBound", [](Meddling& the) { the.theA->Unbind("a", the.theB.get()); }, false},
    {"UnbindsTheKeyThatBound", [](Meddling& the) { the.theA->Unbind("a", nullptr); }, false},
    {"UnbindsFromTheOtherSide", [](Meddling& the) { the.theB->Unbind("b", the.theA.get()); }, false},
    {"UnbindsAllOfTheOtherSide", [](Meddling& the) { the.theB->UnbindAll(); }, false},
    {"DestroysTheSideThatBound", [](Meddling& the) { the.theA.reset(); }, false},
    {"DestroysTheOtherSide", [](Meddling& the) { the.theB.reset(); }, false},
    {"DestroysBothSides",
     [](Meddling& the) {
         the.theA.reset();
         the.theB.reset();
     },
     false},
    {"BindsOtherKeys",
     [](Meddling& the) {
         the.theA->Bind("0", &the.theC, "c", nullptr, nullptr);
         the.theC.Bind("d", the.theB.get(), "b", nullptr, nullptr);
     },
     true},
    {"BindsTheSameKeysToAThirdObject",
     [](Meddling& the) {
         the.theA->Bind("a", &the.theC, "c", nullptr, nullptr);
         the.theB->Bind("b", &the.theC, "d", nullptr, nullptr);
     },
     true},
    {"UnbindsAndBindsAgain",
     [](Meddling& the) {
         the.theA->UnbindAll();
         the.theA->Bind("a", the.theB.get(), "b", nullptr, nullptr);
     },
     true},
};

enum Meddler
{
    kTransform,
    kReverseTransform,
    kAChanging,
    kAChanged,
    kBChanging,
    kBChanged
};
const char* const kMeddlerNames[] = {"Transform",   "ReverseTransform",  "ObserverOfABefore",
                                     "ObserverOfA", "ObserverOfBBefore", "ObserverOfB"};

enum Occasion
{
    kBindingThem,
    kChangingA,
    kChangingB
};
const char* const kOccasionNames[] = {"WhenTheyAreBound", "WhenAChanges", "WhenBChanges"};

class LmKeyValueBindingMeddling : public testing::TestWithParam<std::tuple<MeddlingAction, Meddler, Occasion>>
{
protected:
    LmValueTransform* MakeTransform(double theAmount, Meddler theMeddler)
    {
        return mMeddler == theMeddler ? new MeddlingTransform(theAmount, the)
                                      : new Adding(theAmount, &the.theDeaths);
    }

    void ObserveBoth()
    {
        const auto theMeddling = [this] { the.Act(); };
        (mMeddler == kAChanging ? mHearsA.mOnChanging : mHearsA.mOnChanged) =
            mMeddler == kAChanging || mMeddler == kAChanged ? theMeddling : std::function<void()>();
        (mMeddler == kBChanging ? mHearsB.mOnChanging : mHearsB.mOnChanged) =
            mMeddler == kBChanging || mMeddler == kBChanged ? theMeddling : std::function<void()>();
        the.theA->ObserveKeyPathValue("a", &mHearsA);
        the.theB->ObserveKeyPathValue("b", &mHearsB);
    }

    void BindBoth()
    {
        the.mIsArmed = mOccasion == kBindingThem;
        EXPECT_EQ(the.theA->Bind("a", the.theB.get(), "b", MakeTransform(1, kTransform),
                                 MakeTransform(-1, kReverseTransform)),
                  noErr);
    }

    void Change()
    {
        the.mIsArmed = true;
        if (mOccasion == kChangingA) {
            the.theA->SetKeyPathValue("a", LmValue(60UL));
        } else {
            the.theB->SetKeyPathValue("b", LmValue(60UL));
        }
    }

    // The transforms undo each other, so binding does not change B.
    bool ComesToIt() const
    {
        return mOccasion != kBindingThem || (mMeddler != kBChanging && mMeddler != kBChanged);
    }

    const MeddlingAction mAction = std::get<0>(GetParam());
    const Meddler mMeddler = std::get<1>(GetParam());
    const Occasion mOccasion = std::get<2>(GetParam());
    Lines mLog;
    Meddling the{mAction.mAct};
    NamedObserver mHearsA{"A", mLog};
    NamedObserver mHearsB{"B", mLog};
};

} // namespace

TEST_P(LmKeyValueBindingMeddling, LeavesTheObjectsInOrder)
{
    ObserveBoth();
    BindBoth();
    if (mOccasion != kBindingThem) {
        Change();
    }
    EXPECT_EQ(the.mIsArmed, !ComesToIt());
    the.mIsArmed = false;
    if (the.theA != nullptr && the.theB != nullptr) {
        the.theB->SetKeyPathValue("b", LmValue(1000UL));
        EXPECT_EQ(the.theA->GetKeyPathValue("a").GetUInt32() >= 1000, mAction.mKeepsBinding || !ComesToIt());
    }
    the.theA.reset();
    the.theB.reset();
    EXPECT_EQ(the.theDeaths, 2);
}

INSTANTIATE_TEST_SUITE_P(, LmKeyValueBindingMeddling,
                         testing::Combine(testing::ValuesIn(kMeddlingActions),
                                          testing::Values(kTransform, kReverseTransform, kAChanging,
                                                          kAChanged, kBChanging, kBChanged),
                                          testing::Values(kBindingThem, kChangingA, kChangingB)),
                         [](const auto& theInfo) {
                             return std::string(kMeddlerNames[std::get<1>(theInfo.param)]) +
                                    std::get<0>(theInfo.param).mName +
                                    kOccasionNames[std::get<2>(theInfo.param)];
                         });

TEST(LmKeyValueBinding, TheResultOfATransformThatRemovesItsBindingIsStillStored)
{
    static const char* const kLongKey = "a key that needs memory of its own";
    Meddling the([](Meddling& theObjects) { theObjects.theA->Unbind(kLongKey, nullptr); });
    the.theA->BindTo(kLongKey, the.theB.get(), "b", new MeddlingTransform(1, the));
    the.mIsArmed = true;
    the.theB->SetKeyPathValue("b", LmValue(50UL));
    EXPECT_EQ(the.theA->GetKeyPathValue(kLongKey).GetUInt32(), 51u);
    EXPECT_EQ(the.theDeaths, 1);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kNotBoundThere});
}

// ---- Unbinding

TEST(LmKeyValueBinding, UnbindingAKeyThatWasNeverBoundIsRefused)
{
    TwoObjects the;
    EXPECT_EQ(the.theA.Unbind("a", nullptr), paramErr);
    EXPECT_EQ(the.theA.Unbind("a", &the.theB), paramErr);
}

TEST(LmKeyValueBinding, UnbindingFromAnObjectThatIsNotBoundChangesNothing)
{
    TwoObjects the;
    LmKeyValueBinding theStranger;
    the.theA.Bind("a", &the.theB, "b", nullptr, nullptr);
    EXPECT_EQ(the.theA.Unbind("a", &theStranger), noErr);
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.A(), "55");
}

TEST(LmKeyValueBinding, UnbindingOneWayReportsTheMissingMirrorOnPurpose)
{
    TwoObjects the;
    the.theA.BindTo("a", &the.theB, "b", nullptr);
    EXPECT_EQ(the.theA.Unbind("a", &the.theB), noErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kNotBoundThere});
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.A(), "40") << "the value stays as it was";
}

namespace {

struct Unbinding
{
    const char* mName;
    void (*mUnbind)(LmKeyValueBinding& theA, LmKeyValueBinding& theB);
};

const Unbinding kUnbindings[] = {
    {"FromThisSide", [](LmKeyValueBinding& theA, LmKeyValueBinding& theB) { theA.Unbind("a", &theB); }},
    {"FromThisSideWhateverItIsBoundTo",
     [](LmKeyValueBinding& theA, LmKeyValueBinding&) { theA.Unbind("a", nullptr); }},
    {"FromTheOtherSide", [](LmKeyValueBinding& theA, LmKeyValueBinding& theB) { theB.Unbind("b", &theA); }},
    {"AllOfThisSide", [](LmKeyValueBinding& theA, LmKeyValueBinding&) { theA.UnbindAll(); }},
    {"AllOfTheOtherSide", [](LmKeyValueBinding&, LmKeyValueBinding& theB) { theB.UnbindAll(); }},
};

class LmKeyValueBindingUnbinding : public testing::TestWithParam<Unbinding>
{
};

} // namespace

TEST_P(LmKeyValueBindingUnbinding, RemovesBothHalvesOfATwoWayBindingSilently)
{
    TwoObjects the;
    int theDeaths = 0;
    the.theA.Bind("a", &the.theB, "b", new Adding(1, &theDeaths), new Adding(-1, &theDeaths));
    the.theLog.clear();
    GetParam().mUnbind(the.theA, the.theB);
    EXPECT_EQ(the.theLog, Lines{}) << "nobody is notified";
    EXPECT_EQ(theDeaths, 2);
    EXPECT_FALSE(Observes(the.theA, the.theB, "b"));
    EXPECT_FALSE(Observes(the.theB, the.theA, "a"));
    the.theA.SetKeyPathValue("a", LmValue(7UL));
    EXPECT_EQ(the.B(), "40");
    the.theB.SetKeyPathValue("b", LmValue(8UL));
    EXPECT_EQ(the.A(), "7");
}

INSTANTIATE_TEST_SUITE_P(, LmKeyValueBindingUnbinding, testing::ValuesIn(kUnbindings),
                         [](const auto& theInfo) { return std::string(theInfo.param.mName); });

TEST(LmKeyValueBinding, UnbindingAKeyFromEverythingForgetsTheKey)
{
    TwoObjects the;
    LmKeyValueBinding theC;
    the.theA.Bind("a", &the.theB, "b", nullptr, nullptr);
    the.theA.Bind("a", &theC, "c", nullptr, nullptr);
    EXPECT_EQ(the.theA.Unbind("a", nullptr), noErr);
    EXPECT_EQ(the.theA.Unbind("a", nullptr), paramErr);
    EXPECT_FALSE(Observes(the.theA, theC, "c"));
}

TEST(LmKeyValueBinding, UnbindingTheLastRecordKeepsTheKeysEntryOnPurpose)
{
    TwoObjects the;
    the.theA.Bind("a", &the.theB, "b", nullptr, nullptr);
    EXPECT_EQ(the.theA.Unbind("a", &the.theB), noErr);
    EXPECT_EQ(the.theA.Unbind("a", &the.theB), noErr);
    LmDebugObject::SetLogging(true);
    the.theA.UnbindAll();
    LmDebugObject::SetLogging(false);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "") << "the empty entry goes without a line";
    EXPECT_EQ(the.theA.Unbind("a", &the.theB), paramErr);
}

TEST(LmKeyValueBinding, BindingTheSamePairTwiceMakesTwoRecordsButOneObservationOnPurpose)
{
    TwoObjects the;
    int theDeaths = 0;
    the.theA.BindTo("a", &the.theB, "b", new Adding(1, &theDeaths));
    the.theA.BindTo("a", &the.theB, "b", new Adding(1, &theDeaths));
    EXPECT_EQ(the.theA.Unbind("a", &the.theB), noErr);
    EXPECT_EQ(theDeaths, 1) << "one record is gone";
    EXPECT_FALSE(Observes(the.theA, the.theB, "b")) << "and so is the observation";
    the.theB.SetKeyPathValue("b", LmValue(55UL));
    EXPECT_EQ(the.A(), "41");
    StandardErrorCapture::TakeText();

    EXPECT_EQ(the.theA.Unbind("a", &the.theB), noErr);
    EXPECT_EQ(theDeaths, 2);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic(kStore, "IsObserving(theKeyPath, theObserver)"),
                     Diagnostic(kObserver, "AmObserving(theStore, theKeyPath)"), kNotBoundThere}));
}

TEST(LmKeyValueBinding, UnbindAllGoesByKey)
{
    LmKeyValueBinding theA;
    LmKeyValueBinding theB;
    theA.Bind("z", &theB, "1", nullptr, nullptr);
    theA.Bind("y", &theB, "2", nullptr, nullptr);
    LmDebugObject::SetLogging(true);
    theA.UnbindAll();
    LmDebugObject::SetLogging(false);
    Lines theKeys;
    for (const std::string& theLine : StandardErrorCapture::TakeLines()) {
        const std::string theStart = std::string("Lm: Unbinding ") + theA.GetDebugInfo().GetUTF8() + ".";
        if (theLine.compare(0, theStart.size(), theStart) == 0) {
            theKeys.push_back(theLine.substr(theStart.size(), 1));
        }
    }
    EXPECT_EQ(theKeys, (Lines{"y", "z"}));
}

// ---- Transforms

TEST(LmKeyValueBinding, ATransformIsAdoptedAndReleasedOnce)
{
    TwoObjects the;
    int theDeaths = 0;
    auto* const theTransform = new Adding(0, &theDeaths);
    theTransform->Retain();
    the.theA.Bind("a", &the.theB, "b", theTransform, nullptr);
    the.theA.UnbindAll();
    EXPECT_EQ(theDeaths, 0) << "the second holder keeps it";
    theTransform->Release();
    EXPECT_EQ(theDeaths, 1);
}

TEST(LmKeyValueBinding, TheSameTransformMayServeBothWaysWithAReferenceForEach)
{
    TwoObjects the;
    int theDeaths = 0;
    auto* const theTransform = new Adding(0, &theDeaths);
    theTransform->Retain();
    the.theA.Bind("a", &the.theB, "b", theTransform, theTransform);
    EXPECT_EQ(the.A(), "40");
    the.theA.UnbindAll();
    EXPECT_EQ(theDeaths, 1);
}

TEST(LmKeyValueBinding, ATransformIsReleasedBeforeTheObservationEnds)
{
    class Witness : public Losing
    {
    public:
        explicit Witness(const std::function<void()>& theAction)
            : mAction(theAction)
        {
        }
        ~Witness() override { mAction(); }

    private:
        std::function<void()> mAction;
    };
    TwoObjects the;
    Lines theObserved;
    const auto theNote = [&] {
        theObserved.push_back(std::string(Observes(the.theA, the.theB, "b") ? "b" : "-") +
                              (Observes(the.theB, the.theA, "a") ? "a" : "-"));
    };
    the.theA.Bind("a", &the.theB, "b", new Witness(theNote), new Witness(theNote));
    the.theA.UnbindAll();
    EXPECT_EQ(theObserved, (Lines{"ba", "-a"}));
}

TEST(LmKeyValueBinding, ATransformMayOwnTheObjectThatItsValuesComeFrom)
{
    class Source : public Adding
    {
    public:
        using Adding::Adding;
        LmKeyValueBinding mModel;
    };
    for (const bool isTwoWay : {false, true}) {
        int theDeaths = 0;
        LmKeyValueBinding theA;
        auto* const theSource = new Source(0, &theDeaths);
        theSource->mModel.SetKeyValue("b", LmValue(40UL));
        if (isTwoWay) {
            theA.Bind("a", &theSource->mModel, "b", theSource, nullptr);
        } else {
            theA.BindTo("a", &theSource->mModel, "b", theSource);
        }
        EXPECT_EQ(theA.Unbind("a", nullptr), noErr);
        EXPECT_EQ(theDeaths, 1);
        EXPECT_EQ(theA.Unbind("a", nullptr), paramErr);
        theA.SetKeyPathValue("a", LmValue(1UL));
    }
}

// ---- Death

TEST(LmKeyValueBinding, ADyingObjectTakesItsTwoWayBindingsWithIt)
{
    int theDeaths = 0;
    LmKeyValueBinding theB;
    auto theA = std::make_unique<LmKeyValueBinding>();
    theB.SetKeyValue("b", LmValue(40UL));
    theA->Bind("a", &theB, "b", new Adding(1, &theDeaths), new Adding(-1, &theDeaths));
    theA.reset();
    EXPECT_EQ(theDeaths, 2);
    theB.SetKeyPathValue("b", LmValue(1UL));
    EXPECT_EQ(theB.Unbind("b", nullptr), noErr) << "the entry is left, and empty";
}

TEST(LmKeyValueBinding, TheBoundObjectMayDieFirst)
{
    int theDeaths = 0;
    LmKeyValueBinding theA;
    auto theB = std::make_unique<LmKeyValueBinding>();
    theB->SetKeyValue("b", LmValue(40UL));
    theA.Bind("a", theB.get(), "b", new Adding(1, &theDeaths), new Adding(-1, &theDeaths));
    theB.reset();
    EXPECT_EQ(theDeaths, 2);
    theA.SetKeyPathValue("a", LmValue(1UL));
}

TEST(LmKeyValueBinding, ADyingObjectRemovesItsOneWayBindings)
{
    LmKeyValueBinding theB;
    auto theA = std::make_unique<LmKeyValueBinding>();
    theA->BindTo("a", &theB, "b", nullptr);
    theA.reset();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kNotBoundThere});
    theB.SetKeyPathValue("b", LmValue(1UL));
}

TEST(LmKeyValueBinding, TenThousandBindingsAreMadeAndUndone)
{
    LmKeyValueBinding theA;
    std::vector<std::unique_ptr<LmKeyValueBinding>> theOthers(10000);
    for (auto& theOther : theOthers) {
        theOther = std::make_unique<LmKeyValueBinding>();
        theOther->Bind("k", &theA, std::to_string(&theOther - theOthers.data()).c_str(), nullptr, nullptr);
    }
    theA.SetKeyPathValue("9999", LmValue(3UL));
    EXPECT_EQ(theOthers.back()->GetKeyPathValue("k").GetUInt32(), 3u);
    theOthers.clear();
    EXPECT_EQ(theA.Unbind("0", nullptr), noErr);
}
