// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Script_h
#define Script_h

// A script: objects, transforms, what is done with them one after the other, and what observers and
// transforms do in between, when they are called.

#include "System.h"

#include <map>
#include <string>
#include <vector>

namespace Model {

enum class Verb
{
    Create,
    Destroy,
    Get,
    GetKey,
    Set,
    SetKey,
    Has,
    Observe,
    Ignore,
    IsObserving,
    AmObserving,
    RemoveObservers,
    StopObserving,
    Notify,
    MakeDependency,
    BreakDependency,
    IsDependent,
    NotifyDependents,
    Bind,
    BindTo,
    Unbind,
    UnbindAll,
    Apply,
    Convert,
    Compare,
    Split,
    Trace
};

// What a verb does not need stays as it is here.
struct Operation
{
    Verb theVerb = Verb::Get;
    Id theObject = kNobody;
    std::string theKey;
    Id theOther = kNobody; // the observer, or the other object of a binding
    std::string theOtherKey;
    int theTransform = kNobody;
    int theReverse = kNobody;
    Value theValue;
    Value theOtherValue;
    bool isOn = false; // changed, not changing; tracing
};

enum class Moment
{
    Changing,
    Changed,
    Applying
};

// What an observer or a transform does when it is called.
struct Reaction
{
    Moment theMoment = Moment::Changed;
    int theActor = kNobody; // the observer or the transform
    std::string theKey;     // only for this key, or for each when it is empty
    int theTimes = 1;       // how often, then no more
    std::vector<Operation> theOperations;
};

struct Script
{
    std::uint64_t theSeed = 0;
    std::size_t theLongest = 0; // how many bytes the transcript of one operation may have; what is longer is
                                // taken for endless
    std::vector<ObjectPlan> theObjects;
    std::vector<std::vector<Step>> theTransforms;
    std::vector<Reaction> theReactions;
    std::vector<Operation> theOperations;
};

// Gives each text a number, in the order in which they are met, and keeps them all.
class TextNumbers
{
public:
    int NumberOf(const Text& theText);

private:
    std::map<const std::u16string*, int> mNumbers;
    std::vector<Text> mTexts;
};

// A value as a person reads it: UInt32 5, Point (1, 2), "text" #1. The number tells texts apart that read the
// same.
std::string DescribeValue(const Value& theValue, TextNumbers& theNumbers);

// An object: store 0, observer 1, binding 2, bindable 3, and bindings 4 for the binding object of that.
std::string DescribeObject(const Script& theScript, Id theObject);

std::string DescribeOperation(const Script& theScript, const Operation& theOperation,
                              TextNumbers& theNumbers);

// All of it.
std::string DescribeScript(const Script& theScript);

} // namespace Model

#endif
