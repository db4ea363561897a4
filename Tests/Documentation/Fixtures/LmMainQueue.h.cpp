// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMainQueue.h"
#include "LmKeyValueStore.h"

#include <Carbon/Carbon.h>

#include <gtest/gtest.h>
#include <thread>

namespace {

LmValue FindResult()
{
    return LmValue(42);
}

} // namespace

TEST(LmMainQueue, BringsAResultFromAnotherThreadAsItsHeaderShows)
{
    LmKeyValueStore theModel;
    // @code 1
    theWorker.join();
    RunCurrentEventLoop(kEventDurationNoWait);
    EXPECT_EQ(theModel.GetKeyPathValue("progress").GetSInt32(), 100);
    EXPECT_EQ(theModel.GetKeyPathValue("result").GetSInt32(), 42);
}
