// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalRecorder.h"

#include "LmBindable.h"
#include "LmEventNames.h"
#include "LmKeyValueBinding.h"
#include "LmPersonWatch.h"
#include "LmValueTransform.h"
#include "LmVersion.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <new>
#include <typeinfo>
#include <utility>

namespace {

// So many sets of one thread can be between their two passes before the oldest are taken for those that never
// came to the second.
constexpr std::size_t kMostChanges = 4096;

const char kTitle[] = "title";

std::string TimeOfDay()
{
    const std::time_t theTime = std::time(nullptr);
    char theText[40] = "";
    const std::tm* const theParts = std::gmtime(&theTime);
    if (theParts != nullptr) {
        std::strftime(theText, sizeof theText, "%Y-%m-%dT%H:%M:%SZ", theParts);
    }
    return theText;
}

const LmKeyValueStore& StoreOf(const LmJournalEntry& theEntry)
{
    return static_cast<const LmKeyValueStore&>(*theEntry.theObject);
}

bool IsKey(const LmString* theKey, const char* theName)
{
    return theKey != nullptr && std::strcmp(theKey->GetUTF8(), theName) == 0;
}

// Whether the object's own class is one of the library's roots: then nothing is left of what was derived from
// it.
bool IsRoot(const LmDebugObject& theObject)
{
    return typeid(theObject) == typeid(LmKeyValueStore) || typeid(theObject) == typeid(LmKeyValueObserver);
}

std::string CodeText(OSType theCode)
{
    std::string theText;
    for (unsigned theShift = 32; theShift > 0; theShift -= 8) {
        theText += static_cast<char>(theCode >> (theShift - 8));
    }
    return theText;
}

} // namespace

LmJournalRecorder::LmJournalRecorder(const Settings& theSettings, std::unique_ptr<LmJournalOutput> theOutput)
    : mSettings(theSettings),
      mBeginning(std::chrono::steady_clock::now()),
      mOutput(std::move(theOutput)),
      mLine(theSettings.theLongestString),
      mStarted(TimeOfDay())
{
    mThread = &ThisThread();
    WriteBegin();
}

// ---- The hook

std::uint64_t LmJournalRecorder::Write(const LmJournalEntry& theEntry, const void* theScope) noexcept
{
    try {
        const std::lock_guard<std::recursive_mutex> theLock(mMutex);
        mThread = &ThisThread();
        return WriteEntry(theEntry, theScope);
    } catch (const std::bad_alloc&) {
        mLost += 1;
        mAllLost += 1;
        return 0;
    }
}

void LmJournalRecorder::Close(const void* theScope) noexcept
{
    const std::lock_guard<std::recursive_mutex> theLock(mMutex);
    const auto theThread = mThreads.find(std::this_thread::get_id());
    if (theThread == mThreads.end()) {
        return;
    }
    std::vector<Frame>& theFrames = theThread->second.theFrames;
    const auto theFrame = std::find_if(theFrames.rbegin(), theFrames.rend(), [=](const Frame& theCandidate) {
        return theCandidate.theScope == theScope;
    });
    if (theFrame != theFrames.rend()) {
        // Those inside it that were never closed go with it.
        const void* const theGoneBase = theFrame->theGoneBase;
        theFrames.erase(std::next(theFrame).base(), theFrames.end());
        if (theGoneBase != nullptr) {
            mObjects.End(theGoneBase);
        }
    }
}

bool LmJournalRecorder::Tend()
{
    const std::lock_guard<std::recursive_mutex> theLock(mMutex);
    return mOutput->Tend();
}

