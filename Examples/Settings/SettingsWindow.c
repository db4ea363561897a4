/* LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE. */

#include "Settings.h"

const NumberSetting kNumbers[kNumberSettings] = {
    {kPage, "page", 1},
    {kAutomatic, "automatic", 1},
    {kInterval, "interval", 2},
    {kUnit, "unit", 1},
    {kBrightness, "brightness", 60},
    {kDecimals, "decimals", 1},
    {kZoom, "zoom", 100},
    {kBold, "bold", 0},
    {kWarn, "warn", 0},
};

const TextSetting kTexts[kTextSettings] = {{kStation, "station", "Garden"}, {kCity, "city", "Riga"}};

ControlRef SettingsControl(WindowRef theWindow, SInt32 theNumber)
{
    ControlID theName;
    ControlRef theControl = NULL;
    theName.signature = kSettingsSignature;
    theName.id = theNumber;
    GetControlByID(theWindow, &theName, &theControl);
    return theControl;
}

/* Gives a new control its place among the others, and its name, if it has one. */
static void Put(ControlRef theControl, ControlRef thePane, SInt32 theNumber)
{
    ControlID theName;
    if (theControl == NULL) {
        return;
    }
    EmbedControl(theControl, thePane);
    if (theNumber != 0) {
        theName.signature = kSettingsSignature;
        theName.id = theNumber;
        SetControlID(theControl, &theName);
    }
}

static Rect Place(short theTop, short theLeft, short theHeight, short theWidth)
{
    Rect thePlace;
    SetRect(&thePlace, theLeft, theTop, (short)(theLeft + theWidth), (short)(theTop + theHeight));
    return thePlace;
}

static void AddText(WindowRef theWindow, ControlRef thePane, Rect thePlace, CFStringRef theText,
                    SInt32 theNumber)
{
    ControlRef theControl = NULL;
    CreateStaticTextControl(theWindow, &thePlace, theText, NULL, &theControl);
    Put(theControl, thePane, theNumber);
}

static void AddField(WindowRef theWindow, ControlRef thePane, Rect thePlace, Boolean isSecret,
                     SInt32 theNumber)
{
    ControlRef theControl = NULL;
    CreateEditUnicodeTextControl(theWindow, &thePlace, CFSTR(""), isSecret, NULL, &theControl);
    Put(theControl, thePane, theNumber);
}

static void AddCheckBox(WindowRef theWindow, ControlRef thePane, Rect thePlace, CFStringRef theTitle,
                        SInt32 theNumber)
{
    ControlRef theControl = NULL;
    CreateCheckBoxControl(theWindow, &thePlace, theTitle, 0, true, &theControl);
    Put(theControl, thePane, theNumber);
}

static ControlButtonContentInfo Icon(OSType theType)
{
    ControlButtonContentInfo theContent;
    theContent.contentType = kControlContentIconRef;
    theContent.u.iconRef = NULL;
    GetIconRef(kOnSystemDisk, kSystemIconsCreator, theType, &theContent.u.iconRef);
    return theContent;
}

/* The first page: what is measured -------------------------------------------------------------------- */

static void AddCities(ControlRef thePane)
{
    const void* theNames[3];
    const HIRect thePlace = CGRectMake(120, 86, 160, 18);
    CFArrayRef theCities;
    HIViewRef theBox = NULL;
    theNames[0] = CFSTR("Oslo");
    theNames[1] = CFSTR("Riga");
    theNames[2] = CFSTR("Rome");
    theCities = CFArrayCreate(NULL, theNames, 3, &kCFTypeArrayCallBacks);
    HIComboBoxCreate(&thePlace, CFSTR(""), NULL, theCities, kHIComboBoxAutoCompletionAttribute, &theBox);
    CFRelease(theCities);
    Put(theBox, thePane, kCity);
    HIViewSetVisible(theBox, true);
}

static void AddInterval(WindowRef theWindow, ControlRef thePane)
{
    const Rect thePlace = Place(150, 200, 22, 140);
    MenuRef theMenu = NULL;
    ControlRef theControl = NULL;
    CreateNewMenu(200, 0, &theMenu);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Every minute"), 0, 0, NULL);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Every hour"), 0, 0, NULL);
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Every day"), 0, 0, NULL);
    CreatePopupButtonControl(theWindow, &thePlace, NULL, -12345, false, 0, teFlushDefault, normal,
                             &theControl);
    SetControlData(theControl, kControlEntireControl, kControlPopupButtonOwnedMenuRefTag, sizeof theMenu,
                   &theMenu);
    SetControl32BitMaximum(theControl, 3);
    Put(theControl, thePane, kInterval);
}

