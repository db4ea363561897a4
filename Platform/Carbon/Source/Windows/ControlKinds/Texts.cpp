// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Texts.h"

#include "Creation.h"
#include "DataTags.h"
#include "Events/OutgoingEvent.h"
#include "Events/PersonActions.h"

#include <algorithm>
#include <cstdint>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

const UInt32 kEnterOfPortables = 52;

bool IsFirstHalf(char16_t theUnit)
{
    return theUnit >= 0xD800 && theUnit < 0xDC00;
}

bool IsSecondHalf(char16_t theUnit)
{
    return theUnit >= 0xDC00 && theUnit < 0xE000;
}

// Control characters and the private codes of function keys are not text.
bool IsTyped(char16_t theUnit)
{
    return theUnit >= 0x20 && theUnit != 0x7F && (theUnit < 0xF700 || theUnit > 0xF8FF);
}

SInt16 Position(size_t thePosition)
{
    return static_cast<SInt16>(std::min<size_t>(thePosition, INT16_MAX));
}

TextAlignment AlignmentIn(const ControlFontStyleRec& theStyle)
{
    return (theStyle.flags & kControlUseJustMask) == 0 ? TextAlignment::kLeft : AlignmentOf(theStyle.just);
}

} // namespace

TextAlignment AlignmentOf(SInt16 theJustification)
{
    return theJustification == teCenter       ? TextAlignment::kCentre
           : theJustification == teFlushRight ? TextAlignment::kRight
                                              : TextAlignment::kLeft;
}

// Static texts -------------------------------------------------------------------------------------------

StaticText::StaticText(Text theText)
    : Control(kControlKindStaticText, kControlSupportsDataAccess),
      mText(std::move(theText))
{
}

const ControlDataTag* StaticText::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        StringTag<StaticText, &StaticText::Shown, &StaticText::SetShown>(kControlStaticTextCFStringTag),
        BytesTag<StaticText, &StaticText::Shown, &StaticText::SetShown>(kControlStaticTextTextTag),
        FlagTag<StaticText, &StaticText::mIsMultiline>(kControlStaticTextIsMultilineTag),
    };
    return FindIn(kTags, theTag, Control::FindTag(theTag));
}

void StaticText::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kStaticText;
    theLook.theText = Utf8Of(mText);
    theLook.theAlignment = AlignmentIn(mStyle);
    theLook.theIsMultiline = mIsMultiline;
}

// Edit texts ---------------------------------------------------------------------------------------------

EditText::EditText(OSType theKind, Text theText, bool theIsPassword)
    : Control(theKind, kControlSupportsFocus | kControlGetsFocusOnClick | kControlSupportsDataAccess),
      mText(std::move(theText)),
      mStart(mText.size()),
      mEnd(mText.size()),
      mIsPassword(theIsPassword)
{
}

void EditText::Select(size_t theStart, size_t theEnd)
{
    mEnd = std::min(theEnd, mText.size());
    mStart = std::min(theStart, mEnd);
}

void EditText::SetShown(const Text& theText)
{
    mText = theText;
    mHasEdits = false;
    Select(mText.size(), mText.size());
}

void EditText::ReplaceSelection(const Text& theText)
{
    const size_t theEnd = mStart + theText.size();
    mText.replace(mStart, mEnd - mStart, theText);
    Select(theEnd, theEnd);
}

// False when a handler wants no edit at all; it may also put another text in the place of the new one.
bool EditText::AskBeforeEdit(size_t theStart, size_t theEnd, Text* theText)
{
    if (Kind() == kControlKindEditText) {
        return true;
    }
    OutgoingEvent theEvent(kEventClassTextField, kEventTextShouldChangeInRange);
    CFStringRef theCandidate = CreateString(*theText);
    if (theCandidate == nullptr) {
        return false; // no memory for the question, let alone for the edit
    }
    const CFRange theRange =
        CFRangeMake(static_cast<CFIndex>(theStart), static_cast<CFIndex>(theEnd - theStart));
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.Set(kEventParamTextSelection, typeCFRange, theRange);
    theEvent.Set(kEventParamCandidateText, typeCFStringRef, theCandidate);
    CFRelease(theCandidate);
    const OSStatus theAnswer = theEvent.SendTo(Target(), kEventTargetDontPropagate);
    if (theAnswer == noErr) {
        CFStringRef theReplacement = nullptr;
        theEvent.Read(kEventParamReplacementText, typeCFStringRef, &theReplacement);
        *theText = TextOf(theReplacement);
    }
    return theAnswer != userCanceledErr;
}

