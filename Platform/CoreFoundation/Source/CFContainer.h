// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFContainer_h
#define CFContainer_h

// What arrays, dictionaries and sets have in common: values that are handled by callbacks.

#include "CFRuntime.h"

#include <utility>

namespace Host {

// The callbacks of containers that hold objects.
const void* RetainObject(CFAllocatorRef theAllocator, const void* theObject);
void ReleaseObject(CFAllocatorRef theAllocator, const void* theObject);

// What to keep in the container for theValue.
template <class CallBacks>
const void* RetainValue(const CallBacks& theCallBacks, const void* theValue)
{
    return theCallBacks.retain == nullptr ? theValue
                                          : theCallBacks.retain(kCFAllocatorSystemDefault, theValue);
}

template <class CallBacks>
void ReleaseValue(const CallBacks& theCallBacks, const void* theValue)
{
    if (theCallBacks.release != nullptr) {
        theCallBacks.release(kCFAllocatorSystemDefault, theValue);
    }
}

template <class CallBacks>
bool EqualValues(const CallBacks& theCallBacks, const void* theFirst, const void* theSecond)
{
    return theFirst == theSecond ||
           (theCallBacks.equal != nullptr && theCallBacks.equal(theFirst, theSecond));
}

// How a hash table finds a value by the container's callbacks.
template <class CallBacks>
struct ValueHash
{
    size_t operator()(const void* theValue) const
    {
        return theCallBacks->hash == nullptr ? reinterpret_cast<size_t>(theValue)
                                             : static_cast<size_t>(theCallBacks->hash(theValue));
    }

    const CallBacks* theCallBacks; // the container's own
};

template <class CallBacks>
struct ValueEqual
{
    bool operator()(const void* theFirst, const void* theSecond) const
    {
        return EqualValues(*theCallBacks, theFirst, theSecond);
    }

    const CallBacks* theCallBacks; // the container's own
};

// An object that is being built: freed unless it is released to the caller.
template <class Class>
class NewObject
{
public:
    template <class... Arguments>
    explicit NewObject(Arguments&&... theArguments)
        : mObject(new Class(std::forward<Arguments>(theArguments)...))
    {
    }
    ~NewObject() { delete mObject; }
    NewObject(const NewObject&) = delete;
    NewObject& operator=(const NewObject&) = delete;

    Class* Get() const { return mObject; }
    Class* Release() { return std::exchange(mObject, nullptr); }

private:
    Class* mObject; // owned
};

} // namespace Host

#endif
