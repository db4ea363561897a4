// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLiveRecord.h"

#include "LmBindable.h"
#include "LmEventNames.h"
#include "LmKeyValueBinding.h"
#include "LmLiveTexts.h"
#include "LmValueTransform.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>
#include <typeinfo>
#include <utility>

namespace {

// So many things that have happened are kept.
constexpr std::size_t kMostLines = 1000;
// So many causes of a thing are kept, so that a line that goes does not take endless others with it.
constexpr std::size_t kMostCauses = 200;
// So many sets can be between their two passes before the oldest are taken for those that never came to the
// second.
constexpr std::size_t kMostChanges = 4096;

bool IsKey(const LmString* theKey, const char* theName)
{
    return theKey != nullptr && std::strcmp(theKey->GetUTF8(), theName) == 0;
}

const LmKeyValueStore& StoreOf(const LmJournalEntry& theEntry)
{
    return static_cast<const LmKeyValueStore&>(*theEntry.theObject);
}

bool IsRoot(const LmDebugObject& theObject)
{
    return typeid(theObject) == typeid(LmKeyValueStore) || typeid(theObject) == typeid(LmKeyValueObserver);
}

bool IsMove(const LmJournalEntry& theEntry)
{
    return theEntry.theKind == kJournalChanged || theEntry.theKind == kJournalTold ||
           (theEntry.theKind == kJournalNotify && theEntry.theDetail != 0);
}

// What is shown among the last changes; the rest is only told of as a cause.
bool IsOfInterest(const LmJournalEntry& theEntry)
{
    switch (theEntry.theKind) {
    case kJournalEqual:
    case kJournalRefused:
    case kJournalTransform:
    case kJournalWrite:
    case kJournalDiagnostic:
    case kJournalAction:
        return true;
    default:
        return IsMove(theEntry);
    }
}

std::string SayEvent(const LmJournalEntry& theEntry)
{
    const char* const theName = LmEventName(theEntry.theCode, theEntry.theDetail);
    return theName != nullptr ? theName : "event " + std::to_string(theEntry.theDetail);
}

struct Deed
{
    OSType theClass;
    UInt32 theKind;
    const char* theWords;
};

const Deed kDeeds[] = {
    {kEventClassMouse, kEventMouseDown, "pressed the mouse"},
    {kEventClassMouse, kEventMouseUp, "released the mouse"},
    {kEventClassMouse, kEventMouseDragged, "dragged the mouse"},
    {kEventClassMouse, kEventMouseWheelMoved, "turned the wheel"},
    {kEventClassKeyboard, kEventRawKeyDown, "pressed a key"},
    {kEventClassKeyboard, kEventRawKeyRepeat, "held a key down"},
    {kEventClassKeyboard, kEventRawKeyUp, "released a key"},
    {kEventClassCommand, kEventCommandProcess, "chose a menu item"},
    {kEventClassMenu, kEventMenuOpening, "opened a menu"},
    {kEventClassMenu, kEventMenuClosed, "closed a menu"},
    {kEventClassWindow, kEventWindowDragStarted, "moved a window"},
    {kEventClassWindow, kEventWindowResizeStarted, "resized a window"},
    {kEventClassWindow, kEventWindowActivated, "brought a window to the front"},
    {kEventClassWindow, kEventWindowClose, "asked a window to close"},
    {kEventClassWindow, kEventWindowZoom, "zoomed a window"},
    {kEventClassWindow, kEventWindowCollapse, "collapsed a window"},
    {kEventClassWindow, kEventWindowExpand, "expanded a window"},
    {kEventClassTextInput, kEventTextInputUnicodeForKeyEvent, "edited a text"},
    {kEventClassApplication, kEventAppQuit, "asked the program to quit"},
};

std::string SayAction(const LmJournalEntry& theEntry)
{
    std::string theText = "a person did something";
    for (const Deed& theDeed : kDeeds) {
        if (theDeed.theClass == theEntry.theCode && theDeed.theKind == theEntry.theDetail) {
            theText = std::string("a person ") + theDeed.theWords;
        }
    }
    const std::string theTitle = LmTitleOfAction(static_cast<EventRef>(const_cast<void*>(theEntry.theEvent)));
    return theTitle.empty() ? theText : theText + ", \"" + theTitle + "\"";
}

std::string SayDiagnostic(const LmJournalEntry& theEntry)
{
    return std::string("diagnostic: ") + (theEntry.theText != nullptr ? theEntry.theText : "");
}

std::string SayEquality(const LmValue& theOld, const LmValue& theNew)
{
    const std::string theText = LmShowValue(theNew);
    return theText == LmShowValue(theOld)
               ? "it is " + theText + " already"
               : theText + " equals " + LmShowValue(theOld) + ", since numbers are compared as integers";
}

std::string ClassOf(const LmValueTransform* theTransform)
{
    if (theTransform == nullptr) {
        return {};
    }
    const LmValueTransform& theKnown = *theTransform;
    return LmClassName(typeid(theKnown));
}

// Runs a piece of work as a hook does: nothing that it causes is reported.
class QuietWork final : public LmJournalHook
{
public:
    explicit QuietWork(const std::function<void()>& theWork)
        : mWork(theWork)
    {
    }

