// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef EventLoop_h
#define EventLoop_h

namespace Host {

// Ends the wait of the event loop, or its next one. From any thread.
void WakeEventLoop();

// Whether RunApplicationEventLoop is running.
bool IsApplicationLoopRunning();

// Ends the innermost RunApplicationEventLoop; false when none is running.
bool EndApplicationLoop();

} // namespace Host

#endif
