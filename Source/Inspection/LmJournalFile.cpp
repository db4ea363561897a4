// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalFile.h"

#include "LmDiagnostics.h"
#include "LmJournalRecorder.h"
#include "LmPersonWatch.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace {

constexpr std::size_t kShortestString = 16;
constexpr std::size_t kMostCallers = 64;

// A journal that is being written: the recorder is the hook as long as it lives.
class Journal
{
public:
    explicit Journal(const LmJournalRecorder::Settings& theSettings)
        : mRecorder(theSettings)
    {
        LmSetJournalHook(&mRecorder);
    }
    ~Journal()
    {
        LmWriteJournalEntry(LmJournalEntry{kJournalEnd}, nullptr);
        LmSetJournalHook(nullptr);
    }

    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    bool IsOpen() const { return mRecorder.IsOpen(); }

private:
    LmJournalRecorder mRecorder;
    LmPersonWatch mPersonWatch;
};

// The program's end ends the journal.
std::unique_ptr<Journal>& TheJournal()
{
    static std::unique_ptr<Journal> sJournal;
    return sJournal;
}

// A number, with a letter behind it that makes it larger where theLetters has one.
bool ReadNumber(const char* theVariable, const char* theLetters, std::uint64_t& theNumber)
{
    const char* const theText = std::getenv(theVariable);
    if (theText == nullptr || *theText == '\0') {
        return true;
    }
    char* theEnd = nullptr;
    errno = 0;
    const std::uint64_t theResult = std::strtoull(theText, &theEnd, 10);
    const char* const theLetter = *theEnd != '\0' ? std::strchr(theLetters, *theEnd) : nullptr;
    const auto theShift = theLetter != nullptr ? 10 * static_cast<unsigned>(theLetter - theLetters + 1) : 0;
    const bool isNumber = *theText >= '0' && *theText <= '9' && errno == 0 &&
                          (*theEnd == '\0' || (theLetter != nullptr && theEnd[1] == '\0')) &&
                          theResult <= ~std::uint64_t{0} >> theShift;
    if (!isNumber) {
        LM_ERROR("%s: %s is no number", theVariable, theText);
        return false;
    }
    theNumber = theResult << theShift;
    return true;
}

bool Begin(const LmJournalSettings& theSettings)
{
    const std::size_t theLongestString = std::max(theSettings.theLongestString, kShortestString);
    const std::size_t theCallers = std::min(theSettings.theCallers, kMostCallers);
    TheJournal() = std::make_unique<Journal>(
        LmJournalRecorder::Settings{theSettings.theFile, theSettings.theLimit, theLongestString, theCallers});
    return TheJournal()->IsOpen();
}

} // namespace

bool LmBeginJournal(const LmJournalSettings& theSettings)
{
    LmEndJournal();
    bool isBegun = false;
    try {
        isBegun = Begin(theSettings);
    } catch (const std::bad_alloc&) {
        isBegun = false;
    }
    if (!isBegun) {
        LmEndJournal();
        LM_ERROR("The journal %s cannot be written", theSettings.theFile);
    }
    return isBegun;
}

void LmEndJournal()
{
    TheJournal().reset();
}

void LmBeginJournalFromEnvironment()
{
    LmJournalSettings theSettings;
    theSettings.theFile = std::getenv("LM_JOURNAL");
    if (theSettings.theFile == nullptr || *theSettings.theFile == '\0' || TheJournal() != nullptr) {
        return;
    }
    std::uint64_t theLimit = theSettings.theLimit;
    std::uint64_t theLongestString = theSettings.theLongestString;
    std::uint64_t theCallers = theSettings.theCallers;
    if (ReadNumber("LM_JOURNAL_LIMIT", "KMG", theLimit) &&
        ReadNumber("LM_JOURNAL_STRINGS", "", theLongestString) &&
        ReadNumber("LM_JOURNAL_CALLERS", "", theCallers)) {
        theSettings.theLimit = theLimit;
        theSettings.theLongestString =
            static_cast<std::size_t>(std::min<std::uint64_t>(theLongestString, SIZE_MAX));
        theSettings.theCallers = static_cast<std::size_t>(std::min<std::uint64_t>(theCallers, kMostCallers));
        LmBeginJournal(theSettings);
    }
}
