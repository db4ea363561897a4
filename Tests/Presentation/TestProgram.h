// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef TestProgram_h
#define TestProgram_h

#include <Carbon/Carbon.h>
#include <functional>
#include <string>
#include <vector>

#include "HeadlessSnapshot.h"

#include <Presentation/PresenterRegistry.h>

using Log = std::vector<std::string>;

inline Rect MakeRect(short theLeft, short theTop, short theRight, short theBottom)
{
    return {theTop, theLeft, theBottom, theRight};
}

// A window that is gone at the end of the test, if the test has not closed it before.
class TestWindow
{
public:
    explicit TestWindow(const Rect& theContent = MakeRect(100, 80, 420, 280),
                        CFStringRef theTitle = CFSTR("Thermostat"),
                        WindowClass theClass = kDocumentWindowClass,
                        WindowAttributes theAttributes = kWindowStandardDocumentAttributes)
    {
        CreateNewWindow(theClass, theAttributes | kWindowStandardHandlerAttribute, &theContent, &mWindow);
        SetWindowTitleWithCFString(mWindow, theTitle);
        ShowWindow(mWindow);
    }
    ~TestWindow()
    {
        if (IsValidWindowPtr(mWindow)) {
            DisposeWindow(mWindow);
        }
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    WindowRef Get() const { return mWindow; }

private:
    WindowRef mWindow = nullptr;
};

// A program with one window, whose content's top left is at 100, 80, and four controls in it.
struct TestProgram
{
    TestProgram()
    {
        // Wherever an earlier test has left the pointer.
        const Host::PointerAction theCorner;
        Host::PresenterRegistry::Events().PointerMoved(theCorner);
        const Rect theSliderBounds = MakeRect(10, 10, 210, 30);
        CreateSliderControl(mWindow.Get(), &theSliderBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, false,
                            nullptr, &mSlider);
        Name(mSlider, 'temp');
        const Rect theBoxBounds = MakeRect(10, 40, 210, 60);
        CreateCheckBoxControl(mWindow.Get(), &theBoxBounds, CFSTR("Heating on"), 0, true, &mCheckBox);
        Name(mCheckBox, 'heat');
        const Rect theFieldBounds = MakeRect(10, 70, 210, 90);
        CreateEditUnicodeTextControl(mWindow.Get(), &theFieldBounds, nullptr, false, nullptr, &mField);
        Name(mField, 'room');
        const Rect theButtonBounds = MakeRect(10, 100, 110, 120);
        CreatePushButtonControl(mWindow.Get(), &theButtonBounds, CFSTR("Reset"), &mButton);
        Name(mButton, 'rset');
    }

    static void Name(ControlRef theControl, OSType theSignature)
    {
        const ControlID theID = {theSignature, 1};
        SetControlID(theControl, &theID);
    }

    TestWindow mWindow;
    ControlRef mSlider = nullptr;
    ControlRef mCheckBox = nullptr;
    ControlRef mField = nullptr;
    ControlRef mButton = nullptr;
};

// The screen as the managers describe it now.
class Screen : public Host::HeadlessSnapshot
{
public:
    Screen() { Host::PresenterRegistry::ReplayLooks(*this); }

    // Identifiers, kNoObject when there is no such thing.
    Host::ObjectId WindowCalled(const std::string& theTitle) const
    {
        for (const Host::WindowLook* theWindow : WindowsFrontToBack()) {
            if (theWindow->theTitle == theTitle) {
                return theWindow->theId;
            }
        }
        return Host::kNoObject;
    }

    Host::ObjectId ControlCalled(OSType theSignature) const
    {
        for (const Host::WindowLook* theWindow : WindowsFrontToBack()) {
            const Host::ObjectId theFound = FindIn(theWindow->theId, Host::kNoObject, theSignature);
            if (theFound != Host::kNoObject) {
                return theFound;
            }
        }
        return Host::kNoObject;
    }

private:
    Host::ObjectId FindIn(Host::ObjectId theWindow, Host::ObjectId theParent, OSType theSignature) const
    {
        for (const Host::ControlLook* theControl : ControlsIn(theWindow, theParent)) {
            const Host::ObjectId theFound = theControl->theSignature == theSignature
                                                ? theControl->theId
                                                : FindIn(theWindow, theControl->theId, theSignature);
            if (theFound != Host::kNoObject) {
                return theFound;
            }
        }
        return Host::kNoObject;
    }
};

// Notes the events that arrive at one target, by name, as its last installed handler; the test may answer
// them.
class EventLog
{
public:
    using Answer = std::function<OSStatus(const std::string&, EventRef)>;

