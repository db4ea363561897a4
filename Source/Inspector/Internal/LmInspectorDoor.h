// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmInspectorDoor_h
#define LmInspectorDoor_h

#include "LmLocalSocket.h"

#include <Carbon/Carbon.h>

#include <memory>
#include <string>

// Lets the user who runs the program ask the inspector from another program, while it runs. Not part of the
// interface.
//
// Who connects writes a question of LmAskInspector as one line, and reads a line "ok", the answer, and the
// end. A timer of the main event loop looks ten times a second whether somebody is there, so a question is
// answered between two events, and no thread is needed.
//
// What a question sets may do anything: run the event loop, in which this timer rests, or end the inspector.
// The door stays until its timer has been through.
class LmInspectorDoor : public std::enable_shared_from_this<LmInspectorDoor>
{
public:
    // Null when there can be none.
    static std::shared_ptr<LmInspectorDoor> Open();
    ~LmInspectorDoor();
    LmInspectorDoor(const LmInspectorDoor&) = delete;
    LmInspectorDoor& operator=(const LmInspectorDoor&) = delete;

private:
    explicit LmInspectorDoor(std::unique_ptr<LmLocalSocket> theSocket);

    static void LookOut(EventLoopTimerRef theTimer, void* theDoor);
    void Poll();
    void Listen();
    void HandOver();

    std::unique_ptr<LmLocalSocket> mSocket;
    EventLoopTimerRef mTimer = nullptr;
    std::unique_ptr<LmConnection> mVisitor;
    std::string mRequest; // what has come of the question
    std::string mAnswer;  // what has not been taken of the answer
    int mTurns = 0;       // how often was looked in vain
};

#endif
