// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFURLObject.h"

#include "CFPropertyListSupport.h"
#include "CFStringObject.h"
#include "System/Folders.h"

#include <cstring>
#include <vector>

namespace {

using Host::Holder;
using Host::NothingWithoutMemory;
using Host::URLParts;

const __CFURL& URLOf(const Host::Object* theObject)
{
    return *static_cast<const __CFURL*>(theObject);
}

bool EqualURLs(const Host::Object* theFirst, const Host::Object* theSecond)
{
    const __CFURL& theURL = URLOf(theFirst);
    const __CFURL& theOther = URLOf(theSecond);
    const CFURLRef theBase = theURL.mBase.Get();
    const CFURLRef theOtherBase = theOther.mBase.Get();
    const bool theBasesAgree = theBase == nullptr || theOtherBase == nullptr
                                   ? theBase == theOtherBase
                                   : CFEqual(theBase, theOtherBase) != 0;
    return theBasesAgree && CFEqual(theURL.mString.Get(), theOther.mString.Get());
}

CFHashCode HashURL(const Host::Object* theObject)
{
    return CFHash(URLOf(theObject).mString.Get());
}

CFStringRef DescribeURL(const Host::Object* theObject)
{
    const __CFURL& theURL = URLOf(theObject);
    Host::Text theText;
    theText.AppendHeader(theObject).Append("{string = ").Append(theURL.mString.Get());
    if (theURL.mBase.Get() != nullptr) {
        theText.Append(", base = ").Append(theURL.mBase.Get()->mString.Get());
    }
    return theText.Append("}").CopyString();
}

CFStringRef CopyURLText(const Host::Object* theObject)
{
    return CFStringCreateCopy(nullptr, URLOf(theObject).mString.Get());
}

const __CFURL& RequireURL(CFURLRef theURL, const char* theCaller)
{
    return *Host::Require(theURL, Host::kURLType, theCaller);
}

void RequireString(CFStringRef theString, const char* theCaller)
{
    Host::Require(theString, Host::kStringType, theCaller);
}

// A string of bytes in UTF-8; NULL when they are none.
CFStringRef MakeText(std::string_view theText)
{
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(theText.data()),
                                   static_cast<CFIndex>(theText.size()), kCFStringEncodingUTF8, 0);
}

CFStringRef MakeText(const std::optional<std::string>& theText)
{
    return theText ? MakeText(std::string_view(*theText)) : nullptr;
}

// theBase may be null.
CFURLRef MakeURL(URLParts theParts, CFURLRef theBase)
{
    Holder<CFStringRef> theString = Host::RequireMemory(MakeText(std::string_view(Host::JoinURL(theParts))));
    const bool theIsAbsolute = theParts.theScheme.has_value();
    Holder<CFURLRef> theKept(theIsAbsolute || theBase == nullptr ? nullptr
                                                                 : static_cast<CFURLRef>(CFRetain(theBase)));
    auto* const theURL = new __CFURL(std::move(theParts), std::move(theString), theKept.Get());
    theKept.Release();
    return theURL;
}

URLParts AbsoluteParts(const __CFURL& theURL)
{
    return theURL.mBase.Get() == nullptr
               ? theURL.mParts
               : Host::ResolveURL(AbsoluteParts(*theURL.mBase.Get()), theURL.mParts);
}

bool IsFile(const URLParts& theParts)
{
    return !theParts.theScheme || *theParts.theScheme == "file";
}

CFURLRef MakeURLOfText(std::string_view theText, CFURLRef theBase)
{
    return Host::IsURLText(theText) ? MakeURL(Host::SplitURL(theText), theBase) : nullptr;
}

URLParts PartsOfPath(const std::string& thePath, bool theIsFolder)
{
    URLParts theParts;
    theParts.thePath = Host::EscapePath(thePath);
    if (theIsFolder && theParts.thePath.back() != '/') {
        theParts.thePath += '/';
    }
    if (thePath[0] == '/') {
        theParts.theScheme = "file";
        theParts.theAuthority = "localhost";
    } else if (theParts.thePath.substr(0, theParts.thePath.find('/')).find(':') != std::string::npos) {
        // What stands before the colon would be a scheme.
        theParts.thePath.insert(0, "./");
    }
    return theParts;
}

