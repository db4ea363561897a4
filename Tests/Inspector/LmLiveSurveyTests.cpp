// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindable.h"
#include "LmControlBinding.h"
#include "LmConveniences.h"
#include "LmInspector.h"
#include "LmJournalFile.h"
#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"
#include "LmMenuBinding.h"
#include "LmNumericalTransforms.h"
#include "LmPreferenceBinding.h"
#include "LmValueTransform.h"
#include "LmWindowBinding.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>
#include <Simulation/UserSimulator.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

// Counts what another hook is told.
class Counter final : public LmJournalHook
{
public:
    std::uint64_t Write(const LmJournalEntry&, const void*) noexcept override { return ++mCount; }
    void Close(const void*) noexcept override { ++mClosed; }
    std::uint64_t mCount = 0;
    std::uint64_t mClosed = 0;
};

class LmLiveSurveyTest : public testing::Test
{
public:
    LmLiveSurveyTest() { LmAllowInspector(); }
    ~LmLiveSurveyTest() override { LmEndInspector(); }

protected:
    static LmLiveSurvey& Survey() { return *LmGetLiveSurvey(); }

    static Texts KeysOf(const char* theName)
    {
        Texts theTexts;
        for (const LmSurveyedKey& theKey : Survey().FindKeys(Survey().FindByName(theName))) {
            theTexts.push_back(theKey.theKey + "=" + theKey.theValue);
        }
        return theTexts;
    }
};

// An entry of that kind about that object, as the library writes them.
LmJournalEntry MakeEntry(LmJournalKind theKind, const LmKeyValueStore& theStore, const LmString& theKey,
                         const void* theChange = nullptr)
{
    LmJournalEntry theEntry = {};
    theEntry.theKind = theKind;
    theEntry.theObject = &theStore;
    theEntry.theKey = &theKey;
    theEntry.theChange = theChange;
    return theEntry;
}

// What the person did last.
std::string LastAction()
{
    for (const LmSurveyedChange& theChange : LmGetLiveSurvey()->FindChanges(1)) {
        return theChange.theText;
    }
    return "nothing";
}

// Sets the key that it is told of once more, until that is refused.
class Restless : public LmKeyValueObserver
{
public:
    explicit Restless(LmKeyValueStore& theStore)
        : mStore(theStore)
    {
        theStore.ObserveKeyPathValue("volume", this);
    }
    void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        mStore.SetKeyPathValue(theKeyName, LmValue(++mCount));
    }

private:
    LmKeyValueStore& mStore;
    long mCount = 0;
};

// Of a binding that goes one way.
void Unbind(LmKeyValueBinding& theBinding)
{
    theBinding.UnbindAll();
    EXPECT_EQ(StandardErrorCapture::TakeLines().size(), 1U);
}

WindowRef MakeWindow()
{
    const Rect thePlace = {100, 100, 300, 400};
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &thePlace, &theWindow);
    ControlRef theRoot = nullptr;
    CreateRootControl(theWindow, &theRoot);
    SetWindowTitleWithCFString(theWindow, CFSTR("Radio"));
    ShowWindow(theWindow);
    return theWindow;
}

ControlRef MakeSlider(WindowRef theWindow)
{
    const Rect thePlace = {10, 10, 30, 210};
    ControlRef theControl = nullptr;
    CreateSliderControl(theWindow, &thePlace, 10, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theControl);
    return theControl;
}

} // namespace

TEST_F(LmLiveSurveyTest, KnowsKeysWithTheValuesOfTheMoment)
{
    LmKeyValueStore theStore;
    LmNameObject(theStore, "radio");
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    theStore.SetKeyPathValue("station", LmValue(CFSTR("News"), false));
    EXPECT_EQ(KeysOf("radio"), (Texts{"station=\"News\"", "volume=40"}));
    // Behind the back of everybody.
    theStore.SetKeyValue("volume", LmValue(41UL));
    EXPECT_EQ(KeysOf("radio"), (Texts{"station=\"News\"", "volume=41"}));
}

TEST_F(LmLiveSurveyTest, ForgetsAnObjectThatIsGone)
{
    auto theStore = std::make_unique<LmKeyValueStore>();
    LmNameObject(*theStore, "radio");
    const std::uint64_t theNumber = Survey().FindByName("radio");
    EXPECT_NE(theNumber, 0U);
    theStore.reset();
    EXPECT_EQ(Survey().FindByName("radio"), 0U);
    EXPECT_EQ(Survey().FindObject(theNumber).theNumber, 0U);
    EXPECT_TRUE(Survey().FindKeys(theNumber).empty());
    EXPECT_FALSE(Survey().SetValue(theNumber, "volume", "1"));
}

TEST_F(LmLiveSurveyTest, SetsAKeyAsAPersonTypesItAndTellsTheObservers)
{
    LmKeyValueBinding theRadio;
    LmKeyValueBinding theMeter;
    LmNameObject(theRadio, "radio");
    LmNameObject(theMeter, "meter");
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    theMeter.BindTo("value", &theRadio, "volume", nullptr);
    const std::uint64_t theNumber = Survey().FindByName("radio");
    EXPECT_TRUE(Survey().SetValue(theNumber, "volume", "55"));
    EXPECT_EQ(theMeter.GetKeyPathValue("value").GetUInt32(), 55U);
    EXPECT_EQ(theRadio.GetKeyPathValue("volume").GetType(), kTypeUInt32);
    EXPECT_FALSE(Survey().SetValue(theNumber, "volume", "loud"));
    EXPECT_FALSE(Survey().SetValue(theNumber, "no such key", "1"));
    EXPECT_EQ(theRadio.GetKeyPathValue("volume").GetUInt32(), 55U);
    const Texts theReasons = Survey().FindReasons(Survey().FindByName("meter"), "value");
    EXPECT_EQ(theReasons, (Texts{"meter.value: 40 -> 55", "meter.value gets 55 from radio.volume",
                                 "radio.volume: 40 -> 55", "a person set volume in the inspector"}));
    Unbind(theMeter);
}

