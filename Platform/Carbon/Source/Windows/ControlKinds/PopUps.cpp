// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "PopUps.h"

#include "Base/Geometry.h"
#include "Common/NeverDestroyed.h"
#include "Creation.h"
#include "Events/EventLoop.h"
#include "Texts.h"
#include "Windows/ControlTracking.h"
#include "Windows/Window.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>
#include <set>

namespace Host {

namespace {

const MenuID kMenuComesLater = -12345;

// Between a title and the button, and around the text in a button.
const int kTitleGap = 8;
const int kButtonEdges = 40;

// All there are. What they show is the menus', which do not know them.
std::set<const PopUpButton*>& PopUpButtons()
{
    static NeverDestroyed<std::set<const PopUpButton*>> sButtons;
    return sButtons.Get();
}

// Shows the buttons anew when the text of an item may be another.
bool ShowButtonsOfChangedMenus()
{
    static std::uint32_t sShownChanges = 0;
    if (sShownChanges == CountMenuChanges() || PopUpButtons().empty()) {
        return false;
    }
    sShownChanges = CountMenuChanges();
    for (const PopUpButton* theButton : PopUpButtons()) {
        theButton->Show();
    }
    return true;
}

void FollowMenus()
{
    static bool sIsFollowing = false;
    if (!sIsFollowing) {
        AddLoopChore(ShowButtonsOfChangedMenus);
        sIsFollowing = true;
    }
}

int WidthOfText(const std::string& theText)
{
    return PresenterRegistry::Current().MeasureText(theText, TextStyle::kBody).theWidth;
}

bool IsChoice(const SharedMenu& theMenu, MenuItemIndex theItem)
{
    return IsChoosable(theMenu, theItem) && !theMenu->Item(theItem)->Is(kMenuItemAttrHidden);
}

// The next item from theItem on that can be chosen, 0 when there is none.
MenuItemIndex NextChoice(const SharedMenu& theMenu, SInt32 theItem, int theStep)
{
    for (theItem += theStep; theItem >= 1 && theItem <= theMenu->Count(); theItem += theStep) {
        if (IsChoice(theMenu, static_cast<MenuItemIndex>(theItem))) {
            return static_cast<MenuItemIndex>(theItem);
        }
    }
    return 0;
}

} // namespace

OSErr HeldMenu::Set(MenuRef theMenu, bool theIsOwned)
{
    if (theMenu != nullptr && FindMenu(theMenu) == nullptr) {
        return paramErr;
    }
    const MenuHolder theOld = std::exchange(mOwned, MenuHolder(theIsOwned ? theMenu : nullptr));
    if (theIsOwned) {
        ReleaseMenu(theMenu); // the caller's count, which is the holder's now
    }
    mMenu = theMenu;
    mCheckedItem = 0;
    return noErr;
}

void HeldMenu::Check(SInt32 theItem)
{
    const SharedMenu theMenu = Shown();
    if (theMenu == nullptr) {
        return;
    }
    MenuItem* const theOld = theMenu->Item(mCheckedItem);
    if (theOld != nullptr && theOld->theMark == checkMark) {
        theOld->theMark = noMark;
    }
    mCheckedItem = static_cast<MenuItemIndex>(std::clamp<SInt32>(theItem, 0, kLargestMenu));
    MenuItem* const theNew = theMenu->Item(mCheckedItem);
    if (theNew != nullptr && theNew->theMark == noMark) {
        theNew->theMark = checkMark;
    }
    MenusHaveChanged();
}

bool FindMenuForCreation(MenuID theNumber, MenuRef* theMenu)
{
    *theMenu = theNumber == kMenuComesLater ? nullptr : GetMenuHandle(theNumber);
    return *theMenu != nullptr || theNumber == kMenuComesLater;
}

ControlRange RangeOfMenu(const SharedMenu& theMenu, SInt32 theValue)
{
    return theMenu == nullptr ? ControlRange() : ControlRange{theValue, 1, SInt32{theMenu->Count()}, 0};
}

PopUpButton::PopUpButton(MenuRef theMenu, const PopUpStyle& theStyle)
    : Button(kControlKindPopupButton, kControlSupportsFocus | kControlSupportsDataAccess, kControlMenuPart),
      mStyleOfTitle(theStyle),
      mMenu(theMenu)
{
    FollowMenus();
    PopUpButtons().insert(this);
}

PopUpButton::~PopUpButton()
{
    PopUpButtons().erase(this);
}

OSErr PopUpButton::SetMenu(MenuRef theMenu, bool theIsOwned)
{
    const SharedControl theKeepAlive = shared_from_this();
    const OSErr theStatus = mMenu.Set(theMenu, theIsOwned);
    if (theStatus == noErr) {
        SetRange(RangeOfMenu(ShownMenu(), Range().theValue));
    }
    return theStatus;
}

// Looks --------------------------------------------------------------------------------------------------

int PopUpButton::TitleWidth() const
{
    const int theWidth = mStyleOfTitle.theTitleWidth;
    if (theWidth >= 0) {
        return std::min(theWidth, WidthOf(Bounds()));
    }
    return Title().empty() ? 0 : std::min(WidthOfText(Utf8Of(Title())) + kTitleGap, WidthOf(Bounds()));
}

std::string PopUpButton::CurrentText() const
{
    const SharedMenu theMenu = ShownMenu();
    const SInt32 theValue = Range().theValue;
    const MenuItem* theItem = theMenu == nullptr || theValue < 1 || theValue > kLargestMenu
                                  ? nullptr
                                  : theMenu->Item(static_cast<MenuItemIndex>(theValue));
    return theItem == nullptr ? std::string() : Utf8Of(TextOf(theItem->theText.Get()));
}

Rect PopUpButton::ShownBounds() const
{
    Rect theBounds = WindowBounds();
    if (mStyleOfTitle.theIsFitted) {
        const int theWidth = TitleWidth() + WidthOfText(CurrentText()) + kButtonEdges;
        theBounds.right = std::min(theBounds.right, Narrow(theBounds.left + theWidth));
    }
    return theBounds;
}

ControlPartCode PopUpButton::PartAt(Point thePoint) const
{
    return Contains(ShownBounds(), thePoint) ? ControlPartCode{kControlMenuPart}
                                             : ControlPartCode{kControlNoPart};
}

Rect PopUpButton::PlaceOf(ControlPartCode thePart) const
{
    return thePart == kControlMenuPart ? ShownBounds() : MakeRect(0, 0, 0, 0);
}

void PopUpButton::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kPopUpButton;
    theLook.theText = CurrentText();
    theLook.theBounds = PixelsOf(ShownBounds());
    theLook.theTitleWidth = TitleWidth();
    theLook.theAlignment = AlignmentOf(mStyleOfTitle.theJustification);
}

