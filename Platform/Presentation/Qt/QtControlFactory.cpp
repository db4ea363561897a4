// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtButtons.h"
#include "QtClock.h"
#include "QtPictures.h"
#include "QtRanges.h"
#include "QtSegments.h"
#include "QtTabs.h"
#include "QtTexts.h"

#include <QFrame>
#include <QGroupBox>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <memory>
#include <utility>

#include <Presentation/Picture.h>

namespace Host {

namespace {

class QtGroupBox : public QtControl
{
public:
    QtGroupBox(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
        : QtControl(theLook, theInput, new QGroupBox(&theContent))
    {
        theInput.Watch(Widget(), QtInput::MouseUse::kManagers);
    }

protected:
    void ShowState(const ControlLook& theLook) override
    {
        static_cast<QGroupBox&>(Widget()).setTitle(WithoutMnemonics(theLook.theTitle));
    }
};

class QtSeparator : public QtControl
{
public:
    QtSeparator(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
        : QtControl(theLook, theInput, new QFrame(&theContent))
    {
        theInput.Watch(Widget(), QtInput::MouseUse::kManagers);
    }

protected:
    void ShowState(const ControlLook& theLook) override
    {
        auto& theFrame = static_cast<QFrame&>(Widget());
        theFrame.setFrameShadow(QFrame::Sunken);
        theFrame.setFrameShape(IsUpright(theLook.theBounds) ? QFrame::VLine : QFrame::HLine);
    }
};

class QtPlacard : public QtControl
{
public:
    QtPlacard(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
        : QtControl(theLook, theInput, new QFrame(&theContent))
    {
        theInput.Watch(Widget(), QtInput::MouseUse::kManagers);
    }

protected:
    void ShowState(const ControlLook&) override
    {
        static_cast<QFrame&>(Widget()).setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Raised);
    }
};

class ArrowWidget : public QWidget
{
public:
    using QWidget::QWidget;

    ArrowDirection mDirection = ArrowDirection::kRight;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStyleOption theOption;
        theOption.initFrom(this);
        QPainter thePainter(this);
        style()->drawPrimitive(Arrow(), &theOption, &thePainter, this);
    }

private:
    QStyle::PrimitiveElement Arrow() const
    {
        switch (mDirection) {
        case ArrowDirection::kRight:
            return QStyle::PE_IndicatorArrowRight;
        case ArrowDirection::kLeft:
            return QStyle::PE_IndicatorArrowLeft;
        case ArrowDirection::kUp:
            return QStyle::PE_IndicatorArrowUp;
        case ArrowDirection::kDown:
            break;
        }
        return QStyle::PE_IndicatorArrowDown;
    }
};

class QtArrow : public QtControl
{
public:
    QtArrow(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
        : QtControl(theLook, theInput, new ArrowWidget(&theContent))
    {
        theInput.Watch(Widget(), QtInput::MouseUse::kManagers);
    }

protected:
    void ShowState(const ControlLook& theLook) override
    {
        static_cast<ArrowWidget&>(Widget()).mDirection = theLook.Rare().theArrow;
    }
};

// Shows the pixels that a program has drawn, each once where the screen is as fine as they are.
class DrawnWidget : public QWidget
{
public:
    using QWidget::QWidget;

