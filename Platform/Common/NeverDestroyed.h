// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Common_NeverDestroyed_h
#define Common_NeverDestroyed_h

#include <new>

namespace Host {

// An object for the whole life of the program, to be made a static variable: it is not destroyed when the
// program ends, since objects of the application may still use it then, and it takes no memory of the heap
// for itself.
template <class Object>
class NeverDestroyed
{
public:
    NeverDestroyed()
        : mObject(new (mBytes) Object())
    {
    }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    Object& Get() { return *mObject; }

private:
    alignas(Object) unsigned char mBytes[sizeof(Object)];
    Object* mObject;
};

} // namespace Host

#endif
