// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The canvas that Cairo draws on.

#include "Canvas.h"

#include <cairo.h>
#include <cmath>

namespace Host {

namespace {

// Finer dashes than this, in pixels, look like a solid line, and there would be millions of them.
constexpr double kShortestDashes = 0.5;

// No pen is wider than everything that can be drawn.
constexpr double kWidestPen = 1000000;

struct NamedOperator
{
    CGBlendMode theMode;
    cairo_operator_t theOperator;
};

constexpr NamedOperator kOperators[] = {
    {kCGBlendModeMultiply, CAIRO_OPERATOR_MULTIPLY},
    {kCGBlendModeScreen, CAIRO_OPERATOR_SCREEN},
    {kCGBlendModeOverlay, CAIRO_OPERATOR_OVERLAY},
    {kCGBlendModeDarken, CAIRO_OPERATOR_DARKEN},
    {kCGBlendModeLighten, CAIRO_OPERATOR_LIGHTEN},
    {kCGBlendModeColorDodge, CAIRO_OPERATOR_COLOR_DODGE},
    {kCGBlendModeColorBurn, CAIRO_OPERATOR_COLOR_BURN},
    {kCGBlendModeSoftLight, CAIRO_OPERATOR_SOFT_LIGHT},
    {kCGBlendModeHardLight, CAIRO_OPERATOR_HARD_LIGHT},
    {kCGBlendModeDifference, CAIRO_OPERATOR_DIFFERENCE},
    {kCGBlendModeExclusion, CAIRO_OPERATOR_EXCLUSION},
    {kCGBlendModeHue, CAIRO_OPERATOR_HSL_HUE},
    {kCGBlendModeSaturation, CAIRO_OPERATOR_HSL_SATURATION},
    {kCGBlendModeColor, CAIRO_OPERATOR_HSL_COLOR},
    {kCGBlendModeLuminosity, CAIRO_OPERATOR_HSL_LUMINOSITY},
    {kCGBlendModeClear, CAIRO_OPERATOR_CLEAR},
    {kCGBlendModeCopy, CAIRO_OPERATOR_SOURCE},
    {kCGBlendModeSourceIn, CAIRO_OPERATOR_IN},
    {kCGBlendModeSourceOut, CAIRO_OPERATOR_OUT},
    {kCGBlendModeSourceAtop, CAIRO_OPERATOR_ATOP},
    {kCGBlendModeDestinationOver, CAIRO_OPERATOR_DEST_OVER},
    {kCGBlendModeDestinationIn, CAIRO_OPERATOR_DEST_IN},
    {kCGBlendModeDestinationOut, CAIRO_OPERATOR_DEST_OUT},
    {kCGBlendModeDestinationAtop, CAIRO_OPERATOR_DEST_ATOP},
    {kCGBlendModeXOR, CAIRO_OPERATOR_XOR},
    {kCGBlendModePlusLighter, CAIRO_OPERATOR_ADD},
};

cairo_operator_t OperatorOf(CGBlendMode theMode)
{
    for (const NamedOperator& theNamed : kOperators) {
        if (theNamed.theMode == theMode) {
            return theNamed.theOperator;
        }
    }
    return CAIRO_OPERATOR_OVER;
}

cairo_line_cap_t CapOf(CGLineCap theCap)
{
    return theCap == kCGLineCapRound    ? CAIRO_LINE_CAP_ROUND
           : theCap == kCGLineCapSquare ? CAIRO_LINE_CAP_SQUARE
                                        : CAIRO_LINE_CAP_BUTT;
}

cairo_line_join_t JoinOf(CGLineJoin theJoin)
{
    return theJoin == kCGLineJoinRound   ? CAIRO_LINE_JOIN_ROUND
           : theJoin == kCGLineJoinBevel ? CAIRO_LINE_JOIN_BEVEL
                                         : CAIRO_LINE_JOIN_MITER;
}

// How much the pen enlarges areas.
double AreaOf(const CGAffineTransform& thePen)
{
    return std::fabs(double{thePen.a} * double{thePen.d} - double{thePen.b} * double{thePen.c});
}

bool IsUsable(const CGAffineTransform& thePen)
{
    const double theArea = AreaOf(thePen);
    return std::isfinite(theArea) && theArea > 1e-12 && theArea < 1e12 && std::isfinite(thePen.tx) &&
           std::isfinite(thePen.ty);
}

class CairoCanvas : public Canvas
{
public:
    explicit CairoCanvas(const PixelMemory& theMemory)
        : mSurface(cairo_image_surface_create_for_data(
              theMemory.thePixels, theMemory.theIsOpaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
              theMemory.theWidth, theMemory.theHeight, theMemory.theBytesPerRow)),
          mCairo(cairo_create(mSurface))
    {
        cairo_matrix_init(&mUpright, 1, 0, 0, -1, 0, theMemory.theHeight);
        cairo_set_matrix(mCairo, &mUpright);
    }
    ~CairoCanvas() override
    {
        cairo_destroy(mCairo);
        cairo_surface_destroy(mSurface);
    }
    CairoCanvas(const CairoCanvas&) = delete;
    CairoCanvas& operator=(const CairoCanvas&) = delete;

