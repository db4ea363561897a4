// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmDebugObject_h
#define LmDebugObject_h

// The root of the library's object classes: a printable identity, and one trace log for all of them.
//
// The trace log is off at first. Once SetLogging(true) is called, stores, observers and bindings write one
// line per event on the standard error stream, and what happens inside an event stands indented below it. A
// slider that is bound to a model both ways follows it like this:
//
//     Lm: changing [Model].volume
//     Lm: changed  [Model].volume
//     Lm:     Updating [Slider].value
//     Lm:         changing [Slider].value
//     Lm:         changed  [Slider].value
//     Lm:             Updating [Model].volume
//
// Whoever writes to it asks first, so that building the texts costs nothing while the log is off, and
// brackets the work that a line announces:
//
//     if (IsLogging()) {
//         LogString("refreshing %s", GetDebugInfo().GetUTF8());
//         AddIndent();
//     }
//     Refresh();
//     if (IsLogging()) {
//         RemoveIndent();
//     }
//
// The switch and the depth belong to the process, not to an object; they are plain variables for use on the
// main thread. Errors of the stream are ignored.

#include "LmExport.h"
#include "LmString.h"

#include <cstdint>

class LM_EXPORT LmDebugObject
{
public:
    LmDebugObject() = default;
    virtual ~LmDebugObject();

    // What this object is called in log lines. Here: its address, as "0x0012AB40" (upper-case hexadecimal,
    // at least eight digits). A derived class puts a description around that. It is asked in the midst of
    // what is traced, so it must leave everything as it is: no observation or binding begins or ends in it,
    // and no object is destroyed.
    virtual LmString GetDebugInfo() const;

    // Whether the trace log is on; cheap enough to ask before every line.
    static bool IsLogging() { return (mDebugLog & 1) != 0; }
    static void SetLogging(bool isOn) { mDebugLog = (mDebugLog & ~1U) | (isOn ? 1U : 0U); }

    // Go one level deeper, and back. They count whether or not the log is on, so every AddIndent needs its
    // RemoveIndent.
    //
    // On purpose: RemoveIndent at depth 0 prints the assertion "mIndent >= 1" and wraps the depth round to
    // 4294967295 all the same, so that a balancing AddIndent that comes later still balances it.
    void AddIndent();
    void RemoveIndent();

    // Writes one line when the log is on: "Lm: ", four spaces for each level beyond the first, then the
    // message as printf makes it from theFormat and the arguments after it. Does nothing when the log is off.
    void LogString(const char* theFormat, ...) LM_PRINTF_FORMAT(2, 3);

private:
    friend class LmJournal;

    static std::uint32_t mDebugLog; // 1 while the trace log is on; the other bits are the journal's
    static std::uint32_t mIndent;   // the depth; 0 and 1 both stand at the margin
};

#endif
