// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmValue_h
#define LmValue_h

// The one value type of the library: what a key holds, what a binding carries and what a transform maps.
//
// An LmValue is of one of eleven kinds (a boolean, four kinds of integers, a double, a pointer, a CFString, a
// point, a size, a rectangle) or invalid, which stands for no value at all. The six numeric kinds convert
// into each other whenever they are read:
//
//     LmValue theVolume(75L);                        // kTypeSInt32
//     double theFraction = theVolume.GetDouble();    // 75.0
//     bool isLoud = theVolume == LmValue(75.5);      // true: numbers are equal when their integers are
//
//     LmValue theTitle(CFStringCreateWithCString(NULL, "Quiet", kCFStringEncodingUTF8), true);
//     if (theTitle.IsString()) {
//         CFShow(theTitle.GetString());              // still owned by theTitle
//     }
//
// Rules for every operation:
//
// - One thread at a time; nothing is thrown, nothing ever stops the application.
// - A getter called on a value of another kind prints an assertion line on the standard error stream and
//   gives a harmless result. Callers ask for the kind first.
// - Numbers of 64 bits, doubles, points, sizes and rectangles live in a block of their own on the heap. When
//   there is no memory for it, the value is invalid afterwards, without a message: ask IsValid.
// - A kind outside the enumeration can only come from derived classes. It is reported as "Unknown type: %d"
//   wherever it matters.
// - `unsigned long` and `long` stand for 32 bits, as on the systems that Carbon ran on. Where they are wider,
//   the low 32 bits of an argument are kept, and results are in the range of 32 bits.

#include "LmExport.h"

#include <Carbon/Carbon.h>
#include <CoreFoundation/CoreFoundation.h>

#include <cstddef>
#include <cstdint>

// The kind of a value. Kinds 1 to 6 are the numbers. Fixed numbers: they appear in diagnostics.
enum ValueType : std::uint32_t
{
    kTypeInvalid = 0, // no value
    kTypeBoolean = 1, // bool
    kTypeUInt32 = 2,  // unsigned 32-bit integer
    kTypeSInt32 = 3,  // signed 32-bit integer
    kTypeUInt64 = 4,  // unsigned 64-bit integer
    kTypeSInt64 = 5,  // signed 64-bit integer
    kTypeDouble = 6,  // double
    kTypePointer = 7, // an address that the value does not own
    kTypeString = 8,  // a CFString, retained; may be null
    kTypePoint = 9,   // CGPoint
    kTypeSize = 10,   // CGSize
    kTypeRect = 11    // CGRect
};

class LM_EXPORT LmValue
{
public:
    // Each constructor makes a value of the kind that its argument says, as the setter of that kind does.
    //
    // An int, and what the language widens to one, makes kTypeSInt32, and an unsigned int kTypeUInt32: so do
    // SInt32 and UInt32, which are not of the same types everywhere, shorter integers, characters and
    // enumerators. LmValue(0) is a number; a null pointer is LmValue(nullptr).
    //
    // On purpose: a lone pointer of any type, a C string or a CFStringRef included, makes a kTypePointer
    // value. A string value takes two arguments. The compiler warns of the two that are mostly meant
    // otherwise; LmValue(static_cast<const void*>(thePointer)) says that the pointer is meant.
    LmValue() noexcept
        : LmValue(kTypeInvalid, 0)
    {
    }
    LmValue(bool theValue) noexcept
        : LmValue(kTypeBoolean, theValue ? 1 : 0)
    {
    }
    LmValue(unsigned long theValue) noexcept
        : LmValue(kTypeUInt32, static_cast<std::uint32_t>(theValue))
    {
    }
    LmValue(long theValue) noexcept
        : LmValue(kTypeSInt32, static_cast<std::uint32_t>(theValue))
    {
    }
    LmValue(unsigned int theValue) noexcept
        : LmValue(kTypeUInt32, static_cast<std::uint32_t>(theValue))
    {
    }
    LmValue(int theValue) noexcept
        : LmValue(kTypeSInt32, static_cast<std::uint32_t>(theValue))
    {
    }
    LmValue(unsigned long long theValue);
    LmValue(long long theValue);
    LmValue(double theValue);
    LmValue(const void* thePointer) noexcept
        : LmValue(kTypePointer, reinterpret_cast<std::uintptr_t>(thePointer))
    {
    }
    LmValue(std::nullptr_t) noexcept
        : LmValue(kTypePointer, 0)
    {
    }
    [[deprecated("this makes a pointer value; for a text, make a CFString and pass it with true, which gives "
                 "it to the value")]] LmValue(const char* thePointer) noexcept
        : LmValue(static_cast<const void*>(thePointer))
    {
    }
    [[deprecated("this makes a pointer value; for a string value, say whether it takes over the reference: "
                 "LmValue(theString, false)")]] LmValue(CFStringRef thePointer) noexcept
        : LmValue(static_cast<const void*>(thePointer))
    {
    }
    LmValue(CFStringRef theString, bool shouldRelease);
    LmValue(const CGPoint& thePoint);
    LmValue(const CGSize& theSize);
    LmValue(const CGRect& theRect);

