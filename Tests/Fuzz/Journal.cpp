// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A journal, whatever it holds: reading it ends, its entries are in order and follow their causes, and
// nothing that is shown of them holds a control character. Reading it again gives the same. What a page holds
// of it cannot end the element that it stands in.

#include "FuzzTarget.h"

#include "Callers.h"
#include "Causes.h"
#include "Journal.h"
#include "Log.h"
#include "Page.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace {

Inspect::FilePointer FileWith(const std::uint8_t* theBytes, std::size_t theSize)
{
    Inspect::FilePointer theFile(std::tmpfile());
    FUZZ_EXPECT(theFile != nullptr);
    FUZZ_EXPECT(theSize == 0 || std::fwrite(theBytes, 1, theSize, theFile.get()) == theSize);
    std::rewind(theFile.get());
    return theFile;
}

// All that is shown of it.
std::string Show(Inspect::Journal& theJournal)
{
    Inspect::LogOptions theOptions;
    theOptions.isAll = theOptions.hasCauses = theOptions.hasCallers = true;
    std::ostringstream theOutput;
    Inspect::Log theLog(theOptions, theOutput);
    Inspect::Entry theEntry;
    std::uint64_t theLast = 0;
    while (theJournal.Next(theEntry)) {
        FUZZ_EXPECT(theEntry.theNumber > theLast);
        FUZZ_EXPECT(theEntry.theCause < theEntry.theNumber);
        theLast = theEntry.theNumber;
        theLog.Take(theEntry);
    }
    return theOutput.str();
}

// Of a page that holds few entries, so that how things stood before them is there as well.
std::string HoldOnPage(Inspect::Journal& theJournal)
{
    Inspect::PageData theData(4, 0);
    for (Inspect::Entry theEntry; theJournal.Next(theEntry);) {
        theData.Take(theEntry);
    }
    std::ostringstream theOutput;
    theData.Write(theJournal, theOutput);
    return theOutput.str();
}

int CountOf(const std::string& theText, char theLetter)
{
    return static_cast<int>(std::count(theText.begin(), theText.end(), theLetter));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    std::ostringstream theErrors;
    Inspect::Journal theJournal(FileWith(theBytes, theSize), "fuzzed", theErrors);
    const std::string theText = Show(theJournal);
    FUZZ_EXPECT(std::none_of(theText.begin(), theText.end(), [](char theByte) {
        return (static_cast<unsigned char>(theByte) < 0x20 && theByte != '\n') || theByte == 0x7f;
    }));
    FUZZ_EXPECT(theJournal.GetTrouble().empty() || theJournal.GetTrouble().find("fuzzed") == 0);
    if (theJournal.GetTrouble().empty()) {
        FUZZ_EXPECT(theJournal.Rewind());
        FUZZ_EXPECT(Show(theJournal) == theText);
        FUZZ_EXPECT(theJournal.Rewind());
        const std::string thePage = HoldOnPage(theJournal);
        FUZZ_EXPECT(CountOf(thePage, '<') == 0 && CountOf(thePage, '>') == 0 &&
                    CountOf(thePage, '"') % 2 == 0);
        FUZZ_EXPECT(std::none_of(thePage.begin(), thePage.end(), [](char theByte) {
            return static_cast<unsigned char>(theByte) < 0x20 || theByte == 0x7f;
        }));
    }
    return 0;
}
