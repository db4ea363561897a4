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
    if (theEntry != nullptr && theEntry->theWritePart != nullptr) {
        const OSErr theStatus = theEntry->theWritePart(
            *theCall.theControl, theCall.thePart, theCall.theBuffer, static_cast<size_t>(theCall.theSize));
        theCall.theControl->Show();
        return theStatus;
    }
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
    if (theEntry != nullptr && theEntry->theReadPart != nullptr) {
        *theActualSize = theCall.theSize;
        return theEntry->theReadPart(*theCall.theControl, theCall.thePart, theCall.theBuffer, theActualSize);
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
    return theCall.theSize < 0 ? OSErr{paramErr} : OSErr{noErr};
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

OSErr SetControlData(ControlRef inControl, ControlPartCode inPart, ResType inTagName, Size inSize,
                     const void* inData)
{
    // The event has one parameter for both directions, hence the cast; nothing writes through it.
    DataCall theCall = {Host::FindControl(inControl), inPart, inTagName, inSize, const_cast<void*>(inData)};
    OSErr theStatus = CheckCall(theCall);
    if (theStatus == noErr && inData == nullptr && inSize > 0) {
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

OSErr GetControlData(ControlRef inControl, ControlPartCode inPart, ResType inTagName, Size inBufferSize,
                     void* inBuffer, Size* outActualSize)
{
    const DataCall theCall = {Host::FindControl(inControl), inPart, inTagName, inBufferSize, inBuffer};
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
    if (outActualSize != nullptr) {
        *outActualSize = theSize;
    }
    return theResult;
}

OSErr GetControlDataSize(ControlRef inControl, ControlPartCode inPart, ResType inTagName, Size* outMaxSize)
{
    return outMaxSize == nullptr ? OSErr{paramErr}
                                 : GetControlData(inControl, inPart, inTagName, 0, nullptr, outMaxSize);
}

OSErr SetControlFontStyle(ControlRef inControl, const ControlFontStyleRec* inStyle)
{
    const SharedControl theFound = Host::FindControl(inControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (inStyle == nullptr) {
        return paramErr;
    }
    theFound->mStyle = *inStyle;
    theFound->Show();
    return noErr;
}

OSStatus SetControlProperty(ControlRef control, OSType propertyCreator, OSType propertyTag,
                            ByteCount propertySize, const void* propertyData)
{
    const SharedControl theFound = Host::FindControl(control);
    return theFound == nullptr
               ? OSStatus{controlHandleInvalidErr}
               : theFound->mProperties.Set(propertyCreator, propertyTag, propertySize, propertyData);
}

OSStatus GetControlProperty(ControlRef control, OSType propertyCreator, OSType propertyTag,
                            ByteCount bufferSize, ByteCount* actualSize, void* propertyBuffer)
{
    const SharedControl theFound = Host::FindControl(control);
    return theFound == nullptr ? OSStatus{controlHandleInvalidErr}
                               : theFound->mProperties.Get(propertyCreator, propertyTag, bufferSize,
                                                           actualSize, propertyBuffer);
}

OSStatus GetControlPropertySize(ControlRef control, OSType propertyCreator, OSType propertyTag,
                                ByteCount* size)
{
    const SharedControl theFound = Host::FindControl(control);
    return theFound == nullptr ? OSStatus{controlHandleInvalidErr}
                               : theFound->mProperties.GetSize(propertyCreator, propertyTag, size);
}

OSStatus RemoveControlProperty(ControlRef control, OSType propertyCreator, OSType propertyTag)
{
    const SharedControl theFound = Host::FindControl(control);
    return theFound == nullptr ? OSStatus{controlHandleInvalidErr}
                               : theFound->mProperties.Remove(propertyCreator, propertyTag);
}
