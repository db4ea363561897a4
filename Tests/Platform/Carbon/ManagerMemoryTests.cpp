// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the Window, Control and Menu Managers do when there is no memory: a call does its work or says why
// not, no exception leaves it, and what there was can still be used and disposed of.

#include "AllocationFailures.h"
#include "ControlKinds.h"

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <new>
#include <ostream>

namespace {

const Rect kBounds = {10, 10, 30, 110};
const unsigned char kPascalText[] = {4, 'T', 'e', 'x', 't'};
const OSType kCreator = 'test';
const OSType kTag = 'tag ';

// One of each thing that the calls work on, made while there is memory.
struct Things
{
    Things()
    {
        const Rect theFrame = {100, 100, 400, 500};
        CreateNewWindow(kDocumentWindowClass,
                        kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute, &theFrame,
                        &mWindow);
        CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theFrame, &mOtherWindow);
        ShowWindow(mOtherWindow);
        ShowWindow(mWindow);
        CreateGroupBoxControl(mWindow, &kBounds, CFSTR("Group"), true, &mGroup);
        CreateSliderControl(mWindow, &kBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, true, nullptr,
                            &mSlider);
        CreateEditUnicodeTextControl(mWindow, &kBounds, CFSTR("Text"), false, nullptr, &mField);
        CreatePushButtonControl(mWindow, &kBounds, CFSTR("Button"), &mButton);
        CreateNewMenu(128, 0, &mMenu);
        CreateNewMenu(129, 0, &mOtherMenu);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("First"), 0, 'frst', nullptr);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Second"), 0, 'scnd', nullptr);
        InsertMenu(mMenu, 0);
    }
    ~Things()
    {
        ClearMenuBar();
        for (const MenuRef theMenu : {mMenu, mOtherMenu}) {
            DisposeMenu(theMenu);
        }
        for (const WindowRef theWindow : {mWindow, mOtherWindow}) {
            DisposeWindow(theWindow);
        }
        FlushEventQueue(GetMainEventQueue());
    }
    Things(const Things&) = delete;
    Things& operator=(const Things&) = delete;

    WindowRef mWindow = nullptr;
    WindowRef mOtherWindow = nullptr;
    ControlRef mGroup = nullptr;
    ControlRef mSlider = nullptr;
    ControlRef mField = nullptr;
    ControlRef mButton = nullptr;
    MenuRef mMenu = nullptr;
    MenuRef mOtherMenu = nullptr;
};

struct Call
{
    const char* theName;
    void (*theCall)(const Things&);
};

void PrintTo(const Call& theCall, std::ostream* theStream)
{
    *theStream << theCall.theName;
}

