// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalDoor_h
#define LmJournalDoor_h

#include "LmLocalSocket.h"

#include <Carbon/Carbon.h>

#include <cstddef>
#include <memory>
#include <string>

// Lets the user who runs the program ask for a journal while it runs. Not part of the interface.
//
// Everything happens on the main thread: a timer of the main event loop looks ten times a second whether
// somebody is there. So no thread is needed that the program would not have otherwise, and a journal begins
// and ends between two events.
//
// Who connects writes a line:
// - "attach", and how many callers are kept: the journal is written to this connection, and ends with it;
// - "write", how many callers are kept, and a file: the journal is written to the file;
// - "detach": the journal that was asked for in one of these ways ends.
// The answer is a line "ok", or "no" and a reason.
class LmJournalDoor
{
public:
    // Null, and what is wrong in theTrouble, when there can be none.
    static std::unique_ptr<LmJournalDoor> Open(std::string& theTrouble);
    ~LmJournalDoor();
    LmJournalDoor(const LmJournalDoor&) = delete;
    LmJournalDoor& operator=(const LmJournalDoor&) = delete;

private:
    explicit LmJournalDoor(std::unique_ptr<LmLocalSocket> theSocket);

    static void LookOut(EventLoopTimerRef theTimer, void* theDoor);
    void Poll();
    void Listen();
    void Answer(const std::string& theRequest);
    std::string Serve(const std::string& theRequest);
    std::string Attach(std::size_t theCallers);

    std::unique_ptr<LmLocalSocket> mSocket;
    EventLoopTimerRef mTimer = nullptr;
    std::unique_ptr<LmConnection> mVisitor; // who has not been answered yet
    std::string mRequest;                   // what has come of it
    int mTurns = 0;                         // how often has been looked for the rest
};

#endif
