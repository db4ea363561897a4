// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "NamedObserver.h"

std::string DescribeValue(const LmValue& theValue)
{
    if (!theValue.IsValid()) {
        return "-";
    }
    if (!theValue.IsNumber()) {
        return theValue.IsString() ? "a string" : "a value";
    }
    char theText[32];
    std::snprintf(theText, sizeof theText, "%g", theValue.GetDouble());
    return theText;
}

std::string Diagnostic(const char* theSource, const char* theText)
{
    return std::string("Source/Core/") + theSource + ".cpp, line #: " + theText;
}

void NamedObserver::Tell(const char* theWhat, const LmKeyValueStore* theStore, const LmString& theKeyName,
                         const std::function<void()>& theAction)
{
    // "*" names no value.
    const bool isAny = theKeyName == kKeyAnyValue;
    mLog.push_back(mName + " " + theWhat + " " + theKeyName.GetUTF8() + ": " +
                   (isAny ? "?" : DescribeValue(theStore->GetKeyPathValue(theKeyName))));
    if (theAction) {
        const std::function<void()> theCopy = theAction;
        theCopy();
    }
}
