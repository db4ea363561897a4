// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalStream.h"

#include <utility>

LmJournalStream::LmJournalStream(std::string thePath, std::uint64_t theLimit)
    : mPath(std::move(thePath)),
      mOlderPath(mPath + ".1"),
      mLimit(theLimit)
{
    Open();
    // What has no places, a pipe for example, cannot be begun anew under its name; nor can a device.
    const bool isDevice = mPath.compare(0, 5, "/dev/") == 0;
    if (mFile == stdout || isDevice || (mFile != nullptr && std::fseek(mFile, 0, SEEK_END) != 0)) {
        mLimit = 0;
    }
}

LmJournalStream::~LmJournalStream()
{
    if (mFile != nullptr && mFile != stdout) {
        std::fclose(mFile);
    }
}

void LmJournalStream::Open()
{
    mSize = 0;
    mIsInterrupted = false;
    if (mPath == "-") {
        mFile = stdout;
        return;
    }
    mFile = std::fopen(mPath.c_str(), "wb");
    if (mFile != nullptr) {
        // Every line goes to the system at once, and whole.
        std::setvbuf(mFile, nullptr, _IONBF, 0);
    }
}

bool LmJournalStream::IsFullFor(std::size_t theLength) const
{
    return mLimit != 0 && mSize != 0 && mSize + theLength + 1 > mLimit;
}

void LmJournalStream::Renew()
{
    if (mFile != nullptr) {
        std::fclose(mFile);
    }
    std::rename(mPath.c_str(), mOlderPath.c_str());
    Open();
}

bool LmJournalStream::Write(std::string& theLine)
{
    if (mFile == nullptr) {
        return false;
    }
    if (mIsInterrupted && std::fputc('\n', mFile) == EOF) {
        std::clearerr(mFile);
        return false;
    }
    theLine += '\n';
    const std::size_t theWritten = std::fwrite(theLine.data(), 1, theLine.size(), mFile);
    const bool isWhole = theWritten == theLine.size() && std::fflush(mFile) == 0;
    mSize += theWritten;
    mIsInterrupted = theWritten != 0 && theWritten != theLine.size();
    if (!isWhole) {
        std::clearerr(mFile);
    }
    return isWhole;
}