static void AddUnits(WindowRef theWindow, ControlRef thePane)
{
    const Rect theGroupPlace = Place(184, 40, 46, 300);
    const Rect theFirst = Place(186, 44, 18, 140);
    const Rect theSecond = Place(206, 44, 18, 140);
    ControlRef theGroup = NULL;
    ControlRef theControl = NULL;
    CreateRadioGroupControl(theWindow, &theGroupPlace, &theGroup);
    Put(theGroup, thePane, kUnit);
    CreateRadioButtonControl(theWindow, &theFirst, CFSTR("Celsius"), 0, false, &theControl);
    Put(theControl, theGroup, kCelsius);
    CreateRadioButtonControl(theWindow, &theSecond, CFSTR("Fahrenheit"), 0, false, &theControl);
    Put(theControl, theGroup, kFahrenheit);
}

static void AddMeasuring(WindowRef theWindow, ControlRef thePane)
{
    const Rect theLine = Place(120, 40, 2, 380);
    ControlRef theControl = NULL;
    AddText(theWindow, thePane, Place(60, 40, 16, 70), CFSTR("Station:"), 0);
    AddField(theWindow, thePane, Place(60, 120, 16, 160), false, kStation);
    AddText(theWindow, thePane, Place(88, 40, 16, 70), CFSTR("City:"), 0);
    AddCities(thePane);
    CreateSeparatorControl(theWindow, &theLine, &theControl);
    Put(theControl, thePane, 0);
    AddCheckBox(theWindow, thePane, Place(152, 40, 18, 150), CFSTR("Measure by itself"), kAutomatic);
    AddInterval(theWindow, thePane);
    AddUnits(theWindow, thePane);
}

/* The second page: how it is shown -------------------------------------------------------------------- */

/* Arrows and scroll bars do nothing by themselves while a part of them is held. */
static void Move(ControlRef theControl, SInt32 theStep)
{
    SetControl32BitValue(theControl, GetControl32BitValue(theControl) + theStep);
}

static pascal void DoArrows(ControlRef theControl, ControlPartCode thePart)
{
    if (thePart == kControlUpButtonPart) {
        Move(theControl, 1);
    } else if (thePart == kControlDownButtonPart) {
        Move(theControl, -1);
    }
}

static pascal void DoScroll(ControlRef theControl, ControlPartCode thePart)
{
    switch (thePart) {
    case kControlUpButtonPart:
        Move(theControl, -1);
        break;
    case kControlDownButtonPart:
        Move(theControl, 1);
        break;
    case kControlPageUpPart:
        Move(theControl, -25);
        break;
    case kControlPageDownPart:
        Move(theControl, 25);
        break;
    default:
        break;
    }
}

static void AddBrightness(WindowRef theWindow, ControlRef thePane)
{
    const Rect theSliderPlace = Place(60, 130, 20, 160);
    const Rect theBarPlace = Place(62, 350, 14, 80);
    ControlRef theControl = NULL;
    AddText(theWindow, thePane, Place(60, 40, 16, 86), CFSTR("Brightness:"), 0);
    CreateSliderControl(theWindow, &theSliderPlace, 0, 0, 100, kControlSliderDoesNotPoint, 0, true, NULL,
                        &theControl);
    Put(theControl, thePane, kBrightness);
    AddText(theWindow, thePane, Place(60, 300, 16, 46), CFSTR(""), kBrightnessText);
    CreateRelevanceBarControl(theWindow, &theBarPlace, 0, 0, 100, &theControl);
    Put(theControl, thePane, kBrightnessBar);
}

static void AddDecimals(WindowRef theWindow, ControlRef thePane)
{
    const Rect theArrowsPlace = Place(89, 160, 22, 14);
    ControlRef theControl = NULL;
    AddText(theWindow, thePane, Place(92, 40, 16, 86), CFSTR("Decimals:"), 0);
    AddText(theWindow, thePane, Place(92, 130, 16, 26), CFSTR(""), kDecimalsText);
    CreateLittleArrowsControl(theWindow, &theArrowsPlace, 0, 0, 3, 1, &theControl);
    SetControlAction(theControl, NewControlActionUPP(DoArrows));
    Put(theControl, thePane, kDecimals);
}

