// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmNumericConversion_h
#define LmNumericConversion_h

// How a number of one type becomes a number of another: the rules of LmValue's numeric getters, for the
// library's own use.
//
// Every input has a result, the same on every processor. The language leaves the conversion of a double that
// does not fit its target undefined, and processors differ, so the limits are tested first. `unsigned long`
// and `long` mean 32 bits here, however wide they are.

#include <cstdint>
#include <limits>
#include <type_traits>

namespace LmNumericConversion {

constexpr double kTwoToThe31 = 2147483648.0;
constexpr double kTwoToThe63 = 9223372036854775808.0;
constexpr double kTwoToThe64 = 18446744073709551616.0;

// Integers and booleans keep their low bits.
template <typename From>
constexpr std::uint32_t ToUInt32(From theValue)
{
    return static_cast<std::uint32_t>(theValue);
}

template <typename From>
constexpr std::int32_t ToSInt32(From theValue)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(theValue));
}

template <typename From>
constexpr std::uint64_t ToUInt64(From theValue)
{
    return static_cast<std::uint64_t>(theValue);
}

template <typename From>
constexpr std::int64_t ToSInt64(From theValue)
{
    return static_cast<std::int64_t>(theValue);
}

template <typename From>
constexpr double ToDouble(From theValue)
{
    return static_cast<double>(theValue);
}

// Truncates towards zero and saturates. On purpose: a NaN gives the lowest number, as the processors that the
// rule was made on do.
constexpr std::int32_t ToSInt32(double theValue)
{
    if (!(theValue >= -kTwoToThe31)) {
        return std::numeric_limits<std::int32_t>::min();
    }
    if (theValue >= kTwoToThe31) {
        return std::numeric_limits<std::int32_t>::max();
    }
    return static_cast<std::int32_t>(theValue);
}

// Two halves: what a signed number holds keeps its bits, a negative number and a NaN included; above it the
// conversion saturates at 4294967295.
constexpr std::uint32_t ToUInt32(double theValue)
{
    if (theValue >= kTwoToThe31) {
        return static_cast<std::uint32_t>(ToSInt32(theValue - kTwoToThe31)) + 0x80000000U;
    }
    return static_cast<std::uint32_t>(ToSInt32(theValue));
}

// Truncates towards zero and saturates; a NaN gives 0.
constexpr std::int64_t ToSInt64(double theValue)
{
    if (theValue >= kTwoToThe63) {
        return std::numeric_limits<std::int64_t>::max();
    }
    if (theValue >= -kTwoToThe63) {
        return static_cast<std::int64_t>(theValue);
    }
    return theValue < 0 ? std::numeric_limits<std::int64_t>::min() : 0;
}

// Two halves, as for 32 bits. On purpose: a negative number keeps the bits of its signed form instead of
// giving 0, because values are compared by this conversion: otherwise all negative doubles would be equal,
// and a key that falls from -1.0 to -2.0 would not have changed.
constexpr std::uint64_t ToUInt64(double theValue)
{
    if (theValue >= kTwoToThe64) {
        return std::numeric_limits<std::uint64_t>::max();
    }
    if (theValue >= kTwoToThe63) {
        return static_cast<std::uint64_t>(theValue);
    }
    return static_cast<std::uint64_t>(ToSInt64(theValue));
}

// The nearest double. A number beyond the signed range is halved with its lowest bit kept, so that it is
// rounded once and correctly, whatever instructions the processor has.
constexpr double ToDouble(std::uint64_t theValue)
{
    if (theValue <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
        return static_cast<double>(static_cast<std::int64_t>(theValue));
    }
    const std::uint64_t theHalf = (theValue >> 1) | (theValue & 1);
    return 2.0 * static_cast<double>(static_cast<std::int64_t>(theHalf));
}

// To one of the six types that LmValue speaks of.
template <typename To, typename From>
constexpr To Convert(From theValue)
{
    if constexpr (std::is_same_v<To, bool>) {
        return theValue != From();
    } else if constexpr (std::is_same_v<To, unsigned long>) {
        return ToUInt32(theValue);
    } else if constexpr (std::is_same_v<To, long>) {
        return ToSInt32(theValue);
    } else if constexpr (std::is_same_v<To, unsigned long long>) {
        return ToUInt64(theValue);
    } else if constexpr (std::is_same_v<To, long long>) {
        return ToSInt64(theValue);
    } else {
        static_assert(std::is_same_v<To, double>, "not a numeric type of LmValue");
        return ToDouble(theValue);
    }
}

} // namespace LmNumericConversion

#endif