    std::uint64_t Write(const LmJournalEntry&, const void*) noexcept override
    {
        try {
            mWork();
        } catch (const std::bad_alloc&) {
            return 0;
        }
        return 0;
    }

private:
    const std::function<void()>& mWork;
};

} // namespace

LmLiveRecord::LmLiveRecord()
    : mNext(LmSetJournalHook(this)),
      mThread(std::this_thread::get_id())
{
}

LmLiveRecord::~LmLiveRecord()
{
    LmJournalHook* const theHook = LmSetJournalHook(nullptr);
    LmSetJournalHook(theHook == this ? mNext : theHook);
}

void LmLiveRecord::Renew()
{
    LmJournalHook* const theHook = LmSetJournalHook(this);
    if (theHook != this) {
        mNext = theHook;
    }
}

void LmLiveRecord::DoQuietly(const std::function<void()>& theWork)
{
    Renew();
    QuietWork theHook(theWork);
    LmSetJournalHook(&theHook);
    LmWriteJournalEntry(LmJournalEntry{kJournalEnd}, nullptr);
    LmSetJournalHook(this);
}

void LmLiveRecord::DoBecauseOf(const std::string& theText, const std::function<void()>& theWork)
{
    Renew();
    auto theLine = std::make_shared<Line>();
    theLine->theChange.theNumber = ++mLastNumber;
    theLine->theChange.theText = theText;
    theLine->isListed = true;
    KeepLine(theLine);
    Open(&theLine, nullptr, theLine, nullptr);
    try {
        theWork();
    } catch (const std::bad_alloc&) {
        Close(&theLine);
        return;
    }
    Close(&theLine);
}

void LmLiveRecord::KeepLine(LinePointer theLine)
{
    mLines.push_back(std::move(theLine));
    if (mLines.size() > kMostLines) {
        mLines.pop_front();
    }
}

// ---- The hook

std::uint64_t LmLiveRecord::Write(const LmJournalEntry& theEntry, const void* theScope) noexcept
{
    if (std::this_thread::get_id() == mThread) {
        // A journal has somebody of its own who watches the person.
        const bool isTwice =
            theEntry.theEvent != nullptr && !mFrames.empty() && mFrames.back().theEvent == theEntry.theEvent;
        if (isTwice) {
            return 0;
        }
        try {
            Take(theEntry, theScope);
        } catch (const std::bad_alloc&) {
            mLastNumber += 1;
        }
    }
    return mNext != nullptr ? mNext->Write(theEntry, theScope) : 0;
}

void LmLiveRecord::Close(const void* theScope) noexcept
{
    if (std::this_thread::get_id() == mThread) {
        const auto theFrame = std::find_if(mFrames.rbegin(), mFrames.rend(), [=](const Frame& theCandidate) {
            return theCandidate.theScope == theScope;
        });
        if (theFrame != mFrames.rend()) {
            const void* const theGoneBase = theFrame->theGoneBase;
            // Those inside it that were never closed go with it.
            mFrames.erase(std::next(theFrame).base(), mFrames.end());
            if (theGoneBase != nullptr) {
                mObjects.End(theGoneBase);
            }
        }
    }
    if (mNext != nullptr) {
        mNext->Close(theScope);
    }
}

