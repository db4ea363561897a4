// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmWordFormatters.h"

#include "LmCharacters.h"

#include <cmath>

namespace {

CFStringRef CreateText(const std::string& theText, CFStringEncoding theEncoding)
{
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(theText.data()),
                                   static_cast<CFIndex>(theText.size()), theEncoding, false);
}

// The empty text for what is not UTF-8.
LmValue TextOfUTF8(const std::string& theText)
{
    CFStringRef theString = CreateText(theText, kCFStringEncodingUTF8);
    if (theString == nullptr) {
        // In Latin 1 all bytes are text: where there is memory for that, it is no UTF-8 that is null again.
        const LmScopedReference<CFStringRef> theBytes(
            LmRequireMemory(CreateText(theText, kCFStringEncodingISOLatin1)));
        theString = CreateText(theText, kCFStringEncodingUTF8);
    }
    return theString == nullptr ? LmValue(CFSTR(""), false) : LmValue(theString, true);
}

bool IsDigit(char16_t theCharacter)
{
    return theCharacter >= u'0' && theCharacter <= u'9';
}

bool IsCapital(char16_t theCharacter)
{
    return theCharacter >= u'A' && theCharacter <= u'Z';
}

char16_t Capital(char16_t theCharacter)
{
    return theCharacter >= u'a' && theCharacter <= u'z' ? static_cast<char16_t>(theCharacter - u'a' + u'A')
                                                        : theCharacter;
}

// Whether the character of a text stands where the pattern has that of a kind.
bool IsOfKind(char16_t theKind, char16_t theCharacter)
{
    return (theKind != u'A' && IsDigit(theCharacter)) || (theKind != u'0' && IsCapital(theCharacter));
}

void SkipBlanks(const LmCharacters& theText, std::size_t& ioPosition)
{
    while (ioPosition < theText.size() && theText[ioPosition] == u' ') {
        ++ioPosition;
    }
}

// The text, of plain characters, in the form of the pattern; false when it does not have it.
bool ReadPattern(const LmCharacters& thePattern, const LmCharacters& theText, LmCharacters& outForm)
{
    std::size_t thePosition = 0;
    for (std::size_t theIndex = 0; theIndex < thePattern.size(); ++theIndex) {
        const char16_t theKind = thePattern[theIndex];
        SkipBlanks(theText, thePosition);
        const char16_t theCharacter = thePosition < theText.size() ? Capital(theText[thePosition]) : u'\0';
        if (theKind == u'0' || theKind == u'A' || theKind == u'X') {
            if (!IsOfKind(theKind, theCharacter)) {
                return false;
            }
            outForm.push_back(theCharacter);
            ++thePosition;
            continue;
        }
        theIndex += theKind == u'\\' && theIndex + 1 < thePattern.size() ? 1 : 0;
        const char16_t theLiteral = thePattern[theIndex];
        const bool isThere = thePosition < theText.size() &&
                             LmCharacters(1, theCharacter) == LmPlainCharacters({Capital(theLiteral)});
        outForm.push_back(theLiteral);
        thePosition += isThere ? 1 : 0;
    }
    SkipBlanks(theText, thePosition);
    return thePosition == theText.size();
}

} // namespace

LmWordFormatter::LmWordFormatter(const std::vector<std::string>& theWords)
{
    mWords.reserve(theWords.size());
    for (const std::string& theWord : theWords) {
        mWords.push_back(TextOfUTF8(theWord));
    }
}

LmWordFormatter::~LmWordFormatter() = default;

LmReading LmWordFormatter::Parse(CFStringRef theText) const
{
    const LmValue theTyped = LmTextValue(LmPlainCharacters(LmCharactersOf(theText)));
    LmCharacters theChoices;
    for (std::size_t theIndex = 0; theIndex < mWords.size() && theTyped.IsString(); ++theIndex) {
        const LmCharacters theWord = LmCharactersOf(mWords[theIndex].GetString());
        const LmValue thePlain = LmTextValue(LmPlainCharacters(theWord));
        if (thePlain.IsString() && CFStringCompare(thePlain.GetString(), theTyped.GetString(),
                                                   kCFCompareCaseInsensitive) == kCFCompareEqualTo) {
            return LmReading::Accept(LmValue(static_cast<long>(theIndex)));
        }
        theChoices += (theIndex > 0 ? LmCharacters(u", ") : LmCharacters()) + theWord;
    }
    return LmRefusal(CFSTR("Only these are possible: %@."), theChoices);
}

LmValue LmWordFormatter::Format(const LmValue& theValue) const
{
    const double thePlace = theValue.IsNumber() ? theValue.GetDouble() : -1;
    const bool isPlace =
        thePlace >= 0 && thePlace < static_cast<double>(mWords.size()) && std::floor(thePlace) == thePlace;
    return isPlace ? mWords[static_cast<std::size_t>(thePlace)] : LmValue();
}

LmPatternFormatter::LmPatternFormatter(const char* thePattern)
    : mPattern(LmCharactersOf(TextOfUTF8(thePattern != nullptr ? thePattern : "").GetString()))
{
}

LmPatternFormatter::~LmPatternFormatter() = default;

LmReading LmPatternFormatter::Parse(CFStringRef theText) const
{
    LmCharacters theForm;
    return ReadPattern(mPattern, LmPlainCharacters(LmCharactersOf(theText)), theForm)
               ? LmReading::Accept(LmTextValue(theForm))
               : LmRefusal(CFSTR("The text must look like %@."), mPattern);
}

LmValue LmPatternFormatter::Format(const LmValue& theValue) const
{
    const bool isText = theValue.IsString() && theValue.GetString() != nullptr;
    return isText ? Parse(theValue.GetString()).theValue : LmValue();
}
