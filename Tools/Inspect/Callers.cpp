// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Callers.h"

#include "FunctionName.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cxxabi.h>
#include <elfutils/libdwfl.h>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace Inspect {

namespace {

// More places than that are looked up again.
constexpr std::size_t kMostPlaces = 100000;

struct EndDwfl
{
    void operator()(Dwfl* theDwfl) const { dwfl_end(theDwfl); }
};

struct FreeText
{
    void operator()(char* theText) const { std::free(theText); }
};

std::string LastPart(std::string_view thePath)
{
    const std::size_t theSlash = thePath.rfind('/');
    return std::string(theSlash == std::string_view::npos ? thePath : thePath.substr(theSlash + 1));
}

bool IsPlainFile(const std::string& thePath)
{
    struct stat theStatus = {};
    return ::stat(thePath.c_str(), &theStatus) == 0 && S_ISREG(theStatus.st_mode);
}

std::string Demangle(const char* theName)
{
    int theStatus = 0;
    const std::unique_ptr<char, FreeText> theText(abi::__cxa_demangle(theName, nullptr, nullptr, &theStatus));
    return theText != nullptr ? theText.get() : theName;
}

// Whether a module is what the program stands on, and not what somebody wrote who asks.
bool IsOfTheHost(const std::string& theModule)
{
    constexpr std::array<std::string_view, 3> kBeginnings = {"libLmCarbon", "libLmControllers",
                                                             "libLmCoreFoundation"};
    return std::any_of(kBeginnings.begin(), kBeginnings.end(), [&](std::string_view theBeginning) {
        return theModule.compare(0, theBeginning.size(), theBeginning) == 0;
    });
}

std::string BuildOf(Dwfl_Module* theModule)
{
    const unsigned char* theBytes = nullptr;
    GElf_Addr theAddress = 0;
    const int theCount = dwfl_module_build_id(theModule, &theBytes, &theAddress);
    std::string theText;
    for (int theIndex = 0; theIndex < theCount; ++theIndex) {
        std::array<char, 4> theBuffer = {};
        std::snprintf(theBuffer.data(), theBuffer.size(), "%02x", static_cast<unsigned>(theBytes[theIndex]));
        theText += theBuffer.data();
    }
    return theText;
}

} // namespace

// A program or a library, where the program of the journal had it. It is opened when the first of its places
// is asked for.
struct Callers::Image
{
    Module theModule;
    bool isOpened = false;
    bool isOtherBuild = false;
    std::unique_ptr<Dwfl, EndDwfl> theDwfl;
    Dwfl_Module* theCode = nullptr; // of theDwfl

    void Open();
    Place Find(std::uint64_t theAddress) const;
};

void Callers::Image::Open()
{
    static const Dwfl_Callbacks kCallbacks = {nullptr, &dwfl_standard_find_debuginfo,
                                              &dwfl_offline_section_address, nullptr};
    isOpened = true;
    if (!IsPlainFile(theModule.thePath)) {
        return;
    }
    theDwfl.reset(dwfl_begin(&kCallbacks));
    if (theDwfl == nullptr) {
        return;
    }
    dwfl_report_begin(theDwfl.get());
    theCode = dwfl_report_elf(theDwfl.get(), "", theModule.thePath.c_str(), -1,
                              theModule.isFixed ? 0 : theModule.theBase, false);
    dwfl_report_end(theDwfl.get(), nullptr, nullptr);
    if (theCode != nullptr && !theModule.theBuild.empty() && BuildOf(theCode) != theModule.theBuild) {
        isOtherBuild = true;
        theCode = nullptr;
    }
}

Callers::Place Callers::Image::Find(std::uint64_t theAddress) const
{
    Place thePlace;
    thePlace.theModule = LastPart(theModule.thePath);
    thePlace.isOtherBuild = isOtherBuild;
    if (theCode == nullptr) {
        return thePlace;
    }
    // The call itself stands before the address to return to.
    const GElf_Addr theCall = theAddress - 1;
    if (const char* const theName = dwfl_module_addrname(theCode, theCall)) {
        thePlace.theFunction = ReadableName(Demangle(theName));
    }
    if (Dwfl_Line* const theLine = dwfl_module_getsrc(theCode, theCall)) {
        if (const char* const theFile =
                dwfl_lineinfo(theLine, nullptr, &thePlace.theLine, nullptr, nullptr, nullptr)) {
            thePlace.theFile = LastPart(theFile);
        }
    }
    return thePlace;
}

Callers::Callers() = default;
Callers::~Callers() = default;

void Callers::Take(const Entry& theEntry)
{
    if (theEntry.theWhat != What::Module || theEntry.theModule.theBase >= theEntry.theModule.theEnd) {
        return;
    }
    const Module& theModule = theEntry.theModule;
    const auto isSame = [&](const std::unique_ptr<Image>& theImage) {
        return theImage->theModule.theBase == theModule.theBase &&
               theImage->theModule.thePath == theModule.thePath;
    };
    if (std::any_of(mImages.begin(), mImages.end(), isSame)) {
        return;
    }
    mImages.push_back(std::make_unique<Image>());
    mImages.back()->theModule = theModule;
    mPlaces.clear();
}

Callers::Place Callers::Resolve(std::uint64_t theAddress)
{
    for (auto theImage = mImages.rbegin(); theImage != mImages.rend(); ++theImage) {
        Image& theFound = **theImage;
        if (theAddress > theFound.theModule.theBase && theAddress <= theFound.theModule.theEnd) {
            if (!theFound.isOpened) {
                theFound.Open();
            }
            return theFound.Find(theAddress);
        }
    }
    return {};
}

const Callers::Place& Callers::Find(std::uint64_t theAddress)
{
    const auto theFound = mPlaces.find(theAddress);
    if (theFound != mPlaces.end()) {
        return theFound->second;
    }
    if (mPlaces.size() >= kMostPlaces) {
        mPlaces.clear();
    }
    Place thePlace = Resolve(theAddress);
    thePlace.theAddress = theAddress;
    return mPlaces.emplace(theAddress, std::move(thePlace)).first->second;
}

std::string Callers::Show(std::uint64_t theAddress)
{
    const Place& thePlace = Find(theAddress);
    std::string theText = Escape(thePlace.theFunction);
    if (theText.empty()) {
        theText = ShowAddress(theAddress);
    }
    if (!thePlace.theFile.empty()) {
        return theText + ", " + Escape(thePlace.theFile) + ":" + std::to_string(thePlace.theLine);
    }
    if (thePlace.theModule.empty()) {
        return theText;
    }
    return theText + " in " + Escape(thePlace.theModule) +
           (thePlace.isOtherBuild ? ", which was built again since" : "");
}

std::string Callers::ShowInnermost(const Entry& theEntry)
{
    const std::vector<std::uint64_t>& theCallers = theEntry.theCallers;
    const auto theFound =
        std::find_if(theCallers.begin(), theCallers.end(),
                     [this](std::uint64_t theAddress) { return !IsOfTheHost(Find(theAddress).theModule); });
    if (theFound != theCallers.end()) {
        return Show(*theFound);
    }
    return theCallers.empty() ? std::string() : Show(theCallers.front());
}

} // namespace Inspect
