// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmTrace_h
#define LmTrace_h

#include "LmDebugObject.h"
#include "LmJournal.h"

#include <new>

// How stores and bindings write to the trace log, and to the journal where both have something to say. Not
// part of the interface.

// Writes a line of the trace, while tracing is on.
template <typename Write>
[[gnu::cold, gnu::noinline]] void LmWriteTrace(const Write& theWrite)
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

// Writes a line of the trace, while tracing is on, and the entry of the journal that theMake makes, as LmNote
// writes it. For those who know that something is on.
template <typename Write, typename Make>
[[gnu::cold, gnu::noinline]] void LmWriteTraceAndNote(const Write& theWrite, const Make& theMake)
{
    LmWriteTrace(theWrite);
    LmWriteNote(nullptr, theMake);
}

// Writes a line of the trace: calls theWrite, which builds the texts and calls LogString, when tracing is on.
//
// The texts need memory. When there is none the line is lost, and nothing else: tracing never makes a call
// fail that would succeed without it, and lines are written inside destructors too, which cannot fail at all.
template <typename Write>
inline void LmTrace(const Write& theWrite)
{
    if (LmJournal::IsAnythingOn()) {
        LmWriteTrace(theWrite);
    }
}

// Writes a line of the trace, and indents what is traced after it while the object lives, on every way out.
// What happens meanwhile is caused by the entry of the journal that is written with it.
//
// The depth belongs to the process, so any object may change it. It is one made for that: the store that a
// pass works for may be destroyed by one of its observers.
//
// On purpose: whether tracing is on is asked anew at the end, so switching it within a pass leaves the depth
// out of step.
class [[nodiscard]] LmTraceIndent
{
public:
    // The line is what theWrite makes of the arguments, the entry what theNote writes for the scope that it
    // is given. They are handed on as they are, so that nothing is put together while both are off.
    template <typename... Parameters, typename... Arguments>
    explicit LmTraceIndent(void (*theWrite)(Parameters...), void (*theNote)(const void*, Parameters...),
                           Arguments&&... theArguments)
    {
        if (LmJournal::IsAnythingOn()) {
            Begin<Parameters...>(theWrite, theNote, this, theArguments...);
        }
    }

    ~LmTraceIndent()
    {
        if (LmJournal::IsAnythingOn()) {
            End(this);
        }
    }

    LmTraceIndent(const LmTraceIndent&) = delete;
    LmTraceIndent& operator=(const LmTraceIndent&) = delete;

private:
    template <typename... Parameters>
    [[gnu::cold, gnu::noinline]] static void Begin(void (*theWrite)(Parameters...),
                                                   void (*theNote)(const void*, Parameters...),
                                                   const void* theScope, Parameters... theArguments)
    {
        if (LmDebugObject::IsLogging()) {
            LmDebugObject().AddIndent();
            LmWriteTrace([&] { theWrite(theArguments...); });
        }
        if (LmJournal::IsOn()) {
            theNote(theScope, theArguments...);
        }
    }

    [[gnu::cold, gnu::noinline]] static void End(const void* theScope)
    {
        if (LmDebugObject::IsLogging()) {
            LmDebugObject().RemoveIndent();
        }
        LmJournal::Close(theScope);
    }
};

#endif
