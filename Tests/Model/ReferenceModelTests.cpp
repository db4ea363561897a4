// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ReferenceModel.h"

#include "Script.h"
#include "ScriptPlayer.h"
#include "ScriptTrial.h"

#include <gtest/gtest.h>

// The model is proved by the library and the library by the model. What is tested here is what the two could
// have in common: that a script does something at all, and that what the contract leaves open is refused.

namespace Model {

namespace {

Operation Make(Id theObject)
{
    Operation theOperation;
    theOperation.theVerb = Verb::Create;
    theOperation.theObject = theObject;
    return theOperation;
}

Operation Destroy(Id theObject)
{
    Operation theOperation;
    theOperation.theVerb = Verb::Destroy;
    theOperation.theObject = theObject;
    return theOperation;
}

Operation With(Verb theVerb, Id theObject, const std::string& theKey, Id theOther,
               const std::string& theOtherKey)
{
    Operation theOperation;
    theOperation.theVerb = theVerb;
    theOperation.theObject = theObject;
    theOperation.theKey = theKey;
    theOperation.theOther = theOther;
    theOperation.theOtherKey = theOtherKey;
    return theOperation;
}

Operation Set(Id theObject, const std::string& theKey, const Value& theValue)
{
    Operation theOperation = With(Verb::Set, theObject, theKey, kNobody, "");
    theOperation.theValue = theValue;
    return theOperation;
}

// Two bindings, 0 and 1, and an observer, 2.
Script TwoBindings(const std::vector<Operation>& theOperations)
{
    Script theScript;
    theScript.theLongest = 5000;
    theScript.theObjects.resize(3);
    theScript.theObjects[0].theSort = ObjectSort::Binding;
    theScript.theObjects[1].theSort = ObjectSort::Binding;
    theScript.theObjects[1].thePlace = 2;
    theScript.theObjects[2].theSort = ObjectSort::Observer;
    theScript.theObjects[2].thePlace = 4;
    theScript.theOperations = {Make(0), Make(1), Make(2)};
    theScript.theOperations.insert(theScript.theOperations.end(), theOperations.begin(), theOperations.end());
    return theScript;
}

const Value kFive = Value::Number(Kind::UInt32, 5);

} // namespace

TEST(ReferenceModel, AChangeTravelsThroughABindingAndBack)
{
    Script theScript = TwoBindings(
        {With(Verb::Bind, 0, "a", 1, "b"), With(Verb::Observe, 0, "a", 2, ""), Set(1, "b", kFive)});
    EXPECT_EQ(PlayOnModel(theScript), "    > Create binding 0\n"
                                      "    > Create binding 1\n"
                                      "    > Create observer 2\n"
                                      "    > binding 0: Bind \"a\", binding 1, \"b\", none, none\n"
                                      "    gives 0\n"
                                      "    > binding 0: Observe \"a\", observer 2\n"
                                      "    > binding 1: SetKeyPathValue \"b\", UInt32 5\n"
                                      "    binding 0 told before: binding 1, \"b\" is invalid\n"
                                      "    binding 0 told after: binding 1, \"b\" is UInt32 5\n"
                                      "    binding 1 told before: binding 0, \"a\" is invalid\n"
                                      "    observer 2 told before: binding 0, \"a\" is invalid\n"
                                      "    binding 1 told after: binding 0, \"a\" is UInt32 5\n"
                                      "    observer 2 told after: binding 0, \"a\" is UInt32 5\n");
}

TEST(ReferenceModel, WhatTheContractLeavesOpenIsTakenOutOfAScript)
{
    Script theScript = TwoBindings({With(Verb::BindTo, 0, "a", 1, "b"), Destroy(1), Set(1, "b", kFive)});
    const std::string theTranscript = PlayOnModel(theScript);
    EXPECT_EQ(theScript.theOperations.size(), 5U);
    EXPECT_NE(theTranscript.find("binding 0 told after: binding 1, \"b\" is UInt32 5\n"), std::string::npos);
    EXPECT_EQ(theTranscript.find("Destroy"), std::string::npos);
}

TEST(ReferenceModel, ChangesThatDoNotEndAreTakenOutOfAScript)
{
    Script theScript = TwoBindings({});
    theScript.theTransforms = {{Step()}};
    theScript.theTransforms[0][0].theSort = StepSort::Add;
    theScript.theTransforms[0][0].theOperand = kFive;
    Operation theBinding = With(Verb::Bind, 0, "a", 1, "b");
    theBinding.theTransform = 0;
    theScript.theOperations.push_back(theBinding);
    theScript.theOperations.push_back(Set(1, "b", kFive));
    theScript.theOperations.push_back(With(Verb::Get, 1, "b", kNobody, ""));
    const std::string theTranscript = PlayOnModel(theScript);
    EXPECT_EQ(theScript.theOperations.size(), 5U);
    EXPECT_NE(theTranscript.find("gives invalid\n"), std::string::npos);
}

} // namespace Model
