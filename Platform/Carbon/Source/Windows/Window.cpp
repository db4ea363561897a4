// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Window.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"
#include "Events/EventTargets.h"
#include "Events/OutgoingEvent.h"
#include "KeyboardFocus.h"
#include "WindowDefaults.h"
#include "Windows/ControlKinds/Containers.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>
#include <utility>

namespace Host {

// Classes ------------------------------------------------------------------------------------------------

namespace {

const WindowAttributes kResizing = kWindowResizableAttribute;
const WindowAttributes kBoxes = kWindowCloseBoxAttribute | kWindowFullZoomAttribute;
const WindowAttributes kCollapsing = kWindowCollapseBoxAttribute;
const WindowAttributes kDocumentThings = kBoxes | kCollapsing | kResizing;
const WindowAttributes kPaletteThings = kBoxes | kResizing;

constexpr WindowModality kOpen = kWindowModalityNone;
constexpr WindowModality kModal = kWindowModalityAppModal;
constexpr WindowActivationScope kNever = kWindowActivationScopeNone;
constexpr WindowActivationScope kAlways = kWindowActivationScopeIndependent;
constexpr WindowActivationScope kOne = kWindowActivationScopeAll;

const WindowTraits kTraits[] = {
    // class, shape, group, title, frame, modality, scope, attributes at creation, later
    {kAlertWindowClass, WindowShape::kAlert, StandardGroup::kModal, 0, 3, kModal, kOne, 0, 0},
    {kMovableAlertWindowClass, WindowShape::kAlert, StandardGroup::kModal, 22, 0, kModal, kOne, 0, 0},
    {kModalWindowClass, WindowShape::kDialog, StandardGroup::kModal, 0, 3, kModal, kOne, 0, 0},
    {kMovableModalWindowClass, WindowShape::kDialog, StandardGroup::kModal, 22, 0, kModal, kOne, kResizing,
     kResizing},
    {kFloatingWindowClass, WindowShape::kFloating, StandardGroup::kFloating, 16, 0, kOpen, kAlways,
     kPaletteThings, kDocumentThings},
    {kDocumentWindowClass, WindowShape::kDocument, StandardGroup::kDocument, 22, 0, kOpen, kOne,
     kDocumentThings, kDocumentThings},
    {kUtilityWindowClass, WindowShape::kUtility, StandardGroup::kUtility, 16, 0, kOpen, kAlways,
     kPaletteThings, kDocumentThings},
    {kHelpWindowClass, WindowShape::kHelp, StandardGroup::kHelp, 0, 0, kOpen, kNever, 0, 0},
    {kSheetWindowClass, WindowShape::kSheet, StandardGroup::kDocument, 0, 0, kOpen, kOne, kResizing,
     kResizing},
    {kToolbarWindowClass, WindowShape::kToolbar, StandardGroup::kToolbar, 0, 0, kOpen, kNever, 0, 0},
    {kPlainWindowClass, WindowShape::kPlain, StandardGroup::kDocument, 0, 1, kOpen, kOne, 0, 0},
    {kOverlayWindowClass, WindowShape::kOverlay, StandardGroup::kOverlay, 0, 0, kOpen, kNever, 0, 0},
    {kSheetAlertWindowClass, WindowShape::kSheet, StandardGroup::kDocument, 0, 0, kOpen, kOne, 0, 0},
    {kAltPlainWindowClass, WindowShape::kPlain, StandardGroup::kDocument, 0, 1, kOpen, kOne, 0, 0},
    {kSimpleWindowClass, WindowShape::kPlain, StandardGroup::kDocument, 0, 0, kOpen, kOne, 0, 0},
    {kDrawerWindowClass, WindowShape::kDrawer, StandardGroup::kDocument, 0, 0, kOpen, kOne, kResizing,
     kResizing},
};

// The event target's way to its window. The target may outlive the window for the rest of a dispatch.
EventTargetBehaviour BehaviourOf(const std::weak_ptr<Window>& theWeakWindow)
{
    EventTargetBehaviour theBehaviour;
    theBehaviour.theContainer = [] { return GetApplicationEventTarget(); };
    theBehaviour.theDefault = [theWeakWindow](EventRef theEvent) {
        const SharedWindow theWindow = theWeakWindow.lock();
        return theWindow == nullptr ? OSStatus{eventNotHandledErr} : HandleWindowEvent(theWindow, theEvent);
    };
    theBehaviour.theConcerns = ConcernsWindow;
    return theBehaviour;
}

Rect WithoutOrigin(const Rect& theRect)
{
    return MakeRect(0, 0, WidthOf(theRect), HeightOf(theRect));
}

UInt32 BoundsAttributes(const Rect& theOld, const Rect& theNew)
{
    UInt32 theAttributes = 0;
    if (WidthOf(theOld) != WidthOf(theNew) || HeightOf(theOld) != HeightOf(theNew)) {
        theAttributes |= kWindowBoundsChangeSizeChanged;
    }
    if (theOld.left != theNew.left || theOld.top != theNew.top) {
        theAttributes |= kWindowBoundsChangeOriginChanged;
    }
    return theAttributes;
}

void FillBoundsEvent(OutgoingEvent& theEvent, WindowRef theWindow, UInt32 theCause, const Rect& theOriginal,
                     const Rect& thePrevious, const Rect& theCurrent)
{
    theEvent.Set(kEventParamDirectObject, typeWindowRef, theWindow);
    theEvent.Set(kEventParamAttributes, typeUInt32, BoundsAttributes(thePrevious, theCurrent) | theCause);
    theEvent.Set(kEventParamOriginalBounds, typeQDRectangle, theOriginal);
    theEvent.Set(kEventParamPreviousBounds, typeQDRectangle, thePrevious);
    theEvent.Set(kEventParamCurrentBounds, typeQDRectangle, theCurrent);
}

} // namespace

const WindowTraits* TraitsOf(WindowClass theClass)
{
    const auto* theEntry =
        std::find_if(std::begin(kTraits), std::end(kTraits),
                     [&](const WindowTraits& theOne) { return theOne.theClass == theClass; });
    return theEntry == std::end(kTraits) ? nullptr : theEntry;
}

// Life ---------------------------------------------------------------------------------------------------

namespace {

using WindowTable = ReferenceTable<WindowRef, ReferenceKind::kWindow, Window, NoMutex>;

// Every window that exists.
WindowTable& Windows()
{
    static NeverDestroyed<WindowTable> sWindows;
    return sWindows.Get();
}

} // namespace

SharedWindow FindWindow(WindowRef theReference)
{
    return Windows().Find(theReference);
}

SharedWindow FindWindow(ObjectId theIdentifier)
{
    return Windows().FindNumber(theIdentifier);
}

ObjectId IdentifierOf(WindowRef theReference)
{
    const SharedWindow theWindow = FindWindow(theReference);
    return theWindow == nullptr ? kNoObject : theWindow->Identifier();
}

Window::Window(const WindowTraits& theTraits, WindowAttributes theAttributes, const Rect& theContent)
    : mTraits(theTraits),
      mAttributes(theAttributes),
      mModality(theTraits.theModality),
      mScope(theTraits.theScope),
      mContent(theContent)
{
}

Window::~Window() = default;

WindowRef Window::Reference() const
{
    return WindowTable::Numbered::Of(mIdentifier);
}

OSStatus Window::Begin()
{
    const OSStatus theStatus = Guarded([this] {
        AnswerForUserFocus();
        mGroup = GroupOf(mTraits.theGroup);
        mTarget = NewEventTarget(BehaviourOf(weak_from_this()));
        Windows().Add(mIdentifier, shared_from_this());
        AddToOrder(shared_from_this());
        if (Has(kWindowCompositingAttribute)) {
            EnsureRoot();
        }
        return OSStatus{noErr};
    });
    if (theStatus != noErr) {
        Close();
    }
    return theStatus;
}

void Window::Release()
{
    if (mReferences > 0 && --mReferences == 0) {
        Close();
    }
}

// The order of the steps is what DisposeWindow promises. Handlers on the way may retain and release the
// window as they like: nothing brings it back, and the steps run once.
void Window::Close()
{
    if (mIsClosing) {
        return;
    }
    const SharedWindow theKeepAlive = shared_from_this();
    mIsClosing = true;
    SetVisible(false);
    ActivateAfterHiding(theKeepAlive);
    Tell(kEventWindowClosed);
    LetGoOfSheets();
    if (mRoot != nullptr) {
        mRoot->Dispose();
    }
    RemoveFromOrder(theKeepAlive);
    TellHere(kEventWindowDispose);
    mIsGone = true;
    Windows().Remove(Reference());
    DisposeEventTarget(mTarget);
    PresenterRegistry::Current().WindowGone(mIdentifier);
}

SharedControl Window::EnsureRoot()
{
    if (mRoot == nullptr) {
        const auto theRoot = std::make_shared<RootControl>();
        theRoot->BeginAsRoot(shared_from_this(), WithoutOrigin(mContent));
        mRoot = theRoot;
    }
    return mRoot;
}

// State --------------------------------------------------------------------------------------------------

bool Window::TakesPart() const
{
    return mIsVisible && !mIsCollapsed && (mParent == nullptr || mParent->TakesPart());
}

void Window::SetVisible(bool theIsOn)
{
    if (mIsVisible == theIsOn) {
        return;
    }
    const SharedWindow theKeepAlive = shared_from_this();
    Tell(theIsOn ? kEventWindowShowing : kEventWindowHiding);
    if (mIsGone || mIsVisible == theIsOn) {
        return; // a handler came first
    }
    mIsVisible = theIsOn;
    Show();
    ShowSheet();
    Tell(theIsOn ? kEventWindowShown : kEventWindowHidden);
    UpdateUserFocus();
}

void Window::SetCollapsed(bool theIsOn)
{
    if (mIsCollapsed == theIsOn) {
        return;
    }
    const SharedWindow theKeepAlive = shared_from_this();
    Tell(theIsOn ? kEventWindowCollapsing : kEventWindowExpanding);
    if (mIsGone || mIsCollapsed == theIsOn) {
        return;
    }
    mIsCollapsed = theIsOn;
    Show();
    ShowSheet();
    Tell(theIsOn ? kEventWindowCollapsed : kEventWindowExpanded);
    UpdateUserFocus();
}

void Window::SetActive(bool theIsOn)
{
    if (mIsActive == theIsOn) {
        return;
    }
    const SharedWindow theKeepAlive = shared_from_this();
    mIsActive = theIsOn;
    Show();
    Tell(theIsOn ? kEventWindowActivated : kEventWindowDeactivated);
    if (mIsClosing || mIsActive != theIsOn || !Has(kWindowStandardHandlerAttribute)) {
        return;
    }
    const OSStatus theAnswer = Ask(theIsOn ? kEventWindowHandleActivate : kEventWindowHandleDeactivate);
    if (theAnswer == eventNotHandledErr && mRoot != nullptr && mIsActive == theIsOn) {
        const SharedControl theRoot = mRoot;
        theRoot->Set(ControlState::kActive, theIsOn);
    }
}

void Window::SetTitle(Text theTitle)
{
    if (theTitle != mTitle) {
        mTitle = std::move(theTitle);
        Show();
        TellHere(kEventWindowTitleChanged);
    }
}

void Window::SetAttributes(WindowAttributes theAttributes)
{
    if (theAttributes != mAttributes) {
        mAttributes = theAttributes;
        Show();
        TellHere(kEventWindowAttributesChanged);
    }
}

void Window::SetModified(bool theIsOn)
{
    const bool theIsChange = mIsModified != theIsOn;
    mIsModified = theIsOn;
    mIsModifiedKnown = true;
    Show();
    if (!theIsChange) {
        return;
    }
    OutgoingEvent theEvent(kEventClassWindow, kEventWindowModified);
    theEvent.Set(kEventParamDirectObject, typeWindowRef, Reference());
    theEvent.Set(kEventParamWindowModifiedFlag, typeBoolean, static_cast<Boolean>(theIsOn));
    theEvent.SendTo(mTarget);
}

// Modality and sheets ------------------------------------------------------------------------------------

bool Window::IsModal() const
{
    return mModalStates > 0 || mModality == kWindowModalityAppModal ||
           mModality == kWindowModalitySystemModal;
}

void Window::SetModality(WindowModality theModality, const SharedWindow& theKeptOut)
{
    mModality = theModality;
    mKeptOut = theKeptOut;
    Show();
}

void Window::HangFrom(const SharedWindow& theParent)
{
    theParent->Retain();
    theParent->mSheet = weak_from_this();
    mParent = theParent;
    mModalityOnItsOwn = mModality;
    SetModality(kWindowModalityWindowModal, theParent);
    PutSheetsInFrontOf(theParent);
    theParent->PlaceSheet();
}

void Window::LetGoOfParent()
{
    if (mParent == nullptr) {
        return;
    }
    const SharedWindow theKeepAlive = shared_from_this();
    const SharedWindow theParent = std::exchange(mParent, nullptr);
    theParent->mSheet.reset();
    SetModality(mModalityOnItsOwn, nullptr);
    if (!mIsClosing && Layer() != theParent->Layer()) {
        PutIntoLayer(theKeepAlive, true);
    }
    theParent->Release();
}

// The window is closed: what hangs from it stays where it is.
void Window::LetGoOfSheets()
{
    if (const SharedWindow theSheet = Sheet(); theSheet != nullptr) {
        theSheet->LetGoOfParent();
    }
    LetGoOfParent();
}

// Right below the title bar, in the middle.
void Window::PlaceSheet()
{
    if (const SharedWindow theSheet = Sheet(); theSheet != nullptr) {
        const Rect theOld = theSheet->Content();
        const int theLeft = mContent.left + (WidthOf(mContent) - WidthOf(theOld)) / 2;
        theSheet->SetContent(Moved(theOld, theLeft - theOld.left, mContent.top - theOld.top));
    }
}

// A sheet is on the screen as long as its parent is.
void Window::ShowSheet() const
{
    if (const SharedWindow theSheet = Sheet(); theSheet != nullptr) {
        theSheet->Show();
        theSheet->ShowSheet();
    }
}

bool HangsFrom(const SharedWindow& theWindow, const SharedWindow& theOther)
{
    SharedWindow theParent = theWindow;
    while (theParent != nullptr && theParent != theOther) {
        theParent = theParent->Parent();
    }
    return theParent != nullptr;
}

SInt32 Window::Layer() const
{
    return mParent == nullptr ? mGroup->Layer() : mParent->Layer();
}

// Bounds -------------------------------------------------------------------------------------------------

Rect Window::FrameWidths() const
{
    const int theTitleHeight = Has(kWindowNoTitleBarAttribute) ? 0 : mTraits.theTitleHeight;
    const int theFrame = mTraits.theFrame;
    return MakeRect(theFrame, theTitleHeight + theFrame, theFrame, theFrame);
}

Rect Window::Structure() const
{
    const Rect theWidths = FrameWidths();
    return MakeRect(mContent.left - theWidths.left, mContent.top - theWidths.top,
                    mContent.right + theWidths.right, mContent.bottom + theWidths.bottom);
}

namespace {

const int kBoxWidth = 14;
const int kGrowBox = 15;

// Close, collapse and zoom box stand in this order from the left of the title bar, without gaps for missing
// ones.
const struct
{
    WindowAttributes theAttribute;
    WindowRegionCode theRegion;
    WindowPartCode thePart;
} kTitleBoxes[] = {{kWindowCloseBoxAttribute, kWindowCloseBoxRgn, inGoAway},
                   {kWindowCollapseBoxAttribute, kWindowCollapseBoxRgn, inCollapseBox},
                   {kWindowFullZoomAttribute, kWindowZoomBoxRgn, inZoomOut}};

Rect PlaceInTitleBar(const Window& theWindow, const Rect& theTitleBar, WindowRegionCode theRegion)
{
    int theLeft = theTitleBar.left;
    for (const auto& theBox : kTitleBoxes) {
        const int theWidth = theWindow.Has(theBox.theAttribute) ? kBoxWidth : 0;
        if (theBox.theRegion == theRegion) {
            return MakeRect(theLeft, theTitleBar.top, theLeft + theWidth, theTitleBar.bottom);
        }
        theLeft += theWidth;
    }
    const bool theIsRest = theRegion == kWindowDragRgn;
    return theIsRest ? MakeRect(theLeft, theTitleBar.top, theTitleBar.right, theTitleBar.bottom)
                     : MakeRect(0, 0, 0, 0);
}

} // namespace

Rect Window::PlaceOf(WindowRegionCode theRegion) const
{
    const Rect theStructure = Structure();
    const bool theHasTitle = mTraits.theTitleHeight > 0 && !Has(kWindowNoTitleBarAttribute);
    const Rect theTitleBar = MakeRect(theStructure.left, theStructure.top, theStructure.right,
                                      theHasTitle ? mContent.top : theStructure.top);
    switch (theRegion) {
    case kWindowContentRgn:
        return mIsCollapsed ? MakeRect(0, 0, 0, 0) : mContent;
    case kWindowGlobalPortRgn:
        return mContent;
    case kWindowStructureRgn:
        return theStructure;
    case kWindowTitleBarRgn:
        return theTitleBar;
    case kWindowGrowRgn:
        return Has(kWindowResizableAttribute)
                   ? MakeRect(mContent.right - kGrowBox, mContent.bottom - kGrowBox, mContent.right,
                              mContent.bottom)
                   : MakeRect(0, 0, 0, 0);
    default:
        return PlaceInTitleBar(*this, theTitleBar, theRegion);
    }
}

WindowPartCode PartAt(const Window& theWindow, Point thePoint)
{
    for (const auto& theBox : kTitleBoxes) {
        if (Contains(theWindow.PlaceOf(theBox.theRegion), thePoint)) {
            const bool theIsZoomed = theBox.thePart == inZoomOut && !IsEmpty(theWindow.mUnzoomed);
            return theIsZoomed ? WindowPartCode{inZoomIn} : theBox.thePart;
        }
    }
    if (Contains(theWindow.PlaceOf(kWindowDragRgn), thePoint)) {
        return inDrag;
    }
    if (Contains(theWindow.PlaceOf(kWindowGrowRgn), thePoint)) {
        return inGrow;
    }
    return Contains(theWindow.Content(), thePoint) ? WindowPartCode{inContent} : WindowPartCode{inStructure};
}

void Window::SetContent(const Rect& theContent, UInt32 theCause, const Rect* theOriginal)
{
    if (Agree(theContent, mContent)) {
        return;
    }
    const SharedWindow theKeepAlive = shared_from_this();
    const Rect theOld = mContent;
    const Rect& theStart = theOriginal == nullptr ? theOld : *theOriginal;
    OutgoingEvent theAsking(kEventClassWindow, kEventWindowBoundsChanging);
    FillBoundsEvent(theAsking, Reference(), theCause, theStart, theOld, theContent);
    Rect theNew = theContent;
    if (theAsking.SendTo(mTarget) == noErr) {
        theAsking.Read(kEventParamCurrentBounds, typeQDRectangle, &theNew);
    }
    if (mIsGone || IsEmpty(theNew) || Agree(theNew, theOld) || !Agree(mContent, theOld)) {
        return;
    }
    PlaceContent(theNew);
    OutgoingEvent theTelling(kEventClassWindow, kEventWindowBoundsChanged);
    FillBoundsEvent(theTelling, Reference(), theCause, theStart, theOld, theNew);
    theTelling.SendTo(mTarget, kEventTargetSendToAllHandlers);
    PlaceSheet();
    MoveGroupWith(theKeepAlive, theNew.left - theOld.left, theNew.top - theOld.top);
}

void Window::PlaceContent(const Rect& theContent)
{
    const bool theHasResized =
        WidthOf(theContent) != WidthOf(mContent) || HeightOf(theContent) != HeightOf(mContent);
    mContent = theContent;
    Show();
    if (theHasResized && mRoot != nullptr) {
        const SharedControl theRoot = mRoot;
        theRoot->SetBounds(WithoutOrigin(theContent));
    }
}

// Events -------------------------------------------------------------------------------------------------

void Window::Tell(UInt32 theKind)
{
    OutgoingEvent theEvent(kEventClassWindow, theKind);
    theEvent.Set(kEventParamDirectObject, typeWindowRef, Reference());
    theEvent.SendTo(mTarget, kEventTargetSendToAllHandlers);
}

void Window::TellHere(UInt32 theKind)
{
    OutgoingEvent theEvent(kEventClassWindow, theKind);
    theEvent.Set(kEventParamDirectObject, typeWindowRef, Reference());
    theEvent.TellAll(mTarget);
}

OSStatus Window::Ask(UInt32 theKind)
{
    OutgoingEvent theEvent(kEventClassWindow, theKind);
    theEvent.Set(kEventParamDirectObject, typeWindowRef, Reference());
    return theEvent.SendTo(mTarget);
}

// Looks --------------------------------------------------------------------------------------------------

void Window::Show() const
{
    if (!mIsGone && !mIsClosing) {
        // The managers hold the truth: a picture that there is no memory for is made up for by the next one.
        Guarded([this] {
            PresenterRegistry::Current().WindowLooks(Look());
            return OSStatus{noErr};
        });
    }
}

WindowLook Window::Look() const
{
    WindowLook theLook;
    theLook.theId = mIdentifier;
    theLook.theParent = mParent == nullptr ? kNoObject : mParent->Identifier();
    theLook.theShape = mTraits.theShape;
    theLook.theTitle = Utf8Of(mTitle);
    theLook.theContent = PixelsOf(mContent);
    theLook.theStructure = PixelsOf(Structure());
    theLook.theOrder = IndexInOrder(*this);
    theLook.theHasCloseBox = Has(kWindowCloseBoxAttribute);
    theLook.theHasCollapseBox = Has(kWindowCollapseBoxAttribute);
    theLook.theHasZoomBox = Has(kWindowFullZoomAttribute);
    theLook.theIsResizable = Has(kWindowResizableAttribute);
    theLook.theIsMovable = FrameWidths().top > mTraits.theFrame;
    theLook.theIsVisible = mIsVisible && (mParent == nullptr || mParent->TakesPart());
    theLook.theIsCollapsed = mIsCollapsed;
    theLook.theIsActive = mIsActive;
    theLook.theIsModified = mIsModified && mIsModifiedKnown;
    theLook.theIsModal = IsModal();
    theLook.theSmallest = {Narrow(double{mSmallest.width}), Narrow(double{mSmallest.height})};
    theLook.theLargest = {Narrow(double{mLargest.width}), Narrow(double{mLargest.height})};
    return theLook;
}

} // namespace Host
