// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Standard alerts and sheets, made of windows and controls.

#include "AlertLayout.h"
#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"
#include "Events/OutgoingEvent.h"

#include <utility>

namespace Host {

namespace {

constexpr OSType kSignature = 'alrt';
constexpr SInt32 kMessageNumber = 5;
constexpr SInt32 kExplanationNumber = 6;

// One alert or sheet, until it is disposed.
struct Alert
{
    WindowRef theWindow = nullptr;
    OptionBits theFlags = 0;
    bool theIsSheet = false;
    bool theIsRunning = false;
    EventTargetRef theTarget = nullptr; // of a sheet
    DialogItemIndex theAnswer = 0;
};
using SharedAlert = std::shared_ptr<Alert>;
using AlertTable = ReferenceTable<DialogRef, ReferenceKind::kDialog, Alert, NoMutex>;

AlertTable& Alerts()
{
    static NeverDestroyed<AlertTable> sAlerts;
    return sAlerts.Get();
}

// The property by which a window knows its alert.
constexpr OSType kCreator = 'Alrt';
constexpr OSType kDialogTag = 'dlog';

// An alert whose window the program has disposed is gone as well.
SharedAlert FindAlert(DialogRef theDialog)
{
    SharedAlert theAlert = Alerts().Find(theDialog);
    if (theAlert != nullptr && !IsValidWindowPtr(theAlert->theWindow)) {
        Alerts().Remove(theDialog);
        return nullptr;
    }
    return theAlert;
}

void Dispose(DialogRef theDialog)
{
    if (const SharedAlert theAlert = FindAlert(theDialog); theAlert != nullptr) {
        Alerts().Remove(theDialog);
        HideSheetWindow(theAlert->theWindow);
        DisposeWindow(theAlert->theWindow);
    }
}

// Answers ------------------------------------------------------------------------------------------------

UInt32 CommandOf(DialogItemIndex theButton)
{
    switch (theButton) {
    case kAlertStdAlertOKButton:
        return kHICommandOK;
    case kAlertStdAlertCancelButton:
        return kHICommandCancel;
    case kAlertStdAlertOtherButton:
        return kHICommandOther;
    default:
        return kHICommandAppHelp;
    }
}

void SendCommand(EventTargetRef theTarget, UInt32 theCode)
{
    HICommand theCommand{};
    theCommand.commandID = theCode;
    OutgoingEvent theEvent(kEventClassCommand, kEventCommandProcess);
    theEvent.Set(kEventParamDirectObject, typeHICommand, theCommand);
    theEvent.SendTo(theTarget);
}

void CloseSheet(DialogRef theDialog, const Alert& theSheet, UInt32 theCommand)
{
    const EventTargetRef theTarget = theSheet.theTarget;
    if ((theSheet.theFlags & kStdAlertDoNotDisposeSheet) != 0) {
        HideSheetWindow(theSheet.theWindow);
        HideWindow(theSheet.theWindow);
    } else {
        Dispose(theDialog);
    }
    if (theCommand != 0 && theTarget != nullptr) {
        SendCommand(theTarget, theCommand);
    }
}

void Answer(DialogRef theDialog, DialogItemIndex theButton)
{
    const SharedAlert theAlert = FindAlert(theDialog);
    if (theAlert == nullptr) {
        return;
    }
    const bool theIsHelp = theButton == kAlertStdAlertHelpButton;
    if (theIsHelp && (theAlert->theFlags & kStdAlertDoNotCloseOnHelp) != 0) {
        const bool theHasTarget = theAlert->theIsSheet && theAlert->theTarget != nullptr;
        SendCommand(theHasTarget ? theAlert->theTarget : GetWindowEventTarget(theAlert->theWindow),
                    kHICommandAppHelp);
    } else if (theAlert->theIsSheet) {
        CloseSheet(theDialog, *theAlert, CommandOf(theButton));
    } else {
        theAlert->theAnswer = theButton;
        QuitAppModalLoopForWindow(theAlert->theWindow);
    }
}

OSStatus HearButton(EventHandlerCallRef, EventRef theEvent, void* theDialog)
{
    ControlRef theButton = nullptr;
    ControlID theID = {0, 0};
    ReadParameter(theEvent, kEventParamDirectObject, typeControlRef, &theButton);
    if (GetControlID(theButton, &theID) != noErr || theID.signature != kSignature) {
        return eventNotHandledErr;
    }
    Answer(static_cast<DialogRef>(theDialog), static_cast<DialogItemIndex>(theID.id));
    return noErr;
}

// Making -------------------------------------------------------------------------------------------------

struct AlertRequest
{
    AlertTexts theTexts;
    SInt16 theDefaultButton = kAlertStdAlertOKButton;
    SInt16 theCancelButton = 0;
    OptionBits theFlags = 0;
};

const CFStringRef kDefaultText =
    reinterpret_cast<CFStringRef>(static_cast<std::intptr_t>(kAlertDefaultOKText));

Text DefaultTitle(size_t theNumber)
{
    constexpr std::array<const char16_t*, 3> kTitles = {u"OK", u"Cancel", u"Don\u2019t Save"};
    return kTitles[theNumber];
}

Text TitleOf(CFStringRef theText, size_t theNumber)
{
    return theText == kDefaultText ? DefaultTitle(theNumber) : TextOf(theText);
}

// There is a button to answer with in any case.
void EnsureButton(AlertTexts* theTexts)
{
    const std::array<Text, kButtonCount>& theButtons = theTexts->theButtons;
    if (theButtons[0].empty() && theButtons[1].empty() && theButtons[2].empty()) {
        theTexts->theButtons[0] = DefaultTitle(0);
    }
}

bool IsButton(SInt16 theNumber)
{
    return theNumber >= 0 && theNumber <= kAlertStdAlertOtherButton;
}

bool AreButtons(SInt16 theDefault, SInt16 theCancel)
{
    return IsButton(theDefault) && IsButton(theCancel) && (theDefault != theCancel || theDefault == 0);
}

bool IsType(AlertType theType)
{
    return theType >= kAlertStopAlert && theType <= kAlertPlainAlert;
}

bool IsVersion(UInt32 theVersion)
{
    return theVersion == kStdCFStringAlertVersionOne || theVersion == kStdCFStringAlertVersionTwo;
}

AlertRequest RequestOf(CFStringRef theError, CFStringRef theExplanation,
                       const AlertStdCFStringAlertParamRec& theParam)
{
    AlertRequest theRequest;
    theRequest.theTexts.theMessage = TextOf(theError);
    theRequest.theTexts.theExplanation = TextOf(theExplanation);
    // Copies: the fields of the packed structure need not be aligned.
    const CFStringRef theTitles[] = {theParam.defaultText, theParam.cancelText, theParam.otherText};
    for (size_t theNumber = 0; theNumber < std::size(theTitles); ++theNumber) {
        theRequest.theTexts.theButtons[theNumber] = TitleOf(theTitles[theNumber], theNumber);
    }
    theRequest.theTexts.theButtons[3] = theParam.helpButton ? Text(u"?") : Text();
    theRequest.theDefaultButton = theParam.defaultButton;
    theRequest.theCancelButton = theParam.cancelButton;
    theRequest.theFlags = theParam.flags;
    EnsureButton(&theRequest.theTexts);
    return theRequest;
}

void Name(ControlRef theControl, SInt32 theNumber)
{
    const ControlID theID = {kSignature, theNumber};
    SetControlID(theControl, &theID);
}

// A string that is released at the end.
class OwnedString
{
public:
    explicit OwnedString(const Text& theText)
        : mString(CreateString(theText))
    {
    }
    ~OwnedString()
    {
        if (mString != nullptr) {
            CFRelease(mString);
        }
    }
    OwnedString(const OwnedString&) = delete;
    OwnedString& operator=(const OwnedString&) = delete;

