// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_ComboBoxes_h
#define ControlKinds_ComboBoxes_h

#include "Texts.h"

#include <vector>

namespace Host {

// An edit text with a list to choose its text from.
class ComboBox : public EditText
{
public:
    ComboBox(Text theText, OptionBits theAttributes);

    const std::vector<Text>& Items() const { return mItems; }

    // At a place from 0, or where it belongs when the list is sorted; gives the place.
    size_t Insert(const Text& theItem, size_t thePlace);
    void Remove(size_t thePlace);
    void SetItems(std::vector<Text> theItems);

    OptionBits Attributes() const { return mAttributes; }
    void SetAttributes(OptionBits theAttributes);
    bool IsListVisible() const { return mIsListVisible; }

    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    std::optional<ControlPartCode> TrackInLoop(ControlPartCode thePart, UInt32 theModifiers) override;
    OSStatus PressKey(const KeyPress& theKey) override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    // Kept for the application.
    UInt32 mListWidth = 0;
    UInt32 mListHeight = 0;
    UInt32 mVisibleItems = 0;

private:
    bool Is(OptionBits theAttribute) const { return (mAttributes & theAttribute) != 0; }
    size_t Current() const; // the place of the text in the list, the number of items when it is not there
    void Choose(size_t thePlace);
    void Complete();
    OSStatus Step(bool theIsBack);

    std::vector<Text> mItems;
    OptionBits mAttributes;
    bool mIsListVisible = false;
};

} // namespace Host

#endif
