// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmStackLink.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

// @code 1

Watch* Watch::sInnermost = nullptr;

// A watch that reads the list.
class Reader : public Watch
{
public:
    static std::vector<const Watch*> All()
    {
        std::vector<const Watch*> theWatches;
        VisitAll([&](const Watch& theWatch) { theWatches.push_back(&theWatch); });
        return theWatches;
    }
};

} // namespace

TEST(LmStackLink, LinksFromTheInnermostOutwardsAsItsHeaderShows)
{
    const Watch theOuter;
    {
        const Watch theInner;
        const std::vector<const Watch*> theBoth = {&theInner, &theOuter};
        EXPECT_EQ(Reader::All(), theBoth);
    }
    EXPECT_EQ(Reader::All(), std::vector<const Watch*>{&theOuter});
}
