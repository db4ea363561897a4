// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalKeeper.h"

#include "LmJournalStream.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kShortestString = 16;
constexpr std::size_t kMostCallers = 64;

} // namespace

LmJournalKeeper::Journal::Journal(const LmJournalRecorder::Settings& theSettings,
                                  std::unique_ptr<LmJournalOutput> theOutput)
    : theRecorder(theSettings, std::move(theOutput))
{
}

LmJournalKeeper& LmJournalKeeper::Get()
{
    static LmJournalKeeper sKeeper;
    return sKeeper;
}

LmJournalKeeper::~LmJournalKeeper()
{
    End();
    LmSetJournalHook(nullptr);
}

void LmJournalKeeper::Begin(const LmJournalRecorder::Settings& theSettings,
                            std::unique_ptr<LmJournalOutput> theOutput, Origin theOrigin)
{
    End();
    mJournal = std::make_unique<Journal>(theSettings, std::move(theOutput));
    mOrigin = theOrigin;
    Tell(&mJournal->theRecorder);
}

bool LmJournalKeeper::BeginFile(const LmJournalSettings& theSettings, Origin theOrigin)
{
    auto theFile = std::make_unique<LmJournalStream>(theSettings.theFile, theSettings.theLimit);
    if (!theFile->IsOpen()) {
        return false;
    }
    const std::size_t theLongestString = std::max(theSettings.theLongestString, kShortestString);
    const std::size_t theCallers = std::min(theSettings.theCallers, kMostCallers);
    Begin({theLongestString, theCallers}, std::move(theFile), theOrigin);
    return true;
}

void LmJournalKeeper::End()
{
    if (mJournal != nullptr) {
        LmWriteJournalEntry(LmJournalEntry{kJournalEnd}, nullptr);
        Tell(nullptr);
        mJournal.reset();
    }
}

// theHook is what listens, or null.
void LmJournalKeeper::Tell(LmJournalHook* theHook)
{
    if (mMemory != nullptr) {
        mMemory->SetNext(theHook);
    } else {
        LmSetJournalHook(theHook);
    }
}

bool LmJournalKeeper::Tend()
{
    return mJournal == nullptr || mJournal->theRecorder.Tend();
}

void LmJournalKeeper::Remember(bool isRemembered)
{
    LmJournalRecorder* const theRecorder = mJournal != nullptr ? &mJournal->theRecorder : nullptr;
    if (!isRemembered) {
        LmSetJournalHook(theRecorder);
        mMemory.reset();
    } else if (mMemory == nullptr) {
        mMemory = std::make_unique<LmJournalMemory>();
        mMemory->SetNext(theRecorder);
        LmSetJournalHook(mMemory.get());
    }
}