std::uint64_t LmJournalRecorder::WriteEntry(const LmJournalEntry& theEntry, const void* theScope)
{
    if (theEntry.theKind == kJournalMade) {
        NoteMade(theEntry);
        return 0;
    }
    if (theScope != nullptr) {
        // Before anything is written, since what fails here leaves no cause behind.
        mThread->theFrames.reserve(mThread->theFrames.size() + 1);
    }
    WriteLost();
    FindCallers();
    WriteNewObjects();
    if (theEntry.theKind == kJournalDestroyed) {
        return WriteDestruction(theEntry, theScope);
    }
    if (theEntry.theKind == kJournalEnd) {
        return WriteEnd();
    }
    Meet(theEntry);
    if (theEntry.theKind == kJournalNamed) {
        return 0;
    }
    const Kind& theKind = KindOf(theEntry.theKind);
    const std::uint64_t theNumber = BeginLine(theKind.theName);
    if (theEntry.theObject != nullptr) {
        AddObject("object", theEntry.theObject);
    }
    if (theEntry.theKey != nullptr) {
        AddKey("key", theEntry.theKey);
    }
    (this->*theKind.theAdder)(theEntry);
    WriteLine();
    if (theScope != nullptr) {
        mThread->theFrames.push_back({theScope, theNumber, nullptr});
    }
    return theNumber;
}

const LmJournalRecorder::Kind& LmJournalRecorder::KindOf(LmJournalKind theKind)
{
    // In the order of the kinds.
    using R = LmJournalRecorder;
    static const Kind kKinds[] = {
        {"observe", &R::AddObservation},
        {"unobserve", &R::AddObservation},
        {"depend", &R::AddDependency},
        {"undepend", &R::AddDependency},
        {"bind", &R::AddBind},
        {"unbind", &R::AddUnbind},
        {"changing", &R::AddChanging},
        {"changed", &R::AddChanged},
        {"equal", &R::AddNoChange},
        {"refused", &R::AddNoChange},
        {"told", &R::AddTold},
        {"notify", &R::AddNotify},
        {"transform", &R::AddTransforming},
        {"update", &R::AddUpdate},
        {"event", &R::AddEvent},
        {"read", &R::AddRead},
        {"write", &R::AddWrite},
        {"flush", &R::AddFlush},
        {"diagnostic", &R::AddDiagnostic},
        {"action", &R::AddAction},
    };
    return kKinds[theKind - kJournalObserve];
}

// ---- Objects

// Sees to it that the entry's objects have names, and writes those that are new.
void LmJournalRecorder::Meet(const LmJournalEntry& theEntry)
{
    const LmJournalKind theKind = theEntry.theKind;
    if (theKind == kJournalNamed) {
        mObjects.Find(*theEntry.theObject).theGivenName = theEntry.theText;
    }
    if (theKind == kJournalObserve) {
        NoteOwner(theEntry);
    }
    const bool isLink = theKind == kJournalNamed || theKind == kJournalBind || theKind == kJournalObserve;
    const bool isTitle = theKind == kJournalChanged && IsKey(theEntry.theKey, kTitle);
    MeetObject(theEntry.theObject, isLink || isTitle);
    MeetObject(theEntry.theOther, isLink);
}

// The binding object of an LmBindable begins to be known as that when the LmBindable observes all of its
// keys.
void LmJournalRecorder::NoteOwner(const LmJournalEntry& theEntry)
{
    const auto* theOwner = dynamic_cast<const LmBindable*>(theEntry.theOther);
    if (theOwner != nullptr && IsKey(theEntry.theKey, kKeyAnyValue) &&
        const_cast<LmBindable*>(theOwner)->GetBindings() == &StoreOf(theEntry)) {
        mObjects.SetOwner(*theEntry.theObject, *theOwner);
    }
}

void LmJournalRecorder::MeetObject(const LmDebugObject* theObject, bool withName)
{
    if (theObject == nullptr) {
        return;
    }
    LmJournalObject& theKnown = mObjects.Find(*theObject);
    if (mObjects.Refresh(theKnown, *theObject, withName)) {
        WriteNamed(theKnown);
    }
}

