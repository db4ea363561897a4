// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmCallers.h"

#include "LmJournalHook.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <sstream>
#include <unwind.h>

namespace {

// Deeper than this nobody is looked for.
constexpr std::size_t kDeepest = 256;

struct Stack
{
    std::array<std::uintptr_t, kDeepest> theAddresses;
    std::size_t theCount = 0;
};

_Unwind_Reason_Code AddFrame(_Unwind_Context* theContext, void* theStack)
{
    Stack& theFrames = *static_cast<Stack*>(theStack);
    const std::uintptr_t theAddress = _Unwind_GetIP(theContext);
    if (theAddress == 0 || theFrames.theCount == kDeepest) {
        return _URC_END_OF_STACK;
    }
    theFrames.theAddresses[theFrames.theCount++] = theAddress;
    return _URC_NO_REASON;
}

// ---- Executable files, in the byte order of this process

using Bytes = std::vector<unsigned char>;

template <typename Number>
bool ReadNumber(std::ifstream& theFile, std::uint64_t thePlace, Number& theNumber)
{
    theFile.seekg(static_cast<std::streamoff>(thePlace));
    return static_cast<bool>(theFile.read(reinterpret_cast<char*>(&theNumber), sizeof theNumber));
}

// Of the class of this process: 64 bits or 32.
struct Place
{
    std::uint64_t the64;
    std::uint64_t the32;

    std::uint64_t Get() const { return sizeof(void*) == 8 ? the64 : the32; }
};

std::uint64_t ReadWord(std::ifstream& theFile, std::uint64_t thePlace)
{
    std::uintptr_t theWord = 0;
    return ReadNumber(theFile, thePlace, theWord) ? std::uint64_t{theWord} : 0;
}

std::string Hexadecimal(const Bytes& theBytes)
{
    const char kDigits[] = "0123456789abcdef";
    std::string theText;
    for (const unsigned char theByte : theBytes) {
        theText += kDigits[theByte >> 4U];
        theText += kDigits[theByte & 15U];
    }
    return theText;
}

std::uint64_t RoundUp(std::uint64_t theNumber)
{
    return (theNumber + 3) / 4 * 4;
}

// The build id among notes; empty for none.
std::string FindBuild(std::ifstream& theFile, std::uint64_t thePlace, std::uint64_t theSize)
{
    constexpr std::uint32_t kBuildId = 3;
    constexpr std::uint32_t kLongest = 64;
    const std::uint64_t theEnd = thePlace + theSize;
    while (thePlace < theEnd) {
        std::array<std::uint32_t, 3> theNote = {};
        if (!ReadNumber(theFile, thePlace, theNote)) {
            return {};
        }
        std::array<char, 4> theOwner = {};
        const std::uint64_t theData = thePlace + sizeof theNote + RoundUp(theNote[0]);
        if (theNote[2] == kBuildId && theNote[0] == 4 && theNote[1] <= kLongest &&
            ReadNumber(theFile, thePlace + sizeof theNote, theOwner) &&
            std::memcmp(theOwner.data(), "GNU", 4) == 0) {
            Bytes theBytes(theNote[1]);
            theFile.seekg(static_cast<std::streamoff>(theData));
            theFile.read(reinterpret_cast<char*>(theBytes.data()),
                         static_cast<std::streamsize>(theBytes.size()));
            return theFile ? Hexadecimal(theBytes) : std::string();
        }
        thePlace = theData + RoundUp(theNote[1]);
    }
    return {};
}

// The number behind "0x" or without it that theText holds in hexadecimal.
bool ReadHexadecimal(const std::string& theText, std::uintptr_t& theNumber)
{
    std::istringstream theStream(theText);
    return static_cast<bool>(theStream >> std::hex >> theNumber);
}

// A line of the list: "<from>-<to> <rights> <offset> <device> <inode> <path>".
bool ReadMapping(const std::string& theLine, LmModule& theMapping, std::uintptr_t& theOffset)
{
    std::istringstream theStream(theLine);
    std::string theRange;
    std::string theRights;
    std::string theOffsetText;
    std::string theOther;
    theStream >> theRange >> theRights >> theOffsetText >> theOther >> theOther >> std::ws;
    std::getline(theStream, theMapping.thePath);
    const std::size_t theDash = theRange.find('-');
    return theDash != std::string::npos && !theMapping.thePath.empty() && theMapping.thePath[0] == '/' &&
           ReadHexadecimal(theRange.substr(0, theDash), theMapping.theBase) &&
           ReadHexadecimal(theRange.substr(theDash + 1), theMapping.theEnd) &&
           ReadHexadecimal(theOffsetText, theOffset);
}

} // namespace

