// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLocalSocket.h"

#include <utility>

// Where lminspect does not run, nobody would connect.

LmConnection::LmConnection(int theDescriptor)
    : mDescriptor(theDescriptor),
      mProcess(0)
{
}

LmConnection::~LmConnection() = default;

void LmConnection::Read(std::string&)
{
    mIsGone = true;
}

std::size_t LmConnection::Write(const char*, std::size_t)
{
    mIsGone = true;
    return 0;
}

LmLocalSocket::LmLocalSocket(int theDescriptor, std::string thePath)
    : mDescriptor(theDescriptor),
      mPath(std::move(thePath)),
      mProcess(0)
{
}

LmLocalSocket::~LmLocalSocket() = default;

std::unique_ptr<LmLocalSocket> LmLocalSocket::Make(std::string& theTrouble, const std::string&)
{
    theTrouble = "this system has none";
    return nullptr;
}

std::unique_ptr<LmConnection> LmLocalSocket::Accept()
{
    return nullptr;
}
