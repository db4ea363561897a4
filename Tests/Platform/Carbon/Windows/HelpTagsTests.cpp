// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Help that appears when the pointer rests on a control.

#include "ManagerTestSupport.h"

#include <cstddef>

namespace {

static_assert(offsetof(HMHelpContentRec, absHotRect) == 4);
static_assert(offsetof(HMHelpContentRec, content) == 14);
static_assert(sizeof(HMHelpContent) == 260);
static_assert(sizeof(HMHelpContentRec) == 534);

class HelpTags : public ControlKindTest
{
protected:
    ~HelpTags() override { HMSetHelpTagsDisplayed(true); }

    static HMHelpContentRec Help(CFStringRef theText, CFStringRef theMore = nullptr)
    {
        HMHelpContentRec theHelp = {};
        theHelp.version = kMacHelpVersion;
        theHelp.content[kHMMinimumContentIndex].contentType = kHMCFStringContent;
        theHelp.content[kHMMinimumContentIndex].u.tagCFString = theText;
        theHelp.content[kHMMaximumContentIndex].contentType =
            theMore == nullptr ? HMContentType{kHMNoContent} : HMContentType{kHMCFStringContent};
        theHelp.content[kHMMaximumContentIndex].u.tagCFString = theMore;
        return theHelp;
    }

    static std::string Words(ControlRef theControl) { return LookOf(theControl).Rare().theHelp; }
};

} // namespace

TEST_F(HelpTags, AppearOnTheControlUntilTheyAreTakenAway)
{
    ControlRef theButton = NewPushButton();
    HMHelpContentRec theHelp = Help(CFSTR("Starts the engine."));
    EXPECT_EQ(Words(theButton), "");
    EXPECT_EQ(HMSetControlHelpContent(theButton, &theHelp), noErr);
    EXPECT_EQ(Words(theButton), "Starts the engine.");
    theHelp = Help(CFSTR("Starts."), CFSTR("Only with the key."));
    EXPECT_EQ(HMSetControlHelpContent(theButton, &theHelp), noErr);
    EXPECT_EQ(Words(theButton), "Starts.\nOnly with the key.");
    EXPECT_EQ(HMSetControlHelpContent(theButton, nullptr), noErr);
    EXPECT_EQ(Words(theButton), "");
}

TEST_F(HelpTags, AreForAllInAContainerThatHaveNoneOfTheirOwn)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theButton = NewPushButton();
    EmbedControl(theButton, theBox);
    const HMHelpContentRec theHelp = Help(CFSTR("How loud it is."));
    const HMHelpContentRec theOwn = Help(CFSTR("As loud as can be."));
    HMSetControlHelpContent(theBox, &theHelp);
    EXPECT_EQ(Words(theButton), "How loud it is.");
    HMSetControlHelpContent(theButton, &theOwn);
    EXPECT_EQ(Words(theButton), "As loud as can be.");
    EXPECT_EQ(Words(theBox), "How loud it is.");
}

TEST_F(HelpTags, HoldTheirString)
{
    CFMutableStringRef theText = CFStringCreateMutable(nullptr, 0);
    const HMHelpContentRec theHelp = Help(theText);
    ControlRef theButton = NewPushButton();
    HMSetControlHelpContent(theButton, &theHelp);
    EXPECT_EQ(CFGetRetainCount(theText), 2);
    HMSetControlHelpContent(theButton, &theHelp);
    EXPECT_EQ(CFGetRetainCount(theText), 2);
    DisposeControl(theButton);
    EXPECT_EQ(CFGetRetainCount(theText), 1) << "it went with the control";
    CFRelease(theText);
}

TEST_F(HelpTags, AreReadAsTheyWereSet)
{
    ControlRef theButton = NewPushButton();
    HMHelpContentRec theHelp = Help(CFSTR("Help"));
    theHelp.tagSide = kHMInsideTopLeftCorner;
    HMSetControlHelpContent(theButton, &theHelp);
    HMHelpContentRec theRead = {};
    EXPECT_EQ(HMGetControlHelpContent(theButton, &theRead), noErr);
    EXPECT_EQ(theRead.tagSide, kHMInsideTopLeftCorner);
    EXPECT_EQ(CFStringRef{theRead.content[0].u.tagCFString}, CFSTR("Help"));
    EXPECT_EQ(HMContentType{theRead.content[1].contentType}, HMContentType{kHMNoContent});
    EXPECT_EQ(HMGetControlHelpContent(NewCheckBox(), &theRead), noErr);
    EXPECT_EQ(HMContentType{theRead.content[0].contentType}, HMContentType{kHMNoContent});
    EXPECT_EQ(HMGetControlHelpContent(theButton, nullptr), paramErr);
    EXPECT_EQ(HMGetControlHelpContent(nullptr, &theRead), errUnknownControl);
}

TEST_F(HelpTags, MayBePascalStringsAndKeysOfLocalizedOnes)
{
    ControlRef theButton = NewPushButton();
    HMHelpContentRec theHelp = Help(nullptr);
    theHelp.content[0].contentType = kHMPascalStrContent;
    const unsigned char theString[] = "\x05"
                                      "Gr\x9F\xA7"
                                      "e";
    std::copy(std::begin(theString), std::end(theString), theHelp.content[0].u.tagString);
    HMSetControlHelpContent(theButton, &theHelp);
    EXPECT_EQ(Words(theButton), "Grüße");
    theHelp = Help(CFSTR("A key without a string"));
    theHelp.content[0].contentType = kHMCFStringLocalizedContent;
    HMSetControlHelpContent(theButton, &theHelp);
    EXPECT_EQ(Words(theButton), "A key without a string");
    theHelp.content[0].contentType = kHMStrResContent;
    theHelp.content[0].u.tagStrRes = 128;
    HMSetControlHelpContent(theButton, &theHelp);
    EXPECT_EQ(Words(theButton), "");
}

TEST_F(HelpTags, AreRefusedForAnotherVersionAndForNoControl)
{
    ControlRef theButton = NewPushButton();
    HMHelpContentRec theHelp = Help(CFSTR("Help"));
    EXPECT_EQ(HMSetControlHelpContent(nullptr, &theHelp), errUnknownControl);
    theHelp.version = 2;
    EXPECT_EQ(HMSetControlHelpContent(theButton, &theHelp), paramErr);
    EXPECT_EQ(Words(theButton), "");
}

TEST_F(HelpTags, AreNotShownWhileTheyAreTurnedOff)
{
    ControlRef theButton = NewPushButton();
    const HMHelpContentRec theHelp = Help(CFSTR("Help"));
    HMSetControlHelpContent(theButton, &theHelp);
    EXPECT_TRUE(HMAreHelpTagsDisplayed());
    EXPECT_EQ(HMSetHelpTagsDisplayed(false), noErr);
    EXPECT_FALSE(HMAreHelpTagsDisplayed());
    EXPECT_EQ(Words(theButton), "");
    HMSetHelpTagsDisplayed(true);
    EXPECT_EQ(Words(theButton), "Help");
}
