// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef MacHelp_h
#define MacHelp_h

// Help tags: a few words that appear beside what the pointer rests on. The desktop shows them as its tool
// tips, in places of its own.

#include <Carbon/Controls.h>
#include <Carbon/MacWindows.h>
#include <Carbon/Menus.h>

enum
{
    kMacHelpVersion = 3
};

enum
{
    kHMMinimumContentIndex = 0, // what is shown
    kHMMaximumContentIndex = 1  // shown with it, on a line of its own
};

typedef UInt32 HMContentType;
enum
{
    kHMNoContent = 'none',
    kHMCFStringContent = 'cfst',
    kHMCFStringLocalizedContent = 'cfsl', // a key of the main bundle's Localizable.strings
    kHMPascalStrContent = 'pstr',
    kHMTextResContent = 'text', // this and the following are kept, and show nothing
    kHMTEHandleContent = 'txth',
    kHMStringResContent = 'str#',
    kHMStrResContent = 'str '
};

// Kept; the desktop chooses the side.
typedef SInt16 HMTagDisplaySide;
enum
{
    kHMDefaultSide = 0,
    kHMOutsideTopScriptAligned = 1,
    kHMOutsideLeftCenterAligned = 2,
    kHMOutsideBottomScriptAligned = 3,
    kHMOutsideRightCenterAligned = 4,
    kHMOutsideTopLeftAligned = 5,
    kHMOutsideTopRightAligned = 6,
    kHMOutsideLeftTopAligned = 7,
    kHMOutsideLeftBottomAligned = 8,
    kHMOutsideBottomLeftAligned = 9,
    kHMOutsideBottomRightAligned = 10,
    kHMOutsideRightTopAligned = 11,
    kHMOutsideRightBottomAligned = 12,
    kHMOutsideTopCenterAligned = 13,
    kHMOutsideBottomCenterAligned = 14,
    kHMInsideRightCenterAligned = 15,
    kHMInsideLeftCenterAligned = 16,
    kHMInsideBottomCenterAligned = 17,
    kHMInsideTopCenterAligned = 18,
    kHMInsideTopLeftCorner = 19,
    kHMInsideTopRightCorner = 20,
    kHMInsideBottomLeftCorner = 21,
    kHMInsideBottomRightCorner = 22,
    kHMAbsoluteCenterAligned = 23
};

#pragma pack(push, 2)

struct HMStringResType
{
    short hmmResID;
    short hmmIndex;
};
typedef struct HMStringResType HMStringResType;

struct HMHelpContent
{
    HMContentType contentType;
    union
    {
        CFStringRef tagCFString;
        Str255 tagString;
        HMStringResType tagStringRes;
        Handle tagTEHandle;
        SInt16 tagTextRes;
        SInt16 tagStrRes;
    } u;
};
typedef struct HMHelpContent HMHelpContent;

struct HMHelpContentRec
{
    SInt32 version; // kMacHelpVersion
    Rect absHotRect;
    HMTagDisplaySide tagSide;
    HMHelpContent content[2];
};
typedef struct HMHelpContentRec HMHelpContentRec;
typedef HMHelpContentRec* HMHelpContentPtr;

#pragma pack(pop)

// The help of a control: for it and for what is in it, unless that has its own. The record is copied and its
// string retained; null takes the help away. paramErr for another version, errUnknownControl for what is no
// control.
CARBON_EXPORT OSStatus HMSetControlHelpContent(ControlRef inControl, const HMHelpContentRec* inContent);

// The record that was set; its string is not retained. One with kHMNoContent when there is none.
CARBON_EXPORT OSStatus HMGetControlHelpContent(ControlRef inControl, HMHelpContentRec* outContent);

// Whether help appears at all; it does at first.
CARBON_EXPORT OSStatus HMSetHelpTagsDisplayed(Boolean inDisplayTags);
CARBON_EXPORT Boolean HMAreHelpTagsDisplayed(void);

#endif
