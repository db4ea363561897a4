// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "JournalReader.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <unistd.h>

Lines ReadJournalLines(const std::string& thePath)
{
    std::ifstream theFile(thePath, std::ios::binary);
    Lines theLines;
    for (std::string theLine; std::getline(theFile, theLine) && !theFile.eof();) {
        theLines.push_back(theLine);
    }
    return theLines;
}

std::string WithoutTimes(const std::string& theLine)
{
    static const std::regex kTime("\"t\":[0-9]+,");
    static const std::regex kTimeOfDay("\"started\":\"[-0-9]+T[:0-9]+Z\"");
    static const std::regex kAddress("0x[0-9A-Fa-f]{8,}");
    const std::string theRest = std::regex_replace(theLine, kTime, "");
    return std::regex_replace(std::regex_replace(theRest, kTimeOfDay, "\"started\":\"T\""), kAddress, "@");
}

JournalFolder::JournalFolder()
{
    std::string thePattern = testing::TempDir() + "LmJournalXXXXXX";
    mPath = mkdtemp(thePattern.data());
}

JournalFolder::~JournalFolder()
{
    for (const char* theName : {"journal", "journal.1", "module"}) {
        unlink(GetPath(theName).c_str());
    }
    rmdir(mPath.c_str());
}

TestJournal::TestJournal(LmJournalSettings theSettings)
{
    const std::string thePath = GetPath();
    theSettings.theFile = thePath.c_str();
    EXPECT_TRUE(LmBeginJournal(theSettings));
}

Lines TestJournal::Take()
{
    const Lines theLines = ReadJournalLines(GetPath());
    Lines theNewLines;
    for (; mTaken < theLines.size(); ++mTaken) {
        theNewLines.push_back(WithoutTimes(theLines[mTaken]));
    }
    return theNewLines;
}

Lines TestJournal::Take(const char* theKind)
{
    const std::string theField = std::string("\"what\":\"") + theKind + "\"";
    Lines theLines = Take();
    theLines.erase(std::remove_if(theLines.begin(), theLines.end(),
                                  [&](const std::string& theLine) {
                                      return theLine.find(theField) == std::string::npos;
                                  }),
                   theLines.end());
    return theLines;
}
