// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmTrace_h
#define LmTrace_h

#include "LmDebugObject.h"

#include <new>

// How stores and bindings write to the trace log. Not part of the interface.

// Writes a line of the trace: calls theWrite, which builds the texts and calls LogString, when tracing is on.
//
// The texts need memory. When there is none the line is lost, and nothing else: tracing never makes a call
// fail that would succeed without it, and lines are written inside destructors too, which cannot fail at all.
template <typename Write>
void LmTrace(const Write& theWrite)
{
    if (!LmDebugObject::IsLogging()) {
        return;
    }
    try {
        theWrite();
    } catch (const std::bad_alloc&) {
        return;
    }
}

// Indents what is traced while it lives, on every way out.
//
// The depth belongs to the process, so any object may change it. This one derives from LmDebugObject to be
// that object itself: the store that a pass works for may be destroyed by one of its observers.
//
// On purpose: whether tracing is on is asked anew at the end, so switching it within a pass leaves the depth
// out of step.
class LmTraceIndent : private LmDebugObject
{
public:
    LmTraceIndent()
    {
        if (IsLogging()) {
            AddIndent();
        }
    }

    ~LmTraceIndent() override
    {
        if (IsLogging()) {
            RemoveIndent();
        }
    }

    LmTraceIndent(const LmTraceIndent&) = delete;
    LmTraceIndent& operator=(const LmTraceIndent&) = delete;
};

#endif
