// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The road of one change, call by call: through a store, and through a binding of two objects.

#include "LmBindings.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Describe(const LmValue& theValue)
{
    return theValue.IsValid() ? std::to_string(theValue.GetUInt32()) : "nothing";
}

// Notes what it is asked and told to store.
template <typename Store>
class Noting : public Store
{
public:
    Noting(const char* theName, Lines& theLog)
        : mName(theName),
          mLog(theLog)
    {
    }

    LmValue GetKeyValue(const LmString& theKeyName) const override
    {
        mLog.push_back(mName + " gives " + theKeyName.GetUTF8());
        return Store::GetKeyValue(theKeyName);
    }

    void SetKeyValue(const LmString& theKeyName, const LmValue& theValue) override
    {
        mLog.push_back(mName + " stores " + theKeyName.GetUTF8() + ": " + Describe(theValue));
        Store::SetKeyValue(theKeyName, theValue);
    }

private:
    std::string mName;
    Lines& mLog;
};

// Notes what it is told.
class Listener : public LmKeyValueObserver
{
public:
    Listener(const char* theName, Lines& theLog)
        : mName(theName),
          mLog(theLog)
    {
    }

    void ValueChanging(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        mLog.push_back(mName + " hears that " + theKeyName.GetUTF8() + " is changing");
    }

    void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        mLog.push_back(mName + " hears that " + theKeyName.GetUTF8() + " changed");
    }

private:
    std::string mName;
    Lines& mLog;
};

// Adds a number, or divides by one, and notes that it did.
class Step : public LmValueTransform
{
public:
    Step(const char* theName, Lines& theLog, UInt32 theDivisor, SInt32 theSummand)
        : mName(theName),
          mLog(theLog),
          mDivisor(theDivisor),
          mSummand(theSummand)
    {
    }

    LmValue Apply(const LmValue& theValue) override
    {
        mLog.push_back(mName + " converts " + Describe(theValue));
        return LmValue(
            static_cast<unsigned long>(theValue.GetUInt32() / mDivisor + static_cast<UInt32>(mSummand)));
    }

private:
    std::string mName;
    Lines& mLog;
    UInt32 mDivisor;
    SInt32 mSummand;
};

class HowAChangeTravels : public testing::Test
{
protected:
    Lines TakeLog()
    {
        Lines theLog;
        theLog.swap(mLog);
        return theLog;
    }

    Lines mLog;
};

} // namespace

TEST_F(HowAChangeTravels, ThroughAStoreFromTheOldValueToTheDependents)
{
    Noting<LmKeyValueStore> theStore("the store", mLog);
    // In one array: their addresses decide who is told first.
    Listener theListeners[] = {{"volume's observer", mLog}, {"the observer of all", mLog}};
    Listener theLoudListener("loud's observer", mLog);
    Listener theDeafListener("deafening's observer", mLog);
    for (const char* theKey : {"volume", "loud", "deafening"}) {
        theStore.SetKeyValue(theKey, LmValue(1UL));
    }
    theStore.ObserveKeyPathValue("volume", &theListeners[0]);
    theStore.ObserveKeyPathValue(kKeyAnyValue, &theListeners[1]);
    theStore.ObserveKeyPathValue("deafening", &theDeafListener);
    theStore.MakeDependency("volume", "loud");
    theStore.MakeDependency("loud", "deafening");
    theStore.ObserveKeyPathValue("loud", &theLoudListener);
    theStore.IgnoreKeyPathValue("loud", &theLoudListener);
    TakeLog();

    theStore.SetKeyPathValue("volume", LmValue(9UL));
    const Lines theExpected = {"the store gives volume",
                               "volume's observer hears that volume is changing",
                               "the observer of all hears that volume is changing",
                               "the store stores volume: 9",
                               "volume's observer hears that volume changed",
                               "the observer of all hears that volume changed",
                               "the store gives volume", // is there a value whose dependents to tell?
                               "the observer of all hears that loud changed"};
    EXPECT_EQ(TakeLog(), theExpected) << "deafening is one level too deep";

    theStore.SetKeyPathValue("volume", LmValue(9UL));
    EXPECT_EQ(TakeLog(), Lines{"the store gives volume"}) << "an equal value does nothing at all";
}

TEST_F(HowAChangeTravels, WithAPathThatIsOneNameHoweverItLooks)
{
    Noting<LmKeyValueStore> theStore("the store", mLog);
    theStore.SetKeyPathValue("mixer", LmValue(1UL));
    TakeLog();
    theStore.SetKeyPathValue("mixer.volume", LmValue(2UL));
    EXPECT_EQ(TakeLog(), (Lines{"the store gives mixer.volume", "the store stores mixer.volume: 2",
                                "the store gives mixer.volume"}));
    EXPECT_EQ(theStore.GetKeyPathValue("mixer.volume").GetUInt32(), 2u);
    EXPECT_EQ(theStore.GetKeyPathValue("mixer").GetUInt32(), 1u);
}

