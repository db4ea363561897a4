// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The tree of views, as HIView.h has it.

#include "Base/Guarded.h"
#include "Windows/Window.h"

using namespace Host;

const HIViewID kHIViewWindowContentID = {'wind', 1};

namespace {

HIViewRef ReferenceOf(const SharedControl& theView)
{
    return theView == nullptr ? nullptr : theView->Reference();
}

bool IsContentID(const HIViewID& theID)
{
    return theID.signature == kHIViewWindowContentID.signature && theID.id == kHIViewWindowContentID.id;
}

SharedControl FindView(const SharedControl& theStart, const HIViewID& theID)
{
    if (IsContentID(theID) && theStart->IsRoot() && theStart->IsInCompositingWindow()) {
        return theStart;
    }
    return Host::FindNamed(*theStart, theID);
}

// The view that many places behind another one in the same view; null past the ends.
HIViewRef Sibling(HIViewRef theView, std::ptrdiff_t theDistance)
{
    const SharedControl theFound = Host::FindControl(theView);
    const SharedControl theParent = theFound == nullptr ? nullptr : theFound->Parent();
    if (theParent == nullptr) {
        return nullptr;
    }
    const auto& theViews = theParent->SubControls();
    // Before the first is far behind the last.
    const auto theIndex = static_cast<size_t>(static_cast<std::ptrdiff_t>(theFound->Order()) - theDistance);
    return theIndex < theViews.size() ? theViews[theIndex]->Reference() : nullptr;
}

// Where a view comes to stand that is put in front of or behind another one of the same view.
size_t OrderBeside(const Control& theView, const Control& theOther, HIViewZOrderOp theOperation)
{
    const bool theComesFromBehind = theView.Order() < theOther.Order();
    if (theOperation == kHIViewZOrderAbove) {
        return theOther.Order() + (theComesFromBehind ? 0 : 1);
    }
    return theOther.Order() - (theComesFromBehind ? 1 : 0);
}

} // namespace

HIViewRef HIViewGetRoot(WindowRef inWindow)
{
    const SharedWindow theWindow = Host::FindWindow(inWindow);
    if (theWindow == nullptr || theWindow->IsClosing()) {
        return nullptr;
    }
    HIViewRef theRoot = nullptr;
    Guarded([&] {
        theRoot = theWindow->EnsureRoot()->Reference();
        return OSStatus{noErr};
    });
    return theRoot;
}

OSStatus HIViewFindByID(HIViewRef inStartView, HIViewID inID, HIViewRef* outView)
{
    if (outView == nullptr) {
        return paramErr;
    }
    *outView = nullptr;
    const SharedControl theStart = Host::FindControl(inStartView);
    if (theStart == nullptr) {
        return errUnknownControl;
    }
    return Guarded([&] {
        *outView = ReferenceOf(FindView(theStart, inID));
        return *outView == nullptr ? OSStatus{errUnknownControl} : OSStatus{noErr};
    });
}

OSStatus HIViewAddSubview(HIViewRef inParent, HIViewRef inNewChild)
{
    const SharedControl theParent = Host::FindControl(inParent);
    if (theParent != nullptr && theParent->Owner() != nullptr && !theParent->IsInCompositingWindow()) {
        return errNeedsCompositedWindow;
    }
    return EmbedControl(inNewChild, inParent);
}

OSStatus HIViewRemoveFromSuperview(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    if (theView->IsRoot()) {
        return errCantEmbedRoot;
    }
    theView->Withdraw();
    return noErr;
}

HIViewRef HIViewGetSuperview(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    return theView == nullptr ? nullptr : ReferenceOf(theView->Parent());
}

HIViewRef HIViewGetFirstSubview(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    return theView == nullptr || theView->SubControls().empty() ? nullptr
                                                                : theView->SubControls().back()->Reference();
}

HIViewRef HIViewGetLastSubview(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    return theView == nullptr || theView->SubControls().empty() ? nullptr
                                                                : theView->SubControls().front()->Reference();
}

HIViewRef HIViewGetNextView(HIViewRef inView)
{
    return Sibling(inView, 1);
}

HIViewRef HIViewGetPreviousView(HIViewRef inView)
{
    return Sibling(inView, -1);
}

CFIndex HIViewCountSubviews(HIViewRef inView)
{
    const SharedControl theView = Host::FindControl(inView);
    return theView == nullptr ? 0 : static_cast<CFIndex>(theView->SubControls().size());
}

OSStatus HIViewGetIndexedSubview(HIViewRef inView, CFIndex inSubviewIndex, HIViewRef* outSubview)
{
    if (outSubview == nullptr) {
        return paramErr;
    }
    *outSubview = nullptr;
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    const auto& theViews = theView->SubControls();
    if (inSubviewIndex < 1 || static_cast<size_t>(inSubviewIndex) > theViews.size()) {
        return paramErr;
    }
    *outSubview = theViews[theViews.size() - static_cast<size_t>(inSubviewIndex)]->Reference();
    return noErr;
}

OSStatus HIViewSetZOrder(HIViewRef inView, HIViewZOrderOp inOp, HIViewRef inOther)
{
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    const SharedControl theParent = theView->Parent();
    if (theParent == nullptr || (inOp != kHIViewZOrderAbove && inOp != kHIViewZOrderBelow)) {
        return paramErr;
    }
    if (inOther == nullptr) {
        theView->PutAt(inOp == kHIViewZOrderAbove ? theParent->SubControls().size() - 1 : 0);
        return noErr;
    }
    const SharedControl theOther = Host::FindControl(inOther);
    if (theOther == nullptr || theOther == theView || theOther->Parent() != theParent) {
        return paramErr;
    }
    theView->PutAt(OrderBeside(*theView, *theOther, inOp));
    return noErr;
}

WindowRef HIViewGetWindow(HIViewRef inView)
{
    return GetControlOwner(inView);
}

Boolean HIViewIsValid(HIViewRef inView)
{
    return IsValidControlHandle(inView);
}
