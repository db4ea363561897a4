// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ReferenceValue_h
#define ReferenceValue_h

// What values and transforms do, as it is documented; see ReferenceModel.h.

#include "System.h"

#include <functional>

namespace Model {

// Where reports go: the name of the source that reports, and the message.
using Reporter = std::function<void(const char* theSource, const std::string& theMessage)>;

bool ValuesAreEqual(const Value& theLeft, const Value& theRight);

// The value as a number of theKind.
Value ConvertValue(const Value& theValue, Kind theKind, const Reporter& theReporter);

Value ApplyStep(const Step& theStep, const Value& theValue, const Reporter& theReporter);

} // namespace Model

#endif
