// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmStringTransforms.h"
#include "LmKeyValueBinding.h"
#include "StandardErrorCapture.h"
#include "TestStrings.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

std::string ToText(const LmValue& theValue)
{
    LmToStringTransform* theTransform = new LmToStringTransform;
    const LmValue theText = theTransform->Apply(theValue);
    theTransform->Release();
    return theText.GetString() == theValue.GetString() ? "the same string, shared"
                                                       : GetText(theText.GetString());
}

std::string KindOf(const char* theText)
{
    LmFromStringTransform* theTransform = new LmFromStringTransform;
    const LmValue theValue = theTransform->Apply(LmValue(MakeString(theText), true));
    theTransform->Release();
    switch (theValue.GetType()) {
    case kTypeBoolean:
        return "a boolean";
    case kTypeUInt32:
        return "kTypeUInt32";
    case kTypeDouble:
        return "a double";
    case kTypePoint:
        return "a point";
    default:
        return "something else";
    }
}

// Whether theShown says theText, and perhaps more after a comma or semicolon.
bool BeginsWith(const std::string& theShown, const std::string& theText)
{
    return theShown == theText || theShown.find(theText + ",") == 0 || theShown.find(theText + ";") == 0;
}

} // namespace

TEST(LmStringTransforms, ShowANumberInATextFieldAsTheirHeaderShows)
{
    LmKeyValueBinding theModelObject;
    LmKeyValueBinding* theModel = &theModelObject;
    theModel->SetKeyPathValue("target", LmValue(21UL));
    LmKeyValueBinding theField;
    // @code 1
    EXPECT_EQ(GetText(theField.GetKeyPathValue("value").GetString()), "21");
    theField.SetKeyPathValue("value", LmValue(CFSTR("23"), false));
    EXPECT_EQ(theModel->GetKeyPathValue("target").GetUInt32(), 23UL);
}

TEST(LmToStringTransform, MakesTheTextsThatItsHeaderLists)
{
    const char* const kShown[][2] = {
        // @rows 2
    };
    const std::map<std::string, LmValue> kValues = {{"true", LmValue(true)},
                                                    {"-3L", LmValue(-3L)},
                                                    {"1.5", LmValue(1.5)},
                                                    {"a pointer", LmValue(reinterpret_cast<void*>(0x12AB40))},
                                                    {"a string", LmValue(CFSTR("text"), false)},
                                                    {"the point (1.5, 2)", LmValue(CGPointMake(1.5F, 2))},
                                                    {"the size 30 by 40", LmValue(CGSizeMake(30, 40))},
                                                    {"a rectangle", LmValue(CGRectMake(1, 2, 30, 40))},
                                                    {"anything else", LmValue()}};
    ASSERT_EQ(std::size(kShown), kValues.size());
    for (const auto& theRow : kShown) {
        const std::string theText = ToText(kValues.at(theRow[0]));
        EXPECT_TRUE(BeginsWith(theRow[1], theText)) << theRow[0] << " gives " << theText;
    }
    StandardErrorCapture::TakeText();
}

TEST(LmFromStringTransform, ReadsTheTextsThatItsHeaderLists)
{
    const char* const kShown[][2] = {
        // @rows 3
    };
    const std::map<std::string, std::vector<const char*>> kTexts = {
        {"true, false", {"true", "false", "TRUE"}},
        {"an integer", {"12", " +12", "-5"}},
        {"a fraction", {".5", "inf", "nan"}},
        {"(x, y)", {"(1, 2)", "(1.5, 2)"}}};
    ASSERT_EQ(std::size(kShown), kTexts.size());
    for (const auto& theRow : kShown) {
        for (const char* theText : kTexts.at(theRow[0])) {
            const std::string theKind = KindOf(theText);
            EXPECT_TRUE(std::string(theRow[1]).find(theKind) == 0) << theText << " gives " << theKind;
        }
    }
}
