// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef NamedBinding_h
#define NamedBinding_h

#include "LmKeyValueBinding.h"

// A binding object that says what it is called, in the trace, in error lines and in journals.
class NamedBinding : public LmKeyValueBinding
{
public:
    explicit NamedBinding(const char* theName)
        : mName(theName)
    {
    }
    LmString GetDebugInfo() const override { return mName; }

private:
    LmString mName;
};

#endif
