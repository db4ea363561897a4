// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"
#include "CountedTransforms.h"
#include "LmKeyValueStore.h"
#include "LmObservation.h"
#include "LmScopedBinding.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <string>

// What controllers do when memory runs out: the first, the second, the third... allocation of a call fails,
// until the call needs no more.

namespace {

// Too long to fit into a string itself, so that each copy of a name needs memory.
const LmString kLongName("a name of more than fifteen bytes");

} // namespace

TEST(ControllersWithoutMemory, ObservationIsMadeWholeOrNotAtAll)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue(kLongName, LmValue(0.5));
    const auto theCaptured = std::make_shared<std::string>("captured");
    const std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
        bool hasThrown = false;
        {
            LmObservation theObservation;
            try {
                theObservation = LmObservation(&theStore, kLongName, [theCaptured](const LmChange&) {});
            } catch (const std::bad_alloc&) {
                hasThrown = true;
            }
            theAttempt.Stop();
            EXPECT_NE(theObservation.IsObserving(), hasThrown);
        }
        EXPECT_EQ(theCaptured.use_count(), 1);
    });
    EXPECT_GT(theFailures, 5U);
}

TEST(ControllersWithoutMemory, ObservationIsThereStillWhenItRanOutInAPass)
{
    LmKeyValueStore theStore;
    int theCalls = 0;
    const LmObservation theObservation(&theStore, kKeyAnyValue, [&](const LmChange&) { theCalls += 1; });
    NotificationRecorder theRecorder;
    theStore.ObserveKeyPathValue(kLongName, &theRecorder);
    theStore.IgnoreKeyPathValue(kLongName, &theRecorder);
    long theNumber = 0;
    FailEachAllocation([&](AllocationFailures& theAttempt) {
        try {
            theStore.SetKeyPathValue(kLongName, LmValue(++theNumber));
        } catch (const std::bad_alloc&) {
        }
        theAttempt.Stop();
        const int theCallsBefore = theCalls;
        theStore.SetKeyPathValue("other", LmValue(theNumber));
        theStore.SetKeyPathValue(kLongName, LmValue(++theNumber));
        EXPECT_EQ(theCalls, theCallsBefore + 1);
    });
}

TEST(ControllersWithoutMemory, ScopedBindingIsMadeWholeOrNotAtAll)
{
    int theLiving = 0;
    LmKeyValueStore theObject;
    LmKeyValueStore theSource;
    theSource.SetKeyPathValue(kLongName, LmValue(1));
    theObject.SetKeyPathValue(kLongName, LmValue(0));
    const std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
        LmScopedBinding theBinding;
        bool hasThrown = false;
        try {
            theBinding =
                LmScopedBinding(&theObject, kLongName, &theSource, kLongName,
                                new AddingTransform(1, theLiving), new AddingTransform(-1, theLiving));
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        theAttempt.Stop();
        EXPECT_NE(theBinding.IsBound(), hasThrown);
        EXPECT_EQ(theLiving, hasThrown ? 0 : 2);
        theSource.SetKeyPathValue(kLongName, LmValue(5));
        EXPECT_EQ(theObject.GetKeyPathValue(kLongName).GetSInt32() == 6, !hasThrown);
        theSource.SetKeyPathValue(kLongName, LmValue(1));
    });
    EXPECT_GT(theFailures, 10U);
    EXPECT_EQ(theLiving, 0);
}

TEST(ControllersWithoutMemory, ScopedBindingIsThereStillWhenItRanOutInAPass)
{
    LmKeyValueStore theObject;
    LmKeyValueStore theSource;
    const LmScopedBinding theBinding =
        LmScopedBinding::Several(&theObject, {kLongName, "short"}, &theSource, "key");
    long theNumber = 0;
    FailEachAllocation([&](AllocationFailures& theAttempt) {
        try {
            theSource.SetKeyPathValue("key", LmValue(++theNumber));
        } catch (const std::bad_alloc&) {
        }
        theAttempt.Stop();
        EXPECT_TRUE(theBinding.IsBound());
        theSource.SetKeyPathValue("key", LmValue(++theNumber));
        EXPECT_EQ(theObject.GetKeyPathValue(kLongName).GetSInt32(), theNumber);
        EXPECT_EQ(theObject.GetKeyPathValue("short").GetSInt32(), theNumber);
    });
}
