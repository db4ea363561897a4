// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Keys: their positions, their characters, and the modifier bits.

#ifndef Events_h
#define Events_h

#include <Carbon/CarbonBase.h>

typedef UInt16 EventKind;
typedef UInt16 EventMask;
typedef UInt16 EventModifiers;

#pragma pack(push, 2)

// An event of the older kind: what happened, where and when (in ticks, sixtieths of a second).
typedef struct EventRecord
{
    EventKind what;
    UInt32 message;
    UInt32 when;
    Point where;
    EventModifiers modifiers;
} EventRecord;

#pragma pack(pop)

// Kinds of EventRecord.
enum
{
    nullEvent = 0,
    mouseDown = 1,
    mouseUp = 2,
    keyDown = 3,
    keyUp = 4,
    autoKey = 5,
    updateEvt = 6,
    diskEvt = 7,
    activateEvt = 8,
    osEvt = 15,
    kHighLevelEvent = 23
};

// Masks of these kinds, and parts of messages
enum
{
    mDownMask = 1 << mouseDown,
    mUpMask = 1 << mouseUp,
    keyDownMask = 1 << keyDown,
    keyUpMask = 1 << keyUp,
    autoKeyMask = 1 << autoKey,
    updateMask = 1 << updateEvt,
    activMask = 1 << activateEvt,
    osMask = 1 << osEvt,
    everyEvent = 0xFFFF,
    charCodeMask = 0xFF,
    keyCodeMask = 0xFF00,
    resumeFlag = 1,
    suspendResumeMessage = 1,
    mouseMovedMessage = 250
};

// Modifier keys as bits of an event's modifiers.
enum
{
    activeFlagBit = 0,
    btnStateBit = 7,
    cmdKeyBit = 8,
    shiftKeyBit = 9,
    alphaLockBit = 10,
    optionKeyBit = 11,
    controlKeyBit = 12,
    rightShiftKeyBit = 13,
    rightOptionKeyBit = 14,
    rightControlKeyBit = 15
};

enum
{
    activeFlag = 1 << activeFlagBit,
    btnState = 1 << btnStateBit,
    cmdKey = 1 << cmdKeyBit,
    shiftKey = 1 << shiftKeyBit,
    alphaLock = 1 << alphaLockBit,
    optionKey = 1 << optionKeyBit,
    controlKey = 1 << controlKeyBit,
    rightShiftKey = 1 << rightShiftKeyBit,
    rightOptionKey = 1 << rightOptionKeyBit,
    rightControlKey = 1 << rightControlKeyBit,
    kEventKeyModifierNumLockMask = 1 << 16,
    kEventKeyModifierFnMask = 1 << 17
};

// Characters of keys that type no letter (kEventParamKeyMacCharCodes).
enum
{
    kHomeCharCode = 1,
    kEnterCharCode = 3,
    kEndCharCode = 4,
    kHelpCharCode = 5,
    kBackspaceCharCode = 8,
    kTabCharCode = 9,
    kPageUpCharCode = 11,
    kPageDownCharCode = 12,
    kReturnCharCode = 13,
    kFunctionKeyCharCode = 16,
    kCommandCharCode = 17,
    kCheckCharCode = 18,
    kDiamondCharCode = 19,
    kAppleLogoCharCode = 20,
    kEscapeCharCode = 27,
    kClearCharCode = 27,
    kLeftArrowCharCode = 28,
    kRightArrowCharCode = 29,
    kUpArrowCharCode = 30,
    kDownArrowCharCode = 31,
    kSpaceCharCode = 32,
    kDeleteCharCode = 127
};

