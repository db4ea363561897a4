// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

#include <Windows/Windows.h>

namespace {

class HeldTest : public ManagerTest
{
protected:
    ~HeldTest() override
    {
        for (const Host::PointerButton theButton :
             {Host::PointerButton::kPrimary, Host::PointerButton::kSecondary}) {
            Person().PointerReleased(At(0, 0, theButton));
        }
        for (const std::uint32_t theKey : {0u, 36u, 127u, 200u}) {
            Host::KeyAction theAction;
            theAction.theKey = theKey;
            Person().KeyReleased(theAction);
        }
        SetPort(nullptr);
    }

    static Host::PresenterEvents& Person() { return Host::PresenterRegistry::Events(); }

    Host::PointerAction At(int theAcross, int theDown,
                           Host::PointerButton theButton = Host::PointerButton::kPrimary)
    {
        Host::PointerAction theAction;
        theAction.theWindow = Host::IdentifierOf(mWindow);
        theAction.thePlace = {100 + theAcross, 100 + theDown};
        theAction.theButton = theButton;
        return theAction;
    }

    static void PressKey(std::uint32_t theKey)
    {
        Host::KeyAction theAction;
        theAction.theKey = theKey;
        Person().KeyPressed(theAction);
    }
};

using Held = HeldTest;

} // namespace

TEST_F(Held, TheMouseIsWhereItWasSeenLast)
{
    Person().PointerMoved(At(20, 30));
    Point thePlace = {0, 0};
    GetGlobalMouse(&thePlace);
    EXPECT_EQ(thePlace.h, 120);
    EXPECT_EQ(thePlace.v, 130);
}

TEST_F(Held, TheMouseIsToldInTheCurrentPort)
{
    Person().PointerMoved(At(21, 31));
    Point thePlace = {0, 0};
    GetMouse(&thePlace);
    EXPECT_EQ(thePlace.h, 121);
    SetPortWindowPort(mWindow);
    GetMouse(&thePlace);
    EXPECT_EQ(thePlace.h, 21);
    EXPECT_EQ(thePlace.v, 31);
    GetMouse(nullptr);
    GetGlobalMouse(nullptr);
}

TEST_F(Held, ButtonsAreDownFromThePressToTheRelease)
{
    EXPECT_FALSE(Button());
    EXPECT_EQ(GetCurrentButtonState(), 0u);
    Person().PointerPressed(At(390, 290, Host::PointerButton::kSecondary));
    EXPECT_FALSE(Button());
    EXPECT_EQ(GetCurrentButtonState(), 2u);
    Person().PointerPressed(At(390, 290));
    EXPECT_TRUE(Button());
    EXPECT_TRUE(StillDown());
    EXPECT_TRUE(WaitMouseUp());
    EXPECT_EQ(GetCurrentEventButtonState(), 3u);
    Person().PointerReleased(At(390, 290));
    EXPECT_FALSE(StillDown());
    EXPECT_FALSE(WaitMouseUp());
    EXPECT_EQ(GetCurrentEventButtonState(), 2u);
}

TEST_F(Held, AHandlerOfThePressSeesTheButton)
{
    UInt32 theState = 0;
    Watch(mWindow, "window", {{kEventClassMouse, kEventMouseDown}}, [&](EventRef) {
        theState = GetCurrentEventButtonState();
        return OSStatus{eventNotHandledErr};
    });
    Person().PointerPressed(At(390, 290));
    EXPECT_EQ(theState, 1u);
}

namespace {

// A person who lets the button go as soon as somebody looks.
class ReleasingPresenter : public Host::Presenter
{
public:
    bool WaitUntil(double, double) override
    {
        Host::PresenterRegistry::Events().PointerReleased({});
        return true;
    }
};

} // namespace

TEST_F(Held, ALoopAroundStillDownEnds)
{
    Host::PresenterRegistry::Use(std::make_unique<ReleasingPresenter>());
    Person().PointerPressed(At(390, 290));
    EXPECT_EQ(GetCurrentEventButtonState(), 1u);
    while (StillDown()) {
    }
    EXPECT_EQ(GetCurrentEventButtonState(), 0u);
}

TEST_F(Held, KeysAreBitsByTheirPosition)
{
    KeyMap theKeys;
    GetKeys(theKeys);
    for (const UInt32 theBits : theKeys) {
        EXPECT_EQ(theBits, 0u);
    }
    for (const std::uint32_t theKey : {0u, 36u, 127u, 200u}) {
        PressKey(theKey);
    }
    GetKeys(theKeys);
    UInt8 theBytes[sizeof theKeys];
    memcpy(theBytes, theKeys, sizeof theKeys);
    const UInt8 theExpected[sizeof theKeys] = {1, 0, 0, 0, 1 << 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 << 7};
    EXPECT_EQ(memcmp(theBytes, theExpected, sizeof theKeys), 0);
    GetKeys(nullptr);
}
