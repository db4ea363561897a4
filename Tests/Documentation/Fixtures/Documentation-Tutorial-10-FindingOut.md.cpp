// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ExampleWindow.h"
#include "LmControlBinding.h"
#include "LmMenuBinding.h"
#include "LmNumericalTransforms.h"
#include "LmPreferenceBinding.h"
#include "LmStringTransforms.h"
#include "LmWindowBinding.h"
#include "StandardErrorCapture.h"

#include <algorithm>
#include <Carbon/Carbon.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>
#include <regex>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

// @prose 10 inspection.LmJournalFile does the same, with a program of its own
// @file 1 Examples/Tutorial/10-FindingOut/FindingOut.cpp
// @file 2 Examples/Tutorial/10-FindingOut/expected.txt
// @file 3 Examples/Tutorial/10-FindingOut/FindingOut.cpp
// @file 4 Examples/Tutorial/10-FindingOut/expected.txt
// @file 5 Examples/Tutorial/10-FindingOut/FindingOut.cpp
// @file 6 Examples/Tutorial/10-FindingOut/expected.txt
// @file 7 Examples/Tutorial/10-FindingOut/FindingOut.cpp
// @file 8 Examples/Tutorial/10-FindingOut/expected.txt
// @file 9 Examples/Tutorial/10-FindingOut/expected.txt

