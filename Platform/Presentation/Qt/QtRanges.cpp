// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtRanges.h"

#include "QtKeys.h"

#include <QAccessibleWidget>
#include <QGuiApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTimer>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace Host {

namespace {

// Steps of a progress bar; more would not be seen.
constexpr int kProgressSteps = 10000;

constexpr int kMostOfAnInt = std::numeric_limits<int>::max();

Qt::Orientation OrientationOf(const ControlLook& theLook)
{
    return IsUpright(theLook.theBounds) ? Qt::Vertical : Qt::Horizontal;
}

std::uint32_t CurrentModifiers()
{
    return ModifiersOf(QGuiApplication::keyboardModifiers());
}

bool IsDark(const QPalette& thePalette)
{
    return thePalette.color(QPalette::Window).lightness() <
           thePalette.color(QPalette::WindowText).lightness();
}

// A press beside the indicator of a slider brings it there, as the managers have it. Tick marks, which styles
// draw in a darker shade of the window, are drawn lighter where the window is dark.
class SliderStyle : public QProxyStyle
{
public:
    void drawComplexControl(ComplexControl theControl, const QStyleOptionComplex* theOption,
                            QPainter* thePainter, const QWidget* theWidget) const override
    {
        const auto* const theSlider = qstyleoption_cast<const QStyleOptionSlider*>(theOption);
        if (theControl != CC_Slider || theSlider == nullptr || !IsDark(theSlider->palette)) {
            QProxyStyle::drawComplexControl(theControl, theOption, thePainter, theWidget);
            return;
        }
        QStyleOptionSlider theTicks = *theSlider;
        theTicks.subControls = theSlider->subControls & SC_SliderTickmarks;
        theTicks.palette.setBrush(QPalette::Window, theSlider->palette.brush(QPalette::WindowText));
        QProxyStyle::drawComplexControl(theControl, &theTicks, thePainter, theWidget);
        QStyleOptionSlider theRest = *theSlider;
        theRest.subControls.setFlag(SC_SliderTickmarks, false);
        QProxyStyle::drawComplexControl(theControl, &theRest, thePainter, theWidget);
    }

    int styleHint(StyleHint theHint, const QStyleOption* theOption, const QWidget* theWidget,
                  QStyleHintReturn* theData) const override
    {
        return theHint == SH_Slider_AbsoluteSetButtons
                   ? static_cast<int>(Qt::LeftButton)
                   : QProxyStyle::styleHint(theHint, theOption, theWidget, theData);
    }
};

// One for all sliders; goes with the application object.
QStyle& TheSliderStyle()
{
    static QPointer<QStyle> sStyle;
    if (sStyle == nullptr) {
        sStyle = new SliderStyle;
        sStyle->setParent(QCoreApplication::instance());
    }
    return *sStyle;
}

class SliderWidget : public QSlider
{
public:
    explicit SliderWidget(QWidget* theParent)
        : QSlider(theParent)
    {
        setStyle(&TheSliderStyle());
    }

protected:
    // A press may change the value first and then take hold of the indicator. Told the other way round, the
    // change is a part of the drag.
    void mousePressEvent(QMouseEvent* theEvent) override
    {
        {
            const QSignalBlocker theBlocker(this);
            QSlider::mousePressEvent(theEvent);
        }
        if (isSliderDown()) {
            emit sliderPressed();
        }
    }
};

std::optional<ControlPart> PartOf(QStyle::SubControl theSubControl)
{
    switch (theSubControl) {
    case QStyle::SC_ScrollBarSubLine:
        return ControlPart::kUpButton;
    case QStyle::SC_ScrollBarAddLine:
        return ControlPart::kDownButton;
    case QStyle::SC_ScrollBarSubPage:
        return ControlPart::kPageUp;
    case QStyle::SC_ScrollBarAddPage:
        return ControlPart::kPageDown;
    default:
        return std::nullopt;
    }
}

class ScrollBarWidget : public QScrollBar
{
public:
    ScrollBarWidget(QtReports& theReports, ObjectId theControl, QWidget* theParent)
        : QScrollBar(theParent),
          mReports(theReports),
          mControl(theControl)
    {
    }

protected:
    void mousePressEvent(QMouseEvent* theEvent) override
    {
        mPressed = theEvent->button() == Qt::LeftButton ? SubControlAt(theEvent->position().toPoint())
                                                        : QStyle::SC_None;
        if (PartOf(mPressed).has_value()) {
            Report(*PartOf(mPressed), true);
            update();
        } else {
            QScrollBar::mousePressEvent(theEvent);
        }
    }

    void mouseMoveEvent(QMouseEvent* theEvent) override
    {
        if (!PartOf(mPressed).has_value()) {
            QScrollBar::mouseMoveEvent(theEvent);
        }
    }

    void mouseReleaseEvent(QMouseEvent* theEvent) override
    {
        const QStyle::SubControl theReleased = std::exchange(mPressed, QStyle::SC_None);
        if (PartOf(theReleased).has_value()) {
            Report(*PartOf(theReleased), false);
            update();
        } else {
            QScrollBar::mouseReleaseEvent(theEvent);
        }
    }

