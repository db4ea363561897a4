// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "InspectorGraph.h"

#include <algorithm>
#include <array>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr qreal kMargin = 12;
constexpr qreal kPadding = 8;
constexpr qreal kColumnGap = 70;
constexpr qreal kLabelGap = 140; // room for the names of transforms
constexpr qreal kRowGap = 14;
constexpr qreal kWidest = 220;

QString Text(const std::string& theText)
{
    return QString::fromStdString(theText);
}

// The head of an arrow that ends there and comes from the right, for 1, or from the left, for -1.
QPolygonF HeadAt(QPointF theEnd, qreal theWay)
{
    return QPolygonF({theEnd, theEnd + QPointF(theWay * 8, -4), theEnd + QPointF(theWay * 8, 4)});
}

} // namespace

InspectorGraph::InspectorGraph(QWidget* theParent)
    : QWidget(theParent)
{
    setAccessibleName(QStringLiteral("Graph around the chosen object"));
}

qreal InspectorGraph::RowHeight() const
{
    return fontMetrics().height() + 4;
}

QSize InspectorGraph::sizeHint() const
{
    return mSize;
}

std::size_t InspectorGraph::BoxOf(const LmLiveSurvey& theSurvey, std::uint64_t theObject, Side theSide)
{
    const Side theRealSide = theObject == mChosen ? Side::kChosen : theSide;
    for (std::size_t theIndex = 0; theIndex < mBoxes.size(); ++theIndex) {
        if (mBoxes[theIndex].theObject == theObject && mBoxes[theIndex].theSide == theRealSide) {
            return theIndex;
        }
    }
    Box theBox;
    theBox.theObject = theObject;
    theBox.theSide = theRealSide;
    theBox.theName = Text(theSurvey.FindObject(theObject).theName);
    mBoxes.push_back(theBox);
    return mBoxes.size() - 1;
}

void InspectorGraph::AddKey(std::size_t theBox, const QString& theKey)
{
    std::vector<QString>& theKeys = mBoxes[theBox].theKeys;
    if (!theKey.isEmpty() && std::find(theKeys.begin(), theKeys.end(), theKey) == theKeys.end()) {
        theKeys.push_back(theKey);
    }
}

// Two bindings of the same keys, one each way, are one arrow.
bool InspectorGraph::AddToOther(const LmSurveyedLink& theLink)
{
    for (Arrow& theArrow : mArrows) {
        const bool isReverse = !theArrow.isDashed && theLink.theKind == LmLinkKind::kBinding &&
                               mBoxes[theArrow.theFrom].theObject == theLink.theObject &&
                               mBoxes[theArrow.theTo].theObject == theLink.theOther &&
                               theArrow.theFromKey == Text(theLink.theKey) &&
                               theArrow.theToKey == Text(theLink.theOtherKey);
        if (isReverse) {
            theArrow.isBothWays = true;
            theArrow.theLabel = theArrow.theLabel.isEmpty() ? Text(theLink.theTransform) : theArrow.theLabel;
            return true;
        }
    }
    return false;
}

void InspectorGraph::AddLink(const LmLiveSurvey& theSurvey, const LmSurveyedLink& theLink)
{
    if (AddToOther(theLink)) {
        return;
    }
    Arrow theArrow;
    theArrow.theFrom = BoxOf(theSurvey, theLink.theOther, Side::kFrom);
    theArrow.theTo = BoxOf(theSurvey, theLink.theObject, Side::kTo);
    theArrow.theFromKey = Text(theLink.theOtherKey);
    theArrow.theToKey = Text(theLink.theKey);
    theArrow.isDashed = theLink.theKind != LmLinkKind::kBinding;
    theArrow.theLabel = Text(theLink.theTransform);
    AddKey(theArrow.theFrom, theArrow.theFromKey);
    AddKey(theArrow.theTo, theArrow.theToKey);
    mArrows.push_back(theArrow);
}

