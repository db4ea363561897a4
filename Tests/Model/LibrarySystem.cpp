// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LibrarySystem.h"

#include "LmBindable.h"
#include "LmLogicalTransforms.h"
#include "LmMetaTransforms.h"
#include "LmNumericalTransforms.h"
#include "LmStringTransforms.h"

#include <algorithm>
#include <new>

namespace Model {

namespace {

// ---- The objects of scripts

// What each of them knows of itself.
struct Self
{
    LibrarySystem& theSystem;
    Id theId;

    LmString Name() const { return ("[" + std::to_string(theId) + "]").c_str(); }

    // It may be gone afterwards, and the store as well. False when one of them is.
    bool Hear(const LmKeyValueStore* theStore, const LmString& theKey, bool hasChanged) const
    {
        LibrarySystem& theOwner = theSystem;
        const Id theObserver = theId;
        const Id theStoreId = theOwner.IdOf(theStore);
        const int theBirth = theOwner.BirthOf(theObserver);
        const int theStoreBirth = theOwner.BirthOf(theStoreId);
        theOwner.Tell().Told(theObserver, theStoreId, theKey.GetUTF8(), hasChanged);
        return theOwner.BirthOf(theObserver) == theBirth && theOwner.BirthOf(theStoreId) == theStoreBirth;
    }

    void Read(const LmString& theKey) const { theSystem.Tell().Read(theId, theKey.GetUTF8()); }

    void Written(const LmString& theKey, const LmValue& theValue) const
    {
        theSystem.Tell().Written(theId, theKey.GetUTF8(), theSystem.FromLibrary(theValue));
    }
};

class QuietStore : public LmKeyValueStore
{
public:
    QuietStore(const Self& theSelf, const ObjectPlan& /*thePlan*/)
        : mSelf(theSelf)
    {
    }

    LmString GetDebugInfo() const override { return mSelf.Name(); }

protected:
    Self mSelf;
};

// Tells its witness what it hears, as an observer of its own or as the one that a bindable object is.
template <class Observer>
class Watching : public Observer
{
public:
    Watching(const Self& theSelf, const ObjectPlan& /*thePlan*/)
        : mSelf(theSelf)
    {
    }

    LmString GetDebugInfo() const override { return mSelf.Name(); }

    void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        mSelf.Hear(theStore, theKeyName, false);
    }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        mSelf.Hear(theStore, theKeyName, true);
    }

private:
    Self mSelf;
};

class QuietBinding : public LmKeyValueBinding
{
public:
    QuietBinding(const Self& theSelf, const ObjectPlan& thePlan)
        : mSelf(theSelf),
          mUnbindable(thePlan.theUnbindable)
    {
    }

    LmString GetDebugInfo() const override { return mSelf.Name(); }

    void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        mSelf.Hear(theStore, theKeyName, false);
    }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        if (mSelf.Hear(theStore, theKeyName, true)) {
            LmKeyValueBinding::ValueChanged(theStore, theKeyName);
        }
    }

    bool IsBindable(const LmString& theKeyName) override
    {
        return LmKeyValueBinding::IsBindable(theKeyName) && mUnbindable.count(theKeyName.GetUTF8()) == 0;
    }

protected:
    Self mSelf;

private:
    std::set<std::string> mUnbindable;
};

// A store or a binding that tells of each call of what it can override.
template <typename Quiet>
class Loud : public Quiet
{
public:
    using Quiet::Quiet;

    LmValue GetKeyValue(const LmString& theKeyName) const override
    {
        this->mSelf.Read(theKeyName);
        return Quiet::GetKeyValue(theKeyName);
    }

    void SetKeyValue(const LmString& theKeyName, const LmValue& theValue) override
    {
        this->mSelf.Written(theKeyName, theValue);
        Quiet::SetKeyValue(theKeyName, theValue);
    }
};

// What is handed to bindings: a transform that tells what the one inside of it does.
class WatchedTransform : public LmValueTransform
{
public:
    WatchedTransform(const Self& theSelf, LmValueTransform* theInside)
        : mSelf(theSelf),
          mInside(theInside)
    {
    }

    ~WatchedTransform() override
    {
        mInside->Release();
        mSelf.theSystem.Forget(mSelf.theId);
        mSelf.theSystem.Tell().TransformIsGone(mSelf.theId);
    }

