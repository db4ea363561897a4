// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Outline.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Host {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kFarthest = 500000;

bool IsFinite(CGPoint thePoint)
{
    return std::isfinite(thePoint.x) && std::isfinite(thePoint.y);
}

bool IsFinite(const CGRect& theRect)
{
    return IsFinite(theRect.origin) && std::isfinite(theRect.size.width) &&
           std::isfinite(theRect.size.height);
}

double Within(double theValue)
{
    // Finite transforms and places can still give what is no number.
    return std::isnan(theValue) ? 0 : std::clamp(theValue, -kFarthest, kFarthest);
}

Spot Applied(Spot theSpot, const CGAffineTransform& theTransform)
{
    const CGAffineTransform& t = theTransform;
    return {Within(double{t.a} * theSpot.theX + double{t.c} * theSpot.theY + double{t.tx}),
            Within(double{t.b} * theSpot.theX + double{t.d} * theSpot.theY + double{t.ty})};
}

Spot SpotOf(CGPoint thePoint)
{
    return {double{thePoint.x}, double{thePoint.y}};
}

Spot Applied(CGPoint thePoint, const CGAffineTransform& theTransform)
{
    return Applied(SpotOf(thePoint), theTransform);
}

Spot Between(Spot theOne, Spot theOther, double thePart)
{
    return {theOne.theX + (theOther.theX - theOne.theX) * thePart,
            theOne.theY + (theOther.theY - theOne.theY) * thePart};
}

double Distance(Spot theOne, Spot theOther)
{
    return std::hypot(theOther.theX - theOne.theX, theOther.theY - theOne.theY);
}

// Angles are turned into coordinates, and back, as exactly as coordinates are kept: in 32-bit programs, where
// the functions for doubles set the processor's rounding in ways that emulators do not know, with those for
// floats.
double Sine(double theAngle)
{
    return double{std::sin(static_cast<CGFloat>(theAngle))};
}

double Cosine(double theAngle)
{
    return double{std::cos(static_cast<CGFloat>(theAngle))};
}

double Tangent(double theAngle)
{
    return double{std::tan(static_cast<CGFloat>(theAngle))};
}

double DirectionOf(Spot theSpot, Spot theFrom)
{
    return double{std::atan2(static_cast<CGFloat>(theSpot.theY - theFrom.theY),
                             static_cast<CGFloat>(theSpot.theX - theFrom.theX))};
}

Spot OnCircle(Spot theCentre, double theRadius, double theAngle)
{
    return {theCentre.theX + theRadius * Cosine(theAngle), theCentre.theY + theRadius * Sine(theAngle)};
}

// How far an arc turns: a whole circle at most.
double Turn(double theStart, double theEnd, bool theIsClockwise)
{
    const double theTurn = theIsClockwise ? theStart - theEnd : theEnd - theStart;
    const double theWay = theTurn >= 0 ? std::fmin(theTurn, 2 * kPi) : std::fmod(theTurn, 2 * kPi) + 2 * kPi;
    return theIsClockwise ? -theWay : theWay;
}

} // namespace

namespace {

// Pieces of a curve that are as good as straight for who asks whether a place is inside.
constexpr int kPieces = 32;

Spot OnCurve(const Spot* theSpots, Spot theStart, double thePart)
{
    const Spot theFirst = Between(theStart, theSpots[0], thePart);
    const Spot theMiddle = Between(theSpots[0], theSpots[1], thePart);
    const Spot theLast = Between(theSpots[1], theSpots[2], thePart);
    return Between(Between(theFirst, theMiddle, thePart), Between(theMiddle, theLast, thePart), thePart);
}

// Counts how often lines go around a place: those that cross the way from it to the right.
class Winding
{
public:
    explicit Winding(Spot theSpot)
        : mSpot(theSpot)
    {
    }

    void MoveTo(Spot theSpot)
    {
        LineTo(mStart);
        mStart = theSpot;
        mCurrent = theSpot;
    }

    void LineTo(Spot theSpot)
    {
        const bool theWasBelow = mCurrent.theY <= mSpot.theY;
        const bool theIsBelow = theSpot.theY <= mSpot.theY;
        if (theWasBelow != theIsBelow && CrossingOf(theSpot) > mSpot.theX) {
            mCount += theIsBelow ? -1 : 1;
            ++mCrossings;
        }
        mCurrent = theSpot;
    }

    void CurveTo(const Spot* theSpots)
    {
        const Spot theStart = mCurrent;
        for (int thePiece = 1; thePiece <= kPieces; ++thePiece) {
            LineTo(OnCurve(theSpots, theStart, static_cast<double>(thePiece) / kPieces));
        }
    }

    void Close() { LineTo(mStart); }

    bool IsInside(bool theIsEvenOdd) const { return theIsEvenOdd ? mCrossings % 2 != 0 : mCount != 0; }

private:
    double CrossingOf(Spot theSpot) const
    {
        const double thePart = (mSpot.theY - mCurrent.theY) / (theSpot.theY - mCurrent.theY);
        return Between(mCurrent, theSpot, thePart).theX;
    }

