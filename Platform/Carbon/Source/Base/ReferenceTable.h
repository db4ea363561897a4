// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_ReferenceTable_h
#define Base_ReferenceTable_h

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace Host {

// The opaque references of one kind of short-lived object, and the objects behind them.
//
// A reference is a number dressed as a pointer and is never followed, so a disposed or invented one is
// recognised by not being in the table. Its lowest bits are kTag, different for each kind: a reference of
// one kind is never one of another. Numbers come again only after every other one has been used, so that
// an old reference does not come to name a new object.
//
// Safe to use from any thread.
template <class Reference, std::uintptr_t kTag, class Object>
class ReferenceTable
{
    static_assert(kTag > 0 && kTag < 16, "the tag has four bits");

public:
    Reference Add(std::shared_ptr<Object> theObject)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        do {
            mLast = (mLast + 1) & kNumbers;
        } while (mLast == 0 || mObjects.count(ReferenceOf(mLast)) != 0);
        mObjects.emplace(ReferenceOf(mLast), std::move(theObject));
        return ReferenceOf(mLast);
    }

    // The object, or null when the reference is none of this table.
    std::shared_ptr<Object> Find(Reference theReference) const
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        const auto theEntry = mObjects.find(theReference);
        return theEntry == mObjects.end() ? nullptr : theEntry->second;
    }

    // Forgets a reference and gives its object to the caller, who lets it die outside the table's lock.
    std::shared_ptr<Object> Remove(Reference theReference)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        const auto theEntry = mObjects.find(theReference);
        if (theEntry == mObjects.end()) {
            return nullptr;
        }
        std::shared_ptr<Object> theObject = std::move(theEntry->second);
        mObjects.erase(theEntry);
        return theObject;
    }

private:
    static constexpr std::uintptr_t kNumbers = ~std::uintptr_t(0) >> 4;

    static Reference ReferenceOf(std::uintptr_t theNumber)
    {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): references are numbers on purpose, see above.
        return reinterpret_cast<Reference>((theNumber << 4) | kTag);
    }

    mutable std::mutex mMutex;
    std::uintptr_t mLast = 0;
    std::unordered_map<Reference, std::shared_ptr<Object>> mObjects;
};

} // namespace Host

#endif
