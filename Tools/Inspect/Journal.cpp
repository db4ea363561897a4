// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Journal.h"

#include <cerrno>
#include <cstring>
#include <ostream>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Inspect {

namespace {

constexpr std::uint64_t kVersion = 1;
// More lines than that are counted, and not reported each.
constexpr std::uint64_t kMostReports = 20;

FilePointer OpenFile(const std::string& theName)
{
    return FilePointer(std::fopen(theName.c_str(), "rb"));
}

std::string SystemError()
{
    return std::strerror(errno);
}

bool IsFolder(std::FILE* theFile)
{
    struct stat theStatus = {};
    return ::fstat(fileno(theFile), &theStatus) == 0 && S_ISDIR(theStatus.st_mode);
}

// The first line of theReader as a begin entry. The reader is at its beginning again afterwards.
bool ReadBegin(LineReader& theReader, EntryParser& theParser, Entry& theBegin)
{
    const bool isRead = theReader.Next() == LineReader::Result::Line &&
                        theParser.Parse(theReader.GetLine(), theBegin).empty();
    return theReader.Rewind() && isRead && theBegin.theWhat == What::Begin;
}

// Copies what is left of theFrom to a temporary file, and goes back to its beginning.
FilePointer Spool(std::FILE* theFrom)
{
    FilePointer theCopy(std::tmpfile());
    if (theCopy == nullptr) {
        return nullptr;
    }
    std::vector<char> theBlock(std::size_t{256} << 10U);
    while (const std::size_t theCount = std::fread(theBlock.data(), 1, theBlock.size(), theFrom)) {
        if (std::fwrite(theBlock.data(), 1, theCount, theCopy.get()) != theCount) {
            return nullptr;
        }
    }
    if (std::ferror(theFrom) != 0 || std::fflush(theCopy.get()) != 0) {
        return nullptr;
    }
    std::rewind(theCopy.get());
    return theCopy;
}

} // namespace

Journal::Journal(const std::string& theName, std::ostream& theErrors)
    : mName(theName == "-" ? "standard input" : theName),
      mErrors(theErrors)
{
    FilePointer theFile(theName == "-" ? ::fdopen(::dup(STDIN_FILENO), "rb") : OpenFile(theName).release());
    if (theFile == nullptr) {
        mTrouble = mName + " cannot be opened: " + SystemError();
    } else if (IsFolder(theFile.get())) {
        mTrouble = mName + " is a folder";
    } else {
        mParts.push_back({mName, std::make_unique<LineReader>(std::move(theFile))});
        AddEarlierPart(*mParts.back().theReader);
    }
}

Journal::Journal(FilePointer theStream, const std::string& theName, std::ostream& theErrors)
    : mName(theName),
      mErrors(theErrors)
{
    mParts.push_back({mName, std::make_unique<LineReader>(std::move(theStream))});
}

// A file that was moved aside is read first, when it is the one before this. One of an earlier run is not.
void Journal::AddEarlierPart(LineReader& theReader)
{
    Entry theBegin;
    Entry theEarlierBegin;
    if (!theReader.Rewind() || !ReadBegin(theReader, mParser, theBegin) || theBegin.theFile < 2) {
        return;
    }
    FilePointer theFile = OpenFile(mName + ".1");
    if (theFile == nullptr) {
        return;
    }
    auto theEarlier = std::make_unique<LineReader>(std::move(theFile));
    if (ReadBegin(*theEarlier, mParser, theEarlierBegin) && theEarlierBegin.theFile + 1 == theBegin.theFile &&
        theEarlierBegin.theDetail == theBegin.theDetail) {
        mParts.insert(mParts.begin(), {mName + ".1", std::move(theEarlier)});
    }
}

void Journal::KeepForRewind()
{
    if (mParts.size() == 1 && !mParts.front().theReader->Rewind()) {
        FilePointer theCopy = Spool(mParts.front().theReader->GetFile());
        if (theCopy == nullptr) {
            mTrouble = mName + " cannot be kept in a temporary file: " + SystemError();
            return;
        }
        mParts.front().theReader = std::make_unique<LineReader>(std::move(theCopy));
    }
}

bool Journal::Rewind()
{
    for (const Part& thePart : mParts) {
        if (!thePart.theReader->Rewind()) {
            mTrouble = mName + " cannot be read a second time";
            return false;
        }
    }
    Restart();
    return true;
}

void Journal::Restart()
{
    mPart = 0;
    mLastNumber = mMissing = mSkipped = mEntries = 0;
    mHasBegun = mIsWhole = mHasCallers = mIsEnded = false;
    mIsSilent = true;
}

std::string_view Journal::GetLine() const
{
    return mParts[mPart].theReader->GetLine();
}

void Journal::Report(const std::string& theFinding)
{
    ++mSkipped;
    if (mIsSilent || mSkipped > kMostReports + 1) {
        return;
    }
    if (mSkipped == kMostReports + 1) {
        mErrors << "lminspect: more lines are skipped, which are not named\n";
        return;
    }
    mErrors << "lminspect: " << mParts[mPart].theName << ", line " << mParts[mPart].theReader->GetNumber()
            << " is skipped: " << theFinding << "\n";
}

bool Journal::AcceptBegin(const Entry& theEntry)
{
    if (theEntry.theText != "lmbindings") {
        mTrouble = mName + " is no journal of LmBindings";
    } else if (theEntry.theCode != kVersion) {
        mTrouble = mName + " has version " + std::to_string(theEntry.theCode) +
                   " of the format; this program reads version 1";
    }
    mIsWhole = mIsWhole || theEntry.theFile <= 1;
    mHasCallers = mHasCallers || theEntry.isDone;
    return mTrouble.empty();
}

// Whether the entry follows the ones before it.
bool Journal::Accept(const Entry& theEntry)
{
    if (theEntry.theNumber <= mLastNumber) {
        Report("its number, " + std::to_string(theEntry.theNumber) + ", does not come after " +
               std::to_string(mLastNumber));
        return false;
    }
    if (mHasBegun) {
        mMissing += theEntry.theNumber - mLastNumber - 1;
    }
    mHasBegun = true;
    mLastNumber = theEntry.theNumber;
    ++mEntries;
    mIsEnded = theEntry.theWhat == What::End;
    return theEntry.theWhat != What::Begin || AcceptBegin(theEntry);
}

bool Journal::ReadEntry(Entry& theEntry)
{
    const std::string theFinding = mParser.Parse(mParts[mPart].theReader->GetLine(), theEntry);
    if (!theFinding.empty()) {
        Report(theFinding);
        return false;
    }
    return Accept(theEntry);
}

bool Journal::Next(Entry& theEntry)
{
    while (mTrouble.empty() && mPart < mParts.size()) {
        switch (mParts[mPart].theReader->Next()) {
        case LineReader::Result::Line:
            if (ReadEntry(theEntry)) {
                return true;
            }
            break;
        case LineReader::Result::TooLong:
            Report("it is longer than " + std::to_string(LineReader::kLongestLine) + " bytes");
            break;
        case LineReader::Result::End:
            if (mPart + 1 == mParts.size()) {
                if (mEntries == 0) {
                    mTrouble = mName + " holds no entry of a journal";
                }
                return false;
            }
            ++mPart;
            break;
        case LineReader::Result::Failure:
            mTrouble = mParts[mPart].theName + " cannot be read on: " + SystemError();
            break;
        }
    }
    return false;
}

} // namespace Inspect
