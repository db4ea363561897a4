// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EntryParser.h"

#include "LineReader.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <simdjson.h>

namespace Inspect {

namespace {

using simdjson::dom::element;

// Entries nest three deep. What nests deeper is no entry, and costs no more than that to find out.
constexpr std::size_t kDeepest = 16;

struct ValueKind
{
    std::string_view theName;
    Value::Kind theKind;
};

constexpr std::array<ValueKind, 13> kValueKinds = {{{"invalid", Value::Kind::Invalid},
                                                    {"boolean", Value::Kind::Boolean},
                                                    {"uint32", Value::Kind::UInt32},
                                                    {"sint32", Value::Kind::SInt32},
                                                    {"uint64", Value::Kind::UInt64},
                                                    {"sint64", Value::Kind::SInt64},
                                                    {"double", Value::Kind::Double},
                                                    {"pointer", Value::Kind::Pointer},
                                                    {"string", Value::Kind::String},
                                                    {"point", Value::Kind::Point},
                                                    {"size", Value::Kind::Size},
                                                    {"rect", Value::Kind::Rect},
                                                    {"unknown", Value::Kind::Unknown}}};

bool ReadWhole(const char* theText, int theBase, std::uint64_t& theNumber)
{
    char* theEnd = nullptr;
    errno = 0;
    theNumber = std::strtoull(theText, &theEnd, theBase);
    return errno == 0 && theEnd != theText && *theEnd == '\0';
}

// "0x55d0c2a41b2f"
bool ReadAddress(const element& theElement, std::uint64_t& theAddress)
{
    std::string_view theText;
    return theElement.get(theText) == simdjson::SUCCESS && theText.substr(0, 2) == "0x" &&
           theText.size() > 2 && theText.size() <= 18 &&
           theText.find_first_not_of("0123456789abcdefABCDEF", 2) == std::string_view::npos &&
           ReadWhole(std::string(theText).c_str(), 16, theAddress);
}

bool ReadUnsigned(const element& theElement, std::uint64_t theMost, std::uint64_t& theNumber)
{
    return theElement.get(theNumber) == simdjson::SUCCESS && theNumber <= theMost;
}

bool ReadSigned32(const element& theElement, std::uint64_t& theNumber)
{
    std::int64_t theSigned = 0;
    if (theElement.get(theSigned) != simdjson::SUCCESS ||
        theSigned < std::numeric_limits<std::int32_t>::min() ||
        theSigned > std::numeric_limits<std::int32_t>::max()) {
        return false;
    }
    theNumber = static_cast<std::uint64_t>(theSigned);
    return true;
}

// Integers of 64 bits are strings.
bool ReadLong(const element& theElement, bool isSigned, std::uint64_t& theNumber)
{
    std::string_view theText;
    if (theElement.get(theText) != simdjson::SUCCESS || theText.empty() || theText.size() > 20) {
        return false;
    }
    const bool isNegative = theText.front() == '-';
    const std::string_view theDigits = theText.substr(isNegative ? 1 : 0);
    if (theDigits.find_first_not_of("0123456789") != std::string_view::npos ||
        !ReadWhole(std::string(theDigits).c_str(), 10, theNumber)) {
        return false;
    }
    constexpr std::uint64_t kMost = std::numeric_limits<std::int64_t>::max();
    if (isSigned ? theNumber > kMost + (isNegative ? 1 : 0) : isNegative) {
        return false;
    }
    theNumber = isNegative ? 0 - theNumber : theNumber;
    return true;
}

bool ReadDouble(const element& theElement, double& theNumber)
{
    if (theElement.get(theNumber) == simdjson::SUCCESS) {
        return true;
    }
    std::string_view theText;
    if (theElement.get(theText) != simdjson::SUCCESS) {
        return false;
    }
    if (theText == "nan") {
        theNumber = std::numeric_limits<double>::quiet_NaN();
    } else if (theText == "inf" || theText == "-inf") {
        theNumber = std::copysign(std::numeric_limits<double>::infinity(), theText == "inf" ? 1.0 : -1.0);
    } else {
        return false;
    }
    return true;
}

bool ReadParts(const element& theElement, Value& theValue)
{
    simdjson::dom::array theParts;
    if (theElement.get(theParts) != simdjson::SUCCESS || theParts.size() != theValue.CountParts()) {
        return false;
    }
    std::size_t theIndex = 0;
    for (const element thePart : theParts) {
        if (!ReadDouble(thePart, theValue.theParts[theIndex++])) {
            return false;
        }
    }
    return true;
}

bool ReadString(const element& theElement, std::string& theText)
{
    std::string_view theView;
    if (theElement.get(theView) != simdjson::SUCCESS) {
        return false;
    }
    theText = theView;
    return true;
}

bool ReadStringValue(const element& theElement, Value& theValue)
{
    theValue.isNull = theElement.is_null();
    return theValue.isNull || ReadString(theElement, theValue.theText);
}

bool ReadBoolean(const element& theElement, Value& theValue)
{
    bool isTrue = false;
    if (theElement.get(isTrue) != simdjson::SUCCESS) {
        return false;
    }
    theValue.theInteger = isTrue ? 1 : 0;
    return true;
}

bool ReadContent(const element& theElement, Value& theValue)
{
    constexpr std::uint64_t kMost32 = std::numeric_limits<std::uint32_t>::max();
    switch (theValue.theKind) {
    case Value::Kind::Absent:
    case Value::Kind::Invalid:
        return true;
    case Value::Kind::Boolean:
        return ReadBoolean(theElement, theValue);
    case Value::Kind::UInt32:
    case Value::Kind::Unknown:
        return ReadUnsigned(theElement, kMost32, theValue.theInteger);
    case Value::Kind::SInt32:
        return ReadSigned32(theElement, theValue.theInteger);
    case Value::Kind::UInt64:
        return ReadLong(theElement, false, theValue.theInteger);
    case Value::Kind::SInt64:
        return ReadLong(theElement, true, theValue.theInteger);
    case Value::Kind::Double:
        return ReadDouble(theElement, theValue.theDouble);
    case Value::Kind::Pointer:
        return ReadAddress(theElement, theValue.theInteger);
    case Value::Kind::String:
        return ReadStringValue(theElement, theValue);
    case Value::Kind::Point:
    case Value::Kind::Size:
    case Value::Kind::Rect:
        return ReadParts(theElement, theValue);
    }
    return false;
}

bool ReadValue(const element& theElement, Value& theValue)
{
    simdjson::dom::object theObject;
    std::string_view theName;
    if (theElement.get(theObject) != simdjson::SUCCESS ||
        theObject["kind"].get(theName) != simdjson::SUCCESS) {
        return false;
    }
    for (const ValueKind& theKind : kValueKinds) {
        if (theKind.theName == theName) {
            theValue.theKind = theKind.theKind;
        }
    }
    if (!theValue.IsThere()) {
        return false;
    }
    if (theValue.theKind == Value::Kind::Invalid) {
        return true;
    }
    element theContent;
    if (theObject["value"].get(theContent) != simdjson::SUCCESS || !ReadContent(theContent, theValue)) {
        return false;
    }
    element theBytes;
    return theObject["bytes"].get(theBytes) != simdjson::SUCCESS ||
           theBytes.get(theValue.theBytes) == simdjson::SUCCESS;
}

bool ReadObject(const element& theElement, Object& theObject)
{
    if (theElement.is_null()) {
        return true;
    }
    simdjson::dom::object theFields;
    if (theElement.get(theFields) != simdjson::SUCCESS ||
        theFields["id"].get(theObject.theID) != simdjson::SUCCESS || theObject.theID == 0) {
        return false;
    }
    element theText;
    return (theFields["class"].get(theText) != simdjson::SUCCESS ||
            ReadString(theText, theObject.theClass)) &&
           (theFields["name"].get(theText) != simdjson::SUCCESS || ReadString(theText, theObject.theName));
}

bool ReadTransform(const element& theElement, TransformRef& theTransform)
{
    Object theObject;
    if (!ReadObject(theElement, theObject)) {
        return false;
    }
    theTransform.theID = theObject.theID;
    theTransform.theClass = theObject.theClass;
    return true;
}

bool ReadCallers(const element& theElement, std::vector<std::uint64_t>& theCallers)
{
    simdjson::dom::array theAddresses;
    if (theElement.get(theAddresses) != simdjson::SUCCESS) {
        return false;
    }
    for (const element theAddress : theAddresses) {
        if (!ReadAddress(theAddress, theCallers.emplace_back())) {
            return false;
        }
    }
    return true;
}

bool ReadPlace(const element& theElement, std::optional<std::pair<double, double>>& thePlace)
{
    Value theValue;
    theValue.theKind = Value::Kind::Point;
    if (!ReadParts(theElement, theValue)) {
        return false;
    }
    thePlace.emplace(theValue.theParts[0], theValue.theParts[1]);
    return true;
}

bool ReadTruth(const element& theElement, bool& isTrue)
{
    return theElement.get(isTrue) == simdjson::SUCCESS;
}

bool ReadPhase(const element& theElement, bool& hasChanged)
{
    std::string_view theText;
    if (theElement.get(theText) != simdjson::SUCCESS) {
        return false;
    }
    hasChanged = theText == "changed";
    return hasChanged || theText == "changing";
}

} // namespace

struct EntryParser::Engine
{
    simdjson::dom::parser theParser;
};

// The fields of one line. The first one that is not as it should be is remembered.
class EntryParser::Fields
{
public:
    explicit Fields(const simdjson::dom::object& theObject)
        : mObject(theObject)
    {
    }