// Choosing -----------------------------------------------------------------------------------------------

// The value is the chosen item when the item's command arrives. Items can have come since the range was set.
void PopUpButton::TakeChoice(const PopUpChoice& theChoice, UInt32 theModifiers)
{
    if (!IsGone() && theChoice.theMenu == ShownMenu()) {
        ControlRange theRange = Range();
        theRange.theValue = theChoice.theItem;
        theRange.theMaximum = std::max(theRange.theMaximum, theRange.theValue);
        SetRange(theRange);
    }
    if (theChoice.theMenu->Item(theChoice.theItem) != nullptr) {
        SendMenuCommand(theChoice.theMenu, theChoice.theItem, theChoice.theContext, &theModifiers);
    }
}

std::optional<ControlPartCode> PopUpButton::TrackInLoop(ControlPartCode, UInt32 theModifiers)
{
    const SharedControl theKeepAlive = shared_from_this();
    const SharedMenu theMenu = ShownMenu();
    const SharedWindow theWindow = Owner();
    if (theMenu == nullptr || theWindow == nullptr) {
        return kControlNoPart;
    }
    if (mChecksCurrent) {
        mMenu.Check(Range().theValue);
    }
    const Rect thePlace = ShownBounds();
    const Rect& theContent = theWindow->Content();
    const auto theCurrent = static_cast<MenuItemIndex>(std::clamp<SInt32>(Range().theValue, 0, kLargestMenu));
    const PopUpChoice theChoice = TrackPopUp(
        theMenu, MakePoint(theContent.left + thePlace.left + TitleWidth(), theContent.top + thePlace.top),
        theCurrent);
    if (!theChoice) {
        return kControlNoPart;
    }
    TakeChoice(theChoice, theModifiers);
    return kControlMenuPart;
}

