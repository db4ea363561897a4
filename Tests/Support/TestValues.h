// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef TestValues_h
#define TestValues_h

#include "LmValue.h"

// A value of any kind, those outside the enumeration included, which only a derived class can make.
class TestValue : public LmValue
{
public:
    TestValue() = default;

    explicit TestValue(unsigned theType) { LmValue::AllocateValue(static_cast<ValueType>(theType)); }

    using LmValue::AllocateValue;
    using LmValue::InitialiseSelf;
    using LmValue::ReleaseValue;
};

#endif