    // Styles do not expect that a scroll bar has the keys.
    void paintEvent(QPaintEvent* theEvent) override
    {
        QScrollBar::paintEvent(theEvent);
        if (hasFocus()) {
            QStyleOptionFocusRect theOption;
            theOption.initFrom(this);
            QPainter thePainter(this);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &theOption, &thePainter, this);
        }
    }

    void initStyleOption(QStyleOptionSlider* theOption) const override
    {
        QScrollBar::initStyleOption(theOption);
        if (mPressed != QStyle::SC_None) {
            theOption->activeSubControls = mPressed;
            theOption->state |= QStyle::State_Sunken;
        }
    }

private:
    QStyle::SubControl SubControlAt(QPoint thePoint) const
    {
        QStyleOptionSlider theOption;
        QScrollBar::initStyleOption(&theOption);
        return style()->hitTestComplexControl(QStyle::CC_ScrollBar, &theOption, thePoint, this);
    }

    void Report(ControlPart thePart, bool theIsDown)
    {
        const PartPress thePress = {mControl, thePart, theIsDown, CurrentModifiers()};
        mReports.Add([thePress](PresenterEvents& theEvents) { theEvents.PartPressed(thePress); });
    }

    QtReports& mReports;
    ObjectId mControl;
    QStyle::SubControl mPressed = QStyle::SC_None;
};

} // namespace

// Indicators -------------------------------------------------------------------------------------------

QtIndicatorControl::QtIndicatorControl(const ControlLook& theLook, QtInput& theInput, QWidget* theWidget)
    : QtControl(theLook, theInput, theWidget)
{
    QAbstractSlider& theSlider = Slider();
    theSlider.setOrientation(OrientationOf(theLook));
    theInput.Watch(theSlider, QtInput::MouseUse::kWidget);
    connect(&theSlider, &QAbstractSlider::sliderPressed, this, &QtIndicatorControl::Begin);
    connect(&theSlider, &QAbstractSlider::sliderMoved, this,
            [this](int theValue) { Report(DragPhase::kMoved, theValue); });
    connect(&theSlider, &QAbstractSlider::sliderReleased, this, &QtIndicatorControl::End);
    connect(&theSlider, &QAbstractSlider::valueChanged, this, &QtIndicatorControl::ReportStep);
}

bool QtIndicatorControl::Suits(const ControlLook& theLook) const
{
    return QtControl::Suits(theLook) && Slider().orientation() == OrientationOf(theLook);
}

QAbstractSlider& QtIndicatorControl::Slider() const
{
    return static_cast<QAbstractSlider&>(Widget());
}

void QtIndicatorControl::ShowState(const ControlLook& theLook)
{
    QAbstractSlider& theSlider = Slider();
    theSlider.setRange(theLook.theMinimum, theLook.theMaximum);
    if (!theSlider.isSliderDown()) {
        theSlider.setValue(theLook.theValue);
    }
}

void QtIndicatorControl::Report(DragPhase thePhase, std::int32_t theValue)
{
    const ControlDrag theDrag = {Look().theId, thePhase, theValue, CurrentModifiers()};
    const auto theSubject =
        thePhase == DragPhase::kMoved ? QtReports::Subject::kDrag : QtReports::Subject::kOther;
    Reports().Add([theDrag](PresenterEvents& theEvents) { theEvents.ControlDragged(theDrag); }, theSubject,
                  theDrag.theControl);
}

// A press beside the indicator has moved it already.
void QtIndicatorControl::Begin()
{
    Report(DragPhase::kBegan, Look().theValue);
    if (Slider().sliderPosition() != Look().theValue) {
        Report(DragPhase::kMoved, Slider().sliderPosition());
    }
}

void QtIndicatorControl::End()
{
    Report(DragPhase::kEnded, Slider().sliderPosition());
    const QPointer<QtIndicatorControl> theControl(this);
    Reports().Add([theControl](PresenterEvents&) {
        if (theControl != nullptr) {
            theControl->ShowAgain();
        }
    });
}

// The wheel, which moves the indicator without holding it.
void QtIndicatorControl::ReportStep()
{
    if (!Slider().isSliderDown()) {
        Begin();
        End();
    }
}

// Sliders ----------------------------------------------------------------------------------------------

