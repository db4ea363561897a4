// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

namespace {

class Ports : public ManagerTest
{
protected:
    ~Ports() override { SetPort(nullptr); }
};

} // namespace

TEST_F(Ports, AWindowHasAPortOfItsOwn)
{
    const CGrafPtr thePort = GetWindowPort(mWindow);
    ASSERT_NE(thePort, nullptr);
    EXPECT_NE(reinterpret_cast<void*>(thePort), reinterpret_cast<void*>(mWindow));
    EXPECT_EQ(GetWindowPort(mWindow), thePort);
    EXPECT_EQ(GetWindowFromPort(thePort), mWindow);
    const WindowRef theOther = NewWindow();
    EXPECT_NE(GetWindowPort(theOther), thePort);
    DisposeWindow(theOther);
}

TEST_F(Ports, TheCurrentPortIsTheOneThatWasSet)
{
    GrafPtr thePort = GetWindowPort(mWindow);
    GetPort(&thePort);
    EXPECT_EQ(thePort, nullptr);
    SetPortWindowPort(mWindow);
    GetPort(&thePort);
    EXPECT_EQ(thePort, GetWindowPort(mWindow));
    SetPort(nullptr);
    GetPort(&thePort);
    EXPECT_EQ(thePort, nullptr);
    GetPort(nullptr);
}

TEST_F(Ports, PlacesInAWindowCountFromItsContent)
{
    SetPortWindowPort(mWindow);
    Point thePoint = {7, 5};
    LocalToGlobal(&thePoint);
    EXPECT_EQ(thePoint.h, 105);
    EXPECT_EQ(thePoint.v, 107);
    GlobalToLocal(&thePoint);
    EXPECT_EQ(thePoint.h, 5);
    EXPECT_EQ(thePoint.v, 7);
    SetPort(nullptr);
    EXPECT_EQ(QDLocalToGlobalPoint(GetWindowPort(mWindow), &thePoint), &thePoint);
    EXPECT_EQ(thePoint.h, 105);
    EXPECT_EQ(QDGlobalToLocalPoint(GetWindowPort(mWindow), &thePoint), &thePoint);
    EXPECT_EQ(thePoint.h, 5);
    LocalToGlobal(&thePoint);
    EXPECT_EQ(thePoint.h, 5) << "the screen's coordinates are global";
}

TEST_F(Ports, APortIsAsLargeAsItsContent)
{
    Rect theBounds;
    EXPECT_EQ(GetPortBounds(GetWindowPort(mWindow), &theBounds), &theBounds);
    EXPECT_EQ(Describe(theBounds), "0, 0, 400, 300");
    GetPortBounds(nullptr, &theBounds);
    EXPECT_EQ(Describe(theBounds), "0, 0, 1024, 768");
    EXPECT_EQ(GetPortBounds(nullptr, nullptr), nullptr);
}

TEST_F(Ports, APortWithoutItsWindowIsTheScreen)
{
    const WindowRef theWindow = NewWindow();
    const CGrafPtr thePort = GetWindowPort(theWindow);
    SetPort(thePort);
    DisposeWindow(theWindow);
    EXPECT_EQ(GetWindowFromPort(thePort), nullptr);
    EXPECT_EQ(GetWindowPort(theWindow), nullptr);
    GrafPtr theCurrent = thePort;
    GetPort(&theCurrent);
    EXPECT_EQ(theCurrent, nullptr);
    Point thePoint = {7, 5};
    LocalToGlobal(&thePoint);
    EXPECT_EQ(thePoint.h, 5);
}

TEST_F(Ports, AWindowIsNoPort)
{
    // What a program gets that casts.
    const auto theFalse = reinterpret_cast<CGrafPtr>(mWindow);
    EXPECT_EQ(GetWindowFromPort(theFalse), nullptr);
    Point thePoint = {7, 5};
    QDLocalToGlobalPoint(theFalse, &thePoint);
    EXPECT_EQ(thePoint.h, 5);
    EXPECT_EQ(GetWindowPort(nullptr), nullptr);
    EXPECT_EQ(QDLocalToGlobalPoint(theFalse, nullptr), nullptr);
}
