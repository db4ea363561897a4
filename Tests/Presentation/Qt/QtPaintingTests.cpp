// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What is painted when something changes: each control that looks otherwise, once, and no other.

#include "QtPresenter.h"
#include "RecordingGate.h"

#include <gtest/gtest.h>
#include <map>
#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <vector>

namespace {

using Host::ControlLook;
using Host::ControlShape;
using Host::ObjectId;
using Host::WindowLook;

constexpr ObjectId kWindow = 1;
constexpr ObjectId kRoot = 2;
constexpr ObjectId kFirst = 3; // of the controls

// In the order of their numbers. They stand in two columns and do not touch.
constexpr ControlShape kShapes[] = {
    ControlShape::kPushButton,   ControlShape::kCheckBox,   ControlShape::kRadioButton,
    ControlShape::kSlider,       ControlShape::kScrollBar,  ControlShape::kProgressBar,
    ControlShape::kLittleArrows, ControlShape::kStaticText, ControlShape::kEditText,
    ControlShape::kPopUpButton,  ControlShape::kGroupBox,
};
constexpr int kColumns = 2;
constexpr int kRowHeight = 34;
constexpr int kColumnWidth = 200;

// Long enough for the next picture of the screen, and for one that must not follow it.
constexpr double kTwoFrames = 0.04;

WindowLook Window()
{
    WindowLook theLook;
    theLook.theId = kWindow;
    theLook.theContent = {100, 80, 540, 500};
    theLook.theIsVisible = true;
    theLook.theIsActive = true;
    return theLook;
}

ControlLook Root()
{
    ControlLook theLook;
    theLook.theId = kRoot;
    theLook.theWindow = kWindow;
    theLook.theBounds = {0, 0, 440, 420};
    return theLook;
}

ControlLook Control(ObjectId theId, ControlShape theShape)
{
    const int theOrder = static_cast<int>(theId - kFirst);
    const int theLeft = 10 + theOrder % kColumns * kColumnWidth;
    const int theTop = 10 + theOrder / kColumns * kRowHeight;
    ControlLook theLook;
    theLook.theId = theId;
    theLook.theWindow = kWindow;
    theLook.theParent = kRoot;
    theLook.theOrder = theOrder;
    theLook.theShape = theShape;
    theLook.theBounds = {theLeft, theTop, theLeft + kColumnWidth - 40, theTop + 24};
    theLook.theTitle = "Title";
    theLook.theText = "Text";
    theLook.theMaximum = 100;
    theLook.theTakesFocus = theShape != ControlShape::kStaticText && theShape != ControlShape::kGroupBox;
    return theLook;
}

// The same control after something has happened to it.
ControlLook Changed(ControlLook theLook)
{
    theLook.theTitle = theLook.theTitle == "Title" ? "Other" : "Title";
    theLook.theText = theLook.theText == "Text" ? "Words" : "Text";
    theLook.theIsHilited = theLook.theShape == ControlShape::kLittleArrows && !theLook.theIsHilited;
    theLook.theValue = theLook.theValue == 0 ? 1 : 0;
    return theLook;
}

// The controls that were painted, and how often.
using Paints = std::map<ObjectId, int>;

class QtPainting : public testing::Test
{
protected:
    QtPainting()
    {
        EXPECT_TRUE(mPresenter.Start(mGate));
        mPresenter.WindowLooks(Window());
        mPresenter.ControlLooks(Root());
        for (const ControlShape theShape : kShapes) {
            mLooks.push_back(Control(kFirst + static_cast<ObjectId>(mLooks.size()), theShape));
            mPresenter.ControlLooks(mLooks.back());
        }
        mPresenter.FocusIsAt(kWindow, Host::kNoObject);
        qApp->installEventFilter(&mCounter);
    }

    ~QtPainting() override { qApp->removeEventFilter(&mCounter); }

