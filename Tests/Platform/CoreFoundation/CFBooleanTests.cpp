// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

TEST(CFBoolean, BooleansAreTwoObjects)
{
    EXPECT_EQ(CFBooleanGetValue(kCFBooleanTrue), 1);
    EXPECT_EQ(CFBooleanGetValue(kCFBooleanFalse), 0);
    EXPECT_EQ(CFBooleanGetValue(nullptr), 0);
    EXPECT_EQ(CFGetTypeID(kCFBooleanTrue), CFBooleanGetTypeID());
    EXPECT_NE(CFBooleanGetTypeID(), CFNumberGetTypeID());
}
