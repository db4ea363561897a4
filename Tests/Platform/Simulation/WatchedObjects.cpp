// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "WatchedObjects.h"

#include "Windows/Controls.h"
#include "Windows/Windows.h"

#include <algorithm>
#include <utility>

namespace {

std::string TakeText(CFStringRef theString)
{
    if (theString == nullptr) {
        return std::string();
    }
    char theText[256] = "";
    CFStringGetCString(theString, theText, sizeof theText, kCFStringEncodingUTF8);
    CFRelease(theString);
    return theText;
}

bool AreEqual(const Rect& theOne, const Rect& theOther)
{
    return EqualRect(&theOne, &theOther) != 0;
}

bool Shows(const Host::PixelRect& thePicture, const Rect& theRect)
{
    return thePicture == Host::PixelRect{theRect.left, theRect.top, theRect.right, theRect.bottom};
}

template <class Reference>
Reference DirectObject(EventRef theEvent, EventParamType theType)
{
    Reference theReference = nullptr;
    GetEventParameter(theEvent, kEventParamDirectObject, theType, nullptr, sizeof theReference, nullptr,
                      &theReference);
    return theReference;
}

std::string TextOf(const Rect& theRect)
{
    return std::to_string(theRect.left) + "," + std::to_string(theRect.top) + " to " +
           std::to_string(theRect.right) + "," + std::to_string(theRect.bottom);
}

// What is the case, with a space before it.
std::string If(bool theIsCase, const char* theText)
{
    return theIsCase ? std::string(" ") + theText : std::string();
}

// The menu with that title on the screen, wherever it hangs; null when it is not there.
const Host::MenuLook* FindLook(const std::vector<Host::MenuLook>& theMenus, const std::string& theTitle)
{
    for (const Host::MenuLook& theMenu : theMenus) {
        if (theMenu.theTitle == theTitle) {
            return &theMenu;
        }
        for (const Host::MenuItemLook& theItem : theMenu.theItems) {
            if (const Host::MenuLook* theFound = FindLook(theItem.theSubmenu, theTitle)) {
                return theFound;
            }
        }
    }
    return nullptr;
}

} // namespace

// Objects -------------------------------------------------------------------------------------------------

WatchedObject::WatchedObject(std::string theName, EventTargetRef theTarget,
                             const std::vector<EventTypeSpec>& theTypes, EventCourse& theCourse)
    : mName(std::move(theName)),
      mTarget(theTarget),
      mCourse(theCourse)
{
    InstallEventHandler(mTarget, Call, theTypes.size(), theTypes.data(), this, &mHandler);
}

WatchedObject::~WatchedObject()
{
    RemoveEventHandler(mHandler);
}

OSStatus WatchedObject::Call(EventHandlerCallRef, EventRef theEvent, void* theUserData)
{
    auto* theObject = static_cast<WatchedObject*>(theUserData);
    if (theObject->IsAbout(theEvent)) {
        theObject->Note(theEvent);
    }
    theObject->mCourse.theArrival(theObject->mName, theEvent);
    return eventNotHandledErr;
}

void WatchedObject::NoteChange(bool theIsChange, const char* theWhat)
{
    if (!theIsChange && !mCourse.theIsNested && mCourse.theIdleEvent.empty()) {
        mCourse.theIdleEvent = mName + ": was told of a change of its " + theWhat + ", and there was none";
    }
}

void WatchedObject::CheckLife(Promises& thePromises) const
{
    if (IsAlive()) {
        thePromises.Expect(mEnds == 0, mName + " lives, and its end was told");
        return;
    }
    thePromises.Expect(mEnds == 1,
                       mName + " is gone, and its end was told " + std::to_string(mEnds) + " times");
    thePromises.Expect(AddEventTypesToHandler(mHandler, 0, nullptr) == paramErr,
                       mName + " is gone, and its handler is not");
    EventHandlerRef theHandler = nullptr;
    thePromises.Expect(InstallEventHandler(mTarget, Call, 0, nullptr, nullptr, &theHandler) == paramErr,
                       mName + " is gone, and its target is not");
}

// Windows -------------------------------------------------------------------------------------------------

