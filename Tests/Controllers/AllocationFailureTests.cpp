// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"
#include "ChoiceTestSupport.h"
#include "CountedTransforms.h"
#include "CountFormatter.h"
#include "FormatterMemoryTestSupport.h"
#include "LmChangeGroup.h"
#include "LmKeyValueStore.h"
#include "LmMainQueue.h"
#include "LmNumberFormatters.h"
#include "LmObservation.h"
#include "LmScopedBinding.h"
#include "LmSettledControlBinding.h"
#include "LmTextFieldBinding.h"
#include "LmWordFormatters.h"
#include "NotificationRecorder.h"
#include "StandardErrorCapture.h"

#include <Carbon/Carbon.h>

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// What controllers do when memory runs out: the first, the second, the third... allocation of a call fails,
// until the call needs no more.

namespace {

// Too long to fit into a string itself, so that each copy of a name needs memory.
const LmString kLongName("a name of more than fifteen bytes");

} // namespace

TEST(ControllersWithoutMemory, ObservationIsMadeWholeOrNotAtAll)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue(kLongName, LmValue(0.5));
    const auto theCaptured = std::make_shared<std::string>("captured");
    const std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
        bool hasThrown = false;
        {
            LmObservation theObservation;
            try {
                theObservation = LmObservation(&theStore, kLongName, [theCaptured](const LmChange&) {});
            } catch (const std::bad_alloc&) {
                hasThrown = true;
            }
            theAttempt.Stop();
            EXPECT_NE(theObservation.IsObserving(), hasThrown);
        }
        EXPECT_EQ(theCaptured.use_count(), 1);
    });
    EXPECT_GT(theFailures, 5U);
}

TEST(ControllersWithoutMemory, FormattersReadWhatTheyWriteOrNothing)
{
    constexpr long long kAmount = -123456789012345678LL;
    const LmCurrencyFormatter theFormatter;
    const std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
        LmValue theBack;
        try {
            const LmValue theText = theFormatter.Format(LmValue(kAmount));
            theBack = theText.IsString() ? theFormatter.Parse(theText.GetString()).theValue : LmValue();
        } catch (const std::bad_alloc&) {
            theBack.SetBoolean(false);
        }
        theAttempt.Stop();
        EXPECT_TRUE(!theBack.IsValid() || theBack.IsBoolean() || theBack.GetSInt64() == kAmount);
    });
    EXPECT_GT(theFailures, 5U);
}

// Those of numbers and dates are tried in EnglishAloneWithoutMemoryTests.cpp, for data of locales may end the
// program where memory runs out.
TEST(ControllersWithoutMemory, WordAndPatternFormattersAreMadeWholeOrNotAtAll)
{
    const std::vector<std::string> kWords = {"Small", "Medium"};
    FailWhileMaking([&] { return std::make_unique<LmWordFormatter>(kWords); }, LmValue(1), "");
    FailWhileMaking([] { return std::make_unique<LmWordFormatter>(std::vector<std::string>{"\xFF"}); },
                    LmValue(0), "");
    FailWhileMaking([] { return std::make_unique<LmPatternFormatter>("AA-00"); }, TextValue("ab12"), "");
}

TEST(ControllersWithoutMemory, ObservationIsThereStillWhenItRanOutInAPass)
{
    LmKeyValueStore theStore;
    int theCalls = 0;
    const LmObservation theObservation(&theStore, kKeyAnyValue, [&](const LmChange&) { theCalls += 1; });
    NotificationRecorder theRecorder;
    theStore.ObserveKeyPathValue(kLongName, &theRecorder);
    theStore.IgnoreKeyPathValue(kLongName, &theRecorder);
    long theNumber = 0;
    FailEachAllocation([&](AllocationFailures& theAttempt) {
        try {
            theStore.SetKeyPathValue(kLongName, LmValue(++theNumber));
        } catch (const std::bad_alloc&) {
        }
        theAttempt.Stop();
        const int theCallsBefore = theCalls;
        theStore.SetKeyPathValue("other", LmValue(theNumber));
        theStore.SetKeyPathValue(kLongName, LmValue(++theNumber));
        EXPECT_EQ(theCalls, theCallsBefore + 1);
    });
}