static void AddZoom(WindowRef theWindow, ControlRef thePane)
{
    const Rect theScrollPlace = Place(124, 130, 16, 160);
    const Rect theBarPlace = Place(124, 350, 16, 80);
    ControlRef theControl = NULL;
    AddText(theWindow, thePane, Place(124, 40, 16, 86), CFSTR("Zoom:"), 0);
    CreateScrollBarControl(theWindow, &theScrollPlace, 50, 50, 200, 25, true, NULL, &theControl);
    SetControlAction(theControl, NewControlActionUPP(DoScroll));
    Put(theControl, thePane, kZoom);
    CreateProgressBarControl(theWindow, &theBarPlace, 50, 50, 200, false, &theControl);
    Put(theControl, thePane, kZoomBar);
}

static void AddLook(WindowRef theWindow, ControlRef thePane)
{
    const Rect theBoldPlace = Place(160, 40, 26, 60);
    const Rect theIconPlace = Place(158, 130, 30, 30);
    const Rect theMorePlace = Place(162, 400, 20, 24);
    ControlButtonContentInfo theFolder = Icon(kGenericFolderIcon);
    ControlRef theControl = NULL;
    CreateBevelButtonControl(theWindow, &theBoldPlace, CFSTR("Bold"), kControlBevelButtonNormalBevel,
                             kControlBehaviorToggles, NULL, 0, 0, 0, &theControl);
    Put(theControl, thePane, kBold);
    CreateIconControl(theWindow, &theIconPlace, &theFolder, true, &theControl);
    ReleaseIconRef(theFolder.u.iconRef);
    Put(theControl, thePane, 0);
    CreateDisclosureButtonControl(theWindow, &theMorePlace, 0, true, &theControl);
    Put(theControl, thePane, kMore);
    AddText(theWindow, thePane, Place(200, 40, 16, 380), CFSTR("The station shows it within a minute."),
            kMoreText);
}

static void AddShowing(WindowRef theWindow, ControlRef thePane)
{
    AddBrightness(theWindow, thePane);
    AddDecimals(theWindow, thePane);
    AddZoom(theWindow, thePane);
    AddLook(theWindow, thePane);
}

/* The third page: when it warns ----------------------------------------------------------------------- */

static void AddWarning(WindowRef theWindow, ControlRef thePane)
{
    const Rect theBoxPlace = Place(60, 40, 90, 380);
    const Rect theWellPlace = Place(84, 360, 50, 50);
    const Rect theBusyPlace = Place(86, 330, 16, 16);
    ControlButtonContentInfo theCaution = Icon(kAlertCautionIcon);
    ControlRef theBox = NULL;
    ControlRef theControl = NULL;
    CreateGroupBoxControl(theWindow, &theBoxPlace, CFSTR("Frost"), true, &theBox);
    Put(theBox, thePane, 0);
    AddCheckBox(theWindow, theBox, Place(86, 60, 18, 180), CFSTR("Warn of frost"), kWarn);
    AddText(theWindow, theBox, Place(114, 60, 16, 60), CFSTR("Code:"), 0);
    AddField(theWindow, theBox, Place(114, 130, 16, 120), true, kCode);
    CreateChasingArrowsControl(theWindow, &theBusyPlace, &theControl);
    Put(theControl, theBox, kBusy);
    CreateImageWellControl(theWindow, &theWellPlace, &theCaution, &theControl);
    ReleaseIconRef(theCaution.u.iconRef);
    Put(theControl, theBox, kWell);
}

static void AddDetails(WindowRef theWindow, ControlRef thePane)
{
    const Rect theTrianglePlace = Place(164, 40, 18, 120);
    ControlRef theControl = NULL;
    CreateDisclosureTriangleControl(theWindow, &theTrianglePlace, kControlDisclosureTrianglePointDefault,
                                    CFSTR("Details"), 0, true, true, &theControl);
    Put(theControl, thePane, kDetails);
    AddText(theWindow, thePane, Place(186, 58, 32, 360),
            CFSTR("Frost is expected below 3 degrees and a clear sky."), kDetailsText);
}

