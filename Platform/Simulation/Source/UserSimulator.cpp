// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Simulation/UserSimulator.h>

#include "Base/Geometry.h"
#include "Glance.h"
#include "HeadlessDrawing.h"
#include "Input/KeyText.h"
#include "USKeyboard.h"
#include "Windows/Control.h"
#include "Windows/Window.h"

#include <Presentation/PresenterRegistry.h>

#include <algorithm>
#include <fstream>
#include <utility>

namespace Host {

namespace {

UserResult SavePng(const Picture& thePicture, const std::string& thePath)
{
    std::ofstream theFile(thePath, std::ios::binary);
    theFile << PngOf(thePicture);
    theFile.close();
    return theFile ? UserResult::Done() : Refuse("the file \"" + thePath + "\" cannot be written");
}

std::string Name(const Window& theWindow)
{
    return "the window " + Quoted(theWindow.Look().theTitle);
}

std::string Name(const Control& theControl)
{
    return "the " + NameControl(theControl.Look());
}

// Why a person cannot reach into the window; empty when they can.
std::string WhyClosedOff(const SharedWindow& theWindow)
{
    if (theWindow == nullptr) {
        return "the window is gone";
    }
    if (!theWindow->IsVisible()) {
        return Name(*theWindow) + " is hidden";
    }
    if (theWindow->IsCollapsed()) {
        return Name(*theWindow) + " is collapsed";
    }
    const SharedWindow theModal = ModalWindowOver(theWindow);
    return theModal == nullptr ? "" : Name(*theWindow) + " is behind " + Name(*theModal) + ", which is modal";
}

std::string WhyUnusable(const ControlAddress& theAddress, const SharedControl& theControl)
{
    if (theControl == nullptr) {
        return "there is no " + theAddress.Describe();
    }
    if (theControl->Owner() == nullptr) {
        return Name(*theControl) + " is in no window";
    }
    std::string theReason = WhyClosedOff(theControl->Owner());
    if (theReason.empty() && !theControl->Is(ControlState::kVisible)) {
        theReason = Name(*theControl) + " is hidden";
    }
    if (theReason.empty() && !theControl->Is(ControlState::kEnabled)) {
        theReason = Name(*theControl) + " is disabled";
    }
    return theReason;
}

Point ToGlobal(const Window& theWindow, Point thePoint)
{
    const Rect& theContent = theWindow.Content();
    return {static_cast<short>(theContent.top + thePoint.v),
            static_cast<short>(theContent.left + thePoint.h)};
}

// Why a press at a point of the window's content would not reach the control; empty when it would.
std::string WhyCovered(const Control& theControl, Point thePoint)
{
    const SharedWindow theWindow = theControl.Owner();
    const Point thePlace = ToGlobal(*theWindow, thePoint);
    if (!PtInRect(thePlace, &theWindow->Content())) {
        return Name(theControl) + " lies outside of its window";
    }
    const SharedWindow theFront = WindowAt(thePlace);
    if (theFront != nullptr && theFront != theWindow) {
        return Name(theControl) + " is covered by " + Name(*theFront);
    }
    const SharedControl theTop = ControlAt(theWindow, thePoint);
    if (theTop == nullptr || theTop.get() == &theControl) {
        return "";
    }
    return Name(theControl) + " is covered by " + Name(*theTop);
}

std::string WhyOutOfReach(const ControlAddress& theAddress, const SharedControl& theControl, Point thePoint)
{
    const std::string theReason = WhyUnusable(theAddress, theControl);
    return theReason.empty() ? WhyCovered(*theControl, thePoint) : theReason;
}

// Where a press reaches a part; for kControlEntireControl, the middle of the control.
bool PlaceOfPart(const SharedControl& theControl, ControlPartCode thePart, Point* thePoint)
{
    if (thePart != kControlEntireControl) {
        return PointOfPart(theControl, thePart, thePoint);
    }
    *thePoint = MiddleOf(BoundsInWindow(theControl));
    return true;
}

// A part of a window's frame, and what is said of windows without.
struct FramePart
{
    WindowRegionCode theRegion;
    const char* theLack;
};

const FramePart kCloseBox = {kWindowCloseBoxRgn, "has no close box"};
const FramePart kCollapseBox = {kWindowCollapseBoxRgn, "has no collapse box"};
const FramePart kZoomBox = {kWindowZoomBoxRgn, "has no zoom box"};
const FramePart kTitleBar = {kWindowDragRgn, "has no title bar"};
const FramePart kGrowBox = {kWindowGrowRgn, "cannot be resized"};

// A place half way down the region where no other window is in front.
bool FindPlace(const SharedWindow& theWindow, const Rect& theRegion, Point* thePlace)
{
    *thePlace = MiddleOf(theRegion);
    for (thePlace->h = theRegion.left; thePlace->h < theRegion.right; ++thePlace->h) {
        if (WindowAt(*thePlace) == theWindow) {
            return true;
        }
    }
    return false;
}

// Takes hold of a part of the frame with the mouse, and does the rest when nobody consumed the press.
template <class Action>
UserResult UseFrame(WindowRef theWindow, const FramePart& thePart, const Action& theAction)
{
    const SharedWindow theFound = FindWindow(theWindow);
    const std::string theReason = WhyClosedOff(theFound);
    if (!theReason.empty()) {
        return Refuse(theReason);
    }
    const Rect theRegion = theFound->PlaceOf(thePart.theRegion);
    if (IsEmpty(theRegion)) {
        return Refuse(Name(*theFound) + " " + thePart.theLack);
    }
    Point thePlace = {0, 0};
    if (!FindPlace(theFound, theRegion, &thePlace)) {
        return Refuse("the frame of " + Name(*theFound) + " is covered");
    }
    PointerAction thePress;
    thePress.theWindow = theFound->Identifier();
    thePress.thePlace = {thePlace.h, thePlace.v};
    PresenterEvents& theEvents = PresenterRegistry::Events();
    theEvents.PointerMoved(thePress);
    theEvents.PointerPressed(thePress);
    const bool theIsTaken = theEvents.WasTaken();
    theEvents.PointerReleased(thePress);
    if (!theIsTaken) {
        theAction(thePress.theWindow);
    }
    return UserResult::Done();
}

bool IsAllowed(const WindowLook& theLook, const PixelSize& theSize)
{
    const auto theIsWithin = [](int theNumber, int theLeast, int theMost) {
        return theNumber >= std::max(theLeast, 1) && (theMost == 0 || theNumber <= theMost);
    };
    return theIsWithin(theSize.theWidth, theLook.theSmallest.theWidth, theLook.theLargest.theWidth) &&
           theIsWithin(theSize.theHeight, theLook.theSmallest.theHeight, theLook.theLargest.theHeight);
}

std::string Describe(const PixelSize& theSize)
{
    return std::to_string(theSize.theWidth) + " × " + std::to_string(theSize.theHeight);
}

// Holds modifier keys down for the time of an action.
class HeldModifiers
{
public:
    explicit HeldModifiers(UInt32 theModifiers)
        : mModifiers(theModifiers)
    {
        Report(mModifiers);
    }
    ~HeldModifiers() { Report(0); }
    HeldModifiers(const HeldModifiers&) = delete;
    HeldModifiers& operator=(const HeldModifiers&) = delete;

private:
    void Report(UInt32 theModifiers) const
    {
        if (mModifiers != 0) {
            PresenterRegistry::Events().ModifiersChanged(theModifiers);
        }
    }

