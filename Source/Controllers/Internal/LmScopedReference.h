// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmScopedReference_h
#define LmScopedReference_h

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

// A reference of CoreFoundation that is given back at the end of the scope; may be null.
template <class Reference>
class LmScopedReference
{
public:
    explicit LmScopedReference(Reference theReference) noexcept
        : mReference(theReference)
    {
    }
    LmScopedReference(LmScopedReference&& theOther) noexcept
        : mReference(std::exchange(theOther.mReference, nullptr))
    {
    }
    ~LmScopedReference()
    {
        if (mReference != nullptr) {
            CFRelease(mReference);
        }
    }
    LmScopedReference(const LmScopedReference&) = delete;
    LmScopedReference& operator=(const LmScopedReference&) = delete;
    LmScopedReference& operator=(LmScopedReference&&) = delete;

    [[nodiscard]] Reference Get() const { return mReference; }
    [[nodiscard]] Reference Take() { return std::exchange(mReference, nullptr); }

private:
    Reference mReference;
};

#endif
