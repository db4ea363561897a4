// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ReferenceModel_h
#define ReferenceModel_h

// What key-value stores, observers, bindings and transforms do, told a second time: plainly and slowly, with
// maps and vectors that are copied wherever that is the simplest. It was written from the documented
// contract, without a look at Source, and includes nothing of it, so that a mistake there is not made here as
// well.
//
// What the contract leaves open, it refuses: it throws Undefined.

#include "ReferenceValue.h"

#include <algorithm>
#include <map>

namespace Model {

class ReferenceModel : public System
{
public:
    explicit ReferenceModel(Witness& theWitness)
        : mWitness(theWitness),
          mReporter([this](const char* theSource, const std::string& theMessage) {
              mWitness.Reported(theSource, theMessage);
          })
    {
    }

    // ---- Life

    void Create(Id theObject, const ObjectPlan& thePlan) override
    {
        mObjects[theObject].thePlan = thePlan;
        mObjects[theObject].theBirth = ++mBirths;
        if (thePlan.theSort == ObjectSort::Bindable) {
            ObjectPlan theInner;
            theInner.theSort = ObjectSort::BindingOfBindable;
            theInner.thePlace = thePlan.thePlace + 1;
            Create(theObject + 1, theInner);
            // While it is made, it has no description of its own.
            mObjects[theObject].theStage = Stage::Base;
            Observe(theObject + 1, kAnyKey, theObject);
            mObjects[theObject].theStage = Stage::Whole;
        }
    }

    void Destroy(Id theObject) override
    {
        Object& theOne = mObjects.at(theObject);
        if (IsBinding(theObject)) {
            theOne.theStage = Stage::Binding;
            UnbindAll(theObject);
            CheckThatNobodyIsBoundTo(theObject);
        }
        theOne.theStage = Stage::Base;
        if (theOne.thePlan.theSort == ObjectSort::Bindable) {
            Destroy(theObject + 1);
        }
        RemoveObservers(theObject);
        StopObserving(theObject);
        mObjects.erase(theObject);
    }

    // ---- Values of keys

    Value GetKeyValue(Id theStore, const std::string& theKey) override
    {
        Object& theObject = mObjects.at(theStore);
        if (theObject.thePlan.isLoud) {
            mWitness.Read(theStore, theKey);
        }
        CheckKey(theKey, "theKeyName.IsNotEmpty()");
        const auto theFound = theObject.theValues.find(theKey);
        return theFound == theObject.theValues.end() ? Value() : theFound->second;
    }

    void SetKeyValue(Id theStore, const std::string& theKey, const Value& theValue) override
    {
        Object& theObject = mObjects.at(theStore);
        if (theObject.thePlan.isLoud) {
            mWitness.Written(theStore, theKey, theValue);
        }
        CheckKey(theKey, "theKeyName.IsNotEmpty()");
        theObject.theValues[theKey] = theValue;
    }

    Value GetKeyPathValue(Id theStore, const std::string& theKey) override
    {
        CheckKey(theKey, "theKeyPath.IsNotEmpty()");
        return GetKeyValue(theStore, theKey);
    }

    void SetKeyPathValue(Id theStore, const std::string& theKey, const Value& theValue) override
    {
        CheckKey(theKey, "theKeyPath.IsNotEmpty()");
        if (ValuesAreEqual(theValue, GetKeyValue(theStore, theKey)) || IsTooDeep(theStore, theKey)) {
            return;
        }
        const Life theLife = LifeOf(theStore);
        ++mObjects.at(theStore).theSets[theKey];
        ++mSets;
        Change(theStore, theKey, theValue);
        if (Lasts(theLife)) {
            --mObjects.at(theStore).theSets[theKey];
        }
        mIsEnding = --mSets > 0 && mIsEnding;
    }

    bool HasKey(Id theStore, const std::string& theKey) override
    {
        Check(!theKey.empty(), kStoreSource, "theKeyName.IsNotEmpty()");
        return theKey == kAnyKey || GetKeyValue(theStore, theKey).theKind != Kind::Invalid;
    }

    // ---- Observing

