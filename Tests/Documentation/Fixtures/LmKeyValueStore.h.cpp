// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueStore.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>

TEST(LmKeyValueStore, NotifiesAsItsHeaderShows)
{
    NotificationRecorder theMeter;
    // @code 1
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetUInt32(), 55UL);
    const Lines theExpected = {"changing volume", "changed volume"};
    EXPECT_EQ(theMeter.Take(), theExpected);
}
