// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Stories in which all parts of the library take part: a person, controls, a menu, a window, models and
// preferences.

#include "LmBindings.h"
#include "NotificationRecorder.h"

#include <Simulation/UserSimulator.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace {

const ControlID kVolumeSlider = {'Volu', 1};
const ControlID kNameField = {'Volu', 2};
const MenuCommand kLoud = 'loud';
const Rect kWindowBounds = {100, 100, 300, 500};

std::string TextOf(CFStringRef theString)
{
    char theText[256] = "(null)";
    if (theString != nullptr) {
        CFStringGetCString(theString, theText, sizeof theText, kCFStringEncodingUTF8);
    }
    return theText;
}

// A window with a volume slider from 0 to 10 and a name field, and a menu with the command "Loud".
class HowThePartsMeet : public testing::Test
{
protected:
    // Keeps the person's own preferences out of it, however the tests are run.
    static void SetUpTestSuite() { setenv("LM_PREFERENCES", "memory", 1); }

    void SetUp() override
    {
        CreateNewWindow(kDocumentWindowClass,
                        kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute, &kWindowBounds,
                        &mWindow);
        CreateRootControl(mWindow, nullptr);
        AddSlider();
        AddField();
        AddMenu();
        ShowWindow(mWindow);
    }

    void TearDown() override
    {
        DeleteMenu(128);
        if (IsValidWindowPtr(mWindow)) {
            DisposeWindow(mWindow);
        }
    }

    void AddSlider()
    {
        const Rect theBounds = {20, 20, 40, 220};
        CreateSliderControl(mWindow, &theBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, true, nullptr,
                            &mSlider);
        SetControlID(mSlider, &kVolumeSlider);
    }

    void AddField()
    {
        const Rect theBounds = {60, 20, 80, 220};
        CreateEditUnicodeTextControl(mWindow, &theBounds, nullptr, false, nullptr, &mField);
        SetControlID(mField, &kNameField);
    }

    static void AddMenu()
    {
        MenuRef theMenu = nullptr;
        CreateNewMenu(128, 0, &theMenu);
        AppendMenuItemTextWithCFString(theMenu, CFSTR("Loud"), 0, kLoud, nullptr);
        InsertMenu(theMenu, 0);
        ReleaseMenu(theMenu);
    }

    static UniChar GetLoudMark()
    {
        UniChar theMark = 0xFFFF;
        GetMenuCommandMark(nullptr, kLoud, &theMark);
        return theMark;
    }

    LmPreferenceBinding mPreferences{CFSTR("org.lmbindings.scenario")};
    LmKeyValueBinding mModel;
    WindowRef mWindow = nullptr;
    ControlRef mSlider = nullptr;
    ControlRef mField = nullptr;
    Host::UserSimulator mUser;
};

TEST_F(HowThePartsMeet, ThePersonsDragReachesTheModelAndTheModelsChangeReachesTheSlider)
{
    mModel.SetKeyPathValue("volume", LmValue(3UL));
    (new LmControlBinding(mWindow, kVolumeSlider))->Bind("value", &mModel, "volume", nullptr, nullptr);
    EXPECT_EQ(GetControl32BitValue(mSlider), 3);
    NotificationRecorder theRecorder;
    mModel.ObserveKeyPathValue("volume", &theRecorder);

    const Host::UserResult theResult = mUser.DragSlider({mWindow, kVolumeSlider}, 8);
    EXPECT_TRUE(theResult) << theResult.Explain();
    EXPECT_EQ(mModel.GetKeyPathValue("volume").GetUInt32(), 8UL);
    EXPECT_EQ(GetControl32BitValue(mSlider), 8);

    theRecorder.Take();
    mModel.SetKeyPathValue("volume", LmValue(1UL));
    EXPECT_EQ(GetControl32BitValue(mSlider), 1);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing volume", "changed volume"})) << "there is no echo";
}

