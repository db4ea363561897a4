// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmValue.h"

#include "LmDiagnostics.h"
#include "LmNumericConversion.h"

#include <cstdlib>
#include <cstring>

// Geometry is kept, compared and stored in preferences as 32-bit floats.
static_assert(sizeof(CGPoint) == 8 && sizeof(CGSize) == 8 && sizeof(CGRect) == 16,
              "the components of CoreGraphics geometry must be 32 bits wide");

namespace {

// The bytes of the heap block behind a payload; 0 for the kinds that have none.
std::size_t GetBlockSize(ValueType theType)
{
    static constexpr std::uint8_t kSizes[] = {0, 0, 0, 0, 8, 8, 8, 0, 0, 8, 8, 16};
    return theType <= kTypeRect ? kSizes[theType] : 0;
}

bool IsEqualPoint(const CGPoint& theLeft, const CGPoint& theRight)
{
    return theLeft.x == theRight.x && theLeft.y == theRight.y;
}

bool IsEqualSize(const CGSize& theLeft, const CGSize& theRight)
{
    return theLeft.width == theRight.width && theLeft.height == theRight.height;
}

bool IsEqualRect(const CGRect& theLeft, const CGRect& theRight)
{
    return IsEqualPoint(theLeft.origin, theRight.origin) && IsEqualSize(theLeft.size, theRight.size);
}

} // namespace

LmValue::LmValue(unsigned long long theValue)
    : LmValue()
{
    SetUInt64(theValue);
}

LmValue::LmValue(long long theValue)
    : LmValue()
{
    SetSInt64(theValue);
}

LmValue::LmValue(double theValue)
    : LmValue()
{
    SetDouble(theValue);
}

LmValue::LmValue(CFStringRef theString, bool shouldRelease)
    : LmValue()
{
    SetString(theString, shouldRelease);
}

LmValue::LmValue(const CGPoint& thePoint)
    : LmValue()
{
    SetPoint(thePoint);
}

LmValue::LmValue(const CGSize& theSize)
    : LmValue()
{
    SetSize(theSize);
}

LmValue::LmValue(const CGRect& theRect)
    : LmValue()
{
    SetRect(theRect);
}

void LmValue::SetUInt64(unsigned long long theValue)
{
    SetBlock(kTypeUInt64, theValue);
}

void LmValue::SetSInt64(long long theValue)
{
    SetBlock(kTypeSInt64, theValue);
}

void LmValue::SetDouble(double theValue)
{
    SetBlock(kTypeDouble, theValue);
}

void LmValue::SetPoint(const CGPoint& thePoint)
{
    SetBlock(kTypePoint, thePoint);
}

void LmValue::SetSize(const CGSize& theSize)
{
    SetBlock(kTypeSize, theSize);
}

void LmValue::SetRect(const CGRect& theRect)
{
    SetBlock(kTypeRect, theRect);
}

void LmValue::SetString(CFStringRef theString, bool shouldRelease)
{
    const auto theWord = reinterpret_cast<std::uintptr_t>(theString);
    // The value's own string, which the release of the old payload might destroy, stays as it is.
    if (!IsString() || mValue != theWord) {
        AllocateValue(kTypeString);
        mValue = theWord;
        if (theString != nullptr) {
            CFRetain(theString);
        }
    }
    if (shouldRelease && theString != nullptr) {
        CFRelease(theString);
    }
}

const void* LmValue::GetPointer() const
{
    LM_ASSERT(IsPointer());
    return reinterpret_cast<const void*>(mValue);
}

CFStringRef LmValue::GetString() const
{
    LM_ASSERT(IsString());
    return reinterpret_cast<CFStringRef>(mValue);
}

CGPoint LmValue::GetPoint() const
{
    LM_ASSERT(IsPoint());
    return ReadBlock<CGPoint>();
}

CGSize LmValue::GetSize() const
{
    LM_ASSERT(IsSize());
    return ReadBlock<CGSize>();
}

CGRect LmValue::GetRect() const
{
    LM_ASSERT(IsRect());
    return ReadBlock<CGRect>();
}

template <typename T>
T LmValue::GetNumber() const
{
    using LmNumericConversion::Convert;

    LM_ASSERT(IsNumber());
    switch (mType) {
    case kTypeBoolean:
        return Convert<T>(mValue != 0);
    case kTypeUInt32:
        return Convert<T>(static_cast<std::uint32_t>(mValue));
    case kTypeSInt32:
        return Convert<T>(static_cast<std::int32_t>(mValue));
    case kTypeUInt64:
        return Convert<T>(LoadBlock<std::uint64_t>());
    case kTypeSInt64:
        return Convert<T>(LoadBlock<std::int64_t>());
    case kTypeDouble:
        return Convert<T>(LoadBlock<double>());
    default:
        return T();
    }
}

template bool LmValue::GetNumber<bool>() const;
template unsigned long LmValue::GetNumber<unsigned long>() const;
template long LmValue::GetNumber<long>() const;
template unsigned long long LmValue::GetNumber<unsigned long long>() const;
template long long LmValue::GetNumber<long long>() const;
template double LmValue::GetNumber<double>() const;

