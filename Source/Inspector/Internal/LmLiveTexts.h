// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLiveTexts_h
#define LmLiveTexts_h

#include "LmValue.h"

#include <string>

// How values are written for a person, and what a person writes is read. Not part of the interface.

// 20.5, "Kitchen", (10, 20), null, not valid. A long string is cut.
std::string LmShowValue(const LmValue& theValue);

// The same as a person would type it: a string has no quotation marks and is whole.
std::string LmEditedValue(const LmValue& theValue);

// Whether a value of that type can be typed.
bool LmIsEditable(ValueType theType);

// Reads what was typed as a value of that type. False when it is none; theValue is left alone then.
bool LmReadValue(const std::string& theText, ValueType theType, LmValue& theValue);

// "32-bit integer", "string" and so on.
const char* LmTypeName(ValueType theType);

#endif
