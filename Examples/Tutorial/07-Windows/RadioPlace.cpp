// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioPlace.h"

LmWindowBinding* BindRadioPlace(WindowRef theWindow, Radio& theRadio)
{
    LmWindowBinding* theBinding = new LmWindowBinding(theWindow);
    theBinding->BindTo("title", theRadio.GetBindings(), "station",
                       new LmAddTransform(LmValue(CFSTR(" radio"), false)));
    theBinding->Bind("visible", theRadio.GetBindings(), "shown", NULL, NULL);
    return theBinding;
}
