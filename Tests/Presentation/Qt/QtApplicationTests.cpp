// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// When Qt is started, and what that must leave as it was.

#include "PresenterChoice.h"
#include "QtPresenter.h"
#include "RecordingGate.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <langinfo.h>
#include <string>

namespace {

// The variables that say where windows can be shown; null for one that is not there.
struct DisplayRow
{
    const char* theTest;
    const char* thePresenter;
    const char* theDisplay;
    const char* theWayland;
    const char* thePlatform;
    int theStatus; // 20 with Qt, 10 with another presenter
    const char* theText;
};

void SetOrUnset(const char* theVariable, const char* theValue)
{
    theValue == nullptr ? unsetenv(theVariable) : setenv(theVariable, theValue, 1);
}

// The framework runs suites of names that end like this before all others, while Qt has not been started.
class QtChoiceDeathTest : public testing::TestWithParam<DisplayRow>
{
};

TEST_P(QtChoiceDeathTest, ShowsWindowsWhereThereIsADisplayAndElseSaysSoInOneLine)
{
    const DisplayRow& theRow = GetParam();
    const auto thePreparation = [&theRow] {
        SetOrUnset("LM_PRESENTER", theRow.thePresenter);
        SetOrUnset("DISPLAY", theRow.theDisplay);
        SetOrUnset("WAYLAND_DISPLAY", theRow.theWayland);
        SetOrUnset("QT_QPA_PLATFORM", theRow.thePlatform);
    };
    const Ending theEnding = StartProgram(thePreparation, [](Host::Presenter& thePresenter) {
        return dynamic_cast<Host::QtPresenter*>(&thePresenter) != nullptr ? 20 : 10;
    });
    EXPECT_EQ(theEnding.theText, theRow.theText);
    EXPECT_EQ(theEnding.theStatus, theRow.theStatus);
}

constexpr char kNoWindows[] =
    "No windows can be shown: there is no display, neither DISPLAY nor WAYLAND_DISPLAY "
    "leads to one; LM_PRESENTER=headless runs the program without\n";

// No server listens at a display of this number.
constexpr char kDeadDisplay[] = ":60999";

const DisplayRow kDisplays[] = {
    {"InMemory", nullptr, nullptr, nullptr, "offscreen", 20, ""},
    {"EmptyName", "", nullptr, nullptr, "minimal", 20, ""},
    {"SecondOfTwo", nullptr, nullptr, nullptr, "xcb;offscreen", 20, ""},
    {"ByName", "qt", nullptr, nullptr, "offscreen", 20, ""},
    {"Headless", "headless", kDeadDisplay, nullptr, "offscreen", 10, ""},
    {"HeadlessWithoutADisplay", "headless", nullptr, nullptr, nullptr, 10, ""},
    {"NoDisplay", nullptr, nullptr, nullptr, nullptr, 1, kNoWindows},
    {"NoServer", nullptr, kDeadDisplay, nullptr, nullptr, 1, kNoWindows},
    {"NoDisplayForItsPlatform", nullptr, nullptr, nullptr, "xcb", 1, kNoWindows},
    {"NoDisplayByName", "qt", nullptr, nullptr, nullptr, 1,
     "LM_PRESENTER: the presenter \"qt\" cannot start: there is no display, neither DISPLAY nor "
     "WAYLAND_DISPLAY "
     "leads to one; there are: headless, qt\n"},
    {"NoSuchPlatform", nullptr, nullptr, nullptr, "paper", 1,
     "No windows can be shown: Qt has no working platform plugin for the display; LM_PRESENTER=headless runs "
     "the "
     "program without\n"},
};

INSTANTIATE_TEST_SUITE_P(Displays, QtChoiceDeathTest, testing::ValuesIn(kDisplays),
                         [](const testing::TestParamInfo<DisplayRow>& theInfo) {
                             return theInfo.param.theTest;
                         });

// The environment of the tests names a locale, and Qt asks for that. LM_TEST_DECIMAL_POINT says what numbers
// look like there, so that a locale that cannot be had does not pass for one that does no harm.
void ExpectLocaleToBeThere()
{
    const char* const theExpected = std::getenv("LM_TEST_DECIMAL_POINT");
    if (theExpected == nullptr) {
        return;
    }
    ASSERT_NE(std::setlocale(LC_NUMERIC, ""), nullptr);
    EXPECT_STREQ(nl_langinfo(RADIXCHAR), theExpected);
    std::setlocale(LC_NUMERIC, "C");
}

TEST(QtApplication, LeavesTheNumbersOfTheProgramAlone)
{
    ExpectLocaleToBeThere();
    RecordingGate theGate;
    Host::QtPresenter thePresenter;
    ASSERT_TRUE(thePresenter.Start(theGate));
    for (const int theCategory : {LC_NUMERIC, LC_MONETARY, LC_TIME, LC_COLLATE}) {
        EXPECT_STREQ(std::setlocale(theCategory, nullptr), "C");
    }
    char theText[16] = "";
    std::snprintf(theText, sizeof theText, "%.1f", 21.5);
    EXPECT_STREQ(theText, "21.5");
    EXPECT_EQ(std::stod("21.5"), 21.5);
}

} // namespace