    Spot mSpot;
    Spot mStart;
    Spot mCurrent;
    int mCount = 0;
    int mCrossings = 0;
};

} // namespace

bool operator==(const Outline& theOne, const Outline& theOther)
{
    return theOne.Steps() == theOther.Steps() &&
           std::equal(theOne.Spots().begin(), theOne.Spots().end(), theOther.Spots().begin(),
                      theOther.Spots().end(), [](Spot theFirst, Spot theSecond) {
                          return theFirst.theX == theSecond.theX && theFirst.theY == theSecond.theY;
                      });
}

bool Outline::Contains(Spot theSpot, bool theIsEvenOdd) const
{
    if (!std::isfinite(theSpot.theX) || !std::isfinite(theSpot.theY)) {
        return false;
    }
    Winding theWinding(theSpot);
    const Spot* theNext = mSpots.data();
    for (const Step theStep : mSteps) {
        switch (theStep) {
        case Step::kMove:
            theWinding.MoveTo(theNext[0]);
            theNext += 1;
            break;
        case Step::kLine:
            theWinding.LineTo(theNext[0]);
            theNext += 1;
            break;
        case Step::kCurve:
            theWinding.CurveTo(theNext);
            theNext += 3;
            break;
        case Step::kClose:
            theWinding.Close();
            break;
        }
    }
    theWinding.Close();
    return theWinding.IsInside(theIsEvenOdd);
}

void Outline::Append(const Outline& theOther, const CGAffineTransform& theTransform)
{
    Outline theWhole = *this;
    theWhole.mSteps.insert(theWhole.mSteps.end(), theOther.mSteps.begin(), theOther.mSteps.end());
    for (const Spot theSpot : theOther.mSpots) {
        theWhole.mSpots.push_back(Applied(theSpot, theTransform));
    }
    if (!theOther.IsEmpty()) {
        theWhole.mStart = Applied(theOther.mStart, theTransform);
        theWhole.mCurrent = Applied(theOther.mCurrent, theTransform);
    }
    *this = std::move(theWhole);
}

void Outline::Clear()
{
    mSteps.clear();
    mSpots.clear();
    mStart = Spot();
    mCurrent = Spot();
}

CGRect Outline::Box() const
{
    if (mSpots.empty()) {
        return CGRectNull;
    }
    Spot theLow = mSpots.front();
    Spot theHigh = mSpots.front();
    for (const Spot& theSpot : mSpots) {
        theLow = {std::fmin(theLow.theX, theSpot.theX), std::fmin(theLow.theY, theSpot.theY)};
        theHigh = {std::fmax(theHigh.theX, theSpot.theX), std::fmax(theHigh.theY, theSpot.theY)};
    }
    return CGRectMake(static_cast<CGFloat>(theLow.theX), static_cast<CGFloat>(theLow.theY),
                      static_cast<CGFloat>(theHigh.theX - theLow.theX),
                      static_cast<CGFloat>(theHigh.theY - theLow.theY));
}

// Has room for all before it adds anything.
void Outline::Add(Step theStep, std::initializer_list<Spot> theSpots)
{
    mSpots.reserve(mSpots.size() + theSpots.size());
    mSteps.push_back(theStep);
    mSpots.insert(mSpots.end(), theSpots);
    if (theSpots.size() != 0) {
        mCurrent = mSpots.back();
    }
}

void Outline::Move(CGPoint thePoint, const CGAffineTransform& theTransform)
{
    if (IsFinite(thePoint)) {
        Add(Step::kMove, {Applied(thePoint, theTransform)});
        mStart = mCurrent;
    }
}

void Outline::Line(CGPoint thePoint, const CGAffineTransform& theTransform)
{
    if (!IsEmpty() && IsFinite(thePoint)) {
        Add(Step::kLine, {Applied(thePoint, theTransform)});
    }
}

void Outline::Curve(CGPoint theFirst, CGPoint theSecond, CGPoint theEnd,
                    const CGAffineTransform& theTransform)
{
    if (!IsEmpty() && IsFinite(theFirst) && IsFinite(theSecond) && IsFinite(theEnd)) {
        Add(Step::kCurve, {Applied(theFirst, theTransform), Applied(theSecond, theTransform),
                           Applied(theEnd, theTransform)});
    }
}

void Outline::QuadCurve(CGPoint thePull, CGPoint theEnd, const CGAffineTransform& theTransform)
{
    if (!IsEmpty() && IsFinite(thePull) && IsFinite(theEnd)) {
        const Spot theMiddle = Applied(thePull, theTransform);
        const Spot theLast = Applied(theEnd, theTransform);
        Add(Step::kCurve,
            {Between(mCurrent, theMiddle, 2.0 / 3), Between(theLast, theMiddle, 2.0 / 3), theLast});
    }
}

void Outline::Close()
{
    if (!IsEmpty() && mSteps.back() != Step::kClose) {
        Add(Step::kClose, {});
        mCurrent = mStart;
    }
}