void EditText::Edit(size_t theStart, size_t theEnd, const Text& theText)
{
    const SharedControl theKeepAlive = shared_from_this();
    Text theNew = theText;
    if (!AskBeforeEdit(theStart, theEnd, &theNew) || IsGone()) {
        return;
    }
    Select(theStart, theEnd); // a handler may have made the text shorter
    if (theNew.empty() && mStart == mEnd) {
        return;
    }
    ReplaceSelection(theNew);
    mHasEdits = true;
    Show();
    if (Kind() != kControlKindEditText) {
        OutgoingEvent theEvent(kEventClassTextField, kEventTextDidChange);
        theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
        theEvent.TellAll(Target());
    }
}

void EditText::Accept()
{
    mHasEdits = false;
    OutgoingEvent theEvent(kEventClassTextField, kEventTextAccepted);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.TellAll(Target());
}

// What is selected is seen where keys go, and nowhere else.
void EditText::FocusMoved(bool theHasFocus)
{
    if (theHasFocus) {
        return;
    }
    if (mStart != mEnd) {
        Select(mEnd, mEnd);
        Show();
    }
    if (mHasEdits) {
        Accept();
    }
}

// What is typed next takes the place of the whole text.
void EditText::EnteredByKey()
{
    Select(0, mText.size());
    Show();
}

ControlPartCode EditText::PartAt(Point) const
{
    return kControlEditTextPart;
}

ControlPartCode EditText::FocusPart(bool) const
{
    return kControlEditTextPart;
}

// Keys ---------------------------------------------------------------------------------------------------

size_t EditText::Before(size_t thePosition) const
{
    if (thePosition >= 2 && IsSecondHalf(mText[thePosition - 1]) && IsFirstHalf(mText[thePosition - 2])) {
        return thePosition - 2;
    }
    return thePosition == 0 ? 0 : thePosition - 1;
}

size_t EditText::After(size_t thePosition) const
{
    const size_t theLength = mText.size();
    if (thePosition + 1 < theLength && IsFirstHalf(mText[thePosition]) &&
        IsSecondHalf(mText[thePosition + 1])) {
        return thePosition + 2;
    }
    return std::min(thePosition + 1, theLength);
}

OSStatus EditText::MoveSelection(const KeyPress& theKey)
{
    const bool theIsExtended = (theKey.theModifiers & shiftKey) != 0;
    const bool theHasSelection = mStart != mEnd && !theIsExtended;
    switch (theKey.theCode) {
    case kVK_LeftArrow: {
        const size_t theStart = theHasSelection ? mStart : Before(mStart);
        Select(theStart, theIsExtended ? mEnd : theStart);
        break;
    }
    case kVK_RightArrow: {
        const size_t theEnd = theHasSelection ? mEnd : After(mEnd);
        Select(theIsExtended ? mStart : theEnd, theEnd);
        break;
    }
    case kVK_UpArrow:
    case kVK_Home:
        Select(0, theIsExtended ? mEnd : 0);
        break;
    case kVK_DownArrow:
    case kVK_End:
        Select(theIsExtended ? mStart : mText.size(), mText.size());
        break;
    default:
        return eventNotHandledErr;
    }
    Show();
    return noErr;
}

OSStatus EditText::DeleteByKey(bool theIsForward)
{
    if (mStart != mEnd) {
        Edit(mStart, mEnd, Text());
    } else if (theIsForward) {
        Edit(mStart, After(mStart), Text());
    } else {
        Edit(Before(mStart), mStart, Text());
    }
    return noErr;
}

