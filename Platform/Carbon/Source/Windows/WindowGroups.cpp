// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "WindowGroups.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"
#include "Window.h"

#include <algorithm>
#include <array>
#include <vector>

namespace Host {

namespace {

using GroupTable = ReferenceTable<WindowGroupRef, ReferenceKind::kWindowGroup, WindowGroup, NoMutex>;

GroupTable& Groups()
{
    static NeverDestroyed<GroupTable> sGroups;
    return sGroups.Get();
}

// Of the platform's groups; the gaps are for those of programs.
constexpr std::array<SInt32, 7> kLevels = {0, 2, 3, 8, 19, 200, 201};

constexpr WindowGroupAttributes kAllAttributes =
    kWindowGroupAttrSelectAsLayer | kWindowGroupAttrMoveTogether | kWindowGroupAttrLayerTogether |
    kWindowGroupAttrSharedActivation | kWindowGroupAttrHideOnCollapse | kWindowGroupAttrFixedLevel;

SharedGroup NewGroup(const SharedGroup& theParent)
{
    auto theGroup = std::make_shared<WindowGroup>(theParent);
    Groups().Add(theGroup->mIdentifier, theGroup);
    return theGroup;
}

SharedGroup NewStandardGroup(const SharedGroup& theParent, SInt32 theLevel)
{
    SharedGroup theGroup = NewGroup(theParent);
    theGroup->mIsStandard = true;
    theGroup->mLevel = theLevel;
    return theGroup;
}

// The platform's groups.
struct StandardGroups
{
    StandardGroups()
        : theRoot(NewStandardGroup(nullptr, 0))
    {
        for (size_t theIndex = 0; theIndex < kLevels.size(); ++theIndex) {
            theOthers[theIndex] = NewStandardGroup(theRoot, kLevels[theIndex]);
        }
    }

