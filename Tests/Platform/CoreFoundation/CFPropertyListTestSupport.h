// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyListTestSupport_h
#define CFPropertyListTestSupport_h

// For tests of property lists: lists, and their forms.

#include "CFTestSupport.h"

constexpr const char* kHeader = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                "<plist version=\"1.0\">\n";

inline std::string TextOf(CFDataRef theData)
{
    const std::vector<UInt8> theBytes = BytesOf(theData);
    return std::string(theBytes.begin(), theBytes.end());
}

inline Owned<CFDataRef> DataOf(const std::string& theBytes)
{
    return Data(std::vector<UInt8>(theBytes.begin(), theBytes.end()));
}

inline Owned<CFPropertyListRef> ReadBytes(const std::string& theBytes,
                                          CFOptionFlags theMutability = kCFPropertyListImmutable)
{
    return Owned(CFPropertyListCreateFromXMLData(nullptr, DataOf(theBytes), theMutability, nullptr));
}

// Reads what stands between the header and the end of XML.
inline Owned<CFPropertyListRef> ReadContent(const std::string& theContent,
                                            CFOptionFlags theMutability = kCFPropertyListImmutable)
{
    return ReadBytes(kHeader + theContent + "</plist>\n", theMutability);
}

// Why data cannot be read; "(read)" when it can.
inline std::string ErrorOf(const std::string& theBytes)
{
    CFStringRef theError = kCFPreferencesAnyHost;
    const Owned<CFPropertyListRef> theList(
        CFPropertyListCreateFromXMLData(nullptr, DataOf(theBytes), kCFPropertyListImmutable, &theError));
    if (theList != nullptr) {
        EXPECT_EQ(theError, nullptr);
        return "(read)";
    }
    return TextOf(Owned(theError));
}

inline Owned<CFDateRef> Date(CFAbsoluteTime theTime)
{
    return Owned(CFDateCreate(nullptr, theTime));
}

inline std::string Repeated(const std::string& theText, int theCount)
{
    std::string theResult;
    for (int theIndex = 0; theIndex < theCount; ++theIndex) {
        theResult += theText;
    }
    return theResult;
}

// Bytes, given as numbers.
inline std::string Bytes(std::initializer_list<int> theBytes)
{
    return std::string(theBytes.begin(), theBytes.end());
}

// A number in theSize bytes, big-endian.
inline std::string NumberBytes(size_t theNumber, size_t theSize)
{
    std::string theBytes;
    for (size_t theIndex = theSize; theIndex > 0; --theIndex) {
        theBytes += static_cast<char>(theIndex > sizeof theNumber ? 0 : theNumber >> (8 * (theIndex - 1)));
    }
    return theBytes;
}

// A list in the binary form that has these objects; the first one is the root. Offsets and references have
// theSize bytes.
inline std::string Binary(const std::vector<std::string>& theObjects, size_t theSize = 1)
{
    std::string theBytes = "bplist00";
    std::string theTable;
    for (const std::string& theObject : theObjects) {
        theTable += NumberBytes(theBytes.size(), theSize);
        theBytes += theObject;
    }
    const size_t theTableOffset = theBytes.size();
    theBytes += theTable + NumberBytes(0, 6) + NumberBytes(theSize, 1) + NumberBytes(theSize, 1);
    return theBytes + NumberBytes(theObjects.size(), 8) + NumberBytes(0, 8) + NumberBytes(theTableOffset, 8);
}

// Arrays in arrays.
inline Owned<CFPropertyListRef> NestedArray(int theDepth, CFPropertyListRef theInnermost = kCFBooleanTrue)
{
    CFPropertyListRef theList = CFRetain(theInnermost);
    for (int theIndex = 1; theIndex < theDepth; ++theIndex) {
        const CFPropertyListRef theArray = CFArrayCreate(nullptr, &theList, 1, &kCFTypeArrayCallBacks);
        CFRelease(theList);
        theList = theArray;
    }
    return Owned(theList);
}

inline std::string ContentError(const std::string& theContent)
{
    return ErrorOf(kHeader + theContent + "</plist>\n");
}

// The text between the header and the end; "(NULL)" when there is none.
inline std::string WrittenXML(CFPropertyListRef theList)
{
    const Owned<CFDataRef> theData(CFPropertyListCreateXMLData(nullptr, theList));
    if (theData == nullptr) {
        return "(NULL)";
    }
    const std::string theText = TextOf(theData);
    const std::string theStart(kHeader);
    const std::string theEnd("</plist>\n");
    EXPECT_EQ(theText.substr(0, theStart.size()), theStart);
    EXPECT_EQ(theText.substr(theText.size() - theEnd.size()), theEnd);
    return theText.substr(theStart.size(), theText.size() - theStart.size() - theEnd.size());
}

#endif
