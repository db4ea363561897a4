// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "JournalReader.h"
#include "LmControlBinding.h"
#include "LmWindowBinding.h"

#include <algorithm>
#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <Simulation/UserSimulator.h>

namespace {

const UInt32 kSlider = 'slid';

WindowRef MakeWindow()
{
    const Rect thePlace = {100, 100, 300, 400};
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &thePlace, &theWindow);
    ControlRef theRoot = nullptr;
    CreateRootControl(theWindow, &theRoot);
    ShowWindow(theWindow);
    return theWindow;
}

ControlRef MakeSlider(WindowRef theWindow)
{
    const Rect thePlace = {10, 10, 30, 210};
    ControlRef theControl = nullptr;
    CreateSliderControl(theWindow, &thePlace, 10, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theControl);
    const ControlID theID = {kSlider, 1};
    SetControlID(theControl, &theID);
    return theControl;
}

bool Has(const std::string& theLine, const char* theText)
{
    return theLine.find(theText) != std::string::npos;
}

// The first line with a text in it; an empty one when there is none.
const std::string& LineOf(const Lines& theLines, const char* theText)
{
    static const std::string kNone;
    const auto theFound = std::find_if(theLines.begin(), theLines.end(),
                                       [=](const std::string& theLine) { return Has(theLine, theText); });
    return theFound == theLines.end() ? kNone : *theFound;
}

// What an entry has that a line led to.
std::string CauseOf(const std::string& theLine)
{
    return R"("cause":)" + theLine.substr(5, theLine.find(',') - 5) + ",";
}

} // namespace

TEST(LmPersonWatch, MakesThePersonTheCauseOfWhatAControlSets)
{
    WindowRef theWindow = MakeWindow();
    const ControlRef theSlider = MakeSlider(theWindow);
    new LmControlBinding(theSlider); // deletes itself with the control
    Host::UserSimulator theUser;
    TestJournal theJournal;
    ASSERT_TRUE(theUser.DragSlider(theSlider, 60));
    const Lines theLines = theJournal.Take();
    // Down, one or several drags, up; the value moves in a drag.
    ASSERT_GE(theLines.size(), 6U);
    EXPECT_TRUE(Has(theLines.front(),
                    R"("what":"action","event":"kEventMouseDown","class":"mous","kind":1,"place":[)"));
    EXPECT_TRUE(
        Has(theLines.back(), R"("what":"action","event":"kEventMouseUp","class":"mous","kind":2,"place":[)"));
    std::size_t thePlace = 0;
    while (!Has(theLines[thePlace], R"("what":"event")")) {
        ASSERT_LT(++thePlace, theLines.size());
    }
    // A drag, the event of the control, which is new to the journal, and the two steps of its change.
    EXPECT_TRUE(Has(theLines[thePlace - 2], R"("event":"kEventMouseDragged")")) << theLines[thePlace - 2];
    const std::string theDrag = theLines[thePlace - 2].substr(5, theLines[thePlace - 2].find(',') - 5);
    EXPECT_TRUE(
        Has(theLines[thePlace], (R"("cause":)" + theDrag + R"(,"what":"event","object":{"id":1,)").c_str()));
    EXPECT_TRUE(
        Has(theLines[thePlace], R"("event":"kEventControlValueFieldChanged","class":"cntl","kind":151})"));
    EXPECT_TRUE(Has(theLines[thePlace + 1], R"("what":"changing")"));
    DisposeWindow(theWindow);
}

TEST(LmPersonWatch, WritesTheKeysThatArePressed)
{
    Host::UserSimulator theUser;
    TestJournal theJournal;
    theUser.PressKey(36);
    const Lines theExpected = {
        R"({"n":2,"what":"action","event":"kEventRawKeyDown","class":"keyb","kind":1,"code":36})",
        R"({"n":3,"what":"action","event":"kEventRawKeyUp","class":"keyb","kind":3,"code":36})"};
    EXPECT_EQ(theJournal.Take(), theExpected);
}

