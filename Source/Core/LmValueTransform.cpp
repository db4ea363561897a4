// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmValueTransform.h"

#include "LmDiagnostics.h"

LmValueTransform::LmValueTransform()
    : mRefCount(1)
{
}

LmValueTransform::~LmValueTransform()
{
    LM_ASSERT(mRefCount == 0);
}

void LmValueTransform::Retain()
{
    mRefCount += 1;
    LM_ASSERT(mRefCount != 0);
}

void LmValueTransform::Release()
{
    LM_ASSERT(mRefCount >= 1);
    // On purpose: a count of 0 wraps round after the report, and nothing is deleted.
    mRefCount -= 1;
    if (mRefCount == 0) {
        delete this;
    }
}