TEST_F(LmLiveSurveyTest, KnowsBindingsUntilTheyEnd)
{
    LmKeyValueBinding theRadio;
    LmKeyValueBinding theMeter;
    LmNameObject(theRadio, "radio");
    LmNameObject(theMeter, "meter");
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    theMeter.BindTo("value", &theRadio, "volume", new LmScaleTransform(2));
    const std::uint64_t theNumber = Survey().FindByName("meter");
    const std::vector<LmSurveyedLink> theLinks = Survey().FindLinks(theNumber);
    ASSERT_EQ(theLinks.size(), 1U);
    EXPECT_EQ(theLinks[0].theKind, LmLinkKind::kBinding);
    EXPECT_EQ(theLinks[0].theObject, theNumber);
    EXPECT_EQ(theLinks[0].theKey, "value");
    EXPECT_EQ(theLinks[0].theOther, Survey().FindByName("radio"));
    EXPECT_EQ(theLinks[0].theOtherKey, "volume");
    EXPECT_EQ(theLinks[0].theTransform, "LmScaleTransform");
    EXPECT_EQ(Survey().FindKeys(theNumber)[0].theBindings,
              Texts{"bound to radio.volume through LmScaleTransform"});
    Unbind(theMeter);
    EXPECT_TRUE(Survey().FindLinks(0).empty());
}

TEST_F(LmLiveSurveyTest, KnowsDependenciesAndObserversUntilTheyEnd)
{
    LmKeyValueStore theRadio;
    LmKeyValueObserver theMeter;
    LmKeyValueObserver theOther;
    theRadio.ObserveKeyPathValue("volume", &theOther);
    theRadio.IgnoreKeyPathValue("volume", &theOther);
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    theRadio.SetKeyPathValue("loud", LmValue(false));
    theRadio.MakeDependency("volume", "loud");
    theRadio.ObserveKeyPathValue("loud", &theMeter);
    std::vector<LmSurveyedLink> theLinks = Survey().FindLinks(0);
    ASSERT_EQ(theLinks.size(), 2U);
    EXPECT_EQ(theLinks[0].theKind, LmLinkKind::kDependency);
    EXPECT_EQ(theLinks[0].theKey, "loud");
    EXPECT_EQ(theLinks[0].theOtherKey, "volume");
    EXPECT_EQ(theLinks[1].theKind, LmLinkKind::kObserver);
    EXPECT_EQ(theLinks[1].theOtherKey, "loud");
    theRadio.BreakDependency("volume", "loud");
    theRadio.IgnoreKeyPathValue("loud", &theMeter);
    EXPECT_TRUE(Survey().FindLinks(0).empty());
}

TEST_F(LmLiveSurveyTest, GroupsObjectsByTheirWindows)
{
    LmKeyValueStore theModel;
    LmKeyValueObserver theObserver;
    const WindowRef theWindow = MakeWindow();
    const ControlRef theSlider = MakeSlider(theWindow);
    new LmWindowBinding(theWindow); // these delete themselves
    new LmControlBinding(theSlider);
    const std::vector<LmSurveyedGroup> theGroups = Survey().FindGroups();
    ASSERT_EQ(theGroups.size(), 3U);
    EXPECT_EQ(theGroups[0].theTitle, "Window Radio");
    ASSERT_EQ(theGroups[0].theObjects.size(), 2U);
    EXPECT_EQ(theGroups[0].theObjects[0].theClass, "LmWindowBinding");
    EXPECT_EQ(theGroups[0].theObjects[1].theClass, "LmControlBinding");
    EXPECT_EQ(theGroups[1].theTitle, "Models");
    EXPECT_EQ(theGroups[2].theTitle, "Observers");
    const std::uint64_t theBinding = Survey().FindByControl(theSlider);
    EXPECT_EQ(theBinding, theGroups[0].theObjects[1].theNumber);
    EXPECT_EQ(Survey().FindControl(theBinding), theSlider);
    EXPECT_EQ(Survey().FindByWindow(theWindow), theGroups[0].theObjects[0].theNumber);
    EXPECT_EQ(Survey().FindByControl(nullptr), 0U);
    // Nobody has set or bound anything.
    EXPECT_EQ(KeysOf("LmControlBinding").size(), 6U);
    DisposeWindow(theWindow);
    EXPECT_EQ(Survey().FindGroups().size(), 2U);
}

TEST_F(LmLiveSurveyTest, GroupsMenusAndPreferencesWithTheirKeys)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(77, 0, &theMenu);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Louder"), 0, 'loud', nullptr);
    InsertMenu(theMenu, 0);
    new LmMenuBinding('loud'); // these delete themselves
    LmPreferenceBinding thePreferences(CFSTR("com.example.survey"));
    const WindowRef theWindow = MakeWindow();
    new LmWindowBinding(theWindow);
    const std::vector<LmSurveyedGroup> theGroups = Survey().FindGroups();
    ASSERT_EQ(theGroups.size(), 3U);
    EXPECT_EQ(theGroups[0].theTitle, "Window Radio");
    EXPECT_EQ(theGroups[1].theTitle, "Menus");
    EXPECT_EQ(theGroups[1].theObjects[0].theClass, "LmMenuBinding");
    EXPECT_EQ(theGroups[2].theTitle, "Preferences");
    EXPECT_EQ(theGroups[2].theObjects[0].theClass, "LmPreferenceBinding");
    Texts theKeys;
    for (const LmSurveyedKey& theKey : Survey().FindKeys(Survey().FindByWindow(theWindow))) {
        theKeys.push_back(theKey.theKey);
    }
    EXPECT_EQ(theKeys, (Texts{"bounds", "collapsed", "title", "visible"}));
    EXPECT_EQ(KeysOf("LmMenuBinding"), (Texts{"enabled=true", "mark=false", "title=\"Louder\""}));
    EXPECT_EQ(Survey().FindControl(Survey().FindByWindow(theWindow)), nullptr);
    EXPECT_EQ(Survey().FindControl(0), nullptr);
    EXPECT_EQ(Survey().FindByWindow(nullptr), 0U);
    EXPECT_EQ(Survey().FindByControl(MakeSlider(theWindow)), 0U);
    DisposeWindow(theWindow);
    DeleteMenu(77);
    DisposeMenu(theMenu);
}

