// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmString.h"

#include <gtest/gtest.h>

TEST(LmString, IsPutTogetherAndTakenApartAsItsHeaderShows)
{
    // @code 1
    EXPECT_STREQ(theObject.GetUTF8(), "window");
    EXPECT_STREQ(theKey.GetUTF8(), "title");
}