    void Observe(Id theStore, const std::string& theKey, Id theObserver) override
    {
        Check(!IsObserving(theStore, theKey, theObserver), kStoreSource,
              "!IsObserving(theKeyPath, theObserver)");
        Trace("Observer " + DescribeObserver(theObserver) + " started watching Key '" + theKey +
              "' in Store " + DescribeStore(theStore));
        mObjects.at(theStore).theStates[theKey].theObservers.push_back(theObserver);
        Check(!AmObserving(theStore, theKey, theObserver), kObserverSource,
              "!AmObserving(theStore, theKeyPath)");
        mObjects.at(theObserver).theObservations.push_back({theStore, theKey});
    }

    void Ignore(Id theStore, const std::string& theKey, Id theObserver) override
    {
        Check(IsObserving(theStore, theKey, theObserver), kStoreSource,
              "IsObserving(theKeyPath, theObserver)");
        Trace("Observer " + DescribeObserver(theObserver) + " stopped watching Key '" + theKey +
              "' in Store " + DescribeStore(theStore));
        RemoveAll(mObjects.at(theStore).theStates[theKey].theObservers, theObserver);
        Check(AmObserving(theStore, theKey, theObserver), kObserverSource,
              "AmObserving(theStore, theKeyPath)");
        RemoveAll(mObjects.at(theObserver).theObservations, Observation(theStore, theKey));
    }

    bool IsObserving(Id theStore, const std::string& theKey, Id theObserver) override
    {
        Check(!theKey.empty(), kStoreSource, "theKeyPath.IsNotEmpty()");
        return HasAny(StateOf(theStore, theKey).theObservers, theObserver);
    }

    bool AmObserving(Id theStore, const std::string& theKey, Id theObserver) override
    {
        Check(!theKey.empty(), kObserverSource, "theKeyPath.IsNotEmpty()");
        return HasAny(mObjects.at(theObserver).theObservations, Observation(theStore, theKey));
    }

    void RemoveObservers(Id theStore) override
    {
        for (auto& [theKey, theState] : mObjects.at(theStore).theStates) {
            while (!theState.theObservers.empty()) {
                Ignore(theStore, theKey, theState.theObservers.front());
            }
        }
    }

    void StopObserving(Id theObserver) override
    {
        const std::vector<Observation>& theObservations = mObjects.at(theObserver).theObservations;
        while (!theObservations.empty()) {
            const auto [theStore, theKey] = theObservations.front();
            Check(AmObserving(theStore, theKey, theObserver), kObserverSource,
                  "AmObserving(theKey.theStore, theKey.theKeyPath)");
            Ignore(theStore, theKey, theObserver);
        }
    }

    void NotifyObservers(Id theStore, const std::string& theKey, bool hasChanged) override
    {
        const unsigned theIndentation = mIndentation;
        TraceDeeper((hasChanged ? "changed  " : "changing ") + DescribeStore(theStore) + "." + theKey);
        if (mObjects.at(theStore).theStates.count(theKey) != 0) {
            // Who is destroyed in the meantime is not told any more; with the store, the round ends.
            const Life theLife = LifeOf(theStore);
            for (const Life& theObserver : WhoIsTold(theStore, theKey)) {
                if (Lasts(theLife) && Lasts(theObserver)) {
                    Tell(theObserver.first, theStore, theKey, hasChanged);
                }
            }
        }
        mIndentation = theIndentation;
    }

    // ---- Dependencies

    bool IsDependent(Id theStore, const std::string& theKey, const std::string& theDependent) override
    {
        Check(HasKey(theStore, theKey), kStoreSource, "HasKey(theKeyName)");
        Check(HasKey(theStore, theDependent), kStoreSource, "HasKey(dependentKey)");
        return HasAny(StateOf(theStore, theKey).theDependents, theDependent);
    }

    void MakeDependency(Id theStore, const std::string& theKey, const std::string& theDependent) override
    {
        Check(theKey != kAnyKey, kStoreSource, "watchedKey != kKeyAnyValue");
        Check(theDependent != kAnyKey, kStoreSource, "dependentKey != kKeyAnyValue");
        Check(!IsDependent(theStore, theKey, theDependent), kStoreSource,
              "!IsDependent(watchedKey, dependentKey)");
        mObjects.at(theStore).theStates[theKey].theDependents.push_back(theDependent);
    }