    // An independent copy: blocks are copied, a string is shared and retained once more.
    LmValue(const LmValue& theValue)
        : LmValue()
    {
        CopyPayload(theValue);
    }

    // Takes the payload over; theValue is invalid afterwards.
    LmValue(LmValue&& theValue) noexcept
        : LmValue()
    {
        TakePayload(theValue);
    }

    // Releases the string or the block. Virtual, so that an application may derive from the class; nothing
    // else is.
    virtual ~LmValue() { ReleaseValue(); }

    // Replaces the payload by an independent copy of theValue's. The old payload is released first; but the
    // block of a value of the same kind is used again, so that this needs no memory and cannot fail.
    //
    // On purpose: assigning a value to itself leaves it invalid, as if it were read after the release.
    //
    // A kind outside the enumeration is reported, and the value is invalid.
    LmValue& operator=(const LmValue& theValue)
    {
        if (IsPlain(mType)) {
            InitialiseSelf();
            CopyPayload(theValue);
        } else {
            ReplaceOwnedPayload(theValue);
        }
        return *this;
    }

    // The same for a value that is not needed any more: its payload is taken over, it is invalid afterwards.
    LmValue& operator=(LmValue&& theValue) noexcept
    {
        ReleaseValue();
        TakePayload(theValue);
        return *this;
    }

    // Setters. Each releases the old payload, then stores its argument and changes the kind to its own.
    void SetBoolean(bool theValue) { SetWord(kTypeBoolean, theValue ? 1 : 0); }
    void SetUInt32(unsigned long theValue) { SetWord(kTypeUInt32, static_cast<std::uint32_t>(theValue)); }
    void SetSInt32(long theValue) { SetWord(kTypeSInt32, static_cast<std::uint32_t>(theValue)); }
    void SetUInt64(unsigned long long theValue);
    void SetSInt64(long long theValue);
    void SetDouble(double theValue);
    void SetPointer(const void* thePointer)
    {
        SetWord(kTypePointer, reinterpret_cast<std::uintptr_t>(thePointer));
    }
    void SetPoint(const CGPoint& thePoint);
    void SetSize(const CGSize& theSize);
    void SetRect(const CGRect& theRect);

    // Shares theString: it is retained, never copied. Null is accepted and gives a string value that holds
    // null.
    //
    // shouldRelease says what happens to the caller's own reference. With true the value takes it over: the
    // caller passes a string that it created or copied, and forgets it. With false the caller keeps it.
    void SetString(CFStringRef theString, bool shouldRelease);

    // The kind, and questions about it.
    ValueType GetType() const { return mType; }
    bool IsValid() const { return GetType() != kTypeInvalid; }
    bool IsNumber() const { return mType >= kTypeBoolean && mType <= kTypeDouble; }
    bool IsBoolean() const { return mType == kTypeBoolean; }
    bool IsPointer() const { return mType == kTypePointer; }
    bool IsString() const { return mType == kTypeString; }
    bool IsPoint() const { return mType == kTypePoint; }
    bool IsSize() const { return mType == kTypeSize; }
    bool IsRect() const { return mType == kTypeRect; }

    // The pointer, or the string. The string is not retained for the caller: it lives as long as the value
    // holds it. On a value of another kind each prints its assertion ("IsPointer()", "IsString()") and gives
    // the bits that the value holds in place of a pointer, null for an invalid value; they must not be used.
    const void* GetPointer() const;
    CFStringRef GetString() const;

    // A copy of the point, size or rectangle. On a value of another kind each prints its assertion
    // ("IsPoint()", "IsSize()", "IsRect()") and gives the first bytes of the block that the value has; all
    // components are zero where it has no block, or one too small.
    CGPoint GetPoint() const;
    CGSize GetSize() const;
    CGRect GetRect() const;

    // The number, converted to the type asked for. A value that is not a number prints the assertion
    // "IsNumber()" and gives false or zero. Overflow and loss of precision are not reported:
    //
    // - A boolean is 1 or 0. A number is true when it is not zero; a NaN is true.
    // - An integer that is too wide keeps its low bits; a change of sign keeps the bits.
    // - A double is truncated towards zero and saturates at the limits of the result. As a signed 32-bit
    //   number, a NaN gives -2147483648. As an unsigned integer, a negative double is truncated as a signed
    //   number of that width and keeps its bits: -1.5 gives 4294967295 or 18446744073709551615, so that it
    //   stays equal to the integer -1. As a 64-bit number, a NaN gives 0.
    // - An integer becomes the nearest double.
    //
    // The template exists for exactly the six types of the named getters.
    template <typename T>
    T GetNumber() const;

