// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmWindowBinding.h"

#include "LmAdoptedString.h"
#include "LmDiagnostics.h"
#include "LmEventNote.h"
#include "LmIsText.h"
#include "LmNameComparison.h"
#include "LmNumericConversion.h"
#include "LmUpdateScope.h"

#include <cstdio>

namespace {

const char kKeyVisible[] = "visible";
const char kKeyCollapsed[] = "collapsed";
const char kKeyBounds[] = "bounds";
const char kKeyTitle[] = "title";

const EventTypeSpec kWindowEvents[] = {
    {kEventClassWindow, kEventWindowClosed},       {kEventClassWindow, kEventWindowShown},
    {kEventClassWindow, kEventWindowHidden},       {kEventClassWindow, kEventWindowCollapsed},
    {kEventClassWindow, kEventWindowExpanded},     {kEventClassWindow, kEventWindowBoundsChanged},
    {kEventClassWindow, kEventWindowTitleChanged},
};

UInt32 Cut(float theCoordinate)
{
    return LmNumericConversion::ToUInt32(LmNumericConversion::ToSInt32(static_cast<double>(theCoordinate)));
}

// The sum of two edges, each first cut to a whole number, in the 16 bits of a coordinate.
SInt16 CutAndAdd(float theOrigin, float theExtent)
{
    return static_cast<SInt16>(Cut(theOrigin) + Cut(theExtent));
}

Rect WindowBoundsFromRect(const CGRect& theRect)
{
    Rect theBounds;
    theBounds.top = CutAndAdd(theRect.origin.y, 0);
    theBounds.left = CutAndAdd(theRect.origin.x, 0);
    theBounds.bottom = CutAndAdd(theRect.origin.y, theRect.size.height);
    theBounds.right = CutAndAdd(theRect.origin.x, theRect.size.width);
    return theBounds;
}

CGRect RectFromWindowBounds(const Rect& theBounds)
{
    CGRect theRect;
    theRect.origin.x = static_cast<float>(theBounds.left);
    theRect.origin.y = static_cast<float>(theBounds.top);
    theRect.size.width = static_cast<float>(theBounds.right - theBounds.left);
    theRect.size.height = static_cast<float>(theBounds.bottom - theBounds.top);
    return theRect;
}

// ---- Reading

LmValue ReadBounds(WindowRef theWindow)
{
    Rect theBounds = {0, 0, 0, 0};
    LM_CHECK_STATUS(GetWindowBounds(theWindow, kWindowContentRgn, &theBounds));
    LmValue theValue;
    theValue.SetRect(RectFromWindowBounds(theBounds));
    return theValue;
}

LmValue ReadTitle(WindowRef theWindow)
{
    CFStringRef theString = nullptr;
    LM_CHECK_STATUS(CopyWindowTitleAsCFString(theWindow, &theString));
    return LmAdoptedString(theString);
}

LmValue ReadWindow(WindowRef theWindow, const LmString& theKey)
{
    LmValue theValue;
    if (theKey == kKeyVisible) {
        theValue.SetBoolean(IsWindowVisible(theWindow));
    } else if (theKey == kKeyCollapsed) {
        theValue.SetBoolean(IsWindowCollapsed(theWindow));
    } else if (theKey == kKeyBounds) {
        return ReadBounds(theWindow);
    } else if (theKey == kKeyTitle) {
        return ReadTitle(theWindow);
    }
    return theValue;
}

// ---- Writing

OSStatus WriteWindow(WindowRef theWindow, const LmString& theKey, const LmValue& theValue)
{
    if (theKey == kKeyVisible) {
        if (theValue.GetBoolean()) {
            ShowWindow(theWindow);
        } else {
            HideWindow(theWindow);
        }
    } else if (theKey == kKeyCollapsed) {
        return CollapseWindow(theWindow, theValue.GetBoolean());
    } else if (theKey == kKeyBounds) {
        const Rect theBounds = WindowBoundsFromRect(theValue.GetRect());
        return SetWindowBounds(theWindow, kWindowContentRgn, &theBounds);
    } else if (theKey == kKeyTitle && LmIsText(theValue)) {
        return SetWindowTitleWithCFString(theWindow, theValue.GetString());
    }
    return noErr;
}

} // namespace

