// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLifeLine.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace {

void SetLater(LmKeyValueStore& theStore, const LmValue& theValue,
              const std::function<void()>& RunTheEventLoop)
{
    // @code 1
}

} // namespace

TEST(LmLifeLine, TellsWhetherAStoreIsThereLaterAsItsHeaderShows)
{
    auto theStore = std::make_unique<LmKeyValueStore>();
    SetLater(*theStore, LmValue(1), [] {});
    EXPECT_EQ(theStore->GetKeyPathValue("value").GetSInt32(), 1);
    SetLater(*theStore, LmValue(2), [&] { theStore.reset(); });
}
