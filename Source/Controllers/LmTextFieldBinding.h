// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmTextFieldBinding_h
#define LmTextFieldBinding_h

#include "LmExport.h"
#include "LmFormatter.h"
#include "LmSettledControlBinding.h"

// A text field binding lets a person type a value into an edit text: it takes what was typed when the person
// is done with it, hands it to a formatter, and says what is wrong.
//
//     LmTextFieldBinding* theQuantity =
//         new LmTextFieldBinding(theWindow, kQuantityField, std::make_shared<DozenFormatter>());
//     theQuantity->Bind("value", &theModel, "quantity", NULL, NULL);
//     theProblemText->BindTo("value", theQuantity, "problem", NULL);
//     theOrderButton->BindTo("enabled", theQuantity, "valid", NULL);
//
// The keys are those of a control binding, but for the first one, and three more:
//
//     "value"     string, the text; with a formatter what that has read, of its kind
//     "valid"     boolean: what stands in the field is a value
//     "problem"   string: what is wrong, in the formatter's words; empty while nothing is
//     "editing"   boolean: something was typed that has not been taken yet
//
// When is it taken? With Return, Enter and Tab; when the focus leaves the field, by the mouse or by a
// program; when the window closes, or is the active one no longer; before a command is carried out, and
// before the application quits when it is asked to. With kCommitEachKey with each keystroke as well. A
// handler of the application for such an event must have been installed before the binding was made, or be
// further up the chain, to find the value taken.
//
// What happens then:
//
// - What the formatter accepts is set as "value", which tells the model. When all of that has gone round, the
//   field shows what "value" holds then, in the normal form: what the model made of it, if it made something
//   else of it.
// - What it refuses stays in the field and is selected, if the field has the focus. "problem" and "valid" say
//   so, "value" stays as it was, and nobody is told of it. With kKeepFocus the field keeps the focus, and the
//   keys that end typing go no further.
// - Where nothing was typed, nothing happens.
//
// Escape gives back what was there before, or, where nothing was typed, goes on to the window, where it
// presses the cancel button. While something is typed, a value that comes from the model is stored, and shown
// when the person takes back what he typed, by hand or with Escape: nothing is taken away under his hands.
// What he goes on to type and is accepted takes its place. With kCommitEachKey, Escape also gives back the
// value that was there before the first key, unless another one has come from the model meanwhile; where
// there was none, the last one that was taken stays.
//
// A value that the formatter cannot write is kept as it is; the field is empty then, and "valid" is false.
// One that it writes and would not take, because it is out of its range, is shown, and "valid" is false too.
// Setting one of the other three keys changes nothing in the field.
//
// A static text may be given as well; then it shows values through the formatter. Everything else is as
// LmSettledControlBinding says: it is made with new, and deletes itself with its control. Where there is no
// memory for a handler, the line "Error -108" is printed, and what it would have heard of goes by. Cost:
// handlers on the control, its window and the application; one comparison of the text for each key.

// What a text field does besides, added up.
enum LmTextFieldOption : unsigned
{
    kCommitEachKey = 1, // takes what is typed with each keystroke where the formatter accepts it; the field
                        // itself is left to the person until he is done
    kKeepFocus = 2      // keeps the focus while what was typed is refused
};

class LM_EXPORT LmTextFieldBinding : public LmSettledControlBinding
{
public:
    // ---- Life

    // Binds to the control of theWindow that carries theID. When there is none, prints the status, and the
    // binding has no control.
    //
    // What stands in the field is read, as if it had been typed, and shown in its normal form; where it is
    // refused, "value" is not there until it is set. theFormatter may be null.
    //
    // Diagnostics: "Error %ld", with the status.
    LmTextFieldBinding(WindowRef theWindow, const ControlID& theID, LmSharedFormatter theFormatter = nullptr,
                       unsigned theOptions = 0);

    // The same for theControl, which may be null.
    explicit LmTextFieldBinding(ControlRef theControl, LmSharedFormatter theFormatter = nullptr,
                                unsigned theOptions = 0);

    // What was typed and not taken yet is lost.
    ~LmTextFieldBinding() override;

    LmTextFieldBinding(const LmTextFieldBinding&) = delete;
    LmTextFieldBinding& operator=(const LmTextFieldBinding&) = delete;

    // Attaches the binding to another control, as the constructor does; null detaches it.
    void SetControl(ControlRef theControl);

