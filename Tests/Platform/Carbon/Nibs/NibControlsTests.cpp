// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Controls in windows from nibs: where they are, and what every one can have.

#include "NibTestSupport.h"

namespace {

class NibControls : public NibTest
{
protected:
    static Rect BoundsOf(ControlRef theControl)
    {
        Rect theBounds = {};
        GetControlBounds(theControl, &theBounds);
        return theBounds;
    }

    template <class Value>
    Value Property(ControlRef theControl, OSType theTag)
    {
        Value theValue = {};
        EXPECT_EQ(GetControlProperty(theControl, 'Mine', theTag, sizeof theValue, nullptr, &theValue), noErr);
        return theValue;
    }
};

const char kCompositing[] = "<boolean name=\"compositing\">TRUE</boolean>";

// A group box ('Nibs', 2) at 50, 40 with the views in it.
std::string Group(const std::string& theViews)
{
    return "<object class=\"IBCarbonGroupBox\"><string name=\"bounds\">40 50 140 350 </string>"
           "<string name=\"viewFrame\">50 40 300 100 </string>"
           "<ostype name=\"controlSignature\">Nibs</ostype><int name=\"controlID\">2</int>"
           "<array name=\"subviews\">" +
           theViews + "</array></object>";
}

const char kButtonInGroup[] = "<object class=\"IBCarbonButton\" id=\"8\">"
                              "<string name=\"bounds\">60 80 80 160 </string>"
                              "<string name=\"viewFrame\">30 20 80 20 </string>"
                              "<ostype name=\"controlSignature\">Nibs</ostype><int name=\"controlID\">1</int>"
                              "</object>";

} // namespace

TEST_F(NibControls, LieInOneAnotherAtTheirPlaceInTheContent)
{
    ASSERT_EQ(MakeWindow(WindowWith("", Group(kButtonInGroup))), noErr);
    ControlRef theParent = nullptr;
    ASSERT_EQ(GetSuperControl(Find(), &theParent), noErr);
    EXPECT_EQ(theParent, Find(2));
    EXPECT_EQ(Describe(BoundsOf(Find())), Describe(MakeRect(80, 60, 160, 80)));
    EXPECT_TRUE(IsControlVisible(Find()) || !IsWindowVisible(mMade));
}

TEST_F(NibControls, AreViewsInCompositingWindows)
{
    for (const char* theFrame : {"viewFrame", "none"}) {
        std::string theButton = kButtonInGroup;
        theButton.replace(theButton.find("viewFrame"), 9, theFrame);
        ASSERT_EQ(MakeWindow(WindowWith(kCompositing, Group(theButton))), noErr);
        EXPECT_EQ(HIViewGetSuperview(Find()), Find(2));
        HIRect theResult;
        ASSERT_EQ(HIViewGetFrame(Find(), &theResult), noErr);
        EXPECT_TRUE(CGRectEqualToRect(theResult, CGRectMake(30, 20, 80, 20))) << theFrame;
    }
}

TEST_F(NibControls, StandInTheOrderOfTheNib)
{
    ASSERT_EQ(MakeWindow(WindowWith("", View("IBCarbonButton", "<string name=\"title\">A</string>") +
                                            View("IBCarbonButton", "<string name=\"title\">B</string>"))),
              noErr);
    ControlRef theRoot = nullptr;
    ASSERT_EQ(GetRootControl(mMade, &theRoot), noErr);
    ControlRef theFirst = nullptr;
    ASSERT_EQ(GetIndexedSubControl(theRoot, 1, &theFirst), noErr);
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(theFirst, &theTitle);
    EXPECT_EQ(TextOf(theTitle), "A");
    CFRelease(theTitle);
}

TEST_F(NibControls, StandInTheWindowWhenTheirParentHoldsNothing)
{
    ASSERT_EQ(MakeWindow(WindowWith(
                  "", View("IBCarbonButton", "<array name=\"subviews\">" + Group("") + "</array>"))),
              noErr);
    ControlRef theRoot = nullptr;
    GetRootControl(mMade, &theRoot);
    ControlRef theParent = nullptr;
    ASSERT_EQ(GetSuperControl(Find(2), &theParent), noErr);
    EXPECT_EQ(theParent, theRoot);
}

TEST_F(NibControls, MayBeReferredToFromElsewhere)
{
    ASSERT_EQ(MakeWindow(NibWith("<object class=\"IBCarbonWindow\" id=\"1\">"
                                 "<string name=\"windowRect\">100 100 300 500</string>"
                                 "<reference name=\"rootControl\" idRef=\"5\"/></object>"
                                 "<object class=\"IBCarbonRootControl\" id=\"5\"><array name=\"subviews\">"
                                 "<reference idRef=\"8\"/><reference idRef=\"404\"/></array></object>" +
                                 std::string(kButtonInGroup))),
              noErr);
    EXPECT_NE(Find(), nullptr);
}