    // The getters of the six types by name.
    double GetDouble() const { return GetNumber<double>(); }
    bool GetBoolean() const { return GetNumber<bool>(); }
    unsigned long GetUInt32() const { return GetNumber<unsigned long>(); }
    long GetSInt32() const { return GetNumber<long>(); }
    unsigned long long GetUInt64() const { return GetNumber<unsigned long long>(); }
    long long GetSInt64() const { return GetNumber<long long>(); }

    // How many bytes a payload of theType takes: 4 for a boolean and the 32-bit integers, 8 for the 64-bit
    // ones, the double, the point and the size, 16 for the rectangle, the width of a pointer for pointer and
    // string, 0 for the invalid kind. A kind outside the enumeration is reported and gives 0.
    std::size_t GetTypeSize(ValueType theType) const;

    // Whether two values are equal. The opposite, operator!=, is in LmConveniences.h.
    //
    // - Two invalid values are equal. Values of different kinds are not, unless both are numbers.
    // - On purpose: numbers are compared as unsigned 64-bit integers, whatever their kinds, so that keys of
    //   different kinds settle when bound: 1.5 equals 1 and true, and -1L equals 0xFFFFFFFFFFFFFFFFULL.
    // - Pointers are equal when they are the same address.
    // - Strings are equal when CFStringCompare without options says so. On purpose: a null string equals
    //   nothing, not even another null string.
    // - Points, sizes and rectangles are equal when all their components are; a NaN equals nothing.
    // - Two values of the same kind outside the enumeration are reported and not equal.
    bool operator==(const LmValue& theValue) const
    {
        // A payload without a string or a block is its word: the same kind and the same word, the same value.
        return mType == theValue.mType && IsPlain(mType) ? mValue == theValue.mValue : IsEqual(theValue);
    }

protected:
    // For derived classes; an application has no use for them.

    // Makes the value invalid without releasing anything.
    void InitialiseSelf()
    {
        mType = kTypeInvalid;
        mValue = 0;
    }

    // Releases the payload and takes the kind theType, with a new block where the kind has one; its contents
    // and the word of the other kinds are for the caller to store. False when there is no memory for the
    // block: then the value is invalid. Prints the assertion "theType != kTypeInvalid" for that kind.
    //
    // On purpose: a kind outside the enumeration is reported, but taken.
    bool AllocateValue(ValueType theType);

    // Releases the string or the block and makes the value invalid. A kind outside the enumeration is
    // reported.
    void ReleaseValue()
    {
        if (!IsPlain(mType)) {
            ReleasePayload();
        }
        InitialiseSelf();
    }

private:
    LmValue(ValueType theType, std::uintptr_t theWord) noexcept
        : mType(theType),
          mValue(theWord)
    {
    }

    // Whether a payload of theType is just a word, with nothing behind it to copy or to release.
    static bool IsPlain(ValueType theType) { return theType <= kTypeSInt32 || theType == kTypePointer; }

    void SetWord(ValueType theType, std::uintptr_t theWord)
    {
        ReleaseValue();
        mType = theType;
        mValue = theWord;
    }

    // The rest expect this value to be invalid.
    LM_HIDDEN bool AllocateBlock(ValueType theType, std::size_t theSize);
    void CopyPayload(const LmValue& theValue)
    {
        if (IsPlain(theValue.mType)) {
            mType = theValue.mType;
            mValue = theValue.mValue;
        } else {
            CopyOwnedPayload(theValue);
        }
    }

    void TakePayload(LmValue& theValue) noexcept
    {
        mType = theValue.mType;
        mValue = theValue.mValue;
        theValue.InitialiseSelf();
    }

    void CopyOwnedPayload(const LmValue& theValue);
    void ReplaceOwnedPayload(const LmValue& theValue);
    template <typename Payload>
    LM_HIDDEN void CopyBlock(const LmValue& theValue);
    LM_HIDDEN void CopyReference(const LmValue& theValue);
    void ReleasePayload();
    bool IsEqual(const LmValue& theValue) const;
    void* GetBlock() const { return reinterpret_cast<void*>(mValue); }
    template <typename Payload>
    LM_HIDDEN void SetBlock(ValueType theType, const Payload& thePayload);
    template <typename Payload>
    LM_HIDDEN Payload LoadBlock() const;
    template <typename Payload>
    LM_HIDDEN Payload ReadBlock() const;

    ValueType mType;       // the kind
    std::uintptr_t mValue; // the value itself, the string, or the address of the block; 0 when invalid
};

extern template LM_EXPORT bool LmValue::GetNumber<bool>() const;
extern template LM_EXPORT unsigned long LmValue::GetNumber<unsigned long>() const;
extern template LM_EXPORT long LmValue::GetNumber<long>() const;
extern template LM_EXPORT unsigned long long LmValue::GetNumber<unsigned long long>() const;
extern template LM_EXPORT long long LmValue::GetNumber<long long>() const;
extern template LM_EXPORT double LmValue::GetNumber<double>() const;

#endif
