// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ReferenceModel.h"
#include "ScriptMaker.h"
#include "ScriptPlayer.h"
#include "ScriptTrial.h"

#include <gtest/gtest.h>

namespace Model {

namespace {

// A model with a fault: bindings do not follow into a key that a change came from already.
class FaultyModel : public ReferenceModel
{
public:
    using ReferenceModel::ReferenceModel;

    void SetKeyPathValue(Id theStore, const std::string& theKey, const Value& theValue) override
    {
        if (++mDepth <= 2) {
            ReferenceModel::SetKeyPathValue(theStore, theKey, theValue);
        }
        --mDepth;
    }

private:
    int mDepth = 0;
};

std::string PlayOnFaultyModel(const Script& theScript)
{
    ScriptPlayer thePlayer(theScript);
    FaultyModel theModel(thePlayer);
    thePlayer.Play(theModel, true);
    return thePlayer.GetTranscript();
}

bool ShowsTheFault(const Script& theScript)
{
    Script theSettled = theScript;
    return PlayOnModel(theSettled) != PlayOnFaultyModel(theSettled);
}

bool HasErrorStatus(const Script& theScript)
{
    Script theSettled = theScript;
    return PlayOnModel(theSettled).find("reported by LmKeyValueBinding: Error -50") != std::string::npos;
}

// The first script that is one that theQuestion looks for, none after many.
bool FindScript(const Question& theQuestion, Script& theScript)
{
    for (std::uint64_t theSeed = 1; theSeed <= 2000; ++theSeed) {
        theScript = MakeScript(theSeed);
        if (theQuestion(theScript)) {
            return true;
        }
    }
    return false;
}

} // namespace

TEST(ScriptTrial, AFaultIsFoundAndShrunk)
{
    Script theScript;
    ASSERT_TRUE(FindScript(&ShowsTheFault, theScript));
    const Script theShrunk = Shrink(theScript, &ShowsTheFault);
    EXPECT_TRUE(ShowsTheFault(theShrunk));
    EXPECT_LE(theShrunk.theOperations.size(), 8U) << DescribeScript(theShrunk);
}

// Two objects, a binding one way, and its end.
TEST(ScriptTrial, NothingThatAScriptCanDoWithoutIsLeft)
{
    Script theScript;
    ASSERT_TRUE(FindScript(&HasErrorStatus, theScript));
    const Script theShrunk = Shrink(theScript, &HasErrorStatus);
    EXPECT_LE(theShrunk.theOperations.size(), 4U) << DescribeScript(theShrunk);
    EXPECT_TRUE(theShrunk.theReactions.empty()) << DescribeScript(theShrunk);
}

} // namespace Model