TEST_F(NibControls, HaveCommandTitleAndState)
{
    ControlRef theControl = MakeControl(
        "IBCarbonButton", "<ostype name=\"command\">ok  </ostype><string name=\"title\">OK</string>"
                          "<boolean name=\"enabled\">FALSE</boolean>");
    UInt32 theCommand = 0;
    EXPECT_EQ(GetControlCommandID(theControl, &theCommand), noErr);
    EXPECT_EQ(theCommand, UInt32{'ok  '});
    CFStringRef theTitle = nullptr;
    ASSERT_EQ(CopyControlTitleAsCFString(theControl, &theTitle), noErr);
    EXPECT_EQ(TextOf(theTitle), "OK");
    CFRelease(theTitle);
    EXPECT_FALSE(IsControlEnabled(theControl));
    EXPECT_TRUE(HIViewIsLatentlyVisible(theControl));
    theControl = MakeControl("IBCarbonButton", "<boolean name=\"hidden\">TRUE</boolean>");
    EXPECT_FALSE(HIViewIsLatentlyVisible(theControl));
    EXPECT_TRUE(IsControlEnabled(theControl));
}

TEST_F(NibControls, AreTheDefaultAndCancelButtonsOfTheirWindow)
{
    ControlRef theButton = MakeControl("IBCarbonButton", "<int name=\"buttonType\">1</int>");
    ControlRef theFound = nullptr;
    EXPECT_EQ(GetWindowDefaultButton(mMade, &theFound), noErr);
    EXPECT_EQ(theFound, theButton);
    theButton = MakeControl("IBCarbonButton", "<int name=\"buttonType\">2</int>");
    EXPECT_EQ(GetWindowCancelButton(mMade, &theFound), noErr);
    EXPECT_EQ(theFound, theButton);
}

TEST_F(NibControls, HaveSizesAndFonts)
{
    const auto theFont = [](ControlRef theControl) {
        ControlFontStyleRec theStyle = {};
        GetControlData(theControl, kControlEntireControl, kControlFontStyleTag, sizeof theStyle, &theStyle,
                       nullptr);
        return int{theStyle.font};
    };
    EXPECT_EQ(theFont(MakeControl("IBCarbonStaticText", "<boolean name=\"small\">TRUE</boolean>")),
              kControlFontSmallSystemFont);
    EXPECT_EQ(theFont(MakeControl("IBCarbonStaticText", "<int name=\"controlSize\">3</int>")),
              kControlFontMiniSystemFont);
    EXPECT_EQ(theFont(MakeControl("IBCarbonStaticText", "<int name=\"fontStyle\">-3</int>")),
              kControlFontSmallBoldSystemFont);
    ControlSize theSize = kControlSizeNormal;
    GetControlData(MakeControl("IBCarbonCheckBox", "<boolean name=\"small\">TRUE</boolean>"),
                   kControlEntireControl, kControlSizeTag, sizeof theSize, &theSize, nullptr);
    EXPECT_EQ(theSize, kControlSizeSmall);
}

TEST_F(NibControls, FollowTheirWindowAsTheirLayoutSays)
{
    ASSERT_EQ(
        MakeWindow(WindowWith(kCompositing, View("IBCarbonButton",
                                                 "<object name=\"layoutInfo\" class=\"IBCarbonHILayoutInfo\">"
                                                 "<int name=\"bindingTopKind\">1</int>"
                                                 "<int name=\"bindingLeftKind\">2</int>"
                                                 "<int name=\"bindingBottomKind\">1</int>"
                                                 "<int name=\"bindingRightKind\">2</int></object>"
                                                 "<boolean name=\"layoutSuspended\">TRUE</boolean>"))),
        noErr);
    HILayoutInfo theInfo = {};
    ASSERT_EQ(HIViewGetLayoutInfo(Find(), &theInfo), noErr);
    EXPECT_EQ(theInfo.binding.top.kind, kHILayoutBindMin);
    EXPECT_EQ(theInfo.binding.left.kind, kHILayoutBindMax);
    EXPECT_EQ(theInfo.binding.bottom.kind, kHILayoutBindMin);
    EXPECT_EQ(theInfo.binding.right.kind, kHILayoutBindMax);
    EXPECT_FALSE(HIViewIsLayoutActive(Find()));
}

TEST_F(NibControls, HaveHelp)
{
    const ControlRef theControl =
        MakeControl("IBCarbonButton", "<string name=\"helpTagText\">Short</string>"
                                      "<string name=\"helpTagExtendedText\">Long</string>");
    HMHelpContentRec theHelp = {};
    ASSERT_EQ(HMGetControlHelpContent(theControl, &theHelp), noErr);
    EXPECT_EQ(theHelp.content[0].contentType, HMContentType{kHMCFStringContent});
    EXPECT_EQ(TextOf(theHelp.content[0].u.tagCFString), "Short");
    EXPECT_EQ(TextOf(theHelp.content[1].u.tagCFString), "Long");
}

