// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_PopUps_h
#define ControlKinds_PopUps_h

#include "Buttons.h"
#include "Menus/Menu.h"

namespace Host {

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
    SharedMenu ShownMenu() const { return FindMenu(mMenu); }

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
    void CheckCurrent(Menu& theMenu);
    void TakeChoice(const PopUpChoice& theChoice, UInt32 theModifiers);

    PopUpStyle mStyleOfTitle;
    MenuRef mMenu = nullptr;
    MenuHolder mOwnedMenu;
    MenuItemIndex mCheckedItem = 0;
};

// The range of a control that chooses from a menu.
ControlRange RangeOfMenu(const SharedMenu& theMenu, SInt32 theValue);

} // namespace Host

#endif
