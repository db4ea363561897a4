// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Layout.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Common/NeverDestroyed.h"
#include "Control.h"

#include <algorithm>
#include <map>

namespace Host {

namespace {

using LayoutTable = std::map<ObjectId, HILayoutInfo>;

// How many controls may be in the midst of having others follow them: each has its part of the stack.
const int kDeepest = 1000;
int sDepth = 0;

// Few controls have rules, so they are kept apart from them.
LayoutTable& Layouts()
{
    static NeverDestroyed<LayoutTable> sLayouts;
    return sLayouts.Get();
}

// One direction of a rectangle.
struct Span
{
    double theStart;
    double theEnd;

    double Length() const { return theEnd - theStart; }
};

Span AcrossOf(const Rect& theRect)
{
    return {static_cast<double>(theRect.left), static_cast<double>(theRect.right)};
}

Span DownOf(const Rect& theRect)
{
    return {static_cast<double>(theRect.top), static_cast<double>(theRect.bottom)};
}

Rect RectOf(const Span& theAcross, const Span& theDown)
{
    return MakeRect(NearestCoordinate(theAcross.theStart), NearestCoordinate(theDown.theStart),
                    NearestCoordinate(theAcross.theEnd), NearestCoordinate(theDown.theEnd));
}

// The bounds of a leader in the coordinates that the follower's bounds are in.
Rect Beside(const Control& theFollower, const Control& theLeader, const Rect& theLeaderBounds)
{
    if (theFollower.Parent().get() == &theLeader && theFollower.IsInCompositingWindow()) {
        return MakeRect(0, 0, WidthOf(theLeaderBounds), HeightOf(theLeaderBounds));
    }
    return theLeaderBounds;
}

SharedControl LeaderOf(const Control& theFollower, HIViewRef theView)
{
    return theView == nullptr ? theFollower.Parent() : FindControl(theView);
}

bool Names(const Control& theFollower, HIViewRef theView, const Control& theLeader)
{
    return LeaderOf(theFollower, theView).get() == &theLeader;
}

// How a leader changes, for one of its followers.
struct Change
{
    const Control& theFollower;
    const Control& theLeader;
    Rect theOld;
    Rect theNew;
};

double MoveOfSide(const HISideBinding& theSide, const Change& theChange, Span (*theDirection)(const Rect&))
{
    if (theSide.kind == kHILayoutBindNone ||
        !Names(theChange.theFollower, theSide.toView, theChange.theLeader)) {
        return 0;
    }
    const Span theOld = theDirection(theChange.theOld);
    const Span theNew = theDirection(theChange.theNew);
    return theSide.kind == kHILayoutBindMin ? theNew.theStart - theOld.theStart
                                            : theNew.theEnd - theOld.theEnd;
}

Span MovedSpan(const Span& theSpan, double theMoveOfStart, double theMoveOfEnd)
{
    const double theStart = theSpan.theStart + theMoveOfStart;
    return {theStart, std::max(theStart, theSpan.theEnd + theMoveOfEnd)};
}

Rect Bound(const HIBinding& theBinding, const Change& theChange)
{
    const Rect& theBounds = theChange.theFollower.Bounds();
    const double theLeft = MoveOfSide(theBinding.left, theChange, AcrossOf);
    const double theRight = MoveOfSide(theBinding.right, theChange, AcrossOf);
    const double theTop = MoveOfSide(theBinding.top, theChange, DownOf);
    const double theBottom = MoveOfSide(theBinding.bottom, theChange, DownOf);
    return RectOf(MovedSpan(AcrossOf(theBounds), theLeft, theRight),
                  MovedSpan(DownOf(theBounds), theTop, theBottom));
}

Span Positioned(const Span& theSpan, HIPositionKind theKind, const Span& theLeader, double theOffset)
{
    double theStart = theSpan.theStart;
    switch (theKind) {
    case kHILayoutPositionCenter:
        theStart = (theLeader.theStart + theLeader.theEnd - theSpan.Length()) / 2 + theOffset;
        break;
    case kHILayoutPositionMin:
        theStart = theLeader.theStart + theOffset;
        break;
    case kHILayoutPositionMax:
        theStart = theLeader.theEnd - theSpan.Length() + theOffset;
        break;
    default:
        break;
    }
    return {theStart, theStart + theSpan.Length()};
}

// One direction by its rules of place and size, with the leaders as they are.
Span Arranged(const Control& theFollower, Span (*theDirection)(const Rect&),
              const HIAxisPosition& thePosition, const HIAxisScale& theScale)
{
    Span theSpan = theDirection(theFollower.Bounds());
    const SharedControl theBase = LeaderOf(theFollower, thePosition.toView);
    if (theBase != nullptr) {
        const Span theLeader = theDirection(Beside(theFollower, *theBase, theBase->Bounds()));
        theSpan = Positioned(theSpan, thePosition.kind, theLeader, double{thePosition.offset});
    }
    const SharedControl theMeasure = LeaderOf(theFollower, theScale.toView);
    if (theMeasure != nullptr && theScale.ratio > 0) {
        theSpan.theEnd =
            theSpan.theStart + theDirection(theMeasure->Bounds()).Length() * double{theScale.ratio};
    }
    return theSpan;
}

bool IsArrangedBy(const Control& theFollower, const Control& theLeader, const HILayoutInfo& theRules)
{
    const auto theIsPlaced = [&](const HIAxisPosition& theAxis) {
        return theAxis.kind != kHILayoutPositionNone && Names(theFollower, theAxis.toView, theLeader);
    };
    const auto theIsScaled = [&](const HIAxisScale& theAxis) {
        return theAxis.ratio > 0 && Names(theFollower, theAxis.toView, theLeader);
    };
    return theIsPlaced(theRules.position.x) || theIsPlaced(theRules.position.y) ||
           theIsScaled(theRules.scale.x) || theIsScaled(theRules.scale.y);
}

void Follow(const SharedControl& theFollower, const SharedControl& theLeader, const Rect& theOldBounds)
{
    const HILayoutInfo theRules = LayoutOf(*theFollower);
    const Change theChange = {*theFollower, *theLeader, Beside(*theFollower, *theLeader, theOldBounds),
                              Beside(*theFollower, *theLeader, theLeader->Bounds())};
    theFollower->SetBounds(Bound(theRules.binding, theChange));
    if (!theFollower->IsGone() && !theLeader->IsGone() && IsArrangedBy(*theFollower, *theLeader, theRules)) {
        ApplyLayout(theFollower);
    }
}

} // namespace

HILayoutInfo LayoutOf(const Control& theControl)
{
    const auto theEntry = Layouts().find(theControl.Identifier());
    return theEntry == Layouts().end() ? HILayoutInfo() : theEntry->second;
}

OSStatus SetLayout(const Control& theControl, const HILayoutInfo& theRules)
{
    return Guarded([&] {
        Layouts()[theControl.Identifier()] = theRules;
        return OSStatus{noErr};
    });
}

void RemoveLayout(const Control& theControl)
{
    Layouts().erase(theControl.Identifier());
}

// Handlers may make and dispose controls meanwhile, so the table is asked anew for each next one.
void LayOutFollowers(const SharedControl& theLeader, const Rect& theOldBounds)
{
    if (Layouts().empty() || theLeader->mIsLeading || sDepth == kDeepest) {
        return;
    }
    theLeader->mIsLeading = true;
    ++sDepth;
    for (auto theEntry = Layouts().begin(); theEntry != Layouts().end() && !theLeader->IsGone();) {
        const ObjectId theIdentifier = theEntry->first;
        const SharedControl theFollower = FindControl(theIdentifier);
        if (theFollower != nullptr && theFollower != theLeader && !theFollower->mIsLeading &&
            theFollower->Owner() == theLeader->Owner() && IsLayoutActive(*theFollower)) {
            Follow(theFollower, theLeader, theOldBounds);
        }
        theEntry = Layouts().upper_bound(theIdentifier);
    }
    --sDepth;
    theLeader->mIsLeading = false;
}

void ApplyLayout(const SharedControl& theControl)
{
    const HILayoutInfo theRules = LayoutOf(*theControl);
    const Span theAcross = Arranged(*theControl, AcrossOf, theRules.position.x, theRules.scale.x);
    const Span theDown = Arranged(*theControl, DownOf, theRules.position.y, theRules.scale.y);
    theControl->SetBounds(RectOf(theAcross, theDown));
}

bool IsLayoutActive(const Control& theControl)
{
    const SharedControl theParent = theControl.Parent();
    return !theControl.mIsLayoutSuspended && (theParent == nullptr || IsLayoutActive(*theParent));
}

} // namespace Host