    SharedGroup theRoot;
    std::array<SharedGroup, kLevels.size()> theOthers;
};

StandardGroups& TheStandardGroups()
{
    static NeverDestroyed<StandardGroups> sGroups;
    return sGroups.Get();
}

bool HasWindows(const WindowGroup& theGroup)
{
    const std::vector<SharedWindow>& theWindows = AllWindows();
    return std::any_of(theWindows.begin(), theWindows.end(),
                       [&](const SharedWindow& theWindow) { return theWindow->Group().get() == &theGroup; });
}

// Windows of a group whose layer has changed find their place in the new one, the front one last.
void PutIntoLayers(const WindowGroup& theGroup, SInt32 theOldLayer)
{
    // A copy: the order changes. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const std::vector<SharedWindow> theWindows = AllWindows();
    const bool theIsFront = theGroup.Layer() <= theOldLayer;
    const auto thePut = [&](const SharedWindow& theWindow) {
        if (theWindow->Parent() == nullptr && theWindow->Group()->IsIn(theGroup)) {
            PutIntoLayer(theWindow, theIsFront);
        }
    };
    if (theIsFront) {
        std::for_each(theWindows.rbegin(), theWindows.rend(), thePut);
    } else {
        std::for_each(theWindows.begin(), theWindows.end(), thePut);
    }
    ActivateAfterReordering();
}

void Join(const SharedWindow& theWindow, const SharedGroup& theGroup)
{
    const SInt32 theOldLayer = theWindow->Layer();
    theWindow->JoinGroup(theGroup);
    if (theWindow->Layer() != theOldLayer) {
        PutIntoLayer(theWindow, theWindow->Layer() < theOldLayer);
        ActivateAfterReordering();
    }
}

// Does something with a group, or gives windowGroupInvalidErr.
template <class Action>
OSStatus With(WindowGroupRef theGroup, Action theAction)
{
    const SharedGroup theFound = Groups().Find(theGroup);
    return theFound == nullptr ? OSStatus{windowGroupInvalidErr} : theAction(theFound);
}

bool HasLevel(const WindowGroup& theGroup)
{
    return theGroup.mParent == RootGroup();
}

std::vector<SharedWindow> WindowsIn(const WindowGroup& theGroup, WindowGroupContentOptions theOptions)
{
    std::vector<SharedWindow> theFound;
    for (const SharedWindow& theWindow : AllWindows()) {
        const bool theIsIn = (theOptions & kWindowGroupContentsRecurse) != 0
                                 ? theWindow->Group()->IsIn(theGroup)
                                 : theWindow->Group().get() == &theGroup;
        if (theIsIn && ((theOptions & kWindowGroupContentsVisible) == 0 || theWindow->IsVisible())) {
            theFound.push_back(theWindow);
        }
    }
    return theFound;
}

// The last reference is gone: what is in the group comes to the one around it.
void Dissolve(const SharedGroup& theGroup)
{
    for (const SharedWindow& theWindow : WindowsIn(*theGroup, kWindowGroupContentsReturnWindows)) {
        Join(theWindow,
             theGroup->mParent == RootGroup() ? GroupOf(theWindow->Traits().theGroup) : theGroup->mParent);
    }
    Groups().ForEach([&](const SharedGroup& theOther) {
        if (theOther->mParent == theGroup) {
            theOther->mParent = theGroup->mParent;
        }
    });
    Groups().Remove(theGroup->Reference());
}

} // namespace

WindowGroupRef WindowGroup::Reference() const
{
    return GroupTable::Numbered::Of(mIdentifier);
}

bool WindowGroup::IsIn(const WindowGroup& theGroup) const
{
    const WindowGroup* theAround = this;
    while (theAround != nullptr && theAround != &theGroup) {
        theAround = theAround->mParent.get();
    }
    return theAround != nullptr;
}

SInt32 WindowGroup::Layer() const
{
    const WindowGroup* theAround = this;
    while (theAround->mParent != nullptr && theAround->mParent->mParent != nullptr) {
        theAround = theAround->mParent.get();
    }
    return theAround->mLevel;
}

const SharedGroup& RootGroup()
{
    return TheStandardGroups().theRoot;
}

const SharedGroup& GroupOf(StandardGroup theGroup)
{
    return TheStandardGroups().theOthers[static_cast<size_t>(theGroup)];
}

void MoveGroupWith(const SharedWindow& theWindow, int theHorizontal, int theVertical)
{
    static bool sIsMoving = false;
    if (sIsMoving || !theWindow->Group()->Is(kWindowGroupAttrMoveTogether) ||
        (theHorizontal == 0 && theVertical == 0)) {
        return;
    }
    sIsMoving = true;
    Guarded([&] {
        const SharedGroup theGroup = theWindow->Group();
        for (const SharedWindow& theOther : WindowsIn(*theGroup, kWindowGroupContentsReturnWindows)) {
            if (theOther != theWindow && !theOther->IsClosing()) {
                theOther->SetContent(Moved(theOther->Content(), theHorizontal, theVertical));
            }
        }
        return OSStatus{noErr};
    });
    sIsMoving = false;
}

} // namespace Host

using namespace Host;

// Life ---------------------------------------------------------------------------------------------------

OSStatus CreateWindowGroup(WindowGroupAttributes inAttributes, WindowGroupRef* outGroup)
{
    if (outGroup == nullptr) {
        return paramErr;
    }
    *outGroup = nullptr;
    if ((inAttributes & ~kAllAttributes) != 0) {
        return paramErr;
    }
    return Guarded([&] {
        const SharedGroup theGroup = NewGroup(RootGroup());
        theGroup->mAttributes = inAttributes;
        *outGroup = theGroup->Reference();
        return OSStatus{noErr};
    });
}

OSStatus RetainWindowGroup(WindowGroupRef inGroup)
{
    return With(inGroup, [](const SharedGroup& theGroup) {
        ++theGroup->mReferences;
        return OSStatus{noErr};
    });
}

OSStatus ReleaseWindowGroup(WindowGroupRef inGroup)
{
    return With(inGroup, [](const SharedGroup& theGroup) {
        if (theGroup->mIsStandard || --theGroup->mReferences > 0) {
            return OSStatus{noErr};
        }
        return Guarded([&] {
            Dissolve(theGroup);
            return OSStatus{noErr};
        });
    });
}

