// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LibrarySystem_h
#define LibrarySystem_h

#include "StandardErrorLines.h"
#include "System.h"

#include "LmDiagnosticHandler.h"
#include "LmKeyValueBinding.h"
#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"
#include "LmValueTransform.h"

#include <functional>
#include <map>

namespace Model {

// The library, as scripts use it. Only one may be there at a time, for there is one handler of diagnostics.
class LibrarySystem : public System
{
public:
    // Makes room for all objects, so that they lie in the order of their places.
    LibrarySystem(Witness& theWitness, const std::vector<ObjectPlan>& thePlans);
    ~LibrarySystem() override;

    LibrarySystem(const LibrarySystem&) = delete;
    LibrarySystem& operator=(const LibrarySystem&) = delete;

    // Destroys what is left, and reports each string that something still holds.
    void Finish();

    void Create(Id theObject, const ObjectPlan& thePlan) override;
    void Destroy(Id theObject) override;
    Value GetKeyPathValue(Id theStore, const std::string& theKey) override;
    Value GetKeyValue(Id theStore, const std::string& theKey) override;
    void SetKeyPathValue(Id theStore, const std::string& theKey, const Value& theValue) override;
    void SetKeyValue(Id theStore, const std::string& theKey, const Value& theValue) override;
    bool HasKey(Id theStore, const std::string& theKey) override;
    void Observe(Id theStore, const std::string& theKey, Id theObserver) override;
    void Ignore(Id theStore, const std::string& theKey, Id theObserver) override;
    bool IsObserving(Id theStore, const std::string& theKey, Id theObserver) override;
    bool AmObserving(Id theStore, const std::string& theKey, Id theObserver) override;
    void RemoveObservers(Id theStore) override;
    void StopObserving(Id theObserver) override;
    void NotifyObservers(Id theStore, const std::string& theKey, bool hasChanged) override;
    void MakeDependency(Id theStore, const std::string& theKey, const std::string& theDependent) override;
    void BreakDependency(Id theStore, const std::string& theKey, const std::string& theDependent) override;
    bool IsDependent(Id theStore, const std::string& theKey, const std::string& theDependent) override;
    void NotifyDependents(Id theStore, const std::string& theKey) override;
    void TakeTransform(int theTransform, const std::vector<Step>& theSteps) override;
    void ReleaseTransform(int theTransform) override;
    Value Apply(int theTransform, const Value& theValue) override;
    int Bind(Id theBinding, const std::string& theKey, Id theOther, const std::string& theOtherKey,
             int theTransform, int theReverse) override;
    int BindTo(Id theBinding, const std::string& theKey, Id theOther, const std::string& theOtherKey,
               int theTransform) override;
    int Unbind(Id theBinding, const std::string& theKey, Id theOther) override;
    void UnbindAll(Id theBinding) override;
    Value Convert(const Value& theValue, Kind theKind) override;
    bool IsEqual(const Value& theLeft, const Value& theRight) override;
    bool Split(const std::string& theText, const std::string& theSeparator, std::string& theLeft,
               std::string& theRight) override;
    void SetTracing(bool isOn) override;

    // For the objects of the script.
    int
    BirthOf(Id theObject) const; // 0 when it is not there; the number of another one in its place is another
    Id IdOf(const LmKeyValueStore* theStore) const { return mIds.at(theStore); }
    Witness& Tell(); // whom to tell, once the trace up to here is told
    Value FromLibrary(const LmValue& theValue);
    void Forget(int theTransform) { mTransforms.erase(theTransform); }

private:
    struct Object
    {
        void* theBlock = nullptr; // null for an object inside of another one
        int theBirth = 0;
        ObjectPlan thePlan;
        LmKeyValueStore* theStore = nullptr;
        LmKeyValueObserver* theObserver = nullptr;
        LmKeyValueBinding* theBinding = nullptr;
        std::function<void()> theDestructor;
    };

    static void Report(const LmDiagnostic& theDiagnostic, void* theSystem);

    template <typename Made>
    Made* Place(Id theObject, const ObjectPlan& thePlan);
    void Register(Id theObject, LmKeyValueStore* theStore, LmKeyValueObserver* theObserver,
                  LmKeyValueBinding* theBinding);
    void NameAddress(const LmDebugObject* thePart, const std::string& theName);
    std::string WithNames(const std::string& theLine) const;
    void TellTrace();

    LmKeyValueStore& Store(Id theObject) { return *mObjects.at(theObject).theStore; }
    LmKeyValueObserver* Observer(Id theObject) { return mObjects.at(theObject).theObserver; }
    LmKeyValueBinding* Binding(Id theObject);
    LmValueTransform* Transform(int theTransform);
    LmValueTransform* MakeSteps(const std::vector<Step>& theSteps);
    LmValueTransform* MakeStep(const Step& theStep);
    LmValue ToLibrary(const Value& theValue);
    CFStringRef ToString(const Text& theText);
    Text FromString(CFStringRef theString);

    Witness& mWitness;
    std::map<int, void*> mBlocks; // by place; those without an object
    std::map<Id, Object> mObjects;
    std::map<const LmKeyValueStore*, Id> mIds;
    std::map<int, LmValueTransform*> mTransforms;
    std::map<const std::u16string*, CFStringRef> mStrings; // made of texts of the script
    std::map<CFStringRef, Text> mTexts;                    // all that were seen, each retained once
    std::map<std::string, std::string> mNames;             // of addresses in the trace
    StandardErrorLines mTrace;
    int mBirths;
    bool mIsFinishing;
};

} // namespace Model

#endif