// The arrows choose the item before or after without the menu, the space bar opens it.
OSStatus PopUpButton::PressKey(const KeyPress& theKey)
{
    const bool theIsUp = theKey.theCode == kVK_UpArrow;
    if ((!theIsUp && theKey.theCode != kVK_DownArrow) || !CanBePressed()) {
        return Button::PressKey(theKey);
    }
    const SharedControl theKeepAlive = shared_from_this();
    const SharedMenu theMenu = ShownMenu();
    const MenuItemIndex theItem =
        theMenu == nullptr ? MenuItemIndex(0) : NextChoice(theMenu, Range().theValue, theIsUp ? -1 : 1);
    if (theItem != 0) {
        TakeChoice({theMenu, theItem, kMenuContextPopUp}, theKey.theModifiers);
        if (!IsGone()) {
            Hit(theKeepAlive, kControlMenuPart, theKey.theModifiers, 1);
        }
    }
    return noErr;
}

// Data ---------------------------------------------------------------------------------------------------

namespace {

ControlDataTag MenuIDTag()
{
    ControlDataTag theEntry = {kControlPopupButtonMenuIDTag, sizeof(MenuID), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        const SharedMenu theMenu = static_cast<const PopUpButton&>(theControl).ShownMenu();
        Put(theBuffer, theMenu == nullptr ? MenuID{0} : theMenu->mID);
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        const MenuRef theMenu = GetMenuHandle(Take<MenuID>(theData));
        return theMenu == nullptr ? OSErr{paramErr}
                                  : static_cast<PopUpButton&>(theControl).SetMenu(theMenu, false);
    };
    return theEntry;
}

} // namespace

const ControlDataTag* PopUpButton::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        MenuTag<PopUpButton, false>(kControlPopupButtonMenuRefTag),
        MenuTag<PopUpButton, true>(kControlPopupButtonOwnedMenuRefTag),
        MenuIDTag(),
        NumberTag<PopUpButton, SInt16, &PopUpButton::mExtraHeight>(kControlPopupButtonExtraHeightTag),
        FlagTag<PopUpButton, &PopUpButton::mChecksCurrent>(kControlPopupButtonCheckCurrentTag),
    };
    return FindIn(kTags, theTag, Button::FindTag(theTag));
}

// Arrows -------------------------------------------------------------------------------------------------

namespace {

// In the order of the orientations.
const ArrowDirection kArrowDirections[] = {ArrowDirection::kRight, ArrowDirection::kLeft, ArrowDirection::kUp,
                                           ArrowDirection::kDown};

class PopUpArrow : public Control
{
public:
    explicit PopUpArrow(ArrowDirection theDirection)
        : Control(kControlKindPopupArrow, 0),
          mDirection(theDirection)
    {
    }

    void AddToLook(ControlLook& theLook) const override
    {
        theLook.theShape = ControlShape::kArrow;
        const auto theRareLook = std::make_shared<RareLook>();
        theRareLook->theArrow = mDirection;
        theLook.theRareLook = theRareLook;
    }

private:
    ArrowDirection mDirection;
};

} // namespace

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

OSStatus CreatePopupButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title, MenuID menuID,
                                  Boolean variableWidth, SInt16 titleWidth, SInt16 titleJustification, Style,
                                  ControlRef* outControl)
{
    MenuRef theMenu = nullptr;
    if (!Host::FindMenuForCreation(menuID, &theMenu)) {
        return Host::Refuse(outControl);
    }
    const Host::PopUpStyle theStyle = {variableWidth != 0, titleWidth, titleJustification};
    Host::CreationRequest theRequest = {window, boundsRect, title, outControl, true};
    theRequest.theRange = Host::RangeOfMenu(Host::FindMenu(theMenu), 1);
    return Host::Create<Host::PopUpButton>(theRequest, theMenu, theStyle);
}

MenuRef GetControlPopupMenuHandle(ControlRef control)
{
    MenuRef theMenu = nullptr;
    const OSErr theStatus = GetControlData(control, kControlEntireControl, kControlPopupButtonMenuRefTag,
                                           sizeof theMenu, &theMenu, nullptr);
    return theStatus == noErr ? theMenu : nullptr;
}

void SetControlPopupMenuHandle(ControlRef control, MenuRef popupMenu)
{
    SetControlData(control, kControlEntireControl, kControlPopupButtonMenuRefTag, sizeof popupMenu,
                   &popupMenu);
}

OSStatus CreatePopupArrowControl(WindowRef window, const Rect* boundsRect,
                                 ControlPopupArrowOrientation orientation, ControlPopupArrowSize size,
                                 ControlRef* outControl)
{
    if (orientation > kControlPopupArrowOrientationSouth || size > kControlPopupArrowSizeSmall) {
        return Host::Refuse(outControl);
    }
    return Host::Create<Host::PopUpArrow>({window, boundsRect, nullptr, outControl, true},
                                          Host::kArrowDirections[orientation]);
}