const Call kControlCalls[] = {
    {"CreateRootControl",
     [](const Things& theThings) {
         ControlRef theRoot = nullptr;
         CreateRootControl(theThings.mOtherWindow, &theRoot);
     }},
    {"CreateSliderControl",
     [](const Things& theThings) {
         ControlRef theSlider = nullptr;
         CreateSliderControl(theThings.mWindow, &kBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, true,
                             nullptr, &theSlider);
     }},
    {"CreateEditTextControl",
     [](const Things& theThings) {
         ControlRef theField = nullptr;
         CreateEditTextControl(theThings.mWindow, &kBounds, CFSTR("Text"), false, false, nullptr, &theField);
     }},
    {"EmbedControl", [](const Things& theThings) { EmbedControl(theThings.mSlider, theThings.mGroup); }},
    {"AutoEmbedControl",
     [](const Things& theThings) { AutoEmbedControl(theThings.mSlider, theThings.mWindow); }},
    {"HIViewGetRoot", [](const Things& theThings) { HIViewGetRoot(theThings.mOtherWindow); }},
    {"HIViewFindByID",
     [](const Things& theThings) {
         HIViewRef theView = nullptr;
         HIViewFindByID(HIViewGetRoot(theThings.mWindow), HIViewID{'none', 1}, &theView);
     }},
    {"HIViewRemoveFromSuperview",
     [](const Things& theThings) { HIViewRemoveFromSuperview(theThings.mButton); }},
    {"HIViewSetZOrder",
     [](const Things& theThings) { HIViewSetZOrder(theThings.mGroup, kHIViewZOrderAbove, nullptr); }},
    {"HIViewSetLayoutInfo",
     [](const Things& theThings) {
         HILayoutInfo theRules = {};
         theRules.binding.left.kind = kHILayoutBindRight;
         HIViewSetLayoutInfo(theThings.mButton, &theRules);
         SizeWindow(theThings.mWindow, 300, 200, true);
     }},
    {"HIViewSetText", [](const Things& theThings) { HIViewSetText(theThings.mField, CFSTR("Other")); }},
    {"HIViewCopyText",
     [](const Things& theThings) {
         if (CFStringRef theText = HIViewCopyText(theThings.mField)) {
             CFRelease(theText);
         }
     }},
    {"DisposeControl", [](const Things& theThings) { DisposeControl(theThings.mGroup); }},
    {"KillControls", [](const Things& theThings) { KillControls(theThings.mWindow); }},
    {"SetControl32BitValue", [](const Things& theThings) { SetControl32BitValue(theThings.mSlider, 7); }},
    {"SetControl32BitMaximum", [](const Things& theThings) { SetControl32BitMaximum(theThings.mSlider, 3); }},
    {"DisableControl", [](const Things& theThings) { DisableControl(theThings.mGroup); }},
    {"DeactivateControl", [](const Things& theThings) { DeactivateControl(theThings.mGroup); }},
    {"HideControl", [](const Things& theThings) { HideControl(theThings.mField); }},
    {"HiliteControl", [](const Things& theThings) { HiliteControl(theThings.mButton, 255); }},
    {"SetControlBounds",
     [](const Things& theThings) {
         const Rect theBounds = {50, 50, 70, 150};
         SetControlBounds(theThings.mGroup, &theBounds);
     }},
    {"SetControlTitleWithCFString",
     [](const Things& theThings) { SetControlTitleWithCFString(theThings.mButton, CFSTR("Other")); }},
    {"SetControlTitle", [](const Things& theThings) { SetControlTitle(theThings.mButton, kPascalText); }},
    {"GetControlTitle",
     [](const Things& theThings) {
         Str255 theTitle;
         GetControlTitle(theThings.mButton, theTitle);
     }},
    {"SetControlData",
     [](const Things& theThings) {
         CFStringRef theText = CFSTR("Other");
         SetControlData(theThings.mField, kControlEntireControl, kControlEditTextCFStringTag, sizeof theText,
                        &theText);
     }},
    {"GetControlData",
     [](const Things& theThings) {
         char theText[40];
         Size theSize = 0;
         GetControlData(theThings.mField, kControlEntireControl, kControlEditTextTextTag, sizeof theText,
                        theText, &theSize);
     }},
    {"GetControlDataSize",
     [](const Things& theThings) {
         Size theSize = 0;
         GetControlDataSize(theThings.mField, kControlEntireControl, kControlEditTextTextTag, &theSize);
     }},
    {"SetControlFontStyle",
     [](const Things& theThings) {
         const ControlFontStyleRec theStyle = {};
         SetControlFontStyle(theThings.mField, &theStyle);
     }},
    {"SetControlProperty",
     [](const Things& theThings) {
         SetControlProperty(theThings.mSlider, kCreator, kTag, sizeof kBounds, &kBounds);
     }},
    {"GetControlByID",
     [](const Things& theThings) {
         const ControlID theID = {kCreator, 1};
         ControlRef theControl = nullptr;
         GetControlByID(theThings.mWindow, &theID, &theControl);
     }},
    {"SetKeyboardFocus",
     [](const Things& theThings) {
         SetKeyboardFocus(theThings.mWindow, theThings.mField, kControlFocusNextPart);
     }},
    {"AdvanceKeyboardFocus", [](const Things& theThings) { AdvanceKeyboardFocus(theThings.mWindow); }},
    {"ClearKeyboardFocus",
     [](const Things& theThings) {
         SetKeyboardFocus(theThings.mWindow, theThings.mField, kControlFocusNextPart);
         ClearKeyboardFocus(theThings.mWindow);
     }},
    {"FindControl",
     [](const Things& theThings) {
         ControlRef theControl = nullptr;
         FindControl(Point{15, 15}, theThings.mWindow, &theControl);
     }},
    {"HIViewSimulateClick",
     [](const Things& theThings) {
         ControlPartCode thePart = 0;
         HIViewSimulateClick(theThings.mButton, kControlButtonPart, 0, &thePart);
     }},
    {"SetWindowDefaultButton",
     [](const Things& theThings) { SetWindowDefaultButton(theThings.mWindow, theThings.mButton); }},
};

