// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef UnitTextTransform_h
#define UnitTextTransform_h

#include "LmValueTransform.h"

// Turns "is it in Fahrenheit?" into the text that a person reads behind a temperature: "°C" or "°F".
class UnitTextTransform : public LmValueTransform
{
public:
    LmValue Apply(const LmValue& theValue) override;
};

#endif
