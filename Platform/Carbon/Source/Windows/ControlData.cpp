// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Data of controls under tags, and properties.

#include "Base/Guarded.h"
#include "Events/OutgoingEvent.h"
#include "Window.h"
#include "Windows/ControlKinds/DataTags.h"

#include <algorithm>

namespace Host {

namespace {

ControlDataTag StyleTag()
{
    ControlDataTag theEntry = {kControlFontStyleTag, sizeof(ControlFontStyleRec), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) { Put(theBuffer, theControl.mStyle); };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        theControl.mStyle = Take<ControlFontStyleRec>(theData);
        return OSErr{noErr};
    };
    return theEntry;
}

ControlDataTag KindTag()
{
    ControlDataTag theEntry = {kControlKindTag, sizeof(ControlKind), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        Put(theBuffer, ControlKind{kControlKindSignatureApple, theControl.Kind()});
    };
    return theEntry;
}

ControlDataTag SizeTag()
{
    ControlDataTag theEntry = {kControlSizeTag, sizeof(ControlSize), nullptr, nullptr, nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) { Put(theBuffer, theControl.mSize); };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        const auto theSize = Take<ControlSize>(theData);
        if (theSize > kControlSizeMini && theSize != kControlSizeAuto) {
            return OSErr{paramErr};
        }
        theControl.mSize = theSize;
        return OSErr{noErr};
    };
    return theEntry;
}

bool IsPartOf(const Control& theControl, ControlPartCode thePart)
{
    return thePart == kControlEntireControl ||
           (thePart == kControlEditTextPart && theControl.FocusPart(true) == kControlEditTextPart);
}

// A call of Set- or GetControlData on its way to the control.
struct DataCall
{
    SharedControl theControl;
    ControlPartCode thePart;
    ResType theTag;
    Size theSize;
    void* theBuffer;
};

// Gives the handlers the chance to do it; theSize is what they made of it.
OSStatus AskHandlers(const DataCall& theCall, UInt32 theKind, Size* theSize)
{
    OutgoingEvent theEvent(kEventClassControl, theKind);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theCall.theControl->Reference());
    theEvent.Set(kEventParamControlPart, typeControlPartCode, theCall.thePart);
    theEvent.Set(kEventParamControlDataTag, typeEnumeration, theCall.theTag);
    theEvent.Set(kEventParamControlDataBuffer, typePtr, theCall.theBuffer);
    theEvent.Set(kEventParamControlDataBufferSize, typeByteCount, static_cast<ByteCount>(theCall.theSize));
    const OSStatus theAnswer = theEvent.SendTo(theCall.theControl->Target(), kEventTargetDontPropagate);
    ByteCount theNewSize = static_cast<ByteCount>(theCall.theSize);
    theEvent.Read(kEventParamControlDataBufferSize, typeByteCount, &theNewSize);
    *theSize = static_cast<Size>(theNewSize);
    return theAnswer;
}

OSErr Write(const DataCall& theCall)
{
    const ControlDataTag* theEntry = theCall.theControl->FindTag(theCall.theTag);
    if (theEntry == nullptr || theEntry->theWrite == nullptr) {
        return errDataNotSupported;
    }
    if (theEntry->theSize != ControlDataTag::kBytes && theEntry->theSize != theCall.theSize) {
        return errDataSizeMismatch;
    }
    const OSErr theStatus =
        theEntry->theWrite(*theCall.theControl, theCall.theBuffer, static_cast<size_t>(theCall.theSize));
    theCall.theControl->Show();
    return theStatus;
}

OSErr ReadBytes(const DataCall& theCall, const ControlDataTag& theEntry, Size* theActualSize)
{
    const std::string theBytes = theEntry.theReadBytes(*theCall.theControl);
    *theActualSize = static_cast<Size>(theBytes.size());
    if (theCall.theBuffer != nullptr) {
        std::memcpy(theCall.theBuffer, theBytes.data(),
                    std::min(theBytes.size(), static_cast<size_t>(theCall.theSize)));
    }
    return noErr;
}

OSErr Read(const DataCall& theCall, Size* theActualSize)
{
    const ControlDataTag* theEntry = theCall.theControl->FindTag(theCall.theTag);
    if (theEntry != nullptr && theEntry->theReadBytes != nullptr) {
        return ReadBytes(theCall, *theEntry, theActualSize);
    }
    if (theEntry == nullptr || theEntry->theRead == nullptr) {
        return errDataNotSupported;
    }
    *theActualSize = theEntry->theSize;
    if (theCall.theBuffer == nullptr) {
        return noErr;
    }
    if (theCall.theSize < theEntry->theSize) {
        return errDataSizeMismatch;
    }
    theEntry->theRead(*theCall.theControl, theCall.theBuffer);
    return noErr;
}

