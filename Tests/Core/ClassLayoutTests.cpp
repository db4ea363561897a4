// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindable.h"
#include "LmKeyValueBinding.h"

#include "ClassLayout.h"
#include "VirtualSlot.h"

#include <gtest/gtest.h>

// The layout of the classes is a part of the binary interface: applications derive from them. What is checked
// here are the bases and members in their order, and the slots of the virtual functions, as the C++ ABI of
// the supported systems (Itanium's) lays them out.

LM_REVEAL(BindableFlag, &LmBindable::mIgnoreChanges);
LM_REVEAL(BindableBinding, &LmBindable::mBinding);
LM_REVEAL(ObserverKeys, &LmKeyValueObserver::mKeys);
LM_REVEAL(StoreKeyStates, &LmKeyValueStore::mKeyStates);
LM_REVEAL(StoreValues, &LmKeyValueStore::mValues);
LM_REVEAL(BindingBindings, &LmKeyValueBinding::mBindings);

namespace {

constexpr size_t kPointer = sizeof(void*);

// Nothing else is virtual: these classes hide functions of their bases with another result, which compiles
// only where the base's function is not virtual.
struct Other;

class OtherString : public LmString
{
public:
    Other GetUTF8() const;
    Other IsEmpty() const;
    Other IsNotEmpty() const;
    Other operator+(const LmString&) const;
    Other operator==(const LmString&) const;
    Other operator<(const LmString&) const;
    Other Split(const LmString&, LmString&, LmString&) const;
};

class OtherValue : public LmValue
{
public:
    Other GetType() const;
    Other IsValid() const;
    Other IsNumber() const;
    Other GetPointer() const;
    Other GetString() const;
    Other GetDouble() const;
    Other GetTypeSize(ValueType) const;
    Other operator==(const LmValue&) const;
    Other SetBoolean(bool);
    Other SetString(CFStringRef, bool);
    Other AllocateValue(ValueType);
    Other ReleaseValue();
};

class OtherObject : public LmDebugObject
{
public:
    Other AddIndent();
    Other RemoveIndent();
};

class OtherObserver : public LmKeyValueObserver
{
public:
    Other AmObserving(LmKeyValueStore*, const LmString&);
    Other StopObserving();
    Other StartedObserving(LmKeyValueStore*, const LmString&);
    Other StoppedObserving(LmKeyValueStore*, const LmString&);
};

class OtherStore : public LmKeyValueStore
{
public:
    Other GetKeyPathValue(const LmString&) const;
    Other SetKeyPathValue(const LmString&, const LmValue&);
    Other HasKey(const LmString&);
    Other ObserveKeyPathValue(const LmString&, LmKeyValueObserver*);
    Other IgnoreKeyPathValue(const LmString&, LmKeyValueObserver*);
    Other IsObserving(const LmString&, LmKeyValueObserver*);
    Other RemoveObservers();
    Other NotifyObservers(const LmString&, bool);
    Other MakeDependency(const LmString&, const LmString&);
    Other BreakDependency(const LmString&, const LmString&);
    Other IsDependent(const LmString&, const LmString&);
    Other NotifyDependents(const LmString&);
};

class OpenBinding : public LmKeyValueBinding
{
public:
    using LmKeyValueBinding::BindingMap;
};

} // namespace

#if defined(__i386__)
// The sizes of the standard containers are those of this platform's library.
static_assert(sizeof(std::list<int>) == 12 && sizeof(std::map<int, int>) == 24);
static_assert(sizeof(LmKeyState) == 24);
static_assert(sizeof(LmObservedKey) == 4 + sizeof(LmString));
static_assert(sizeof(BindingInfo) == 4 + sizeof(LmString) + 4);
static_assert(sizeof(LmKeyValueObserver) == 4 + 12);
static_assert(sizeof(LmKeyValueStore) == 4 + 24 + 24);
static_assert(sizeof(LmKeyValueBinding) == 16 + 52 + 24);
static_assert(sizeof(LmBindable) == 16 + 4 + 92);
#endif

static_assert(sizeof(LmKeyValueObserver) == kPointer + sizeof(std::list<LmObservedKey>));
static_assert(sizeof(LmKeyValueStore) ==
              kPointer + sizeof(std::map<LmString, LmKeyState>) + sizeof(std::map<LmString, LmValue>));
static_assert(sizeof(LmKeyValueBinding) ==
              sizeof(LmKeyValueObserver) + sizeof(LmKeyValueStore) + sizeof(OpenBinding::BindingMap));

