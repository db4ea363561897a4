// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PresenterTypes_h
#define PresenterTypes_h

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// The words that the managers and a presenter exchange: plain values and integer identifiers.
//
// Nothing here refers to a window, a control or a menu of the program, and nothing here belongs to a
// user-interface toolkit. A look is the whole appearance of one thing at one moment; whoever receives
// it may keep a copy and owns nothing else. A new property of a thing becomes a new field of its look.
//
// Coordinates are pixels. Windows are placed in global coordinates (the origin is the top left of the
// main screen, the menu bar included); controls are placed in the coordinates of their window's
// content. Rectangles hold their left and top edge and exclude the right and bottom one. Texts are UTF-8.

#define HOST_PUBLIC __attribute__((visibility("default")))

namespace Host {

// Names one window, control or menu for as long as it exists. Numbers are never used twice.
using ObjectId = std::uint32_t;

constexpr ObjectId kNoObject = 0;

struct PixelPoint
{
    int theX = 0;
    int theY = 0;
};

struct PixelSize
{
    int theWidth = 0;
    int theHeight = 0;
};

struct PixelRect
{
    int theLeft = 0;
    int theTop = 0;
    int theRight = 0;
    int theBottom = 0;
};

inline bool operator==(const PixelPoint& theOne, const PixelPoint& theOther)
{
    return theOne.theX == theOther.theX && theOne.theY == theOther.theY;
}

inline bool operator!=(const PixelPoint& theOne, const PixelPoint& theOther)
{
    return !(theOne == theOther);
}

inline bool operator==(const PixelSize& theOne, const PixelSize& theOther)
{
    return theOne.theWidth == theOther.theWidth && theOne.theHeight == theOther.theHeight;
}

inline bool operator==(const PixelRect& theOne, const PixelRect& theOther)
{
    return theOne.theLeft == theOther.theLeft && theOne.theTop == theOther.theTop &&
           theOne.theRight == theOther.theRight && theOne.theBottom == theOther.theBottom;
}

inline bool operator!=(const PixelRect& theOne, const PixelRect& theOther)
{
    return !(theOne == theOther);
}

inline bool Contains(const PixelRect& theRect, const PixelPoint& thePoint)
{
    return thePoint.theX >= theRect.theLeft && thePoint.theX < theRect.theRight &&
           thePoint.theY >= theRect.theTop && thePoint.theY < theRect.theBottom;
}

// The point in the middle; of an empty rectangle, its top left.
inline PixelPoint CentreOf(const PixelRect& theRect)
{
    const auto theMiddle = [](int theLow, int theHigh) {
        return static_cast<int>((static_cast<std::int64_t>(theLow) + theHigh) / 2);
    };
    return {theMiddle(theRect.theLeft, theRect.theRight), theMiddle(theRect.theTop, theRect.theBottom)};
}

// Screens ----------------------------------------------------------------------------------------------

struct ScreenLook
{
    PixelRect theBounds;    // the whole screen, global; the first screen is the main one
    PixelRect theAvailable; // without the menu bar and whatever else the desktop keeps for itself
};

enum class TextStyle
{
    kBody,     // control titles and edit fields
    kSmall,    // small controls
    kEmphasis, // window titles and default buttons
};

// Windows ----------------------------------------------------------------------------------------------

enum class WindowShape
{
    kDocument,
    kPlain, // no title bar
    kDialog,
    kAlert,
    kFloating,
    kUtility,
    kSheet,
    kDrawer,
    kToolbar,
    kHelp,
    kOverlay,
};

struct WindowLook
{
    ObjectId theId = kNoObject;
    ObjectId theParent = kNoObject; // the window a sheet or drawer hangs from
    WindowShape theShape = WindowShape::kDocument;
    std::string theTitle;
    PixelRect theContent;   // global; as it is when expanded, even while the window is collapsed
    PixelRect theStructure; // global; with title bar and frame
    int theOrder = 0; // place from front to back among all windows, hidden ones included; 0 is frontmost
    bool theHasCloseBox = false;
    bool theHasCollapseBox = false;
    bool theHasZoomBox = false;
    bool theIsResizable = false;
    bool theIsMovable = true;
    bool theIsVisible = false; // shown by the program; a collapsed window stays visible in this sense
    bool theIsCollapsed = false;
    bool theIsActive = false;
    bool theIsModified = false;
    bool theIsModal = false; // while it is shown, the windows behind it take no input
    PixelSize theSmallest;   // content size limits of a resize by the person; zero means no limit
    PixelSize theLargest;
};

// Controls ---------------------------------------------------------------------------------------------

enum class ControlShape
{
    kPushButton,
    kCheckBox,
    kRadioButton,
    kRadioGroup,
    kSlider,
    kScrollBar,
    kProgressBar,
    kLittleArrows,
    kStaticText,
    kEditText,
    kGroupBox,
    kPopUpButton,
    kTabs,
    kSeparator,
    kPlacard,
    kDisclosureTriangle,
    kDisclosureButton,
    kChasingArrows,
    kRelevanceBar,
    kBevelButton,
    kRoundButton,
    kIcon, // a picture, of whatever sort
    kImageWell,
    kComboBox,
    kSearchField,
    kSegments,
    kClock,
    kArrow, // points somewhere and does nothing
    kWindowHeader,
    kPane, // the root of a window, and panes that a program fills itself
};

enum class TextAlignment
{
    kLeft,
    kCentre,
    kRight,
};

enum class TabEdge
{
    kTop,
    kBottom,
    kLeft,
    kRight,
};

// One of a row of tabs.
struct TabLook
{
    std::string theTitle;
    bool theIsEnabled = true;
    PixelRect theBounds; // in the window's content

