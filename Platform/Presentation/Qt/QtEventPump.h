// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtEventPump_h
#define QtEventPump_h

#include <atomic>
#include <QTimer>

namespace Host {

// Lets Qt handle its events, in turns that the program's event loop asks for. There is no loop of Qt's own:
// the two loops are one.
class QtEventPump
{
public:
    QtEventPump();

    // What a timer of Qt's is given to wait that long, an hour at the most.
    static int Milliseconds(double theSeconds);

    // Handles what has arrived, without waiting.
    void Poll();

    // Sleeps until something arrives, Wake is called or theSeconds have passed (negative: for ever), and
    // handles what has arrived.
    void Wait(double theSeconds);

    // Ends the wait that is going on or, if there is none, the next one. From any thread.
    void Wake();

    // Whether Wake was called since the last time that this was asked.
    bool TakeWake() { return mIsWoken.exchange(false); }

private:
    std::atomic<bool> mIsWoken{false};
    QTimer mDeadline; // has nothing to do when it fires but to end the sleep
};

} // namespace Host

#endif
