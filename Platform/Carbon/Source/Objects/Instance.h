// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Objects_Instance_h
#define Objects_Instance_h

#include "ObjectClass.h"

namespace Host {

// An object of a class: what the functions of the program's classes have made for it.
class Instance
{
public:
    explicit Instance(SharedObjectClass theClass);
    virtual ~Instance();
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    const ObjectClass& Class() const { return *mClass; }

    // The steps of HIObjectCreate. What was constructed is destructed by whoever ends the object.
    OSStatus Construct();
    OSStatus Initialize(EventRef theEvent);

    // What its class's function has made, or the reference for a class of the platform; null for one that the
    // object is not of.
    void* DataOf(const Text& theClassName) const;

    virtual HIObjectRef ObjectReference() const = 0;
    virtual EventTargetRef ObjectTarget() const = 0;
    virtual bool IsOver() const = 0; // it is disposed
    virtual void End() = 0;          // dispose it

protected:
    // Tells the functions, that of the class first, and others that want to know.
    void Destruct();

    // What is sent once the object has its parameters.
    virtual OSStatus Initialized();

private:
    // What one of the classes has added.
    struct Part
    {
        SharedObjectClass theClass;
        void* theData; // the application's
    };

    OSStatus ConstructBases(const ObjectClass& theClass);
    OSStatus ConstructPart(const SharedObjectClass& theClass);
    OSStatus Add(const SharedObjectClass& theClass, void* theData);

    SharedObjectClass mClass;
    std::vector<Part> mParts; // from the base on
};

using SharedInstance = std::shared_ptr<Instance>;

} // namespace Host

#endif
