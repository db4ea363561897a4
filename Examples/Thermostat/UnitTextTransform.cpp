// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "UnitTextTransform.h"

LmValue UnitTextTransform::Apply(const LmValue& theValue)
{
    const char* const theText = theValue.GetBoolean() ? "\u00B0F" : "\u00B0C";
    return LmValue(CFStringCreateWithCString(nullptr, theText, kCFStringEncodingUTF8), true);
}