TEST_F(HowThePartsMeet, TheVolumeSliderAndTheMenuMarkFollowThePreference)
{
    mPreferences.SetKeyPathValue("volume", LmValue(2L));
    (new LmControlBinding(mWindow, kVolumeSlider))->Bind("value", &mPreferences, "volume", nullptr, nullptr);
    (new LmMenuBinding(kLoud))
        ->BindTo("mark", &mPreferences, "volume", new LmIsAboveTransform(LmValue(7L), true));
    EXPECT_EQ(GetControl32BitValue(mSlider), 2);
    EXPECT_EQ(GetLoudMark(), noMark);

    EXPECT_TRUE(mUser.DragSlider({mWindow, kVolumeSlider}, 9));
    EXPECT_EQ(mPreferences.GetKeyPathValue("volume").GetSInt32(), 9L);
    EXPECT_EQ(GetLoudMark(), checkMark);

    mPreferences.SetKeyPathValue("volume", LmValue(4L));
    EXPECT_EQ(GetControl32BitValue(mSlider), 4);
    EXPECT_EQ(GetLoudMark(), noMark);
}

TEST_F(HowThePartsMeet, TypedTextReachesTheModelWithReturnAndTheWindowsTitleFollows)
{
    mModel.SetKeyPathValue("name", LmValue(CFSTR(""), false));
    (new LmControlBinding(mWindow, kNameField))->Bind("value", &mModel, "name", nullptr, nullptr);
    (new LmWindowBinding(mWindow))->BindTo("title", &mModel, "name", nullptr);

    EXPECT_TRUE(mUser.Click({mWindow, kNameField}));
    EXPECT_TRUE(mUser.TypeText("Quiet"));
    EXPECT_EQ(TextOf(mModel.GetKeyPathValue("name").GetString()), "");
    EXPECT_TRUE(mUser.PressKey(kVK_Return));
    EXPECT_EQ(TextOf(mModel.GetKeyPathValue("name").GetString()), "Quiet");
    CFStringRef theTitle = nullptr;
    CopyWindowTitleAsCFString(mWindow, &theTitle);
    EXPECT_EQ(TextOf(theTitle), "Quiet");
    CFRelease(theTitle);
    ControlRef theFocus = nullptr;
    GetKeyboardFocus(mWindow, &theFocus);
    EXPECT_EQ(theFocus, mField) << "Return keeps the focus in the field";
}

// A model object whose volume can be switched off as a whole.
class Player : public LmBindable
{
public:
    void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        if (!IgnoreChanges()) {
            mHeard.push_back(theKeyName.GetUTF8());
        }
    }

    Lines mHeard;
};

TEST_F(HowThePartsMeet, AnObjectOfTheApplicationHearsWhatThePersonDoes)
{
    Player thePlayer;
    thePlayer.GetBindings()->SetKeyPathValue("volume", LmValue(0UL));
    (new LmControlBinding(mSlider))->Bind("value", thePlayer.GetBindings(), "volume", nullptr, nullptr);
    EXPECT_TRUE(mUser.DragSlider({mWindow, kVolumeSlider}, 10));
    ASSERT_FALSE(thePlayer.mHeard.empty());
    EXPECT_EQ(thePlayer.mHeard.back(), "volume");
    thePlayer.mHeard.clear();
    thePlayer.SetIgnoreChanges(true);
    EXPECT_TRUE(mUser.DragSlider({mWindow, kVolumeSlider}, 1));
    EXPECT_EQ(thePlayer.mHeard, Lines{});
    EXPECT_EQ(thePlayer.GetBindings()->GetKeyPathValue("volume").GetUInt32(), 1UL);
}