    bool IsGood() const { return cairo_status(mCairo) == CAIRO_STATUS_SUCCESS; }

    void Fill(const Outline& theOutline, bool theIsEvenOdd, const Ink& theInk) override
    {
        Trace(theOutline);
        SetInk(theInk);
        SetRule(theIsEvenOdd);
        cairo_fill(mCairo);
    }

    void Stroke(const Outline& theOutline, const CGAffineTransform& thePen, const LineStyle& theStyle,
                const Ink& theInk) override
    {
        if (!IsUsable(thePen)) {
            return;
        }
        Trace(theOutline);
        SetInk(theInk);
        SetPen(thePen, theStyle);
        cairo_stroke(mCairo);
        cairo_set_matrix(mCairo, &mUpright);
    }

    void Clip(const Outline& theOutline, bool theIsEvenOdd) override
    {
        Trace(theOutline);
        SetRule(theIsEvenOdd);
        cairo_clip(mCairo);
    }

    void SaveClip() override { cairo_save(mCairo); }
    void RestoreClip() override { cairo_restore(mCairo); }

    CGRect ClipBox() const override
    {
        double theLeft = 0;
        double theBottom = 0;
        double theRight = 0;
        double theTop = 0;
        cairo_clip_extents(mCairo, &theLeft, &theBottom, &theRight, &theTop);
        return CGRectMake(static_cast<CGFloat>(theLeft), static_cast<CGFloat>(theBottom),
                          static_cast<CGFloat>(theRight - theLeft), static_cast<CGFloat>(theTop - theBottom));
    }

    void Flush() override { cairo_surface_flush(mSurface); }
    void Reload() override { cairo_surface_mark_dirty(mSurface); }

private:
    void Trace(const Outline& theOutline)
    {
        cairo_new_path(mCairo);
        const Spot* theSpot = theOutline.Spots().data();
        for (const Outline::Step theStep : theOutline.Steps()) {
            switch (theStep) {
            case Outline::Step::kMove:
                cairo_move_to(mCairo, theSpot[0].theX, theSpot[0].theY);
                theSpot += 1;
                break;
            case Outline::Step::kLine:
                cairo_line_to(mCairo, theSpot[0].theX, theSpot[0].theY);
                theSpot += 1;
                break;
            case Outline::Step::kCurve:
                cairo_curve_to(mCairo, theSpot[0].theX, theSpot[0].theY, theSpot[1].theX, theSpot[1].theY,
                               theSpot[2].theX, theSpot[2].theY);
                theSpot += 3;
                break;
            case Outline::Step::kClose:
                cairo_close_path(mCairo);
                break;
            }
        }
    }

    void SetRule(bool theIsEvenOdd)
    {
        cairo_set_fill_rule(mCairo, theIsEvenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    }

    void SetInk(const Ink& theInk)
    {
        const Paint& thePaint = theInk.thePaint;
        cairo_set_source_rgba(mCairo, thePaint.theRed, thePaint.theGreen, thePaint.theBlue,
                              thePaint.theAlpha);
        cairo_set_operator(mCairo, OperatorOf(theInk.theMode));
        cairo_set_antialias(mCairo, theInk.theIsSmooth ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    }

    // Lines as thin as can be are one pixel wide, however large the coordinates are.
    void SetPen(const CGAffineTransform& thePen, const LineStyle& theStyle)
    {
        if (theStyle.theWidth > 0) {
            cairo_matrix_t theMatrix;
            cairo_matrix_init(&theMatrix, double{thePen.a}, double{thePen.b}, double{thePen.c},
                              double{thePen.d}, double{thePen.tx}, double{thePen.ty});
            cairo_transform(mCairo, &theMatrix);
        }
        cairo_set_line_width(mCairo, theStyle.theWidth > 0 ? std::fmin(theStyle.theWidth, kWidestPen) : 1);
        cairo_set_line_cap(mCairo, CapOf(theStyle.theCap));
        cairo_set_line_join(mCairo, JoinOf(theStyle.theJoin));
        cairo_set_miter_limit(mCairo, theStyle.theMiterLimit);
        SetDashes(theStyle, std::sqrt(AreaOf(thePen)));
    }

    void SetDashes(const LineStyle& theStyle, double theScale)
    {
        double theLength = 0;
        for (const double theDash : theStyle.theDashes) {
            theLength += theDash;
        }
        const bool theIsSolid = theLength * theScale < kShortestDashes;
        cairo_set_dash(mCairo, theStyle.theDashes.data(),
                       theIsSolid ? 0 : static_cast<int>(theStyle.theDashes.size()),
                       theIsSolid ? 0 : std::fmod(theStyle.thePhase, 2 * theLength));
    }

    cairo_surface_t* mSurface; // owned, as the next
    cairo_t* mCairo;
    cairo_matrix_t mUpright = {};
};

} // namespace

std::unique_ptr<Canvas> MakeCanvas(const PixelMemory& theMemory)
{
    auto theCanvas = std::make_unique<CairoCanvas>(theMemory);
    return theCanvas->IsGood() ? std::move(theCanvas) : nullptr;
}

bool CanDraw()
{
    return true;
}

} // namespace Host
