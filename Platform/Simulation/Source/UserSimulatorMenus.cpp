// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// How the simulated person works menus.

#include <Simulation/UserSimulator.h>

#include "Glance.h"
#include "HeadlessDrawing.h"
#include "Windows/Controls.h"

namespace Host {

namespace {

std::string Name(const MenuLook& theMenu)
{
    return "the menu " + Quoted(theMenu.theTitle);
}

// The menus of the bar and, level by level, what their shown items hold.
class MenuTree
{
public:
    explicit MenuTree(const MenuBarLook& theBar)
    {
        for (const MenuLook& theMenu : theBar.theMenus) {
            mBranches.push_back({&theMenu, kNoBranch});
        }
        for (size_t theNext = 0; theNext < mBranches.size(); ++theNext) {
            AddHeldBy(theNext);
        }
    }

    // The identifiers of the menus that lead to the first one that is meant, the last being that one. Empty
    // when there is none.
    template <class Condition>
    std::vector<ObjectId> WayTo(const Condition& theIsMeant) const
    {
        for (size_t theIndex = 0; theIndex < mBranches.size(); ++theIndex) {
            if (theIsMeant(*mBranches[theIndex].theMenu)) {
                return WayToBranch(theIndex);
            }
        }
        return {};
    }

    // Null when it is nowhere in the tree.
    const MenuLook* Find(ObjectId theId) const
    {
        for (const Branch& theBranch : mBranches) {
            if (theBranch.theMenu->theId == theId) {
                return theBranch.theMenu;
            }
        }
        return nullptr;
    }

private:
    static constexpr size_t kNoBranch = static_cast<size_t>(-1);

    struct Branch
    {
        const MenuLook* theMenu;
        size_t theHolder; // index of the menu that holds it
    };

    void AddHeldBy(size_t theHolder)
    {
        for (const MenuItemLook& theItem : mBranches[theHolder].theMenu->theItems) {
            if (!theItem.theIsHidden && !theItem.theSubmenu.empty()) {
                mBranches.push_back({&theItem.theSubmenu.front(), theHolder});
            }
        }
    }

    std::vector<ObjectId> WayToBranch(size_t theIndex) const
    {
        std::vector<ObjectId> theWay;
        for (; theIndex != kNoBranch; theIndex = mBranches[theIndex].theHolder) {
            theWay.insert(theWay.begin(), mBranches[theIndex].theMenu->theId);
        }
        return theWay;
    }

