// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueStore.h"
#include "LmNumericalTransforms.h"
#include "NamedBinding.h"
#include "NamedObserver.h"
#include "StandardErrorCapture.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

// A set that comes back to its own key ends when it is a thousand deep in itself; nothing else limits depth.

namespace {

// Counts, and sets the key that it is told of once more until it has done so as often as it shall.
class Repeating : public LmKeyValueObserver
{
public:
    Repeating(LmKeyValueStore& theStore, long theRounds)
        : mStore(theStore),
          mRounds(theRounds)
    {
        theStore.ObserveKeyPathValue("a", this);
    }
    void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        mCount += 1;
        if (mCount < mRounds) {
            mStore.SetKeyPathValue(theKeyName, LmValue(mCount));
        }
    }

    long mCount = 0;

private:
    LmKeyValueStore& mStore;
    long mRounds;
};

Lines TooDeep(const char* theKey)
{
    return {std::string("Source/Core/Internal/LmKeyMemo.cpp, line #: A set of ") + theKey +
            " is nested in itself more than 1000 deep, and is not made"};
}

LmValueTransform* AddOne()
{
    return new LmAddTransform(LmValue(1L));
}

// There is no first value that could be added to.
const Lines kNothingToAdd = {"Source/Transforms/LmNumericalTransforms.cpp, line #: Illegal value type: 0"};

// Binds two keys without values both ways, with transforms that do not undo each other.
void BindWithoutEnd(LmKeyValueBinding& theObject, const char* theKey, LmKeyValueBinding& theOther,
                    const char* theOtherKey)
{
    theObject.Bind(theKey, &theOther, theOtherKey, AddOne(), AddOne());
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), kNothingToAdd);
}

long NumberOf(const LmKeyValueStore& theStore, const char* theKey)
{
    return theStore.GetKeyPathValue(theKey).GetSInt32();
}

} // namespace

TEST(LmNestedSet, AThousandDeepIsMade)
{
    NamedBinding theStore("Store");
    Repeating theObserver(theStore, 1001);
    theStore.SetKeyPathValue("a", LmValue(-1L));
    EXPECT_EQ(theObserver.mCount, 1001) << "one set, and a thousand nested in it";
    EXPECT_EQ(NumberOf(theStore, "a"), 1000);
}

TEST(LmNestedSet, DeeperIsReportedAndNotMade)
{
    NamedBinding theStore("Store");
    Repeating theObserver(theStore, 5000);
    theStore.SetKeyPathValue("a", LmValue(-1L));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), TooDeep("Store.a"));
    EXPECT_EQ(theObserver.mCount, 1001);
    EXPECT_EQ(NumberOf(theStore, "a"), 1000) << "what the last set that was made has stored";
}

TEST(LmNestedSet, AnEqualValueIsNotReportedHoweverDeep)
{
    NamedBinding theStore("Store");
    Repeating theObserver(theStore, 1001);
    Lines theLog;
    NamedObserver theEqual("equal", theLog);
    theEqual.mOnChanged = [&] { theStore.SetKeyPathValue("a", theStore.GetKeyPathValue("a")); };
    theStore.ObserveKeyPathValue("a", &theEqual);
    theStore.SetKeyPathValue("a", LmValue(-1L));
    EXPECT_EQ(theObserver.mCount, 1001);
}

TEST(LmNestedSet, TransformsThatDoNotUndoEachOtherEnd)
{
    NamedBinding theA("A");
    NamedBinding theB("B");
    BindWithoutEnd(theA, "a", theB, "b");
    theB.SetKeyPathValue("b", LmValue(0L));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), TooDeep("B.b"));
    EXPECT_EQ(NumberOf(theB, "b"), 2000) << "set once, and a thousand times after a round of two steps";
    EXPECT_EQ(NumberOf(theA, "a"), 2001);
}

TEST(LmNestedSet, TheProgramGoesOnAndTheNextRoundIsReportedAgain)
{
    NamedBinding theA("A");
    NamedBinding theB("B");
    BindWithoutEnd(theA, "a", theB, "b");
    for (int theRound = 0; theRound < 3; ++theRound) {
        theB.SetKeyPathValue("b", LmValue(0L));
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), TooDeep("B.b"));
        EXPECT_EQ(NumberOf(theB, "b"), 2000);
    }
    theA.Unbind("a", &theB);
    Repeating theObserver(theA, 3);
    theA.SetKeyPathValue("a", LmValue(-1L));
    EXPECT_EQ(theObserver.mCount, 3) << "what is nested a little is made as ever";
}

