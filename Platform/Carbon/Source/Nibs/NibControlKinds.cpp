// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What each class of the nib is made with.

#include "NibControlKinds.h"

#include "Base/Geometry.h"
#include "NibMenus.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <unordered_map>

namespace Host {

namespace {

using NibMaker = OSStatus (*)(const NibMaking& theMaking, ControlRef* theControl);

const MenuID kNoMenu = -12345; // a menu that is given later

SInt32 Least(const NibMaking& theMaking)
{
    return theMaking.theObject.Number("minimumValue", 0);
}

SInt32 Most(const NibMaking& theMaking)
{
    return theMaking.theObject.Number("maximumValue", 100);
}

SInt32 Initial(const NibMaking& theMaking, SInt32 theDefault = 0)
{
    return theMaking.theObject.Number("initialValue", theDefault);
}

Text TitleOf(const NibMaking& theMaking)
{
    return theMaking.theObject.String("title");
}

HIRect FrameOf(const NibMaking& theMaking)
{
    const Rect& theBounds = theMaking.theBounds;
    return CGRectMake(CGFloat(theBounds.left), CGFloat(theBounds.top), CGFloat(WidthOf(theBounds)),
                      CGFloat(HeightOf(theBounds)));
}

// Content of a button or an image -----------------------------------------------------------------------

// There are no resources: their numbers are kept, and show nothing. An icon is held while this lasts.
class NibContent
{
public:
    NibContent(ControlContentType theType, SInt32 theResource, OSType theCreator)
    {
        mContent.contentType = theType;
        if (theType == kControlContentIconRef) {
            GetIconRef(kOnSystemDisk, theCreator, static_cast<OSType>(theResource), &mIcon);
            std::memcpy(&mContent.u, &mIcon, sizeof mIcon);
        } else if (theType >= kControlContentIconSuiteRes && theType <= kControlContentAlertIconRes) {
            mContent.u.resID = static_cast<SInt16>(theResource);
        } else {
            mContent.contentType = kControlContentTextOnly;
        }
    }
    ~NibContent()
    {
        if (mIcon != nullptr) {
            ReleaseIconRef(mIcon);
        }
    }
    NibContent(const NibContent&) = delete;
    NibContent& operator=(const NibContent&) = delete;
    ControlButtonContentInfo* Get() { return &mContent; }

private:
    ControlButtonContentInfo mContent = {};
    IconRef mIcon = nullptr;
};

NibContent ContentOf(const NibMaking& theMaking, SInt16 theType, SInt32 theResource)
{
    const OSType theCreator = theMaking.theObject.Code("creator");
    return {theMaking.theObject.Short("contentType", theType),
            theMaking.theObject.Number("contentResID", theResource),
            theCreator == 0 ? OSType{kSystemIconsCreator} : theCreator};
}

// Menus in controls -------------------------------------------------------------------------------------

// Makes the menu of a control, or none, and hands it over to the control.
OSStatus GiveMenu(const NibMaking& theMaking, ControlRef theControl, ResType theTag, MenuRef* theGiven)
{
    *theGiven = nullptr;
    const NibObject theObject = theMaking.theObject.Object("menu");
    if (!theObject) {
        return noErr;
    }
    MenuRef theMenu = nullptr;
    OSStatus theStatus = MakeNibMenu(theObject, theMaking.theLimit, &theMenu);
    if (theStatus == noErr) {
        theStatus = SetControlData(theControl, kControlEntireControl, theTag, sizeof theMenu, &theMenu);
        if (theStatus == noErr) {
            *theGiven = theMenu;
        } else {
            ReleaseMenu(theMenu);
        }
    }
    return theStatus;
}

// Disposes a control that something went wrong with.
OSStatus Ended(OSStatus theStatus, ControlRef* theControl)
{
    if (theStatus != noErr) {
        DisposeControl(*theControl);
        *theControl = nullptr;
    }
    return theStatus;
}

// Makers ------------------------------------------------------------------------------------------------

OSStatus MakePushButton(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreatePushButtonControl(theMaking.theWindow, &theMaking.theBounds, nullptr, theControl);
}

OSStatus MakeCheckBox(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateCheckBoxControl(theMaking.theWindow, &theMaking.theBounds, nullptr,
                                 theMaking.theObject.Number("initialState"),
                                 theMaking.theObject.Flag("autoToggle", true), theControl);
}

OSStatus MakeRadioButton(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateRadioButtonControl(theMaking.theWindow, &theMaking.theBounds, nullptr,
                                    theMaking.theObject.Number("initialState"),
                                    theMaking.theObject.Flag("autoToggle", true), theControl);
}

struct Grid
{
    int theRows;
    int theColumns;
    int theGap;    // between rows
    int theHeight; // of a button
};

Grid GridOf(const NibMaking& theMaking)
{
    const NibObject& theObject = theMaking.theObject;
    Grid theGrid = {std::clamp<int>(theObject.Number("numRows", 2), 1, 100),
                    std::clamp<int>(theObject.Number("numCols", 1), 1, 100),
                    std::clamp<int>(theObject.Number("intercellHeight", 2), 0, 100), 0};
    theGrid.theHeight = theObject.Flag("small") ? 15 : 18;
    return theGrid;
}

// The buttons of a group, column by column; the group counts them so, from 1.
OSStatus AddRadioButtons(const NibMaking& theMaking, const Grid& theGrid, ControlRef theGroup)
{
    const auto theTitles = theMaking.theObject.List("radioTitles");
    const int theWidth = WidthOf(theMaking.theBounds) / theGrid.theColumns;
    for (int theColumn = 0; theColumn < theGrid.theColumns; ++theColumn) {
        for (int theRow = 0; theRow < theGrid.theRows; ++theRow) {
            const NibLimit::Level theLevel(theMaking.theLimit);
            const int theLeft = theMaking.theBounds.left + theColumn * theWidth;
            const int theTop = theMaking.theBounds.top + theRow * (theGrid.theHeight + theGrid.theGap);
            const Rect theBounds = MakeRect(theLeft, theTop, theLeft + theWidth, theTop + theGrid.theHeight);
            const auto theWords = static_cast<size_t>(theRow) < theTitles.size()
                                      ? theTitles[static_cast<size_t>(theRow)].Elements()
                                      : std::vector<NibObject>();
            const Text theTitle = static_cast<size_t>(theColumn) < theWords.size()
                                      ? theWords[static_cast<size_t>(theColumn)].Value()
                                      : Text();
            ControlRef theButton = nullptr;
            const OSStatus theStatus =
                !theLevel.IsAllowed() ? OSStatus{memFullErr}
                                      : CreateRadioButtonControl(theMaking.theWindow, &theBounds,
                                                                 NibString(theTitle), 0, false, &theButton);
            if (theStatus != noErr) {
                return theStatus;
            }
            EmbedControl(theButton, theGroup);
        }
    }
    return noErr;
}

OSStatus MakeRadioGroup(const NibMaking& theMaking, ControlRef* theControl)
{
    const OSStatus theStatus = CreateRadioGroupControl(theMaking.theWindow, &theMaking.theBounds, theControl);
    if (theStatus != noErr) {
        return theStatus;
    }
    const Grid theGrid = GridOf(theMaking);
    const OSStatus theFilled = AddRadioButtons(theMaking, theGrid, *theControl);
    const int theRow = std::clamp<int>(theMaking.theObject.Number("selectedRow", 1), 1, theGrid.theRows);
    const int theColumn =
        std::clamp<int>(theMaking.theObject.Number("selectedCol", 1), 1, theGrid.theColumns);
    SetControl32BitValue(*theControl, theRow + theGrid.theRows * (theColumn - 1));
    return Ended(theFilled, theControl);
}

OSStatus MakeSlider(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    return CreateSliderControl(
        theMaking.theWindow, &theMaking.theBounds, Initial(theMaking), Least(theMaking), Most(theMaking),
        static_cast<ControlSliderOrientation>(theObject.Short("orientation")),
        static_cast<UInt16>(theObject.Short("numTickMarks")), theObject.Flag("isLive"), nullptr, theControl);
}

OSStatus MakeScrollBar(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateScrollBarControl(theMaking.theWindow, &theMaking.theBounds, Initial(theMaking),
                                  Least(theMaking), Most(theMaking), theMaking.theObject.Number("viewSize"),
                                  theMaking.theObject.Flag("isLive"), nullptr, theControl);
}

OSStatus MakeProgressBar(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateProgressBarControl(theMaking.theWindow, &theMaking.theBounds, Initial(theMaking),
                                    Least(theMaking), Most(theMaking),
                                    theMaking.theObject.Flag("indeterminate", true), theControl);
}

OSStatus MakeRelevanceBar(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateRelevanceBarControl(theMaking.theWindow, &theMaking.theBounds, Initial(theMaking, 50),
                                     Least(theMaking), Most(theMaking), theControl);
}

OSStatus MakeLittleArrows(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateLittleArrowsControl(theMaking.theWindow, &theMaking.theBounds, Initial(theMaking),
                                     Least(theMaking), Most(theMaking),
                                     theMaking.theObject.Number("increment", 1), theControl);
}

OSStatus MakeStaticText(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateStaticTextControl(theMaking.theWindow, &theMaking.theBounds, NibString(TitleOf(theMaking)),
                                   nullptr, theControl);
}

OSStatus MakeEditText(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    const NibString theText(TitleOf(theMaking));
    const bool theIsPassword = theObject.Flag("isPassword");
    const OSStatus theStatus =
        theObject.Flag("isUnicode")
            ? CreateEditUnicodeTextControl(theMaking.theWindow, &theMaking.theBounds, theText, theIsPassword,
                                           nullptr, theControl)
            : CreateEditTextControl(theMaking.theWindow, &theMaking.theBounds, theText, theIsPassword,
                                    theObject.Flag("useInlineInput"), nullptr, theControl);
    if (theStatus == noErr) {
        const Boolean theIsSingle = theObject.Flag("isSingleLine");
        SetControlData(*theControl, kControlEntireControl, kControlEditTextSingleLineTag, sizeof theIsSingle,
                       &theIsSingle);
    }
    return theStatus;
}

OSStatus MakePopUp(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    OSStatus theStatus =
        CreatePopupButtonControl(theMaking.theWindow, &theMaking.theBounds, nullptr, kNoMenu,
                                 theObject.Flag("variableWidth") || theObject.Flag("variableWith"), -1,
                                 theObject.Short("titleJustification"), 0, theControl);
    if (theStatus != noErr) {
        return theStatus;
    }
    MenuRef theMenu = nullptr;
    theStatus = GiveMenu(theMaking, *theControl, kControlPopupButtonOwnedMenuRefTag, &theMenu);
    if (theMenu != nullptr) {
        const int theCount = CountMenuItems(theMenu);
        SetControl32BitMinimum(*theControl, theCount > 0 ? 1 : 0);
        SetControl32BitMaximum(*theControl, theCount);
        SetControl32BitValue(*theControl, theObject.Number("selectedItem", 1));
    }
    return Ended(theStatus, theControl);
}

OSStatus MakeGroupBox(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateGroupBoxControl(theMaking.theWindow, &theMaking.theBounds, nullptr,
                                 theMaking.theObject.Flag("primary", true), theControl);
}

void SetBevelData(const NibMaking& theMaking, ControlRef theControl)
{
    const NibObject& theObject = theMaking.theObject;
    if (theObject.Has("textPlacement")) {
        SetBevelButtonTextPlacement(theControl, theObject.Short("textPlacement"));
    }
    if (theObject.Has("textAlignment") || theObject.Has("textOffset")) {
        SetBevelButtonTextAlignment(theControl, theObject.Short("textAlignment"),
                                    theObject.Short("textOffset"));
    }
    SetBevelButtonGraphicAlignment(theControl, theObject.Short("graphicAlignment"),
                                   theObject.Short("graphicXOffset"), theObject.Short("graphicYOffset"));
    if (theObject.Flag("rounded")) {
        const UInt16 kRounded = 15;
        SetControlData(theControl, kControlEntireControl, kControlBevelButtonKindTag, sizeof kRounded,
                       &kRounded);
    }
}

OSStatus MakeBevelButton(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    NibContent theContent = ContentOf(theMaking, kControlContentCIconRes, 1);
    OSStatus theStatus = CreateBevelButtonControl(
        theMaking.theWindow, &theMaking.theBounds, nullptr,
        static_cast<ControlBevelThickness>(theObject.Short("bevelThickness")),
        static_cast<ControlBevelButtonBehavior>(theObject.Number("behavior")), theContent.Get(), 0,
        static_cast<ControlBevelButtonMenuBehavior>(theObject.Number("menuBehavior")),
        static_cast<ControlBevelButtonMenuPlacement>(theObject.Short("menuPlacement")), theControl);
    if (theStatus != noErr) {
        return theStatus;
    }
    SetBevelData(theMaking, *theControl);
    MenuRef theMenu = nullptr;
    theStatus = GiveMenu(theMaking, *theControl, kControlBevelButtonOwnedMenuRefTag, &theMenu);
    if (theMenu != nullptr) {
        SetBevelButtonMenuValue(*theControl, static_cast<MenuItemIndex>(theObject.Short("selectedItem", 1)));
    }
    return Ended(theStatus, theControl);
}

OSStatus MakeRoundButton(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    const OSType theCreator = theObject.Code("iconCreator");
    NibContent theContent(theObject.Short("contentType"), theObject.Number("iconType"),
                          theCreator == 0 ? OSType{kSystemIconsCreator} : theCreator);
    const ControlRoundButtonSize theSize =
        theObject.Short("size") == 0 ? kControlRoundButtonNormalSize : kControlRoundButtonLargeSize;
    return CreateRoundButtonControl(theMaking.theWindow, &theMaking.theBounds, theSize, theContent.Get(),
                                    theControl);
}

OSStatus MakeTriangle(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    return CreateDisclosureTriangleControl(
        theMaking.theWindow, &theMaking.theBounds,
        static_cast<ControlDisclosureTriangleOrientation>(theObject.Short("orientation")), nullptr,
        theObject.Flag("collapsed", true) ? 0 : 1, theObject.Flag("drawTitle"),
        theObject.Flag("autoToggle", true), theControl);
}

OSStatus MakeTabs(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    std::deque<NibString> theNames;
    std::vector<ControlTabEntry> theEntries;
    for (const NibObject& theItem : theObject.List("tabItems")) {
        theNames.emplace_back(theItem.Entry("tabName").Value());
        const NibObject theEnabled = theItem.Entry("tabEnabled");
        theEntries.push_back(
            {nullptr, theNames.back(), static_cast<Boolean>(theEnabled.NumberValue(1) != 0)});
    }
    const auto theCount = static_cast<UInt16>(std::min<size_t>(theEntries.size(), 0xFFFF));
    const OSStatus theStatus =
        CreateTabsControl(theMaking.theWindow, &theMaking.theBounds,
                          static_cast<ControlTabSize>(theObject.Short("controlSize")),
                          static_cast<ControlTabDirection>(theObject.Short("direction")), theCount,
                          theEntries.data(), theControl);
    if (theStatus == noErr) {
        SetControl32BitValue(*theControl, theObject.Number("tabSelection", 1));
    }
    return theStatus;
}

// What is drawn into it lies in it.
OSStatus MakeUserPane(const NibMaking& theMaking, ControlRef* theControl)
{
    UInt32 theFeatures = static_cast<UInt32>(theMaking.theObject.Number("featureBits"));
    theFeatures |= theMaking.theObject.List("subviews").empty() ? 0 : UInt32{kControlSupportsEmbedding};
    return CreateUserPaneControl(theMaking.theWindow, &theMaking.theBounds, theFeatures, theControl);
}

OSStatus MakeImageWell(const NibMaking& theMaking, ControlRef* theControl)
{
    NibContent theContent = ContentOf(theMaking, kControlContentCIconRes, 1);
    const OSStatus theStatus =
        CreateImageWellControl(theMaking.theWindow, &theMaking.theBounds, theContent.Get(), theControl);
    if (theStatus == noErr) {
        const Boolean theTakesDrags = theMaking.theObject.Flag("dropTarget");
        SetControlData(*theControl, kControlEntireControl, kControlImageWellIsDragDestinationTag,
                       sizeof theTakesDrags, &theTakesDrags);
    }
    return theStatus;
}

OSStatus MakeIcon(const NibMaking& theMaking, ControlRef* theControl)
{
    NibContent theContent = ContentOf(theMaking, kControlContentCIconRes, 1);
    return CreateIconControl(theMaking.theWindow, &theMaking.theBounds, theContent.Get(),
                             theMaking.theObject.Flag("dontTrack", true), theControl);
}

OSStatus MakePicture(const NibMaking& theMaking, ControlRef* theControl)
{
    NibContent theContent = ContentOf(theMaking, kControlContentPictRes, -1395);
    return CreatePictureControl(theMaking.theWindow, &theMaking.theBounds, theContent.Get(),
                                theMaking.theObject.Flag("dontTrack", true), theControl);
}

OSStatus MakeImageView(const NibMaking& theMaking, ControlRef* theControl)
{
    const OSStatus theStatus = HIImageViewCreate(nullptr, theControl);
    if (theStatus == noErr) {
        const double theAlpha = theMaking.theObject.Fraction("alpha", 1);
        HIImageViewSetAlpha(*theControl, static_cast<CGFloat>(theAlpha));
        HIImageViewSetOpaque(*theControl, theMaking.theObject.Flag("opaque", true));
        HIImageViewSetScaleToFit(*theControl, theMaking.theObject.Flag("scaleToFit"));
    }
    return theStatus;
}

OSStatus MakeSeparator(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateSeparatorControl(theMaking.theWindow, &theMaking.theBounds, theControl);
}

OSStatus MakeChasingArrows(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreateChasingArrowsControl(theMaking.theWindow, &theMaking.theBounds, theControl);
}

OSStatus MakeClock(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    const UInt32 theFlags =
        (theObject.Flag("isEditable", true) ? UInt32{kControlClockNoFlags}
                                            : UInt32{kControlClockIsDisplayOnly}) |
        (theObject.Flag("isLive") ? UInt32{kControlClockIsLive} : UInt32{kControlClockNoFlags});
    return CreateClockControl(theMaking.theWindow, &theMaking.theBounds,
                              static_cast<ControlClockType>(theObject.Number("clockType")),
                              static_cast<ControlClockFlags>(theFlags), theControl);
}

OSStatus MakePopupArrow(const NibMaking& theMaking, ControlRef* theControl)
{
    return CreatePopupArrowControl(
        theMaking.theWindow, &theMaking.theBounds,
        static_cast<ControlPopupArrowOrientation>(theMaking.theObject.Number("orientation")),
        static_cast<ControlPopupArrowSize>(theMaking.theObject.Number("size")), theControl);
}

OptionBits ComboBoxAttributes(const NibObject& theObject)
{
    const auto theBit = [&](const char* theName, bool theDefault, OptionBits theBits) {
        return theObject.Flag(theName, theDefault) ? theBits : OptionBits{0};
    };
    return theBit("autoCompletion", true, kHIComboBoxAutoCompletionAttribute) |
           theBit("autoDisclosure", true, kHIComboBoxAutoDisclosureAttribute) |
           theBit("autoSort", false, kHIComboBoxAutoSortAttribute) |
           theBit("autoSizeList", true, kHIComboBoxAutoSizeListAttribute);
}

OSStatus MakeComboBox(const NibMaking& theMaking, ControlRef* theControl)
{
    const HIRect theFrame = FrameOf(theMaking);
    const OSStatus theStatus = HIComboBoxCreate(&theFrame, NibString(TitleOf(theMaking)), nullptr, nullptr,
                                                ComboBoxAttributes(theMaking.theObject), theControl);
    if (theStatus == noErr) {
        for (const NibObject& theItem : theMaking.theObject.List("list")) {
            HIComboBoxAppendTextItem(*theControl, NibString(theItem.Value()), nullptr);
        }
    }
    return theStatus;
}

OSStatus MakeSearchField(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    MenuRef theMenu = nullptr;
    if (const NibObject theMenuObject = theObject.Object("menu")) {
        const OSStatus theStatus = MakeNibMenu(theMenuObject, theMaking.theLimit, &theMenu);
        if (theStatus != noErr) {
            return theStatus;
        }
    }
    const HIRect theFrame = FrameOf(theMaking);
    const OptionBits theAttributes =
        theObject.Flag("hasCancelIcon") ? kHISearchFieldAttributesCancel : kHISearchFieldNoAttributes;
    const OSStatus theStatus = HISearchFieldCreate(
        &theFrame, theAttributes, theMenu, NibString(theObject.String("descriptiveText")), theControl);
    if (theMenu != nullptr) {
        ReleaseMenu(theMenu);
    }
    if (theStatus == noErr && theObject.Has("title")) {
        HIViewSetText(*theControl, NibString(TitleOf(theMaking)));
    }
    return theStatus;
}

void SetSegment(const NibObject& theSegment, UInt32 theIndex, HIViewRef theView)
{
    const UInt32 theBehaviour = static_cast<UInt32>(theSegment.Number("behavior"));
    HISegmentedViewSetSegmentBehavior(
        theView, theIndex, theBehaviour == 0 ? HISegmentBehavior{kHISegmentBehaviorMomentary} : theBehaviour);
    HISegmentedViewSetSegmentLabel(theView, theIndex, NibString(theSegment.String("label")));
    HISegmentedViewSetSegmentValue(theView, theIndex, theSegment.Number("value"));
    HISegmentedViewSetSegmentEnabled(theView, theIndex, theSegment.Flag("enabled", true));
    HISegmentedViewSetSegmentCommand(theView, theIndex, theSegment.Code("command"));
    HISegmentedViewChangeSegmentAttributes(
        theView, theIndex, static_cast<OptionBits>(theSegment.Number("Attributes")), kHISegmentNoAttributes);
    HISegmentedViewSetSegmentContentWidth(theView, theIndex, theSegment.Flag("autoWidth", true),
                                          static_cast<CGFloat>(theSegment.Fraction("width", 0)));
}

OSStatus MakeSegmentedView(const NibMaking& theMaking, ControlRef* theControl)
{
    const HIRect theFrame = FrameOf(theMaking);
    const OSStatus theStatus = HISegmentedViewCreate(&theFrame, theControl);
    if (theStatus != noErr) {
        return theStatus;
    }
    const auto theSegments = theMaking.theObject.List("segments");
    const OSStatus theCounted =
        HISegmentedViewSetSegmentCount(*theControl, static_cast<UInt32>(theSegments.size()));
    UInt32 theIndex = 0;
    for (const NibObject& theSegment : theSegments) {
        SetSegment(theSegment, ++theIndex, *theControl);
    }
    return Ended(theCounted, theControl);
}

// A class of the program's own, or a view that only holds others.
OSStatus MakeOwnView(const NibMaking& theMaking, ControlRef* theControl)
{
    const NibObject& theObject = theMaking.theObject;
    const Text theClass = theObject.String("classID");
    if (theClass.empty()) {
        return theObject.Class() == "IBCarbonHIView"
                   ? CreateUserPaneControl(theMaking.theWindow, &theMaking.theBounds,
                                           kControlSupportsEmbedding, theControl)
                   : OSStatus{unimpErr};
    }
    HIObjectRef theNew = nullptr;
    const OSStatus theStatus = HIObjectCreate(NibString(theClass), nullptr, &theNew);
    if (theStatus != noErr) {
        return theStatus;
    }
    auto theView = reinterpret_cast<ControlRef>(theNew);
    if (!HIViewIsValid(theView)) {
        CFRelease(theNew);
        return paramErr;
    }
    *theControl = theView;
    if (theObject.Has("maximum")) {
        SetControl32BitMaximum(theView, theObject.Number("maximum"));
        SetControl32BitMinimum(theView, theObject.Number("minimum"));
        SetControl32BitValue(theView, theObject.Number("value"));
    }
    return noErr;
}

const std::unordered_map<std::string, NibMaker>& Makers()
{
    static const std::unordered_map<std::string, NibMaker> sMakers = {
        {"IBCarbonBevelButton", MakeBevelButton},
        {"IBCarbonButton", MakePushButton},
        {"IBCarbonChasingArrows", MakeChasingArrows},
        {"IBCarbonCheckBox", MakeCheckBox},
        {"IBCarbonClockDate", MakeClock},
        {"IBCarbonComboBox", MakeComboBox},
        {"IBCarbonCustom", MakeOwnView},
        {"IBCarbonEditText", MakeEditText},
        {"IBCarbonGroupBox", MakeGroupBox},
        {"IBCarbonHIView", MakeOwnView},
        {"IBCarbonIcon", MakeIcon},
        {"IBCarbonImageView", MakeImageView},
        {"IBCarbonImageWell", MakeImageWell},
        {"IBCarbonLittleArrows", MakeLittleArrows},
        {"IBCarbonPicture", MakePicture},
        {"IBCarbonPopupArrow", MakePopupArrow},
        {"IBCarbonPopupButton", MakePopUp},
        {"IBCarbonProgressBar", MakeProgressBar},
        {"IBCarbonRadioButton", MakeRadioButton},
        {"IBCarbonRadioGroup", MakeRadioGroup},
        {"IBCarbonRelevanceBar", MakeRelevanceBar},
        {"IBCarbonRoundButton", MakeRoundButton},
        {"IBCarbonScrollBar", MakeScrollBar},
        {"IBCarbonSearchField", MakeSearchField},
        {"IBCarbonSegmentView", MakeSegmentedView},
        {"IBCarbonSeparator", MakeSeparator},
        {"IBCarbonSlider", MakeSlider},
        {"IBCarbonStaticText", MakeStaticText},
        {"IBCarbonTab", MakeTabs},
        {"IBCarbonTriangle", MakeTriangle},
        {"IBCarbonUserPane", MakeUserPane},
    };
    return sMakers;
}

} // namespace

OSStatus MakeNibControl(const NibMaking& theMaking, ControlRef* theControl)
{
    const auto theMaker = Makers().find(theMaking.theObject.Class());
    return theMaker == Makers().end() ? OSStatus{unimpErr} : theMaker->second(theMaking, theControl);
}

bool IsNibText(const std::string& theClass)
{
    return theClass == "IBCarbonStaticText" || theClass == "IBCarbonEditText" ||
           theClass == "IBCarbonComboBox" || theClass == "IBCarbonSearchField";
}

} // namespace Host