TEST_F(LmLiveSurveyTest, ListsWindowsInTheOrderInWhichItMetThem)
{
    const WindowRef theWindows[] = {MakeWindow(), MakeWindow(), MakeWindow()};
    const char* const kTitles[] = {"First", "Second", "Third"};
    // Neither in the order in which they were made nor the other way round.
    const std::size_t kOrder[] = {1, 2, 0};
    for (std::size_t theIndex = 0; theIndex < 3; ++theIndex) {
        const WindowRef theWindow = theWindows[kOrder[theIndex]];
        SetWindowTitleWithCFString(
            theWindow,
            LmValue(CFStringCreateWithCString(nullptr, kTitles[theIndex], kCFStringEncodingUTF8), true)
                .GetString());
        new LmWindowBinding(theWindow); // these delete themselves
    }
    LmKeyValueStore theModel;
    theModel.SetKeyPathValue("volume", LmValue(40UL));
    Texts theTitles;
    for (const LmSurveyedGroup& theGroup : Survey().FindGroups()) {
        theTitles.push_back(theGroup.theTitle);
    }
    EXPECT_EQ(theTitles, (Texts{"Window First", "Window Second", "Window Third", "Models"}));
    for (const WindowRef theWindow : theWindows) {
        DisposeWindow(theWindow);
    }
}

TEST_F(LmLiveSurveyTest, ShowsWhatIsBindableAsOneObject)
{
    class Radio : public LmBindable
    {
    };
    Radio theRadio;
    LmNameObject(theRadio, "radio");
    theRadio.GetBindings()->SetKeyPathValue("volume", LmValue(40UL));
    const std::vector<LmSurveyedGroup> theGroups = Survey().FindGroups();
    ASSERT_EQ(theGroups.size(), 1U);
    EXPECT_EQ(theGroups[0].theTitle, "Models");
    ASSERT_EQ(theGroups[0].theObjects.size(), 1U);
    EXPECT_EQ(theGroups[0].theObjects[0].theName, "radio");
    EXPECT_EQ(KeysOf("radio"), Texts{"volume=40"});
    // That the one observes the other is nobody's business.
    EXPECT_TRUE(Survey().FindLinks(0).empty());
    // That it observes something else is.
    LmKeyValueStore theModel;
    LmNameObject(theModel, "model");
    theModel.ObserveKeyPathValue("*", &theRadio);
    theRadio.GetBindings()->ObserveKeyPathValue("volume", &theRadio);
    EXPECT_EQ(Survey().FindByName("radio"), theGroups[0].theObjects[0].theNumber);
    EXPECT_EQ(Survey().FindByName("model"), Survey().FindGroups()[0].theObjects[1].theNumber);
}

TEST_F(LmLiveSurveyTest, NamesThePersonAsTheFirstCause)
{
    const WindowRef theWindow = MakeWindow();
    const ControlRef theSlider = MakeSlider(theWindow);
    new LmControlBinding(theSlider);
    Host::UserSimulator theUser;
    ASSERT_TRUE(theUser.DragSlider(theSlider, 60));
    const Texts theReasons = Survey().FindReasons(Survey().FindByControl(theSlider), "value");
    ASSERT_GE(theReasons.size(), 3U);
    EXPECT_NE(theReasons[0].find("-> 60"), std::string::npos) << theReasons[0];
    EXPECT_EQ(theReasons.back().compare(0, 9, "a person "), 0);
    DisposeWindow(theWindow);
}

TEST_F(LmLiveSurveyTest, TellsWhyAKeyStayed)
{
    LmKeyValueStore theStore;
    LmNameObject(theStore, "radio");
    theStore.SetKeyPathValue("volume", LmValue(40.5));
    theStore.SetKeyPathValue("volume", LmValue(40.25));
    const std::vector<LmSurveyedChange> theChanges = Survey().FindChanges(1);
    ASSERT_EQ(theChanges.size(), 1U);
    EXPECT_EQ(theChanges[0].theText,
              "radio.volume stays: 40.25 equals 40.5, since numbers are compared as integers");
    EXPECT_FALSE(theChanges[0].isMove);
}

TEST_F(LmLiveSurveyTest, TellsOfKeysThatDependAndOfNotifications)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    LmNameObject(theStore, "radio");
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    theStore.SetKeyPathValue("loud", LmValue(false));
    theStore.MakeDependency("volume", "loud");
    theStore.ObserveKeyPathValue("loud", &theObserver);
    theStore.SetKeyPathValue("volume", LmValue(41UL));
    std::vector<LmSurveyedChange> theChanges = Survey().FindChanges(2);
    EXPECT_EQ(theChanges[0].theText, "radio.volume: 40 -> 41");
    EXPECT_EQ(theChanges[1].theText, "radio.loud is false: it depends on \"volume\"");
    EXPECT_TRUE(theChanges[1].isMove);
    theStore.NotifyObservers("loud", false);
    EXPECT_EQ(Survey().FindChanges(1)[0].theText, "radio.loud is false: it depends on \"volume\"")
        << "nothing has moved";
    theStore.NotifyObservers("loud", true);
    EXPECT_EQ(Survey().FindChanges(1)[0].theText, "radio.loud has changed to false");
    EXPECT_EQ(Survey().FindReasons(Survey().FindByName("radio"), "loud"),
              (Texts{"radio.loud has changed to false", "it began in the program's own code"}));
}

TEST_F(LmLiveSurveyTest, TellsOfASetThatWasRefusedAndForgetsCausesThatAreFarAway)
{
    LmKeyValueStore theStore;
    LmNameObject(theStore, "radio");
    const Restless theObserver(theStore);
    theStore.SetKeyPathValue("volume", LmValue(-1));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 1U);
    bool isRefused = false;
    for (const LmSurveyedChange& theChange : Survey().FindChanges(5000)) {
        isRefused =
            isRefused || theChange.theText == "radio.volume stays: a set is nested in itself too deep";
    }
    EXPECT_TRUE(isRefused);
    const Texts theReasons = Survey().FindReasons(Survey().FindByName("radio"), "volume");
    EXPECT_LE(theReasons.size(), 202U);
    EXPECT_EQ(theReasons.back(), "what led to this is no longer known");
}

TEST_F(LmLiveSurveyTest, TellsOfPreferencesThatAreWritten)
{
    LmPreferenceBinding thePreferences(CFSTR("com.example.survey"));
    LmNameObject(thePreferences, "settings");
    thePreferences.SetKeyPathValue("volume", LmValue(40));
    const std::vector<LmSurveyedChange> theChanges = Survey().FindChanges(5000);
    const bool isTold =
        std::any_of(theChanges.begin(), theChanges.end(), [](const LmSurveyedChange& theChange) {
            return theChange.theText == "preference settings.volume is set: 40";
        });
    EXPECT_TRUE(isTold);
}

