// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Objects_ObjectClass_h
#define Objects_ObjectClass_h

#include "Base/Text.h"

#include <Carbon/Carbon.h>
#include <memory>
#include <vector>

namespace Host {

struct ObjectClass;
using SharedObjectClass = std::shared_ptr<ObjectClass>;

// A class of objects: one of the platform, which has no function, or one of the program.
struct ObjectClass
{
    Text theName;
    SharedObjectClass theBase; // null for the class of all objects
    bool theIsPlatforms = false;
    EventHandlerUPP theFunction = nullptr; // null also for a class that only others are made of
    void* theData = nullptr;               // the application's
    std::vector<EventTypeSpec> theEvents;
    ItemCount theInstances = 0; // of this very class
    ItemCount theSubclasses = 0;

    // Whether it is a class of that name, or made of one.
    bool IsA(const Text& theWanted) const;
};

// Null when there is none of that name.
SharedObjectClass FindObjectClass(const Text& theName);

// The name of a control's class among those of the platform.
Text ClassNameOf(OSType theControlKind);

} // namespace Host

#endif