namespace {

// A row of the table: the mistake, what one sees, what to do.
using MistakeRow = const char* const[3];

MistakeRow kShown[] = {
    // @table The usual mistakes
};

// What stands between backquotes in the middle column: what is printed.
Lines ShownLines(MistakeRow& theRow)
{
    Lines theLines;
    const std::string theText = theRow[1];
    for (size_t theStart = theText.find('`'); theStart != std::string::npos;) {
        const size_t theEnd = theText.find('`', theStart + 1);
        theLines.push_back(theText.substr(theStart + 1, theEnd - theStart - 1));
        theStart = theText.find('`', theEnd + 1);
    }
    return theLines;
}

// A line of the page, in which %s and the like stand for anything, as a regular expression.
std::string PatternOf(const std::string& theLine)
{
    const std::string theEscaped =
        std::regex_replace(theLine, std::regex(R"([.*+?()\[\]|^$\\{}])"), R"(\$&)");
    return std::regex_replace(theEscaped, std::regex("%(s|d|ld|lX)"), ".+");
}

// The text of a diagnostic without its place.
std::string TextOf(const std::string& theDiagnostic)
{
    return std::regex_replace(theDiagnostic, std::regex("^Source/[A-Za-z/]+\\.cpp, line #: "), "");
}

// Expects that the lines of the page were printed, each at least once, and none besides.
void ExpectPrinted(const Lines& theShown)
{
    std::vector<bool> wasPrinted(theShown.size(), false);
    for (const std::string& theDiagnostic : StandardErrorCapture::TakeDiagnostics()) {
        const auto theFound =
            std::find_if(theShown.begin(), theShown.end(), [&theDiagnostic](const std::string& theLine) {
                return std::regex_match(TextOf(theDiagnostic), std::regex(PatternOf(theLine)));
            });
        if (theFound == theShown.end()) {
            ADD_FAILURE() << "The page does not show: " << theDiagnostic;
        } else {
            wasPrinted[static_cast<size_t>(theFound - theShown.begin())] = true;
        }
    }
    for (size_t theIndex = 0; theIndex < theShown.size(); ++theIndex) {
        EXPECT_TRUE(wasPrinted[theIndex]) << "Not printed: " << theShown[theIndex];
    }
}

// What the removal of a one-way binding prints is no mistake.
void ExpectEndOfOneWay()
{
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueBinding.cpp, line #: Error -50"});
}

long Number(const LmKeyValueStore& theStore, const char* theKey)
{
    return theStore.GetKeyPathValue(theKey).GetSInt32();
}

constexpr ControlID kSlider = {'exam', 1};
constexpr ControlID kText = {'exam', 2};

// ---- The mistakes, each with what helps against it

void MisspellKey(const Lines& theShown)
{
    LmKeyValueBinding theRadio;
    LmKeyValueBinding theText;
    theRadio.SetKeyPathValue("volume", LmValue(40L));
    EXPECT_EQ(theText.Bind("value", &theRadio, "volumne", nullptr, nullptr), noErr);
    EXPECT_FALSE(theText.HasKey("value"));
    ExpectPrinted({});
    EXPECT_EQ(Number(theText, "value"), 0);
    ExpectPrinted(theShown);
}

void BindWhatCannotBeBound(const Lines& theShown)
{
    LmKeyValueBinding theRadio;
    LmMenuBinding theCommand;
    theRadio.SetKeyPathValue("on", LmValue(true));
    LmValueTransform* const theTransform = new LmToStringTransform;
    EXPECT_EQ(theCommand.Bind("mark", &theRadio, "on", theTransform, nullptr), paramErr);
    theTransform->Release();
    EXPECT_EQ(theRadio.BindTo("on", &theCommand, "mark", nullptr), paramErr);
    EXPECT_EQ(theRadio.Bind("*", &theRadio, "on", nullptr, nullptr), paramErr);
    EXPECT_FALSE(theCommand.HasKey("mark"));
    ExpectPrinted(theShown);
    EXPECT_EQ(theCommand.BindTo("mark", &theRadio, "on", nullptr), noErr);
    theCommand.UnbindAll();
    ExpectEndOfOneWay();
}

void DeleteWhatIsFollowed(const Lines& theShown)
{
    LmKeyValueBinding theLamp;
    auto theRadio = std::make_unique<LmKeyValueBinding>();
    theRadio->SetKeyPathValue("volume", LmValue(40L));
    theLamp.BindTo("brightness", theRadio.get(), "volume", nullptr);
    theLamp.Unbind("brightness", theRadio.get());
    ExpectEndOfOneWay();
    theRadio.reset();
    ExpectPrinted(theShown);
}

void SwapTransforms(const Lines& theShown)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theView;
    theModel.SetKeyPathValue("half", LmValue(20L));
    theView.Bind("whole", &theModel, "half", new LmScaleTransform(0.5), new LmScaleTransform(2));
    EXPECT_EQ(Number(theView, "whole"), 10);
    ExpectPrinted(theShown);
    theView.Unbind("whole", &theModel);
    theView.Bind("whole", &theModel, "half", new LmScaleTransform(2), new LmScaleTransform(0.5));
    EXPECT_EQ(Number(theView, "whole"), 40);
    theView.SetKeyPathValue("whole", LmValue(60L));
    EXPECT_EQ(Number(theModel, "half"), 30);
}

void LetValuesRunAway(const Lines& theShown)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theView;
    theModel.SetKeyPathValue("value", LmValue(1L));
    theView.Bind("value", &theModel, "value", new LmAddTransform(LmValue(1L)),
                 new LmAddTransform(LmValue(1L)));
    EXPECT_GT(Number(theModel, "value"), 1000);
    ExpectPrinted(theShown);
    theView.Unbind("value", &theModel);
    theModel.SetKeyPathValue("value", LmValue(1L));
    theView.Bind("value", &theModel, "value", new LmAddTransform(LmValue(1L)),
                 new LmAddTransform(LmValue(-1L)));
    EXPECT_EQ(Number(theModel, "value"), 1);
    EXPECT_EQ(Number(theView, "value"), 2);
}

// The pattern of a line with its place, for a process of its own.
std::string PatternOfDiagnostic(const std::string& theLine)
{
    return "Source/[A-Za-z/]*\\.cpp, line [0-9]*: " + PatternOf(theLine) + "\n";
}

