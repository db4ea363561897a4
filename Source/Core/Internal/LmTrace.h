// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmTrace_h
#define LmTrace_h

#include "LmDebugObject.h"

#include <new>

// How stores and bindings write to the trace log. Not part of the interface.

// What LmTrace does while tracing is on; a function of its own, so that what is traced stays short.
template <typename Write>
[[gnu::cold, gnu::noinline]] void LmWriteTrace(const Write& theWrite)
{
    try {
        theWrite();
    } catch (const std::bad_alloc&) {
        return;
    }
}

// Writes a line of the trace: calls theWrite, which builds the texts and calls LogString, when tracing is on.
//
// The texts need memory. When there is none the line is lost, and nothing else: tracing never makes a call
// fail that would succeed without it, and lines are written inside destructors too, which cannot fail at all.
template <typename Write>
inline void LmTrace(const Write& theWrite)
{
    if (LmDebugObject::IsLogging()) {
        LmWriteTrace(theWrite);
    }
}

// Writes a line of the trace, and indents what is traced after it while the object lives, on every way out.
//
// The depth belongs to the process, so any object may change it. It is one made for that: the store that a
// pass works for may be destroyed by one of its observers.
//
// On purpose: whether tracing is on is asked anew at the end, so switching it within a pass leaves the depth
// out of step.
class [[nodiscard]] LmTraceIndent
{
public:
    // The line is what theWrite makes of the arguments. They are handed on as they are, so that nothing is
    // put together while tracing is off.
    template <typename... Parameters, typename... Arguments>
    explicit LmTraceIndent(void (*theWrite)(Parameters...), Arguments&&... theArguments)
    {
        if (LmDebugObject::IsLogging()) {
            Begin<Parameters...>(theWrite, theArguments...);
        }
    }

    ~LmTraceIndent()
    {
        if (LmDebugObject::IsLogging()) {
            Change(&LmDebugObject::RemoveIndent);
        }
    }

    LmTraceIndent(const LmTraceIndent&) = delete;
    LmTraceIndent& operator=(const LmTraceIndent&) = delete;

private:
    template <typename... Parameters>
    [[gnu::cold, gnu::noinline]] static void Begin(void (*theWrite)(Parameters...),
                                                   Parameters... theArguments)
    {
        Change(&LmDebugObject::AddIndent);
        LmWriteTrace([&] { theWrite(theArguments...); });
    }

    [[gnu::cold, gnu::noinline]] static void Change(void (LmDebugObject::*theChange)())
    {
        (LmDebugObject().*theChange)();
    }
};

#endif