TEST_F(HowThePartsMeet, TheWindowsPlaceIsRememberedInThePreferences)
{
    (new LmWindowBinding(mWindow))->Bind("bounds", &mPreferences, "place", nullptr, nullptr);
    EXPECT_FALSE(mPreferences.HasKey("place")) << "nothing is written before something changes";
    EXPECT_TRUE(mUser.MoveWindow(mWindow, 140, 130));
    const CGRect thePlace = mPreferences.GetKeyPathValue("place").GetRect();
    EXPECT_EQ(thePlace.origin.x, 140);
    EXPECT_EQ(thePlace.origin.y, 130);

    WindowRef theOther = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &kWindowBounds, &theOther);
    (new LmWindowBinding(theOther))->Bind("bounds", &mPreferences, "place", nullptr, nullptr);
    Rect theBounds = {0, 0, 0, 0};
    GetWindowBounds(theOther, kWindowContentRgn, &theBounds);
    EXPECT_EQ(theBounds.left, 140);
    EXPECT_EQ(theBounds.top, 130);
    DisposeWindow(theOther);
}

TEST_F(HowThePartsMeet, ClosingTheWindowTakesItsBindingsAndLeavesModelAndPreferences)
{
    mModel.SetKeyPathValue("volume", LmValue(3UL));
    mModel.Bind("volume", &mPreferences, "volume", nullptr, nullptr);
    (new LmControlBinding(mSlider))->Bind("value", &mModel, "volume", nullptr, nullptr);
    (new LmWindowBinding(mWindow))->Bind("visible", &mModel, "shown", nullptr, nullptr);
    EXPECT_TRUE(mUser.CloseWindow(mWindow));
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
    mModel.SetKeyPathValue("volume", LmValue(6UL));
    EXPECT_EQ(mPreferences.GetKeyPathValue("volume").GetSInt32(), 6L);
}

// Notes the window events that it gets, in the list that its user data points to.
OSStatus NoteEnd(EventHandlerCallRef, EventRef theEvent, void* theEvents)
{
    const UInt32 theKind = GetEventKind(theEvent);
    static_cast<Lines*>(theEvents)->emplace_back(theKind == kEventWindowHidden   ? "hidden"
                                                 : theKind == kEventWindowClosed ? "closed"
                                                                                 : "disposed");
    return eventNotHandledErr;
}

// A window whose visibility a model follows, and a preference the model.
class RememberedVisibility : public HowThePartsMeet
{
protected:
    void SetUp() override
    {
        HowThePartsMeet::SetUp();
        mPreferences.SetKeyPathValue("shown", LmValue(true));
        mModel.Bind("shown", &mPreferences, "shown", nullptr, nullptr);
        (new LmWindowBinding(mWindow))->Bind("visible", &mModel, "shown", nullptr, nullptr);
        EXPECT_TRUE(IsWindowVisible(mWindow));
    }

    bool IsRemembered() const { return mPreferences.GetKeyPathValue("shown").GetBoolean(); }
};

TEST_F(RememberedVisibility, IsFalseWhenTheVisibleWindowIsDisposedOfForThatHidesItFirstOnPurpose)
{
    const EventTypeSpec kEnd[] = {{kEventClassWindow, kEventWindowHidden},
                                  {kEventClassWindow, kEventWindowClosed},
                                  {kEventClassWindow, kEventWindowDispose}};
    Lines theEvents;
    InstallWindowEventHandler(mWindow, NewEventHandlerUPP(NoteEnd), GetEventTypeCount(kEnd), kEnd, &theEvents,
                              nullptr);
    DisposeWindow(mWindow);
    EXPECT_EQ(theEvents, (Lines{"hidden", "closed", "disposed"}));
    EXPECT_FALSE(mModel.GetKeyPathValue("shown").GetBoolean());
    EXPECT_FALSE(IsRemembered());
}

TEST_F(RememberedVisibility, IsKeptWhenTheKeyIsUnboundBeforeTheWindowIsDisposedOf)
{
    mModel.Unbind("shown", nullptr);
    DisposeWindow(mWindow);
    EXPECT_TRUE(mModel.GetKeyPathValue("shown").GetBoolean());
    EXPECT_TRUE(IsRemembered());
}

