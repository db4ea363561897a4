// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmConveniences.h"
#include "LmKeyValueStore.h"

#include <gtest/gtest.h>
#include <iostream>
#include <sstream>
#include <string>

namespace {

// Stands for the stream of the example.
class PrintedText
{
public:
    PrintedText()
        : mReplaced(std::cout.rdbuf(mText.rdbuf()))
    {
    }
    ~PrintedText() { std::cout.rdbuf(mReplaced); }

    PrintedText(const PrintedText&) = delete;
    PrintedText& operator=(const PrintedText&) = delete;

    std::string Get() const { return mText.str(); }

private:
    std::ostringstream mText;
    std::streambuf* mReplaced;
};

} // namespace

TEST(LmConveniences, ServeAsTheirHeaderShows)
{
    LmKeyValueStore theStore;
    theStore.SetKeyPathValue("volume", LmValue(40));
    const std::string theOldName = "Quiet";
    const PrintedText theText;
    // @code 1
    EXPECT_EQ(theNewName, theOldName);
    EXPECT_EQ(theText.Get(), "SInt32 40\n");
}