    bool operator==(const TabLook& theOther) const
    {
        return theTitle == theOther.theTitle && theIsEnabled == theOther.theIsEnabled &&
               theBounds == theOther.theBounds;
    }
};

// Whether a person types into a control of this shape.
inline bool TakesText(ControlShape theShape)
{
    return theShape == ControlShape::kEditText || theShape == ControlShape::kComboBox ||
           theShape == ControlShape::kSearchField;
}

// A picture that every desktop has its own of.
enum class PictureShape
{
    kNone,
    kFrame, // one that cannot be drawn, and whose place is kept
    kDocument,
    kFolder,
    kApplication,
    kDisk,
    kNote,
    kCaution,
    kStop,
};

// Where the title of a button stands that has a picture.
enum class TitlePlace
{
    kRight,
    kLeft,
    kBelow,
    kAbove,
};

// One of a row of buttons.
struct SegmentLook
{
    std::string theTitle;
    PictureShape thePicture = PictureShape::kNone;
    bool theIsEnabled = true;
    bool theIsOn = false;
    bool theIsPressed = false; // right now
    bool theHasKeys = false;   // the one that keys press, while the control has them
    PixelRect theBounds;       // in the window's content

    bool operator==(const SegmentLook& theOther) const
    {
        return theTitle == theOther.theTitle && thePicture == theOther.thePicture &&
               theIsEnabled == theOther.theIsEnabled && theIsOn == theOther.theIsOn &&
               theIsPressed == theOther.theIsPressed && theHasKeys == theOther.theHasKeys &&
               theBounds == theOther.theBounds;
    }
};

enum class ArrowDirection
{
    kRight,
    kLeft,
    kUp,
    kDown,
};

struct Picture;

// What few controls have.
struct RareLook
{
    std::vector<SegmentLook> theSegments; // of segments, or the numbers of a clock
    ArrowDirection theArrow = ArrowDirection::kRight;
    std::shared_ptr<const Picture> theDrawing; // of a pane that its program draws; another one each time
    std::vector<TabLook> theTabs;              // of tabs; the value is the number of the one in front, from 1
    TabEdge theTabEdge = TabEdge::kTop;
    PictureShape thePicture = PictureShape::kNone;
    TitlePlace theTitlePlace = TitlePlace::kRight;
    int theDiameter = 0;             // of a round button, which stands in the middle of its bounds
    bool theIsToggle = false;        // of a bevel button: its value means something
    bool theHasMenu = false;         // of a bevel button or a search field
    bool theHasCancelButton = false; // of a search field
    bool theHasGlass = false;        // of a search field
    std::string theDescription;      // of a search field: shown while it is empty
    std::string theHelp;             // shown when the pointer rests on the control

