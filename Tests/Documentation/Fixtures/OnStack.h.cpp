// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Base/OnStack.h"

#include <gtest/gtest.h>

namespace {

using Host::OnStack;

// @code 1
{};

} // namespace

TEST(OnStack, FindsTheNewestAndThoseAroundItAsItsHeaderShows)
{
    const LoopRun theOuter;
    {
        const LoopRun theInner;
        EXPECT_EQ(LoopRun::Innermost(), &theInner);
        EXPECT_EQ(theInner.Outer(), &theOuter);
    }
    EXPECT_EQ(LoopRun::Innermost(), &theOuter);
}
