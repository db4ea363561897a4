// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef BindingTestSupport_h
#define BindingTestSupport_h

#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"

#include <Carbon/Carbon.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// What the tests of the bindings share.

// Strings ----------------------------------------------------------------------------------------------

inline LmValue TextValue(const char* theText)
{
    return LmValue(CFStringCreateWithCString(nullptr, theText, kCFStringEncodingUTF8), true);
}

inline std::string TextOf(CFStringRef theString)
{
    char theText[256] = "";
    if (theString == nullptr) {
        return "(null)";
    }
    CFStringGetCString(theString, theText, sizeof theText, kCFStringEncodingUTF8);
    return theText;
}

// Takes over the caller's reference.
inline std::string TextOfAdopted(CFStringRef theString)
{
    std::string theText = TextOf(theString);
    if (theString != nullptr) {
        CFRelease(theString);
    }
    return theText;
}

inline std::string TextOf(const LmValue& theValue)
{
    return theValue.IsString() ? TextOf(theValue.GetString()) : "(not a string)";
}

// Events -----------------------------------------------------------------------------------------------

// An event that is released at the end of the test's scope.
class TestEvent
{
public:
    TestEvent(UInt32 theClass, UInt32 theKind)
    {
        CreateEvent(nullptr, theClass, theKind, 0, kEventAttributeNone, &mEvent);
    }
    ~TestEvent() { ReleaseEvent(mEvent); }

    TestEvent(const TestEvent&) = delete;
    TestEvent& operator=(const TestEvent&) = delete;

    EventRef GetEvent() const { return mEvent; }

private:
    EventRef mEvent = nullptr;
};

// A handler that counts in the int that its user data points to, and handles nothing.
inline OSStatus CountEvent(EventHandlerCallRef, EventRef, void* theCounter)
{
    ++*static_cast<int*>(theCounter);
    return eventNotHandledErr;
}

// A handler that handles everything by doing nothing.
inline OSStatus ConsumeEvent(EventHandlerCallRef, EventRef, void*)
{
    return noErr;
}

// The journal ------------------------------------------------------------------------------------------

// Keeps the entries of one kind, and counts those of them of which the journal was told that what they began
// has ended.
class KeptEntries : public LmJournalHook
{
public:
    explicit KeptEntries(LmJournalKind theKind)
        : mKind(theKind)
    {
        LmSetJournalHook(this);
    }
    ~KeptEntries() { LmSetJournalHook(nullptr); }

    KeptEntries(const KeptEntries&) = delete;
    KeptEntries& operator=(const KeptEntries&) = delete;

    std::uint64_t Write(const LmJournalEntry& theEntry, const void* theScope) noexcept override
    {
        if (theEntry.theKind == mKind) {
            mEntries.push_back(theEntry);
            mOpen.push_back(theScope);
        }
        return mEntries.size();
    }
    void Close(const void* theScope) noexcept override
    {
        if (!mOpen.empty() && mOpen.back() == theScope) {
            mOpen.pop_back();
            mClosed += 1;
        }
    }

    std::vector<LmJournalEntry> mEntries;
    std::size_t mClosed = 0;

private:
    LmJournalKind mKind;
    std::vector<const void*> mOpen;
};

// Life -------------------------------------------------------------------------------------------------

// A binding that tells when it dies.
template <typename Binding>
class Mortal : public Binding
{
public:
    template <typename... Arguments>
    explicit Mortal(bool& isGone, Arguments... theArguments)
        : Binding(theArguments...),
          mIsGone(isGone)
    {
        mIsGone = false;
    }
    ~Mortal() override { mIsGone = true; }

private:
    bool& mIsGone;
};

// An observer that deletes a binding as soon as it hears of a change, and counts how often it hears.
class BindingDeleter : public LmKeyValueObserver
{
public:
    explicit BindingDeleter(LmKeyValueBinding* theBinding)
        : mBinding(theBinding)
    {
    }

    void ValueChanged(const LmKeyValueStore*, const LmString&) override
    {
        mCount += 1;
        delete mBinding;
    }

    int GetCount() const { return mCount; }

private:
    LmKeyValueBinding* mBinding;
    int mCount = 0;
};

#endif
