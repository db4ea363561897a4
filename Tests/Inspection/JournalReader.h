// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef JournalReader_h
#define JournalReader_h

#include "LmJournalFile.h"
#include "StandardErrorCapture.h"

#include <string>

// The lines of a file, without what is behind the last line feed. Empty where there is no file.
Lines ReadJournalLines(const std::string& thePath);

// A line of a journal without its time, with "@" for the addresses in it and "T" for the time of day.
std::string WithoutTimes(const std::string& theLine);

// A folder of its own for one test, removed at its end.
class JournalFolder
{
public:
    JournalFolder();
    ~JournalFolder();
    JournalFolder(const JournalFolder&) = delete;
    JournalFolder& operator=(const JournalFolder&) = delete;

    std::string GetPath(const char* theName) const { return mPath + "/" + theName; }

private:
    std::string mPath;
};

// A journal that is written while this lives.
//
//     TestJournal theJournal;
//     theStore.SetKeyPathValue("volume", LmValue(40));
//     EXPECT_EQ(theJournal.Take(), Lines{...});
//
// Numbers and causes stand in the lines as they are; the first entry, which is 1, has been taken already.
class TestJournal
{
public:
    TestJournal()
        : TestJournal(LmJournalSettings())
    {
    }

    // theFile is that of the folder.
    explicit TestJournal(LmJournalSettings theSettings);
    ~TestJournal() { LmEndJournal(); }
    TestJournal(const TestJournal&) = delete;
    TestJournal& operator=(const TestJournal&) = delete;

    std::string GetPath() const { return mFolder.GetPath("journal"); }

    // The lines since the last call.
    Lines Take();

    // Only those of one kind.
    Lines Take(const char* theKind);

private:
    JournalFolder mFolder;
    std::size_t mTaken = 1;
};

#endif
