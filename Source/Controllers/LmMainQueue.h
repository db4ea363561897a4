// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmMainQueue_h
#define LmMainQueue_h

#include "LmExport.h"
#include "LmString.h"
#include "LmValue.h"

#include <functional>
#include <memory>

// A main queue brings what other threads have found out to the main thread, where alone stores may be used.
//
//     LmMainQueue theQueue(&theModel);
//     std::thread theWorker([thePoster = theQueue.GetPoster()] {
//         for (long thePercent = 0; thePercent <= 100; ++thePercent) {
//             thePoster.SetLatest("progress", LmValue(thePercent));
//         }
//         thePoster.Set("result", FindResult());
//     });
//
// The queue is made, used and destroyed on the main thread, and gives out posters, which other threads keep.
// What they post is made there when the main event loop runs next, which is woken for it; in a modal loop
// too. It is made by a timer of that loop.
//
// These rules hold:
//
// - What is posted is made in the order in which it was posted. Of sets that are posted as the latest of
//   their key, without another set of that key between them, only the last one is made, in the place of the
//   first; those that a turn of the loop has begun with do not count.
// - What is posted while other things are made is made in another turn of the loop, so that a thread that
//   posts without end does not keep people from using the application.
// - While a set or a function runs an event loop of its own, what else is posted waits until it returns.
// - When the queue goes, what was not made yet is dropped, and posters post nothing any more. When the store
//   goes, its sets are dropped, and posters post none from the next turn of the loop on; functions are called
//   as ever. Posters may outlive both, and the threads need not have come to their end.
// - When memory runs out while a set is made, it is tried again in another turn of the loop, and what comes
//   after it waits. A function is called once, whatever comes of it. No other exception may leave it, or an
//   observer.
//
// A string in a value is shared with the thread that posted it; strings that are not changed may be.

class LmKeyValueStore;

// What another thread posts with. Copies post to the same queue. A copy may be used on any thread, and
// several at once; one and the same object on several threads as any other object may: if none of them
// changes it.
class LM_EXPORT LmPoster
{
public:
    // Posts nothing: each call answers false.
    LmPoster() noexcept = default;

    // Lets theKeyPath of the queue's store be set to theValue. True when it was posted; false when the queue
    // has gone, or has no store. When memory runs out, nothing was posted, and std::bad_alloc passes through.
    //
    // Cost of this and the others: a lock, a node, and the waking of the loop with the first thing that is
    // posted.
    bool Set(const LmString& theKeyPath, const LmValue& theValue) const;

    // The same, and takes the place of a set of this key that was posted as its latest, unless a turn of the
    // loop has begun with that. For values that are worth nothing any more when there is a later one.
    bool SetLatest(const LmString& theKeyPath, const LmValue& theValue) const;

    // Lets theFunction be called on the main thread. What it has captured is destroyed there too, or here
    // when it was not posted.
    bool Call(std::function<void()> theFunction) const;

private:
    friend class LmMainQueue;
    class LM_HIDDEN Mailbox;

    LM_HIDDEN explicit LmPoster(std::shared_ptr<Mailbox> theMailbox) noexcept;

    std::shared_ptr<Mailbox>
        mMailbox; // shared with the queue and its other posters; null where there is no queue
};

// The queue, which an application keeps where it keeps the store.
class LM_EXPORT LmMainQueue
{
public:
    // A queue for the keys of theStore, and for functions. Without a store for functions alone.
    //
    // When memory runs out, there is no queue.
    explicit LmMainQueue(LmKeyValueStore* theStore = nullptr);

    // Drops what was posted and not made yet. A function or set of the queue may destroy it; nothing more is
    // made then.
    ~LmMainQueue();

    LmMainQueue(const LmMainQueue&) = delete;
    LmMainQueue& operator=(const LmMainQueue&) = delete;

    // A poster for another thread.
    [[nodiscard]] const LmPoster& GetPoster() const { return mPoster; }

private:
    const LmPoster mPoster;
};

#endif
