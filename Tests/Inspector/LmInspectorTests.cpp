// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmConveniences.h"
#include "LmInspector.h"
#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"
#include "LmNumericalTransforms.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <sys/wait.h>

namespace {

std::string Ask(const char* theQuestion)
{
    return LmGetStdString(LmAskInspector(theQuestion));
}

// A meter that is bound to a radio.
class LmInspectorTest : public testing::Test
{
public:
    LmInspectorTest()
    {
        LmAllowInspector();
        mRadio = std::make_unique<LmKeyValueBinding>();
        mMeter = std::make_unique<LmKeyValueBinding>();
        LmNameObject(*mRadio, "my radio");
        LmNameObject(*mMeter, "meter");
        mRadio->SetKeyPathValue("volume", LmValue(40UL));
        mMeter->BindTo("value", mRadio.get(), "volume", nullptr);
    }
    ~LmInspectorTest() override
    {
        mMeter.reset();
        // A binding that goes one way ends with the status -50.
        EXPECT_EQ(StandardErrorCapture::TakeLines().size(), 1U);
        mRadio.reset();
        LmEndInspector();
    }

protected:
    std::unique_ptr<LmKeyValueBinding> mRadio;
    std::unique_ptr<LmKeyValueBinding> mMeter;
};

} // namespace

TEST(LmInspector, IsNotThereUntilItIsAllowed)
{
    EXPECT_EQ(LmGetLiveSurvey(), nullptr);
    EXPECT_EQ(Ask("objects"), "The inspector is not allowed.\n");
    LmAllowInspector();
    EXPECT_EQ(Ask("objects"), "There are no objects.\n");
    EXPECT_EQ(Ask("changes"), "Nothing has happened.\n");
    LmEndInspector();
    EXPECT_EQ(LmGetLiveSurvey(), nullptr);
}

TEST(LmInspector, LeavesNoHookBehind)
{
    LmAllowInspector();
    LmAllowInspector();
    LmEndInspector();
    EXPECT_EQ(LmSetJournalHook(nullptr), nullptr);
}

TEST_F(LmInspectorTest, ListsObjects)
{
    EXPECT_EQ(Ask("objects"),
              "Models\n    #1 my radio (LmKeyValueBinding)\n    #2 meter (LmKeyValueBinding)\n");
}

TEST_F(LmInspectorTest, ListsKeysWithWhatTheyAreBoundTo)
{
    EXPECT_EQ(Ask("keys my radio"), "volume = 40 (unsigned 32-bit integer)\n");
    EXPECT_EQ(Ask("keys #2"), "value = 40 (unsigned 32-bit integer)\n    bound to my radio.volume\n");
}

TEST_F(LmInspectorTest, ListsLinksFromBothEnds)
{
    EXPECT_EQ(Ask("bound meter"), "meter.value is bound to my radio.volume\n");
    EXPECT_EQ(Ask("bound my radio"), "meter.value is bound to my radio.volume\n");
    mMeter->UnbindAll();
    EXPECT_EQ(Ask("bound meter"), "meter is bound to nothing.\n");
}

TEST_F(LmInspectorTest, ListsTransformsDependenciesAndObservers)
{
    LmKeyValueObserver theObserver;
    LmNameObject(theObserver, "observer");
    mMeter->UnbindAll();
    StandardErrorCapture::TakeLines();
    mMeter->BindTo("value", mRadio.get(), "volume", new LmScaleTransform(2));
    mRadio->SetKeyPathValue("loud", LmValue(true));
    mRadio->MakeDependency("volume", "loud");
    mRadio->ObserveKeyPathValue("loud", &theObserver);
    EXPECT_EQ(Ask("bound my radio"), "meter.value is bound to my radio.volume through LmScaleTransform\n"
                                     "my radio.loud depends on my radio.volume\n"
                                     "observer observes my radio.loud\n");
    EXPECT_EQ(Ask("keys observer"), "observer has no keys.\n");
    mRadio->IgnoreKeyPathValue("loud", &theObserver);
}

