// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the desktop asks of the program, on its way from there to the handlers: as a Carbon event first.

#include "DesktopRequests.h"

#include "AppleEventHandlers.h"
#include "AppleEvents.h"
#include "Base/OnStack.h"
#include "Events/EventLoop.h"
#include "Events/OutgoingEvent.h"
#include "System/CommandLine.h"

#include <cstring>
#include <utility>

namespace Host {

namespace {

// An Apple event on its way, and the Carbon event that brings it.
struct Arrival : OnStack<Arrival>
{
    Arrival(EventRef theCarbonEvent, const AppleEvent* theAppleEvent)
        : theEvent(theCarbonEvent),
          theContent(theAppleEvent)
    {
    }

    const EventRef theEvent;
    const AppleEvent* const theContent;
    bool theIsHandled = false;
};

Arrival* FindArrival(EventRef theEvent)
{
    Arrival* theArrival = Arrival::Innermost();
    while (theArrival != nullptr && theArrival->theEvent != theEvent) {
        theArrival = theArrival->Outer();
    }
    return theArrival;
}

OSErr HandleArrival(Arrival* theArrival)
{
    AppleEvent theReply = {typeNull, nullptr};
    theArrival->theIsHandled = true;
    return HandleAppleEvent(theArrival->theContent, &theReply);
}

// Sends an Apple event to whoever has a handler for the Carbon event that it comes as, else to its own
// handler.
void Deliver(const AppleEvent& theContent, AEEventID theIdentifier)
{
    OutgoingEvent theEvent(kEventClassAppleEvent, kEventAppleEvent);
    theEvent.Set(kEventParamAEEventClass, typeType, AEEventClass{kCoreEventClass});
    theEvent.Set(kEventParamAEEventID, typeType, theIdentifier);
    Arrival theArrival(theEvent.Get(), &theContent);
    const OSStatus theStatus = theEvent.SendTo(GetApplicationEventTarget());
    if (theStatus != noErr && !theArrival.theIsHandled) {
        HandleArrival(&theArrival);
    }
}

bool MakeReference(const std::string& theFile, FSRef* theReference)
{
    AEDesc theDescriptor;
    if (AECoercePtr(typeFileURL, theFile.data(), static_cast<Size>(theFile.size()), typeFSRef,
                    &theDescriptor) == noErr) {
        AEGetDescData(&theDescriptor, theReference, sizeof *theReference);
        AEDisposeDesc(&theDescriptor);
        return true;
    }
    return FSPathMakeRef(reinterpret_cast<const UInt8*>(theFile.c_str()), theReference, nullptr) == noErr;
}

// The list of files that are there; the caller disposes of it.
OSErr MakeFileList(const std::vector<std::string>& theFiles, AEDescList* theResult)
{
    OSErr theStatus = AECreateList(nullptr, 0, false, theResult);
    for (const std::string& theFile : theFiles) {
        FSRef theReference;
        if (theStatus == noErr && MakeReference(theFile, &theReference)) {
            theStatus = AEPutPtr(theResult, 0, typeFSRef, &theReference, sizeof theReference);
        }
    }
    return theStatus;
}

// Delivers an event that theFill has filled; it answers a status.
template <class Fill>
bool Ask(AEEventID theIdentifier, const Fill& theFill)
{
    AppleEvent theEvent;
    OSErr theStatus = MakeCoreEvent(theIdentifier, &theEvent);
    theStatus = theStatus == noErr ? theFill(&theEvent) : theStatus;
    if (theStatus == noErr) {
        Deliver(theEvent, theIdentifier);
    }
    AEDisposeDesc(&theEvent);
    return theStatus == noErr;
}

// What of a command line names files that are there.
std::vector<std::string> FilesIn(const std::vector<std::string>& theArguments)
{
    std::vector<std::string> theFiles;
    bool theAreOptionsOver = false;
    for (const std::string& theArgument : theArguments) {
        FSRef theReference;
        const bool theIsOption = !theAreOptionsOver && theArgument.compare(0, 1, "-") == 0;
        if (!theIsOption && MakeReference(theArgument, &theReference)) {
            theFiles.push_back(theArgument);
        }
        theAreOptionsOver = theAreOptionsOver || theArgument == "--";
    }
    return theFiles;
}

bool gIsStartTold = false;

// What the program was started for, once.
void AskForTheStart()
{
    if (std::exchange(gIsStartTold, true)) {
        return;
    }
    Guarded([] {
        if (!AskWithFiles(kAEOpenDocuments, FilesIn(ProgramArguments()))) {
            AskFor(kAEOpenApplication);
        }
        return noErr;
    });
}

[[maybe_unused]] const bool gIsIntroduced = [] {
    UseAppleEvents({AskForTheStart, AEProcessEvent, QuitByAppleEvent});
    return true;
}();

} // namespace

bool AskWithFiles(AEEventID theIdentifier, const std::vector<std::string>& theFiles)
{
    AEDescList theList;
    long theCount = 0;
    OSErr theStatus = MakeFileList(theFiles, &theList);
    AECountItems(&theList, &theCount);
    const bool theIsAsked =
        theStatus == noErr && theCount > 0 && Ask(theIdentifier, [&](AppleEvent* theEvent) {
            return AEPutParamDesc(theEvent, keyDirectObject, &theList);
        });
    AEDisposeDesc(&theList);
    return theIsAsked;
}

bool AskFor(AEEventID theIdentifier)
{
    return Ask(theIdentifier, [](AppleEvent*) -> OSErr { return noErr; });
}

} // namespace Host

using namespace Host;

OSStatus AEProcessEvent(EventRef inEvent)
{
    if (GetEventClass(inEvent) != kEventClassAppleEvent || GetEventKind(inEvent) != kEventAppleEvent) {
        return paramErr;
    }
    Arrival* const theArrival = FindArrival(inEvent);
    return theArrival == nullptr ? OSErr{errAEEventNotHandled} : HandleArrival(theArrival);
}

Boolean ConvertEventRefToEventRecord(EventRef inEvent, EventRecord* outEvent)
{
    if (outEvent == nullptr) {
        return 0;
    }
    *outEvent = {};
    AEEventClass theClass = 0;
    AEEventID theIdentifier = 0;
    if (GetEventClass(inEvent) != kEventClassAppleEvent ||
        !ReadParameter(inEvent, kEventParamAEEventClass, typeType, &theClass) ||
        !ReadParameter(inEvent, kEventParamAEEventID, typeType, &theIdentifier)) {
        return 0;
    }
    outEvent->what = kHighLevelEvent;
    outEvent->message = theClass;
    outEvent->when = static_cast<UInt32>(static_cast<SInt64>(GetEventTime(inEvent) * 60));
    std::memcpy(&outEvent->where, &theIdentifier, sizeof theIdentifier);
    return 1;
}

OSErr AEProcessAppleEvent(const EventRecord* theEventRecord)
{
    if (theEventRecord == nullptr || theEventRecord->what != kHighLevelEvent) {
        return paramErr;
    }
    for (Arrival* theArrival = Arrival::Innermost(); theArrival != nullptr;
         theArrival = theArrival->Outer()) {
        EventRecord theRecord;
        if (ConvertEventRefToEventRecord(theArrival->theEvent, &theRecord) != 0 &&
            theRecord.message == theEventRecord->message &&
            std::memcmp(&theRecord.where, &theEventRecord->where, sizeof theRecord.where) == 0) {
            return HandleArrival(theArrival);
        }
    }
    return errAEEventNotHandled;
}
