// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "DrawnView.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Common/NeverDestroyed.h"
#include "Drawing/Source/CanDraw.h"
#include "Events/EventLoop.h"
#include "Events/EventTargets.h"
#include "Events/OutgoingEvent.h"
#include "Window.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

using SharedView = std::shared_ptr<DrawnView>;

constexpr EventTypeSpec kDraw = {kEventClassControl, kEventControlDraw};

// A picture takes four bytes for each pixel: what is further right or down than this is not drawn, and one
// with more pixels than that is not drawn finer than the window's.
constexpr int kFarthest = 4096;
constexpr int kMostFinePixels = kFarthest * kFarthest;

// Views with marks. One that nobody can see stays here until somebody can.
std::vector<std::weak_ptr<DrawnView>>& Waiting()
{
    static NeverDestroyed<std::vector<std::weak_ptr<DrawnView>>> sWaiting;
    return sWaiting.Get();
}

// A view that goes stays in the row, and what it had in memory with it, until others need its place.
void MakeRoomAmongWaiting()
{
    std::vector<std::weak_ptr<DrawnView>>& theWaiting = Waiting();
    if (theWaiting.size() < theWaiting.capacity()) {
        return;
    }
    theWaiting.erase(
        std::remove_if(theWaiting.begin(), theWaiting.end(),
                       [](const std::weak_ptr<DrawnView>& theView) { return theView.expired(); }),
        theWaiting.end());
    // Where few have gone there is to be room for more, lest they be looked through again with each new one.
    if (theWaiting.size() >= theWaiting.capacity() / 2) {
        theWaiting.reserve(theWaiting.capacity() * 2 + 1);
    }
}

// Takes out the views that theIsWanted, those that hold others before them.
template <class Condition>
std::vector<SharedView> TakeWaiting(const Condition& theIsWanted)
{
    std::vector<std::pair<std::vector<size_t>, SharedView>> theTaken;
    std::vector<std::weak_ptr<DrawnView>> theRest;
    for (const std::weak_ptr<DrawnView>& theEntry : Waiting()) {
        const SharedView theView = theEntry.lock();
        if (theView != nullptr && theIsWanted(*theView)) {
            theTaken.emplace_back(theView->Path(), theView);
        } else if (theView != nullptr && !theView->IsGone()) {
            theRest.push_back(theEntry);
        }
    }
    std::stable_sort(theTaken.begin(), theTaken.end(),
                     [](const auto& theOne, const auto& theOther) { return theOne.first < theOther.first; });
    std::vector<SharedView> theViews;
    theViews.reserve(theTaken.size());
    for (const auto& theEntry : theTaken) {
        theViews.push_back(theEntry.second);
    }
    Waiting().swap(theRest);
    return theViews;
}

// Draws the marked views that theIsWanted. False when there were none.
template <class Condition>
bool DrawWaiting(const Condition& theIsWanted)
{
    std::vector<SharedView> theViews;
    if (!Waiting().empty()) {
        Guarded([&] {
            theViews = TakeWaiting(theIsWanted);
            return OSStatus{noErr};
        });
    }
    for (const SharedView& theView : theViews) {
        theView->DrawMarked();
    }
    return !theViews.empty();
}

// The handlers may mark other views, which must not wait until the loop wakes. Not more than twice: a handler
// may mark its own view each time.
bool DrawAllWaiting()
{
    const auto theIsSeen = [](const DrawnView& theView) { return theView.CanBeSeen(); };
    return DrawWaiting(theIsSeen) && (DrawWaiting(theIsSeen), true);
}

CGFloat Coordinate(double theNumber)
{
    return static_cast<CGFloat>(theNumber);
}

// The smallest rectangle in whole numbers around one and inside of another. What is no number is as far as
// can be.
CGRect WholeInside(const CGRect& theRect, const CGRect& theOuter)
{
    const double theLeft = std::fmax(std::floor(double{CGRectGetMinX(theRect)}), 0);
    const double theTop = std::fmax(std::floor(double{CGRectGetMinY(theRect)}), 0);
    const double theRight = std::fmin(std::ceil(double{CGRectGetMaxX(theRect)}), double{theOuter.size.width});
    const double theBottom =
        std::fmin(std::ceil(double{CGRectGetMaxY(theRect)}), double{theOuter.size.height});
    return theLeft < theRight && theTop < theBottom
               ? CGRectMake(Coordinate(theLeft), Coordinate(theTop), Coordinate(theRight - theLeft),
                            Coordinate(theBottom - theTop))
               : CGRectZero;
}

