// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Dialogs_h
#define Dialogs_h

// Standard alerts and sheets: a message, an explanation, and up to three buttons.
//
//     DialogRef theAlert = NULL;
//     DialogItemIndex theItem = 0;
//     CreateStandardAlert(kAlertCautionAlert, CFSTR("Switch the heating off?"), NULL, NULL, &theAlert);
//     RunStandardAlert(theAlert, NULL, &theItem);       // kAlertStdAlertOKButton
//
// An alert is a window with controls like any other (GetDialogWindow). Their identifiers are
// { 'alrt', number }: 1 to 4 for the buttons, as they are numbered below, 5 for the message and 6 for the
// explanation.
//
// Rules for every call:
// - Main thread only.
// - A null or disposed reference, or a reference to anything else, is never followed: it gives paramErr.

#include <Carbon/CarbonBase.h>
#include <Carbon/Events.h>
#include <CoreFoundation/CoreFoundation.h>

typedef SInt16 DialogItemIndex;

// What the alert is about. There is no picture for it here.
typedef SInt16 AlertType;
enum
{
    kAlertStopAlert = 0,
    kAlertNoteAlert = 1,
    kAlertCautionAlert = 2,
    kAlertPlainAlert = 3
};

// Instead of a button's title, cast to its type: "OK", "Cancel" and "Don't Save".
enum
{
    kAlertDefaultOKText = -1,
    kAlertDefaultCancelText = -1,
    kAlertDefaultOtherText = -1
};

// The buttons: as the person's answer, and as the numbers of the default and the cancel button.
enum
{
    kAlertStdAlertOKButton = 1,
    kAlertStdAlertCancelButton = 2,
    kAlertStdAlertOtherButton = 3,
    kAlertStdAlertHelpButton = 4
};

enum
{
    kStdOkItemIndex = 1,
    kStdCancelItemIndex = 2
};

enum
{
    kStdCFStringAlertVersionOne = 1,
    kStdCFStringAlertVersionTwo = 2 // since Mac OS X 10.5
};

enum
{
    kStdAlertDoNotDisposeSheet = 1 << 0,
    kStdAlertDoNotAnimateOnDefault = 1 << 1,
    kStdAlertDoNotAnimateOnCancel = 1 << 2,
    kStdAlertDoNotAnimateOnOther = 1 << 3,
    kStdAlertDoNotCloseOnHelp = 1 << 4
};

#pragma pack(push, 2)

// A text of null is no such button. Button numbers are 1 to 3, or 0 for none. The place is a position of
// windows in resources; the alert has the alert position whatever it is.
typedef struct AlertStdCFStringAlertParamRec
{
    UInt32 version;
    Boolean movable;
    Boolean helpButton;
    CFStringRef defaultText;
    CFStringRef cancelText;
    CFStringRef otherText;
    SInt16 defaultButton;
    SInt16 cancelButton;
    UInt16 position;
    OptionBits flags;
    IconRef icon; // of kStdCFStringAlertVersionTwo; not shown
} AlertStdCFStringAlertParamRec;
typedef AlertStdCFStringAlertParamRec* AlertStdCFStringAlertParamPtr;

typedef Boolean (*ModalFilterProcPtr)(DialogRef theDialog, EventRecord* theEvent, DialogItemIndex* itemHit);
typedef ModalFilterProcPtr ModalFilterUPP;

typedef struct AlertStdAlertParamRec
{
    Boolean movable;
    Boolean helpButton;
    ModalFilterUPP filterProc;
    ConstStringPtr defaultText;
    ConstStringPtr cancelText;
    ConstStringPtr otherText;
    SInt16 defaultButton;
    SInt16 cancelButton;
    UInt16 position;
} AlertStdAlertParamRec;
typedef AlertStdAlertParamRec* AlertStdAlertParamPtr;

#pragma pack(pop)

CARBON_INLINE ModalFilterUPP NewModalFilterUPP(ModalFilterProcPtr userRoutine)
{
    return userRoutine;
}
CARBON_INLINE void DisposeModalFilterUPP(ModalFilterUPP userUPP)
{
    (void)userUPP;
}

// One button "OK", which is the default one; no others, no cancel button, no help button. paramErr for an
// unknown version.
CARBON_EXPORT OSStatus GetStandardAlertDefaultParams(AlertStdCFStringAlertParamPtr param, UInt32 version);

// Makes an alert, hidden. A null param stands for the default ones. Return and Enter press the default
// button, Escape and command-period the cancel button.
//
// paramErr: an unknown type or version, a null message, a button number that there is not, or the same for
// the default and the cancel button.
CARBON_EXPORT OSStatus CreateStandardAlert(AlertType alertType, CFStringRef error, CFStringRef explanation,
                                           const AlertStdCFStringAlertParamRec* param, DialogRef* outAlert);

// Shows the alert, runs a modal loop until the person has pressed a button, and disposes it. outItemHit,
// which may be null, receives the button. The filter is not called. When the loop ends otherwise, the status
// is that of RunAppModalLoopForWindow, and the button 0.
CARBON_EXPORT OSStatus RunStandardAlert(DialogRef inAlert, ModalFilterUPP filterProc,
                                        DialogItemIndex* outItemHit);

// Makes a sheet, hidden, for ShowSheetWindow. Once the person has pressed a button, it is hidden, lets go of
// its parent and is disposed, unless kStdAlertDoNotDisposeSheet is set; then kEventCommandProcess with
// kHICommandOK, kHICommandCancel or kHICommandOther goes to the target, which may be null. The help button
// sends kHICommandAppHelp.
//
// With kStdAlertDoNotCloseOnHelp the help button leaves a sheet or an alert on the screen; that of an alert
// then sends kHICommandAppHelp to the alert's window.
CARBON_EXPORT OSStatus CreateStandardSheet(AlertType alertType, CFStringRef error, CFStringRef explanation,
                                           const AlertStdCFStringAlertParamRec* param,
                                           EventTargetRef notifyTarget, DialogRef* outSheet);

// Closes a sheet as a button does, with this command; with none for 0.
CARBON_EXPORT OSStatus CloseStandardSheet(DialogRef inSheet, UInt32 inResultCommand);

// An alert with Pascal strings in Mac Roman, made and run. ^0 to ^3 in it stand for what ParamText was given.
// A null param stands for one button "OK".
CARBON_EXPORT OSErr StandardAlert(AlertType inAlertType, ConstStr255Param inError,
                                  ConstStr255Param inExplanation, const AlertStdAlertParamRec* inAlertParam,
                                  SInt16* outItemHit);

// A null text leaves what was there.
CARBON_EXPORT void ParamText(ConstStr255Param param0, ConstStr255Param param1, ConstStr255Param param2,
                             ConstStr255Param param3);

// The window of an alert or sheet, and the way back; null for anything else.
CARBON_EXPORT WindowRef GetDialogWindow(DialogRef dialog);
CARBON_EXPORT DialogRef GetDialogFromWindow(WindowRef window);

// Disposes an alert or a sheet that was not run or shown.
CARBON_EXPORT void DisposeDialog(DialogRef theDialog);

#endif
