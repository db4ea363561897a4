// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"
#include "StandardErrorCapture.h"

TEST(Processes, TheProgramIsTheCurrentAndTheFrontOne)
{
    ProcessSerialNumber theCurrent = {7, 7};
    ProcessSerialNumber theFront = {8, 8};
    Boolean theIsSame = 0;
    EXPECT_EQ(GetCurrentProcess(&theCurrent), noErr);
    EXPECT_EQ(GetFrontProcess(&theFront), noErr);
    EXPECT_EQ(theCurrent.highLongOfPSN, 0u);
    EXPECT_EQ(theCurrent.lowLongOfPSN, UInt32{kCurrentProcess});
    EXPECT_EQ(SameProcess(&theCurrent, &theFront, &theIsSame), noErr);
    EXPECT_TRUE(theIsSame);
    EXPECT_EQ(SetFrontProcess(&theCurrent), noErr);
}

TEST(Processes, OthersAreNotThere)
{
    const ProcessSerialNumber theCurrent = {0, kCurrentProcess};
    const ProcessSerialNumber theOther = {1, kCurrentProcess};
    Boolean theIsSame = 1;
    EXPECT_EQ(SetFrontProcess(&theOther), procNotFound);
    EXPECT_EQ(SameProcess(&theCurrent, &theOther, &theIsSame), noErr);
    EXPECT_FALSE(theIsSame);
}

TEST(Processes, NullIsRefused)
{
    const ProcessSerialNumber theCurrent = {0, kCurrentProcess};
    Boolean theIsSame = 0;
    EXPECT_EQ(GetCurrentProcess(nullptr), paramErr);
    EXPECT_EQ(GetFrontProcess(nullptr), paramErr);
    EXPECT_EQ(SetFrontProcess(nullptr), paramErr);
    EXPECT_EQ(SameProcess(nullptr, &theCurrent, &theIsSame), paramErr);
    EXPECT_EQ(SameProcess(&theCurrent, nullptr, &theIsSame), paramErr);
    EXPECT_EQ(SameProcess(&theCurrent, &theCurrent, nullptr), paramErr);
}

TEST(Processes, ExitToShellEndsTheProgramWithSuccess)
{
    EXPECT_EXIT(ExitToShell(), testing::ExitedWithCode(0), "");
    StandardErrorCapture::TakeText();
}
