// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef NotificationRecorder_h
#define NotificationRecorder_h

#include "LmKeyValueObserver.h"
#include "StandardErrorCapture.h"

// An observer that notes every notification as a line, "changing value" or "changed value", in the order
// in which they come. Expectations compare the whole list, so that a failure shows both.
class NotificationRecorder : public LmKeyValueObserver
{
public:
    void ValueChanging(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        mLines.push_back(std::string("changing ") + theKeyName.GetUTF8());
    }

    void ValueChanged(const LmKeyValueStore*, const LmString& theKeyName) override
    {
        mLines.push_back(std::string("changed ") + theKeyName.GetUTF8());
    }

    // What came since the last call, and forgets it.
    Lines Take()
    {
        Lines theLines;
        theLines.swap(mLines);
        return theLines;
    }

private:
    Lines mLines;
};

#endif