void LmLiveRecord::Take(const LmJournalEntry& theEntry, const void* theScope)
{
    if (theEntry.theKind == kJournalMade) {
        TakeMade(theEntry);
        return;
    }
    if (theEntry.theKind == kJournalEnd) {
        return;
    }
    MeetNewObjects();
    if (theEntry.theKind == kJournalDestroyed) {
        TakeDestroyed(theEntry, theScope);
        return;
    }
    if (theEntry.theKind == kJournalNamed) {
        mObjects.Find(*theEntry.theObject).theGivenName = theEntry.theText;
        Meet(*theEntry.theObject, true);
        return;
    }
    if (theEntry.theObject != nullptr) {
        MeetKey(Meet(*theEntry.theObject, false), theEntry.theKey);
        TakeLink(theEntry, *theEntry.theObject);
    }
    AddLine(theEntry, theScope);
}

// ---- Objects

// What an object is shows only when its constructors are through.
void LmLiveRecord::TakeMade(const LmJournalEntry& theEntry)
{
    if (theEntry.theDetail == kJournalBinding) {
        const LmKeyValueStore& theStore = StoreOf(theEntry);
        mObjects.Join(theStore, static_cast<const LmKeyValueBinding&>(theStore));
    } else {
        mObjects.Begin(*theEntry.theObject);
        mNewObjects.push_back(theEntry.theObject);
    }
}

void LmLiveRecord::MeetNewObjects()
{
    const std::vector<const LmDebugObject*> theNewObjects = std::exchange(mNewObjects, {});
    for (const LmDebugObject* theObject : theNewObjects) {
        Meet(*theObject, false);
    }
}

std::uint64_t LmLiveRecord::Meet(const LmDebugObject& theObject, bool withName)
{
    LmJournalObject& theKnown = mObjects.Find(theObject);
    mObjects.Refresh(theKnown, theObject, withName);
    if (!theKnown.isDying && theKnown.theNumber != 0) {
        Object& theEntry = mKnown[theKnown.theNumber];
        if (theEntry.theBase == nullptr) {
            theEntry.theBase = &theObject;
        }
    }
    return theKnown.theNumber;
}

void LmLiveRecord::MeetKey(std::uint64_t theObject, const LmString* theKey)
{
    const auto theKnown = mKnown.find(theObject);
    if (theKnown != mKnown.end() && theKey != nullptr && theKey->IsNotEmpty() &&
        !IsKey(theKey, kKeyAnyValue)) {
        theKnown->second.theKeys.emplace(theKey->GetUTF8(), nullptr);
    }
}

const LmJournalObject& LmLiveRecord::Describe(const LmDebugObject& theObject)
{
    Meet(theObject, true);
    return mObjects.Find(theObject);
}

// The destructors of a binding object's bases each tell that it goes.
void LmLiveRecord::TakeDestroyed(const LmJournalEntry& theEntry, const void* theScope)
{
    const LmDebugObject& theObject = *theEntry.theObject;
    LmJournalObject& theKnown = mObjects.Find(theObject);
    theKnown.isDying = true;
    Forget(theKnown.theNumber);
    auto theLine = std::make_shared<Line>();
    theLine->theChange.theNumber = ++mLastNumber;
    theLine->theChange.theText =
        (theKnown.theName.empty() ? "an object" : theKnown.theName) + " is destroyed";
    Open(theScope, IsRoot(theObject) ? &theObject : nullptr, theLine, nullptr);
}

void LmLiveRecord::Forget(std::uint64_t theObject)
{
    mKnown.erase(theObject);
    for (auto theLink = mLinks.begin(); theLink != mLinks.end();) {
        const auto& [theKind, theOne, theKey, theOther, theOtherKey] = *theLink;
        const bool isGone = theOne == theObject || theOther == theObject;
        theLink = isGone ? mLinks.erase(theLink) : std::next(theLink);
    }
}

// ---- Links

