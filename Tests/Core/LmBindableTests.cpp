// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindable.h"
#include "NamedObserver.h"

#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

namespace {

// An application's object: notes its changes.
class Room : public LmBindable
{
public:
    explicit Room(Lines& theLog)
        : mLog(theLog)
    {
    }

    void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        EXPECT_EQ(theStore, GetBindings());
        mLog.push_back(std::string("changing ") + theKeyName.GetUTF8());
    }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        EXPECT_EQ(theStore, GetBindings());
        mLog.push_back(std::string("changed ") + theKeyName.GetUTF8() + ": " +
                       DescribeValue(theStore->GetKeyPathValue(theKeyName)));
    }

private:
    Lines& mLog;
};

} // namespace

static_assert(std::is_base_of_v<LmKeyValueObserver, LmBindable>);
static_assert(!std::is_base_of_v<LmKeyValueStore, LmBindable>);
static_assert(!std::is_copy_constructible_v<LmBindable>);

TEST(LmBindable, ObservesTheWildcardOfItsBindingObject)
{
    LmBindable theBindable;
    EXPECT_TRUE(theBindable.GetBindings()->IsObserving("*", &theBindable));
    EXPECT_TRUE(theBindable.AmObserving(theBindable.GetBindings(), "*"));
}

TEST(LmBindable, KeepsOneBindingObjectForLife)
{
    LmBindable theBindable;
    LmKeyValueBinding* const theBindings = theBindable.GetBindings();
    theBindings->SetKeyPathValue("target", LmValue(20UL));
    EXPECT_EQ(theBindable.GetBindings(), theBindings);
    EXPECT_EQ(theBindings->GetKeyPathValue("target").GetUInt32(), 20u);
}

TEST(LmBindable, HearsOfChangesThroughABindingAndFromCode)
{
    Lines theLog;
    Room theRoom(theLog);
    LmKeyValueBinding theSlider;
    theRoom.GetBindings()->SetKeyPathValue("target", LmValue(20UL));
    theSlider.Bind("value", theRoom.GetBindings(), "target", nullptr, nullptr);
    theSlider.SetKeyPathValue("value", LmValue(21UL));
    EXPECT_EQ(theLog, (Lines{"changing target", "changed target: 21"}));
    theLog.clear();
    theRoom.GetBindings()->SetKeyPathValue("target", LmValue(22UL));
    EXPECT_EQ(theLog, (Lines{"changing target", "changed target: 22"}));
    EXPECT_EQ(theSlider.GetKeyPathValue("value").GetUInt32(), 22u);
}

TEST(LmBindable, HearsNothingWhenAKeyKeepsItsValue)
{
    Lines theLog;
    Room theRoom(theLog);
    LmKeyValueObserver theObserver;
    theRoom.GetBindings()->ObserveKeyPathValue("target", &theObserver);
    theRoom.GetBindings()->SetKeyPathValue("target", LmValue(20UL));
    theLog.clear();
    theRoom.GetBindings()->SetKeyPathValue("target", LmValue(20UL));
    EXPECT_EQ(theLog, Lines{});
}

TEST(LmBindable, HearsNothingOfAKeyWithoutAKeyStateOnPurpose)
{
    Lines theLog;
    Room theRoom(theLog);
    theRoom.GetBindings()->SetKeyPathValue("target", LmValue(20UL));
    EXPECT_EQ(theLog, Lines{});
}

TEST(LmBindable, DoesNothingByItselfWhenAKeyChanges)
{
    LmBindable theBindable;
    LmKeyValueObserver theObserver;
    theBindable.GetBindings()->ObserveKeyPathValue("target", &theObserver);
    theBindable.GetBindings()->SetKeyPathValue("target", LmValue(20UL));
    EXPECT_EQ(theBindable.GetBindings()->GetKeyPathValue("target").GetUInt32(), 20u);
}

TEST(LmBindable, OnlyKeepsTheFlagIgnoreChanges)
{
    Lines theLog;
    Room theRoom(theLog);
    LmKeyValueObserver theObserver;
    theRoom.GetBindings()->ObserveKeyPathValue("target", &theObserver);
    EXPECT_FALSE(theRoom.IgnoreChanges());
    theRoom.SetIgnoreChanges(true);
    EXPECT_TRUE(theRoom.IgnoreChanges());
    theRoom.GetBindings()->SetKeyPathValue("target", LmValue(20UL));
    EXPECT_EQ(theLog, (Lines{"changing target", "changed target: 20"})) << "the library does not look at it";
    theRoom.SetIgnoreChanges(false);
    EXPECT_FALSE(theRoom.IgnoreChanges());
}

TEST(LmBindable, IsDescribedByItsAddress)
{
    const LmBindable theBindable;
    EXPECT_EQ(theBindable.GetDebugInfo(), theBindable.LmDebugObject::GetDebugInfo());
}

TEST(LmBindable, TakesItsBindingsWithItWhenItDies)
{
    LmKeyValueBinding theSlider;
    LmKeyValueObserver theObserver;
    auto theBindable = std::make_unique<LmBindable>();
    LmKeyValueBinding* const theBindings = theBindable->GetBindings();
    theSlider.Bind("value", theBindings, "target", nullptr, nullptr);
    theBindings->ObserveKeyPathValue("target", &theObserver);
    theBindable.reset();
    EXPECT_FALSE(theObserver.AmObserving(theBindings, "target"));
    EXPECT_FALSE(theSlider.AmObserving(theBindings, "target"));
    theSlider.SetKeyPathValue("value", LmValue(1UL));
}

TEST(LmBindable, MayDieWhileItIsToldOfAChange)
{
    class Mortal : public LmBindable
    {
    public:
        void ValueChanged(const LmKeyValueStore*, const LmString&) override { delete this; }
    };
    LmKeyValueObserver theObserver;
    auto* const theMortal = new Mortal;
    theMortal->GetBindings()->ObserveKeyPathValue("target", &theObserver);
    theMortal->GetBindings()->SetKeyPathValue("target", LmValue(1UL));
    EXPECT_EQ(StandardErrorCapture::TakeText(), "");
}

TEST(LmBindable, TheTraceOfItsDeathBeginsWithItsBindings)
{
    LmKeyValueBinding theSlider;
    auto theBindable = std::make_unique<LmBindable>();
    theSlider.Bind("value", theBindable->GetBindings(), "target", nullptr, nullptr);
    const std::string theSliderName = theSlider.GetDebugInfo().GetUTF8();
    const std::string theBindingsName = theBindable->GetBindings()->GetDebugInfo().GetUTF8();
    const std::string theStoreName = theBindable->GetBindings()->LmKeyValueStore::GetDebugInfo().GetUTF8();
    const std::string theName = theBindable->GetDebugInfo().GetUTF8();
    LmDebugObject::SetLogging(true);
    theBindable.reset();
    LmDebugObject::SetLogging(false);
    const Lines theExpected = {
        "Lm: Unbinding " + theBindingsName + ".target from " + theSliderName + ".value",
        "Lm: Observer " + theBindingsName + " stopped watching Key 'value' in Store " + theSliderName,
        "Lm:     Unbinding " + theSliderName + ".value from " + theBindingsName + ".target",
        "Lm:     Observer " + theSliderName + " stopped watching Key 'target' in Store " + theBindingsName,
        "Lm: Observer " + theName + " stopped watching Key '*' in Store " + theStoreName};
    EXPECT_EQ(StandardErrorCapture::TakeLines(), theExpected);
}
