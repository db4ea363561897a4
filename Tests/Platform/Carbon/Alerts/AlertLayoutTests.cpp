// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Where the texts and buttons of an alert are. The headless presenter's letters are 7 by 16 pixels.

#include "AlertTestSupport.h"

namespace {

class AlertLayout : public AlertTest
{
protected:
    Rect Place(DialogRef theAlert, SInt32 theNumber)
    {
        Rect theBounds = {0, 0, 0, 0};
        GetControlBounds(Item(GetDialogWindow(theAlert), theNumber), &theBounds);
        return theBounds;
    }

    static Rect Content(DialogRef theAlert)
    {
        Rect theBounds = {0, 0, 0, 0};
        GetWindowPortBounds(GetDialogWindow(theAlert), &theBounds);
        return theBounds;
    }

    int HeightOfMessage(const std::string& theText)
    {
        const DialogRef theAlert = NewAlert(TestString(theText.c_str()));
        const Rect theBounds = Place(theAlert, 5);
        DisposeDialog(theAlert);
        return theBounds.bottom - theBounds.top;
    }
};

} // namespace

TEST_F(AlertLayout, TheButtonsStandBelowTheTexts)
{
    mParams.cancelText = DefaultText();
    mParams.otherText = DefaultText();
    mParams.helpButton = true;
    const DialogRef theAlert = NewAlert(CFSTR("Save?"), CFSTR("There are changes."));
    EXPECT_EQ(Describe(Place(theAlert, 5)), "20, 20, 400, 36");
    EXPECT_EQ(Describe(Place(theAlert, 6)), "20, 44, 400, 60");
    EXPECT_EQ(Describe(Place(theAlert, 1)), "330, 80, 400, 100") << "default";
    EXPECT_EQ(Describe(Place(theAlert, 2)), "246, 80, 318, 100") << "cancel";
    EXPECT_EQ(Describe(Place(theAlert, 4)), "20, 80, 57, 100") << "help";
    EXPECT_EQ(Describe(Place(theAlert, 3)), "69, 80, 169, 100") << "other";
    EXPECT_EQ(Describe(Content(theAlert)), "0, 0, 420, 120");
}

TEST_F(AlertLayout, WithoutAnExplanationTheButtonsMoveUp)
{
    const DialogRef theAlert = NewAlert();
    EXPECT_EQ(Describe(Place(theAlert, 1)), "330, 56, 400, 76");
    EXPECT_EQ(Describe(Content(theAlert)), "0, 0, 420, 96");
}

TEST_F(AlertLayout, TheTextsAreAsHighAsTheyNeed)
{
    EXPECT_EQ(HeightOfMessage("short"), 16);
    EXPECT_EQ(HeightOfMessage(std::string(54, 'm')), 16) << "378 pixels";
    EXPECT_EQ(HeightOfMessage(std::string(40, 'm') + " " + std::string(30, 'm')), 36);
    EXPECT_EQ(HeightOfMessage("one\ntwo\rthree"), 54);
    EXPECT_EQ(HeightOfMessage(std::string(120, 'm')), 54) << "a word of 840 pixels";
    EXPECT_EQ(HeightOfMessage("ends with a blank "), 16);
}

TEST_F(AlertLayout, ALongTextLeavesTheButtonsOnTheScreen)
{
    std::string theText;
    for (int theCount = 0; theCount < 20000; ++theCount) {
        theText += "word ";
    }
    EXPECT_EQ(HeightOfMessage(theText), 360);
}

TEST_F(AlertLayout, WideButtonsMakeTheAlertWider)
{
    const TestString theWide(std::string(40, 'm').c_str());
    mParams.defaultText = theWide;
    mParams.cancelText = theWide;
    const DialogRef theAlert = NewAlert();
    EXPECT_EQ(Describe(Place(theAlert, 1)), "342, 56, 652, 76");
    EXPECT_EQ(Describe(Place(theAlert, 2)), "20, 56, 330, 76");
    EXPECT_EQ(Describe(Content(theAlert)), "0, 0, 672, 96");
}