// Positions of keys on a US keyboard (kEventParamKeyCode). Return is 36, the keypad's Enter 76; the Enter
// key of portable keyboards, 52, has no name. The names are there since Mac OS X 10.5; the numbers are older.
enum
{
    kVK_ANSI_A = 0,
    kVK_ANSI_B = 11,
    kVK_ANSI_C = 8,
    kVK_ANSI_D = 2,
    kVK_ANSI_E = 14,
    kVK_ANSI_F = 3,
    kVK_ANSI_G = 5,
    kVK_ANSI_H = 4,
    kVK_ANSI_I = 34,
    kVK_ANSI_J = 38,
    kVK_ANSI_K = 40,
    kVK_ANSI_L = 37,
    kVK_ANSI_M = 46,
    kVK_ANSI_N = 45,
    kVK_ANSI_O = 31,
    kVK_ANSI_P = 35,
    kVK_ANSI_Q = 12,
    kVK_ANSI_R = 15,
    kVK_ANSI_S = 1,
    kVK_ANSI_T = 17,
    kVK_ANSI_U = 32,
    kVK_ANSI_V = 9,
    kVK_ANSI_W = 13,
    kVK_ANSI_X = 7,
    kVK_ANSI_Y = 16,
    kVK_ANSI_Z = 6,
    kVK_ANSI_0 = 29,
    kVK_ANSI_1 = 18,
    kVK_ANSI_2 = 19,
    kVK_ANSI_3 = 20,
    kVK_ANSI_4 = 21,
    kVK_ANSI_5 = 23,
    kVK_ANSI_6 = 22,
    kVK_ANSI_7 = 26,
    kVK_ANSI_8 = 28,
    kVK_ANSI_9 = 25,
    kVK_Return = 36,
    kVK_Tab = 48,
    kVK_Space = 49,
    kVK_Delete = 51,
    kVK_ForwardDelete = 117,
    kVK_Escape = 53,
    kVK_ANSI_KeypadEnter = 76,
    kVK_LeftArrow = 123,
    kVK_RightArrow = 124,
    kVK_DownArrow = 125,
    kVK_UpArrow = 126,
    kVK_Home = 115,
    kVK_End = 119,
    kVK_PageUp = 116,
    kVK_PageDown = 121,
    kVK_Help = 114,
    kVK_Command = 55,
    kVK_Shift = 56,
    kVK_CapsLock = 57,
    kVK_Option = 58,
    kVK_Control = 59,
    kVK_ANSI_Equal = 24,
    kVK_ANSI_Minus = 27,
    kVK_ANSI_LeftBracket = 33,
    kVK_ANSI_RightBracket = 30,
    kVK_ANSI_Quote = 39,
    kVK_ANSI_Semicolon = 41,
    kVK_ANSI_Backslash = 42,
    kVK_ANSI_Comma = 43,
    kVK_ANSI_Slash = 44,
    kVK_ANSI_Period = 47,
    kVK_ANSI_Grave = 50,
    kVK_F1 = 122,
    kVK_F2 = 120,
    kVK_F3 = 99,
    kVK_F4 = 118,
    kVK_F5 = 96,
    kVK_F6 = 97
};

// --- Time -------------------------------------------------------------------------------------------

// Sixtieths of a second since the system started; begins anew after 828 days.
CARBON_EXPORT UInt32 TickCount(void);

// Waits without letting anything happen: no timer fires and no window is shown. finalTicks, which may be
// NULL, receives TickCount at the end.
CARBON_EXPORT void Delay(unsigned long numTicks, unsigned long* finalTicks);

// Ticks within which a second click is a double click, and ticks between two blinks of a caret: 30 each.
CARBON_EXPORT UInt32 GetDblTime(void);
CARBON_EXPORT UInt32 GetCaretTime(void);

// --- What the person holds down, and where the pointer is --------------------------------------------

// Where the pointer was last seen over the program's windows: in global coordinates, and in those of the
// current port. Nothing is done for NULL.
CARBON_EXPORT void GetGlobalMouse(Point* globalMouse);
CARBON_EXPORT void GetMouse(Point* mouseLoc);

// Whether a button is down. As long as one is, each call lets the person go on, so that a loop around
// StillDown ends; handlers of what the person does meanwhile run from inside the call. Where a simulated
// person is the only one, it can release nothing as long as the program does not return. WaitMouseUp is the
// same as StillDown.
CARBON_EXPORT Boolean Button(void);
CARBON_EXPORT Boolean StillDown(void);
CARBON_EXPORT Boolean WaitMouseUp(void);

// The buttons that are down: bit 0 is the primary one, bit 1 the secondary. The second tells it as it was
// when the last event of the person was sent, and lets nothing happen.
CARBON_EXPORT UInt32 GetCurrentButtonState(void);
CARBON_EXPORT UInt32 GetCurrentEventButtonState(void);

// Keys by their position (kEventParamKeyCode): position n is bit n % 8 of byte n / 8.
typedef UInt32 KeyMap[4];
CARBON_EXPORT void GetKeys(KeyMap theKeys);

#endif
