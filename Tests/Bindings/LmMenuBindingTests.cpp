// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "BindingTestSupport.h"
#include "CarbonSpy.h"
#include "LmMenuBinding.h"
#include "NotificationRecorder.h"

#include <gtest/gtest.h>

namespace {

const MenuCommand kHeating = 'heat';
const MenuCommand kReset = 'rset';
const char kAssertNoMenu[] = "Source/Bindings/LmMenuBinding.cpp, line #: mMenu != NULL";
const char* const kKeys[] = {"mark", "enabled", "title"};

std::string StatusLine(OSStatus theStatus)
{
    return "Source/Bindings/LmMenuBinding.cpp, line #: Error " + std::to_string(theStatus);
}

class LmMenuBindingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        CarbonSpy::Reset();
        ClearMenuBar();
        ASSERT_EQ(CreateNewMenu(128, 0, &mMenu), noErr);
        SetMenuTitleWithCFString(mMenu, CFSTR("Thermostat"));
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Reset"), 0, kReset, nullptr);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Heating On"), 0, kHeating, nullptr);
        InsertMenu(mMenu, 0);
    }

    void TearDown() override
    {
        CarbonSpy::Reset();
        RemoveMenu();
    }

    // Takes the menu out of the bar and gives the last reference back.
    void RemoveMenu()
    {
        if (mMenu != nullptr) {
            MenuRef theMenu = mMenu;
            mMenu = nullptr;
            DeleteMenu(128);
            DisposeMenu(theMenu);
        }
    }

    UniChar GetMark() const
    {
        UniChar theMark = 0xFFFF;
        GetMenuCommandMark(mMenu, kHeating, &theMark);
        return theMark;
    }

    std::string GetTitle(MenuItemIndex theItem) const
    {
        CFStringRef theTitle = nullptr;
        CopyMenuItemTextAsCFString(mMenu, theItem, &theTitle);
        return TextOfAdopted(theTitle);
    }

    static void ObserveAll(LmMenuBinding* theBinding, NotificationRecorder& theRecorder)
    {
        for (const char* theKey : kKeys) {
            theBinding->ObserveKeyPathValue(theKey, &theRecorder);
        }
    }

    // Asks for the state of a command, as Carbon does before a menu opens.
    OSStatus AskForStatus(MenuCommand theCommand, UInt32 theAttributes) const
    {
        HICommand theHICommand = {};
        theHICommand.attributes = theAttributes;
        theHICommand.commandID = theCommand;
        theHICommand.menu.menuRef = mMenu;
        theHICommand.menu.menuItemIndex = 2;
        const TestEvent theEvent(kEventClassCommand, kEventCommandUpdateStatus);
        SetEventParameter(theEvent.GetEvent(), kEventParamDirectObject, typeHICommand, sizeof theHICommand,
                          &theHICommand);
        return SendEventToEventTarget(theEvent.GetEvent(), GetMenuEventTarget(mMenu));
    }

    MenuRef mMenu = nullptr;
};

// Without a command ------------------------------------------------------------------------------------

TEST_F(LmMenuBindingTest, ABindingWithoutACommandOnlyStoresItsKeys)
{
    LmMenuBinding theBinding;
    EXPECT_EQ(theBinding.GetMenuCommand(), 0U);
    for (const char* theKey : kKeys) {
        theBinding.SetKeyPathValue(theKey, LmValue(1UL));
        EXPECT_TRUE(theBinding.HasKey(theKey)) << theKey;
    }
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
    EXPECT_STREQ(theBinding.GetDebugInfo().GetUTF8(), "[MenuCommand '', \"\"]");
}

