// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalStream_h
#define LmJournalStream_h

#include "LmJournalOutput.h"

#include <cstdint>
#include <cstdio>
#include <string>

// The file that a journal is written to. Each line is with the system when Write returns, whatever becomes of
// the program afterwards. Not part of the interface.
class LmJournalStream final : public LmJournalOutput
{
public:
    // Overwrites the file; "-" is the standard output stream. 0 is no limit.
    LmJournalStream(std::string thePath, std::uint64_t theLimit);
    ~LmJournalStream() override;

    LmJournalStream(const LmJournalStream&) = delete;
    LmJournalStream& operator=(const LmJournalStream&) = delete;

    bool IsOpen() const { return mFile != nullptr; }

    bool IsFullFor(std::size_t theLength) const override;

    // Puts the file aside, with ".1" behind its name, and begins a new one.
    void Renew() override;

    // What may have been written of a line that was lost is closed with a line feed before the next one.
    bool Write(std::string& theLine) override;

private:
    void Open();

    std::string mPath;
    std::string mOlderPath;
    std::uint64_t mLimit;        // 0 for none, and for what cannot be renamed
    std::uint64_t mSize = 0;     // of the file
    std::FILE* mFile = nullptr;  // null when it could not be opened
    bool mIsInterrupted = false; // the last line may not be whole
};

#endif
