// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFCalendar.h"
#include "CFNumberObject.h"
#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"

#include <algorithm>
#include <CoreFoundation/CFDate.h>

namespace {

const char* const kHeader = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                            "<plist version=\"1.0\">\n";

constexpr size_t kLongestDataLine = 76;
constexpr size_t kDataLineLossPerLevel = 8;

// The lines of data that is nested deeper begin no further to the right, so that there is room for them.
constexpr size_t kDeepestDataLevel = 8;

// Every three bytes are four characters; fewer are padded.
std::string EncodeBase64(const UInt8* theBytes, size_t theLength)
{
    static const char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string theText;
    for (size_t theStart = 0; theStart < theLength; theStart += 3) {
        const size_t theCount = std::min<size_t>(3, theLength - theStart);
        unsigned theBits = 0;
        for (size_t theIndex = 0; theIndex < 3; ++theIndex) {
            theBits = theBits << 8 | (theIndex < theCount ? theBytes[theStart + theIndex] : 0U);
        }
        for (unsigned theIndex = 0; theIndex < 4; ++theIndex) {
            theText += theIndex <= theCount ? kAlphabet[theBits >> (18 - 6 * theIndex) & 0x3F] : '=';
        }
    }
    return theText;
}

class Writer
{
public:
    std::string Write(CFPropertyListRef theList)
    {
        mText = kHeader;
        WriteObject(theList, 0);
        return std::move(mText) + "</plist>\n";
    }

private:
    void Indent(size_t theLevel) { mText.append(theLevel, '\t'); }

    void WriteLine(size_t theLevel, const char* theText)
    {
        Indent(theLevel);
        mText.append(theText) += '\n';
    }

    void WriteElement(size_t theLevel, const std::string& theName, const std::string& theContent)
    {
        Indent(theLevel);
        mText.append("<").append(theName).append(">").append(theContent);
        mText.append("</").append(theName).append(">\n");
    }

    void WriteObject(CFPropertyListRef theObject, size_t theLevel)
    {
        switch (CFGetTypeID(theObject)) {
        case Host::kArrayTypeID:
            WriteArray(static_cast<CFArrayRef>(theObject), theLevel);
            break;
        case Host::kDictionaryTypeID:
            WriteDictionary(static_cast<CFDictionaryRef>(theObject), theLevel);
            break;
        case Host::kDataTypeID:
            WriteData(static_cast<CFDataRef>(theObject), theLevel);
            break;
        case Host::kBooleanTypeID:
            WriteLine(theLevel, theObject == kCFBooleanTrue ? "<true/>" : "<false/>");
            break;
        case Host::kNumberTypeID:
            WriteNumber(static_cast<CFNumberRef>(theObject), theLevel);
            break;
        case Host::kDateTypeID:
            WriteElement(
                theLevel, "date",
                Host::DateText(CFDateGetAbsoluteTime(static_cast<CFDateRef>(theObject))).value_or(""));
            break;
        default:
            WriteText(theLevel, "string", static_cast<CFStringRef>(theObject));
        }
    }

    void WriteArray(CFArrayRef theArray, size_t theLevel)
    {
        const CFIndex theCount = CFArrayGetCount(theArray);
        if (theCount == 0) {
            WriteLine(theLevel, "<array/>");
            return;
        }
        WriteLine(theLevel, "<array>");
        for (CFIndex theIndex = 0; theIndex < theCount; ++theIndex) {
            WriteObject(CFArrayGetValueAtIndex(theArray, theIndex), theLevel + 1);
        }
        WriteLine(theLevel, "</array>");
    }

    void WriteDictionary(CFDictionaryRef theDictionary, size_t theLevel)
    {
        if (CFDictionaryGetCount(theDictionary) == 0) {
            WriteLine(theLevel, "<dict/>");
            return;
        }
        WriteLine(theLevel, "<dict>");
        for (const CFStringRef theKey : Host::SortedKeys(theDictionary)) {
            WriteText(theLevel + 1, "key", theKey);
            WriteObject(CFDictionaryGetValue(theDictionary, theKey), theLevel + 1);
        }
        WriteLine(theLevel, "</dict>");
    }

    void WriteNumber(CFNumberRef theNumber, size_t theLevel)
    {
        WriteElement(theLevel, theNumber->IsFloat() ? "real" : "integer", Host::NumberText(*theNumber));
    }

    void WriteData(CFDataRef theData, size_t theLevel)
    {
        const size_t theDataLevel = std::min(theLevel, kDeepestDataLevel);
        const size_t theLineLength = kLongestDataLine - kDataLineLossPerLevel * theDataLevel;
        const std::string theCode =
            EncodeBase64(CFDataGetBytePtr(theData), static_cast<size_t>(CFDataGetLength(theData)));
        WriteLine(theLevel, "<data>");
        for (size_t theStart = 0; theStart < theCode.size(); theStart += theLineLength) {
            Indent(theDataLevel);
            mText.append(theCode, theStart, theLineLength) += '\n';
        }
        WriteLine(theLevel, "</data>");
    }

    // Everything but the three characters that would be taken for markup goes out as it is.
    void WriteText(size_t theLevel, const char* theName, CFStringRef theString)
    {
        std::string theContent;
        for (const char theCharacter : Host::UTF8Text(theString).value_or("")) {
            switch (theCharacter) {
            case '<':
                theContent += "&lt;";
                break;
            case '>':
                theContent += "&gt;";
                break;
            case '&':
                theContent += "&amp;";
                break;
            default:
                theContent += theCharacter;
            }
        }
        WriteElement(theLevel, theName, theContent);
    }

    std::string mText;
};

} // namespace

std::string Host::WriteXMLPropertyList(CFPropertyListRef theList)
{
    return Writer().Write(theList);
}