TEST(LmNestedSet, ALongRoundEndsToo)
{
    std::vector<std::unique_ptr<NamedBinding>> theRing;
    for (const char* theName : {"A", "B", "C"}) {
        theRing.push_back(std::make_unique<NamedBinding>(theName));
    }
    for (std::size_t theIndex = 0; theIndex < theRing.size(); ++theIndex) {
        theRing[theIndex]->BindTo("a", theRing[(theIndex + 1) % theRing.size()].get(), "a", AddOne());
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), kNothingToAdd);
    }
    theRing[0]->SetKeyPathValue("a", LmValue(0L));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), TooDeep("A.a"));
    EXPECT_EQ(NumberOf(*theRing[0], "a"), 3000);
    for (const auto& theObject : theRing) {
        theObject->UnbindAll();
    }
    StandardErrorCapture::TakeText(); // the other halves that one-way bindings do not have
}

TEST(LmNestedSet, WhatComesBackOnSeveralWaysEndsWithOneReport)
{
    NamedBinding theA("A");
    NamedBinding theB("B");
    NamedBinding theC("C");
    BindWithoutEnd(theB, "b", theA, "a");
    BindWithoutEnd(theC, "c", theA, "a");
    theA.SetKeyPathValue("a", LmValue(0L));
    const Lines theLines = StandardErrorCapture::TakeDiagnostics();
    ASSERT_EQ(theLines.size(), 1u) << "on each way back from the depth, the other way would begin anew";
    EXPECT_EQ(theLines, TooDeep("A.a"));
    EXPECT_EQ(theA.GetKeyPathValue("a").GetType(), kTypeSInt32);
}

TEST(LmNestedSet, SeveralObserversThatNeverRestEndWithOneReport)
{
    struct Restless : LmKeyValueObserver
    {
        Restless(LmKeyValueStore& theStore, long& theLast)
            : mStore(theStore),
              mLast(theLast)
        {
        }
        void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
        {
            mStore.SetKeyPathValue(theKeyName, LmValue(++mLast));
        }
        LmKeyValueStore& mStore;
        long& mLast;
    };
    NamedBinding theStore("Store");
    long theLast = 0;
    Restless theOne(theStore, theLast);
    Restless theOther(theStore, theLast);
    theStore.ObserveKeyPathValue("a", &theOne);
    theStore.ObserveKeyPathValue("a", &theOther);
    theStore.SetKeyPathValue("a", LmValue(0));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), TooDeep("Store.a"))
        << "on each of a thousand ways back, the other one would go into the depth again";
    EXPECT_EQ(NumberOf(theStore, "a"), 1000);
    EXPECT_EQ(theLast, 2002) << "each of the two has tried once for each set that was made";
}

TEST(LmNestedSet, TheSameKeyOfAnotherStoreIsAnother)
{
    NamedBinding theA("A");
    Repeating theInner(theA, 700);
    NamedBinding theB("B");
    Repeating theOuter(theB, 700);
    Lines theLog;
    NamedObserver theBridge("bridge", theLog);
    theBridge.mOnChanged = [&] {
        if (theOuter.mCount == 700 && theInner.mCount == 0) {
            theA.SetKeyPathValue("a", LmValue(-1L));
        }
    };
    theB.ObserveKeyPathValue("a", &theBridge);
    theB.SetKeyPathValue("a", LmValue(-1L));
    EXPECT_EQ(theOuter.mCount, 700);
    EXPECT_EQ(theInner.mCount, 700);
}