    std::vector<Branch> mBranches;
};

// The menus as they are now, which opening one of them may change.
class MenusNow : public Glance
{
public:
    const MenuTree& Tree() const { return mTree; }

private:
    MenuTree mTree = MenuTree(MenuBar());
};

using Way = std::vector<ObjectId>;

Way FindWayTo(const std::string& theTitle)
{
    return MenusNow().Tree().WayTo([&](const MenuLook& theMenu) { return theMenu.theTitle == theTitle; });
}

// The 1-based place of the first shown item that is meant, else 0.
template <class Condition>
int PlaceIn(const MenuLook& theMenu, const Condition& theIsMeant)
{
    int theIndex = 0;
    for (const MenuItemLook& theItem : theMenu.theItems) {
        ++theIndex;
        if (!theItem.theIsHidden && !theItem.theIsSeparator && theIsMeant(theItem)) {
            return theIndex;
        }
    }
    return 0;
}

// Whether the item of theHolder that holds a menu is enabled.
bool IsOpenedBy(const MenuLook& theHolder, ObjectId theMenu)
{
    const int thePlace = PlaceIn(theHolder, [theMenu](const MenuItemLook& theItem) {
        return theItem.theIsEnabled && !theItem.theSubmenu.empty() &&
               theItem.theSubmenu.front().theId == theMenu;
    });
    return thePlace != 0;
}

bool CloseOpenMenus()
{
    const MenusNow theMenus;
    bool theWasOpen = false;
    for (const MenuLook& theMenu : theMenus.MenuBar().theMenus) {
        theWasOpen |= PresenterRegistry::Events().MenuClosed(theMenu.theId);
    }
    return theWasOpen;
}

// Opens one menu, out of theHolder unless it is null. The reason why not, else empty.
std::string OpenOutOf(const MenuLook* theHolder, const MenuLook& theMenu)
{
    const bool theIsEnabled =
        theMenu.theIsEnabled && (theHolder == nullptr || IsOpenedBy(*theHolder, theMenu.theId));
    if (!theIsEnabled) {
        return Name(theMenu) + " is disabled";
    }
    return PresenterRegistry::Events().MenuOpened(theMenu.theId) ? "" : Name(theMenu) + " does not open";
}

// Opens the menus of a way one after the other, looking anew before each. The reason why not, else empty.
std::string OpenAlong(const Way& theWay)
{
    ObjectId theHolder = kNoObject;
    for (const ObjectId theId : theWay) {
        const MenusNow theMenus;
        const MenuLook* theMenu = theMenus.Tree().Find(theId);
        std::string theReason =
            theMenu == nullptr ? "the menu is gone" : OpenOutOf(theMenus.Tree().Find(theHolder), *theMenu);
        if (!theReason.empty()) {
            CloseOpenMenus();
            return theReason;
        }
        theHolder = theId;
    }
    return "";
}

// Chooses an item of an open menu. What keeps it from being chosen, else empty.
template <class Condition>
std::string Choose(ObjectId theId, UInt32 theModifiers, const Condition& theIsMeant)
{
    const MenusNow theMenus;
    const MenuLook* theMenu = theMenus.Tree().Find(theId);
    const int thePlace = theMenu == nullptr ? 0 : PlaceIn(*theMenu, theIsMeant);
    if (thePlace == 0) {
        return "is gone from the open menu";
    }
    return PresenterRegistry::Events().MenuChosen({theId, thePlace}, theModifiers) ? "" : "is disabled";
}

// Opens the menus of the way and chooses the item that is meant from the last one.
template <class Condition>
UserResult ChooseAlong(const Way& theWay, const std::string& theName, UInt32 theModifiers,
                       const Condition& theIsMeant)
{
    CloseOpenMenus();
    std::string theReason = OpenAlong(theWay);
    if (!theReason.empty()) {
        return Refuse(theReason);
    }
    theReason = Choose(theWay.back(), theModifiers, theIsMeant);
    if (!theReason.empty()) {
        CloseOpenMenus();
        return Refuse(theName + " " + theReason);
    }
    return UserResult::Done();
}

} // namespace

UserResult UserSimulator::OpenMenu(const std::string& theTitle)
{
    const Way theWay = FindWayTo(theTitle);
    if (theWay.empty()) {
        return Refuse("there is no menu " + Quoted(theTitle));
    }
    CloseOpenMenus();
    const std::string theReason = OpenAlong(theWay);
    return theReason.empty() ? UserResult::Done() : Refuse(theReason);
}

UserResult UserSimulator::CloseMenus()
{
    return CloseOpenMenus() ? UserResult::Done() : Refuse("no menu is open");
}

UserResult UserSimulator::ChooseCommand(UInt32 theCommand, UInt32 theModifiers)
{
    const auto theIsMeant = [theCommand](const MenuItemLook& theItem) {
        return theItem.theCommand == theCommand;
    };
    const Way theWay =
        MenusNow().Tree().WayTo([&](const MenuLook& theMenu) { return PlaceIn(theMenu, theIsMeant) != 0; });
    const std::string theName = "the command " + QuotedCode(theCommand);
    return theWay.empty() ? Refuse("no menu has " + theName)
                          : ChooseAlong(theWay, theName, theModifiers, theIsMeant);
}

UserResult UserSimulator::ChooseItem(const std::string& theMenu, const std::string& theText,
                                     UInt32 theModifiers)
{
    const auto theIsMeant = [&theText](const MenuItemLook& theItem) { return theItem.theText == theText; };
    const Way theWay = FindWayTo(theMenu);
    if (theWay.empty()) {
        return Refuse("there is no menu " + Quoted(theMenu));
    }
    if (PlaceIn(*MenusNow().Tree().Find(theWay.back()), theIsMeant) == 0) {
        return Refuse("the menu " + Quoted(theMenu) + " has no item " + Quoted(theText));
    }
    return ChooseAlong(theWay, "the item " + Quoted(theText), theModifiers, theIsMeant);
}

UserResult UserSimulator::ChooseInPopUp(const ControlAddress& theAddress, const std::string& theText,
                                        UInt32 theModifiers)
{
    std::string theReason = "no menu pops up";
    const auto theIsMeant = [&theText](const MenuItemLook& theItem) { return theItem.theText == theText; };
    const auto theChoose = [&](const PopUpLook& theLook) {
        const int thePlace = PlaceIn(theLook.theMenu, theIsMeant);
        const bool theIsEnabled = thePlace != 0 && theLook.theMenu.theIsEnabled &&
                                  theLook.theMenu.theItems[static_cast<size_t>(thePlace) - 1].theIsEnabled;
        theReason = theIsEnabled ? ""
                                 : "the item " + Quoted(theText) +
                                       (thePlace == 0 ? " is not in the menu" : " is disabled");
        return theIsEnabled ? MenuChoice{theLook.theMenu.theId, thePlace} : MenuChoice();
    };
    const SharedControl theControl = FindControl(theAddress.Find());
    Point thePoint = {0, 0};
    const auto theHas = [&](ControlPartCode theOne) {
        return theControl != nullptr && PointOfPart(theControl, theOne, &thePoint);
    };
    const auto thePart =
        static_cast<ControlPartCode>(theHas(kControlMenuPart)            ? +kControlMenuPart
                                     : theHas(kHIComboBoxDisclosurePart) ? +kHIComboBoxDisclosurePart
                                                                         : +kControlEntireControl);
    UserResult theResult = PressAt(theAddress, thePart, theModifiers, theChoose);
    return theResult && !theReason.empty() ? Refuse(theReason) : theResult;
}

std::string UserSimulator::DescribeMenu(const std::string& theTitle) const
{
    const Way theWay = FindWayTo(theTitle);
    return theWay.empty() ? "" : HeadlessSnapshot::DescribeMenu(*MenusNow().Tree().Find(theWay.back()));
}

} // namespace Host
