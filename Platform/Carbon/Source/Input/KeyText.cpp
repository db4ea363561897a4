// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "KeyText.h"

#include <vector>

namespace Host {

namespace {

struct SpecialKey
{
    UInt32 theKey;
    char theCharacter;
};

// The Enter key of portable keyboards has no name of its own.
constexpr UInt32 kPortableEnterKey = 52;

constexpr SpecialKey kSpecialKeys[] = {
    {kVK_Return, kReturnCharCode},
    {kVK_ANSI_KeypadEnter, kEnterCharCode},
    {kPortableEnterKey, kEnterCharCode},
    {kVK_Tab, kTabCharCode},
    {kVK_Delete, kBackspaceCharCode},
    {kVK_ForwardDelete, kDeleteCharCode},
    {kVK_Escape, kEscapeCharCode},
    {kVK_LeftArrow, kLeftArrowCharCode},
    {kVK_RightArrow, kRightArrowCharCode},
    {kVK_UpArrow, kUpArrowCharCode},
    {kVK_DownArrow, kDownArrowCharCode},
    {kVK_Home, kHomeCharCode},
    {kVK_End, kEndCharCode},
    {kVK_PageUp, kPageUpCharCode},
    {kVK_PageDown, kPageDownCharCode},
    {kVK_Help, kHelpCharCode},
};

char MacCharacterOf(CFStringRef theString)
{
    UInt8 theByte = 0;
    CFIndex theUsed = 0;
    const CFIndex theConverted =
        CFStringGetBytes(theString, CFRangeMake(0, CFStringGetLength(theString)), kCFStringEncodingMacRoman,
                         '?', false, &theByte, 1, &theUsed);
    return theConverted > 0 && theUsed == 1 ? static_cast<char>(theByte) : '?';
}

CFStringRef CopyString(const std::string& theText)
{
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(theText.data()),
                                   static_cast<CFIndex>(theText.size()), kCFStringEncodingUTF8, false);
}

std::u16string CharactersOf(CFStringRef theString)
{
    const CFIndex theLength = CFStringGetLength(theString);
    std::vector<UniChar> theCharacters(static_cast<size_t>(theLength));
    CFStringGetCharacters(theString, CFRangeMake(0, theLength), theCharacters.data());
    return {theCharacters.begin(), theCharacters.end()};
}

} // namespace

KeyText TextOfKey(UInt32 theKey, const std::string& theTyped)
{
    for (const SpecialKey& theSpecial : kSpecialKeys) {
        if (theSpecial.theKey == theKey) {
            return {std::u16string(1, static_cast<char16_t>(theSpecial.theCharacter)),
                    theSpecial.theCharacter};
        }
    }
    KeyText theText;
    CFStringRef theString = theTyped.empty() ? nullptr : CopyString(theTyped);
    if (theString != nullptr) {
        theText.theUnicode = CharactersOf(theString);
        theText.theMacCharacter = MacCharacterOf(theString);
        CFRelease(theString);
    }
    return theText;
}

std::u16string ToUtf16(const std::string& theText)
{
    CFStringRef theString = CopyString(theText);
    if (theString == nullptr) {
        return {};
    }
    std::u16string theCharacters = CharactersOf(theString);
    CFRelease(theString);
    return theCharacters;
}

} // namespace Host
