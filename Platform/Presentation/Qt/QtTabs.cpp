// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtTabs.h"

#include <QStackedWidget>
#include <QStyleOptionTab>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>
#include <vector>

namespace Host {

namespace {

// Tabs of given sizes.
class SizedTabBar : public QTabBar
{
public:
    using QTabBar::QTabBar;

    void SetSizes(std::vector<QSize> theSizes)
    {
        if (theSizes != mSizes) {
            mSizes = std::move(theSizes);
            setIconSize(iconSize()); // lays them out anew
        }
    }

protected:
    QSize tabSizeHint(int theIndex) const override
    {
        const auto thePlace = static_cast<size_t>(theIndex);
        return thePlace < mSizes.size() ? mSizes[thePlace] : QTabBar::tabSizeHint(theIndex);
    }

    QSize minimumTabSizeHint(int theIndex) const override { return tabSizeHint(theIndex); }

    void initStyleOption(QStyleOptionTab* theOption, int theIndex) const override
    {
        QTabBar::initStyleOption(theOption, theIndex);
        if (theIndex == currentIndex() && parentWidget()->hasFocus()) {
            theOption->state |= QStyle::State_HasFocus;
        }
    }

private:
    std::vector<QSize> mSizes;
};

QTabWidget::TabPosition PositionOf(TabEdge theEdge)
{
    switch (theEdge) {
    case TabEdge::kBottom:
        return QTabWidget::South;
    case TabEdge::kLeft:
        return QTabWidget::West;
    case TabEdge::kRight:
        return QTabWidget::East;
    case TabEdge::kTop:
        break;
    }
    return QTabWidget::North;
}

} // namespace

// Takes mouse and keys itself: its parts have none of their own.
class TabsWidget : public QTabWidget
{
public:
    explicit TabsWidget(QWidget* theParent)
        : QTabWidget(theParent),
          mBar(new SizedTabBar(this))
    {
        setTabBar(mBar);
        setFocusProxy(nullptr);
        mBar->setExpanding(false);
        mBar->setUsesScrollButtons(false);
        mBar->setElideMode(Qt::ElideNone);
        mBar->setFocusPolicy(Qt::NoFocus);
        for (QWidget* thePart : findChildren<QWidget*>()) {
            thePart->setAttribute(Qt::WA_TransparentForMouseEvents);
        }
    }

    void ShowTabs(const std::vector<TabLook>& theTabs)
    {
        std::vector<QSize> theSizes;
        theSizes.reserve(theTabs.size());
        for (const TabLook& theTab : theTabs) {
            theSizes.push_back(ToQRect(theTab.theBounds).size());
        }
        while (count() > static_cast<int>(theTabs.size())) {
            delete widget(count() - 1);
        }
        while (count() < static_cast<int>(theTabs.size())) {
            addTab(new QWidget, QString());
        }
        for (int theIndex = 0; theIndex < count(); ++theIndex) {
            const TabLook& theTab = theTabs[static_cast<size_t>(theIndex)];
            setTabText(theIndex, WithoutMnemonics(theTab.theTitle));
            setTabEnabled(theIndex, theTab.theIsEnabled);
        }
        mBar->SetSizes(std::move(theSizes));
    }

protected:
    void focusInEvent(QFocusEvent*) override { mBar->update(); }
    void focusOutEvent(QFocusEvent*) override { mBar->update(); }

private:
    SizedTabBar* mBar; // a child
};

QtTabs::QtTabs(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new TabsWidget(&theContent)),
      mTabs(static_cast<TabsWidget&>(Widget()))
{
    connect(&mTabs, &QTabWidget::currentChanged, this, [this](int theIndex) {
        const auto thePlace = static_cast<size_t>(theIndex);
        const std::vector<TabLook>& theTabs = Look().Rare().theTabs;
        if (thePlace < theTabs.size()) {
            ReportClickAt(CentreOf(theTabs[thePlace].theBounds));
        }
    });
    theInput.Watch(mTabs, QtInput::MouseUse::kManagers);
}

void QtTabs::ShowState(const ControlLook& theLook)
{
    const RareLook& theRare = theLook.Rare();
    mTabs.setTabPosition(PositionOf(theRare.theTabEdge));
    mTabs.ShowTabs(theRare.theTabs);
    mTabs.setCurrentIndex(std::max(theLook.theValue, 0) - 1); // none in front for what is no tab
}

} // namespace Host
