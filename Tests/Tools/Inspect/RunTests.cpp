// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Run.h"

#include <gtest/gtest.h>

using Inspect::JournalEnvironment;
using Texts = std::vector<std::string>;

TEST(Run, StartsAProgramWithTheLibraryThatWritesJournals)
{
    EXPECT_EQ(JournalEnvironment({"HOME=/home", "LM_JOURNAL=/old"}, "/new", "lib.so", false),
              (Texts{"HOME=/home", "LM_JOURNAL=/new", "LD_PRELOAD=lib.so"}));
}

TEST(Run, KeepsWhatElseIsLoaded)
{
    EXPECT_EQ(JournalEnvironment({"LD_PRELOAD=other.so"}, "/new", "lib.so", false),
              (Texts{"LM_JOURNAL=/new", "LD_PRELOAD=lib.so:other.so"}));
}

TEST(Run, KeepsCallersAsTheEnvironmentSaysItOrEight)
{
    EXPECT_EQ(JournalEnvironment({}, "/new", "lib.so", true).back(), "LM_JOURNAL_CALLERS=8");
    EXPECT_EQ(JournalEnvironment({"LM_JOURNAL_CALLERS=0"}, "/new", "lib.so", true),
              (Texts{"LM_JOURNAL_CALLERS=0", "LM_JOURNAL=/new", "LD_PRELOAD=lib.so"}));
}
