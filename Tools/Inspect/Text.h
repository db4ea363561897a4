// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Text_h
#define Text_h

// How things are written for a person. Nothing that comes from a journal reaches a terminal with control
// characters in it.

#include "Entry.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

// Control characters written as \n, \t, \u001b.
std::string Escape(std::string_view theText);

// In quotation marks, escaped, and cut behind theLimit characters.
std::string Quote(std::string_view theText, std::size_t theLimit = 60);

// 0x55d0c2a41b2f
std::string ShowAddress(std::uint64_t theAddress);

// Nanoseconds as seconds: 0.009120 s.
std::string ShowTime(std::uint64_t theTime);

// The object's name, or its class and number where it has none.
std::string ShowObject(const Object& theObject);

// The object's name and the key: radio.volume.
std::string ShowKey(const Object& theObject, std::string_view theKey);

// Those of theNames that are nearest to theName, the nearest first, at most theCount; none that has little to
// do with it.
std::vector<std::string> NearestNames(std::string_view theName, const std::vector<std::string>& theNames,
                                      std::size_t theCount = 3);

// "a", "a or b", "a, b or c".
std::string JoinWithOr(const std::vector<std::string>& theParts);

// "1 change", "2 changes".
std::string Count(std::uint64_t theCount, std::string_view theOne, std::string_view theMany);

} // namespace Inspect

#endif
