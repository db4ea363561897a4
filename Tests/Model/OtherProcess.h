// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef OtherProcess_h
#define OtherProcess_h

#include <functional>

namespace Model {

// Does theWork in a process of its own, on a stack that changes nested a thousand deep fit on, and returns
// what theWork returns; kEnded when the process came to another end. A call that takes longer than ten
// seconds of the processor's time between two calls of StartTimer is such an end.
constexpr int kEnded = -1;

int DoInOtherProcess(const std::function<int()>& theWork);

// The same, without a process of its own.
int DoOnLargeStack(const std::function<int()>& theWork);

// Gives theWork another ten seconds.
void StartTimer();

} // namespace Model

#endif
