// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef WatchedObjects_h
#define WatchedObjects_h

#include <array>
#include <Carbon/Carbon.h>
#include <functional>
#include <string>

#include "HeadlessSnapshot.h"

// What the managers owe for every object, whatever is done: that the events told of each change, that each
// end was told once, and that the picture is what the calls report.

// Keeps the first promise that was broken.
class Promises
{
public:
    void Expect(bool theIsKept, const std::string& theWhat)
    {
        if (!theIsKept && mBroken.empty()) {
            mBroken = theWhat;
        }
    }

    // Empty while all were kept.
    const std::string& Broken() const { return mBroken; }

private:
    std::string mBroken;
};

// What all watched objects share.
struct EventCourse
{
    // Called after each event was noted, from inside its handler, with the name of who has heard it.
    std::function<void(const std::string& theName, EventRef theEvent)> theArrival;
    bool theIsNested = false; // events may tell of what handlers have undone meanwhile
    std::string theIdleEvent; // the first that told of no change, although nothing was nested
};

// An object whose handlers note what they are told.
class WatchedObject
{
public:
    WatchedObject(std::string theName, EventTargetRef theTarget, const std::vector<EventTypeSpec>& theTypes,
                  EventCourse& theCourse);
    virtual ~WatchedObject();
    WatchedObject(const WatchedObject&) = delete;
    WatchedObject& operator=(const WatchedObject&) = delete;

    const std::string& Name() const { return mName; }
    virtual bool IsAlive() const = 0;

    // At rest: while it lives nobody was told of its end, and everybody was once it is gone. Its references,
    // those of its target and handler too, are then none.
    void CheckLife(Promises& thePromises) const;

    // At rest, while it lives.
    virtual void Check(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const = 0;

    // What the calls report of it while it lives, in a line.
    virtual std::string Describe() const = 0;

protected:
    virtual bool IsAbout(EventRef theEvent) const = 0;
    virtual void Note(EventRef theEvent) = 0;
    void NoteEnd() { ++mEnds; }
    void NoteChange(bool theIsChange, const char* theWhat);

    template <class Value>
    void NoteChange(Value* theTold, const Value& theNow, const char* theWhat)
    {
        NoteChange(*theTold != theNow, theWhat);
        *theTold = theNow;
    }

private:
    static OSStatus Call(EventHandlerCallRef theCall, EventRef theEvent, void* theUserData);

    std::string mName;
    EventTargetRef mTarget;
    EventHandlerRef mHandler = nullptr;
    EventCourse& mCourse;
    int mEnds = 0; // how often its end was told
};

class WatchedWindow : public WatchedObject
{
public:
    WatchedWindow(std::string theName, WindowRef theWindow, EventCourse& theCourse);

    WindowRef Get() const { return mWindow; }
    bool IsAlive() const override { return IsValidWindowPtr(mWindow); }
    void Check(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const override;
    std::string Describe() const override;

private:
    struct State
    {
        bool theIsVisible = false;
        bool theIsCollapsed = false;
        bool theIsActive = false;
        bool theHasKeys = false;
        Rect theContent = {0, 0, 0, 0};
        std::string theTitle;
    };

    bool IsAbout(EventRef theEvent) const override;
    void Note(EventRef theEvent) override;
    State Now() const;

    WindowRef mWindow;
    State mTold; // by events
};

class WatchedControl : public WatchedObject
{
public:
    WatchedControl(std::string theName, ControlRef theControl, EventCourse& theCourse);

    ControlRef Get() const { return mControl; }
    bool IsAlive() const override { return IsValidControlHandle(mControl); }
    void Check(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const override;
    std::string Describe() const override;

    // A control that comes into another container takes the states of what is around it there, of which no
    // event tells.
    void TakeStatesOfItsPlace();

private:
    struct State
    {
        bool theIsVisible = false;
        bool theIsEnabled = false;
        bool theIsActive = false;
        bool theHasFocus = false;
        std::array<SInt32, 4> theRange = {}; // value, minimum, maximum, view size
        Rect theBounds = {0, 0, 0, 0};
        std::string theTitle;
        WindowRef theOwner = nullptr;
    };

    bool IsAbout(EventRef theEvent) const override;
    void Note(EventRef theEvent) override;
    State Now() const;
    void CheckPicture(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const;

    ControlRef mControl;
    State mTold; // by events
};

class WatchedMenu : public WatchedObject
{
public:
    WatchedMenu(std::string theName, MenuRef theMenu, EventCourse& theCourse);

    MenuRef Get() const { return mMenu; }
    bool IsAlive() const override { return IsValidMenu(mMenu); }
    void Check(const Host::HeadlessSnapshot& theScreen, Promises& thePromises) const override;
    std::string Describe() const override;

    // The reference that its maker has; given up once.
    void Release();

private:
    bool IsAbout(EventRef theEvent) const override;
    void Note(EventRef theEvent) override;

    MenuRef mMenu;
    bool mIsHeld = true;
};

#endif
