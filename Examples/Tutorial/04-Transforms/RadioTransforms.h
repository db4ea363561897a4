// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RadioTransforms_h
#define RadioTransforms_h

#include "LmBindings.h"

// Makes a word of a volume: "silent", "quiet" or "loud".
class LoudnessTransform : public LmValueTransform
{
public:
    LmValue Apply(const LmValue& theVolume) override;
};

// 40 gives "40 %".
LmValueTransform* NewPercentTransform();

#endif
