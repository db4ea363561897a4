// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Objects of a program's own classes, among them views.
//
// A class is a function that is called with events: it makes an instance's data when it hears Construct,
// reads its parameters when it hears Initialize, and frees the data when it hears Destruct. For the other
// events of its list it is a handler on each instance. A class of views also hears the events of controls.
//
//     static const EventTypeSpec kEvents[] = {{kEventClassHIObject, kEventHIObjectConstruct},
//                                             {kEventClassHIObject, kEventHIObjectDestruct},
//                                             {kEventClassControl, kEventControlHitTest}};
//     HIObjectRegisterSubclass(CFSTR("com.example.dial"), kHIViewClassID, 0, HandleDialEvent, 3, kEvents,
//                              NULL, NULL);
//     HIObjectCreate(CFSTR("com.example.dial"), NULL, &theDial);
//     HIViewAddSubview(theContent, (HIViewRef)theDial);
//
// An object has a count, which is 1 at first, and which CFRetain, CFRelease and CFGetRetainCount work on. At
// zero it is destroyed. Those calls also take any control, window and menu. A view is destroyed when it is
// disposed, too, by DisposeControl or with what it is in, whatever its count is; CFRelease of a reference
// whose object is gone does nothing.

#ifndef HIObject_h
#define HIObject_h

#include <Carbon/CarbonBase.h>
#include <Carbon/CarbonEventsCore.h>

typedef struct OpaqueHIObjectRef* HIObjectRef;
typedef struct OpaqueHIObjectClassRef* HIObjectClassRef;

// kEventClassHIObject.
enum
{
    kEventHIObjectConstruct = 1,
    kEventHIObjectInitialize = 2,
    kEventHIObjectDestruct = 3,
    kEventHIObjectIsEqual = 4,       // never sent here
    kEventHIObjectPrintDebugInfo = 5 // sent by HIObjectPrintDebugInfo
};

enum
{
    kEventParamHIObjectInstance = 'hioi' // HIObjectRef
};

// Classes of the platform. Those of views in general and of user panes can be the base of others; by the
// others a control can be recognised.
#define kHIViewClassID CFSTR("com.apple.hiview")
#define kHIUserPaneClassID CFSTR("com.apple.HIUserPane")
#define kHIPushButtonClassID CFSTR("com.apple.HIPushButton")
#define kHICheckBoxClassID CFSTR("com.apple.HICheckBox")
#define kHISliderClassID CFSTR("com.apple.HISlider")
#define kHIStaticTextViewClassID CFSTR("com.apple.HIStaticTextView")
#define kHITextFieldClassID CFSTR("com.apple.HITextField")

// Adds a class to those of the program. A null base class is that of all objects. inConstructProc is called
// with the events of inEventList, which must have Construct and Destruct; null makes a class that only others
// are made of. The options are 0. paramErr for a name that is null or empty, an unknown base and a bad list,
// hiObjectClassExistsErr for a name that is taken. outClassRef may be null.
CARBON_EXPORT OSStatus HIObjectRegisterSubclass(CFStringRef inClassID, CFStringRef inBaseClassID,
                                                OptionBits inOptions, EventHandlerUPP inConstructProc,
                                                ItemCount inNumEvents, const EventTypeSpec* inEventList,
                                                void* inConstructData, HIObjectClassRef* outClassRef);

// hiObjectClassHasInstancesErr and hiObjectClassHasSubclassesErr as long as there are any, and nothing
// changes then; paramErr for what is no class.
CARBON_EXPORT OSStatus HIObjectUnregisterClass(HIObjectClassRef inClassRef);

// Makes an object, from the base of its class to the class itself. Of each class:
//
// - Construct: the function is called by itself, with a null call reference and inConstructData. The event
//   has the new object in kEventParamHIObjectInstance (typeHIObjectRef); the function puts its data there in
//   exchange (typeVoidPtr). From then on it is a handler on the object, with these data.
//
// Then the object gets kEventHIObjectInitialize: inConstructData, which must be an event of that kind, or for
// null one without parameters. A view gets kEventControlInitialize after it, with its features, which a
// handler may change, in kEventParamControlFeatures. Nobody has to handle these two.
//
// Another status than noErr of any function ends it and is the result: what was constructed is destructed,
// and *outObject is null. So it is with paramErr when the object was released or disposed meanwhile.
//
// A view is in no window, is hidden, has empty bounds and takes other views in. paramErr for an unknown
// class, hiObjectClassIsAbstractErr for one without a function.
//
// The end: every function hears Destruct, that of the class first and that of its base last, when the
// reference is already none of an object any more. It does not call CallNextEventHandler.
CARBON_EXPORT OSStatus HIObjectCreate(CFStringRef inClassID, EventRef inConstructData,
                                      HIObjectRef* outObject);

// Of objects, and of controls, windows and menus. Null for anything else.
CARBON_EXPORT EventTargetRef HIObjectGetEventTarget(HIObjectRef inObject);

// The class of an object or control; controls of kinds without a name above are views. The caller releases
// the name, which is null for what is neither.
CARBON_EXPORT CFStringRef HIObjectCopyClassID(HIObjectRef inObject);

// Whether that is the object's class or one that it is made of.
CARBON_EXPORT Boolean HIObjectIsOfClass(HIObjectRef inObject, CFStringRef inObjectClassID);

// The object's data of its class or of one that it is made of: those that the function gave. Of a class of
// the platform, the reference itself. Null for an object of another class.
CARBON_EXPORT void* HIObjectDynamicCast(HIObjectRef inObject, CFStringRef inClassID);

// A line with the class and the reference to the standard output; then kEventHIObjectPrintDebugInfo to all
// handlers on the object, which may print more.
CARBON_EXPORT void HIObjectPrintDebugInfo(HIObjectRef inObject);

#endif
