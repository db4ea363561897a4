// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFPropertyListReader.h"
#include "CFPropertyListSupport.h"

#include <utility>

namespace {

// More than any real file has. An object counts as often as it is referred to, because it is read as often.
constexpr size_t kMostObjects = 1000000;

constexpr size_t kTrailerSize = 32;

// Walks over the containers of a binary property list without reading what they contain.
//
// Such data ends in a trailer that tells where a table is, the table tells where the objects are, and
// containers refer to their elements by their index in the table. Nothing keeps a container from containing
// itself.
class BinaryChecker
{
public:
    explicit BinaryChecker(std::string_view theData)
        : mData(theData)
    {
    }

    bool Check()
    {
        if (mData.size() < kTrailerSize || !ReadTrailer()) {
            return false;
        }
        mPending.push_back({mTopObject, 0});
        for (size_t theVisited = 0; !mPending.empty(); ++theVisited) {
            const auto theEntry = mPending.back();
            mPending.pop_back();
            if (theVisited + mPending.size() > kMostObjects ||
                !CheckObject(theEntry.first, theEntry.second)) {
                return false;
            }
        }
        return true;
    }

private:
    bool ReadTrailer()
    {
        const size_t theTrailer = mData.size() - kTrailerSize;
        mOffsetSize = ReadNumber(theTrailer + 6, 1);
        mReferenceSize = ReadNumber(theTrailer + 7, 1);
        mObjectCount = ReadNumber(theTrailer + 8, 8);
        mTopObject = ReadNumber(theTrailer + 16, 8);
        mTable = ReadNumber(theTrailer + 24, 8);
        return mOffsetSize >= 1 && mOffsetSize <= 8 && mReferenceSize >= 1 && mReferenceSize <= 8 &&
               mObjectCount <= kMostObjects && Contains(mTable, mObjectCount * mOffsetSize);
    }

    bool Contains(UInt64 theStart, UInt64 theLength) const
    {
        return theStart <= mData.size() && theLength <= mData.size() - theStart;
    }

    // Big-endian.
    UInt64 ReadNumber(UInt64 theStart, UInt64 theSize) const
    {
        UInt64 theNumber = 0;
        for (const char theByte : mData.substr(static_cast<size_t>(theStart), static_cast<size_t>(theSize))) {
            theNumber = theNumber << 8 | static_cast<unsigned char>(theByte);
        }
        return theNumber;
    }

    bool CheckObject(UInt64 theObject, int theDepth)
    {
        if (theObject >= mObjectCount || theDepth >= Host::kDeepestNesting) {
            return false;
        }
        UInt64 thePlace = ReadNumber(mTable + theObject * mOffsetSize, mOffsetSize);
        if (!Contains(thePlace, 1)) {
            return false;
        }
        const UInt64 theMarker = ReadNumber(thePlace++, 1);
        const UInt64 theKind = theMarker >> 4;
        if (theKind != 0xA && theKind != 0xC && theKind != 0xD) {
            return true;
        }
        UInt64 theCount = theMarker & 0xF;
        if (theCount == 0xF && !ReadCount(thePlace, theCount)) {
            return false;
        }
        // A dictionary has its keys before its values.
        return theCount <= kMostObjects &&
               PushElements(thePlace, theKind == 0xD ? 2 * theCount : theCount, theDepth);
    }

    // A count that does not fit into the marker is an integer behind it.
    bool ReadCount(UInt64& thePlace, UInt64& theCount) const
    {
        if (!Contains(thePlace, 1)) {
            return false;
        }
        const UInt64 theMarker = ReadNumber(thePlace++, 1);
        const UInt64 theSize = UInt64{1} << (theMarker & 0xF);
        if (theMarker >> 4 != 1 || theSize > 8 || !Contains(thePlace, theSize)) {
            return false;
        }
        theCount = ReadNumber(thePlace, theSize);
        thePlace += theSize;
        return true;
    }

    bool PushElements(UInt64 thePlace, UInt64 theCount, int theDepth)
    {
        if (!Contains(thePlace, theCount * mReferenceSize) || mPending.size() + theCount > kMostObjects) {
            return false;
        }
        for (UInt64 theIndex = 0; theIndex < theCount; ++theIndex) {
            mPending.push_back(
                {ReadNumber(thePlace + theIndex * mReferenceSize, mReferenceSize), theDepth + 1});
        }
        return true;
    }

    const std::string_view mData;
    UInt64 mOffsetSize = 0;
    UInt64 mReferenceSize = 0;
    UInt64 mObjectCount = 0;
    UInt64 mTopObject = 0;
    UInt64 mTable = 0;
    std::vector<std::pair<UInt64, int>> mPending; // objects to visit, with their depth
};

} // namespace

bool Host::IsSafeBinaryPropertyList(std::string_view theData)
{
    return BinaryChecker(theData).Check();
}
