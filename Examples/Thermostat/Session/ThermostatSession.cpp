// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatSession.h"

#include "ThermostatApplication.h"
#include "ThermostatWindow.h"

#include <cstdio>

using Host::UserResult;

namespace {

// Long enough to be a real wait of the event loop, short enough not to be noticed.
const EventTimerInterval kPause = kEventDurationMillisecond;

const size_t kLongestRoomName = 20;

std::string TextOf(CFStringRef theString)
{
    char theText[200] = "";
    if (theString != nullptr) {
        CFStringGetCString(theString, theText, sizeof theText, kCFStringEncodingUTF8);
    }
    return theText;
}

// Takes over the caller's reference.
std::string TextOfAdopted(CFStringRef theString)
{
    std::string theText = TextOf(theString);
    if (theString != nullptr) {
        CFRelease(theString);
    }
    return theText;
}

std::string DescribeItem(MenuRef theMenu, MenuItemIndex theItem)
{
    CFStringRef theText = nullptr;
    CopyMenuItemTextAsCFString(theMenu, theItem, &theText);
    CharParameter theMark = noMark;
    GetItemMark(theMenu, theItem, &theMark);
    return std::string(theMark == noMark ? "" : "\u2713 ") + TextOfAdopted(theText) +
           (IsMenuItemEnabled(theMenu, theItem) ? "" : " (disabled)");
}

std::string DescribeMenu()
{
    const MenuRef theMenu = GetMenuHandle(kThermostatMenu);
    std::string theText = "menu: ";
    for (MenuItemIndex theItem = 1; theItem <= CountMenuItems(theMenu); ++theItem) {
        MenuItemAttributes theAttributes = 0;
        GetMenuItemAttributes(theMenu, theItem, &theAttributes);
        if ((theAttributes & kMenuItemAttrSeparator) != 0) {
            theText += "| ";
        } else {
            theText += DescribeItem(theMenu, theItem) + "  ";
        }
    }
    return theText.substr(0, theText.find_last_not_of(' ') + 1);
}

} // namespace

ThermostatSession::ThermostatSession(ThermostatApplication& theApplication, Script theScript)
    : mApplication(theApplication)
{
    if (theScript == kFirstRun) {
        WriteFirstRun();
    } else {
        WriteSecondRun();
    }
}

ThermostatSession::~ThermostatSession()
{
    if (mTimer != nullptr) {
        RemoveEventLoopTimer(mTimer);
    }
}

// The scripts ------------------------------------------------------------------------------------------

void ThermostatSession::WriteFirstRun()
{
    Program("The application has opened its window.", [] {});
    Person("The person drags the slider to 24.",
           [this] { return mUser.DragSlider(Control(kTargetSlider), 24); });
    Person("The person clears the check box: no power, and the model disables the slider.",
           [this] { return mUser.Click(Control(kHeatingBox)); });
    Person("The person chooses Heating On from the menu: all is as before.",
           [this] { return mUser.ChooseCommand(kCommandHeating); });
    Person("The person types another name over the room's. The model waits for the end of it.",
           [this] { return TypeOverRoomName("Kitchen"); });
    Person("The person presses Tab: that ends the name.", [this] { return mUser.PressKey(kVK_Tab); });
    Person("The person types a third name and presses Return, which ends it and keeps the field.",
           [this] { return TypeOverRoomName("Attic\n"); });
    Person("The person chooses Fahrenheit.", [this] { return mUser.ChooseCommand(kCommandFahrenheit); });
    Program("The program lowers the target to 16, by setting the model's key.",
            [this] { mApplication.GetModel().Set(kModelTarget, LmValue(16L)); });
    Program("The program turns the heating off, by setting the model's key.",
            [this] { mApplication.GetModel().Set(kModelHeating, LmValue(false)); });
    WriteWindowActions();
    Person("The person closes the window, and the application ends. (The status -50 is how\n"
           "the library reports the end of a one-way binding to a key that nothing else was bound to.)",
           [this] { return mUser.CloseWindow(mApplication.GetWindow()); });
}

void ThermostatSession::WriteWindowActions()
{
    Person("The person moves the window; the preferences will remember the place.",
           [this] { return mUser.MoveWindow(mApplication.GetWindow(), 240, 160); });
    Person("The person hides the window with the menu ...",
           [this] { return mUser.ChooseCommand(kCommandShown); });
    Person("... and shows it again.", [this] { return mUser.ChooseCommand(kCommandShown); });
}

void ThermostatSession::WriteSecondRun()
{
    Program("The application has opened its window: as the run before has left it.", [] {});
    Person("The person presses Command-R, which resets target, heating and unit.",
           [this] { return mUser.PressKey(kVK_ANSI_R, cmdKey); });
    Person("The person presses Command-Q.", [this] { return mUser.PressKey(kVK_ANSI_Q, cmdKey); });
}

