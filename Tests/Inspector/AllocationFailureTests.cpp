// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"

#include "LmConveniences.h"
#include "LmInspector.h"
#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"
#include "LmNumericalTransforms.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <string>

// Memory that runs out while the inspector follows or answers costs what it would have shown, and nothing of
// the program itself.

namespace {

// A meter that is bound to a radio, on which a switch depends.
class InspectorWithoutMemory : public testing::Test
{
public:
    InspectorWithoutMemory()
    {
        LmAllowInspector();
        LmNameObject(mRadio, "radio");
        LmNameObject(mMeter, "meter");
        mRadio.SetKeyPathValue("volume", LmValue(40UL));
        mRadio.SetKeyPathValue("loud", LmValue(true));
        mRadio.MakeDependency("volume", "loud");
        mRadio.ObserveKeyPathValue("loud", &mObserver);
        mMeter.BindTo("value", &mRadio, "volume", new LmScaleTransform(2));
    }
    ~InspectorWithoutMemory() override
    {
        mRadio.IgnoreKeyPathValue("loud", &mObserver);
        mMeter.UnbindAll();
        StandardErrorCapture::TakeLines();
        LmEndInspector();
    }

protected:
    LmKeyValueBinding mRadio;
    LmKeyValueBinding mMeter;
    LmKeyValueObserver mObserver;
};

std::string Ask(const char* theQuestion)
{
    return LmGetStdString(LmAskInspector(theQuestion));
}

} // namespace

TEST_F(InspectorWithoutMemory, AnswersThatThereIsNotEnoughOrWithLess)
{
    for (const char* theQuestion : {"objects", "keys radio", "keys meter", "bound radio", "why meter.value",
                                    "why radio.height", "changes", "set radio.volume loud", "help"}) {
        const std::string theAnswer = Ask(theQuestion);
        const LmString theText = theQuestion;
        const std::size_t theCount = FailEachAllocation([&](AllocationFailures& theFailures) {
            try {
                LmAskInspector(theText);
            } catch (const std::bad_alloc&) {
                theFailures.Stop();
                EXPECT_TRUE(theFailures.HasFailed());
            }
            theFailures.Stop();
            EXPECT_EQ(mRadio.GetKeyPathValue("volume").GetUInt32(), 40U);
            EXPECT_EQ(Ask(theQuestion), theAnswer);
        });
        EXPECT_GT(theCount, 0U) << theQuestion;
    }
}

TEST_F(InspectorWithoutMemory, FollowsWhatItCan)
{
    unsigned long theVolume = 40;
    const std::size_t theCount = FailEachAllocation([&](AllocationFailures& theFailures) {
        theVolume += 1;
        bool isSet = true;
        try {
            mRadio.SetKeyPathValue("volume", LmValue(theVolume));
        } catch (const std::bad_alloc&) {
            isSet = false;
        }
        theFailures.Stop();
        if (isSet) {
            EXPECT_EQ(mRadio.GetKeyPathValue("volume").GetUInt32(), theVolume);
        }
        // What comes then is followed as ever.
        mRadio.SetKeyPathValue("volume", LmValue(theVolume + 1000));
        EXPECT_EQ(LmGetLiveSurvey()->FindReasons(LmGetLiveSurvey()->FindByName("radio"), "volume").size(),
                  2U);
    });
    EXPECT_GT(theCount, 10U);
}

TEST_F(InspectorWithoutMemory, SetsOrDoesNot)
{
    LmLiveSurvey& theSurvey = *LmGetLiveSurvey();
    const std::uint64_t theRadio = theSurvey.FindByName("radio");
    const std::string theKey = "volume";
    std::string theText;
    unsigned long theVolume = 40;
    bool hasFailed = true;
    for (std::size_t theNumber = 1; hasFailed; ++theNumber) {
        theVolume += 1;
        theText = std::to_string(theVolume);
        bool isSet = false;
        AllocationFailures theFailures(theNumber);
        try {
            isSet = theSurvey.SetValue(theRadio, theKey, theText);
        } catch (const std::bad_alloc&) {
            isSet = false;
        }
        theFailures.Stop();
        hasFailed = theFailures.HasFailed();
        const unsigned long theNow = mRadio.GetKeyPathValue(theKey.c_str()).GetUInt32();
        EXPECT_TRUE(theNow == theVolume || theNow == theVolume - 1 || hasFailed);
        EXPECT_TRUE(isSet || hasFailed);
    }
    EXPECT_EQ(mRadio.GetKeyPathValue("volume").GetUInt32(), theVolume);
}

TEST(Inspector, IsNotAllowedWithoutMemory)
{
    std::size_t theRefused = 0;
    FailEachAllocation([&](AllocationFailures& theFailures) {
        try {
            LmAllowInspector();
        } catch (const std::bad_alloc&) {
            ADD_FAILURE() << "it throws";
        }
        theFailures.Stop();
        theRefused += LmGetLiveSurvey() == nullptr ? 1 : 0;
        LmEndInspector();
    });
    EXPECT_GT(theRefused, 0U);
}
