// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmInspectorDoor.h"

#include "LmConveniences.h"
#include "LmInspector.h"

#include <cstddef>
#include <new>
#include <utility>

namespace {

constexpr EventTimerInterval kInterval = 0.1;
// A visitor who asks nothing, or does not take the answer, is sent away, so that the next one is heard.
constexpr int kMostTurns = 20;
constexpr std::size_t kLongestRequest = 65536;

} // namespace

std::shared_ptr<LmInspectorDoor> LmInspectorDoor::Open()
{
    try {
        std::string theTrouble;
        std::unique_ptr<LmLocalSocket> theSocket = LmLocalSocket::Make(theTrouble, ".inspector");
        if (theSocket == nullptr) {
            return nullptr;
        }
        std::shared_ptr<LmInspectorDoor> theDoor(new LmInspectorDoor(std::move(theSocket)));
        return theDoor->mTimer != nullptr ? theDoor : nullptr;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

LmInspectorDoor::LmInspectorDoor(std::unique_ptr<LmLocalSocket> theSocket)
    : mSocket(std::move(theSocket))
{
    static const EventLoopTimerUPP kTimer = NewEventLoopTimerUPP(LookOut);
    InstallEventLoopTimer(GetMainEventLoop(), 0, kInterval, kTimer, this, &mTimer);
}

LmInspectorDoor::~LmInspectorDoor()
{
    if (mTimer != nullptr) {
        RemoveEventLoopTimer(mTimer);
    }
}

void LmInspectorDoor::LookOut(EventLoopTimerRef /*theTimer*/, void* theDoor)
{
    const std::shared_ptr<LmInspectorDoor> theSelf =
        static_cast<LmInspectorDoor*>(theDoor)->shared_from_this();
    try {
        theSelf->Poll();
    } catch (const std::bad_alloc&) {
        theSelf->mVisitor.reset();
    }
}

void LmInspectorDoor::Poll()
{
    if (mVisitor == nullptr) {
        mVisitor = mSocket->Accept();
        mRequest.clear();
        mAnswer.clear();
        mTurns = 0;
    }
    if (mVisitor != nullptr && mAnswer.empty()) {
        Listen();
    }
    if (mVisitor != nullptr && !mAnswer.empty()) {
        HandOver();
    }
}

void LmInspectorDoor::Listen()
{
    mVisitor->Read(mRequest);
    const std::size_t theEnd = mRequest.find('\n');
    if (theEnd != std::string::npos) {
        mTurns = 0;
        mAnswer = "ok\n" + LmGetStdString(LmAskInspector(LmMakeString(mRequest.substr(0, theEnd))));
    } else if (mVisitor->IsGone() || mRequest.size() > kLongestRequest || ++mTurns > kMostTurns) {
        mVisitor.reset();
    }
}

void LmInspectorDoor::HandOver()
{
    const std::size_t theTaken = mVisitor->Write(mAnswer.data(), mAnswer.size());
    mAnswer.erase(0, theTaken);
    mTurns = theTaken > 0 ? 0 : mTurns + 1;
    if (mAnswer.empty() || mVisitor->IsGone() || mTurns > kMostTurns) {
        mVisitor.reset();
    }
}
