// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindingTestSupport.h"
#include "CarbonSpy.h"
#include "LmWindowBinding.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const Rect kStartBounds = {60, 80, 260, 480};
const char* const kKeys[] = {"visible", "collapsed", "bounds", "title"};

std::string StatusLine(OSStatus theStatus)
{
    return "Source/Bindings/LmWindowBinding.cpp, line #: Error " + std::to_string(theStatus);
}

std::string TextOf(const Rect& theRect)
{
    return "top " + std::to_string(theRect.top) + ", left " + std::to_string(theRect.left) + ", bottom " +
           std::to_string(theRect.bottom) + ", right " + std::to_string(theRect.right);
}

std::string BoundsOf(WindowRef theWindow)
{
    Rect theBounds = {0, 0, 0, 0};
    GetWindowBounds(theWindow, kWindowContentRgn, &theBounds);
    return TextOf(theBounds);
}

CGRect MakeRect(float theX, float theY, float theWidth, float theHeight)
{
    CGRect theRect;
    theRect.origin.x = theX;
    theRect.origin.y = theY;
    theRect.size.width = theWidth;
    theRect.size.height = theHeight;
    return theRect;
}

std::string TitleOf(WindowRef theWindow)
{
    CFStringRef theTitle = nullptr;
    CopyWindowTitleAsCFString(theWindow, &theTitle);
    return TextOfAdopted(theTitle);
}

class LmWindowBindingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(CreateNewWindow(kDocumentWindowClass,
                                  kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                                  &kStartBounds, &mWindow),
                  noErr);
        SetWindowTitleWithCFString(mWindow, CFSTR("Untitled"));
        CarbonSpy::Reset();
    }

    void TearDown() override
    {
        CarbonSpy::Reset();
        if (mWindow != nullptr) {
            DisposeWindow(mWindow);
        }
    }

    void CloseWindow()
    {
        DisposeWindow(mWindow);
        mWindow = nullptr;
    }

    static void ObserveAll(LmWindowBinding* theBinding, NotificationRecorder& theRecorder)
    {
        for (const char* theKey : kKeys) {
            theBinding->ObserveKeyPathValue(theKey, &theRecorder);
        }
    }

    WindowRef mWindow = nullptr;
};

// Without a window -------------------------------------------------------------------------------------

TEST_F(LmWindowBindingTest, ABindingWithoutAWindowOnlyStoresItsKeys)
{
    LmWindowBinding theBinding;
    EXPECT_EQ(theBinding.GetWindow(), nullptr);
    for (const char* theKey : kKeys) {
        theBinding.SetKeyPathValue(theKey, LmValue(false));
        EXPECT_TRUE(theBinding.HasKey(theKey)) << theKey;
    }
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
    EXPECT_STREQ(theBinding.GetDebugInfo().GetUTF8(), "[Window \"\"]");
}

// Attaching --------------------------------------------------------------------------------------------

TEST_F(LmWindowBindingTest, AttachingReadsTheFourKeysInOrderAndWritesNothingBack)
{
    LmWindowBinding* theBinding = new LmWindowBinding;
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    CarbonSpy::TakeWrites();
    theBinding->SetWindow(mWindow);
    EXPECT_EQ(theRecorder.Take(),
              (Lines{"changing visible", "changed visible", "changing collapsed", "changed collapsed",
                     "changing bounds", "changed bounds", "changing title", "changed title"}));
    EXPECT_EQ(theBinding->GetKeyPathValue("visible").GetType(), kTypeBoolean);
    EXPECT_FALSE(theBinding->GetKeyPathValue("visible").GetBoolean());
    EXPECT_EQ(theBinding->GetKeyPathValue("collapsed").GetType(), kTypeBoolean);
    EXPECT_FALSE(theBinding->GetKeyPathValue("collapsed").GetBoolean());
    EXPECT_TRUE(theBinding->GetKeyPathValue("bounds") == LmValue(MakeRect(80, 60, 400, 200)));
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Untitled");
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
    EXPECT_EQ(theBinding->GetWindow(), mWindow);
}

