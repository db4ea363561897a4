// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmScopedBinding.h"

#include "ControllersTestSupport.h"
#include "CountedTransforms.h"
#include "LmKeyValueBinding.h"
#include "NotificationRecorder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(!std::is_copy_constructible<LmScopedBinding>::value, "one binding has one owner");
static_assert(!std::is_copy_assignable<LmScopedBinding>::value, "one binding has one owner");
static_assert(std::is_nothrow_move_constructible<LmScopedBinding>::value, "a vector moves it");
static_assert(std::is_nothrow_move_assignable<LmScopedBinding>::value, "a vector moves it");

namespace {

// A binding object of which one key cannot be bound.
class Choosy : public LmKeyValueBinding
{
public:
    bool IsBindable(const LmString& theKeyName) override { return theKeyName != "fixed"; }
};

// Lets numbers up to a limit pass.
class LimitingTransform : public LmValueTransform
{
public:
    explicit LimitingTransform(long theLimit)
        : mLimit(theLimit)
    {
    }
    LmValue Apply(const LmValue& theValue) override
    {
        return LmValue(std::min(theValue.GetSInt32(), mLimit));
    }

private:
    const long mLimit;
};

class LmScopedBindingTest : public testing::Test
{
protected:
    void SetUp() override { theSource.SetKeyPathValue("volume", LmValue(40)); }
    void TearDown() override { EXPECT_EQ(theLiving, 0) << "a transform is left over"; }

    void SetSource(long theNumber) { theSource.SetKeyPathValue("volume", LmValue(theNumber)); }
    void SetObject(long theNumber) { theObject.SetKeyPathValue("value", LmValue(theNumber)); }

    // "40 40": what the object's key and the source's read.
    std::string Both()
    {
        return Describe(theObject.GetKeyPathValue("value")) + ", " +
               Describe(theSource.GetKeyPathValue("volume"));
    }

    int theLiving = 0;
    LmKeyValueBinding theSource;
    LmKeyValueBinding theObject;
};

} // namespace

TEST_F(LmScopedBindingTest, BindsBothWays)
{
    const LmScopedBinding theBinding(&theObject, "value", &theSource, "volume");
    EXPECT_TRUE(theBinding.IsBound());
    EXPECT_EQ(Both(), "SInt32 40, SInt32 40");
    SetSource(55);
    EXPECT_EQ(Both(), "SInt32 55, SInt32 55");
    SetObject(20);
    EXPECT_EQ(Both(), "SInt32 20, SInt32 20");
}

TEST_F(LmScopedBindingTest, BindsOneWay)
{
    const LmScopedBinding theBinding = LmScopedBinding::OneWay(&theObject, "value", &theSource, "volume");
    EXPECT_TRUE(theBinding.IsBound());
    EXPECT_EQ(Both(), "SInt32 40, SInt32 40");
    SetSource(55);
    EXPECT_EQ(Both(), "SInt32 55, SInt32 55");
    SetObject(20);
    EXPECT_EQ(Both(), "SInt32 20, SInt32 55");
}

TEST_F(LmScopedBindingTest, ConvertsOnTheWayThereAndBack)
{
    const LmScopedBinding theBinding(&theObject, "value", &theSource, "volume",
                                     new AddingTransform(1, theLiving), new AddingTransform(-1, theLiving));
    EXPECT_EQ(Both(), "SInt32 41, SInt32 40");
    SetSource(10);
    EXPECT_EQ(Both(), "SInt32 11, SInt32 10");
    SetObject(100);
    EXPECT_EQ(Both(), "SInt32 100, SInt32 99");
}

TEST_F(LmScopedBindingTest, SharesTransforms)
{
    LmKeyValueBinding theOther;
    const LmSharedTransform theTransform(new AddingTransform(1, theLiving));
    {
        const LmScopedBinding theFirst =
            LmScopedBinding::OneWay(&theObject, "value", &theSource, "volume", theTransform);
        const LmScopedBinding theSecond =
            LmScopedBinding::OneWay(&theOther, "value", &theSource, "volume", theTransform);
        SetSource(1);
        EXPECT_EQ(Read(theObject, "value"), "SInt32 2");
        EXPECT_EQ(Read(theOther, "value"), "SInt32 2");
    }
    EXPECT_EQ(theLiving, 1);
}

