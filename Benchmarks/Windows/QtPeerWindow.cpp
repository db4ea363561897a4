// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The window as it is written for Qt Widgets, with signals and slots.

#include "QtSettings.h"
#include "WindowUnderTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QEventLoop>
#include <QLineEdit>
#include <QProgressBar>
#include <QSlider>
#include <QTimer>
#include <vector>

namespace {

// A key of the model; one of the two is in use.
struct Setting
{
    std::unique_ptr<NumberSetting> theNumber;
    std::unique_ptr<TextSetting> theText;
};

class QtPeerWindow final : public WindowUnderTest
{
public:
    explicit QtPeerWindow(const WindowPlan& thePlan)
        : mPlan(thePlan),
          mNumbers(thePlan.theControls),
          mSettings(thePlan.theControls)
    {
        for (std::size_t theKey = 0; theKey < thePlan.theControls; ++theKey) {
            if (thePlan.KindOf(theKey) == WidgetKind::kTextField) {
                mSettings[theKey].theText = std::make_unique<TextSetting>();
            } else {
                mSettings[theKey].theNumber = std::make_unique<NumberSetting>();
            }
        }
    }

    void Open() override
    {
        mWindow = std::make_unique<QWidget>();
        mWindow->setGeometry(0, 0, kColumns * kCellWidth, kRows * kCellHeight);
        for (std::size_t theIndex = 0; theIndex < mPlan.theControls; ++theIndex) {
            QWidget* const theControl = Make(theIndex, mSettings[mPlan.KeyOf(theIndex)]);
            const Place thePlace = WindowPlan::PlaceOf(theIndex);
            theControl->setGeometry(thePlace.theLeft, thePlace.theTop, kControlWidth, kControlHeight);
            mControls.push_back(theControl);
        }
        mWindow->show();
    }

    void Set(std::size_t theKey, int theNumber) override
    {
        mNumbers[theKey] = theNumber;
        switch (mPlan.KindOf(theKey)) {
        case WidgetKind::kTextField:
            mSettings[theKey].theText->SetText(QString::fromStdString(TextOf(theNumber)));
            break;
        case WidgetKind::kCheckBox:
            mSettings[theKey].theNumber->SetValue(theNumber % 2);
            break;
        default:
            mSettings[theKey].theNumber->SetValue(theNumber);
            break;
        }
    }

    int Get(std::size_t theKey) const override
    {
        return mPlan.KindOf(theKey) == WidgetKind::kSlider ? mSettings[theKey].theNumber->Value()
                                                           : mNumbers[theKey];
    }

    bool Shows(std::size_t theIndex, int theNumber) const override
    {
        QWidget* const theControl = mControls[theIndex];
        switch (mPlan.KindOf(theIndex)) {
        case WidgetKind::kTextField:
            return static_cast<QLineEdit*>(theControl)->text().toStdString() == TextOf(theNumber);
        case WidgetKind::kCheckBox:
            return static_cast<QCheckBox*>(theControl)->isChecked() == (theNumber % 2 == 1);
        case WidgetKind::kProgressBar:
            return static_cast<QProgressBar*>(theControl)->value() == theNumber;
        case WidgetKind::kSlider:
            break;
        }
        return static_cast<QSlider*>(theControl)->value() == theNumber;
    }

    void Run(double theSeconds) override
    {
        QEventLoop theLoop;
        QTimer::singleShot(static_cast<int>(theSeconds * 1000), Qt::PreciseTimer, &theLoop,
                           &QEventLoop::quit);
        theLoop.exec();
    }

private:
    QWidget* Make(std::size_t theIndex, const Setting& theSetting)
    {
        switch (mPlan.KindOf(theIndex)) {
        case WidgetKind::kTextField:
            return MakeField(*theSetting.theText);
        case WidgetKind::kCheckBox:
            return MakeBox(*theSetting.theNumber);
        case WidgetKind::kProgressBar:
            return MakeBar(*theSetting.theNumber);
        case WidgetKind::kSlider:
            break;
        }
        return MakeSlider(*theSetting.theNumber);
    }

    QWidget* MakeSlider(NumberSetting& theSetting)
    {
        auto* const theSlider = new QSlider(Qt::Horizontal, mWindow.get());
        theSlider->setRange(0, kHighest);
        theSlider->setValue(theSetting.Value());
        QObject::connect(theSlider, &QSlider::valueChanged, &theSetting, &NumberSetting::SetValue);
        QObject::connect(&theSetting, &NumberSetting::ValueChanged, theSlider, &QSlider::setValue);
        return theSlider;
    }

    QWidget* MakeBox(NumberSetting& theSetting)
    {
        auto* const theBox = new QCheckBox(QStringLiteral("Option"), mWindow.get());
        theBox->setChecked(theSetting.Value() != 0);
        QObject::connect(theBox, &QCheckBox::toggled, &theSetting, &NumberSetting::SetValue);
        QObject::connect(&theSetting, &NumberSetting::ValueChanged, theBox, &QCheckBox::setChecked);
        return theBox;
    }

    QWidget* MakeField(TextSetting& theSetting)
    {
        auto* const theField = new QLineEdit(theSetting.Text(), mWindow.get());
        QObject::connect(theField, &QLineEdit::textEdited, &theSetting, &TextSetting::SetText);
        QObject::connect(&theSetting, &TextSetting::TextChanged, theField, &QLineEdit::setText);
        return theField;
    }

    QWidget* MakeBar(NumberSetting& theSetting)
    {
        auto* const theBar = new QProgressBar(mWindow.get());
        theBar->setTextVisible(false);
        theBar->setRange(0, kHighest);
        theBar->setValue(theSetting.Value());
        QObject::connect(&theSetting, &NumberSetting::ValueChanged, theBar, &QProgressBar::setValue);
        return theBar;
    }

    WindowPlan mPlan;
    std::vector<int> mNumbers; // what was set last
    std::vector<Setting> mSettings;
    std::unique_ptr<QWidget> mWindow;
    std::vector<QWidget*> mControls; // owned by the window
};

} // namespace

std::unique_ptr<WindowUnderTest> MakeWindow(const WindowPlan& thePlan)
{
    static char sName[] = "QtWindow";
    static char* sArguments[] = {sName, nullptr};
    static int sCount = 1;
    static const QApplication kApplication(sCount, sArguments);
    return std::make_unique<QtPeerWindow>(thePlan);
}