TEST_F(LmLiveSurveyTest, SaysWhatThePersonDid)
{
    const WindowRef theWindow = MakeWindow();
    Host::UserSimulator theUser;
    theUser.PressKey(kVK_ANSI_X);
    EXPECT_EQ(LastAction(), "a person released a key");
    EventRef theWheel = nullptr;
    CreateEvent(nullptr, kEventClassMouse, kEventMouseWheelMoved, 0, kEventAttributeNone, &theWheel);
    SendEventToEventTarget(theWheel, GetEventDispatcherTarget());
    ReleaseEvent(theWheel);
    EXPECT_EQ(LastAction(), "a person turned the wheel");
    DisposeWindow(theWindow);
}

TEST_F(LmLiveSurveyTest, HearsOfAnActionOnceWhenAJournalWatchesThePersonToo)
{
    const WindowRef theWindow = MakeWindow();
    LmJournalSettings theSettings;
    theSettings.theFile = "/dev/null";
    ASSERT_TRUE(LmBeginJournal(theSettings));
    Survey().CountEntries(); // from here on both hear
    Host::UserSimulator theUser;
    theUser.PressKey(kVK_ANSI_X);
    std::size_t theCount = 0;
    for (const LmSurveyedChange& theChange : Survey().FindChanges(5000)) {
        theCount += theChange.theText == "a person released a key" ? 1 : 0;
    }
    EXPECT_EQ(theCount, 1U);
    LmEndInspector();
    LmEndJournal();
    DisposeWindow(theWindow);
}

TEST_F(LmLiveSurveyTest, TellsOfADiagnosticOnce)
{
    LmWriteJournalEntry(LmJournalEntry{kJournalDiagnostic}, nullptr);
    EXPECT_EQ(LastAction(), "diagnostic: ");
    LmJournalEntry theEntry = {kJournalDiagnostic};
    theEntry.theText = "too warm";
    LmWriteJournalEntry(theEntry, nullptr);
    EXPECT_EQ(LastAction(), "diagnostic: too warm");
    const std::uint64_t theCount = Survey().FindChanges(1)[0].theNumber;
    LmWriteJournalEntry(LmJournalEntry{kJournalEnd}, nullptr);
    EXPECT_EQ(Survey().FindChanges(1)[0].theNumber, theCount);
}

TEST_F(LmLiveSurveyTest, TakesTheOldestSetsForThoseThatNeverEnd)
{
    LmKeyValueStore theStore;
    LmNameObject(theStore, "radio");
    theStore.SetKeyValue("volume", LmValue(40UL));
    const LmString theKey = "volume";
    const LmValue theValue(41UL);
    std::vector<char> theSets(4097);
    for (const char& theSet : theSets) {
        LmJournalEntry theEntry = MakeEntry(kJournalChanging, theStore, theKey, &theSet);
        theEntry.theValue = &theValue;
        LmWriteJournalEntry(theEntry, nullptr);
    }
    theStore.SetKeyValue("volume", theValue);
    LmWriteJournalEntry(MakeEntry(kJournalChanged, theStore, theKey, &theSets.back()), nullptr);
    EXPECT_EQ(LastAction(), "radio.volume: 40 -> 41");
    LmWriteJournalEntry(MakeEntry(kJournalChanged, theStore, theKey, theSets.data()), nullptr);
    EXPECT_EQ(LastAction(), "radio.volume is 41");
}

TEST_F(LmLiveSurveyTest, KnowsNothingOfWhatIsNotThere)
{
    LmKeyValueStore theStore;
    LmKeyValueObserver theObserver;
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    const std::uint64_t theNumber = Survey().FindByName("LmKeyValueStore");
    EXPECT_NE(theNumber, 0U);
    EXPECT_TRUE(Survey().FindReasons(77, "volume").empty());
    EXPECT_TRUE(Survey().FindReasons(theNumber, "height").empty());
    EXPECT_FALSE(Survey().SetValue(theNumber, "", "1"));
    EXPECT_FALSE(Survey().SetValue(Survey().FindByName("LmKeyValueObserver"), "volume", "1"));
    EXPECT_TRUE(Survey().FindKeys(Survey().FindByName("LmKeyValueObserver")).empty());
    EXPECT_EQ(theStore.GetKeyPathValue("volume").GetUInt32(), 40U);
}

TEST_F(LmLiveSurveyTest, KeepsTheLastThousandChanges)
{
    LmKeyValueStore theStore;
    LmNameObject(theStore, "radio");
    for (unsigned long theVolume = 1; theVolume <= 1100; ++theVolume) {
        theStore.SetKeyPathValue("volume", LmValue(theVolume));
    }
    const std::vector<LmSurveyedChange> theChanges = Survey().FindChanges(5000);
    ASSERT_EQ(theChanges.size(), 1000U);
    EXPECT_EQ(theChanges.back().theText, "radio.volume: 1099 -> 1100");
}

TEST_F(LmLiveSurveyTest, AsksWithoutAWordToAnybody)
{
    LmKeyValueBinding theRadio;
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    Counter theOther;
    LmSetJournalHook(&theOther);
    Survey().FindGroups();
    Survey().FindKeys(1);
    Survey().FindLinks(0);
    LmDebugObject::SetLogging(true);
    Survey().FindGroups();
    LmDebugObject::SetLogging(false);
    EXPECT_EQ(theOther.mCount, 0U);
    LmSetJournalHook(nullptr);
}

namespace {

// What a program does, and what the trace says of it.
Lines TracePlay()
{
    LmKeyValueBinding theRadio;
    LmKeyValueBinding theMeter;
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    LmDebugObject::SetLogging(true);
    theMeter.Bind("value", &theRadio, "volume", new LmScaleTransform(2), new LmScaleTransform(0.5));
    theRadio.SetKeyPathValue("volume", LmValue(50UL));
    theMeter.SetKeyPathValue("value", LmValue(20UL));
    theRadio.SetKeyPathValue("volume", LmValue(10UL));
    LmDebugObject::SetLogging(false);
    theMeter.UnbindAll();
    return StandardErrorCapture::TakeLines();
}

} // namespace

TEST_F(LmLiveSurveyTest, ChangesNothingThatTheTraceTells)
{
    // Both play on the same stack, so that the addresses are the same too.
    Lines thePlays[2];
    for (Lines& thePlay : thePlays) {
        thePlay = TracePlay();
        LmEndInspector();
    }
    EXPECT_GE(thePlays[0].size(), 10U);
    EXPECT_EQ(thePlays[0], thePlays[1]);
}