TEST_F(RememberedVisibility, IsThatOfAWindowThatIsHiddenInsteadAndBringsItBack)
{
    HideWindow(mWindow);
    EXPECT_FALSE(IsRemembered());
    mModel.SetKeyPathValue("shown", LmValue(true));
    EXPECT_TRUE(IsWindowVisible(mWindow));
    EXPECT_TRUE(IsRemembered());
}

// Changes nothing, and counts the dead.
class CountedTransform : public LmValueTransform
{
public:
    explicit CountedTransform(int& theDeaths)
        : mDeaths(theDeaths)
    {
    }
    ~CountedTransform() override { mDeaths += 1; }

    LmValue Apply(const LmValue& theValue) override { return theValue; }

private:
    int& mDeaths;
};

TEST_F(HowThePartsMeet, TheBindingsOfControlMenuAndWindowGoWithThemAndTheirTransformsToo)
{
    int theDeaths = 0;
    mModel.SetKeyPathValue("volume", LmValue(3UL));
    (new LmControlBinding(mSlider))
        ->Bind("value", &mModel, "volume", new CountedTransform(theDeaths), nullptr);
    (new LmMenuBinding(kLoud))->BindTo("enabled", &mModel, "loud", new CountedTransform(theDeaths));
    (new LmWindowBinding(mWindow))
        ->Bind("visible", &mModel, "shown", new CountedTransform(theDeaths), nullptr);
    DisposeControl(mSlider);
    EXPECT_EQ(theDeaths, 1);
    DeleteMenu(128);
    EXPECT_EQ(theDeaths, 2);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueBinding.cpp, line #: Error -50"})
        << "the menu's binding was one-way";
    DisposeWindow(mWindow);
    EXPECT_EQ(theDeaths, 3);
    mModel.SetKeyPathValue("volume", LmValue(4UL));
}

TEST_F(HowThePartsMeet, SettingAKeyOfABindingShowsInItsObject)
{
    LmControlBinding* const theControlBinding = new LmControlBinding(mSlider);
    LmMenuBinding* const theMenuBinding = new LmMenuBinding(kLoud);
    LmWindowBinding* const theWindowBinding = new LmWindowBinding(mWindow);
    theControlBinding->SetKeyPathValue("value", LmValue(8UL));
    theMenuBinding->SetKeyPathValue("mark", LmValue(true));
    theWindowBinding->SetKeyPathValue("visible", LmValue(false));
    EXPECT_EQ(GetControl32BitValue(mSlider), 8);
    EXPECT_EQ(GetLoudMark(), checkMark);
    EXPECT_FALSE(IsWindowVisible(mWindow));
    EXPECT_EQ(theControlBinding->GetKeyPathValue("value").GetUInt32(), 8UL);
    EXPECT_TRUE(theMenuBinding->GetKeyPathValue("mark").GetBoolean());
    EXPECT_FALSE(theWindowBinding->GetKeyPathValue("visible").GetBoolean());
}

OSStatus CountEvent(EventHandlerCallRef, EventRef, void* theCounter)
{
    ++*static_cast<int*>(theCounter);
    return eventNotHandledErr;
}

TEST_F(HowThePartsMeet, OtherHandlersHearEveryEventButReturnInABoundField)
{
    const EventTypeSpec kChange = {kEventClassControl, kEventControlValueFieldChanged};
    const EventTypeSpec kKey = {kEventClassKeyboard, kEventRawKeyDown};
    int theChanges = 0;
    int theKeys = 0;
    InstallControlEventHandler(mSlider, NewEventHandlerUPP(CountEvent), 1, &kChange, &theChanges, nullptr);
    InstallControlEventHandler(mField, NewEventHandlerUPP(CountEvent), 1, &kKey, &theKeys, nullptr);
    LmControlBinding* const theSliderBinding = new LmControlBinding(mSlider);
    LmControlBinding* const theFieldBinding = new LmControlBinding(mField);
    SetControl32BitValue(mSlider, 9);
    EXPECT_EQ(theChanges, 1);
    EXPECT_EQ(theSliderBinding->GetKeyPathValue("value").GetUInt32(), 9UL);

    EXPECT_TRUE(mUser.Click({mWindow, kNameField}));
    EXPECT_TRUE(mUser.TypeText("Hi"));
    EXPECT_EQ(theKeys, 2);
    EXPECT_TRUE(mUser.PressKey(kVK_Return));
    EXPECT_EQ(theKeys, 2) << "Return is consumed";
    EXPECT_EQ(TextOf(theFieldBinding->GetKeyPathValue("value").GetString()), "Hi");
    EXPECT_TRUE(mUser.PressKey(kVK_Tab));
    EXPECT_EQ(theKeys, 3);
}

