// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FaultyCalls_h
#define FaultyCalls_h

// The calls that change files, or wait for them, can be made to fail, or not to be survived.
//
// They are those of the whole test program, the libraries included. A process that is made with one of these
// set has it as well, and those made with fork are where they are used.
class FaultyCalls
{
public:
    // The process is killed in the call after that many, which is made in half at most.
    static void KillAfter(int theCalls);

    // The call after that many fails with an error, and is made in half at most; all others are made. EINTR
    // is an error only of calls that can have it.
    static void FailAfter(int theCalls, int theError);

    // Runs a function within the next fsync.
    static void RunInSynchronizing(void (*theFunction)());

    // Whether the call that was to fail has come.
    static bool HasFailed();

    FaultyCalls() = delete;
};

#endif
