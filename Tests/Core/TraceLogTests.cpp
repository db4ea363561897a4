// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueBinding.h"
#include "LmTrace.h"
#include "NamedObserver.h"

#include <gtest/gtest.h>
#include <memory>

// Whole traces, line by line and with their indentation, of what stores and binding objects do.

namespace {

// The trace is on while this lives. What has been written is compared with names in place of the debug texts,
// the longest of which stand for the objects: "[Binding A]" is what a binding object calls itself, "A.store"
// and "A.observer" are what its bases do while it is created or destroyed.
class Trace
{
public:
    Trace() { LmDebugObject::SetLogging(true); }
    ~Trace() { LmDebugObject::SetLogging(false); }

    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    void Name(const char* theName, const LmKeyValueBinding& theBinding)
    {
        const std::string theStart = theName;
        Replace(theBinding.GetDebugInfo(), "[Binding " + theStart + "]");
        Replace(theBinding.LmKeyValueStore::GetDebugInfo(), theStart + ".store");
        Replace(theBinding.LmKeyValueObserver::GetDebugInfo(), theStart + ".observer");
    }

    void Name(const char* theName, const LmDebugObject& theObject)
    {
        Replace(theObject.GetDebugInfo(), theName);
    }

    // What has been written since the last call.
    Lines Take()
    {
        Lines theLines = StandardErrorCapture::TakeDiagnostics();
        for (std::string& theLine : theLines) {
            for (const auto& theName : mNames) {
                for (size_t thePlace = theLine.find(theName.first); thePlace != std::string::npos;
                     thePlace = theLine.find(theName.first)) {
                    theLine.replace(thePlace, theName.first.size(), theName.second);
                }
            }
        }
        return theLines;
    }

private:
    void Replace(const LmString& theText, const std::string& theName)
    {
        mNames.emplace_back(theText.GetUTF8(), theName);
    }

    std::vector<std::pair<std::string, std::string>> mNames; // debug text and name, in the order to try
};

// A.a and B.b are bound, A.Bind to B; the value is 40. The names of the bases: A.store is at a higher address
// than A.observer in one object.
struct BoundPair
{
    BoundPair()
        : theA(std::make_unique<LmKeyValueBinding>()),
          theB(std::make_unique<LmKeyValueBinding>())
    {
        theB->SetKeyValue("b", LmValue(40UL));
        theA->Bind("a", theB.get(), "b", nullptr, nullptr);
    }

    void Name(Trace& theTrace) const
    {
        theTrace.Name("A", *theA);
        theTrace.Name("B", *theB);
    }

    std::unique_ptr<LmKeyValueBinding> theA;
    std::unique_ptr<LmKeyValueBinding> theB;
};

// An observer with a name of its own.
class Meter : public NamedObserver
{
public:
    using NamedObserver::NamedObserver;
    LmString GetDebugInfo() const override { return "[Meter]"; }
};

} // namespace

