// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmSettledControlBinding.h"

#include "ControllersTestSupport.h"
#include "LmBindable.h"
#include "LmNumericalTransforms.h"
#include "LmObservation.h"
#include "LmRangeTransform.h"
#include "LmScopedBinding.h"
#include "StandardErrorCapture.h"

#include <Carbon/Carbon.h>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

const Rect kBounds = {10, 10, 30, 210};

// A model that takes no more than 30 degrees.
class Oven : public LmBindable
{
public:
    Oven() { GetBindings()->SetKeyPathValue("target", LmValue(20)); }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        if (theKeyName == "target" && theStore->GetKeyPathValue(theKeyName).GetSInt32() > 30) {
            GetBindings()->SetKeyPathValue(theKeyName, LmValue(30));
        }
    }
};

class LmSettledControlBindingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const Rect theBounds = {50, 50, 450, 450};
        ASSERT_EQ(
            CreateNewWindow(kDocumentWindowClass, kWindowStandardHandlerAttribute, &theBounds, &mWindow),
            noErr);
        ControlRef theRoot = nullptr;
        CreateRootControl(mWindow, &theRoot);
        ShowWindow(mWindow);
        ASSERT_EQ(CreateSliderControl(mWindow, &kBounds, 0, 0, 100, kControlSliderDoesNotPoint, 0, true,
                                      nullptr, &mSlider),
                  noErr);
        const ControlID theID = {'temp', 0};
        SetControlID(mSlider, &theID);
        mModel.SetKeyPathValue("target", LmValue(20));
    }
    void TearDown() override { DisposeWindow(mWindow); }

    // "30 30 30": what the slider, its key and a model say.
    std::string All(const LmKeyValueStore& theBinding, LmKeyValueStore& theModel)
    {
        return std::to_string(GetControl32BitValue(mSlider)) + " " +
               std::to_string(theBinding.GetKeyPathValue("value").GetSInt32()) + " " +
               std::to_string(theModel.GetKeyPathValue("target").GetSInt32());
    }

    WindowRef mWindow = nullptr;
    ControlRef mSlider = nullptr;
    Oven mOven;
    LmKeyValueBinding mModel;
};

} // namespace

TEST_F(LmSettledControlBindingTest, GoesBackToWhatTheModelMadeOfAChange)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->Bind("value", mOven.GetBindings(), "target", nullptr, nullptr);
    EXPECT_EQ(All(*theBinding, *mOven.GetBindings()), "20 20 20");
    SetControl32BitValue(mSlider, 25);
    EXPECT_EQ(All(*theBinding, *mOven.GetBindings()), "25 25 25");
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, *mOven.GetBindings()), "30 30 30");
}

TEST_F(LmSettledControlBindingTest, GoesBackToWhatTheModelHoldsAlready)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->Bind("value", &mModel, "target", nullptr, new LmRangeTransform(0, 30));
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, mModel), "30 30 30");
    SetControl32BitValue(mSlider, 45);
    EXPECT_EQ(All(*theBinding, mModel), "30 30 30") << "the model has nothing to tell";
}

TEST_F(LmSettledControlBindingTest, TheBaseClassLeavesTheControlWhereItIsOnPurpose)
{
    LmControlBinding* theBinding = new LmControlBinding(mSlider);
    theBinding->Bind("value", &mModel, "target", nullptr, new LmRangeTransform(0, 30));
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, mModel), "37 30 30");
    SetControl32BitValue(mSlider, 45);
    EXPECT_EQ(All(*theBinding, mModel), "45 45 30");
}

TEST_F(LmSettledControlBindingTest, SettlesTransformsThatRoundOnTheWay)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->Bind("value", &mModel, "target", new LmScaleTransform(10), new LmScaleTransform(0.1));
    mModel.SetKeyPathValue("target", LmValue(3));
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, mModel), "30 30 3");
}

