// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmFormatter.h"

LmReading LmReading::Accept(const LmValue& theValue)
{
    return {theValue, LmValue()};
}

LmReading LmReading::Refuse(const char* theProblem)
{
    return Refuse(theProblem != nullptr
                      ? CFStringCreateWithCString(nullptr, theProblem, kCFStringEncodingUTF8)
                      : nullptr,
                  true);
}

LmReading LmReading::Refuse(CFStringRef theProblem, bool shouldRelease)
{
    return {LmValue(), theProblem != nullptr ? LmValue(theProblem, shouldRelease) : LmValue()};
}

LmFormatter::LmFormatter() = default;
LmFormatter::~LmFormatter() = default;
