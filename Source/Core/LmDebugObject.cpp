// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDebugObject.h"

#include "LmDiagnostics.h"

#include <cstdarg>
#include <cstdio>

std::uint32_t LmDebugObject::mDebugLog = 0;
std::uint32_t LmDebugObject::mIndent = 0;

LmDebugObject::~LmDebugObject() = default;

LmString LmDebugObject::GetDebugInfo() const
{
    char theText[32];
    std::snprintf(theText, sizeof theText, "0x%.8lX",
                  static_cast<unsigned long>(reinterpret_cast<std::uintptr_t>(this)));
    return LmString(theText);
}

void LmDebugObject::AddIndent()
{
    mIndent += 1;
}

void LmDebugObject::RemoveIndent()
{
    LM_ASSERT(mIndent >= 1);
    // On purpose: the depth wraps round after the report.
    mIndent -= 1;
}

void LmDebugObject::LogString(const char* theFormat, ...)
{
    if (!IsLogging()) {
        return;
    }
    std::fputs("Lm: ", stderr);
    for (std::uint32_t theLevel = 1; theLevel < mIndent; ++theLevel) {
        std::fputs("    ", stderr);
    }
    va_list theArguments;
    va_start(theArguments, theFormat);
    std::vfprintf(stderr, theFormat, theArguments);
    va_end(theArguments);
    std::fputc('\n', stderr);
}