    bool operator==(const RareLook& theOther) const
    {
        return theSegments == theOther.theSegments && theArrow == theOther.theArrow &&
               theDrawing == theOther.theDrawing && theTabs == theOther.theTabs &&
               theTabEdge == theOther.theTabEdge && thePicture == theOther.thePicture &&
               theDiameter == theOther.theDiameter && theTitlePlace == theOther.theTitlePlace &&
               theIsToggle == theOther.theIsToggle && theHasMenu == theOther.theHasMenu &&
               theHasCancelButton == theOther.theHasCancelButton && theHasGlass == theOther.theHasGlass &&
               theDescription == theOther.theDescription && theHelp == theOther.theHelp;
    }
};

struct ControlLook
{
    ObjectId theId = kNoObject;
    ObjectId theWindow = kNoObject;
    ObjectId theParent = kNoObject; // the control that holds it; none for the root of the window
    int theOrder = 0;               // place among the controls of theParent, from back to front
    ControlShape theShape = ControlShape::kPane;
    std::uint32_t theSignature = 0; // the two halves of the program's own name for the control
    std::int32_t theNumber = 0;
    std::string theTitle;
    std::string theText; // what a text control or a pop-up button shows; of a password field, the real text
    TextAlignment theAlignment = TextAlignment::kLeft; // of theText; of a pop-up button, of its title
    PixelRect theBounds;                               // in the window's content, whatever the parent
    std::int32_t theValue = 0;
    std::int32_t theMinimum = 0;
    std::int32_t theMaximum = 0;
    std::int32_t theViewSize = 0; // of a scroll bar: how much of the whole is in view
    int theTickMarks = 0;
    int theTitleWidth = 0;     // of a pop-up button: the room in its bounds for the title, before the button
    int theSelectionStart = 0; // of an edit text, in UTF-16 units
    int theSelectionEnd = 0;
    bool theIsVisible = true; // by itself and by everything around it, window excepted
    bool theIsEnabled = true; // by itself and by everything around it
    bool theIsActive = true;
    bool theIsHilited = false;  // drawn pressed
    bool theTakesFocus = false; // the Tab key reaches it, unless it is hidden or disabled
    bool theIsPassword = false;
    bool theIsMultiline = false;
    bool theIsLocked = false;        // an edit text that shows but takes no typing
    bool theIsDefault = false;       // Return and Enter press it
    bool theIsCancel = false;        // Escape presses it
    bool theIsIndeterminate = false; // of a progress bar
    bool theIsAnimated = false;      // of chasing arrows: they turn
    bool theHidesTitle = false;      // of a disclosure triangle: the title is only spoken
    bool thePointsLeft = false;      // of a disclosure triangle that is closed

    // Null when it has nothing of that. Copies share it, so that the looks of all others, which are copied
    // with each change, stay small.
    std::shared_ptr<const RareLook> theRareLook;