    // Hands the field to theRead, when it is there. It must be there when isNeeded.
    template <class Read>
    void Take(std::string_view theName, bool isNeeded, const Read& theRead)
    {
        element theElement;
        if (!mWrong.empty()) {
            return;
        }
        if (mObject[theName].get(theElement) != simdjson::SUCCESS) {
            if (isNeeded) {
                mWrong = "it has no field \"" + std::string(theName) + "\"";
            }
        } else if (!theRead(theElement)) {
            mWrong = "its field \"" + std::string(theName) + "\" is not what the format says";
        }
    }

    void Number(std::string_view theName, bool isNeeded, std::uint64_t& theNumber)
    {
        Take(theName, isNeeded, [&](const element& theElement) {
            return ReadUnsigned(theElement, std::numeric_limits<std::uint64_t>::max(), theNumber);
        });
    }
    void Text(std::string_view theName, bool isNeeded, std::string& theText)
    {
        Take(theName, isNeeded, [&](const element& theElement) { return ReadString(theElement, theText); });
    }
    // null is as good as no name.
    void TextOrNull(std::string_view theName, std::string& theText)
    {
        Take(theName, false, [&](const element& theElement) {
            return theElement.is_null() || ReadString(theElement, theText);
        });
    }
    void Known(std::string_view theName, Object& theObject)
    {
        Take(theName, true, [&](const element& theElement) { return ReadObject(theElement, theObject); });
    }
    void Content(std::string_view theName, Value& theValue)
    {
        Take(theName, true, [&](const element& theElement) { return ReadValue(theElement, theValue); });
    }
    void Truth(std::string_view theName, bool& isTrue)
    {
        Take(theName, false, [&](const element& theElement) { return ReadTruth(theElement, isTrue); });
    }
    void Address(std::string_view theName, std::uint64_t& theAddress)
    {
        Take(theName, true, [&](const element& theElement) { return ReadAddress(theElement, theAddress); });
    }
    void Transform(TransformRef& theTransform)
    {
        Take("transform", false,
             [&](const element& theElement) { return ReadTransform(theElement, theTransform); });
    }

