// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// PlantedFaults race|leak: does what it is called after. Scripts/RunThreads.py and Scripts/RunValgrind.py run
// it, to see that they find it.

#include <cstdio>
#include <cstring>
#include <thread>

namespace {

int gNumber = 0;
int* volatile gLost = nullptr; // what is done with it is not left out

int Race()
{
    const auto theWork = [] {
        for (int theTurn = 0; theTurn < 1000; ++theTurn) {
            gNumber = gNumber + 1;
        }
    };
    std::thread theFirst(theWork);
    std::thread theSecond(theWork);
    theFirst.join();
    theSecond.join();
    return gNumber > 0 ? 0 : 1;
}

int Leak()
{
    gLost = new int[10]();
    std::printf("%d\n", gLost[0]);
    gLost = nullptr;
    return 0;
}

} // namespace

int main(int theCount, char** theArguments)
{
    if (theCount == 2 && std::strcmp(theArguments[1], "race") == 0) {
        return Race();
    }
    if (theCount == 2 && std::strcmp(theArguments[1], "leak") == 0) {
        return Leak();
    }
    std::fputs("usage: PlantedFaults race|leak\n", stderr);
    return 2;
}
