// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmNumericalTransforms_h
#define LmNumericalTransforms_h

// Transforms that do arithmetic on a value: absolute value, addition, multiplication and negation.
//
//     // A slider from 0 to 200 shows a volume from 0 to 100, and sets it.
//     theSlider.Bind("value", theModel, "volume", new LmScaleTransform(2.0), new LmScaleTransform(0.5));
//
// Rules for every Apply: the kind of the input decides what is done, and is the kind of the result unless a
// transform says otherwise. A kind that a transform has no arithmetic for prints "Illegal value type: %d",
// and the result is the invalid value. Overflow is not reported: integers wrap round, a double that becomes
// an integer saturates as in LmValue's getters. Points, sizes and rectangles are calculated in 32-bit floats.
//
// The rules differ from class to class on purpose: add, scale and negate leave the origin of a rectangle
// alone, the absolute value leaves the whole rectangle alone.

#include "LmExport.h"
#include "LmValue.h"
#include "LmValueTransform.h"

// The absolute value of signed integers, doubles, and the components of points and sizes. Everything else is
// copied as it is; an unknown kind cannot be copied, which is reported as LmValue does, and gives the invalid
// value.
//
// On purpose: of a signed 64-bit integer only the low 32 bits, read as a signed number, count: -1 gives 1,
// but 5000000000 gives 705032704. The lowest 32-bit number, -2147483648, is its own absolute value.
class LM_EXPORT LmAbsoluteTransform : public LmValueTransform
{
public:
    LmAbsoluteTransform();
    ~LmAbsoluteTransform() override;
    LmValue Apply(const LmValue& theValue) override;
};

// Adds a fixed amount: numbers, addresses, the components of points and sizes, the width and height of
// rectangles (the origin of the amount is ignored). Of booleans it makes the logical and. To a string it
// appends: when one of the two strings is null the result holds the other one itself, when both are it is a
// string value that holds null; without memory for the new string it is invalid. An invalid value and unknown
// kinds are illegal.
//
// The amount is read with the getter of the input's kind: numbers of different kinds can be added, anything
// else prints the getter's assertion. An amount that is no string adds nothing to a string.
class LM_EXPORT LmAddTransform : public LmValueTransform
{
public:
    // Adds theAmount, of which it keeps a copy.
    explicit LmAddTransform(const LmValue& theAmount);
    ~LmAddTransform() override;
    LmValue Apply(const LmValue& theValue) override;

private:
    LmValue mAmount; // a copy
};

// Multiplies numbers, the components of points and sizes, and the width and height of rectangles by a fixed
// factor. The product is a double; it is truncated towards zero for an integer kind. Invalid values,
// booleans, pointers, strings and unknown kinds are illegal.
class LM_EXPORT LmScaleTransform : public LmValueTransform
{
public:
    // Multiplies by theScale.
    explicit LmScaleTransform(double theScale);
    ~LmScaleTransform() override;
    LmValue Apply(const LmValue& theValue) override;

private:
    double mScale; // the factor
};

// Negates numbers, the components of points and sizes, and the width and height of rectangles; of a boolean
// it makes the logical not. Invalid values, pointers, strings and unknown kinds are illegal.
//
// On purpose: an unsigned integer becomes a signed one of the same width. The lowest signed numbers are their
// own negatives.
class LM_EXPORT LmNegateTransform : public LmValueTransform
{
public:
    LmNegateTransform();
    ~LmNegateTransform() override;
    LmValue Apply(const LmValue& theValue) override;
};

#endif