TEST_F(LmMenuBindingTest, ACommandThatNoMenuHoldsIsReportedAndReadThroughANullMenu)
{
    LmMenuBinding theBinding('none');
    // The search and the mark that it does not find, the text of an item that is not there; between them the
    // assertion of each of the three reads.
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{StatusLine(menuItemNotFoundErr), kAssertNoMenu, StatusLine(menuItemNotFoundErr),
                     kAssertNoMenu, kAssertNoMenu, StatusLine(menuInvalidErr)}));
    EXPECT_EQ(theBinding.GetMenuCommand(), UInt32{'none'});
    EXPECT_FALSE(theBinding.GetKeyPathValue("mark").GetBoolean());
    EXPECT_FALSE(theBinding.GetKeyPathValue("enabled").GetBoolean());
    EXPECT_FALSE(theBinding.HasKey("title"));
    EXPECT_STREQ(theBinding.GetDebugInfo().GetUTF8(), "[MenuCommand 'none', \"\"]");
}

// Attaching --------------------------------------------------------------------------------------------

TEST_F(LmMenuBindingTest, AttachingReadsTheThreeKeysInOrderAndWritesNothingBack)
{
    LmMenuBinding* theBinding = new LmMenuBinding;
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    theBinding->SetMenuCommand(kHeating);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing mark", "changed mark", "changing enabled",
                                         "changed enabled", "changing title", "changed title"}));
    EXPECT_EQ(theBinding->GetKeyPathValue("mark").GetType(), kTypeBoolean);
    EXPECT_FALSE(theBinding->GetKeyPathValue("mark").GetBoolean());
    EXPECT_EQ(theBinding->GetKeyPathValue("enabled").GetType(), kTypeBoolean);
    EXPECT_TRUE(theBinding->GetKeyPathValue("enabled").GetBoolean());
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Heating On");
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
    EXPECT_EQ(theBinding->GetMenuCommand(), kHeating);
}

TEST_F(LmMenuBindingTest, ACommandInAHierarchicalMenuIsFound)
{
    MenuRef theUnits = nullptr;
    CreateNewMenu(129, 0, &theUnits);
    AppendMenuItemTextWithCFString(theUnits, CFSTR("Celsius"), 0, 'cels', nullptr);
    SetMenuItemHierarchicalMenu(mMenu, 1, theUnits);
    DisposeMenu(theUnits);
    LmMenuBinding* theBinding = new LmMenuBinding('cels');
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Celsius");
}

TEST_F(LmMenuBindingTest, EveryNumberButZeroIsACommand)
{
    AppendMenuItemTextWithCFString(mMenu, CFSTR("First"), 0, 1, nullptr);
    LmMenuBinding* theBinding = new LmMenuBinding(1);
    EXPECT_EQ(theBinding->GetMenuCommand(), 1U);
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "First");
    EXPECT_NE(std::string(theBinding->GetDebugInfo().GetUTF8()).find("\"First\""), std::string::npos);
    theBinding->SetKeyPathValue("title", TextValue("Second"));
    EXPECT_EQ(GetTitle(3), "Second");
}

TEST_F(LmMenuBindingTest, TheDebugTextShowsCommandAndItemText)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    EXPECT_STREQ(theBinding->GetDebugInfo().GetUTF8(), "[MenuCommand 'heat', \"Heating On\"]");
}

TEST_F(LmMenuBindingTest, TheDebugTextShowsTheWholeOfTheLongestText)
{
    const std::string theText(255, 'x');
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    theBinding->SetKeyPathValue("title", TextValue(theText.c_str()));
    EXPECT_EQ(std::string(theBinding->GetDebugInfo().GetUTF8()), "[MenuCommand 'heat', \"" + theText + "\"]");
}

TEST_F(LmMenuBindingTest, InitialisingSelfAttachesTheCommand)
{
    LmMenuBinding* theBinding = new LmMenuBinding;
    theBinding->InitialiseSelf(0);
    EXPECT_EQ(theBinding->GetMenuCommand(), 0U);
    theBinding->InitialiseSelf(kHeating);
    EXPECT_EQ(theBinding->GetMenuCommand(), kHeating);
    EXPECT_TRUE(theBinding->HasKey("title"));
}

