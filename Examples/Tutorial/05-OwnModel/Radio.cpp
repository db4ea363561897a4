// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Radio.h"

Radio::Radio()
{
    Set("station", LmValue(CFSTR("Jazz"), false));
    Set("on", LmValue(true));
    Set("volume", LmValue(40L));
    Set("shown", LmValue(true));
    DeriveOutput();
    GetBindings()->MakeDependency("on", "output");
    GetBindings()->MakeDependency("volume", "output");
}

void Radio::ValueChanged(const LmKeyValueStore*, const LmString& theKey)
{
    if (theKey == "on" || theKey == "volume") {
        DeriveOutput();
    }
}

// SetKeyValue stores without telling anybody. The dependencies tell the observers of "output", after those of
// the key that changed.
void Radio::DeriveOutput()
{
    GetBindings()->SetKeyValue("output", Get("on").GetBoolean() ? Get("volume") : LmValue(0L));
}
