// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CountedTransforms_h
#define CountedTransforms_h

#include "LmValueTransform.h"

#include <functional>

// Adds a number, counts how many of it there are, and can do something as well while it works.
class AddingTransform : public LmValueTransform
{
public:
    AddingTransform(long theNumber, int& theLiving)
        : mNumber(theNumber),
          mLiving(theLiving)
    {
        mLiving += 1;
    }
    ~AddingTransform() override { mLiving -= 1; }

    LmValue Apply(const LmValue& theValue) override
    {
        LmValue theSum = theValue.IsValid() ? LmValue(theValue.GetSInt32() + mNumber) : LmValue();
        if (mOnApply) {
            mOnApply();
        }
        mApplications += 1;
        return theSum;
    }

    std::function<void()> mOnApply;
    int mApplications = 0;

private:
    const long mNumber;
    int& mLiving;
};

#endif