    CFStringRef Get() const { return mString; }

private:
    CFStringRef mString;
};

OSStatus AddText(WindowRef theWindow, const Text& theText, const Rect& thePlace, SInt32 theNumber)
{
    if (theText.empty()) {
        return noErr;
    }
    ControlRef theControl = nullptr;
    const OSStatus theStatus =
        CreateStaticTextControl(theWindow, &thePlace, OwnedString(theText).Get(), nullptr, &theControl);
    Name(theControl, theNumber);
    return theStatus;
}

OSStatus AddButton(WindowRef theWindow, const Text& theTitle, const Rect& thePlace, SInt32 theNumber,
                   DialogRef theDialog)
{
    static const EventTypeSpec kHit = {kEventClassControl, kEventControlHit};
    if (theTitle.empty()) {
        return noErr;
    }
    ControlRef theControl = nullptr;
    const OSStatus theStatus =
        CreatePushButtonControl(theWindow, &thePlace, OwnedString(theTitle).Get(), &theControl);
    if (theStatus != noErr) {
        return theStatus;
    }
    Name(theControl, theNumber);
    return InstallControlEventHandler(theControl, NewEventHandlerUPP(HearButton), 1, &kHit, theDialog,
                                      nullptr);
}

ControlRef ButtonOf(WindowRef theWindow, SInt32 theNumber)
{
    const ControlID theID = {kSignature, theNumber};
    ControlRef theControl = nullptr;
    GetControlByID(theWindow, &theID, &theControl);
    return theControl;
}

OSStatus Fill(WindowRef theWindow, const AlertRequest& theRequest, const AlertLayout& theLayout,
              DialogRef theDialog)
{
    const AlertTexts& theTexts = theRequest.theTexts;
    OSStatus theStatus = AddText(theWindow, theTexts.theMessage, theLayout.theMessage, kMessageNumber);
    if (theStatus == noErr) {
        theStatus = AddText(theWindow, theTexts.theExplanation, theLayout.theExplanation, kExplanationNumber);
    }
    for (size_t theNumber = 0; theNumber < kButtonCount && theStatus == noErr; ++theNumber) {
        theStatus = AddButton(theWindow, theTexts.theButtons[theNumber], theLayout.theButtons[theNumber],
                              static_cast<SInt32>(theNumber) + 1, theDialog);
    }
    SetWindowDefaultButton(theWindow, ButtonOf(theWindow, theRequest.theDefaultButton));
    SetWindowCancelButton(theWindow, ButtonOf(theWindow, theRequest.theCancelButton));
    return theStatus;
}

OSStatus MakeWindow(bool theIsSheet, const Rect& theContent, WindowRef* theWindow)
{
    const WindowClass theClass = theIsSheet ? kSheetAlertWindowClass : kMovableAlertWindowClass;
    const OSStatus theStatus = CreateNewWindow(
        theClass, kWindowStandardHandlerAttribute | kWindowCompositingAttribute, &theContent, theWindow);
    if (theStatus == noErr) {
        RepositionWindow(*theWindow, nullptr, kWindowAlertPositionOnMainScreen);
    }
    return theStatus;
}

OSStatus Make(const AlertRequest& theRequest, bool theIsSheet, EventTargetRef theTarget, DialogRef* theDialog)
{
    const AlertLayout theLayout = LayOutAlert(theRequest.theTexts);
    WindowRef theWindow = nullptr;
    OSStatus theStatus = MakeWindow(theIsSheet, theLayout.theContent, &theWindow);
    if (theStatus != noErr) {
        return theStatus;
    }
    DialogRef theNew = nullptr;
    theStatus = Guarded([&] {
        auto theAlert = std::make_shared<Alert>();
        theAlert->theWindow = theWindow;
        theAlert->theFlags = theRequest.theFlags;
        theAlert->theIsSheet = theIsSheet;
        theAlert->theTarget = theTarget;
        theNew = Alerts().Add(std::move(theAlert));
        SetWindowProperty(theWindow, kCreator, kDialogTag, sizeof(theNew), &theNew);
        return Fill(theWindow, theRequest, theLayout, theNew);
    });
    if (theStatus != noErr) {
        Alerts().Remove(theNew);
        DisposeWindow(theWindow);
        return theStatus;
    }
    *theDialog = theNew;
    return noErr;
}

OSStatus Create(AlertType theType, CFStringRef theError, CFStringRef theExplanation,
                const AlertStdCFStringAlertParamRec* theParam, bool theIsSheet, EventTargetRef theTarget,
                DialogRef* theDialog)
{
    if (theDialog == nullptr) {
        return paramErr;
    }
    *theDialog = nullptr;
    AlertStdCFStringAlertParamRec theDefaults;
    GetStandardAlertDefaultParams(&theDefaults, kStdCFStringAlertVersionOne);
    const AlertStdCFStringAlertParamRec& theUsed = theParam == nullptr ? theDefaults : *theParam;
    if (!IsType(theType) || theError == nullptr || !IsVersion(theUsed.version) ||
        !AreButtons(theUsed.defaultButton, theUsed.cancelButton)) {
        return paramErr;
    }
    return Guarded(
        [&] { return Make(RequestOf(theError, theExplanation, theUsed), theIsSheet, theTarget, theDialog); });
}

// Alerts with Pascal strings ------------------------------------------------------------------------------

using Replacements = std::array<Text, 4>;

Replacements& TheReplacements()
{
    static NeverDestroyed<Replacements> sReplacements;
    return sReplacements.Get();
}

// With ^0 to ^3 replaced. What they are replaced by is not looked at again.
Text Replaced(const Text& theText)
{
    Text theResult;
    for (size_t theIndex = 0; theIndex < theText.size(); ++theIndex) {
        const char16_t theNext = theIndex + 1 < theText.size() ? theText[theIndex + 1] : u'\0';
        if (theText[theIndex] == u'^' && theNext >= u'0' && theNext <= u'3') {
            theResult += TheReplacements()[static_cast<size_t>(theNext - u'0')];
            ++theIndex;
        } else {
            theResult += theText[theIndex];
        }
    }
    return theResult;
}

Text TextOrNone(ConstStr255Param theString)
{
    return theString == nullptr ? Text() : Replaced(TextOfPascalString(theString));
}

Text TitleOf(ConstStringPtr theText, size_t theNumber)
{
    static const auto* const kDefault =
        reinterpret_cast<ConstStringPtr>(static_cast<std::intptr_t>(kAlertDefaultOKText));
    if (theText == kDefault) {
        return DefaultTitle(theNumber);
    }
    return theText == nullptr ? Text() : TextOfPascalString(theText);
}

AlertRequest RequestOf(ConstStr255Param theError, ConstStr255Param theExplanation,
                       const AlertStdAlertParamRec* theParam)
{
    AlertRequest theRequest;
    theRequest.theTexts.theMessage = TextOrNone(theError);
    theRequest.theTexts.theExplanation = TextOrNone(theExplanation);
    if (theParam != nullptr) {
        const ConstStringPtr theTitles[] = {theParam->defaultText, theParam->cancelText, theParam->otherText};
        for (size_t theNumber = 0; theNumber < std::size(theTitles); ++theNumber) {
            theRequest.theTexts.theButtons[theNumber] = TitleOf(theTitles[theNumber], theNumber);
        }
        theRequest.theTexts.theButtons[3] = theParam->helpButton ? Text(u"?") : Text();
        theRequest.theDefaultButton = theParam->defaultButton;
        theRequest.theCancelButton = theParam->cancelButton;
    }
    EnsureButton(&theRequest.theTexts);
    return theRequest;
}

void Replace(size_t theNumber, ConstStr255Param theText)
{
    if (theText != nullptr) {
        Guarded([=] {
            TheReplacements()[theNumber] = TextOfPascalString(theText);
            return OSStatus{noErr};
        });
    }
}

} // namespace

} // namespace Host