void LmReadModuleFile(LmModule& theModule)
{
    constexpr std::uint16_t kFixedType = 2;
    constexpr std::uint32_t kNotes = 4;
    std::ifstream theFile(theModule.thePath, std::ios::binary);
    std::array<char, 4> theMagic = {};
    if (!ReadNumber(theFile, 0, theMagic) || std::memcmp(theMagic.data(),
                                                         "\x7F"
                                                         "ELF",
                                                         4) != 0) {
        return;
    }
    std::uint16_t theType = 0;
    ReadNumber(theFile, 16, theType);
    theModule.isFixed = theType == kFixedType;
    const std::uint64_t theHeaders = ReadWord(theFile, Place{32, 28}.Get());
    std::uint16_t theSize = 0;
    std::uint16_t theCount = 0;
    ReadNumber(theFile, Place{54, 42}.Get(), theSize);
    ReadNumber(theFile, Place{56, 44}.Get(), theCount);
    for (std::uint16_t theIndex = 0; theIndex < theCount && theModule.theBuild.empty(); ++theIndex) {
        const std::uint64_t theHeader = theHeaders + std::uint64_t{theIndex} * theSize;
        std::uint32_t theKind = 0;
        if (ReadNumber(theFile, theHeader, theKind) && theKind == kNotes) {
            theModule.theBuild = FindBuild(theFile, ReadWord(theFile, theHeader + Place{8, 4}.Get()),
                                           ReadWord(theFile, theHeader + Place{32, 16}.Get()));
        }
        theFile.clear();
    }
}

void LmCallers::Collect(std::size_t theCount)
{
    Stack theStack;
    _Unwind_Backtrace(AddFrame, &theStack);
    mAddresses.clear();
    for (std::size_t theIndex = 0; theIndex < theStack.theCount && mAddresses.size() < theCount; ++theIndex) {
        if (!IsOwn(theStack.theAddresses[theIndex])) {
            mAddresses.push_back(theStack.theAddresses[theIndex]);
        }
    }
}

bool LmCallers::IsOwn(std::uintptr_t theAddress)
{
    const LmModule* theModule = FindModule(theAddress);
    // The library, this one, and what they stand on: by functions whose addresses no program takes, since
    // such an address may lie in the program.
    static const std::array<std::uintptr_t, 4> kPlaces = {
        reinterpret_cast<std::uintptr_t>(&AddFrame), reinterpret_cast<std::uintptr_t>(&LmSetJournalHook),
        reinterpret_cast<std::uintptr_t>(&GetEventDispatcherTarget),
        reinterpret_cast<std::uintptr_t>(&CFBundleGetMainBundle)};
    return theModule != nullptr && std::any_of(kPlaces.begin(), kPlaces.end(), [=](std::uintptr_t thePlace) {
               return theModule->Holds(thePlace);
           });
}

LmModule* LmCallers::FindKnown(std::uintptr_t theAddress)
{
    const auto theModule = std::find_if(mModules.begin(), mModules.end(), [=](const LmModule& theCandidate) {
        return theCandidate.Holds(theAddress);
    });
    return theModule != mModules.end() ? &*theModule : nullptr;
}

LmModule* LmCallers::FindModule(std::uintptr_t theAddress)
{
    LmModule* theModule = FindKnown(theAddress);
    if (theModule != nullptr || std::find(mNowhere.begin(), mNowhere.end(), theAddress) != mNowhere.end()) {
        return theModule;
    }
    // It may have been loaded since.
    ReadModules();
    theModule = FindKnown(theAddress);
    if (theModule == nullptr) {
        mNowhere.push_back(theAddress);
    }
    return theModule;
}

void LmCallers::ReadModules()
{
    std::ifstream theList("/proc/self/maps");
    for (std::string theLine; std::getline(theList, theLine);) {
        LmModule theMapping;
        std::uintptr_t theOffset = 0;
        if (!ReadMapping(theLine, theMapping, theOffset)) {
            continue;
        }
        LmModule* const theKnown = FindKnown(theMapping.theBase);
        if (theKnown != nullptr) {
            continue;
        }
        if (!mModules.empty() && mModules.back().thePath == theMapping.thePath) {
            mModules.back().theEnd = theMapping.theEnd;
            continue;
        }
        theMapping.theBase -= theOffset;
        LmReadModuleFile(theMapping);
        mModules.push_back(theMapping);
    }
}

void LmCallers::ForgetWritten()
{
    for (LmModule& theModule : mModules) {
        theModule.isWritten = false;
    }
}