TEST(ControllersWithoutMemory, ScopedBindingIsMadeWholeOrNotAtAll)
{
    int theLiving = 0;
    LmKeyValueStore theObject;
    LmKeyValueStore theSource;
    theSource.SetKeyPathValue(kLongName, LmValue(1));
    theObject.SetKeyPathValue(kLongName, LmValue(0));
    const std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
        LmScopedBinding theBinding;
        bool hasThrown = false;
        try {
            theBinding =
                LmScopedBinding(&theObject, kLongName, &theSource, kLongName,
                                new AddingTransform(1, theLiving), new AddingTransform(-1, theLiving));
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        theAttempt.Stop();
        EXPECT_NE(theBinding.IsBound(), hasThrown);
        EXPECT_EQ(theLiving, hasThrown ? 0 : 2);
        theSource.SetKeyPathValue(kLongName, LmValue(5));
        EXPECT_EQ(theObject.GetKeyPathValue(kLongName).GetSInt32() == 6, !hasThrown);
        theSource.SetKeyPathValue(kLongName, LmValue(1));
    });
    EXPECT_GT(theFailures, 10U);
    EXPECT_EQ(theLiving, 0);
}

TEST(ControllersWithoutMemory, ScopedBindingIsThereStillWhenItRanOutInAPass)
{
    LmKeyValueStore theObject;
    LmKeyValueStore theSource;
    const LmScopedBinding theBinding =
        LmScopedBinding::Several(&theObject, {kLongName, "short"}, &theSource, "key");
    long theNumber = 0;
    FailEachAllocation([&](AllocationFailures& theAttempt) {
        try {
            theSource.SetKeyPathValue("key", LmValue(++theNumber));
        } catch (const std::bad_alloc&) {
        }
        theAttempt.Stop();
        EXPECT_TRUE(theBinding.IsBound());
        theSource.SetKeyPathValue("key", LmValue(++theNumber));
        EXPECT_EQ(theObject.GetKeyPathValue(kLongName).GetSInt32(), theNumber);
        EXPECT_EQ(theObject.GetKeyPathValue("short").GetSInt32(), theNumber);
    });
}

TEST(ControllersWithoutMemory, ChangeGroupCollectsASetOrLeavesAllAsItWas)
{
    LmKeyValueStore theStore;
    const std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
        LmChangeGroup theGroup;
        bool hasThrown = false;
        try {
            theGroup.Set(&theStore, kLongName, LmValue(1));
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        theAttempt.Stop();
        theStore.SetKeyPathValue(kLongName, LmValue(0));
        theGroup.Set(&theStore, "short", LmValue(2));
        theGroup.End();
        EXPECT_EQ(theStore.GetKeyPathValue(kLongName).GetSInt32(), hasThrown ? 0 : 1);
        EXPECT_EQ(theStore.GetKeyPathValue("short").GetSInt32(), 2);
    });
    EXPECT_GT(theFailures, 4U);
}

TEST(ControllersWithoutMemory, ChangeGroupKeepsWhatItsEndCouldNotMake)
{
    const char* const kNames[] = {"first", "a second name of more than fifteen bytes", "third"};
    std::size_t theNumber = 0;
    for (bool hasThrown = true; hasThrown;) {
        LmKeyValueStore theStore;
        LmChangeGroup theGroup;
        NotificationRecorder theRecorder;
        theStore.ObserveKeyPathValue(kNames[0], &theRecorder);
        for (const char* theKey : kNames) {
            theGroup.Set(&theStore, theKey, LmValue(1));
        }
        AllocationFailures theFailures(++theNumber);
        try {
            theGroup.End();
            hasThrown = false;
        } catch (const std::bad_alloc&) {
        }
        theFailures.Stop();
        theRecorder.Take();
        theGroup.Set(&theStore, kNames[0], LmValue(2)); // takes the place of what is left
        theGroup.End();
        EXPECT_EQ(theRecorder.Take(), (Lines{"changing first", "changed first"}))
            << "allocation " << theNumber;
        for (const char* theKey : kNames) {
            EXPECT_TRUE(theStore.HasKey(theKey)) << theKey << ", allocation " << theNumber;
        }
    }
    EXPECT_GT(theNumber, 3U);
}

