// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Life of controls and their places in each other and in windows.

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"
#include "Events/EventTargets.h"
#include "Events/OutgoingEvent.h"
#include "HelpTags.h"
#include "KeyboardFocus.h"
#include "Layout.h"
#include "Window.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>
#include <set>
#include <utility>

namespace Host {

namespace {

// The event target's way to its control. The target may outlive the control for the rest of a dispatch.
EventTargetBehaviour BehaviourOf(const std::weak_ptr<Control>& theWeakControl)
{
    EventTargetBehaviour theBehaviour;
    theBehaviour.theContainer = [theWeakControl] {
        const SharedControl theControl = theWeakControl.lock();
        return theControl == nullptr ? GetApplicationEventTarget() : theControl->TargetAround();
    };
    theBehaviour.theDefault = [theWeakControl](EventRef theEvent) {
        const SharedControl theControl = theWeakControl.lock();
        return theControl == nullptr ? OSStatus{eventNotHandledErr}
                                     : PressKeyInControl(*theControl, theEvent);
    };
    theBehaviour.theConcerns = ConcernsControl;
    return theBehaviour;
}

using ControlTable = ReferenceTable<ControlRef, ReferenceKind::kControl, Control, NoMutex>;

// Every control that exists.
ControlTable& Controls()
{
    static NeverDestroyed<ControlTable> sControls;
    return sControls.Get();
}

std::uint64_t KeyOf(const ControlID& theID)
{
    return std::uint64_t{theID.signature} << 32 | static_cast<std::uint32_t>(theID.id);
}

// The names that the program has given to controls, each with the control that has it.
std::set<std::pair<std::uint64_t, ObjectId>>& Names()
{
    static NeverDestroyed<std::set<std::pair<std::uint64_t, ObjectId>>> sNames;
    return sNames.Get();
}

// A window's default and cancel button are in it.
void ForgetButtons(const SharedWindow& theWindow, const Control& theControl)
{
    if (theWindow == nullptr) {
        return;
    }
    for (auto theButton : {&Window::mDefaultButton, &Window::mCancelButton}) {
        if ((*theWindow.*theButton).lock().get() == &theControl) {
            (*theWindow.*theButton).reset();
        }
    }
}

} // namespace

SharedControl FindControl(ControlRef theReference)
{
    return Controls().Find(theReference);
}

SharedControl FindControl(ObjectId theIdentifier)
{
    return Controls().FindNumber(theIdentifier);
}

ObjectId IdentifierOf(ControlRef theReference)
{
    const SharedControl theControl = FindControl(theReference);
    return theControl == nullptr ? 0 : theControl->Identifier();
}

// Life ---------------------------------------------------------------------------------------------------

Control::Control(OSType theKind, UInt32 theFeatures)
    : mKind(theKind),
      mFeatures(theFeatures)
{
}

Control::~Control() = default;

ControlRef Control::Reference() const
{
    return ControlTable::Numbered::Of(mIdentifier);
}

void Control::Begin(const SharedWindow& theOwner, const Rect& theBounds, const Text& theTitle)
{
    mBounds = theBounds;
    mTitle = theTitle;
    mOwner = theOwner;
    Controls().Add(mIdentifier, shared_from_this());
    const OSStatus theStatus = Guarded([this] {
        mTarget = NewEventTarget(BehaviourOf(weak_from_this()));
        return OSStatus{noErr};
    });
    if (theStatus != noErr) {
        Controls().Remove(Reference());
        throw std::bad_alloc();
    }
    if (mIsDrawnByProgram) {
        Changed();
    }
}

void Control::BeginAsRoot(const SharedWindow& theOwner, const Rect& theBounds)
{
    mIsRoot = true;
    Begin(theOwner, theBounds, Text());
    Show();
}

// The order of the steps is what DisposeControl promises. A handler may dispose the parent, the window or
// this control once more meanwhile; mIsGoing keeps the second call out, and the count held here keeps the
// object.
void Control::Dispose()
{
    if (mIsGoing) {
        return; // it is being disposed further out, or is gone
    }
    const SharedControl theKeepAlive = shared_from_this();
    mIsGoing = true;
    ReleaseFocusInside(*this);
    Ask(kEventClassControl, kEventControlDispose);
    DisposeSubControls();
    const SharedControl theParent = Parent();
    if (theParent != nullptr && !theParent->mIsGoing) {
        TellContainer(kEventControlRemovingSubControl, theParent);
    }
    Leave();
    mIsGone = true;
    Names().erase({KeyOf(mID), mIdentifier});
    RemoveLayout(*this);
    RemoveHelp(*this);
    Controls().Remove(Reference());
    Disposed();
    DisposeEventTarget(mTarget);
    PresenterRegistry::Current().ControlGone(mIdentifier);
    if (theParent != nullptr && !theParent->mIsGoing) {
        theParent->SubControlsChanged();
    }
}

void Control::Release()
{
    if (!mIsRoot && !mIsGoing && --mCount == 0) {
        Dispose();
    }
}

// The new name is known before the old one goes: there may be no memory for it.
void Control::SetID(const ControlID& theID)
{
    Names().insert({KeyOf(theID), mIdentifier});
    if (KeyOf(mID) != KeyOf(theID)) {
        Names().erase({KeyOf(mID), mIdentifier});
    }
    mID = theID;
}

void Control::DisposeSubControls()
{
    // Handlers may dispose others of them meanwhile, and make new ones, which stay: those have greater
    // numbers. No list is made of them, since what disposes must not need memory.
    ObjectId theNewest = 0;
    for (const SharedControl& theSubControl : mSubControls) {
        theNewest = std::max(theNewest, theSubControl->mIdentifier);
    }
    while (const SharedControl theNext = LastSubControl(theNewest)) {
        theNext->Dispose();
    }
}

// The frontmost one that is not being disposed yet and has no greater number than theNewest; null for none.
SharedControl Control::LastSubControl(ObjectId theNewest) const
{
    const auto theEntry =
        std::find_if(mSubControls.rbegin(), mSubControls.rend(), [=](const SharedControl& theOne) {
            return !theOne->mIsGoing && theOne->mIdentifier <= theNewest;
        });
    return theEntry == mSubControls.rend() ? nullptr : *theEntry;
}

// Hierarchy ----------------------------------------------------------------------------------------------

SharedWindow Control::Owner() const
{
    return mOwner.lock();
}

EventTargetRef Control::TargetAround() const
{
    if (const SharedControl theParent = Parent()) {
        return theParent->Target();
    }
    if (const SharedWindow theOwner = Owner()) {
        return theOwner->Target();
    }
    return GetApplicationEventTarget();
}

std::vector<size_t> Control::Path() const
{
    std::vector<size_t> thePath;
    if (const SharedControl theParent = Parent()) {
        thePath = theParent->Path();
        thePath.push_back(mOrder);
    }
    return thePath;
}

bool Control::IsInside(const Control& theContainer) const
{
    const Control* theControl = this;
    SharedControl theParent;
    while (theControl != &theContainer) {
        theParent = theControl->Parent();
        theControl = theParent.get();
        if (theControl == nullptr) {
            return false;
        }
    }
    return true;
}

bool Control::IsInCompositingWindow() const
{
    const SharedWindow theOwner = Owner();
    return theOwner != nullptr && theOwner->Has(kWindowCompositingAttribute);
}

bool Control::CanEmbed() const
{
    return (mFeatures & kControlSupportsEmbedding) != 0 && !mIsGoing;
}

void Control::TellContainer(UInt32 theKind, const SharedControl& theContainer)
{
    OutgoingEvent theEvent(kEventClassControl, theKind);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theContainer->Reference());
    theEvent.Set(kEventParamControlSubControl, typeControlRef, Reference());
    theEvent.SendTo(theContainer->Target());
}

