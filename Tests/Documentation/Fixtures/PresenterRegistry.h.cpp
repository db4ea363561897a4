// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <cstdlib>
#include <gtest/gtest.h>
#include <Presentation/PresenterRegistry.h>
#include <string>

TEST(PresenterRegistryDeathTest, RefusesAnUnknownPresenterAsItsHeaderShows)
{
    const char* const kShown =
        // @text 1
        ;
    const auto theUse = [] {
        setenv("LM_PRESENTER", "qt", 1);
        Host::PresenterRegistry::Current();
    };
    EXPECT_EXIT(theUse(), testing::ExitedWithCode(1), testing::Eq(kShown));
}