    void TakeHead(Entry& theEntry);
    void TakeRest(Entry& theEntry);

    const std::string& GetWrong() const { return mWrong; }

private:
    void TakeJournal(Entry& theEntry);
    void TakeModule(Entry& theEntry);
    void TakeKey(Entry& theEntry);
    void TakeRecord(Entry& theEntry);
    void TakeChange(Entry& theEntry);
    void TakeOutside(Entry& theEntry);

    simdjson::dom::object mObject;
    std::string mWrong;
};

// What every entry has.
void EntryParser::Fields::TakeHead(Entry& theEntry)
{
    std::uint64_t theThread = 1;
    std::string_view theName;
    Number("n", true, theEntry.theNumber);
    Number("cause", false, theEntry.theCause);
    Number("t", true, theEntry.theTime);
    Number("thread", false, theThread);
    Take("what", true,
         [&](const element& theElement) { return theElement.get(theName) == simdjson::SUCCESS; });
    theEntry.theWhat = WhatOf(theName);
    Take("callers", false,
         [&](const element& theElement) { return ReadCallers(theElement, theEntry.theCallers); });
    if (!mWrong.empty()) {
        return;
    }
    if (theEntry.theNumber == 0) {
        mWrong = "its number is 0";
    } else if (theEntry.theCause >= theEntry.theNumber) {
        mWrong = "its cause, " + std::to_string(theEntry.theCause) + ", is not before it";
    } else if (theThread > std::numeric_limits<std::uint32_t>::max()) {
        mWrong = "its field \"thread\" is not what the format says";
    }
    theEntry.theThread = static_cast<std::uint32_t>(theThread);
}

void EntryParser::Fields::TakeJournal(Entry& theEntry)
{
    if (theEntry.theWhat == What::Begin) {
        Text("journal", true, theEntry.theText);
        Number("version", true, theEntry.theCode);
        Number("file", false, theEntry.theFile);
        Text("started", false, theEntry.theDetail);
        std::uint64_t theCallers = 0;
        Number("callerLimit", false, theCallers);
        theEntry.isDone = theCallers > 0;
    } else {
        Number(theEntry.theWhat == What::End ? "lost" : "count", false, theEntry.theCode);
    }
}

void EntryParser::Fields::TakeModule(Entry& theEntry)
{
    Text("path", true, theEntry.theModule.thePath);
    Address("base", theEntry.theModule.theBase);
    Address("end", theEntry.theModule.theEnd);
    Truth("fixed", theEntry.theModule.isFixed);
    TextOrNull("build", theEntry.theModule.theBuild);
}

void EntryParser::Fields::TakeKey(Entry& theEntry)
{
    Known("object", theEntry.theObject);
    Text("key", true, theEntry.theKey);
}

void EntryParser::Fields::TakeRecord(Entry& theEntry)
{
    TakeKey(theEntry);
    Known("from", theEntry.theOther);
    Text("fromKey", true, theEntry.theOtherKey);
    Number("record", false, theEntry.theRecord);
    Transform(theEntry.theTransform);
}

void EntryParser::Fields::TakeChange(Entry& theEntry)
{
    TakeKey(theEntry);
    switch (theEntry.theWhat) {
    case What::Changing:
        Content("was", theEntry.theOld);
        Content("to", theEntry.theGoal);
        break;
    case What::Changed:
        Content("was", theEntry.theOld);
        Content("is", theEntry.theNew);
        Number("changing", false, theEntry.theChanging);
        break;
    case What::Equal:
    case What::Refused:
        Content("is", theEntry.theNew);
        Content("to", theEntry.theGoal);
        break;
    case What::Told:
        Content("is", theEntry.theNew);
        Text("of", true, theEntry.theOtherKey);
        break;
    default:
        Content("is", theEntry.theNew);
        Take("phase", true,
             [&](const element& theElement) { return ReadPhase(theElement, theEntry.isDone); });
        break;
    }
}

void EntryParser::Fields::TakeOutside(Entry& theEntry)
{
    if (theEntry.theWhat == What::Event) {
        Known("object", theEntry.theObject);
    }
    TextOrNull("event", theEntry.theText);
    TextOrNull("class", theEntry.theDetail);
    Number("kind", false, theEntry.theCode);
    Take("place", false, [&](const element& theElement) { return ReadPlace(theElement, theEntry.thePlace); });
    Take("code", false, [&](const element& theElement) {
        return theElement.get(theEntry.theKeyCode.emplace()) == simdjson::SUCCESS;
    });
    Text("title", false, theEntry.theTitle);
}

// What the kinds have of their own.
void EntryParser::Fields::TakeRest(Entry& theEntry)
{
    switch (theEntry.theWhat) {
    case What::Unknown:
        break;
    case What::Begin:
    case What::End:
    case What::Lost:
        TakeJournal(theEntry);
        break;
    case What::Module:
        TakeModule(theEntry);
        break;
    case What::Made:
        Known("object", theEntry.theObject);
        Text("role", false, theEntry.theText);
        break;
    case What::Named:
        Known("object", theEntry.theObject);
        TextOrNull("debug", theEntry.theDetail);
        break;
    case What::Destroyed:
        Known("object", theEntry.theObject);
        break;
    case What::Observe:
    case What::Unobserve:
        TakeKey(theEntry);
        Known("observer", theEntry.theOther);
        break;
    case What::Depend:
    case What::Undepend:
        TakeKey(theEntry);
        Text("dependent", true, theEntry.theOtherKey);
        break;
    case What::Bind:
    case What::Unbind:
        TakeRecord(theEntry);
        break;
    case What::Changing:
    case What::Changed:
    case What::Equal:
    case What::Refused:
    case What::Told:
    case What::Notify:
        TakeChange(theEntry);
        break;
    case What::Transform:
        TakeRecord(theEntry);
        Content("in", theEntry.theOld);
        Content("out", theEntry.theNew);
        break;
    case What::Update:
        TakeRecord(theEntry);
        Content("to", theEntry.theGoal);
        break;
    case What::Action:
    case What::Event:
        TakeOutside(theEntry);
        break;
    case What::Read:
        TakeKey(theEntry);
        Content("is", theEntry.theNew);
        break;
    case What::Write:
        TakeKey(theEntry);
        Content("to", theEntry.theGoal);
        break;
    case What::Flush:
        Known("object", theEntry.theObject);
        Truth("done", theEntry.isDone);
        break;
    case What::Diagnostic:
        TextOrNull("file", theEntry.theDetail);
        Number("line", false, theEntry.theCode);
        Text("message", true, theEntry.theText);
        break;
    }
}

EntryParser::EntryParser()
    : mEngine(std::make_unique<Engine>())
{
}

EntryParser::~EntryParser() = default;

std::string EntryParser::Parse(std::string_view theLine, Entry& theEntry)
{
    static_assert(LineReader::kPadding >= simdjson::SIMDJSON_PADDING);
    theEntry.Clear();
    simdjson::dom::object theObject;
    if (mEngine->theParser.capacity() < theLine.size() &&
        mEngine->theParser.allocate(theLine.size(), kDeepest) != simdjson::SUCCESS) {
        return "there is not enough memory for it";
    }
    element theElement;
    // The last argument: the bytes behind the line may be read, so it need not be copied.
    const simdjson::error_code theError =
        mEngine->theParser.parse(theLine.data(), theLine.size(), false).get(theElement);
    if (theError != simdjson::SUCCESS) {
        return simdjson::error_message(theError);
    }
    if (theElement.get(theObject) != simdjson::SUCCESS) {
        return "it is no JSON object";
    }
    Fields theFields(theObject);
    theFields.TakeHead(theEntry);
    theFields.TakeRest(theEntry);
    return theFields.GetWrong();
}

} // namespace Inspect
