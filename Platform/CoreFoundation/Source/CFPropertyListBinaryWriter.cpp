// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFDateObject.h"
#include "CFNumberObject.h"
#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"
#include "CFStringObject.h"

#include <algorithm>
#include <cstring>
#include <map>

namespace {

// The bits of a floating-point number.
template <class Bits, class Real>
Bits BitsOf(Real theReal)
{
    static_assert(sizeof(Real) == sizeof(Bits));
    Bits theBits = 0;
    std::memcpy(&theBits, &theReal, sizeof theBits);
    return theBits;
}

// Big-endian.
void AppendNumber(std::string& theBytes, UInt64 theNumber, unsigned theSize)
{
    for (unsigned theShift = 8 * theSize; theShift > 0; theShift -= 8) {
        theBytes += static_cast<char>(theNumber >> (theShift - 8) & 0xFF);
    }
}

// How many bytes a number without a sign takes: 1, 2, 4 or 8. Its logarithm is what markers tell.
unsigned SizeLogarithm(UInt64 theNumber)
{
    return theNumber < 0x100 ? 0 : theNumber < 0x10000 ? 1 : theNumber < 0x100000000 ? 2 : 3;
}

// A negative number has its bits of eight bytes, so it takes eight.
void AppendInteger(std::string& theBytes, UInt64 theNumber)
{
    const unsigned theLogarithm = SizeLogarithm(theNumber);
    theBytes += static_cast<char>(0x10 | theLogarithm);
    AppendNumber(theBytes, theNumber, 1U << theLogarithm);
}

// A kind, and a count, which is an integer of its own when it does not fit.
void AppendMarker(std::string& theBytes, unsigned theKind, size_t theCount)
{
    theBytes += static_cast<char>(theKind << 4 | std::min<size_t>(theCount, 0xF));
    if (theCount >= 0xF) {
        AppendInteger(theBytes, theCount);
    }
}

std::string NumberBytes(const __CFNumber& theNumber)
{
    std::string theBytes;
    if (!theNumber.IsFloat()) {
        AppendInteger(theBytes, static_cast<UInt64>(theNumber.mInteger));
    } else if (theNumber.mNumberType == kCFNumberFloat32Type) {
        theBytes += '\x22';
        AppendNumber(theBytes, BitsOf<uint32_t>(static_cast<Float32>(theNumber.mFloat)), 4);
    } else {
        theBytes += '\x23';
        AppendNumber(theBytes, BitsOf<UInt64>(theNumber.mFloat), 8);
    }
    return theBytes;
}

std::string StringBytes(const Host::Units& theUnits)
{
    const bool theIsASCII =
        std::all_of(theUnits.begin(), theUnits.end(), [](UniChar theUnit) { return theUnit < 0x80; });
    std::string theBytes;
    AppendMarker(theBytes, theIsASCII ? 0x5 : 0x6, theUnits.size());
    for (const UniChar theUnit : theUnits) {
        AppendNumber(theBytes, theUnit, theIsASCII ? 1 : 2);
    }
    return theBytes;
}

std::string LeafBytes(CFPropertyListRef theLeaf)
{
    std::string theBytes;
    switch (CFGetTypeID(theLeaf)) {
    case Host::kBooleanTypeID:
        return theLeaf == kCFBooleanTrue ? "\x09" : "\x08";
    case Host::kNumberTypeID:
        return NumberBytes(*static_cast<CFNumberRef>(theLeaf));
    case Host::kDateTypeID:
        theBytes += '\x33';
        AppendNumber(theBytes, BitsOf<UInt64>(static_cast<CFDateRef>(theLeaf)->mTime), 8);
        return theBytes;
    case Host::kDataTypeID: {
        const CFDataRef theData = static_cast<CFDataRef>(theLeaf);
        const size_t theLength = static_cast<size_t>(CFDataGetLength(theData));
        AppendMarker(theBytes, 0x4, theLength);
        return theBytes.append(reinterpret_cast<const char*>(CFDataGetBytePtr(theData)), theLength);
    }
    default:
        return StringBytes(static_cast<CFStringRef>(theLeaf)->mUnits);
    }
}

class Writer
{
public:
    std::string Write(CFPropertyListRef theList)
    {
        AddObject(theList);
        mReferenceSize = 1U << SizeLogarithm(mObjects.size() - 1);
        std::string theData = "bplist00";
        std::vector<size_t> theOffsets;
        for (const Object& theObject : mObjects) {
            theOffsets.push_back(theData.size());
            theData += theObject.theBytes;
            for (const size_t theElement : theObject.theElements) {
                AppendNumber(theData, theElement, mReferenceSize);
            }
        }
        AppendTable(theData, theOffsets);
        return theData;
    }

private:
    // A leaf, or the marker of a container and what it refers to.
    struct Object
    {
        std::string theBytes;
        std::vector<size_t> theElements;
    };

