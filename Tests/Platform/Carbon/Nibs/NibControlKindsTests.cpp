// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A control of each class from a nib, and what it is made with.

#include "NibTestSupport.h"

namespace {

struct ClassRow
{
    const char* theClass;
    OSType theKind;
};

class NibControlKinds : public NibTest
{
protected:
    static OSType KindOf(ControlRef theControl)
    {
        ControlKind theKind = {};
        EXPECT_EQ(GetControlKind(theControl, &theKind), noErr);
        return theKind.kind;
    }

    // "value of minimum-maximum"
    static std::string RangeOf(ControlRef theControl)
    {
        return std::to_string(GetControl32BitValue(theControl)) + " of " +
               std::to_string(GetControl32BitMinimum(theControl)) + "-" +
               std::to_string(GetControl32BitMaximum(theControl));
    }
};

std::string Int(const char* theName, int theValue)
{
    return "<int name=\"" + std::string(theName) + "\">" + std::to_string(theValue) + "</int>";
}

std::string Bool(const char* theName, bool theValue)
{
    return "<boolean name=\"" + std::string(theName) + "\">" + (theValue ? "TRUE" : "FALSE") + "</boolean>";
}

std::string Words(const char* theName, const char* theValue)
{
    return "<string name=\"" + std::string(theName) + "\">" + theValue + "</string>";
}

const char kMenu[] = "<object name=\"menu\" class=\"IBCarbonMenu\"><array name=\"items\">"
                     "<object class=\"IBCarbonMenuItem\"><string name=\"title\">One</string></object>"
                     "<object class=\"IBCarbonMenuItem\"><string name=\"title\">Two</string></object>"
                     "</array></object>";

} // namespace

TEST_F(NibControlKinds, AreThoseOfTheirClasses)
{
    const ClassRow kRows[] = {
        {"IBCarbonBevelButton", kControlKindBevelButton},
        {"IBCarbonButton", kControlKindPushButton},
        {"IBCarbonChasingArrows", kControlKindChasingArrows},
        {"IBCarbonCheckBox", kControlKindCheckBox},
        {"IBCarbonClockDate", kControlKindClock},
        {"IBCarbonComboBox", kControlKindHIComboBox},
        {"IBCarbonEditText", kControlKindEditText},
        {"IBCarbonGroupBox", kControlKindGroupBox},
        {"IBCarbonHIView", kControlKindUserPane},
        {"IBCarbonIcon", kControlKindIcon},
        {"IBCarbonImageView", kControlKindHIImageView},
        {"IBCarbonImageWell", kControlKindImageWell},
        {"IBCarbonLittleArrows", kControlKindLittleArrows},
        {"IBCarbonPicture", kControlKindPicture},
        {"IBCarbonPopupArrow", kControlKindPopupArrow},
        {"IBCarbonPopupButton", kControlKindPopupButton},
        {"IBCarbonProgressBar", kControlKindProgressBar},
        {"IBCarbonRadioButton", kControlKindRadioButton},
        {"IBCarbonRadioGroup", kControlKindRadioGroup},
        {"IBCarbonRelevanceBar", kControlKindRelevanceBar},
        {"IBCarbonRoundButton", kControlKindRoundButton},
        {"IBCarbonScrollBar", kControlKindScrollBar},
        {"IBCarbonSearchField", kControlKindHISearchField},
        {"IBCarbonSegmentView", kHISegmentedViewKind},
        {"IBCarbonSeparator", kControlKindSeparator},
        {"IBCarbonSlider", kControlKindSlider},
        {"IBCarbonStaticText", kControlKindStaticText},
        {"IBCarbonTab", kControlKindTabs},
        {"IBCarbonTriangle", kControlKindDisclosureTriangle},
        {"IBCarbonUserPane", kControlKindUserPane},
    };
    for (const ClassRow& theRow : kRows) {
        const ControlRef theControl = MakeControl(theRow.theClass);
        EXPECT_EQ(KindOf(theControl), theRow.theKind) << theRow.theClass;
        Rect theBounds = {};
        GetControlBounds(theControl, &theBounds);
        EXPECT_EQ(Describe(theBounds), Describe(MakeRect(20, 10, 220, 40))) << theRow.theClass;
        EXPECT_TRUE(HIViewIsLatentlyVisible(theControl)) << theRow.theClass;
    }
}