void LmJournalRecorder::WriteNamed(const LmJournalObject& theObject)
{
    BeginLine("named");
    mLine.AddJSON("object", theObject.theJSON);
    mLine.AddString("debug", theObject.theDebugInfo.c_str());
    WriteLine();
}

// What an object is shows only when its constructors are through, so it is written of later.
void LmJournalRecorder::NoteMade(const LmJournalEntry& theEntry)
{
    if (theEntry.theDetail != kJournalBinding) {
        mObjects.Begin(*theEntry.theObject);
        mNewObjects.push_back({theEntry.theObject, theEntry.theDetail, Now(), CauseOf(*mThread)});
        return;
    }
    const LmKeyValueStore& theStore = StoreOf(theEntry);
    const LmKeyValueObserver& theObserver = static_cast<const LmKeyValueBinding&>(theStore);
    mObjects.Join(theStore, theObserver);
    const LmDebugObject* const theObserverBase = &theObserver;
    // The two bases were made just before.
    const std::size_t theFirst = mNewObjects.size() - std::min<std::size_t>(mNewObjects.size(), 2);
    for (std::size_t theIndex = mNewObjects.size(); theIndex > theFirst; --theIndex) {
        NewObject& theNew = mNewObjects[theIndex - 1];
        if (theNew.theBase == theEntry.theObject) {
            theNew.theRole = kJournalBinding;
        } else if (theNew.theBase == theObserverBase) {
            mNewObjects.erase(mNewObjects.begin() + static_cast<std::ptrdiff_t>(theIndex - 1));
        }
    }
}

void LmJournalRecorder::WriteNewObjects()
{
    const char* const kRoles[] = {"", "store", "observer", "binding"};
    while (!mNewObjects.empty()) {
        const NewObject theNew = mNewObjects.front();
        mNewObjects.pop_front();
        LmJournalObject& theKnown = mObjects.Find(*theNew.theBase);
        mObjects.Refresh(theKnown, *theNew.theBase, true);
        BeginLine("made", theNew.theTime, theNew.theCause);
        mLine.AddJSON("object", theKnown.theJSON);
        mLine.AddString("role", kRoles[theNew.theRole]);
        mLine.AddString("debug", theKnown.theDebugInfo.c_str());
        WriteLine();
    }
}

// The destructors of a binding object's bases each tell that it goes. It is written once; what each of them
// does is caused by that.
std::uint64_t LmJournalRecorder::WriteDestruction(const LmJournalEntry& theEntry, const void* theScope)
{
    const LmDebugObject& theObject = *theEntry.theObject;
    LmJournalObject& theKnown = mObjects.Find(theObject);
    if (!theKnown.isDying) {
        if (theKnown.theNumber == 0) {
            MeetObject(&theObject, false);
        }
        // From here on its class is no longer looked up: what it was derived to is gone already.
        theKnown.isDying = true;
        theKnown.theEnd = BeginLine("destroyed");
        mLine.AddJSON("object", theKnown.theJSON);
        WriteLine();
    }
    mThread->theFrames.push_back({theScope, theKnown.theEnd, IsRoot(theObject) ? &theObject : nullptr});
    return theKnown.theEnd;
}

// ---- Lines

std::uint64_t LmJournalRecorder::BeginLine(const char* theWhat, std::uint64_t theTime, std::uint64_t theCause)
{
    RenewWhenFull();
    mLine.Clear();
    const std::uint64_t theNumber = ++mLastNumber;
    mLine.AddNumber("n", theNumber);
    if (theCause != 0) {
        mLine.AddNumber("cause", theCause);
    }
    mLine.AddNumber("t", theTime);
    mLine.AddString("what", theWhat);
    if (mThread != nullptr && mThread->theNumber != 1) {
        mLine.AddNumber("thread", mThread->theNumber);
    }
    return theNumber;
}

std::uint64_t LmJournalRecorder::BeginLine(const char* theWhat)
{
    const std::uint64_t theNumber = BeginLine(theWhat, Now(), CauseOf(*mThread));
    AddCallers();
    return theNumber;
}

