// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLocalSocket_h
#define LmLocalSocket_h

#include <cstddef>
#include <memory>
#include <string>

// A socket in the runtime directory of the user whom the program runs for, and those who connect to it. Only
// that user can. Nothing of this waits, or raises a signal. In a process that was forked off it does
// nothing: the socket stays the first one's.
//
// What the system has for this stands in one file for each system. Not part of the interface.

class LmConnection
{
public:
    // Takes theDescriptor over.
    explicit LmConnection(int theDescriptor);
    ~LmConnection();
    LmConnection(const LmConnection&) = delete;
    LmConnection& operator=(const LmConnection&) = delete;

    // Appends what has come since.
    void Read(std::string& theText);

    // Hands on as many of these bytes as can be taken at once, and returns their number.
    std::size_t Write(const char* theBytes, std::size_t theCount);

    // Whether Read or Write found the other end closed.
    bool IsGone() const { return mIsGone; }

private:
    int mDescriptor;
    long mProcess; // that it belongs to
    bool mIsGone = false;
};

class LmLocalSocket
{
public:
    // A socket that is called after the program and its process, with theSuffix behind. Null, and what is
    // wrong in theTrouble, when there can be none.
    static std::unique_ptr<LmLocalSocket> Make(std::string& theTrouble, const std::string& theSuffix = {});

    // The socket's name goes with it.
    ~LmLocalSocket();
    LmLocalSocket(const LmLocalSocket&) = delete;
    LmLocalSocket& operator=(const LmLocalSocket&) = delete;

    // The next one who has connected; null when there is none.
    std::unique_ptr<LmConnection> Accept();

private:
    LmLocalSocket(int theDescriptor, std::string thePath);

    int mDescriptor;
    std::string mPath;
    long mProcess; // that it belongs to
};

#endif
