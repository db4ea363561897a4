// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

std::vector<double> gShown;

void Show(double theVolume)
{
    gShown.push_back(theVolume);
}

} // namespace

TEST(LmKeyValueObserver, HearsOfChangesAsItsHeaderShows)
{
    gShown.clear();
    LmKeyValueStore theStore;
    // @code 1
    EXPECT_EQ(gShown, std::vector<double>{0.5});
}
