// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Carbon/Carbon.h>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>

void SysBeep(short)
{
    Host::PresenterRegistry::Current().Beep();
}
