// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Presentation/Presenter.h>

#include "Common/NeverDestroyed.h"

#include <Presentation/PresentedProgram.h>
#include <Presentation/PresenterEvents.h>

namespace Host {

namespace {

constexpr int kMenuBarHeight = 22;

std::string& OwnClipboard()
{
    static NeverDestroyed<std::string> sText;
    return sText.Get();
}

// Bytes of the form 10xxxxxx continue a code point.
int CountCodePoints(const std::string& theText)
{
    int theCount = 0;
    for (const char theByte : theText) {
        theCount += (static_cast<unsigned char>(theByte) & 0xC0u) != 0x80u ? 1 : 0;
    }
    return theCount;
}

} // namespace

Presenter::~Presenter() = default;

PresenterEvents::~PresenterEvents() = default;

PresentedProgram::~PresentedProgram() = default;

bool PresenterEvents::WasTaken() const
{
    return false;
}

bool PresenterEvents::OpenAsked(const std::vector<std::string>&)
{
    return false;
}

bool PresenterEvents::PrintAsked(const std::vector<std::string>&)
{
    return false;
}

bool PresenterEvents::ReopenAsked()
{
    return false;
}

double PresenterEvents::FireTimers()
{
    return -1;
}

bool PresenterEvents::PartPressed(const PartPress&)
{
    return false;
}

bool Presenter::Start(PresenterEvents&)
{
    return true;
}

std::string Presenter::Complaint() const
{
    return {};
}

void Presenter::Stop() {}

std::vector<ScreenLook> Presenter::Screens() const
{
    const PixelRect theBounds{0, 0, 1024, 768};
    PixelRect theAvailable = theBounds;
    theAvailable.theTop = kMenuBarHeight;
    return {{theBounds, theAvailable}};
}

PixelSize Presenter::MeasureText(const std::string& theText, TextStyle theStyle) const
{
    const PixelSize theCell = theStyle == TextStyle::kSmall ? PixelSize{6, 13} : PixelSize{7, 16};
    return {theCell.theWidth * CountCodePoints(theText), theCell.theHeight};
}

int Presenter::ScaleOf(ObjectId) const
{
    return 1;
}

void Presenter::WindowLooks(const WindowLook&) {}

void Presenter::WindowGone(ObjectId) {}

void Presenter::ControlLooks(const ControlLook&) {}

void Presenter::ControlGone(ObjectId) {}

void Presenter::MenuBarLooks(const MenuBarLook&) {}

void Presenter::FocusIsAt(ObjectId, ObjectId) {}

MenuChoice Presenter::RunPopUp(const PopUpLook&)
{
    return {};
}

void Presenter::PointerLooks(const PointerLook&) {}

void Presenter::Beep() {}

std::string Presenter::ClipboardText() const
{
    return OwnClipboard();
}

void Presenter::SetClipboardText(const std::string& theText)
{
    OwnClipboard() = theText;
}

bool Presenter::WaitUntil(double, double)
{
    return false;
}

void Presenter::Wake() {}

} // namespace Host