TEST_F(LmScopedBindingTest, LetsSeveralKeysOfAnObjectFollowOneSource)
{
    const LmSharedTransform theTransform(new AddingTransform(1, theLiving));
    NotificationRecorder theRecorder;
    theObject.ObserveKeyPathValue("b", &theRecorder);
    theObject.ObserveKeyPathValue("a", &theRecorder);
    const LmScopedBinding theBinding =
        LmScopedBinding::Several(&theObject, {"b", "a"}, &theSource, "volume", theTransform);
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing b", "changed b", "changing a", "changed a"}));
    SetSource(1);
    EXPECT_EQ(Read(theObject, "a"), "SInt32 2");
    EXPECT_EQ(Read(theObject, "b"), "SInt32 2");
    EXPECT_EQ(theRecorder.Take(), (Lines{"changing b", "changed b", "changing a", "changed a"}));
    EXPECT_EQ(static_cast<AddingTransform*>(theTransform.Get())->mApplications, 2) << "once for each change";
}

TEST_F(LmScopedBindingTest, LetsSeveralBindingsOfOneObjectFollowOneSource)
{
    const LmScopedBinding theFirst = LmScopedBinding::OneWay(&theObject, "value", &theSource, "volume");
    const LmScopedBinding theSecond(&theObject, "other", &theSource, "volume");
    SetSource(55);
    EXPECT_EQ(Read(theObject, "value"), "SInt32 55");
    EXPECT_EQ(Read(theObject, "other"), "SInt32 55");
}

TEST_F(LmScopedBindingTest, DoesNotCopyAFirstValueThatIsNotThere)
{
    SetObject(7);
    const LmScopedBinding theBinding(&theObject, "value", &theSource, "nothing");
    EXPECT_TRUE(theBinding.IsBound());
    EXPECT_EQ(Read(theObject, "value"), "SInt32 7");
    EXPECT_FALSE(theSource.HasKey("nothing"));
}

TEST_F(LmScopedBindingTest, TheFirstValueGoesRoundUntilItSettlesOnPurpose)
{
    const LmScopedBinding theBinding(&theObject, "value", &theSource, "volume", nullptr,
                                     new LimitingTransform(30));
    EXPECT_EQ(Both(), "SInt32 30, SInt32 30");
    SetObject(50); // the source holds what the reverse transform makes of it, so it has nothing to tell
    EXPECT_EQ(Both(), "SInt32 50, SInt32 30");
}

TEST_F(LmScopedBindingTest, EndsWithTheObjectAndPrintsNothing)
{
    {
        const LmScopedBinding theOneWay = LmScopedBinding::OneWay(&theObject, "value", &theSource, "volume");
        const LmScopedBinding theBothWays(&theObject, "value", &theSource, "volume");
    }
    SetSource(1);
    SetObject(2);
    EXPECT_EQ(Both(), "SInt32 2, SInt32 1");
}

TEST_F(LmScopedBindingTest, EndUndoesItAndGivesTheTransformsBack)
{
    LmScopedBinding theBinding(&theObject, "value", &theSource, "volume", new AddingTransform(1, theLiving),
                               new AddingTransform(-1, theLiving));
    EXPECT_EQ(theLiving, 2);
    theBinding.End();
    EXPECT_EQ(theLiving, 0);
    EXPECT_FALSE(theBinding.IsBound());
    theBinding.End();
    SetSource(1);
    EXPECT_EQ(Both(), "SInt32 41, SInt32 1");
}

TEST_F(LmScopedBindingTest, Moves)
{
    std::vector<LmScopedBinding> theBindings;
    theBindings.push_back(LmScopedBinding(&theObject, "value", &theSource, "volume"));
    theBindings.push_back(LmScopedBinding::OneWay(&theObject, "other", &theSource, "volume"));
    SetSource(1);
    EXPECT_EQ(Both(), "SInt32 1, SInt32 1");
    EXPECT_EQ(Read(theObject, "other"), "SInt32 1");
    LmScopedBinding theMoved(std::move(theBindings[0]));
    EXPECT_FALSE(theBindings[0].IsBound()); // NOLINT(bugprone-use-after-move): its state is promised
    theBindings[1] = std::move(theMoved);
    LmScopedBinding& theSame = theBindings[1];
    theBindings[1] = std::move(theSame);
    SetSource(2);
    EXPECT_EQ(Both(), "SInt32 2, SInt32 2");
    EXPECT_EQ(Read(theObject, "other"), "SInt32 1");
}

TEST_F(LmScopedBindingTest, MovesFromWhatItsTransformOwns)
{
    class Owner : public LmValueTransform
    {
    public:
        explicit Owner(bool& theIsGone)
            : mIsGone(theIsGone)
        {
        }
        ~Owner() override { mIsGone = true; }
        LmValue Apply(const LmValue& theValue) override { return theValue; }
        LmScopedBinding mBinding;

    private:
        bool& mIsGone;
    };
    bool isGone = false;
    auto* const theOwner = new Owner(isGone);
    theOwner->mBinding = LmScopedBinding(&theObject, "value", &theSource, "volume");
    LmScopedBinding theBinding = LmScopedBinding::OneWay(&theObject, "other", &theSource, "volume", theOwner);
    theBinding = std::move(theOwner->mBinding);
    EXPECT_TRUE(isGone);
    SetSource(2);
    EXPECT_EQ(Both(), "SInt32 2, SInt32 2");
}