TEST(ControllersWithoutMemory, ChangeGroupReportsAtItsEndWhatCouldNotBeSet)
{
    LmKeyValueStore theStore;
    const LmObservation theObservation(&theStore, "second", [&](const LmChange&) { throw std::bad_alloc(); });
    {
        LmChangeGroup theGroup;
        theGroup.Set(&theStore, "first", LmValue(1));
        theGroup.Set(&theStore, "second", LmValue(2));
        theGroup.Set(&theStore, "third", LmValue(3));
    }
    EXPECT_EQ(theStore.GetKeyPathValue("first").GetSInt32(), 1);
    EXPECT_EQ(theStore.GetKeyPathValue("third").GetSInt32(), 3);
    const Lines theLines = StandardErrorCapture::TakeDiagnostics();
    ASSERT_EQ(theLines.size(), 1U);
    EXPECT_NE(
        theLines[0].find("Source/Controllers/LmChangeGroup.cpp, line #: Out of memory: second is not set"),
        std::string::npos);
}

TEST(ControllersWithoutMemory, MainQueuePostsWholeOrNotAtAll)
{
    LmKeyValueStore theStore;
    int theCalls = 0;
    const LmMainQueue theQueue(&theStore);
    const LmPoster& thePoster = theQueue.GetPoster();
    const std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
        int thePosted = 0;
        try {
            thePosted += thePoster.SetLatest(kLongName, LmValue(1)) ? 1 : 0;
            thePosted += thePoster.Call([&theCalls] { theCalls += 1; }) ? 1 : 0;
        } catch (const std::bad_alloc&) {
        }
        theAttempt.Stop();
        theCalls = 0;
        theStore.SetKeyPathValue(kLongName, LmValue(0));
        RunCurrentEventLoop(kEventDurationNoWait);
        EXPECT_EQ(theStore.GetKeyPathValue(kLongName).GetSInt32(), thePosted > 0 ? 1 : 0);
        EXPECT_EQ(theCalls, thePosted > 1 ? 1 : 0);
        EXPECT_TRUE(thePoster.Set("works", LmValue(1))) << "the lock is free";
        RunCurrentEventLoop(kEventDurationNoWait);
    });
    EXPECT_GT(theFailures, 3U);
}

TEST(ControllersWithoutMemory, MainQueueIsMadeOrThereIsNone)
{
    LmKeyValueStore theStore;
    FailEachAllocation([&](AllocationFailures& theAttempt) {
        std::optional<LmMainQueue> theQueue;
        try {
            theQueue.emplace(&theStore);
        } catch (const std::bad_alloc&) {
        }
        theAttempt.Stop();
        EXPECT_TRUE(theQueue || theAttempt.HasFailed());
        theStore.SetKeyPathValue("a", LmValue(0));
        const bool isPosted = theQueue && theQueue->GetPoster().Set("a", LmValue(1));
        RunCurrentEventLoop(kEventDurationNoWait);
        EXPECT_EQ(theStore.GetKeyPathValue("a").GetSInt32(), isPosted ? 1 : 0);
        EXPECT_TRUE(isPosted || theAttempt.HasFailed());
    });
}

TEST(ControllersWithoutMemory, TextFieldKeepsWhatWasTypedUntilItIsTaken)
{
    const Rect theBounds = {50, 50, 250, 450};
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theBounds, &theWindow);
    ControlRef theField = nullptr;
    CreateEditUnicodeTextControl(theWindow, &theBounds, CFSTR(""), false, nullptr, &theField);
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue(kLongName, LmValue(7));
    LmTextFieldBinding* theBinding = new LmTextFieldBinding(theField, std::make_shared<CountFormatter>());
    theBinding->Bind("value", &theModel, kLongName, nullptr, nullptr);
    const CFStringRef theTyped = CFSTR("1 3");
    std::size_t theNumber = 0;
    bool hasFailed = true;
    while (hasFailed) {
        theModel.SetKeyPathValue(kLongName, LmValue(7));
        SetControlData(theField, kControlEntireControl, kControlEditTextCFStringTag, sizeof theTyped,
                       &theTyped);
        AllocationFailures theFailures(++theNumber);
        try {
            theBinding->Commit();
        } catch (const std::bad_alloc&) {
        }
        theFailures.Stop();
        hasFailed = theFailures.HasFailed();
        theBinding->Commit(); // takes what was not taken
        EXPECT_EQ(theModel.GetKeyPathValue(kLongName).GetSInt32(), 13) << "allocation " << theNumber;
        EXPECT_EQ(theBinding->GetKeyPathValue("value").GetSInt32(), 13) << "allocation " << theNumber;
    }
    EXPECT_GT(theNumber, 5U);
    DisposeWindow(theWindow);
}

