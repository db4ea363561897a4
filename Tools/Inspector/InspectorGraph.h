// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef InspectorGraph_h
#define InspectorGraph_h

#include "LmLiveSurvey.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <utility>
#include <vector>

class QPainter;

// The objects around the chosen one: left what its keys take their values from, right what takes values from
// it. Bindings are drawn as whole lines, dependencies and observers dashed. A click on an object chooses it.
class InspectorGraph : public QWidget
{
public:
    explicit InspectorGraph(QWidget* theParent);

    void Show(const LmLiveSurvey& theSurvey, std::uint64_t theObject);

    QSize sizeHint() const override;

    // Called with the object that was clicked on.
    void SetChooser(std::function<void(std::uint64_t)> theChooser) { mChooser = std::move(theChooser); }

protected:
    void paintEvent(QPaintEvent* theEvent) override;
    void mouseReleaseEvent(QMouseEvent* theEvent) override;

private:
    enum class Side
    {
        kFrom,
        kChosen,
        kTo
    };
    struct Box
    {
        std::uint64_t theObject = 0;
        Side theSide = Side::kChosen;
        QString theName;
        std::vector<QString> theKeys;
        QRectF thePlace;
    };
    struct Arrow
    {
        std::size_t theFrom = 0; // a box
        QString theFromKey;
        std::size_t theTo = 0;
        QString theToKey;
        QString theLabel;
        bool isDashed = false;
        bool isBothWays = false;
    };

    std::size_t BoxOf(const LmLiveSurvey& theSurvey, std::uint64_t theObject, Side theSide);
    void AddKey(std::size_t theBox, const QString& theKey);
    bool AddToOther(const LmSurveyedLink& theLink);
    void AddLink(const LmLiveSurvey& theSurvey, const LmSurveyedLink& theLink);
    void Arrange();
    qreal RowHeight() const;
    QPointF PortOf(const Box& theBox, const QString& theKey, bool isRight) const;
    void DrawBox(QPainter& thePainter, const Box& theBox) const;
    void DrawArrow(QPainter& thePainter, const Arrow& theArrow) const;

    std::function<void(std::uint64_t)> mChooser;
    std::uint64_t mChosen = 0;
    std::vector<Box> mBoxes;
    std::vector<Arrow> mArrows;
    qreal mGap = 0; // between the columns
    QSize mSize;
};

#endif
