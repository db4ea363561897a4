// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ControlKinds.h"

namespace {

const ControlButtonContentInfo kNoContent = {kControlContentTextOnly, {0}};

// Puts a new view into a window and shows it there, as a program does.
OSStatus Show(WindowRef theWindow, HIViewRef* theView)
{
    HIViewRef theRoot = HIViewGetRoot(theWindow);
    OSStatus theStatus = theRoot == nullptr ? OSStatus{memFullErr} : EmbedControl(*theView, theRoot);
    if (theStatus == noErr) {
        theStatus = HIViewSetVisible(*theView, true);
    }
    if (theStatus != noErr) {
        DisposeControl(*theView);
        *theView = nullptr;
    }
    return theStatus;
}

HIRect Fractional(const Rect& theRect)
{
    return CGRectMake(theRect.left, theRect.top, static_cast<CGFloat>(theRect.right - theRect.left),
                      static_cast<CGFloat>(theRect.bottom - theRect.top));
}

OSStatus MakeImageView(WindowRef theWindow, const Rect* theBounds, HIViewRef* theView)
{
    const HIRect thePlace = Fractional(*theBounds);
    OSStatus theStatus = HIImageViewCreate(nullptr, theView);
    if (theStatus == noErr) {
        HIViewSetFrame(*theView, &thePlace);
        theStatus = Show(theWindow, theView);
    }
    return theStatus;
}

OSStatus MakeComboBox(WindowRef theWindow, const Rect* theBounds, HIViewRef* theView)
{
    const HIRect thePlace = Fractional(*theBounds);
    const OSStatus theStatus = HIComboBoxCreate(&thePlace, CFSTR("Text"), nullptr, nullptr, 0, theView);
    return theStatus == noErr ? Show(theWindow, theView) : theStatus;
}

OSStatus MakeSearchField(WindowRef theWindow, const Rect* theBounds, HIViewRef* theView)
{
    const HIRect thePlace = Fractional(*theBounds);
    const OSStatus theStatus =
        HISearchFieldCreate(&thePlace, kHISearchFieldAttributesCancel, nullptr, CFSTR("What"), theView);
    return theStatus == noErr ? Show(theWindow, theView) : theStatus;
}

// On a day that is not that of the test.
OSStatus MakeClock(WindowRef theWindow, const Rect* theBounds, ControlRef* theControl)
{
    const OSStatus theStatus =
        CreateClockControl(theWindow, theBounds, kControlClockTypeHourMinuteSecond, 0, theControl);
    if (theStatus == noErr) {
        LongDateRec theDate = {};
        theDate.ld.year = 2024;
        theDate.ld.month = 2;
        theDate.ld.day = 28;
        theDate.ld.hour = 14;
        SetControlData(*theControl, kControlEntireControl, kControlClockLongDateTag, sizeof theDate,
                       &theDate);
    }
    return theStatus;
}

OSStatus MakeSegments(WindowRef theWindow, const Rect* theBounds, HIViewRef* theView)
{
    const HIRect thePlace = Fractional(*theBounds);
    OSStatus theStatus = HISegmentedViewCreate(&thePlace, theView);
    if (theStatus == noErr) {
        HISegmentedViewSetSegmentCount(*theView, 2);
        HISegmentedViewSetSegmentBehavior(*theView, 1, kHISegmentBehaviorRadio);
        HISegmentedViewSetSegmentBehavior(*theView, 2, kHISegmentBehaviorRadio);
        HISegmentedViewSetSegmentLabel(*theView, 1, CFSTR("One"));
        theStatus = Show(theWindow, theView);
    }
    return theStatus;
}

} // namespace

