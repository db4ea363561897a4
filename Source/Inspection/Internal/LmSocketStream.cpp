// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmSocketStream.h"

#include <utility>

LmSocketStream::LmSocketStream(std::unique_ptr<LmConnection> theConnection)
    : mConnection(std::move(theConnection))
{
}

LmSocketStream::~LmSocketStream()
{
    Flush();
}

void LmSocketStream::Flush()
{
    mPending.erase(0, mConnection->Write(mPending.data(), mPending.size()));
}

bool LmSocketStream::Write(std::string& theLine)
{
    theLine += '\n';
    if (!mPending.empty()) {
        Flush();
    }
    const bool isTooMuch = !mPending.empty() && mPending.size() + theLine.size() > kMostPending;
    if (isTooMuch || mConnection->IsGone()) {
        return false;
    }
    // Before anything is sent, since a line is sent whole or not at all.
    mPending.reserve(mPending.size() + theLine.size());
    const std::size_t theSent = mPending.empty() ? mConnection->Write(theLine.data(), theLine.size()) : 0;
    mPending.append(theLine, theSent, std::string::npos);
    return !mConnection->IsGone();
}

bool LmSocketStream::Tend()
{
    if (!mPending.empty()) {
        Flush();
    }
    // A reader says nothing, so what is read is that it has gone.
    std::string theIgnored;
    mConnection->Read(theIgnored);
    return !mConnection->IsGone();
}
