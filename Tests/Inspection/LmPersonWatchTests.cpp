// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "JournalReader.h"
#include "LmControlBinding.h"

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
