// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What every presenter owes, whatever it shows the program on. The program that runs these tests says with
// which presenters.

#include "PresenterKinds.h"
#include "RecordingGate.h"

#include <gtest/gtest.h>

namespace {

using Host::ControlLook;
using Host::ObjectId;
using Host::Presenter;
using Host::WindowLook;
using Reports = RecordingGate::Reports;

WindowLook ShownWindow(ObjectId theId)
{
    WindowLook theLook;
    theLook.theId = theId;
    theLook.theTitle = "Thermostat";
    theLook.theContent = {100, 80, 420, 280};
    theLook.theStructure = {100, 58, 420, 280};
    theLook.theIsVisible = true;
    return theLook;
}

WindowLook ActiveWindow(ObjectId theId)
{
    WindowLook theLook = ShownWindow(theId);
    theLook.theIsActive = true;
    return theLook;
}

ControlLook SliderIn(ObjectId theWindow, ObjectId theId)
{
    ControlLook theLook;
    theLook.theId = theId;
    theLook.theWindow = theWindow;
    theLook.theShape = Host::ControlShape::kSlider;
    theLook.theBounds = {10, 10, 210, 30};
    theLook.theMaximum = 10;
    return theLook;
}

class PresenterContract : public testing::TestWithParam<PresenterKind>
{
protected:
    PresenterContract()
        : mPresenter(GetParam().theFactory())
    {
        EXPECT_TRUE(mPresenter->Start(mGate));
    }

    // Lets the presenter report until it has nothing more to say; never waits.
    Reports Turn()
    {
        Reports theReports;
        for (bool theIsFresh = true; theIsFresh;) {
            mPresenter->WaitUntil(0, 0);
            const Reports theNew = mGate.Take();
            theReports.insert(theReports.end(), theNew.begin(), theNew.end());
            theIsFresh = !theNew.empty();
        }
        return theReports;
    }

