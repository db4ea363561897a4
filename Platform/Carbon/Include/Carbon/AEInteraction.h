// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Sending Apple events, and whether their handlers may ask the person something.

#ifndef AEInteraction_h
#define AEInteraction_h

#include <Carbon/AppleEvents.h>

typedef SInt32 AESendMode;
typedef SInt16 AESendPriority;

// One of the first three, with any of the others.
enum
{
    kAENoReply = 1,
    kAEQueueReply = 2,
    kAEWaitReply = 3,
    kAENeverInteract = 16,
    kAECanInteract = 32,
    kAEAlwaysInteract = 48,
    kAECanSwitchLayer = 64,
    kAEDontReconnect = 128,
    kAEDontRecord = 4096,
    kAEDontExecute = 8192
};

enum
{
    kAENormalPriority = 0,
    kAEHighPriority = 1,
    kAEDefaultTimeout = -1,
    kNoTimeOut = -2
};

enum
{
    kAEInteractWithSelf = 0,
    kAEInteractWithLocal = 1,
    kAEInteractWithAll = 2
};

typedef Boolean (*AEIdleProcPtr)(EventRecord* theEvent, SInt32* sleepTime, void** mouseRgn);
typedef AEIdleProcPtr AEIdleUPP;
typedef Boolean (*AEFilterProcPtr)(EventRecord* theEvent, SInt32 returnID, AETransactionID transactionID,
                                   const AEAddressDesc* sender);
typedef AEFilterProcPtr AEFilterUPP;
typedef struct NMRec* NMRecPtr;

// Calls the program's own handler before it returns. The event must be addressed to the program itself: a
// process serial number {0, kCurrentProcess}, its process identifier, or the identifier or signature of its
// bundle. procNotFound for others, errAEUnknownAddressType for other kinds of addresses and for none.
//
// With kAEWaitReply the reply is an event kAEAnswer that the caller disposes of; what the handler answered is
// its keyErrorNumber unless that was noErr. With kAENoReply the reply is not touched. kAEQueueReply is
// errAEUnknownSendMode. errAEEventNotHandled when there is no handler; else noErr. kAEDontExecute finds out
// only that. Nothing is waited for, so the other arguments are not used.
CARBON_EXPORT OSErr AESend(const AppleEvent* theAppleEvent, AppleEvent* reply, AESendMode sendMode,
                           AESendPriority sendPriority, SInt32 timeOutInTicks, AEIdleUPP idleProc,
                           AEFilterUPP filterProc);

// The same; the reply may be NULL when none is waited for.
CARBON_EXPORT OSStatus AESendMessage(const AppleEvent* event, AppleEvent* reply, AESendMode sendMode,
                                     long timeOutInTicks);

// noErr at once: the program is in front, as far as it can know.
CARBON_EXPORT OSErr AEInteractWithUser(SInt32 timeOutInTicks, NMRecPtr nmReqPtr, AEIdleUPP idleProc);

// Kept and given back; at first kAEInteractWithLocal. paramErr for other numbers and NULL.
CARBON_EXPORT OSErr AESetInteractionAllowed(AEInteractAllowed level);
CARBON_EXPORT OSErr AEGetInteractionAllowed(AEInteractAllowed* level);

#endif