    EventLog(EventTargetRef theTarget, Log& theLog)
        : mLog(theLog)
    {
        std::vector<EventTypeSpec> theTypes;
        for (const Kind& theKind : kKinds) {
            theTypes.push_back(theKind.theType);
        }
        InstallEventHandler(theTarget, Handle, theTypes.size(), theTypes.data(), this, &mHandler);
    }
    ~EventLog() { RemoveEventHandler(mHandler); }
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    Answer mAnswer; // without one, eventNotHandledErr

private:
    struct Kind
    {
        EventTypeSpec theType;
        const char* theName;
    };

    static constexpr Kind kKinds[] = {
        {{kEventClassMouse, kEventMouseDown}, "mouse down"},
        {{kEventClassMouse, kEventMouseUp}, "mouse up"},
        {{kEventClassMouse, kEventMouseMoved}, "mouse moved"},
        {{kEventClassMouse, kEventMouseDragged}, "mouse dragged"},
        {{kEventClassMouse, kEventMouseWheelMoved}, "wheel"},
        {{kEventClassKeyboard, kEventRawKeyDown}, "key down"},
        {{kEventClassKeyboard, kEventRawKeyRepeat}, "key repeat"},
        {{kEventClassKeyboard, kEventRawKeyUp}, "key up"},
        {{kEventClassKeyboard, kEventRawKeyModifiersChanged}, "modifiers"},
        {{kEventClassCommand, kEventCommandProcess}, "command"},
        {{kEventClassControl, kEventControlHit}, "hit"},
        {{kEventClassControl, kEventControlClick}, "click"},
        {{kEventClassControl, kEventControlValueFieldChanged}, "value"},
        {{kEventClassControl, kEventControlDispose}, "control gone"},
        {{kEventClassWindow, kEventWindowClose}, "close"},
        {{kEventClassWindow, kEventWindowClosed}, "closed"},
        {{kEventClassWindow, kEventWindowActivated}, "activated"},
        {{kEventClassWindow, kEventWindowDeactivated}, "deactivated"},
        {{kEventClassWindow, kEventWindowDragStarted}, "drag started"},
        {{kEventClassWindow, kEventWindowDragCompleted}, "drag completed"},
        {{kEventClassWindow, kEventWindowResizeStarted}, "resize started"},
        {{kEventClassWindow, kEventWindowResizeCompleted}, "resize completed"},
        {{kEventClassWindow, kEventWindowBoundsChanging}, "bounds changing"},
        {{kEventClassWindow, kEventWindowBoundsChanged}, "bounds changed"},
        {{kEventClassWindow, kEventWindowCollapse}, "collapse"},
        {{kEventClassWindow, kEventWindowCollapsing}, "collapsing"},
        {{kEventClassWindow, kEventWindowCollapsed}, "collapsed"},
        {{kEventClassWindow, kEventWindowExpand}, "expand"},
        {{kEventClassWindow, kEventWindowExpanding}, "expanding"},
        {{kEventClassWindow, kEventWindowExpanded}, "expanded"},
        {{kEventClassWindow, kEventWindowZoom}, "zoom"},
        {{kEventClassWindow, kEventWindowZoomed}, "zoomed"},
        {{kEventClassTextField, kEventTextDidChange}, "text"},
    };

    static OSStatus Handle(EventHandlerCallRef, EventRef theEvent, void* theUserData)
    {
        auto* theSelf = static_cast<EventLog*>(theUserData);
        const std::string theName = NameOf(theEvent);
        theSelf->mLog.push_back(theName);
        return theSelf->mAnswer ? theSelf->mAnswer(theName, theEvent) : OSStatus{eventNotHandledErr};
    }

    static std::string NameOf(EventRef theEvent)
    {
        for (const Kind& theKind : kKinds) {
            if (theKind.theType.eventClass == GetEventClass(theEvent) &&
                theKind.theType.eventKind == GetEventKind(theEvent)) {
                return theKind.theName;
            }
        }
        return "?";
    }

    Log& mLog;
    EventHandlerRef mHandler = nullptr;
};

// A parameter of an event; a zeroed value when there is none of that type.
template <class Type>
Type Parameter(EventRef theEvent, EventParamName theName, EventParamType theType)
{
    Type theValue = {};
    GetEventParameter(theEvent, theName, theType, nullptr, sizeof theValue, nullptr, &theValue);
    return theValue;
}

inline std::string TextOf(ControlRef theField)
{
    CFStringRef theText = nullptr;
    GetControlData(theField, kControlEntireControl, kControlEditTextCFStringTag, sizeof theText, &theText,
                   nullptr);
    char theBytes[256] = "";
    if (theText != nullptr) {
        CFStringGetCString(theText, theBytes, sizeof theBytes, kCFStringEncodingUTF8);
        CFRelease(theText);
    }
    return theBytes;
}

#endif