ItemCount GetWindowGroupRetainCount(WindowGroupRef inGroup)
{
    const SharedGroup theGroup = Groups().Find(inGroup);
    return theGroup == nullptr ? 0 : theGroup->mReferences;
}

Boolean IsValidWindowGroup(WindowGroupRef inGroup)
{
    return Groups().Find(inGroup) != nullptr;
}

// Windows in groups --------------------------------------------------------------------------------------

WindowGroupRef GetWindowGroupOfClass(WindowClass windowClass)
{
    WindowGroupRef theResult = nullptr;
    Guarded([&] {
        const WindowTraits* theTraits = TraitsOf(windowClass);
        if (windowClass == kAllWindowClasses) {
            theResult = RootGroup()->Reference();
        } else if (theTraits != nullptr) {
            theResult = GroupOf(theTraits->theGroup)->Reference();
        }
        return OSStatus{noErr};
    });
    return theResult;
}

WindowGroupRef GetWindowGroup(WindowRef inWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    return theWindow == nullptr ? nullptr : theWindow->Group()->Reference();
}

OSStatus SetWindowGroup(WindowRef inWindow, WindowGroupRef inNewGroup)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow == nullptr) {
        return errInvalidWindowRef;
    }
    return With(inNewGroup, [&](const SharedGroup& theGroup) {
        if (theGroup == RootGroup()) {
            return OSStatus{windowGroupInvalidErr};
        }
        return Guarded([&] {
            Join(theWindow, theGroup);
            return OSStatus{noErr};
        });
    });
}

Boolean IsWindowContainedInGroup(WindowRef inWindow, WindowGroupRef inGroup)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    const SharedGroup theGroup = Groups().Find(inGroup);
    return theWindow != nullptr && theGroup != nullptr && theWindow->Group()->IsIn(*theGroup);
}

OSStatus SetWindowGroupParent(WindowGroupRef inGroup, WindowGroupRef inNewGroup)
{
    return With(inGroup, [&](const SharedGroup& theGroup) {
        return With(inNewGroup, [&](const SharedGroup& theParent) {
            if (theGroup->mIsStandard || theParent->IsIn(*theGroup) || HasWindows(*theGroup)) {
                return OSStatus{paramErr};
            }
            const SInt32 theOldLayer = theGroup->Layer();
            theGroup->mParent = theParent;
            return Guarded([&] {
                PutIntoLayers(*theGroup, theOldLayer);
                return OSStatus{noErr};
            });
        });
    });
}

WindowGroupRef GetWindowGroupParent(WindowGroupRef inGroup)
{
    const SharedGroup theGroup = Groups().Find(inGroup);
    return theGroup == nullptr || theGroup->mParent == nullptr ? nullptr : theGroup->mParent->Reference();
}

// State --------------------------------------------------------------------------------------------------

OSStatus SetWindowGroupName(WindowGroupRef inGroup, CFStringRef inName)
{
    return With(inGroup, [&](const SharedGroup& theGroup) {
        return Guarded([&] {
            theGroup->mName = TextOf(inName);
            return OSStatus{noErr};
        });
    });
}

OSStatus CopyWindowGroupName(WindowGroupRef inGroup, CFStringRef* outName)
{
    if (outName == nullptr) {
        return paramErr;
    }
    *outName = nullptr;
    return With(inGroup, [&](const SharedGroup& theGroup) {
        *outName = CreateString(theGroup->mName);
        return *outName == nullptr ? OSStatus{memFullErr} : OSStatus{noErr};
    });
}

OSStatus SetWindowGroupLevel(WindowGroupRef inGroup, SInt32 inLevel)
{
    return With(inGroup, [&](const SharedGroup& theGroup) {
        if (!HasLevel(*theGroup) || theGroup->Is(kWindowGroupAttrFixedLevel)) {
            return OSStatus{paramErr};
        }
        const SInt32 theOldLevel = theGroup->mLevel;
        theGroup->mLevel = inLevel;
        return Guarded([&] {
            PutIntoLayers(*theGroup, theOldLevel);
            return OSStatus{noErr};
        });
    });
}

