// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HISegmentedView_h
#define HISegmentedView_h

// A row of buttons that belong together. Made without a window and hidden: add it to a view and show it.
//
// Segments are counted from 1, in all calls and as parts of the view; there are 128 at most. A click on one
// that is enabled does what its behaviour says, and then sends kEventControlHit with its number as the part,
// and, where no handler takes that, its command, or that of the view when it has none. With the keys in the
// view, the left and right arrows go from segment to segment and the space bar clicks.
//
// The value of the view is the number of the radio segment that is on, 0 when none is. Setting it turns that
// one on and the other radio segments off. The maximum follows the number of segments.

#include <Carbon/ControlDefinitions.h>
#include <Carbon/HIGeometry.h>

enum
{
    kHISegmentedViewKind = 'sgmt'
};

typedef UInt32 HISegmentBehavior;

enum
{
    kHISegmentBehaviorMomentary = 1, // never stays on
    kHISegmentBehaviorRadio = 2,     // a click turns it on and the other radio segments off
    kHISegmentBehaviorToggles = 3,   // a click turns it on or off
    kHISegmentBehaviorSticky = 4     // a click turns it on
};

enum
{
    kHISegmentNoAttributes = 0,
    kHISegmentSendCmdToUserFocus = 1 // its command goes to what has the keys, not up from the view
};

// No bounds are an empty rectangle. The view has no segments yet.
CARBON_EXPORT OSStatus HISegmentedViewCreate(const HIRect* inBounds, HIViewRef* outRef);

// In all calls that follow: errUnknownControl for what is no segmented view, paramErr for a segment that does
// not exist. Where the call returns no status, the answer is 0 for both.

// New segments are momentary, off, enabled, without label, image and command, and as wide as they need to
// be. Those that are too many are taken away at the end. paramErr for more than 128.
CARBON_EXPORT OSStatus HISegmentedViewSetSegmentCount(HIViewRef inSegmentedView, UInt32 inSegmentCount);
CARBON_EXPORT UInt32 HISegmentedViewGetSegmentCount(HIViewRef inSegmentedView);

// A segment that becomes a momentary one is off. paramErr for a behaviour that does not exist.
CARBON_EXPORT OSStatus HISegmentedViewSetSegmentBehavior(HIViewRef inSegmentedView,
                                                         UInt32 inSegmentIndexOneBased,
                                                         HISegmentBehavior inBehavior);
CARBON_EXPORT HISegmentBehavior HISegmentedViewGetSegmentBehavior(HIViewRef inSegmentedView,
                                                                  UInt32 inSegmentIndexOneBased);

// paramErr for attributes that do not exist.
CARBON_EXPORT OSStatus HISegmentedViewChangeSegmentAttributes(HIViewRef inSegmentedView,
                                                              UInt32 inSegmentIndexOneBased,
                                                              OptionBits inAttributesToSet,
                                                              OptionBits inAttributesToClear);
CARBON_EXPORT OptionBits HISegmentedViewGetSegmentAttributes(HIViewRef inSegmentedView,
                                                             UInt32 inSegmentIndexOneBased);

// 0 or 1, paramErr for others and for 1 in a momentary segment. A radio segment that is turned on turns off
// the others; the value of the view follows.
CARBON_EXPORT OSStatus HISegmentedViewSetSegmentValue(HIViewRef inSegmentedView,
                                                      UInt32 inSegmentIndexOneBased, SInt32 inValue);
CARBON_EXPORT SInt32 HISegmentedViewGetSegmentValue(HIViewRef inSegmentedView, UInt32 inSegmentIndexOneBased);

CARBON_EXPORT OSStatus HISegmentedViewSetSegmentEnabled(HIViewRef inSegmentedView,
                                                        UInt32 inSegmentIndexOneBased, Boolean inEnabled);
CARBON_EXPORT Boolean HISegmentedViewIsSegmentEnabled(HIViewRef inSegmentedView,
                                                      UInt32 inSegmentIndexOneBased);

// 0 for none.
CARBON_EXPORT OSStatus HISegmentedViewSetSegmentCommand(HIViewRef inSegmentedView,
                                                        UInt32 inSegmentIndexOneBased, UInt32 inCommand);
CARBON_EXPORT UInt32 HISegmentedViewGetSegmentCommand(HIViewRef inSegmentedView,
                                                      UInt32 inSegmentIndexOneBased);

// The label may be null for none. The one that is copied belongs to the caller, and is null when there is
// none.
CARBON_EXPORT OSStatus HISegmentedViewSetSegmentLabel(HIViewRef inSegmentedView,
                                                      UInt32 inSegmentIndexOneBased, CFStringRef inLabel);
CARBON_EXPORT OSStatus HISegmentedViewCopySegmentLabel(HIViewRef inSegmentedView,
                                                       UInt32 inSegmentIndexOneBased, CFStringRef* outLabel);

// The width of what is in the segment, its edges not counted; inWidth is only used when it is not to be found
// automatically. A width below 0, and one that is no number, is a paramErr.
CARBON_EXPORT OSStatus HISegmentedViewSetSegmentContentWidth(HIViewRef inSegmentedView,
                                                             UInt32 inSegmentIndexOneBased,
                                                             Boolean inAutoCalculateWidth, CGFloat inWidth);
CARBON_EXPORT CGFloat HISegmentedViewGetSegmentContentWidth(HIViewRef inSegmentedView,
                                                            UInt32 inSegmentIndexOneBased,
                                                            Boolean* outAutoCalculated);

// Shown before the label. An icon or image is retained; whoever copies it releases it. paramErr for what is
// no image.
CARBON_EXPORT OSStatus HISegmentedViewSetSegmentImage(HIViewRef inSegmentedView,
                                                      UInt32 inSegmentIndexOneBased,
                                                      const HIViewImageContentInfo* inImage);
CARBON_EXPORT OSStatus HISegmentedViewCopySegmentImage(HIViewRef inSegmentedView,
                                                       UInt32 inSegmentIndexOneBased,
                                                       HIViewImageContentInfo* ioImage);
CARBON_EXPORT HIViewImageContentType HISegmentedViewGetSegmentImageContentType(HIViewRef inSegmentedView,
                                                                               UInt32 inSegmentIndexOneBased);

#endif
