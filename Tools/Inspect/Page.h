// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Page_h
#define Page_h

// `lminspect page`: one file for a browser, with the graph, a timeline, the causes and the findings in it.
// What a browser does with it is in the folder Page.

#include "Entry.h"
#include "Graph.h"
#include "Journal.h"
#include "Lint.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iosfwd>
#include <string>

namespace Inspect {

// A page holds so many entries, the last ones; of those before, how things stood after them.
constexpr std::size_t kMostOnPage = 20000;
// Graphviz places so many objects.
constexpr std::size_t kMostPlaced = 300;
// A box shows so many of its object's keys.
constexpr std::size_t kMostRows = 12;

// What a page says of a journal.
class PageData
{
public:
    explicit PageData(std::size_t theMost = kMostOnPage, std::size_t theMostPlaced = kMostPlaced)
        : mMost(theMost),
          mMostPlaced(theMostPlaced)
    {
    }

    void Take(const Entry& theEntry);
    // As JSON, when all is taken. What theJournal says of itself is said on the page.
    void Write(const Journal& theJournal, std::ostream& theOutput);

private:
    std::size_t mMost;
    std::size_t mMostPlaced;
    std::deque<Entry> mEntries;
    std::uint64_t mTaken = 0;
    Graph mBefore; // how things stood before mEntries
    Entry mBegin;
    Lint mLint;
    Callers mCallers;
};

// theFile is empty for theOutput.
int RunPage(Journal& theJournal, const std::string& theFile, std::ostream& theOutput,
            std::ostream& theErrors);

} // namespace Inspect

#endif
