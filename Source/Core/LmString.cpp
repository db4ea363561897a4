// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmString.h"

#include "LmDiagnostics.h"

bool LmString::Split(const LmString& separator, LmString& resultLeft, LmString& resultRight) const
{
    const std::size_t thePosition = mText.find(separator.GetUTF8());
    if (thePosition == std::string::npos) {
        resultLeft = LmString();
        resultRight = LmString();
        return false;
    }
    // Both parts are cut before either result changes: a result may be the separator or this string.
    LmString theLeft(mText.substr(0, thePosition));
    LmString theRight(mText.substr(thePosition + separator.mText.size()));
    resultLeft = std::move(theLeft);
    resultRight = std::move(theRight);
    // On purpose: an empty part is worth a line, but it is a result like any other.
    LM_ASSERT(resultLeft.IsNotEmpty());
    LM_ASSERT(resultRight.IsNotEmpty());
    return true;
}
