// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtPictures.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>

#include <algorithm>

namespace Host {

namespace {

// Of icons of the desktop; what is larger shows them in its middle.
constexpr int kLargestPicture = 128;

// Around the picture in a button.
constexpr int kButtonEdge = 8;

QStyle::StandardPixmap StandardPictureOf(PictureShape thePicture)
{
    switch (thePicture) {
    case PictureShape::kFolder:
        return QStyle::SP_DirIcon;
    case PictureShape::kApplication:
        return QStyle::SP_DesktopIcon;
    case PictureShape::kDisk:
        return QStyle::SP_DriveHDIcon;
    case PictureShape::kNote:
        return QStyle::SP_MessageBoxInformation;
    case PictureShape::kCaution:
        return QStyle::SP_MessageBoxWarning;
    case PictureShape::kStop:
        return QStyle::SP_MessageBoxCritical;
    default:
        return QStyle::SP_FileIcon;
    }
}

QIcon EmptyFrame(const QWidget& theWidget)
{
    QPixmap thePicture(kLargestPicture, kLargestPicture);
    thePicture.fill(Qt::transparent);
    QPainter thePainter(&thePicture);
    thePainter.setPen(QPen(theWidget.palette().color(QPalette::Mid), kLargestPicture / 16.0));
    thePainter.drawRect(thePicture.rect().adjusted(8, 8, -8, -8));
    return {thePicture};
}

// A square that fits into bounds.
QSize SizeOfPicture(const PixelRect& theBounds, int theEdge)
{
    const QSize theSize = ToQRect(theBounds).size();
    const int theSide = std::clamp(std::min(theSize.width(), theSize.height()) - theEdge, 1, kLargestPicture);
    return {theSide, theSide};
}

// A tool button that shows by itself that it has a menu, which is the managers'.
class BevelWidget : public QToolButton
{
public:
    using QToolButton::QToolButton;

    bool mHasMenu = false;

protected:
    void initStyleOption(QStyleOptionToolButton* theOption) const override
    {
        QToolButton::initStyleOption(theOption);
        if (mHasMenu) {
            theOption->features |= QStyleOptionToolButton::HasMenu;
        }
    }
};

Qt::ToolButtonStyle StyleOf(const ControlLook& theLook)
{
    if (theLook.Rare().thePicture == PictureShape::kNone) {
        return Qt::ToolButtonTextOnly;
    }
    if (theLook.theTitle.empty() || theLook.theShape == ControlShape::kRoundButton) {
        return Qt::ToolButtonIconOnly;
    }
    const TitlePlace thePlace = theLook.Rare().theTitlePlace;
    const bool theIsUpright = thePlace == TitlePlace::kBelow || thePlace == TitlePlace::kAbove;
    return theIsUpright ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon;
}

} // namespace

QIcon IconOf(PictureShape thePicture, const QWidget& theWidget)
{
    switch (thePicture) {
    case PictureShape::kNone:
        return {};
    case PictureShape::kFrame:
        return EmptyFrame(theWidget);
    default:
        return theWidget.style()->standardIcon(StandardPictureOf(thePicture), nullptr, &theWidget);
    }
}

QtBevelButton::QtBevelButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new BevelWidget(&theContent)),
      mButton(static_cast<QToolButton&>(Widget()))
{
    connect(&mButton, &QToolButton::clicked, this, &QtBevelButton::ReportClick);
    theInput.Watch(mButton, QtInput::MouseUse::kManagers);
}

void QtBevelButton::ShowState(const ControlLook& theLook)
{
    const RareLook& theRareLook = theLook.Rare();
    static_cast<BevelWidget&>(mButton).mHasMenu = theRareLook.theHasMenu;
    mButton.setText(WithoutMnemonics(theLook.theTitle));
    mButton.setIcon(IconOf(theRareLook.thePicture, mButton));
    mButton.setIconSize(
        theRareLook.theDiameter == 0
            ? SizeOfPicture(theLook.theBounds, kButtonEdge)
            : SizeOfPicture({0, 0, theRareLook.theDiameter, theRareLook.theDiameter}, kButtonEdge));
    mButton.setToolButtonStyle(StyleOf(theLook));
    mButton.setLayoutDirection(theRareLook.theTitlePlace == TitlePlace::kLeft ? Qt::RightToLeft
                                                                              : Qt::LeftToRight);
    mButton.setCheckable(theRareLook.theIsToggle);
    mButton.setChecked(theRareLook.theIsToggle && theLook.theValue != 0);
    mButton.setDown(theLook.theIsHilited);
}

QRect QtBevelButton::PlaceFor(const QRect& theBounds) const
{
    const int theDiameter = Look().Rare().theDiameter;
    if (theDiameter == 0) {
        return theBounds;
    }
    const QPoint theTopLeft(theBounds.left() + (theBounds.width() - theDiameter) / 2,
                            theBounds.top() + (theBounds.height() - theDiameter) / 2);
    return {theTopLeft, QSize(theDiameter, theDiameter)};
}

QtPicture::QtPicture(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new QLabel(&theContent)),
      mLabel(static_cast<QLabel&>(Widget()))
{
    mLabel.setAlignment(Qt::AlignCenter);
    theInput.Watch(mLabel, QtInput::MouseUse::kManagers);
}

void QtPicture::ShowState(const ControlLook& theLook)
{
    const bool theIsWell = theLook.theShape == ControlShape::kImageWell;
    const bool theIsChosen = theIsWell && theLook.theValue != 0;
    mLabel.setFrameStyle(theIsWell ? static_cast<int>(QFrame::Panel) | QFrame::Sunken
                                   : static_cast<int>(QFrame::NoFrame));
    mLabel.setBackgroundRole(theIsChosen ? QPalette::Highlight : QPalette::Window);
    mLabel.setAutoFillBackground(theIsChosen);
    const bool theIsShownUsed = theLook.theIsHilited || theIsChosen;
    mLabel.setPixmap(IconOf(theLook.Rare().thePicture, mLabel)
                         .pixmap(SizeOfPicture(theLook.theBounds, theIsWell ? kButtonEdge : 0),
                                 theIsShownUsed ? QIcon::Selected : QIcon::Normal));
}

} // namespace Host