    void SetPicture(std::shared_ptr<const Picture> thePicture, QPoint thePlace)
    {
        mPicture = std::move(thePicture);
        mPlace = thePlace;
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (mPicture == nullptr) {
            return;
        }
        QImage theImage(reinterpret_cast<const uchar*>(mPicture->thePixels.data()), mPicture->theWidth,
                        mPicture->theHeight, qsizetype{4} * mPicture->theWidth,
                        QImage::Format_ARGB32_Premultiplied);
        theImage.setDevicePixelRatio(mPicture->theScale);
        QPainter(this).drawImage(mPlace - pos(), theImage);
    }

private:
    std::shared_ptr<const Picture> mPicture;
    QPoint mPlace; // in the content; the widget may be a part of the view
};

// Holds other controls, and shows what its program has drawn.
class QtPane : public QtControl
{
public:
    QtPane(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
        : QtControl(theLook, theInput, new DrawnWidget(&theContent))
    {
        theInput.Watch(Widget(), QtInput::MouseUse::kManagers);
    }

protected:
    void ShowState(const ControlLook& theLook) override
    {
        static_cast<DrawnWidget&>(Widget()).SetPicture(theLook.Rare().theDrawing,
                                                       ToQRect(theLook.theBounds).topLeft());
    }
};

template <class Kind>
std::unique_ptr<QtControl> MakeKind(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
{
    return std::make_unique<Kind>(theLook, theInput, theContent);
}

} // namespace

std::unique_ptr<QtControl> QtControl::Make(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
{
    switch (theLook.theShape) {
    case ControlShape::kPushButton:
        return MakeKind<QtPushButton>(theLook, theInput, theContent);
    case ControlShape::kCheckBox:
        return MakeKind<QtCheckBox>(theLook, theInput, theContent);
    case ControlShape::kRadioButton:
        return MakeKind<QtRadioButton>(theLook, theInput, theContent);
    case ControlShape::kSlider:
        return MakeKind<QtSlider>(theLook, theInput, theContent);
    case ControlShape::kScrollBar:
        return MakeKind<QtScrollBar>(theLook, theInput, theContent);
    case ControlShape::kProgressBar:
    case ControlShape::kRelevanceBar:
        return MakeKind<QtProgressBar>(theLook, theInput, theContent);
    case ControlShape::kLittleArrows:
        return MakeKind<QtLittleArrows>(theLook, theInput, theContent);
    case ControlShape::kStaticText:
        return MakeKind<QtStaticText>(theLook, theInput, theContent);
    case ControlShape::kEditText:
        return QtEditText::IsTall(theLook) ? MakeKind<QtTextArea>(theLook, theInput, theContent)
                                           : MakeKind<QtField>(theLook, theInput, theContent);
    case ControlShape::kGroupBox:
        return MakeKind<QtGroupBox>(theLook, theInput, theContent);
    case ControlShape::kPopUpButton:
        return MakeKind<QtPopUpButton>(theLook, theInput, theContent);
    case ControlShape::kTabs:
        return MakeKind<QtTabs>(theLook, theInput, theContent);
    case ControlShape::kPlacard:
    case ControlShape::kWindowHeader:
        return MakeKind<QtPlacard>(theLook, theInput, theContent);
    case ControlShape::kDisclosureTriangle:
    case ControlShape::kDisclosureButton:
        return MakeKind<QtDisclosure>(theLook, theInput, theContent);
    case ControlShape::kChasingArrows:
        return MakeKind<QtChasingArrows>(theLook, theInput, theContent);
    case ControlShape::kBevelButton:
    case ControlShape::kRoundButton:
        return MakeKind<QtBevelButton>(theLook, theInput, theContent);
    case ControlShape::kIcon:
    case ControlShape::kImageWell:
        return MakeKind<QtPicture>(theLook, theInput, theContent);
    case ControlShape::kComboBox:
        return MakeKind<QtComboBox>(theLook, theInput, theContent);
    case ControlShape::kSearchField:
        return MakeKind<QtSearchField>(theLook, theInput, theContent);
    case ControlShape::kSegments:
        return MakeKind<QtSegments>(theLook, theInput, theContent);
    case ControlShape::kClock:
        return MakeKind<QtClock>(theLook, theInput, theContent);
    case ControlShape::kArrow:
        return MakeKind<QtArrow>(theLook, theInput, theContent);
    case ControlShape::kSeparator:
        return MakeKind<QtSeparator>(theLook, theInput, theContent);
    case ControlShape::kRadioGroup:
    case ControlShape::kPane:
        break;
    }
    return MakeKind<QtPane>(theLook, theInput, theContent);
}

} // namespace Host
