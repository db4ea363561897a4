// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The window as a Carbon application has it, with bindings.

#include "WindowUnderTest.h"

#include <Carbon/Carbon.h>
#include <deque>
#include <LmBindings.h>

namespace {

constexpr OSType kSignature = 'Wndw';

// What the bounds of an edit text, which hold the text alone, leave to its frame.
constexpr int kFrame = 3;

LmString KeyName(std::size_t theKey)
{
    return LmString(("key " + std::to_string(theKey)).c_str());
}

LmValue MakeValue(WidgetKind theKind, int theNumber)
{
    switch (theKind) {
    case WidgetKind::kTextField:
        return LmValue(CFStringCreateWithCString(nullptr, TextOf(theNumber).c_str(), kCFStringEncodingUTF8),
                       true);
    case WidgetKind::kCheckBox:
        return LmValue(static_cast<unsigned long>(theNumber % 2));
    default:
        return LmValue(static_cast<unsigned long>(theNumber));
    }
}

class LmWindow final : public WindowUnderTest
{
public:
    explicit LmWindow(const WindowPlan& thePlan)
        : mPlan(thePlan),
          mNumbers(thePlan.theControls)
    {
    }

    ~LmWindow() override
    {
        if (mWindow != nullptr) {
            DisposeWindow(mWindow);
        }
    }

    void Open() override
    {
        const Rect theBounds = {0, 0, kRows * kCellHeight, kColumns * kCellWidth};
        CreateNewWindow(kDocumentWindowClass, kWindowCloseBoxAttribute | kWindowStandardHandlerAttribute,
                        &theBounds, &mWindow);
        ControlRef theRoot = nullptr;
        CreateRootControl(mWindow, &theRoot);
        for (std::size_t theIndex = 0; theIndex < mPlan.theControls; ++theIndex) {
            AddControl(theIndex);
        }
        for (std::size_t theIndex = 0; theIndex < mPlan.theControls; ++theIndex) {
            BindControl(theIndex);
        }
        ShowWindow(mWindow);
    }

    void Set(std::size_t theKey, int theNumber) override
    {
        mNumbers[theKey] = theNumber;
        mModel.SetKeyPathValue(KeyName(theKey), MakeValue(mPlan.KindOf(theKey), theNumber));
    }

    int Get(std::size_t theKey) const override
    {
        return mPlan.KindOf(theKey) == WidgetKind::kSlider
                   ? static_cast<int>(mModel.GetKeyPathValue(KeyName(theKey)).GetUInt32())
                   : mNumbers[theKey];
    }

    bool Shows(std::size_t theIndex, int theNumber) const override
    {
        ControlRef theControl = Find(theIndex);
        switch (mPlan.KindOf(theIndex)) {
        case WidgetKind::kTextField:
            return ShowsText(theControl, TextOf(theNumber));
        case WidgetKind::kCheckBox:
            return GetControl32BitValue(theControl) == theNumber % 2;
        default:
            return GetControl32BitValue(theControl) == theNumber;
        }
    }

    void Run(double theSeconds) override { RunCurrentEventLoop(theSeconds); }

private:
    ControlRef Find(std::size_t theIndex) const
    {
        const ControlID theID = {kSignature, static_cast<SInt32>(theIndex)};
        ControlRef theControl = nullptr;
        GetControlByID(mWindow, &theID, &theControl);
        return theControl;
    }

    void AddControl(std::size_t theIndex)
    {
        ControlRef theControl = Make(theIndex);
        const ControlID theID = {kSignature, static_cast<SInt32>(theIndex)};
        SetControlID(theControl, &theID);
    }

    ControlRef Make(std::size_t theIndex)
    {
        const Place thePlace = WindowPlan::PlaceOf(theIndex);
        Rect theBounds = {static_cast<SInt16>(thePlace.theTop), static_cast<SInt16>(thePlace.theLeft),
                          static_cast<SInt16>(thePlace.theTop + kControlHeight),
                          static_cast<SInt16>(thePlace.theLeft + kControlWidth)};
        ControlRef theControl = nullptr;
        switch (mPlan.KindOf(theIndex)) {
        case WidgetKind::kSlider:
            CreateSliderControl(mWindow, &theBounds, 0, 0, kHighest, kControlSliderDoesNotPoint, 0, true,
                                nullptr, &theControl);
            break;
        case WidgetKind::kCheckBox:
            CreateCheckBoxControl(mWindow, &theBounds, CFSTR("Option"), 0, true, &theControl);
            break;
        case WidgetKind::kTextField:
            theBounds.left = static_cast<SInt16>(theBounds.left + kFrame);
            theBounds.top = static_cast<SInt16>(theBounds.top + kFrame);
            theBounds.right = static_cast<SInt16>(theBounds.right - kFrame);
            theBounds.bottom = static_cast<SInt16>(theBounds.bottom - kFrame);
            CreateEditUnicodeTextControl(mWindow, &theBounds, nullptr, false, nullptr, &theControl);
            break;
        case WidgetKind::kProgressBar:
            CreateProgressBarControl(mWindow, &theBounds, 0, 0, kHighest, false, &theControl);
            break;
        }
        return theControl;
    }

    // The binding goes with its control.
    void BindControl(std::size_t theIndex)
    {
        auto* const theBinding =
            new LmControlBinding(mWindow, ControlID{kSignature, static_cast<SInt32>(theIndex)});
        theBinding->Bind("value", &mModel, KeyName(mPlan.KeyOf(theIndex)), nullptr, nullptr);
    }

    static bool ShowsText(ControlRef theControl, const std::string& theText)
    {
        CFStringRef theShown = nullptr;
        GetControlData(theControl, kControlEntireControl, kControlEditTextCFStringTag, sizeof theShown,
                       &theShown, nullptr);
        CFStringRef theExpected = CFStringCreateWithCString(nullptr, theText.c_str(), kCFStringEncodingUTF8);
        const bool theIsEqual = theShown != nullptr && CFEqual(theShown, theExpected);
        CFRelease(theExpected);
        if (theShown != nullptr) {
            CFRelease(theShown);
        }
        return theIsEqual;
    }

    WindowPlan mPlan;
    std::deque<int> mNumbers; // what was set last
    LmKeyValueBinding mModel;
    WindowRef mWindow = nullptr;
};

} // namespace

std::unique_ptr<WindowUnderTest> MakeWindow(const WindowPlan& thePlan)
{
    RunCurrentEventLoop(0); // connects the program with the desktop
    return std::make_unique<LmWindow>(thePlan);
}