static void AddWarnings(WindowRef theWindow, ControlRef thePane)
{
    AddWarning(theWindow, thePane);
    AddDetails(theWindow, thePane);
}

/* The window ------------------------------------------------------------------------------------------ */

static ControlRef AddPane(WindowRef theWindow, ControlRef theTabs, SInt32 theNumber)
{
    const Rect thePlace = Place(50, 30, 186, 420);
    ControlRef thePane = NULL;
    CreateUserPaneControl(theWindow, &thePlace, kControlSupportsEmbedding, &thePane);
    Put(thePane, theTabs, kFirstPane + theNumber);
    return thePane;
}

static void AddTabs(WindowRef theWindow, ControlRef theRoot)
{
    const Rect thePlace = Place(20, 20, 226, 440);
    ControlTabEntry theTabs[kSettingsPages];
    ControlRef theControl = NULL;
    int theIndex;
    for (theIndex = 0; theIndex < kSettingsPages; ++theIndex) {
        theTabs[theIndex].icon = NULL;
        theTabs[theIndex].enabled = true;
    }
    theTabs[0].name = CFSTR("Measuring");
    theTabs[1].name = CFSTR("Showing");
    theTabs[2].name = CFSTR("Warnings");
    CreateTabsControl(theWindow, &thePlace, kControlTabSizeLarge, kControlTabDirectionNorth, kSettingsPages,
                      theTabs, &theControl);
    Put(theControl, theRoot, kPage);
    AddMeasuring(theWindow, AddPane(theWindow, theControl, 1));
    AddShowing(theWindow, AddPane(theWindow, theControl, 2));
    AddWarnings(theWindow, AddPane(theWindow, theControl, 3));
}

static void AddPlacard(WindowRef theWindow, ControlRef theRoot)
{
    const Rect thePlace = Place(256, 20, 26, 200);
    const HIRect theFieldPlace = CGRectMake(26, 260, 188, 18);
    ControlRef thePlacard = NULL;
    HIViewRef theField = NULL;
    CreatePlacardControl(theWindow, &thePlace, &thePlacard);
    Put(thePlacard, theRoot, 0);
    HISearchFieldCreate(&theFieldPlace, kHISearchFieldAttributesCancel, NULL, CFSTR("Settings"), &theField);
    Put(theField, thePlacard, kFind);
    HIViewSetVisible(theField, true);
}

static void AddButton(WindowRef theWindow, ControlRef theRoot, Rect thePlace, CFStringRef theTitle,
                      UInt32 theCommand, SInt32 theNumber)
{
    ControlRef theControl = NULL;
    CreatePushButtonControl(theWindow, &thePlace, theTitle, &theControl);
    SetControlCommandID(theControl, theCommand);
    Put(theControl, theRoot, theNumber);
}

static void AddButtons(WindowRef theWindow, ControlRef theRoot)
{
    const Rect theHelpPlace = Place(256, 238, 26, 26);
    ControlButtonContentInfo theNote = Icon(kAlertNoteIcon);
    ControlRef theControl = NULL;
    CreateRoundButtonControl(theWindow, &theHelpPlace, kControlRoundButtonNormalSize, &theNote, &theControl);
    ReleaseIconRef(theNote.u.iconRef);
    Put(theControl, theRoot, kHelp);
    AddButton(theWindow, theRoot, Place(259, 280, 20, 84), CFSTR("Restore"), kRestoreCommand, kRestore);
    AddButton(theWindow, theRoot, Place(259, 376, 20, 84), CFSTR("OK"), kHICommandOK, kDone);
    SetWindowDefaultButton(theWindow, SettingsControl(theWindow, kDone));
}

WindowRef MakeSettingsWindow(void)
{
    const Rect thePlace = Place(100, 100, 298, 480);
    WindowRef theWindow = NULL;
    ControlRef theRoot = NULL;
    if (CreateNewWindow(kDocumentWindowClass,
                        kWindowCloseBoxAttribute | kWindowCollapseBoxAttribute |
                            kWindowStandardHandlerAttribute,
                        &thePlace, &theWindow) != noErr) {
        return NULL;
    }
    SetWindowTitleWithCFString(theWindow, CFSTR("Settings"));
    CreateRootControl(theWindow, &theRoot);
    AddTabs(theWindow, theRoot);
    AddPlacard(theWindow, theRoot);
    AddButtons(theWindow, theRoot);
    return theWindow;
}
