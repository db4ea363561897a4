// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Outline_h
#define Outline_h

#include <CoreGraphics/CGAffineTransform.h>
#include <vector>

namespace Host {

// A place in pixels.
struct Spot
{
    double theX = 0;
    double theY = 0;
};

// Straight lines and curves, in pixels: what is added is given in the coordinates of a transform and stays
// where it is when these change. Numbers that are not finite add nothing; places more than half a million
// pixels away are drawn in at that distance, where no canvas reaches.
class Outline
{
public:
    enum class Step
    {
        kMove,  // one place
        kLine,  // one
        kCurve, // three: two that pull, and the end
        kClose, // none
    };

    void Clear();
    bool IsEmpty() const { return mSteps.empty(); }
    const std::vector<Step>& Steps() const { return mSteps; }
    const std::vector<Spot>& Spots() const { return mSpots; }

    // Where the next line starts. Zero for an empty outline.
    Spot Current() const { return mCurrent; }

    // Around all places, those that pull included. The null rectangle for an empty outline.
    CGRect Box() const;

    // Whether filling it paints a place. Curves are followed in straight pieces.
    bool Contains(Spot theSpot, bool theIsEvenOdd) const;

    // Adds all of another one, or of this one.
    void Append(const Outline& theOther, const CGAffineTransform& theTransform);

    void Move(CGPoint thePoint, const CGAffineTransform& theTransform);

    // Each starts where the last one ended, and adds nothing to an empty outline.
    void Line(CGPoint thePoint, const CGAffineTransform& theTransform);
    void Curve(CGPoint theFirst, CGPoint theSecond, CGPoint theEnd, const CGAffineTransform& theTransform);
    void QuadCurve(CGPoint thePull, CGPoint theEnd, const CGAffineTransform& theTransform);
    void Close();

    void Rectangle(const CGRect& theRect, const CGAffineTransform& theTransform);
    void Ellipse(const CGRect& theRect, const CGAffineTransform& theTransform);

    // Part of a circle, from one angle to another; clockwise as seen where y grows upwards. A line leads to
    // its start.
    void Arc(CGPoint theCentre, CGFloat theRadius, double theStart, double theEnd, bool theIsClockwise,
             const CGAffineTransform& theTransform);

    // Rounds the corner between the current place, a corner and an end.
    void ArcToPoint(CGPoint theCorner, CGPoint theEnd, CGFloat theRadius,
                    const CGAffineTransform& theTransform);

private:
    void Add(Step theStep, std::initializer_list<Spot> theSpots);
    void Sweep(Spot theCentre, double theRadius, double theStart, double theAngle,
               const CGAffineTransform& theTransform);
    void LineOrMove(Spot theSpot, const CGAffineTransform& theTransform);

    std::vector<Step> mSteps;
    std::vector<Spot> mSpots;
    Spot mStart; // of the part that is being drawn
    Spot mCurrent;
};

bool operator==(const Outline& theOne, const Outline& theOther);

} // namespace Host

#endif
