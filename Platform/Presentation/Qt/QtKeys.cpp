// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtKeys.h"

#include <cstring>

namespace Host {

namespace {

struct NamedKey
{
    int theQtKey;
    std::uint32_t theKey;
};

// Keys that type nothing, or the same on every keyboard.
constexpr NamedKey kNamedKeys[] = {
    {Qt::Key_Return, 0x24},    {Qt::Key_Tab, 0x30},      {Qt::Key_Backtab, 0x30}, {Qt::Key_Space, 0x31},
    {Qt::Key_Backspace, 0x33}, {Qt::Key_Escape, 0x35},   {Qt::Key_Control, 0x37}, {Qt::Key_Shift, 0x38},
    {Qt::Key_CapsLock, 0x39},  {Qt::Key_Alt, 0x3A},      {Qt::Key_Meta, 0x3B},    {Qt::Key_Enter, 0x4C},
    {Qt::Key_F5, 0x60},        {Qt::Key_F6, 0x61},       {Qt::Key_F7, 0x62},      {Qt::Key_F3, 0x63},
    {Qt::Key_F8, 0x64},        {Qt::Key_F9, 0x65},       {Qt::Key_F11, 0x67},     {Qt::Key_F13, 0x69},
    {Qt::Key_F16, 0x6A},       {Qt::Key_F14, 0x6B},      {Qt::Key_F10, 0x6D},     {Qt::Key_F12, 0x6F},
    {Qt::Key_F15, 0x71},       {Qt::Key_Help, 0x72},     {Qt::Key_Insert, 0x72},  {Qt::Key_Home, 0x73},
    {Qt::Key_PageUp, 0x74},    {Qt::Key_Delete, 0x75},   {Qt::Key_F4, 0x76},      {Qt::Key_End, 0x77},
    {Qt::Key_F2, 0x78},        {Qt::Key_PageDown, 0x79}, {Qt::Key_F1, 0x7A},      {Qt::Key_Left, 0x7B},
    {Qt::Key_Right, 0x7C},     {Qt::Key_Down, 0x7D},     {Qt::Key_Up, 0x7E},
};

// What the keys of a US keyboard type, with and without Shift, in the order of their positions; a blank is
// a position that another table names.
constexpr char kPlain[] = "asdfhgzxcv bqweryt123465=97-80]ou[ip lj'k;\\,/nm.  `";
constexpr char kShifted[] = "ASDFHGZXCV BQWERYT!@#$^%+(&_*)}OU{IP LJ\"K:|<?NM>  ~";

struct KeypadKey
{
    char theCharacter;
    std::uint32_t theKey;
};

constexpr KeypadKey kKeypad[] = {
    {'.', 0x41}, {'*', 0x43}, {'+', 0x45}, {'/', 0x4B}, {'-', 0x4E}, {'=', 0x51}, {'0', 0x52}, {'1', 0x53},
    {'2', 0x54}, {'3', 0x55}, {'4', 0x56}, {'5', 0x57}, {'6', 0x58}, {'7', 0x59}, {'8', 0x5B}, {'9', 0x5C},
};

bool IsPrintable(int theQtKey)
{
    return theQtKey > ' ' && theQtKey < 0x7F;
}

std::uint32_t PositionIn(const char* theKeyboard, int theCharacter)
{
    const char* theFound = std::strchr(theKeyboard, theCharacter);
    return theFound == nullptr ? kNoKeyPosition : static_cast<std::uint32_t>(theFound - theKeyboard);
}

std::uint32_t PositionOnKeypad(int theCharacter)
{
    for (const KeypadKey& theEntry : kKeypad) {
        if (theEntry.theCharacter == theCharacter) {
            return theEntry.theKey;
        }
    }
    return kNoKeyPosition;
}

// Qt names letters by their capitals.
std::uint32_t PositionOfPrintable(int theQtKey)
{
    const bool theIsLetter = theQtKey >= 'A' && theQtKey <= 'Z';
    const std::uint32_t thePlace = PositionIn(kPlain, theIsLetter ? theQtKey - 'A' + 'a' : theQtKey);
    return thePlace != kNoKeyPosition ? thePlace : PositionIn(kShifted, theQtKey);
}

std::uint32_t PositionOf(const QKeyEvent& theEvent)
{
    for (const NamedKey& theEntry : kNamedKeys) {
        if (theEntry.theQtKey == theEvent.key()) {
            return theEntry.theKey;
        }
    }
    if (!IsPrintable(theEvent.key())) {
        return kNoKeyPosition;
    }
    const bool theIsKeypad = (theEvent.modifiers() & Qt::KeypadModifier) != 0;
    const std::uint32_t thePlace = theIsKeypad ? PositionOnKeypad(theEvent.key()) : kNoKeyPosition;
    return thePlace != kNoKeyPosition ? thePlace : PositionOfPrintable(theEvent.key());
}

// Alt by itself types nothing on a desktop; what types other characters there is another key. With the
// Control key held Qt gives a control character, where programs read the letter.
std::string TextOf(const QKeyEvent& theEvent)
{
    if ((theEvent.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)) ==
        Qt::AltModifier) {
        return {};
    }
    const bool theIsCommand = (theEvent.modifiers() & Qt::ControlModifier) != 0;
    if (!theIsCommand || !IsPrintable(theEvent.key())) {
        const QString theText = theEvent.text();
        const bool theIsControl = !theText.isEmpty() && theText.at(0).unicode() < ' ';
        return theIsControl ? std::string() : theText.toStdString();
    }
    const QChar theLetter(theEvent.key());
    const bool theIsShifted = (theEvent.modifiers() & Qt::ShiftModifier) != 0;
    return QString(theIsShifted ? theLetter : theLetter.toLower()).toStdString();
}

struct ModifierPair
{
    Qt::KeyboardModifier theQtModifier;
    Modifier theModifier;
};

constexpr ModifierPair kModifiers[] = {
    {Qt::ControlModifier, kCommandModifier},
    {Qt::ShiftModifier, kShiftModifier},
    {Qt::AltModifier, kOptionModifier},
    {Qt::MetaModifier, kControlModifier},
};

} // namespace

std::uint32_t ModifiersOf(Qt::KeyboardModifiers theModifiers)
{
    std::uint32_t theResult = kNoModifiers;
    for (const ModifierPair& thePair : kModifiers) {
        theResult |= (theModifiers & thePair.theQtModifier) != 0 ? thePair.theModifier : kNoModifiers;
    }
    return theResult;
}

Qt::KeyboardModifiers QtModifiersOf(std::uint32_t theModifiers)
{
    Qt::KeyboardModifiers theResult;
    for (const ModifierPair& thePair : kModifiers) {
        theResult.setFlag(thePair.theQtModifier, (theModifiers & thePair.theModifier) != 0);
    }
    return theResult;
}

KeyAction KeyOf(const QKeyEvent& theEvent)
{
    return {PositionOf(theEvent), TextOf(theEvent), ModifiersOf(theEvent.modifiers())};
}

} // namespace Host