namespace {

// Each of these controls has choices of these tags, all of which fit into no key without memory.
const MenuEntry kWithoutMemory[] = {
    {CFSTR("a title of more than fifteen bytes"), 10},
    {CFSTR("another title of more than fifteen bytes"), 20},
    {CFSTR("a third title of more than fifteen bytes"), 30},
};

ControlRef MakeGroup(WindowRef theWindow)
{
    const Rect theBounds = {100, 20, 240, 390};
    ControlRef theGroup = nullptr;
    CreateRadioGroupControl(theWindow, &theBounds, &theGroup);
    for (const MenuEntry& theEntry : kWithoutMemory) {
        const ControlID theID = {'Choi', static_cast<SInt32>(theEntry.theCommand)};
        ControlRef theButton = nullptr;
        CreateRadioButtonControl(theWindow, &theBounds, theEntry.theText, 0, false, &theButton);
        SetControlID(theButton, &theID);
        EmbedControl(theButton, theGroup);
    }
    return theGroup;
}

// All keys, and the value of the control that shows the choice.
std::string DescribeChoice(const LmChoiceBinding& theChoice, ControlRef theControl)
{
    return Selected(theChoice) + " of " + Titles(theChoice) + ", shown " +
           std::to_string(GetControl32BitValue(theControl));
}

} // namespace

TEST(ControllersWithoutMemory, ChoiceIsMadeOrThereIsNone)
{
    const WindowRef theWindow = MakeChoiceWindow();
    MenuRef theMenu = nullptr;
    CreateNewMenu(200, 0, &theMenu);
    FillMenu(theMenu, kWithoutMemory);
    for (const ControlRef theControl : {MakePopUp(theWindow, theMenu), MakeGroup(theWindow)}) {
        SetControl32BitValue(theControl, 2);
        std::size_t theFailures = FailEachAllocation([&](AllocationFailures& theAttempt) {
            std::unique_ptr<LmChoiceBinding> theChoice;
            try {
                theChoice = std::make_unique<LmChoiceBinding>(theControl);
            } catch (const std::bad_alloc&) {
            }
            theAttempt.Stop();
            EXPECT_TRUE(theChoice != nullptr || theAttempt.HasFailed());
            const bool isDeaf = !StandardErrorCapture::TakeText().empty();
            SetControl32BitValue(theControl, 3); // nobody is told who is not there
            if (theChoice != nullptr) {
                EXPECT_EQ(theChoice->GetKeyPathValue("index").GetSInt32(), isDeaf ? 1 : 2);
            }
            SetControl32BitValue(theControl, 2);
        });
        EXPECT_GT(theFailures, 5U);
    }
    DisposeWindow(theWindow);
}