TEST_F(NibControlKinds, HaveTheirValuesBetweenTheirLimits)
{
    const std::string theNumbers = Int("initialValue", 3) + Int("minimumValue", -2) + Int("maximumValue", 11);
    for (const char* theClass : {"IBCarbonSlider", "IBCarbonScrollBar", "IBCarbonProgressBar",
                                 "IBCarbonRelevanceBar", "IBCarbonLittleArrows"}) {
        EXPECT_EQ(RangeOf(MakeControl(theClass, theNumbers)), "3 of -2-11") << theClass;
    }
    EXPECT_EQ(RangeOf(MakeControl("IBCarbonSlider")), "0 of 0-100");
    EXPECT_EQ(RangeOf(MakeControl("IBCarbonRelevanceBar")), "50 of 0-100");
    EXPECT_EQ(GetControlViewSize(MakeControl("IBCarbonScrollBar", Int("viewSize", 25))), 25);
    EXPECT_EQ(GetControl32BitValue(MakeControl("IBCarbonCheckBox", Int("initialState", 2))), 2);
    EXPECT_EQ(GetControl32BitValue(MakeControl("IBCarbonRadioButton", Int("initialState", 1))), 1);
    EXPECT_EQ(GetControl32BitValue(MakeControl("IBCarbonTriangle")), 0);
    EXPECT_EQ(GetControl32BitValue(MakeControl("IBCarbonTriangle", Bool("collapsed", false))), 1);
}

TEST_F(NibControlKinds, KnowWhatElseTheyAreMadeWith)
{
    const auto theFlag = [](ControlRef theControl, ResType theTag) {
        Boolean theValue = 9;
        EXPECT_EQ(
            GetControlData(theControl, kControlEntireControl, theTag, sizeof theValue, &theValue, nullptr),
            noErr);
        return int{theValue};
    };
    EXPECT_EQ(theFlag(MakeControl("IBCarbonProgressBar"), kControlProgressBarIndeterminateTag), 1);
    EXPECT_EQ(theFlag(MakeControl("IBCarbonProgressBar", Bool("indeterminate", false)),
                      kControlProgressBarIndeterminateTag),
              0);
    EXPECT_EQ(
        theFlag(MakeControl("IBCarbonEditText", Bool("isSingleLine", true)), kControlEditTextSingleLineTag),
        1);
    EXPECT_EQ(theFlag(MakeControl("IBCarbonImageWell", Bool("dropTarget", true)),
                      kControlImageWellIsDragDestinationTag),
              1);
    SInt32 theStep = 0;
    GetControlData(MakeControl("IBCarbonLittleArrows", Int("increment", 5)), kControlEntireControl,
                   kControlLittleArrowsIncrementValueTag, sizeof theStep, &theStep, nullptr);
    EXPECT_EQ(theStep, 5);
    UInt16 theKind = 0;
    GetControlData(MakeControl("IBCarbonBevelButton", Bool("rounded", true)), kControlEntireControl,
                   kControlBevelButtonKindTag, sizeof theKind, &theKind, nullptr);
    EXPECT_EQ(theKind, 15);
    EXPECT_EQ(KindOf(MakeControl("IBCarbonEditText", Bool("isUnicode", true))),
              OSType{kControlKindEditUnicodeText});
    UInt32 theFeatures = 0;
    GetControlFeatures(MakeControl("IBCarbonUserPane", Int("featureBits", 2)), &theFeatures);
    EXPECT_NE(theFeatures & kControlSupportsEmbedding, 0u);
}