void UseAnotherThread(const Lines& theShown)
{
    ASSERT_EQ(theShown.size(), 1U);
    const auto theUse = [] {
        LmKeyValueStore theStore;
        theStore.SetKeyPathValue("volume", LmValue(40L));
        const auto theSet = [&theStore] { theStore.SetKeyPathValue("volume", LmValue(41L)); };
        std::thread(theSet).join();
        std::thread(theSet).join();
        std::exit(Number(theStore, "volume") == 41 ? 0 : 1);
    };
    EXPECT_EXIT(theUse(), testing::ExitedWithCode(0),
                testing::MatchesRegex(PatternOfDiagnostic(theShown[0])));
}

void UseWhatWasDisposed(const Lines& theShown)
{
    ExampleWindow theWindow;
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("volume", LmValue(40L));
    ControlRef theSlider = theWindow.AddSlider(kSlider, 100);
    (new LmControlBinding(theSlider))->Bind("value", &theModel, "volume", nullptr, nullptr);
    const WindowRef theRef = theWindow.Get();
    theWindow.Close();
    theModel.SetKeyPathValue("volume", LmValue(50L));
    ExpectPrinted({});
    delete new LmControlBinding(theSlider);
    delete new LmWindowBinding(theRef);
    ExpectPrinted(theShown);
}

void AskForWhatIsNotThere(const Lines& theShown)
{
    ExampleWindow theWindow;
    std::unique_ptr<LmControlBinding> theSlider(new LmControlBinding(theWindow.Get(), kSlider));
    EXPECT_EQ(theSlider->GetControl(), nullptr);
    theSlider->SetKeyPathValue("value", LmValue(40L));
    EXPECT_EQ(Number(*theSlider, "value"), 40);
    delete new LmMenuBinding('none');
    ExpectPrinted(theShown);
    theWindow.AddSlider(kSlider, 100);
    theSlider.reset(new LmControlBinding(theWindow.Get(), kSlider));
    EXPECT_NE(theSlider->GetControl(), nullptr);
}

void MixKinds(const Lines& theShown)
{
    ExampleWindow theWindow;
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("volume", LmValue(40L));
    theModel.SetKeyPathValue("station", LmValue(CFSTR("Jazz"), false));
    const ControlRef theText = theWindow.AddStaticText(kText);
    const ControlRef theSlider = theWindow.AddSlider(kSlider, 100);
    LmControlBinding* const theTextBinding = new LmControlBinding(theText);
    LmControlBinding* const theSliderBinding = new LmControlBinding(theSlider);
    theTextBinding->Bind("value", &theModel, "volume", nullptr, nullptr);
    SetControl32BitValue(theSlider, 30);
    theSliderBinding->Bind("value", &theModel, "station", nullptr, nullptr);
    EXPECT_EQ(GetControl32BitValue(theSlider), 0);
    ExpectPrinted(theShown);
    theTextBinding->Unbind("value", &theModel);
    theTextBinding->Bind("value", &theModel, "volume", new LmToStringTransform, new LmFromStringTransform);
    EXPECT_TRUE(theTextBinding->GetKeyPathValue("value") == LmValue(CFSTR("40"), false));
}

// Ends a process in which a preference was set, and flushed or not. Whether a file is there afterwards.
bool IsWritten(bool isFlushed)
{
    std::string theFolder = testing::TempDir() + "UsualMistakesXXXXXX";
    EXPECT_NE(mkdtemp(theFolder.data()), nullptr);
    const auto theUse = [&] {
        setenv("XDG_CONFIG_HOME", theFolder.c_str(), 1);
        unsetenv("LM_PREFERENCES");
        LmPreferenceBinding thePreferences(CFSTR("org.example.Radio"));
        thePreferences.SetKeyPathValue("volume", LmValue(40L));
        std::exit(!isFlushed || thePreferences.Flush() ? 0 : 1);
    };
    EXPECT_EXIT(theUse(), testing::ExitedWithCode(0), testing::Eq(std::string()));
    const std::string theFile = theFolder + "/org.example.Radio.plist";
    const bool isThere = access(theFile.c_str(), F_OK) == 0;
    std::remove(theFile.c_str());
    rmdir(theFolder.c_str());
    return isThere;
}

