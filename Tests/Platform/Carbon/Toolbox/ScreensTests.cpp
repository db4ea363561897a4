// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

TEST(Screens, WindowsHaveRoomBelowTheMenuBar)
{
    Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>());
    Rect theBounds;
    EXPECT_EQ(GetAvailableWindowPositioningBounds(GetMainDevice(), &theBounds), noErr);
    EXPECT_EQ(Describe(theBounds), "0, 22, 1024, 768");
    EXPECT_EQ(GetAvailableWindowPositioningBounds(nullptr, &theBounds), noErr);
    EXPECT_EQ(Describe(theBounds), "0, 22, 1024, 768");
}

TEST(Screens, TheMainScreenIsAPictureWithoutMemory)
{
    BitMap theScreen;
    memset(&theScreen, 0xAA, sizeof theScreen);
    EXPECT_EQ(GetQDGlobalsScreenBits(&theScreen), &theScreen);
    EXPECT_EQ(Describe(theScreen.bounds), "0, 0, 1024, 768");
    EXPECT_EQ(theScreen.baseAddr, nullptr);
    EXPECT_EQ(GetQDGlobalsScreenBits(nullptr), nullptr);
}

TEST(Screens, OtherDevicesAreNone)
{
    Rect theBounds = MakeRect(1, 2, 3, 4);
    char theByte = 0;
    EXPECT_EQ(GetAvailableWindowPositioningBounds(reinterpret_cast<GDHandle>(&theByte), &theBounds),
              paramErr);
    EXPECT_EQ(GetAvailableWindowPositioningBounds(GetMainDevice(), nullptr), paramErr);
    EXPECT_EQ(Describe(theBounds), "1, 2, 3, 4");
}