const std::vector<KindRow>& EveryKind()
{
    static const std::vector<KindRow> kKinds = {
        {"PushButton", kControlKindPushButton,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreatePushButtonControl(theWindow, theBounds, CFSTR("Title"), theControl);
         },
         0, 1, true, false},
        {"CheckBox", kControlKindCheckBox,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateCheckBoxControl(theWindow, theBounds, CFSTR("Title"), 0, true, theControl);
         },
         0, 2, true, false},
        {"RadioButton", kControlKindRadioButton,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateRadioButtonControl(theWindow, theBounds, CFSTR("Title"), 0, true, theControl);
         },
         0, 2, true, false},
        {"Slider", kControlKindSlider,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateSliderControl(theWindow, theBounds, 0, 0, 10, kControlSliderDoesNotPoint, 0, true,
                                        nullptr, theControl);
         },
         0, 10, false, false},
        {"ScrollBar", kControlKindScrollBar,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateScrollBarControl(theWindow, theBounds, 0, 0, 100, 10, false, nullptr, theControl);
         },
         0, 100, true, false},
        {"ProgressBar", kControlKindProgressBar,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateProgressBarControl(theWindow, theBounds, 0, 0, 100, false, theControl);
         },
         0, 100, false, false},
        {"LittleArrows", kControlKindLittleArrows,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateLittleArrowsControl(theWindow, theBounds, 0, 0, 9, 3, theControl);
         },
         0, 9, false, false},
        {"StaticText", kControlKindStaticText,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateStaticTextControl(theWindow, theBounds, CFSTR("Text"), nullptr, theControl);
         },
         0, 0, true, false},
        {"EditText", kControlKindEditText,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateEditTextControl(theWindow, theBounds, CFSTR("Text"), false, false, nullptr,
                                          theControl);
         },
         0, 0, true, false},
        {"EditUnicodeText", kControlKindEditUnicodeText,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateEditUnicodeTextControl(theWindow, theBounds, CFSTR("Text"), false, nullptr,
                                                 theControl);
         },
         0, 0, true, false},
        {"GroupBox", kControlKindGroupBox,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateGroupBoxControl(theWindow, theBounds, CFSTR("Title"), true, theControl);
         },
         0, 0, false, true},
        {"RadioGroup", kControlKindRadioGroup, CreateRadioGroupControl, 0, 0, false, true},
        {"PopupButton", kControlKindPopupButton,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreatePopupButtonControl(theWindow, theBounds, CFSTR("Title"), -12345, false, -1,
                                             teFlushDefault, normal, theControl);
         },
         0, 0, true, false},
        {"Tabs", kControlKindTabs,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             const ControlTabEntry theTabs[] = {{nullptr, CFSTR("One"), true}, {nullptr, CFSTR("Two"), true}};
             return CreateTabsControl(theWindow, theBounds, kControlTabSizeLarge, kControlTabDirectionNorth,
                                      2, theTabs, theControl);
         },
         1, 2, false, true},
        {"UserPane", kControlKindUserPane,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateUserPaneControl(theWindow, theBounds, kControlSupportsEmbedding, theControl);
         },
         0, 0, false, true},
        {"DisclosureTriangle", kControlKindDisclosureTriangle,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateDisclosureTriangleControl(theWindow, theBounds,
                                                    kControlDisclosureTrianglePointDefault, CFSTR("Title"), 0,
                                                    true, true, theControl);
         },
         0, 1, false, false},
        {"DisclosureButton", kControlKindDisclosureButton,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateDisclosureButtonControl(theWindow, theBounds, 0, true, theControl);
         },
         0, 1, false, false},
        {"RelevanceBar", kControlKindRelevanceBar,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateRelevanceBarControl(theWindow, theBounds, 0, 0, 100, theControl);
         },
         0, 100, false, false},
        {"ChasingArrows", kControlKindChasingArrows, CreateChasingArrowsControl, 0, 0, false, false},
        {"Placard", kControlKindPlacard, CreatePlacardControl, 0, 0, true, true},
        {"WindowHeader", kControlKindWindowHeader,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateWindowHeaderControl(theWindow, theBounds, false, theControl);
         },
         0, 0, false, true},
        {"PopupArrow", kControlKindPopupArrow,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreatePopupArrowControl(theWindow, theBounds, kControlPopupArrowOrientationSouth,
                                            kControlPopupArrowSizeNormal, theControl);
         },
         0, 0, true, false},
        {"Clock", kControlKindClock, MakeClock, 0, 0, false, false},
        {"Separator", kControlKindSeparator, CreateSeparatorControl, 0, 0, false, false},
        {"BevelButton", kControlKindBevelButton,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateBevelButtonControl(theWindow, theBounds, CFSTR("Title"),
                                             kControlBevelButtonNormalBevel, kControlBehaviorToggles, nullptr,
                                             0, 0, 0, theControl);
         },
         0, 1, true, false},
        {"RoundButton", kControlKindRoundButton,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateRoundButtonControl(theWindow, theBounds, kControlRoundButtonNormalSize, nullptr,
                                             theControl);
         },
         0, 1, true, false},
        {"Icon", kControlKindIcon,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateIconControl(theWindow, theBounds, &kNoContent, false, theControl);
         },
         0, 0, true, false},
        {"Picture", kControlKindPicture,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreatePictureControl(theWindow, theBounds, &kNoContent, false, theControl);
         },
         0, 0, true, false},
        {"ImageWell", kControlKindImageWell,
         [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
             return CreateImageWellControl(theWindow, theBounds, &kNoContent, theControl);
         },
         0, 1, true, false},
        {"ImageView", kControlKindHIImageView, MakeImageView, 0, 0, false, false, true},
        {"ComboBox", kControlKindHIComboBox, MakeComboBox, 0, 0, false, false, true},
        {"SearchField", kControlKindHISearchField, MakeSearchField, 0, 0, false, false, true},
        {"Segments", kHISegmentedViewKind, MakeSegments, 0, 2, false, false, true},
    };
    return kKinds;
}
