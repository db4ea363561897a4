// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Apple events: what a program is asked for by name, with parameters. The desktop asks a program to open,
// print and quit with them, and a program may ask itself. Other programs are not to be reached.
//
// Main thread only. Statuses are those of AEDataModel.h.

#ifndef AppleEvents_h
#define AppleEvents_h

#include <Carbon/AEDataModel.h>
#include <Carbon/Events.h>

typedef FourCharCode AEEventClass;
typedef FourCharCode AEEventID;
typedef SInt16 AEReturnID;
typedef SInt32 AETransactionID;
typedef SInt8 AEEventSource;
typedef SInt8 AEInteractAllowed;

// The events that every program may get, of the class kCoreEventClass.
enum
{
    kCoreEventClass = 'aevt',
    kAEOpenApplication = 'oapp', // started without documents
    kAEReopenApplication = 'rapp',
    kAEOpenDocuments = 'odoc',  // direct object: a list of FSRefs
    kAEPrintDocuments = 'pdoc', // the same
    kAEOpenContents = 'ocon',
    kAEQuitApplication = 'quit',
    kAEShowPreferences = 'pref',
    kAEAnswer = 'ansr',
    kAEApplicationDied = 'obit'
};

// Parameters.
enum
{
    keyDirectObject = '----',
    keyErrorNumber = 'errn',
    keyErrorString = 'errs',
    keyAEPropData = 'prdt',
    keyAESearchText = 'stxt',
    keyAEPosition = 'kpos'
};

// Attributes.
enum
{
    keyMissedKeywordAttr = 'miss', // the first parameter that nobody has read, and that is not optional
    keyEventClassAttr = 'evcl',
    keyEventIDAttr = 'evid',
    keyReturnIDAttr = 'rtid',
    keyTransactionIDAttr = 'tran',
    keyAddressAttr = 'addr',
    keyOriginalAddressAttr = 'from',
    keyEventSourceAttr = 'esrc',
    keyInteractLevelAttr = 'inte',
    keyTimeoutAttr = 'timo',
    keyOptionalKeywordAttr = 'optk' // a keyword, or a list of them
};

enum
{
    kAutoGenerateReturnID = -1,
    kAnyTransactionID = 0
};

// Where an event comes from.
enum
{
    kAEUnknownSource = 0,
    kAEDirectCall = 1,
    kAESameProcess = 2
};

// --- Handlers -----------------------------------------------------------------------------------------

// Answers noErr, or why the event could not be carried out. What it puts into the reply goes to whoever waits
// for one; else the reply is a null descriptor.
typedef OSErr (*AEEventHandlerProcPtr)(const AppleEvent* theAppleEvent, AppleEvent* reply,
                                       SRefCon handlerRefcon);
typedef AEEventHandlerProcPtr AEEventHandlerUPP;

CARBON_EXPORT AEEventHandlerUPP NewAEEventHandlerUPP(AEEventHandlerProcPtr userRoutine);
CARBON_EXPORT void DisposeAEEventHandlerUPP(AEEventHandlerUPP userUPP);
CARBON_EXPORT OSErr InvokeAEEventHandlerUPP(const AppleEvent* theAppleEvent, AppleEvent* reply,
                                            SRefCon handlerRefcon, AEEventHandlerUPP userUPP);

// There is one handler for a class and an identifier; another one takes its place. typeWildCard stands for
// any. An event goes to the handler of its class and identifier, else of its class, else of its identifier,
// else of any event; those for the system come after all of the program's.
//
// Without a handler kAEQuitApplication ends the application's event loop as QuitApplicationEventLoop does,
// and kAEOpenApplication and kAEReopenApplication are good. Everything else is errAEEventNotHandled.
CARBON_EXPORT OSErr AEInstallEventHandler(AEEventClass theAEEventClass, AEEventID theAEEventID,
                                          AEEventHandlerUPP handler, SRefCon handlerRefcon,
                                          Boolean isSysHandler);

// errAEHandlerNotFound when there is none, or another one than this; NULL for whichever it is.
CARBON_EXPORT OSErr AERemoveEventHandler(AEEventClass theAEEventClass, AEEventID theAEEventID,
                                         AEEventHandlerUPP handler, Boolean isSysHandler);

// Of exactly this class and identifier. errAEHandlerNotFound.
CARBON_EXPORT OSErr AEGetEventHandler(AEEventClass theAEEventClass, AEEventID theAEEventID,
                                      AEEventHandlerUPP* handler, SRefCon* handlerRefcon,
                                      Boolean isSysHandler);

// --- Events that arrive -------------------------------------------------------------------------------

// An Apple event arrives as the event kEventAppleEvent of the class kEventClassAppleEvent at the application
// target, with its class (kEventParamAEEventClass) and identifier (kEventParamAEEventID). While
// RunApplicationEventLoop runs, a default handler there calls AEProcessEvent.
//
// When RunApplicationEventLoop runs for the first time, the program is asked to open the files that its
// command line names (kAEOpenDocuments), else to open as such (kAEOpenApplication). Files are arguments that
// name something that is there, by path or by a file URL, and do not begin with "-"; after "--" they may.
//
// The quit command that nobody handles becomes kAEQuitApplication.

// Calls the handler of the Apple event in an event; paramErr for any other event. The event's answer, or
// errAEEventNotHandled.
CARBON_EXPORT OSStatus AEProcessEvent(EventRef inEvent);

// True for Apple events alone: what is kHighLevelEvent then, message the class, and where the identifier.
CARBON_EXPORT Boolean ConvertEventRefToEventRecord(EventRef inEvent, EventRecord* outEvent);

// The same as AEProcessEvent for such a record.
CARBON_EXPORT OSErr AEProcessAppleEvent(const EventRecord* theEventRecord);

// --- Events that are made -----------------------------------------------------------------------------

// An event with its attributes and no parameters; these are put in like items of a record. The target may be
// NULL. kAutoGenerateReturnID makes a number that no event had before.
CARBON_EXPORT OSErr AECreateAppleEvent(AEEventClass theAEEventClass, AEEventID theAEEventID,
                                       const AEAddressDesc* target, AEReturnID returnID,
                                       AETransactionID transactionID, AppleEvent* result);

// Attributes: errAENotAppleEvent for anything but an Apple event. The rest is as it is with parameters.
CARBON_EXPORT OSErr AEGetAttributePtr(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword,
                                      DescType desiredType, DescType* typeCode, void* dataPtr,
                                      Size maximumSize, Size* actualSize);
CARBON_EXPORT OSErr AEGetAttributeDesc(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword,
                                       DescType desiredType, AEDesc* result);
CARBON_EXPORT OSErr AESizeOfAttribute(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword,
                                      DescType* typeCode, Size* dataSize);
CARBON_EXPORT OSErr AEPutAttributePtr(AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType typeCode,
                                      const void* dataPtr, Size dataSize);
CARBON_EXPORT OSErr AEPutAttributeDesc(AppleEvent* theAppleEvent, AEKeyword theAEKeyword,
                                       const AEDesc* theAEDesc);

#endif
