// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmEndableObserver_h
#define LmEndableObserver_h

#include "LmKeyValueObserver.h"

// An observer on the heap that works for an object of the application, and may be ended at any time, also by
// what it calls while it works.
//
//     void ValueChanged(const LmKeyValueStore*, const LmString&) override
//     {
//         const Work theWork(*this);
//         mFunction(); // may end this observer
//         if (HasEnded()) {
//             return;
//         }
//         mCalls += 1; // is there still
//     }
//
// Who holds it: whoever made it with new, until he calls End and forgets it. From then on it belongs to the
// calls that are under way in it; the last of them to return deletes it, and End itself where there is none.
// So what it holds, a function and what that has captured, outlives each call that uses it.
class LmEndableObserver : public LmKeyValueObserver
{
public:
    // Ends all observations. Nothing is told to it any more, not even in a pass that has begun, but that the
    // call which is under way goes on. Not to be touched afterwards. Needs no memory while tracing is off.
    void End()
    {
        StopObserving();
        mHasEnded = true;
        if (mDepth == 0) {
            delete this;
        }
    }

protected:
    LmEndableObserver() = default;
    ~LmEndableObserver() override = default;

    // Begins where the observer is told something, and keeps it alive until it ends. It must be the first
    // thing there, so that nothing is touched after it.
    class [[nodiscard]] Work
    {
    public:
        explicit Work(LmEndableObserver& theObserver)
            : mObserver(theObserver)
        {
            mObserver.mDepth += 1;
        }
        ~Work()
        {
            mObserver.mDepth -= 1;
            if (mObserver.mHasEnded && mObserver.mDepth == 0) {
                delete &mObserver;
            }
        }

        Work(const Work&) = delete;
        Work& operator=(const Work&) = delete;

    private:
        LmEndableObserver& mObserver;
    };

    // True once End was called, which only something that is called from here can have done.
    [[nodiscard]] bool HasEnded() const { return mHasEnded; }

private:
    unsigned mDepth = 0;    // the calls that are under way in it
    bool mHasEnded = false; // nobody holds it any more
};

#endif