TEST(ClassLayout, OfAKeyState)
{
    const LmKeyState theState;
    EXPECT_EQ(DistanceOf(theState, theState.theDependents), 0u);
    EXPECT_EQ(DistanceOf(theState, theState.theObservers), sizeof(std::list<LmString>));
}

TEST(ClassLayout, OfAnObservedKey)
{
    const LmObservedKey theKey = {nullptr, "k"};
    EXPECT_EQ(DistanceOf(theKey, theKey.theStore), 0u);
    EXPECT_EQ(DistanceOf(theKey, theKey.theKeyPath), kPointer);
}

TEST(ClassLayout, OfABindingRecord)
{
    const BindingInfo theInfo = {nullptr, "k", nullptr};
    EXPECT_EQ(DistanceOf(theInfo, theInfo.boundTo), 0u);
    EXPECT_EQ(DistanceOf(theInfo, theInfo.boundKey), kPointer);
    EXPECT_EQ(DistanceOf(theInfo, theInfo.transform), kPointer + sizeof(LmString));
}

TEST(ClassLayout, OfAnObserver)
{
    const LmKeyValueObserver theObserver;
    EXPECT_EQ(DistanceOf(theObserver, static_cast<const LmDebugObject&>(theObserver)), 0u);
    EXPECT_EQ(DistanceOf(theObserver, theObserver.*Reveal(ObserverKeys())), kPointer);
}

TEST(ClassLayout, OfAStore)
{
    const LmKeyValueStore theStore;
    EXPECT_EQ(DistanceOf(theStore, static_cast<const LmDebugObject&>(theStore)), 0u);
    EXPECT_EQ(DistanceOf(theStore, theStore.*Reveal(StoreKeyStates())), kPointer);
    EXPECT_EQ(DistanceOf(theStore, theStore.*Reveal(StoreValues())),
              kPointer + sizeof(std::map<LmString, LmKeyState>));
}

TEST(ClassLayout, OfABindingObject)
{
    const LmKeyValueBinding theBinding;
    EXPECT_EQ(DistanceOf(theBinding, static_cast<const LmKeyValueObserver&>(theBinding)), 0u);
    EXPECT_EQ(DistanceOf(theBinding, static_cast<const LmKeyValueStore&>(theBinding)),
              sizeof(LmKeyValueObserver));
    EXPECT_EQ(DistanceOf(theBinding, theBinding.*Reveal(BindingBindings())),
              sizeof(LmKeyValueObserver) + sizeof(LmKeyValueStore));
}

TEST(ClassLayout, OfABindable)
{
    const LmBindable theBindable;
    EXPECT_EQ(DistanceOf(theBindable, static_cast<const LmKeyValueObserver&>(theBindable)), 0u);
    EXPECT_EQ(DistanceOf(theBindable, theBindable.*Reveal(BindableFlag())), sizeof(LmKeyValueObserver));
    EXPECT_EQ(DistanceOf(theBindable, theBindable.*Reveal(BindableBinding())),
              sizeof(LmKeyValueObserver) + kPointer);
    EXPECT_EQ(sizeof(LmBindable), sizeof(LmKeyValueObserver) + kPointer + sizeof(LmKeyValueBinding));
}

TEST(ClassLayout, OfTheVirtualFunctionsOfAnObserver)
{
    EXPECT_EQ(GetVirtualSlot(&LmKeyValueObserver::GetDebugInfo), 2u);
    EXPECT_EQ(GetVirtualSlot(&LmKeyValueObserver::ValueChanging), 3u);
    EXPECT_EQ(GetVirtualSlot(&LmKeyValueObserver::ValueChanged), 4u);
}

TEST(ClassLayout, OfTheVirtualFunctionsOfAStore)
{
    EXPECT_EQ(GetVirtualSlot(&LmKeyValueStore::GetDebugInfo), 2u);
    EXPECT_EQ(GetVirtualSlot(&LmKeyValueStore::GetKeyValue), 3u);
    EXPECT_EQ(GetVirtualSlot(&LmKeyValueStore::SetKeyValue), 4u);
}

TEST(ClassLayout, OfTheVirtualFunctionsOfABindingObject)
{
    EXPECT_EQ(GetVirtualSlot(
                  static_cast<LmString (LmKeyValueBinding::*)() const>(&LmKeyValueBinding::GetDebugInfo)),
              2u);
    EXPECT_EQ(GetVirtualSlot(&LmKeyValueBinding::ValueChanged), 4u);
    EXPECT_EQ(GetVirtualSlot(&LmKeyValueBinding::IsBindable), 5u);
}
