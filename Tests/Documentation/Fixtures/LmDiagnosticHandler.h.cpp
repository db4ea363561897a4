// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDiagnosticHandler.h"
#include "LmValue.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

class Log
{
public:
    void Add(const char* theMessage) { mMessages.emplace_back(theMessage); }

    std::vector<std::string> mMessages;
};

// @code 1

} // namespace

TEST(LmDiagnosticHandler, IsSetAsItsHeaderShows)
{
    Log theLog;
    // @code 2
    LmValue().GetString();
    LmSetDiagnosticHandler(nullptr, nullptr);
    EXPECT_EQ(theLog.mMessages, std::vector<std::string>{"IsString()"});
}
