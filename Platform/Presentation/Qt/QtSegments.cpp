// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtSegments.h"

#include "QtPictures.h"

#include <QStyleOptionToolButton>
#include <QToolButton>

#include <functional>
#include <vector>

namespace Host {

namespace {

// A button that shows that it has the keys when the row of which it is one has them.
class SegmentButton : public QToolButton
{
public:
    explicit SegmentButton(QWidget* theRow)
        : QToolButton(theRow)
    {
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        // It is made while the row is not to be painted, and would stay so itself.
        setAttribute(Qt::WA_UpdatesDisabled, false);
    }

    void ShowSegment(const SegmentLook& theLook)
    {
        mHasKeys = theLook.theHasKeys;
        setText(WithoutMnemonics(theLook.theTitle));
        setIcon(IconOf(theLook.thePicture, *this));
        setToolButtonStyle(theLook.thePicture == PictureShape::kNone ? Qt::ToolButtonTextOnly
                           : theLook.theTitle.empty()                ? Qt::ToolButtonIconOnly
                                                                     : Qt::ToolButtonTextBesideIcon);
        setEnabled(theLook.theIsEnabled);
        setCheckable(theLook.theIsOn);
        setChecked(theLook.theIsOn);
        setDown(theLook.theIsPressed);
        update();
    }

protected:
    void initStyleOption(QStyleOptionToolButton* theOption) const override
    {
        QToolButton::initStyleOption(theOption);
        if (mHasKeys && parentWidget()->hasFocus()) {
            theOption->state |= QStyle::State_HasFocus;
        }
    }

private:
    bool mHasKeys = false;
};

} // namespace

// Takes mouse and keys itself: its parts have none of their own.
class SegmentsWidget : public QWidget
{
public:
    using Clicked = std::function<void(size_t theIndex)>;

    explicit SegmentsWidget(QWidget* theParent)
        : QWidget(theParent)
    {
    }

    void SetClicked(Clicked theClicked) { mClicked = std::move(theClicked); }

    void ShowSegments(const std::vector<SegmentLook>& theSegments, const PixelRect& theBounds)
    {
        while (mButtons.size() > theSegments.size()) {
            delete mButtons.back();
            mButtons.pop_back();
        }
        while (mButtons.size() < theSegments.size()) {
            AddButton();
        }
        const QPoint theCorner = ToQRect(theBounds).topLeft();
        for (size_t theIndex = 0; theIndex < theSegments.size(); ++theIndex) {
            mButtons[theIndex]->setGeometry(ToQRect(theSegments[theIndex].theBounds).translated(-theCorner));
            mButtons[theIndex]->ShowSegment(theSegments[theIndex]);
        }
    }

protected:
    void focusInEvent(QFocusEvent*) override { update(); }
    void focusOutEvent(QFocusEvent*) override { update(); }

private:
    // A screen reader clicks a button; a person's clicks are the row's.
    void AddButton()
    {
        auto* theButton = new SegmentButton(this);
        const size_t theIndex = mButtons.size();
        connect(theButton, &QToolButton::clicked, this, [this, theIndex] { mClicked(theIndex); });
        theButton->show();
        mButtons.push_back(theButton);
    }

    std::vector<SegmentButton*> mButtons; // children
    Clicked mClicked;
};

QtSegments::QtSegments(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new SegmentsWidget(&theContent)),
      mSegments(static_cast<SegmentsWidget&>(Widget()))
{
    mSegments.SetClicked([this](size_t theIndex) {
        const std::vector<SegmentLook>& theSegments = Look().Rare().theSegments;
        if (theIndex < theSegments.size()) {
            ReportClickAt(CentreOf(theSegments[theIndex].theBounds));
        }
    });
    theInput.Watch(mSegments, QtInput::MouseUse::kManagers);
}

void QtSegments::ShowState(const ControlLook& theLook)
{
    mSegments.ShowSegments(theLook.Rare().theSegments, theLook.theBounds);
}

} // namespace Host