    RecordingGate mGate;
    std::unique_ptr<Presenter> mPresenter;
};

TEST_P(PresenterContract, HasAScreenWithRoomOnIt)
{
    const std::vector<Host::ScreenLook> theScreens = mPresenter->Screens();
    ASSERT_FALSE(theScreens.empty());
    for (const Host::ScreenLook& theScreen : theScreens) {
        EXPECT_LT(theScreen.theAvailable.theLeft, theScreen.theAvailable.theRight);
        EXPECT_LT(theScreen.theAvailable.theTop, theScreen.theAvailable.theBottom);
        EXPECT_GE(theScreen.theAvailable.theTop, theScreen.theBounds.theTop);
        EXPECT_LE(theScreen.theAvailable.theBottom, theScreen.theBounds.theBottom);
    }
}

TEST_P(PresenterContract, MeasuresLongerTextWider)
{
    using Host::TextStyle;
    for (const TextStyle theStyle : {TextStyle::kBody, TextStyle::kSmall, TextStyle::kEmphasis}) {
        const Host::PixelSize theShort = mPresenter->MeasureText("Room", theStyle);
        const Host::PixelSize theLong = mPresenter->MeasureText("Room temperature", theStyle);
        EXPECT_GT(theShort.theWidth, 0);
        EXPECT_GT(theLong.theWidth, theShort.theWidth);
        EXPECT_EQ(theLong.theHeight, theShort.theHeight);
    }
}

TEST_P(PresenterContract, MeasuresEmptyTextAsALineWithoutWidth)
{
    const Host::PixelSize theSize = mPresenter->MeasureText("", Host::TextStyle::kBody);
    EXPECT_EQ(theSize.theWidth, 0);
    EXPECT_GT(theSize.theHeight, 0);
}

TEST_P(PresenterContract, KeepsWhatIsPutOnTheClipboard)
{
    mPresenter->SetClipboardText("Küche\nBad");
    EXPECT_EQ(mPresenter->ClipboardText(), "Küche\nBad");
    mPresenter->SetClipboardText("");
    EXPECT_EQ(mPresenter->ClipboardText(), "");
}

TEST_P(PresenterContract, ReportsNothingWhileItIsTold)
{
    mPresenter->WindowLooks(ActiveWindow(1));
    mPresenter->ControlLooks(SliderIn(1, 2));
    mPresenter->MenuBarLooks({});
    mPresenter->FocusIsAt(1, 2);
    mPresenter->PointerLooks({Host::PointerShape::kWatch, 0, false, true});
    mPresenter->Beep();
    mPresenter->ControlGone(2);
    mPresenter->WindowGone(1);
    EXPECT_EQ(mGate.Take(), Reports());
}

TEST_P(PresenterContract, ConfirmsAWindowAsShownThenPlacedThenActive)
{
    mPresenter->WindowLooks(ActiveWindow(1));
    EXPECT_EQ(Turn(), (Reports{"shown 1", "moved 1 to 100,80", "resized 1 to 320,200", "activated 1"}));
}

TEST_P(PresenterContract, SaysNothingOfAWindowThatStaysHidden)
{
    WindowLook theLook = ShownWindow(1);
    theLook.theIsVisible = false;
    mPresenter->WindowLooks(theLook);
    EXPECT_EQ(Turn(), Reports());
}

TEST_P(PresenterContract, SaysNothingOfAWindowThatIsHiddenAgainBeforeTheLoopTurns)
{
    WindowLook theLook = ShownWindow(1);
    mPresenter->WindowLooks(theLook);
    theLook.theIsVisible = false;
    mPresenter->WindowLooks(theLook);
    EXPECT_EQ(Turn(), Reports());
}

TEST_P(PresenterContract, SaysNothingOfAWindowThatIsGoneBeforeTheLoopTurns)
{
    mPresenter->WindowLooks(ActiveWindow(1));
    mPresenter->WindowGone(1);
    EXPECT_EQ(Turn(), Reports());
}

TEST_P(PresenterContract, ConfirmsTheLastOfSeveralPlaces)
{
    WindowLook theLook = ShownWindow(1);
    mPresenter->WindowLooks(theLook);
    Turn();
    theLook.theContent = {200, 180, 520, 380};
    mPresenter->WindowLooks(theLook);
    theLook.theContent = {300, 200, 620, 400};
    mPresenter->WindowLooks(theLook);
    EXPECT_EQ(Turn(), Reports{"moved 1 to 300,200"});
}

TEST_P(PresenterContract, ConfirmsANewSizeInTheSamePlace)
{
    WindowLook theLook = ShownWindow(1);
    mPresenter->WindowLooks(theLook);
    Turn();
    theLook.theContent.theRight += 50;
    mPresenter->WindowLooks(theLook);
    EXPECT_EQ(Turn(), Reports{"resized 1 to 370,200"});
}

TEST_P(PresenterContract, ConfirmsAChangeOfTheActiveWindow)
{
    WindowLook theFirst = ActiveWindow(1);
    mPresenter->WindowLooks(theFirst);
    mPresenter->WindowLooks(ShownWindow(2));
    Turn();
    theFirst.theIsActive = false;
    mPresenter->WindowLooks(theFirst);
    mPresenter->WindowLooks(ActiveWindow(2));
    EXPECT_EQ(Turn(), Reports{"activated 2"});
}

TEST_P(PresenterContract, SaysNothingWhenALookRepeatsWhatIsShown)
{
    mPresenter->WindowLooks(ActiveWindow(1));
    mPresenter->ControlLooks(SliderIn(1, 2));
    Turn();
    mPresenter->WindowLooks(ActiveWindow(1));
    mPresenter->ControlLooks(SliderIn(1, 2));
    EXPECT_EQ(Turn(), Reports());
}

TEST_P(PresenterContract, ConfirmsAWindowThatIsExpandedLikeOneThatIsShown)
{
    WindowLook theLook = ShownWindow(1);
    theLook.theIsCollapsed = true;
    mPresenter->WindowLooks(theLook);
    EXPECT_EQ(Turn(), Reports());
    theLook.theIsCollapsed = false;
    mPresenter->WindowLooks(theLook);
    EXPECT_EQ(Turn(), (Reports{"shown 1", "moved 1 to 100,80", "resized 1 to 320,200"}));
}

TEST_P(PresenterContract, LetsAHandlerCloseTheWindowThatIsBeingConfirmed)
{
    mGate.mHandler = [this](const std::string& theReport) {
        if (theReport == "shown 1") {
            mPresenter->WindowGone(1);
        }
    };
    mPresenter->WindowLooks(ActiveWindow(1));
    EXPECT_EQ(Turn(), Reports{"shown 1"});
}

TEST_P(PresenterContract, LetsAHandlerStopThePresenterThatReports)
{
    mGate.mHandler = [this](const std::string&) { mPresenter->Stop(); };
    mPresenter->WindowLooks(ActiveWindow(1));
    mPresenter->WindowLooks(ActiveWindow(2));
    EXPECT_EQ(Turn(), Reports{"shown 1"});
}

TEST_P(PresenterContract, ConfirmsAWindowThatAHandlerShowsMeanwhile)
{
    mGate.mHandler = [this](const std::string& theReport) {
        if (theReport == "shown 1") {
            mPresenter->WindowLooks(ShownWindow(2));
        }
    };
    mPresenter->WindowLooks(ShownWindow(1));
    EXPECT_EQ(Turn(), (Reports{"shown 1", "moved 1 to 100,80", "resized 1 to 320,200", "shown 2",
                               "moved 2 to 100,80", "resized 2 to 320,200"}));
}

TEST_P(PresenterContract, ReportsNothingOnceItIsStopped)
{
    mPresenter->WindowLooks(ActiveWindow(1));
    mPresenter->Stop();
    EXPECT_EQ(Turn(), Reports());
}

TEST_P(PresenterContract, ForgetsEveryLookWhenItIsStopped)
{
    mPresenter->WindowLooks(ActiveWindow(1));
    Turn();
    mPresenter->Stop();
    ASSERT_TRUE(mPresenter->Start(mGate));
    mPresenter->WindowLooks(ShownWindow(1));
    EXPECT_EQ(Turn(), (Reports{"shown 1", "moved 1 to 100,80", "resized 1 to 320,200"}));
}

TEST_P(PresenterContract, TakesNoNoticeOfIdentifiersThatItWasNeverTold)
{
    mPresenter->WindowGone(7);
    mPresenter->ControlGone(8);
    mPresenter->FocusIsAt(7, 8);
    mPresenter->ControlLooks(SliderIn(7, 9));
    EXPECT_EQ(Turn(), Reports());
}

TEST_P(PresenterContract, EndsAWaitThatWasWokenBeforeItBegan)
{
    mPresenter->Wake();
    mPresenter->WaitUntil(-1, 0);
    EXPECT_EQ(mGate.Take(), Reports());
}

TEST_P(PresenterContract, ChoosesNothingFromAMenuWithoutItems)
{
    EXPECT_EQ(mPresenter->RunPopUp({}).theMenu, Host::kNoObject);
}

INSTANTIATE_TEST_SUITE_P(Presenters, PresenterContract, testing::ValuesIn(PresenterKinds()),
                         [](const testing::TestParamInfo<PresenterKind>& theInfo) {
                             return theInfo.param.theName;
                         });

} // namespace
