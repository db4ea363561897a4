// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmExampleBinding.h"
#include "KeyTable.h"

#include <gtest/gtest.h>

TEST(LmExampleBinding, HasTheKeysThatItsHeaderLists)
{
    KeyRow kShown[] = {
        // @rows 1
    };
    int theModel = 0;
    LmExampleBinding theBinding;
    theBinding.SetModel(&theModel);
    for (KeyRow& theRow : kShown) {
        const LmValue theValue = theBinding.GetKeyPathValue(NameOf(theRow).c_str());
        std::string theText = TypeOf(theValue);
        if (theValue.IsBoolean()) {
            theText += theValue.GetBoolean() ? " true" : " false";
        } else if (theValue.IsString()) {
            EXPECT_EQ(theValue.GetString(), nullptr);
            theText = "a string value that holds no string";
        } else {
            theText += " " + std::to_string(theValue.GetUInt32());
        }
        EXPECT_EQ(theText, theRow[1]);
    }
}