TEST_F(LmWindowBindingTest, TheDebugTextShowsTheTitle)
{
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    EXPECT_STREQ(theBinding->GetDebugInfo().GetUTF8(), "[Window \"Untitled\"]");
}

TEST_F(LmWindowBindingTest, TheDebugTextShowsTheWholeOfTheLongestTitle)
{
    const std::string theTitle(255, 'x');
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    theBinding->SetKeyPathValue("title", TextValue(theTitle.c_str()));
    EXPECT_EQ(std::string(theBinding->GetDebugInfo().GetUTF8()), "[Window \"" + theTitle + "\"]");
}

TEST_F(LmWindowBindingTest, ANullWindowLeavesTheBindingWithoutOne)
{
    LmWindowBinding theBinding(nullptr);
    EXPECT_EQ(theBinding.GetWindow(), nullptr);
    EXPECT_FALSE(theBinding.HasKey("visible"));
}

TEST_F(LmWindowBindingTest, InitialisingSelfAttachesTheWindow)
{
    LmWindowBinding* theBinding = new LmWindowBinding;
    theBinding->InitialiseSelf(nullptr);
    EXPECT_EQ(theBinding->GetWindow(), nullptr);
    theBinding->InitialiseSelf(mWindow);
    EXPECT_EQ(theBinding->GetWindow(), mWindow);
    SetWindowTitleWithCFString(mWindow, CFSTR("Named"));
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Named");
}

TEST_F(LmWindowBindingTest, DetachingKeepsTheKeysAndStopsListening)
{
    LmWindowBinding theBinding(mWindow);
    theBinding.SetWindow(nullptr);
    SetWindowTitleWithCFString(mWindow, CFSTR("Named"));
    EXPECT_EQ(TextOf(theBinding.GetKeyPathValue("title")), "Untitled");
    theBinding.SetKeyPathValue("title", TextValue("Other"));
    EXPECT_EQ(TitleOf(mWindow), "Named");
}

TEST_F(LmWindowBindingTest, AttachingToAnotherWindowRemovesTheHandlerFromTheFirst)
{
    WindowRef theOther = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowNoAttributes, &kStartBounds, &theOther);
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    theBinding->SetWindow(theOther);
    SetWindowTitleWithCFString(mWindow, CFSTR("First"));
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "");
    SetWindowTitleWithCFString(theOther, CFSTR("Second"));
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Second");
    DisposeWindow(theOther);
}

// From the keys to the window --------------------------------------------------------------------------

TEST_F(LmWindowBindingTest, SettingVisibleShowsAndHidesTheWindow)
{
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    theBinding->SetKeyPathValue("visible", LmValue(true));
    EXPECT_TRUE(IsWindowVisible(mWindow));
    theBinding->SetKeyPathValue("visible", LmValue(false));
    EXPECT_FALSE(IsWindowVisible(mWindow));
}

TEST_F(LmWindowBindingTest, SettingCollapsedCollapsesAndExpandsTheWindow)
{
    ShowWindow(mWindow);
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    theBinding->SetKeyPathValue("collapsed", LmValue(true));
    EXPECT_TRUE(IsWindowCollapsed(mWindow));
    theBinding->SetKeyPathValue("collapsed", LmValue(false));
    EXPECT_FALSE(IsWindowCollapsed(mWindow));
}

TEST_F(LmWindowBindingTest, SettingTheTitleNamesTheWindow)
{
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    theBinding->SetKeyPathValue("title", TextValue("Living room"));
    EXPECT_EQ(TitleOf(mWindow), "Living room");
}

