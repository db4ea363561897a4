// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A build that reads no nibs.

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>

TEST(PlainNibReader, HasNoNibs)
{
    IBNibRef theNib = nullptr;
    EXPECT_EQ(CreateNibReference(CFSTR("Main"), &theNib), unimpErr);
    EXPECT_EQ(theNib, nullptr);
    EXPECT_EQ(CreateNibReferenceWithCFBundle(CFBundleGetMainBundle(), CFSTR("Main"), &theNib), unimpErr);
    WindowRef theWindow = nullptr;
    EXPECT_EQ(CreateWindowFromNib(theNib, CFSTR("Main"), &theWindow), paramErr);
}