CFURLRef MakeURLOfPath(const std::string& thePath, bool theIsFolder)
{
    if (thePath.empty() || thePath.find('\0') != std::string::npos) {
        return nullptr;
    }
    if (thePath[0] == '/') {
        return MakeURL(PartsOfPath(thePath, theIsFolder), nullptr);
    }
    const Holder<CFURLRef> theBase(MakeURL(PartsOfPath(Host::CurrentFolder(), true), nullptr));
    return MakeURL(PartsOfPath(thePath, theIsFolder), theBase.Get());
}

// A copy whose path is what theChange makes of it.
template <class Change>
CFURLRef CopyWithPath(CFURLRef theURL, const char* theCaller, const Change& theChange)
{
    const __CFURL& theOld = RequireURL(theURL, theCaller);
    return NothingWithoutMemory([&]() -> CFURLRef {
        URLParts theParts = theOld.mParts;
        const std::optional<std::string> thePath = theChange(theParts.thePath);
        if (!thePath) {
            return nullptr;
        }
        theParts.thePath = *thePath;
        return MakeURL(std::move(theParts), theOld.mBase.Get());
    });
}

// A slash where a folder has one.
const char* EndOf(bool theIsFolder)
{
    return theIsFolder ? "/" : "";
}

bool IsFolderPath(const std::string& thePath)
{
    return !thePath.empty() && thePath.back() == '/';
}

// The bytes of one character of a string in an encoding; false when it has none.
bool BytesOfCharacter(CFStringRef theText, CFRange theRange, CFStringEncoding theEncoding,
                      std::string& theBytes)
{
    UInt8 theBuffer[16];
    CFIndex theUsed = 0;
    const bool theIsDone = CFStringGetBytes(theText, theRange, theEncoding, 0, 0, theBuffer, sizeof theBuffer,
                                            &theUsed) == theRange.length;
    theBytes.assign(reinterpret_cast<const char*>(theBuffer), static_cast<size_t>(theUsed));
    return theIsDone;
}

// The units of the character at a place: two for a surrogate pair.
CFIndex CharacterLength(CFStringRef theText, CFIndex thePlace)
{
    const bool theIsPair =
        CFStringIsSurrogateHighCharacter(CFStringGetCharacterAtIndex(theText, thePlace)) != 0 &&
        thePlace + 1 < CFStringGetLength(theText);
    return theIsPair ? 2 : 1;
}

bool Has(CFStringRef theCharacters, UniChar theUnit)
{
    const CFIndex theLength = theCharacters == nullptr ? 0 : CFStringGetLength(theCharacters);
    for (CFIndex theIndex = 0; theIndex < theLength; ++theIndex) {
        if (CFStringGetCharacterAtIndex(theCharacters, theIndex) == theUnit) {
            return true;
        }
    }
    return false;
}

// Characters that stand for themselves in every URL.
bool NeedsNoEscape(UniChar theUnit)
{
    constexpr std::string_view kSigns = "-_.!~*'();/?:@&=+$,";
    const bool theIsLetter = (theUnit >= 'a' && theUnit <= 'z') || (theUnit >= 'A' && theUnit <= 'Z');
    return theIsLetter || (theUnit >= '0' && theUnit <= '9') ||
           (theUnit < 0x80 && kSigns.find(static_cast<char>(theUnit)) != std::string_view::npos);
}

// The bytes that the first byte of a character in UTF-8 announces.
size_t SequenceLength(char theFirst)
{
    const auto theByte = static_cast<unsigned char>(theFirst);
    return theByte < 0x80 ? 1 : theByte < 0xE0 ? 2 : theByte < 0xF0 ? 3 : 4;
}