TEST_F(LmWindowBindingTest, OriginAndSizeAreEachCutToWholeNumbersOnPurpose)
{
    const float kNotANumber = std::numeric_limits<float>::quiet_NaN();
    const struct
    {
        const char* theName;
        CGRect theRect;
        const char* theBounds;
    } kRows[] = {
        {"fractions", MakeRect(10.7F, 20.2F, 100.9F, 50.5F), "top 20, left 10, bottom 70, right 110"},
        {"whole numbers", MakeRect(30, 40, 300, 200), "top 40, left 30, bottom 240, right 330"},
        {"negative", MakeRect(-10.7F, -0.9F, 100.9F, 50.9F), "top 0, left -10, bottom 50, right 90"},
        {"not numbers", MakeRect(kNotANumber, 40, 100, 50), "top 40, left 0, bottom 90, right 100"},
    };
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    for (const auto& theRow : kRows) {
        theBinding->SetKeyPathValue("bounds", LmValue(theRow.theRect));
        EXPECT_EQ(TextOf(CarbonSpy::LastBounds()), theRow.theBounds) << theRow.theName;
    }
}

TEST_F(LmWindowBindingTest, BoundsThatNoWindowCanHaveAreReported)
{
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    theBinding->SetKeyPathValue("bounds",
                                LmValue(MakeRect(10, 40, std::numeric_limits<float>::infinity(), 50)));
    EXPECT_EQ(TextOf(CarbonSpy::LastBounds()), "top 40, left 10, bottom 90, right 9");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)});
}

TEST_F(LmWindowBindingTest, SettingTheBoundsMovesTheContent)
{
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    theBinding->SetKeyPathValue("bounds", LmValue(MakeRect(100.7F, 120.2F, 300.9F, 150.5F)));
    EXPECT_EQ(BoundsOf(mWindow), "top 120, left 100, bottom 270, right 400");
}

// From the window to the keys --------------------------------------------------------------------------

TEST_F(LmWindowBindingTest, AChangeOfTheWindowReachesItsKeyAndIsNotWrittenBack)
{
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    CarbonSpy::TakeWrites();
    ShowWindow(mWindow);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing visible", "changed visible"}));
    EXPECT_TRUE(theBinding->GetKeyPathValue("visible").GetBoolean());
    CollapseWindow(mWindow, true);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing collapsed", "changed collapsed"}));
    EXPECT_TRUE(theBinding->GetKeyPathValue("collapsed").GetBoolean());
    CollapseWindow(mWindow, false);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing collapsed", "changed collapsed"}));
    EXPECT_FALSE(theBinding->GetKeyPathValue("collapsed").GetBoolean());
    const Rect theBounds = {100, 120, 200, 320};
    SetWindowBounds(mWindow, kWindowContentRgn, &theBounds);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing bounds", "changed bounds"}));
    EXPECT_TRUE(theBinding->GetKeyPathValue("bounds") == LmValue(MakeRect(120, 100, 200, 100)));
    SetWindowTitleWithCFString(mWindow, CFSTR("Named"));
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing title", "changed title"}));
    HideWindow(mWindow);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing visible", "changed visible"}));
    EXPECT_FALSE(theBinding->GetKeyPathValue("visible").GetBoolean());
    EXPECT_EQ(CarbonSpy::TakeWrites(), (Lines{"ShowWindow", "CollapseWindow", "CollapseWindow",
                                              "SetWindowBounds", "SetWindowTitleWithCFString", "HideWindow"}))
        << "only the test's own calls";
}

TEST_F(LmWindowBindingTest, EachEventReadsItsOwnKeyOnly)
{
    const struct
    {
        UInt32 theKind;
        const char* theKey;
    } kRows[] = {
        {kEventWindowShown, "visible"},        {kEventWindowHidden, "visible"},
        {kEventWindowCollapsed, "collapsed"},  {kEventWindowExpanded, "collapsed"},
        {kEventWindowBoundsChanged, "bounds"}, {kEventWindowTitleChanged, "title"},
        {kEventWindowActivated, ""},
    };
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    for (const auto& theRow : kRows) {
        for (const char* theKey : kKeys) {
            theBinding->LmKeyValueStore::SetKeyValue(theKey, LmValue(5UL));
        }
        const TestEvent theEvent(kEventClassWindow, theRow.theKind);
        EXPECT_EQ(theBinding->DoEventWindow(theEvent.GetEvent(), theRow.theKind), eventNotHandledErr);
        for (const char* theKey : kKeys) {
            const bool isStale = theBinding->GetKeyPathValue(theKey).GetType() == kTypeUInt32;
            EXPECT_EQ(isStale, std::string(theKey) != theRow.theKey) << theRow.theKind << ' ' << theKey;
        }
    }
}

