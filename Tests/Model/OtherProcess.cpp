// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "OtherProcess.h"

#include <cstdio>
#include <cstdlib>
#include <pthread.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Model {

namespace {

constexpr std::size_t kStackSize = std::size_t{256} << 20U;

struct Work
{
    const std::function<int()>& theFunction;
    int theResult;
};

void* DoWork(void* theWork)
{
    auto* const theOne = static_cast<Work*>(theWork);
    theOne->theResult = theOne->theFunction();
    return nullptr;
}

} // namespace

int DoOnLargeStack(const std::function<int()>& theWork)
{
    Work theOne{theWork, kEnded};
    pthread_attr_t theAttributes;
    pthread_t theThread{};
    pthread_attr_init(&theAttributes);
    pthread_attr_setstacksize(&theAttributes, kStackSize);
    const bool isStarted = pthread_create(&theThread, &theAttributes, &DoWork, &theOne) == 0;
    pthread_attr_destroy(&theAttributes);
    if (!isStarted) {
        std::perror("There is no stack for the scripts");
        std::abort();
    }
    pthread_join(theThread, nullptr);
    return theOne.theResult;
}

void StartTimer()
{
    itimerval theLimit{};
    theLimit.it_value.tv_sec = 10;
    setitimer(ITIMER_VIRTUAL, &theLimit, nullptr);
}

int DoInOtherProcess(const std::function<int()>& theWork)
{
    std::fflush(nullptr);
    const pid_t theChild = fork();
    if (theChild == 0) {
        StartTimer();
        // The sanitizer looks for leaks on the way out.
        std::exit(DoOnLargeStack(theWork));
    }
    int theStatus = 0;
    if (theChild < 0 || waitpid(theChild, &theStatus, 0) != theChild || !WIFEXITED(theStatus)) {
        return kEnded;
    }
    return WEXITSTATUS(theStatus);
}

} // namespace Model