    // Appends the table of the objects, and the trailer that tells where it is.
    void AppendTable(std::string& theData, const std::vector<size_t>& theOffsets) const
    {
        const size_t theTable = theData.size();
        const unsigned theOffsetSize = 1U << SizeLogarithm(theTable);
        for (const size_t theOffset : theOffsets) {
            AppendNumber(theData, theOffset, theOffsetSize);
        }
        AppendNumber(theData, 0, 6);
        AppendNumber(theData, theOffsetSize, 1);
        AppendNumber(theData, mReferenceSize, 1);
        AppendNumber(theData, theOffsets.size(), 8);
        AppendNumber(theData, 0, 8); // the list is the first object
        AppendNumber(theData, theTable, 8);
    }

    // Returns the object's index.
    size_t AddObject(CFPropertyListRef theObject)
    {
        switch (CFGetTypeID(theObject)) {
        case Host::kArrayTypeID:
            return AddArray(static_cast<CFArrayRef>(theObject));
        case Host::kDictionaryTypeID:
            return AddDictionary(static_cast<CFDictionaryRef>(theObject));
        default:
            return AddLeaf(theObject);
        }
    }

    // Equal leaves are one object.
    size_t AddLeaf(CFPropertyListRef theLeaf)
    {
        const auto theEntry = mLeaves.emplace(LeafBytes(theLeaf), mObjects.size());
        if (theEntry.second) {
            mObjects.push_back({theEntry.first->first, {}});
        }
        return theEntry.first->second;
    }

    size_t AddContainer(unsigned theKind, size_t theCount)
    {
        mObjects.emplace_back();
        AppendMarker(mObjects.back().theBytes, theKind, theCount);
        return mObjects.size() - 1;
    }

    // What is added meanwhile may move the container's own entry.
    void AddElement(size_t theContainer, CFPropertyListRef theElement)
    {
        const size_t theIndex = AddObject(theElement);
        mObjects[theContainer].theElements.push_back(theIndex);
    }

    size_t AddArray(CFArrayRef theArray)
    {
        const CFIndex theCount = CFArrayGetCount(theArray);
        const size_t theContainer = AddContainer(0xA, static_cast<size_t>(theCount));
        for (CFIndex theIndex = 0; theIndex < theCount; ++theIndex) {
            AddElement(theContainer, CFArrayGetValueAtIndex(theArray, theIndex));
        }
        return theContainer;
    }

    // The keys come before the values.
    size_t AddDictionary(CFDictionaryRef theDictionary)
    {
        const std::vector<CFStringRef> theKeys = Host::SortedKeys(theDictionary);
        const size_t theContainer = AddContainer(0xD, theKeys.size());
        for (const CFStringRef theKey : theKeys) {
            AddElement(theContainer, theKey);
        }
        for (const CFStringRef theKey : theKeys) {
            AddElement(theContainer, CFDictionaryGetValue(theDictionary, theKey));
        }
        return theContainer;
    }

    std::vector<Object> mObjects;
    std::map<std::string, size_t> mLeaves; // the index of each
    unsigned mReferenceSize = 0;
};

} // namespace

std::string Host::WriteBinaryPropertyList(CFPropertyListRef theList)
{
    return Writer().Write(theList);
}