// Takes the escapes of one character off the text, and appends it, or them where it is to be left.
void ReplaceEscapes(std::string_view& theText, const std::string& theToLeave, std::string& theResult)
{
    std::string theCharacter(1, Host::ByteOfEscape(theText));
    const size_t theLength = SequenceLength(theCharacter[0]);
    std::string_view theRest = theText.substr(3);
    while (theCharacter.size() < theLength && Host::IsEscape(theRest)) {
        theCharacter += Host::ByteOfEscape(theRest);
        theRest.remove_prefix(3);
    }
    const bool theIsLeft = theToLeave.find(theCharacter) != std::string::npos;
    theResult +=
        theIsLeft ? theText.substr(0, theText.size() - theRest.size()) : std::string_view(theCharacter);
    theText = theRest;
}

} // namespace

const Host::TypeOperations Host::kURLType = {kURLTypeID, "CFURL",     Delete<__CFURL>, EqualURLs,
                                             HashURL,    DescribeURL, CopyURLText};

std::optional<std::string> Host::PathOfFile(CFURLRef theURL)
{
    const URLParts theParts = AbsoluteParts(*theURL);
    if (!IsFile(theParts)) {
        return std::nullopt;
    }
    return Unescape(WithoutSlash(theParts.thePath));
}

CFURLRef Host::MakeFileURL(const std::string& thePath, bool theIsFolder)
{
    return MakeURL(PartsOfPath(thePath, theIsFolder), nullptr);
}

CFTypeID CFURLGetTypeID(void)
{
    return Host::kURLTypeID;
}

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef inFilePath, CFURLPathStyle inPathStyle,
                                       Boolean inIsDirectory)
{
    RequireString(inFilePath, "CFURLCreateWithFileSystemPath");
    if (inPathStyle != kCFURLPOSIXPathStyle) {
        return nullptr;
    }
    return NothingWithoutMemory([&]() -> CFURLRef {
        const std::optional<std::string> thePath = Host::UTF8Text(inFilePath);
        return thePath ? MakeURLOfPath(*thePath, inIsDirectory != 0) : nullptr;
    });
}

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* inBuffer, CFIndex inLength,
                                                 Boolean inIsDirectory)
{
    const Holder<CFStringRef> thePath(
        CFStringCreateWithBytes(nullptr, inBuffer, inLength, kCFStringEncodingUTF8, 0));
    return thePath.Get() == nullptr
               ? nullptr
               : CFURLCreateWithFileSystemPath(nullptr, thePath.Get(), kCFURLPOSIXPathStyle, inIsDirectory);
}

CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef inText, CFURLRef inBase)
{
    RequireString(inText, "CFURLCreateWithString");
    if (inBase != nullptr) {
        RequireURL(inBase, "CFURLCreateWithString");
    }
    return NothingWithoutMemory([&]() -> CFURLRef {
        const std::optional<std::string> theText = Host::UTF8Text(inText);
        return theText ? MakeURLOfText(*theText, inBase) : nullptr;
    });
}

CFURLRef CFURLCreateWithBytes(CFAllocatorRef, const UInt8* inBytes, CFIndex inLength,
                              CFStringEncoding inEncoding, CFURLRef inBase)
{
    const Holder<CFStringRef> theText(CFStringCreateWithBytes(nullptr, inBytes, inLength, inEncoding, 0));
    return theText.Get() == nullptr ? nullptr : CFURLCreateWithString(nullptr, theText.Get(), inBase);
}

CFURLRef CFURLCopyAbsoluteURL(CFURLRef inURL)
{
    const __CFURL& theURL = RequireURL(inURL, "CFURLCopyAbsoluteURL");
    if (theURL.mBase.Get() == nullptr) {
        return static_cast<CFURLRef>(CFRetain(inURL));
    }
    return NothingWithoutMemory([&] { return MakeURL(AbsoluteParts(theURL), nullptr); });
}

CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef, CFURLRef inURL, CFStringRef inComponent,
                                               Boolean inIsDirectory)
{
    const char* const kCaller = "CFURLCreateCopyAppendingPathComponent";
    RequireString(inComponent, kCaller);
    return CopyWithPath(inURL, kCaller, [&](const std::string& thePath) -> std::optional<std::string> {
        const std::optional<std::string> theComponent = Host::UTF8Text(inComponent);
        if (!theComponent) {
            return std::nullopt;
        }
        const char* const theSlash = thePath.empty() || IsFolderPath(thePath) ? "" : "/";
        const std::string theEscaped = Host::EscapePath(*theComponent);
        return thePath + theSlash + theEscaped + EndOf(inIsDirectory != 0 && !IsFolderPath(theEscaped));
    });
}