TEST_F(NibControlKinds, HaveTheirTexts)
{
    EXPECT_EQ(TextIn(MakeControl("IBCarbonEditText", Words("title", "Ada"))), "Ada");
    EXPECT_EQ(TextIn(MakeControl("IBCarbonSearchField", Words("title", "Ada"))), "Ada");
    const ControlRef theCombo = MakeControl(
        "IBCarbonComboBox",
        Words("title", "Ada") + "<array name=\"list\"><string>Ada</string><string>Grace</string></array>");
    EXPECT_EQ(TextIn(theCombo), "Ada");
    EXPECT_EQ(HIComboBoxGetItemCount(theCombo), 2u);
    const ControlRef theText =
        MakeControl("IBCarbonStaticText", Words("title", "Name:") + Int("justification", -1) +
                                              Words("foreColor", "65535 0 100000 "));
    CFStringRef theString = nullptr;
    GetControlData(theText, kControlEntireControl, kControlStaticTextCFStringTag, sizeof theString,
                   &theString, nullptr);
    EXPECT_EQ(TextOf(theString), "Name:");
    CFRelease(theString);
    ControlFontStyleRec theStyle = {};
    GetControlData(theText, kControlEntireControl, kControlFontStyleTag, sizeof theStyle, &theStyle, nullptr);
    EXPECT_EQ(theStyle.just, teFlushRight);
    EXPECT_EQ(theStyle.foreColor.red, 65535);
    EXPECT_EQ(theStyle.foreColor.blue, 65535);
}

TEST_F(NibControlKinds, HoldTheirMenus)
{
    const ControlRef thePopUp = MakeControl("IBCarbonPopupButton", kMenu + Int("selectedItem", 2));
    EXPECT_EQ(RangeOf(thePopUp), "2 of 1-2");
    EXPECT_EQ(CountMenuItems(GetControlPopupMenuHandle(thePopUp)), 2);
    const ControlRef theBevel = MakeControl("IBCarbonBevelButton", kMenu + Int("selectedItem", 2));
    MenuRef theMenu = nullptr;
    EXPECT_EQ(GetBevelButtonMenuHandle(theBevel, &theMenu), noErr);
    EXPECT_EQ(CountMenuItems(theMenu), 2);
    const ControlRef theSearch = MakeControl("IBCarbonSearchField", kMenu);
    EXPECT_EQ(HISearchFieldGetSearchMenu(theSearch, &theMenu), noErr);
    EXPECT_EQ(CountMenuItems(theMenu), 2);
    // Their menus go with them.
    DisposeWindow(mMade);
    mMade = nullptr;
    EXPECT_FALSE(IsValidMenu(theMenu));
}

TEST_F(NibControlKinds, HaveTabsWithTheirNames)
{
    const auto theTab = [](const char* theName, const char* theEnabled) {
        return "<dictionary><string>tabName</string><string>" + std::string(theName) +
               "</string><string>tabEnabled</string><string>" + theEnabled + "</string></dictionary>";
    };
    const ControlRef theTabs =
        MakeControl("IBCarbonTab", Int("tabSelection", 2) + "<array name=\"tabItems\">" + theTab("One", "1") +
                                       theTab("Two", "1") + theTab("Three", "0") + "</array>");
    EXPECT_EQ(RangeOf(theTabs), "2 of 1-3");
    ControlTabInfoRecV1 theInfo = {};
    theInfo.version = kControlTabInfoVersionOne;
    EXPECT_EQ(GetControlData(theTabs, 2, kControlTabInfoTag, sizeof theInfo, &theInfo, nullptr), noErr);
    EXPECT_EQ(TextOf(theInfo.name), "Two");
    CFRelease(theInfo.name);
    Boolean theIsEnabled = 1;
    GetControlData(theTabs, 3, kControlTabEnabledFlagTag, sizeof theIsEnabled, &theIsEnabled, nullptr);
    EXPECT_FALSE(theIsEnabled);
}

