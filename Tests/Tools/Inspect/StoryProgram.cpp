// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// StoryProgram slider|settled|area: what Documentation/WhyItMoved.md explains. StoryTests.sh compares what
// lminspect says of it with that page.

#include "LmBindings.h"
#include "LmSettledControlBinding.h"

#include <Carbon/Carbon.h>
#include <Simulation/UserSimulator.h>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

// ---- A slider that is dragged further than the model goes

class Heating : public LmKeyValueBinding
{
public:
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override
    {
        LmKeyValueBinding::SetKeyValue(theKey, LmValue(std::min(theValue.GetSInt32(), 30L)));
    }
};

ControlRef MakeSlider()
{
    const Rect thePlace = {100, 100, 300, 400};
    const Rect theBounds = {10, 10, 30, 210};
    WindowRef theWindow = nullptr;
    ControlRef theRoot = nullptr;
    ControlRef theSlider = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute,
                    &thePlace, &theWindow);
    CreateRootControl(theWindow, &theRoot);
    CreateSliderControl(theWindow, &theBounds, 20, 0, 100, kControlSliderDoesNotPoint, 0, true, nullptr,
                        &theSlider);
    ShowWindow(theWindow);
    return theSlider;
}

template <typename Binding>
bool PlaySlider()
{
    static auto& sHeating = *new Heating;
    LmNameObject(sHeating, "heating");
    sHeating.SetKeyPathValue("degrees", LmValue(10));
    const ControlRef theControl = MakeSlider();
    auto* const theSlider = new Binding(theControl);
    LmNameObject(*theSlider, "slider");
    theSlider->Bind("value", &sHeating, "degrees", new LmScaleTransform(2), new LmScaleTransform(0.5));
    return static_cast<bool>(Host::UserSimulator().DragSlider(theControl, 80));
}

// ---- Two keys that a third one is made of

class Room : public LmKeyValueBinding
{
public:
    Room()
    {
        MakeDependency("width", "area");
        MakeDependency("length", "area");
        MakeDependency("area", "price");
    }

    void Resize(int theWidth, int theLength)
    {
        SetKeyPathValue("width", LmValue(theWidth));
        SetKeyPathValue("length", LmValue(theLength));
    }

    LmValue GetKeyValue(const LmString& theKey) const override
    {
        if (theKey == LmString("area")) {
            return LmValue(mWidth * mLength);
        }
        if (theKey == LmString("price")) {
            return LmValue(mWidth * mLength * 25);
        }
        return LmValue(theKey == LmString("width") ? mWidth : mLength);
    }

    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override
    {
        (theKey == LmString("width") ? mWidth : mLength) = theValue.GetSInt32();
    }

private:
    long mWidth = 3;
    long mLength = 4;
};

bool PlayArea()
{
    static auto& sRoom = *new Room;
    static auto& sSign = *new LmKeyValueBinding;
    static auto& sBill = *new LmKeyValueBinding;
    LmNameObject(sRoom, "room");
    LmNameObject(sSign, "sign");
    LmNameObject(sBill, "bill");
    sSign.BindTo("text", &sRoom, "area", new LmToStringTransform);
    sBill.BindTo("total", &sRoom, "price", nullptr);
    sRoom.Resize(5, 6);
    return true;
}

} // namespace

int main(int theCount, char** theArguments)
{
    const std::string theStory = theCount > 1 ? theArguments[1] : "";
    bool isPlayed = false;
    if (theStory == "slider") {
        isPlayed = PlaySlider<LmControlBinding>();
    } else if (theStory == "settled") {
        isPlayed = PlaySlider<LmSettledControlBinding>();
    } else if (theStory == "area") {
        isPlayed = PlayArea();
    }
    return isPlayed ? EXIT_SUCCESS : EXIT_FAILURE;
}