TEST_F(HowAChangeTravels, ThroughATwoWayBindingThereAndBack)
{
    Noting<LmKeyValueBinding> theA("A", mLog);
    Noting<LmKeyValueBinding> theB("B", mLog);
    theB.SetKeyValue("b", LmValue(40UL));
    theA.Bind("a", &theB, "b", new Step("t", mLog, 1, 100), new Step("r", mLog, 1, -100));
    TakeLog();

    theB.SetKeyPathValue("b", LmValue(55UL));
    const Lines theExpected = {"B gives b", "B stores b: 55", // the change itself
                               "B gives b", "t converts 55",  // A hears of it
                               "A gives a", "A stores a: 155",
                               "A gives a", "r converts 155", // B hears of that
                               "B gives b",                   // 55 again: nothing more to do
                               "A gives a", "B gives b"};     // whose dependents are told last
    EXPECT_EQ(TakeLog(), theExpected);

    theA.SetKeyPathValue("a", LmValue(170UL));
    EXPECT_EQ(theB.GetKeyPathValue("b").GetUInt32(), 70u);
}

TEST_F(HowAChangeTravels, UntilEqualValuesEndIt)
{
    LmKeyValueBinding theA;
    Noting<LmKeyValueBinding> theB("B", mLog);
    theB.SetKeyValue("b", LmValue(0UL));
    theA.Bind("a", &theB, "b", new Step("t", mLog, 2, 0), nullptr);
    TakeLog();
    theB.SetKeyPathValue("b", LmValue(5UL));
    Lines theStored;
    for (const std::string& theLine : TakeLog()) {
        if (theLine.find("stores") != std::string::npos) {
            theStored.push_back(theLine);
        }
    }
    EXPECT_EQ(theStored, (Lines{"B stores b: 5", "B stores b: 2", "B stores b: 1", "B stores b: 0"}))
        << "nothing but an equal value keeps a change from starting the next one";
    EXPECT_EQ(theA.GetKeyPathValue("a").GetUInt32(), 0u);
}

TEST_F(HowAChangeTravels, ThroughAWholeChainBeforeTheCallReturns)
{
    LmKeyValueBinding theObjects[4];
    for (size_t theIndex = 1; theIndex < 4; ++theIndex) {
        theObjects[theIndex].Bind("k", &theObjects[theIndex - 1], "k", nullptr, nullptr);
    }
    theObjects[1].SetKeyPathValue("k", LmValue(6UL));
    for (const LmKeyValueBinding& theObject : theObjects) {
        EXPECT_EQ(theObject.GetKeyPathValue("k").GetUInt32(), 6u);
    }
}

TEST_F(HowAChangeTravels, PastObserversThatComeAndGoMeanwhile)
{
    // Goes as soon as it hears of the change to come, and brings another one.
    class Replaced : public Listener
    {
    public:
        Replaced(Lines& theLog, Listener& theSuccessor)
            : Listener("the first", theLog),
              mSuccessor(theSuccessor)
        {
        }

        void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName) override
        {
            Listener::ValueChanging(theStore, theKeyName);
            auto* const theChangingStore = const_cast<LmKeyValueStore*>(theStore);
            theChangingStore->IgnoreKeyPathValue(theKeyName, this);
            theChangingStore->ObserveKeyPathValue(theKeyName, &mSuccessor);
            theChangingStore->SetKeyPathValue("noticed", LmValue(true));
        }

    private:
        Listener& mSuccessor;
    };
    LmKeyValueStore theStore;
    Listener theSecond("the second", mLog);
    Replaced theFirst(mLog, theSecond);
    theStore.ObserveKeyPathValue("volume", &theFirst);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(TakeLog(),
              (Lines{"the first hears that volume is changing", "the second hears that volume changed"}));
    EXPECT_TRUE(theStore.GetKeyPathValue("noticed").GetBoolean());
}

TEST_F(HowAChangeTravels, WhicheverOfStoreAndObserverDiesFirst)
{
    LmKeyValueStore theStore;
    {
        Listener theShortLived("the short-lived", mLog);
        theStore.ObserveKeyPathValue("volume", &theShortLived);
    }
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(TakeLog(), Lines{});

    Listener theListener("the listener", mLog);
    {
        LmKeyValueStore theShortLived;
        theShortLived.ObserveKeyPathValue("volume", &theListener);
    }
    theStore.ObserveKeyPathValue("volume", &theListener);
    theStore.SetKeyPathValue("volume", LmValue(2UL));
    EXPECT_EQ(TakeLog(), (Lines{"the listener hears that volume is changing",
                                "the listener hears that volume changed"}));
}
