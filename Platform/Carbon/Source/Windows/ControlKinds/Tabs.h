// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Tabs_h
#define ControlKinds_Tabs_h

#include "Windows/Control.h"

namespace Host {

struct Tab
{
    Text theName;
    bool theIsEnabled = true;
};

// Tabs along one edge of a box. The value is the number of the one in front; its panes are the program's to
// show and hide.
class Tabs : public Control
{
public:
    Tabs(ControlTabSize theSize, ControlTabDirection theDirection, std::vector<Tab> theTabs);

    // Null where there is no tab of that number.
    const Tab* TabAt(ControlPartCode theNumber) const;
    OSErr SetName(ControlPartCode theNumber, const Text& theName);
    OSErr SetTabEnabled(ControlPartCode theNumber, bool theIsEnabled);

    // What is left of the bounds beside the tabs.
    Rect ContentBounds() const;

    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    bool ToggledValue(ControlPartCode thePart, SInt32* theValue) const override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    void RangeChanged() override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

private:
    bool AreBeside() const; // in a column, not in a row
    bool AreAtEnd() const;  // below or to the right
    int Thickness() const;
    int LengthOf(size_t theIndex) const;
    Rect PlaceOfTab(size_t theIndex) const;
    Rect Strip() const;

    ControlTabSize mTabSize;
    ControlTabDirection mDirection;
    std::vector<Tab> mTabs;
};

} // namespace Host

#endif
