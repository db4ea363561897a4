// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "HeadlessSnapshot.h"

#include "HeadlessDrawing.h"

#include <algorithm>

namespace Host {

namespace {

// Column at which the names of controls begin.
constexpr size_t kPictureWidth = 40;

constexpr std::uint32_t kWhite = 0xFFFFFFFF;

// What of a window can be in a picture, in one direction.
constexpr int kLargestSide = 4096;

int SideOf(int theStart, int theEnd)
{
    return std::clamp(theEnd - theStart, 0, kLargestSide);
}

template <class Look>
void SortByOrder(std::vector<const Look*>& theLooks)
{
    std::stable_sort(theLooks.begin(), theLooks.end(), [](const Look* theOne, const Look* theOther) {
        return theOne->theOrder < theOther->theOrder;
    });
}

} // namespace

void HeadlessSnapshot::Stop()
{
    mWindows.clear();
    mControls.clear();
    mMenuBar = {};
    mFocusedWindow = kNoObject;
    mFocusedControl = kNoObject;
    mPointer = {};
}

void HeadlessSnapshot::WindowLooks(const WindowLook& theLook)
{
    mWindows[theLook.theId] = theLook;
}

void HeadlessSnapshot::WindowGone(ObjectId theWindow)
{
    for (auto theEntry = mControls.begin(); theEntry != mControls.end();) {
        theEntry = theEntry->second.theWindow == theWindow ? mControls.erase(theEntry) : std::next(theEntry);
    }
    mWindows.erase(theWindow);
}

void HeadlessSnapshot::ControlLooks(const ControlLook& theLook)
{
    mControls[theLook.theId] = theLook;
}

void HeadlessSnapshot::ControlGone(ObjectId theControl)
{
    mControls.erase(theControl);
}

void HeadlessSnapshot::MenuBarLooks(const MenuBarLook& theLook)
{
    mMenuBar = theLook;
}

void HeadlessSnapshot::FocusIsAt(ObjectId theWindow, ObjectId theControl)
{
    mFocusedWindow = theWindow;
    mFocusedControl = theControl;
}

void HeadlessSnapshot::PointerLooks(const PointerLook& theLook)
{
    mPointer = theLook;
}

void HeadlessSnapshot::Beep()
{
    ++mBeeps;
}

const WindowLook* HeadlessSnapshot::FindWindow(ObjectId theWindow) const
{
    const auto theEntry = mWindows.find(theWindow);
    return theEntry == mWindows.end() ? nullptr : &theEntry->second;
}

const ControlLook* HeadlessSnapshot::FindControl(ObjectId theControl) const
{
    const auto theEntry = mControls.find(theControl);
    return theEntry == mControls.end() ? nullptr : &theEntry->second;
}

std::vector<const WindowLook*> HeadlessSnapshot::WindowsFrontToBack() const
{
    std::vector<const WindowLook*> theWindows;
    for (const auto& theEntry : mWindows) {
        theWindows.push_back(&theEntry.second);
    }
    SortByOrder(theWindows);
    return theWindows;
}

std::vector<const ControlLook*> HeadlessSnapshot::ControlsIn(ObjectId theWindow, ObjectId theParent) const
{
    std::vector<const ControlLook*> theControls;
    for (const auto& theEntry : mControls) {
        if (theEntry.second.theWindow == theWindow && theEntry.second.theParent == theParent) {
            theControls.push_back(&theEntry.second);
        }
    }
    SortByOrder(theControls);
    return theControls;
}

Picture HeadlessSnapshot::DrawingOf(ObjectId theWindow) const
{
    Picture theGround;
    const WindowLook* const theLook = FindWindow(theWindow);
    if (theLook == nullptr) {
        return theGround;
    }
    for (const auto& theEntry : mControls) {
        const Picture* const theDrawing = theEntry.second.Rare().theDrawing.get();
        if (theDrawing != nullptr && theEntry.second.theWindow == theWindow) {
            theGround.theScale = std::max(theGround.theScale, theDrawing->theScale);
        }
    }
    const PixelRect& theContent = theLook->theContent;
    theGround.theWidth = SideOf(theContent.theLeft, theContent.theRight) * theGround.theScale;
    theGround.theHeight = SideOf(theContent.theTop, theContent.theBottom) * theGround.theScale;
    theGround.thePixels.assign(
        static_cast<size_t>(theGround.theWidth) * static_cast<size_t>(theGround.theHeight), kWhite);
    DrawBranches(theWindow, kNoObject, theGround);
    return theGround;
}

void HeadlessSnapshot::DrawBranches(ObjectId theWindow, ObjectId theParent, Picture& theGround) const
{
    for (const ControlLook* theControl : ControlsIn(theWindow, theParent)) {
        const Picture* const theDrawing = theControl->Rare().theDrawing.get();
        if (theDrawing != nullptr && theControl->theIsVisible) {
            DrawOver(*theDrawing,
                     {theControl->theBounds.theLeft * theGround.theScale,
                      theControl->theBounds.theTop * theGround.theScale},
                     theGround);
        }
        DrawBranches(theWindow, theControl->theId, theGround);
    }
}

std::string HeadlessSnapshot::DescribeScreen() const
{
    std::string theText = DescribeMenuBar();
    for (const WindowLook* theWindow : WindowsFrontToBack()) {
        theText += DescribeWindow(*theWindow);
    }
    return theText.empty() ? "Nothing is on the screen.\n" : theText;
}

std::string HeadlessSnapshot::DescribeControl(ObjectId theControl) const
{
    const ControlLook* theLook = FindControl(theControl);
    return theLook == nullptr ? std::string() : DescribeBranch(*theLook, "");
}

std::string HeadlessSnapshot::DescribeMenu(const MenuLook& theMenu)
{
    std::string theText;
    for (const MenuItemLook& theItem : theMenu.theItems) {
        theText += theItem.theIsHidden ? "" : DrawMenuItem(theItem) + "\n";
    }
    return theText;
}

std::string HeadlessSnapshot::DescribeMenuBar() const
{
    std::string theText;
    if (mMenuBar.theIsShown) {
        for (const MenuLook& theMenu : mMenuBar.theMenus) {
            theText += (theText.empty() ? "Menu bar: " : " | ") + theMenu.theTitle;
            theText += theMenu.theIsEnabled ? "" : " (disabled)";
        }
    }
    return theText.empty() ? theText : theText + "\n";
}

std::string HeadlessSnapshot::DescribeWindow(const WindowLook& theWindow) const
{
    std::string theText = NameWindow(theWindow) + "\n";
    if (theWindow.theIsVisible && !theWindow.theIsCollapsed) {
        theText += "   " + PlaceOfWindow(theWindow) + "\n";
        // The root pane is the window's content itself: its controls are shown as the window's.
        for (const ControlLook* theRoot : ControlsIn(theWindow.theId, kNoObject)) {
            theText += theRoot->theShape == ControlShape::kPane
                           ? DescribeBranches(theWindow.theId, theRoot->theId, " ")
                           : DescribeBranch(*theRoot, " ├─ ") + "\n";
        }
    }
    return theText;
}

std::string HeadlessSnapshot::DescribeBranches(ObjectId theWindow, ObjectId theParent,
                                               const std::string& theIndent) const
{
    std::string theText;
    const std::vector<const ControlLook*> theControls = ControlsIn(theWindow, theParent);
    for (const ControlLook* theControl : theControls) {
        const bool theIsLast = theControl == theControls.back();
        theText += DescribeBranch(*theControl, theIndent + (theIsLast ? "└─ " : "├─ ")) + "\n";
        theText += DescribeBranches(theWindow, theControl->theId, theIndent + (theIsLast ? "   " : "│  "));
    }
    return theText;
}

std::string HeadlessSnapshot::DescribeBranch(const ControlLook& theControl,
                                             const std::string& theIndent) const
{
    const std::string thePicture = theIndent + DrawControl(theControl);
    const char* theKeys = theControl.theId == mFocusedControl ? ", has the keys" : "";
    return Padded(thePicture, kPictureWidth) + "  " + NameControl(theControl) + StateOfControl(theControl) +
           theKeys;
}

} // namespace Host
