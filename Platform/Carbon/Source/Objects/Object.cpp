// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Making objects, and asking them what they are.

#include "Base/Guarded.h"
#include "ClassView.h"
#include "Events/OutgoingEvent.h"
#include "PlainObject.h"

#include <cstdio>

using namespace Host;

namespace {

ControlRef ViewReference(HIObjectRef theReference)
{
    return reinterpret_cast<ControlRef>(theReference);
}

// The object of a class of the program; null for whatever else it is.
SharedInstance FindInstance(HIObjectRef theReference)
{
    if (SharedInstance theObject = FindPlainObject(theReference)) {
        return theObject;
    }
    return std::dynamic_pointer_cast<ClassView>(Host::FindControl(ViewReference(theReference)));
}

// The class of an object or control. Throws std::bad_alloc; empty for what is neither.
Text ClassNameOf(HIObjectRef theReference)
{
    if (const SharedInstance theInstance = FindInstance(theReference)) {
        return theInstance->Class().theName;
    }
    const SharedControl theControl = Host::FindControl(ViewReference(theReference));
    return theControl == nullptr ? Text() : Host::ClassNameOf(theControl->Kind());
}

// A control of the platform is of its own class and a view.
bool IsOfClass(HIObjectRef theReference, const Text& theClassName)
{
    if (const SharedInstance theInstance = FindInstance(theReference)) {
        return theInstance->Class().IsA(theClassName);
    }
    const Text theOwn = ClassNameOf(theReference);
    return !theOwn.empty() && (theClassName == theOwn || theClassName == TextOf(kHIViewClassID));
}

SharedInstance MakeView(const SharedObjectClass& theClass)
{
    auto theView = std::make_shared<ClassView>(theClass);
    theView->StartHidden();
    theView->Begin(nullptr, Rect{0, 0, 0, 0}, Text());
    return theView;
}

SharedInstance MakeObject(const SharedObjectClass& theClass)
{
    auto theObject = std::make_shared<PlainObject>(theClass);
    theObject->Begin();
    return theObject;
}

OSStatus Complete(Instance& theInstance, EventRef theParameters)
{
    const OutgoingEvent theDefault(kEventClassHIObject, kEventHIObjectInitialize);
    const OSStatus theStatus = theInstance.Construct();
    if (theStatus != noErr) {
        return theStatus;
    }
    return theInstance.Initialize(theParameters == nullptr ? theDefault.Get() : theParameters);
}

OSStatus Create(const SharedObjectClass& theClass, EventRef theParameters, HIObjectRef* theReference)
{
    if (theClass == nullptr) {
        return paramErr;
    }
    if (theClass->theFunction == nullptr && !theClass->theIsPlatforms) {
        return hiObjectClassIsAbstractErr;
    }
    const bool theIsView = theClass->IsA(TextOf(kHIViewClassID));
    const SharedInstance theInstance = theIsView ? MakeView(theClass) : MakeObject(theClass);
    const OSStatus theStatus = Complete(*theInstance, theParameters);
    if (theStatus == noErr) {
        *theReference = theInstance->ObjectReference();
    } else {
        theInstance->End();
    }
    return theStatus;
}

bool IsForInitializing(EventRef theEvent)
{
    return theEvent == nullptr || (GetEventClass(theEvent) == kEventClassHIObject &&
                                   GetEventKind(theEvent) == kEventHIObjectInitialize);
}

} // namespace

OSStatus HIObjectCreate(CFStringRef inClassID, EventRef inConstructData, HIObjectRef* outObject)
{
    if (outObject == nullptr) {
        return paramErr;
    }
    *outObject = nullptr;
    if (inClassID == nullptr || !IsForInitializing(inConstructData)) {
        return paramErr;
    }
    return Guarded([&] { return Create(FindObjectClass(TextOf(inClassID)), inConstructData, outObject); });
}

EventTargetRef HIObjectGetEventTarget(HIObjectRef inObject)
{
    if (const SharedInstance theInstance = FindInstance(inObject)) {
        return theInstance->ObjectTarget();
    }
    if (const EventTargetRef theControl = GetControlEventTarget(ViewReference(inObject))) {
        return theControl;
    }
    const EventTargetRef theWindow = GetWindowEventTarget(reinterpret_cast<WindowRef>(inObject));
    return theWindow == nullptr ? GetMenuEventTarget(reinterpret_cast<MenuRef>(inObject)) : theWindow;
}

CFStringRef HIObjectCopyClassID(HIObjectRef inObject)
{
    CFStringRef theName = nullptr;
    Guarded([&] {
        const Text theText = ClassNameOf(inObject);
        theName = theText.empty() ? nullptr : CreateString(theText);
        return OSStatus{noErr};
    });
    return theName;
}

Boolean HIObjectIsOfClass(HIObjectRef inObject, CFStringRef inObjectClassID)
{
    if (inObjectClassID == nullptr) {
        return false;
    }
    bool theIsOfClass = false;
    Guarded([&] {
        theIsOfClass = IsOfClass(inObject, TextOf(inObjectClassID));
        return OSStatus{noErr};
    });
    return theIsOfClass;
}

void* HIObjectDynamicCast(HIObjectRef inObject, CFStringRef inClassID)
{
    if (inClassID == nullptr) {
        return nullptr;
    }
    void* theData = nullptr;
    Guarded([&] {
        const Text theName = TextOf(inClassID);
        if (const SharedInstance theInstance = FindInstance(inObject)) {
            theData = theInstance->DataOf(theName);
        } else if (IsOfClass(inObject, theName)) {
            theData = inObject;
        }
        return OSStatus{noErr};
    });
    return theData;
}

void HIObjectPrintDebugInfo(HIObjectRef inObject)
{
    const OSStatus theStatus = Guarded([&] {
        const std::string theName = Utf8Of(ClassNameOf(inObject));
        if (theName.empty()) {
            return OSStatus{paramErr};
        }
        std::printf("%s %p\n", theName.c_str(), static_cast<void*>(inObject));
        return OSStatus{noErr};
    });
    if (theStatus == noErr) {
        const OutgoingEvent theEvent(kEventClassHIObject, kEventHIObjectPrintDebugInfo);
        theEvent.TellAll(HIObjectGetEventTarget(inObject));
    }
}
