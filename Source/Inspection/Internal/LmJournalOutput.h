// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmJournalOutput_h
#define LmJournalOutput_h

#include <cstddef>
#include <string>

// Where the lines of a journal go. Not part of the interface.
class LmJournalOutput
{
public:
    LmJournalOutput() = default;
    virtual ~LmJournalOutput() = default;
    LmJournalOutput(const LmJournalOutput&) = delete;
    LmJournalOutput& operator=(const LmJournalOutput&) = delete;

    // Writes a line and a line feed behind it. False when that was not possible: then the line is lost.
    virtual bool Write(std::string& theLine) = 0;

    // Whether a line of so many bytes is too much for what has been written to, so that it is time for Renew.
    virtual bool IsFullFor(std::size_t /*theLength*/) const { return false; }
    virtual void Renew() {}

    // Does what was left to be done later. False when nobody reads any more.
    virtual bool Tend() { return true; }
};

#endif