TEST_F(LmLiveSurveyTest, HandsEverythingOnToTheHookThatWasThere)
{
    Counter theOther;
    LmSetJournalHook(&theOther);
    Survey().CountEntries(); // from here on both hear
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    EXPECT_GE(theOther.mCount, 3U);
    EXPECT_GE(theOther.mClosed, 2U);
    EXPECT_EQ(Survey().FindChanges(1).size(), 1U);
    LmEndInspector();
    const std::uint64_t theCount = theOther.mCount;
    theStore.SetKeyPathValue("volume", LmValue(41UL));
    EXPECT_GT(theOther.mCount, theCount);
    EXPECT_EQ(LmSetJournalHook(nullptr), &theOther);
}

TEST_F(LmLiveSurveyTest, SaysWhatAPersonDidToAWindow)
{
    const WindowRef theWindow = MakeWindow();
    SetWindowTitleWithCFString(theWindow, CFSTR("Kitchen"));
    auto* const theBinding = new LmWindowBinding(theWindow); // deletes itself with the window
    Host::UserSimulator theUser;
    ASSERT_TRUE(theUser.MoveWindow(theWindow, 20, 10));
    const std::uint64_t theObject = Survey().FindByName("Kitchen");
    ASSERT_NE(theObject, 0U) << theBinding->GetDebugInfo().GetUTF8();
    EXPECT_EQ(Survey().FindReasons(theObject, "bounds").back(), "a person moved a window, \"Kitchen\"");
    DisposeWindow(theWindow);
}

TEST_F(LmLiveSurveyTest, TellsAJournalOnceOfWhatAPersonDoes)
{
    LmEndInspector();
    Counter theOther;
    LmSetJournalHook(&theOther);
    LmAllowInspector();
    // A journal watches the person too.
    static const EventTypeSpec kKey = {kEventClassKeyboard, kEventRawKeyDown};
    static const EventHandlerUPP kWatch =
        NewEventHandlerUPP([](EventHandlerCallRef theNext, EventRef theEvent, void*) -> OSStatus {
            LmJournalEntry theEntry{kJournalAction};
            theEntry.theEvent = theEvent;
            LmWriteJournalEntry(theEntry, &theEntry);
            const OSStatus theStatus = CallNextEventHandler(theNext, theEvent);
            LmCloseJournalEntry(&theEntry);
            return theStatus;
        });
    EventHandlerRef theHandler = nullptr;
    InstallEventHandler(GetEventDispatcherTarget(), kWatch, 1, &kKey, nullptr, &theHandler);
    Host::UserSimulator theUser;
    theUser.PressKey(36);
    EXPECT_EQ(theOther.mCount, 2U) << "the key went down and up";
    RemoveEventHandler(theHandler);
    LmEndInspector();
    EXPECT_EQ(LmSetJournalHook(nullptr), &theOther);
}

TEST_F(LmLiveSurveyTest, LeavesAloneWhatOtherThreadsDo)
{
    const std::uint64_t theCount = Survey().CountEntries();
    std::thread([] { LmWriteJournalEntry(LmJournalEntry{kJournalDiagnostic}, nullptr); }).join();
    EXPECT_EQ(Survey().CountEntries(), theCount);
}

// ---- Everything that there is to know of one program

namespace {

// Numbers as they come, so that a text of them can be expected: the first one is 1.
class Renumbered
{
public:
    std::string operator()(std::uint64_t theNumber)
    {
        const auto theFound = mNumbers.emplace(theNumber, mNumbers.size());
        return theNumber == 0 ? "-" : std::to_string(theFound.first->second);
    }

private:
    std::map<std::uint64_t, std::size_t> mNumbers{{0, 0}};
};

std::string NameOf(std::uint64_t theObject)
{
    return theObject == 0 ? "-" : LmGetLiveSurvey()->FindObject(theObject).theName;
}

Texts ShowObjects()
{
    Texts theTexts;
    for (const LmSurveyedGroup& theGroup : LmGetLiveSurvey()->FindGroups()) {
        theTexts.push_back(theGroup.theTitle);
        for (const LmSurveyedObject& theObject : theGroup.theObjects) {
            theTexts.push_back("  " + theObject.theName + ", " + theObject.theClass);
            for (const LmSurveyedKey& theKey : LmGetLiveSurvey()->FindKeys(theObject.theNumber)) {
                std::string theText =
                    "    " + theKey.theKey + " = " + theKey.theValue + ", " + theKey.theType;
                theText += theKey.isEditable ? ", typed as " + theKey.theEditText : ", cannot be typed";
                theTexts.push_back(theText);
                for (const std::string& theBinding : theKey.theBindings) {
                    theTexts.push_back("      " + theBinding);
                }
            }
        }
    }
    return theTexts;
}

Texts ShowLinks(std::uint64_t theObject)
{
    static const char* const kKinds[] = {"is bound to", "depends on", "observes"};
    Texts theTexts;
    for (const LmSurveyedLink& theLink : LmGetLiveSurvey()->FindLinks(theObject)) {
        theTexts.push_back(NameOf(theLink.theObject) + "." + theLink.theKey + " " +
                           kKinds[static_cast<std::size_t>(theLink.theKind)] + " " +
                           NameOf(theLink.theOther) + "." + theLink.theOtherKey + " " + theLink.theTransform);
    }
    return theTexts;
}

// Number, cause, depth, object, key, whether it moved, and the text.
Texts ShowChanges()
{
    Renumbered theNumbers;
    Texts theTexts;
    for (const LmSurveyedChange& theChange : LmGetLiveSurvey()->FindChanges(1000)) {
        const std::string theNumber = theNumbers(theChange.theNumber);
        theTexts.push_back(theNumber + " of " + theNumbers(theChange.theCause) + ", " +
                           std::to_string(theChange.theDepth) + " deep, " + NameOf(theChange.theObject) +
                           "|" + theChange.theKey + (theChange.isMove ? " moved: " : ": ") +
                           theChange.theText);
    }
    return theTexts;
}

// A radio with what follows it.
struct Play
{
    Play()
    {
        LmNameObject(theRadio, "radio");
        LmNameObject(theMeter, "meter");
        LmNameObject(theEar, "ear");
        LmNameObject(theDeck, "deck");
        theRadio.SetKeyPathValue("loud", LmValue(false));
        theRadio.SetKeyPathValue("volume", LmValue(40UL));
        theRadio.SetKeyPathValue("place", LmValue(static_cast<const void*>(nullptr)));
        theRadio.MakeDependency("volume", "loud");
        theMeter.Bind("value", &theRadio, "volume", new LmScaleTransform(2), new LmScaleTransform(0.5));
        theDeck.GetBindings()->Bind("speed", &theRadio, "volume", nullptr, nullptr);
        theRadio.ObserveKeyPathValue("loud", &theEar);
        theRadio.ObserveKeyPathValue("volume", &theEar);
    }

