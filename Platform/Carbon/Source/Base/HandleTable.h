// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_HandleTable_h
#define Base_HandleTable_h

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace Host {

// A number that no other object of this program has: what presenters call a window, control or menu.
using ObjectIdentifier = std::uint32_t;

// The next number that has not been given out. Numbers start at 1; 0 stands for "none".
ObjectIdentifier NewObjectIdentifier();

// The opaque references of one kind of object, and the objects behind them.
//
// A reference is a number dressed as a pointer and is never followed. That is what makes bad ones harmless:
// a disposed reference, a reference of another kind, or any stray pointer is simply not in the table. A
// number is not given out again, so an old reference never names a new object by accident.
//
// The table holds one count on each object. Whoever calls out to handlers takes a count of its own, since a
// handler may dispose the object that it is called for.
template <class Reference, class Object>
class HandleTable
{
public:
    using Shared = std::shared_ptr<Object>;

    static Reference ReferenceOf(ObjectIdentifier theIdentifier)
    {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): references are numbers on purpose, see above.
        return reinterpret_cast<Reference>(static_cast<std::uintptr_t>(theIdentifier) * kSpacing);
    }

    void Add(ObjectIdentifier theIdentifier, Shared theObject)
    {
        mObjects[ReferenceOf(theIdentifier)] = std::move(theObject);
    }

    // The object, or null when the reference is null, disposed, of another kind or no reference at all.
    Shared Find(Reference theReference) const
    {
        const auto theEntry = mObjects.find(theReference);
        return theEntry == mObjects.end() ? nullptr : theEntry->second;
    }

    // Presenters may name anything, also what is too large for a reference.
    Shared FindIdentifier(ObjectIdentifier theIdentifier) const
    {
        const bool theFits = theIdentifier <= UINTPTR_MAX / kSpacing;
        return theFits ? Find(ReferenceOf(theIdentifier)) : nullptr;
    }

    void Remove(Reference theReference) { mObjects.erase(theReference); }

private:
    // Keeps references apart like addresses of aligned objects, and away from null and -1.
    static constexpr std::uintptr_t kSpacing = 16;

    std::unordered_map<Reference, Shared> mObjects;
};

} // namespace Host

#endif
