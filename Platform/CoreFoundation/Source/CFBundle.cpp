// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFBundleObject.h"

#include "CFArrayObject.h"
#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"
#include "CFStringObject.h"
#include "CFURLObject.h"
#include "Common/NeverDestroyed.h"
#include "StringsTable.h"
#include "System/Files.h"
#include "System/Folders.h"
#include "UserLanguages.h"

#include <algorithm>
#include <CoreFoundation/CoreFoundation.h>
#include <vector>

const CFStringRef kCFBundleIdentifierKey = CFSTR("CFBundleIdentifier");
const CFStringRef kCFBundleExecutableKey = CFSTR("CFBundleExecutable");
const CFStringRef kCFBundleNameKey = CFSTR("CFBundleName");
const CFStringRef kCFBundleVersionKey = CFSTR("CFBundleVersion");
const CFStringRef kCFBundleDevelopmentRegionKey = CFSTR("CFBundleDevelopmentRegion");
const CFStringRef kCFBundleInfoDictionaryVersionKey = CFSTR("CFBundleInfoDictionaryVersion");
const CFStringRef kCFBundleLocalizationsKey = CFSTR("CFBundleLocalizations");

namespace {

using Host::Holder;
using Host::NothingWithoutMemory;

using Lock = std::lock_guard<std::recursive_mutex>;

// The bundles that are in use, none of them owned.
struct BundleList
{
    std::recursive_mutex theMutex;
    std::vector<__CFBundle*> theBundles;
};

BundleList& Bundles()
{
    static Host::NeverDestroyed<BundleList> sList;
    return sList.Get();
}

void FreeBundle(const Host::Object* theObject)
{
    auto& theBundles = Bundles().theBundles;
    {
        const Lock theLock(Bundles().theMutex);
        theBundles.erase(std::remove(theBundles.begin(), theBundles.end(), theObject), theBundles.end());
    }
    delete static_cast<const __CFBundle*>(theObject);
}

CFStringRef DescribeBundle(const Host::Object* theObject)
{
    const std::string& theFolder = static_cast<const __CFBundle*>(theObject)->mFolders.theRoot;
    const auto thePath =
        Host::RequireMemory(CFStringCreateWithCString(nullptr, theFolder.c_str(), kCFStringEncodingUTF8));
    return Host::Text().AppendHeader(theObject).Append("{").Append(thePath.Get()).Append("}").CopyString();
}

__CFBundle& RequireBundle(CFBundleRef theBundle, const char* theCaller)
{
    return *Host::Require(theBundle, Host::kBundleType, theCaller);
}

Holder<CFMutableDictionaryRef> EmptyDictionary()
{
    return Host::RequireMemory(CFDictionaryCreateMutable(nullptr, 0, &kCFTypeDictionaryKeyCallBacks,
                                                         &kCFTypeDictionaryValueCallBacks));
}

CFDictionaryRef ReadInfo(const Host::BundleFolders& theFolders)
{
    std::string theContent;
    for (const std::string& theFolder : {theFolders.theSupport, theFolders.theResources}) {
        if (Host::ReadFile(theFolder + "/Info.plist", theContent) != Host::FileContent::kRead) {
            continue;
        }
        try {
            CFPropertyListFormat theFormat = 0;
            Holder<CFPropertyListRef> theList = Host::ReadPropertyList(theContent, theFormat);
            if (CFGetTypeID(theList.Get()) == CFDictionaryGetTypeID()) {
                return static_cast<CFDictionaryRef>(theList.Release());
            }
        } catch (const Host::MalformedPropertyList&) {
            // As if there were none.
        }
        theContent.clear();
    }
    return EmptyDictionary().Release();
}

// A text of Info.plist, or NULL.
CFStringRef TextFor(CFDictionaryRef theInfo, CFStringRef theKey)
{
    const CFTypeRef theValue = theInfo == nullptr ? nullptr : CFDictionaryGetValue(theInfo, theKey);
    const bool theIsText = theValue != nullptr && CFGetTypeID(theValue) == CFStringGetTypeID();
    return theIsText ? static_cast<CFStringRef>(theValue) : nullptr;
}

// A string in UTF-8; empty for NULL and for one that cannot be.
std::string ToText(CFStringRef theString, const char* theCaller)
{
    if (theString == nullptr) {
        return "";
    }
    return Host::UTF8Text(Host::Require(theString, Host::kStringType, theCaller)).value_or("");
}

void AddNames(const std::string& theLanguage, std::vector<std::string>& theNames)
{
    for (const std::string& theName : Host::NamesOfLanguage(theLanguage)) {
        if (std::find(theNames.begin(), theNames.end(), theName) == theNames.end()) {
            theNames.push_back(theName);
        }
    }
}

std::vector<std::string> NamesOfUserLanguages()
{
    std::vector<std::string> theNames;
    for (const std::string& theLanguage : Host::UserLanguages()) {
        AddNames(theLanguage, theNames);
    }
    return theNames;
}

std::vector<std::string> LanguagesFor(const __CFBundle& theBundle)
{
    std::vector<std::string> theNames = NamesOfUserLanguages();
    AddNames(ToText(TextFor(theBundle.mInfo.Get(), kCFBundleDevelopmentRegionKey), ""), theNames);
    return theNames;
}

Host::ResourceQuery QueryFor(CFStringRef theName, CFStringRef theType, CFStringRef theSubfolder,
                             std::vector<std::string> theLanguages, const char* theCaller)
{
    Host::ResourceQuery theQuery;
    const std::string theExtension = ToText(theType, theCaller);
    theQuery.theName = ToText(theName, theCaller) + (theExtension.empty() ? "" : "." + theExtension);
    theQuery.theSubfolder = ToText(theSubfolder, theCaller);
    theQuery.theLanguages = std::move(theLanguages);
    return theQuery;
}

CFURLRef MakeURL(const std::string& thePath)
{
    return thePath.empty() ? nullptr : Host::MakeFileURL(thePath, Host::IsFolder(thePath));
}

CFURLRef FindResource(const __CFBundle& theBundle, const Host::ResourceQuery& theQuery)
{
    return theQuery.theName.empty() ? nullptr : MakeURL(Host::FindResource(theBundle.mFolders, theQuery));
}

// The texts of a table, or NULL; the bundle keeps them.
CFDictionaryRef TableOf(__CFBundle& theBundle, CFStringRef theName)
{
    const Lock theLock(theBundle.mMutex);
    CFTypeRef theTable = CFDictionaryGetValue(theBundle.mTables.Get(), theName);
    if (theTable == nullptr) {
        Host::ResourceQuery theQuery;
        theQuery.theName = ToText(theName, "") + ".strings";
        theQuery.theLanguages = LanguagesFor(theBundle);
        std::string theContent;
        const std::string thePath = Host::FindResource(theBundle.mFolders, theQuery);
        const bool theIsThere =
            !thePath.empty() && Host::ReadFile(thePath, theContent) == Host::FileContent::kRead;
        const Holder<CFDictionaryRef> theRead =
            theIsThere ? Host::ReadStringsTable(theContent) : Holder<CFDictionaryRef>(nullptr);
        const CFTypeRef theKept = theRead.Get() == nullptr ? static_cast<CFTypeRef>(kCFNull) : theRead.Get();
        Host::SetInList(theBundle.mTables.Get(), theName, theKept);
        theTable = CFDictionaryGetValue(theBundle.mTables.Get(), theName);
    }
    return theTable == kCFNull ? nullptr : static_cast<CFDictionaryRef>(theTable);
}

CFArrayRef MakeTexts(const std::vector<std::string>& theTexts)
{
    auto theArray = Host::RequireMemory(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
    for (const std::string& theText : theTexts) {
        const Holder<CFStringRef> theString(
            CFStringCreateWithCString(nullptr, theText.c_str(), kCFStringEncodingUTF8));
        // A name of a file need be no text.
        if (theString.Get() != nullptr) {
            Host::AppendToList(theArray.Get(), theString.Get());
        }
    }
    return theArray.Release();
}

// The number that a text begins with, which is taken off it; negative when it begins with none, or one too
// large.
int TakeNumber(std::string& theText, int theLargest)
{
    size_t theLength = 0;
    int theNumber = 0;
    while (theLength < theText.size() && theText[theLength] >= '0' && theText[theLength] <= '9' &&
           theNumber <= theLargest) {
        theNumber = theNumber * 10 + (theText[theLength++] - '0');
    }
    theText.erase(0, theLength);
    return theLength == 0 || theNumber > theLargest ? -1 : theNumber;
}

UInt32 PackVersion(std::string theText)
{
    constexpr UInt32 kRelease = 0x80;
    const int kLargest[] = {99, 9, 9};
    int theParts[] = {0, 0, 0};
    for (int theIndex = 0; theIndex < 3; ++theIndex) {
        theParts[theIndex] = TakeNumber(theText, kLargest[theIndex]);
        if (theParts[theIndex] < 0) {
            return 0;
        }
        if (theText.empty()) {
            const auto theMajor = static_cast<UInt32>(theParts[0]);
            const auto theMinor = static_cast<UInt32>(theIndex < 1 ? 0 : theParts[1]);
            const auto theBugFix = static_cast<UInt32>(theIndex < 2 ? 0 : theParts[2]);
            return (theMajor / 10 << 28) | (theMajor % 10 << 24) | (theMinor << 20) | (theBugFix << 16) |
                   kRelease << 8;
        }
        if (theText[0] != '.') {
            return 0;
        }
        theText.erase(0, 1);
    }
    return 0;
}

// Four characters, in MacRoman, as a code; 0 for any other text.
UInt32 CodeOf(std::string_view theText)
{
    UInt32 theCode = 0;
    for (const char theByte : theText) {
        theCode = theCode << 8 | static_cast<UInt8>(theByte);
    }
    return theText.size() == 4 ? theCode : 0;
}

UInt32 CodeOf(CFStringRef theText)
{
    char theBytes[5] = "";
    const bool theFits = theText != nullptr && CFStringGetCString(theText, theBytes, sizeof theBytes,
                                                                  kCFStringEncodingMacRoman) != 0;
    return theFits ? CodeOf(std::string_view(theBytes)) : 0;
}

// The name of the code's file, without its folder.
std::string NameOfCode(const __CFBundle& theBundle)
{
    std::string theName = ToText(TextFor(theBundle.mInfo.Get(), kCFBundleExecutableKey), "");
    if (!theName.empty()) {
        return theName;
    }
    const std::string theFolder = Host::LastComponent(theBundle.mFolders.theRoot);
    return theFolder.substr(0, theFolder.size() - Host::ExtensionLength(theFolder));
}

std::string PathOfCode(const __CFBundle& theBundle)
{
    const std::string theFound = Host::ExecutableIn(theBundle.mFolders, NameOfCode(theBundle));
    return theFound.empty() && theBundle.mIsMain ? Host::ProgramPath() : theFound;
}

Host::Library CodeOf(__CFBundle& theBundle)
{
    const Lock theLock(theBundle.mMutex);
    if (!theBundle.mCode) {
        const std::string thePath = theBundle.mIsMain ? "" : PathOfCode(theBundle);
        theBundle.mCode = theBundle.mIsMain ? Host::OpenProgram()
                          : thePath.empty() ? nullptr
                                            : Host::OpenLibrary(thePath);
    }
    return *theBundle.mCode;
}

// The bundle in a folder; made when it is not in use yet. The caller owns a reference.
CFBundleRef BundleIn(const std::string& theFolder, bool theIsMain)
{
    const Lock theLock(Bundles().theMutex);
    for (__CFBundle* const theBundle : Bundles().theBundles) {
        if (theBundle->mFolders.theRoot == theFolder) {
            CFRetain(theBundle);
            return theBundle;
        }
    }
    Bundles().theBundles.reserve(Bundles().theBundles.size() + 1);
    auto* const theBundle = new __CFBundle(theFolder, theIsMain);
    Bundles().theBundles.push_back(theBundle);
    return theBundle;
}

} // namespace

const Host::TypeOperations Host::kBundleType = {kBundleTypeID, "CFBundle",     FreeBundle, nullptr,
                                                nullptr,       DescribeBundle, nullptr};

__CFBundle::__CFBundle(const std::string& theFolder, bool theIsMain)
    : Object(Host::kBundleType),
      mIsMain(theIsMain),
      mFolders(theFolder),
      mInfo(ReadInfo(mFolders)),
      mTables(EmptyDictionary())
{
}

CFTypeID CFBundleGetTypeID(void)
{
    return Host::kBundleTypeID;
}

CFBundleRef CFBundleGetMainBundle(void)
{
    static CFBundleRef sMain = nullptr;
    const Lock theLock(Bundles().theMutex);
    if (sMain == nullptr) {
        sMain =
            NothingWithoutMemory([] { return BundleIn(Host::WithoutSlash(Host::MainBundleFolder()), true); });
    }
    return sMain;
}

CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef inURL)
{
    Host::Require(inURL, Host::kURLType, "CFBundleCreate");
    // The program is a bundle too, and there must not be a second one of it.
    CFBundleGetMainBundle();
    return NothingWithoutMemory([&]() -> CFBundleRef {
        const std::optional<std::string> theFolder = Host::PathOfFile(inURL);
        return theFolder && Host::IsFolder(*theFolder) ? BundleIn(*theFolder, false) : nullptr;
    });
}

CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef inIdentifier)
{
    Host::Require(inIdentifier, Host::kStringType, "CFBundleGetBundleWithIdentifier");
    CFBundleGetMainBundle();
    const Lock theLock(Bundles().theMutex);
    const auto& theBundles = Bundles().theBundles;
    const auto theFound =
        std::find_if(theBundles.begin(), theBundles.end(), [&](const __CFBundle* theBundle) {
            const CFStringRef theIdentifier = TextFor(theBundle->mInfo.Get(), kCFBundleIdentifierKey);
            return theIdentifier != nullptr && CFEqual(theIdentifier, inIdentifier);
        });
    return theFound == theBundles.end() ? nullptr : *theFound;
}

CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef inBundle)
{
    return RequireBundle(inBundle, "CFBundleGetInfoDictionary").mInfo.Get();
}

CFDictionaryRef CFBundleGetLocalInfoDictionary(CFBundleRef inBundle)
{
    __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleGetLocalInfoDictionary");
    return NothingWithoutMemory([&] { return TableOf(theBundle, CFSTR("InfoPlist")); });
}

CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef inBundle, CFStringRef inKey)
{
    const __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleGetValueForInfoDictionaryKey");
    Host::Require(inKey, Host::kStringType, "CFBundleGetValueForInfoDictionaryKey");
    const CFDictionaryRef theLocal = CFBundleGetLocalInfoDictionary(inBundle);
    const CFTypeRef theValue = theLocal == nullptr ? nullptr : CFDictionaryGetValue(theLocal, inKey);
    return theValue == nullptr ? CFDictionaryGetValue(theBundle.mInfo.Get(), inKey) : theValue;
}

