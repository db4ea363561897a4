// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LineReader.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>
#include <utility>

namespace Inspect {

namespace {

constexpr std::size_t kBlock = std::size_t{256} << 10U;

} // namespace

LineReader::LineReader(FilePointer theFile)
    : mFile(std::move(theFile)),
      mBuffer(kBlock + kPadding)
{
}

LineReader::Result LineReader::Next()
{
    ++mNumber;
    std::size_t theSearched = mBegin;
    for (;;) {
        const char* const theStart = mBuffer.data() + mBegin;
        const void* const theFeed = std::memchr(mBuffer.data() + theSearched, '\n', mEnd - theSearched);
        if (theFeed != nullptr) {
            mLine = std::string_view(theStart,
                                     static_cast<std::size_t>(static_cast<const char*>(theFeed) - theStart));
            mBegin += mLine.size() + 1;
            return mLine.size() > kLongestLine ? Result::TooLong : Result::Line;
        }
        if (mEnd - mBegin > kLongestLine) {
            return SkipLine();
        }
        const std::size_t theLength = mEnd - mBegin;
        if (!Fill()) {
            mIsCutOff = theLength > 0;
            return mIsFailed ? Result::Failure : Result::End;
        }
        theSearched = mBegin + theLength;
    }
}

// Reads on, with what was not handed out yet at the front of the buffer. Returns false when there is nothing
// more.
bool LineReader::Fill()
{
    if (mBegin > 0) {
        std::memmove(mBuffer.data(), mBuffer.data() + mBegin, mEnd - mBegin);
        mEnd -= mBegin;
        mBegin = 0;
    }
    if (mEnd + kPadding == mBuffer.size()) {
        mBuffer.resize((mBuffer.size() - kPadding) * 2 + kPadding);
    }
    // Not fread, which waits until the whole block is there: what a running program has written is shown at
    // once.
    ssize_t theCount = 0;
    do {
        theCount = ::read(fileno(mFile.get()), mBuffer.data() + mEnd, mBuffer.size() - kPadding - mEnd);
    } while (theCount < 0 && errno == EINTR);
    if (theCount < 0) {
        mIsFailed = true;
    }
    if (theCount <= 0) {
        return false;
    }
    mEnd += static_cast<std::size_t>(theCount);
    return true;
}

// Passes over the rest of a line that is too long.
LineReader::Result LineReader::SkipLine()
{
    for (;;) {
        mBegin = mEnd = 0;
        if (!Fill()) {
            mIsCutOff = true;
            return mIsFailed ? Result::Failure : Result::End;
        }
        const void* const theFeed = std::memchr(mBuffer.data(), '\n', mEnd);
        if (theFeed != nullptr) {
            mBegin = static_cast<std::size_t>(static_cast<const char*>(theFeed) - mBuffer.data()) + 1;
            return Result::TooLong;
        }
    }
}

bool LineReader::Rewind()
{
    if (::lseek(fileno(mFile.get()), 0, SEEK_SET) != 0) {
        return false;
    }
    mBegin = mEnd = 0;
    mNumber = 0;
    mIsCutOff = mIsFailed = false;
    return true;
}

} // namespace Inspect
