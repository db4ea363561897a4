// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLifeWatch.h"
#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

class Announcer : public LmKeyValueStore
{
public:
    void Announce(LmKeyValueObserver* theObserver, bool* theGoesOn)
    {
        const LmString theKeyName = "volume";
        // @code 1
        *theGoesOn = true;
    }
};

class Listener : public LmKeyValueObserver
{
public:
    explicit Listener(std::function<void()> theAction)
        : mAction(std::move(theAction))
    {
    }
    void ValueChanged(const LmKeyValueStore*, const LmString&) override { mAction(); }

private:
    std::function<void()> mAction;
};

} // namespace

TEST(LmLifeWatch, TellsThatAStoreIsGoneAsItsHeaderShows)
{
    Announcer* theAnnouncer = new Announcer;
    bool goesOn = false;
    Listener theGentle([] {});
    theAnnouncer->Announce(&theGentle, &goesOn);
    EXPECT_TRUE(goesOn);

    goesOn = false;
    Listener theDeadly([&] { delete theAnnouncer; });
    theAnnouncer->Announce(&theDeadly, &goesOn);
    EXPECT_FALSE(goesOn);
}
