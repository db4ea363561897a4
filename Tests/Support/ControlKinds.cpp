// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ControlKinds.h"

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
        {"Separator", kControlKindSeparator, CreateSeparatorControl, 0, 0, false, false},
    };
    return kKinds;
}
