// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ManagerTestSupport_h
#define ManagerTestSupport_h

#include "ControlKinds.h"
#include "EventTestSupport.h"

#include <gtest/gtest.h>
#include <memory>
#include <Presentation/PresenterRegistry.h>

// Notes the events that arrive at a target as "name: event", and lets the test answer them:
//
//     EventWatch theWatch(GetControlEventTarget(theSlider), "slider", theLog,
//                         {{kEventClassControl, kEventControlValueFieldChanged}});
//
// The name of each event is the platform's without kEvent and class ("ValueFieldChanged"). Control and window
// events that come up from another object are noted with "from below".
class EventWatch
{
public:
    using Action = std::function<OSStatus(EventRef)>;

    EventWatch(EventTargetRef theTarget, std::string theName, Log& theLog,
               std::vector<EventTypeSpec> theTypes, Action theAction = nullptr);
    ~EventWatch();
    EventWatch(const EventWatch&) = delete;
    EventWatch& operator=(const EventWatch&) = delete;

    // Every kind of event that the managers send to controls and windows.
    static std::vector<EventTypeSpec> ControlEvents();
    static std::vector<EventTypeSpec> ControlNotifications(); // without requests for data and focus
    static std::vector<EventTypeSpec> WindowEvents();

private:
    static OSStatus Call(EventHandlerCallRef theCall, EventRef theEvent, void* theUserData);

    std::string mName;
    Log& mLog;
    Action mAction;
    EventHandlerRef mReference = nullptr;
};

// The name of an event's class and kind, or the numbers of one that is not known here.
std::string NameOf(EventRef theEvent);

std::string TextOf(CFStringRef theString);
std::string Describe(const Rect& theRect); // "left, top, right, bottom"
Rect MakeRect(int theLeft, int theTop, int theRight, int theBottom);

// A string that is released at the end.
class TestString
{
public:
    explicit TestString(const char* theText)
        : mString(CFStringCreateWithCString(nullptr, theText, kCFStringEncodingUTF8))
    {
    }
    ~TestString() { CFRelease(mString); }
    TestString(const TestString&) = delete;
    TestString& operator=(const TestString&) = delete;
    operator CFStringRef() const { return mString; }

private:
    CFStringRef mString;
};

// A shown document window with the standard handler, whose content is 400 by 300 at 100, 100.
class ManagerTest : public testing::Test
{
protected:
    ManagerTest();
    ~ManagerTest() override;

    static WindowRef NewWindow(WindowClass theClass = kDocumentWindowClass,
                               WindowAttributes theAttributes = kWindowStandardDocumentAttributes |
                                                                kWindowStandardHandlerAttribute);

    ControlRef NewSlider(SInt32 theValue = 5, SInt32 theMinimum = 0, SInt32 theMaximum = 10,
                         bool theIsLive = false);
    ControlRef NewPushButton(const char* theTitle = "Button");
    ControlRef NewCheckBox(SInt32 theValue = 0, bool theAutoToggle = true);
    ControlRef NewRadioButton(SInt32 theValue = 0, bool theAutoToggle = true);
    ControlRef NewEditText(const char* theText = "");
    ControlRef NewStaticText(const char* theText = "");
    ControlRef NewGroupBox();

    void Watch(ControlRef theControl, const std::string& theName,
               std::vector<EventTypeSpec> theTypes = EventWatch::ControlNotifications(),
               EventWatch::Action theAction = nullptr);
    void Watch(WindowRef theWindow, const std::string& theName,
               std::vector<EventTypeSpec> theTypes = EventWatch::WindowEvents(),
               EventWatch::Action theAction = nullptr);

    // What was noted since the last call.
    Log TakeLog();

    // Mouse and keys as the gate delivers them, at points of the window's content.
    OSStatus Mouse(UInt32 theKind, int theAcross, int theDown, UInt32 theModifiers = 0);
    void Click(int theAcross, int theDown);
    OSStatus Key(UInt32 theCode, const char* theText = "", UInt32 theModifiers = 0);
    void Type(const std::string& theText);

    std::string TextIn(ControlRef theControl) const;

    Log mLog;
    WindowRef mWindow = nullptr;

private:
    std::vector<std::unique_ptr<EventWatch>> mWatches;
};

// A control of every kind in turn.
class EveryControl : public ManagerTest, public testing::WithParamInterface<KindRow>
{
protected:
    static const Rect kBounds;

    ControlRef Make();
};

// What changes and hits of controls send, without the hilite on the way.
extern const std::vector<EventTypeSpec> kWithoutHilite;

// What tests of single kinds of controls have in common: data that are flags, actions, fields and the focus.
class ControlKindTest : public ManagerTest
{
protected:
    ControlKindTest() { Actions().clear(); }

    // Reads a flag, turns it over and tries wrong sizes.
    static void CheckFlag(ControlRef theControl, ResType theTag, bool theStart);

    // What a presenter is told that it looks like.
    static Host::ControlLook LookOf(ControlRef theControl);

    // The parts that action procedures were called with.
    static std::vector<int>& Actions();
    static void NoteAction(ControlRef theControl, ControlPartCode thePart);

    ControlRef NewLittleArrows(ControlActionUPP theAction = nullptr);

    // An edit text at a place of its own.
    ControlRef NewFieldAt(int theLeft, int theTop, const char* theText = "");

    ControlRef Focus() const;
    OSErr SetFocus(ControlRef theControl);
    static void Select(ControlRef theField, SInt16 theStart, SInt16 theEnd);
    static std::string Selection(ControlRef theField);

private:
    static bool Flag(ControlRef theControl, ResType theTag);
};

// What tests of windows have in common.
class WindowTest : public ManagerTest
{
protected:
    using Windows = std::vector<WindowRef>;

    static const WindowAttributes kStandard =
        kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute;

    static Rect Bounds(WindowRef theWindow, WindowRegionCode theRegion);
    static std::string Content(WindowRef theWindow);
    static std::string Title(WindowRef theWindow);

    // Every window, front to back.
    static Windows Order();

    // Whether another window keeps a person from this one, which is shown.
    static bool IsClosedOff(WindowRef theWindow);

    static Host::PresenterEvents& Person() { return Host::PresenterRegistry::Events(); }
};

#endif
