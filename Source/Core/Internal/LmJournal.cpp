// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournal.h"

#include "LmDiagnostics.h"
#include "LmKeyValueBinding.h"
#include "LmString.h"

#include <CoreFoundation/CoreFoundation.h>
#include <cstdlib>

namespace {

LmJournalHook* sHook = nullptr;

// The hook may ask objects for what they are: nothing of that is traced, reported or written into the
// journal.
class [[nodiscard]] Pause
{
public:
    Pause(std::uint32_t& theSwitches, bool& isAtWork)
        : mSwitches(theSwitches),
          mSaved(theSwitches),
          mIsAtWork(isAtWork)
    {
        theSwitches = 0;
        isAtWork = true;
    }
    ~Pause()
    {
        mSwitches = mSaved;
        mIsAtWork = false;
    }

    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

private:
    std::uint32_t& mSwitches;
    std::uint32_t mSaved;
    bool& mIsAtWork;
};

void Name(const LmDebugObject& theObject, const LmString& theName)
{
    LmNote([&] {
        LmJournalEntry theEntry{kJournalNamed};
        theEntry.theObject = &theObject;
        theEntry.theText = theName.GetUTF8();
        return theEntry;
    });
}

bool IsSet(const char* theVariable)
{
    const char* const theText = std::getenv(theVariable);
    return theText != nullptr && *theText != '\0';
}

} // namespace

void LmJournalHook::Close(const void*) noexcept {}

std::uint64_t LmJournal::Write(const LmJournalEntry& theEntry, const void* theScope) noexcept
{
    const Pause thePause(LmDebugObject::mDebugLog, sIsAtWork);
    return sHook->Write(theEntry, theScope);
}

void LmJournal::Close(const void* theScope) noexcept
{
    if (IsOn()) {
        const Pause thePause(LmDebugObject::mDebugLog, sIsAtWork);
        sHook->Close(theScope);
    }
}

void LmJournal::WriteAbout(LmJournalKind theKind, const LmDebugObject& theObject, std::uint32_t theCode,
                           std::uint32_t theDetail, const void* theScope) noexcept
{
    if (IsOn()) {
        LmJournalEntry theEntry{theKind};
        theEntry.theObject = &theObject;
        theEntry.theCode = theCode;
        theEntry.theDetail = theDetail;
        Write(theEntry, theScope);
    }
}

LmJournalHook* LmJournal::SetHook(LmJournalHook* theHook)
{
    LmJournalHook* const theOldHook = sHook;
    sHook = theHook;
    LmDebugObject::mDebugLog &= ~kJournalBit;
    if (theHook != nullptr) {
        LmDebugObject::mDebugLog |= kJournalBit;
    }
    return theOldHook;
}

void LmJournal::BeginFromEnvironment()
{
    if (!IsSet("LM_JOURNAL") && !IsSet("LM_JOURNAL_SOCKET")) {
        return;
    }
    // The recorder is a library of its own, which the program need not know: it is enough that it is loaded.
    const CFBundleRef theProgram = CFBundleGetMainBundle();
    void* const theBegin =
        theProgram != nullptr
            ? CFBundleGetFunctionPointerForName(theProgram, CFSTR("LmBeginJournalFromEnvironment"))
            : nullptr;
    if (theBegin == nullptr) {
        LM_ERROR("LM_JOURNAL: the library LmInspection is not loaded");
        return;
    }
    reinterpret_cast<void (*)()>(theBegin)();
}

LmJournalHook* LmSetJournalHook(LmJournalHook* theHook)
{
    return LmJournal::SetHook(theHook);
}

void LmWriteJournalEntry(const LmJournalEntry& theEntry, const void* theScope)
{
    if (LmJournal::IsOn()) {
        LmJournal::Write(theEntry, theScope);
    }
}

void LmCloseJournalEntry(const void* theScope)
{
    LmJournal::Close(theScope);
}

void LmNameObject(const LmKeyValueStore& theObject, const LmString& theName)
{
    Name(theObject, theName);
}

void LmNameObject(const LmKeyValueObserver& theObject, const LmString& theName)
{
    Name(theObject, theName);
}

void LmNameObject(const LmKeyValueBinding& theObject, const LmString& theName)
{
    Name(static_cast<const LmKeyValueStore&>(theObject), theName);
}