std::size_t LmValue::GetTypeSize(ValueType theType) const
{
    switch (theType) {
    case kTypeInvalid:
        return 0;
    case kTypeBoolean:
    case kTypeUInt32:
    case kTypeSInt32:
        return 4;
    case kTypePointer:
    case kTypeString:
        return sizeof(void*);
    default:
        break;
    }
    const std::size_t theSize = GetBlockSize(theType);
    if (theSize == 0) {
        LM_ERROR("Unknown type: %d", static_cast<int>(theType));
    }
    return theSize;
}

bool LmValue::AllocateValue(ValueType theType)
{
    LM_ASSERT(theType != kTypeInvalid);
    ReleaseValue();
    if (theType > kTypeRect) {
        // On purpose: the kind is taken all the same; later operations report it again.
        LM_ERROR("Unknown type: %d", static_cast<int>(theType));
    }
    if (const std::size_t theSize = GetBlockSize(theType); theSize != 0) {
        return AllocateBlock(theType, theSize);
    }
    mType = theType;
    return true;
}

bool LmValue::AllocateBlock(ValueType theType, std::size_t theSize)
{
    void* const theBlock = std::malloc(theSize);
    if (theBlock == nullptr) {
        return false;
    }
    mType = theType;
    mValue = reinterpret_cast<std::uintptr_t>(theBlock);
    return true;
}

void LmValue::ReleasePayload()
{
    if (GetBlockSize(mType) != 0) {
        std::free(GetBlock());
    } else if (IsString()) {
        if (mValue != 0) {
            CFRelease(GetString());
        }
    } else {
        LM_ERROR("Unknown type: %d", static_cast<int>(mType));
    }
}

void LmValue::CopyOwnedPayload(const LmValue& theValue)
{
    switch (GetBlockSize(theValue.mType)) {
    case sizeof(double):
        CopyBlock<double>(theValue);
        break;
    case sizeof(CGRect):
        CopyBlock<CGRect>(theValue);
        break;
    default:
        CopyReference(theValue);
        break;
    }
}

// A constant size, because the compiler knows how to copy that.
template <typename Payload>
void LmValue::CopyBlock(const LmValue& theValue)
{
    if (AllocateBlock(theValue.mType, sizeof(Payload))) {
        std::memcpy(GetBlock(), theValue.GetBlock(), sizeof(Payload));
    }
}

void LmValue::CopyReference(const LmValue& theValue)
{
    if (!theValue.IsString()) {
        LM_ERROR("Unknown type: %d", static_cast<int>(theValue.mType));
        return;
    }
    mType = kTypeString;
    mValue = theValue.mValue;
    if (mValue != 0) {
        CFRetain(GetString());
    }
}

// Assigns theValue to a value that has a string, a block or an unknown kind.
void LmValue::ReplaceOwnedPayload(const LmValue& theValue)
{
    if (mType == theValue.mType && this != &theValue) {
        // Of the same kind, so a block is as good as a new one.
        switch (GetBlockSize(mType)) {
        case sizeof(double):
            std::memcpy(GetBlock(), theValue.GetBlock(), sizeof(double));
            return;
        case sizeof(CGRect):
            std::memcpy(GetBlock(), theValue.GetBlock(), sizeof(CGRect));
            return;
        default:
            break;
        }
    }
    ReleaseValue();
    CopyPayload(theValue);
}

bool LmValue::IsEqual(const LmValue& theValue) const
{
    // On purpose: one integer comparison for all kinds, so that 1.5 equals 1.
    if (mType == kTypeDouble && theValue.mType == kTypeDouble) {
        using LmNumericConversion::ToUInt64;
        return ToUInt64(LoadBlock<double>()) == ToUInt64(theValue.LoadBlock<double>());
    }
    if (IsNumber() && theValue.IsNumber()) {
        return GetNumber<unsigned long long>() == theValue.GetNumber<unsigned long long>();
    }
    if (GetType() != theValue.GetType()) {
        return false;
    }
    switch (mType) {
    case kTypeString:
        // On purpose: a null string equals nothing, not even another one.
        return mValue != 0 && theValue.mValue != 0 &&
               CFStringCompare(GetString(), theValue.GetString(), 0) == kCFCompareEqualTo;
    case kTypePoint:
        return IsEqualPoint(GetPoint(), theValue.GetPoint());
    case kTypeSize:
        return IsEqualSize(GetSize(), theValue.GetSize());
    case kTypeRect:
        return IsEqualRect(GetRect(), theValue.GetRect());
    default:
        LM_ERROR("Unknown type: %d", static_cast<int>(mType));
        return false;
    }
}

template <typename Payload>
void LmValue::SetBlock(ValueType theType, const Payload& thePayload)
{
    ReleaseValue();
    if (AllocateBlock(theType, sizeof thePayload)) {
        std::memcpy(GetBlock(), &thePayload, sizeof thePayload);
    }
}

// The block of a kind whose payload is a Payload.
template <typename Payload>
Payload LmValue::LoadBlock() const
{
    Payload thePayload;
    std::memcpy(&thePayload, GetBlock(), sizeof thePayload);
    return thePayload;
}

// All zero where there is no block, or one that is smaller than a Payload.
template <typename Payload>
Payload LmValue::ReadBlock() const
{
    return GetBlockSize(mType) >= sizeof(Payload) ? LoadBlock<Payload>() : Payload();
}