void Control::Leave()
{
    const SharedControl theParent = Parent();
    if (theParent == nullptr) {
        return;
    }
    auto& theControls = theParent->mSubControls;
    const SharedControl theKeepAlive = shared_from_this();
    auto theRest = theControls.erase(theControls.begin() + static_cast<std::ptrdiff_t>(mOrder));
    mParent.reset();
    for (; theRest != theControls.end(); ++theRest) {
        --(*theRest)->mOrder;
        (*theRest)->Show();
    }
}

// Has room for the new place before it leaves the old one.
void Control::Join(const SharedControl& theContainer)
{
    const SharedControl theKeepAlive = shared_from_this();
    const SharedControl theOldParent = Parent();
    const bool theIsMove = theOldParent != theContainer;
    if (theIsMove && theOldParent != nullptr) {
        TellContainer(kEventControlRemovingSubControl, theOldParent);
        if (mIsGoing || !theContainer->CanEmbed() || theContainer->IsInside(*this)) {
            return; // a handler made the move impossible
        }
    }
    theContainer->MakeRoom();
    Leave();
    mOrder = theContainer->mSubControls.size();
    theContainer->mSubControls.push_back(theKeepAlive);
    mParent = theContainer;
    if (theContainer->Owner() == nullptr) {
        DisappearFrom(PresenterRegistry::Current());
    }
    MoveTo(theContainer->Owner());
    if (!CanBePressed()) {
        ReleaseFocusInside(*this);
    }
    ShowAll();
    for (const SharedControl& theChanged : {theOldParent, theContainer}) {
        if (theChanged != nullptr && !theChanged->mIsGoing) {
            theChanged->SubControlsChanged();
        }
    }
    if (theIsMove && !mIsGoing && !theContainer->mIsGoing) {
        TellContainer(kEventControlAddedSubControl, theContainer);
    }
}