WatchedWindow::WatchedWindow(std::string theName, WindowRef theWindow, EventCourse& theCourse)
    : WatchedObject(std::move(theName), GetWindowEventTarget(theWindow),
                    {{kEventClassWindow, kEventWindowShown},
                     {kEventClassWindow, kEventWindowHidden},
                     {kEventClassWindow, kEventWindowHiding},
                     {kEventClassWindow, kEventWindowCollapsed},
                     {kEventClassWindow, kEventWindowExpanded},
                     {kEventClassWindow, kEventWindowActivated},
                     {kEventClassWindow, kEventWindowDeactivated},
                     {kEventClassWindow, kEventWindowFocusAcquired},
                     {kEventClassWindow, kEventWindowFocusRelinquish},
                     {kEventClassWindow, kEventWindowShowing},
                     {kEventClassWindow, kEventWindowCollapsing},
                     {kEventClassWindow, kEventWindowExpanding},
                     {kEventClassWindow, kEventWindowBoundsChanging},
                     {kEventClassWindow, kEventWindowBoundsChanged},
                     {kEventClassWindow, kEventWindowTitleChanged},
                     {kEventClassWindow, kEventWindowClose},
                     {kEventClassWindow, kEventWindowClosed},
                     {kEventClassMouse, kEventMouseDown},
                     {kEventClassMouse, kEventMouseUp},
                     {kEventClassKeyboard, kEventRawKeyDown}},
                    theCourse),
      mWindow(theWindow),
      mTold(Now())
{
}

WatchedWindow::State WatchedWindow::Now() const
{
    State theState;
    theState.theIsVisible = IsWindowVisible(mWindow) != 0;
    theState.theIsCollapsed = IsWindowCollapsed(mWindow) != 0;
    theState.theIsActive = IsWindowActive(mWindow) != 0;
    theState.theHasKeys = GetUserFocusWindow() == mWindow;
    GetWindowBounds(mWindow, kWindowGlobalPortRgn, &theState.theContent);
    CFStringRef theTitle = nullptr;
    CopyWindowTitleAsCFString(mWindow, &theTitle);
    theState.theTitle = TakeText(theTitle);
    return theState;
}

bool WatchedWindow::IsAbout(EventRef theEvent) const
{
    return GetEventClass(theEvent) == kEventClassWindow &&
           DirectObject<WindowRef>(theEvent, typeWindowRef) == mWindow;
}

void WatchedWindow::Note(EventRef theEvent)
{
    switch (GetEventKind(theEvent)) {
    case kEventWindowShown:
    case kEventWindowHidden:
        NoteChange(&mTold.theIsVisible, GetEventKind(theEvent) == kEventWindowShown, "visibility");
        break;
    case kEventWindowCollapsed:
    case kEventWindowExpanded:
        NoteChange(&mTold.theIsCollapsed, GetEventKind(theEvent) == kEventWindowCollapsed, "collapsing");
        break;
    case kEventWindowActivated:
    case kEventWindowDeactivated:
        NoteChange(&mTold.theIsActive, GetEventKind(theEvent) == kEventWindowActivated, "activation");
        break;
    case kEventWindowFocusAcquired:
    case kEventWindowFocusRelinquish:
        NoteChange(&mTold.theHasKeys, GetEventKind(theEvent) == kEventWindowFocusAcquired, "keys");
        break;
    case kEventWindowBoundsChanged:
        NoteChange(!AreEqual(mTold.theContent, Now().theContent), "bounds");
        mTold.theContent = Now().theContent;
        break;
    case kEventWindowTitleChanged:
        NoteChange(&mTold.theTitle, Now().theTitle, "title");
        break;
    case kEventWindowClosed:
        NoteEnd();
        break;
    default:
        break;
    }
}

