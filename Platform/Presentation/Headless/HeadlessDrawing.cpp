// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "HeadlessDrawing.h"

#include <algorithm>

namespace Host {

namespace {

// Cells of the track of a slider, a scroll bar or a progress bar.
constexpr int kTrackLength = 20;

// Cells of an edit text; a longer text makes it longer.
constexpr size_t kFieldLength = 16;

struct ShapeName
{
    ControlShape theShape;
    const char* theName;
};

constexpr ShapeName kControlNames[] = {
    {ControlShape::kPushButton, "push button"},
    {ControlShape::kCheckBox, "check box"},
    {ControlShape::kRadioButton, "radio button"},
    {ControlShape::kRadioGroup, "radio group"},
    {ControlShape::kSlider, "slider"},
    {ControlShape::kScrollBar, "scroll bar"},
    {ControlShape::kProgressBar, "progress bar"},
    {ControlShape::kLittleArrows, "little arrows"},
    {ControlShape::kStaticText, "static text"},
    {ControlShape::kEditText, "edit text"},
    {ControlShape::kGroupBox, "group box"},
    {ControlShape::kPopUpButton, "pop-up button"},
    {ControlShape::kTabs, "tabs"},
    {ControlShape::kSeparator, "separator"},
    {ControlShape::kPlacard, "placard"},
    {ControlShape::kDisclosureTriangle, "disclosure triangle"},
    {ControlShape::kDisclosureButton, "disclosure button"},
    {ControlShape::kChasingArrows, "chasing arrows"},
    {ControlShape::kRelevanceBar, "relevance bar"},
    {ControlShape::kBevelButton, "bevel button"},
    {ControlShape::kRoundButton, "round button"},
    {ControlShape::kIcon, "icon"},
    {ControlShape::kImageWell, "image well"},
    {ControlShape::kComboBox, "combo box"},
    {ControlShape::kSearchField, "search field"},
    {ControlShape::kSegments, "segments"},
    {ControlShape::kClock, "clock"},
    {ControlShape::kArrow, "arrow"},
    {ControlShape::kWindowHeader, "window header"},
    {ControlShape::kPane, "pane"},
};

struct WindowShapeName
{
    WindowShape theShape;
    const char* theName;
};

constexpr WindowShapeName kWindowNames[] = {
    {WindowShape::kDocument, "document window"},
    {WindowShape::kPlain, "plain window"},
    {WindowShape::kDialog, "dialog"},
    {WindowShape::kAlert, "alert"},
    {WindowShape::kFloating, "floating window"},
    {WindowShape::kUtility, "utility window"},
    {WindowShape::kSheet, "sheet"},
    {WindowShape::kDrawer, "drawer"},
    {WindowShape::kToolbar, "toolbar"},
    {WindowShape::kHelp, "help tag"},
    {WindowShape::kOverlay, "overlay"},
};

template <class Row, size_t theCount, class Shape>
const char* NameOf(const Row (&theRows)[theCount], Shape theShape)
{
    for (const Row& theRow : theRows) {
        if (theRow.theShape == theShape) {
            return theRow.theName;
        }
    }
    return "thing";
}

size_t CountCells(const std::string& theText)
{
    return static_cast<size_t>(std::count_if(theText.begin(), theText.end(), [](char theByte) {
        return (static_cast<unsigned char>(theByte) & 0xC0u) != 0x80u;
    }));
}

std::string Repeated(const std::string& theText, size_t theCount)
{
    std::string theResult;
    for (size_t theIndex = 0; theIndex < theCount; ++theIndex) {
        theResult += theText;
    }
    return theResult;
}

// A line stays a line: what would break it is shown as a blank.
std::string OneLine(std::string theText)
{
    for (char& theByte : theText) {
        if (static_cast<unsigned char>(theByte) < 0x20u || theByte == 0x7F) {
            theByte = ' ';
        }
    }
    return theText;
}

// How many of theCells lie before the value. Computed in 64 bits, where the widest range has room.
int CellsBefore(const ControlLook& theLook, int theCells)
{
    const std::int64_t theRange = static_cast<std::int64_t>(theLook.theMaximum) - theLook.theMinimum;
    const std::int64_t theOffset = static_cast<std::int64_t>(theLook.theValue) - theLook.theMinimum;
    if (theRange <= 0 || theOffset <= 0) {
        return 0;
    }
    return static_cast<int>(std::min(theOffset, theRange) * theCells / theRange);
}

std::string DrawTrack(const ControlLook& theLook, const char* theThumb)
{
    const auto theBefore = static_cast<size_t>(CellsBefore(theLook, kTrackLength - 1));
    return Repeated("─", theBefore) + theThumb + Repeated("─", kTrackLength - 1 - theBefore);
}

std::string Range(const ControlLook& theLook)
{
    return std::to_string(theLook.theValue) + " of " + std::to_string(theLook.theMinimum) + "…" +
           std::to_string(theLook.theMaximum);
}

std::string DrawButton(const ControlLook& theLook)
{
    const std::string theTitle = OneLine(theLook.theTitle);
    return theLook.theIsDefault ? "(( " + theTitle + " ))" : "( " + theTitle + " )";
}

std::string DrawBox(const ControlLook& theLook, const char* theEmpty, const char* theFull)
{
    const char* theBox = theLook.theValue == 0 ? theEmpty : theLook.theValue == 1 ? theFull : "[-]";
    return std::string(theBox) + " " + OneLine(theLook.theTitle);
}

std::string DrawProgress(const ControlLook& theLook)
{
    if (theLook.theIsIndeterminate) {
        return "[" + Repeated("~", kTrackLength) + "]";
    }
    const auto theFull = static_cast<size_t>(CellsBefore(theLook, kTrackLength));
    return "[" + Repeated("█", theFull) + Repeated("░", kTrackLength - theFull) + "] " +
           std::to_string(CellsBefore(theLook, 100)) + " %";
}

// Filled with blanks up to theWidth, before or behind or both; longer texts stay as they are.
std::string Aligned(const std::string& theText, TextAlignment theAlignment, size_t theWidth)
{
    const size_t theRoom = theWidth - std::min(theWidth, CountCells(theText));
    const size_t theBefore = theAlignment == TextAlignment::kRight    ? theRoom
                             : theAlignment == TextAlignment::kCentre ? theRoom / 2
                                                                      : 0;
    return std::string(theBefore, ' ') + theText + std::string(theRoom - theBefore, ' ');
}

// As wide as a field with its edges.
std::string DrawStaticText(const ControlLook& theLook)
{
    return Aligned(Quoted(theLook.theText), theLook.theAlignment, kFieldLength + 2);
}

std::string DrawField(const ControlLook& theLook)
{
    const std::string theText =
        theLook.theIsPassword ? Repeated("•", CountCells(theLook.theText)) : OneLine(theLook.theText);
    return "[" + Aligned(theText, theLook.theAlignment, kFieldLength) + "]";
}

std::string DrawTriangle(const ControlLook& theLook)
{
    const char* theTriangle = theLook.theValue != 0 ? "▾" : theLook.thePointsLeft ? "◂" : "▸";
    return theTriangle + (theLook.theHidesTitle ? std::string() : " " + OneLine(theLook.theTitle));
}

std::string DrawRelevance(const ControlLook& theLook)
{
    const auto theFull = static_cast<size_t>(CellsBefore(theLook, kTrackLength));
    return Repeated("|", theFull) + Repeated("·", kTrackLength - theFull) + " " + Range(theLook);
}

std::string DrawPopUp(const ControlLook& theLook)
{
    const std::string theTitle = theLook.theTitle.empty() ? "" : OneLine(theLook.theTitle) + " ";
    return theTitle + "[ " + OneLine(theLook.theText) + " ▾ ]";
}

// "[ Sound ]  Picture  (Disc)": the one in front, one behind it, and one that is disabled.
std::string DrawTabs(const ControlLook& theLook)
{
    std::string theText;
    const std::vector<TabLook>& theTabs = theLook.Rare().theTabs;
    for (size_t theIndex = 0; theIndex < theTabs.size(); ++theIndex) {
        const TabLook& theTab = theTabs[theIndex];
        const std::string theTitle =
            theTab.theIsEnabled ? OneLine(theTab.theTitle) : "(" + OneLine(theTab.theTitle) + ")";
        const bool theIsInFront = theLook.theValue == static_cast<std::int64_t>(theIndex) + 1;
        theText += theIndex == 0 ? "" : "  ";
        theText += theIsInFront ? "[ " + theTitle + " ]" : theTitle;
    }
    return theText;
}

std::string NameOfPicture(PictureShape thePicture)
{
    switch (thePicture) {
    case PictureShape::kNone:
        return "";
    case PictureShape::kFrame:
        return "picture";
    case PictureShape::kDocument:
        return "document";
    case PictureShape::kFolder:
        return "folder";
    case PictureShape::kApplication:
        return "application";
    case PictureShape::kDisk:
        return "disk";
    case PictureShape::kNote:
        return "note";
    case PictureShape::kCaution:
        return "caution";
    case PictureShape::kStop:
        break;
    }
    return "stop";
}

// "<folder>", or nothing.
std::string DrawPicture(PictureShape thePicture)
{
    const std::string theName = NameOfPicture(thePicture);
    return theName.empty() ? "" : "<" + theName + ">";
}

std::string DrawPicture(const ControlLook& theLook)
{
    return DrawPicture(theLook.Rare().thePicture);
}

std::string DrawSegment(const SegmentLook& theSegment)
{
    const std::string thePicture = DrawPicture(theSegment.thePicture);
    const std::string theTitle = OneLine(theSegment.theTitle);
    const std::string theContent =
        thePicture + (thePicture.empty() || theTitle.empty() ? "" : " ") + theTitle;
    const std::string theOne = theSegment.theIsEnabled ? theContent : "(" + theContent + ")";
    return theSegment.theIsOn ? "# " + theOne + " #" : " " + theOne + " ";
}

// "[# List #|<folder> Icons|(Tree)]": one that is on, one with an image, and one that is disabled.
std::string DrawSegments(const ControlLook& theLook)
{
    std::string theText;
    for (const SegmentLook& theSegment : theLook.Rare().theSegments) {
        theText += theText.empty() ? "" : "|";
        theText += DrawSegment(theSegment);
    }
    return "[" + theText + "]";
}

// "[ <folder> Open ▾ ]"; "[# Bold #]" while it is on.
std::string DrawBevel(const ControlLook& theLook)
{
    const RareLook& theRareLook = theLook.Rare();
    const std::string thePicture = DrawPicture(theLook);
    const std::string theTitle = OneLine(theLook.theTitle);
    const bool theIsBehind =
        theRareLook.theTitlePlace == TitlePlace::kLeft || theRareLook.theTitlePlace == TitlePlace::kAbove;
    std::string theText = theIsBehind ? theTitle : thePicture;
    theText += thePicture.empty() || theTitle.empty() ? "" : " ";
    theText += theIsBehind ? thePicture : theTitle;
    theText += theRareLook.theHasMenu ? " ▾" : "";
    const bool theIsOn = theRareLook.theIsToggle && theLook.theValue != 0;
    return theIsOn ? "[# " + theText + " #]" : "[ " + theText + " ]";
}

// "[⌕ Kitchen        ✕]", and while it is empty what it is for, in brackets.
std::string DrawSearch(const ControlLook& theLook)
{
    const RareLook& theRareLook = theLook.Rare();
    const bool theIsEmpty = theLook.theText.empty() && !theRareLook.theDescription.empty();
    const std::string theText =
        theIsEmpty ? "(" + OneLine(theRareLook.theDescription) + ")" : OneLine(theLook.theText);
    return std::string("[") + (theRareLook.theHasGlass ? "⌕ " : "") +
           Aligned(theText, theLook.theAlignment, kFieldLength) +
           (theRareLook.theHasCancelButton ? "✕]" : "]");
}

std::string DrawArrow(const ControlLook& theLook)
{
    switch (theLook.Rare().theArrow) {
    case ArrowDirection::kRight:
        return "▸";
    case ArrowDirection::kLeft:
        return "◂";
    case ArrowDirection::kUp:
        return "▴";
    case ArrowDirection::kDown:
        break;
    }
    return "▾";
}

// U+2713 for the check mark, whatever else as it is.
std::string DrawMark(std::uint32_t theMark)
{
    if (theMark == 0) {
        return " ";
    }
    if (theMark < 0x80) {
        return OneLine(std::string(1, static_cast<char>(theMark)));
    }
    std::string theText;
    if (theMark < 0x800) {
        theText += static_cast<char>(0xC0u | (theMark >> 6));
    } else {
        theText += static_cast<char>(0xE0u | ((theMark >> 12) & 0x0Fu));
        theText += static_cast<char>(0x80u | ((theMark >> 6) & 0x3Fu));
    }
    theText += static_cast<char>(0x80u | (theMark & 0x3Fu));
    return theText;
}

std::string DrawKey(const MenuItemLook& theLook)
{
    std::string theText;
    theText += (theLook.theKeyModifiers & kControlModifier) != 0 ? "⌃" : "";
    theText += (theLook.theKeyModifiers & kOptionModifier) != 0 ? "⌥" : "";
    theText += (theLook.theKeyModifiers & kShiftModifier) != 0 ? "⇧" : "";
    theText += (theLook.theKeyModifiers & kCommandModifier) != 0 ? "⌘" : "";
    return theText + theLook.theKey;
}

std::string Size(const PixelRect& theRect)
{
    const auto theLength = [](int theLow, int theHigh) {
        return std::to_string(static_cast<std::int64_t>(theHigh) - theLow);
    };
    return theLength(theRect.theLeft, theRect.theRight) + " × " +
           theLength(theRect.theTop, theRect.theBottom);
}

} // namespace

std::string Padded(const std::string& theText, size_t theWidth)
{
    const size_t theLength = CountCells(theText);
    return theLength < theWidth ? theText + std::string(theWidth - theLength, ' ') : theText;
}

std::string Quoted(const std::string& theText)
{
    return "\"" + OneLine(theText) + "\"";
}

std::string DrawControl(const ControlLook& theLook)
{
    switch (theLook.theShape) {
    case ControlShape::kPushButton:
        return DrawButton(theLook);
    case ControlShape::kCheckBox:
        return DrawBox(theLook, "[ ]", "[x]");
    case ControlShape::kRadioButton:
        return DrawBox(theLook, "( )", "(•)");
    case ControlShape::kSlider:
        return "├" + DrawTrack(theLook, "●") + "┤ " + Range(theLook);
    case ControlShape::kScrollBar:
        return "◂" + DrawTrack(theLook, "█") + "▸ " + Range(theLook);
    case ControlShape::kProgressBar:
        return DrawProgress(theLook);
    case ControlShape::kLittleArrows:
        return "▴▾ " + Range(theLook);
    case ControlShape::kStaticText:
        return DrawStaticText(theLook);
    case ControlShape::kEditText:
        return DrawField(theLook);
    case ControlShape::kPopUpButton:
        return DrawPopUp(theLook);
    case ControlShape::kTabs:
        return DrawTabs(theLook);
    case ControlShape::kDisclosureTriangle:
        return DrawTriangle(theLook);
    case ControlShape::kDisclosureButton:
        return theLook.theValue == 0 ? "[▾]" : "[▴]";
    case ControlShape::kChasingArrows:
        return theLook.theIsAnimated ? "↻" : "○";
    case ControlShape::kRelevanceBar:
        return DrawRelevance(theLook);
    case ControlShape::kSeparator:
        return Repeated("─", kTrackLength);
    case ControlShape::kBevelButton:
        return DrawBevel(theLook);
    case ControlShape::kRoundButton:
        return "(" + DrawPicture(theLook) + ")";
    case ControlShape::kIcon:
        return DrawPicture(theLook);
    case ControlShape::kImageWell:
        return (theLook.theValue == 0 ? "[" : "[*") + DrawPicture(theLook) + "]";
    case ControlShape::kComboBox:
        return DrawField(theLook) + "▾";
    case ControlShape::kSearchField:
        return DrawSearch(theLook);
    case ControlShape::kSegments:
        return DrawSegments(theLook);
    case ControlShape::kClock:
        return theLook.theIsLocked ? OneLine(theLook.theText) : "[" + OneLine(theLook.theText) + "]▴▾";
    case ControlShape::kArrow:
        return DrawArrow(theLook);
    case ControlShape::kGroupBox:
    case ControlShape::kPlacard:
    case ControlShape::kWindowHeader:
    case ControlShape::kRadioGroup:
    case ControlShape::kPane:
        break;
    }
    return OneLine(theLook.theTitle);
}

std::string QuotedCode(std::uint32_t theCode)
{
    std::string theText;
    for (int theShift = 24; theShift >= 0; theShift -= 8) {
        const auto theByte = static_cast<unsigned char>(theCode >> theShift);
        theText += theByte >= 0x20 && theByte < 0x7F ? static_cast<char>(theByte) : '?';
    }
    return "'" + theText + "'";
}

std::string Identified(const std::string& theThing, std::uint32_t theSignature, std::int32_t theNumber)
{
    return theThing + " " + QuotedCode(theSignature) + " " + std::to_string(theNumber);
}

std::string NameControl(const ControlLook& theLook)
{
    const char* theName = NameOf(kControlNames, theLook.theShape);
    return theLook.theSignature == 0 ? theName : Identified(theName, theLook.theSignature, theLook.theNumber);
}

std::string StateOfControl(const ControlLook& theLook)
{
    std::string theText = theLook.theIsVisible ? "" : ", hidden";
    theText += theLook.theIsEnabled ? "" : ", disabled";
    theText += theLook.theIsLocked ? ", locked" : "";
    theText += theLook.theIsHilited ? ", pressed" : "";
    const std::string& theHelp = theLook.Rare().theHelp;
    return theHelp.empty() ? theText : theText + ", help " + Quoted(theHelp);
}

std::string NameWindow(const WindowLook& theLook)
{
    std::string theText = Quoted(theLook.theTitle) + " - " + NameOf(kWindowNames, theLook.theShape);
    if (!theLook.theIsVisible) {
        return theText + ", hidden";
    }
    theText += theLook.theIsCollapsed ? ", collapsed" : "";
    theText += theLook.theIsActive ? ", active" : "";
    theText += theLook.theIsModal ? ", modal" : "";
    return theText;
}

std::string PlaceOfWindow(const WindowLook& theLook)
{
    std::string theText = "at " + std::to_string(theLook.theContent.theLeft) + ", " +
                          std::to_string(theLook.theContent.theTop) + "; " + Size(theLook.theContent);
    theText += theLook.theHasCloseBox ? "; close box" : "";
    theText += theLook.theHasCollapseBox ? "; collapse box" : "";
    theText += theLook.theHasZoomBox ? "; zoom box" : "";
    theText += theLook.theIsResizable ? "; resizable" : "";
    return theText;
}

std::string DrawMenuItem(const MenuItemLook& theLook)
{
    if (theLook.theIsSeparator) {
        return "  " + Repeated("─", kTrackLength);
    }
    std::string theText = DrawMark(theLook.theMark) + " " + OneLine(theLook.theText);
    theText += theLook.theSubmenu.empty() ? "" : " ▸";
    if (!theLook.theKey.empty()) {
        theText = Padded(theText, kTrackLength) + "  " + DrawKey(theLook);
    }
    return theLook.theIsEnabled ? theText : theText + "  (disabled)";
}

} // namespace Host
