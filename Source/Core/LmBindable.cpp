// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindable.h"

LmBindable::LmBindable()
    : mIgnoreChanges(false)
{
    mBinding.ObserveKeyPathValue(kKeyAnyValue, this);
}

LmBindable::~LmBindable() = default;