    LmValue Apply(const LmValue& theValue) override
    {
        mSelf.theSystem.Tell().Applying(mSelf.theId, mSelf.theSystem.FromLibrary(theValue));
        LmValue theResult = mInside->Apply(theValue);
        mSelf.theSystem.Tell().Applied(mSelf.theId, mSelf.theSystem.FromLibrary(theResult));
        return theResult;
    }

private:
    Self mSelf;
    LmValueTransform* mInside; // one reference is owned
};

// Hears nothing: for what happens once a script is over.
class DeafWitness : public Witness
{
public:
    void Told(Id /*theObserver*/, Id /*theStore*/, const std::string& /*theKey*/,
              bool /*hasChanged*/) override
    {
    }
    void Applying(int /*theTransform*/, const Value& /*theValue*/) override {}
    void Applied(int /*theTransform*/, const Value& /*theResult*/) override {}
    void TransformIsGone(int /*theTransform*/) override {}
    void Read(Id /*theStore*/, const std::string& /*theKey*/) override {}
    void Written(Id /*theStore*/, const std::string& /*theKey*/, const Value& /*theValue*/) override {}
    void Reported(const std::string& /*theSource*/, const std::string& /*theMessage*/) override {}
    void Traced(const std::string& /*theLine*/) override {}
};

constexpr std::size_t kBlockSize = std::max({sizeof(Loud<QuietStore>), sizeof(Watching<LmKeyValueObserver>),
                                             sizeof(Watching<LmBindable>), sizeof(Loud<QuietBinding>)});

LmString ToLibrary(const std::string& theText)
{
    return theText.c_str();
}

// "LmValue" of "Source/Core/LmValue.cpp". What is internal to the library reports for the store.
std::string NameOfSource(const std::string& thePath)
{
    const std::string theFile = thePath.substr(thePath.find_last_of('/') + 1);
    return thePath.find("/Internal/") == std::string::npos ? theFile.substr(0, theFile.find('.'))
                                                           : "LmKeyValueStore";
}

} // namespace

// ---- The system

LibrarySystem::LibrarySystem(Witness& theWitness, const std::vector<ObjectPlan>& thePlans)
    : mWitness(theWitness),
      mBirths(0),
      mIsFinishing(false)
{
    std::vector<void*> theBlocks;
    for (const ObjectPlan& thePlan : thePlans) {
        if (thePlan.theSort != ObjectSort::BindingOfBindable) {
            mBlocks[thePlan.thePlace] = nullptr;
            theBlocks.push_back(::operator new(kBlockSize));
        }
    }
    std::sort(theBlocks.begin(), theBlocks.end(), std::less<>());
    auto theNext = theBlocks.begin();
    for (auto& [thePlace, theBlock] : mBlocks) {
        theBlock = *theNext++;
    }
    LmSetDiagnosticHandler(&Report, this);
}

LibrarySystem::~LibrarySystem()
{
    LmSetDiagnosticHandler(nullptr, nullptr);
    for (const auto& [thePlace, theBlock] : mBlocks) {
        ::operator delete(theBlock);
    }
}

void LibrarySystem::Finish()
{
    SetTracing(false);
    TellTrace();
    mIsFinishing = true;
    for (const auto& [theId, theObject] : mObjects) {
        if (theObject.theBinding != nullptr) {
            theObject.theBinding->UnbindAll();
        }
    }
    while (!mObjects.empty()) {
        // A bindable comes before its binding object, which goes with it.
        Destroy(mObjects.begin()->first);
    }
    mIsFinishing = false;
    for (const auto& [theString, theText] : mTexts) {
        const bool isOurs = mStrings.count(theText.get()) != 0;
        if (isOurs && CFGetRetainCount(theString) != 1) {
            mWitness.Reported("CoreFoundation", "a string of the script is still held");
        }
        CFRelease(theString);
    }
    mTexts.clear();
    mStrings.clear();
}

void LibrarySystem::Report(const LmDiagnostic& theDiagnostic, void* theSystem)
{
    LibrarySystem& theOne = *static_cast<LibrarySystem*>(theSystem);
    theOne.Tell().Reported(NameOfSource(theDiagnostic.theFile), theOne.WithNames(theDiagnostic.theMessage));
}

Witness& LibrarySystem::Tell()
{
    static DeafWitness theNobody;
    TellTrace();
    if (mIsFinishing) {
        return theNobody;
    }
    return mWitness;
}

