// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMainQueue.h"

#include "LmKeyValueStore.h"
#include "LmLifeLine.h"

#include <Carbon/Carbon.h>

#include <list>
#include <map>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

// What lies between the threads. It belongs to the queue and to its posters, and dies with the last of them,
// on whatever thread; so the queue closes it before, and takes away what belongs to the main thread.
class LM_HIDDEN LmPoster::Mailbox : public std::enable_shared_from_this<Mailbox>
{
public:
    // ---- On the main thread

    Mailbox() = default;
    ~Mailbox() = default;
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;

    void Open(LmKeyValueStore* theStore)
    {
        if (theStore != nullptr) {
            mLine.emplace(*theStore);
        }
        if (InstallEventLoopTimer(GetMainEventLoop(), kEventDurationForever, kEventDurationForever,
                                  TimerFired, this, &mTimer) != noErr) {
            return;
        }
        const std::lock_guard<std::mutex> theLock(mMutex);
        mTakesSets = theStore != nullptr;
        mIsOpen = true;
    }

    void Close()
    {
        Posts theDropped;
        {
            const std::lock_guard<std::mutex> theLock(mMutex);
            mIsOpen = false;
            mLatest.clear();
            theDropped.swap(mPosted);
        }
        if (mTimer != nullptr) {
            RemoveEventLoopTimer(mTimer); // no thread sets it any more
        }
        mLine.reset();
        // What functions have captured may do anything when it goes, so it goes last.
        theDropped.splice(theDropped.end(), mTaken);
    }

    // ---- On any thread

    bool PostSet(const LmString& theKeyPath, const LmValue& theValue, bool isLatest)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        if (!mIsOpen || !mTakesSets) {
            return false;
        }
        if (isLatest) {
            const auto theLatest = mLatest.find(theKeyPath);
            if (theLatest != mLatest.end()) {
                theLatest->second->theValue = theValue;
                return true;
            }
        }
        Posts theNew;
        theNew.push_back({theKeyPath, theValue, nullptr});
        if (isLatest) {
            mLatest.try_emplace(theKeyPath, theNew.begin());
        } else {
            mLatest.erase(theKeyPath); // what comes later must not be made before this
        }
        Append(theNew);
        return true;
    }

    bool PostCall(std::function<void()>&& theFunction)
    {
        Posts theNew;
        theNew.push_back({LmString(), LmValue(), std::move(theFunction)});
        const std::lock_guard<std::mutex> theLock(mMutex);
        if (!mIsOpen) {
            return false;
        }
        Append(theNew);
        return true;
    }

private:
    // A set, or a function where there is one.
    struct Post
    {
        LmString theKeyPath;
        LmValue theValue;
        std::function<void()> theFunction;
    };
    using Posts = std::list<Post>;

    // With the lock held. Needs no memory.
    void Append(Posts& theNew)
    {
        const bool isFirst = mPosted.empty();
        mPosted.splice(mPosted.end(), theNew);
        if (isFirst) {
            SetEventLoopTimerNextFireTime(mTimer, kEventDurationNoWait);
        }
    }

    static void TimerFired(EventLoopTimerRef /*inTimer*/, void* inUserData)
    {
        // The queue may be destroyed by what is made here.
        const std::shared_ptr<Mailbox> theMailbox = static_cast<Mailbox*>(inUserData)->shared_from_this();
        theMailbox->MakeAll();
    }

    void MakeAll()
    {
        {
            const std::lock_guard<std::mutex> theLock(mMutex);
            mTakesSets = mLine && mLine->IsAttached();
            mLatest.clear();
            mTaken.splice(mTaken.end(), mPosted);
        }
        while (!mTaken.empty()) {
            Posts theFirst;
            theFirst.splice(theFirst.begin(), mTaken, mTaken.begin());
            if (!Make(theFirst.front())) {
                mTaken.splice(mTaken.begin(), theFirst);
                SetEventLoopTimerNextFireTime(mTimer, kEventDurationNoWait);
                return;
            }
        }
    }

    // False when there was no memory for it, and it is to be tried again.
    bool Make(const Post& thePost) noexcept
    {
        try {
            if (thePost.theFunction) {
                thePost.theFunction();
            } else if (mLine->IsAttached()) {
                mLine->GetStore()->SetKeyPathValue(thePost.theKeyPath, thePost.theValue);
            }
            return true;
        } catch (const std::bad_alloc&) {
            return static_cast<bool>(thePost.theFunction) || !mLine;
        }
    }

    std::mutex mMutex;
    bool mIsOpen = false;                        // guarded by mMutex, as the next three are
    bool mTakesSets = false;                     // the queue has a store, as far as it is known
    Posts mPosted;                               // what has come since the timer fired
    std::map<LmString, Posts::iterator> mLatest; // where in it the set of a key is that a later one replaces

    Posts mTaken;                    // the main thread's: what is being made, and what is left of that
    std::optional<LmLifeLine> mLine; // the main thread's: the store; none after the end
    EventLoopTimerRef mTimer =
        nullptr; // fires when something has been posted; any thread sets it while this is open
};

LmPoster::LmPoster(std::shared_ptr<Mailbox> theMailbox) noexcept
    : mMailbox(std::move(theMailbox))
{
}

bool LmPoster::Set(const LmString& theKeyPath, const LmValue& theValue) const
{
    return mMailbox != nullptr && mMailbox->PostSet(theKeyPath, theValue, false);
}

bool LmPoster::SetLatest(const LmString& theKeyPath, const LmValue& theValue) const
{
    return mMailbox != nullptr && mMailbox->PostSet(theKeyPath, theValue, true);
}

bool LmPoster::Call(std::function<void()> theFunction) const
{
    return mMailbox != nullptr && theFunction && mMailbox->PostCall(std::move(theFunction));
}

LmMainQueue::LmMainQueue(LmKeyValueStore* theStore)
    : mPoster(std::make_shared<LmPoster::Mailbox>())
{
    mPoster.mMailbox->Open(theStore);
}

LmMainQueue::~LmMainQueue()
{
    mPoster.mMailbox->Close();
}
