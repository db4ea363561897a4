// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFPropertyListText.h"

#include "CFPropertyListSupport.h"
#include "CFStringObject.h"

#include <algorithm>

namespace {

using Host::MalformedPropertyList;

// The encodings by the names that XML has for them, in lower case.
struct NamedEncoding
{
    std::string_view theName;
    CFStringEncoding theEncoding;
};

// What can be read as far as its header is not in UTF-16, whatever the header says.
const NamedEncoding kEncodings[] = {
    {"", kCFStringEncodingUTF8},
    {"utf-8", kCFStringEncodingUTF8},
    {"utf8", kCFStringEncodingUTF8},
    {"utf-16", kCFStringEncodingUTF8},
    {"us-ascii", kCFStringEncodingASCII},
    {"ascii", kCFStringEncodingASCII},
    {"iso-8859-1", kCFStringEncodingISOLatin1},
    {"latin1", kCFStringEncodingISOLatin1},
    {"windows-1252", kCFStringEncodingWindowsLatin1},
    {"macintosh", kCFStringEncodingMacRoman},
    {"x-mac-roman", kCFStringEncodingMacRoman},
};

constexpr std::string_view kUTF8Mark = "\xEF\xBB\xBF";

bool StartsWith(std::string_view theText, std::string_view theStart)
{
    return theText.substr(0, theStart.size()) == theStart;
}

// What the header of XML names, in lower case; empty when it names nothing.
std::string DeclaredEncoding(std::string_view theText)
{
    if (!StartsWith(theText, "<?xml")) {
        return std::string();
    }
    const std::string_view theHeader = theText.substr(0, theText.find("?>"));
    const size_t theAttribute = theHeader.find("encoding");
    const size_t theStart = std::min(theHeader.find_first_of("\"'", theAttribute), theHeader.size());
    if (theAttribute == std::string_view::npos || theStart == theHeader.size()) {
        return std::string();
    }
    const std::string_view theRest = theHeader.substr(theStart + 1);
    std::string theName(theRest.substr(0, theRest.find(theHeader[theStart])));
    for (char& theCharacter : theName) {
        theCharacter = static_cast<char>(theCharacter >= 'A' && theCharacter <= 'Z' ? theCharacter | 0x20
                                                                                    : theCharacter);
    }
    return theName;
}

CFStringEncoding EncodingOf(std::string_view theData)
{
    if (StartsWith(theData, "\xFE\xFF") || StartsWith(theData, "\xFF\xFE")) {
        return kCFStringEncodingUTF16;
    }
    if (theData.size() >= 2 && (theData[0] == '\0') != (theData[1] == '\0')) {
        return theData[0] == '\0' ? kCFStringEncodingUTF16BE : kCFStringEncodingUTF16LE;
    }
    const std::string theName = DeclaredEncoding(theData);
    const auto theFound =
        std::find_if(std::begin(kEncodings), std::end(kEncodings),
                     [&](const NamedEncoding& theEncoding) { return theEncoding.theName == theName; });
    if (theFound == std::end(kEncodings)) {
        throw MalformedPropertyList("its encoding is unknown");
    }
    return theFound->theEncoding;
}

} // namespace

std::string Host::DecodePropertyListText(std::string_view theData)
{
    if (StartsWith(theData, kUTF8Mark)) {
        return std::string(theData.substr(kUTF8Mark.size()));
    }
    const CFStringEncoding theEncoding = EncodingOf(theData);
    if (theEncoding == kCFStringEncodingUTF8) {
        return std::string(theData);
    }
    Units theUnits;
    const bool theIsText = DecodeBytes(reinterpret_cast<const UInt8*>(theData.data()),
                                       static_cast<CFIndex>(theData.size()), theEncoding, true, theUnits);
    const Holder<CFStringRef> theString(MakeString(std::move(theUnits)));
    const std::optional<std::string> theText = UTF8Text(theString.Get());
    if (!theIsText || !theText.has_value()) {
        throw MalformedPropertyList("it is not in its encoding");
    }
    return theText.value_or("");
}

void Host::AppendUTF8(std::string_view theText, Units& theUnits)
{
    // The decoder takes a mark at the start for one of the encoding; inside a text it is a character.
    if (StartsWith(theText, kUTF8Mark)) {
        theUnits.push_back(0xFEFF);
    }
    if (!DecodeBytes(reinterpret_cast<const UInt8*>(theText.data()), static_cast<CFIndex>(theText.size()),
                     kCFStringEncodingUTF8, false, theUnits)) {
        throw MalformedPropertyList("a string is not in UTF-8");
    }
}
