// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalFile.h"

#include "LmDiagnostics.h"
#include "LmJournalDoor.h"
#include "LmJournalKeeper.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <utility>

namespace {

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

std::unique_ptr<LmJournalDoor>& TheDoor()
{
    static std::unique_ptr<LmJournalDoor> sDoor;
    return sDoor;
}

bool OpenDoor()
{
    std::string theTrouble;
    try {
        // It goes before the journal does, which who stands in it may read.
        LmJournalKeeper::Get();
        TheDoor() = LmJournalDoor::Open(theTrouble);
        LmJournalKeeper::Get().Remember(TheDoor() != nullptr);
    } catch (const std::bad_alloc&) {
        TheDoor() = nullptr;
    }
    if (TheDoor() == nullptr) {
        LM_ERROR("No socket for lminspect: %s", theTrouble.c_str());
    }
    return TheDoor() != nullptr;
}

void BeginFile()
{
    LmJournalSettings theSettings;
    theSettings.theFile = std::getenv("LM_JOURNAL");
    if (theSettings.theFile == nullptr || *theSettings.theFile == '\0' || LmJournalKeeper::Get().IsOn()) {
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
        theSettings.theCallers = static_cast<std::size_t>(std::min<std::uint64_t>(theCallers, SIZE_MAX));
        LmBeginJournal(theSettings);
    }
}

} // namespace

bool LmBeginJournal(const LmJournalSettings& theSettings)
{
    LmEndJournal();
    bool isBegun = false;
    try {
        isBegun = LmJournalKeeper::Get().BeginFile(theSettings, LmJournalKeeper::Origin::Program);
    } catch (const std::bad_alloc&) {
        LmEndJournal();
    }
    if (!isBegun) {
        LM_ERROR("The journal %s cannot be written", theSettings.theFile);
    }
    return isBegun;
}

void LmEndJournal()
{
    LmJournalKeeper::Get().End();
}

bool LmAllowAttaching(bool isAllowed)
{
    if (isAllowed) {
        return TheDoor() != nullptr || OpenDoor();
    }
    if (TheDoor() != nullptr) {
        TheDoor() = nullptr;
        LmJournalKeeper::Get().Remember(false);
    }
    return true;
}

void LmBeginJournalFromEnvironment()
{
    const char* const theSocket = std::getenv("LM_JOURNAL_SOCKET");
    if (theSocket != nullptr && std::strcmp(theSocket, "1") == 0) {
        LmAllowAttaching(true);
    }
    BeginFile();
}