QtSlider::QtSlider(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtIndicatorControl(theLook, theInput, new SliderWidget(&theContent))
{
}

void QtSlider::ShowState(const ControlLook& theLook)
{
    auto& theSlider = static_cast<QSlider&>(Slider());
    const bool theHasTicks = theLook.theTickMarks > 1;
    theSlider.setTickPosition(theHasTicks ? QSlider::TicksBelow : QSlider::NoTicks);
    if (theHasTicks) {
        const std::int64_t theSpan = std::int64_t{theLook.theMaximum} - theLook.theMinimum;
        theSlider.setTickInterval(static_cast<int>(
            std::clamp<std::int64_t>(theSpan / (theLook.theTickMarks - 1), 1, kMostOfAnInt)));
    }
    QtIndicatorControl::ShowState(theLook);
}

QRect QtSlider::PlaceFor(const QRect& theBounds) const
{
    return Slider().orientation() == Qt::Horizontal ? AtLeastAsHigh(theBounds) : theBounds;
}

// Scroll bars ------------------------------------------------------------------------------------------

QtScrollBar::QtScrollBar(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtIndicatorControl(theLook, theInput,
                         new ScrollBarWidget(theInput.Reports(), theLook.theId, &theContent))
{
}

void QtScrollBar::ShowState(const ControlLook& theLook)
{
    Slider().setPageStep(std::max(theLook.theViewSize, 0));
    QtIndicatorControl::ShowState(theLook);
}

// Progress bars ----------------------------------------------------------------------------------------

QtProgressBar::QtProgressBar(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new QProgressBar(&theContent)),
      mBar(static_cast<QProgressBar&>(Widget()))
{
    mBar.setTextVisible(false);
    theInput.Watch(mBar, QtInput::MouseUse::kManagers);
}

void QtProgressBar::ShowState(const ControlLook& theLook)
{
    const std::int64_t theSpan = std::int64_t{theLook.theMaximum} - theLook.theMinimum;
    const std::int64_t theAmount = std::int64_t{theLook.theValue} - theLook.theMinimum;
    const std::int64_t theStep =
        theSpan <= 0 ? 0 : std::clamp<std::int64_t>(theAmount, 0, theSpan) * kProgressSteps / theSpan;
    mBar.setOrientation(OrientationOf(theLook));
    mBar.setRange(0, theLook.theIsIndeterminate ? 0 : kProgressSteps);
    mBar.setValue(static_cast<int>(theStep));
}

// Chasing arrows ---------------------------------------------------------------------------------------

namespace {

// Strokes in a circle, one after the other the darkest.
class SpinnerWidget : public QWidget
{
public:
    explicit SpinnerWidget(QWidget* theParent)
        : QWidget(theParent),
          mTimer(this)
    {
        mTimer.setInterval(kInterval);
        connect(&mTimer, &QTimer::timeout, this, [this] {
            mStep = (mStep + 1) % kStrokes;
            update();
        });
    }

    void SetAnimated(bool theIsAnimated)
    {
        mIsAnimated = theIsAnimated;
        Follow();
    }

protected:
    // Nobody sees it turn while it is hidden.
    void showEvent(QShowEvent*) override { Follow(); }
    void hideEvent(QHideEvent*) override { mTimer.stop(); }

    void paintEvent(QPaintEvent*) override
    {
        const double theSize = std::min(width(), height());
        QPainter thePainter(this);
        thePainter.setRenderHint(QPainter::Antialiasing);
        thePainter.translate(QRectF(rect()).center());
        for (int theStroke = 0; theStroke < kStrokes; ++theStroke) {
            QColor theColour = palette().color(QPalette::WindowText);
            const int theAge = (mStep - theStroke + kStrokes) % kStrokes;
            theColour.setAlphaF(mIsAnimated ? 1.0F - static_cast<float>(theAge) / kStrokes : kStill);
            thePainter.setPen(QPen(theColour, theSize / kStrokes, Qt::SolidLine, Qt::RoundCap));
            thePainter.drawLine(QPointF(0, -theSize * kInner), QPointF(0, -theSize * kOuter));
            thePainter.rotate(360.0 / kStrokes);
        }
    }

private:
    static constexpr int kStrokes = 12;
    static constexpr int kInterval = 80; // milliseconds
    static constexpr float kStill = 0.3F;
    static constexpr double kInner = 0.22; // ends of a stroke, as shares of the size
    static constexpr double kOuter = 0.4;

    void Follow() { mIsAnimated&& isVisible() ? mTimer.start() : mTimer.stop(); }

    QTimer mTimer;
    int mStep = 0;
    bool mIsAnimated = false;
};

QAccessibleInterface* MakeSpinnerInterface(const QString&, QObject* theObject)
{
    auto* const theSpinner = dynamic_cast<SpinnerWidget*>(theObject);
    return theSpinner == nullptr ? nullptr : new QAccessibleWidget(theSpinner, QAccessible::Animation);
}

// Qt keeps what makes interfaces as long as the program runs.
void MakeSpinnersKnown()
{
    static bool sIsKnown = false;
    if (!std::exchange(sIsKnown, true)) {
        QAccessible::installFactory(MakeSpinnerInterface);
    }
}

} // namespace

QtChasingArrows::QtChasingArrows(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new SpinnerWidget(&theContent))
{
    MakeSpinnersKnown();
    theInput.Watch(Widget(), QtInput::MouseUse::kManagers);
}

void QtChasingArrows::ShowState(const ControlLook& theLook)
{
    static_cast<SpinnerWidget&>(Widget()).SetAnimated(theLook.theIsAnimated);
}

} // namespace Host