TEST_F(LmWindowBindingTest, AFailingReadPrintsItsStatus)
{
    LmWindowBinding* theBinding = new LmWindowBinding(mWindow);
    CarbonSpy::Fail("CopyWindowTitleAsCFString", paramErr);
    theBinding->SyncValue("title");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)});
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Untitled") << "the key stays as it is";
    CarbonSpy::Fail("GetWindowBounds", paramErr);
    theBinding->SyncValue("bounds");
    // The empty rectangle that was read is set like any other, and so reaches the window.
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), (Lines{StatusLine(paramErr), StatusLine(paramErr)}));
    EXPECT_TRUE(theBinding->GetKeyPathValue("bounds") == LmValue(MakeRect(0, 0, 0, 0)));
}

TEST_F(LmWindowBindingTest, EarlierHandlersHearTheWindowsEventsToo)
{
    int theCount = 0;
    const EventTypeSpec theType = {kEventClassWindow, kEventWindowShown};
    InstallWindowEventHandler(mWindow, NewEventHandlerUPP(CountEvent), 1, &theType, &theCount, nullptr);
    new LmWindowBinding(mWindow);
    ShowWindow(mWindow);
    EXPECT_EQ(theCount, 1);
}

TEST_F(LmWindowBindingTest, EventsOfOtherClassesAreNotHandled)
{
    LmWindowBinding theBinding;
    const TestEvent theEvent(kEventClassMouse, kEventMouseDown);
    EXPECT_EQ(LmWindowBinding::EventHandler(nullptr, theEvent.GetEvent(), &theBinding), eventNotHandledErr);
    EXPECT_EQ(theBinding.DoEventWindow(theEvent.GetEvent(), kEventMouseDown), eventNotHandledErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{"Source/Bindings/LmWindowBinding.cpp, line #: "
                                                             "GetEventClass(theEvent) == kEventClassWindow"});
}

// Death ------------------------------------------------------------------------------------------------

TEST_F(LmWindowBindingTest, ClosingTheWindowDeletesTheBinding)
{
    bool isGone = false;
    new Mortal<LmWindowBinding>(isGone, mWindow);
    CloseWindow();
    EXPECT_TRUE(isGone);
}

class Closer : public LmKeyValueObserver
{
public:
    explicit Closer(WindowRef& theWindow)
        : mWindow(theWindow)
    {
    }

    void ValueChanged(const LmKeyValueStore*, const LmString&) override
    {
        DisposeWindow(mWindow);
        mWindow = nullptr;
    }

private:
    WindowRef& mWindow;
};

TEST_F(LmWindowBindingTest, TheWindowMayBeClosedByAnObserverOfItsOwnChange)
{
    bool isGone = false;
    Closer theCloser(mWindow);
    (new Mortal<LmWindowBinding>(isGone, mWindow))->ObserveKeyPathValue("title", &theCloser);
    SetWindowTitleWithCFString(mWindow, CFSTR("Named"));
    EXPECT_TRUE(isGone);
}

TEST_F(LmWindowBindingTest, TheWindowMayBeClosedWhileItsKeyIsSet)
{
    bool isGone = false;
    Closer theCloser(mWindow);
    LmWindowBinding* theBinding = new Mortal<LmWindowBinding>(isGone, mWindow);
    theBinding->ObserveKeyPathValue("title", &theCloser);
    theBinding->SetKeyPathValue("title", TextValue("Named"));
    EXPECT_TRUE(isGone);
}

TEST_F(LmWindowBindingTest, TheWindowMayBeClosedWhileItIsAttached)
{
    bool isGone = false;
    Closer theCloser(mWindow);
    LmWindowBinding* theBinding = new Mortal<LmWindowBinding>(isGone, nullptr);
    theBinding->ObserveKeyPathValue("collapsed", &theCloser);
    theBinding->SetWindow(mWindow);
    EXPECT_TRUE(isGone);
}

} // namespace
