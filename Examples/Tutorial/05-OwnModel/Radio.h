// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Radio_h
#define Radio_h

#include "LmBindings.h"

// A radio. Its keys are those of GetBindings(): "station", a text; "on", a boolean; "volume", 0 to 100;
// "shown", whether its window is; and "output", what the amplifier gets, which follows from "on" and
// "volume".
class Radio : public LmBindable
{
public:
    Radio();

    // Keeps "output" up to date.
    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKey) override;

    LmValue Get(const char* theKey) { return GetBindings()->GetKeyPathValue(theKey); }
    void Set(const char* theKey, const LmValue& theValue)
    {
        GetBindings()->SetKeyPathValue(theKey, theValue);
    }

private:
    void DeriveOutput();
};

#endif