Rect ToRect(const CGRect& theRect)
{
    return MakeRect(
        NearestCoordinate(double{CGRectGetMinX(theRect)}), NearestCoordinate(double{CGRectGetMinY(theRect)}),
        NearestCoordinate(double{CGRectGetMaxX(theRect)}), NearestCoordinate(double{CGRectGetMaxY(theRect)}));
}

// What a handler draws with: a context whose origin is at the top left of the view, and in which y grows
// downwards. It has memory of its own, for a program may keep it.
class [[nodiscard]] ViewContext
{
public:
    explicit ViewContext(const Picture& thePicture)
    {
        CGColorSpaceRef const theSpace = CGColorSpaceCreateDeviceRGB();
        mContext = CGBitmapContextCreate(
            nullptr, static_cast<size_t>(thePicture.theWidth), static_cast<size_t>(thePicture.theHeight), 8,
            0, theSpace, CGBitmapInfo{kCGImageAlphaPremultipliedFirst} | kCGBitmapByteOrder32Host);
        CGColorSpaceRelease(theSpace);
        if (mContext == nullptr) {
            throw std::bad_alloc();
        }
        const auto theScale = static_cast<CGFloat>(thePicture.theScale);
        CGContextTranslateCTM(mContext, 0, static_cast<CGFloat>(thePicture.theHeight));
        CGContextScaleCTM(mContext, theScale, -theScale);
    }
    ~ViewContext() { CGContextRelease(mContext); }
    ViewContext(const ViewContext&) = delete;
    ViewContext& operator=(const ViewContext&) = delete;

    CGContextRef Get() const { return mContext; }

    // Begins with what was drawn before, but for an area, outside of which nothing will be drawn.
    void Begin(const Picture* theOld, const CGRect& theArea)
    {
        if (theOld != nullptr) {
            std::memcpy(CGBitmapContextGetData(mContext), theOld->thePixels.data(),
                        theOld->thePixels.size() * sizeof(theOld->thePixels[0]));
        }
        CGContextClearRect(mContext, theArea);
        CGContextClipToRect(mContext, theArea);
    }

    void CopyTo(Picture& thePicture) const
    {
        thePicture.thePixels.resize(static_cast<size_t>(thePicture.theWidth) *
                                    static_cast<size_t>(thePicture.theHeight));
        std::memcpy(thePicture.thePixels.data(), CGBitmapContextGetData(mContext),
                    thePicture.thePixels.size() * sizeof(thePicture.thePixels[0]));
    }

private:
    CGContextRef mContext = nullptr;
};

// A region that lives as long as this.
class [[nodiscard]] PassingRegion
{
public:
    explicit PassingRegion(const CGRect& theArea)
        : mRegion(NewRgn())
    {
        const Rect theRect = ToRect(theArea);
        RectRgn(mRegion, &theRect);
    }
    ~PassingRegion() { DisposeRgn(mRegion); }
    PassingRegion(const PassingRegion&) = delete;
    PassingRegion& operator=(const PassingRegion&) = delete;

    RgnHandle Get() const { return mRegion; }

private:
    RgnHandle mRegion;
};

// An empty picture of the size of an area, as fine as the screen.
Picture PictureFor(const CGRect& theArea, int theScreenScale)
{
    Picture thePicture;
    const int theWidth = static_cast<int>(theArea.size.width);
    const int theHeight = static_cast<int>(theArea.size.height);
    const int theScale = std::max(theScreenScale, 1);
    thePicture.theScale = theWidth * theHeight <= kMostFinePixels / (theScale * theScale) ? theScale : 1;
    thePicture.theWidth = theWidth * thePicture.theScale;
    thePicture.theHeight = theHeight * thePicture.theScale;
    return thePicture;
}

bool IsLike(const Picture* theOld, const Picture& theNew)
{
    return theOld != nullptr && theOld->theWidth == theNew.theWidth &&
           theOld->theHeight == theNew.theHeight && theOld->theScale == theNew.theScale;
}

} // namespace