    const RareLook& Rare() const
    {
        static const RareLook kNothing;
        return theRareLook == nullptr ? kNothing : *theRareLook;
    }
};

// Menus ------------------------------------------------------------------------------------------------

struct MenuLook;

struct MenuItemLook
{
    std::string theText;
    std::uint32_t theCommand = 0;      // the program's four-character code, 0 when it has none
    std::uint32_t theMark = 0;         // 0 for none, else the Unicode code point of the mark
    std::string theKey;                // the letter of its command key, empty when it has none
    std::uint32_t theKeyModifiers = 0; // modifiers of the command key, as in KeyAction
    bool theIsEnabled = true;
    bool theIsSeparator = false;
    bool theIsHidden = false;
    std::vector<MenuLook> theSubmenu; // empty or one menu
};

struct MenuLook
{
    ObjectId theId = kNoObject;
    std::string theTitle;
    bool theIsEnabled = true;
    std::vector<MenuItemLook> theItems; // the first is item 1
};

struct MenuBarLook
{
    std::vector<MenuLook> theMenus; // from left to right, hidden ones left out
    bool theIsShown = true;
};

struct MenuChoice
{
    ObjectId theMenu = kNoObject; // none when the person chose nothing
    int theItem = 0;
};

struct PopUpLook
{
    MenuLook theMenu;
    PixelPoint thePlace; // global: where the top left of theItem is to appear
    int theItem = 0;     // the item that is current, 0 for none
};

// What a person does -----------------------------------------------------------------------------------

// Keys held during an action. The numbers are those that programs read from events.
enum Modifier : std::uint32_t
{
    kNoModifiers = 0,
    kCommandModifier = 0x0100,
    kShiftModifier = 0x0200,
    kCapsLockModifier = 0x0400,
    kOptionModifier = 0x0800,
    kControlModifier = 0x1000,
};

enum class PointerButton : std::uint16_t
{
    kPrimary = 1,
    kSecondary = 2,
    kTertiary = 3,
};

struct PointerAction
{
    ObjectId theWindow = kNoObject; // the window under the pointer; none over the bare desktop
    PixelPoint thePlace;            // global
    PointerButton theButton = PointerButton::kPrimary;
    int theClickCount = 1; // 2 for the second press of a double click
    std::uint32_t theModifiers = kNoModifiers;
};

struct WheelAction
{
    ObjectId theWindow = kNoObject;
    PixelPoint thePlace;
    bool theIsHorizontal = false;
    int theLines = 0; // positive is up or left
    std::uint32_t theModifiers = kNoModifiers;
};

// The key code of text that no single key of the keyboard types.
constexpr std::uint32_t kNoKeyPosition = 0xFF;

struct KeyAction
{
    std::uint32_t theKey = 0; // position of the key on the keyboard: a virtual key code, 36 is Return
    std::string theText;      // what the key types under these modifiers; empty for a key that types nothing
    std::uint32_t theModifiers = kNoModifiers;
};

enum class DragPhase
{
    kBegan,
    kMoved,
    kEnded,
};

struct ControlDrag
{
    ObjectId theControl = kNoObject;
    DragPhase thePhase = DragPhase::kBegan;
    std::int32_t theValue = 0; // where the indicator is now
    std::uint32_t theModifiers = kNoModifiers;
};

// The parts of a control that a presenter may draw in places of its own.
enum class ControlPart
{
    kUpButton, // of little arrows and scroll bars: up or left
    kDownButton,
    kPageUp, // of scroll bars: between an arrow and the thumb
    kPageDown,
    kMenuButton,   // of a combo box or a search field: shows what there is to choose from
    kCancelButton, // of a search field
};

struct PartPress
{
    ObjectId theControl = kNoObject;
    ControlPart thePart = ControlPart::kUpButton;
    bool theIsDown = true; // false when the button comes up again
    std::uint32_t theModifiers = kNoModifiers;
};

struct TextEdit
{
    ObjectId theControl = kNoObject;
    std::string theText; // the whole text after the edit
    int theSelectionStart = 0;
    int theSelectionEnd = 0;
};

// What the pointer looks like over the program's windows.
enum class PointerShape
{
    kArrow,
    kCopyArrow,
    kAliasArrow,
    kContextualMenuArrow,
    kIBeam,
    kCross,
    kPlus,
    kWatch,
    kClosedHand,
    kOpenHand,
    kPointingHand,
    kCountingUpHand,
    kCountingDownHand,
    kCountingUpAndDownHand,
    kSpinning,
    kResizeLeft,
    kResizeRight,
    kResizeLeftRight,
    kNotAllowed,
    kResizeUp,
    kResizeDown,
    kResizeUpDown,
    kPoof,
};

struct PointerLook
{
    PointerShape theShape = PointerShape::kArrow; // the arrow gives way to what a control has of its own
    unsigned theStep = 0;                         // of a shape that moves: which picture, counted without end
    bool theIsHidden = false;
    bool theIsObscured = false; // hidden until it moves
};

inline bool operator==(const PointerLook& theOne, const PointerLook& theOther)
{
    return theOne.theShape == theOther.theShape && theOne.theStep == theOther.theStep &&
           theOne.theIsHidden == theOther.theIsHidden && theOne.theIsObscured == theOther.theIsObscured;
}

} // namespace Host

#endif
