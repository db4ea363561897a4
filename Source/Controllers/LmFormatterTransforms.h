// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmFormatterTransforms_h
#define LmFormatterTransforms_h

#include "LmFormatter.h"
#include "LmValueTransform.h"

// A formatter as a pair of transforms, for a binding between a number in a model and a text elsewhere, such
// as the title of a window. A field that a person types into takes the formatter itself: see
// LmTextFieldBinding.

// The value as its text; invalid where the formatter cannot write it. Null for the formatter: always invalid.
class LM_EXPORT LmFormatTransform : public LmValueTransform
{
public:
    // Keeps a reference to the formatter.
    explicit LmFormatTransform(LmSharedFormatter theFormatter);
    ~LmFormatTransform() override;

    // See the class.
    LmValue Apply(const LmValue& theValue) override;

private:
    const LmSharedFormatter mFormatter;
};

// The text as its value; invalid where the formatter refuses it, and for what is no string or a null one.
class LM_EXPORT LmParseTransform : public LmValueTransform
{
public:
    // Keeps a reference to the formatter.
    explicit LmParseTransform(LmSharedFormatter theFormatter);
    ~LmParseTransform() override;

    // See the class.
    LmValue Apply(const LmValue& theValue) override;

private:
    const LmSharedFormatter mFormatter;
};

#endif