// A second menu with the command "Heating", in front of the first one.
class OtherMenu
{
public:
    OtherMenu()
    {
        CreateNewMenu(130, 0, &mMenu);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Heating Elsewhere"), 0, kHeating, nullptr);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Cooling"), 0, kCooling, nullptr);
        InsertMenu(mMenu, 128);
        ReleaseMenu(mMenu);
    }
    ~OtherMenu() { Dispose(); }

    OtherMenu(const OtherMenu&) = delete;
    OtherMenu& operator=(const OtherMenu&) = delete;

    static void Dispose() { DeleteMenu(130); }
    MenuRef Get() const { return mMenu; }

    static constexpr MenuCommand kCooling = 'cool';

private:
    MenuRef mMenu = nullptr;
};

TEST_F(LmMenuBindingTest, TheBindingStaysWithTheMenuThatItHasFound)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    const OtherMenu theOther;
    theBinding->SetKeyPathValue("mark", LmValue(1UL));
    theBinding->SetKeyPathValue("enabled", LmValue(false));
    theBinding->SetKeyPathValue("title", TextValue("Warming"));
    EXPECT_EQ(GetMark(), checkMark);
    EXPECT_FALSE(IsMenuCommandEnabled(mMenu, kHeating));
    EXPECT_EQ(GetTitle(2), "Warming");
    UniChar theMark = 0xFFFF;
    GetMenuCommandMark(theOther.Get(), kHeating, &theMark);
    EXPECT_EQ(theMark, noMark);
    EXPECT_TRUE(IsMenuCommandEnabled(theOther.Get(), kHeating));
    theBinding->SyncValue("enabled");
    EXPECT_FALSE(theBinding->GetKeyPathValue("enabled").GetBoolean());
    theBinding->SyncValue("mark");
    EXPECT_TRUE(theBinding->GetKeyPathValue("mark").GetBoolean());
    theBinding->SetKeyPathValue("enabled", LmValue(true));
    EXPECT_TRUE(IsMenuCommandEnabled(mMenu, kHeating));
}

TEST_F(LmMenuBindingTest, ACommandOfAnotherMenuTakesTheHandlerThere)
{
    const OtherMenu theOther;
    bool isGone = false;
    LmMenuBinding* theBinding = new Mortal<LmMenuBinding>(isGone, kReset);
    theBinding->SetMenuCommand(OtherMenu::kCooling);
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Cooling");
    RemoveMenu();
    EXPECT_FALSE(isGone) << "the first menu is nothing to the binding any more";
    OtherMenu::Dispose();
    EXPECT_TRUE(isGone);
}

TEST_F(LmMenuBindingTest, DetachingKeepsTheKeysAndStopsListening)
{
    LmMenuBinding theBinding(kHeating);
    theBinding.SetMenuCommand(0);
    EXPECT_EQ(theBinding.GetMenuCommand(), 0U);
    SetMenuCommandMark(mMenu, kHeating, checkMark);
    AskForStatus(kHeating, kHICommandFromMenu);
    EXPECT_FALSE(theBinding.GetKeyPathValue("mark").GetBoolean());
    theBinding.SetKeyPathValue("title", TextValue("Cooling On"));
    EXPECT_EQ(GetTitle(2), "Heating On");
}

TEST_F(LmMenuBindingTest, AttachingToAnotherCommandReadsItsState)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    theBinding->SetMenuCommand(kReset);
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Reset");
    theBinding->SetKeyPathValue("title", TextValue("Start Over"));
    EXPECT_EQ(GetTitle(1), "Start Over");
    EXPECT_EQ(GetTitle(2), "Heating On");
}

// From the keys to the menu ----------------------------------------------------------------------------