TEST_F(NibControlKinds, HaveRadioButtonsColumnByColumn)
{
    const ControlRef theGroup =
        MakeControl("IBCarbonRadioGroup",
                    Int("numRows", 2) + Int("numCols", 2) + Int("selectedRow", 1) + Int("selectedCol", 2) +
                        "<array name=\"radioTitles\"><array><string>A</string><string>C</string></array>"
                        "<array><string>B</string><string>D</string></array></array>");
    EXPECT_EQ(RangeOf(theGroup), "3 of 0-4");
    std::string theTitles;
    for (UInt16 theIndex = 1; theIndex <= 4; ++theIndex) {
        ControlRef theButton = nullptr;
        ASSERT_EQ(GetIndexedSubControl(theGroup, theIndex, &theButton), noErr);
        CFStringRef theTitle = nullptr;
        CopyControlTitleAsCFString(theButton, &theTitle);
        theTitles += TextOf(theTitle);
        CFRelease(theTitle);
    }
    EXPECT_EQ(theTitles, "ABCD");
}

TEST_F(NibControlKinds, ShowIcons)
{
    const std::string theIcon = Int("contentType", 132) + Int("contentResID", 1718379634); // 'fldr'
    ControlButtonContentInfo theContent = {};
    GetControlData(MakeControl("IBCarbonIcon", theIcon), kControlEntireControl, kControlIconContentTag,
                   sizeof theContent, &theContent, nullptr);
    EXPECT_EQ(theContent.contentType, kControlContentIconRef);
    GetControlData(MakeControl("IBCarbonIcon", Int("contentType", 130)), kControlEntireControl,
                   kControlIconContentTag, sizeof theContent, &theContent, nullptr);
    EXPECT_EQ(theContent.contentType, kControlContentTextOnly);
}

TEST_F(NibControlKinds, HaveSegments)
{
    const ControlRef theView =
        MakeControl("IBCarbonSegmentView", "<array name=\"segments\"><object class=\"Segment\">" +
                                               Words("label", "One") + Int("behavior", 2) + Int("value", 1) +
                                               "</object><object class=\"Segment\">" +
                                               Bool("enabled", false) + "</object></array>");
    EXPECT_EQ(HISegmentedViewGetSegmentCount(theView), 2u);
    EXPECT_EQ(HISegmentedViewGetSegmentBehavior(theView, 1), HISegmentBehavior{kHISegmentBehaviorRadio});
    EXPECT_EQ(HISegmentedViewGetSegmentValue(theView, 1), 1);
    EXPECT_FALSE(HISegmentedViewIsSegmentEnabled(theView, 2));
}

TEST_F(NibControlKinds, AreViewsOfTheProgramWhenTheirClassIsRegistered)
{
    const std::string theView = "<string name=\"classID\">org.example.nib.dial</string>";
    EXPECT_EQ(KindOf(MakeControl("IBCarbonHIView", theView)), OSType{kControlKindUserPane});
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"IBCarbonRuntime: an empty place stands for each org.example.nib.dial"});
    HIObjectClassRef theClass = nullptr;
    const EventTypeSpec kEvents[] = {{kEventClassHIObject, kEventHIObjectConstruct},
                                     {kEventClassHIObject, kEventHIObjectDestruct}};
    const auto theHandler = [](EventHandlerCallRef, EventRef theEvent, void*) -> OSStatus {
        if (GetEventKind(theEvent) == kEventHIObjectConstruct) {
            static char sInstance = 0;
            void* theInstance = &sInstance;
            return SetEventParameter(theEvent, kEventParamHIObjectInstance, typeVoidPtr, sizeof theInstance,
                                     &theInstance);
        }
        return noErr;
    };
    ASSERT_EQ(HIObjectRegisterSubclass(CFSTR("org.example.nib.dial"), kHIViewClassID, 0, theHandler, 2,
                                       kEvents, nullptr, &theClass),
              noErr);
    for (const char* theNibClass : {"IBCarbonHIView", "IBCarbonCustom"}) {
        const ControlRef theDial = MakeControl(theNibClass, theView + Int("maximum", 9) + Int("value", 4));
        EXPECT_TRUE(HIObjectIsOfClass(reinterpret_cast<HIObjectRef>(theDial), CFSTR("org.example.nib.dial")));
        EXPECT_EQ(RangeOf(theDial), "4 of 0-9");
    }
    DisposeWindow(mMade);
    mMade = nullptr;
    EXPECT_EQ(HIObjectUnregisterClass(theClass), noErr);
}