void LmJournalRecorder::WriteLine()
{
    mText.assign(1, '{');
    mText += mLine.GetText();
    mText += '}';
    mLongestLine = std::max(mLongestLine, mText.size());
    if (!mOutput->Write(mText)) {
        mLost += 1;
        mAllLost += 1;
    }
}

// Whether the next line still has room is said by the longest one so far: its number comes before its length.
void LmJournalRecorder::RenewWhenFull()
{
    if (mIsRenewing || !mOutput->IsFullFor(mLongestLine)) {
        return;
    }
    mIsRenewing = true;
    mOutput->Renew();
    mFileNumber += 1;
    mCallers.ForgetWritten();
    WriteBegin();
    WriteModules();
    mIsRenewing = false;
}

void LmJournalRecorder::WriteBegin()
{
    BeginLine("begin", Now(), 0);
    mLine.AddString("journal", "lmbindings");
    mLine.AddNumber("version", std::uint64_t{1});
    mLine.AddWhole("library", LM_VERSION_STRING);
    mLine.AddWhole("started", mStarted.c_str());
    mLine.AddNumber("file", mFileNumber);
    mLine.AddNumber("strings", std::uint64_t{mSettings.theLongestString});
    mLine.AddNumber("callerLimit", std::uint64_t{mSettings.theCallers});
    mLine.AddNumber("pointer", std::uint64_t{sizeof(void*)});
    WriteLine();
}

std::uint64_t LmJournalRecorder::WriteEnd()
{
    const std::uint64_t theNumber = BeginLine("end", Now(), 0);
    mLine.AddNumber("lost", mAllLost);
    WriteLine();
    return theNumber;
}

void LmJournalRecorder::WriteLost()
{
    if (mLost == 0) {
        return;
    }
    const std::uint64_t theLost = mLost;
    BeginLine("lost", Now(), 0);
    mLine.AddNumber("count", theLost);
    WriteLine();
    if (mLost == theLost) {
        mLost = 0;
    }
}

// ---- Callers

void LmJournalRecorder::FindCallers()
{
    if (mSettings.theCallers != 0) {
        mCallers.Collect(mSettings.theCallers);
        WriteModules();
    }
}

// Those that callers of this entry lie in, and that do not stand in the file yet.
void LmJournalRecorder::WriteModules()
{
    for (const std::uintptr_t theAddress : mCallers.Get()) {
        LmModule* const theModule = mCallers.FindModule(theAddress);
        if (theModule == nullptr || theModule->isWritten) {
            continue;
        }
        theModule->isWritten = true;
        BeginLine("module", Now(), 0);
        mLine.AddWhole("path", theModule->thePath.c_str());
        mLine.AddAddress("base", theModule->theBase);
        mLine.AddAddress("end", theModule->theEnd);
        if (theModule->isFixed) {
            mLine.AddBoolean("fixed", true);
        }
        if (!theModule->theBuild.empty()) {
            mLine.AddWhole("build", theModule->theBuild.c_str());
        }
        WriteLine();
    }
}

void LmJournalRecorder::AddCallers()
{
    if (mSettings.theCallers == 0) {
        return;
    }
    std::string theJSON = "[";
    for (const std::uintptr_t theAddress : mCallers.Get()) {
        theJSON += theJSON.size() == 1 ? "" : ",";
        LmJournalLine::AppendAddress(theJSON, theAddress);
    }
    mLine.AddJSON("callers", theJSON + "]");
}

// ---- What only some kinds have

void LmJournalRecorder::AddObject(const char* theField, const LmDebugObject* theObject)
{
    if (theObject == nullptr) {
        mLine.AddNull(theField);
    } else {
        mLine.AddJSON(theField, mObjects.Find(*theObject).theJSON);
    }
}

