// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_Owned_h
#define Base_Owned_h

#include <CoreFoundation/CoreFoundation.h>
#include <utility>

namespace Host {

// An object of CoreFoundation that is released at the end, also when memory runs out; may be null.
template <class Reference>
class [[nodiscard]] Owned
{
public:
    explicit Owned(Reference theReference = nullptr)
        : mReference(theReference)
    {
    }
    Owned(Owned&& theOther) noexcept
        : mReference(theOther.Release())
    {
    }
    Owned& operator=(Owned&& theOther) noexcept
    {
        std::swap(mReference, theOther.mReference);
        return *this;
    }
    ~Owned()
    {
        if (mReference != nullptr) {
            CFRelease(mReference);
        }
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    Reference Get() const { return mReference; }
    Reference Release() { return std::exchange(mReference, nullptr); }

private:
    Reference mReference;
};

} // namespace Host

#endif