TEST_F(LmScopedBindingTest, IsUndoneByTheEndOfEitherSide)
{
    for (const bool isTwoWay : {false, true}) {
        for (const bool isSourceFirst : {false, true}) {
            auto theModel = std::make_unique<LmKeyValueBinding>();
            auto theView = std::make_unique<LmKeyValueBinding>();
            theModel->SetKeyPathValue("volume", LmValue(1));
            LmScopedBinding theBinding =
                isTwoWay ? LmScopedBinding(theView.get(), "value", theModel.get(), "volume")
                         : LmScopedBinding::OneWay(theView.get(), "value", theModel.get(), "volume");
            EXPECT_EQ(Read(*theView, "value"), "SInt32 1");
            if (isSourceFirst) {
                theModel.reset();
                theView->SetKeyPathValue("value", LmValue(2));
            } else {
                theView.reset();
                theModel->SetKeyPathValue("volume", LmValue(2));
            }
            EXPECT_FALSE(theBinding.IsBound());
        }
    }
}

TEST_F(LmScopedBindingTest, DoesNotConvertForASideThatIsGone)
{
    const LmSharedTransform theTransform(new AddingTransform(1, theLiving));
    auto theView = std::make_unique<LmKeyValueStore>();
    const LmScopedBinding theBinding =
        LmScopedBinding::OneWay(theView.get(), "value", &theSource, "volume", theTransform);
    theView.reset();
    SetSource(1);
    EXPECT_EQ(static_cast<AddingTransform*>(theTransform.Get())->mApplications, 1) << "for the first value";
}

TEST_F(LmScopedBindingTest, BindsPlainStores)
{
    LmKeyValueStore theModel;
    LmKeyValueStore theView;
    theModel.SetKeyPathValue("volume", LmValue(1));
    const LmScopedBinding theBinding(&theView, "value", &theModel, "volume");
    theView.SetKeyPathValue("value", LmValue(2));
    EXPECT_EQ(Read(theModel, "volume"), "SInt32 2");
}

TEST_F(LmScopedBindingTest, BindsTwoKeysOfOneObject)
{
    const LmScopedBinding theBinding(&theSource, "loudness", &theSource, "volume");
    theSource.SetKeyPathValue("loudness", LmValue(3));
    EXPECT_EQ(Read(theSource, "volume"), "SInt32 3");
    SetSource(4);
    EXPECT_EQ(Read(theSource, "loudness"), "SInt32 4");
}

TEST_F(LmScopedBindingTest, BindsNothingThatCannotBeBound)
{
    Choosy theChoosy;
    theChoosy.SetKeyPathValue("fixed", LmValue(1));
    EXPECT_FALSE(LmScopedBinding().IsBound());
    EXPECT_FALSE(LmScopedBinding(nullptr, "value", &theSource, "volume").IsBound());
    EXPECT_FALSE(LmScopedBinding(&theObject, "value", nullptr, "volume").IsBound());
    EXPECT_FALSE(LmScopedBinding(&theObject, "", &theSource, "volume").IsBound());
    EXPECT_FALSE(LmScopedBinding(&theObject, "value", &theSource, "").IsBound());
    EXPECT_FALSE(LmScopedBinding(&theSource, "volume", &theSource, "volume").IsBound());
    EXPECT_FALSE(LmScopedBinding(&theObject, "value", &theSource, "*").IsBound());
    EXPECT_FALSE(LmScopedBinding(&theObject, "value", &theChoosy, "fixed").IsBound());
    EXPECT_FALSE(LmScopedBinding(&theChoosy, "fixed", &theSource, "volume").IsBound());
    EXPECT_FALSE(LmScopedBinding::OneWay(&theObject, "", &theSource, "volume").IsBound());
    EXPECT_FALSE(LmScopedBinding::Several(&theObject, {}, &theSource, "volume").IsBound());
    LmKeyValueStore theStore;
    EXPECT_FALSE(LmScopedBinding(&theStore, "*", &theSource, "volume").IsBound());
    EXPECT_FALSE(theObject.HasKey("value"));
}

TEST_F(LmScopedBindingTest, LetsAKeyFollowOneWayThatIsNotBindableOnPurpose)
{
    Choosy theChoosy;
    const LmScopedBinding theBinding = LmScopedBinding::OneWay(&theChoosy, "fixed", &theSource, "volume");
    EXPECT_TRUE(theBinding.IsBound());
    EXPECT_EQ(Read(theChoosy, "fixed"), "SInt32 40");
}