    void BreakDependency(Id theStore, const std::string& theKey, const std::string& theDependent) override
    {
        Check(theKey != kAnyKey, kStoreSource, "watchedKey != kKeyAnyValue");
        Check(theDependent != kAnyKey, kStoreSource, "dependentKey != kKeyAnyValue");
        Check(IsDependent(theStore, theKey, theDependent), kStoreSource,
              "IsDependent(watchedKey, dependentKey)");
        RemoveAll(mObjects.at(theStore).theStates[theKey].theDependents, theDependent);
    }

    void NotifyDependents(Id theStore, const std::string& theKey) override
    {
        Check(HasKey(theStore, theKey), kStoreSource, "HasKey(theKeyName)");
        const Life theLife = LifeOf(theStore);
        for (const std::string& theDependent : StateOf(theStore, theKey).theDependents) {
            if (Lasts(theLife)) {
                NotifyObservers(theStore, theDependent, true);
            }
        }
    }

    // ---- Transforms

    void TakeTransform(int theTransform, const std::vector<Step>& theSteps) override
    {
        mTransforms[theTransform].theSteps = theSteps;
        ++mTransforms[theTransform].theCount;
    }

    void ReleaseTransform(int theTransform) override
    {
        if (theTransform != kNobody && --mTransforms.at(theTransform).theCount == 0) {
            mTransforms.erase(theTransform);
            mWitness.TransformIsGone(theTransform);
        }
    }

    // A transform that is at work lasts until it is done, even if all who hold it let go of it.
    Value Apply(int theTransform, const Value& theValue) override
    {
        if (theTransform == kNobody) {
            return theValue;
        }
        ++mTransforms.at(theTransform).theCount;
        mWitness.Applying(theTransform, theValue);
        Value theResult = theValue;
        for (const Step& theStep : mTransforms.at(theTransform).theSteps) {
            theResult = ApplyStep(theStep, theResult, mReporter);
        }
        mWitness.Applied(theTransform, theResult);
        ReleaseTransform(theTransform);
        return theResult;
    }

    // ---- Bindings

    int Bind(Id theBinding, const std::string& theKey, Id theOther, const std::string& theOtherKey,
             int theTransform, int theReverse) override
    {
        return IsBindable(theBinding, theKey)
                   ? CreateBinding(theBinding, theKey, true, {theOther, theOtherKey, theTransform},
                                   theReverse)
                   : kRefused;
    }

    int BindTo(Id theBinding, const std::string& theKey, Id theOther, const std::string& theOtherKey,
               int theTransform) override
    {
        return CreateBinding(theBinding, theKey, false, {theOther, theOtherKey, theTransform}, kNobody);
    }

    int Unbind(Id theBinding, const std::string& theKey, Id theOther) override
    {
        Check(!theKey.empty(), kBindingSource, "boundKey.IsNotEmpty()");
        auto& theAllRecords = mObjects.at(theBinding).theRecords;
        if (theAllRecords.count(theKey) == 0) {
            return kRefused;
        }
        std::vector<Record>& theRecords = theAllRecords.at(theKey);
        if (theOther == kNobody) {
            while (!theRecords.empty()) {
                RemoveBinding(theBinding, theKey, theRecords, 0);
            }
            theAllRecords.erase(theKey);
            return 0;
        }
        const std::size_t theIndex = Find(theRecords, theOther);
        if (theIndex != theRecords.size()) {
            RemoveBinding(theBinding, theKey, theRecords, theIndex);
        }
        return 0;
    }

    void UnbindAll(Id theBinding) override
    {
        const auto& theAllRecords = mObjects.at(theBinding).theRecords;
        while (!theAllRecords.empty()) {
            CheckStatus(Unbind(theBinding, std::string(theAllRecords.begin()->first), kNobody));
        }
    }

    // ---- What has no object

    Value Convert(const Value& theValue, Kind theKind) override
    {
        return ConvertValue(theValue, theKind, mReporter);
    }

    bool IsEqual(const Value& theLeft, const Value& theRight) override
    {
        return ValuesAreEqual(theLeft, theRight);
    }

    bool Split(const std::string& theText, const std::string& theSeparator, std::string& theLeft,
               std::string& theRight) override
    {
        const std::size_t thePosition = theText.find(theSeparator);
        const bool isFound = thePosition != std::string::npos;
        theLeft = isFound ? theText.substr(0, thePosition) : "";
        theRight = isFound ? theText.substr(thePosition + theSeparator.size()) : "";
        Check(!isFound || !theLeft.empty(), "LmString", "resultLeft.IsNotEmpty()");
        Check(!isFound || !theRight.empty(), "LmString", "resultRight.IsNotEmpty()");
        return isFound;
    }