CFURLRef CFURLCreateCopyDeletingLastPathComponent(CFAllocatorRef, CFURLRef inURL)
{
    return CopyWithPath(inURL, "CFURLCreateCopyDeletingLastPathComponent", [](const std::string& thePath) {
        return std::optional(Host::WithoutLastComponent(thePath));
    });
}

CFURLRef CFURLCreateCopyAppendingPathExtension(CFAllocatorRef, CFURLRef inURL, CFStringRef inExtension)
{
    const char* const kCaller = "CFURLCreateCopyAppendingPathExtension";
    RequireString(inExtension, kCaller);
    return CopyWithPath(inURL, kCaller, [&](const std::string& thePath) -> std::optional<std::string> {
        const std::optional<std::string> theExtension = Host::UTF8Text(inExtension);
        if (!theExtension) {
            return std::nullopt;
        }
        return Host::WithoutSlash(thePath) + "." + Host::EscapePath(*theExtension) +
               EndOf(IsFolderPath(thePath));
    });
}

CFURLRef CFURLCreateCopyDeletingPathExtension(CFAllocatorRef, CFURLRef inURL)
{
    return CopyWithPath(inURL, "CFURLCreateCopyDeletingPathExtension", [](const std::string& thePath) {
        const size_t theLength = Host::ExtensionLength(Host::LastComponent(thePath));
        const std::string theWhole = Host::WithoutSlash(thePath);
        return std::optional(theLength == 0 ? thePath
                                            : theWhole.substr(0, theWhole.size() - theLength) +
                                                  EndOf(IsFolderPath(thePath)));
    });
}

CFStringRef CFURLGetString(CFURLRef inURL)
{
    return RequireURL(inURL, "CFURLGetString").mString.Get();
}

CFURLRef CFURLGetBaseURL(CFURLRef inURL)
{
    return RequireURL(inURL, "CFURLGetBaseURL").mBase.Get();
}

Boolean CFURLGetFileSystemRepresentation(CFURLRef inURL, Boolean inResolveAgainstBase, UInt8* outBuffer,
                                         CFIndex inMaximum)
{
    const __CFURL& theURL = RequireURL(inURL, "CFURLGetFileSystemRepresentation");
    return NothingWithoutMemory([&]() -> Boolean {
        const URLParts theParts = inResolveAgainstBase != 0 ? AbsoluteParts(theURL) : theURL.mParts;
        const std::optional<std::string> thePath = Host::Unescape(Host::WithoutSlash(theParts.thePath));
        if (!IsFile(AbsoluteParts(theURL)) || !thePath || outBuffer == nullptr ||
            inMaximum <= static_cast<CFIndex>(thePath->size())) {
            return 0;
        }
        std::memcpy(outBuffer, thePath->c_str(), thePath->size() + 1);
        return 1;
    });
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef inURL, CFURLPathStyle inPathStyle)
{
    const __CFURL& theURL = RequireURL(inURL, "CFURLCopyFileSystemPath");
    if (inPathStyle != kCFURLPOSIXPathStyle) {
        return nullptr;
    }
    return NothingWithoutMemory(
        [&] { return MakeText(Host::Unescape(Host::WithoutSlash(theURL.mParts.thePath))); });
}

CFStringRef CFURLCopyPath(CFURLRef inURL)
{
    return MakeText(std::string_view(RequireURL(inURL, "CFURLCopyPath").mParts.thePath));
}

CFStringRef CFURLCopyScheme(CFURLRef inURL)
{
    const __CFURL& theURL = RequireURL(inURL, "CFURLCopyScheme");
    return NothingWithoutMemory([&] { return MakeText(AbsoluteParts(theURL).theScheme); });
}