void ForgetToFlush(const Lines& theShown)
{
    EXPECT_FALSE(IsWritten(false));
    EXPECT_TRUE(IsWritten(true));
    ExpectPrinted(theShown);
}

void MakeBindingWithoutNew(const Lines& theShown)
{
    ExampleWindow theWindow;
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("volume", LmValue(40L));
    const ControlRef theSlider = theWindow.AddSlider(kSlider, 100);
    (new LmControlBinding(theSlider))->Bind("value", &theModel, "volume", nullptr, nullptr);
    EXPECT_EQ(GetControl32BitValue(theSlider), 40);
    theWindow.Close();
    theModel.SetKeyPathValue("volume", LmValue(50L));
    ExpectPrinted(theShown);
}

void ShareTransform(const Lines& theShown)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theFirst;
    LmKeyValueBinding theSecond;
    theModel.SetKeyPathValue("volume", LmValue(40L));
    LmValueTransform* const theTransform = new LmNegateTransform;
    theTransform->Retain();
    theFirst.Bind("value", &theModel, "volume", theTransform, new LmNegateTransform);
    theSecond.Bind("value", &theModel, "volume", theTransform, new LmNegateTransform);
    theFirst.UnbindAll();
    theModel.SetKeyPathValue("volume", LmValue(50L));
    EXPECT_EQ(Number(theFirst, "value"), -40);
    EXPECT_EQ(Number(theSecond, "value"), -50);
    theSecond.UnbindAll();
    ExpectPrinted(theShown);
}

void BindTwoKeysToOne(const Lines& theShown)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theView;
    theModel.SetKeyPathValue("volume", LmValue(40L));
    theView.Bind("first", &theModel, "volume", nullptr, nullptr);
    theView.Bind("second", &theModel, "volume", nullptr, nullptr);
    theModel.SetKeyPathValue("volume", LmValue(41L));
    EXPECT_EQ(Number(theView, "first"), 41);
    EXPECT_EQ(Number(theView, "second"), 40);
    ExpectPrinted({});
    theView.UnbindAll();
    ExpectPrinted(theShown);
}

void BindOneKeyToTwo()
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theOther;
    LmKeyValueBinding theView;
    theModel.SetKeyPathValue("volume", LmValue(40L));
    theOther.SetKeyPathValue("level", LmValue(50L));
    theView.BindTo("value", &theModel, "volume", nullptr);
    theView.BindTo("value", &theOther, "level", nullptr);
    EXPECT_EQ(Number(theView, "value"), 50);
    theModel.SetKeyPathValue("volume", LmValue(42L));
    EXPECT_EQ(Number(theView, "value"), 42);
    theView.Unbind("value", &theModel);
    ExpectEndOfOneWay();
    theView.Unbind("value", &theOther);
    ExpectEndOfOneWay();
}

void BindTwice(const Lines& theShown)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theView;
    theModel.SetKeyPathValue("volume", LmValue(40L));
    theView.Bind("value", &theModel, "volume", nullptr, nullptr);
    theView.Bind("value", &theModel, "volume", nullptr, nullptr);
    ExpectPrinted({});
    theView.UnbindAll();
    ExpectPrinted(theShown);
}

void BindOnceTooOften(const Lines& theShown)
{
    BindTwoKeysToOne(theShown);
    BindOneKeyToTwo();
    BindTwice(theShown);
}

void GoBeyondTheEnd(const Lines& theShown)
{
    ExampleWindow theWindow;
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("volume", LmValue(40L));
    theModel.SetKeyPathValue("loudest", LmValue(400L));
    const ControlRef theSlider = theWindow.AddSlider(kSlider, 100);
    LmControlBinding* const theBinding = new LmControlBinding(theSlider);
    theBinding->Bind("value", &theModel, "volume", nullptr, nullptr);
    theModel.SetKeyPathValue("volume", LmValue(300L));
    EXPECT_EQ(GetControl32BitValue(theSlider), 100);
    EXPECT_EQ(Number(*theBinding, "value"), 300);
    EXPECT_EQ(Number(theModel, "volume"), 300);
    theBinding->Bind("maximum", &theModel, "loudest", nullptr, nullptr);
    theModel.SetKeyPathValue("volume", LmValue(310L));
    EXPECT_EQ(GetControl32BitValue(theSlider), 310);
    ExpectPrinted(theShown);
}

