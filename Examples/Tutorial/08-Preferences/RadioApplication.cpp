// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioApplication.h"

#include "BindRadioWindow.h"
#include "RadioPlace.h"
#include "RadioWindow.h"

namespace {

OSStatus QuitWithWindow(EventHandlerCallRef, EventRef, void*)
{
    QuitApplicationEventLoop();
    return eventNotHandledErr;
}

void EndWithWindow(WindowRef theWindow)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(QuitWithWindow);
    const EventTypeSpec theClosing = {kEventClassWindow, kEventWindowClosed};
    InstallWindowEventHandler(theWindow, kHandler, 1, &theClosing, nullptr, nullptr);
}

} // namespace

RadioApplication::RadioApplication()
    : mPreferences(CFSTR("org.lmbindings.Radio")),
      mMenu(mRadio),
      mWindow(MakeRadioWindow())
{
    // The preferences come first: the remembered values flow from them to the radio, and from there to the
    // window.
    LmKeyValueBinding* theModel = mRadio.GetBindings();
    theModel->Bind("station", &mPreferences, "station", NULL, NULL);
    theModel->Bind("volume", &mPreferences, "volume", NULL, NULL);
    BindRadioWindow(mWindow, mRadio);
    BindRadioPlace(mWindow, mRadio)->Bind("bounds", &mPreferences, "window place", NULL, NULL);
    EndWithWindow(mWindow);
}

RadioApplication::~RadioApplication()
{
    if (IsValidWindowPtr(mWindow)) {
        DisposeWindow(mWindow);
    }
}
