// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmFormatterTransforms.h"

#include <utility>

LmFormatTransform::LmFormatTransform(LmSharedFormatter theFormatter)
    : mFormatter(std::move(theFormatter))
{
}

LmFormatTransform::~LmFormatTransform() = default;

LmValue LmFormatTransform::Apply(const LmValue& theValue)
{
    return mFormatter != nullptr ? mFormatter->Format(theValue) : LmValue();
}

LmParseTransform::LmParseTransform(LmSharedFormatter theFormatter)
    : mFormatter(std::move(theFormatter))
{
}

LmParseTransform::~LmParseTransform() = default;

LmValue LmParseTransform::Apply(const LmValue& theValue)
{
    const bool isText = theValue.IsString() && theValue.GetString() != nullptr;
    return mFormatter != nullptr && isText ? mFormatter->Parse(theValue.GetString()).theValue : LmValue();
}
