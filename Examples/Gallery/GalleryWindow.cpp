// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "GalleryWindow.h"

#include "LmLogicalTransforms.h"
#include "LmStringTransforms.h"

#include <initializer_list>

namespace {

const char* const kLevel = "level";
const char* const kEnabled = "enabled";
const char* const kPage = "page";

const Rect kWindowPlace = {100, 100, 500, 830};

void SetName(ControlRef theControl, Gallery::ControlNumber theNumber)
{
    const ControlID theName = Gallery::Name(theNumber);
    SetControlID(theControl, &theName);
}

// Views are made without a window.
void Add(WindowRef theWindow, HIViewRef theView)
{
    ControlRef theRoot = nullptr;
    GetRootControl(theWindow, &theRoot);
    EmbedControl(theView, theRoot);
    HIViewSetVisible(theView, true);
}

// The control gets a menu that goes with it.
void GiveMenu(ControlRef theControl, ResType theTag, std::initializer_list<CFStringRef> theTexts)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(0, 0, &theMenu);
    for (CFStringRef theText : theTexts) {
        AppendMenuItemTextWithCFString(theMenu, theText, 0, 0, nullptr);
    }
    SetControlData(theControl, kControlEntireControl, theTag, sizeof theMenu, &theMenu);
}

void AddHelp(ControlRef theControl, CFStringRef theText)
{
    HMHelpContentRec theHelp = {};
    theHelp.version = kMacHelpVersion;
    theHelp.tagSide = kHMDefaultSide;
    theHelp.content[kHMMinimumContentIndex].contentType = kHMCFStringContent;
    theHelp.content[kHMMinimumContentIndex].u.tagCFString = theText;
    theHelp.content[kHMMaximumContentIndex].contentType = kHMNoContent;
    HMSetControlHelpContent(theControl, &theHelp);
}

// An icon of the system, held once by the caller.
ControlButtonContentInfo IconContent(OSType theType)
{
    ControlButtonContentInfo theContent = {};
    IconRef theIcon = nullptr;
    GetIconRef(kOnSystemDisk, kSystemIconsCreator, theType, &theIcon);
    theContent.contentType = kControlContentIconRef;
    theContent.u.iconRef = theIcon;
    return theContent;
}

} // namespace

Gallery::Gallery()
{
    mModel.SetKeyPathValue(kLevel, LmValue(40UL));
    mModel.SetKeyPathValue(kEnabled, LmValue(true));
    mModel.SetKeyPathValue(kPage, LmValue(1UL));
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &kWindowPlace, &mWindow);
    SetWindowTitleWithCFString(mWindow, CFSTR("Gallery"));
    ControlRef theRoot = nullptr;
    CreateRootControl(mWindow, &theRoot);
    AddTexts();
    AddButtons();
    AddRanges();
    AddGroup();
    AddSwitch();
    AddSearch();
    AddCities();
    AddUnits();
    AddBevelButtons();
    AddPictures();
    AddTabs();
    AddDisclosures();
    AddRelevance();
    AddSegments();
    AddClocks();
    AddHeader();
}

LmControlBinding* Gallery::Bind(ControlRef theControl)
{
    auto* theBinding = new LmControlBinding(theControl);
    theBinding->BindTo("enabled", &mModel, kEnabled, nullptr);
    return theBinding;
}

void Gallery::BindLevel(ControlRef theControl)
{
    Bind(theControl)->Bind("value", &mModel, kLevel, nullptr, nullptr);
}

void Gallery::ShowLevel(ControlRef theControl)
{
    Bind(theControl)->BindTo("value", &mModel, kLevel, nullptr);
}