void Control::MakeRoom()
{
    if (mSubControls.size() == mSubControls.capacity()) {
        mSubControls.reserve(2 * mSubControls.size() + 1);
    }
}

void Control::Withdraw()
{
    const SharedControl theKeepAlive = shared_from_this();
    const SharedControl theParent = Parent();
    if (theParent == nullptr) {
        return;
    }
    ReleaseFocusInside(*this);
    TellContainer(kEventControlRemovingSubControl, theParent);
    if (mIsGoing || Parent() != theParent) {
        return; // a handler has seen to it
    }
    Leave();
    DisappearFrom(PresenterRegistry::Current());
    MoveTo(nullptr);
    if (!theParent->mIsGoing) {
        theParent->SubControlsChanged();
    }
}

void Control::DisappearFrom(Presenter& thePresenter) const
{
    for (const SharedControl& theSubControl : mSubControls) {
        theSubControl->DisappearFrom(thePresenter);
    }
    thePresenter.ControlGone(mIdentifier);
}

void Control::PutAt(size_t theOrder)
{
    auto& theControls = Parent()->mSubControls;
    const auto theStart = theControls.begin();
    const auto theOld = static_cast<std::ptrdiff_t>(mOrder);
    const auto theNew = static_cast<std::ptrdiff_t>(theOrder);
    if (theNew < theOld) {
        std::rotate(theStart + theNew, theStart + theOld, theStart + theOld + 1);
    } else {
        std::rotate(theStart + theOld, theStart + theOld + 1, theStart + theNew + 1);
    }
    const size_t theFirst = std::min(mOrder, theOrder);
    const size_t theLast = std::max(mOrder, theOrder);
    for (size_t theIndex = theFirst; theIndex <= theLast; ++theIndex) {
        theControls[theIndex]->mOrder = theIndex;
        theControls[theIndex]->Show();
    }
}

// Between the old parent and the new one, as the two events about them have it; null for one that leaves for
// nowhere.
void Control::MoveTo(const SharedWindow& theOwner)
{
    const SharedWindow theOldOwner = Owner();
    if (theOldOwner == theOwner) {
        return;
    }
    ReleaseFocusInside(*this);
    mOwner = theOwner;
    ReleaseFocusInside(theOldOwner, *this); // a handler may have given it back
    ForgetButtons(theOldOwner, *this);
    OutgoingEvent theEvent(kEventClassControl, kEventControlOwningWindowChanged);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.Set(kEventParamAttributes, typeUInt32, UInt32{0});
    const WindowRef theOldReference = theOldOwner == nullptr ? nullptr : theOldOwner->Reference();
    theEvent.Set(kEventParamControlOriginalOwningWindow, typeWindowRef, theOldReference);
    const WindowRef theNewReference = theOwner == nullptr ? nullptr : theOwner->Reference();
    theEvent.Set(kEventParamControlCurrentOwningWindow, typeWindowRef, theNewReference);
    theEvent.SendTo(mTarget);
    // A handler may move controls, this one too, which then belong elsewhere.
    while (Owner() == theOwner) {
        const auto theNext = std::find_if(mSubControls.begin(), mSubControls.end(),
                                          [&](const auto& theOne) { return theOne->Owner() != theOwner; });
        if (theNext == mSubControls.end()) {
            return;
        }
        const SharedControl theSubControl = *theNext;
        theSubControl->MoveTo(theOwner);
    }
}

