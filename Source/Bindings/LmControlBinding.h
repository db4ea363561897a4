// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmControlBinding_h
#define LmControlBinding_h

#include "LmExport.h"
#include "LmKeyValueBinding.h"

#include <Carbon/Carbon.h>

// A control binding makes the state of one Carbon control available as keys, so that the control and the
// model follow each other:
//
//     LmControlBinding* theSlider = new LmControlBinding(theWindow, kTargetSlider);
//     theSlider->Bind("value", &theModel, "target", NULL, NULL);
//
// The keys, and the type that reading the control gives them:
//
//     "value"     unsigned 32-bit; in a text control the text, a string
//     "minimum"   unsigned 32-bit
//     "maximum"   unsigned 32-bit
//     "enabled"   boolean
//     "visible"   boolean
//     "title"     string
//
// Setting a key writes the control; a Carbon event handler on the control copies what a person or the
// system changes back into the key. Text controls are static text, edit text and Unicode edit text; a
// person's typing reaches "value" with Return, Enter or Tab, not letter by letter.
//
// A key that stands for a text and is set to a value of another kind keeps that value, but the control is not
// written, and the assertion "IsString()" is printed. Neither does a string value that holds null change the
// control: Carbon refuses it with paramErr, which is printed.
//
// Life: the binding deletes itself when its control is disposed, so make it with new, and do not use it
// after that. It may be deleted earlier; the control stays as it is then. It does not own the control.
//
// Everything happens on the main thread and before the call returns. Nothing throws but the allocation
// of memory. A Carbon call that fails prints "file, line n: Error status" on the standard error stream, and
// the operation goes on.
class LM_EXPORT LmControlBinding : public LmKeyValueBinding
{
public:
    // Binds to the control of theWindow that carries theID. When there is none, prints the status, and the
    // binding has no control. theWindow and theID are used during the call only.
    LmControlBinding(WindowRef theWindow, const ControlID& theID);

    // The same for the control whose signature is theSignature and whose number is 0.
    LmControlBinding(WindowRef theWindow, UInt32 theSignature);

    // Binds to theControl, which may be null.
    explicit LmControlBinding(ControlRef theControl);

    // A binding without a control: its keys are only stored.
    LmControlBinding();

    // Removes the event handler, then all bindings. The control is left as it is.
    ~LmControlBinding() override;

    LmControlBinding(const LmControlBinding&) = delete;
    LmControlBinding& operator=(const LmControlBinding&) = delete;

    // "[ControlRef 0x0804A1B0, 'temp', 1]": the reference, and the control's signature and number.
    LmString GetDebugInfo() const override;

    // The control, or null. Not owned.
    ControlRef GetControl() const { return mControl; }

    // Attaches the binding to another control; null detaches it.
    //
    // The keys then take the state of the new control, in the order "value", "minimum", "maximum",
    // "enabled", "visible", "title"; observers hear of each that changed, and nothing is written into the
    // control. Detaching leaves the keys as they are. Cost: one event handler, and six reads.
    void SetControl(ControlRef theControl);

    // Reads the control's state for theKey into the key. Observers hear of it when the value differs. Where
    // this is called by the application, the value is written into the control again, as any set key is.
    // Any other key than the six changes nothing; a text or title that the control does not give leaves its
    // key unchanged.
    void SyncValue(const LmString& theKey);

    // Puts the members into the state of a new binding, without removing a handler, and attaches
    // theControl unless it is null. For constructors of derived classes.
    void InitialiseSelf(ControlRef theControl);

    // The Carbon event handler of all control bindings; userData is the binding. Control events always go
    // on to the control's other handlers; so do keys, but for Return and Enter in an edit text.
    static OSStatus EventHandler(EventHandlerCallRef theCall, EventRef theEvent, void* userData);

    // The handler's part for keys: Return, Enter and Tab in an edit text store the text typed so far in
    // "value". Return and Enter keep the focus in the field and are consumed: the result is that of setting
    // the focus. Otherwise the result is eventNotHandledErr.
    OSStatus DoEventKeyboard(EventRef theEvent, UInt32 theKind);

    // The handler's part for control events: copies what changed into its key. When the control is disposed,
    // the binding deletes itself. The result is eventNotHandledErr.
    OSStatus DoEventControl(EventRef theEvent, UInt32 theKind);

    // Writes theValue into the control, when theKey is one of the six keys and the value does not come from
    // the control itself; then stores it. Called by the store's SetKeyPathValue, which notifies.
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

private:
    bool IsText() const { return mIsEditText || mIsStaticText; }

    ControlRef mControl;           // the bound control, or null; not owned
    EventHandlerRef mEventHandler; // the handler on the control, or null; owned
    bool mIsEditText;              // the control is an edit text or a Unicode edit text
    bool mIsStaticText;            // the control is a static text
    bool mUpdateControl;           // set keys are written into the control; clear while copying from it
};

#endif