TEST_F(LmInspectorTest, SaysThatAKeyHasNotChanged)
{
    LmKeyValueObserver theObserver;
    mRadio->ObserveKeyPathValue("height", &theObserver);
    EXPECT_EQ(Ask("why my radio.height"), "my radio.height has not changed.\n");
    mRadio->IgnoreKeyPathValue("height", &theObserver);
}

TEST_F(LmInspectorTest, SetsAndSaysWhy)
{
    EXPECT_EQ(Ask("set my radio.volume 55"), "my radio.volume is set.\n");
    EXPECT_EQ(Ask("why meter.value"), "meter.value: 40 -> 55\n"
                                      "meter.value gets 55 from my radio.volume\n"
                                      "my radio.volume: 40 -> 55\n"
                                      "a person set volume in the inspector\n");
    mRadio->SetKeyPathValue("volume", LmValue(56UL));
    EXPECT_EQ(Ask("why my radio.volume"), "my radio.volume: 55 -> 56\nit began in the program's own code\n");
    EXPECT_EQ(Ask("set my radio.volume loud"), "my radio.volume takes no such value.\n");
    EXPECT_EQ(mMeter->GetKeyPathValue("value").GetUInt32(), 56U);
}

TEST_F(LmInspectorTest, ListsTheLastChangesUnderTheirCauses)
{
    mRadio->SetKeyPathValue("volume", LmValue(41UL));
    const std::string theAnswer = Ask("changes");
    const std::string theEnd = "\nmy radio.volume: 40 -> 41\n  meter.value: 40 -> 41\n";
    ASSERT_GE(theAnswer.size(), theEnd.size());
    EXPECT_EQ(theAnswer.substr(theAnswer.size() - theEnd.size()), theEnd);
}

TEST_F(LmInspectorTest, SaysWhatItDoesNotKnow)
{
    for (const char* theQuestion : {"keys tv", "bound tv"}) {
        EXPECT_EQ(Ask(theQuestion), "There is no tv, or more than one; \"objects\" lists them.\n");
    }
    // Both are of that class.
    EXPECT_EQ(Ask("keys LmKeyValueBinding"),
              "There is no LmKeyValueBinding, or more than one; \"objects\" lists them.\n");
    EXPECT_EQ(Ask("why meter.height"),
              "There is no meter.height, or more than one; \"objects\" lists them.\n");
    EXPECT_EQ(Ask("set tv.volume 4"), "There is no tv.volume 4, or more than one; \"objects\" lists them.\n");
    EXPECT_EQ(Ask("set meter"), "There is no meter, or more than one; \"objects\" lists them.\n");
    EXPECT_EQ(Ask("what"), Ask("help"));
    EXPECT_EQ(Ask("keys"), Ask("help"));
}

// The environment is read when the library is loaded, so this program is started once more.
TEST(LmInspector, IsAllowedByTheEnvironmentAlone)
{
    const std::string theProgram = LM_THIS_PROGRAM;
    const std::string theCase = " --gtest_filter=LmInspector.IsNotThereUntilItIsAllowed >/dev/null 2>&1";
    EXPECT_EQ(std::system(("LM_INSPECTOR=0 " + theProgram + theCase).c_str()), 0);
    const int theStatus = std::system(("LM_INSPECTOR=1 " + theProgram + theCase).c_str());
    EXPECT_TRUE(WIFEXITED(theStatus));
    EXPECT_EQ(WEXITSTATUS(theStatus), 1) << "it is there already";
}

TEST_F(LmInspectorTest, FindsWhatHasDotsAndBlanksInItsName)
{
    LmNameObject(*mRadio, "radio.");
    mRadio->SetKeyPathValue("v ", LmValue(1UL));
    mRadio->SetKeyPathValue("station", LmValue(CFSTR("News"), false));
    EXPECT_EQ(Ask("set radio..v  5"), "radio..v  is set.\n");
    EXPECT_EQ(mRadio->GetKeyPathValue("v ").GetUInt32(), 5U);
    EXPECT_EQ(Ask("set radio..station  Late News"), "radio..station is set.\n");
    EXPECT_EQ(LmGetStdString(mRadio->GetKeyPathValue("station")), " Late News");
    EXPECT_EQ(Ask("why radio..v"), "There is no radio..v, or more than one; \"objects\" lists them.\n");
}