void Gallery::AddTexts()
{
    const Rect theNamePlace = {20, 20, 36, 80};
    const Rect theNameFieldPlace = {20, 86, 36, 220};
    const Rect theSecretPlace = {20, 250, 36, 310};
    const Rect theSecretFieldPlace = {20, 316, 36, 438};
    const Rect theNotesPlace = {49, 20, 65, 80};
    const Rect theNotesFieldPlace = {48, 86, 84, 438};
    ControlRef theControl = nullptr;
    AddLabel(theNamePlace, CFSTR("Name:"));
    CreateEditUnicodeTextControl(mWindow, &theNameFieldPlace, CFSTR("Kitchen"), false, nullptr, &theControl);
    Bind(theControl);
    AddLabel(theSecretPlace, CFSTR("Secret:"));
    CreateEditUnicodeTextControl(mWindow, &theSecretFieldPlace, CFSTR("sesame"), true, nullptr, &theControl);
    Bind(theControl);
    AddLabel(theNotesPlace, CFSTR("Notes:"));
    CreateEditUnicodeTextControl(
        mWindow, &theNotesFieldPlace,
        CFSTR("A field that is high enough has several lines, and breaks what is too long for one of them."),
        false, nullptr, &theControl);
    Bind(theControl);
}

void Gallery::AddLabel(const Rect& thePlace, CFStringRef theText)
{
    ControlRef theControl = nullptr;
    CreateStaticTextControl(mWindow, &thePlace, theText, nullptr, &theControl);
    Bind(theControl);
}

void Gallery::AddButtons()
{
    const Rect theCancelPlace = {290, 270, 310, 350};
    const Rect theDefaultPlace = {290, 362, 310, 442};
    ControlRef theControl = nullptr;
    CreatePushButtonControl(mWindow, &theCancelPlace, CFSTR("Cancel"), &theControl);
    SetWindowCancelButton(mWindow, theControl);
    Bind(theControl);
    CreatePushButtonControl(mWindow, &theDefaultPlace, CFSTR("OK"), &theControl);
    SetWindowDefaultButton(mWindow, theControl);
    Bind(theControl);
}

void Gallery::AddRanges()
{
    const Rect theSliderPlace = {100, 20, 120, 180};
    const Rect theTicksPlace = {132, 20, 160, 180};
    const Rect theNumberPlace = {100, 192, 116, 222};
    const Rect theArrowsPlace = {97, 224, 119, 238};
    const Rect theBarPlace = {172, 20, 188, 222};
    const Rect theBusyPlace = {200, 20, 216, 222};
    const Rect theScrollPlace = {228, 20, 244, 222};
    const Rect theUprightPlace = {100, 424, 270, 440};
    const Rect theHighSliderPlace = {100, 390, 270, 412};
    ControlRef theControl = nullptr;
    CreateSliderControl(mWindow, &theSliderPlace, 0, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theControl);
    SetName(theControl, kSlider);
    BindLevel(theControl);
    CreateSliderControl(mWindow, &theTicksPlace, 0, 0, 100, kControlSliderPointsDownOrRight, 11, true,
                        nullptr, &theControl);
    BindLevel(theControl);
    CreateStaticTextControl(mWindow, &theNumberPlace, nullptr, nullptr, &theControl);
    Bind(theControl)->BindTo("value", &mModel, kLevel, new LmToStringTransform);
    CreateLittleArrowsControl(mWindow, &theArrowsPlace, 0, 0, 100, 1, &theControl);
    BindLevel(theControl);
    CreateProgressBarControl(mWindow, &theBarPlace, 0, 0, 100, false, &theControl);
    ShowLevel(theControl);
    CreateProgressBarControl(mWindow, &theBusyPlace, 0, 0, 100, true, &theControl);
    Bind(theControl);
    CreateScrollBarControl(mWindow, &theScrollPlace, 0, 0, 100, 20, true, nullptr, &theControl);
    BindLevel(theControl);
    CreateScrollBarControl(mWindow, &theUprightPlace, 0, 0, 100, 20, true, nullptr, &theControl);
    BindLevel(theControl);
    CreateSliderControl(mWindow, &theHighSliderPlace, 0, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theControl);
    BindLevel(theControl);
}

