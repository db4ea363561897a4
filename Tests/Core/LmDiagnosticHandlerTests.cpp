// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDiagnosticHandler.h"

#include "LmDiagnostics.h"
#include "LmJournalHook.h"
#include "LmKeyValueStore.h"
#include "LmValue.h"
#include "StandardErrorCapture.h"

#include <csignal>
#include <cstdlib>
#include <cwchar>
#include <gtest/gtest.h>
#include <string>

namespace {

// Keeps what it is handed, until it dies.
class Log
{
public:
    Log() { LmSetDiagnosticHandler(&Add, this); }
    ~Log() { LmSetDiagnosticHandler(nullptr, nullptr); }

    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    Lines mLines;

private:
    static void Add(const LmDiagnostic& theDiagnostic, void* theLog)
    {
        static_cast<Log*>(theLog)->mLines.push_back(std::string(theDiagnostic.theFile) + "|" +
                                                    std::to_string(theDiagnostic.theLine) + "|" +
                                                    theDiagnostic.theMessage);
    }
};

} // namespace

TEST(LmDiagnosticHandler, ReceivesWhatTheLibraryHasToSayAndNothingIsPrinted)
{
    Log theLog;
    LmValue(7).GetString();
    ASSERT_EQ(theLog.mLines.size(), 1u);
    EXPECT_EQ(theLog.mLines[0].rfind("Source/Core/LmValue.cpp|", 0), 0u);
    EXPECT_NE(theLog.mLines[0].find("|IsString()"), std::string::npos);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "");
}

TEST(LmDiagnosticHandler, ReceivesEachSortOfDiagnosticInItsParts)
{
    Log theLog;
    LM_ASSERT(1 > 2);
    LM_CHECK_STATUS(-50);
    LM_ERROR("Unknown type: %d", 12);
    LmReportDiagnostic("Mine.cpp", 7, "%s is %d", "seven", 7);
    const int theLine = __LINE__;
    const auto At = [&](int theDistance) {
        return "Tests/Core/LmDiagnosticHandlerTests.cpp|" + std::to_string(theLine - theDistance) + "|";
    };
    EXPECT_EQ(theLog.mLines, (Lines{At(4) + "1 > 2", At(3) + "Error -50", At(2) + "Unknown type: 12",
                                    "Mine.cpp|7|seven is 7"}));
}

TEST(LmDiagnosticHandler, ReceivesALongMessageWhole)
{
    Log theLog;
    for (const std::size_t theLength : {254u, 255u, 256u, 257u, 5000u}) {
        const std::string theText(theLength, 'x');
        LmReportDiagnostic("Mine.cpp", 1, "%s", theText.c_str());
        EXPECT_EQ(theLog.mLines.back(), "Mine.cpp|1|" + theText);
    }
}

TEST(LmDiagnosticHandler, WithoutOneLinesArePrintedAgain)
{
    {
        const Log theLog;
    }
    LmReportDiagnostic("Mine.cpp", 7, "%s", "printed");
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{"Mine.cpp, line 7: printed"});
}

TEST(LmDiagnosticHandler, WhatItGivesCauseForItselfIsPrinted)
{
    LmSetDiagnosticHandler(
        [](const LmDiagnostic& theDiagnostic, void*) {
            LmReportDiagnostic("Handler.cpp", 1, "while handling: %s", theDiagnostic.theMessage);
        },
        nullptr);
    LmReportDiagnostic("Mine.cpp", 7, "first");
    LmReportDiagnostic("Mine.cpp", 8, "second");
    LmSetDiagnosticHandler(nullptr, nullptr);
    EXPECT_EQ(StandardErrorCapture::TakeLines(), (Lines{"Handler.cpp, line 1: while handling: first",
                                                        "Handler.cpp, line 1: while handling: second"}));
}

TEST(LmDiagnosticHandler, MayTakeItselfAway)
{
    LmSetDiagnosticHandler([](const LmDiagnostic&, void*) { LmSetDiagnosticHandler(nullptr, nullptr); },
                           nullptr);
    LmReportDiagnostic("Mine.cpp", 7, "handed on");
    LmReportDiagnostic("Mine.cpp", 8, "printed");
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{"Mine.cpp, line 8: printed"});
}

