// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmEndableObserver.h"
#include "LmKeyValueStore.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

class FunctionCaller : public LmEndableObserver
{
public:
    explicit FunctionCaller(int& theCalls)
        : mCalls(theCalls)
    {
    }

    // @code 1

    std::function<void()> mFunction;

private:
    int& mCalls;
};

} // namespace

TEST(LmEndableObserver, MayBeEndedWhileItWorksAsItsHeaderShows)
{
    LmKeyValueStore theStore;
    int theCalls = 0;
    FunctionCaller* theObserver = new FunctionCaller(theCalls);
    theStore.ObserveKeyPathValue("key", theObserver);
    theObserver->mFunction = [] {};
    theStore.SetKeyPathValue("key", LmValue(1));
    EXPECT_EQ(theCalls, 1);
    theObserver->mFunction = [=] { theObserver->End(); };
    theStore.SetKeyPathValue("key", LmValue(2));
    EXPECT_EQ(theCalls, 1);
}