// ---- The trace

void LibrarySystem::SetTracing(bool isOn)
{
    if (isOn) {
        mTrace.Start();
    }
    LmDebugObject::SetLogging(isOn);
}

void LibrarySystem::NameAddress(const LmDebugObject* thePart, const std::string& theName)
{
    mNames[thePart->LmDebugObject::GetDebugInfo().GetUTF8()] = theName;
}

std::string LibrarySystem::WithNames(const std::string& theLine) const
{
    std::string theResult = theLine;
    std::size_t theStart = 0;
    while ((theStart = theResult.find("0x", theStart)) != std::string::npos) {
        const std::size_t theEnd = theResult.find_first_not_of("0123456789ABCDEF", theStart + 2);
        const auto theFound = mNames.find(theResult.substr(theStart, theEnd - theStart));
        if (theFound != mNames.end()) {
            theResult.replace(theStart, theEnd - theStart, theFound->second);
        }
        ++theStart;
    }
    return theResult;
}

void LibrarySystem::TellTrace()
{
    for (const std::string& theLine : mTrace.Take()) {
        mWitness.Traced(WithNames(theLine));
    }
}

// ---- Life

int LibrarySystem::BirthOf(Id theObject) const
{
    const auto theFound = mObjects.find(theObject);
    return theFound == mObjects.end() ? 0 : theFound->second.theBirth;
}

template <typename Made>
Made* LibrarySystem::Place(Id theObject, const ObjectPlan& thePlan)
{
    void* const theBlock = mBlocks.at(thePlan.thePlace);
    Made* const theMade = new (theBlock) Made(Self{*this, theObject}, thePlan);
    mBlocks.erase(thePlan.thePlace);
    mObjects[theObject].theBlock = theBlock;
    mObjects[theObject].thePlan = thePlan;
    mObjects[theObject].theDestructor = [theMade] { theMade->~Made(); };
    return theMade;
}

void LibrarySystem::Register(Id theObject, LmKeyValueStore* theStore, LmKeyValueObserver* theObserver,
                             LmKeyValueBinding* theBinding)
{
    Object& theEntry = mObjects[theObject];
    theEntry.theBirth = ++mBirths;
    theEntry.theStore = theStore;
    theEntry.theObserver = theObserver;
    theEntry.theBinding = theBinding;
    if (theEntry.theStore != nullptr) {
        mIds[theEntry.theStore] = theObject;
        NameAddress(theEntry.theStore, "@" + std::to_string(theObject));
    }
    if (theEntry.theObserver != nullptr) {
        NameAddress(theEntry.theObserver, "@" + std::to_string(theObject) + "+");
    }
}

void LibrarySystem::Create(Id theObject, const ObjectPlan& thePlan)
{
    if (thePlan.theSort == ObjectSort::Store) {
        LmKeyValueStore* const theStore =
            thePlan.isLoud ? static_cast<LmKeyValueStore*>(Place<Loud<QuietStore>>(theObject, thePlan))
                           : Place<QuietStore>(theObject, thePlan);
        Register(theObject, theStore, nullptr, nullptr);
    } else if (thePlan.theSort == ObjectSort::Observer) {
        LmKeyValueObserver* const theObserver = Place<Watching<LmKeyValueObserver>>(theObject, thePlan);
        Register(theObject, nullptr, theObserver, nullptr);
    } else if (thePlan.theSort == ObjectSort::Binding) {
        LmKeyValueBinding* const theBinding =
            thePlan.isLoud ? static_cast<LmKeyValueBinding*>(Place<Loud<QuietBinding>>(theObject, thePlan))
                           : Place<QuietBinding>(theObject, thePlan);
        Register(theObject, theBinding, theBinding, theBinding);
    } else {
        LmBindable* const theBindable = Place<Watching<LmBindable>>(theObject, thePlan);
        LmKeyValueBinding* const theBindings = theBindable->GetBindings();
        Register(theObject, nullptr, theBindable, nullptr);
        Register(theObject + 1, theBindings, theBindings, theBindings);
    }
    TellTrace();
}