// A presenter for a desktop that is not there.
class BlindPresenter : public Host::Presenter
{
public:
    bool Start(Host::PresenterEvents&) override { return false; }
    std::string Complaint() const override { return "there is no display"; }
};

// By the first column. The presenter is in a test of its own: once there is one, it is not chosen again.
const std::map<std::string, void (*)(const Lines&)> kMistakes = {
    {"a key is misspelt", MisspellKey},
    {"a key is bound that cannot be: one of a menu command both ways, or \"\\*\"", BindWhatCannotBeBound},
    {"an object is deleted while others follow it one way", DeleteWhatIsFollowed},
    {"the two transforms of `Bind` are swapped", SwapTransforms},
    {"two transforms do not undo each other", LetValuesRunAway},
    {"another thread uses a key", UseAnotherThread},
    {"a control or a window is disposed of and used further", UseWhatWasDisposed},
    {"no control of the window has the identifier, or no menu the command", AskForWhatIsNotThere},
    {"a number is bound to a text, or a text to a number", MixKinds},
    {"the program ends, and its preferences were not flushed", ForgetToFlush},
    {"a binding of a control, a window or a menu is no object of `new`", MakeBindingWithoutNew},
    {"one transform is handed to two bindings", ShareTransform},
    {"two keys are bound to one, or one to two", BindOnceTooOften},
    {"a value is beyond what a control can show", GoBeyondTheEnd}};
const char* const kPresenterMistake = "the presenter cannot be had";

// What the page shows of a mistake.
Lines ShownOf(const std::string& theMistake)
{
    for (MistakeRow& theRow : kShown) {
        if (theRow[0] == theMistake) {
            return ShownLines(theRow);
        }
    }
    ADD_FAILURE() << "Not on the page: " << theMistake;
    return {};
}

} // namespace

// What is wrong for a whole process is done in one of its own, and what is undefined is not done at all: what
// helps against it is tried.
class UsualMistakeDeathTest : public testing::TestWithParam<size_t>
{
};

TEST_P(UsualMistakeDeathTest, ShowsWhatThePageSays)
{
    const auto& [theName, theDeed] = *std::next(kMistakes.begin(), static_cast<std::ptrdiff_t>(GetParam()));
    SCOPED_TRACE(theName);
    theDeed(ShownOf(theName));
}

INSTANTIATE_TEST_SUITE_P(Rows, UsualMistakeDeathTest, testing::Range(size_t(0), kMistakes.size()));

TEST(UsualMistakePresenterDeathTest, ShowsWhatThePageSays)
{
    const Lines theShown = ShownOf(kPresenterMistake);
    ASSERT_EQ(theShown.size(), 2U);
    const auto theUnknown = [] {
        setenv("LM_PRESENTER", "qt", 1);
        Host::PresenterRegistry::Current();
    };
    const auto theBlind = [] {
        unsetenv("LM_PRESENTER");
        Host::PresenterRegistry::RegisterPreferred(
            "blind", []() -> std::unique_ptr<Host::Presenter> { return std::make_unique<BlindPresenter>(); });
        Host::PresenterRegistry::Current();
    };
    EXPECT_EXIT(theUnknown(), testing::ExitedWithCode(1),
                testing::MatchesRegex(PatternOf(theShown[0]) + "\n"));
    EXPECT_EXIT(theBlind(), testing::ExitedWithCode(1), testing::MatchesRegex(PatternOf(theShown[1]) + "\n"));
}

TEST(UsualMistakes, OfThePageAreAllMade)
{
    for (MistakeRow& theRow : kShown) {
        EXPECT_TRUE(kMistakes.count(theRow[0]) == 1 || theRow[0] == std::string(kPresenterMistake))
            << theRow[0];
    }
}
