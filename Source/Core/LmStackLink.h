// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmStackLink_h
#define LmStackLink_h

#include <cstddef>

// Links the objects of one class that live on the stack, from the innermost outwards, so that something that
// happens inside a call can be told to whom it concerns further out. What LmLifeWatch is made of; an
// application has no other use for it.
//
//     class Watch : public LmStackLink<Watch>
//     {
//         friend class LmStackLink<Watch>;
//         static Watch* sInnermost; // defined in one source file of the library
//     };
//
// The class says where its innermost object is noted, because that must be one variable in the whole program:
// an inline one would be another in the application than in the library. Such an object must be one of the
// stack, which takes them in the order in which they come and go; new does not make one.
template <typename Item>
class LmStackLink
{
public:
    LmStackLink(const LmStackLink&) = delete;
    LmStackLink& operator=(const LmStackLink&) = delete;

    static void* operator new(std::size_t theSize) = delete;
    static void* operator new[](std::size_t theSize) = delete;

protected:
    LmStackLink()
        : mOuter(Item::sInnermost)
    {
        Item::sInnermost = static_cast<Item*>(this);
    }
    ~LmStackLink() { Item::sInnermost = mOuter; }

    // The one that was made before this one, or null.
    Item* GetOuter() const { return mOuter; }

    // Calls theVisit with each of them, the innermost first.
    template <typename Visit>
    static void VisitAll(const Visit& theVisit)
    {
        for (Item* theItem = Item::sInnermost; theItem != nullptr; theItem = theItem->LmStackLink::mOuter) {
            theVisit(*theItem);
        }
    }

private:
    Item* mOuter; // the one that was made before; on the stack, not owned
};

#endif