void InspectorGraph::Show(const LmLiveSurvey& theSurvey, std::uint64_t theObject)
{
    mChosen = theObject;
    mBoxes.clear();
    mArrows.clear();
    if (theObject != 0) {
        BoxOf(theSurvey, theObject, Side::kChosen);
        // What leads here comes first, so that what goes both ways stands on the left.
        std::vector<LmSurveyedLink> theLinks = theSurvey.FindLinks(theObject);
        std::stable_partition(theLinks.begin(), theLinks.end(),
                              [=](const LmSurveyedLink& theLink) { return theLink.theObject == theObject; });
        for (const LmSurveyedLink& theLink : theLinks) {
            AddLink(theSurvey, theLink);
        }
    }
    Arrange();
    setMinimumSize(mSize);
    update();
}

// Three columns, each as wide as its widest box.
void InspectorGraph::Arrange()
{
    std::array<qreal, 3> theWidths = {};
    std::array<qreal, 3> theHeights = {};
    QFont theBold = font();
    theBold.setBold(true);
    for (Box& theBox : mBoxes) {
        qreal theWidth = QFontMetricsF(theBold).horizontalAdvance(theBox.theName);
        for (const QString& theKey : theBox.theKeys) {
            theWidth = std::max<qreal>(theWidth, fontMetrics().horizontalAdvance(theKey));
        }
        const auto theColumn = static_cast<std::size_t>(theBox.theSide);
        const qreal theHeight = RowHeight() * static_cast<qreal>(theBox.theKeys.size() + 1) + kPadding;
        theBox.thePlace = QRectF(0, 0, std::min(theWidth, kWidest) + 2 * kPadding, theHeight);
        theWidths.at(theColumn) = std::max(theWidths.at(theColumn), theBox.thePlace.width());
        theHeights.at(theColumn) += theHeight + kRowGap;
    }
    const qreal theTallest = *std::max_element(theHeights.begin(), theHeights.end());
    const bool hasLabels = std::any_of(mArrows.begin(), mArrows.end(),
                                       [](const Arrow& theArrow) { return !theArrow.theLabel.isEmpty(); });
    mGap = hasLabels ? kLabelGap : kColumnGap;
    std::array<qreal, 3> theLefts = {};
    qreal theLeft = kMargin;
    for (std::size_t theColumn = 0; theColumn < theLefts.size(); ++theColumn) {
        theLefts.at(theColumn) = theLeft;
        theLeft += theWidths.at(theColumn) > 0 ? theWidths.at(theColumn) + mGap : 0;
    }
    std::array<qreal, 3> theTops = {kMargin, kMargin, kMargin};
    for (Box& theBox : mBoxes) {
        const auto theColumn = static_cast<std::size_t>(theBox.theSide);
        theBox.thePlace.moveTo(theLefts.at(theColumn), theTops.at(theColumn));
        theBox.thePlace.setWidth(theWidths.at(theColumn));
        theTops.at(theColumn) += theBox.thePlace.height() + kRowGap;
    }
    mSize = QSizeF(std::max(theLeft - mGap + kMargin, 0.0), theTallest + kMargin).toSize();
}

QPointF InspectorGraph::PortOf(const Box& theBox, const QString& theKey, bool isRight) const
{
    const auto theFound = std::find(theBox.theKeys.begin(), theBox.theKeys.end(), theKey);
    const auto theRow = theFound == theBox.theKeys.end() ? -1 : theFound - theBox.theKeys.begin();
    const qreal theTop =
        theBox.thePlace.top() + RowHeight() * (static_cast<qreal>(theRow) + 1.5) + kPadding / 2;
    return {isRight ? theBox.thePlace.right() : theBox.thePlace.left(), theTop};
}

