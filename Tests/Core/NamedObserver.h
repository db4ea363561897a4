// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef NamedObserver_h
#define NamedObserver_h

#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"
#include "StandardErrorCapture.h"

#include <functional>
#include <string>

// A value as an expectation reads it: "-" when invalid, a number, "a string", else "a value".
std::string DescribeValue(const LmValue& theValue);

// A line of a diagnostic, as StandardErrorCapture::TakeDiagnostics gives it: Diagnostic("LmKeyValueStore",
// "HasKey(theKeyName)").
std::string Diagnostic(const char* theSource, const char* theText);

// An observer that notes what it is told in a log which it shares with others, so that the order among them
// shows: "A changing volume: 40", "A changed volume: 55". The number is what the key reads at that moment.
//
// It can do something as well when it is told; that may destroy it.
class NamedObserver : public LmKeyValueObserver
{
public:
    NamedObserver(const char* theName, Lines& theLog)
        : mName(theName),
          mLog(theLog)
    {
    }

    void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        Tell("changing", theStore, theKeyName, mOnChanging);
    }

    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
    {
        Tell("changed", theStore, theKeyName, mOnChanged);
    }

    // What to do, after the note, when told.
    std::function<void()> mOnChanging;
    std::function<void()> mOnChanged;

private:
    void Tell(const char* theWhat, const LmKeyValueStore* theStore, const LmString& theKeyName,
              const std::function<void()>& theAction);

    std::string mName; // stands in front of each note
    Lines& mLog;       // where the notes go; not owned
};

#endif