TEST(LmPersonWatch, MakesThePersonTheCauseOfWhatAWindowSets)
{
    const WindowRef theWindow = MakeWindow();
    SetWindowTitleWithCFString(theWindow, CFSTR("Kitchen"));
    new LmWindowBinding(theWindow); // deletes itself with the window
    Host::UserSimulator theUser;
    TestJournal theJournal;
    ASSERT_TRUE(theUser.MoveWindow(theWindow, 20, 10));
    const Lines theMoves = theJournal.Take();
    const std::string& theMove = LineOf(theMoves, R"("event":"kEventWindowDragStarted")");
    EXPECT_TRUE(Has(theMove, R"("class":"wind","kind":30,"title":"Kitchen"})")) << theMove;
    const std::string& theEvent = LineOf(theMoves, R"("what":"event")");
    EXPECT_TRUE(Has(theEvent, CauseOf(theMove).c_str())) << theEvent;
    const std::string& theChange = LineOf(theMoves, R"("what":"changed")");
    EXPECT_TRUE(Has(theChange, R"("key":"bounds")")) << theChange;
    EXPECT_TRUE(Has(theChange, CauseOf(theEvent).c_str())) << theChange;
    ASSERT_TRUE(theUser.CloseWindow(theWindow));
    const Lines theEnd = theJournal.Take();
    const std::string& theClosing = LineOf(theEnd, R"("event":"kEventWindowClose")");
    EXPECT_TRUE(Has(theClosing, R"("title":"Kitchen")")) << theClosing;
    EXPECT_TRUE(Has(LineOf(theEnd, R"("what":"event")"), CauseOf(theClosing).c_str()));
}

TEST(LmPersonWatch, MakesThePersonTheCauseOfWhatACommandSets)
{
    static LmKeyValueStore theStore;
    theStore.SetKeyPathValue("mode", LmValue(1));
    MenuRef theMenu = nullptr;
    CreateNewMenu(1, 0, &theMenu);
    SetMenuTitleWithCFString(theMenu, CFSTR("Mode"));
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Night"), 0, 'nigh', nullptr);
    SetMenuItemCommandKey(theMenu, 1, false, 'N');
    InsertMenu(theMenu, 0);
    static const EventTypeSpec kCommand = {kEventClassCommand, kEventCommandProcess};
    static const EventHandlerUPP kObey =
        NewEventHandlerUPP([](EventHandlerCallRef, EventRef, void*) -> OSStatus {
            theStore.SetKeyPathValue("mode", LmValue(theStore.GetKeyPathValue("mode").GetSInt32() + 1));
            return noErr;
        });
    EventHandlerRef theHandler = nullptr;
    InstallEventHandler(GetApplicationEventTarget(), kObey, 1, &kCommand, nullptr, &theHandler);
    Host::UserSimulator theUser;
    TestJournal theJournal;
    const std::string theChoice =
        R"("what":"action","event":"kEventCommandProcess","class":"cmds","kind":1,"title":"Night"})";
    ASSERT_TRUE(theUser.ChooseCommand('nigh'));
    const Lines theLines = theJournal.Take();
    EXPECT_NE(LineOf(theLines, "kEventMenuOpening"), "");
    const std::string& theAction = LineOf(theLines, "kEventCommandProcess");
    EXPECT_TRUE(Has(theAction, theChoice.c_str())) << theAction;
    EXPECT_TRUE(Has(LineOf(theLines, R"("what":"changed")"), CauseOf(theAction).c_str()));
    // By its key: the key is the person's action, and the choice follows from it.
    theUser.PressKey(45, cmdKey);
    const Lines theKeys = theJournal.Take("action");
    EXPECT_TRUE(Has(theKeys.at(0), R"("event":"kEventRawKeyDown")")) << theKeys.at(0);
    EXPECT_TRUE(Has(theKeys.at(1), theChoice.c_str())) << theKeys.at(1);
    RemoveEventHandler(theHandler);
    ClearMenuBar();
    DisposeMenu(theMenu);
}

TEST(LmPersonWatch, LetsTheJournalEndWhileAnEventIsOnItsWay)
{
    static const EventTypeSpec kKey = {kEventClassKeyboard, kEventRawKeyDown};
    static const EventHandlerUPP kEnd =
        NewEventHandlerUPP([](EventHandlerCallRef, EventRef, void*) -> OSStatus {
            LmEndJournal();
            return eventNotHandledErr;
        });
    EventHandlerRef theHandler = nullptr;
    InstallEventHandler(GetApplicationEventTarget(), kEnd, 1, &kKey, nullptr, &theHandler);
    Host::UserSimulator theUser;
    TestJournal theJournal;
    theUser.PressKey(36);
    EXPECT_EQ(theJournal.Take("end"), Lines{R"({"n":3,"what":"end","lost":0})"});
    RemoveEventHandler(theHandler);
}
