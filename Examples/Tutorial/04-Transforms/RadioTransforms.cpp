// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioTransforms.h"

LmValue LoudnessTransform::Apply(const LmValue& theVolume)
{
    const long theNumber = theVolume.GetSInt32();
    return LmValue(theNumber == 0 ? CFSTR("silent") : theNumber < 50 ? CFSTR("quiet") : CFSTR("loud"), false);
}

LmValueTransform* NewPercentTransform()
{
    LmListTransform* theList = new LmListTransform;
    LmValueTransform* theText = new LmToStringTransform;
    LmValueTransform* theSign = new LmAddTransform(LmValue(CFSTR(" %"), false));
    theList->Add(theText);
    theList->Add(theSign);
    theText->Release(); // the list holds them now
    theSign->Release();
    return theList;
}
