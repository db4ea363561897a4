// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmRangeTransform_h
#define LmRangeTransform_h

#include "LmExport.h"
#include "LmValue.h"
#include "LmValueTransform.h"

#include <memory>

// Keeps numbers within a range, and on steps: for a model that must not get what a control can give.
//
//     // The model holds 15, 20, 25 or 30 degrees, whatever the slider's own range is.
//     theSlider->Bind("value", &theModel, "target", NULL, new LmRangeTransform(15, 30, 5));
//
// Each direction of a binding has a transform of its own. As the second one, as above, it limits what goes
// into the model; what the model holds already is shown as it is, and limited with the next change. The
// slider may be left standing at 22 where the model holds 20: see LmSettledControlBinding. As the first one,
// it limits what is shown; and because the model is told at once of what is shown then, a two-way binding
// with it as the first one alone brings the model into the range too.
//
// The kind of the numbers that come out is that of the range, whatever went in: the widest one of the bounds
// and the step, in the order kTypeDouble, kTypeSInt64, kTypeUInt64, kTypeSInt32, kTypeUInt32. So
// LmRangeTransform(15, 30) makes kTypeSInt32, and LmRangeTransform(0, 1, 0.25) doubles. Doubles become the
// nearest integer where the range is one of integers.
//
// Bear in mind that stores compare numbers as integers: where 0.25 is held, 0.5 is not set. Steps smaller
// than 1 are for values that go elsewhere.
class LM_EXPORT LmRangeTransform : public LmValueTransform
{
public:
    // From theMinimum to theMaximum, both included. A bound that is no number, or is NaN, leaves its side
    // open; bounds that stand the wrong way round are exchanged.
    //
    // theStep is counted from theMinimum, or from 0 where that side is open. A step that is no number, not
    // above 0, or NaN is none. Where the maximum is not on a step, the last one before it is the highest
    // number that comes out. With neither bounds nor a step, values pass as they are.
    LmRangeTransform(const LmValue& theMinimum, const LmValue& theMaximum,
                     const LmValue& theStep = LmValue());
    ~LmRangeTransform() override;

    // The number in the range and on a step that is nearest to theValue; of two that are as near, the higher
    // one. NaN counts as 0. What is no number, the invalid value included, passes as it is.
    //
    // On purpose: a control gives its numbers unsigned. Where the range ends below 2147483648, a kTypeUInt32
    // is therefore read as the signed number that the control shows: 4294967291 is -5.
    //
    // Doubles are on a step as nearly as doubles can be, and the maximum is on one where only rounding takes
    // it off: LmRangeTransform(0.0, 0.3, 0.1) makes 0.3. Where the steps cannot be counted, because the
    // number is too large for them, it stays as it is.
    LmValue Apply(const LmValue& theValue) override;

private:
    class LM_HIDDEN Range;
    class LM_HIDDEN IntegerRange;
    class LM_HIDDEN DoubleRange;

    // Null where nothing is limited.
    LM_HIDDEN static std::unique_ptr<const Range>
    MakeRange(const LmValue& theMinimum, const LmValue& theMaximum, const LmValue& theStep);

    const std::unique_ptr<const Range> mRange; // what does the work, or null
};

#endif
