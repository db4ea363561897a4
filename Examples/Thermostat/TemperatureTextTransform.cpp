// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "TemperatureTextTransform.h"

#include <cstdio>

LmValue TemperatureTextTransform::Apply(const LmValue& theValue)
{
    char theText[32];
    std::snprintf(theText, sizeof theText,
                  "%ld \xC2\xB0"
                  "C",
                  theValue.GetSInt32());
    return LmValue(CFStringCreateWithCString(nullptr, theText, kCFStringEncodingUTF8), true);
}
