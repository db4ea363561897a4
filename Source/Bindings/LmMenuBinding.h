// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmMenuBinding_h
#define LmMenuBinding_h

#include "LmExport.h"
#include "LmKeyValueBinding.h"

#include <Carbon/Carbon.h>

// A menu binding lets one menu command follow the model: its mark, whether it is enabled, and its text.
//
//     LmMenuBinding* theHeating = new LmMenuBinding('heat');
//     theHeating->BindTo("mark", &theModel, "heating", NULL);
//
// The keys:
//
//     "mark"      set to 0: no mark; 1: a check mark; any other number: a diamond. Reading the menu gives
//                 boolean false for no mark, boolean true for a check mark, unsigned 32-bit 2 for any other.
//     "enabled"   boolean
//     "title"     string: the text of the first item that carries the command
//
// Setting a key changes the menu. When Carbon asks the application for the command's state, before a menu
// opens, a Carbon event handler copies "mark" and "enabled" from the menu into the keys. A person's choice of
// the command does not reach the keys: that is the application's to handle, which then changes its model.
//
// When "title" is set to a value that is no string, the key keeps that value, but the menu is not changed,
// and the assertion "IsString()" is printed. Neither does a string value that holds null change the menu:
// Carbon refuses it with paramErr, which is printed.
//
// A menu binding only follows: no key of it can be the other side of a binding, so use BindTo.
//
// Life: the binding deletes itself when the command's menu is disposed, so make it with new, and do not use
// it after that. It may be deleted earlier; the menu stays as it is then. It does not own the menu.
//
// Everything happens on the main thread and before the call returns. Nothing throws but the allocation
// of memory. A Carbon call that fails prints "file, line n: Error status" on the standard error stream, and
// the operation goes on.
class LM_EXPORT LmMenuBinding : public LmKeyValueBinding
{
public:
    // Binds to the first item in the whole menu bar that carries theCommand; 0 is no command. When no menu
    // holds the command, prints the status, and no handler is installed.
    explicit LmMenuBinding(UInt32 theCommand);

    // A binding without a command: its keys are only stored.
    LmMenuBinding();

    // Removes the event handler, then all bindings. The menu is left as it is.
    ~LmMenuBinding() override;

    LmMenuBinding(const LmMenuBinding&) = delete;
    LmMenuBinding& operator=(const LmMenuBinding&) = delete;

    // "[MenuCommand 'heat', "Heating On"]": the command, and the item's text in the MacRoman encoding.
    LmString GetDebugInfo() const override;

    // False for every key: other objects cannot follow a menu command.
    bool IsBindable(const LmString& theKeyName) override;

    // The command, or 0.
    UInt32 GetMenuCommand() const { return mCommand; }

    // Attaches the binding to another command; 0 detaches it.
    //
    // The keys then take the state of the new command, in the order "mark", "enabled", "title"; observers
    // hear of each that changed, and nothing is written into the menu. Detaching leaves the keys as they are.
    // Cost: a search of the menu bar, one event handler, and three reads.
    void SetMenuCommand(UInt32 theCommand);

    // Puts the members into the state of a new binding, without removing a handler, and attaches
    // theCommand unless it is 0. For constructors of derived classes.
    void InitialiseSelf(UInt32 theCommand);

    // Reads the menu's state for theKey into the key. Observers hear of it when the value differs. Where
    // this is called by the application, the value is written into the menu again, as any set key is.
    // Any other key than the three changes nothing; a text that the menu does not give leaves its key
    // unchanged.
    void SyncValue(const LmString& theKey);

    // The Carbon event handler of all menu bindings; userData is the binding. The result is
    // eventNotHandledErr for every event: the menu's other handlers always run too.
    static OSStatus EventHandler(EventHandlerCallRef theCall, EventRef theEvent, void* userData);

    // The handler's part for menu events: when the menu is disposed, the binding deletes itself.
    OSStatus DoEventMenu(EventRef theEvent, UInt32 theKind);

    // The handler's part for command events: an update-status event for this command, from a menu, copies
    // "mark" and then "enabled" into the keys. "title" stays as it is.
    OSStatus DoEventCommand(EventRef theEvent, UInt32 theKind);

    // Changes the menu, when theKey is one of the three keys and the value does not come from the menu
    // itself; then stores it. Called by the store's SetKeyPathValue, which notifies.
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

private:
    MenuRef mMenu;                 // the menu that holds the command's first item, or null; not owned
    MenuItemIndex mMenuItem;       // that item's index, or 0
    MenuCommand mCommand;          // the command, or 0
    EventHandlerRef mEventHandler; // the handler on the menu, or null; owned
    bool mUpdateMenu;              // set keys are written into the menu; clear while copying from it
};

#endif
