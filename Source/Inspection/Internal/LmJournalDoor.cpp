// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalDoor.h"

#include "LmJournalFile.h"
#include "LmJournalKeeper.h"
#include "LmSocketStream.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

constexpr EventTimerInterval kInterval = 0.1;
// A visitor who has not said by then what is wanted is sent away, so that the next one is heard.
constexpr int kMostTurns = 5;
constexpr std::size_t kLongestRequest = 8192;
constexpr std::size_t kMostCallers = 64;

using Origin = LmJournalKeeper::Origin;

// Takes the word before the next space from theText.
std::string TakeWord(std::string& theText)
{
    const std::size_t theEnd = std::min(theText.find(' '), theText.size());
    std::string theWord = theText.substr(0, theEnd);
    theText.erase(0, theEnd + 1);
    return theWord;
}

std::string WriteTo(const std::string& theFile, std::size_t theCallers)
{
    LmJournalSettings theSettings;
    theSettings.theFile = theFile.c_str();
    theSettings.theCallers = theCallers;
    return LmJournalKeeper::Get().BeginFile(theSettings, Origin::Visitor) ? ""
                                                                          : theFile + " cannot be written";
}

} // namespace

std::unique_ptr<LmJournalDoor> LmJournalDoor::Open(std::string& theTrouble)
{
    std::unique_ptr<LmLocalSocket> theSocket = LmLocalSocket::Make(theTrouble);
    if (theSocket == nullptr) {
        return nullptr;
    }
    std::unique_ptr<LmJournalDoor> theDoor(new LmJournalDoor(std::move(theSocket)));
    if (theDoor->mTimer == nullptr) {
        theTrouble = "there is no main event loop";
        return nullptr;
    }
    return theDoor;
}

LmJournalDoor::LmJournalDoor(std::unique_ptr<LmLocalSocket> theSocket)
    : mSocket(std::move(theSocket))
{
    static const EventLoopTimerUPP kTimer = NewEventLoopTimerUPP(LookOut);
    InstallEventLoopTimer(GetMainEventLoop(), 0, kInterval, kTimer, this, &mTimer);
}

LmJournalDoor::~LmJournalDoor()
{
    if (mTimer != nullptr) {
        RemoveEventLoopTimer(mTimer);
    }
}

void LmJournalDoor::LookOut(EventLoopTimerRef /*theTimer*/, void* theDoor)
{
    try {
        static_cast<LmJournalDoor*>(theDoor)->Poll();
    } catch (const std::bad_alloc&) {
        static_cast<LmJournalDoor*>(theDoor)->mVisitor.reset();
    }
}

void LmJournalDoor::Poll()
{
    LmJournalKeeper& theKeeper = LmJournalKeeper::Get();
    if (!theKeeper.Tend()) {
        theKeeper.End();
    }
    if (mVisitor == nullptr) {
        mVisitor = mSocket->Accept();
        mRequest.clear();
        mTurns = 0;
    }
    if (mVisitor != nullptr) {
        Listen();
    }
}

void LmJournalDoor::Listen()
{
    mVisitor->Read(mRequest);
    const std::size_t theEnd = mRequest.find('\n');
    if (theEnd != std::string::npos) {
        Answer(mRequest.substr(0, theEnd));
    } else if (mVisitor->IsGone() || mRequest.size() > kLongestRequest || ++mTurns > kMostTurns) {
        mVisitor.reset();
    }
}

void LmJournalDoor::Answer(const std::string& theRequest)
{
    const std::string theTrouble = Serve(theRequest);
    if (mVisitor != nullptr) {
        const std::string theAnswer = (theTrouble.empty() ? "ok" : "no " + theTrouble) + "\n";
        mVisitor->Write(theAnswer.data(), theAnswer.size());
        mVisitor.reset();
    }
}

// Returns what is wrong. The visitor is handed on when it is to read the journal.
std::string LmJournalDoor::Serve(const std::string& theRequest)
{
    LmJournalKeeper& theKeeper = LmJournalKeeper::Get();
    std::string theRest = theRequest;
    const std::string theWord = TakeWord(theRest);
    if (theWord == "detach") {
        const bool isAttached = theKeeper.IsOf(Origin::Visitor);
        if (isAttached) {
            theKeeper.End();
        }
        return isAttached ? "" : "nobody has attached to it";
    }
    if (theWord != "attach" && theWord != "write") {
        return "it does not know what is wanted";
    }
    if (theKeeper.IsOn()) {
        return theKeeper.IsOf(Origin::Visitor) ? "somebody has attached to it already"
                                               : "it writes a journal already";
    }
    const std::string theNumber = TakeWord(theRest);
    const std::size_t theCallers =
        std::min<std::size_t>(std::strtoul(theNumber.c_str(), nullptr, 10), kMostCallers);
    return theWord == "write" ? WriteTo(theRest, theCallers) : Attach(theCallers);
}

std::string LmJournalDoor::Attach(std::size_t theCallers)
{
    constexpr char kAnswer[] = "ok\n";
    mVisitor->Write(kAnswer, sizeof kAnswer - 1);
    LmJournalKeeper::Get().Begin({LmJournalSettings().theLongestString, theCallers},
                                 std::make_unique<LmSocketStream>(std::move(mVisitor)), Origin::Visitor);
    return {};
}
