// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A control binding on a control of every kind: its six keys follow the control, and the control follows
// them.

#include "BindingTestSupport.h"
#include "ControlKinds.h"
#include "LmControlBinding.h"

#include <gtest/gtest.h>

namespace {

const Rect kBounds = {10, 10, 40, 210};

std::string TitleOf(ControlRef theControl)
{
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(theControl, &theTitle);
    return TextOfAdopted(theTitle);
}

class ControlKindBinding : public testing::TestWithParam<KindRow>
{
protected:
    ControlKindBinding()
    {
        const Rect theFrame = {50, 50, 450, 450};
        CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theFrame, &mWindow);
        ShowWindow(mWindow);
        EXPECT_EQ(GetParam().theMaker(mWindow, &kBounds, &mControl), noErr);
        mBinding = new LmControlBinding(mControl);
    }

    // The binding goes with the control.
    ~ControlKindBinding() override { DisposeWindow(mWindow); }

    LmValue Key(const char* theKey) const { return mBinding->GetKeyPathValue(theKey); }
    void SetKey(const char* theKey, const LmValue& theValue) { mBinding->SetKeyPathValue(theKey, theValue); }

    // The value of a text is its text.
    bool IsText() const
    {
        return GetParam().theKind == kControlKindStaticText || GetParam().theKind == kControlKindEditText ||
               GetParam().theKind == kControlKindEditUnicodeText;
    }

    WindowRef mWindow = nullptr;
    ControlRef mControl = nullptr;
    LmControlBinding* mBinding = nullptr; // owned by the control that it is bound to
};

INSTANTIATE_TEST_SUITE_P(Kinds, ControlKindBinding, testing::ValuesIn(EveryKind()),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(ControlKindBinding, MirrorsWhatTheControlBecomes)
{
    if (IsText()) {
        EXPECT_EQ(TextOf(Key("value")), "Text") << "its range means nothing";
    } else {
        SetControl32BitMaximum(mControl, 20);
        SetControl32BitValue(mControl, 7);
        SetControl32BitMinimum(mControl, 2);
        EXPECT_EQ(Key("maximum").GetUInt32(), 20UL);
        EXPECT_EQ(Key("value").GetUInt32(), 7UL);
        EXPECT_EQ(Key("minimum").GetUInt32(), 2UL);
    }
    DisableControl(mControl);
    HideControl(mControl);
    SetControlTitleWithCFString(mControl, CFSTR("Other"));
    EXPECT_FALSE(Key("enabled").GetBoolean());
    EXPECT_FALSE(Key("visible").GetBoolean());
    EXPECT_EQ(TextOf(Key("title")), "Other");
}

TEST_P(ControlKindBinding, MakesTheControlWhatTheKeysBecome)
{
    if (IsText()) {
        SetKey("value", TextValue("Written"));
        CFStringRef theText = nullptr;
        GetControlData(mControl, 0, kControlStaticTextCFStringTag, sizeof theText, &theText, nullptr);
        EXPECT_EQ(TextOfAdopted(theText), "Written");
    } else {
        SetKey("maximum", LmValue(20UL));
        SetKey("value", LmValue(7UL));
        SetKey("minimum", LmValue(2UL));
        EXPECT_EQ(GetControl32BitMaximum(mControl), 20);
        EXPECT_EQ(GetControl32BitValue(mControl), 7);
        EXPECT_EQ(GetControl32BitMinimum(mControl), 2);
    }
    SetKey("enabled", LmValue(false));
    SetKey("visible", LmValue(false));
    SetKey("title", TextValue("Other"));
    EXPECT_FALSE(IsControlEnabled(mControl));
    EXPECT_FALSE(IsControlVisible(mControl));
    EXPECT_EQ(TitleOf(mControl), "Other");
}
