// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EndSignals.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace Host {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

// What goes through the pipe.
constexpr char kHasCome = 's';
constexpr char kIsOver = 'o';

// A signal may interrupt anything, a held lock too: its handler only sets flags and writes a byte into a
// pipe. A thread of its own reads the pipe and wakes the loop, whatever the loop waits in.
int gPipe[2] = {-1, -1};
std::thread* gReader = nullptr;
struct sigaction gFormer[std::size(kSignals)];
bool gIsTaken[std::size(kSignals)];
std::atomic<bool> gHasCome{false};
std::atomic<bool> gIsNews{false};

void Send(char theByte)
{
    while (write(gPipe[1], &theByte, 1) < 0 && errno == EINTR) {
    }
}

void HandleSignal(int theSignal)
{
    const int theError = errno;
    if (gHasCome.exchange(true)) {
        // Blocked until this function returns; then it does what it does by default.
        std::signal(theSignal, SIG_DFL);
        raise(theSignal);
    } else {
        gIsNews = true;
        Send(kHasCome);
    }
    errno = theError;
}

char NextByte()
{
    char theByte = kIsOver;
    while (read(gPipe[0], &theByte, 1) < 0 && errno == EINTR) {
    }
    return theByte;
}

void ReadPipe(void (*theWake)())
{
    while (NextByte() == kHasCome) {
        theWake();
    }
}

void ClosePipe()
{
    for (int& theEnd : gPipe) {
        close(theEnd);
        theEnd = -1;
    }
}

// Nothing that the program starts inherits it.
bool OpenPipe()
{
    if (pipe(gPipe) != 0) {
        return false;
    }
    for (const int theEnd : gPipe) {
        fcntl(theEnd, F_SETFD, FD_CLOEXEC);
    }
    return true;
}

// Signals are for the program's own threads.
bool StartReader(void (*theWake)())
{
    sigset_t theAll;
    sigset_t theFormer;
    sigfillset(&theAll);
    pthread_sigmask(SIG_SETMASK, &theAll, &theFormer);
    try {
        gReader = new std::thread(ReadPipe, theWake);
    } catch (const std::bad_alloc&) {
    } catch (const std::system_error&) {
    }
    pthread_sigmask(SIG_SETMASK, &theFormer, nullptr);
    return gReader != nullptr;
}

void TakeSignals()
{
    for (size_t theIndex = 0; theIndex < std::size(kSignals); ++theIndex) {
        sigaction(kSignals[theIndex], nullptr, &gFormer[theIndex]);
        gIsTaken[theIndex] = gFormer[theIndex].sa_handler == SIG_DFL;
        if (gIsTaken[theIndex]) {
            struct sigaction theAction = {};
            theAction.sa_handler = HandleSignal;
            theAction.sa_flags = SA_RESTART;
            sigemptyset(&theAction.sa_mask);
            sigaction(kSignals[theIndex], &theAction, nullptr);
        }
    }
}

void GiveSignalsBack()
{
    for (size_t theIndex = 0; theIndex < std::size(kSignals); ++theIndex) {
        if (gIsTaken[theIndex]) {
            sigaction(kSignals[theIndex], &gFormer[theIndex], nullptr);
        }
    }
}

} // namespace

EndSignals::EndSignals(void (*theWake)())
{
    if (gReader != nullptr || !OpenPipe()) {
        return;
    }
    mIsInUse = StartReader(theWake);
    if (!mIsInUse) {
        ClosePipe();
        return;
    }
    TakeSignals();
}

EndSignals::~EndSignals()
{
    if (!mIsInUse) {
        return;
    }
    GiveSignalsBack();
    Send(kIsOver);
    gReader->join();
    delete gReader;
    gReader = nullptr;
    ClosePipe();
    gHasCome = false;
}

bool EndSignals::TakeFirst()
{
    return gIsNews.exchange(false);
}

} // namespace Host