void LmJournalRecorder::AddKey(const char* theField, const LmString* theKey)
{
    mLine.AddString(theField, theKey->GetUTF8());
}

void LmJournalRecorder::AddCurrentValue(const char* theField, const LmJournalEntry& theEntry)
{
    mLine.AddValue(theField, StoreOf(theEntry).GetKeyValue(*theEntry.theKey));
}

void LmJournalRecorder::AddObservation(const LmJournalEntry& theEntry)
{
    AddObject("observer", theEntry.theOther);
}

void LmJournalRecorder::AddDependency(const LmJournalEntry& theEntry)
{
    AddKey("dependent", theEntry.theOtherKey);
}

void LmJournalRecorder::AddLink(const LmJournalEntry& theEntry)
{
    AddObject("from", theEntry.theOther);
    AddKey("fromKey", theEntry.theOtherKey);
    const std::uint64_t theRecord = mObjects.NumberOfRecord(theEntry.theRecord);
    if (theRecord != 0) {
        mLine.AddNumber("record", theRecord);
    }
}

void LmJournalRecorder::AddTransform(const LmJournalEntry& theEntry)
{
    if (theEntry.theTransform == nullptr) {
        return;
    }
    const LmValueTransform& theTransform = *theEntry.theTransform;
    const std::string theClass = LmClassName(typeid(theTransform));
    std::string theJSON =
        R"({"id":)" + std::to_string(mObjects.NumberOfTransform(&theTransform)) + R"(,"class":)";
    LmJournalLine::AppendString(theJSON, theClass.data(), theClass.size(), mSettings.theLongestString);
    mLine.AddJSON("transform", theJSON + "}");
}

void LmJournalRecorder::AddBind(const LmJournalEntry& theEntry)
{
    mObjects.BeginRecord(theEntry.theRecord);
    AddLink(theEntry);
    AddTransform(theEntry);
}

void LmJournalRecorder::AddUnbind(const LmJournalEntry& theEntry)
{
    AddLink(theEntry);
    AddTransform(theEntry);
    mObjects.EndRecord(theEntry.theRecord);
    mObjects.ForgetTransform(theEntry.theTransform);
}

void LmJournalRecorder::AddChanging(const LmJournalEntry& theEntry)
{
    const std::size_t theStart = mLine.GetText().size();
    AddCurrentValue("was", theEntry);
    std::vector<Change>& theChanges = mThread->theChanges;
    if (theChanges.size() == kMostChanges) {
        theChanges.erase(theChanges.begin(), theChanges.begin() + kMostChanges / 2);
    }
    theChanges.push_back({theEntry.theChange, mLastNumber, mLine.GetText().substr(theStart)});
    mLine.AddValue("to", *theEntry.theValue);
}

void LmJournalRecorder::AddChanged(const LmJournalEntry& theEntry)
{
    std::vector<Change>& theChanges = mThread->theChanges;
    const auto theChange =
        std::find_if(theChanges.rbegin(), theChanges.rend(), [&](const Change& theCandidate) {
            return theCandidate.theChange == theEntry.theChange;
        });
    if (theChange == theChanges.rend()) {
        AddCurrentValue("is", theEntry);
        return;
    }
    mLine.AddFields(theChange->theOldValue);
    AddCurrentValue("is", theEntry);
    mLine.AddNumber("changing", theChange->theNumber);
    // Those inside it never came to their second pass.
    theChanges.erase(std::next(theChange).base(), theChanges.end());
}

void LmJournalRecorder::AddNoChange(const LmJournalEntry& theEntry)
{
    AddCurrentValue("is", theEntry);
    mLine.AddValue("to", *theEntry.theValue);
}

void LmJournalRecorder::AddTold(const LmJournalEntry& theEntry)
{
    AddCurrentValue("is", theEntry);
    AddKey("of", theEntry.theOtherKey);
}