void LibrarySystem::Destroy(Id theObject)
{
    const Object theParts = mObjects.at(theObject);
    mObjects.erase(theObject);
    const auto theInner = mObjects.find(theObject + 1);
    if (theInner != mObjects.end() && theInner->second.theBlock == nullptr) {
        mObjects.erase(theInner);
    }
    theParts.theDestructor();
    if (theParts.thePlan.canReturn) {
        mBlocks[theParts.thePlan.thePlace] = theParts.theBlock;
    } else {
        // Whoever touches it now is found by the sanitizer.
        ::operator delete(theParts.theBlock);
    }
    TellTrace();
}

// ---- Values of keys

Value LibrarySystem::GetKeyPathValue(Id theStore, const std::string& theKey)
{
    return FromLibrary(Store(theStore).GetKeyPathValue(Model::ToLibrary(theKey)));
}

Value LibrarySystem::GetKeyValue(Id theStore, const std::string& theKey)
{
    return FromLibrary(Store(theStore).GetKeyValue(Model::ToLibrary(theKey)));
}

void LibrarySystem::SetKeyPathValue(Id theStore, const std::string& theKey, const Value& theValue)
{
    Store(theStore).SetKeyPathValue(Model::ToLibrary(theKey), ToLibrary(theValue));
    TellTrace();
}

void LibrarySystem::SetKeyValue(Id theStore, const std::string& theKey, const Value& theValue)
{
    Store(theStore).SetKeyValue(Model::ToLibrary(theKey), ToLibrary(theValue));
}

bool LibrarySystem::HasKey(Id theStore, const std::string& theKey)
{
    return Store(theStore).HasKey(Model::ToLibrary(theKey));
}

// ---- Observing

void LibrarySystem::Observe(Id theStore, const std::string& theKey, Id theObserver)
{
    Store(theStore).ObserveKeyPathValue(Model::ToLibrary(theKey), Observer(theObserver));
    TellTrace();
}

void LibrarySystem::Ignore(Id theStore, const std::string& theKey, Id theObserver)
{
    Store(theStore).IgnoreKeyPathValue(Model::ToLibrary(theKey), Observer(theObserver));
    TellTrace();
}

bool LibrarySystem::IsObserving(Id theStore, const std::string& theKey, Id theObserver)
{
    return Store(theStore).IsObserving(Model::ToLibrary(theKey), Observer(theObserver));
}

bool LibrarySystem::AmObserving(Id theStore, const std::string& theKey, Id theObserver)
{
    return Observer(theObserver)->AmObserving(&Store(theStore), Model::ToLibrary(theKey));
}

void LibrarySystem::RemoveObservers(Id theStore)
{
    Store(theStore).RemoveObservers();
    TellTrace();
}

void LibrarySystem::StopObserving(Id theObserver)
{
    Observer(theObserver)->StopObserving();
    TellTrace();
}

void LibrarySystem::NotifyObservers(Id theStore, const std::string& theKey, bool hasChanged)
{
    Store(theStore).NotifyObservers(Model::ToLibrary(theKey), hasChanged);
    TellTrace();
}

// ---- Dependencies

void LibrarySystem::MakeDependency(Id theStore, const std::string& theKey, const std::string& theDependent)
{
    Store(theStore).MakeDependency(Model::ToLibrary(theKey), Model::ToLibrary(theDependent));
}

void LibrarySystem::BreakDependency(Id theStore, const std::string& theKey, const std::string& theDependent)
{
    Store(theStore).BreakDependency(Model::ToLibrary(theKey), Model::ToLibrary(theDependent));
}

bool LibrarySystem::IsDependent(Id theStore, const std::string& theKey, const std::string& theDependent)
{
    return Store(theStore).IsDependent(Model::ToLibrary(theKey), Model::ToLibrary(theDependent));
}

void LibrarySystem::NotifyDependents(Id theStore, const std::string& theKey)
{
    Store(theStore).NotifyDependents(Model::ToLibrary(theKey));
    TellTrace();
}

// ---- Transforms

LmValueTransform* LibrarySystem::MakeStep(const Step& theStep)
{
    const auto theOperand = [&] { return ToLibrary(theStep.theOperand); };
    switch (theStep.theSort) {
    case StepSort::IsNull:
        return new LmIsNullTransform;
    case StepSort::IsNotNull:
        return new LmIsNotNullTransform;
    case StepSort::IsAbove:
        return new LmIsAboveTransform(theOperand(), theStep.isInclusive);
    case StepSort::IsBelow:
        return new LmIsBelowTransform(theOperand(), theStep.isInclusive);
    case StepSort::IsEqual:
        return new LmIsEqualTransform(theOperand());
    case StepSort::IsNotEqual:
        return new LmIsNotEqualTransform(theOperand());
    case StepSort::Absolute:
        return new LmAbsoluteTransform;
    case StepSort::Add:
        return new LmAddTransform(theOperand());
    case StepSort::Scale:
        return new LmScaleTransform(theStep.theFactor);
    case StepSort::Negate:
        return new LmNegateTransform;
    case StepSort::ToText:
        return new LmToStringTransform;
    case StepSort::FromText:
        return new LmFromStringTransform;
    }
    return nullptr;
}

