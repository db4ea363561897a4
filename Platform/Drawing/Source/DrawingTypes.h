// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef DrawingTypes_h
#define DrawingTypes_h

#include "CoreFoundation/Source/CFRuntime.h"

namespace Host {

// The types of objects here, beside those of CoreFoundation.
enum : CFTypeID
{
    kColorSpaceTypeID = kFirstOtherTypeID,
    kColorTypeID,
    kContextTypeID,
    kPathTypeID
};

extern const TypeOperations kColorSpaceType;
extern const TypeOperations kColorType;
extern const TypeOperations kContextType;
extern const TypeOperations kPathType;

// The object behind a reference that may be null or of another type: null then.
template <class Object>
Object* Checked(Object* theObject, const TypeOperations& theType)
{
    return theObject != nullptr && theObject->mType == &theType ? theObject : nullptr;
}

// What CGxRetain and CGxRelease do, with null and what is no object of theirs.
template <class Object>
Object* RetainChecked(Object* theObject, const TypeOperations& theType)
{
    if (Checked(theObject, theType) != nullptr) {
        CFRetain(theObject);
    }
    return theObject;
}

template <class Object>
void ReleaseChecked(Object* theObject, const TypeOperations& theType)
{
    if (Checked(theObject, theType) != nullptr) {
        CFRelease(theObject);
    }
}

} // namespace Host

#endif