const Call kWindowCalls[] = {
    {"CreateNewWindow",
     [](const Things&) {
         WindowRef theWindow = nullptr;
         CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &kBounds, &theWindow);
         DisposeWindow(theWindow);
     }},
    {"DisposeWindow", [](const Things& theThings) { DisposeWindow(theThings.mWindow); }},
    {"HideWindow", [](const Things& theThings) { HideWindow(theThings.mWindow); }},
    {"ShowWindow",
     [](const Things& theThings) {
         HideWindow(theThings.mOtherWindow);
         ShowWindow(theThings.mOtherWindow);
     }},
    {"CollapseWindow", [](const Things& theThings) { CollapseWindow(theThings.mWindow, true); }},
    {"CollapseAllWindows", [](const Things&) { CollapseAllWindows(true); }},
    {"SetWindowBounds",
     [](const Things& theThings) { SetWindowBounds(theThings.mWindow, kWindowContentRgn, &kBounds); }},
    {"MoveWindow", [](const Things& theThings) { MoveWindow(theThings.mOtherWindow, 7, 7, true); }},
    {"SizeWindow", [](const Things& theThings) { SizeWindow(theThings.mWindow, 70, 70, true); }},
    {"SetWindowTitleWithCFString",
     [](const Things& theThings) { SetWindowTitleWithCFString(theThings.mWindow, CFSTR("Other")); }},
    {"SetWTitle", [](const Things& theThings) { SetWTitle(theThings.mWindow, kPascalText); }},
    {"GetWTitle",
     [](const Things& theThings) {
         Str255 theTitle;
         GetWTitle(theThings.mWindow, theTitle);
     }},
    {"SelectWindow", [](const Things& theThings) { SelectWindow(theThings.mOtherWindow); }},
    {"BringToFront", [](const Things& theThings) { BringToFront(theThings.mOtherWindow); }},
    {"SendBehind", [](const Things& theThings) { SendBehind(theThings.mWindow, nullptr); }},
    {"ActivateWindow", [](const Things& theThings) { ActivateWindow(theThings.mOtherWindow, true); }},
    {"ChangeWindowAttributes",
     [](const Things& theThings) {
         ChangeWindowAttributes(theThings.mWindow, kWindowNoAttributes, kWindowCloseBoxAttribute);
     }},
    {"SetWindowModified", [](const Things& theThings) { SetWindowModified(theThings.mWindow, true); }},
    {"SetWindowProperty",
     [](const Things& theThings) {
         SetWindowProperty(theThings.mWindow, kCreator, kTag, sizeof kBounds, &kBounds);
     }},
    {"SetUserFocusWindow", [](const Things& theThings) { SetUserFocusWindow(theThings.mOtherWindow); }},
    {"FindWindow",
     [](const Things&) {
         WindowRef theWindow = nullptr;
         FindWindow(Point{150, 150}, &theWindow);
     }},
};