LmWindowBinding::LmWindowBinding(WindowRef theWindow)
    : LmWindowBinding()
{
    InitialiseSelf(theWindow);
}

LmWindowBinding::LmWindowBinding()
    : mWindow(nullptr),
      mEventHandler(nullptr),
      mUpdateWindow(true)
{
}

LmWindowBinding::~LmWindowBinding()
{
    SetWindow(nullptr);
}

void LmWindowBinding::InitialiseSelf(WindowRef theWindow)
{
    mWindow = theWindow;
    mEventHandler = nullptr;
    mUpdateWindow = true;
    if (theWindow != nullptr) {
        SetWindow(theWindow);
    }
}

LmString LmWindowBinding::GetDebugInfo() const
{
    Str255 theTitle = {0};
    if (mWindow != nullptr) {
        GetWTitle(mWindow, theTitle);
    }
    char theText[300];
    std::snprintf(theText, sizeof theText, "[Window \"%.*s\"]", theTitle[0],
                  reinterpret_cast<const char*>(theTitle + 1));
    return LmString(theText);
}

void LmWindowBinding::SetWindow(WindowRef theWindow)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(EventHandler);

    if (mEventHandler != nullptr) {
        LM_CHECK_STATUS(RemoveEventHandler(mEventHandler));
    }
    mWindow = theWindow;
    mEventHandler = nullptr;
    mUpdateWindow = true;
    if (theWindow == nullptr) {
        return;
    }
    LM_CHECK_STATUS(InstallEventHandler(GetWindowEventTarget(theWindow), kHandler,
                                        GetEventTypeCount(kWindowEvents), kWindowEvents, this,
                                        &mEventHandler));
    LmSyncKeys(this, mUpdateWindow, {kKeyVisible, kKeyCollapsed, kKeyBounds, kKeyTitle});
}

void LmWindowBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
{
    if (mWindow != nullptr && mUpdateWindow) {
        const LmLifeWatch theWatch(this);
        LM_CHECK_STATUS(WriteWindow(mWindow, theKey, theValue));
        if (theWatch.IsGone()) {
            return;
        }
    }
    LmKeyValueStore::SetKeyValue(theKey, theValue);
}

void LmWindowBinding::SyncValue(const LmString& theKey)
{
    LM_ASSERT(mWindow != NULL);
    const LmValue theValue = ReadWindow(mWindow, theKey);
    if (theValue.IsValid()) {
        SetKeyPathValue(theKey, theValue);
    }
}

OSStatus LmWindowBinding::EventHandler(EventHandlerCallRef, EventRef theEvent, void* userData)
{
    LM_ASSERT(userData != NULL);
    if (userData == nullptr || GetEventClass(theEvent) != kEventClassWindow) {
        return eventNotHandledErr;
    }
    LmWindowBinding* const theBinding = static_cast<LmWindowBinding*>(userData);
    const LmEventNote theNote(*theBinding, theEvent);
    return theBinding->DoEventWindow(theEvent, GetEventKind(theEvent));
}

OSStatus LmWindowBinding::DoEventWindow(EventRef theEvent, UInt32 theKind)
{
    LM_ASSERT(GetEventClass(theEvent) == kEventClassWindow);
    {
        const LmUpdateScope theScope(this, mUpdateWindow);
        switch (theKind) {
        case kEventWindowShown:
        case kEventWindowHidden:
            SyncValue(kKeyVisible);
            break;
        case kEventWindowCollapsed:
        case kEventWindowExpanded:
            SyncValue(kKeyCollapsed);
            break;
        case kEventWindowBoundsChanged:
            SyncValue(kKeyBounds);
            break;
        case kEventWindowTitleChanged:
            SyncValue(kKeyTitle);
            break;
        default:
            break;
        }
    }
    if (theKind == kEventWindowClosed) {
        delete this;
    }
    return eventNotHandledErr;
}
