// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmStringTransforms_h
#define LmStringTransforms_h

// Transforms between values and their texts, so that a text field can show a number, and a text that a person
// typed or that a preference holds can feed a numeric key:
//
//     theField.Bind("value", theModel, "target", new LmToStringTransform, new LmFromStringTransform);
//
// Numbers are written and read as the C library does in the process's locale, which is "C" unless the program
// has changed it.

#include "LmExport.h"
#include "LmValue.h"
#include "LmValueTransform.h"

// Makes a string of any value.
//
//     true                  true
//     -3L                   -3
//     1.5                   1.500000
//     a pointer             0x12AB40
//     a string              the same string, shared
//     the point (1.5, 2)    (1.5, 2)
//     the size 30 by 40     (30, 40)
//     a rectangle           (1, 2)-(30, 40), origin and size
//     anything else         unknown
//
// The result is always a string value and owns one reference. A null string stays null. Invalid values and
// unknown kinds print "Illegal value type: %d"; a text that there is no memory for is "unknown" without a
// message.
class LM_EXPORT LmToStringTransform : public LmValueTransform
{
public:
    LmToStringTransform();
    ~LmToStringTransform() override;
    LmValue Apply(const LmValue& theValue) override;
};

// Makes a typed value of a string, of the first kind that its text can be read as:
//
//     true, false           a boolean, in capital or small letters
//     an integer            kTypeUInt32; leading white space and a sign are allowed
//     a fraction            a double, if it does not begin with an integer: .5, inf, nan
//     (x, y)                a point
//
// Everything else comes back as the same string, and a value that is not a string comes back as it is. What
// follows the part that can be read is ignored. Prints nothing. Without memory the result is the invalid
// value.
//
// On purpose:
// - Every text that begins like an integer is one, and an unsigned one of 32 bits: -5 gives 4294967291,
//   3.75 gives 3, 0x1F gives 0, a number that is too large gives 4294967295. No text becomes a signed or
//   64-bit integer or a pointer.
// - A text that begins with a pair becomes a point, that of a rectangle included. No text becomes a size or
//   a rectangle.
// - The buffer that numbers are read from has one byte for each UTF-16 unit, so a text with characters
//   beyond ASCII is read without its end.
class LM_EXPORT LmFromStringTransform : public LmValueTransform
{
public:
    LmFromStringTransform();
    ~LmFromStringTransform() override;
    LmValue Apply(const LmValue& theValue) override;
};

#endif
