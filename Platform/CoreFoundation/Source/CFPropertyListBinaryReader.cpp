// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The binary form ends in a trailer that tells where a table is; the table tells where the objects are; and
// containers refer to their elements by their index in the table. All numbers are big-endian. An object may
// be referred to often, and nothing in the form keeps a container from containing itself.

#include "CFCalendar.h"
#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"
#include "CFStringObject.h"

#include <algorithm>
#include <CoreFoundation/CFDate.h>
#include <CoreFoundation/CFNumber.h>
#include <cstring>

namespace {

using Host::Holder;
using Host::MalformedPropertyList;

using ObjectHolder = Holder<CFPropertyListRef>;

constexpr std::string_view kMagic = "bplist";
constexpr size_t kHeaderSize = 8; // the magic word and two digits, of which the first is 0
constexpr size_t kTrailerSize = 32;

// What an object without content takes in memory, about.
constexpr UInt64 kObjectSize = 64;

// References to one object cost the data little, but whoever copies or writes the list pays for each. So an
// object counts as often as it is referred to, and the data may grow to so many times its size, or, when it
// is small, to so many bytes.
constexpr UInt64 kLargestGrowth = 64;
constexpr UInt64 kLargestSmallSize = UInt64{1} << 26;

[[noreturn]] void Refuse(const char* theReason)
{
    throw MalformedPropertyList(theReason);
}

void Require(bool theCondition, const char* theReason = "the binary form is damaged")
{
    if (!theCondition) {
        Refuse(theReason);
    }
}

// A floating-point number from its bits.
template <class Real, class Bits>
Real RealFromBits(Bits theBits)
{
    static_assert(sizeof(Real) == sizeof(Bits));
    Real theReal = 0;
    std::memcpy(&theReal, &theBits, sizeof theReal);
    return theReal;
}

class Reader
{
public:
    explicit Reader(std::string_view theData)
        : mData(theData)
    {
    }

    ObjectHolder Read()
    {
        Require(mData.size() >= kHeaderSize + kTrailerSize && mData[kMagic.size()] == '0');
        ReadTrailer();
        return ObjectHolder(CFRetain(ReadObject(mTopObject, 0).theObject.Get()));
    }

private:
    // An object that was read, or is being read as long as it is null.
    struct Entry
    {
        ObjectHolder theObject{nullptr};
        UInt64 theSize = 0; // with everything it contains
        int theHeight = 1;  // how many levels it has, itself included
        bool theIsStarted = false;
    };

    // Where an object's content is, and how much: bytes, units or elements.
    struct Content
    {
        UInt64 theStart;
        UInt64 theCount;
    };

    void ReadTrailer()
    {
        const UInt64 theTrailer = mData.size() - kTrailerSize;
        mOffsetSize = ReadNumber(theTrailer + 6, 1);
        mReferenceSize = ReadNumber(theTrailer + 7, 1);
        const UInt64 theObjectCount = ReadNumber(theTrailer + 8, 8);
        mTopObject = ReadNumber(theTrailer + 16, 8);
        mTable = ReadNumber(theTrailer + 24, 8);
        Require(mOffsetSize >= 1 && mOffsetSize <= 8 && mReferenceSize >= 1 && mReferenceSize <= 8);
        Require(mTable >= kHeaderSize && mTable <= theTrailer &&
                theObjectCount <= (theTrailer - mTable) / mOffsetSize);
        mEntries.resize(static_cast<size_t>(theObjectCount));
    }

    // Objects lie between the header and the table.
    void RequireInside(UInt64 theStart, UInt64 theLength) const
    {
        Require(theStart >= kHeaderSize && theStart <= mTable && theLength <= mTable - theStart);
    }

    UInt64 ReadNumber(UInt64 theStart, UInt64 theSize) const
    {
        UInt64 theNumber = 0;
        for (const char theByte : mData.substr(static_cast<size_t>(theStart), static_cast<size_t>(theSize))) {
            theNumber = theNumber << 8 | static_cast<unsigned char>(theByte);
        }
        return theNumber;
    }

