// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Segments_h
#define ControlKinds_Segments_h

#include "Images.h"

#include <memory>
#include <optional>

namespace Host {

// One of a row of buttons.
struct Segment
{
    HISegmentBehavior theBehavior = kHISegmentBehaviorMomentary;
    SInt32 theValue = 0;
    bool theIsEnabled = true;
    std::optional<Text> theLabel;
    UInt32 theCommand = 0;
    OptionBits theAttributes = kHISegmentNoAttributes;
    bool theIsAsWideAsNeeded = true;
    CGFloat theWidth = 0; // of what is in it
    std::shared_ptr<HeldContent> theImage;
};

class SegmentedView : public Control
{
public:
    SegmentedView();

    size_t Count() const { return mSegments.size(); }
    void SetCount(size_t theCount);

    // Null where there is no segment of that number.
    Segment* At(UInt32 theNumber);
    const Segment* At(UInt32 theNumber) const;

    OSStatus SetBehavior(UInt32 theNumber, HISegmentBehavior theBehavior);
    OSStatus SetSegmentValue(UInt32 theNumber, SInt32 theValue);

    // The width of what is in a segment.
    static CGFloat ContentWidthOf(const Segment& theSegment);

    ControlPartCode PartAt(Point thePoint) const override;
    Rect PlaceOf(ControlPartCode thePart) const override;
    void PartClicked(ControlPartCode thePart) override;
    PartCommand CommandOf(ControlPartCode thePart) const override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    void RangeChanged() override;
    void AddToLook(ControlLook& theLook) const override;

private:
    static int WidthOf(const Segment& theSegment);
    Rect PlaceOfSegment(size_t theIndex) const;
    bool CanBeReached(UInt32 theNumber) const;
    UInt32 NumberWithKeys() const;
    void FollowRadios();

    std::vector<Segment> mSegments;
    UInt32 mNumberWithKeys = 1; // of the segment that the space bar clicks, if it can be reached
};

} // namespace Host

#endif
