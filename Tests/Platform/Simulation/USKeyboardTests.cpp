// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The keys that a person types with.

#include "SimulatorTestSupport.h"

namespace {

using USKeyboard = UserSimulatorTest;

TEST_F(USKeyboard, TypesWithTheRightKeys)
{
    FocusField();
    std::vector<UInt32> theKeys;
    mWindowLog.mAnswer = [&theKeys](const std::string& theName, EventRef theEvent) {
        if (theName == "key down") {
            theKeys.push_back(Parameter<UInt32>(theEvent, kEventParamKeyCode, typeUInt32));
            theKeys.push_back(Parameter<UInt32>(theEvent, kEventParamKeyModifiers, typeUInt32));
        }
        return OSStatus{noErr};
    };
    ExpectDone(mUser.TypeText("k?\t\né"));
    EXPECT_EQ(theKeys, (std::vector<UInt32>{kVK_ANSI_K, 0, kVK_ANSI_Slash, shiftKey, kVK_Tab, 0, kVK_Return,
                                            0, Host::kNoKeyPosition, 0}));
}

struct StrokeRow
{
    UInt32 theKey;
    UInt32 theModifiers;
    const char* theText;
};

class USKeyboardStrokes : public UserSimulatorTest, public testing::WithParamInterface<StrokeRow>
{
};

TEST_P(USKeyboardStrokes, TypeWhatAUSKeyboardTypes)
{
    FocusField();
    ExpectDone(mUser.PressKey(GetParam().theKey, GetParam().theModifiers));
    EXPECT_EQ(TextOf(mProgram.mField), GetParam().theText);
}

INSTANTIATE_TEST_SUITE_P(Strokes, USKeyboardStrokes,
                         testing::Values(StrokeRow{kVK_ANSI_A, 0, "a"}, StrokeRow{kVK_ANSI_A, shiftKey, "A"},
                                         StrokeRow{kVK_ANSI_A, alphaLock, "A"}, StrokeRow{kVK_ANSI_1, 0, "1"},
                                         StrokeRow{kVK_ANSI_1, shiftKey, "!"},
                                         StrokeRow{kVK_ANSI_1, alphaLock, "1"},
                                         StrokeRow{kVK_Space, shiftKey, " "}, StrokeRow{kVK_F1, 0, ""}));

TEST_F(USKeyboard, EveryPrintableCharacterHasItsKey)
{
    std::string theCharacters;
    for (char theCharacter = ' '; theCharacter < 0x7F; ++theCharacter) {
        theCharacters += theCharacter;
    }
    FocusField();
    UInt32 theStray = 0;
    mWindowLog.mAnswer = [&theStray](const std::string& theName, EventRef theEvent) {
        const UInt32 theKey = Parameter<UInt32>(theEvent, kEventParamKeyCode, typeUInt32);
        theStray += theName == "key down" && theKey == Host::kNoKeyPosition ? 1u : 0u;
        return OSStatus{eventNotHandledErr};
    };
    ExpectDone(mUser.TypeText(theCharacters));
    EXPECT_EQ(theStray, 0u);
    EXPECT_EQ(TextOf(mProgram.mField), theCharacters);
}

} // namespace
