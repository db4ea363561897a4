// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Events/PersonActions.h"
#include "Windows/Window.h"

using Host::PersonAction;

void AskForTheEnd(const Host::SharedWindow& theWindow);

void AskForTheEnd(const Host::SharedWindow& theWindow)
{
    // @code 1
}
