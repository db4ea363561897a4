// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalObjects.h"

#include "LmConveniences.h"
#include "LmJournalLine.h"
#include "LmKeyValueBinding.h"

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>

namespace {

// Names are kept longer than anybody reads.
constexpr std::size_t kLongestName = 200;

bool IsHexadecimal(char theCharacter)
{
    return (theCharacter >= '0' && theCharacter <= '9') || (theCharacter >= 'A' && theCharacter <= 'F') ||
           (theCharacter >= 'a' && theCharacter <= 'f');
}

// The place behind an address such as 0x0804A1B0 that begins at thePlace; thePlace when none does.
std::size_t EndOfAddress(const std::string& theText, std::size_t thePlace)
{
    if (theText.compare(thePlace, 2, "0x") != 0) {
        return thePlace;
    }
    std::size_t theEnd = thePlace + 2;
    while (theEnd < theText.size() && IsHexadecimal(theText[theEnd])) {
        ++theEnd;
    }
    return theEnd - thePlace >= 10 ? theEnd : thePlace;
}

// Without addresses, and what stands between one and what comes next.
std::string WithoutAddresses(const std::string& theText)
{
    std::string theRest;
    for (std::size_t thePlace = 0; thePlace < theText.size();) {
        std::size_t theEnd = EndOfAddress(theText, thePlace);
        if (theEnd == thePlace) {
            theRest += theText[thePlace++];
            continue;
        }
        while (theEnd < theText.size() && (theText[theEnd] == ',' || theText[theEnd] == ' ')) {
            ++theEnd;
        }
        thePlace = theEnd;
    }
    return theRest;
}

// Whether there is more to what is left of a description than a word, which all objects of a class have.
bool SaysSomething(const std::string& theRest)
{
    const std::size_t theLast = theRest.find_last_not_of(" ]");
    return theLast != std::string::npos && theRest.find(' ') < theLast;
}

// The title that a binding of a control, a window or a menu command shows; empty for another object.
std::string TitleOf(const LmDebugObject& theObject, const std::string& theDebugInfo)
{
    const char* const kBeginnings[] = {"[ControlRef ", "[Window ", "[MenuCommand "};
    const bool hasTitle =
        std::any_of(std::begin(kBeginnings), std::end(kBeginnings), [&](const std::string& theBeginning) {
            return theDebugInfo.compare(0, theBeginning.size(), theBeginning) == 0;
        });
    const auto* theStore = hasTitle ? dynamic_cast<const LmKeyValueStore*>(&theObject) : nullptr;
    if (theStore == nullptr) {
        return {};
    }
    const LmValue theTitle = theStore->GetKeyValue("title");
    return theTitle.IsString() && theTitle.GetString() != nullptr ? LmGetStdString(theTitle) : std::string();
}

std::string CutName(const std::string& theName)
{
    std::size_t theLength = std::min(theName.size(), kLongestName);
    while (theLength < theName.size() && theLength > 0 && (theName[theLength] & 0xC0) == 0x80) {
        --theLength;
    }
    return theName.substr(0, theLength);
}

} // namespace

std::string LmClassName(const std::type_info& theType)
{
    int theStatus = 0;
    const std::unique_ptr<char, decltype(&std::free)> theName(
        abi::__cxa_demangle(theType.name(), nullptr, nullptr, &theStatus), &std::free);
    return theName != nullptr ? theName.get() : theType.name();
}

LmJournalObject& LmJournalObjects::Find(const LmDebugObject& theObject)
{
    std::shared_ptr<LmJournalObject>& theKnown = mObjects[&theObject];
    if (theKnown == nullptr) {
        // It was made before the journal began, so its other base is not known either, or is by now.
        const auto* theStore = dynamic_cast<const LmKeyValueStore*>(&theObject);
        const auto* theObserver = dynamic_cast<const LmKeyValueObserver*>(&theObject);
        theKnown = std::make_shared<LmJournalObject>();
        if (theStore != nullptr && theObserver != nullptr) {
            const std::shared_ptr<LmJournalObject> theWhole = theKnown;
            mObjects[static_cast<const LmDebugObject*>(theStore)] = theWhole;
            mObjects[static_cast<const LmDebugObject*>(theObserver)] = theWhole;
        }
    }
    return *mObjects[&theObject];
}

void LmJournalObjects::Begin(const LmDebugObject& theBase)
{
    mObjects[&theBase] = std::make_shared<LmJournalObject>();
}

