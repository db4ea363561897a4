// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ExampleWindow.h"

#include <gtest/gtest.h>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>

namespace {

// @code 1

} // namespace

TEST(Presenter, CanBeAsSmallAsItsHeaderShows)
{
    const ExampleWindow theExample;
    LoudPresenter thePresenter;
    testing::internal::CaptureStdout();
    Host::PresenterRegistry::ReplayLooks(thePresenter);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Example\n");
}