CFStringRef CFBundleGetIdentifier(CFBundleRef inBundle)
{
    return TextFor(CFBundleGetInfoDictionary(inBundle), kCFBundleIdentifierKey);
}

UInt32 CFBundleGetVersionNumber(CFBundleRef inBundle)
{
    const CFDictionaryRef theInfo = CFBundleGetInfoDictionary(inBundle);
    return NothingWithoutMemory(
        [&] { return PackVersion(ToText(TextFor(theInfo, kCFBundleVersionKey), "")); });
}

void CFBundleGetPackageInfo(CFBundleRef inBundle, UInt32* outType, UInt32* outCreator)
{
    const __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleGetPackageInfo");
    UInt32 theType = CodeOf(TextFor(theBundle.mInfo.Get(), CFSTR("CFBundlePackageType")));
    UInt32 theCreator = CodeOf(TextFor(theBundle.mInfo.Get(), CFSTR("CFBundleSignature")));
    NothingWithoutMemory([&] {
        std::string theContent;
        if (Host::ReadFile(theBundle.mFolders.theSupport + "/PkgInfo", theContent) ==
                Host::FileContent::kRead &&
            theContent.size() >= 8) {
            const std::string_view theCodes = theContent;
            theType = theType == 0 ? CodeOf(theCodes.substr(0, 4)) : theType;
            theCreator = theCreator == 0 ? CodeOf(theCodes.substr(4, 4)) : theCreator;
        }
        return 0;
    });
    if (outType != nullptr) {
        *outType = theType;
    }
    if (outCreator != nullptr) {
        *outCreator = theCreator;
    }
}

