// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef TemperatureTextTransform_h
#define TemperatureTextTransform_h

#include "LmValueTransform.h"

// Turns a number of degrees into the text that a person reads: 21 gives "21 °C".
class TemperatureTextTransform : public LmValueTransform
{
public:
    LmValue Apply(const LmValue& theValue) override;
};

#endif