OSStatus EditText::PressKey(const KeyPress& theKey)
{
    switch (theKey.theCode) {
    case kVK_Return:
    case kVK_ANSI_KeypadEnter:
    case kEnterOfPortables:
        // The window may still press its default button.
        Accept();
        return eventNotHandledErr;
    case kVK_Tab:
    case kVK_Escape:
        return eventNotHandledErr;
    default:
        break;
    }
    if ((theKey.theModifiers & cmdKey) != 0 || !CanBePressed()) {
        return eventNotHandledErr;
    }
    if (MoveSelection(theKey) == noErr) {
        return noErr;
    }
    if (mIsLocked) {
        return eventNotHandledErr;
    }
    if (theKey.theCode == kVK_Delete || theKey.theCode == kVK_ForwardDelete) {
        return DeleteByKey(theKey.theCode == kVK_ForwardDelete);
    }
    Text theTyped;
    std::copy_if(theKey.theText.begin(), theKey.theText.end(), std::back_inserter(theTyped), IsTyped);
    if (theTyped.empty()) {
        return eventNotHandledErr;
    }
    Edit(mStart, mEnd, theTyped);
    return noErr;
}

// The clipboard has lines that end with a line feed, texts of the platform with a return.
void EditText::Copy() const
{
    Text theSelected = mText.substr(mStart, mEnd - mStart);
    if (mIsPassword || theSelected.empty()) {
        return;
    }
    std::replace(theSelected.begin(), theSelected.end(), u'\r', u'\n');
    PresenterRegistry::Current().SetClipboardText(Utf8Of(theSelected));
}

void EditText::Paste()
{
    Text theText;
    for (const char16_t theUnit : TextOfUtf8(PresenterRegistry::Current().ClipboardText())) {
        if (IsTyped(theUnit)) {
            theText += theUnit;
        } else if (theUnit == u'\n' || theUnit == u'\r' || theUnit == u'\t') {
            theText += mIsSingleLine || theUnit == u'\t' ? u' ' : u'\r';
        }
    }
    if (!theText.empty()) {
        Edit(mStart, mEnd, theText);
    }
}

OSStatus EditText::PressCommandKey(char theCharacter)
{
    const bool theIsChange = theCharacter == 'x' || theCharacter == 'v';
    if (!CanBePressed() || (theIsChange && mIsLocked)) {
        return eventNotHandledErr;
    }
    switch (theCharacter) {
    case 'a':
        Select(0, mText.size());
        Show();
        return noErr;
    case 'c':
        Copy();
        return noErr;
    case 'x':
        Copy();
        if (!mIsPassword) {
            Edit(mStart, mEnd, Text());
        }
        return noErr;
    case 'v':
        Paste();
        return noErr;
    default:
        return eventNotHandledErr;
    }
}

// Data ---------------------------------------------------------------------------------------------------

namespace {

ControlDataTag SelectionTag()
{
    ControlDataTag theEntry = {kControlEditTextSelectionTag, sizeof(ControlEditTextSelectionRec), nullptr,
                               nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        const auto& theField = static_cast<const EditText&>(theControl);
        Put(theBuffer, ControlEditTextSelectionRec{Position(theField.SelectionStart()),
                                                   Position(theField.SelectionEnd())});
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        const auto theSelection = Take<ControlEditTextSelectionRec>(theData);
        const auto theClamped = [](SInt16 thePosition) {
            return static_cast<size_t>(std::max<SInt16>(thePosition, 0));
        };
        static_cast<EditText&>(theControl)
            .Select(theClamped(theSelection.selStart), theClamped(theSelection.selEnd));
        return OSErr{noErr};
    };
    return theEntry;
}

ControlDataTag CountTag()
{
    ControlDataTag theEntry = {kControlEditTextCharCount, sizeof(UInt32), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        Put(theBuffer, static_cast<UInt32>(static_cast<const EditText&>(theControl).Shown().size()));
    };
    return theEntry;
}

ControlDataTag WithoutReading(ControlDataTag theEntry)
{
    theEntry.theRead = nullptr;
    theEntry.theReadBytes = nullptr;
    return theEntry;
}

} // namespace

const ControlDataTag* EditText::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {
        StringTag<EditText, &EditText::Shown, &EditText::SetShown>(kControlEditTextCFStringTag),
        BytesTag<EditText, &EditText::Shown, &EditText::SetShown>(kControlEditTextTextTag),
        FlagTag<EditText, &EditText::mIsLocked>(kControlEditTextLockedTag),
        FlagTag<EditText, &EditText::mIsSingleLine>(kControlEditTextSingleLineTag),
        SelectionTag(),
        CountTag(),
        WithoutReading(StringTag<EditText, &EditText::Shown, &EditText::ReplaceSelection>(
            kControlEditTextInsertCFStringRefTag)),
        WithoutReading(BytesTag<EditText, &EditText::Shown, &EditText::ReplaceSelection>(
            kControlEditTextInsertTextBufferTag)),
    };
    static const ControlDataTag kPasswordTags[] = {
        StringTag<EditText, &EditText::Shown, &EditText::SetShown>(kControlEditTextPasswordCFStringTag),
        BytesTag<EditText, &EditText::Shown, &EditText::SetShown>(kControlEditTextPasswordTag),
    };
    const ControlDataTag* theCommon = FindIn(kTags, theTag, Control::FindTag(theTag));
    return mIsPassword ? FindIn(kPasswordTags, theTag, theCommon) : theCommon;
}