void Gallery::AddGroup()
{
    const Rect theGroupPlace = {96, 250, 262, 374};
    const Rect thePlaces[] = {{120, 264, 138, 364},
                              {142, 264, 160, 364},
                              {164, 264, 182, 364},
                              {194, 264, 212, 364},
                              {216, 264, 234, 364}};
    ControlRef theGroup = nullptr;
    ControlRef theControl = nullptr;
    CreateGroupBoxControl(mWindow, &theGroupPlace, CFSTR("Choices"), true, &theGroup);
    Bind(theGroup);
    CreateCheckBoxControl(mWindow, &thePlaces[0], CFSTR("Off"), 0, true, &theControl);
    Bind(theControl);
    CreateCheckBoxControl(mWindow, &thePlaces[1], CFSTR("On"), 1, true, &theControl);
    Bind(theControl);
    CreateCheckBoxControl(mWindow, &thePlaces[2], CFSTR("Mixed"), 2, true, &theControl);
    Bind(theControl);
    CreateRadioButtonControl(mWindow, &thePlaces[3], CFSTR("This"), 1, true, &theControl);
    Bind(theControl);
    CreateRadioButtonControl(mWindow, &thePlaces[4], CFSTR("That"), 0, true, &theControl);
    Bind(theControl);
}

void Gallery::AddSwitch()
{
    const Rect thePlace = {291, 20, 309, 220};
    ControlRef theControl = nullptr;
    CreateCheckBoxControl(mWindow, &thePlace, CFSTR("Enable everything"), 1, true, &theControl);
    SetName(theControl, kSwitch);
    (new LmControlBinding(theControl))->Bind("value", &mModel, kEnabled, nullptr, nullptr);
}

// The right half -----------------------------------------------------------------------------------------

void Gallery::AddSearch()
{
    const HIRect thePlace = CGRectMake(478, 20, 236, 18);
    HIViewRef theField = nullptr;
    HISearchFieldCreate(&thePlace, kHISearchFieldAttributesCancel | kHISearchFieldAttributesSearchIcon,
                        nullptr, CFSTR("Names"), &theField);
    Add(mWindow, theField);
    SetName(theField, kSearch);
    AddHelp(theField, CFSTR("Looks for names in all rooms."));
    Bind(theField);
}

void Gallery::AddCities()
{
    const HIRect thePlace = CGRectMake(478, 52, 110, 18);
    const void* theNames[] = {CFSTR("Oslo"), CFSTR("Riga"), CFSTR("Rome")};
    CFArrayRef theList = CFArrayCreate(nullptr, theNames, 3, &kCFTypeArrayCallBacks);
    HIViewRef theBox = nullptr;
    HIComboBoxCreate(&thePlace, CFSTR("Riga"), nullptr, theList, kHIComboBoxAutoCompletionAttribute, &theBox);
    CFRelease(theList);
    Add(mWindow, theBox);
    SetName(theBox, kCity);
    Bind(theBox);
}

void Gallery::AddUnits()
{
    const Rect thePlace = {50, 604, 72, 714};
    ControlRef theControl = nullptr;
    CreatePopupButtonControl(mWindow, &thePlace, nullptr, -12345, false, 0, teFlushDefault, normal,
                             &theControl);
    GiveMenu(theControl, kControlPopupButtonOwnedMenuRefTag,
             {CFSTR("Celsius"), CFSTR("Fahrenheit"), CFSTR("Kelvin")});
    SetControl32BitValue(theControl, 1);
    SetName(theControl, kUnit);
    Bind(theControl);
}

