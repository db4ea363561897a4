// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The interface to the rules by which views follow each other.

#include "Windows/Layout.h"

#include "Windows/Control.h"

using namespace Host;

namespace {

bool IsGood(const HISideBinding& theSide)
{
    return theSide.kind <= kHILayoutBindMax;
}

bool IsGood(const HIAxisScale& theScale)
{
    return theScale.kind == kHILayoutScaleAbsolute;
}

bool IsGood(const HIAxisPosition& thePosition)
{
    return thePosition.kind <= kHILayoutPositionMax;
}

bool IsGood(const HILayoutInfo& theRules)
{
    const HIBinding& theSides = theRules.binding;
    return theRules.version == kHILayoutInfoVersionZero && IsGood(theSides.top) && IsGood(theSides.left) &&
           IsGood(theSides.bottom) && IsGood(theSides.right) && IsGood(theRules.scale.x) &&
           IsGood(theRules.scale.y) && IsGood(theRules.position.x) && IsGood(theRules.position.y);
}

OSStatus SetSuspended(HIViewRef theReference, bool theIsSuspended)
{
    const SharedControl theView = Host::FindControl(theReference);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    theView->mIsLayoutSuspended = theIsSuspended;
    return noErr;
}

} // namespace

OSStatus HIViewSetLayoutInfo(HIViewRef inView, const HILayoutInfo* inLayoutInfo)
{
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    if (inLayoutInfo == nullptr || !IsGood(*inLayoutInfo)) {
        return paramErr;
    }
    const OSStatus theStatus = SetLayout(*theView, *inLayoutInfo);
    if (theStatus == noErr) {
        theView->Tell(kEventClassControl, kEventControlLayoutInfoChanged);
    }
    return theStatus;
}

OSStatus HIViewGetLayoutInfo(HIViewRef inView, HILayoutInfo* outLayoutInfo)
{
    if (outLayoutInfo == nullptr || outLayoutInfo->version != kHILayoutInfoVersionZero) {
        return paramErr;
    }
    *outLayoutInfo = HILayoutInfo();
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    *outLayoutInfo = LayoutOf(*theView);
    return noErr;
}

OSStatus HIViewApplyLayout(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    if (IsLayoutActive(*theView)) {
        ApplyLayout(theView);
    }
    return noErr;
}

OSStatus HIViewSuspendLayout(HIViewRef inView)
{
    return SetSuspended(inView, true);
}

OSStatus HIViewResumeLayout(HIViewRef inView)
{
    return SetSuspended(inView, false);
}

Boolean HIViewIsLayoutActive(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    return theView != nullptr && IsLayoutActive(*theView);
}