void EditText::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kEditText;
    theLook.theText = Utf8Of(mText);
    theLook.theAlignment = AlignmentIn(mStyle);
    theLook.theSelectionStart = static_cast<int>(std::min<size_t>(mStart, INT32_MAX));
    theLook.theSelectionEnd = static_cast<int>(std::min<size_t>(mEnd, INT32_MAX));
    theLook.theIsPassword = mIsPassword;
    theLook.theIsLocked = mIsLocked;
    theLook.theIsMultiline = !mIsSingleLine;
}

// What was common at both ends stays; handlers are asked about the rest only.
bool TextEditedByPerson(const SharedControl& theControl, const Text& theText, size_t theSelectionStart,
                        size_t theSelectionEnd)
{
    auto* theField = dynamic_cast<EditText*>(theControl.get());
    if (theField == nullptr || !theField->TakesInput() || theField->IsGone()) {
        return false;
    }
    const Text theOld = theField->Shown();
    if (theOld != theText) {
        const auto theFirst = std::mismatch(theOld.begin(), theOld.end(), theText.begin(), theText.end());
        const auto theHead = theFirst.first - theOld.begin();
        const auto theLast = std::mismatch(theOld.rbegin(), theOld.rend() - theHead, theText.rbegin(),
                                           theText.rend() - theHead);
        const auto theTail = theLast.first - theOld.rbegin();
        const size_t theEnd = theOld.size() - static_cast<size_t>(theTail);
        PersonAction theAction(kEventClassTextInput, kEventTextInputUnicodeForKeyEvent);
        theAction.Set(kEventParamDirectObject, typeControlRef, theField->Reference());
        theAction.Do([&] {
            theField->Edit(static_cast<size_t>(theHead), theEnd,
                           Text(theFirst.second, theText.end() - theTail));
        });
    } else if (theField->SelectionStart() == theSelectionStart &&
               theField->SelectionEnd() == theSelectionEnd) {
        return false;
    }
    if (!theField->IsGone() && theField->Shown() == theText) {
        theField->Select(theSelectionStart, theSelectionEnd);
    }
    theField->Show();
    return true;
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

namespace {

OSStatus CreateEditText(OSType theKind, const Host::CreationRequest& theRequest, CFStringRef theText,
                        bool theIsPassword, const ControlFontStyleRec* theStyle)
{
    return Host::Make(theRequest, [&] {
        auto theControl = std::make_shared<Host::EditText>(theKind, Host::TextOf(theText), theIsPassword);
        theControl->mStyle = theStyle == nullptr ? ControlFontStyleRec{} : *theStyle;
        return theControl;
    });
}

} // namespace

OSStatus CreateStaticTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text,
                                 const ControlFontStyleRec* style, ControlRef* outControl)
{
    return Host::Make({window, boundsRect, nullptr, outControl, true}, [&] {
        auto theNew = std::make_shared<Host::StaticText>(Host::TextOf(text));
        theNew->mStyle = style == nullptr ? ControlFontStyleRec{} : *style;
        return theNew;
    });
}

OSStatus CreateEditTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text, Boolean isPassword,
                               Boolean, const ControlFontStyleRec* style, ControlRef* outControl)
{
    return CreateEditText(kControlKindEditText, {window, boundsRect, nullptr, outControl, true}, text,
                          isPassword != 0, style);
}

OSStatus CreateEditUnicodeTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text,
                                      Boolean isPassword, const ControlFontStyleRec* style,
                                      ControlRef* outControl)
{
    return CreateEditText(kControlKindEditUnicodeText, {window, boundsRect, nullptr, outControl, true}, text,
                          isPassword != 0, style);
}
