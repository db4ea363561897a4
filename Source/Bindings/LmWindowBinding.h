// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmWindowBinding_h
#define LmWindowBinding_h

#include "LmExport.h"
#include "LmKeyValueBinding.h"

#include <Carbon/Carbon.h>

// A window binding makes the state of one Carbon window available as keys, so that the window and the
// model (or the preferences) follow each other:
//
//     LmWindowBinding* thePlace = new LmWindowBinding(theWindow);
//     thePlace->Bind("bounds", &thePreferences, "window place", NULL, NULL);
//
// The keys, and the type that reading the window gives them:
//
//     "visible"     boolean
//     "collapsed"   boolean
//     "bounds"      rectangle: the content area (never the frame) in global coordinates, whole numbers
//     "title"       string
//
// Setting a key changes the window; a Carbon event handler on the window copies what a person or the system
// changes back into the key.
//
// When "title" is set to a value that is no string, the key keeps that value, but the window is not changed,
// and the assertion "IsString()" is printed. Neither does a string value that holds null change the window:
// Carbon refuses it with paramErr, which is printed.
//
// Life: the binding deletes itself when its window is closed, so make it with new, and do not use it
// after that. It may be deleted earlier; the window stays as it is then. It does not own the window.
//
// Everything happens on the main thread and before the call returns. Nothing throws but the allocation
// of memory. A Carbon call that fails prints "file, line n: Error status" on the standard error stream, and
// the operation goes on.
class LM_EXPORT LmWindowBinding : public LmKeyValueBinding
{
public:
    // Binds to theWindow, which may be null.
    explicit LmWindowBinding(WindowRef theWindow);

    // A binding without a window: its keys are only stored.
    LmWindowBinding();

    // Removes the event handler, then all bindings. The window is left as it is.
    ~LmWindowBinding() override;

    LmWindowBinding(const LmWindowBinding&) = delete;
    LmWindowBinding& operator=(const LmWindowBinding&) = delete;

    // "[Window "Thermostat"]": the window's title, in the MacRoman encoding.
    LmString GetDebugInfo() const override;

    // The window, or null. Not owned.
    WindowRef GetWindow() const { return mWindow; }

    // Attaches the binding to another window; null detaches it.
    //
    // The keys then take the state of the new window, in the order "visible", "collapsed", "bounds", "title";
    // observers hear of each that changed, and nothing is written into the window. Detaching leaves the keys
    // as they are. Cost: one event handler, and four reads.
    void SetWindow(WindowRef theWindow);

    // Puts the members into the state of a new binding, without removing a handler, and attaches
    // theWindow unless it is null. For constructors of derived classes.
    void InitialiseSelf(WindowRef theWindow);

    // Reads the window's state for theKey into the key. Observers hear of it when the value differs. Where
    // this is called by the application, the value is written into the window again, as any set key is.
    // Any other key than the four changes nothing; a title that the window does not give leaves the key
    // unchanged.
    void SyncValue(const LmString& theKey);

    // The Carbon event handler of all window bindings; userData is the binding. The result is
    // eventNotHandledErr for every event: the window's other handlers always run too.
    static OSStatus EventHandler(EventHandlerCallRef theCall, EventRef theEvent, void* userData);

    // The handler's work: copies what changed into its key. When the window is closed, the binding deletes
    // itself.
    OSStatus DoEventWindow(EventRef theEvent, UInt32 theKind);

    // Changes the window, when theKey is one of the four keys and the value does not come from the window
    // itself; then stores it. Called by the store's SetKeyPathValue, which notifies.
    //
    // On purpose: the origin and the size of a rectangle are cut to whole numbers each on its own, before the
    // far edges are added up: (10.7, 20.2, 100.9, 50.5) gives top 20, left 10, bottom 70, right 110.
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

private:
    WindowRef mWindow;             // the bound window, or null; not owned
    EventHandlerRef mEventHandler; // the handler on the window, or null; owned
    bool mUpdateWindow;            // set keys are written into the window; clear while copying from it
};

#endif
