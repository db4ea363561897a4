// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Value_h
#define Value_h

// A value as a journal has it.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Inspect {

struct Value
{
    enum class Kind : std::uint8_t
    {
        Absent, // the entry has no such value
        Invalid,
        Boolean,
        UInt32,
        SInt32,
        UInt64,
        SInt64,
        Double,
        Pointer,
        String,
        Point,
        Size,
        Rect,
        Unknown
    };

    Kind theKind = Kind::Absent;
    std::uint64_t theInteger = 0; // of the integers and of booleans; a negative one modulo 2^64; of a pointer
    double theDouble = 0;
    std::array<double, 4> theParts = {};
    std::string theText;        // of a string
    bool isNull = false;        // a string value that holds null
    std::uint64_t theBytes = 0; // of a string that was cut: how long it was; else 0

    void Clear();
    bool IsThere() const { return theKind != Kind::Absent; }
    bool IsValid() const { return theKind != Kind::Absent && theKind != Kind::Invalid; }
    bool IsInteger() const { return theKind >= Kind::Boolean && theKind <= Kind::SInt64; }
    bool IsNumber() const { return theKind >= Kind::Boolean && theKind <= Kind::Double; }
    // A number as a double: large integers are rounded.
    double GetDouble() const;
    // How many of theParts are used.
    std::size_t CountParts() const;
};

// Whether both are the same value of the same kind; NaN is the same as NaN.
bool IsSame(const Value& theLeft, const Value& theRight);

// Whether both are numbers that differ. So 20.25 differs from 20, and the boolean true does not differ from
// 1.
bool AreDifferentNumbers(const Value& theLeft, const Value& theRight);

// As a person writes it: 20.5, "Kitchen", (10, 20), null, not valid. A long string is cut at theLimit
// characters.
std::string Show(const Value& theValue, std::size_t theLimit = 60);

// "unsigned 32-bit integer", "double" and so on.
std::string ShowKind(Value::Kind theKind);

} // namespace Inspect

#endif