TEST_F(NibControls, HavePropertiesOfTheProgram)
{
    const std::pair<const char*, const char*> kProperties[] = {
        {"0", "words"}, {"1", "bytes"}, {"2", "TRUE"},       {"3", "2,5"},
        {"4", "1.25"},  {"5", "abcd"},  {"6", "-7"},         {"7", "4294967295"},
        {"8", "1.5,2"}, {"9", "3, 4"},  {"10", "1,2,3,-4.5"}};
    std::string theCreators;
    std::string theTags;
    std::string theTypes;
    std::string theValues;
    const std::string theLetters = "ABCDEFGHIJK";
    size_t theIndex = 0;
    for (const auto& theProperty : kProperties) {
        theCreators += "<string>Mine</string>";
        theTags += std::string("<string>tag") + theLetters[theIndex++] + "</string>";
        theTypes += std::string("<string>") + theProperty.first + "</string>";
        theValues += std::string("<string>") + theProperty.second + "</string>";
    }
    const ControlRef theControl = MakeControl(
        "IBCarbonButton", "<dictionary name=\"auxiliaryDictionary\"><string>creators</string><array>" +
                              theCreators + "</array><string>tags</string><array>" + theTags +
                              "</array><string>types</string><array>" + theTypes +
                              "</array><string>values</string><array>" + theValues + "</array></dictionary>");
    EXPECT_EQ(TextOf(Property<CFStringRef>(theControl, 'tagA')), "words");
    char theBytes[6] = {};
    EXPECT_EQ(GetControlProperty(theControl, 'Mine', 'tagB', sizeof theBytes, nullptr, theBytes), noErr);
    EXPECT_STREQ(theBytes, "bytes");
    EXPECT_EQ(Property<Boolean>(theControl, 'tagC'), 1);
    EXPECT_EQ(Property<CFRange>(theControl, 'tagD').length, 5);
    EXPECT_EQ(Property<float>(theControl, 'tagE'), 1.25F);
    EXPECT_EQ(Property<OSType>(theControl, 'tagF'), OSType{'abcd'});
    EXPECT_EQ(Property<SInt32>(theControl, 'tagG'), -7);
    EXPECT_EQ(Property<UInt32>(theControl, 'tagH'), 4294967295U);
    EXPECT_TRUE(CGPointEqualToPoint(Property<CGPoint>(theControl, 'tagI'), CGPointMake(1.5, 2)));
    EXPECT_TRUE(CGSizeEqualToSize(Property<CGSize>(theControl, 'tagJ'), CGSizeMake(3, 4)));
    const CGRect theRect = Property<CGRect>(theControl, 'tagK');
    EXPECT_EQ(theRect.origin.x, 1);
    EXPECT_EQ(theRect.size.height, CGFloat(-4.5));
}

TEST_F(NibControls, OfUnknownClassesAreEmptyPlacesWhichIsToldOnce)
{
    const std::string theViews =
        "<object class=\"IBCarbonUnheardOf\"><string name=\"bounds\">40 50 140 350 </string>"
        "<array name=\"subviews\">" +
        std::string(kButtonInGroup) + "</array></object>" + View("IBCarbonUnheardOf");
    ASSERT_EQ(MakeWindow(WindowWith("", theViews)), noErr);
    ControlRef thePlace = nullptr;
    GetSuperControl(Find(), &thePlace);
    ControlKind theKind = {};
    GetControlKind(thePlace, &theKind);
    EXPECT_EQ(theKind.kind, OSType{kControlKindUserPane});
    EXPECT_EQ(Describe(BoundsOf(thePlace)), Describe(MakeRect(50, 40, 350, 140)));
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"IBCarbonRuntime: an empty place stands for each IBCarbonUnheardOf"});
}

TEST_F(NibControls, ThatCannotBeMadeAreEmptyPlacesToo)
{
    const ControlRef theControl = MakeControl("IBCarbonSlider", "<int name=\"minimumValue\">200</int>");
    ControlKind theKind = {};
    GetControlKind(theControl, &theKind);
    EXPECT_EQ(theKind.kind, OSType{kControlKindUserPane});
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"IBCarbonRuntime: an empty place stands for each IBCarbonSlider"});
}

TEST_F(NibControls, EndWithAStatusWhenOneHoldsItselfOrThereAreTooMany)
{
    EXPECT_EQ(
        MakeWindow(WindowWith("", "<object class=\"IBCarbonUserPane\" id=\"7\"><array name=\"subviews\">"
                                  "<reference idRef=\"7\"/></array></object>")),
        memFullErr);
    EXPECT_EQ(mMade, nullptr);
    // Three levels of references give a thousand views each.
    std::string theThousand;
    for (int theNumber = 0; theNumber < 1000; ++theNumber) {
        theThousand += "<reference idRef=\"7\"/>";
    }
    const auto thePane = [](const char* theID, const std::string& theViews) {
        return "<object class=\"IBCarbonUserPane\" id=\"" + std::string(theID) +
               "\"><array name=\"subviews\">" + theViews + "</array></object>";
    };
    std::string theHundred;
    for (int theNumber = 0; theNumber < 100; ++theNumber) {
        theHundred += "<reference idRef=\"6\"/>";
    }
    EXPECT_EQ(MakeWindow(WindowWith("", thePane("7", "") + thePane("6", theThousand) + theHundred)),
              memFullErr);
    EXPECT_EQ(mMade, nullptr);
}
