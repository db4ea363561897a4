// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ClassLayout_h
#define ClassLayout_h

#include <cstddef>

// What tests of a class's layout need: its private members, and where they stand.

// LM_REVEAL(Tag, &Class::mMember) makes theObject.*Reveal(Tag()) the private member of an object. It stands
// outside of all namespaces.
//
// Naming a private member in an explicit instantiation is allowed, and hands it out by way of a friend.
template <typename Tag, auto theMember>
struct Revealed
{
    friend auto Reveal(Tag) { return theMember; }
};

#define LM_REVEAL(theTag, theMember)                                                                         \
    struct theTag                                                                                            \
    {                                                                                                        \
        friend auto Reveal(theTag);                                                                          \
    };                                                                                                       \
    template struct Revealed<theTag, theMember>

// How far a member or base stands from the start of its object.
template <typename Object, typename Member>
std::size_t DistanceOf(const Object& theObject, const Member& theMember)
{
    return static_cast<std::size_t>(reinterpret_cast<const char*>(&theMember) -
                                    reinterpret_cast<const char*>(&theObject));
}

#endif
