// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_EndSignals_h
#define System_EndSignals_h

namespace Host {

// Takes the signals that end a session (SIGTERM, SIGINT and SIGHUP) for as long as it lives: the first one is
// noted, a second one ends the process at once, as if nobody had taken the first.
//
// A signal that the program ignores (nohup) or handles itself stays as it is. Within another one, or where
// the system has nothing left to make it with, it does nothing. Main thread only.
class [[nodiscard]] EndSignals
{
public:
    // theWake is called after a signal has come, from another thread.
    explicit EndSignals(void (*theWake)());

    // Leaves each signal as it was before.
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    // Whether a signal has come that was not asked for yet.
    static bool TakeFirst();

private:
    bool mIsInUse = false;
};

} // namespace Host

#endif
