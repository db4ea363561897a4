// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_ReferenceTable_h
#define Base_ReferenceTable_h

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace Host {

// What a reference refers to; told by its lowest four bits, so a reference of one kind is never one of
// another.
enum class ReferenceKind : std::uintptr_t
{
    kDescriptor = 0,
    kWindow = 1,
    kEventTarget = 2,
    kControl = 3,
    kEventHandler = 4,
    kMenu = 5,
    kHandlerCall = 6,
    kPort = 7,
    kEvent = 8,
    kRegion = 9,
    kWindowGroup = 10,
    kDialog = 11,
    kTimer = 12,
    kObject = 13,
    kObjectClass = 14,
    kIcon = 15,
};

// The opaque references of one kind of object.
//
// A reference is a number dressed as a pointer and is never followed. That is what makes bad ones harmless: a
// disposed reference, one of another kind or any stray pointer is a number that nothing has. None is null.
template <class Reference, ReferenceKind kKind>
struct NumberedReference
{
    // Greater numbers do not fit.
    static constexpr std::uintptr_t kLargest = ~std::uintptr_t(0) >> 4;

    static Reference Of(std::uintptr_t theNumber)
    {
        return reinterpret_cast<Reference>((theNumber << 4) | static_cast<std::uintptr_t>(kKind));
    }
};

// For tables that only the main thread uses.
struct NoMutex
{
    void lock() {}
    void unlock() {}
};

// The references of one kind of object, and the objects behind them.
//
// The table holds one count on each object. Whoever calls out to handlers takes a count of its own, since a
// handler may dispose the object that it is called for.
//
// Objects have numbers from the table or bring their own, all of them the same way. The table's come again
// only after every other one has been used, so that an old reference does not come to name a new object.
//
// With std::mutex it may be used from any thread.
template <class Reference, ReferenceKind kKind, class Object, class Mutex = std::mutex>
class ReferenceTable
{
public:
    using Shared = std::shared_ptr<Object>;
    using Numbered = NumberedReference<Reference, kKind>;

    Reference Add(Shared theObject)
    {
        const std::lock_guard<Mutex> theLock(mMutex);
        do {
            mLast = (mLast + 1) & Numbered::kLargest;
        } while (mLast == 0 || mObjects.count(Numbered::Of(mLast)) != 0);
        mObjects.emplace(Numbered::Of(mLast), std::move(theObject));
        return Numbered::Of(mLast);
    }

    void Add(std::uintptr_t theNumber, Shared theObject)
    {
        const std::lock_guard<Mutex> theLock(mMutex);
        mObjects[Numbered::Of(theNumber)] = std::move(theObject);
    }

    // The object, or null when the reference is none of this table.
    Shared Find(Reference theReference) const
    {
        const std::lock_guard<Mutex> theLock(mMutex);
        const auto theEntry = mObjects.find(theReference);
        return theEntry == mObjects.end() ? nullptr : theEntry->second;
    }

    // The same for any number, also one that is too large for a reference.
    Shared FindNumber(std::uintptr_t theNumber) const
    {
        return theNumber <= Numbered::kLargest ? Find(Numbered::Of(theNumber)) : nullptr;
    }

    // Calls theAction with each object, in no order. It must not add or remove any.
    template <class Action>
    void ForEach(const Action& theAction) const
    {
        const std::lock_guard<Mutex> theLock(mMutex);
        for (const auto& theEntry : mObjects) {
            theAction(theEntry.second);
        }
    }

    // Forgets a reference and gives its object to the caller, who lets it die outside the table's lock.
    Shared Remove(Reference theReference)
    {
        const std::lock_guard<Mutex> theLock(mMutex);
        const auto theEntry = mObjects.find(theReference);
        if (theEntry == mObjects.end()) {
            return nullptr;
        }
        Shared theObject = std::move(theEntry->second);
        mObjects.erase(theEntry);
        return theObject;
    }

private:
    mutable Mutex mMutex;
    std::uintptr_t mLast = 0;
    std::unordered_map<Reference, Shared> mObjects;
};

} // namespace Host

#endif
