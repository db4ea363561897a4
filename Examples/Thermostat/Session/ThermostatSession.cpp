// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatSession.h"

#include "ThermostatModel.h"
#include "ThermostatWindow.h"

#include <cstdio>

using Host::UserResult;

namespace {

// Long enough to be a real wait of the event loop, short enough not to be noticed.
const EventTimerInterval kPause = kEventDurationMillisecond;

const size_t kLongestRoomName = 20;

} // namespace

ThermostatSession::ThermostatSession(ThermostatModel& theModel, WindowRef theWindow)
    : mModel(theModel),
      mWindow(theWindow)
{
    WriteScript();
}

ThermostatSession::~ThermostatSession()
{
    if (mTimer != nullptr) {
        RemoveEventLoopTimer(mTimer);
    }
}

void ThermostatSession::WriteScript()
{
    Program("The application has opened its window.", [] {});
    Person("The person drags the slider to 24.",
           [this] { return mUser.DragSlider(Control(kTargetSlider), 24); });
    Person("The person clears the check box: no power, and the model disables the slider.",
           [this] { return mUser.Click(Control(kHeatingBox)); });
    Person("The person checks it again.", [this] { return mUser.Click(Control(kHeatingBox)); });
    Person("The person types another name over the room's. The model waits for the end of it.",
           [this] { return TypeOverRoomName("Kitchen"); });
    Person("The person presses Tab: that ends the name.", [this] { return mUser.PressKey(kVK_Tab); });
    Person("The person types a third name and presses Return, which ends it and keeps the field.",
           [this] { return TypeOverRoomName("Attic\n"); });
    Program("The program lowers the target to 16, by setting the model's key.",
            [this] { mModel.SetKeyPathValue(kModelTarget, LmValue(16UL)); });
    Program("The program turns the heating off, by setting the model's key.",
            [this] { mModel.SetKeyPathValue(kModelHeating, LmValue(false)); });
    Person("The person closes the window, and the application ends. (The status -50 is how\n"
           "the library reports the end of a one-way binding to a key that nothing else was bound to.)",
           [this] {
               const UserResult theResult = mUser.CloseWindow(mWindow);
               mWindow = nullptr;
               return theResult;
           });
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
    return Host::ControlAddress(mWindow, ControlID{kThermostatSignature, theNumber});
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
    for (size_t theIndex = 0; theIndex < theLines.size(); ++theIndex) {
        const bool theIsNew = theIndex >= mShownLines.size() || theLines[theIndex] != mShownLines[theIndex];
        std::printf("  %s %s\n", theIsNew && !mShownLines.empty() ? "->" : "  ", theLines[theIndex].c_str());
    }
    std::fflush(stdout);
    mShownLines.swap(theLines);
}

std::vector<std::string> ThermostatSession::DescribeState() const
{
    std::vector<std::string> theLines;
    if (mWindow != nullptr) {
        for (const SInt32 theNumber : {kRoomField, kHeatingBox, kTargetSlider, kTargetText, kPowerBar}) {
            theLines.push_back(mUser.DescribeControl(Control(theNumber)));
        }
    }
    theLines.push_back(DescribeModel());
    return theLines;
}

std::string ThermostatSession::DescribeModel() const
{
    char theRoom[100] = "";
    CFStringGetCString(mModel.GetKeyPathValue(kModelRoom).GetString(), theRoom, sizeof theRoom,
                       kCFStringEncodingUTF8);
    char theText[200];
    std::snprintf(theText, sizeof theText, "model: room \"%s\", heating %s, target %ld, power %ld %%",
                  theRoom, mModel.GetKeyPathValue(kModelHeating).GetBoolean() ? "on" : "off",
                  mModel.GetKeyPathValue(kModelTarget).GetSInt32(),
                  mModel.GetKeyPathValue(kModelPower).GetSInt32());
    return theText;
}