    struct Deck : LmBindable
    {
    };

    LmKeyValueBinding theRadio;
    LmKeyValueBinding theMeter;
    LmKeyValueObserver theEar;
    Deck theDeck;
};

} // namespace

TEST_F(LmLiveSurveyTest, ShowsEveryObjectWithAllItsKeys)
{
    const Play thePlay;
    EXPECT_EQ(ShowObjects(),
              (Texts{"Models", "  radio, LmKeyValueBinding", "    loud = false, boolean, typed as false",
                     "    place = null pointer, pointer, cannot be typed",
                     "    volume = 40, unsigned 32-bit integer, typed as 40",
                     "      bound to meter.value through LmScaleTransform", "      bound to deck.speed",
                     "  meter, LmKeyValueBinding", "    value = 80, unsigned 32-bit integer, typed as 80",
                     "      bound to radio.volume through LmScaleTransform", "  deck, LmKeyValueBinding",
                     "    speed = 40, unsigned 32-bit integer, typed as 40", "      bound to radio.volume",
                     "Observers", "  ear, LmKeyValueObserver"}));
    EXPECT_EQ(ShowLinks(0),
              (Texts{"radio.volume is bound to meter.value LmScaleTransform",
                     "radio.volume is bound to deck.speed ",
                     "meter.value is bound to radio.volume LmScaleTransform",
                     "deck.speed is bound to radio.volume ", "radio.loud depends on radio.volume ",
                     "ear. observes radio.loud ", "ear. observes radio.volume "}));
    EXPECT_EQ(ShowLinks(Survey().FindByName("ear")),
              (Texts{"ear. observes radio.loud ", "ear. observes radio.volume "}));
    EXPECT_EQ(ShowLinks(Survey().FindByName("meter")),
              (Texts{"radio.volume is bound to meter.value LmScaleTransform",
                     "meter.value is bound to radio.volume LmScaleTransform"}));
}

TEST_F(LmLiveSurveyTest, TellsEveryChangeWithItsCause)
{
    Play thePlay;
    Survey().SetValue(Survey().FindByName("radio"), "volume", "50");
    thePlay.theMeter.SetKeyPathValue("value", LmValue(120UL));
    EXPECT_EQ(ShowChanges(),
              (Texts{"1 of -, 0 deep, radio|loud moved: radio.loud: not valid -> false",
                     "2 of -, 0 deep, radio|volume moved: radio.volume: not valid -> 40",
                     "3 of -, 0 deep, radio|place moved: radio.place: not valid -> null pointer",
                     "4 of -, 0 deep, meter|value: LmScaleTransform: 40 -> 80",
                     "5 of 4, 1 deep, meter|value moved: meter.value: not valid -> 80",
                     "6 of 5, 2 deep, radio|volume: LmScaleTransform: 80 -> 40",
                     "7 of 6, 3 deep, radio|volume: radio.volume stays: it is 40 already",
                     "8 of -, 0 deep, deck|speed moved: deck.speed: not valid -> 40",
                     "9 of 8, 1 deep, radio|volume: radio.volume stays: it is 40 already",
                     "10 of -, 0 deep, -|: a person set volume in the inspector",
                     "11 of 10, 1 deep, radio|volume moved: radio.volume: 40 -> 50",
                     "12 of 11, 2 deep, meter|value: LmScaleTransform: 50 -> 100",
                     "13 of 12, 3 deep, meter|value moved: meter.value: 80 -> 100",
                     "14 of 13, 4 deep, radio|volume: LmScaleTransform: 100 -> 50",
                     "15 of 14, 5 deep, radio|volume: radio.volume stays: it is 50 already",
                     "16 of 11, 2 deep, deck|speed moved: deck.speed: 40 -> 50",
                     "17 of 16, 3 deep, radio|volume: radio.volume stays: it is 50 already",
                     "18 of 10, 1 deep, radio|loud moved: radio.loud is false: it depends on \"volume\"",
                     "19 of -, 0 deep, meter|value moved: meter.value: 100 -> 120",
                     "20 of 19, 1 deep, radio|volume: LmScaleTransform: 120 -> 60",
                     "21 of 20, 2 deep, radio|volume moved: radio.volume: 50 -> 60",
                     "22 of 21, 3 deep, meter|value: LmScaleTransform: 60 -> 120",
                     "23 of 22, 4 deep, meter|value: meter.value stays: it is 120 already",
                     "24 of 21, 3 deep, deck|speed moved: deck.speed: 50 -> 60",
                     "25 of 24, 4 deep, radio|volume: radio.volume stays: it is 60 already",
                     "26 of 20, 2 deep, radio|loud moved: radio.loud is false: it depends on \"volume\""}));
    EXPECT_EQ(Survey().FindReasons(Survey().FindByName("radio"), "loud"),
              (Texts{"radio.loud is false: it depends on \"volume\"", "radio.volume gets 60 from meter.value",
                     "LmScaleTransform: 120 -> 60", "meter.value: 100 -> 120",
                     "it began in the program's own code"}));
    EXPECT_EQ(Survey().FindReasons(Survey().FindByName("meter"), "value"),
              (Texts{"meter.value: 100 -> 120", "it began in the program's own code"}));
    EXPECT_EQ(Survey().FindReasons(Survey().FindByName("deck"), "speed"),
              (Texts{"deck.speed: 50 -> 60", "deck.speed gets 60 from radio.volume", "radio.volume: 50 -> 60",
                     "radio.volume gets 60 from meter.value", "LmScaleTransform: 120 -> 60",
                     "meter.value: 100 -> 120", "it began in the program's own code"}));
}

// ---- Who is found, and with what

