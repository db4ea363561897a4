// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef VirtualSlot_h
#define VirtualSlot_h

#include <cstddef>
#include <cstring>

// The place of a virtual function in its class's table: GetVirtualSlot(&LmDebugObject::GetDebugInfo). The two
// destructors, where the class begins with them, take the slots 0 and 1.
//
// Reads the C++ ABI's form of a pointer to a virtual member function: one more than its byte offset in the
// table.
template <typename MemberFunction>
std::size_t GetVirtualSlot(MemberFunction theFunction)
{
    static_assert(sizeof theFunction == 2 * sizeof(std::ptrdiff_t), "not a pointer to a member function");
    std::ptrdiff_t thePlace = 0;
    std::memcpy(&thePlace, &theFunction, sizeof thePlace);
    return static_cast<std::size_t>(thePlace - 1) / sizeof(void*);
}

#endif