const Call kMenuCalls[] = {
    {"CreateNewMenu",
     [](const Things&) {
         MenuRef theMenu = nullptr;
         CreateNewMenu(131, 0, &theMenu);
         DisposeMenu(theMenu);
     }},
    {"NewMenu", [](const Things&) { DisposeMenu(NewMenu(131, kPascalText)); }},
    {"DuplicateMenu",
     [](const Things& theThings) {
         MenuRef theMenu = nullptr;
         DuplicateMenu(theThings.mMenu, &theMenu);
         DisposeMenu(theMenu);
     }},
    {"SetRootMenu",
     [](const Things& theThings) {
         const MenuRef theRoot = AcquireRootMenu();
         SetRootMenu(theThings.mOtherMenu);
         SetRootMenu(theRoot);
         ReleaseMenu(theRoot);
     }},
    {"InsertMenu", [](const Things& theThings) { InsertMenu(theThings.mOtherMenu, 0); }},
    {"DeleteMenu", [](const Things&) { DeleteMenu(128); }},
    {"ClearMenuBar", [](const Things&) { ClearMenuBar(); }},
    {"SetMenuTitleWithCFString",
     [](const Things& theThings) { SetMenuTitleWithCFString(theThings.mMenu, CFSTR("Other")); }},
    {"SetMenuTitle", [](const Things& theThings) { SetMenuTitle(theThings.mMenu, kPascalText); }},
    {"GetMenuTitle",
     [](const Things& theThings) {
         Str255 theTitle;
         GetMenuTitle(theThings.mMenu, theTitle);
     }},
    {"AppendMenuItemTextWithCFString",
     [](const Things& theThings) {
         AppendMenuItemTextWithCFString(theThings.mMenu, CFSTR("Third"), 0, 'thrd', nullptr);
     }},
    {"AppendMenuItemText", [](const Things& theThings) { AppendMenuItemText(theThings.mMenu, kPascalText); }},
    {"DeleteMenuItem", [](const Things& theThings) { DeleteMenuItem(theThings.mMenu, 1); }},
    {"SetMenuItemTextWithCFString",
     [](const Things& theThings) { SetMenuItemTextWithCFString(theThings.mMenu, 1, CFSTR("Other")); }},
    {"SetMenuItemText", [](const Things& theThings) { SetMenuItemText(theThings.mMenu, 1, kPascalText); }},
    {"GetMenuItemText",
     [](const Things& theThings) {
         Str255 theText;
         GetMenuItemText(theThings.mMenu, 1, theText);
     }},
    {"SetMenuItemCommandID",
     [](const Things& theThings) { SetMenuItemCommandID(theThings.mMenu, 1, 'othr'); }},
    {"DisableMenuItem", [](const Things& theThings) { DisableMenuItem(theThings.mMenu, 1); }},
    {"SetMenuItemHierarchicalMenu",
     [](const Things& theThings) { SetMenuItemHierarchicalMenu(theThings.mMenu, 1, theThings.mOtherMenu); }},
    {"SetMenuItemProperty",
     [](const Things& theThings) {
         SetMenuItemProperty(theThings.mMenu, 1, kCreator, kTag, sizeof kBounds, &kBounds);
     }},
    {"CountMenuItemsWithCommandID",
     [](const Things& theThings) { CountMenuItemsWithCommandID(theThings.mMenu, 'scnd'); }},
    {"DisableMenuCommand", [](const Things&) { DisableMenuCommand(nullptr, 'scnd'); }},
    {"SetMenuCommandMark", [](const Things&) { SetMenuCommandMark(nullptr, 'scnd', 'x'); }},
    {"SetMenuCommandProperty",
     [](const Things& theThings) {
         SetMenuCommandProperty(theThings.mMenu, 'scnd', kCreator, kTag, sizeof kBounds, &kBounds);
     }},
    {"InvalidateMenuEnabling", [](const Things& theThings) { InvalidateMenuEnabling(theThings.mMenu); }},
};

