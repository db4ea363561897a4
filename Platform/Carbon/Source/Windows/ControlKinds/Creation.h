// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Creation_h
#define ControlKinds_Creation_h

#include "Base/Guarded.h"
#include "Windows/Control.h"

namespace Host {

// What every creation call is given.
struct CreationRequest
{
    WindowRef theWindow;
    const Rect* theBounds;
    CFStringRef theTitle;
    ControlRef* theControl;
    bool theCanBeNull = false;
    ControlRange theRange = {};
};

// The whole coordinates that are nearest, of what is not null.
Rect RectOf(const HIRect* theRect);

// Checks the request and clears the result.
OSStatus CheckRequest(const CreationRequest& theRequest);

// Gives a new control its range, reference and target; nobody is told yet.
void Begin(const SharedControl& theControl, const CreationRequest& theRequest);

// Puts it into its window, which is told. A control that there is no room for is disposed.
OSStatus Place(const SharedControl& theControl, const CreationRequest& theRequest);

// Makes a control. theMaker constructs the object.
template <class Maker>
OSStatus Make(const CreationRequest& theRequest, const Maker& theMaker)
{
    OSStatus theStatus = CheckRequest(theRequest);
    SharedControl theControl;
    if (theStatus == noErr) {
        theStatus = Guarded([&] {
            theControl = theMaker();
            Begin(theControl, theRequest);
            return OSStatus{noErr};
        });
    }
    return theStatus == noErr ? Place(theControl, theRequest) : theStatus;
}

// Makes a control of a kind. theArguments are those of its constructor.
template <class Kind, class... Arguments>
OSStatus Create(const CreationRequest& theRequest, const Arguments&... theArguments)
{
    return Make(theRequest, [&] { return std::make_shared<Kind>(theArguments...); });
}

// Clears the result of a request that is refused before it is made.
OSStatus Refuse(ControlRef* theControl);

// Makes a view: in no window, and hidden. theBounds may be null, for a place and size to come later.
template <class Maker>
OSStatus MakeView(const HIRect* theBounds, HIViewRef* theView, const Maker& theMaker)
{
    const Rect thePlace = RectOf(theBounds);
    return Make({nullptr, &thePlace, nullptr, theView, true}, [&] {
        auto theNew = theMaker();
        theNew->StartHidden();
        return theNew;
    });
}

// The control of a class behind a reference, or null.
template <class Kind>
std::shared_ptr<Kind> FindKind(ControlRef theReference)
{
    return std::dynamic_pointer_cast<Kind>(FindControl(theReference));
}

} // namespace Host

#endif
