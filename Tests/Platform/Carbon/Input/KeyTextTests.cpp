// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a key types, as key events tell it.

#include "InputGateTestSupport.h"

namespace {

using Host::KeyAction;

struct KeyRow
{
    const char* theName;
    KeyAction theAction;
    UInt8 theMacCharacter;
    std::u16string theUnicode;
};

class KeyText : public InputGateTest, public testing::WithParamInterface<KeyRow>
{
};

TEST_P(KeyText, TellsPositionCharacterAndModifiers)
{
    const KeyRow& theRow = GetParam();
    mWindowLog.mAnswer = [&theRow](const std::string&, EventRef theEvent) {
        EXPECT_EQ(Parameter<UInt32>(theEvent, kEventParamKeyCode, typeUInt32), theRow.theAction.theKey);
        EXPECT_EQ(Parameter<UInt8>(theEvent, kEventParamKeyMacCharCodes, typeChar), theRow.theMacCharacter);
        EXPECT_EQ(Parameter<UInt32>(theEvent, kEventParamKeyModifiers, typeUInt32),
                  theRow.theAction.theModifiers);
        EXPECT_EQ(Parameter<UInt32>(theEvent, kEventParamKeyboardType, typeUInt32), 0u);
        char16_t theUnits[8] = {};
        ByteCount theSize = 0;
        GetEventParameter(theEvent, kEventParamKeyUnicodes, typeUnicodeText, nullptr, sizeof theUnits,
                          &theSize, theUnits);
        EXPECT_EQ(std::u16string(theUnits, theSize / 2), theRow.theUnicode);
        return OSStatus{noErr};
    };
    EXPECT_TRUE(Gate().KeyPressed(theRow.theAction));
    EXPECT_TRUE(Gate().KeyReleased(theRow.theAction));
    EXPECT_EQ(Take(), (Log{"key down", "key up"}));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyText,
    testing::Values(
        KeyRow{"Letter", {kVK_ANSI_K, "k", 0}, 'k', u"k"},
        KeyRow{"UpperCase", {kVK_ANSI_K, "K", shiftKey}, 'K', u"K"},
        KeyRow{"CommandLetter", {kVK_ANSI_K, "k", cmdKey}, 'k', u"k"},
        KeyRow{"Return", {kVK_Return, "", 0}, 13, u"\x0D"},
        KeyRow{"ReturnWhateverItIsSaidToType", {kVK_Return, "\n", 0}, 13, u"\x0D"},
        KeyRow{"KeypadEnter", {kVK_ANSI_KeypadEnter, "", 0}, 3, u"\x03"},
        KeyRow{"PortableEnter", {52, "", 0}, 3, u"\x03"}, KeyRow{"Tab", {kVK_Tab, "", 0}, 9, u"\x09"},
        KeyRow{"Backspace", {kVK_Delete, "", 0}, 8, u"\x08"},
        KeyRow{"ForwardDelete", {kVK_ForwardDelete, "", 0}, 127, u"\x7F"},
        KeyRow{"Escape", {kVK_Escape, "", 0}, 27, u"\x1B"},
        KeyRow{"Left", {kVK_LeftArrow, "", 0}, 28, u"\x1C"},
        KeyRow{"Right", {kVK_RightArrow, "", 0}, 29, u"\x1D"},
        KeyRow{"Up", {kVK_UpArrow, "", 0}, 30, u"\x1E"}, KeyRow{"Down", {kVK_DownArrow, "", 0}, 31, u"\x1F"},
        KeyRow{"Home", {kVK_Home, "", 0}, 1, u"\x01"}, KeyRow{"End", {kVK_End, "", 0}, 4, u"\x04"},
        KeyRow{"PageUp", {kVK_PageUp, "", 0}, 11, u"\x0B"},
        KeyRow{"PageDown", {kVK_PageDown, "", 0}, 12, u"\x0C"}, KeyRow{"Help", {kVK_Help, "", 0}, 5, u"\x05"},
        KeyRow{"MacRomanLetter", {Host::kNoKeyPosition, "é", 0}, 0x8E, u"é"},
        KeyRow{"LetterOutsideOfMacRoman", {Host::kNoKeyPosition, "ж", 0}, '?', u"ж"},
        KeyRow{"CharacterOfTwoUnits", {Host::kNoKeyPosition, "𝄞", 0}, '?', u"𝄞"},
        KeyRow{"NoUtf8", {Host::kNoKeyPosition, "\xFF", 0}, 0, u""},
        KeyRow{"KeyThatTypesNothing", {kVK_F1, "", 0}, 0, u""}),
    [](const testing::TestParamInfo<KeyRow>& theInfo) { return theInfo.param.theName; });

} // namespace
