// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmEndableObserver.h"

#include "LmKeyValueStore.h"

#include <functional>
#include <gtest/gtest.h>
#include <utility>

namespace {

// Calls a function when it is told, and notes its own death.
class CallingObserver : public LmEndableObserver
{
public:
    CallingObserver(std::function<void()> theFunction, int& theDeaths)
        : mFunction(std::move(theFunction)),
          mDeaths(theDeaths)
    {
    }

    void ValueChanged(const LmKeyValueStore*, const LmString&) override
    {
        const Work theWork(*this);
        mFunction();
        mHasGoneOn = !HasEnded();
    }

    bool HasGoneOn() const { return mHasGoneOn; }

private:
    ~CallingObserver() override { mDeaths += 1; }

    std::function<void()> mFunction;
    int& mDeaths;
    bool mHasGoneOn = false;
};

} // namespace

TEST(LmEndableObserver, DiesAtOnceWhereItDoesNotWork)
{
    LmKeyValueStore theStore;
    int theDeaths = 0;
    CallingObserver* theObserver = new CallingObserver([] {}, theDeaths);
    theStore.ObserveKeyPathValue("key", theObserver);
    theStore.SetKeyPathValue("key", LmValue(1));
    EXPECT_TRUE(theObserver->HasGoneOn());
    theObserver->End();
    EXPECT_EQ(theDeaths, 1);
    theStore.SetKeyPathValue("key", LmValue(2));
}

TEST(LmEndableObserver, OutlivesTheCallsThatAreUnderWayInIt)
{
    LmKeyValueStore theStore;
    int theDeaths = 0;
    int theCalls = 0;
    CallingObserver* theObserver = nullptr;
    theObserver = new CallingObserver(
        [&] {
            theCalls += 1;
            if (theCalls == 1) {
                theStore.SetKeyPathValue("key", LmValue(2));
                EXPECT_EQ(theDeaths, 0) << "the outer call still works in it";
            } else {
                theObserver->End();
            }
            EXPECT_EQ(theDeaths, 0);
        },
        theDeaths);
    theStore.ObserveKeyPathValue("key", theObserver);
    theStore.SetKeyPathValue("key", LmValue(1));
    EXPECT_EQ(theCalls, 2);
    EXPECT_EQ(theDeaths, 1);
}
