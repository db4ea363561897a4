// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AppleEventTestSupport.h"
#include "EventTestSupport.h"

#include <Presentation/PresenterEvents.h>

namespace {

const EventTypeSpec kAppleEvent = {kEventClassAppleEvent, kEventAppleEvent};

// The files of a request, in order, as bytes of references.
std::string FilesOf(const AppleEvent* theEvent)
{
    TestDescriptor theList;
    EXPECT_EQ(AEGetParamDesc(theEvent, keyDirectObject, typeAEList, theList), noErr);
    std::string theFiles;
    long theCount = 0;
    EXPECT_EQ(AECountItems(theList, &theCount), noErr);
    for (long theIndex = 1; theIndex <= theCount; ++theIndex) {
        FSRef theReference = {};
        EXPECT_EQ(AEGetNthPtr(theList, theIndex, typeFSRef, nullptr, nullptr, &theReference,
                              sizeof theReference, nullptr),
                  noErr);
        theFiles += BytesOfValue(theReference);
    }
    return theFiles;
}

class DesktopRequests : public EventLoopTest
{
protected:
    Host::PresenterEvents& Gate() { return Host::PresenterRegistry::Events(); }

    TestEventHandler::Action Opening()
    {
        return [this](const AppleEvent* theEvent, AppleEvent*) -> OSErr {
            mLog.push_back("open");
            mFiles = FilesOf(theEvent);
            return noErr;
        };
    }

    TestFile mFirst;
    TestFile mSecond;
    std::string mFiles;
};

} // namespace

TEST_F(DesktopRequests, FilesAreOpened)
{
    const TestEventHandler theHandler(kCoreEventClass, kAEOpenDocuments, Opening());
    EXPECT_TRUE(Gate().OpenAsked({mFirst.Path(), "file://" + mSecond.URL()}));
    EXPECT_EQ(mLog, Log{"open"});
    EXPECT_EQ(mFiles, mFirst.Reference() + mSecond.Reference());
}

TEST_F(DesktopRequests, FilesThatAreNotThereAreLeftOut)
{
    const TestEventHandler theHandler(kCoreEventClass, kAEOpenDocuments, Opening());
    EXPECT_TRUE(Gate().OpenAsked({"/absent", mFirst.Path(), ""}));
    EXPECT_EQ(mFiles, mFirst.Reference());
    EXPECT_FALSE(Gate().OpenAsked({"/absent"}));
    EXPECT_FALSE(Gate().OpenAsked({}));
    EXPECT_EQ(mLog, Log{"open"});
}

TEST_F(DesktopRequests, FilesArePrintedAndTheProgramIsOpenedAgain)
{
    const TestEventHandler thePrint(kCoreEventClass, kAEPrintDocuments, Opening());
    const TestEventHandler theReopen(kCoreEventClass, kAEReopenApplication,
                                     [&](const AppleEvent* theEvent, AppleEvent*) -> OSErr {
                                         long theCount = 7;
                                         EXPECT_EQ(AECountItems(theEvent, &theCount), noErr);
                                         EXPECT_EQ(theCount, 0);
                                         mLog.push_back("reopen");
                                         return noErr;
                                     });
    EXPECT_TRUE(Gate().PrintAsked({mFirst.Path()}));
    EXPECT_TRUE(Gate().ReopenAsked());
    EXPECT_EQ(mLog, (Log{"open", "reopen"}));
}

// --- As Carbon events ---------------------------------------------------------------------------------

TEST_F(DesktopRequests, ARequestIsACarbonEventFirst)
{
    std::vector<OSType> theIdentifiers;
    const TestEventHandler theOpening(kCoreEventClass, kAEOpenDocuments, Opening());
    const TestHandler theHandler(GetApplicationEventTarget(), "event", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     EXPECT_EQ(Parameter<OSType>(theEvent, kEventParamAEEventClass, typeType),
                                               OSType{kCoreEventClass});
                                     theIdentifiers.push_back(
                                         Parameter<OSType>(theEvent, kEventParamAEEventID, typeType));
                                     return OSStatus(eventNotHandledErr);
                                 },
                                 {kAppleEvent});
    EXPECT_TRUE(Gate().OpenAsked({mFirst.Path()}));
    EXPECT_EQ(mLog, (Log{"event", "open"}));
    EXPECT_EQ(theIdentifiers, std::vector<OSType>{kAEOpenDocuments});
}

TEST_F(DesktopRequests, TheLoopsOwnHandlerCallsThatOfTheRequestOnce)
{
    const TestEventHandler theOpening(kCoreEventClass, kAEOpenDocuments, Opening());
    const TestTimer theTimer(1, 0, [&] {
        EXPECT_TRUE(Gate().OpenAsked({mFirst.Path()}));
        QuitApplicationEventLoop();
    });
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, Log{"open"});
}

TEST_F(DesktopRequests, AHandlerOfTheCarbonEventMayKeepItOrProcessIt)
{
    const TestEventHandler theOpening(kCoreEventClass, kAEOpenDocuments, Opening());
    bool theIsProcessed = false;
    const TestHandler theHandler(GetApplicationEventTarget(), "event", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     EventRecord theRecord;
                                     EXPECT_TRUE(ConvertEventRefToEventRecord(theEvent, &theRecord));
                                     EXPECT_EQ(theRecord.what, kHighLevelEvent);
                                     EXPECT_EQ(theRecord.message, UInt32{kCoreEventClass});
                                     return theIsProcessed ? OSStatus(AEProcessAppleEvent(&theRecord))
                                                           : OSStatus(noErr);
                                 },
                                 {kAppleEvent});
    EXPECT_TRUE(Gate().OpenAsked({mFirst.Path()}));
    EXPECT_EQ(mLog, Log{"event"});
    theIsProcessed = true;
    EXPECT_TRUE(Gate().OpenAsked({mFirst.Path()}));
    EXPECT_EQ(mLog, (Log{"event", "event", "open"}));
}

TEST_F(DesktopRequests, OnlyAppleEventsThatArriveCanBeProcessed)
{
    EventRecord theRecord = {};
    theRecord.what = kHighLevelEvent;
    TestEvent theEvent(kEventClassAppleEvent, kEventAppleEvent);
    EXPECT_EQ(AEProcessEvent(theEvent.Get()), errAEEventNotHandled);
    EXPECT_FALSE(ConvertEventRefToEventRecord(theEvent.Get(), &theRecord));
    EXPECT_EQ(theRecord.what, nullEvent);
    const TestEvent theOther;
    EXPECT_EQ(AEProcessEvent(theOther.Get()), paramErr);
    EXPECT_EQ(AEProcessEvent(nullptr), paramErr);
    EXPECT_FALSE(ConvertEventRefToEventRecord(theOther.Get(), &theRecord));
    EXPECT_FALSE(ConvertEventRefToEventRecord(theEvent.Get(), nullptr));
    EXPECT_EQ(AEProcessAppleEvent(&theRecord), paramErr);
    EXPECT_EQ(AEProcessAppleEvent(nullptr), paramErr);
    theRecord.what = kHighLevelEvent;
    EXPECT_EQ(AEProcessAppleEvent(&theRecord), errAEEventNotHandled);
}