void LmLiveRecord::NoteLink(const Link& theLink, bool isMade)
{
    if (isMade) {
        mLinks.insert(theLink);
    } else {
        mLinks.erase(theLink);
    }
}

// An LmBindable observes all keys of the binding object that belongs to it.
void LmLiveRecord::NoteOwner(const LmJournalEntry& theEntry)
{
    const auto* theOwner = dynamic_cast<const LmBindable*>(theEntry.theOther);
    if (theOwner != nullptr && IsKey(theEntry.theKey, kKeyAnyValue) &&
        const_cast<LmBindable*>(theOwner)->GetBindings() == &StoreOf(theEntry)) {
        mObjects.SetOwner(*theEntry.theObject, *theOwner);
        mKnown[Meet(*theOwner, false)].isOwner = true;
        Meet(*theEntry.theObject, true);
    }
}

void LmLiveRecord::TakeLink(const LmJournalEntry& theEntry, const LmDebugObject& theObject)
{
    const LmJournalKind theKind = theEntry.theKind;
    if (theKind == kJournalBind) {
        LmSurveyedLink theLink;
        theLink.theObject = Meet(theObject, true);
        theLink.theKey = theEntry.theKey->GetUTF8();
        theLink.theOther = Meet(*theEntry.theOther, true);
        theLink.theOtherKey = theEntry.theOtherKey->GetUTF8();
        theLink.theTransform = ClassOf(theEntry.theTransform);
        MeetKey(theLink.theOther, theEntry.theOtherKey);
        mBindings[theEntry.theRecord] = std::move(theLink);
    } else if (theKind == kJournalUnbind) {
        mBindings.erase(theEntry.theRecord);
    } else if ((theKind == kJournalObserve || theKind == kJournalUnobserve) && theEntry.theOther != nullptr) {
        if (theKind == kJournalObserve) {
            NoteOwner(theEntry);
        }
        const std::uint64_t theStore = Meet(theObject, false);
        NoteLink({LmLinkKind::kObserver,
                  Meet(*theEntry.theOther, false),
                  {},
                  theStore,
                  theEntry.theKey->GetUTF8()},
                 theKind == kJournalObserve);
    } else if (theKind == kJournalDepend || theKind == kJournalUndepend) {
        const std::uint64_t theStore = Meet(theObject, false);
        MeetKey(theStore, theEntry.theOtherKey);
        NoteLink({LmLinkKind::kDependency, theStore, theEntry.theOtherKey->GetUTF8(), theStore,
                  theEntry.theKey->GetUTF8()},
                 theKind == kJournalDepend);
    }
}

std::vector<LmSurveyedLink> LmLiveRecord::Links() const
{
    std::vector<LmSurveyedLink> theLinks;
    for (const auto& theBinding : mBindings) {
        theLinks.push_back(theBinding.second);
    }
    for (const Link& theLink : mLinks) {
        LmSurveyedLink theFound;
        std::tie(theFound.theKind, theFound.theObject, theFound.theKey, theFound.theOther,
                 theFound.theOtherKey) = theLink;
        theLinks.push_back(std::move(theFound));
    }
    return theLinks;
}

// ---- Lines

void LmLiveRecord::Open(const void* theScope, const void* theGoneBase, LinePointer theLine,
                        const void* theEvent)
{
    if (theScope != nullptr) {
        mFrames.push_back({theScope, theGoneBase, std::move(theLine), theEvent});
    }
}

void LmLiveRecord::AddLine(const LmJournalEntry& theEntry, const void* theScope)
{
    auto theLine = std::make_shared<Line>();
    LmSurveyedChange& theChange = theLine->theChange;
    theChange.theNumber = ++mLastNumber;
    theChange.theText = Say(theEntry);
    theChange.isMove = IsMove(theEntry);
    if (theEntry.theObject != nullptr) {
        theChange.theObject = mObjects.Find(*theEntry.theObject).theNumber;
    }
    if (theEntry.theKey != nullptr) {
        theChange.theKey = theEntry.theKey->GetUTF8();
    }
    if (!mFrames.empty()) {
        const LinePointer& theCause = mFrames.back().theLine;
        theLine->theDepth = theCause->theDepth + 1;
        theLine->isCut = theLine->theDepth % kMostCauses == 0;
        theLine->theCause = theLine->isCut ? nullptr : theCause;
    }
    const auto theKnown = mKnown.find(theChange.theObject);
    if (theChange.isMove && theKnown != mKnown.end()) {
        theKnown->second.theKeys[theChange.theKey] = theLine;
    }
    if (IsOfInterest(theEntry)) {
        theLine->isListed = true;
        KeepLine(theLine);
    }
    Open(theScope, nullptr, std::move(theLine), theEntry.theEvent);
}