CFStringRef CFURLCopyHostName(CFURLRef inURL)
{
    const __CFURL& theURL = RequireURL(inURL, "CFURLCopyHostName");
    return NothingWithoutMemory([&]() -> CFStringRef {
        const std::optional<std::string> theAuthority = AbsoluteParts(theURL).theAuthority;
        if (!theAuthority || theAuthority->empty()) {
            return nullptr;
        }
        const std::string theHost = theAuthority->substr(theAuthority->rfind('@') + 1);
        const size_t theEnd =
            theHost.find(':', theHost.rfind(']') == std::string::npos ? 0 : theHost.rfind(']'));
        return MakeText(Host::Unescape(theHost.substr(0, theEnd)));
    });
}

CFStringRef CFURLCopyLastPathComponent(CFURLRef inURL)
{
    const __CFURL& theURL = RequireURL(inURL, "CFURLCopyLastPathComponent");
    return NothingWithoutMemory(
        [&] { return MakeText(Host::Unescape(Host::LastComponent(theURL.mParts.thePath))); });
}

CFStringRef CFURLCopyPathExtension(CFURLRef inURL)
{
    const __CFURL& theURL = RequireURL(inURL, "CFURLCopyPathExtension");
    return NothingWithoutMemory([&]() -> CFStringRef {
        const std::string theComponent = Host::LastComponent(theURL.mParts.thePath);
        const size_t theLength = Host::ExtensionLength(theComponent);
        return theLength == 0
                   ? nullptr
                   : MakeText(Host::Unescape(theComponent.substr(theComponent.size() - theLength + 1)));
    });
}

Boolean CFURLHasDirectoryPath(CFURLRef inURL)
{
    return IsFolderPath(RequireURL(inURL, "CFURLHasDirectoryPath").mParts.thePath);
}

CFStringRef CFURLCreateStringByAddingPercentEscapes(CFAllocatorRef, CFStringRef inText, CFStringRef inToLeave,
                                                    CFStringRef inToEscape, CFStringEncoding inEncoding)
{
    RequireString(inText, "CFURLCreateStringByAddingPercentEscapes");
    return NothingWithoutMemory([&]() -> CFStringRef {
        std::string theResult;
        std::string theBytes;
        CFIndex theLength = 0;
        for (CFIndex thePlace = 0; thePlace < CFStringGetLength(inText); thePlace += theLength) {
            const UniChar theUnit = CFStringGetCharacterAtIndex(inText, thePlace);
            theLength = CharacterLength(inText, thePlace);
            const bool theStays =
                (NeedsNoEscape(theUnit) || Has(inToLeave, theUnit)) && !Has(inToEscape, theUnit);
            const CFStringEncoding theEncoding =
                theStays ? CFStringEncoding{kCFStringEncodingUTF8} : inEncoding;
            if (!BytesOfCharacter(inText, CFRangeMake(thePlace, theLength), theEncoding, theBytes)) {
                return nullptr;
            }
            for (const char theByte : theBytes) {
                theStays ? void(theResult += theByte) : Host::AppendEscape(theByte, theResult);
            }
        }
        return MakeText(std::string_view(theResult));
    });
}

CFStringRef CFURLCreateStringByReplacingPercentEscapes(CFAllocatorRef, CFStringRef inText,
                                                       CFStringRef inToLeave)
{
    RequireString(inText, "CFURLCreateStringByReplacingPercentEscapes");
    if (inToLeave == nullptr) {
        return CFStringCreateCopy(nullptr, inText);
    }
    return NothingWithoutMemory([&]() -> CFStringRef {
        const std::optional<std::string> theText = Host::UTF8Text(inText);
        const std::optional<std::string> theToLeave = Host::UTF8Text(inToLeave);
        if (!theText || !theToLeave) {
            return nullptr;
        }
        std::string theResult;
        for (std::string_view theRest = *theText; !theRest.empty();) {
            if (Host::IsEscape(theRest)) {
                ReplaceEscapes(theRest, *theToLeave, theResult);
            } else {
                theResult += theRest[0];
                theRest.remove_prefix(1);
            }
        }
        return MakeText(std::string_view(theResult));
    });
}
