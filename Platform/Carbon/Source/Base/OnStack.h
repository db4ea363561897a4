// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_OnStack_h
#define Base_OnStack_h

#include <utility>

namespace Host {

// Links the objects of one class that stand on the stack, from the innermost outward: the calls, runs or
// waits of one sort that are going on.
//
//     class LoopRun : public OnStack<LoopRun>
//
// Whoever comes later finds the newest with LoopRun::Innermost, and from there with Outer those around it. An
// object leaves the list when its block ends; it is to be made on the stack and nowhere else. Main thread
// only.
template <class Object>
class OnStack
{
public:
    OnStack(const OnStack&) = delete;
    OnStack& operator=(const OnStack&) = delete;

    // Null when there is none.
    static Object* Innermost() { return static_cast<Object*>(sInnermost); }
    Object* Outer() const { return static_cast<Object*>(mOuter); }

protected:
    OnStack()
        : mOuter(std::exchange(sInnermost, this))
    {
    }
    ~OnStack() { sInnermost = mOuter; }

private:
    inline static OnStack* sInnermost = nullptr;

    OnStack* mOuter;
};

} // namespace Host

#endif
