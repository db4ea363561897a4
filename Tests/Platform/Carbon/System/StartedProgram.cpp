// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A program that prints what it was started for, a line for each request, and ends.

#include <Carbon/Carbon.h>
#include <cstdio>

namespace {

OSErr Open(const AppleEvent*, AppleEvent*, SRefCon)
{
    std::puts("open");
    QuitApplicationEventLoop();
    return noErr;
}

OSErr OpenDocuments(const AppleEvent* theEvent, AppleEvent*, SRefCon)
{
    AEDescList theList;
    long theCount = 0;
    AEGetParamDesc(theEvent, keyDirectObject, typeAEList, &theList);
    AECountItems(&theList, &theCount);
    for (long theIndex = 1; theIndex <= theCount; ++theIndex) {
        FSRef theFile;
        UInt8 thePath[1024] = "";
        AEGetNthPtr(&theList, theIndex, typeFSRef, nullptr, nullptr, &theFile, sizeof theFile, nullptr);
        FSRefMakePath(&theFile, thePath, sizeof thePath);
        std::printf("open %s\n", reinterpret_cast<const char*>(thePath));
    }
    AEDisposeDesc(&theList);
    QuitApplicationEventLoop();
    return noErr;
}

} // namespace

int main()
{
    AEInstallEventHandler(kCoreEventClass, kAEOpenApplication, Open, SRefCon{}, false);
    AEInstallEventHandler(kCoreEventClass, kAEOpenDocuments, OpenDocuments, SRefCon{}, false);
    RunApplicationEventLoop();
    // What it was started for is said once.
    const EventLoopTimerUPP theEnd = [](EventLoopTimerRef, void*) { QuitApplicationEventLoop(); };
    EventLoopTimerRef theTimer = nullptr;
    InstallEventLoopTimer(GetMainEventLoop(), 0, 0, theEnd, nullptr, &theTimer);
    RunApplicationEventLoop();
    return 0;
}
