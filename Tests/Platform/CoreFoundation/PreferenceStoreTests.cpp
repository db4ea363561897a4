// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the two places for preferences have in common.

#include "PreferenceFileSupport.h"

namespace {

using PreferenceStore = PreferenceFiles;

} // namespace

TEST_F(PreferenceStore, OnlyChangedKeysAreWritten)
{
    Set(CFSTR("a"), CFSTR("mine"));
    Set(CFSTR("b"), CFSTR("mine"));
    EXPECT_TRUE(Synchronize());
    WriteFile(
        Path(),
        FileWith("<dict><key>a</key><string>theirs</string><key>c</key><string>theirs</string></dict>"));
    Set(CFSTR("d"), CFSTR("mine"));
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(CFEqual(FileValues(), ObjectDictionary({{CFSTR("a"), CFSTR("theirs")},
                                                        {CFSTR("c"), CFSTR("theirs")},
                                                        {CFSTR("d"), CFSTR("mine")}})));
    EXPECT_TRUE(Has(CFSTR("a"), CFSTR("theirs")));
    EXPECT_TRUE(Has(CFSTR("b"), nullptr));
}

TEST_F(PreferenceStore, IsTheMemoryAloneWhenThatIsAskedFor)
{
    setenv("LM_PREFERENCES", "memory", 1);
    Set(CFSTR("a"), CFSTR("mine"));
    EXPECT_TRUE(Synchronize());
    EXPECT_TRUE(Has(CFSTR("a"), CFSTR("mine")));
    EXPECT_EQ(NamesIn(mFolder), std::vector<std::string>{});
}