TEST(TraceLog, OfRegisteringAndUnregisteringAnObserver)
{
    Lines theLog;
    LmKeyValueStore theStore;
    Meter theMeter("m", theLog);
    Trace theTrace;
    theTrace.Name("Store", theStore);
    theStore.ObserveKeyPathValue("volume", &theMeter);
    theStore.IgnoreKeyPathValue("volume", &theMeter);
    const Lines theExpected = {"Lm: Observer [Meter] started watching Key 'volume' in Store Store",
                               "Lm: Observer [Meter] stopped watching Key 'volume' in Store Store"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfRegisteringTwiceShowsTheReportsBetweenTheLines)
{
    Lines theLog;
    LmKeyValueStore theStore;
    Meter theMeter("m", theLog);
    Trace theTrace;
    theTrace.Name("Store", theStore);
    theStore.ObserveKeyPathValue("volume", &theMeter);
    theStore.ObserveKeyPathValue("volume", &theMeter);
    const Lines theExpected = {
        "Lm: Observer [Meter] started watching Key 'volume' in Store Store",
        "Source/Core/LmKeyValueStore.cpp, line #: !IsObserving(theKeyPath, theObserver)",
        "Lm: Observer [Meter] started watching Key 'volume' in Store Store",
        "Source/Core/LmKeyValueObserver.cpp, line #: !AmObserving(theStore, theKeyPath)"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfUnregisteringWhatIsNotRegisteredShowsTheReportsAroundTheLine)
{
    Lines theLog;
    LmKeyValueStore theStore;
    Meter theMeter("m", theLog);
    Trace theTrace;
    theTrace.Name("Store", theStore);
    theStore.IgnoreKeyPathValue("volume", &theMeter);
    const Lines theExpected = {
        "Source/Core/LmKeyValueStore.cpp, line #: IsObserving(theKeyPath, theObserver)",
        "Lm: Observer [Meter] stopped watching Key 'volume' in Store Store",
        "Source/Core/LmKeyValueObserver.cpp, line #: AmObserving(theStore, theKeyPath)"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfAChangeWithANestedChangeMadeByAnObserver)
{
    Lines theLog;
    LmKeyValueStore theStore;
    Meter theMeter("m", theLog);
    Meter theOther("o", theLog);
    theStore.ObserveKeyPathValue("volume", &theMeter);
    theStore.ObserveKeyPathValue("other", &theOther);
    theMeter.mOnChanged = [&] { theStore.SetKeyPathValue("other", LmValue(1UL)); };
    Trace theTrace;
    theTrace.Name("Store", theStore);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    // The first level stands at the margin.
    const Lines theExpected = {"Lm: changing Store.volume", "Lm: changed  Store.volume",
                               "Lm:     changing Store.other", "Lm:     changed  Store.other"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfAChangeOfAKeyThatNobodyEverObserved)
{
    LmKeyValueStore theStore;
    Trace theTrace;
    theTrace.Name("Store", theStore);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    theStore.SetKeyPathValue("volume", LmValue(2UL));
    // The depth is the same after each pass.
    const Lines theExpected = {"Lm: changing Store.volume", "Lm: changed  Store.volume",
                               "Lm: changing Store.volume", "Lm: changed  Store.volume"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfAChangeOfAWatchedKeyShowsItsDependents)
{
    LmKeyValueStore theStore;
    theStore.SetKeyValue("watched", LmValue(1UL));
    theStore.SetKeyValue("dependent", LmValue(1UL));
    theStore.MakeDependency("watched", "dependent");
    Trace theTrace;
    theTrace.Name("Store", theStore);
    theStore.SetKeyPathValue("watched", LmValue(2UL));
    const Lines theExpected = {"Lm: changing Store.watched", "Lm: changed  Store.watched",
                               "Lm: changed  Store.dependent"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfBindingTwoWays)
{
    LmKeyValueBinding theA;
    LmKeyValueBinding theB;
    theB.SetKeyValue("b", LmValue(40UL));
    Trace theTrace;
    theTrace.Name("A", theA);
    theTrace.Name("B", theB);
    theA.Bind("a", &theB, "b", nullptr, nullptr);
    const Lines theExpected = {"Lm: Binding [Binding A].a to [Binding B].b",
                               "Lm: Binding [Binding B].b to [Binding A].a",
                               "Lm: Observer [Binding B] started watching Key 'a' in Store [Binding A]",
                               "Lm: Observer [Binding A] started watching Key 'b' in Store [Binding B]",
                               "Lm: changing [Binding A].a",
                               "Lm: changed  [Binding A].a",
                               "Lm:     Updating [Binding B].b"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfBindingOneWay)
{
    LmKeyValueBinding theA;
    LmKeyValueBinding theB;
    theB.SetKeyValue("b", LmValue(40UL));
    Trace theTrace;
    theTrace.Name("A", theA);
    theTrace.Name("B", theB);
    theA.BindTo("a", &theB, "b", nullptr);
    theA.Unbind("a", &theB);
    const Lines theExpected = {"Lm: Binding [Binding A].a to [Binding B].b",
                               "Lm: Observer [Binding A] started watching Key 'b' in Store [Binding B]",
                               "Lm: changing [Binding A].a",
                               "Lm: changed  [Binding A].a",
                               "Lm: Unbinding [Binding A].a from [Binding B].b",
                               "Lm: Observer [Binding A] stopped watching Key 'b' in Store [Binding B]",
                               "Source/Core/LmKeyValueBinding.cpp, line #: Error -50"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfAChangeThroughATwoWayBinding)
{
    const BoundPair the;
    Trace theTrace;
    the.Name(theTrace);
    the.theB->SetKeyPathValue("b", LmValue(55UL));
    const Lines theExpected = {
        "Lm: changing [Binding B].b",         "Lm: changed  [Binding B].b",
        "Lm:     Updating [Binding A].a",     "Lm:         changing [Binding A].a",
        "Lm:         changed  [Binding A].a", "Lm:             Updating [Binding B].b"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfUnbindingFromTheSideThatBound)
{
    const BoundPair the;
    Trace theTrace;
    the.Name(theTrace);
    the.theA->Unbind("a", the.theB.get());
    const Lines theExpected = {"Lm: Unbinding [Binding A].a from [Binding B].b",
                               "Lm: Observer [Binding A] stopped watching Key 'b' in Store [Binding B]",
                               "Lm:     Unbinding [Binding B].b from [Binding A].a",
                               "Lm:     Observer [Binding B] stopped watching Key 'a' in Store [Binding A]"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfUnbindingFromTheOtherSide)
{
    const BoundPair the;
    Trace theTrace;
    the.Name(theTrace);
    the.theB->Unbind("b", nullptr);
    const Lines theExpected = {"Lm: Unbinding [Binding B].b from [Binding A].a",
                               "Lm: Observer [Binding B] stopped watching Key 'a' in Store [Binding A]",
                               "Lm:     Unbinding [Binding A].a from [Binding B].b",
                               "Lm:     Observer [Binding A] stopped watching Key 'b' in Store [Binding B]"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfDestroyingTheSideThatBound)
{
    BoundPair the;
    Trace theTrace;
    the.Name(theTrace);
    the.theA.reset();
    const Lines theExpected = {"Lm: Unbinding [Binding A].a from [Binding B].b",
                               "Lm: Observer [Binding A] stopped watching Key 'b' in Store [Binding B]",
                               "Lm:     Unbinding [Binding B].b from [Binding A].a",
                               "Lm:     Observer [Binding B] stopped watching Key 'a' in Store [Binding A]"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfDestroyingTheOtherSide)
{
    BoundPair the;
    Trace theTrace;
    the.Name(theTrace);
    the.theB.reset();
    const Lines theExpected = {"Lm: Unbinding [Binding B].b from [Binding A].a",
                               "Lm: Observer [Binding B] stopped watching Key 'a' in Store [Binding A]",
                               "Lm:     Unbinding [Binding A].a from [Binding B].b",
                               "Lm:     Observer [Binding A] stopped watching Key 'b' in Store [Binding B]"};
    EXPECT_EQ(theTrace.Take(), theExpected);
}

TEST(TraceLog, OfADerivedBindingObjectShowsItsBasesDescriptionOnceItDies)
{
    class Slider : public LmKeyValueBinding
    {
    public:
        LmString GetDebugInfo() const override { return "[Slider]"; }
    };
    LmKeyValueBinding theModel;
    auto theSlider = std::make_unique<Slider>();
    Trace theTrace;
    theTrace.Name("Model", theModel);
    // Made by hand, because the slider has a name of its own.
    const std::string theBase =
        std::string("[LmKeyValueBinding ") + theSlider->LmKeyValueStore::GetDebugInfo().GetUTF8() + "]";
    theSlider->Bind("value", &theModel, "volume", nullptr, nullptr);
    const Lines theBeginning = {
        "Lm: Binding [Slider].value to [Binding Model].volume",
        "Lm: Binding [Binding Model].volume to [Slider].value",
        "Lm: Observer [Binding Model] started watching Key 'value' in Store [Slider]",
        "Lm: Observer [Slider] started watching Key 'volume' in Store [Binding Model]"};
    EXPECT_EQ(theTrace.Take(), theBeginning);

    theSlider.reset();
    const Lines theEnd = {
        "Lm: Unbinding " + theBase + ".value from [Binding Model].volume",
        "Lm: Observer " + theBase + " stopped watching Key 'volume' in Store [Binding Model]",
        "Lm:     Unbinding [Binding Model].volume from " + theBase + ".value",
        "Lm:     Observer [Binding Model] stopped watching Key 'value' in Store " + theBase};
    EXPECT_EQ(theTrace.Take(), theEnd);
}

TEST(TraceLog, OfADyingStoreAndObserverShowsTheirBaseDescriptions)
{
    Lines theLog;
    LmKeyValueBinding theOther;
    auto theBinding = std::make_unique<LmKeyValueBinding>();
    auto theMeter = std::make_unique<Meter>("m", theLog);
    theBinding->ObserveKeyPathValue("k", theMeter.get());
    theBinding->ObserveKeyPathValue("l", theMeter.get());
    theOther.ObserveKeyPathValue("k", theMeter.get());
    theOther.ObserveKeyPathValue("k", theBinding.get());
    Trace theTrace;
    theTrace.Name("A", *theBinding);
    theTrace.Name("Other", theOther);
    const std::string theMetersAddress = theMeter->LmDebugObject::GetDebugInfo().GetUTF8();

    theBinding.reset();
    const Lines theExpected = {"Lm: Observer [Meter] stopped watching Key 'k' in Store A.store",
                               "Lm: Observer [Meter] stopped watching Key 'l' in Store A.store",
                               "Lm: Observer A.observer stopped watching Key 'k' in Store [Binding Other]"};
    EXPECT_EQ(theTrace.Take(), theExpected);

    theMeter.reset();
    EXPECT_EQ(theTrace.Take(), Lines{"Lm: Observer " + theMetersAddress +
                                     " stopped watching Key 'k' in Store [Binding Other]"});
}

TEST(TraceLog, IsSilentWhileItIsOff)
{
    BoundPair the;
    the.theB->SetKeyPathValue("b", LmValue(55UL));
    the.theA.reset();
    EXPECT_EQ(StandardErrorCapture::TakeText(), "");
}

TEST(TraceLog, SwitchedOffWithinAPassLeavesTheDepthOnPurpose)
{
    Lines theLog;
    LmKeyValueStore theStore;
    Meter theMeter("m", theLog);
    theStore.ObserveKeyPathValue("volume", &theMeter);
    theMeter.mOnChanging = [] { LmDebugObject::SetLogging(false); };
    LmDebugObject::SetLogging(true);
    theStore.SetKeyPathValue("volume", LmValue(1UL));
    StandardErrorCapture::TakeText();
    // One level has been left open.
    Trace theTrace;
    theStore.AddIndent();
    theStore.LogString("deeper");
    theStore.RemoveIndent();
    theStore.RemoveIndent();
    EXPECT_EQ(theTrace.Take(), Lines{"Lm:     deeper"});
}

TEST(TraceLog, SwitchedOnWithinAPassTakesALevelThatItDidNotAddOnPurpose)
{
    Lines theLog;
    LmKeyValueStore theStore;
    Meter theMeter("m", theLog);
    theStore.ObserveKeyPathValue("volume", &theMeter);
    theMeter.mOnChanging = [] { LmDebugObject::SetLogging(true); };
    theStore.NotifyObservers("volume", false);
    LmDebugObject::SetLogging(false);
    theStore.AddIndent();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmDebugObject.cpp, line #: mIndent >= 1"});
}