    UInt32 mModifiers;
};

void Strike(UInt32 theKey, UInt32 theModifiers, const std::string& theText)
{
    const PopUpAnswer theAnswer;
    const HeldModifiers theHeld(theModifiers);
    const KeyAction theAction = {theKey, theText, theModifiers};
    PresenterRegistry::Events().KeyPressed(theAction);
    PresenterRegistry::Events().KeyReleased(theAction);
}

// The code points of UTF-8 text that is known to be well-formed, each as its bytes.
std::vector<std::string> CodePointsOf(const std::string& theText)
{
    std::vector<std::string> theCodePoints;
    for (const char theByte : theText) {
        if ((static_cast<unsigned char>(theByte) & 0xC0u) != 0x80u) {
            theCodePoints.emplace_back();
        }
        theCodePoints.back() += theByte;
    }
    return theCodePoints;
}

void Drag(ObjectId theControl, DragPhase thePhase, SInt32 theValue)
{
    PresenterRegistry::Events().ControlDragged({theControl, thePhase, theValue, kNoModifiers});
}

// Hands files to the program, all of which must be there.
UserResult HandOver(const std::vector<std::string>& theFiles,
                    bool (PresenterEvents::*theRequest)(const std::vector<std::string>& theFiles))
{
    for (const std::string& theFile : theFiles) {
        FSRef theReference;
        if (FSPathMakeRef(reinterpret_cast<const UInt8*>(theFile.c_str()), &theReference, nullptr) != noErr) {
            return Refuse("there is no file " + Quoted(theFile));
        }
    }
    if (theFiles.empty()) {
        return Refuse("no file is named");
    }
    (PresenterRegistry::Events().*theRequest)(theFiles);
    return UserResult::Done();
}

} // namespace

// Results ----------------------------------------------------------------------------------------------

UserResult UserResult::Refused(std::string theReason, std::string theScreen)
{
    UserResult theResult;
    theResult.mReason = std::move(theReason);
    theResult.mScreen = std::move(theScreen);
    return theResult;
}

std::string UserResult::Explain() const
{
    return mReason.empty() ? "" : "Refused: " + mReason + ".\n" + mScreen;
}

// Addresses --------------------------------------------------------------------------------------------

ControlAddress::ControlAddress(ControlRef theControl)
    : mControl(theControl)
{
}

ControlAddress::ControlAddress(WindowRef theWindow, ControlID theID)
    : mWindow(theWindow),
      mID(theID)
{
}

ControlRef ControlAddress::Find() const
{
    if (mControl != nullptr) {
        return FindControl(mControl) == nullptr ? nullptr : mControl;
    }
    ControlRef theControl = nullptr;
    const OSStatus theStatus = GetControlByID(mWindow, &mID, &theControl);
    return theStatus == noErr ? theControl : nullptr;
}

std::string ControlAddress::Describe() const
{
    if (mControl != nullptr || mWindow == nullptr) {
        return "such control";
    }
    const SharedWindow theWindow = FindWindow(mWindow);
    return Identified("control", mID.signature, mID.id) +
           (theWindow == nullptr ? " in a window that is gone" : " in " + Name(*theWindow));
}

// Controls ---------------------------------------------------------------------------------------------

UserResult UserSimulator::Click(const ControlAddress& theControl, UInt32 theModifiers)
{
    return PressAt(theControl, kControlEntireControl, theModifiers);
}

UserResult UserSimulator::ClickPart(const ControlAddress& theControl, ControlPartCode thePart,
                                    UInt32 theModifiers)
{
    return PressAt(theControl, thePart, theModifiers);
}

UserResult UserSimulator::PressAt(const ControlAddress& theAddress, ControlPartCode thePart,
                                  UInt32 theModifiers, const Choice& theChoice)
{
    const PopUpAnswer theAnswer(theChoice);
    const SharedControl theControl = FindControl(theAddress.Find());
    Point thePoint = {0, 0};
    if (theControl != nullptr && !PlaceOfPart(theControl, thePart, &thePoint)) {
        return Refuse(Name(*theControl) + " has no part " + std::to_string(thePart));
    }
    const std::string theReason = WhyOutOfReach(theAddress, theControl, thePoint);
    if (!theReason.empty()) {
        return Refuse(theReason);
    }
    const SharedWindow theWindow = theControl->Owner();
    const Point thePlace = ToGlobal(*theWindow, thePoint);
    PointerAction theAction;
    theAction.theWindow = theWindow->Identifier();
    theAction.thePlace = {thePlace.h, thePlace.v};
    theAction.theModifiers = theModifiers;
    const HeldModifiers theHeld(theModifiers);
    PresenterRegistry::Events().PointerMoved(theAction);
    PresenterRegistry::Events().PointerPressed(theAction);
    PresenterRegistry::Events().PointerReleased(theAction);
    return UserResult::Done();
}

UserResult UserSimulator::DragSlider(const ControlAddress& theAddress, SInt32 theValue)
{
    const SharedControl theControl = FindControl(theAddress.Find());
    Point thePoint = {0, 0};
    if (theControl != nullptr && !PointOfPart(theControl, kControlIndicatorPart, &thePoint)) {
        return Refuse(Name(*theControl) + " has no indicator to drag");
    }
    const std::string theReason = WhyOutOfReach(theAddress, theControl, thePoint);
    if (!theReason.empty()) {
        return Refuse(theReason);
    }
    const ControlRange theRange = theControl->Range();
    if (theRange.Nearest(theValue) != theValue) {
        return Refuse(Name(*theControl) + " goes from " + std::to_string(theRange.theMinimum) + " to " +
                      std::to_string(theRange.theMaximum));
    }
    const std::int64_t theSum = static_cast<std::int64_t>(theRange.theValue) + theValue;
    const ObjectId theIdentifier = theControl->Identifier();
    Drag(theIdentifier, DragPhase::kBegan, theRange.theValue);
    Drag(theIdentifier, DragPhase::kMoved, static_cast<SInt32>(theSum / 2));
    Drag(theIdentifier, DragPhase::kMoved, theValue);
    Drag(theIdentifier, DragPhase::kEnded, theValue);
    return UserResult::Done();
}

// Keys -------------------------------------------------------------------------------------------------

UserResult UserSimulator::PressKey(UInt32 theKey, UInt32 theModifiers)
{
    Strike(theKey, theModifiers, TypedBy(theKey, theModifiers));
    return UserResult::Done();
}

UserResult UserSimulator::TypeText(const std::string& theText)
{
    if (!theText.empty() && ToUtf16(theText).empty()) {
        return Refuse("the text to type is not UTF-8");
    }
    const Glance theScreen;
    const ControlLook* theField = theScreen.FindControl(theScreen.FocusedControl());
    const bool theTakesKeys =
        theField != nullptr && (TakesText(theField->theShape) || theField->theShape == ControlShape::kClock);
    if (!theTakesKeys) {
        return Refuse("the keys go to no edit text");
    }
    for (const std::string& theCodePoint : CodePointsOf(theText)) {
        const KeyStroke theStroke = StrokeFor(theCodePoint[0]);
        const bool theIsControl = theStroke.theKey == kVK_Tab || theStroke.theKey == kVK_Return;
        Strike(theStroke.theKey, theStroke.theModifiers, theIsControl ? std::string() : theCodePoint);
    }
    return UserResult::Done();
}

// Windows ----------------------------------------------------------------------------------------------

UserResult UserSimulator::CloseWindow(WindowRef theWindow)
{
    return UseFrame(theWindow, kCloseBox,
                    [](ObjectId theId) { PresenterRegistry::Events().CloseAsked(theId); });
}

UserResult UserSimulator::MoveWindow(WindowRef theWindow, short theLeft, short theTop)
{
    const PixelPoint thePlace = {theLeft, theTop};
    return UseFrame(theWindow, kTitleBar,
                    [thePlace](ObjectId theId) { PresenterRegistry::Events().WindowMoved(theId, thePlace); });
}

UserResult UserSimulator::ResizeWindow(WindowRef theWindow, short theWidth, short theHeight)
{
    const PixelSize theSize = {theWidth, theHeight};
    const SharedWindow theFound = FindWindow(theWindow);
    if (theFound != nullptr && theFound->Has(kWindowResizableAttribute) &&
        !IsAllowed(theFound->Look(), theSize)) {
        return Refuse(Name(*theFound) + " cannot be made " + Describe(theSize));
    }
    return UseFrame(theWindow, kGrowBox,
                    [theSize](ObjectId theId) { PresenterRegistry::Events().WindowResized(theId, theSize); });
}

UserResult UserSimulator::ZoomWindow(WindowRef theWindow)
{
    return UseFrame(theWindow, kZoomBox,
                    [](ObjectId theId) { PresenterRegistry::Events().ZoomAsked(theId); });
}

UserResult UserSimulator::CollapseWindow(WindowRef theWindow)
{
    return UseFrame(theWindow, kCollapseBox,
                    [](ObjectId theId) { PresenterRegistry::Events().CollapseAsked(theId, true); });
}

UserResult UserSimulator::ExpandWindow(WindowRef theWindow)
{
    const SharedWindow theFound = FindWindow(theWindow);
    if (theFound == nullptr) {
        return Refuse("the window is gone");
    }
    if (!theFound->IsVisible() || !theFound->IsCollapsed()) {
        return Refuse(Name(*theFound) + " is not collapsed");
    }
    if (!PresenterRegistry::Events().CollapseAsked(theFound->Identifier(), false)) {
        return Refuse(Name(*theFound) + " cannot be expanded now");
    }
    return UserResult::Done();
}

UserResult UserSimulator::ActivateWindow(WindowRef theWindow)
{
    return UseFrame(theWindow, kTitleBar, [](ObjectId) {});
}

// Files ------------------------------------------------------------------------------------------------

UserResult UserSimulator::OpenFiles(const std::vector<std::string>& theFiles)
{
    return HandOver(theFiles, &PresenterEvents::OpenAsked);
}

UserResult UserSimulator::PrintFiles(const std::vector<std::string>& theFiles)
{
    return HandOver(theFiles, &PresenterEvents::PrintAsked);
}

UserResult UserSimulator::StartAgain()
{
    PresenterRegistry::Events().ReopenAsked();
    return UserResult::Done();
}

// Looking ----------------------------------------------------------------------------------------------

std::string UserSimulator::DescribeScreen() const
{
    return Glance().DescribeScreen();
}

std::string UserSimulator::DescribeControl(const ControlAddress& theAddress) const
{
    const SharedControl theControl = FindControl(theAddress.Find());
    return theControl == nullptr ? "" : Glance().DescribeControl(theControl->Identifier());
}

std::string UserSimulator::DescribeHelp(const ControlAddress& theAddress) const
{
    const SharedControl theControl = FindControl(theAddress.Find());
    const bool theIsSeen = theControl != nullptr && theControl->Is(ControlState::kVisible) &&
                           WhyClosedOff(theControl->Owner()).empty();
    return theIsSeen ? theControl->Look().Rare().theHelp : std::string();
}

UserResult UserSimulator::SavePicture(const ControlAddress& theAddress, const std::string& thePath) const
{
    const SharedControl theControl = FindControl(theAddress.Find());
    const ControlLook theLook = theControl == nullptr ? ControlLook() : theControl->Look();
    return theLook.Rare().theDrawing == nullptr ? Refuse("the program has not drawn such a control")
                                                : SavePng(*theLook.Rare().theDrawing, thePath);
}

UserResult UserSimulator::SavePicture(WindowRef theWindow, const std::string& thePath) const
{
    const SharedWindow theFound = FindWindow(theWindow);
    return theFound == nullptr || !theFound->IsVisible()
               ? Refuse("the window is not shown")
               : SavePng(Glance().DrawingOf(theFound->Identifier()), thePath);
}

} // namespace Host
