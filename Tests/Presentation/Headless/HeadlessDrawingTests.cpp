// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Controls as text.

#include "HeadlessTestLooks.h"

#include <gtest/gtest.h>

namespace {

using Host::ControlLook;

using Host::ControlShape;
using Host::PictureShape;

using Host::HeadlessSnapshot;

struct PictureRow
{
    ControlLook theLook;
    const char* thePicture;
};

ControlLook Aligned(ControlShape theShape, const char* theText, Host::TextAlignment theAlignment)
{
    ControlLook theLook = Texted(theShape, theText);
    theLook.theAlignment = theAlignment;
    return theLook;
}

ControlLook Tabs(std::int32_t theValue)
{
    ControlLook theLook = Control(3, ControlShape::kTabs);
    Host::RareLook theRare;
    theRare.theTabs = {{"Sound", true, {}}, {"Two\nwords", true, {}}, {"Disc", false, {}}};
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    theLook.theValue = theValue;
    return theLook;
}

ControlLook LeftTriangle()
{
    ControlLook theLook = Titled(ControlShape::kDisclosureTriangle, "Details");
    theLook.thePointsLeft = true;
    theLook.theHidesTitle = true;
    return theLook;
}

ControlLook Arrows(bool theIsAnimated)
{
    ControlLook theLook = Control(3, ControlShape::kChasingArrows);
    theLook.theIsAnimated = theIsAnimated;
    return theLook;
}

ControlLook Locked(ControlLook theLook)
{
    theLook.theIsLocked = true;
    return theLook;
}

ControlLook Rare(ControlLook theLook, void (*theChange)(Host::RareLook&))
{
    Host::RareLook theRare;
    theChange(theRare);
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    return theLook;
}

ControlLook Bevel(std::int32_t theValue, void (*theChange)(Host::RareLook&))
{
    return Rare(Titled(ControlShape::kBevelButton, "Open", theValue), theChange);
}

ControlLook Search(const char* theText, void (*theChange)(Host::RareLook&))
{
    return Rare(Texted(ControlShape::kSearchField, theText), theChange);
}

class HeadlessDrawing : public testing::TestWithParam<PictureRow>
{
};

TEST_P(HeadlessDrawing, ShowsTheControlAsAPersonWouldSeeIt)
{
    HeadlessSnapshot theSnapshot;
    theSnapshot.ControlLooks(GetParam().theLook);
    EXPECT_EQ(theSnapshot.DescribeControl(3), GetParam().thePicture);
}

constexpr std::int32_t kLeast = -2147483647 - 1;
constexpr std::int32_t kMost = 2147483647;

INSTANTIATE_TEST_SUITE_P(
    Controls, HeadlessDrawing,
    testing::Values(
        PictureRow{Titled(ControlShape::kPushButton, "OK"),
                   "( OK )                                    push button"},
        PictureRow{Default(Titled(ControlShape::kPushButton, "OK")),
                   "(( OK ))                                  push button"},
        PictureRow{Titled(ControlShape::kCheckBox, "Heat", 0),
                   "[ ] Heat                                  check box"},
        PictureRow{Titled(ControlShape::kCheckBox, "Heat", 1),
                   "[x] Heat                                  check box"},
        PictureRow{Titled(ControlShape::kCheckBox, "Heat", 2),
                   "[-] Heat                                  check box"},
        PictureRow{Titled(ControlShape::kRadioButton, "°C", 1),
                   "(•) °C                                    radio button"},
        PictureRow{Titled(ControlShape::kRadioButton, "°F", 0),
                   "( ) °F                                    radio button"},
        PictureRow{Valued(ControlShape::kSlider, 5, 0, 10),
                   "├─────────●──────────┤ 5 of 0…10          slider"},
        PictureRow{Valued(ControlShape::kSlider, 0, 0, 10),
                   "├●───────────────────┤ 0 of 0…10          slider"},
        PictureRow{Valued(ControlShape::kSlider, 10, 0, 10),
                   "├───────────────────●┤ 10 of 0…10         slider"},
        PictureRow{Valued(ControlShape::kSlider, 3, 3, 3),
                   "├●───────────────────┤ 3 of 3…3           slider"},
        PictureRow{Valued(ControlShape::kSlider, kMost, kLeast, kMost),
                   "├───────────────────●┤ 2147483647 of -2147483648…2147483647  slider"},
        PictureRow{Valued(ControlShape::kScrollBar, 0, 0, 4),
                   "◂█───────────────────▸ 0 of 0…4           scroll bar"},
        PictureRow{Valued(ControlShape::kProgressBar, 60, 0, 100),
                   "[████████████░░░░░░░░] 60 %               progress bar"},
        PictureRow{Indeterminate(Control(3, ControlShape::kProgressBar)),
                   "[~~~~~~~~~~~~~~~~~~~~]                    progress bar"},
        PictureRow{Valued(ControlShape::kLittleArrows, 4, 1, 9),
                   "▴▾ 4 of 1…9                               little arrows"},
        PictureRow{Texted(ControlShape::kStaticText, "21 °C"),
                   "\"21 °C\"                                   static text"},
        PictureRow{Texted(ControlShape::kStaticText, "two\nlines"),
                   "\"two lines\"                               static text"},
        PictureRow{Texted(ControlShape::kEditText, "Küche"),
                   "[Küche           ]                        edit text"},
        PictureRow{Texted(ControlShape::kEditText, "Küche", true),
                   "[•••••           ]                        edit text"},
        PictureRow{Aligned(ControlShape::kEditText, "Küche", Host::TextAlignment::kRight),
                   "[           Küche]                        edit text"},
        PictureRow{Aligned(ControlShape::kEditText, "Küche", Host::TextAlignment::kCentre),
                   "[     Küche      ]                        edit text"},
        PictureRow{Aligned(ControlShape::kStaticText, "21 °C", Host::TextAlignment::kRight),
                   "           \"21 °C\"                        static text"},
        PictureRow{Titled(ControlShape::kGroupBox, "More"),
                   "More                                      group box"},
        PictureRow{Aligned(ControlShape::kPopUpButton, "Celsius", Host::TextAlignment::kLeft),
                   "[ Celsius ▾ ]                             pop-up button"},
        PictureRow{Titled(ControlShape::kPopUpButton, "Unit:"),
                   "Unit: [  ▾ ]                              pop-up button"},
        PictureRow{Tabs(2), "Sound  [ Two words ]  (Disc)              tabs"},
        PictureRow{Tabs(0), "Sound  Two words  (Disc)                  tabs"},
        PictureRow{Control(3, ControlShape::kSeparator),
                   "────────────────────                      separator"},
        PictureRow{Titled(ControlShape::kDisclosureTriangle, "Details"),
                   "▸ Details                                 disclosure triangle"},
        PictureRow{Titled(ControlShape::kDisclosureTriangle, "Details", 1),
                   "▾ Details                                 disclosure triangle"},
        PictureRow{LeftTriangle(), "◂                                         disclosure triangle"},
        PictureRow{Titled(ControlShape::kDisclosureButton, "", 0),
                   "[▾]                                       disclosure button"},
        PictureRow{Titled(ControlShape::kDisclosureButton, "", 1),
                   "[▴]                                       disclosure button"},
        PictureRow{Arrows(false), "○                                         chasing arrows"},
        PictureRow{Arrows(true), "↻                                         chasing arrows"},
        PictureRow{Valued(ControlShape::kRelevanceBar, 50, 0, 100),
                   "||||||||||·········· 50 of 0…100          relevance bar"},
        PictureRow{Control(3, ControlShape::kPlacard), "                                          placard"},
        PictureRow{Control(3, ControlShape::kRadioGroup),
                   "                                          radio group"},
        PictureRow{Rare(Control(3, ControlShape::kSegments),
                        [](Host::RareLook& theRare) {
                            theRare.theSegments.resize(4);
                            theRare.theSegments[0].theTitle = "List";
                            theRare.theSegments[0].theIsOn = true;
                            theRare.theSegments[1].theTitle = "Icons";
                            theRare.theSegments[1].thePicture = PictureShape::kFolder;
                            theRare.theSegments[2].theTitle = "Tree";
                            theRare.theSegments[2].theIsEnabled = false;
                            theRare.theSegments[3].thePicture = PictureShape::kStop;
                        }),
                   "[# List #| <folder> Icons | (Tree) | <stop> ]  segments"},
        PictureRow{Control(3, ControlShape::kSegments), "[]                                        segments"},
        PictureRow{Texted(ControlShape::kClock, "14:05"), "[14:05]▴▾                                 clock"},
        PictureRow{Locked(Texted(ControlShape::kClock, "14:05")),
                   "14:05                                     clock, locked"},
        PictureRow{Control(3, ControlShape::kArrow), "▸                                         arrow"},
        PictureRow{Rare(Control(3, ControlShape::kArrow),
                        [](Host::RareLook& theRare) { theRare.theArrow = Host::ArrowDirection::kLeft; }),
                   "◂                                         arrow"},
        PictureRow{Rare(Control(3, ControlShape::kArrow),
                        [](Host::RareLook& theRare) { theRare.theArrow = Host::ArrowDirection::kUp; }),
                   "▴                                         arrow"},
        PictureRow{Rare(Control(3, ControlShape::kArrow),
                        [](Host::RareLook& theRare) { theRare.theArrow = Host::ArrowDirection::kDown; }),
                   "▾                                         arrow"},
        PictureRow{Control(3, ControlShape::kWindowHeader),
                   "                                          window header"},
        PictureRow{Titled(ControlShape::kBevelButton, "Open"),
                   "[ Open ]                                  bevel button"},
        PictureRow{Bevel(1, [](Host::RareLook& theRare) { theRare.theIsToggle = true; }),
                   "[# Open #]                                bevel button"},
        PictureRow{Bevel(1,
                         [](Host::RareLook& theRare) {
                             theRare.thePicture = PictureShape::kFolder;
                             theRare.theHasMenu = true;
                         }),
                   "[ <folder> Open ▾ ]                       bevel button"},
        PictureRow{Bevel(0,
                         [](Host::RareLook& theRare) {
                             theRare.thePicture = PictureShape::kFrame;
                             theRare.theTitlePlace = Host::TitlePlace::kAbove;
                         }),
                   "[ Open <picture> ]                        bevel button"},
        PictureRow{Rare(Control(3, ControlShape::kRoundButton),
                        [](Host::RareLook& theRare) { theRare.thePicture = PictureShape::kNote; }),
                   "(<note>)                                  round button"},
        PictureRow{Rare(Control(3, ControlShape::kIcon),
                        [](Host::RareLook& theRare) { theRare.thePicture = PictureShape::kDocument; }),
                   "<document>                                icon"},
        PictureRow{Rare(Valued(ControlShape::kImageWell, 1, 0, 1),
                        [](Host::RareLook& theRare) { theRare.thePicture = PictureShape::kStop; }),
                   "[*<stop>]                                 image well"},
        PictureRow{Texted(ControlShape::kComboBox, "Oslo"),
                   "[Oslo            ]▾                       combo box"},
        PictureRow{Search("", [](Host::RareLook& theRare) { theRare.theDescription = "Names"; }),
                   "[(Names)         ]                        search field"},
        PictureRow{Search("Ada",
                          [](Host::RareLook& theRare) {
                              theRare.theDescription = "Names";
                              theRare.theHasGlass = true;
                              theRare.theHasCancelButton = true;
                          }),
                   "[⌕ Ada             ✕]                     search field"},
        PictureRow{Rare(Titled(ControlShape::kPushButton, "OK"),
                        [](Host::RareLook& theRare) { theRare.theHelp = "Does it.\nAt once."; }),
                   "( OK )                                    push button, help \"Does it. At once.\""},
        PictureRow{Control(3, ControlShape::kPane), "                                          pane"}));

} // namespace