CFURLRef CFBundleCopyBundleURL(CFBundleRef inBundle)
{
    const __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleCopyBundleURL");
    return NothingWithoutMemory([&] { return Host::MakeFileURL(theBundle.mFolders.theRoot, true); });
}

CFURLRef CFBundleCopyExecutableURL(CFBundleRef inBundle)
{
    const __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleCopyExecutableURL");
    return NothingWithoutMemory([&] { return MakeURL(PathOfCode(theBundle)); });
}

CFURLRef CFBundleCopyResourcesDirectoryURL(CFBundleRef inBundle)
{
    const __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleCopyResourcesDirectoryURL");
    return NothingWithoutMemory([&] { return Host::MakeFileURL(theBundle.mFolders.theResources, true); });
}

CFURLRef CFBundleCopySupportFilesDirectoryURL(CFBundleRef inBundle)
{
    const __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleCopySupportFilesDirectoryURL");
    return NothingWithoutMemory([&] { return Host::MakeFileURL(theBundle.mFolders.theSupport, true); });
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef inBundle, CFStringRef inName, CFStringRef inType,
                                 CFStringRef inSubfolder)
{
    const char* const kCaller = "CFBundleCopyResourceURL";
    const __CFBundle& theBundle = RequireBundle(inBundle, kCaller);
    Host::Require(inName, Host::kStringType, kCaller);
    return NothingWithoutMemory([&] {
        return FindResource(theBundle,
                            QueryFor(inName, inType, inSubfolder, LanguagesFor(theBundle), kCaller));
    });
}

