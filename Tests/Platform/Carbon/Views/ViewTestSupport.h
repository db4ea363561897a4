// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ViewTestSupport_h
#define ViewTestSupport_h

#include "ManagerTestSupport.h"

#include <sstream>

// A shown compositing window, whose content is 400 by 300 at 100, 100, and views in it.
class ViewTest : public ManagerTest
{
protected:
    ViewTest()
    {
        DisposeWindow(mWindow);
        mWindow = NewWindow(kDocumentWindowClass, kCompositing);
        ShowWindow(mWindow);
    }

    static const WindowAttributes kCompositing =
        kWindowStandardDocumentAttributes | kWindowCompositingAttribute | kWindowStandardHandlerAttribute;

    HIViewRef Root() const { return HIViewGetRoot(mWindow); }

    // A view that can hold others, in another one.
    HIViewRef NewBox(HIViewRef theParent, const Rect& theBounds)
    {
        ControlRef theBox = nullptr;
        EXPECT_EQ(CreateGroupBoxControl(mWindow, &theBounds, nullptr, true, &theBox), noErr);
        EXPECT_EQ(HIViewAddSubview(theParent, theBox), noErr);
        return theBox;
    }

    static std::string Text(const HIRect& theRect)
    {
        std::ostringstream theText;
        theText << theRect.origin.x << ", " << theRect.origin.y << ", " << theRect.size.width << " x "
                << theRect.size.height;
        return theText.str();
    }

    static std::string Frame(HIViewRef theView)
    {
        HIRect theFrame = CGRectMake(-1, -1, -1, -1);
        EXPECT_EQ(HIViewGetFrame(theView, &theFrame), noErr);
        return Text(theFrame);
    }

    static void SetFrame(HIViewRef theView, int theLeft, int theTop, int theWidth, int theHeight)
    {
        const HIRect theFrame = CGRectMake(static_cast<CGFloat>(theLeft), static_cast<CGFloat>(theTop),
                                           static_cast<CGFloat>(theWidth), static_cast<CGFloat>(theHeight));
        EXPECT_EQ(HIViewSetFrame(theView, &theFrame), noErr);
    }
};

#endif
