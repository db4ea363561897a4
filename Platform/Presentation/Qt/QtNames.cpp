// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtNames.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace Host {

namespace {

// How far above a control its label ends, in pixels. Farther up it belongs to something else.
constexpr int kGapAbove = 16;

// Edges that are drawn side by side may overlap by that much.
constexpr int kOverlap = 4;

bool EndsWithColon(const std::string& theText)
{
    return !theText.empty() && theText.back() == ':';
}

// A number beside a control shows its value. Letters of other scripts begin with a byte that is none of
// ASCII.
bool HasLetter(const std::string& theText)
{
    return std::any_of(theText.begin(), theText.end(), [](char theByte) {
        const auto theCharacter = static_cast<unsigned char>(theByte);
        return theCharacter >= 0x80u || std::isalpha(theCharacter) != 0;
    });
}

bool CanBeLabel(const ControlLook& theControl)
{
    return theControl.theShape == ControlShape::kStaticText && theControl.theIsVisible &&
           HasLetter(theControl.theText);
}

// Whether the middle of a label is level with the control, or the other way round.
bool IsLevel(const PixelRect& theLabel, const PixelRect& theControl)
{
    const int theMiddle = CentreOf(theLabel).theY;
    const int theOther = CentreOf(theControl).theY;
    return (theMiddle >= theControl.theTop && theMiddle < theControl.theBottom) ||
           (theOther >= theLabel.theTop && theOther < theLabel.theBottom);
}

bool IsAbove(const PixelRect& theLabel, const PixelRect& theControl)
{
    const std::int64_t theGap = std::int64_t{theControl.theTop} - theLabel.theBottom;
    return theGap >= -kOverlap && theGap <= kGapAbove && theLabel.theLeft < theControl.theRight &&
           theLabel.theRight > theControl.theLeft;
}

// A screen reader says where the name ends.
std::string WithoutColon(std::string theText)
{
    while (EndsWithColon(theText) || (!theText.empty() && theText.back() == ' ')) {
        theText.pop_back();
    }
    return theText;
}

bool NeedsLabel(ControlShape theShape)
{
    switch (theShape) {
    case ControlShape::kSlider:
    case ControlShape::kScrollBar:
    case ControlShape::kProgressBar:
    case ControlShape::kLittleArrows:
    case ControlShape::kEditText:
    case ControlShape::kComboBox:
    case ControlShape::kSearchField:
    case ControlShape::kClock:
    case ControlShape::kPopUpButton:
    case ControlShape::kRelevanceBar:
    case ControlShape::kChasingArrows:
    case ControlShape::kDisclosureButton:
        return true;
    default:
        return false;
    }
}

bool IsAround(const PixelRect& theOuter, const PixelRect& theInner)
{
    return theOuter.theLeft <= theInner.theLeft && theOuter.theTop <= theInner.theTop &&
           theOuter.theRight >= theInner.theRight && theOuter.theBottom >= theInner.theBottom;
}

} // namespace

void SpokenNames::Add(const ControlLook& theControl)
{
    if (CanBeLabel(theControl)) {
        mLabels.push_back(&theControl);
    }
    if (theControl.theTakesFocus && theControl.theIsVisible) {
        mOwners.push_back(&theControl);
    }
    if (theControl.theShape == ControlShape::kGroupBox && theControl.theIsVisible) {
        mGroups.push_back(&theControl);
    }
}

// Whether a control that could have the label for itself stands between the two.
bool SpokenNames::IsTaken(const PixelRect& theLabel, const ControlLook& theControl) const
{
    return std::any_of(mOwners.begin(), mOwners.end(), [&](const ControlLook* theOther) {
        const PixelRect& theBounds = theOther->theBounds;
        return theOther != &theControl && IsLevel(theLabel, theBounds) &&
               theBounds.theLeft >= theLabel.theLeft &&
               theBounds.theRight <= theControl.theBounds.theLeft + kOverlap;
    });
}

// The nearest to the left; one that ends with a colon says that it is a label.
const ControlLook* SpokenNames::LabelBeside(const ControlLook& theControl) const
{
    const ControlLook* theNearest = nullptr;
    for (const ControlLook* theLabel : mLabels) {
        const PixelRect& theBounds = theLabel->theBounds;
        const bool theStandsBeside =
            std::int64_t{theBounds.theRight} <= std::int64_t{theControl.theBounds.theLeft} + kOverlap;
        if (!theStandsBeside || !IsLevel(theBounds, theControl.theBounds) || IsTaken(theBounds, theControl)) {
            continue;
        }
        const bool theIsSurer =
            theNearest != nullptr && EndsWithColon(theLabel->theText) != EndsWithColon(theNearest->theText);
        const bool theIsBetter =
            theNearest == nullptr || (theIsSurer ? EndsWithColon(theLabel->theText)
                                                 : theBounds.theRight > theNearest->theBounds.theRight);
        theNearest = theIsBetter ? theLabel : theNearest;
    }
    return theNearest;
}

const ControlLook* SpokenNames::LabelAbove(const ControlLook& theControl) const
{
    const ControlLook* theNearest = nullptr;
    for (const ControlLook* theLabel : mLabels) {
        if (IsAbove(theLabel->theBounds, theControl.theBounds) &&
            (theNearest == nullptr || theLabel->theBounds.theBottom > theNearest->theBounds.theBottom)) {
            theNearest = theLabel;
        }
    }
    return theNearest;
}

std::string SpokenNames::NameOf(const ControlLook& theControl) const
{
    if (theControl.theShape == ControlShape::kStaticText) {
        return theControl.theText;
    }
    if (theControl.theShape == ControlShape::kPopUpButton && !theControl.theTitle.empty()) {
        return WithoutColon(theControl.theTitle);
    }
    if (!NeedsLabel(theControl.theShape) || !theControl.theTitle.empty()) {
        return theControl.theTitle;
    }
    const ControlLook* theLabel = LabelBeside(theControl);
    theLabel = theLabel == nullptr ? LabelAbove(theControl) : theLabel;
    return theLabel == nullptr ? std::string() : WithoutColon(theLabel->theText);
}

std::string SpokenNames::GroupOf(const ControlLook& theControl) const
{
    const ControlLook* theSmallest = nullptr;
    for (const ControlLook* theGroup : mGroups) {
        if (theGroup != &theControl && IsAround(theGroup->theBounds, theControl.theBounds) &&
            (theSmallest == nullptr || IsAround(theSmallest->theBounds, theGroup->theBounds))) {
            theSmallest = theGroup;
        }
    }
    return theSmallest == nullptr ? std::string() : theSmallest->theTitle;
}

} // namespace Host
