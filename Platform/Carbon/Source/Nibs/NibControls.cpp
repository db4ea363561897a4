// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The controls of a window, in one another and with what every control can have.

#include "NibControls.h"

#include "Base/Geometry.h"
#include "Common/NeverDestroyed.h"
#include "NibControlKinds.h"
#include "NibProperties.h"

#include <cstdio>
#include <set>

namespace Host {

namespace {

struct NibParent
{
    ControlRef theControl;
    Rect theBounds; // in the content of the window
};

class ControlAdder
{
public:
    explicit ControlAdder(WindowRef theWindow, ControlRef theRoot)
        : mWindow(theWindow),
          mRoot(theRoot)
    {
    }

    OSStatus AddAll(const NibObject& theObject, const NibParent& theParent)
    {
        for (const NibObject& theSubview : theObject.List("subviews")) {
            const OSStatus theStatus = Add(theSubview, theParent);
            if (theStatus != noErr) {
                return theStatus;
            }
        }
        return noErr;
    }

private:
    OSStatus Add(const NibObject& theObject, const NibParent& theParent)
    {
        const NibLimit::Level theLevel(mLimit);
        if (!theLevel.IsAllowed()) {
            return memFullErr;
        }
        const Rect theBounds = NibRect(theObject, "bounds");
        ControlRef theControl = nullptr;
        const OSStatus theStatus = Make(theObject, theBounds, &theControl);
        if (theStatus != noErr) {
            return theStatus;
        }
        Place(theObject, theParent, theBounds, theControl);
        SetNibProperties(theObject, theControl);
        NoteButton(theObject, theControl);
        return AddAll(theObject, {theControl, theBounds});
    }

    // What cannot be made is an empty place.
    OSStatus Make(const NibObject& theObject, const Rect& theBounds, ControlRef* theControl)
    {
        const OSStatus theStatus = MakeNibControl({theObject, mWindow, theBounds, mLimit}, theControl);
        if (theStatus == noErr || theStatus == memFullErr) {
            return theStatus;
        }
        Tell(theObject);
        return CreateUserPaneControl(mWindow, &theBounds, kControlSupportsEmbedding, theControl);
    }

    // A class of the program's own is told by its name.
    static void Tell(const NibObject& theObject)
    {
        static NeverDestroyed<std::set<std::string>> sTold;
        const std::string theOwn = Utf8Of(theObject.String("classID"));
        const std::string& theClass = theOwn.empty() ? theObject.Class() : theOwn;
        if (sTold.Get().insert(theClass).second) {
            std::fprintf(stderr, "IBCarbonRuntime: an empty place stands for each %.80s\n", theClass.c_str());
        }
    }

    // Parents that hold nothing leave their controls to the window.
    void Place(const NibObject& theObject, const NibParent& theParent, const Rect& theBounds,
               ControlRef theControl) const
    {
        if (EmbedControl(theControl, theParent.theControl) != noErr) {
            EmbedControl(theControl, mRoot);
        }
        if (!HIViewIsCompositingEnabled(theControl)) {
            SetControlBounds(theControl, &theBounds);
            return;
        }
        const std::vector<double> theNumbers = theObject.Numbers("viewFrame");
        const Rect& theOuter = theParent.theBounds;
        HIRect theFrame =
            CGRectMake(CGFloat(theBounds.left - theOuter.left), CGFloat(theBounds.top - theOuter.top),
                       CGFloat(WidthOf(theBounds)), CGFloat(HeightOf(theBounds)));
        if (theNumbers.size() == 4) {
            theFrame = CGRectMake(CGFloat(theNumbers[0]), CGFloat(theNumbers[1]), CGFloat(theNumbers[2]),
                                  CGFloat(theNumbers[3]));
        }
        HIViewSetFrame(theControl, &theFrame);
    }

    void NoteButton(const NibObject& theObject, ControlRef theControl) const
    {
        const SInt32 theType = theObject.Class() == "IBCarbonButton" ? theObject.Number("buttonType") : 0;
        if (theType == 1) {
            SetWindowDefaultButton(mWindow, theControl);
        } else if (theType == 2) {
            SetWindowCancelButton(mWindow, theControl);
        }
    }

    WindowRef mWindow;
    ControlRef mRoot;
    NibLimit mLimit;
};

} // namespace

Rect NibRect(const NibObject& theObject, const char* theName)
{
    const std::vector<double> theNumbers = theObject.Numbers(theName);
    if (theNumbers.size() < 4) {
        return MakeRect(0, 0, 0, 0);
    }
    return {Narrow(theNumbers[0]), Narrow(theNumbers[1]), Narrow(theNumbers[2]), Narrow(theNumbers[3])};
}

OSStatus AddNibControls(const NibObject& theRoot, WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    if (GetRootControl(theWindow, &theControl) != noErr) {
        const OSStatus theStatus = CreateRootControl(theWindow, &theControl);
        if (theStatus != noErr) {
            return theStatus;
        }
    }
    return ControlAdder(theWindow, theControl).AddAll(theRoot, {theControl, NibRect(theRoot, "bounds")});
}

} // namespace Host