void WatchedWindow::Check(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const
{
    const State theNow = Now();
    const auto theExpect = [&](bool theIsKept, const char* theWhat) {
        thePromises.Expect(theIsKept, Name() + ": " + theWhat);
    };
    theExpect(theNow.theIsVisible == mTold.theIsVisible, "was shown or hidden, and nobody was told");
    theExpect(theNow.theIsCollapsed == mTold.theIsCollapsed,
              "was collapsed or expanded, and nobody was told");
    theExpect(theNow.theIsActive == mTold.theIsActive, "was activated or deactivated, and nobody was told");
    theExpect(theNow.theHasKeys == mTold.theHasKeys, "got or lost the keys, and nobody was told");
    theExpect(AreEqual(theNow.theContent, mTold.theContent), "has other bounds, and nobody was told");
    theExpect(theNow.theTitle == mTold.theTitle, "has another title, and nobody was told");
    const Host::WindowLook* theLook = theScreen.FindWindow(Host::IdentifierOf(mWindow));
    theExpect(theLook != nullptr, "is not in the picture");
    if (theLook == nullptr) {
        return;
    }
    theExpect(theLook->theIsVisible == theNow.theIsVisible, "is not shown as visible as it is");
    theExpect(theLook->theIsCollapsed == theNow.theIsCollapsed, "is not shown as collapsed as it is");
    theExpect(theLook->theIsActive == theNow.theIsActive, "is not shown as active as it is");
    theExpect(Shows(theLook->theContent, theNow.theContent), "is not shown where it is");
    theExpect(theLook->theTitle == theNow.theTitle, "is not shown with its title");
}

std::string WatchedWindow::Describe() const
{
    const State theNow = Now();
    return Name() + ": \"" + theNow.theTitle + "\" " + TextOf(theNow.theContent) +
           If(theNow.theIsVisible, "visible") + If(theNow.theIsCollapsed, "collapsed") +
           If(theNow.theIsActive, "active") + If(theNow.theHasKeys, "has the keys");
}

// Controls ------------------------------------------------------------------------------------------------

WatchedControl::WatchedControl(std::string theName, ControlRef theControl, EventCourse& theCourse)
    : WatchedObject(std::move(theName), GetControlEventTarget(theControl),
                    {{kEventClassControl, kEventControlDispose},
                     {kEventClassControl, kEventControlHit},
                     {kEventClassControl, kEventControlClick},
                     {kEventClassControl, kEventControlTrack},
                     {kEventClassControl, kEventControlSimulateHit},
                     {kEventClassControl, kEventControlSetFocusPart},
                     {kEventClassControl, kEventControlFocusPartChanged},
                     {kEventClassControl, kEventControlActivate},
                     {kEventClassControl, kEventControlDeactivate},
                     {kEventClassControl, kEventControlVisibilityChanged},
                     {kEventClassControl, kEventControlEnabledStateChanged},
                     {kEventClassControl, kEventControlValueFieldChanged},
                     {kEventClassControl, kEventControlHiliteChanged},
                     {kEventClassControl, kEventControlTitleChanged},
                     {kEventClassControl, kEventControlBoundsChanged},
                     {kEventClassControl, kEventControlOwningWindowChanged},
                     {kEventClassControl, kEventControlAddedSubControl},
                     {kEventClassControl, kEventControlRemovingSubControl},
                     {kEventClassTextField, kEventTextAccepted},
                     {kEventClassTextField, kEventTextDidChange},
                     {kEventClassCommand, kEventCommandProcess}},
                    theCourse),
      mControl(theControl),
      mTold(Now())
{
}

WatchedControl::State WatchedControl::Now() const
{
    State theState;
    theState.theIsVisible = IsControlVisible(mControl) != 0;
    theState.theIsEnabled = IsControlEnabled(mControl) != 0;
    theState.theIsActive = IsControlActive(mControl) != 0;
    theState.theRange = {GetControl32BitValue(mControl), GetControl32BitMinimum(mControl),
                         GetControl32BitMaximum(mControl), GetControlViewSize(mControl)};
    GetControlBounds(mControl, &theState.theBounds);
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(mControl, &theTitle);
    theState.theTitle = TakeText(theTitle);
    theState.theOwner = GetControlOwner(mControl);
    ControlRef theFocused = nullptr;
    GetKeyboardFocus(theState.theOwner, &theFocused);
    theState.theHasFocus = theFocused == mControl;
    return theState;
}

bool WatchedControl::IsAbout(EventRef theEvent) const
{
    return GetEventClass(theEvent) == kEventClassControl &&
           DirectObject<ControlRef>(theEvent, typeControlRef) == mControl;
}

void WatchedControl::Note(EventRef theEvent)
{
    const State theNow = Now();
    switch (GetEventKind(theEvent)) {
    case kEventControlDispose:
        NoteEnd();
        break;
    case kEventControlVisibilityChanged:
        NoteChange(&mTold.theIsVisible, theNow.theIsVisible, "visibility");
        break;
    case kEventControlEnabledStateChanged:
        NoteChange(&mTold.theIsEnabled, theNow.theIsEnabled, "enabling");
        break;
    case kEventControlActivate:
    case kEventControlDeactivate:
        NoteChange(&mTold.theIsActive, theNow.theIsActive, "activation");
        break;
    case kEventControlValueFieldChanged:
        NoteChange(&mTold.theRange, theNow.theRange, "value and range");
        break;
    case kEventControlTitleChanged:
        NoteChange(&mTold.theTitle, theNow.theTitle, "title");
        break;
    case kEventControlBoundsChanged:
        NoteChange(!AreEqual(mTold.theBounds, theNow.theBounds), "bounds");
        mTold.theBounds = theNow.theBounds;
        break;
    case kEventControlOwningWindowChanged:
        NoteChange(&mTold.theOwner, theNow.theOwner, "window");
        break;
    case kEventControlFocusPartChanged: {
        ControlPartCode thePart = kControlFocusNoPart;
        GetEventParameter(theEvent, kEventParamControlCurrentPart, typeControlPartCode, nullptr,
                          sizeof thePart, nullptr, &thePart);
        NoteChange(&mTold.theHasFocus, thePart != kControlFocusNoPart, "focus");
        break;
    }
    default:
        break;
    }
}

void WatchedControl::TakeStatesOfItsPlace()
{
    const State theNow = Now();
    mTold.theIsVisible = theNow.theIsVisible;
    mTold.theIsEnabled = theNow.theIsEnabled;
    mTold.theIsActive = theNow.theIsActive;
}

void WatchedControl::Check(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const
{
    const State theNow = Now();
    const auto theExpect = [&](bool theIsKept, const char* theWhat) {
        thePromises.Expect(theIsKept, Name() + ": " + theWhat);
    };
    theExpect(theNow.theIsVisible == mTold.theIsVisible, "was shown or hidden, and nobody was told");
    theExpect(theNow.theIsEnabled == mTold.theIsEnabled, "was enabled or disabled, and nobody was told");
    theExpect(theNow.theIsActive == mTold.theIsActive, "was activated or deactivated, and nobody was told");
    theExpect(theNow.theHasFocus == mTold.theHasFocus, "got or lost the focus, and nobody was told");
    theExpect(theNow.theRange == mTold.theRange, "has another value or range, and nobody was told");
    theExpect(theNow.theTitle == mTold.theTitle, "has another title, and nobody was told");
    theExpect(AreEqual(theNow.theBounds, mTold.theBounds), "has other bounds, and nobody was told");
    theExpect(theNow.theOwner == mTold.theOwner, "is in another window, and nobody was told");
    theExpect(!theNow.theHasFocus || (theNow.theIsVisible && theNow.theIsEnabled),
              "has the focus and cannot be operated");
    if (theNow.theOwner != nullptr) {
        CheckPicture(theScreen, thePromises);
    }
}

std::string WatchedControl::Describe() const
{
    const State theNow = Now();
    CFStringRef theText = nullptr;
    GetControlData(mControl, kControlEntireControl, kControlEditTextCFStringTag, sizeof theText, &theText,
                   nullptr);
    std::string theNumbers;
    for (const SInt32 theNumber : theNow.theRange) {
        theNumbers += " " + std::to_string(theNumber);
    }
    return Name() + ": \"" + theNow.theTitle + "\" \"" + TakeText(theText) + "\"" + theNumbers + " at " +
           TextOf(theNow.theBounds) + " hilite " + std::to_string(GetControlHilite(mControl)) +
           If(theNow.theIsVisible, "visible") + If(theNow.theIsEnabled, "enabled") +
           If(theNow.theIsActive, "active") + If(theNow.theHasFocus, "has the focus") +
           If(theNow.theOwner == nullptr, "in no window");
}

void WatchedControl::CheckPicture(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const
{
    const State theNow = Now();
    const auto theExpect = [&](bool theIsKept, const char* theWhat) {
        thePromises.Expect(theIsKept, Name() + ": " + theWhat);
    };
    const Host::ControlLook* theLook = theScreen.FindControl(Host::IdentifierOf(mControl));
    theExpect(theLook != nullptr, "is not in the picture");
    if (theLook == nullptr) {
        return;
    }
    theExpect(theLook->theWindow == Host::IdentifierOf(theNow.theOwner), "is shown in another window");
    theExpect(theLook->theIsVisible == theNow.theIsVisible, "is not shown as visible as it is");
    theExpect(theLook->theIsEnabled == theNow.theIsEnabled, "is not shown as enabled as it is");
    theExpect(theLook->theIsActive == theNow.theIsActive, "is not shown as active as it is");
    const std::array<SInt32, 4> theShown = {theLook->theValue, theLook->theMinimum, theLook->theMaximum,
                                            theLook->theViewSize};
    theExpect(theShown == theNow.theRange, "is not shown with its value and range");
    theExpect(theLook->theTitle == theNow.theTitle, "is not shown with its title");
    WindowAttributes theAttributes = 0;
    GetWindowAttributes(theNow.theOwner, &theAttributes);
    theExpect((theAttributes & kWindowCompositingAttribute) != 0 ||
                  Shows(theLook->theBounds, theNow.theBounds),
              "is not shown where it is");
}

// Menus ---------------------------------------------------------------------------------------------------

WatchedMenu::WatchedMenu(std::string theName, MenuRef theMenu, EventCourse& theCourse)
    : WatchedObject(std::move(theName), GetMenuEventTarget(theMenu),
                    {{kEventClassMenu, kEventMenuDispose},
                     {kEventClassMenu, kEventMenuPopulate},
                     {kEventClassMenu, kEventMenuEnableItems},
                     {kEventClassMenu, kEventMenuOpening},
                     {kEventClassMenu, kEventMenuClosed},
                     {kEventClassMenu, kEventMenuEndTracking},
                     {kEventClassCommand, kEventCommandUpdateStatus},
                     {kEventClassCommand, kEventCommandProcess}},
                    theCourse),
      mMenu(theMenu)
{
}

bool WatchedMenu::IsAbout(EventRef theEvent) const
{
    return GetEventClass(theEvent) == kEventClassMenu &&
           DirectObject<MenuRef>(theEvent, typeMenuRef) == mMenu;
}

void WatchedMenu::Note(EventRef theEvent)
{
    if (GetEventKind(theEvent) == kEventMenuDispose) {
        NoteEnd();
    }
}

void WatchedMenu::Release()
{
    if (mIsHeld) {
        mIsHeld = false;
        ReleaseMenu(mMenu);
    }
}

void WatchedMenu::Check(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const
{
    const Host::MenuLook* theLook = FindLook(theScreen.MenuBar().theMenus, Name());
    if (theLook == nullptr) {
        return;
    }
    const auto theExpect = [&](bool theIsKept, const char* theWhat) {
        thePromises.Expect(theIsKept, Name() + ": " + theWhat);
    };
    const MenuItemIndex theCount = CountMenuItems(mMenu);
    theExpect(theLook->theItems.size() == theCount, "is not shown with its items");
    for (MenuItemIndex theItem = 1; theItem <= std::min<size_t>(theCount, theLook->theItems.size());
         ++theItem) {
        const Host::MenuItemLook& theItemLook = theLook->theItems[theItem - size_t{1}];
        CFStringRef theText = nullptr;
        CharParameter theMark = noMark;
        CopyMenuItemTextAsCFString(mMenu, theItem, &theText);
        GetItemMark(mMenu, theItem, &theMark);
        theExpect(theItemLook.theText == TakeText(theText), "shows another text of an item");
        theExpect(theItemLook.theIsEnabled == (IsMenuItemEnabled(mMenu, theItem) != 0),
                  "shows an item as enabled that is not, or the other way round");
        theExpect((theItemLook.theMark != 0) == (theMark != noMark), "shows another mark of an item");
    }
}

std::string WatchedMenu::Describe() const
{
    std::string theResult = Name() + ":";
    for (MenuItemIndex theItem = 1; theItem <= CountMenuItems(mMenu); ++theItem) {
        CFStringRef theText = nullptr;
        CharParameter theMark = noMark;
        CopyMenuItemTextAsCFString(mMenu, theItem, &theText);
        GetItemMark(mMenu, theItem, &theMark);
        theResult += " \"" + TakeText(theText) + "\"" +
                     If(IsMenuItemEnabled(mMenu, theItem) != 0, "enabled") + If(theMark != noMark, "marked");
    }
    return theResult;
}
