// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Nib.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

namespace Host {

namespace {

// Of 32 bits, with a sign or without one; what lies outside of them stays at their end.
SInt32 NumberOf(const std::string& theText, SInt32 theDefault)
{
    char* theEnd = nullptr;
    const long long theNumber = std::strtoll(theText.c_str(), &theEnd, 10);
    if (theEnd == theText.c_str()) {
        return theDefault;
    }
    const long long theLeast = std::numeric_limits<SInt32>::min();
    const long long theMost = std::numeric_limits<UInt32>::max();
    const long long theBits = std::clamp(theNumber, theLeast, theMost);
    return theBits > std::numeric_limits<SInt32>::max() ? static_cast<SInt32>(theBits - theMost - 1)
                                                        : static_cast<SInt32>(theBits);
}

OSType CodeOf(const std::string& theText)
{
    std::string theBytes = BytesOf(TextOfUtf8(theText));
    theBytes.resize(4, ' ');
    OSType theCode = 0;
    for (const char theByte : theBytes) {
        theCode = theCode << 8 | static_cast<unsigned char>(theByte);
    }
    return theCode;
}

} // namespace

// NibString ----------------------------------------------------------------------------------------------

NibString::NibString(const Text& theText)
    : mString(CreateString(theText))
{
    if (mString == nullptr) {
        throw std::bad_alloc();
    }
}

NibString::~NibString()
{
    CFRelease(mString);
}

// NibObject ----------------------------------------------------------------------------------------------

const NibNode* NibObject::Child(const char* theName) const
{
    if (mNode == nullptr) {
        return nullptr;
    }
    const auto& theChildren = mNode->theChildren;
    const auto theFound = std::find_if(theChildren.begin(), theChildren.end(),
                                       [&](const NibNode& theNode) { return theNode.theName == theName; });
    return theFound == theChildren.end() ? nullptr : &*theFound;
}

SInt16 NibObject::Short(const char* theName, SInt16 theDefault) const
{
    return static_cast<SInt16>(std::clamp(Number(theName, theDefault),
                                          SInt32{std::numeric_limits<SInt16>::min()},
                                          SInt32{std::numeric_limits<SInt16>::max()}));
}

double NibObject::Fraction(const char* theName, double theDefault) const
{
    const std::vector<double> theNumbers = Numbers(theName);
    return theNumbers.empty() ? theDefault : theNumbers.front();
}

bool NibObject::Flag(const char* theName, bool theDefault) const
{
    const NibNode* theChild = Child(theName);
    if (theChild == nullptr) {
        return theDefault;
    }
    const std::string& theText = theChild->theText;
    return theText == "TRUE" || (theText != "FALSE" && theDefault);
}

SInt32 NibObject::NumberValue(SInt32 theDefault) const
{
    return mNode == nullptr ? theDefault : NumberOf(mNode->theText, theDefault);
}

// Characters, except where a number is written.
OSType NibObject::CodeValue() const
{
    if (mNode == nullptr || mNode->theText.empty()) {
        return 0;
    }
    const bool theIsNumber = mNode->theElement == "int" || mNode->theElement == "unsigned_int";
    return theIsNumber ? static_cast<OSType>(NumberOf(mNode->theText, 0)) : CodeOf(mNode->theText);
}

// Whole numbers and fractions, whatever the language is; those that are none end the list.
std::vector<double> NibObject::NumberValues() const
{
    std::vector<double> theNumbers;
    const char* theRest = mNode == nullptr ? "" : mNode->theText.c_str();
    for (;;) {
        char* theEnd = nullptr;
        const long long theWhole = std::strtoll(theRest, &theEnd, 10);
        if (theEnd == theRest) {
            return theNumbers;
        }
        double theNumber = static_cast<double>(theWhole);
        if (*theEnd == '.') {
            const double theSign = *theRest == '-' ? -1 : 1;
            double thePlace = 0.1;
            for (++theEnd; *theEnd >= '0' && *theEnd <= '9'; ++theEnd, thePlace /= 10) {
                theNumber += theSign * thePlace * (*theEnd - '0');
            }
        }
        theNumbers.push_back(theNumber);
        theRest = *theEnd == ',' ? theEnd + 1 : theEnd;
    }
}

NibObject NibObject::Object(const char* theName) const
{
    const NibNode* theChild = Child(theName);
    const NibNode* theNode = theChild == nullptr ? nullptr : mNib->Resolve(*theChild);
    return theNode == nullptr || theNode->theElement != "object" ? NibObject() : NibObject(mNib, theNode);
}

NibObject NibObject::Entry(const char* theKey) const
{
    const NibNode* theValue = mNode == nullptr ? nullptr : ValueOfKey(mNode->theChildren, theKey);
    return {mNib, theValue == nullptr ? nullptr : mNib->Resolve(*theValue)};
}

Text NibObject::Value() const
{
    return mNode == nullptr ? Text() : TextOfUtf8(mNode->theText);
}

std::vector<NibObject> NibObject::Elements() const
{
    std::vector<NibObject> theElements;
    if (mNode != nullptr) {
        for (const NibNode& theChild : mNode->theChildren) {
            if (const NibNode* theNode = mNib->Resolve(theChild)) {
                theElements.emplace_back(mNib, theNode);
            }
        }
    }
    return theElements;
}

// Nib ----------------------------------------------------------------------------------------------------

Nib::Nib(NibNode theRoot)
    : mRoot(std::move(theRoot))
{
    Note(mRoot);
}

void Nib::Note(const NibNode& theNode)
{
    if (!theNode.theID.empty()) {
        mObjects.emplace(theNode.theID, &theNode);
    }
    for (const NibNode& theChild : theNode.theChildren) {
        Note(theChild);
    }
}

const NibNode* Nib::Resolve(const NibNode& theNode) const
{
    if (theNode.theElement != "reference") {
        return &theNode;
    }
    const auto theFound = mObjects.find(theNode.theReference);
    return theFound == mObjects.end() || theFound->second->theElement == "reference" ? nullptr
                                                                                     : theFound->second;
}

NibObject Nib::Named(const Text& theName) const
{
    for (const NibNode& theChild : mRoot.theChildren) {
        if (theChild.theName == "nameTable") {
            const NibNode* theValue = ValueOfKey(theChild.theChildren, Utf8Of(theName));
            return {this, theValue == nullptr ? nullptr : Resolve(*theValue)};
        }
    }
    return {};
}

// Keys and values stand in turn.
const NibNode* ValueOfKey(const std::vector<NibNode>& theEntries, const std::string& theKey)
{
    for (size_t theIndex = 0; theIndex + 1 < theEntries.size(); theIndex += 2) {
        if (theEntries[theIndex].theText == theKey) {
            return &theEntries[theIndex + 1];
        }
    }
    return nullptr;
}

// NibLimit -----------------------------------------------------------------------------------------------

NibLimit::Level::Level(NibLimit& theLimit)
    : mLimit(theLimit)
{
    --mLimit.mObjects;
    --mLimit.mLevels;
}

NibLimit::Level::~Level()
{
    ++mLimit.mLevels;
}

} // namespace Host