TEST(ControllersWithoutMemory, WhoCannotListenToAControlSaysSo)
{
    using Maker = std::function<std::unique_ptr<LmKeyValueStore>()>;
    const Rect theBounds = {50, 50, 250, 450};
    const WindowRef theWindow = MakeChoiceWindow();
    MenuRef theMenu = nullptr;
    CreateNewMenu(200, 0, &theMenu);
    FillMenu(theMenu, kWithoutMemory);
    const ControlRef thePopUp = MakePopUp(theWindow, theMenu);
    const ControlRef theButton = MakeGroup(theWindow);
    ControlRef theField = nullptr;
    CreateEditUnicodeTextControl(theWindow, &theBounds, CFSTR(""), false, nullptr, &theField);
    const std::pair<Maker, const char*> kRows[] = {
        {[&] { return std::make_unique<LmChoiceBinding>(thePopUp); }, "LmChoiceBinding.cpp"},
        {[&] { return std::make_unique<LmChoiceBinding>(std::vector<ControlRef>{theButton}); },
         "LmChoiceBinding.cpp"},
        {[&] { return std::make_unique<LmSettledControlBinding>(theButton); }, "LmSettledControlBinding.cpp"},
        {[&] { return std::make_unique<LmTextFieldBinding>(theField); }, "LmTextFieldBinding.cpp"},
    };
    for (const auto& [theMaker, theFile] : kRows) {
        std::map<std::string, int> theLines;
        FailEachAllocation([&, &theMake = theMaker](AllocationFailures& theAttempt) {
            std::unique_ptr<LmKeyValueStore> theObject;
            try {
                theObject = theMake();
            } catch (const std::bad_alloc&) {
            }
            theAttempt.Stop();
            for (const std::string& theLine : StandardErrorCapture::TakeDiagnostics()) {
                theLines[theLine] += 1;
            }
        });
        EXPECT_GT(theLines[std::string("Source/Controllers/") + theFile + ", line #: Error -108"], 0);
    }
    DisposeWindow(theWindow);
}

TEST(ControllersWithoutMemory, ChoiceMayGetFewerButtonsThanWereThereForTheSelection)
{
    const WindowRef theWindow = MakeChoiceWindow();
    const ControlRef theGroup = MakeGroup(theWindow);
    ControlRef theButton = nullptr;
    GetIndexedSubControl(theGroup, 1, &theButton);
    LmChoiceBinding theChoice(theGroup);
    const std::vector<ControlRef> theButtons = {theButton};
    bool hasFailed = true;
    for (std::size_t theNumber = 1; hasFailed; ++theNumber) {
        theChoice.SetControl(theGroup);
        theChoice.SetKeyPathValue("tag", LmValue(30));
        AllocationFailures theFailures(theNumber);
        try {
            theChoice.SetButtons(theButtons);
        } catch (const std::bad_alloc&) {
        }
        theFailures.Stop();
        StandardErrorCapture::TakeText(); // it may not hear of the button now, and has said so
        hasFailed = theFailures.HasFailed();
        const std::string theTitle = "title " + std::to_string(theNumber);
        SetControlTitleWithCFString(theButton,
                                    LmMakeStringValue(theTitle).GetString()); // sees to all choices
        EXPECT_EQ(theChoice.GetKeyPathValue("tag").GetSInt32(), 30) << "allocation " << theNumber;
    }
    DisposeWindow(theWindow);
}

TEST(ControllersWithoutMemory, ChoiceAgreesAgainWithTheNextSelection)
{
    const WindowRef theWindow = MakeChoiceWindow();
    MenuRef theMenu = nullptr;
    CreateNewMenu(200, 0, &theMenu);
    FillMenu(theMenu, kWithoutMemory);
    for (const ControlRef theControl : {MakePopUp(theWindow, theMenu), MakeGroup(theWindow)}) {
        LmChoiceBinding theChoice(theControl);
        theChoice.SetKeyPathValue("index", LmValue(2));
        const std::string theLast = DescribeChoice(theChoice, theControl);
        const std::function<void()> kChanges[] = {
            [&] { theChoice.SetKeyPathValue("index", LmValue(1)); },
            [&] { theChoice.SetKeyPathValue("tag", LmValue(10)); },
            [&] { SetControl32BitValue(theControl, 1); },
            [&] { theChoice.SetControl(theControl); },
            [&] { theChoice.UpdateChoices(); },
        };
        for (const std::function<void()>& theChange : kChanges) {
            FailEachAllocation([&](AllocationFailures& theAttempt) {
                try {
                    theChange();
                } catch (const std::bad_alloc&) {
                }
                theAttempt.Stop();
                StandardErrorCapture::TakeText(); // it may not hear of the control now, and has said so
                theChoice.SetKeyPathValue("index", LmValue(0));
                theChoice.SetControl(theControl);
                theChoice.SetKeyPathValue("index", LmValue(2));
                EXPECT_EQ(DescribeChoice(theChoice, theControl), theLast);
            });
        }
    }
    DisposeWindow(theWindow);
}
