// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// FaultProgram <fault> [<status>]: makes one mistake that `lminspect lint` knows, called as lint calls it.
// FaultTests.sh runs it once for each. What is left at the end is meant to be. "none" is a program to attach
// to.

#include "LmBindings.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

class Watcher : public LmKeyValueObserver
{
};

// A level that it corrects, as a model does that knows its limits.
class Limited : public LmKeyValueBinding
{
public:
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override
    {
        LmKeyValueBinding::SetKeyValue(theKey, LmValue(std::min(theValue.GetSInt32(), 25L)));
    }
};

// An object that is never destroyed, and has a name.
template <typename Class>
Class& Left(const char* theName)
{
    static auto& sLeft = *new std::vector<Class*>;
    sLeft.push_back(new Class);
    LmNameObject(*sLeft.back(), theName);
    return *sLeft.back();
}

ControlRef MakeSlider()
{
    const Rect thePlace = {100, 100, 300, 400};
    const Rect theBounds = {10, 10, 30, 210};
    WindowRef theWindow = nullptr;
    ControlRef theRoot = nullptr;
    ControlRef theSlider = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &thePlace, &theWindow);
    CreateRootControl(theWindow, &theRoot);
    CreateSliderControl(theWindow, &theBounds, 10, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theSlider);
    return theSlider;
}

// ---- The faults

void NeverSet()
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theText;
    LmNameObject(theModel, "model");
    LmNameObject(theText, "text");
    theModel.SetKeyPathValue("volume", LmValue(40));
    theText.BindTo("value", &theModel, "volumne", nullptr);
}

void UnknownKey()
{
    LmKeyValueBinding& theModel = Left<LmKeyValueBinding>("model");
    theModel.SetKeyPathValue("volume", LmValue(40));
    auto* const theSlider = new LmControlBinding(MakeSlider());
    LmNameObject(*theSlider, "slider");
    theSlider->BindTo("maximun", &theModel, "volume", nullptr);
}

void NeverFollows()
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theMeter;
    LmNameObject(theModel, "model");
    LmNameObject(theMeter, "meter");
    theModel.SetKeyPathValue("volume", LmValue(40));
    theMeter.BindTo("bar", &theModel, "volume", nullptr);
    theMeter.BindTo("text", &theModel, "volume", nullptr);
}

void FractionDropped()
{
    LmKeyValueStore theModel;
    LmNameObject(theModel, "model");
    theModel.SetKeyPathValue("target", LmValue(20.0));
    theModel.SetKeyPathValue("target", LmValue(20.5));
}

void ShownOtherwise()
{
    Limited& theModel = Left<Limited>("model");
    theModel.SetKeyPathValue("level", LmValue(20));
    const ControlRef theControl = MakeSlider();
    auto* const theSlider = new LmControlBinding(theControl);
    LmNameObject(*theSlider, "slider");
    theSlider->Bind("value", &theModel, "level", nullptr, nullptr);
    SetControl32BitValue(theControl, 30);
}

void DeadSource()
{
    LmKeyValueBinding theModel;
    LmNameObject(theModel, "model");
    theModel.SetKeyPathValue("volume", LmValue(40));
    LmKeyValueBinding& theText = Left<LmKeyValueBinding>("text");
    theText.BindTo("value", &theModel, "volume", nullptr);
}

void SharedTransform()
{
    LmKeyValueBinding& theModel = Left<LmKeyValueBinding>("model");
    theModel.SetKeyPathValue("volume", LmValue(40));
    auto* const theTransform = new LmToStringTransform;
    Left<LmKeyValueBinding>("first").BindTo("value", &theModel, "volume", theTransform);
    Left<LmKeyValueBinding>("second").BindTo("value", &theModel, "volume", theTransform);
}

void LongRound()
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theText;
    LmNameObject(theModel, "model");
    LmNameObject(theText, "text");
    theModel.SetKeyPathValue("level", LmValue(0));
    theText.Bind("value", &theModel, "level", nullptr, new LmScaleTransform(0.5));
    theModel.SetKeyPathValue("level", LmValue(16));
}

void SetTwice()
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theSlider;
    LmKeyValueBinding theText;
    LmNameObject(theText, "text");
    theModel.SetKeyPathValue("level", LmValue(7));
    theSlider.BindTo("value", &theModel, "level", nullptr);
    theText.BindTo("value", &theSlider, "value", nullptr);
    theText.BindTo("value", &theModel, "level", new LmScaleTransform(2));
    theModel.SetKeyPathValue("level", LmValue(8));
}

void ObserverLeft()
{
    LmKeyValueStore theModel;
    LmNameObject(theModel, "model");
    Watcher& theWatcher = Left<Watcher>("watcher");
    theModel.ObserveKeyPathValue("volume", &theWatcher);
}

void NotFlushed()
{
    static auto* const sPreferences = new LmPreferenceBinding(CFSTR("org.lmbindings.Fault"));
    LmNameObject(*sPreferences, "preferences");
    sPreferences->SetKeyPathValue("volume", LmValue(40));
}

// ---- A program that goes on until it is told to quit

void NoFault()
{
    static LmKeyValueBinding sModel;
    static EventLoopTimerRef sTimer = nullptr;
    LmNameObject(sModel, "model");
    const auto count = [](EventLoopTimerRef, void*) {
        static int sCount = 0;
        sModel.SetKeyPathValue("level", LmValue(++sCount));
    };
    InstallEventLoopTimer(GetMainEventLoop(), 0, 0.01, NewEventLoopTimerUPP(count), nullptr, &sTimer);
    RunApplicationEventLoop();
}

struct Fault
{
    const char* theName;
    void (*theCall)();
};

const Fault kFaults[] = {{"never-set", NeverSet},
                         {"unknown-key", UnknownKey},
                         {"never-follows", NeverFollows},
                         {"fraction-dropped", FractionDropped},
                         {"shown-otherwise", ShownOtherwise},
                         {"dead-source", DeadSource},
                         {"shared-transform", SharedTransform},
                         {"long-round", LongRound},
                         {"set-twice", SetTwice},
                         {"observer-left", ObserverLeft},
                         {"not-flushed", NotFlushed},
                         {"none", NoFault}};

} // namespace

int main(int theCount, char** theArguments)
{
    for (const Fault& theFault : kFaults) {
        if (theCount > 1 && std::strcmp(theArguments[1], theFault.theName) == 0) {
            theFault.theCall();
            return theCount > 2 ? std::atoi(theArguments[2]) : EXIT_SUCCESS;
        }
    }
    return EXIT_FAILURE;
}