TEST_F(LmScopedBindingTest, TakesTheTransformsAlsoWhereNothingIsBound)
{
    const LmScopedBinding theBinding(&theObject, "value", &theSource, "*", new AddingTransform(1, theLiving));
    EXPECT_EQ(theLiving, 0);
}

TEST_F(LmScopedBindingTest, MayBeEndedByATransformAtWork)
{
    LmScopedBinding theBinding;
    AddingTransform* theTransform = new AddingTransform(1, theLiving);
    theBinding = LmScopedBinding::OneWay(&theObject, "value", &theSource, "volume", theTransform);
    theTransform->mOnApply = [&] {
        theBinding.End();
        EXPECT_EQ(theLiving, 1) << "it lives as long as it works";
    };
    SetSource(1);
    EXPECT_EQ(theLiving, 0);
    EXPECT_EQ(Both(), "SInt32 41, SInt32 1") << "nothing is set after the end";
}

TEST_F(LmScopedBindingTest, MayLoseEitherSideToATransformAtWork)
{
    for (const bool isSource : {false, true}) {
        auto theModel = std::make_unique<LmKeyValueBinding>();
        auto theView = std::make_unique<LmKeyValueBinding>();
        AddingTransform* theTransform = new AddingTransform(1, theLiving);
        LmScopedBinding theBinding =
            LmScopedBinding::OneWay(theView.get(), "value", theModel.get(), "volume", theTransform);
        theTransform->mOnApply = [&] { (isSource ? theModel : theView).reset(); };
        theModel->SetKeyPathValue("volume", LmValue(1));
        EXPECT_FALSE(theBinding.IsBound());
        if (theView) {
            EXPECT_FALSE(theView->HasKey("value"));
        }
    }
}

TEST_F(LmScopedBindingTest, EndsBetweenSeveralKeysWhenAnObserverEndsIt)
{
    LmScopedBinding theBinding = LmScopedBinding::Several(&theObject, {"a", "b"}, &theSource, "volume");
    struct Ender : LmKeyValueObserver
    {
        explicit Ender(LmScopedBinding& theScopedBinding)
            : mBinding(theScopedBinding)
        {
        }
        void ValueChanged(const LmKeyValueStore*, const LmString&) override { mBinding.End(); }
        LmScopedBinding& mBinding;
    } theEnder(theBinding);
    theObject.ObserveKeyPathValue("a", &theEnder);
    SetSource(1);
    EXPECT_EQ(Read(theObject, "a"), "SInt32 1");
    EXPECT_EQ(Read(theObject, "b"), "SInt32 40");
}

TEST_F(LmScopedBindingTest, MayBeMadeInsideANotification)
{
    struct Binder : LmKeyValueObserver
    {
        Binder(LmKeyValueBinding& theTarget, LmKeyValueBinding& theOrigin)
            : mTarget(theTarget),
              mOrigin(theOrigin)
        {
        }
        void ValueChanged(const LmKeyValueStore*, const LmString&) override
        {
            mBinding = LmScopedBinding(&mTarget, "value", &mOrigin, "volume");
        }
        LmKeyValueBinding& mTarget;
        LmKeyValueBinding& mOrigin;
        LmScopedBinding mBinding;
    } theBinder(theObject, theSource);
    theSource.ObserveKeyPathValue("volume", &theBinder);
    SetSource(1);
    EXPECT_EQ(Both(), "SInt32 1, SInt32 1");
    SetSource(2); // replaces itself while it may be told
    EXPECT_EQ(Both(), "SInt32 2, SInt32 2");
    SetObject(3);
    EXPECT_EQ(Both(), "SInt32 3, SInt32 3");
}

TEST_F(LmScopedBindingTest, IsNotEndedByUnbindAllOfItsObjects)
{
    const LmScopedBinding theBinding(&theObject, "value", &theSource, "volume");
    theObject.UnbindAll();
    theSource.UnbindAll();
    SetSource(1);
    EXPECT_EQ(Both(), "SInt32 1, SInt32 1");
    theSource.RemoveObservers();
    EXPECT_FALSE(theBinding.IsBound());
}

TEST_F(LmScopedBindingTest, CopiesAValueThatIsNotValidLater)
{
    const LmScopedBinding theBinding = LmScopedBinding::OneWay(&theObject, "value", &theSource, "volume");
    theSource.SetKeyPathValue("volume", LmValue());
    EXPECT_EQ(Both(), "-, -");
    EXPECT_EQ(StandardErrorCapture::TakeLines().size(), 2U);
}