namespace {

Texts KeysOfObject(std::uint64_t theObject)
{
    Texts theTexts;
    for (const LmSurveyedKey& theKey : LmGetLiveSurvey()->FindKeys(theObject)) {
        theTexts.push_back(theKey.theKey + "=" + theKey.theValue);
        theTexts.insert(theTexts.end(), theKey.theBindings.begin(), theKey.theBindings.end());
    }
    return theTexts;
}

// What happens while it lives is caused by an entry of that kind.
class Scope
{
public:
    explicit Scope(const LmJournalEntry& theEntry) { LmWriteJournalEntry(theEntry, this); }
    ~Scope() { LmCloseJournalEntry(this); }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
};

// Sets a key of a radio when it is told that one of another store will change.
class Hasty : public LmKeyValueObserver
{
public:
    explicit Hasty(LmKeyValueStore& theRadio)
        : mRadio(theRadio)
    {
    }
    void ValueChanging(const LmKeyValueStore*, const LmString&) override
    {
        mRadio.SetKeyPathValue("volume", LmValue(++mVolume));
    }

private:
    LmKeyValueStore& mRadio;
    unsigned long mVolume = 40;
};

// Why the volume of the radio is what it is.
Texts ReasonsOfRadio()
{
    return LmGetLiveSurvey()->FindReasons(LmGetLiveSurvey()->FindByName("radio"), "volume");
}

} // namespace

TEST(LmSurveyed, IsNothingUntilItIsFound)
{
    const LmSurveyedObject theObject;
    const LmSurveyedKey theKey;
    const LmSurveyedLink theLink;
    const LmSurveyedChange theChange;
    EXPECT_EQ(theObject.theNumber, 0U);
    EXPECT_FALSE(theKey.isEditable);
    EXPECT_EQ(theLink.theObject, 0U);
    EXPECT_EQ(theLink.theOther, 0U);
    EXPECT_EQ(theChange.theNumber, 0U);
    EXPECT_EQ(theChange.theCause, 0U);
    EXPECT_EQ(theChange.theDepth, 0U);
    EXPECT_EQ(theChange.theObject, 0U);
    EXPECT_FALSE(theChange.isMove);
}

TEST_F(LmLiveSurveyTest, KnowsTheUsualKeysOfBindingsThatWereMadeBeforeIt)
{
    LmEndInspector();
    MenuRef theMenu = nullptr;
    CreateNewMenu(77, 0, &theMenu);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Louder"), 0, 'loud', nullptr);
    InsertMenu(theMenu, 0);
    const WindowRef theWindow = MakeWindow();
    const ControlRef theSlider = MakeSlider(theWindow);
    // These delete themselves.
    LmKeyValueBinding* const theBindings[] = {new LmControlBinding(theSlider), new LmWindowBinding(theWindow),
                                              new LmMenuBinding('loud')};
    LmControlBinding theNone;
    LmKeyValueBinding theModel;
    theModel.SetKeyValue("value", LmValue(1UL));
    LmAllowInspector();
    for (LmKeyValueBinding* theBinding : theBindings) {
        theBinding->NotifyObservers("title", true);
    }
    EXPECT_EQ(KeysOfObject(Survey().FindByControl(theSlider)),
              (Texts{"enabled=true", "maximum=100", "minimum=0", "title=\"\"", "value=10", "visible=true"}));
    EXPECT_EQ(KeysOfObject(Survey().FindByWindow(theWindow)),
              (Texts{"bounds=(100, 100, 300, 200)", "collapsed=false", "title=\"Radio\"", "visible=true"}));
    EXPECT_EQ(KeysOf("LmMenuBinding"), (Texts{"enabled=true", "mark=false", "title=\"Louder\""}));
    theNone.NotifyObservers("value", true);
    theModel.NotifyObservers("speed", true);
    EXPECT_EQ(KeysOfObject(Survey().FindGroups().back().theObjects.back().theNumber),
              Texts{"speed=not valid"});
    EXPECT_EQ(KeysOfObject(Survey().FindGroups().back().theObjects.front().theNumber),
              Texts{"value=not valid"});
    EXPECT_EQ(Survey().FindByControl(nullptr), 0U) << "one that has no control is nobody's";
    DisposeWindow(theWindow);
    DeleteMenu(77);
    DisposeMenu(theMenu);
}

TEST_F(LmLiveSurveyTest, FindsEachControlsAndEachWindowsOwnBinding)
{
    const WindowRef theWindows[] = {MakeWindow(), MakeWindow()};
    std::vector<ControlRef> theSliders;
    for (const WindowRef theWindow : theWindows) {
        new LmWindowBinding(theWindow); // these delete themselves
        theSliders.push_back(MakeSlider(theWindow));
        new LmControlBinding(theSliders.back());
    }
    EXPECT_LT(Survey().FindByWindow(theWindows[0]), Survey().FindByWindow(theWindows[1]));
    EXPECT_LT(Survey().FindByControl(theSliders[0]), Survey().FindByControl(theSliders[1]));
    EXPECT_EQ(Survey().FindControl(Survey().FindByControl(theSliders[0])), theSliders[0]);
    EXPECT_EQ(Survey().FindControl(Survey().FindByWindow(theWindows[0])), nullptr);
    EXPECT_EQ(Survey().FindControl(4000000000U), nullptr);
    DisposeWindow(theWindows[0]);
    DisposeWindow(theWindows[1]);
}

TEST_F(LmLiveSurveyTest, FindsNobodyByANameThatSeveralHave)
{
    LmKeyValueStore theStore;
    LmKeyValueBinding theOne;
    LmKeyValueBinding theOther;
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    EXPECT_NE(Survey().FindByName("LmKeyValueStore"), 0U) << "the only one of its class";
    LmNameObject(theOne, "LmKeyValueStore");
    EXPECT_EQ(Survey().FindObject(Survey().FindByName("LmKeyValueStore")).theClass, "LmKeyValueBinding");
    LmNameObject(theOther, "LmKeyValueStore");
    EXPECT_EQ(Survey().FindByName("LmKeyValueStore"), 0U);
}

