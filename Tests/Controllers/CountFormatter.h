// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CountFormatter_h
#define CountFormatter_h

#include "LmConveniences.h"
#include "LmFormatter.h"

#include <cstddef>
#include <functional>
#include <string>

// Reads numbers from 0 to 999999, with spaces and commas anywhere, and writes them with a comma before the
// last three digits. Can do something as well while it reads.
class CountFormatter : public LmFormatter
{
public:
    LmReading Parse(CFStringRef theText) const override
    {
        if (mOnParse) {
            const std::function<void()> theFunction = mOnParse; // which may let go of this formatter
            theFunction();
        }
        mReadings += 1;
        long theNumber = 0;
        int theDigits = 0;
        for (const char theCharacter : LmGetStdString(LmValue(theText, false))) {
            if (theCharacter >= '0' && theCharacter <= '9' && theDigits < 6) {
                theNumber = theNumber * 10 + (theCharacter - '0');
                theDigits += 1;
            } else if (theCharacter != ' ' && theCharacter != ',') {
                return LmReading::Refuse("This is no number.");
            }
        }
        return theDigits > 0 ? LmReading::Accept(LmValue(theNumber))
                             : LmReading::Refuse("A number is needed.");
    }

    LmValue Format(const LmValue& theValue) const override
    {
        if (!theValue.IsNumber()) {
            return LmValue();
        }
        std::string theText = std::to_string(theValue.GetSInt32());
        if (theText.size() > 3) {
            theText.insert(theText.size() - 3, ",");
        }
        return LmMakeStringValue(theText);
    }

    std::function<void()> mOnParse;
    mutable int mReadings = 0;
};

#endif