    // From now on, texts are read and written by theFormatter. The field shows "value" in its form, unless
    // something was typed that has not been taken yet.
    void SetFormatter(LmSharedFormatter theFormatter);

    // ---- For the application

    // Takes what was typed, as if the person were done. True when what stands in the field is a value; false
    // also when this object has been destroyed by what that set off. When memory runs out, it is still there
    // to be taken.
    bool Commit();

    // Gives back what was there before, as Escape does.
    void Discard();

    // ---- Called by others

    // As of the base class.
    LmValue GetKeyValue(const LmString& theKeyName) const override;

    // Keeps theValue as the base class does, and shows it in the formatter's form.
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

private:
    // What became of a typed text.
    enum Outcome
    {
        kNothingTyped,
        kAccepted,
        kRefused,
        kGone // this object has been destroyed
    };
    class LM_HIDDEN TextReads;
    class LM_HIDDEN Taking;
    class LM_HIDDEN Unattached;

    // A binding that is whole, with nothing that it would hear of, so that the destructor runs where memory
    // runs out while it is attached.
    LM_HIDDEN LmTextFieldBinding(const Unattached& theMark, LmSharedFormatter&& theFormatter,
                                 unsigned theOptions);

    LM_HIDDEN static OSStatus HandleFieldEvent(EventHandlerCallRef theCall, EventRef theEvent,
                                               void* userData);
    LM_HIDDEN static OSStatus HandleSurroundings(EventHandlerCallRef theCall, EventRef theEvent,
                                                 void* userData);
    LM_HIDDEN OSStatus HandleControl(EventHandlerCallRef theCall, EventRef theEvent);
    LM_HIDDEN OSStatus HandleFocus(EventHandlerCallRef theCall, EventRef theEvent);
    LM_HIDDEN OSStatus HandleKey(EventHandlerCallRef theCall, EventRef theEvent);
    LM_HIDDEN OSStatus HandleEndKey(EventHandlerCallRef theCall, EventRef theEvent, UInt32 theKey);
    LM_HIDDEN OSStatus LetTypeAndNote(EventHandlerCallRef theCall, EventRef theEvent);
    LM_HIDDEN void InstallHandlers();
    LM_HIDDEN void RemoveHandlers();

    [[nodiscard]] LM_HIDDEN bool IsEdited() const;
    [[nodiscard]] LM_HIDDEN LmReading Parse(const LmValue& theText) const;
    [[nodiscard]] LM_HIDDEN LmValue Format(const LmValue& theValue) const;

    // Each of these is false, or kGone, when this object has been destroyed meanwhile.
    LM_HIDDEN bool Tell(const char* theKey, const LmValue& theValue);
    LM_HIDDEN bool TellState(const LmReading& theReading);
    LM_HIDDEN bool ShowValue(const LmValue& theValue);
    LM_HIDDEN bool ShowText(const LmValue& theText);
    LM_HIDDEN bool WriteText(const LmValue& theText);
    LM_HIDDEN bool SelectAll();
    LM_HIDDEN bool ReadShownText();
    LM_HIDDEN Outcome TakeText();
    LM_HIDDEN Outcome Accept(const LmValue& theValue);

    LM_HIDDEN bool TakeKeys(const LmValue& theValue);
    LM_HIDDEN bool GiveBackKeys();
    LM_HIDDEN void NoteTyping();
    LM_HIDDEN void NoteShown(const LmValue& theText);
    LM_HIDDEN void TakeFocusBack();

    LmSharedFormatter mFormatter;             // shared, or null
    const unsigned mOptions;                  // of LmTextFieldOption
    LmValue mShownText;                       // the text of the field where nothing was typed
    LmValue mNotedText;                       // the text that was noted last while something was typed
    LmValue mValueBeforeKeys;                 // what "value" was before keystrokes were taken, or invalid
    EventHandlerRef mFieldHandler = nullptr;  // on the control; owned, as the next two are
    EventHandlerRef mWindowHandler = nullptr; // on its window
    EventHandlerRef mApplicationHandler = nullptr; // on the application
    bool mIsText = false;                          // the control is a text
    bool mIsValid = false;                         // what "valid" was told last
    bool mHearsOthers = true;                      // clear while a keystroke is taken
    bool mTakesText = true;                        // clear while what was typed is being taken
    bool mNotesTyping = true;                      // clear while this object writes into the field
    mutable int mTextReads = 0; // how often "value" reads as the text, for the base class alone
};

#endif