Rect Control::WindowBounds() const
{
    Rect theBounds = mBounds;
    if (!IsInCompositingWindow()) {
        return theBounds;
    }
    for (SharedControl theParent = Parent(); theParent != nullptr && !theParent->mIsRoot;
         theParent = theParent->Parent()) {
        theBounds = Moved(theBounds, theParent->mBounds.left, theParent->mBounds.top);
    }
    return theBounds;
}

Rect BoundsInWindow(const SharedControl& theControl)
{
    return theControl->WindowBounds();
}

// Finding ------------------------------------------------------------------------------------------------

SharedControl SubControlAt(const Control& theContainer, Point theContentPoint, bool theIsDeep)
{
    const auto& theControls = theContainer.SubControls();
    for (auto theEntry = theControls.rbegin(); theEntry != theControls.rend(); ++theEntry) {
        const SharedControl& theControl = *theEntry;
        if (theControl->Is(ControlState::kVisible) && Contains(theControl->WindowBounds(), theContentPoint)) {
            const SharedControl theDeeper =
                theIsDeep ? SubControlAt(*theControl, theContentPoint, true) : nullptr;
            return theDeeper == nullptr ? theControl : theDeeper;
        }
    }
    return nullptr;
}

namespace {

SharedControl DeepestAround(const SharedControl& theContainer, const SharedControl& theInner)
{
    const auto& theControls = theContainer->SubControls();
    for (auto theEntry = theControls.rbegin(); theEntry != theControls.rend(); ++theEntry) {
        const SharedControl& theControl = *theEntry;
        if (theControl != theInner && theControl->CanEmbed() &&
            Encloses(theControl->WindowBounds(), theInner->WindowBounds())) {
            return DeepestAround(theControl, theInner);
        }
    }
    return theContainer;
}

OSErr Embed(const SharedControl& theControl, const SharedControl& theContainer)
{
    if (theControl->IsRoot()) {
        return errCantEmbedRoot;
    }
    if (theContainer->IsInside(*theControl)) {
        return errCantEmbedIntoSelf;
    }
    if (!theContainer->CanEmbed()) {
        return errControlIsNotEmbedder;
    }
    return static_cast<OSErr>(Guarded([&] {
        theControl->Join(theContainer);
        return OSStatus{noErr};
    }));
}

} // namespace

SharedControl FindNamed(const Control& theRoot, const ControlID& theID)
{
    SharedControl theFirst;
    const std::uint64_t theKey = KeyOf(theID);
    for (auto theName = Names().lower_bound({theKey, kNoObject});
         theName != Names().end() && theName->first == theKey; ++theName) {
        const SharedControl theControl = FindControl(theName->second);
        if (theControl->IsInside(theRoot) && (theFirst == nullptr || theControl->Path() < theFirst->Path())) {
            theFirst = theControl;
        }
    }
    return theFirst;
}