OSStatus GetWindowGroupLevel(WindowGroupRef inGroup, SInt32* outLevel)
{
    if (outLevel == nullptr) {
        return paramErr;
    }
    *outLevel = 0;
    return With(inGroup, [&](const SharedGroup& theGroup) {
        *outLevel = theGroup->Layer();
        return HasLevel(*theGroup) ? OSStatus{noErr} : OSStatus{paramErr};
    });
}

OSStatus ChangeWindowGroupAttributes(WindowGroupRef inGroup, WindowGroupAttributes setTheseAttributes,
                                     WindowGroupAttributes clearTheseAttributes)
{
    return With(inGroup, [&](const SharedGroup& theGroup) {
        if (((setTheseAttributes | clearTheseAttributes) & ~kAllAttributes) != 0 ||
            (setTheseAttributes & clearTheseAttributes) != 0) {
            return OSStatus{paramErr};
        }
        theGroup->mAttributes = (theGroup->mAttributes | setTheseAttributes) & ~clearTheseAttributes;
        return OSStatus{noErr};
    });
}

OSStatus GetWindowGroupAttributes(WindowGroupRef inGroup, WindowGroupAttributes* outAttributes)
{
    if (outAttributes == nullptr) {
        return paramErr;
    }
    *outAttributes = 0;
    return With(inGroup, [&](const SharedGroup& theGroup) {
        *outAttributes = theGroup->mAttributes;
        return OSStatus{noErr};
    });
}

// Contents -----------------------------------------------------------------------------------------------

ItemCount CountWindowGroupContents(WindowGroupRef inGroup, WindowGroupContentOptions inOptions)
{
    ItemCount theCount = 0;
    With(inGroup, [&](const SharedGroup& theGroup) {
        return Guarded([&] {
            if ((inOptions & kWindowGroupContentsReturnWindows) != 0) {
                theCount = WindowsIn(*theGroup, inOptions).size();
                return OSStatus{noErr};
            }
            Groups().ForEach([&](const SharedGroup& theOther) {
                const bool theIsDeep = (inOptions & kWindowGroupContentsRecurse) != 0;
                const bool theIsIn = theIsDeep ? theOther != theGroup && theOther->IsIn(*theGroup)
                                               : theOther->mParent == theGroup;
                theCount += theIsIn ? 1 : 0;
            });
            return OSStatus{noErr};
        });
    });
    return theCount;
}

OSStatus GetIndexedWindow(WindowGroupRef inGroup, ItemCount inIndex, WindowGroupContentOptions inOptions,
                          WindowRef* outWindow)
{
    if (outWindow == nullptr) {
        return paramErr;
    }
    *outWindow = nullptr;
    return With(inGroup, [&](const SharedGroup& theGroup) {
        return Guarded([&] {
            const std::vector<SharedWindow> theWindows = WindowsIn(*theGroup, inOptions);
            if (inIndex == 0 || inIndex > theWindows.size()) {
                return OSStatus{errWindowNotFound};
            }
            *outWindow = theWindows[inIndex - 1]->Reference();
            return OSStatus{noErr};
        });
    });
}

// Activation ---------------------------------------------------------------------------------------------

OSStatus SetWindowActivationScope(WindowRef inWindow, WindowActivationScope inScope)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow == nullptr) {
        return errInvalidWindowRef;
    }
    if (inScope > kWindowActivationScopeAll) {
        return paramErr;
    }
    if (inScope != theWindow->Scope()) {
        theWindow->SetScope(inScope);
        theWindow->SetActive(false);
        ActivateAfterReordering();
        if (!theWindow->IsClosing()) {
            ActivateAfterShowing(theWindow);
        }
    }
    return noErr;
}

OSStatus GetWindowActivationScope(WindowRef inWindow, WindowActivationScope* outScope)
{
    if (outScope == nullptr) {
        return paramErr;
    }
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    *outScope = theWindow == nullptr ? WindowActivationScope{kWindowActivationScopeNone} : theWindow->Scope();
    return theWindow == nullptr ? OSStatus{errInvalidWindowRef} : OSStatus{noErr};
}