void LmJournalObjects::Join(const LmKeyValueStore& theStore, const LmKeyValueObserver& theObserver)
{
    const LmDebugObject& theBase = theStore;
    std::shared_ptr<LmJournalObject>& theKnown = mObjects[&theBase];
    if (theKnown == nullptr) {
        theKnown = std::make_shared<LmJournalObject>();
    }
    const std::shared_ptr<LmJournalObject> theWhole = theKnown;
    mObjects[static_cast<const LmDebugObject*>(&theObserver)] = theWhole;
}

void LmJournalObjects::SetOwner(const LmDebugObject& theOwned, const LmDebugObject& theOwner)
{
    Find(theOwned).theOwner = &theOwner;
}

void LmJournalObjects::End(const void* theBase)
{
    mObjects.erase(theBase);
}

bool LmJournalObjects::HasRenamedOwner(const LmJournalObject& theKnown)
{
    if (theKnown.theOwner == nullptr) {
        return false;
    }
    LmJournalObject& theOwner = Find(*theKnown.theOwner);
    Refresh(theOwner, *theKnown.theOwner, false);
    return theOwner.theName != theKnown.theOwnersName;
}

void LmJournalObjects::MakeName(LmJournalObject& theKnown, const LmDebugObject& theObject)
{
    theKnown.theDebugInfo = theObject.GetDebugInfo().GetUTF8();
    if (!theKnown.theGivenName.empty()) {
        theKnown.theName = CutName(theKnown.theGivenName);
        return;
    }
    theKnown.theOwnersName = theKnown.theOwner != nullptr ? Find(*theKnown.theOwner).theName : std::string();
    const std::string theTitle = TitleOf(theObject, theKnown.theDebugInfo);
    const std::string theDescription = WithoutAddresses(theKnown.theDebugInfo);
    if (!theTitle.empty()) {
        theKnown.theName = CutName(theTitle);
    } else if (SaysSomething(theDescription) || theDescription == theKnown.theDebugInfo) {
        theKnown.theName = CutName(theDescription);
    } else if (!theKnown.theOwnersName.empty()) {
        theKnown.theName = theKnown.theOwnersName;
    } else {
        theKnown.theName = theKnown.theClass + " " + std::to_string(theKnown.theNumber);
    }
}

bool LmJournalObjects::Refresh(LmJournalObject& theKnown, const LmDebugObject& theObject, bool withName)
{
    const std::type_info& theType = typeid(theObject);
    std::vector<const std::type_info*>& theTypes = theKnown.theTypes;
    const bool isNewClass = std::none_of(theTypes.begin(), theTypes.end(),
                                         [&](const std::type_info* theSeen) { return *theSeen == theType; });
    if (theKnown.isDying || (!isNewClass && !withName && !HasRenamedOwner(theKnown))) {
        return false;
    }
    if (theKnown.theNumber == 0) {
        theKnown.theNumber = ++mLastNumber;
    }
    if (isNewClass) {
        theTypes.push_back(&theType);
        theKnown.theClass = LmClassName(theType);
    }
    MakeName(theKnown, theObject);
    std::string theJSON = R"({"id":)" + std::to_string(theKnown.theNumber) + R"(,"class":)";
    LmJournalLine::AppendString(theJSON, theKnown.theClass.data(), theKnown.theClass.size(), kLongestName);
    theJSON += R"(,"name":)";
    LmJournalLine::AppendString(theJSON, theKnown.theName.data(), theKnown.theName.size(), kLongestName);
    theJSON += '}';
    const bool isOther = theJSON != theKnown.theJSON;
    theKnown.theJSON = std::move(theJSON);
    return isOther;
}

std::uint64_t LmJournalObjects::NumberOfTransform(const void* theTransform)
{
    std::uint64_t& theNumber = mTransforms[theTransform];
    if (theNumber == 0) {
        theNumber = ++mLastTransform;
    }
    return theNumber;
}

void LmJournalObjects::ForgetTransform(const void* theTransform)
{
    mTransforms.erase(theTransform);
}

std::uint64_t LmJournalObjects::BeginRecord(const void* theRecord)
{
    return mRecords[theRecord] = ++mLastRecord;
}

std::uint64_t LmJournalObjects::NumberOfRecord(const void* theRecord) const
{
    const auto theFound = mRecords.find(theRecord);
    return theFound != mRecords.end() ? theFound->second : 0;
}

void LmJournalObjects::EndRecord(const void* theRecord)
{
    mRecords.erase(theRecord);
}