    void SetTracing(bool isOn) override { mIsTracing = isOn; }

private:
    static constexpr int kRefused = -50;
    static constexpr int kDeepest = 1000;
    static constexpr const char* kAnyKey = "*";
    static constexpr const char* kStoreSource = "LmKeyValueStore";
    static constexpr const char* kObserverSource = "LmKeyValueObserver";
    static constexpr const char* kBindingSource = "LmKeyValueBinding";

    using Observation = std::pair<Id, std::string>;
    using Life = std::pair<Id, int>; // an object, as opposed to another one that is made in its place later

    struct KeyState
    {
        std::vector<std::string> theDependents;
        std::vector<Id> theObservers;
    };

    struct Record
    {
        Id theOther;
        std::string theOtherKey;
        int theTransform; // the record holds a reference
    };

    enum class Stage // what the destructors have left of an object
    {
        Whole,
        Binding,
        Base
    };

    struct Object
    {
        ObjectPlan thePlan;
        int theBirth = 0;
        Stage theStage = Stage::Whole;
        std::map<std::string, KeyState> theStates;
        std::map<std::string, Value> theValues;
        std::vector<Observation> theObservations;
        std::map<std::string, std::vector<Record>> theRecords;
        std::map<std::string, int> theSets; // how many sets of a key are under way
    };

    struct Transform
    {
        std::vector<Step> theSteps;
        int theCount = 0;
    };

    template <typename Item>
    static bool HasAny(const std::vector<Item>& theItems, const Item& theItem)
    {
        return std::find(theItems.begin(), theItems.end(), theItem) != theItems.end();
    }

    template <typename Item>
    static void RemoveAll(std::vector<Item>& theItems, const Item& theItem)
    {
        theItems.erase(std::remove(theItems.begin(), theItems.end(), Item(theItem)), theItems.end());
    }

    Life LifeOf(Id theObject) const { return {theObject, mObjects.at(theObject).theBirth}; }

    bool Lasts(const Life& theLife) const
    {
        return mObjects.count(theLife.first) != 0 && LifeOf(theLife.first) == theLife;
    }

    bool IsBinding(Id theObject) const
    {
        const ObjectSort theSort = mObjects.at(theObject).thePlan.theSort;
        return theSort == ObjectSort::Binding || theSort == ObjectSort::BindingOfBindable;
    }

    // A copy; an empty one of a key that has none.
    KeyState StateOf(Id theStore, const std::string& theKey) const
    {
        const auto& theStates = mObjects.at(theStore).theStates;
        const auto theFound = theStates.find(theKey);
        return theFound == theStates.end() ? KeyState() : theFound->second;
    }

    // ---- What is printed

    void Check(bool isTrue, const char* theSource, const char* theCondition)
    {
        if (!isTrue) {
            mReporter(theSource, theCondition);
        }
    }

    void CheckStatus(int theStatus)
    {
        if (theStatus != 0) {
            mReporter(kBindingSource, "Error " + std::to_string(theStatus));
        }
    }

    void CheckKey(const std::string& theKey, const char* theCondition)
    {
        Check(!theKey.empty(), kStoreSource, theCondition);
        Check(theKey != kAnyKey, kStoreSource, "theKeyName != kKeyAnyValue");
    }

    void Trace(const std::string& theText)
    {
        if (mIsTracing) {
            const std::size_t theWidth = mIndentation < 2 ? 0 : 4 * (mIndentation - 1);
            mWitness.Traced("Lm: " + std::string(theWidth, ' ') + theText);
        }
    }

    void TraceDeeper(const std::string& theText)
    {
        mIndentation += mIsTracing ? 1 : 0;
        Trace(theText);
    }

    // An object of a program's own class calls itself by its index, and what its destructors leave is called
    // by the address of the part: of the store, "@1", or of the observer, "@1+".
    std::string DescribeStore(Id theStore) const { return Describe(theStore, ""); }
    std::string DescribeObserver(Id theObserver) const { return Describe(theObserver, "+"); }

