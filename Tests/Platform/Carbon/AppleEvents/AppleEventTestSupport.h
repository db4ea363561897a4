// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AppleEventTestSupport_h
#define AppleEventTestSupport_h

#include "DescriptorTestSupport.h"

#include <cstdio>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

// A handler of Apple events that does what the test wants. It is removed at the end.
class TestEventHandler
{
public:
    using Action = std::function<OSErr(const AppleEvent* theEvent, AppleEvent* theReply)>;

    TestEventHandler(AEEventClass theClass, AEEventID theIdentifier, Action theAction,
                     bool theIsSystem = false)
        : mClass(theClass),
          mIdentifier(theIdentifier),
          mIsSystem(theIsSystem),
          mAction(std::move(theAction))
    {
        sHandlers.push_back(this);
        EXPECT_EQ(AEInstallEventHandler(theClass, theIdentifier, Call, ReferenceOf(sHandlers.size() - 1),
                                        theIsSystem),
                  noErr);
    }
    ~TestEventHandler() { AERemoveEventHandler(mClass, mIdentifier, Call, mIsSystem); }
    TestEventHandler(const TestEventHandler&) = delete;
    TestEventHandler& operator=(const TestEventHandler&) = delete;

    static OSErr Call(const AppleEvent* theEvent, AppleEvent* theReply, SRefCon theReference)
    {
        size_t theIndex = 0;
        static_assert(sizeof theIndex == sizeof theReference);
        std::memcpy(&theIndex, &theReference, sizeof theIndex);
        return sHandlers[theIndex]->mAction(theEvent, theReply);
    }

private:
    // A number on some hosts, a pointer on others.
    static SRefCon ReferenceOf(size_t theIndex)
    {
        SRefCon theReference = {};
        std::memcpy(&theReference, &theIndex, sizeof theIndex);
        return theReference;
    }

    inline static std::vector<TestEventHandler*> sHandlers;

    AEEventClass mClass;
    AEEventID mIdentifier;
    bool mIsSystem;
    Action mAction;
};

// An event to the program itself.
class TestAppleEvent : public TestDescriptor
{
public:
    TestAppleEvent(AEEventClass theClass, AEEventID theIdentifier)
    {
        const ProcessSerialNumber theProcess = {0, kCurrentProcess};
        TestDescriptor theTarget(typeProcessSerialNumber, BytesOfValue(theProcess));
        EXPECT_EQ(AECreateAppleEvent(theClass, theIdentifier, theTarget, kAutoGenerateReturnID,
                                     kAnyTransactionID, *this),
                  noErr);
    }

    OSErr Send()
    {
        return AESend(*this, nullptr, kAENoReply, kAENormalPriority, kAEDefaultTimeout, nullptr, nullptr);
    }
};

// A file that is gone at the end.
class TestFile
{
public:
    TestFile()
    {
        char theName[] = "/tmp/a bXXXXXX";
        close(mkstemp(theName));
        mPath = theName;
    }
    ~TestFile() { std::remove(mPath.c_str()); }
    TestFile(const TestFile&) = delete;
    TestFile& operator=(const TestFile&) = delete;

    const std::string& Path() const { return mPath; }

    std::string Reference() const
    {
        FSRef theReference = {};
        EXPECT_EQ(FSPathMakeRef(reinterpret_cast<const UInt8*>(mPath.c_str()), &theReference, nullptr),
                  noErr);
        return BytesOfValue(theReference);
    }

    // The path as a URL has it.
    std::string URL() const { return "/tmp/a%20b" + mPath.substr(8); }

private:
    std::string mPath;
};

#endif