TEST_F(LmSettledControlBindingTest, SettlesEveryKeyOfTheControl)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    mModel.SetKeyPathValue("minimum", LmValue(5));
    mModel.SetKeyPathValue("maximum", LmValue(50));
    mModel.SetKeyPathValue("enabled", LmValue(true));
    mModel.SetKeyPathValue("visible", LmValue(true));
    mModel.SetKeyPathValue("title", LmValue(CFSTR("Heat"), false));
    for (const char* theKey : {"minimum", "maximum", "enabled", "visible", "title"}) {
        theBinding->BindTo(theKey, &mModel, theKey, nullptr);
    }
    SetControl32BitMinimum(mSlider, 7);
    SetControl32BitMaximum(mSlider, 60);
    DisableControl(mSlider);
    HideControl(mSlider);
    SetControlTitleWithCFString(mSlider, CFSTR("Other"));
    EXPECT_EQ(GetControl32BitMinimum(mSlider), 5);
    EXPECT_EQ(GetControl32BitMaximum(mSlider), 50);
    EXPECT_TRUE(IsControlEnabled(mSlider));
    EXPECT_TRUE(IsControlVisible(mSlider));
    EXPECT_EQ(Read(*theBinding, "title"), "String \"Heat\"");
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(mSlider, &theTitle);
    EXPECT_EQ(Describe(LmValue(theTitle, true)), "String \"Heat\"");
    theBinding->UnbindAll();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 5U) << "one-way bindings tell of their end";
}

TEST_F(LmSettledControlBindingTest, ShowsWhatItsKeyHoldsAsFarAsItsRangeLetsIt)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->BindTo("value", &mModel, "target", nullptr);
    mModel.SetKeyPathValue("target", LmValue(300));
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(GetControl32BitValue(mSlider), 100);
    theBinding->UnbindAll();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 1U);
}

TEST_F(LmSettledControlBindingTest, AKeyThatFollowsOneWayGoesBackOnPurpose)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->BindTo("value", &mModel, "target", nullptr);
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, mModel), "20 20 20");
    theBinding->Unbind("value", &mModel);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 1U);
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, mModel), "37 37 20");
}

TEST_F(LmSettledControlBindingTest, AKeyThatIsNotBoundKeepsWhatAPersonGives)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, mModel), "37 37 20");
}

TEST_F(LmSettledControlBindingTest, LearnsFromTheFirstChangeWhatWasBoundWithoutIt)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->LmControlBinding::Bind("value", &mModel, "target", nullptr, new LmRangeTransform(0, 30));
    SetControl32BitValue(mSlider, 25); // the model tells of it
    SetControl32BitValue(mSlider, 37);
    SetControl32BitValue(mSlider, 45);
    EXPECT_EQ(All(*theBinding, mModel), "30 30 30");
}

TEST_F(LmSettledControlBindingTest, ShowsWhatAScopedBindingHasSet)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    const LmScopedBinding theScoped(theBinding, "value", mOven.GetBindings(), "target");
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, *mOven.GetBindings()), "30 30 30");
}

TEST_F(LmSettledControlBindingTest, ForgetsASourceThatIsGone)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    auto theFirst = std::make_unique<LmKeyValueBinding>();
    theFirst->SetKeyPathValue("target", LmValue(10));
    theBinding->Bind("value", theFirst.get(), "target", nullptr, nullptr);
    theFirst.reset();
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(GetControl32BitValue(mSlider), 37);
    theBinding->Bind("value", &mModel, "target", nullptr, new LmRangeTransform(0, 30));
    SetControl32BitValue(mSlider, 45);
    SetControl32BitValue(mSlider, 46);
    EXPECT_EQ(All(*theBinding, mModel), "30 30 30");
}

TEST_F(LmSettledControlBindingTest, NothingIsNotedOfWhatCannotBeBound)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    EXPECT_EQ(theBinding->Bind("value", &mModel, "*", nullptr, nullptr), paramErr);
    EXPECT_EQ(theBinding->BindTo("value", &mModel, "*", nullptr), paramErr);
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(GetControl32BitValue(mSlider), 37);
}

