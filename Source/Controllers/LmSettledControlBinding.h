// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmSettledControlBinding_h
#define LmSettledControlBinding_h

#include "LmControlBinding.h"
#include "LmExport.h"

#include <vector>

// A settled control binding is a control binding with one more step: when a change that was made in the
// control has gone round, control, key and model agree.
//
//     LmSettledControlBinding* theSlider = new LmSettledControlBinding(theWindow, kTargetSlider);
//     theSlider->Bind("value", &theModel, "target", NULL, new LmRangeTransform(15, 30));
//
// An LmControlBinding writes nothing into its control while it copies a change from there. So where the model
// takes 30 for the 37 that a person has given, the slider stays at 37; and where the model held 30 before, it
// has nothing to tell, and the key stays at 37 as well. With this class both go back to 30.
//
// The step comes after all handlers that the control had when the binding was made. The key takes once more
// what it follows, through the transform of its binding, and the control is shown what its key holds, as far
// as its own range lets it. What a program changes in the control, enabling and title included, is settled in
// the same way; setting a key is as ever.
//
// A key that follows one way alone (BindTo) goes back to what it follows. Nothing is settled for scoped
// bindings, which this object does not know of, but that the control shows what its key holds. A binding that
// was made by the other side, or through a pointer to a base class, is settled from the first change that
// comes back from there.
//
// Where there is no memory for that step's handler, that is said in one line on the standard error stream
// ("file, line n: Error -108"), and the object is as an LmControlBinding would be.
//
// Text fields have a class of their own, LmTextFieldBinding. Everything else is as LmControlBinding says; a
// binding of either class is made with new, and deletes itself with its control. Cost: a second handler, and
// after each change of the control what reading each source once takes.
class LM_EXPORT LmSettledControlBinding : public LmControlBinding
{
public:
    // ---- Life

    // Binds to the control of theWindow that carries theID, as the base class does.
    LmSettledControlBinding(WindowRef theWindow, const ControlID& theID);

    // The same for the control whose signature is theSignature and whose number is 0.
    LmSettledControlBinding(WindowRef theWindow, UInt32 theSignature);

    // Binds to theControl, which may be null.
    explicit LmSettledControlBinding(ControlRef theControl);

    // A binding without a control: its keys are only stored.
    LmSettledControlBinding();

    // As the base class; the control is left as it is.
    ~LmSettledControlBinding() override;

    LmSettledControlBinding(const LmSettledControlBinding&) = delete;
    LmSettledControlBinding& operator=(const LmSettledControlBinding&) = delete;

    // Attaches the binding to another control, as the base class does; use this one, which takes the last
    // step along.
    void SetControl(ControlRef theControl);

    // ---- Binding

    // Bind and BindTo as of the base class; use these, which note what is followed.
    OSStatus Bind(const LmString& bindKey, LmKeyValueBinding* boundTo, const LmString& boundKey,
                  LmValueTransform* transform, LmValueTransform* reverseTransform);
    OSStatus BindTo(const LmString& bindKey, LmKeyValueBinding* boundTo, const LmString& boundKey,
                    LmValueTransform* transform);

    // ---- Called by others

    // As of the base class; notes who has told.
    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override;

    // As of the base class.
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

protected:
    // Lets each key take once more what it follows. False when this object has been destroyed by that.
    bool FollowSources();

private:
    class LM_HIDDEN Occupied;
    struct LM_HIDDEN Source;

    LM_HIDDEN static OSStatus HandleControlEvent(EventHandlerCallRef theCall, EventRef theEvent,
                                                 void* userData);
    LM_HIDDEN bool IsFollowed(const Source& theSource);
    LM_HIDDEN void NoteSource(const LmKeyValueStore* theStore, const LmString& theKey);
    LM_HIDDEN void Settle();

    std::vector<Source> mSources;               // in the order in which they became known
    EventHandlerRef mSettlingHandler = nullptr; // on the control, called before the base's; owned
    bool mIsOccupied = false;                   // the control changes because this object writes it
};

#endif