void LmJournalRecorder::AddNotify(const LmJournalEntry& theEntry)
{
    AddCurrentValue("is", theEntry);
    mLine.AddString("phase", theEntry.theDetail != 0 ? "changed" : "changing");
}

void LmJournalRecorder::AddTransforming(const LmJournalEntry& theEntry)
{
    AddLink(theEntry);
    AddTransform(theEntry);
    mLine.AddValue("in", *theEntry.theInput);
    mLine.AddValue("out", *theEntry.theValue);
}

void LmJournalRecorder::AddUpdate(const LmJournalEntry& theEntry)
{
    AddLink(theEntry);
    mLine.AddValue("to", *theEntry.theValue);
    if (theEntry.theDetail != 0) {
        mLine.AddBoolean("first", true);
    }
}

void LmJournalRecorder::AddEvent(const LmJournalEntry& theEntry)
{
    const char* const theName = LmEventName(theEntry.theCode, theEntry.theDetail);
    if (theName != nullptr) {
        mLine.AddWhole("event", theName);
    } else {
        mLine.AddNull("event");
    }
    mLine.AddString("class", CodeText(theEntry.theCode).c_str());
    mLine.AddNumber("kind", std::uint64_t{theEntry.theDetail});
}

void LmJournalRecorder::AddRead(const LmJournalEntry& theEntry)
{
    mLine.AddValue("is", *theEntry.theValue);
}

void LmJournalRecorder::AddWrite(const LmJournalEntry& theEntry)
{
    mLine.AddValue("to", *theEntry.theValue);
}

void LmJournalRecorder::AddFlush(const LmJournalEntry& theEntry)
{
    mLine.AddBoolean("done", theEntry.theDetail != 0);
}

void LmJournalRecorder::AddDiagnostic(const LmJournalEntry& theEntry)
{
    mLine.AddWhole("file", theEntry.theFile);
    mLine.AddNumber("line", std::uint64_t{theEntry.theDetail});
    mLine.AddString("message", theEntry.theText);
}

void LmJournalRecorder::AddAction(const LmJournalEntry& theEntry)
{
    AddEvent(theEntry);
    const auto theEvent = static_cast<EventRef>(const_cast<void*>(theEntry.theEvent));
    HIPoint thePlace = {0, 0};
    UInt32 theKeyCode = 0;
    if (GetEventParameter(theEvent, kEventParamMouseLocation, typeHIPoint, nullptr, sizeof thePlace, nullptr,
                          &thePlace) == noErr) {
        mLine.AddPlace("place", thePlace.x, thePlace.y);
    }
    if (GetEventParameter(theEvent, kEventParamKeyCode, typeUInt32, nullptr, sizeof theKeyCode, nullptr,
                          &theKeyCode) == noErr) {
        mLine.AddNumber("code", std::uint64_t{theKeyCode});
    }
    const std::string theTitle = LmTitleOfAction(theEvent);
    if (!theTitle.empty()) {
        mLine.AddString("title", theTitle.c_str());
    }
}

// ---- Threads and time

LmJournalRecorder::Thread& LmJournalRecorder::ThisThread()
{
    const std::thread::id theIdentifier = std::this_thread::get_id();
    const auto theKnown = mThreads.find(theIdentifier);
    if (theKnown != mThreads.end()) {
        return theKnown->second;
    }
    const std::uint64_t theNumber = mThreads.size() + 1;
    return mThreads.emplace(theIdentifier, Thread{theNumber, {}, {}}).first->second;
}

std::uint64_t LmJournalRecorder::CauseOf(const Thread& theThread) const
{
    return theThread.theFrames.empty() ? 0 : theThread.theFrames.back().theNumber;
}

std::uint64_t LmJournalRecorder::Now() const
{
    using Nanoseconds = std::chrono::nanoseconds;
    const auto theTime = std::chrono::steady_clock::now() - mBeginning;
    return static_cast<std::uint64_t>(std::chrono::duration_cast<Nanoseconds>(theTime).count());
}