TEST_F(LmMenuBindingTest, MarksAreWrittenAsNumbersAndReadAsBooleansOnPurpose)
{
    const struct
    {
        unsigned long theNumber;
        UniChar theMark;
        LmValue theReadValue;
    } kRows[] = {
        {1, checkMark, LmValue(true)},
        {5, diamondMark, LmValue(2UL)},
        {0, noMark, LmValue(false)},
        {2, diamondMark, LmValue(2UL)},
        {4294967295UL, diamondMark, LmValue(2UL)},
    };
    for (const auto& theRow : kRows) {
        LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
        theBinding->SetKeyPathValue("mark", LmValue(7UL));
        theBinding->SetKeyPathValue("mark", LmValue(theRow.theNumber));
        EXPECT_EQ(GetMark(), theRow.theMark) << theRow.theNumber;
        AskForStatus(kHeating, kHICommandFromMenu);
        theBinding->SetMenuCommand(0);
        LmMenuBinding* theReader = new LmMenuBinding(kHeating);
        EXPECT_EQ(theReader->GetKeyPathValue("mark").GetType(), theRow.theReadValue.GetType())
            << theRow.theNumber;
        EXPECT_TRUE(theReader->GetKeyPathValue("mark") == theRow.theReadValue) << theRow.theNumber;
        delete theReader;
        delete theBinding;
    }
}

TEST_F(LmMenuBindingTest, AMarkOfAnotherKindReadsAsTheNumberTwo)
{
    SetMenuCommandMark(mMenu, kHeating, 'x');
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    EXPECT_EQ(theBinding->GetKeyPathValue("mark").GetType(), kTypeUInt32);
    EXPECT_EQ(theBinding->GetKeyPathValue("mark").GetUInt32(), 2UL);
}

TEST_F(LmMenuBindingTest, SettingEnabledEnablesAndDisablesTheCommand)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    theBinding->SetKeyPathValue("enabled", LmValue(false));
    EXPECT_FALSE(IsMenuCommandEnabled(mMenu, kHeating));
    EXPECT_TRUE(IsMenuCommandEnabled(mMenu, kReset));
    theBinding->SetKeyPathValue("enabled", LmValue(true));
    EXPECT_TRUE(IsMenuCommandEnabled(mMenu, kHeating));
}

TEST_F(LmMenuBindingTest, SettingTheTitleRenamesOnlyTheItemThatWasFound)
{
    AppendMenuItemTextWithCFString(mMenu, CFSTR("Heating, Again"), 0, kHeating, nullptr);
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    theBinding->SetKeyPathValue("title", TextValue("Cooling On"));
    EXPECT_EQ(GetTitle(2), "Cooling On");
    EXPECT_EQ(GetTitle(3), "Heating, Again");
}

// From the menu to the keys ----------------------------------------------------------------------------

TEST_F(LmMenuBindingTest, AskingForTheStatusReadsMarkAndEnabledButNotTheTitle)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    SetMenuCommandMark(mMenu, kHeating, checkMark);
    DisableMenuCommand(mMenu, kHeating);
    SetMenuItemTextWithCFString(mMenu, 2, CFSTR("Cooling On"));
    EXPECT_EQ(theRecorder.Take(), Lines{});
    CarbonSpy::TakeWrites();
    EXPECT_EQ(AskForStatus(kHeating, kHICommandFromMenu), eventNotHandledErr);
    EXPECT_EQ(theRecorder.Take(),
              (Lines{"changing mark", "changed mark", "changing enabled", "changed enabled"}));
    EXPECT_TRUE(theBinding->GetKeyPathValue("mark").GetBoolean());
    EXPECT_FALSE(theBinding->GetKeyPathValue("enabled").GetBoolean());
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Heating On");
    EXPECT_EQ(CarbonSpy::TakeWrites(), Lines{});
}

TEST_F(LmMenuBindingTest, AnotherCommandOrOneThatIsNotFromAMenuChangesNoKey)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    NotificationRecorder theRecorder;
    ObserveAll(theBinding, theRecorder);
    SetMenuCommandMark(mMenu, kHeating, checkMark);
    AskForStatus(kReset, kHICommandFromMenu);
    AskForStatus(kHeating, 0);
    AskForStatus(kHeating, kHICommandFromControl);
    EXPECT_EQ(theRecorder.Take(), Lines{});
    AskForStatus(kHeating, kHICommandFromMenu | kHICommandFromControl);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing mark", "changed mark"})) << "from a menu as well";
}