    const Entry& ReadObject(UInt64 theIndex, int theDepth)
    {
        Require(theIndex < mEntries.size());
        Entry& theEntry = mEntries[static_cast<size_t>(theIndex)];
        if (theEntry.theObject.Get() == nullptr) {
            Require(!theEntry.theIsStarted, "a container contains itself");
            Require(theDepth < Host::kDeepestNesting, Host::kTooDeep);
            theEntry.theIsStarted = true;
            theEntry.theSize = kObjectSize;
            ObjectHolder theObject =
                ReadAt(ReadNumber(mTable + theIndex * mOffsetSize, mOffsetSize), theEntry, theDepth);
            theEntry.theObject.Swap(theObject);
        }
        Require(theDepth + theEntry.theHeight <= Host::kDeepestNesting, Host::kTooDeep);
        return theEntry;
    }

    ObjectHolder ReadAt(UInt64 theStart, Entry& theEntry, int theDepth)
    {
        RequireInside(theStart, 1);
        const unsigned theMarker = static_cast<unsigned>(ReadNumber(theStart, 1));
        switch (theMarker >> 4) {
        case 0x0:
            return ReadBoolean(theMarker);
        case 0x1:
            return ReadInteger(theStart, theMarker);
        case 0x2:
            return ReadReal(theStart, theMarker);
        case 0x3:
            return ReadDate(theStart, theMarker);
        case 0xA:
            return ReadArray(ReadContent(theStart, theMarker), theEntry, theDepth);
        case 0xD:
            return ReadDictionary(ReadContent(theStart, theMarker), theEntry, theDepth);
        default:
            return ReadBytes(theMarker >> 4, ReadContent(theStart, theMarker), theEntry);
        }
    }

    // Leaves

    static ObjectHolder ReadBoolean(unsigned theMarker)
    {
        Require(theMarker == 0x08 || theMarker == 0x09, "there is an unknown object");
        return ObjectHolder(theMarker == 0x09 ? kCFBooleanTrue : kCFBooleanFalse);
    }

    // The lower half of the marker is the logarithm of the size.
    UInt64 ReadSized(UInt64 theStart, unsigned theMarker, unsigned theLargest) const
    {
        Require((theMarker & 0xF) <= theLargest);
        const UInt64 theSize = UInt64{1} << (theMarker & 0xF);
        RequireInside(theStart + 1, theSize);
        return ReadNumber(theStart + 1, theSize);
    }

    // Eight bytes have a sign, fewer have none. On purpose: sixteen bytes, which hold what is too large for
    // eight with a sign, wrap around, because there is no type for it.
    ObjectHolder ReadInteger(UInt64 theStart, unsigned theMarker) const
    {
        const SInt64 theValue = static_cast<SInt64>(ReadSized(theStart, theMarker, 4));
        if ((theMarker & 0xF) == 4) {
            const UInt64 theUpperHalf = ReadNumber(theStart + 1, 8);
            Require(theUpperHalf == 0 || (theUpperHalf == ~UInt64{0} && theValue < 0),
                    "an integer is too large");
        }
        return Host::RequireMemory<CFPropertyListRef>(Host::MakeReadInteger(theValue));
    }

    ObjectHolder ReadReal(UInt64 theStart, unsigned theMarker) const
    {
        const UInt64 theBits = ReadSized(theStart, theMarker, 3);
        Require((theMarker & 0xF) >= 2);
        if ((theMarker & 0xF) == 2) {
            const Float32 theShort = RealFromBits<Float32>(static_cast<uint32_t>(theBits));
            return Host::RequireMemory<CFPropertyListRef>(
                CFNumberCreate(nullptr, kCFNumberFloat32Type, &theShort));
        }
        const Float64 theValue = RealFromBits<Float64>(theBits);
        return Host::RequireMemory<CFPropertyListRef>(
            CFNumberCreate(nullptr, kCFNumberFloat64Type, &theValue));
    }

    // One that has no text could be read, but not be written again.
    ObjectHolder ReadDate(UInt64 theStart, unsigned theMarker) const
    {
        Require((theMarker & 0xF) == 3);
        const CFAbsoluteTime theTime = RealFromBits<CFAbsoluteTime>(ReadSized(theStart, theMarker, 3));
        Require(Host::DateText(theTime).has_value(), Host::kDateWithoutText);
        return Host::RequireMemory<CFPropertyListRef>(CFDateCreate(nullptr, theTime));
    }

