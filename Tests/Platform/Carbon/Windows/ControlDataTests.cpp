// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Data of controls under tags, and the events that ask handlers for them.

#include "ManagerTestSupport.h"

namespace {

using ControlData = ManagerTest;

class EveryControlsData : public EveryControl
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, EveryControlsData, testing::ValuesIn(EveryKind()),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(EveryControlsData, RefusesDataThatItDoesNotHave)
{
    ControlRef theControl = Make();
    UInt32 theData = 0;
    Size theSize = 5;
    EXPECT_EQ(SetControlData(theControl, 0, 'none', sizeof theData, &theData), errDataNotSupported);
    EXPECT_EQ(GetControlData(theControl, 0, 'none', sizeof theData, &theData, &theSize), errDataNotSupported);
    EXPECT_EQ(theSize, 0);
    EXPECT_EQ(GetControlDataSize(theControl, 0, 'none', &theSize), errDataNotSupported);
    EXPECT_EQ(GetControlData(theControl, 0, kControlKindTag, -1, &theData, nullptr), paramErr);
}

TEST_P(EveryControlsData, KeepsItsFontStyleAndSize)
{
    ControlRef theControl = Make();
    ControlFontStyleRec theStyle = {};
    theStyle.flags = kControlUseSizeMask;
    theStyle.size = 18;
    EXPECT_EQ(SetControlFontStyle(theControl, &theStyle), noErr);
    ControlFontStyleRec theRead = {};
    Size theSize = 0;
    EXPECT_EQ(GetControlData(theControl, 0, kControlFontStyleTag, sizeof theRead, &theRead, &theSize), noErr);
    EXPECT_EQ(theSize, Size{sizeof theRead});
    EXPECT_EQ(SInt16{theRead.size}, 18);
    theStyle.size = 9;
    EXPECT_EQ(SetControlData(theControl, 0, kControlFontStyleTag, sizeof theStyle, &theStyle), noErr);
    EXPECT_EQ(GetControlData(theControl, 0, kControlFontStyleTag, sizeof theRead, &theRead, nullptr), noErr);
    EXPECT_EQ(SInt16{theRead.size}, 9);
    ControlSize theControlSize = kControlSizeSmall;
    EXPECT_EQ(SetControlData(theControl, 0, kControlSizeTag, sizeof theControlSize, &theControlSize), noErr);
    theControlSize = 77;
    EXPECT_EQ(SetControlData(theControl, 0, kControlSizeTag, sizeof theControlSize, &theControlSize),
              paramErr);
    EXPECT_EQ(GetControlData(theControl, 0, kControlSizeTag, sizeof theControlSize, &theControlSize, nullptr),
              noErr);
    EXPECT_EQ(theControlSize, kControlSizeSmall);
}

TEST_F(ControlData, AHandlerMayKeepTheDataItself)
{
    ControlRef theText = NewStaticText("inside");
    std::string theKept;
    Watch(theText, "text", EventWatch::ControlEvents(), [&](EventRef theEvent) {
        EXPECT_EQ(Parameter<OSType>(theEvent, kEventParamControlDataTag, typeEnumeration), OSType{'text'});
        auto* theBuffer = Parameter<Ptr>(theEvent, kEventParamControlDataBuffer, typePtr);
        ByteCount theSize = Parameter<ByteCount>(theEvent, kEventParamControlDataBufferSize, typeByteCount);
        if (GetEventKind(theEvent) == kEventControlSetData) {
            theKept.assign(theBuffer, theSize);
        } else {
            theSize = theKept.copy(theBuffer, theSize);
            SetEventParameter(theEvent, kEventParamControlDataBufferSize, typeByteCount, sizeof theSize,
                              &theSize);
        }
        return OSStatus{noErr};
    });
    EXPECT_EQ(SetControlData(theText, 0, 'text', 7, "outside"), noErr);
    EXPECT_EQ(theKept, "outside");
    char theBuffer[20] = {};
    Size theSize = 0;
    EXPECT_EQ(GetControlData(theText, 0, 'text', sizeof theBuffer, theBuffer, &theSize), noErr);
    EXPECT_STREQ(theBuffer, "outside");
    EXPECT_EQ(theSize, 7);
    EXPECT_EQ(TakeLog(), (Log{"text: SetData", "text: GetData"}));
}

TEST_F(ControlData, DataOfAControlDisposedByItsHandlerIsAStatus)
{
    ControlRef theText = NewStaticText("text");
    Watch(theText, "text", EventWatch::ControlEvents(), [&](EventRef) {
        DisposeControl(theText);
        return OSStatus{eventNotHandledErr};
    });
    char theByte = 0;
    EXPECT_EQ(GetControlData(theText, 0, 'text', 1, &theByte, nullptr), errUnknownControl);
}
