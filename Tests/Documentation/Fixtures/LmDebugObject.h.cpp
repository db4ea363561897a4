// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDebugObject.h"
#include "LmKeyValueBinding.h"
#include "NamedBinding.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

namespace {

class View : public LmDebugObject
{
public:
    LmString GetDebugInfo() const override { return "[View]"; }

    void Update()
    {
        // @code 2
    }

private:
    void Refresh() { LogString("in the midst of it"); }
};

} // namespace

TEST(LmDebugObject, TracesAsItsHeaderShows)
{
    const char* const kShown =
        // @text 1
        ;
    NamedBinding theModel("[Model]");
    NamedBinding theSlider("[Slider]");
    theSlider.Bind("value", &theModel, "volume", nullptr, nullptr);
    LmDebugObject::SetLogging(true);
    theModel.SetKeyPathValue("volume", LmValue(55L));
    LmDebugObject::SetLogging(false);
    EXPECT_EQ(StandardErrorCapture::TakeText(), kShown);
}

TEST(LmDebugObject, IsAddedToAsItsHeaderShows)
{
    View theView;
    LmDebugObject::SetLogging(true);
    theView.AddIndent();
    theView.Update();
    theView.RemoveIndent();
    LmDebugObject::SetLogging(false);
    const Lines theExpected = {"Lm: refreshing [View]", "Lm:     in the midst of it"};
    EXPECT_EQ(StandardErrorCapture::TakeLines(), theExpected);
}
