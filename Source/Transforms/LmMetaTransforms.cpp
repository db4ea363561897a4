// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMetaTransforms.h"

#include "LmDiagnostics.h"

LmListTransform::LmListTransform() = default;

LmListTransform::~LmListTransform()
{
    for (LmValueTransform* theTransform : mTransforms) {
        theTransform->Release();
    }
    mTransforms.clear();
}

void LmListTransform::Add(LmValueTransform* theTransform)
{
    LM_ASSERT(theTransform != NULL);
    if (theTransform == nullptr) {
        return;
    }
    // Appended first: without memory for the entry, no reference has been taken.
    mTransforms.push_back(theTransform);
    theTransform->Retain();
}

LmValue LmListTransform::Apply(const LmValue& theValue)
{
    LmValue theResult = theValue;
    for (LmValueTransform* theTransform : mTransforms) {
        theResult = theTransform->Apply(theResult);
    }
    return theResult;
}