TEST_F(LmLiveSurveyTest, TellsBindingsFromObservationsOfTheSameTwo)
{
    LmKeyValueBinding theRadio;
    LmKeyValueBinding theMeter;
    LmKeyValueStore theOther;
    LmNameObject(theRadio, "radio");
    LmNameObject(theMeter, "meter");
    LmNameObject(theOther, "other");
    theRadio.SetKeyPathValue("volume", LmValue(40UL));
    theMeter.BindTo("volume", &theRadio, "volume", nullptr);
    theRadio.ObserveKeyPathValue("loud", &theMeter);
    theOther.ObserveKeyPathValue("volume", &theMeter);
    const Texts theLinks = {"meter.volume is bound to radio.volume ", "meter. observes radio.loud ",
                            "meter. observes other.volume "};
    EXPECT_EQ(ShowLinks(0), theLinks);
    EXPECT_EQ(KeysOf("radio"), (Texts{"loud=not valid", "volume=40"}));
    EXPECT_EQ(KeysOfObject(Survey().FindByName("radio")), (Texts{"loud=not valid", "volume=40"}));
    // One that goes takes nobody else's links along.
    std::make_unique<LmKeyValueStore>().reset();
    EXPECT_EQ(ShowLinks(0), theLinks);
    Unbind(theMeter);
}

TEST_F(LmLiveSurveyTest, CountsEverything)
{
    LmKeyValueStore theStore;
    const std::uint64_t theFirst = Survey().CountEntries();
    theStore.SetKeyPathValue("volume", LmValue(40UL));
    const std::uint64_t theSecond = Survey().CountEntries();
    EXPECT_GT(theSecond, theFirst);
    {
        const LmKeyValueObserver theObserver;
    }
    EXPECT_GT(Survey().CountEntries(), theSecond) << "what is destroyed counts too";
}

TEST_F(LmLiveSurveyTest, HearsAgainAfterAnotherHookWithEachQuestion)
{
    void (*const kQuestions[])(std::uint64_t) = {
        [](std::uint64_t) { Survey().FindChanges(1); }, [](std::uint64_t) { Survey().FindGroups(); },
        [](std::uint64_t) { Survey().CountEntries(); },
        [](std::uint64_t theRadio) { Survey().SetValue(theRadio, "volume", "41"); }};
    for (const auto theQuestion : kQuestions) {
        LmKeyValueStore theStore;
        theStore.SetKeyPathValue("volume", LmValue(40UL));
        const std::uint64_t theRadio = Survey().FindByName("LmKeyValueStore");
        Counter theOther;
        LmSetJournalHook(&theOther);
        theQuestion(theRadio);
        const std::uint64_t theCount = theOther.mCount;
        theStore.SetKeyPathValue("volume", LmValue(50UL));
        EXPECT_GT(theOther.mCount, theCount) << "that hears as well";
        LmEndInspector();
        EXPECT_EQ(LmSetJournalHook(nullptr), &theOther);
        LmAllowInspector();
    }
}

TEST_F(LmLiveSurveyTest, NamesEachSortOfCause)
{
    LmKeyValueStore theStore;
    LmKeyValueStore theRadio;
    LmNameObject(theStore, "store");
    LmNameObject(theRadio, "radio");
    const LmString theKey = "key";
    const LmValue theValue(1UL);
    LmJournalEntry theEntry = MakeEntry(kJournalEvent, theStore, theKey);
    theEntry.theCode = kEventClassControl;
    theEntry.theDetail = kEventControlValueFieldChanged;
    unsigned long theVolume = 0;
    const auto ReasonFor = [&](const LmJournalEntry& theCause) {
        const Scope theScope(theCause);
        theRadio.SetKeyPathValue("volume", LmValue(++theVolume));
        const Texts theReasons = ReasonsOfRadio();
        return theReasons.size() == 3 ? theReasons[1] : std::to_string(theReasons.size()) + " reasons";
    };
    EXPECT_EQ(ReasonFor(theEntry), "store is told of kEventControlValueFieldChanged");
    theEntry.theDetail = 7777;
    EXPECT_EQ(ReasonFor(theEntry), "store is told of event 7777");
    EXPECT_EQ(ReasonFor(MakeEntry(kJournalFlush, theStore, theKey)), "store was used");
    LmJournalEntry theNotify = MakeEntry(kJournalNotify, theStore, theKey);
    EXPECT_EQ(ReasonFor(theNotify), "store.key is changing from not valid");
    theNotify.theDetail = 1;
    EXPECT_EQ(ReasonFor(theNotify), "store.key has changed to not valid");
    LmJournalEntry theUpdate = MakeEntry(kJournalUpdate, theStore, theKey);
    theUpdate.theValue = &theValue;
    theUpdate.theOtherKey = &theKey;
    EXPECT_EQ(ReasonFor(theUpdate), "store.key gets 1 from nobody.key");
    LmJournalEntry theBinding = MakeEntry(kJournalBind, theStore, theKey);
    theBinding.theOther = &theRadio;
    theBinding.theOtherKey = &theKey;
    EXPECT_EQ(ReasonFor(theBinding), "store.key is bound to radio.key");
    theBinding.theKind = kJournalUnbind;
    EXPECT_EQ(ReasonFor(theBinding), "store was used");
}

TEST_F(LmLiveSurveyTest, TellsOfWhatHappensBeforeAChangeAndInADestruction)
{
    LmKeyValueStore theRadio;
    LmNameObject(theRadio, "radio");
    Hasty theObserver(theRadio);
    auto theStore = std::make_unique<LmKeyValueStore>();
    LmNameObject(*theStore, "store");
    theStore->ObserveKeyPathValue("key", &theObserver);
    theStore->SetKeyPathValue("key", LmValue(7UL));
    EXPECT_EQ(ReasonsOfRadio(), (Texts{"radio.volume: not valid -> 41", "store.key is about to change to 7",
                                       "it began in the program's own code"}));
    // Sets the volume when it dies.
    class Leaving : public LmValueTransform
    {
    public:
        explicit Leaving(LmKeyValueStore& theRadio)
            : mRadio(theRadio)
        {
        }
        ~Leaving() override { mRadio.SetKeyPathValue("volume", LmValue(99UL)); }
        LmValue Apply(const LmValue& theValue) override { return theValue; }

    private:
        LmKeyValueStore& mRadio;
    };
    LmKeyValueBinding theModel;
    auto theView = std::make_unique<LmKeyValueBinding>();
    LmNameObject(*theView, "view");
    theView->Bind("key", &theModel, "key", new Leaving(theRadio), nullptr);
    theView.reset();
    EXPECT_EQ(ReasonsOfRadio(), (Texts{"radio.volume: 41 -> 99", "view was used", "view is destroyed",
                                       "it began in the program's own code"}));
    theRadio.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(ReasonsOfRadio().size(), 2U) << "what is over causes nothing";
}