// Lets the menu send an event while it is told of a change, and then sets the title.
class MenuCloser : public LmKeyValueObserver
{
public:
    explicit MenuCloser(LmMenuBinding* theBinding)
        : mBinding(theBinding)
    {
    }

    void ValueChanged(const LmKeyValueStore*, const LmString&) override
    {
        const TestEvent theEvent(kEventClassMenu, kEventMenuClosed);
        mBinding->DoEventMenu(theEvent.GetEvent(), kEventMenuClosed);
        mBinding->SetKeyPathValue("title", TextValue("Cooling On"));
    }

private:
    LmMenuBinding* mBinding;
};

TEST_F(LmMenuBindingTest, AMenuEventLetsKeysBeWrittenAgain)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    MenuCloser theCloser(theBinding);
    theBinding->ObserveKeyPathValue("mark", &theCloser);
    SetMenuCommandMark(mMenu, kHeating, checkMark);
    AskForStatus(kHeating, kHICommandFromMenu);
    EXPECT_EQ(GetTitle(2), "Cooling On");
}

TEST_F(LmMenuBindingTest, OtherKindsOfCommandEventsChangeNoKey)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    SetMenuCommandMark(mMenu, kHeating, checkMark);
    const TestEvent theEvent(kEventClassCommand, kEventCommandProcess);
    EXPECT_EQ(theBinding->DoEventCommand(theEvent.GetEvent(), kEventCommandProcess), eventNotHandledErr);
    EXPECT_FALSE(theBinding->GetKeyPathValue("mark").GetBoolean());
    theBinding->SetKeyPathValue("mark", LmValue(5UL));
    EXPECT_EQ(GetMark(), diamondMark) << "the update flag is set again";
}

TEST_F(LmMenuBindingTest, AnEventWithoutACommandIsReported)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    const TestEvent theEvent(kEventClassCommand, kEventCommandUpdateStatus);
    EXPECT_EQ(theBinding->DoEventCommand(theEvent.GetEvent(), kEventCommandUpdateStatus), eventNotHandledErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(eventParameterNotFoundErr)});
}

TEST_F(LmMenuBindingTest, AFailingReadPrintsItsStatus)
{
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    CarbonSpy::Fail("CopyMenuItemTextAsCFString", paramErr);
    theBinding->SyncValue("title");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)});
    EXPECT_EQ(TextOf(theBinding->GetKeyPathValue("title")), "Heating On") << "the key stays as it is";
    CarbonSpy::Fail("GetMenuCommandMark", paramErr);
    theBinding->SyncValue("mark");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{StatusLine(paramErr)});
    EXPECT_FALSE(theBinding->GetKeyPathValue("mark").GetBoolean());
}

TEST_F(LmMenuBindingTest, EarlierHandlersAreAskedForTheStatusToo)
{
    int theCount = 0;
    const EventTypeSpec theType = {kEventClassCommand, kEventCommandUpdateStatus};
    InstallMenuEventHandler(mMenu, NewEventHandlerUPP(CountEvent), 1, &theType, &theCount, nullptr);
    new LmMenuBinding(kHeating);
    AskForStatus(kHeating, kHICommandFromMenu);
    EXPECT_EQ(theCount, 1);
}

TEST_F(LmMenuBindingTest, EventsOfOtherClassesAreNotHandledAndTheBranchesAssertTheirs)
{
    LmMenuBinding theBinding;
    const TestEvent theEvent(kEventClassMouse, kEventMouseDown);
    EXPECT_EQ(LmMenuBinding::EventHandler(nullptr, theEvent.GetEvent(), &theBinding), eventNotHandledErr);
    EXPECT_EQ(theBinding.DoEventMenu(theEvent.GetEvent(), kEventMouseDown), eventNotHandledErr);
    EXPECT_EQ(theBinding.DoEventCommand(theEvent.GetEvent(), kEventCommandProcess), eventNotHandledErr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{"Source/Bindings/LmMenuBinding.cpp, line #: GetEventClass(theEvent) == kEventClassMenu",
                     "Source/Bindings/LmMenuBinding.cpp, line #: "
                     "GetEventClass(theEvent) == kEventClassCommand"}));
}

