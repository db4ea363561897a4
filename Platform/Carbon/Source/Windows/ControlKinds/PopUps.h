// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_PopUps_h
#define ControlKinds_PopUps_h

#include "Buttons.h"
#include "DataTags.h"
#include "Menus/Menu.h"

namespace Host {

// The menu of a control. It may be gone without the control's doing.
class HeldMenu
{
public:
    explicit HeldMenu(MenuRef theMenu = nullptr)
        : mMenu(theMenu)
    {
    }

    // Null when there is none, or the one that there was is gone.
    SharedMenu Shown() const { return FindMenu(mMenu); }

    // One that is owned comes with the caller's count, and is released when another one comes. paramErr for
    // what is no menu; null takes the menu away. Handlers are not called.
    OSErr Set(MenuRef theMenu, bool theIsOwned);

    // Moves the check mark from the item that had it, if it still has, to another one; a mark of the
    // program's own stays.
    void Check(SInt32 theItem);

private:
    MenuRef mMenu;
    MenuHolder mOwned;
    MenuItemIndex mCheckedItem = 0;
};

// The menu that a creation call asks for by its number: none for -12345, which is said to come later. False
// when there is no such menu in the menu list.
bool FindMenuForCreation(MenuID theNumber, MenuRef* theMenu);

// How a pop-up button shows its title, and whether it is as wide as what is chosen.
struct PopUpStyle
{
    bool theIsFitted = false;
    SInt16 theTitleWidth = 0; // negative: as wide as the title needs
    SInt16 theJustification = teFlushDefault;
};

// A button with a menu. Its value is the number of an item, whose text it shows.
class PopUpButton : public Button
{
public:
    // theMenu may be null.
    PopUpButton(MenuRef theMenu, const PopUpStyle& theStyle);
    ~PopUpButton() override;
    PopUpButton(const PopUpButton&) = delete;
    PopUpButton& operator=(const PopUpButton&) = delete;

    // Null when it has none, or the one that it had is gone.
    SharedMenu ShownMenu() const { return mMenu.Shown(); }

    // A menu that is owned is released when the button goes or gets another one. The range becomes that of
    // the items. paramErr for what is no menu; null takes the menu away.
    OSErr SetMenu(MenuRef theMenu, bool theIsOwned);

    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    std::optional<ControlPartCode> TrackInLoop(ControlPartCode thePart, UInt32 theModifiers) override;
    OSStatus PressKey(const KeyPress& theKey) override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    bool mChecksCurrent = true;
    SInt16 mExtraHeight = 0;

private:
    int TitleWidth() const;
    Rect ShownBounds() const;
    std::string CurrentText() const;
    void TakeChoice(const PopUpChoice& theChoice, UInt32 theModifiers);

    PopUpStyle mStyleOfTitle;
    HeldMenu mMenu;
};

// The tag under which a control has its menu, or, when it is owned, gives it away. Kind has ShownMenu and
// SetMenu.
template <class Kind, bool kIsOwned>
ControlDataTag MenuTag(ResType theTag)
{
    ControlDataTag theEntry = {theTag, sizeof(MenuRef), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        const SharedMenu theMenu = static_cast<const Kind&>(theControl).ShownMenu();
        Put(theBuffer, theMenu == nullptr ? MenuRef{} : theMenu->Reference());
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        return static_cast<Kind&>(theControl).SetMenu(Take<MenuRef>(theData), kIsOwned);
    };
    return theEntry;
}

// The range of a control that chooses from a menu.
ControlRange RangeOfMenu(const SharedMenu& theMenu, SInt32 theValue);

} // namespace Host

#endif