    ObjectHolder ReadBytes(unsigned theKind, const Content& theContent, Entry& theEntry) const
    {
        const bool theIsWide = theKind == 0x6;
        Require(theKind == 0x4 || theKind == 0x5 || theIsWide, "there is an unknown object");
        RequireElements(theContent, theIsWide ? 2 : 1);
        const UInt64 theLength = theIsWide ? 2 * theContent.theCount : theContent.theCount;
        theEntry.theSize += theLength;
        const std::string_view theBytes =
            mData.substr(static_cast<size_t>(theContent.theStart), static_cast<size_t>(theLength));
        if (theKind == 0x4) {
            return Host::RequireMemory<CFPropertyListRef>(
                CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(theBytes.data()),
                             static_cast<CFIndex>(theBytes.size())));
        }
        return ReadString(theBytes, theIsWide ? kCFStringEncodingUTF16BE : kCFStringEncodingASCII);
    }

    static ObjectHolder ReadString(std::string_view theBytes, CFStringEncoding theEncoding)
    {
        Host::Units theUnits;
        Host::DecodeBytes(reinterpret_cast<const UInt8*>(theBytes.data()),
                          static_cast<CFIndex>(theBytes.size()), theEncoding, false, theUnits);
        Holder<CFStringRef> theString(Host::MakeString(std::move(theUnits)));
        Require(Host::UTF8Text(theString.Get()).has_value(), Host::kHalfAPair);
        return ObjectHolder(theString.Release());
    }

    // Containers

    // A count that does not fit into the marker is an integer behind it.
    Content ReadContent(UInt64 theStart, unsigned theMarker) const
    {
        if ((theMarker & 0xF) != 0xF) {
            return {theStart + 1, theMarker & 0xF};
        }
        RequireInside(theStart + 1, 1);
        const unsigned theCountMarker = static_cast<unsigned>(ReadNumber(theStart + 1, 1));
        Require(theCountMarker >> 4 == 1);
        const UInt64 theCount = ReadSized(theStart + 1, theCountMarker, 3);
        return {theStart + 2 + (UInt64{1} << (theCountMarker & 0xF)), theCount};
    }

    void RequireElements(const Content& theContent, UInt64 theElementSize) const
    {
        Require(theContent.theCount <= mData.size() / theElementSize);
        RequireInside(theContent.theStart, theContent.theCount * theElementSize);
    }

    CFPropertyListRef ReadElement(const Content& theContent, UInt64 theIndex, Entry& theContainer,
                                  int theDepth)
    {
        const UInt64 theReference =
            ReadNumber(theContent.theStart + theIndex * mReferenceSize, mReferenceSize);
        const Entry& theElement = ReadObject(theReference, theDepth + 1);
        theContainer.theHeight = std::max(theContainer.theHeight, theElement.theHeight + 1);
        theContainer.theSize += theElement.theSize;
        Require(theContainer.theSize <= std::max(kLargestSmallSize, kLargestGrowth * mData.size()),
                "the objects are too many");
        return theElement.theObject.Get();
    }

    ObjectHolder ReadArray(const Content& theContent, Entry& theEntry, int theDepth)
    {
        RequireElements(theContent, mReferenceSize);
        auto theArray = Host::RequireMemory(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
        for (UInt64 theIndex = 0; theIndex < theContent.theCount; ++theIndex) {
            Host::AppendToList(theArray.Get(), ReadElement(theContent, theIndex, theEntry, theDepth));
        }
        return ObjectHolder(theArray.Release());
    }

    // A dictionary has its keys before its values.
    ObjectHolder ReadDictionary(const Content& theContent, Entry& theEntry, int theDepth)
    {
        RequireElements(theContent, 2 * mReferenceSize);
        auto theDictionary = Host::RequireMemory(CFDictionaryCreateMutable(
            nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
        for (UInt64 theIndex = 0; theIndex < theContent.theCount; ++theIndex) {
            const CFPropertyListRef theKey = ReadElement(theContent, theIndex, theEntry, theDepth);
            Require(CFGetTypeID(theKey) == Host::kStringTypeID, "a key is no string");
            Host::SetInList(theDictionary.Get(), static_cast<CFStringRef>(theKey),
                            ReadElement(theContent, theContent.theCount + theIndex, theEntry, theDepth));
        }
        return ObjectHolder(theDictionary.Release());
    }

    const std::string_view mData;
    UInt64 mOffsetSize = 0;
    UInt64 mReferenceSize = 0;
    UInt64 mTopObject = 0;
    UInt64 mTable = 0;
    std::vector<Entry> mEntries; // one for each object
};

} // namespace

bool Host::IsBinaryPropertyList(std::string_view theData)
{
    return theData.substr(0, kMagic.size()) == kMagic;
}

Host::Holder<CFPropertyListRef> Host::ReadBinaryPropertyList(std::string_view theData)
{
    return Reader(theData).Read();
}