TEST_F(LmSettledControlBindingTest, ASetKeyIsWrittenAndToldAsEver)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->Bind("value", &mModel, "target", nullptr, nullptr);
    std::vector<long> theValues;
    const LmObservation theObservation(theBinding, "value", [&](const LmChange& theChange) {
        theValues.push_back(theChange.theNewValue.GetSInt32());
    });
    theBinding->SetKeyPathValue("value", LmValue(42));
    EXPECT_EQ(All(*theBinding, mModel), "42 42 42");
    EXPECT_EQ(theValues, (std::vector<long>{42, 42})) << "as the base class tells it";
}

TEST_F(LmSettledControlBindingTest, ASetKeyIsNotSettledOnPurpose)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->Bind("value", &mModel, "target", nullptr, new LmRangeTransform(0, 30));
    mModel.SetKeyPathValue("target", LmValue(30));
    theBinding->SetKeyPathValue("value", LmValue(37));
    EXPECT_EQ(All(*theBinding, mModel), "37 37 30");
}

TEST_F(LmSettledControlBindingTest, IsFoundByItsIdentifier)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mWindow, ControlID{'temp', 0});
    EXPECT_EQ(theBinding->GetControl(), mSlider);
    delete theBinding;
    theBinding = new LmSettledControlBinding(mWindow, 'temp');
    theBinding->Bind("value", mOven.GetBindings(), "target", nullptr, nullptr);
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(*theBinding, *mOven.GetBindings()), "30 30 30");
}

TEST_F(LmSettledControlBindingTest, MovesToAnotherControl)
{
    ControlRef theOther = nullptr;
    const Rect theBounds = {40, 10, 60, 210};
    CreateSliderControl(mWindow, &theBounds, 10, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theOther);
    LmSettledControlBinding theBinding;
    theBinding.SetControl(theOther);
    theBinding.Bind("value", mOven.GetBindings(), "target", nullptr, nullptr);
    theBinding.SetControl(mSlider);
    SetControl32BitValue(mSlider, 37);
    EXPECT_EQ(All(theBinding, *mOven.GetBindings()), "30 30 30");
    SetControl32BitValue(theOther, 55);
    EXPECT_EQ(GetControl32BitValue(theOther), 55);
    theBinding.SetControl(nullptr);
    SetControl32BitValue(mSlider, 45);
    EXPECT_EQ(All(theBinding, *mOven.GetBindings()), "45 30 30");
}

TEST_F(LmSettledControlBindingTest, MayBeDestroyedByWhatAChangeSetsOff)
{
    for (const int theRound : {1, 2}) {
        LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
        theBinding->Bind("value", mOven.GetBindings(), "target", nullptr, nullptr);
        const LmObservation theObservation(theBinding, "value", [&](const LmChange& theChange) {
            if (theRound == 1 || theChange.theNewValue.GetSInt32() == 30) {
                delete theBinding;
            }
        });
        SetControl32BitValue(mSlider, 90 + theRound);
        EXPECT_FALSE(theObservation.IsObserving());
    }
}

TEST_F(LmSettledControlBindingTest, MayLoseItsControlToAChange)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->Bind("value", &mModel, "target", nullptr, nullptr);
    const LmObservation theObservation(&mModel, "target", [&](const LmChange&) { DisposeControl(mSlider); });
    SetControl32BitValue(mSlider, 37);
    EXPECT_FALSE(IsValidControlHandle(mSlider));
    EXPECT_EQ(Read(mModel, "target"), "UInt32 37");
}

TEST_F(LmSettledControlBindingTest, MayLoseItsControlWhileItSettles)
{
    LmSettledControlBinding* theBinding = new LmSettledControlBinding(mSlider);
    theBinding->Bind("value", &mModel, "target", nullptr, new LmRangeTransform(0, 20));
    const LmObservation theObservation(theBinding, "value", [&](const LmChange& theChange) {
        if (theChange.theNewValue.GetSInt32() == 20) {
            DisposeControl(mSlider);
        }
    });
    SetControl32BitValue(mSlider, 37);
    EXPECT_FALSE(IsValidControlHandle(mSlider));
}
