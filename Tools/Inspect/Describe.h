// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Describe_h
#define Describe_h

// What an entry says, in a line of plain English.

#include "Entry.h"

#include <string>

namespace Inspect {

// "radio.volume: 40 -> 55"
std::string Describe(const Entry& theEntry);

// What a person did: "a person pressed the mouse at 120, 40".
std::string DescribeAction(const Entry& theEntry);

// Why a set changed nothing: "20.25 is 20 when numbers are compared as integers".
std::string DescribeEquality(const Entry& theEntry);

} // namespace Inspect

#endif
