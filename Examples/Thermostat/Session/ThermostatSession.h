// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ThermostatSession_h
#define ThermostatSession_h

#include <Carbon/Carbon.h>
#include <Simulation/UserSimulator.h>

#include <functional>
#include <string>
#include <vector>

class ThermostatApplication;

// A scripted session: a person who is made of code uses the thermostat, and now and then the program changes
// something by itself. After every action it prints what the window, the menu and the model say, with an
// arrow at what has changed.
//
// The session runs inside the application's event loop: one action each time that a timer fires. Its last
// action ends the loop.
class ThermostatSession
{
public:
    // There are two scripts: the first tries everything, the second begins where another run has ended.
    enum Script
    {
        kFirstRun = 1,
        kSecondRun = 2
    };

    // theApplication must outlive the session.
    ThermostatSession(ThermostatApplication& theApplication, Script theScript);
    ~ThermostatSession();

    ThermostatSession(const ThermostatSession&) = delete;
    ThermostatSession& operator=(const ThermostatSession&) = delete;

    // Begins as soon as the event loop runs.
    void Start();

    // Whether the person could do everything.
    bool WasSuccessful() const { return mIsSuccessful; }

private:
    struct Action
    {
        std::string theText;
        std::function<Host::UserResult()> theDeed;
    };

    void WriteFirstRun();
    void WriteSecondRun();
    void WriteWindowActions();
    void Person(const std::string& theText, const std::function<Host::UserResult()>& theDeed);
    void Program(const std::string& theText, const std::function<void()>& theDeed);
    Host::ControlAddress Control(SInt32 theNumber) const;
    Host::UserResult TypeOverRoomName(const std::string& theText);

    static void TimerFired(EventLoopTimerRef theTimer, void* theSession);
    void DoNextAction();
    void Fail(const Host::UserResult& theResult);

    void PrintState();
    std::vector<std::string> DescribeState() const;
    void DescribeControls(std::vector<std::string>& theLines) const;
    std::string DescribeWindow() const;
    std::string DescribeModel() const;

    ThermostatApplication& mApplication;
    EventLoopTimerRef mTimer = nullptr;
    Host::UserSimulator mUser;
    std::vector<Action> mScript;
    size_t mNextAction = 0;
    std::vector<std::string> mShownLines; // the state after the action before
    bool mIsSuccessful = true;
};

#endif
