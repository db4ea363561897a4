// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmChangeGroup_h
#define LmChangeGroup_h

#include "LmExport.h"
#include "LmStackLink.h"
#include "LmString.h"
#include "LmValue.h"

// A change group collects sets, and makes each key's last one at its end. For work that goes over the same
// keys again and again, of which observers shall see the outcome alone.
//
//     {
//         LmChangeGroup theGroup;
//         for (const Item& theItem : theItems) {
//             theSum += theItem.thePrice;
//             theGroup.Set(&theOrder, "total", LmValue(theSum));
//         }
//     } // "total" is set once
//
// Only what is set through a group is collected; whoever reads a key meanwhile finds what it held before, and
// a set by SetKeyPathValue is made at once, as ever.
//
// These rules hold:
//
// - The keys are set in the order in which they were first mentioned, each to the value that was given for it
//   last. Observers may do anything meanwhile.
// - Groups nest: what is set through a group that was made while another one is open is collected by the
//   outermost, and made at its end. So a function may group its sets without knowing who calls it. A group
//   that an observer makes while another one ends is an outermost one again.
// - What observers set through a group that is ending takes the place of a value that is still to come; a key
//   that is not, or not any more, is set at once.
// - A store that goes meanwhile takes its sets with it.
// - A group lives on the stack, and ends before those that were made earlier. Main thread only.

class LmKeyValueStore;

// The group, which is made where the work begins, and ends with its block.
class LM_EXPORT LmChangeGroup : private LmStackLink<LmChangeGroup>
{
public:
    // Opens a group within the innermost one that is open, if there is one.
    [[nodiscard]] LmChangeGroup();

    // Ends the group as End does. When memory runs out for a set, it is reported, and the others are made. An
    // exception of another sort, which no observer may throw, ends the program.
    //
    // Diagnostics: "Out of memory: %s is not set", with the key.
    ~LmChangeGroup();

    LmChangeGroup(const LmChangeGroup&) = delete;
    LmChangeGroup& operator=(const LmChangeGroup&) = delete;

    // Remembers that theKeyPath of theStore is to be set. A null store is passed over.
    //
    // When memory runs out, nothing has changed. Cost: the logarithm of the number of keys that are
    // collected; for a key that is new there, that of an observation as well.
    void Set(LmKeyValueStore* theStore, const LmString& theKeyPath, const LmValue& theValue);

    // Makes the sets that are collected, if this is the outermost group; another one leaves them to that. The
    // group is open still, and may collect again.
    //
    // When memory runs out, what has not been set yet is still collected, and std::bad_alloc passes through.
    void End();

private:
    friend class LmStackLink<LmChangeGroup>;
    class LM_HIDDEN Changes;

    // What End does; false when memory runs out.
    LM_HIDDEN bool MakeChanges() noexcept;

    LM_HIDDEN static LmChangeGroup* sInnermost; // null while there is none

    Changes* mOwnChanges =
        nullptr;               // what is collected here, the outermost group; made with the first one, owned
    LmChangeGroup& mOutermost; // this object, or one that was made earlier
    bool mIsEnding = false;    // the sets of this group are being made
};

#endif
