// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AlertLayout.h"

#include "Base/Geometry.h"

#include <algorithm>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

constexpr int kMargin = 20;
constexpr int kTextWidth = 380;
constexpr int kTextGap = 8;
constexpr int kButtonHeight = 20;
constexpr int kButtonGap = 12;
constexpr int kLeastButton = 70;
constexpr int kButtonPadding = 30; // left and right of a title together
constexpr int kLeading = 2;        // what a font may want between lines
constexpr int kMostLines = 20;     // a longer text is cut off: the buttons must stay on the screen

constexpr size_t kHelp = 3;

PixelSize Measure(const Text& theText)
{
    return PresenterRegistry::Current().MeasureText(Utf8Of(theText), TextStyle::kBody);
}

bool IsLineEnd(char16_t theUnit)
{
    return theUnit == u'\n' || theUnit == u'\r';
}

// The end of the word that begins at theStart, blanks before it included.
size_t EndOfWord(const Text& theText, size_t theStart)
{
    size_t theEnd = theText.find_first_not_of(u' ', theStart);
    theEnd = theText.find_first_of(u" \n\r", std::min(theEnd, theText.size()));
    return std::min(theEnd, theText.size());
}

// Fills lines with words, as a presenter does that has this much room.
int CountLines(const Text& theText)
{
    int theLines = 1;
    int theUsed = 0;
    for (size_t theStart = 0; theStart < theText.size() && theLines < kMostLines;) {
        if (IsLineEnd(theText[theStart])) {
            ++theLines;
            theUsed = 0;
            ++theStart;
            continue;
        }
        const size_t theEnd = std::max(EndOfWord(theText, theStart), theStart + 1);
        const int theWidth = Measure(theText.substr(theStart, theEnd - theStart)).theWidth;
        if (theUsed > 0 && theUsed + theWidth > kTextWidth) {
            ++theLines;
            theUsed = 0;
        }
        theUsed += theWidth;
        theLines += theUsed / (kTextWidth + 1);
        theUsed %= kTextWidth + 1;
        theStart = theEnd;
    }
    return std::min(theLines, kMostLines);
}

int HeightOf(const Text& theText)
{
    const int theLines = CountLines(theText);
    const int theLine = Measure(theText.substr(0, 1)).theHeight + (theLines > 1 ? kLeading : 0);
    return theLines * theLine;
}

int WidthOfButton(const Text& theTitle, size_t theNumber)
{
    const int theWidth = Measure(theTitle).theWidth + kButtonPadding;
    return theNumber == kHelp ? theWidth : std::max(theWidth, kLeastButton);
}

int WidthOfRow(const AlertTexts& theTexts)
{
    int theWidth = -kButtonGap;
    for (size_t theNumber = 0; theNumber < kButtonCount; ++theNumber) {
        const Text& theTitle = theTexts.theButtons[theNumber];
        theWidth += theTitle.empty() ? 0 : WidthOfButton(theTitle, theNumber) + kButtonGap;
    }
    return theWidth;
}

// Puts the buttons of a row between theLeft and theRight.
void LayOutButtons(const AlertTexts& theTexts, int theTop, int theLeft, int theRight, AlertLayout* theLayout)
{
    constexpr std::array<size_t, 2> kFromRight = {0, 1};
    constexpr std::array<size_t, 2> kFromLeft = {kHelp, 2};
    for (const size_t theNumber : kFromRight) {
        if (const Text& theTitle = theTexts.theButtons[theNumber]; !theTitle.empty()) {
            const int theWidth = WidthOfButton(theTitle, theNumber);
            theLayout->theButtons[theNumber] =
                MakeRect(theRight - theWidth, theTop, theRight, theTop + kButtonHeight);
            theRight -= theWidth + kButtonGap;
        }
    }
    for (const size_t theNumber : kFromLeft) {
        if (const Text& theTitle = theTexts.theButtons[theNumber]; !theTitle.empty()) {
            const int theWidth = WidthOfButton(theTitle, theNumber);
            theLayout->theButtons[theNumber] =
                MakeRect(theLeft, theTop, theLeft + theWidth, theTop + kButtonHeight);
            theLeft += theWidth + kButtonGap;
        }
    }
}

} // namespace

AlertLayout LayOutAlert(const AlertTexts& theTexts)
{
    AlertLayout theLayout;
    const int theRight = kMargin + std::max(kTextWidth, WidthOfRow(theTexts));
    int theTop = kMargin;
    const auto thePut = [&](const Text& theText) {
        const int theBottom = theTop + HeightOf(theText);
        const Rect thePlace = MakeRect(kMargin, theTop, theRight, theBottom);
        theTop = theBottom + kTextGap;
        return thePlace;
    };
    theLayout.theMessage = thePut(theTexts.theMessage);
    if (!theTexts.theExplanation.empty()) {
        theLayout.theExplanation = thePut(theTexts.theExplanation);
    }
    theTop += kButtonGap;
    LayOutButtons(theTexts, theTop, kMargin, theRight, &theLayout);
    theLayout.theContent = MakeRect(0, 0, theRight + kMargin, theTop + kButtonHeight + kMargin);
    return theLayout;
}

} // namespace Host
