// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_SearchFields_h
#define ControlKinds_SearchFields_h

#include "PopUps.h"
#include "Texts.h"

#include <optional>

namespace Host {

// An edit text for what to look for.
class SearchField : public EditText
{
public:
    SearchField(OptionBits theAttributes, MenuRef theMenu, std::optional<Text> theDescription);

    SharedMenu ShownMenu() const { return mMenu.Shown(); }
    OSErr SetMenu(MenuRef theMenu);

    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    std::optional<ControlPartCode> TrackInLoop(ControlPartCode thePart, UInt32 theModifiers) override;
    void PartClicked(ControlPartCode thePart) override;
    OSStatus PressKey(const KeyPress& theKey) override;
    void AddToLook(ControlLook& theLook) const override;

    OptionBits mAttributes;
    std::optional<Text> mDescription; // nothing when there is none, or null was given for it

private:
    bool HasGlass() const;
    bool HasCancelButton() const;

    HeldMenu mMenu;
};

} // namespace Host

#endif
