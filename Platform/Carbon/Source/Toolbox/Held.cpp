// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Held.h"

#include "Base/Geometry.h"
#include "Common/NeverDestroyed.h"
#include "Cursors.h"
#include "System/Clock.h"

#include <Carbon/Carbon.h>
#include <cstring>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

Held& TheHeld()
{
    static NeverDestroyed<Held> sHeld;
    return sHeld.Get();
}

// What is held down can be let go, if the person can be heard.
std::uint32_t ButtonsNow()
{
    if (TheHeld().theButtons != 0 && !CurrentClock().StandsStill()) {
        const double theNow = CurrentClock().Now();
        PresenterRegistry::Current().WaitUntil(theNow, theNow);
    }
    return TheHeld().theButtons;
}

constexpr std::uint32_t kPrimaryButton = 1;
constexpr std::uint32_t kKeys = sizeof(KeyMap) * 8;

} // namespace

void SetHeld(const Held& theHeld)
{
    const bool theHasMoved = theHeld.thePlace != TheHeld().thePlace;
    TheHeld() = theHeld;
    if (theHasMoved) {
        ShowObscuredPointer();
    }
}

} // namespace Host

using namespace Host;

void GetGlobalMouse(Point* globalMouse)
{
    if (globalMouse != nullptr) {
        *globalMouse = MakePoint(TheHeld().thePlace.theX, TheHeld().thePlace.theY);
    }
}

void GetMouse(Point* mouseLoc)
{
    GetGlobalMouse(mouseLoc);
    GlobalToLocal(mouseLoc);
}

Boolean Button(void)
{
    return (ButtonsNow() & kPrimaryButton) != 0;
}

Boolean StillDown(void)
{
    return Button();
}

Boolean WaitMouseUp(void)
{
    return Button();
}

UInt32 GetCurrentButtonState(void)
{
    return ButtonsNow();
}

UInt32 GetCurrentEventButtonState(void)
{
    return TheHeld().theButtons;
}

void GetKeys(KeyMap theKeys)
{
    if (theKeys == nullptr) {
        return;
    }
    unsigned char theBytes[sizeof(KeyMap)] = {};
    for (const std::uint32_t theKey : TheHeld().theKeys) {
        if (theKey < kKeys) {
            theBytes[theKey / 8] |= static_cast<unsigned char>(1u << theKey % 8);
        }
    }
    std::memcpy(theKeys, theBytes, sizeof theBytes);
}