std::string LmLiveRecord::NameOf(const LmDebugObject* theObject)
{
    if (theObject == nullptr) {
        return "nobody";
    }
    const LmJournalObject& theKnown = mObjects.Find(*theObject);
    return theKnown.theName.empty() ? "an object" : theKnown.theName;
}

std::string LmLiveRecord::KeyOf(const LmDebugObject* theObject, const LmString* theKey)
{
    return NameOf(theObject) + "." + (theKey != nullptr ? theKey->GetUTF8() : "");
}

void LmLiveRecord::NoteOldValue(const LmJournalEntry& theEntry)
{
    if (mChanges.size() == kMostChanges) {
        mChanges.erase(mChanges.begin(), mChanges.begin() + kMostChanges / 2);
    }
    mChanges.push_back({theEntry.theChange, LmShowValue(StoreOf(theEntry).GetKeyValue(*theEntry.theKey))});
}

std::string LmLiveRecord::SayChanged(const LmJournalEntry& theEntry)
{
    const std::string theNew = LmShowValue(StoreOf(theEntry).GetKeyValue(*theEntry.theKey));
    const auto theChange = std::find_if(mChanges.rbegin(), mChanges.rend(), [&](const Change& theCandidate) {
        return theCandidate.theChange == theEntry.theChange;
    });
    if (theChange == mChanges.rend()) {
        return " is " + theNew;
    }
    const std::string theOld = theChange->theOldValue;
    // Those inside it never came to their second pass.
    mChanges.erase(std::next(theChange).base(), mChanges.end());
    return ": " + theOld + " -> " + theNew;
}

std::string LmLiveRecord::Say(const LmJournalEntry& theEntry)
{
    if (theEntry.theObject == nullptr) {
        return theEntry.theKind == kJournalAction ? SayAction(theEntry) : SayDiagnostic(theEntry);
    }
    const std::string theKey = KeyOf(theEntry.theObject, theEntry.theKey);
    const auto theValue = [&] { return StoreOf(theEntry).GetKeyValue(*theEntry.theKey); };
    switch (theEntry.theKind) {
    case kJournalChanging:
        NoteOldValue(theEntry);
        return theKey + " is about to change to " + LmShowValue(*theEntry.theValue);
    case kJournalChanged:
        return theKey + SayChanged(theEntry);
    case kJournalEqual:
        return theKey + " stays: " + SayEquality(theValue(), *theEntry.theValue);
    case kJournalRefused:
        return theKey + " stays: a set is nested in itself too deep";
    case kJournalTold:
        return theKey + " is " + LmShowValue(theValue()) + ": it depends on \"" +
               theEntry.theOtherKey->GetUTF8() + "\"";
    case kJournalNotify:
        return theKey + (theEntry.theDetail != 0 ? " has changed to " : " is changing from ") +
               LmShowValue(theValue());
    case kJournalTransform:
        return ClassOf(theEntry.theTransform) + ": " + LmShowValue(*theEntry.theInput) + " -> " +
               LmShowValue(*theEntry.theValue);
    case kJournalUpdate:
        return theKey + " gets " + LmShowValue(*theEntry.theValue) + " from " +
               KeyOf(theEntry.theOther, theEntry.theOtherKey);
    case kJournalEvent:
        return NameOf(theEntry.theObject) + " is told of " + SayEvent(theEntry);
    case kJournalWrite:
        return "preference " + theKey + " is set: " + LmShowValue(*theEntry.theValue);
    case kJournalBind:
        return theKey + " is bound to " + KeyOf(theEntry.theOther, theEntry.theOtherKey);
    default:
        return NameOf(theEntry.theObject) + " was used";
    }
}