TEST(LmNestedSet, AChainOfThousandsOfObjectsIsNoConcern)
{
    // Builds that are not optimised need several times as much of the stack.
#ifdef NDEBUG
    constexpr std::size_t kLinks = 10000;
#else
    constexpr std::size_t kLinks = 2000;
#endif
    std::vector<std::unique_ptr<LmKeyValueBinding>> theChain;
    for (std::size_t theIndex = 0; theIndex < kLinks; ++theIndex) {
        theChain.push_back(std::make_unique<LmKeyValueBinding>());
        if (theIndex > 0) {
            theChain[theIndex]->Bind("a", theChain[theIndex - 1].get(), "a", nullptr, nullptr);
        }
    }
    theChain.front()->SetKeyPathValue("a", LmValue(7L));
    EXPECT_EQ(NumberOf(*theChain.back(), "a"), 7);
}

namespace {

// Sets the key behind the one that it is told of, up to a last one.
class Passing : public LmKeyValueObserver
{
public:
    Passing(LmKeyValueStore& theStore, long theLast)
        : mStore(theStore)
    {
        for (long theKey = 0; theKey < theLast; ++theKey) {
            theStore.ObserveKeyPathValue(KeyOf(theKey), this);
        }
    }
    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        const long theNext = theStore->GetKeyPathValue(theKeyName).GetSInt32() + 1;
        mStore.SetKeyPathValue(KeyOf(theNext), LmValue(theNext));
    }
    static LmString KeyOf(long theKey) { return ("k" + std::to_string(theKey)).c_str(); }

private:
    LmKeyValueStore& mStore;
};

// Like Repeating without end, and sets another key as soon as it is refused.
class Giving : public LmKeyValueObserver
{
public:
    explicit Giving(LmKeyValueStore& theStore)
        : mStore(theStore)
    {
        theStore.ObserveKeyPathValue("a", this);
    }
    void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        mStore.SetKeyPathValue(theKeyName, LmValue(++mCount));
        mStore.SetKeyPathValue("b", LmValue(1L));
    }

private:
    LmKeyValueStore& mStore;
    long mCount = 0;
};

} // namespace

TEST(LmNestedSet, AChainOfKeysOfOneStoreIsNoConcern)
{
    NamedBinding theStore("Store");
    const Passing theObserver(theStore, 1500);
    theStore.SetKeyPathValue("k0", LmValue(0L));
    EXPECT_EQ(NumberOf(theStore, "k1500"), 1500);
}

namespace {

// Sets a and b in turns, each when told of the other, until a was set a thousand and one times; then other
// keys, each when told of the one before, and a once more.
class Straying : public LmKeyValueObserver
{
public:
    Straying(LmKeyValueStore& theStore, long theOthers)
        : mStore(theStore),
          mOthers(theOthers)
    {
        theStore.ObserveKeyPathValue("*", this);
        theStore.ObserveKeyPathValue("a", &mNobody);
        theStore.ObserveKeyPathValue("b", &mNobody);
        for (long theKey = 0; theKey < theOthers; ++theKey) {
            theStore.ObserveKeyPathValue(Passing::KeyOf(theKey), &mNobody);
        }
    }
    void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        if (theKeyName == "a") {
            mRounds += 1;
            Set(mRounds <= 1000 ? LmString("b") : Passing::KeyOf(0));
        } else if (theKeyName == "b" || theKeyName == Passing::KeyOf(mOthers - 1)) {
            Set("a");
        } else {
            mOther += 1;
            Set(Passing::KeyOf(mOther));
        }
    }

    long mRounds = 0; // how often a was set

private:
    void Set(const LmString& theKey) { mStore.SetKeyPathValue(theKey, LmValue(++mLast)); }

    LmKeyValueStore& mStore;
    LmKeyValueObserver mNobody; // for the key states
    long mOthers;
    long mOther = 0;
    long mLast = 0;
};

} // namespace

TEST(LmNestedSet, AKeyThatComesBackAfterManyOthersIsCountedToo)
{
    NamedBinding theStore("Store");
    const Straying theObserver(theStore, 63);
    theStore.SetKeyPathValue("a", LmValue(-1L));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), TooDeep("Store.a"));
    EXPECT_EQ(theObserver.mRounds, 1001);
}

TEST(LmNestedSet, AnotherKeyIsSetAfterOneWasRefused)
{
    NamedBinding theStore("Store");
    const Giving theObserver(theStore);
    theStore.SetKeyPathValue("a", LmValue(-1L));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), TooDeep("Store.a"));
    EXPECT_EQ(NumberOf(theStore, "b"), 1);
}