CFURLRef CFBundleCopyResourceURLForLocalization(CFBundleRef inBundle, CFStringRef inName, CFStringRef inType,
                                                CFStringRef inSubfolder, CFStringRef inLanguage)
{
    const char* const kCaller = "CFBundleCopyResourceURLForLocalization";
    const __CFBundle& theBundle = RequireBundle(inBundle, kCaller);
    Host::Require(inName, Host::kStringType, kCaller);
    return NothingWithoutMemory([&] {
        return FindResource(theBundle,
                            QueryFor(inName, inType, inSubfolder, {ToText(inLanguage, kCaller)}, kCaller));
    });
}

CFArrayRef CFBundleCopyResourceURLsOfType(CFBundleRef inBundle, CFStringRef inType, CFStringRef inSubfolder)
{
    const char* const kCaller = "CFBundleCopyResourceURLsOfType";
    const __CFBundle& theBundle = RequireBundle(inBundle, kCaller);
    Host::Require(inType, Host::kStringType, kCaller);
    return NothingWithoutMemory([&]() -> CFArrayRef {
        auto theURLs = Host::RequireMemory(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
        const Host::ResourceQuery theQuery =
            QueryFor(nullptr, nullptr, inSubfolder, LanguagesFor(theBundle), kCaller);
        for (const std::string& thePath :
             Host::FindResources(theBundle.mFolders, ToText(inType, kCaller), theQuery)) {
            const Holder<CFURLRef> theURL(MakeURL(thePath));
            Host::AppendToList(theURLs.Get(), theURL.Get());
        }
        return theURLs.Release();
    });
}

CFStringRef CFBundleCopyLocalizedString(CFBundleRef inBundle, CFStringRef inKey, CFStringRef inDefault,
                                        CFStringRef inTable)
{
    const char* const kCaller = "CFBundleCopyLocalizedString";
    __CFBundle& theBundle = RequireBundle(inBundle, kCaller);
    Host::Require(inKey, Host::kStringType, kCaller);
    const bool theIsNamed =
        inTable != nullptr && CFStringGetLength(Host::Require(inTable, Host::kStringType, kCaller)) > 0;
    const bool theHasDefault =
        inDefault != nullptr && CFStringGetLength(Host::Require(inDefault, Host::kStringType, kCaller)) > 0;
    const CFDictionaryRef theTable =
        NothingWithoutMemory([&] { return TableOf(theBundle, theIsNamed ? inTable : CFSTR("Localizable")); });
    const CFStringRef theText = TextFor(theTable, inKey);
    return CFStringCreateCopy(nullptr, theText != nullptr ? theText : theHasDefault ? inDefault : inKey);
}

CFArrayRef CFBundleCopyBundleLocalizations(CFBundleRef inBundle)
{
    const __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleCopyBundleLocalizations");
    return NothingWithoutMemory([&] { return MakeTexts(Host::LanguagesIn(theBundle.mFolders)); });
}

CFArrayRef CFBundleCopyPreferredLocalizationsFromArray(CFArrayRef inLanguages)
{
    Host::Require(inLanguages, Host::kArrayType, "CFBundleCopyPreferredLocalizationsFromArray");
    return NothingWithoutMemory([&] {
        std::vector<std::string> theOffered;
        for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(inLanguages); ++theIndex) {
            const auto theText = static_cast<CFStringRef>(CFArrayGetValueAtIndex(inLanguages, theIndex));
            theOffered.push_back(ToText(theText, "CFBundleCopyPreferredLocalizationsFromArray"));
        }
        std::vector<std::string> theResult;
        for (const std::string& theName : NamesOfUserLanguages()) {
            if (std::find(theOffered.begin(), theOffered.end(), theName) != theOffered.end()) {
                theResult.push_back(theName);
            }
        }
        if (theResult.empty() && !theOffered.empty()) {
            theResult.push_back(theOffered[0]);
        }
        return MakeTexts(theResult);
    });
}

Boolean CFBundleLoadExecutable(CFBundleRef inBundle)
{
    __CFBundle& theBundle = RequireBundle(inBundle, "CFBundleLoadExecutable");
    return NothingWithoutMemory([&]() -> Boolean { return CodeOf(theBundle) != nullptr; });
}

void* CFBundleGetFunctionPointerForName(CFBundleRef inBundle, CFStringRef inName)
{
    const char* const kCaller = "CFBundleGetFunctionPointerForName";
    __CFBundle& theBundle = RequireBundle(inBundle, kCaller);
    Host::Require(inName, Host::kStringType, kCaller);
    return NothingWithoutMemory([&] { return Host::FunctionOf(CodeOf(theBundle), ToText(inName, kCaller)); });
}