void Outline::Rectangle(const CGRect& theRect, const CGAffineTransform& theTransform)
{
    if (!IsFinite(theRect)) {
        return;
    }
    const CGFloat theRight = theRect.origin.x + theRect.size.width;
    const CGFloat theTop = theRect.origin.y + theRect.size.height;
    Move(theRect.origin, theTransform);
    Line({theRight, theRect.origin.y}, theTransform);
    Line({theRight, theTop}, theTransform);
    Line({theRect.origin.x, theTop}, theTransform);
    Close();
}

void Outline::Ellipse(const CGRect& theRect, const CGAffineTransform& theTransform)
{
    if (!IsFinite(theRect)) {
        return;
    }
    const CGAffineTransform theOval = {
        theRect.size.width / 2, 0, 0, theRect.size.height / 2, CGRectGetMidX(theRect),
        CGRectGetMidY(theRect)};
    const CGAffineTransform theWhole = CGAffineTransformConcat(theOval, theTransform);
    Move({1, 0}, theWhole);
    Sweep({0, 0}, 1, 0, 2 * kPi, theWhole);
    Close();
}

void Outline::LineOrMove(Spot theSpot, const CGAffineTransform& theTransform)
{
    const bool theIsStart = IsEmpty();
    Add(theIsStart ? Step::kMove : Step::kLine, {Applied(theSpot, theTransform)});
    mStart = theIsStart ? mCurrent : mStart;
}

// A curve comes near enough to a quarter of a circle and less.
void Outline::Sweep(Spot theCentre, double theRadius, double theStart, double theAngle,
                    const CGAffineTransform& theTransform)
{
    const int theCount = std::max(1, static_cast<int>(std::ceil(std::fabs(theAngle) / (kPi / 2) - 1e-6)));
    const double thePart = theAngle / theCount;
    const double thePull = 4.0 / 3 * Tangent(thePart / 4) * theRadius;
    for (int theIndex = 0; theIndex < theCount; ++theIndex) {
        const double theFrom = theStart + thePart * theIndex;
        const double theTo = theFrom + thePart;
        const Spot theFirst = OnCircle(theCentre, theRadius, theFrom);
        const Spot theLast = OnCircle(theCentre, theRadius, theTo);
        const Spot theFirstPull = OnCircle(theFirst, thePull, theFrom + kPi / 2);
        const Spot theLastPull = OnCircle(theLast, -thePull, theTo + kPi / 2);
        Add(Step::kCurve, {Applied(theFirstPull, theTransform), Applied(theLastPull, theTransform),
                           Applied(theLast, theTransform)});
    }
}

void Outline::Arc(CGPoint theCentre, CGFloat theRadius, double theStart, double theEnd, bool theIsClockwise,
                  const CGAffineTransform& theTransform)
{
    if (!IsFinite(theCentre) || !std::isfinite(theRadius) || theRadius < 0 || !std::isfinite(theStart) ||
        !std::isfinite(theEnd)) {
        return;
    }
    const Spot theMiddle = SpotOf(theCentre);
    LineOrMove(OnCircle(theMiddle, double{theRadius}, theStart), theTransform);
    Sweep(theMiddle, double{theRadius}, theStart, Turn(theStart, theEnd, theIsClockwise), theTransform);
}

// The circle touches both lines; where they leave no corner, one leads straight to it.
void Outline::ArcToPoint(CGPoint theCorner, CGPoint theEnd, CGFloat theRadius,
                         const CGAffineTransform& theTransform)
{
    if (IsEmpty() || !IsFinite(theCorner) || !IsFinite(theEnd) || !std::isfinite(theRadius) ||
        theRadius < 0) {
        return;
    }
    const Spot theTop = SpotOf(theCorner);
    const Spot theFrom = Applied(mCurrent, CGAffineTransformInvert(theTransform));
    const Spot theTo = SpotOf(theEnd);
    const double theFirst = DirectionOf(theFrom, theTop);
    const double theSecond = DirectionOf(theTo, theTop);
    const double theOpening = std::remainder(theSecond - theFirst, 2 * kPi);
    const double theHalf = std::fabs(theOpening) / 2;
    const bool theIsCorner = Distance(theFrom, theTop) > 0 && Distance(theTo, theTop) > 0 && theHalf > 1e-6 &&
                             theHalf < kPi / 2 - 1e-6 && theRadius > 0;
    if (!theIsCorner) {
        LineOrMove(theTop, theTransform);
        return;
    }
    const double theSide = theOpening > 0 ? 1 : -1;
    const double theRound = double{theRadius};
    const Spot theCentre = OnCircle(theTop, theRound / Sine(theHalf), theFirst + theSide * theHalf);
    const double theStart = theFirst - theSide * kPi / 2;
    LineOrMove(OnCircle(theCentre, theRound, theStart), theTransform);
    Sweep(theCentre, theRound, theStart, -theSide * (kPi - 2 * theHalf), theTransform);
}

} // namespace Host