void Gallery::AddBevelButtons()
{
    const Rect theBoldPlace = {82, 478, 108, 538};
    const Rect theAlignPlace = {82, 544, 108, 620};
    const Rect theHelpPlace = {82, 626, 108, 652};
    ControlButtonContentInfo theNote = IconContent(kAlertNoteIcon);
    ControlRef theControl = nullptr;
    CreateBevelButtonControl(mWindow, &theBoldPlace, CFSTR("Bold"), kControlBevelButtonNormalBevel,
                             kControlBehaviorToggles, nullptr, 0, 0, 0, &theControl);
    SetName(theControl, kBold);
    Bind(theControl);
    CreateBevelButtonControl(mWindow, &theAlignPlace, CFSTR("Align"), kControlBevelButtonNormalBevel,
                             kControlBehaviorPushbutton, nullptr, -12345, kControlBehaviorSingleValueMenu,
                             kControlBevelButtonMenuOnBottom, &theControl);
    GiveMenu(theControl, kControlBevelButtonOwnedMenuRefTag,
             {CFSTR("Left"), CFSTR("Centre"), CFSTR("Right")});
    SetName(theControl, kAlign);
    Bind(theControl);
    CreateRoundButtonControl(mWindow, &theHelpPlace, kControlRoundButtonLargeSize, &theNote, &theControl);
    ReleaseIconRef(theNote.u.iconRef);
    SetName(theControl, kHelpButton);
    AddHelp(theControl, CFSTR("Tells more."));
    Bind(theControl);
}

void Gallery::AddPictures()
{
    const Rect theFolderPlace = {80, 656, 110, 686};
    const Rect theBusyPlace = {87, 696, 103, 712};
    ControlButtonContentInfo theFolder = IconContent(kGenericFolderIcon);
    ControlRef theControl = nullptr;
    CreateIconControl(mWindow, &theFolderPlace, &theFolder, true, &theControl);
    ReleaseIconRef(theFolder.u.iconRef);
    Bind(theControl);
    CreateChasingArrowsControl(mWindow, &theBusyPlace, &theControl);
    Bind(theControl);
}

void Gallery::AddTabs()
{
    const Rect thePlace = {120, 470, 232, 722};
    const ControlTabEntry theTabs[] = {{nullptr, CFSTR("Choices"), true}, {nullptr, CFSTR("Image"), true}};
    ControlRef theControl = nullptr;
    CreateTabsControl(mWindow, &thePlace, kControlTabSizeLarge, kControlTabDirectionNorth, 2, theTabs,
                      &theControl);
    SetName(theControl, kTabs);
    Bind(theControl)->Bind("value", &mModel, kPage, nullptr, nullptr);
    AddChoices(AddPage(theControl, 1));
    AddWell(AddPage(theControl, 2));
}

// Shown while the page is this one.
ControlRef Gallery::AddPage(ControlRef theTabs, SInt32 theNumber)
{
    const Rect thePlace = {150, 476, 228, 716};
    ControlRef thePage = nullptr;
    CreateUserPaneControl(mWindow, &thePlace, kControlSupportsEmbedding, &thePage);
    EmbedControl(thePage, theTabs);
    Bind(thePage)->BindTo("visible", &mModel, kPage,
                          new LmIsEqualTransform(LmValue(static_cast<unsigned long>(theNumber))));
    return thePage;
}

void Gallery::AddChoices(ControlRef thePage)
{
    const Rect theGroupPlace = {156, 484, 224, 708};
    const Rect thePlaces[] = {{160, 488, 178, 700}, {180, 488, 198, 700}, {200, 488, 218, 700}};
    const CFStringRef theTitles[] = {CFSTR("Cold"), CFSTR("Warm"), CFSTR("Hot")};
    ControlRef theGroup = nullptr;
    CreateRadioGroupControl(mWindow, &theGroupPlace, &theGroup);
    EmbedControl(theGroup, thePage);
    SetName(theGroup, kChoices);
    for (size_t theIndex = 0; theIndex < 3; ++theIndex) {
        ControlRef theControl = nullptr;
        CreateRadioButtonControl(mWindow, &thePlaces[theIndex], theTitles[theIndex], theIndex == 1, false,
                                 &theControl);
        EmbedControl(theControl, theGroup);
        Bind(theControl);
    }
    Bind(theGroup);
}

void Gallery::AddWell(ControlRef thePage)
{
    const Rect thePlace = {160, 488, 220, 548};
    ControlButtonContentInfo theCaution = IconContent(kAlertCautionIcon);
    ControlRef theControl = nullptr;
    CreateImageWellControl(mWindow, &thePlace, &theCaution, &theControl);
    ReleaseIconRef(theCaution.u.iconRef);
    EmbedControl(theControl, thePage);
    SetName(theControl, kWell);
    Bind(theControl);
}

