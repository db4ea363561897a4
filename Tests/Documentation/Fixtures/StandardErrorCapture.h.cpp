// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "StandardErrorCapture.h"
#include "LmValue.h"

#include <gtest/gtest.h>

TEST(StandardErrorCapture, NamesTheLinesThatATestProvokesAsItsHeaderShows)
{
    // @code 1
}
