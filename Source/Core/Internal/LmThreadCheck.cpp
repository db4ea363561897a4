// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmThreadCheck.h"

#include "LmDiagnostics.h"
#include "LmJournal.h"

#include <atomic>
#include <cstdint>
#include <cstring>
#include <thread>

namespace {

// The number by which debuggers know this thread.
std::uintptr_t GetThisThread()
{
    const std::thread::id theThread = std::this_thread::get_id();
    std::uintptr_t theNumber = 0;
    static_assert(sizeof theThread <= sizeof theNumber, "a thread is known by a number or an address");
    std::memcpy(&theNumber, &theThread, sizeof theThread);
    return theNumber;
}

std::atomic<std::uintptr_t> sFirst{0};
std::atomic<bool> sIsReported{false};

} // namespace

void LmThreadCheck::See()
{
    sIsSeen = true;
    const std::uintptr_t theThread = GetThisThread();
    std::uintptr_t theFirst = 0;
    if (sFirst.compare_exchange_strong(theFirst, theThread)) {
        // The library is used for the first time.
        LmJournal::BeginFromEnvironment();
        return;
    }
    if (sIsReported.exchange(true)) {
        return;
    }
    LM_ERROR("Called from thread 0x%lX; thread 0x%lX has used the library first, and no other may",
             static_cast<unsigned long>(theThread), static_cast<unsigned long>(theFirst));
}