    std::string Describe(Id theObject, const char* thePart) const
    {
        const Object& theOne = mObjects.at(theObject);
        const std::string theIndex = std::to_string(theObject);
        if (theOne.theStage == Stage::Base) {
            return "@" + theIndex + thePart;
        }
        const bool isInner = theOne.thePlan.theSort == ObjectSort::BindingOfBindable;
        return isInner || theOne.theStage == Stage::Binding ? "[LmKeyValueBinding @" + theIndex + "]"
                                                            : "[" + theIndex + "]";
    }

    // ---- How a change travels

    // A set that is nested in a thousand others of its key is reported and not made, and so is no other one
    // that is nested in one of its key, until all that is under way is at its end. Of a second key the
    // contract says the same, but not how far around it is looked for another set.
    bool IsTooDeep(Id theStore, const std::string& theKey)
    {
        const int theSets = mObjects.at(theStore).theSets[theKey];
        if (theSets > kDeepest && !mIsEnding) {
            mReporter(kStoreSource, "A set of " + DescribeStore(theStore) + "." + theKey +
                                        " is nested in itself more than " + std::to_string(kDeepest) +
                                        " deep, and is not made");
            mIsEnding = true;
            mEnding = {theStore, theKey};
        }
        if (theSets > 0 && mIsEnding && mEnding != Observation(theStore, theKey)) {
            throw Undefined{
                "while sets end that were nested too deep, another one is nested in one of its key"};
        }
        return theSets > 0 && mIsEnding;
    }

    void Change(Id theStore, const std::string& theKey, const Value& theValue)
    {
        const Life theLife = LifeOf(theStore);
        NotifyObservers(theStore, theKey, false);
        if (Lasts(theLife)) {
            SetKeyValue(theStore, theKey, theValue);
            NotifyObservers(theStore, theKey, true);
        }
        if (Lasts(theLife)) {
            NotifyDependents(theStore, theKey);
        }
    }

    // The key's observers, and those of all keys, each in the order in which they came: one of all keys goes
    // first where it lies lower in memory than the next one of the key.
    std::vector<Life> WhoIsTold(Id theStore, const std::string& theKey) const
    {
        const auto thePlace = [&](Id theObserver) { return mObjects.at(theObserver).thePlan.thePlace; };
        const std::vector<Id> theOthers = StateOf(theStore, kAnyKey).theObservers;
        auto theNext = theOthers.begin();
        std::vector<Life> theMerged;
        for (const Id theObserver : StateOf(theStore, theKey).theObservers) {
            for (; theNext != theOthers.end() && thePlace(*theNext) < thePlace(theObserver); ++theNext) {
                theMerged.push_back(LifeOf(*theNext));
            }
            theMerged.push_back(LifeOf(theObserver));
        }
        for (; theNext != theOthers.end(); ++theNext) {
            theMerged.push_back(LifeOf(*theNext));
        }
        return theMerged;
    }

    void Tell(Id theObserver, Id theStore, const std::string& theKey, bool hasChanged)
    {
        const Life theLife = LifeOf(theObserver);
        const Life theStoreLife = LifeOf(theStore);
        // A bindable's own binding object is the library's, and nobody watches what it hears.
        if (mObjects.at(theObserver).thePlan.theSort != ObjectSort::BindingOfBindable) {
            mWitness.Told(theObserver, theStore, theKey, hasChanged);
        }
        if (hasChanged && Lasts(theLife) && Lasts(theStoreLife) && IsBinding(theObserver)) {
            Follow(theObserver, theStore, theKey);
        }
    }

    // Only the first record is served.
    void Follow(Id theBinding, Id theStore, const std::string& theKey)
    {
        const auto theAllRecords = mObjects.at(theBinding).theRecords;
        for (const auto& [theOwnKey, theRecords] : theAllRecords) {
            for (const Record& theRecord : theRecords) {
                if (theRecord.theOther == theStore && theRecord.theOtherKey == theKey) {
                    Update(theBinding, theOwnKey, theRecord);
                    return;
                }
            }
        }
    }

    void Update(Id theBinding, const std::string& theKey, const Record& theRecord)
    {
        const Life theLife = LifeOf(theBinding);
        const Value theValue =
            Apply(theRecord.theTransform, GetKeyPathValue(theRecord.theOther, theRecord.theOtherKey));
        if (Lasts(theLife)) {
            const unsigned theIndentation = mIndentation;
            TraceDeeper("Updating " + DescribeStore(theBinding) + "." + theKey);
            SetKeyPathValue(theBinding, theKey, theValue);
            mIndentation = theIndentation;
        }
    }

