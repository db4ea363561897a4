// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AppleEventHandlers.h"

#include "AppleEvents.h"
#include "Base/OnStack.h"
#include "Common/NeverDestroyed.h"

#include <algorithm>
#include <initializer_list>
#include <map>
#include <utility>

namespace Host {

namespace {

struct Handler
{
    AEEventHandlerUPP theFunction = nullptr;
    SRefCon theContext{};
};

using Name = std::pair<AEEventClass, AEEventID>;
using HandlerTable = std::map<Name, Handler>;

HandlerTable& Handlers(bool theIsSystem)
{
    static NeverDestroyed<std::map<bool, HandlerTable>> sTables;
    return sTables.Get()[theIsSystem];
}

const Handler* FindIn(const HandlerTable& theTable, AEEventClass theClass, AEEventID theIdentifier)
{
    for (const Name& theName : {Name(theClass, theIdentifier), Name(theClass, typeWildCard),
                                Name(typeWildCard, theIdentifier), Name(typeWildCard, typeWildCard)}) {
        const auto theEntry = theTable.find(theName);
        if (theEntry != theTable.end()) {
            return &theEntry->second;
        }
    }
    return nullptr;
}

const Handler* FindHandler(AEEventClass theClass, AEEventID theIdentifier)
{
    const Handler* const theOwn = FindIn(Handlers(false), theClass, theIdentifier);
    return theOwn != nullptr ? theOwn : FindIn(Handlers(true), theClass, theIdentifier);
}

bool IsOneOf(OSType theCode, std::initializer_list<OSType> theCodes)
{
    return std::find(theCodes.begin(), theCodes.end(), theCode) != theCodes.end();
}

bool HasDefault(AEEventClass theClass, AEEventID theIdentifier)
{
    return theClass == kCoreEventClass &&
           IsOneOf(theIdentifier, {kAEOpenApplication, kAEReopenApplication, kAEQuitApplication});
}

OSErr HandleByDefault(AEEventClass theClass, AEEventID theIdentifier)
{
    if (!HasDefault(theClass, theIdentifier)) {
        return errAEEventNotHandled;
    }
    if (theIdentifier == kAEQuitApplication) {
        QuitApplicationEventLoop();
    }
    return noErr;
}

OSType CodeOf(const AppleEvent* theEvent, AEKeyword theAttribute)
{
    OSType theCode = 0;
    AEGetAttributePtr(theEvent, theAttribute, typeType, nullptr, &theCode, sizeof theCode, nullptr);
    return theCode;
}

// A program that is being asked to quit.
struct QuitRequest : OnStack<QuitRequest>
{
};

} // namespace

bool IsAppleEventHandled(AEEventClass theClass, AEEventID theIdentifier)
{
    return FindHandler(theClass, theIdentifier) != nullptr || HasDefault(theClass, theIdentifier);
}

OSErr HandleAppleEvent(const AppleEvent* theEvent, AppleEvent* theReply)
{
    const AEEventClass theClass = CodeOf(theEvent, keyEventClassAttr);
    const AEEventID theIdentifier = CodeOf(theEvent, keyEventIDAttr);
    const Handler* const theFound = FindHandler(theClass, theIdentifier);
    if (theFound == nullptr) {
        return HandleByDefault(theClass, theIdentifier);
    }
    // It may remove itself.
    const Handler theHandler = *theFound;
    return theHandler.theFunction(theEvent, theReply, theHandler.theContext);
}

void QuitByAppleEvent()
{
    if (QuitRequest::Innermost() != nullptr) {
        QuitApplicationEventLoop();
        return;
    }
    const QuitRequest theRequest;
    AppleEvent theEvent;
    AppleEvent theReply = {typeNull, nullptr};
    if (MakeCoreEvent(kAEQuitApplication, &theEvent) != noErr) {
        QuitApplicationEventLoop();
        return;
    }
    HandleAppleEvent(&theEvent, &theReply);
    AEDisposeDesc(&theEvent);
}

} // namespace Host

using namespace Host;

AEEventHandlerUPP NewAEEventHandlerUPP(AEEventHandlerProcPtr userRoutine)
{
    return userRoutine;
}

void DisposeAEEventHandlerUPP(AEEventHandlerUPP) {}

OSErr InvokeAEEventHandlerUPP(const AppleEvent* theAppleEvent, AppleEvent* reply, SRefCon handlerRefcon,
                              AEEventHandlerUPP userUPP)
{
    return userUPP == nullptr ? OSErr{paramErr} : userUPP(theAppleEvent, reply, handlerRefcon);
}

OSErr AEInstallEventHandler(AEEventClass theAEEventClass, AEEventID theAEEventID, AEEventHandlerUPP handler,
                            SRefCon handlerRefcon, Boolean isSysHandler)
{
    if (handler == nullptr) {
        return paramErr;
    }
    return AnswerOf([&]() -> OSErr {
        Handlers(isSysHandler != 0)[{theAEEventClass, theAEEventID}] = {handler, handlerRefcon};
        return noErr;
    });
}

OSErr AERemoveEventHandler(AEEventClass theAEEventClass, AEEventID theAEEventID, AEEventHandlerUPP handler,
                           Boolean isSysHandler)
{
    return AnswerOf([&]() -> OSErr {
        HandlerTable& theTable = Handlers(isSysHandler != 0);
        const auto theEntry = theTable.find({theAEEventClass, theAEEventID});
        if (theEntry == theTable.end() || (handler != nullptr && handler != theEntry->second.theFunction)) {
            return errAEHandlerNotFound;
        }
        theTable.erase(theEntry);
        return noErr;
    });
}

OSErr AEGetEventHandler(AEEventClass theAEEventClass, AEEventID theAEEventID, AEEventHandlerUPP* handler,
                        SRefCon* handlerRefcon, Boolean isSysHandler)
{
    if (handler == nullptr || handlerRefcon == nullptr) {
        return paramErr;
    }
    return AnswerOf([&]() -> OSErr {
        const HandlerTable& theTable = Handlers(isSysHandler != 0);
        const auto theEntry = theTable.find({theAEEventClass, theAEEventID});
        if (theEntry == theTable.end()) {
            return errAEHandlerNotFound;
        }
        *handler = theEntry->second.theFunction;
        *handlerRefcon = theEntry->second.theContext;
        return noErr;
    });
}
