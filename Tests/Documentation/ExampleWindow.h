// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ExampleWindow_h
#define ExampleWindow_h

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>

// The window that examples speak of as theWindow, with the controls that they find in it.
class ExampleWindow
{
public:
    ExampleWindow()
    {
        const Rect theBounds = {100, 100, 400, 500};
        EXPECT_EQ(CreateNewWindow(kDocumentWindowClass,
                                  kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                                  &theBounds, &mWindow),
                  noErr);
        SetWindowTitleWithCFString(mWindow, CFSTR("Example"));
        ShowWindow(mWindow);
    }
    ~ExampleWindow() { Close(); }
    ExampleWindow(const ExampleWindow&) = delete;
    ExampleWindow& operator=(const ExampleWindow&) = delete;

    WindowRef Get() const { return mWindow; }

    // Disposes of the window, and with it of the bindings of its controls.
    void Close()
    {
        if (mWindow != nullptr) {
            DisposeWindow(mWindow);
            mWindow = nullptr;
        }
    }

    // For a window that the example closes itself.
    void Forget() { mWindow = nullptr; }

    ControlRef AddSlider(ControlID theID, SInt32 theMaximum)
    {
        const Rect theBounds = NextBounds();
        ControlRef theControl = nullptr;
        CreateSliderControl(mWindow, &theBounds, 0, 0, theMaximum, kControlSliderDoesNotPoint, 0, false,
                            nullptr, &theControl);
        return Identify(theControl, theID);
    }

    ControlRef AddStaticText(ControlID theID)
    {
        const Rect theBounds = NextBounds();
        ControlRef theControl = nullptr;
        CreateStaticTextControl(mWindow, &theBounds, CFSTR(""), nullptr, &theControl);
        return Identify(theControl, theID);
    }

    ControlRef AddEditText(ControlID theID)
    {
        const Rect theBounds = NextBounds();
        ControlRef theControl = nullptr;
        CreateEditUnicodeTextControl(mWindow, &theBounds, CFSTR(""), false, nullptr, &theControl);
        return Identify(theControl, theID);
    }

    ControlRef AddPushButton(ControlID theID)
    {
        const Rect theBounds = NextBounds();
        ControlRef theControl = nullptr;
        CreatePushButtonControl(mWindow, &theBounds, CFSTR("OK"), &theControl);
        return Identify(theControl, theID);
    }

private:
    Rect NextBounds()
    {
        mTop = static_cast<short>(mTop + 40);
        return {mTop, 20, static_cast<short>(mTop + 24), 320};
    }

    static ControlRef Identify(ControlRef theControl, ControlID theID)
    {
        EXPECT_EQ(SetControlID(theControl, &theID), noErr);
        return theControl;
    }

    WindowRef mWindow = nullptr; // owned
    short mTop = 0;              // of the control that was added last
};

#endif
