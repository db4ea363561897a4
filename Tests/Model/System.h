// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_h
#define System_h

// The words in which random scripts are told: values, steps of transforms, objects, and what can be done with
// them. Two systems understand them, the library and the reference model; whoever watches sees what each
// does.
//
// No header of the library is included here, nor by the model.

#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Model {

// The numbers are those that diagnostics name.
enum class Kind : std::uint32_t
{
    Invalid,
    Boolean,
    UInt32,
    SInt32,
    UInt64,
    SInt64,
    Double,
    Pointer,
    Text,
    Point,
    Size,
    Rect
};

// A text is shared by the values that hold it, so that it can be told from another one with the same
// characters.
using Text = std::shared_ptr<const std::u16string>;

struct Value
{
    Kind theKind = Kind::Invalid;
    std::uint64_t theBits = 0;       // of booleans, integers (a sign is extended to 64 bits) and addresses
    double theDouble = 0;            //
    Text theText;                    // null for a null string
    std::array<float, 4> theParts{}; // x, y; or width, height; or x, y, width, height

    static Value Number(Kind theKind, std::uint64_t theBits);
    static Value Double(double theDouble);
    static Value String(Text theText);
    static Value Geometry(Kind theKind, std::array<float, 4> theParts);
};

// One step of a transform.
enum class StepSort
{
    IsNull,
    IsNotNull,
    IsAbove,
    IsBelow,
    IsEqual,
    IsNotEqual,
    Absolute,
    Add,
    Scale,
    Negate,
    ToText,
    FromText
};

struct Step
{
    StepSort theSort = StepSort::IsNull;
    Value theOperand;         // what is compared with or added
    bool isInclusive = false; // of IsAbove and IsBelow
    double theFactor = 1;     // of Scale
};

// Objects are known by their index. A bindable's binding object has the index after its own.
using Id = int;

constexpr Id kNobody = -1;

enum class ObjectSort
{
    Store,
    Observer,
    Binding,
    Bindable,
    BindingOfBindable
};

struct ObjectPlan
{
    ObjectSort theSort = ObjectSort::Store;
    int thePlace = 0;                    // objects lie in memory in the order of their places
    bool canReturn = false;              // whether it can be made again in the same place, once destroyed
    bool isLoud = false;                 // whether each call of its overridden functions is told
    std::set<std::string> theUnbindable; // the keys that it refuses to have bound
};

// Who watches. The first two functions may do anything with the system.
class Witness
{
public:
    virtual ~Witness() = default;
    virtual void Told(Id theObserver, Id theStore, const std::string& theKey, bool hasChanged) = 0;
    virtual void Applying(int theTransform, const Value& theValue) = 0;

    virtual void Applied(int theTransform, const Value& theResult) = 0;
    virtual void TransformIsGone(int theTransform) = 0;
    virtual void Read(Id theStore, const std::string& theKey) = 0;
    virtual void Written(Id theStore, const std::string& theKey, const Value& theValue) = 0;
    virtual void Reported(const std::string& theSource, const std::string& theMessage) = 0;
    virtual void Traced(const std::string& theLine) = 0;
};

// Thrown by the model at what a program must not do, with the reason.
struct Undefined
{
    const char* theReason;
};

// What can be done. The functions are called as those of the library, whose first parameter is the object.
class System
{
public:
    virtual ~System() = default;

    virtual void Create(Id theObject, const ObjectPlan& thePlan) = 0;
    virtual void Destroy(Id theObject) = 0;

    virtual Value GetKeyPathValue(Id theStore, const std::string& theKey) = 0;
    virtual Value GetKeyValue(Id theStore, const std::string& theKey) = 0;
    virtual void SetKeyPathValue(Id theStore, const std::string& theKey, const Value& theValue) = 0;
    virtual void SetKeyValue(Id theStore, const std::string& theKey, const Value& theValue) = 0;
    virtual bool HasKey(Id theStore, const std::string& theKey) = 0;

    virtual void Observe(Id theStore, const std::string& theKey, Id theObserver) = 0;
    virtual void Ignore(Id theStore, const std::string& theKey, Id theObserver) = 0;
    virtual bool IsObserving(Id theStore, const std::string& theKey, Id theObserver) = 0;
    virtual bool AmObserving(Id theStore, const std::string& theKey, Id theObserver) = 0;
    virtual void RemoveObservers(Id theStore) = 0;
    virtual void StopObserving(Id theObserver) = 0;
    virtual void NotifyObservers(Id theStore, const std::string& theKey, bool hasChanged) = 0;

    virtual void MakeDependency(Id theStore, const std::string& theKey, const std::string& theDependent) = 0;
    virtual void BreakDependency(Id theStore, const std::string& theKey, const std::string& theDependent) = 0;
    virtual bool IsDependent(Id theStore, const std::string& theKey, const std::string& theDependent) = 0;
    virtual void NotifyDependents(Id theStore, const std::string& theKey) = 0;

    // A transform is made before it is handed over, kNobody is none; TakeTransform gives a reference.
    virtual void TakeTransform(int theTransform, const std::vector<Step>& theSteps) = 0;
    virtual void ReleaseTransform(int theTransform) = 0;
    virtual Value Apply(int theTransform, const Value& theValue) = 0;

    virtual int Bind(Id theBinding, const std::string& theKey, Id theOther, const std::string& theOtherKey,
                     int theTransform, int theReverse) = 0;
    virtual int BindTo(Id theBinding, const std::string& theKey, Id theOther, const std::string& theOtherKey,
                       int theTransform) = 0;
    virtual int Unbind(Id theBinding, const std::string& theKey, Id theOther) = 0;
    virtual void UnbindAll(Id theBinding) = 0;

    virtual Value Convert(const Value& theValue, Kind theKind) = 0; // to a number, by the getter of theKind
    virtual bool IsEqual(const Value& theLeft, const Value& theRight) = 0;
    virtual bool Split(const std::string& theText, const std::string& theSeparator, std::string& theLeft,
                       std::string& theRight) = 0;
    virtual void SetTracing(bool isOn) = 0;
};

} // namespace Model

#endif