void ThermostatSession::Person(const std::string& theText, const std::function<UserResult()>& theDeed)
{
    mScript.push_back({theText, theDeed});
}

void ThermostatSession::Program(const std::string& theText, const std::function<void()>& theDeed)
{
    mScript.push_back({theText, [theDeed] {
                           theDeed();
                           return UserResult::Done();
                       }});
}

// Actions ----------------------------------------------------------------------------------------------

Host::ControlAddress ThermostatSession::Control(SInt32 theNumber) const
{
    return Host::ControlAddress(mApplication.GetWindow(), ControlID{kThermostatSignature, theNumber});
}

UserResult ThermostatSession::TypeOverRoomName(const std::string& theText)
{
    UserResult theResult = mUser.Click(Control(kRoomField));
    if (theResult) {
        theResult = mUser.PressKey(kVK_End);
    }
    for (size_t theCount = 0; theResult && theCount < kLongestRoomName; ++theCount) {
        theResult = mUser.PressKey(kVK_Delete);
    }
    return theResult ? mUser.TypeText(theText) : theResult;
}

// Running ----------------------------------------------------------------------------------------------

void ThermostatSession::Start()
{
    static const EventLoopTimerUPP kTimer = NewEventLoopTimerUPP(TimerFired);
    InstallEventLoopTimer(GetMainEventLoop(), 0, kPause, kTimer, this, &mTimer);
}

void ThermostatSession::TimerFired(EventLoopTimerRef, void* theSession)
{
    static_cast<ThermostatSession*>(theSession)->DoNextAction();
}

void ThermostatSession::DoNextAction()
{
    if (mNextAction == mScript.size()) {
        return;
    }
    const Action& theAction = mScript[mNextAction++];
    std::printf("\n%s\n", theAction.theText.c_str());
    std::fflush(stdout);
    const UserResult theResult = theAction.theDeed();
    if (theResult) {
        PrintState();
    } else {
        Fail(theResult);
    }
}

void ThermostatSession::Fail(const UserResult& theResult)
{
    mIsSuccessful = false;
    std::printf("%s\n", theResult.Explain().c_str());
    QuitApplicationEventLoop();
}

// Printing ---------------------------------------------------------------------------------------------

void ThermostatSession::PrintState()
{
    std::vector<std::string> theLines = DescribeState();
    const bool isFirst = mShownLines.empty();
    mShownLines.resize(theLines.size());
    for (size_t theIndex = 0; theIndex < theLines.size(); ++theIndex) {
        const bool isNew = !isFirst && theLines[theIndex] != mShownLines[theIndex];
        std::printf("  %s %s\n", isNew ? "->" : "  ", theLines[theIndex].c_str());
    }
    std::fflush(stdout);
    mShownLines.swap(theLines);
}

std::vector<std::string> ThermostatSession::DescribeState() const
{
    std::vector<std::string> theLines = {DescribeModel(), DescribeMenu(), DescribeWindow()};
    if (IsValidWindowPtr(mApplication.GetWindow())) {
        DescribeControls(theLines);
    }
    return theLines;
}

void ThermostatSession::DescribeControls(std::vector<std::string>& theLines) const
{
    for (const SInt32 theNumber :
         {kRoomField, kHeatingBox, kTargetSlider, kTargetText, kUnitText, kPowerBar, kPowerText}) {
        theLines.push_back("  " + mUser.DescribeControl(Control(theNumber)));
    }
}

std::string ThermostatSession::DescribeWindow() const
{
    const WindowRef theWindow = mApplication.GetWindow();
    if (!IsValidWindowPtr(theWindow)) {
        return "window: closed";
    }
    CFStringRef theTitle = nullptr;
    CopyWindowTitleAsCFString(theWindow, &theTitle);
    Rect theBounds = {0, 0, 0, 0};
    GetWindowBounds(theWindow, kWindowContentRgn, &theBounds);
    return "window: \"" + TextOfAdopted(theTitle) + "\" at " + std::to_string(theBounds.left) + ", " +
           std::to_string(theBounds.top) + (IsWindowVisible(theWindow) ? "" : ", hidden");
}

std::string ThermostatSession::DescribeModel() const
{
    ThermostatModel& theModel = mApplication.GetModel();
    return "model: room \"" + TextOf(theModel.Get(kModelRoom).GetString()) + "\", heating " +
           (theModel.Get(kModelHeating).GetBoolean() ? "on" : "off") + ", target " +
           std::to_string(theModel.Get(kModelTarget).GetSInt32()) + ", power " +
           std::to_string(theModel.Get(kModelPower).GetSInt32()) + ", in " +
           (theModel.Get(kModelFahrenheit).GetBoolean() ? "Fahrenheit" : "Celsius");
}
