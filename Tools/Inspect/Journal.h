// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Journal_h
#define Journal_h

// A journal, read entry by entry from the file that was moved aside, when there is one that belongs to it,
// and the file itself; or from a pipe. What is no entry is reported and passed over.

#include "Entry.h"
#include "EntryParser.h"
#include "LineReader.h"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace Inspect {

class Journal
{
public:
    // theName is a file, or "-" for the standard input. Reports go to theErrors. Nothing but what
    // GetTrouble says can be done with a journal that cannot be opened.
    Journal(const std::string& theName, std::ostream& theErrors);
    // Reads theStream, which is called theName in reports.
    Journal(FilePointer theStream, const std::string& theName, std::ostream& theErrors);

    // The next entry. Returns false at the end, and when nothing can be read on: then there is trouble.
    bool Next(Entry& theEntry);

    // From the beginning again; nothing is reported a second time. A pipe is kept in a temporary file for
    // that, so KeepForRewind must have been called before the first entry was read.
    void KeepForRewind();
    bool Rewind();

    // What makes the journal as a whole unreadable; empty when nothing does.
    const std::string& GetTrouble() const { return mTrouble; }
    // Whether it begins with the program: nothing before was moved aside and lost.
    bool IsWhole() const { return mIsWhole; }
    // Whether callers were kept.
    bool HasCallers() const { return mHasCallers; }
    // Whether the program ended it in order.
    bool IsEnded() const { return mIsEnded; }
    // How many entries were not read: those that the recorder lost, and those that could not be read.
    std::uint64_t CountMissing() const { return mMissing; }
    std::uint64_t CountSkippedLines() const { return mSkipped; }
    std::uint64_t CountEntries() const { return mEntries; }
    const std::string& GetName() const { return mName; }
    // The line that the entry of the last Next stands in.
    std::string_view GetLine() const;

private:
    struct Part
    {
        std::string theName;
        std::unique_ptr<LineReader> theReader;
    };

    void AddEarlierPart(LineReader& theReader);
    bool ReadEntry(Entry& theEntry);
    bool Accept(const Entry& theEntry);
    bool AcceptBegin(const Entry& theEntry);
    void Report(const std::string& theFinding);
    void Restart();

    std::string mName;
    std::ostream& mErrors;
    EntryParser mParser;
    std::vector<Part> mParts;
    std::size_t mPart = 0;
    std::string mTrouble;
    std::uint64_t mLastNumber = 0;
    std::uint64_t mMissing = 0;
    std::uint64_t mSkipped = 0;
    std::uint64_t mEntries = 0;
    bool mHasBegun = false;
    bool mIsWhole = false;
    bool mHasCallers = false;
    bool mIsEnded = false;
    bool mIsSilent = false; // what is wrong has been reported when it was read the first time
};

} // namespace Inspect

#endif
