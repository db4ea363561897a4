// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

#include "HeadlessScreen.h"

TEST(AlertSound, ABeepReachesThePresenterOnce)
{
    HeadlessScreen theScreen;
    SysBeep(30);
    EXPECT_EQ(theScreen->Beeps(), 1);
    SysBeep(-1);
    EXPECT_EQ(theScreen->Beeps(), 2);
}