void InspectorGraph::DrawBox(QPainter& thePainter, const Box& theBox) const
{
    const bool isChosen = theBox.theSide == Side::kChosen;
    thePainter.setPen(
        QPen(palette().color(isChosen ? QPalette::Highlight : QPalette::Mid), isChosen ? 2 : 1));
    thePainter.setBrush(palette().color(isChosen ? QPalette::AlternateBase : QPalette::Button));
    thePainter.drawRoundedRect(theBox.thePlace, 5, 5);
    thePainter.setPen(palette().color(QPalette::Text));
    QRectF theRow = theBox.thePlace.adjusted(kPadding, kPadding / 2, -kPadding, 0);
    theRow.setHeight(RowHeight());
    QFont theBold = font();
    theBold.setBold(true);
    thePainter.setFont(theBold);
    thePainter.drawText(theRow, Qt::AlignVCenter,
                        QFontMetricsF(theBold).elidedText(theBox.theName, Qt::ElideRight, theRow.width()));
    thePainter.setFont(font());
    for (const QString& theKey : theBox.theKeys) {
        theRow.translate(0, RowHeight());
        thePainter.drawText(
            theRow, Qt::AlignVCenter,
            fontMetrics().elidedText(theKey, Qt::ElideRight, static_cast<int>(theRow.width())));
    }
}

void InspectorGraph::DrawArrow(QPainter& thePainter, const Arrow& theArrow) const
{
    const Box& theFrom = mBoxes[theArrow.theFrom];
    const Box& theTo = mBoxes[theArrow.theTo];
    const bool isInside = theArrow.theFrom == theArrow.theTo;
    const QPointF theStart = PortOf(theFrom, theArrow.theFromKey, true);
    const QPointF theEnd = PortOf(theTo, theArrow.theToKey, isInside);
    const qreal theBend = isInside ? 40 : mGap / 2;
    const qreal theWay = isInside ? 1 : -1;
    QPainterPath thePath(theStart);
    thePath.cubicTo(theStart + QPointF(theBend, 0), theEnd + QPointF(theWay * theBend, 0), theEnd);
    const QColor theColor = palette().color(QPalette::Text);
    thePainter.setBrush(Qt::NoBrush);
    thePainter.setPen(QPen(theColor, 1.3, theArrow.isDashed ? Qt::DashLine : Qt::SolidLine));
    thePainter.drawPath(thePath);
    thePainter.setPen(Qt::NoPen);
    thePainter.setBrush(theColor);
    thePainter.drawPolygon(HeadAt(theEnd, theWay));
    if (theArrow.isBothWays) {
        thePainter.drawPolygon(HeadAt(theStart, 1));
    }
    if (!theArrow.theLabel.isEmpty()) {
        const QString theLabel =
            fontMetrics().elidedText(theArrow.theLabel, Qt::ElideMiddle, static_cast<int>(mGap) - 24);
        QRectF thePlace(0, 0, fontMetrics().horizontalAdvance(theLabel) + 8, RowHeight());
        // Where arrows have come apart.
        thePlace.moveCenter(theEnd + QPointF(theWay * (12 + thePlace.width() / 2), 0));
        thePainter.setBrush(palette().color(QPalette::Base));
        thePainter.drawRect(thePlace);
        thePainter.setPen(theColor);
        thePainter.drawText(thePlace, Qt::AlignCenter, theLabel);
    }
}

void InspectorGraph::paintEvent(QPaintEvent* /*theEvent*/)
{
    QPainter thePainter(this);
    thePainter.fillRect(rect(), palette().color(QPalette::Base));
    thePainter.setRenderHint(QPainter::Antialiasing);
    if (mBoxes.empty()) {
        thePainter.setPen(palette().color(QPalette::Text));
        thePainter.drawText(rect(), Qt::AlignCenter, QStringLiteral("No object is chosen"));
    }
    for (const Box& theBox : mBoxes) {
        DrawBox(thePainter, theBox);
    }
    for (const Arrow& theArrow : mArrows) {
        DrawArrow(thePainter, theArrow);
    }
}

void InspectorGraph::mouseReleaseEvent(QMouseEvent* theEvent)
{
    for (const Box& theBox : mBoxes) {
        if (theBox.thePlace.contains(theEvent->position()) && theBox.theObject != mChosen && mChooser) {
            mChooser(theBox.theObject);
            return;
        }
    }
}