LmValueTransform* LibrarySystem::MakeSteps(const std::vector<Step>& theSteps)
{
    if (theSteps.size() == 1) {
        return MakeStep(theSteps.front());
    }
    auto* const theList = new LmListTransform;
    for (const Step& theStep : theSteps) {
        LmValueTransform* const thePart = MakeStep(theStep);
        theList->Add(thePart);
        thePart->Release();
    }
    return theList;
}

void LibrarySystem::TakeTransform(int theTransform, const std::vector<Step>& theSteps)
{
    const auto theFound = mTransforms.find(theTransform);
    if (theFound != mTransforms.end()) {
        theFound->second->Retain();
        return;
    }
    mTransforms[theTransform] = new WatchedTransform(Self{*this, theTransform}, MakeSteps(theSteps));
}

LmValueTransform* LibrarySystem::Transform(int theTransform)
{
    return theTransform == kNobody ? nullptr : mTransforms.at(theTransform);
}

void LibrarySystem::ReleaseTransform(int theTransform)
{
    Transform(theTransform)->Release();
}

Value LibrarySystem::Apply(int theTransform, const Value& theValue)
{
    return FromLibrary(Transform(theTransform)->Apply(ToLibrary(theValue)));
}

// ---- Bindings

LmKeyValueBinding* LibrarySystem::Binding(Id theObject)
{
    return theObject == kNobody ? nullptr : mObjects.at(theObject).theBinding;
}

int LibrarySystem::Bind(Id theBinding, const std::string& theKey, Id theOther, const std::string& theOtherKey,
                        int theTransform, int theReverse)
{
    const OSStatus theStatus =
        Binding(theBinding)
            ->Bind(Model::ToLibrary(theKey), Binding(theOther), Model::ToLibrary(theOtherKey),
                   Transform(theTransform), Transform(theReverse));
    TellTrace();
    return static_cast<int>(theStatus);
}

int LibrarySystem::BindTo(Id theBinding, const std::string& theKey, Id theOther,
                          const std::string& theOtherKey, int theTransform)
{
    const OSStatus theStatus = Binding(theBinding)
                                   ->BindTo(Model::ToLibrary(theKey), Binding(theOther),
                                            Model::ToLibrary(theOtherKey), Transform(theTransform));
    TellTrace();
    return static_cast<int>(theStatus);
}

int LibrarySystem::Unbind(Id theBinding, const std::string& theKey, Id theOther)
{
    const OSStatus theStatus = Binding(theBinding)->Unbind(Model::ToLibrary(theKey), Binding(theOther));
    TellTrace();
    return static_cast<int>(theStatus);
}

void LibrarySystem::UnbindAll(Id theBinding)
{
    Binding(theBinding)->UnbindAll();
    TellTrace();
}

// ---- Values

CFStringRef LibrarySystem::ToString(const Text& theText)
{
    if (!theText) {
        return nullptr;
    }
    const auto theFound = mStrings.find(theText.get());
    if (theFound != mStrings.end()) {
        return theFound->second;
    }
    // A mutable string is never one that others share, as the empty one may be.
    const std::vector<UniChar> theUnits(theText->begin(), theText->end());
    const CFMutableStringRef theString = CFStringCreateMutable(nullptr, 0);
    CFStringAppendCharacters(theString, theUnits.data(), static_cast<CFIndex>(theUnits.size()));
    mStrings[theText.get()] = theString;
    mTexts[theString] = theText;
    return theString;
}