using namespace Host;

OSStatus GetStandardAlertDefaultParams(AlertStdCFStringAlertParamPtr param, UInt32 version)
{
    if (param == nullptr || !IsVersion(version)) {
        return paramErr;
    }
    *param = AlertStdCFStringAlertParamRec{};
    param->version = version;
    param->movable = true;
    param->defaultText = kDefaultText;
    param->defaultButton = kAlertStdAlertOKButton;
    return noErr;
}

// Alerts -------------------------------------------------------------------------------------------------

OSStatus CreateStandardAlert(AlertType alertType, CFStringRef error, CFStringRef explanation,
                             const AlertStdCFStringAlertParamRec* param, DialogRef* outAlert)
{
    return Create(alertType, error, explanation, param, false, nullptr, outAlert);
}

OSStatus RunStandardAlert(DialogRef inAlert, ModalFilterUPP, DialogItemIndex* outItemHit)
{
    if (outItemHit != nullptr) {
        *outItemHit = 0;
    }
    const SharedAlert theAlert = FindAlert(inAlert);
    if (theAlert == nullptr || theAlert->theIsSheet || theAlert->theIsRunning) {
        return paramErr;
    }
    theAlert->theIsRunning = true;
    ShowWindow(theAlert->theWindow);
    const OSStatus theStatus = RunAppModalLoopForWindow(theAlert->theWindow);
    if (outItemHit != nullptr) {
        *outItemHit = theAlert->theAnswer;
    }
    Dispose(inAlert);
    return theStatus;
}

