// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_WindowGroups_h
#define Windows_WindowGroups_h

#include "Base/ObjectIds.h"
#include "Base/Text.h"

#include <Carbon/Carbon.h>
#include <memory>

namespace Host {

// The groups that the platform has, back to front.
enum class StandardGroup
{
    kDocument,
    kToolbar,
    kFloating,
    kModal,
    kUtility,
    kHelp,
    kOverlay,
};

class WindowGroup;
using SharedGroup = std::shared_ptr<WindowGroup>;

// A group of windows. Each window knows its group, and each group the one that it is in; the root group is in
// none.
class WindowGroup
{
public:
    explicit WindowGroup(SharedGroup theParent)
        : mParent(std::move(theParent))
    {
    }

    WindowGroupRef Reference() const;
    bool Is(WindowGroupAttributes theAttribute) const { return (mAttributes & theAttribute) != 0; }

    // Whether it is that group, or in it, however deep.
    bool IsIn(const WindowGroup& theGroup) const;

    // The level of the group around it that is in the root group.
    SInt32 Layer() const;

    SharedGroup mParent;
    ObjectId mIdentifier = NewObjectId();
    ItemCount mReferences = 1;
    bool mIsStandard = false; // the platform's, which stays
    WindowGroupAttributes mAttributes = 0;
    SInt32 mLevel = 0;
    Text mName;
};

// Made when the first of them is asked for; they throw std::bad_alloc then.
const SharedGroup& GroupOf(StandardGroup theGroup);
const SharedGroup& RootGroup();

} // namespace Host

#endif