    // Lets everything be painted that waits for it, and says what was.
    Paints Painted()
    {
        mCounter.thePaints.clear();
        for (int theTurn = 0; theTurn < 3; ++theTurn) {
            mPresenter.WaitUntil(kTwoFrames, 0);
        }
        Paints thePaints;
        for (const auto& [theWidget, theCount] : mCounter.thePaints) {
            for (const ControlLook& theLook : mLooks) {
                if (mPresenter.FindControlWidget(theLook.theId) == theWidget) {
                    thePaints[theLook.theId] = theCount;
                }
            }
        }
        return thePaints;
    }

    Paints EachOnce() const
    {
        Paints thePaints;
        for (const ControlLook& theLook : mLooks) {
            thePaints[theLook.theId] = 1;
        }
        return thePaints;
    }

    struct Counter : public QObject
    {
        std::map<QObject*, int> thePaints;

        bool eventFilter(QObject* theObject, QEvent* theEvent) override
        {
            if (theEvent->type() == QEvent::Paint) {
                ++thePaints[theObject];
            }
            return false;
        }
    };

    RecordingGate mGate;
    Host::QtPresenter mPresenter;
    std::vector<ControlLook> mLooks;
    Counter mCounter;
};

TEST_F(QtPainting, AWindowThatOpensIsPaintedOnce)
{
    EXPECT_EQ(Painted(), EachOnce());
}

TEST_F(QtPainting, EachControlThatChangesIsPaintedOnceAndNoOther)
{
    Painted();
    for (ControlLook& theLook : mLooks) {
        theLook = Changed(theLook);
        mPresenter.ControlLooks(theLook);
        EXPECT_EQ(Painted(), (Paints{{theLook.theId, 1}}));
    }
}

TEST_F(QtPainting, ControlsThatChangeTogetherArePaintedOnceEach)
{
    Painted();
    for (int theRound = 0; theRound < 3; ++theRound) {
        for (ControlLook& theLook : mLooks) {
            theLook = Changed(theLook);
            mPresenter.ControlLooks(theLook);
        }
    }
    EXPECT_EQ(Painted(), EachOnce());
}

TEST_F(QtPainting, AControlBetweenTwoThatChangeIsNotPainted)
{
    Painted();
    for (const ObjectId theOrder : {ObjectId{0}, ObjectId{2 * kColumns}}) {
        mPresenter.ControlLooks(Changed(mLooks[theOrder]));
    }
    EXPECT_EQ(Painted(), (Paints{{kFirst, 1}, {kFirst + 2 * kColumns, 1}}));
}

TEST_F(QtPainting, WhatIsToldOnceMorePaintsNothing)
{
    Painted();
    mPresenter.WindowLooks(Window());
    for (ControlLook& theLook : mLooks) {
        theLook.theNumber = 7; // which nobody sees
        mPresenter.ControlLooks(theLook);
    }
    EXPECT_EQ(Painted(), Paints());
}

TEST_F(QtPainting, AControlThatIsAddedPaintsNoOther)
{
    Painted();
    const ObjectId theId = kFirst + static_cast<ObjectId>(mLooks.size());
    mLooks.push_back(Control(theId, ControlShape::kSlider));
    mPresenter.ControlLooks(mLooks.back());
    EXPECT_EQ(Painted(), (Paints{{theId, 1}}));
}

TEST_F(QtPainting, TheFocusPaintsWhoLosesItAndWhoGetsIt)
{
    Painted();
    mPresenter.FocusIsAt(kWindow, kFirst);
    EXPECT_EQ(Painted(), (Paints{{kFirst, 1}}));
    mPresenter.FocusIsAt(kWindow, kFirst + 3);
    EXPECT_EQ(Painted(), (Paints{{kFirst, 1}, {kFirst + 3, 1}}));
    mPresenter.FocusIsAt(kWindow, Host::kNoObject);
    EXPECT_EQ(Painted(), (Paints{{kFirst + 3, 1}}));
}

} // namespace
