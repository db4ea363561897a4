// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindings.h"

#include <cstdio>

// A binding object that tells its name in the trace.
class Part : public LmKeyValueBinding
{
public:
    explicit Part(const char* theName)
        : mName(theName)
    {
    }
    LmString GetDebugInfo() const override { return mName; }

private:
    LmString mName;
};

class Display : public LmKeyValueObserver
{
public:
    void ValueChanged(const LmKeyValueStore*, const LmString& theKey) override
    {
        std::fprintf(stderr, "  the display hears of %s\n", theKey.GetUTF8());
    }
};

static void Say(const char* theLine)
{
    std::fprintf(stderr, "%s\n", theLine);
}

static void FollowAChange()
{
    Say("The trace of a change:");
    Part theRadio("[radio]");
    Part theSlider("[slider]");
    theSlider.Bind("value", &theRadio, "volume", NULL, NULL);
    LmDebugObject::SetLogging(true);
    theRadio.SetKeyPathValue("volume", LmValue(40L));
    LmDebugObject::SetLogging(false);
}

static void SetAFraction()
{
    Say("40 and 40.9 are equal, so nothing changes:");
    Part theRadio("[radio]");
    Display theDisplay;
    theRadio.SetKeyPathValue("volume", LmValue(40L));
    theRadio.ObserveKeyPathValue("volume", &theDisplay);
    theRadio.SetKeyPathValue("volume", LmValue(40.9));
    theRadio.SetKeyPathValue("volume", LmValue(41.0));
}

static void ObserveEverything()
{
    Say("\"*\" hears of keys that somebody has asked for by name:");
    Part theRadio("[radio]");
    Part theSlider("[slider]");
    Display theDisplay;
    theRadio.ObserveKeyPathValue("*", &theDisplay);
    theRadio.SetKeyPathValue("volume", LmValue(40L));
    theSlider.Bind("value", &theRadio, "volume", NULL, NULL);
    theRadio.SetKeyPathValue("volume", LmValue(55L));
}

static void MisspellAKey()
{
    Say("A key that is not there has no value to copy:");
    Part theRadio("[radio]");
    Part theText("[text]");
    theRadio.SetKeyPathValue("volume", LmValue(40L));
    theText.BindTo("value", &theRadio, "volumne", NULL);
    std::fprintf(stderr, "  the text has %s\n", theText.HasKey("value") ? "a value" : "no value");
    theText.Unbind("value", &theRadio);
}

static void ReadTheWrongKind()
{
    Say("A value of another kind is a line on the standard error stream:");
    Part theRadio("[radio]");
    theRadio.SetKeyPathValue("station", LmValue(40L));
    theRadio.GetKeyPathValue("station").GetString();
}

int main()
{
    FollowAChange();
    SetAFraction();
    ObserveEverything();
    MisspellAKey();
    ReadTheWrongKind();
}
