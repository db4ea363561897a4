// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The classes that a program can make objects of.

#include "ObjectClass.h"

#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"

#include <algorithm>
#include <map>

namespace Host {

namespace {

using ClassTable = ReferenceTable<HIObjectClassRef, ReferenceKind::kObjectClass, ObjectClass, NoMutex>;

ClassTable& Classes()
{
    static NeverDestroyed<ClassTable> sClasses;
    return sClasses.Get();
}

SharedObjectClass PlatformClass(const Text& theName, SharedObjectClass theBase)
{
    auto theClass = std::make_shared<ObjectClass>();
    theClass->theName = theName;
    theClass->theBase = std::move(theBase);
    theClass->theIsPlatforms = true;
    return theClass;
}

// The classes that there are, under their names. That of all objects has none.
struct ClassNames : std::map<Text, SharedObjectClass>
{
    ClassNames()
    {
        const SharedObjectClass theObjects = PlatformClass(Text(), nullptr);
        const SharedObjectClass theViews = PlatformClass(TextOf(kHIViewClassID), theObjects);
        const SharedObjectClass thePanes = PlatformClass(TextOf(kHIUserPaneClassID), theViews);
        for (const SharedObjectClass& theClass : {theObjects, theViews, thePanes}) {
            emplace(theClass->theName, theClass);
        }
    }
};

ClassNames& Names()
{
    static NeverDestroyed<ClassNames> sNames;
    return sNames.Get();
}

struct NamedKind
{
    OSType theKind;
    CFStringRef theName;
};

bool Holds(const std::vector<EventTypeSpec>& theEvents, UInt32 theKind)
{
    return std::any_of(theEvents.begin(), theEvents.end(), [=](const EventTypeSpec& theType) {
        return theType.eventClass == kEventClassHIObject && theType.eventKind == theKind;
    });
}

// A class without a function has no use for events.
bool AreEvents(EventHandlerUPP theFunction, const std::vector<EventTypeSpec>& theEvents)
{
    return theFunction == nullptr ||
           (Holds(theEvents, kEventHIObjectConstruct) && Holds(theEvents, kEventHIObjectDestruct));
}

OSStatus Register(const SharedObjectClass& theClass, HIObjectClassRef* theReference)
{
    const HIObjectClassRef theNew = Classes().Add(theClass);
    const OSStatus theStatus = Guarded([&] {
        Names().emplace(theClass->theName, theClass);
        return OSStatus{noErr};
    });
    if (theStatus != noErr) {
        Classes().Remove(theNew);
        return theStatus;
    }
    ++theClass->theBase->theSubclasses;
    if (theReference != nullptr) {
        *theReference = theNew;
    }
    return noErr;
}

} // namespace

bool ObjectClass::IsA(const Text& theWanted) const
{
    return theName == theWanted || (theBase != nullptr && theBase->IsA(theWanted));
}

SharedObjectClass FindObjectClass(const Text& theName)
{
    const auto theFound = Names().find(theName);
    return theFound == Names().end() ? nullptr : theFound->second;
}

Text ClassNameOf(OSType theControlKind)
{
    const NamedKind kNamedKinds[] = {
        {kControlKindUserPane, kHIUserPaneClassID},         {kControlKindPushButton, kHIPushButtonClassID},
        {kControlKindCheckBox, kHICheckBoxClassID},         {kControlKindSlider, kHISliderClassID},
        {kControlKindStaticText, kHIStaticTextViewClassID}, {kControlKindEditText, kHITextFieldClassID},
        {kControlKindEditUnicodeText, kHITextFieldClassID},
    };
    for (const NamedKind& theNamed : kNamedKinds) {
        if (theNamed.theKind == theControlKind) {
            return TextOf(theNamed.theName);
        }
    }
    return TextOf(kHIViewClassID);
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

using namespace Host;

OSStatus HIObjectRegisterSubclass(CFStringRef inClassID, CFStringRef inBaseClassID, OptionBits inOptions,
                                  EventHandlerUPP inConstructProc, ItemCount inNumEvents,
                                  const EventTypeSpec* inEventList, void* inConstructData,
                                  HIObjectClassRef* outClassRef)
{
    if (outClassRef != nullptr) {
        *outClassRef = nullptr;
    }
    if (inOptions != 0 || (inNumEvents != 0 && inEventList == nullptr)) {
        return paramErr;
    }
    return Guarded([&] {
        const auto theClass = std::make_shared<ObjectClass>();
        theClass->theName = TextOf(inClassID);
        theClass->theBase = FindObjectClass(TextOf(inBaseClassID));
        theClass->theFunction = inConstructProc;
        theClass->theData = inConstructData;
        theClass->theEvents.assign(inEventList, inEventList + inNumEvents);
        if (theClass->theName.empty() || theClass->theBase == nullptr ||
            !AreEvents(inConstructProc, theClass->theEvents)) {
            return OSStatus{paramErr};
        }
        return FindObjectClass(theClass->theName) != nullptr ? OSStatus{hiObjectClassExistsErr}
                                                             : Register(theClass, outClassRef);
    });
}

OSStatus HIObjectUnregisterClass(HIObjectClassRef inClassRef)
{
    const SharedObjectClass theClass = Classes().Find(inClassRef);
    if (theClass == nullptr) {
        return paramErr;
    }
    if (theClass->theInstances != 0) {
        return hiObjectClassHasInstancesErr;
    }
    if (theClass->theSubclasses != 0) {
        return hiObjectClassHasSubclassesErr;
    }
    --theClass->theBase->theSubclasses;
    Names().erase(theClass->theName);
    Classes().Remove(inClassRef);
    return noErr;
}