namespace {

// Keeps the diagnostics that a journal is told of.
class Journal : public LmJournalHook
{
public:
    Journal() { LmSetJournalHook(this); }
    ~Journal() { LmSetJournalHook(nullptr); }

    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    std::uint64_t Write(const LmJournalEntry& theEntry, const void*) noexcept override
    {
        mLines.push_back(std::string(theEntry.theFile) + "|" + std::to_string(theEntry.theDetail) + "|" +
                         theEntry.theText);
        return 0;
    }

    Lines mLines;
};

// Ends this process well where it would end badly.
void EndWell(int /*theSignal*/)
{
    std::exit(0);
}

// What a process does in which nobody has had a diagnostic yet.
void ReportOneThatIsFatal()
{
    std::signal(SIGABRT, EndWell);
    ::setenv("LM_FATAL", "1", 1);
    LM_ERROR("Too warm");
    std::_Exit(1);
}

void ReportOneQuietly()
{
    ::setenv("LM_QUIET", "1", 1);
    LM_ERROR("Too warm");
    std::exit(0);
}

void ReportOneWhereBothAreOff()
{
    ::setenv("LM_QUIET", "0", 1);
    ::setenv("LM_FATAL", "0", 1);
    LM_ERROR("Too warm");
    std::exit(0);
}

// The journal is begun with the first store.
void MakeTheFirstStore()
{
    const LmKeyValueStore theStore;
    std::exit(0);
}

} // namespace

TEST(LmDiagnosticHandler, ReceivesNoTextWhereThereIsNone)
{
    Log theLog;
    const Journal theJournal;
    // No character in any encoding.
    LmReportDiagnostic("Mine.cpp", 7, "%lc", static_cast<std::wint_t>(0x7FFFFFFF));
    EXPECT_EQ(theLog.mLines, Lines{"Mine.cpp|7|"});
    EXPECT_EQ(theJournal.mLines, Lines{"Mine.cpp|7|"});
}

// Each of these is a process of its own. The environment is read at the first diagnostic, and nobody has had
// one before: the framework runs suites of this name first.
class LmDiagnosticHandlerDeathTest : public testing::Test
{
protected:
    // The test framework warns where it cannot count threads, as under emulation.
    void TearDown() override { StandardErrorCapture::TakeText(); }
};

TEST_F(LmDiagnosticHandlerDeathTest, AFatalOneEndsTheProgramAfterItsLine)
{
    EXPECT_EXIT(ReportOneThatIsFatal(), testing::ExitedWithCode(0), "line [0-9]+: Too warm\n$");
}

TEST_F(LmDiagnosticHandlerDeathTest, AQuietOnePrintsNothing)
{
    EXPECT_EXIT(ReportOneQuietly(), testing::ExitedWithCode(0), "^$");
}

TEST_F(LmDiagnosticHandlerDeathTest, OneIsPrintedAndTheProgramGoesOnWhereBothAreOff)
{
    EXPECT_EXIT(ReportOneWhereBothAreOff(), testing::ExitedWithCode(0), "line [0-9]+: Too warm\n$");
}

TEST_F(LmDiagnosticHandlerDeathTest, AJournalThatNobodyCanWriteIsSaidToBeNone)
{
    for (const char* theVariable : {"LM_JOURNAL", "LM_JOURNAL_SOCKET"}) {
        ::setenv(theVariable, "journal", 1);
        EXPECT_EXIT(MakeTheFirstStore(), testing::ExitedWithCode(0),
                    "LM_JOURNAL: the library LmInspection is not loaded");
        ::unsetenv(theVariable);
    }
}

TEST_F(LmDiagnosticHandlerDeathTest, AJournalWithoutANameIsNotAskedFor)
{
    ::setenv("LM_JOURNAL", "", 1);
    EXPECT_EXIT(MakeTheFirstStore(), testing::ExitedWithCode(0), "^$");
    ::unsetenv("LM_JOURNAL");
}
