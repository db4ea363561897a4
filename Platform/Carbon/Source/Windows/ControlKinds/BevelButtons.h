// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_BevelButtons_h
#define ControlKinds_BevelButtons_h

#include "Images.h"
#include "PopUps.h"

namespace Host {

// What a bevel button does when it is pressed.
struct BevelStyle
{
    ControlBevelButtonBehavior theBehavior = kControlBehaviorPushbutton;
    ControlBevelButtonMenuBehavior theMenuBehavior = kControlBehaviorSingleValueMenu;
};

// A button with a title, a picture, a value and a menu, as far as it was given them.
class BevelButton : public Button
{
public:
    BevelButton(const BevelStyle& theStyle, MenuRef theMenu);

    SharedMenu ShownMenu() const { return mMenu.Shown(); }
    OSErr SetMenu(MenuRef theMenu, bool theIsOwned);
    void SetMenuValue(SInt16 theItem);

    ControlPartCode PartAt(Point thePoint) const override;
    std::optional<ControlPartCode> TrackInLoop(ControlPartCode thePart, UInt32 theModifiers) override;
    bool ToggledValue(ControlPartCode thePart, SInt32* theValue) const override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    HeldContent mContent;
    SInt16 mMenuValue = 0;
    SInt16 mLastMenu = 0;
    ControlButtonTextPlacement mTextPlace = kControlBevelButtonPlaceNormally;

    // Kept for the application.
    SInt16 mTransform = 0;
    ControlButtonTextAlignment mTextAlignment = kControlBevelButtonAlignTextSysDirection;
    SInt16 mTextOffset = 0;
    ControlButtonGraphicAlignment mGraphicAlignment = kControlBevelButtonAlignSysDirection;
    Point mGraphicOffset = {0, 0};
    bool mCentersGlyph = false;
    SInt32 mMenuDelay = 0;
    bool mScalesIcon = false;
    UInt16 mThemeKind = 0;

private:
    bool IsToggle() const;
    void TakeChoice(const PopUpChoice& theChoice, UInt32 theModifiers);

    BevelStyle mBevelStyle;
    HeldMenu mMenu;
};

// As large as its size says, whatever its bounds.
class RoundButton : public Button
{
public:
    explicit RoundButton(ControlRoundButtonSize theSize);
    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    HeldContent mContent;

private:
    Rect Circle() const;
};

} // namespace Host

#endif