void Gallery::AddDisclosures()
{
    const Rect theLinePlace = {240, 478, 242, 714};
    const Rect theTrianglePlace = {248, 478, 266, 590};
    const Rect theButtonPlace = {248, 690, 268, 714};
    ControlRef theControl = nullptr;
    CreateSeparatorControl(mWindow, &theLinePlace, &theControl);
    Bind(theControl);
    CreateDisclosureTriangleControl(mWindow, &theTrianglePlace, kControlDisclosureTrianglePointDefault,
                                    CFSTR("Details"), 0, true, true, &theControl);
    SetName(theControl, kDetails);
    Bind(theControl);
    CreateDisclosureButtonControl(mWindow, &theButtonPlace, 0, true, &theControl);
    SetName(theControl, kMore);
    Bind(theControl);
}

void Gallery::AddRelevance()
{
    const Rect thePlatePlace = {280, 478, 310, 714};
    const Rect theBarPlace = {288, 486, 302, 706};
    ControlRef thePlate = nullptr;
    ControlRef theBar = nullptr;
    CreatePlacardControl(mWindow, &thePlatePlace, &thePlate);
    CreateRelevanceBarControl(mWindow, &theBarPlace, 0, 0, 100, &theBar);
    EmbedControl(theBar, thePlate);
    Bind(thePlate);
    SetName(theBar, kRelevance);
    ShowLevel(theBar);
}

void Gallery::AddSegments()
{
    const HIRect thePlace = CGRectMake(478, 324, 236, 22);
    const CFStringRef theLabels[] = {CFSTR("List"), CFSTR("Icons"), CFSTR("Columns")};
    HIViewRef theView = nullptr;
    HISegmentedViewCreate(&thePlace, &theView);
    HISegmentedViewSetSegmentCount(theView, 3);
    for (UInt32 theNumber = 1; theNumber <= 3; ++theNumber) {
        HISegmentedViewSetSegmentBehavior(theView, theNumber, kHISegmentBehaviorRadio);
        HISegmentedViewSetSegmentLabel(theView, theNumber, theLabels[theNumber - 1]);
    }
    HISegmentedViewSetSegmentValue(theView, 1, 1);
    Add(mWindow, theView);
    SetName(theView, kView);
    Bind(theView);
}

// On the day and at the time that everybody sees who opens the gallery.
void Gallery::AddClocks()
{
    const Rect theDatePlace = {358, 478, 380, 588};
    const Rect theTimePlace = {358, 604, 380, 690};
    const Rect theArrowPlace = {361, 698, 377, 714};
    LongDateRec theDate = {};
    theDate.ld.year = 2024;
    theDate.ld.month = 2;
    theDate.ld.day = 28;
    theDate.ld.hour = 14;
    theDate.ld.minute = 5;
    ControlRef theControl = nullptr;
    CreateClockControl(mWindow, &theDatePlace, kControlClockTypeMonthDayYear, kControlClockIsDisplayOnly,
                       &theControl);
    SetControlData(theControl, kControlEntireControl, kControlClockLongDateTag, sizeof theDate, &theDate);
    Bind(theControl);
    CreateClockControl(mWindow, &theTimePlace, kControlClockTypeHourMinute, kControlClockNoFlags,
                       &theControl);
    SetControlData(theControl, kControlEntireControl, kControlClockLongDateTag, sizeof theDate, &theDate);
    SetName(theControl, kTime);
    Bind(theControl);
    CreatePopupArrowControl(mWindow, &theArrowPlace, kControlPopupArrowOrientationSouth,
                            kControlPopupArrowSizeNormal, &theControl);
    Bind(theControl);
}

void Gallery::AddHeader()
{
    const Rect thePlace = {0, 0, 12, 730};
    ControlRef theControl = nullptr;
    CreateWindowHeaderControl(mWindow, &thePlace, false, &theControl);
    Bind(theControl);
}