TEST_F(HowThePartsMeet, EachBoundsEventOfADraggedEdgeReachesTheKeyOnce)
{
    int theEvents = 0;
    const EventTypeSpec theType = {kEventClassWindow, kEventWindowBoundsChanged};
    InstallWindowEventHandler(mWindow, NewEventHandlerUPP(CountEvent), 1, &theType, &theEvents, nullptr);
    auto* const theBinding = new LmWindowBinding(mWindow);
    NotificationRecorder theRecorder;
    theBinding->ObserveKeyPathValue("bounds", &theRecorder);
    EXPECT_TRUE(mUser.ResizeWindow(mWindow, 350, 250));
    EXPECT_GE(theEvents, 1);
    Lines theLines;
    for (int theEvent = 0; theEvent < theEvents; ++theEvent) {
        theLines.insert(theLines.end(), {"changing bounds", "changed bounds"});
    }
    EXPECT_EQ(theRecorder.Take(), theLines);
    const CGRect theBounds = theBinding->GetKeyPathValue("bounds").GetRect();
    EXPECT_EQ(theBounds.size.width, 350);
    EXPECT_EQ(theBounds.size.height, 250);
}

TEST_F(HowThePartsMeet, EitherSideMayBeDestroyedFirst)
{
    {
        LmKeyValueBinding theModel;
        LmControlBinding* theBinding = new LmControlBinding(mSlider);
        theBinding->Bind("value", &theModel, "volume", nullptr, nullptr);
        delete theBinding;
        theModel.SetKeyPathValue("volume", LmValue(2UL));
        EXPECT_EQ(GetControl32BitValue(mSlider), 5) << "nobody is bound to the volume any more";
    }
    auto theModel = std::make_unique<LmKeyValueBinding>();
    LmControlBinding* theBinding = new LmControlBinding(mSlider);
    theBinding->Bind("value", theModel.get(), "volume", nullptr, nullptr);
    theModel.reset();
    theBinding->SetKeyPathValue("value", LmValue(9UL));
    EXPECT_EQ(GetControl32BitValue(mSlider), 9);
}

// An observer that sets another key and starts observing while it is being told.
class Meddler : public LmKeyValueObserver
{
public:
    explicit Meddler(NotificationRecorder& theRecorder)
        : mRecorder(theRecorder)
    {
    }

    void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        auto* const theBinding = const_cast<LmKeyValueStore*>(theStore);
        if (!theBinding->IsObserving(theKeyName, &mRecorder)) {
            theBinding->ObserveKeyPathValue(theKeyName, &mRecorder);
            theBinding->SetKeyPathValue("noticed", LmValue(true));
        }
    }

private:
    NotificationRecorder& mRecorder;
};

TEST_F(HowThePartsMeet, ObserversMaySetKeysAndRegisterWhileThePersonDrags)
{
    NotificationRecorder theRecorder;
    Meddler theMeddler(theRecorder);
    LmControlBinding* theBinding = new LmControlBinding(mSlider);
    theBinding->ObserveKeyPathValue("value", &theMeddler);
    SetControl32BitValue(mSlider, 7);
    EXPECT_EQ(theRecorder.Take(), Lines{"changed value"})
        << "the pass in which it registered ran over a copy";
    EXPECT_TRUE(theBinding->GetKeyPathValue("noticed").GetBoolean());
}

} // namespace
