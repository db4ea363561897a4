// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmTextFieldBinding.h"
#include "ExampleWindow.h"
#include "KeyTable.h"
#include "LmConveniences.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>
#include <memory>

namespace {

const ControlID kQuantityField = {'Quan', 1};

class DozenFormatter : public LmFormatter
{
public:
    LmReading Parse(CFStringRef theText) const override
    {
        const SInt32 theNumber = CFStringGetIntValue(theText);
        return theNumber % 12 == 0 ? LmReading::Accept(LmValue(theNumber))
                                   : LmReading::Refuse("Only whole dozens are sold.");
    }
    LmValue Format(const LmValue& theValue) const override
    {
        return LmMakeStringValue(std::to_string(theValue.GetSInt32()));
    }
};

} // namespace

TEST(LmTextFieldBinding, TellsWhatIsWrongAsItsHeaderShows)
{
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("quantity", LmValue(24));
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    const ControlRef theField = theExample.AddEditText(kQuantityField);
    const ControlRef theButton = theExample.AddPushButton({'Ordr', 1});
    LmControlBinding* theProblemText = new LmControlBinding(theExample.AddStaticText({'Prob', 1}));
    LmControlBinding* theOrderButton = new LmControlBinding(theButton);
    // @code 1
    const CFStringRef theTyped = CFSTR("25");
    SetControlData(theField, kControlEntireControl, kControlEditTextCFStringTag, sizeof theTyped, &theTyped);
    EXPECT_FALSE(theQuantity->Commit());
    EXPECT_FALSE(IsControlEnabled(theButton));
    EXPECT_EQ(LmGetStdString(theProblemText->GetKeyPathValue("value")), "Only whole dozens are sold.");
    EXPECT_EQ(theModel.GetKeyPathValue("quantity").GetSInt32(), 24);
    theProblemText->Unbind("value", theQuantity);
    theOrderButton->Unbind("enabled", theQuantity);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 2U); // one-way bindings tell of their end
}

TEST(LmTextFieldBinding, HasTheKeysThatItsHeaderLists)
{
    KeyRow kShown[] = {
        // @rows 2
    };
    ExampleWindow theExample;
    const LmTextFieldBinding* theField = new LmTextFieldBinding(theExample.AddEditText(kQuantityField));
    for (KeyRow& theRow : kShown) {
        ExpectKey(*theField, theRow);
    }
}