// Following --------------------------------------------------------------------------------------------

TEST_F(LmMenuBindingTest, NoKeyOfACommandIsBindable)
{
    LmMenuBinding theBinding;
    for (const char* theKey : {"mark", "enabled", "title", "colour", "*", ""}) {
        EXPECT_FALSE(theBinding.IsBindable(theKey)) << theKey;
    }
}

TEST_F(LmMenuBindingTest, ACommandFollowsAModelButDoesNotDriveIt)
{
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("heating", LmValue(true));
    LmMenuBinding* theBinding = new LmMenuBinding(kHeating);
    EXPECT_EQ(theModel.Bind("heating", theBinding, "mark", nullptr, nullptr), paramErr);
    EXPECT_EQ(theModel.BindTo("heating", theBinding, "mark", nullptr), paramErr);
    EXPECT_EQ(theBinding->Bind("mark", &theModel, "heating", nullptr, nullptr), paramErr);
    EXPECT_EQ(theModel.Unbind("heating", theBinding), paramErr) << "no binding was made";
    EXPECT_EQ(theBinding->BindTo("mark", &theModel, "heating", nullptr), noErr);
    EXPECT_EQ(GetMark(), checkMark);
    theModel.SetKeyPathValue("heating", LmValue(false));
    EXPECT_EQ(GetMark(), noMark);
    delete theBinding;
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueBinding.cpp, line #: Error -50"});
}

// Death ------------------------------------------------------------------------------------------------

TEST_F(LmMenuBindingTest, DisposingTheMenuDeletesTheBinding)
{
    bool isGone = false;
    new Mortal<LmMenuBinding>(isGone, kHeating);
    RemoveMenu();
    EXPECT_TRUE(isGone);
}

TEST_F(LmMenuBindingTest, OtherMenuEventsLeaveTheBindingAlone)
{
    bool isGone = false;
    LmMenuBinding* theBinding = new Mortal<LmMenuBinding>(isGone, kHeating);
    const TestEvent theEvent(kEventClassMenu, kEventMenuClosed);
    EXPECT_EQ(theBinding->DoEventMenu(theEvent.GetEvent(), kEventMenuClosed), eventNotHandledErr);
    EXPECT_FALSE(isGone);
    RemoveMenu();
    EXPECT_TRUE(isGone);
}

TEST_F(LmMenuBindingTest, AnObserverMayDeleteTheBindingWhileTheStatusIsAsked)
{
    bool isGone = false;
    auto* const theBinding = new Mortal<LmMenuBinding>(isGone, kHeating);
    NotificationRecorder theRecorder;
    theBinding->ObserveKeyPathValue("enabled", &theRecorder);
    BindingDeleter theDeleter(theBinding);
    theBinding->ObserveKeyPathValue("mark", &theDeleter);
    SetMenuCommandMark(mMenu, kHeating, checkMark);
    DisableMenuCommand(mMenu, kHeating);
    AskForStatus(kHeating, kHICommandFromMenu);
    EXPECT_TRUE(isGone);
    EXPECT_EQ(theDeleter.GetCount(), 1);
    EXPECT_EQ(theRecorder.Take(), Lines{}) << "the second key is not copied any more";
}

TEST_F(LmMenuBindingTest, AnObserverMayDeleteTheBindingWhileItAttaches)
{
    bool isGone = false;
    auto* const theBinding = new Mortal<LmMenuBinding>(isGone);
    NotificationRecorder theRecorder;
    theBinding->ObserveKeyPathValue("enabled", &theRecorder);
    BindingDeleter theDeleter(theBinding);
    theBinding->ObserveKeyPathValue("mark", &theDeleter);
    theBinding->SetMenuCommand(kHeating);
    EXPECT_TRUE(isGone);
    EXPECT_EQ(theDeleter.GetCount(), 1);
    EXPECT_EQ(theRecorder.Take(), Lines{}) << "the second key is not copied any more";
}

} // namespace