Text LibrarySystem::FromString(CFStringRef theString)
{
    if (theString == nullptr) {
        return nullptr;
    }
    const auto theFound = mTexts.find(theString);
    if (theFound != mTexts.end()) {
        return theFound->second;
    }
    std::vector<UniChar> theUnits(static_cast<std::size_t>(CFStringGetLength(theString)));
    CFStringGetCharacters(theString, CFRangeMake(0, CFStringGetLength(theString)), theUnits.data());
    Text theText = std::make_shared<std::u16string>(theUnits.begin(), theUnits.end());
    CFRetain(theString);
    mTexts[theString] = theText;
    return theText;
}

LmValue LibrarySystem::ToLibrary(const Value& theValue)
{
    const std::array<float, 4>& theParts = theValue.theParts;
    switch (theValue.theKind) {
    case Kind::Boolean:
        return theValue.theBits != 0;
    case Kind::UInt32:
        return static_cast<std::uint32_t>(theValue.theBits);
    case Kind::SInt32:
        return static_cast<std::int32_t>(theValue.theBits);
    case Kind::UInt64:
        return static_cast<unsigned long long>(theValue.theBits);
    case Kind::SInt64:
        return static_cast<long long>(theValue.theBits);
    case Kind::Double:
        return theValue.theDouble;
    case Kind::Pointer:
        return reinterpret_cast<const void*>(static_cast<std::uintptr_t>(theValue.theBits));
    case Kind::Text:
        return {ToString(theValue.theText), false};
    case Kind::Point:
        return CGPoint{theParts[0], theParts[1]};
    case Kind::Size:
        return CGSize{theParts[0], theParts[1]};
    case Kind::Rect:
        return CGRect{{theParts[0], theParts[1]}, {theParts[2], theParts[3]}};
    default:
        return {};
    }
}

Value LibrarySystem::FromLibrary(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeBoolean:
        return Value::Number(Kind::Boolean, theValue.GetBoolean() ? 1 : 0);
    case kTypeUInt32:
        return Value::Number(Kind::UInt32, theValue.GetUInt32());
    case kTypeSInt32:
        return Value::Number(Kind::SInt32, static_cast<std::uint64_t>(std::int64_t{theValue.GetSInt32()}));
    case kTypeUInt64:
        return Value::Number(Kind::UInt64, theValue.GetUInt64());
    case kTypeSInt64:
        return Value::Number(Kind::SInt64, static_cast<std::uint64_t>(theValue.GetSInt64()));
    case kTypeDouble:
        return Value::Double(theValue.GetDouble());
    case kTypePointer:
        return Value::Number(Kind::Pointer, reinterpret_cast<std::uintptr_t>(theValue.GetPointer()));
    case kTypeString:
        return Value::String(FromString(theValue.GetString()));
    case kTypePoint:
        return Value::Geometry(Kind::Point, {theValue.GetPoint().x, theValue.GetPoint().y, 0, 0});
    case kTypeSize:
        return Value::Geometry(Kind::Size, {theValue.GetSize().width, theValue.GetSize().height, 0, 0});
    case kTypeRect: {
        const CGRect theRect = theValue.GetRect();
        return Value::Geometry(Kind::Rect,
                               {theRect.origin.x, theRect.origin.y, theRect.size.width, theRect.size.height});
    }
    default:
        return {};
    }
}

Value LibrarySystem::Convert(const Value& theValue, Kind theKind)
{
    const LmValue theSource = ToLibrary(theValue);
    switch (theKind) {
    case Kind::Boolean:
        return FromLibrary(theSource.GetBoolean());
    case Kind::UInt32:
        return FromLibrary(theSource.GetUInt32());
    case Kind::SInt32:
        return FromLibrary(theSource.GetSInt32());
    case Kind::UInt64:
        return FromLibrary(theSource.GetUInt64());
    case Kind::SInt64:
        return FromLibrary(theSource.GetSInt64());
    default:
        return FromLibrary(theSource.GetDouble());
    }
}

bool LibrarySystem::IsEqual(const Value& theLeft, const Value& theRight)
{
    return ToLibrary(theLeft) == ToLibrary(theRight);
}

bool LibrarySystem::Split(const std::string& theText, const std::string& theSeparator, std::string& theLeft,
                          std::string& theRight)
{
    LmString theLibraryLeft;
    LmString theLibraryRight;
    const bool isFound =
        Model::ToLibrary(theText).Split(Model::ToLibrary(theSeparator), theLibraryLeft, theLibraryRight);
    theLeft = theLibraryLeft.GetUTF8();
    theRight = theLibraryRight.GetUTF8();
    return isFound;
}

} // namespace Model
