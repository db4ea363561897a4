// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmFormatter_h
#define LmFormatter_h

#include "LmExport.h"
#include "LmValue.h"

#include <memory>

// A formatter turns the text that a person has typed into a value, or says what is wrong with it; and a value
// into the text that a person reads.
//
//     class DozenFormatter : public LmIntegerFormatter
//     {
//     public:
//         LmReading Parse(CFStringRef theText) const override
//         {
//             const LmReading theReading = LmIntegerFormatter::Parse(theText);
//             return theReading.IsAccepted() && theReading.theValue.GetSInt32() % 12 != 0
//                        ? LmReading::Refuse("Only whole dozens are sold.")
//                        : theReading;
//         }
//     };
//
// This one reads and writes as the formatter that it is derived from, and refuses more. Where there is none
// that does nearly the same, an application derives its own from LmFormatter, with both functions.
//
// A text field that has one hands it what was typed, and shows what was accepted as the formatter writes it:
// the normal form, "1,200" for "1200 ".
//
// What a formatter keeps:
//
// - Any text is either accepted or refused, the empty one and a hostile one included; nothing is guessed.
//   What stands for nothing is the formatter's to say: the empty text may be accepted as an empty string, or
//   refused because something is needed.
// - What it writes it can read: for each value that it accepts some text for, Parse of what Format writes
//   accepts a value that is equal, with no digit lost.
// - Both answer the same whenever they are asked the same. A formatter does not change once it is made, so
//   any number of fields share one.
// - One kind of values: which one, its class says. Format takes the other kinds of numbers too where the
//   number is one that it can write.
//
// Numbers in stores are compared as integers, so 42.00 and 42.50 as doubles are equal there, and the second
// is not set where the first is. A formatter for decimals therefore gives scaled integers: 4250 of two
// places. See LmValue.

// What a formatter has read in a text: a value, or a problem.
struct LM_EXPORT LmReading
{
    // The text stands for theValue. One that is not valid, as when memory has run out, is refused instead,
    // and nobody knows why.
    [[nodiscard]] static LmReading Accept(const LmValue& theValue);

    // The text stands for nothing. theProblem is a sentence in the reader's language that says what is wrong
    // or what is wanted: "The number must be between 1 and 99." It is copied, is UTF-8, and may be null;
    // without it, or where it is not UTF-8 or cannot be copied, nobody knows why.
    [[nodiscard]] static LmReading Refuse(const char* theProblem);

    // The same with a string, whose reference is taken over with true, and kept by the caller with false.
    [[nodiscard]] static LmReading Refuse(CFStringRef theProblem, bool shouldRelease);

    // Whether the text stands for a value.
    [[nodiscard]] bool IsAccepted() const { return theValue.IsValid(); }

    LmValue theValue;   // what was read; invalid where the text was refused
    LmValue theProblem; // a string that is not null; invalid where the text was accepted, or nobody knows why
};

// The formatter, of which an application derives those that it needs.
class LM_EXPORT LmFormatter
{
public:
    LmFormatter();
    virtual ~LmFormatter();

    LmFormatter(const LmFormatter&) = delete;
    LmFormatter& operator=(const LmFormatter&) = delete;

    // What theText stands for; it is never null, and not retained.
    //
    // May do anything but throw; std::bad_alloc passes through. Main thread only, as Format.
    [[nodiscard]] virtual LmReading Parse(CFStringRef theText) const = 0;

    // theValue as a person reads it, a string value; the empty string for what there is nothing to be shown
    // of. Invalid where theValue is none that this formatter can write, the invalid value included.
    [[nodiscard]] virtual LmValue Format(const LmValue& theValue) const = 0;
};

// A reference to a formatter, which goes with the last of them. Made with
// std::make_shared<DozenFormatter>().
using LmSharedFormatter = std::shared_ptr<const LmFormatter>;

#endif