SharedControl ControlAt(const SharedWindow& theWindow, Point theContentPoint)
{
    return theWindow == nullptr || theWindow->Root() == nullptr
               ? nullptr
               : SubControlAt(*theWindow->Root(), theContentPoint, true);
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

using namespace Host;

OSErr CreateRootControl(WindowRef inWindow, ControlRef* outControl)
{
    const SharedWindow theOwner = Host::FindWindow(inWindow);
    if (theOwner == nullptr || theOwner->IsClosing()) {
        return errInvalidWindowRef;
    }
    if (theOwner->Root() != nullptr) {
        return errRootAlreadyExists;
    }
    return static_cast<OSErr>(Guarded([&] {
        const SharedControl theRoot = theOwner->EnsureRoot();
        if (outControl != nullptr) {
            *outControl = theRoot->Reference();
        }
        return OSStatus{noErr};
    }));
}

OSErr GetRootControl(WindowRef inWindow, ControlRef* outControl)
{
    if (outControl == nullptr) {
        return paramErr;
    }
    *outControl = nullptr;
    const SharedWindow theOwner = Host::FindWindow(inWindow);
    if (theOwner == nullptr) {
        return errInvalidWindowRef;
    }
    if (theOwner->Root() == nullptr) {
        return errNoRootControl;
    }
    *outControl = theOwner->Root()->Reference();
    return noErr;
}

OSErr EmbedControl(ControlRef inControl, ControlRef inContainer)
{
    const SharedControl theInner = Host::FindControl(inControl);
    const SharedControl theOuter = Host::FindControl(inContainer);
    return theInner == nullptr || theOuter == nullptr ? OSErr{errUnknownControl} : Embed(theInner, theOuter);
}

OSErr AutoEmbedControl(ControlRef inControl, WindowRef inWindow)
{
    const SharedControl theInner = Host::FindControl(inControl);
    const SharedWindow theOwner = Host::FindWindow(inWindow);
    if (theInner == nullptr) {
        return errUnknownControl;
    }
    if (theOwner == nullptr) {
        return errInvalidWindowRef;
    }
    if (theOwner->Has(kWindowCompositingAttribute)) {
        return paramErr;
    }
    if (theOwner->Root() == nullptr) {
        return errNoRootControl;
    }
    return Embed(theInner, DeepestAround(theOwner->Root(), theInner));
}

OSErr CountSubControls(ControlRef inControl, UInt16* outNumChildren)
{
    const SharedControl theContainer = Host::FindControl(inControl);
    if (outNumChildren == nullptr) {
        return paramErr;
    }
    *outNumChildren = 0;
    if (theContainer == nullptr) {
        return errUnknownControl;
    }
    *outNumChildren = static_cast<UInt16>(std::min<size_t>(theContainer->SubControls().size(), UINT16_MAX));
    return noErr;
}

OSErr GetIndexedSubControl(ControlRef inControl, UInt16 inIndex, ControlRef* outSubControl)
{
    if (outSubControl == nullptr) {
        return paramErr;
    }
    *outSubControl = nullptr;
    const SharedControl theContainer = Host::FindControl(inControl);
    if (theContainer == nullptr) {
        return errUnknownControl;
    }
    if (inIndex == 0 || inIndex > theContainer->SubControls().size()) {
        return paramErr;
    }
    *outSubControl = theContainer->SubControls()[inIndex - size_t{1}]->Reference();
    return noErr;
}

OSErr GetSuperControl(ControlRef inControl, ControlRef* outParent)
{
    if (outParent == nullptr) {
        return paramErr;
    }
    *outParent = nullptr;
    const SharedControl theInner = Host::FindControl(inControl);
    if (theInner == nullptr) {
        return errUnknownControl;
    }
    if (const SharedControl theContainer = theInner->Parent()) {
        *outParent = theContainer->Reference();
    }
    return noErr;
}

WindowRef GetControlOwner(ControlRef control)
{
    const SharedControl theInner = Host::FindControl(control);
    const SharedWindow theOwner = theInner == nullptr ? nullptr : theInner->Owner();
    return theOwner == nullptr ? nullptr : theOwner->Reference();
}

void DisposeControl(ControlRef theControl)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound != nullptr && !theFound->IsRoot()) {
        theFound->Dispose();
    }
}

void KillControls(WindowRef theWindow)
{
    const SharedWindow theOwner = Host::FindWindow(theWindow);
    if (theOwner != nullptr && theOwner->Root() != nullptr) {
        const SharedControl theRoot = theOwner->Root();
        theRoot->DisposeSubControls();
    }
}

Boolean IsValidControlHandle(ControlRef theControl)
{
    return Host::FindControl(theControl) != nullptr;
}

OSStatus GetControlByID(WindowRef inWindow, const ControlID* inID, ControlRef* outControl)
{
    if (outControl == nullptr) {
        return paramErr;
    }
    *outControl = nullptr;
    if (inID == nullptr) {
        return paramErr;
    }
    const SharedWindow theOwner = Host::FindWindow(inWindow);
    if (theOwner == nullptr) {
        return errInvalidWindowRef;
    }
    const SharedControl theRoot = theOwner->Root();
    return Guarded([&] {
        const SharedControl theFound = theRoot == nullptr ? nullptr : FindNamed(*theRoot, *inID);
        *outControl = theFound == nullptr ? nullptr : theFound->Reference();
        return theFound == nullptr ? OSStatus{errUnknownControl} : OSStatus{noErr};
    });
}

EventTargetRef GetControlEventTarget(ControlRef theControl)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? nullptr : theFound->Target();
}