    // ---- How bindings come and go

    // The first record of that object, or the number of records.
    static std::size_t Find(const std::vector<Record>& theRecords, Id theOther)
    {
        std::size_t theIndex = 0;
        while (theIndex < theRecords.size() && theRecords[theIndex].theOther != theOther) {
            ++theIndex;
        }
        return theIndex;
    }

    bool IsBindable(Id theBinding, const std::string& theKey) const
    {
        return theKey != kAnyKey && mObjects.at(theBinding).thePlan.theUnbindable.count(theKey) == 0;
    }

    int CreateBinding(Id theBinding, const std::string& theKey, bool isTwoWay, const Record& theRecord,
                      int theReverse)
    {
        const auto& [theOther, theOtherKey, theTransform] = theRecord;
        if (!IsBindable(theOther, theOtherKey)) {
            return kRefused;
        }
        Check(!theKey.empty(), kBindingSource, "bindKey.IsNotEmpty()");
        Check(!theOtherKey.empty(), kBindingSource, "boundKey.IsNotEmpty()");
        AddBinding(theBinding, theKey, theRecord);
        if (isTwoWay) {
            AddBinding(theOther, theOtherKey, {theBinding, theKey, theReverse});
            ObserveOnce(theBinding, theKey, theOther);
        }
        ObserveOnce(theOther, theOtherKey, theBinding);
        const Life theLife = LifeOf(theBinding);
        const Value theValue = Apply(theTransform, GetKeyPathValue(theOther, theOtherKey));
        if (theValue.theKind != Kind::Invalid && Lasts(theLife)) {
            SetKeyPathValue(theBinding, theKey, theValue);
        }
        return 0;
    }

    void ObserveOnce(Id theStore, const std::string& theKey, Id theObserver)
    {
        if (!IsObserving(theStore, theKey, theObserver)) {
            Observe(theStore, theKey, theObserver);
        }
    }

    void AddBinding(Id theBinding, const std::string& theKey, const Record& theRecord)
    {
        Trace("Binding " + DescribeStore(theBinding) + "." + theKey + " to " +
              DescribeStore(theRecord.theOther) + "." + theRecord.theOtherKey);
        mObjects.at(theBinding).theRecords[theKey].push_back(theRecord);
    }

    void RemoveBinding(Id theBinding, const std::string& theKey, std::vector<Record>& theRecords,
                       std::size_t theIndex)
    {
        const Record theRecord = theRecords[theIndex];
        const unsigned theIndentation = mIndentation;
        TraceDeeper("Unbinding " + DescribeStore(theBinding) + "." + theKey + " from " +
                    DescribeStore(theRecord.theOther) + "." + theRecord.theOtherKey);
        ReleaseTransform(theRecord.theTransform);
        theRecords.erase(theRecords.begin() + static_cast<std::ptrdiff_t>(theIndex));
        Ignore(theRecord.theOther, theRecord.theOtherKey, theBinding);
        CheckStatus(Unbind(theRecord.theOther, theRecord.theOtherKey, theBinding));
        mIndentation = theIndentation;
    }

    // Others must have removed the bindings that they made to an object before that is destroyed.
    void CheckThatNobodyIsBoundTo(Id theBinding) const
    {
        for (const auto& [theId, theObject] : mObjects) {
            for (const auto& [theKey, theRecords] : theObject.theRecords) {
                if (Find(theRecords, theBinding) != theRecords.size()) {
                    throw Undefined{"an object is destroyed that another one is still bound to"};
                }
            }
        }
        for (const auto& [theStore, theKey] : mObjects.at(theBinding).theObservations) {
            if (theStore == theBinding && mIsTracing) {
                throw Undefined{
                    "an object that observes itself is half destroyed when the trace describes it"};
            }
        }
    }

    Witness& mWitness;
    Reporter mReporter;
    std::map<Id, Object> mObjects; // those that live
    std::map<int, Transform> mTransforms;
    int mBirths = 0;
    int mSets = 0;          // how many are under way in all
    bool mIsEnding = false; // one of them was nested too deep, this one:
    Observation mEnding;
    bool mIsTracing = false;
    unsigned mIndentation = 0;
};

} // namespace Model

#endif