OSErr CheckCall(const DataCall& theCall)
{
    if (theCall.theControl == nullptr) {
        return errUnknownControl;
    }
    if (theCall.theSize < 0) {
        return paramErr;
    }
    return IsPartOf(*theCall.theControl, theCall.thePart) ? OSErr{noErr} : OSErr{errInvalidPartCode};
}

} // namespace

const ControlDataTag* Control::FindTag(ResType theTag) const
{
    static const ControlDataTag kTags[] = {StyleTag(), KindTag(), SizeTag()};
    return FindIn(kTags, theTag, nullptr);
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

using namespace Host;

OSErr SetControlData(ControlRef theControl, ControlPartCode thePart, ResType theTag, Size theSize,
                     const void* theData)
{
    // The event has one parameter for both directions, hence the cast; nothing writes through it.
    DataCall theCall = {Host::FindControl(theControl), thePart, theTag, theSize, const_cast<void*>(theData)};
    OSErr theStatus = CheckCall(theCall);
    if (theStatus == noErr && theData == nullptr && theSize > 0) {
        theStatus = paramErr;
    }
    if (theStatus != noErr) {
        return theStatus;
    }
    Size theHandledSize = 0;
    const OSStatus theAnswer = AskHandlers(theCall, kEventControlSetData, &theHandledSize);
    if (theAnswer != eventNotHandledErr) {
        return static_cast<OSErr>(theAnswer);
    }
    if (theCall.theControl->IsGone()) {
        return errUnknownControl;
    }
    return static_cast<OSErr>(Guarded([&] { return OSStatus{Write(theCall)}; }));
}

OSErr GetControlData(ControlRef theControl, ControlPartCode thePart, ResType theTag, Size theBufferSize,
                     void* theBuffer, Size* theActualSize)
{
    const DataCall theCall = {Host::FindControl(theControl), thePart, theTag, theBufferSize, theBuffer};
    const OSErr theStatus = CheckCall(theCall);
    if (theStatus != noErr) {
        return theStatus;
    }
    Size theSize = 0;
    const OSStatus theAnswer = AskHandlers(theCall, kEventControlGetData, &theSize);
    OSErr theResult = static_cast<OSErr>(theAnswer);
    if (theAnswer == eventNotHandledErr) {
        theSize = 0;
        theResult = theCall.theControl->IsGone()
                        ? OSErr{errUnknownControl}
                        : static_cast<OSErr>(Guarded([&] { return OSStatus{Read(theCall, &theSize)}; }));
    }
    if (theActualSize != nullptr) {
        *theActualSize = theSize;
    }
    return theResult;
}

OSErr GetControlDataSize(ControlRef theControl, ControlPartCode thePart, ResType theTag, Size* theSize)
{
    return theSize == nullptr ? OSErr{paramErr}
                              : GetControlData(theControl, thePart, theTag, 0, nullptr, theSize);
}

OSErr SetControlFontStyle(ControlRef theControl, const ControlFontStyleRec* theStyle)
{
    const SharedControl theFound = Host::FindControl(theControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (theStyle == nullptr) {
        return paramErr;
    }
    theFound->mStyle = *theStyle;
    return noErr;
}

OSStatus SetControlProperty(ControlRef theControl, OSType theCreator, OSType theTag, ByteCount theSize,
                            const void* theData)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? OSStatus{controlHandleInvalidErr}
                               : theFound->mProperties.Set(theCreator, theTag, theSize, theData);
}

OSStatus GetControlProperty(ControlRef theControl, OSType theCreator, OSType theTag, ByteCount theBufferSize,
                            ByteCount* theActualSize, void* theBuffer)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr
               ? OSStatus{controlHandleInvalidErr}
               : theFound->mProperties.Get(theCreator, theTag, theBufferSize, theActualSize, theBuffer);
}

OSStatus GetControlPropertySize(ControlRef theControl, OSType theCreator, OSType theTag, ByteCount* theSize)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? OSStatus{controlHandleInvalidErr}
                               : theFound->mProperties.GetSize(theCreator, theTag, theSize);
}

OSStatus RemoveControlProperty(ControlRef theControl, OSType theCreator, OSType theTag)
{
    const SharedControl theFound = Host::FindControl(theControl);
    return theFound == nullptr ? OSStatus{controlHandleInvalidErr}
                               : theFound->mProperties.Remove(theCreator, theTag);
}