DrawnView::DrawnView(OSType theKind, UInt32 theFeatures)
    : Control(theKind, theFeatures)
{
    mIsDrawnByProgram = true;
}

CGRect DrawnView::WholeArea() const
{
    return CGRectMake(0, 0, static_cast<CGFloat>(std::min<int>(WidthOf(Bounds()), kFarthest)),
                      static_cast<CGFloat>(std::min<int>(HeightOf(Bounds()), kFarthest)));
}

bool DrawnView::CanBeSeen() const
{
    const SharedWindow theWindow = Owner();
    return theWindow != nullptr && theWindow->IsVisible() && Is(ControlState::kVisible);
}

void DrawnView::Mark(const CGRect& thePart)
{
    const CGRect theArea = WholeInside(thePart, WholeArea());
    if (!mIsDrawingEnabled || CGRectIsEmpty(theArea) || IsGone() || !CanDraw()) {
        return;
    }
    Guarded([&] {
        if (!mIsWaiting) {
            SetLastChore(DrawAllWaiting);
            MakeRoomAmongWaiting();
            Waiting().push_back(std::static_pointer_cast<DrawnView>(shared_from_this()));
            mIsWaiting = true;
        }
        mMarked = IsMarked() ? CGRectUnion(mMarked, theArea) : theArea;
        return OSStatus{noErr};
    });
}

void DrawnView::MarkAll()
{
    Mark(WholeArea());
}

void DrawnView::Unmark(const CGRect& thePart)
{
    if (CGRectContainsRect(thePart, mMarked)) {
        mMarked = CGRectZero;
    }
}

void DrawnView::EnableDrawing(bool theIsEnabled)
{
    mIsDrawingEnabled = theIsEnabled;
    if (!theIsEnabled) {
        mMarked = CGRectZero;
    }
}

void DrawnView::Changed()
{
    MarkAll();
}

void DrawnView::RangeChanged()
{
    MarkAll();
    Control::RangeChanged();
}

void DrawnView::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kPane;
    if (mPicture != nullptr) {
        RareLook theRareLook;
        theRareLook.theDrawing = mPicture;
        theLook.theRareLook = std::make_shared<const RareLook>(std::move(theRareLook));
    }
}

// A view whose bounds became smaller meanwhile has less to draw than was marked.
void DrawnView::DrawMarked()
{
    const CGRect theArea = WholeInside(mMarked, WholeArea());
    mMarked = CGRectZero;
    mIsWaiting = false;
    if (mIsDrawing || CGRectIsEmpty(theArea) || IsGone() || !HasHandler(Target(), kDraw)) {
        return;
    }
    if (!CanBeSeen()) {
        Mark(theArea); // the handler of another view has hidden it
        return;
    }
    const SharedControl theKeepAlive = shared_from_this();
    mIsDrawing = true;
    Guarded([&] {
        Draw(theArea);
        return OSStatus{noErr};
    });
    mIsDrawing = false;
}

// Handlers draw without answering that they have, so that their answer means nothing here.
void DrawnView::Draw(const CGRect& theArea)
{
    auto theNew = std::make_shared<Picture>(
        PictureFor(WholeArea(), PresenterRegistry::Current().ScaleOf(Owner()->Identifier())));
    const Picture* const theOld = IsLike(mPicture.get(), *theNew) ? mPicture.get() : nullptr;
    const CGRect thePart = theOld == nullptr ? WholeArea() : theArea;
    ViewContext theContext(*theNew);
    theContext.Begin(theOld, thePart);
    const PassingRegion theRegion(thePart);
    OutgoingEvent theEvent(kDraw.eventClass, kDraw.eventKind);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.Set(kEventParamCGContextRef, typeCGContextRef, theContext.Get());
    theEvent.Set(kEventParamRgnHandle, typeQDRgnHandle, theRegion.Get());
    theEvent.SendTo(Target(), kEventTargetDontPropagate);
    theContext.CopyTo(*theNew);
    mPicture = std::move(theNew);
    Show();
}

void DrawMarkedIn(const SharedControl& theView)
{
    DrawWaiting([&](const DrawnView& theOne) { return theOne.CanBeSeen() && theOne.IsInside(*theView); });
}

} // namespace Host