const Call kAskingCalls[] = {
    {"RepositionWindow",
     [](const Things& theThings) {
         RepositionWindow(theThings.mWindow, nullptr, kWindowCascadeOnMainScreen);
     }},
    {"ShowSheetWindow",
     [](const Things& theThings) {
         WindowRef theSheet = nullptr;
         CreateNewWindow(kSheetWindowClass, kWindowNoAttributes, &kBounds, &theSheet);
         ShowSheetWindow(theSheet, theThings.mWindow);
         HideSheetWindow(theSheet);
         DisposeWindow(theSheet);
     }},
    {"SetWindowGroup",
     [](const Things& theThings) {
         WindowGroupRef theGroup = nullptr;
         CreateWindowGroup(kWindowGroupAttrLayerTogether | kWindowGroupAttrMoveTogether, &theGroup);
         SetWindowGroup(theThings.mWindow, theGroup);
         SetWindowGroup(theThings.mOtherWindow, theGroup);
         SelectWindow(theThings.mOtherWindow);
         MoveWindow(theThings.mWindow, 5, 50, false);
         ReleaseWindowGroup(theGroup);
     }},
    {"BeginAppModalStateForWindow",
     [](const Things& theThings) {
         BeginAppModalStateForWindow(theThings.mOtherWindow);
         EndAppModalStateForWindow(theThings.mOtherWindow);
     }},
    {"CreateStandardWindowMenu",
     [](const Things&) {
         MenuRef theMenu = nullptr;
         CreateStandardWindowMenu(kWindowMenuIncludeRotate, &theMenu);
         CountMenuItemsWithCommandID(theMenu, kHICommandZoomWindow);
         DisposeMenu(theMenu);
     }},
    {"CreateStandardAlert",
     [](const Things&) {
         DialogRef theAlert = nullptr;
         CreateStandardAlert(kAlertNoteAlert, CFSTR("Save?"), CFSTR("Now."), nullptr, &theAlert);
         DisposeDialog(theAlert);
     }},
    {"CloseStandardSheet",
     [](const Things& theThings) {
         DialogRef theSheet = nullptr;
         CreateStandardSheet(kAlertNoteAlert, CFSTR("Save?"), nullptr, nullptr,
                             GetWindowEventTarget(theThings.mWindow), &theSheet);
         ShowSheetWindow(GetDialogWindow(theSheet), theThings.mWindow);
         CloseStandardSheet(theSheet, kHICommandOK);
     }},
};

class ManagerMemory : public testing::TestWithParam<Call>
{
};

std::string NameOfCall(const testing::TestParamInfo<Call>& theInfo)
{
    return theInfo.param.theName;
}

} // namespace

TEST_P(ManagerMemory, NoExceptionLeavesTheCall)
{
    bool hasFailed = true;
    for (std::size_t theNumber = 1; hasFailed; ++theNumber) {
        const Things theThings;
        AllocationFailures theFailures(theNumber);
        bool isThrown = false;
        try {
            GetParam().theCall(theThings);
        } catch (const std::bad_alloc&) {
            isThrown = true;
        }
        theFailures.Stop();
        EXPECT_FALSE(isThrown) << "when allocation " << theNumber << " failed";
        hasFailed = theFailures.HasFailed();
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, ManagerMemory, testing::ValuesIn(kControlCalls), NameOfCall);
INSTANTIATE_TEST_SUITE_P(Windows, ManagerMemory, testing::ValuesIn(kWindowCalls), NameOfCall);
INSTANTIATE_TEST_SUITE_P(Asking, ManagerMemory, testing::ValuesIn(kAskingCalls), NameOfCall);
INSTANTIATE_TEST_SUITE_P(Menus, ManagerMemory, testing::ValuesIn(kMenuCalls), NameOfCall);

namespace {

class KindMemory : public testing::TestWithParam<KindRow>
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, KindMemory, testing::ValuesIn(EveryKind()),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(KindMemory, AControlIsMadeOrTheCallSaysThatItIsNot)
{
    OSStatus theStatus = memFullErr;
    for (std::size_t theNumber = 1; theStatus != noErr; ++theNumber) {
        const Things theThings;
        ControlRef theControl = theThings.mButton;
        AllocationFailures theFailures(theNumber);
        theStatus = GetParam().theMaker(theThings.mWindow, &kBounds, &theControl);
        theFailures.Stop();
        EXPECT_EQ(theStatus, IsValidControlHandle(theControl) ? OSStatus{noErr} : OSStatus{memFullErr});
        EXPECT_EQ(theStatus == noErr, theControl != nullptr);
        UInt16 theCount = 0;
        ControlRef theRoot = nullptr;
        GetRootControl(theThings.mWindow, &theRoot);
        CountSubControls(theRoot, &theCount);
        EXPECT_EQ(theCount, theStatus == noErr ? 5 : 4);
    }
}
