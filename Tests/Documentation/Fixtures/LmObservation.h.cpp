// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmObservation.h"
#include "LmKeyValueStore.h"

#include <gtest/gtest.h>
#include <string>

namespace {

struct Meter
{
    void Move(long theFrom, long theTo) { mMoved += std::to_string(theFrom) + ">" + std::to_string(theTo); }

    std::string mMoved;
};

} // namespace

TEST(LmObservation, MovesAMeterAsItsHeaderShows)
{
    Meter theMeter;
    LmKeyValueStore theModel;
    theModel.SetKeyPathValue("volume", LmValue(40));
    // @code 1
    EXPECT_EQ(theMeter.mMoved, "40>55");
    EXPECT_TRUE(theObservation.IsObserving());
}