OSErr StandardAlert(AlertType inAlertType, ConstStr255Param inError, ConstStr255Param inExplanation,
                    const AlertStdAlertParamRec* inAlertParam, SInt16* outItemHit)
{
    if (outItemHit != nullptr) {
        *outItemHit = 0;
    }
    const bool theFits =
        inAlertParam == nullptr || AreButtons(inAlertParam->defaultButton, inAlertParam->cancelButton);
    if (!IsType(inAlertType) || inError == nullptr || !theFits) {
        return paramErr;
    }
    DialogRef theAlert = nullptr;
    const OSStatus theStatus = Guarded(
        [&] { return Make(RequestOf(inError, inExplanation, inAlertParam), false, nullptr, &theAlert); });
    return static_cast<OSErr>(theStatus == noErr ? RunStandardAlert(theAlert, nullptr, outItemHit)
                                                 : theStatus);
}

void ParamText(ConstStr255Param param0, ConstStr255Param param1, ConstStr255Param param2,
               ConstStr255Param param3)
{
    Replace(0, param0);
    Replace(1, param1);
    Replace(2, param2);
    Replace(3, param3);
}

// Sheets -------------------------------------------------------------------------------------------------

OSStatus CreateStandardSheet(AlertType alertType, CFStringRef error, CFStringRef explanation,
                             const AlertStdCFStringAlertParamRec* param, EventTargetRef notifyTarget,
                             DialogRef* outSheet)
{
    return Create(alertType, error, explanation, param, true, notifyTarget, outSheet);
}

OSStatus CloseStandardSheet(DialogRef inSheet, UInt32 inResultCommand)
{
    const SharedAlert theSheet = FindAlert(inSheet);
    if (theSheet == nullptr || !theSheet->theIsSheet) {
        return paramErr;
    }
    CloseSheet(inSheet, *theSheet, inResultCommand);
    return noErr;
}

// Dialogs and their windows ------------------------------------------------------------------------------

WindowRef GetDialogWindow(DialogRef dialog)
{
    const SharedAlert theAlert = FindAlert(dialog);
    return theAlert == nullptr ? nullptr : theAlert->theWindow;
}

DialogRef GetDialogFromWindow(WindowRef window)
{
    DialogRef theDialog = nullptr;
    GetWindowProperty(window, kCreator, kDialogTag, sizeof(theDialog), nullptr, &theDialog);
    return FindAlert(theDialog) == nullptr ? nullptr : theDialog;
}

void DisposeDialog(DialogRef theDialog)
{
    Dispose(theDialog);
}
