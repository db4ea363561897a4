// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Common_NumberedObjects_h
#define Common_NumberedObjects_h

namespace Host {

// The objects of the rooms above, whose references are no addresses but odd numbers, as CFRetain and its like
// know them. Each function may be given any odd number, and does nothing for one that is none of an object.
struct NumberedObjects
{
    void (*theRetain)(const void* theReference);
    void (*theRelease)(const void* theReference);
    long (*theCount)(const void* theReference);
};

// Says that there are such objects.
__attribute__((visibility("default"))) void UseNumberedObjects(const NumberedObjects& theObjects);

} // namespace Host

#endif
